# What is installed. Everything finds its neighbours by relative paths, so that a tree can be moved.

include(CMakePackageConfigHelpers)
set(versionFile ${PROJECT_BINARY_DIR}/KVOCAEIOConfigVersion.cmake)
write_basic_package_version_file(${versionFile} COMPATIBILITY SameMinorVersion)

if(TARGET kvocaeio)
    file(RELATIVE_PATH libFromBin /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
    set_target_properties(kvocaeio PROPERTIES INSTALL_RPATH \$ORIGIN/${libFromBin})
    if(NOT WIN32 AND NOT CMAKE_CROSSCOMPILING)
        include(cmake/manual.cmake)
    endif()
endif()

# What belongs to which component. The rules of Debian's packages put the libraries into another
# folder; they are further components, which an ordinary installation passes over.
foreach(component IN ITEMS library headers development static program documents)
    set(as_${component} COMPONENT ${component})
endforeach()

# Installs libraries into the folder `libdir`, what hosts compile and link with, and the program.
# `exported` is a name for the sets of targets.
function(kvocaeio_install_code libdir exported)
    set(packageFolder ${libdir}/cmake/KVOCAEIO)
    install(TARGETS KVOCAEIO EXPORT ${exported}Shared
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} ${as_library}
        LIBRARY DESTINATION ${libdir} ${as_library} NAMELINK_SKIP
        ARCHIVE DESTINATION ${libdir} ${as_development})
    install(TARGETS KVOCAEIO
        LIBRARY DESTINATION ${libdir} ${as_development} NAMELINK_ONLY)
    install(EXPORT ${exported}Shared NAMESPACE KVOCAEIO:: FILE KVOCAEIOShared.cmake
        DESTINATION ${packageFolder} ${as_development})
    if(TARGET kvocaeio_static)
        install(TARGETS kvocaeio_static EXPORT ${exported}Static
            ARCHIVE DESTINATION ${libdir} ${as_static})
        install(EXPORT ${exported}Static NAMESPACE KVOCAEIO:: FILE KVOCAEIOStatic.cmake
            DESTINATION ${packageFolder} ${as_static})
    endif()
    install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} ${as_headers})
    install(FILES cmake/KVOCAEIOConfig.cmake ${versionFile}
        DESTINATION ${packageFolder} ${as_headers})
    install(FILES ${KVOCAEIO_IMPORT_FILES} DESTINATION ${libdir} ${as_development})

    file(RELATIVE_PATH prefixFromPcFile /${libdir}/pkgconfig /)
    string(REGEX REPLACE "/$" "" prefixFromPcFile ${prefixFromPcFile})
    set(pcFile ${PROJECT_BINARY_DIR}/${exported}/kvocaeio.pc)
    configure_file(cmake/kvocaeio.pc.in ${pcFile} @ONLY)
    install(FILES ${pcFile} DESTINATION ${libdir}/pkgconfig ${as_development})
    if(TARGET kvocaeio)
        install(TARGETS kvocaeio RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} ${as_program})
    endif()
endfunction()

# Manual pages and completion; zsh looks for the latter in another folder in Debian.
function(kvocaeio_install_manual zshFolder)
    if(NOT TARGET kvocaeio_manual)
        return()
    endif()
    install(DIRECTORY ${manualFolder}/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 ${as_program}
        FILES_MATCHING PATTERN *.1.gz)
    set(share ${CMAKE_INSTALL_DATADIR})
    install(FILES ${manualFolder}/kvocaeio
        DESTINATION ${share}/bash-completion/completions ${as_program})
    install(FILES ${manualFolder}/_kvocaeio
        DESTINATION ${share}/zsh/${zshFolder} ${as_program})
    install(FILES ${manualFolder}/kvocaeio.fish
        DESTINATION ${share}/fish/vendor_completions.d ${as_program})
endfunction()

# The pages, and the examples with their data, so that no link in a page leads nowhere.
function(kvocaeio_install_pages folder)
    install(FILES README.md CHANGELOG.md CONTRIBUTING.md LICENSE
        DESTINATION ${folder} ${as_documents})
    install(DIRECTORY docs examples DESTINATION ${folder} ${as_documents}
        PATTERN __pycache__ EXCLUDE)
endfunction()

# The terms of what is compiled into the files that are handed out, in one file.
set(notices ${PROJECT_BINARY_DIR}/THIRD-PARTY-NOTICES.txt)
set(noticeParts)
if(TARGET kvocaeio)
    list(APPEND noticeParts CLI11 nlohmann-json)
    if(KVOCAEIO_HAS_ZLIB)
        list(APPEND noticeParts zlib)
    endif()
    if(KVOCAEIO_HAS_VIEW)
        list(APPEND noticeParts three)
    endif()
endif()
if(MINGW)
    list(APPEND noticeParts mingw-w64 gcc-runtime)
endif()
set(noticeText)
foreach(part IN LISTS noticeParts)
    file(READ notices/${part}.txt text)
    string(APPEND noticeText "${text}\n\n----\n\n")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS notices/${part}.txt)
endforeach()
file(CONFIGURE OUTPUT ${notices} CONTENT "@noticeText@" @ONLY)

kvocaeio_install_code(${CMAKE_INSTALL_LIBDIR} installed)
kvocaeio_install_manual(site-functions)
kvocaeio_install_pages(${CMAKE_INSTALL_DOCDIR})
if(noticeParts)
    install(FILES ${notices} DESTINATION ${CMAKE_INSTALL_DOCDIR} ${as_documents})
endif()
