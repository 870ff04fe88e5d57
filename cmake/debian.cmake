# Debian's packages: the library, what hosts are built with, the program, and the Python module.

# Their own rules of installation, with Debian's folders.
foreach(component IN ITEMS library program)
    set(as_${component} COMPONENT debian_${component} EXCLUDE_FROM_ALL)
endforeach()
foreach(component IN ITEMS headers development static documents)
    set(as_${component} COMPONENT debian_development EXCLUDE_FROM_ALL)
endforeach()
set(libdir ${CMAKE_INSTALL_LIBDIR})
if(CMAKE_LIBRARY_ARCHITECTURE)
    set(libdir lib/${CMAKE_LIBRARY_ARCHITECTURE})
endif()
set(soversion ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(packageOf_library libkvocaeio${soversion})
set(packageOf_development libkvocaeio-dev)
set(packageOf_program kvocaeio)

kvocaeio_install_code(${libdir} debian)
kvocaeio_install_manual(vendor-completions)
kvocaeio_install_pages(share/doc/${packageOf_development})
# What is in the wheel but the library, which has a package of its own.
set(pythonComponent)
if(TARGET kvocaeio_wheel)
    set(pythonComponent python)
    set(packageOf_python python3-kvocaeio)
    set(as_python COMPONENT debian_python EXCLUDE_FROM_ALL)
    install(DIRECTORY ${PROJECT_BINARY_DIR}/wheel/tree/ DESTINATION lib/python3/dist-packages
        ${as_python} PATTERN *.so EXCLUDE PATTERN RECORD EXCLUDE PATTERN LICENSE EXCLUDE
        PATTERN WHEEL EXCLUDE)
endif()
# The loader finds the library without being told where.
install(CODE [[file(RPATH_REMOVE FILE "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/bin/kvocaeio")]]
    ${as_program})

# The program holds zlib, as the archive's does; lintian wants to be told that this is meant.
set(debianFolder ${PROJECT_BINARY_DIR}/debian)
if(KVOCAEIO_HAS_ZLIB)
    file(WRITE ${debianFolder}/overrides "kvocaeio: embedded-library *zlib*\n")
    install(FILES ${debianFolder}/overrides RENAME ${packageOf_program}
        DESTINATION share/lintian/overrides ${as_program})
endif()

# What Debian wants in every package: terms of use, and a changelog of its own.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(READ LICENSE license)
file(READ ${notices} noticeText)
file(CONFIGURE OUTPUT ${debianFolder}/copyright
    CONTENT "@license@\nThe program holds parts of other works:\n\n@noticeText@" @ONLY)
configure_file(cmake/changelog.in ${debianFolder}/changelog @ONLY)
execute_process(COMMAND ${KVOCAEIO_GZIP} -9nkf ${debianFolder}/changelog
    COMMAND_ERROR_IS_FATAL ANY)
foreach(component IN ITEMS library development program ${pythonComponent})
    install(FILES ${debianFolder}/copyright ${debianFolder}/changelog.gz
        DESTINATION share/doc/${packageOf_${component}} ${as_${component}})
endforeach()

# Which package holds the library of a name, and that the loader's cache is renewed: CPack would
# write scripts for the latter, which need a shell in the place of installation.
file(CONFIGURE OUTPUT ${debianFolder}/shlibs
    CONTENT "libKVOCAEIO ${soversion} ${packageOf_library} (>= ${PROJECT_VERSION})\n")
file(CONFIGURE OUTPUT ${debianFolder}/triggers CONTENT "activate-noawait ldconfig\n")
configure_file(cmake/debian_control.cmake.in ${debianFolder}/control.cmake @ONLY)
set(CPACK_PROJECT_CONFIG_FILE ${debianFolder}/control.cmake)

set(CPACK_COMPONENTS_ALL debian_library debian_development debian_program)
if(pythonComponent)
    list(APPEND CPACK_COMPONENTS_ALL debian_python)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

set(description "Through it, a host program opens Abaqus input decks, Nastran bulk data, Patran
neutral files and chip packages, and receives nodes, elements and sections as
plain records. It writes meshes the same way.")

set(CPACK_DEBIAN_DEBIAN_LIBRARY_PACKAGE_NAME ${packageOf_library})
set(CPACK_DEBIAN_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA
    ${debianFolder}/shlibs ${debianFolder}/triggers)
set(CPACK_DEBIAN_DEBIAN_LIBRARY_DESCRIPTION "library for files of simulation tools
${description}")

set(sameVersion "${packageOf_library} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${packageOf_development})
set(CPACK_DEBIAN_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS ${sameVersion})
set(CPACK_DEBIAN_DEBIAN_DEVELOPMENT_DESCRIPTION "library for files of simulation tools - development
${description}
This package holds headers, CMake and pkg-config files, documentation and
examples.")

set(CPACK_DEBIAN_DEBIAN_PROGRAM_PACKAGE_NAME ${packageOf_program})
set(CPACK_DEBIAN_DEBIAN_PROGRAM_PACKAGE_SECTION science)
set(CPACK_DEBIAN_DEBIAN_PROGRAM_PACKAGE_DEPENDS ${sameVersion})
set(CPACK_DEBIAN_DEBIAN_PROGRAM_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
set(CPACK_DEBIAN_DEBIAN_PROGRAM_DESCRIPTION
"command-line host of a library for files of simulation tools
It says what Abaqus input decks, Nastran bulk data, Patran neutral files and
chip packages hold, and converts meshes of solids.")

set(CPACK_DEBIAN_DEBIAN_PYTHON_PACKAGE_NAME python3-kvocaeio)
set(CPACK_DEBIAN_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_DEBIAN_PYTHON_PACKAGE_DEPENDS
    "python3 (>= 3.9), python3-numpy, ${packageOf_library} (>= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEBIAN_PYTHON_PACKAGE_SUGGESTS
    "python3-meshio, python3-pandas, python3-tqdm")
set(CPACK_DEBIAN_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
    ${PROJECT_SOURCE_DIR}/cmake/debian_python/postinst
    ${PROJECT_SOURCE_DIR}/cmake/debian_python/prerm)
set(CPACK_DEBIAN_DEBIAN_PYTHON_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_DEBIAN_PYTHON_DESCRIPTION "Python module for files of simulation tools
It reads Abaqus input decks, Nastran bulk data, Patran neutral files and chip
packages as numpy arrays, tells what of a file is not read, and writes meshes
of solids.")
