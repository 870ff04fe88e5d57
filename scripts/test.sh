#!/usr/bin/env bash
# Builds and tests everything: Linux (g++), Linux under the sanitizers (clang), Windows under Wine, and
# the checks of format, documentation and style. Ends at the first stage that fails and names it; says
# at the end how long each stage has taken.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

jobs=$(nproc)
stage=
started=0
times=()
trap '[ -z "$stage" ] || printf "\nFAILED: %s\n" "$stage" >&2' EXIT

finish() {
    [ -z "$stage" ] || times+=("$(printf '%5d s  %s' $((SECONDS - started)) "$stage")")
    stage=
}

begin() {
    finish
    stage=$1
    started=$SECONDS
    printf '\n=== %s (%d s)\n' "$stage" "$SECONDS"
}

buildPreset() {
    begin "$1: build"
    cmake --preset "$1" -D KVOCAEIO_WARNINGS_AS_ERRORS=ON
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

# The tests write a hundred thousand small files: into memory, where it holds them.
memory=$(df --output=avail --block-size=1M /dev/shm 2>/dev/null | tail -n 1) || memory=0
if [ -z "${TMPDIR:-}" ] && [ "$memory" -ge 1024 ] && [ -w /dev/shm ]; then
    export TMPDIR=/dev/shm
fi

begin 'set-up'
scripts/setup.sh build package test bench

begin 'clang-format'
sources | xargs -0 clang-format --dry-run -Werror

begin 'documentation'
scripts/check_docs.py

testPreset linux-release

begin 'reference'
scripts/reference.sh

testPreset linux-sanitize # replays the fuzz corpora, as every other preset does
testPreset linux-thread # two tests, which are all that this preset builds beside the library

buildPreset windows-release
begin 'windows-release: tests'
# Wine's services keep the output of the program open that starts them. Started by a test, they would
# make ctest wait for their end.
emulator=$(sed -n 's/^KVOCAEIO_WINE:[^=]*=//p' build/windows-release/CMakeCache.txt)
env WINEPREFIX="$PWD/build/windows-release/wine" WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml= \
    "$emulator" wineboot </dev/null >/dev/null 2>&1
# Windows programs write their small files where the Linux tests write theirs.
for temp in build/windows-release/wine/drive_c/users/*/Temp; do
    rm -rf "$temp"
    ln -s "${TMPDIR:-/tmp}" "$temp"
done
ctest --preset windows-release -j "$jobs"

begin 'clang-tidy'
checkStyle() {
    xargs -0 -I {} -P "$jobs" clang-tidy --quiet --warnings-as-errors='*' {} \
        -- -std=c++20 -I . -I include -D KVOCAEIO_BUILDING
}

# Many sources in one, so that clang-tidy reads the headers once. They are copied, not included: the
# analyzer does not follow paths through included code. A header that an earlier source includes is
# left out; one that a source includes twice stays, to be found.
merged() {
    awk '/^#include/ {
             again = ($0 in from) && from[$0] != FILENAME
             from[$0] = FILENAME
             if (again) next
         }
         { print }' "$@"
}

mapfile -d '' library < <(find text report abaqus package nastran patran tidy c -name '*.cpp' \
    ! -name '*_windows.cpp' -print0 | sort -z)
half=$((${#library[@]} / 2))
mkdir -p build/tidy
merged "${library[@]:0:half}" >build/tidy/first.cpp
merged "${library[@]:half}" >build/tidy/second.cpp
# Where that fails, each source is checked alone, which tells the places and decides.
printf '%s\0' build/tidy/*.cpp | checkStyle || printf '%s\0' "${library[@]}" | checkStyle

finish
printf '\n%s' "${times[@]}"
printf '\n%5d s  all stages passed\n' "$SECONDS"
