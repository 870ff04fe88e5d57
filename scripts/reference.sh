#!/usr/bin/env bash
# Makes the reference site of the headers and pages in build/reference/html (Doxygen). A member that is
# not documented, and a link that leads nowhere, is an error.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

KVOCAEIO_VERSION=$(sed -n 's/^#define KVOCAEIO_VERSION_M[A-Z]* \|^#define KVOCAEIO_VERSION_PATCH //p' \
    include/kvocaeio/export.h | paste -s -d .)
export KVOCAEIO_VERSION KVOCAEIO_REFERENCE=build/reference
rm -rf "$KVOCAEIO_REFERENCE"
mkdir -p "$KVOCAEIO_REFERENCE"
doxygen scripts/Doxyfile
echo "$KVOCAEIO_REFERENCE/html/index.html"
