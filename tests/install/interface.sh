#!/usr/bin/env bash
# Holds the interface of a library (symbols, layouts of structs and classes) against the description
# of it that hosts rely on, interface.abi, and the description against the changelog.
#
# usage: interface.sh LIBRARY           LIBRARY has debug information
#        interface.sh LIBRARY --write   writes the description anew, of an interface that was changed
#                                       on purpose
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
description=$here/interface.abi
suppressions=$here/interface.suppr
changelog=$here/../../CHANGELOG.md

if [ "${2:-}" = --write ]; then
    abidw --exported-interfaces-only --no-corpus-path --no-show-locs --no-comp-dir-path \
        --suppressions "$suppressions" --out-file "$description" "$1"
elif ! changes=$(abidiff --suppressions "$suppressions" "$description" "$1"); then
    printf '%s\n\n' "$changes"
    echo "The interface has changed. If that is on purpose: $0 LIBRARY --write, and tell it in CHANGELOG.md"
    exit 1
fi

digest=$(sha256sum "$description" | head -c 8)
# The changelog's newest section.
if ! sed '0,/^## /d; /^## /,$d' "$changelog" | grep -q "interface $digest"; then
    echo "The newest section of CHANGELOG.md must name the interface that it is about: interface $digest"
    exit 1
fi
