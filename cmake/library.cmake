# The shared library that hosts load, and on demand a static one.

add_library(KVOCAEIO SHARED)
add_library(KVOCAEIO::KVOCAEIO ALIAS KVOCAEIO)
target_link_libraries(KVOCAEIO PRIVATE kvocaeio_objects)
target_include_directories(KVOCAEIO INTERFACE
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
set_target_properties(KVOCAEIO PROPERTIES
    VERSION ${PROJECT_VERSION}
    # While the major number is 0, a minor release may change the interface.
    SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
kvocaeio_hardening(KVOCAEIO)

if(WIN32)
    enable_language(RC)
    configure_file(cmake/version.rc.in version.rc @ONLY)
    target_sources(KVOCAEIO PRIVATE ${PROJECT_BINARY_DIR}/version.rc)
    set_target_properties(KVOCAEIO PROPERTIES PREFIX "")
    include(cmake/import_libraries.cmake)
elseif(LINUX)
    # Hidden visibility does not reach what the standard library's headers instantiate: the map does.
    set(exports ${PROJECT_SOURCE_DIR}/cmake/exports.map)
    target_link_options(KVOCAEIO PRIVATE LINKER:--version-script=${exports})
    set_target_properties(KVOCAEIO PROPERTIES LINK_DEPENDS ${exports})
    if(NOT KVOCAEIO_SANITIZE)  # clang keeps the sanitizers' runtime for the program
        target_link_options(KVOCAEIO PRIVATE LINKER:--no-undefined)
    endif()
endif()

# Compiled a second time: as parts of a host, the classes are not exported.
if(KVOCAEIO_STATIC_LIBRARY)
    add_library(kvocaeio_static STATIC $<TARGET_PROPERTY:kvocaeio_objects,SOURCES>)
    add_library(KVOCAEIO::static ALIAS kvocaeio_static)
    kvocaeio_library_code(kvocaeio_static)
    if(KVOCAEIO_UNITY)
        set_target_properties(kvocaeio_static PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
    endif()
    target_compile_definitions(kvocaeio_static PUBLIC KVOCAEIO_STATIC)
    target_include_directories(kvocaeio_static
        PRIVATE ${PROJECT_SOURCE_DIR}
        PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
               $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    set_target_properties(kvocaeio_static PROPERTIES
        EXPORT_NAME static
        OUTPUT_NAME $<IF:$<BOOL:${MSVC}>,KVOCAEIO_static,KVOCAEIO>)
endif()
