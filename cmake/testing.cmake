# How the project's tests are built and registered.

if(CMAKE_CROSSCOMPILING)
    # Debian's package holds GoogleTest's sources for compilers it has no library for.
    set(KVOCAEIO_GOOGLETEST_SOURCE /usr/src/googletest CACHE PATH "GoogleTest sources")
    add_subdirectory(${KVOCAEIO_GOOGLETEST_SOURCE} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
    if(NOT TARGET GTest::gmock_main)
        add_library(GTest::gmock_main ALIAS gmock_main)
    endif()
    foreach(target gtest gmock gmock_main)
        target_compile_options(${target} PRIVATE -O0)  # its speed is nothing to that of the tests
    endforeach()
    # Wine fills its folder once, before tests that run side by side would all begin to.
    set(winePrefixFilled ${PROJECT_BINARY_DIR}/wine/filled)
    add_custom_command(OUTPUT ${winePrefixFilled}
        COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} wineboot --init
        COMMAND ${CMAKE_COMMAND} -E touch ${winePrefixFilled}
        COMMENT "Filling the Wine folder" VERBATIM)
    add_custom_target(wine_prefix ALL DEPENDS ${winePrefixFilled})
else()
    find_package(GTest REQUIRED)
endif()

# What is tested is optimised; the tests themselves had better compile fast.
set(kvocaeioTestOptions
    $<$<AND:$<CXX_COMPILER_ID:GNU,Clang>,$<CONFIG:Release>>:-Og>
    $<$<AND:$<CXX_COMPILER_ID:GNU,Clang>,$<CONFIG:RelWithDebInfo>>:-O0>)

if(KVOCAEIO_UNITY)
    # The headers that most tests include. Every target takes what this one has made of them.
    file(CONFIGURE OUTPUT precompiled.cpp CONTENT "")
    add_library(kvocaeio_test_headers OBJECT ${CMAKE_CURRENT_BINARY_DIR}/precompiled.cpp)
    target_compile_options(kvocaeio_test_headers PRIVATE ${kvocaeioTestOptions})
    target_link_libraries(kvocaeio_test_headers PRIVATE GTest::gmock)
    kvocaeio_warnings(kvocaeio_test_headers)
    target_precompile_headers(kvocaeio_test_headers PRIVATE
        <algorithm> <array> <cstdint> <cstdio> <filesystem> <fstream> <functional> <gmock/gmock.h>
        <gtest/gtest.h> <map> <sstream> <string> <string_view> <thread> <vector>)
endif()

# How all test code is compiled.
function(kvocaeio_test_settings target)
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    kvocaeio_warnings(${target})
    target_compile_options(${target} PRIVATE ${kvocaeioTestOptions})
    if(KVOCAEIO_UNITY)
        set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
        target_precompile_headers(${target} REUSE_FROM kvocaeio_test_headers)
        target_link_libraries(${target} PRIVATE GTest::gmock)  # the definitions those were made with
    endif()
endfunction()

# kvocaeio_test_library(NAME SOURCES file...)
#
# Code that several tests of an island use. It takes the exported classes for its own program's, which
# is right with the library's objects and, by way of the import library, with the DLL.
function(kvocaeio_test_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES")
    add_library(${name} STATIC ${arg_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
    target_compile_definitions(${name} PRIVATE KVOCAEIO_STATIC)
    target_link_libraries(${name} PUBLIC kvocaeio_test_support)
    kvocaeio_test_settings(${name})
endfunction()

# kvocaeio_test(NAME [INNER] LABEL label SOURCES file... [LIBRARIES library...])
#
# One GoogleTest program, which CTest runs as one test. It uses the library as a host does, unless
# INNER is given: then it links the library's objects and may include the inner headers.
# LABEL: facts, differential, hostile or road.
function(kvocaeio_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "INNER" "LABEL" "SOURCES;LIBRARIES")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} kvocaeio_test_support GTest::gmock_main)
    kvocaeio_test_settings(${name})
    if(arg_INNER)
        target_link_libraries(${name} PRIVATE kvocaeio_objects)
        target_compile_definitions(${name} PRIVATE KVOCAEIO_STATIC)
    else()
        target_link_libraries(${name} PRIVATE KVOCAEIO)
    endif()
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES LABELS "${arg_LABEL}" TIMEOUT 600)
    if(arg_LABEL STREQUAL "differential")
        set_tests_properties(${name} PROPERTIES COST 100)  # the longest begin first
    endif()
endfunction()

# kvocaeio_failing_memory(NAME)
#
# Puts the operator new of support/failing_memory.h in the place of the program's, and on Linux its
# malloc, calloc, realloc and free in the place of those that the program's objects call. Elsewhere a
# linked-in runtime would be made to fail as well. Such a test stands alone.
function(kvocaeio_failing_memory name)
    set(source ${PROJECT_SOURCE_DIR}/tests/support/failing_memory.cpp)
    target_sources(${name} PRIVATE ${source})
    set_source_files_properties(${source} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
        target_link_options(${name} PRIVATE
            LINKER:--wrap=malloc,--wrap=calloc,--wrap=realloc,--wrap=free)
    endif()
endfunction()
