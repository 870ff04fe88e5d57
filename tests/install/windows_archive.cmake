# The Windows archive under Wine, and its import library with a linker of Microsoft's kind.
find_program(KVOCAEIO_CLANG clang REQUIRED)
find_program(KVOCAEIO_LLD_LINK NAMES lld-link lld-link-14 REQUIRED)
add_test(NAME install_windows_archive
    COMMAND ${CMAKE_COMMAND} -D DECK=${deck}
        -D TREE=${packages}/kvocaeio-${PROJECT_VERSION}-windows-x86_64
        -D "EMULATOR=${CMAKE_CROSSCOMPILING_EMULATOR}"
        -D CLANG=${KVOCAEIO_CLANG} -D LINKER=${KVOCAEIO_LLD_LINK}
        -D VERSION_C=${CMAKE_CURRENT_SOURCE_DIR}/version.c
        -P ${CMAKE_CURRENT_SOURCE_DIR}/check_windows_archive.cmake)
set_tests_properties(install_windows_archive PROPERTIES FIXTURES_REQUIRED packages)
