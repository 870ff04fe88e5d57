#!/usr/bin/env bash
# Installs what is missing of the programs and libraries that the project needs (Debian, Ubuntu).
#
# usage: scripts/setup.sh [build | package | test | fuzz | bench]...
#   build    what the Linux build needs
#   package  and what scripts/package.sh needs: mingw-w64, Python, tools of LLVM and of Debian's
#            developers
#   test     and what scripts/test.sh needs: clang, Wine, Python with what the tests of its module
#            use, a locale with a decimal comma, what checks packages, manual pages, completion, the
#            interface and the page of kvocaeio view, programs and decks to compare with
#   fuzz     clang with libFuzzer
#   bench    Google Benchmark, and Python with numpy
# Without a word: all of them.
set -euo pipefail

[ $# -gt 0 ] || set -- build package test fuzz bench

packages=(cmake ninja-build g++ pkg-config libgtest-dev libgmock-dev libcli11-dev nlohmann-json3-dev
    zlib1g-dev)
locales=()
for part in "$@"; do
    case $part in
        build) ;;
        package)
            packages+=(g++-mingw-w64-x86-64-posix libz-mingw-w64-dev llvm dpkg-dev file python3)
            ;;
        test)
            packages+=(clang clang-format clang-tidy googletest libclang-rt-14-dev lld locales
                python3 wine64 lintian groff-base fish zsh doxygen abigail-tools xz-utils chromium
                calculix-ccx calculix-ccx-test freecad-common gmsh
                mypy python3-dask python3-meshio python3-numpy python3-pandas python3-pip
                python3-pytest python3-tqdm python3-venv python3-vtk9)
            locales+=(de_DE)
            ;;
        fuzz) packages+=(clang libclang-rt-14-dev) ;;
        bench) packages+=(libbenchmark-dev python3-numpy) ;;
        *)
            echo "setup.sh: unknown part '$part'" >&2
            exit 2
            ;;
    esac
done

asRoot() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

# The page of kvocaeio view is made with it; another source of npm than Debian's will do.
command -v npm >/dev/null || packages+=(npm)

isInstalled() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

missing=()
for package in "${packages[@]}"; do
    isInstalled "$package" || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    asRoot apt-get update -qq
    asRoot env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

for locale in "${locales[@]}"; do
    if ! locale -a | grep -qix "$locale.utf-\?8"; then
        asRoot localedef -i "$locale" -f UTF-8 "$locale.UTF-8"
    fi
done
