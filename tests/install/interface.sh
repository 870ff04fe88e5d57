#!/usr/bin/env bash
# Holds the interface of a library (symbols, layouts of structs and classes) against the description
# of it that hosts rely on, interface.abi.xz, and the description against the changelog. What the
# public headers do not show may change.
#
# usage: interface.sh LIBRARY           LIBRARY has debug information
#        interface.sh LIBRARY --write   writes the description anew, of an interface that was changed
#                                       on purpose
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
headers=$here/../../include/kvocaeio
changelog=$here/../../CHANGELOG.md
description=$(mktemp --suffix=.abi)
trap 'rm -f "$description"' EXIT

if [ "${2:-}" = --write ]; then
    abidw --exported-interfaces-only --no-corpus-path --no-show-locs --no-comp-dir-path \
        --headers-dir "$headers" --drop-private-types --out-file "$description" "$1"
    xz -9 --stdout "$description" >"$here/interface.abi.xz"
else
    xz --decompress --stdout "$here/interface.abi.xz" >"$description"
    if ! changes=$(abidiff --headers-dir2 "$headers" --drop-private-types "$description" "$1"); then
        printf '%s\n\n' "$changes"
        echo "The interface has changed. If that is on purpose: $0 LIBRARY --write, and tell it in CHANGELOG.md"
        exit 1
    fi
fi

digest=$(sha256sum "$here/interface.abi.xz" | head -c 8)
# The changelog's newest section.
if ! sed '0,/^## /d; /^## /,$d' "$changelog" | tr -s '\n ' ' ' | grep -q "interface $digest"; then
    echo "The newest section of CHANGELOG.md must name the interface that it is about: interface $digest"
    exit 1
fi
