# What is installed, and the archives that are handed out. Everything finds its neighbours by relative
# paths, so that a tree can be moved.

include(CMakePackageConfigHelpers)

set(packageFolder ${CMAKE_INSTALL_LIBDIR}/cmake/KVOCAEIO)
install(TARGETS KVOCAEIO EXPORT KVOCAEIO)
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES LICENSE README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)
if(TARGET kvocaeio)
    file(RELATIVE_PATH libFromBin /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
    set_target_properties(kvocaeio PROPERTIES INSTALL_RPATH \$ORIGIN/${libFromBin})
    install(TARGETS kvocaeio)
endif()

# find_package(KVOCAEIO): the library depends on no other package, so its targets are all there is.
install(EXPORT KVOCAEIO NAMESPACE KVOCAEIO:: FILE KVOCAEIOConfig.cmake DESTINATION ${packageFolder})
set(versionFile ${PROJECT_BINARY_DIR}/KVOCAEIOConfigVersion.cmake)
write_basic_package_version_file(${versionFile} COMPATIBILITY SameMinorVersion)
install(FILES ${versionFile} DESTINATION ${packageFolder})

file(RELATIVE_PATH prefixFromPcFile /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" prefixFromPcFile ${prefixFromPcFile})
configure_file(cmake/kvocaeio.pc.in kvocaeio.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kvocaeio.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(PROJECT_IS_TOP_LEVEL)
    string(TOLOWER ${CMAKE_SYSTEM_NAME} system)
    set(CPACK_PACKAGE_FILE_NAME kvocaeio-${PROJECT_VERSION}-${system}-${CMAKE_SYSTEM_PROCESSOR})
    set(CPACK_GENERATOR TGZ)
    if(WIN32)
        set(CPACK_GENERATOR ZIP)
    endif()
    set(CPACK_PACKAGE_VENDOR "the KVOCAEIO developers")
    set(CPACK_VERBATIM_VARIABLES ON)
    include(CPack)
endif()
