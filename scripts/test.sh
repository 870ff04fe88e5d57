#!/usr/bin/env bash
# Builds and tests everything: Linux (g++), Linux under the sanitizers (clang), Windows under Wine, and
# the checks of format, documentation and style. Ends at the first stage that fails and names it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

jobs=$(nproc)
stage=
trap '[ -z "$stage" ] || printf "\nFAILED: %s\n" "$stage" >&2' EXIT

begin() {
    stage=$1
    printf '\n=== %s (%d s)\n' "$stage" "$SECONDS"
}

buildPreset() {
    begin "$1: build"
    cmake --preset "$1"
    cmake --build --preset "$1" -j "$jobs"
}

testPreset() {
    buildPreset "$1"
    begin "$1: tests"
    ctest --preset "$1" -j "$jobs"
}

# All sources, or those of the given folders.
sources() {
    find "${@:-.}" -path ./build -prune -o \( -name '*.h' -o -name '*.cpp' \) -print0
}

begin 'set-up'
scripts/setup.sh build test bench

begin 'clang-format'
sources | xargs -0 clang-format --dry-run -Werror

begin 'documentation'
scripts/check_docs.py

testPreset linux-release
testPreset linux-sanitize # replays the fuzz corpora, as every other preset does
testPreset linux-thread # one test, which is all that this preset builds beside the library
testPreset windows-release

begin 'clang-tidy'
find text abaqus package nastran patran -name '*.cpp' ! -name '*_windows.cpp' -print0 |
    xargs -0 -n 1 -P "$jobs" clang-tidy -p build/linux-sanitize --quiet --warnings-as-errors='*'

stage=
printf '\nAll stages passed (%d s)\n' "$SECONDS"
