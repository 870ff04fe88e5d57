# Makes the source archive of the build folder BUILD, unpacks it into FOLDER, builds the static
# library of it with the preset that users are shown, and installs that as INSTALLED.
#
# CPACK: the program. OPTIONS: how this build was configured.

file(REMOVE_RECURSE ${FOLDER} ${INSTALLED})
execute_process(COMMAND ${CPACK} --config ${BUILD}/CPackSourceConfig.cmake -B ${FOLDER}
    COMMAND_ERROR_IS_FATAL ANY)
set(name kvocaeio-0.1.0-source)
file(ARCHIVE_EXTRACT INPUT ${FOLDER}/${name}.tar.gz DESTINATION ${FOLDER})
if(NOT EXISTS ${FOLDER}/${name}.tar.gz.sha256)
    message(SEND_ERROR "The source archive has no checksum")
endif()
foreach(file IN ITEMS scripts/demo.sh tests/CMakeLists.txt README.md LICENSE notices/CLI11.txt)
    if(NOT EXISTS ${FOLDER}/${name}/${file})
        message(SEND_ERROR "The source archive has no ${file}")
    endif()
endforeach()
foreach(file IN ITEMS .git build)
    if(EXISTS ${FOLDER}/${name}/${file})
        message(SEND_ERROR "The source archive has ${file}")
    endif()
endforeach()

set(build ${FOLDER}/${name}/build/linux-release)
execute_process(
    COMMAND ${CMAKE_COMMAND} --preset linux-release -D CMAKE_BUILD_TYPE=Debug -D CMAKE_CXX_FLAGS_DEBUG=
        -D KVOCAEIO_STATIC_LIBRARY=ON -D KVOCAEIO_BUILD_HOST=OFF
        -D KVOCAEIO_BUILD_TESTS=OFF ${OPTIONS}
    WORKING_DIRECTORY ${FOLDER}/${name} COMMAND_ERROR_IS_FATAL ANY)
load_cache(${build} READ_WITH_PREFIX cached_ KVOCAEIO_WARNINGS_AS_ERRORS)
if(cached_KVOCAEIO_WARNINGS_AS_ERRORS)
    message(SEND_ERROR "A user's build ends at a warning")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${build} --target kvocaeio_static
    COMMAND_ERROR_IS_FATAL ANY)
foreach(component IN ITEMS headers static)
    execute_process(
        COMMAND ${CMAKE_COMMAND} --install ${build} --component ${component} --prefix ${INSTALLED}
        COMMAND_ERROR_IS_FATAL ANY)
endforeach()
