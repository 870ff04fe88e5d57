#!/usr/bin/env bash
# Builds the library and its host on Linux and shows what they read of the sample files, what they
# write of one, and what is lost or changed on the way.
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
printf '\n== examples/data/hinge.inp converted\n'
"$host" convert examples/data/hinge.inp "$converted/hinge.nas"
"$host" convert examples/data/hinge.inp "$converted/hinge.pat"
printf '\n== examples/data checked\n'
"$host" check examples/data || true  # its exit code tells how bad the findings are
