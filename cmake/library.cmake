# The shared library that hosts load.

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
elseif(LINUX)
    # Hidden visibility does not reach what the standard library's headers instantiate: the map does.
    set(exports ${PROJECT_SOURCE_DIR}/cmake/exports.map)
    target_link_options(KVOCAEIO PRIVATE LINKER:--version-script=${exports})
    set_target_properties(KVOCAEIO PROPERTIES LINK_DEPENDS ${exports})
    if(NOT KVOCAEIO_SANITIZE)  # clang keeps the sanitizers' runtime for the program
        target_link_options(KVOCAEIO PRIVATE LINKER:--no-undefined)
    endif()
endif()
