# Beside the import library of GNU's form, which Microsoft's linker does not take in all versions:
# the list of the DLL's exports, and made from it an import library in Microsoft's own form. By
# either, a host built with MSVC can link the functions of the C interface.
if(MSVC)
    return()  # its linker makes the import library itself
endif()

set(definitions ${PROJECT_BINARY_DIR}/KVOCAEIO.def)
target_link_options(KVOCAEIO PRIVATE LINKER:--output-def,${definitions})
set(KVOCAEIO_IMPORT_FILES ${definitions})
find_program(KVOCAEIO_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14)
if(KVOCAEIO_DLLTOOL)
    set(importLibrary ${PROJECT_BINARY_DIR}/KVOCAEIO.lib)
    add_custom_command(TARGET KVOCAEIO POST_BUILD
        COMMAND ${KVOCAEIO_DLLTOOL} -m i386:x86-64 -D KVOCAEIO.dll -d ${definitions}
            -l ${importLibrary}
        BYPRODUCTS ${definitions} ${importLibrary} VERBATIM)
    list(APPEND KVOCAEIO_IMPORT_FILES ${importLibrary})
else()
    message(STATUS "Without llvm-dlltool no import library is made for MSVC")
endif()
