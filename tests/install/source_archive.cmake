# The source archive: the static library is built of it and installed, and a host uses that.
set(installedStatic ${CMAKE_CURRENT_BINARY_DIR}/static)
add_test(NAME install_source_archive
    COMMAND ${CMAKE_COMMAND} -D CPACK=${CMAKE_CPACK_COMMAND} -D BUILD=${PROJECT_BINARY_DIR}
        -D FOLDER=${CMAKE_CURRENT_BINARY_DIR}/source -D INSTALLED=${installedStatic}
        -D "OPTIONS=${options}" -P ${CMAKE_CURRENT_SOURCE_DIR}/check_source.cmake)
set_tests_properties(install_source_archive PROPERTIES FIXTURES_SETUP installedStatic COST 100)
kvocaeio_consumer_test(install_static installedStatic
    -DCMAKE_BUILD_TYPE=Debug -DCMAKE_PREFIX_PATH=${installedStatic} -DCONSUMER_STATIC=ON)

# The installed examples are a project that a user can build.
add_test(NAME install_examples
    COMMAND ${CMAKE_CTEST_COMMAND}
        --build-and-test ${installed}/${CMAKE_INSTALL_DOCDIR}/examples
            ${CMAKE_CURRENT_BINARY_DIR}/examples
        --build-generator ${CMAKE_GENERATOR}
        --build-options ${options} -DCMAKE_PREFIX_PATH=${installed}
        --test-command example_abaqus ${deck})
set_tests_properties(install_examples PROPERTIES FIXTURES_REQUIRED installedTree)
