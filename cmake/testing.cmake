# How the project's tests are built and registered.

if(CMAKE_CROSSCOMPILING)
    # Debian's package holds GoogleTest's sources for compilers it has no library for.
    set(KVOCAEIO_GOOGLETEST_SOURCE /usr/src/googletest CACHE PATH "GoogleTest sources")
    add_subdirectory(${KVOCAEIO_GOOGLETEST_SOURCE} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
    if(NOT TARGET GTest::gmock_main)
        add_library(GTest::gmock_main ALIAS gmock_main)
    endif()
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

# kvocaeio_test(NAME [INNER] LABEL label SOURCES file...)
#
# One GoogleTest program, which CTest runs as one test. It uses the library as a host does, unless
# INNER is given: then it links the library's objects and may include the inner headers.
# LABEL: facts, differential, hostile or road.
function(kvocaeio_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "INNER" "LABEL" "SOURCES")
    add_executable(${name} ${arg_SOURCES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE GTest::gmock_main)
    kvocaeio_warnings(${name})
    # What is tested is optimised; the tests themselves had better compile fast.
    target_compile_options(${name} PRIVATE
        $<$<AND:$<CXX_COMPILER_ID:GNU,Clang>,$<CONFIG:Release>>:-Og>
        $<$<AND:$<CXX_COMPILER_ID:GNU,Clang>,$<CONFIG:RelWithDebInfo>>:-O0>)
    if(arg_INNER)
        target_link_libraries(${name} PRIVATE kvocaeio_objects)
        target_compile_definitions(${name} PRIVATE KVOCAEIO_STATIC)
    else()
        target_link_libraries(${name} PRIVATE KVOCAEIO)
    endif()
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES LABELS "${arg_LABEL}" TIMEOUT 600)
endfunction()

# kvocaeio_failing_memory(NAME)
#
# Puts the operator new of support/failing_memory.h in the place of the program's, and on Linux its
# malloc, calloc, realloc and free in the place of those that the program's objects call. Elsewhere a
# linked-in runtime would be made to fail as well. Such a test stands alone.
function(kvocaeio_failing_memory name)
    target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support/failing_memory.cpp)
    if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
        target_link_options(${name} PRIVATE
            LINKER:--wrap=malloc,--wrap=calloc,--wrap=realloc,--wrap=free)
    endif()
endfunction()
