# Packs the build folder BUILD and compares the archive's list with what a user is promised. The
# documentation's pages are their writers' affair; the rest is listed here file by file.

set(folder ${CMAKE_CURRENT_BINARY_DIR}/archive)
file(REMOVE_RECURSE ${folder})
execute_process(COMMAND ${CPACK} --config ${BUILD}/CPackConfig.cmake -C ${CONFIG} -B ${folder}
    COMMAND_ERROR_IS_FATAL ANY)

string(TOLOWER ${CONFIG} config)
set(expected
    include/kvocaeio/abaqus.h
    include/kvocaeio/export.h
    include/kvocaeio/nastran.h
    include/kvocaeio/package.h
    include/kvocaeio/patran.h
    include/kvocaeio/version.h
    ${LIB}/cmake/KVOCAEIO/KVOCAEIOConfig.cmake
    ${LIB}/cmake/KVOCAEIO/KVOCAEIOConfigVersion.cmake
    ${LIB}/cmake/KVOCAEIO/KVOCAEIOConfig-${config}.cmake
    ${LIB}/pkgconfig/kvocaeio.pc
    share/doc/KVOCAEIO/LICENSE
    share/doc/KVOCAEIO/README.md
    share/doc/KVOCAEIO/CHANGELOG.md
    share/doc/KVOCAEIO/docs/abaqus.md)
if(SYSTEM STREQUAL Windows)
    set(name kvocaeio-0.1.0-windows-x86_64)
    set(archive ${folder}/${name}.zip)
    list(APPEND expected bin/KVOCAEIO.dll bin/kvocaeio.exe ${LIB}/libKVOCAEIO.dll.a)
else()
    set(name kvocaeio-0.1.0-linux-x86_64)
    set(archive ${folder}/${name}.tar.gz)
    list(APPEND expected bin/kvocaeio ${LIB}/libKVOCAEIO.so ${LIB}/libKVOCAEIO.so.0.1 ${LIB}/libKVOCAEIO.so.0.1.0)
endif()

execute_process(COMMAND ${CMAKE_COMMAND} -E tar tf ${archive}
    OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" found "${listing}")
list(FILTER found EXCLUDE REGEX "/$")
list(TRANSFORM found REPLACE "^${name}/" "")

set(missing ${expected})
list(REMOVE_ITEM missing ${found})
set(unexpected ${found})
list(REMOVE_ITEM unexpected ${expected})
list(FILTER unexpected EXCLUDE REGEX "^share/doc/KVOCAEIO/docs/.+\\.md$")
if(missing OR unexpected)
    message(FATAL_ERROR "${archive}\nmissing: ${missing}\nunexpected: ${unexpected}")
endif()
