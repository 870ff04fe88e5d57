# Debian's packages, installed into a folder, used there, and removed from it.
if(NOT DEFINED packageOf_library)
    return()
endif()

set(debianRoot ${CMAKE_CURRENT_BINARY_DIR}/debian)
foreach(action IN ITEMS install use remove)
    add_test(NAME debian_${action}
        COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/debian_packages.sh ${action} ${debianRoot} ${packages}
            ${deck})
endforeach()
set_tests_properties(debian_install PROPERTIES FIXTURES_REQUIRED packages FIXTURES_SETUP debian)
set_tests_properties(debian_use PROPERTIES FIXTURES_REQUIRED debian)
set_tests_properties(debian_remove PROPERTIES FIXTURES_CLEANUP debian)
kvocaeio_consumer_test(debian_find_package debian
    -DCMAKE_BUILD_TYPE=$<CONFIG> -DCMAKE_PREFIX_PATH=${debianRoot}/usr)

find_program(KVOCAEIO_LINTIAN lintian)
if(KVOCAEIO_LINTIAN)
    file(CONFIGURE OUTPUT lintian.sh @ONLY CONTENT
        "exec @KVOCAEIO_LINTIAN@ --allow-root --fail-on error,warning '@packages@'/*.deb\n")
    add_test(NAME debian_lintian COMMAND sh lintian.sh)
    set_tests_properties(debian_lintian PROPERTIES FIXTURES_REQUIRED packages)
endif()
