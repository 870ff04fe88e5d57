# The unpacked Windows archive TREE as its user finds it: in a folder whose name has a blank and an
# umlaut, the program reads DECK; a program in C, linked by a linker of Microsoft's kind, loads the
# DLL.
#
# EMULATOR: runs Windows programs. CLANG, LINKER: the compiler, and the linker of Microsoft's kind.
# VERSION_C: the program's source.

set(ENV{LC_ALL} C.UTF-8)  # Wine takes the names of files by it
set(folder "${TREE}/../Werkzeug für Netze")
file(REMOVE_RECURSE ${folder})
file(COPY ${TREE}/bin DESTINATION ${folder})
file(COPY ${DECK} DESTINATION ${folder})
cmake_path(GET DECK FILENAME deck)

function(run outputVar)
    execute_process(COMMAND ${EMULATOR} ${ARGN} WORKING_DIRECTORY ${folder}
        OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
    set(${outputVar} "${output}" PARENT_SCOPE)
endfunction()

run(output ${folder}/bin/kvocaeio.exe --version)
if(NOT output MATCHES "0\\.1\\.0")
    message(SEND_ERROR "kvocaeio --version says: ${output}")
endif()
run(output ${folder}/bin/kvocaeio.exe info ${folder}/${deck})
if(NOT output MATCHES "BRICK +1 hexahedron")
    message(SEND_ERROR "kvocaeio info says: ${output}")
endif()

file(GLOB importLibrary ${TREE}/lib*/KVOCAEIO.lib)
execute_process(COMMAND ${CLANG} --target=x86_64-pc-windows-msvc -ffreestanding -I ${TREE}/include
    -c ${VERSION_C} -o ${folder}/version.obj COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${LINKER} /nologo /subsystem:console /nodefaultlib /entry:start
    /out:${folder}/bin/version.exe ${folder}/version.obj ${importLibrary}
    COMMAND_ERROR_IS_FATAL ANY)
run(output ${folder}/bin/version.exe)
