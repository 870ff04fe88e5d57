# Packs the build folder BUILD into PACKAGES and compares the archive with what a user is promised:
# its files, its checksum, the notices, how the binaries were built. The documentation's pages and the
# samples are their writers' affair; the rest is listed here file by file. The archive is left
# unpacked in PACKAGES.
#
# CPACK, NM, OBJDUMP: the programs. CONFIG, SYSTEM: how and for what it was built. ZLIB: whether with
# zlib. LIB: the folder of the libraries.

file(REMOVE_RECURSE ${PACKAGES})
execute_process(COMMAND ${CPACK} --config ${BUILD}/CPackConfig.cmake -C ${CONFIG} -B ${PACKAGES}
    COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE_RECURSE ${PACKAGES}/_CPack_Packages)

string(TOLOWER ${CONFIG} config)
set(doc share/doc/KVOCAEIO)
set(expected
    include/kvocaeio/abaqus.h
    include/kvocaeio/export.h
    include/kvocaeio/kvocaeio.h
    include/kvocaeio/nastran.h
    include/kvocaeio/package.h
    include/kvocaeio/patran.h
    include/kvocaeio/report.h
    include/kvocaeio/tidy.h
    include/kvocaeio/version.h
    ${LIB}/cmake/KVOCAEIO/KVOCAEIOConfig.cmake
    ${LIB}/cmake/KVOCAEIO/KVOCAEIOConfigVersion.cmake
    ${LIB}/cmake/KVOCAEIO/KVOCAEIOShared.cmake
    ${LIB}/cmake/KVOCAEIO/KVOCAEIOShared-${config}.cmake
    ${LIB}/pkgconfig/kvocaeio.pc
    ${doc}/LICENSE
    ${doc}/THIRD-PARTY-NOTICES.txt
    ${doc}/README.md
    ${doc}/CHANGELOG.md
    ${doc}/CONTRIBUTING.md
    ${doc}/docs/abaqus.md
    ${doc}/examples/CMakeLists.txt
    ${doc}/examples/abaqus.cpp
    ${doc}/examples/data/housing.inp
    ${doc}/examples/data/reports/CmdFile1.txt)
set(notices "University of Cincinnati" "Niels Lohmann")
if(ZLIB)
    list(APPEND notices "Jean-loup Gailly")
endif()
if(SYSTEM STREQUAL Windows)
    set(name kvocaeio-0.1.0-windows-x86_64)
    set(archive ${PACKAGES}/${name}.zip)
    set(binaries bin/KVOCAEIO.dll bin/kvocaeio.exe)
    list(APPEND expected ${LIB}/libKVOCAEIO.dll.a ${LIB}/KVOCAEIO.def ${LIB}/KVOCAEIO.lib)
    list(APPEND notices "mingw-w64 runtime" "GCC RUNTIME LIBRARY EXCEPTION")
else()
    set(name kvocaeio-0.1.0-linux-x86_64)
    set(archive ${PACKAGES}/${name}.tar.gz)
    set(binaries bin/kvocaeio ${LIB}/libKVOCAEIO.so.0.1.0)
    list(APPEND expected ${LIB}/libKVOCAEIO.so ${LIB}/libKVOCAEIO.so.0.1
        share/man/man1/kvocaeio.1.gz
        share/man/man1/kvocaeio-info.1.gz
        share/man/man1/kvocaeio-check.1.gz
        share/man/man1/kvocaeio-convert.1.gz
        share/man/man1/kvocaeio-tidy.1.gz
        share/man/man1/kvocaeio-view.1.gz
        share/bash-completion/completions/kvocaeio
        share/zsh/site-functions/_kvocaeio
        share/fish/vendor_completions.d/kvocaeio.fish)
endif()
list(APPEND expected ${binaries})

file(ARCHIVE_EXTRACT INPUT ${archive} DESTINATION ${PACKAGES})
set(tree ${PACKAGES}/${name})
file(GLOB_RECURSE found LIST_DIRECTORIES false RELATIVE ${tree} ${tree}/*)
set(missing ${expected})
list(REMOVE_ITEM missing ${found})
set(unexpected ${found})
list(REMOVE_ITEM unexpected ${expected})
list(FILTER unexpected EXCLUDE REGEX "^${doc}/(docs/.+\\.(md|json|png)|examples/.+)$")
if(missing OR unexpected)
    message(SEND_ERROR "${archive}\nmissing: ${missing}\nunexpected: ${unexpected}")
endif()

file(SHA256 ${archive} sum)
file(READ ${archive}.sha256 recorded)
if(NOT recorded MATCHES "^${sum}  ${name}\\.")
    message(SEND_ERROR "The checksum beside the archive is '${recorded}' instead of ${sum}")
endif()

file(READ ${tree}/${doc}/THIRD-PARTY-NOTICES.txt text)
foreach(notice IN LISTS notices)
    if(NOT text MATCHES "${notice}")
        message(SEND_ERROR "The notices do not name ${notice}")
    endif()
endforeach()

foreach(FILE IN LISTS binaries)
    set(FILE ${tree}/${FILE})
    include(${CMAKE_CURRENT_LIST_DIR}/../library/check_hardening.cmake)
    execute_process(COMMAND ${NM} ${FILE} OUTPUT_VARIABLE symbols ERROR_QUIET)
    if(symbols)
        message(SEND_ERROR "${FILE} is not stripped")
    endif()
endforeach()
