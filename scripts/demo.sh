#!/usr/bin/env bash
# Builds the library and its host on Linux and shows what they read of the sample files, and what they
# write of one.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build
cmake --preset linux-release
cmake --build --preset linux-release --target kvocaeio

host=build/linux-release/bin/kvocaeio
for file in examples/data/*.{inp,bdf,pat,3di}; do
    printf '\n== %s\n' "$file"
    "$host" info "$file"
done
printf '\n== examples/data/reports\n'
"$host" info --reports examples/data/reports

converted=$(mktemp -d)
trap 'rm -rf "$converted"' EXIT
printf '\n== examples/data/housing.inp converted\n'
"$host" convert examples/data/housing.inp "$converted/housing.nas"
"$host" convert examples/data/housing.inp "$converted/housing.pat"
