#!/usr/bin/env bash
# Makes all that is handed out, in build/packages: Debian packages and an archive for Linux, the
# archive for Windows, the source archive, Python's wheels, and beside each its SHA-256 checksum.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build package
packages=$PWD/build/packages
rm -rf "$packages"
for system in linux windows; do
    build=build/package-$system
    cmake --preset "$system-release" -B "$build" -D KVOCAEIO_BUILD_TESTS=OFF
    cmake --build "$build" -j "$(nproc)"
    cpack --config "$build/CPackConfig.cmake" -B "$packages"
    cp "$build"/wheel/*.whl "$packages"
done
cpack --config build/package-linux/CPackSourceConfig.cmake -B "$packages"
rm -rf "$packages/_CPack_Packages"

cd "$packages"
for wheel in *.whl; do
    sha256sum "$wheel" >"$wheel.sha256"
done
sha256sum --check --quiet ./*.sha256
ls -l
