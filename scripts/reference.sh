#!/usr/bin/env bash
# Makes the reference site in build/reference/html: headers and pages by Doxygen, and, where the Linux
# build has packed it, the Python module by pydoc. A member that is not documented, and a link that
# leads nowhere, is an error; docstrings are held by the module's own tests.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

KVOCAEIO_VERSION=$(sed -n 's/^#define KVOCAEIO_VERSION_M[A-Z]* \|^#define KVOCAEIO_VERSION_PATCH //p' \
    include/kvocaeio/export.h | paste -s -d .)
export KVOCAEIO_VERSION KVOCAEIO_REFERENCE=build/reference
rm -rf "$KVOCAEIO_REFERENCE"
mkdir -p "$KVOCAEIO_REFERENCE/python"
doxygen scripts/Doxyfile

wheel=$(find build/linux-release -maxdepth 2 -name 'kvocaeio-*.whl')
if [ -n "$wheel" ]; then
    (
        cd "$KVOCAEIO_REFERENCE/python"
        /usr/bin/python3 -m zipfile -e "../../../$wheel" .
        /usr/bin/python3 -m pydoc -w kvocaeio kvocaeio.meshio
        # Without the path of this folder, and with what pydoc escapes twice.
        sed -i -E 's#<a href="file:[^"]*">[^<]*</a>##; s/&amp;gt;/\&gt;/g' ./*.html
        mv ./*.html ../html/
    )
fi
echo "$KVOCAEIO_REFERENCE/html/index.html"
