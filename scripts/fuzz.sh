#!/usr/bin/env bash
# Fuzzes one reader: scripts/fuzz.sh NAME SECONDS
#
# NAME is that of a target in tests/fuzz. New inputs, and those that the reader fails on, go to
# build/linux-fuzz/found/NAME; the corpus in the repository stays as it is.
set -euo pipefail
if [ $# -ne 2 ]; then
    echo "usage: scripts/fuzz.sh NAME SECONDS" >&2
    exit 2
fi
name=$1 seconds=$2
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh fuzz
cmake --preset linux-fuzz
cmake --build --preset linux-fuzz --target "fuzz_$name"

found=build/linux-fuzz/found/$name
mkdir -p "$found/inputs"
options=(-max_total_time="$seconds" -timeout=20 -artifact_prefix="$found/")
if [ -f "tests/fuzz/$name.dict" ]; then
    options+=(-dict="tests/fuzz/$name.dict")
fi
# The readers print progress lines; the fuzzer reports on standard error.
"build/linux-fuzz/bin/fuzz_$name" "${options[@]}" "$found/inputs" "tests/fuzz/corpus/$name" >/dev/null
