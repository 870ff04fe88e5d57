# Toolchain: 64-bit Windows programs built on Linux with mingw-w64 and run there by Wine.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
# The variant with POSIX threads is the one whose standard library has std::thread and std::mutex.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# A DLL that brings its runtime along needs nothing beside it but the system.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)

list(APPEND CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Debian's loader is on the PATH only where the package "wine" stands beside "wine64". Every build
# folder has a Wine folder of its own, which the target wine_prefix fills.
find_program(KVOCAEIO_WINE NAMES wine64 wine PATHS /usr/lib/wine)
set(CMAKE_CROSSCOMPILING_EMULATOR
    env WINEPREFIX=${CMAKE_BINARY_DIR}/wine WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml=
    ${KVOCAEIO_WINE})
