#!/usr/bin/env bash
# Builds the library and its host on Linux and shows what they read of the sample files.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build
cmake --preset linux-release
cmake --build --preset linux-release --target kvocaeio

shopt -s nullglob
for file in examples/data/*.inp; do
    printf '\n== %s\n' "$file"
    build/linux-release/bin/kvocaeio info "$file"
done
