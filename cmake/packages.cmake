# The archives and packages that are handed out: cpack makes them of a build folder.

set(CPACK_PACKAGE_VENDOR "the KVOCAEIO developers")
set(KVOCAEIO_PACKAGE_CONTACT "KVOCAEIO developers <developers@kvocaeio.example>" CACHE STRING
    "Who looks after the packages: name and address")
set(CPACK_PACKAGE_CONTACT ${KVOCAEIO_PACKAGE_CONTACT})
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_THREADS 0)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

string(TOLOWER ${CMAKE_SYSTEM_NAME} system)
set(CPACK_PACKAGE_FILE_NAME kvocaeio-${PROJECT_VERSION}-${system}-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_SOURCE_PACKAGE_FILE_NAME kvocaeio-${PROJECT_VERSION}-source)
set(CPACK_SOURCE_GENERATOR TGZ)
string(REGEX REPLACE "([][.*+?^$()|\\])" "\\\\\\1" sourcePattern ${PROJECT_SOURCE_DIR})
set(CPACK_SOURCE_IGNORE_FILES ^${sourcePattern}/build/ "/\\.git(/|$)" /__pycache__/)

find_program(KVOCAEIO_SHLIBDEPS dpkg-shlibdeps)
if(WIN32)
    set(CPACK_GENERATOR ZIP)
else()
    set(CPACK_GENERATOR TGZ)
    if(LINUX AND KVOCAEIO_SHLIBDEPS AND TARGET kvocaeio_manual)
        list(APPEND CPACK_GENERATOR DEB)
        include(cmake/debian.cmake)
    endif()
endif()
include(CPack)
