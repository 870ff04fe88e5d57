# Reads the built library's tables: it hands out the exported classes' members and the functions of
# the C interface and nothing else, it needs nothing beyond the standard library, and its code calls
# nothing that a guest in the host's process must not call.
#
# LIBRARY, OBJECTS: the library and the object files that it is made of. SANITIZERS: those
# that are built in, if any. NM, OBJDUMP, CXXFILT: the toolchain's programs.

function(run resultVar)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
    set(${resultVar} "${output}" PARENT_SCOPE)
endfunction()

# Names behind `mark` in the lines of `text` that have it, demangled and sorted, each once.
function(names resultVar text mark)
    string(REGEX MATCHALL "${mark}[^\n]+" lines "${text}")
    list(TRANSFORM lines REPLACE "^${mark}" "")
    list(JOIN lines "\n" lines)
    file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/symbols.txt "${lines}\n")
    execute_process(COMMAND ${CXXFILT} INPUT_FILE ${CMAKE_CURRENT_BINARY_DIR}/symbols.txt
        OUTPUT_VARIABLE lines COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX MATCHALL "[^\n]+" lines "${lines}")
    list(REMOVE_DUPLICATES lines)
    list(SORT lines)
    set(${resultVar} "${lines}" PARENT_SCOPE)
endfunction()

# Every name must be among the allowed ones.
function(expectOnly what names)
    list(REMOVE_ITEM names ${ARGN})
    if(names)
        list(JOIN names "\n  " names)
        message(SEND_ERROR "${what}:\n  ${names}")
    endif()
endfunction()

run(headers ${OBJDUMP} -p ${LIBRARY})
if(LIBRARY MATCHES "\\.dll$")
    string(REGEX REPLACE ".*\\[Ordinal/Name Pointer\\] Table" "" exportTable "${headers}")
    names(exported "${exportTable}" "\t\\[ *[0-9]+\\] ")
    names(needed "${headers}" "DLL Name: ")
    set(system KERNEL32.dll msvcrt.dll ADVAPI32.dll)  # the last for the stack guard's random value
else()
    run(dynamic ${NM} --dynamic --defined-only ${LIBRARY})
    names(exported "${dynamic}" "[0-9a-f]+ [A-Za-z] ")
    names(needed "${headers}" "NEEDED +")
    # The loader is among them for the reason of a failure, which each thread has of its own.
    set(system libstdc++.so.6 libm.so.6 libgcc_s.so.1 libc.so.6 ld-linux-x86-64.so.2)
    if(SANITIZERS)
        list(FILTER needed EXCLUDE REGEX "^lib(asan|ubsan)\\.so")
    endif()
    if(NOT headers MATCHES "SONAME +libKVOCAEIO\\.so\\.0\\.1\n")
        message(SEND_ERROR "The shared library's soname is not libKVOCAEIO.so.0.1")
    endif()
endif()

file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/exported_symbols.txt expected)
expectOnly("Exported, but no member of an exported class" "${exported}" ${expected})
expectOnly("Not exported" "${expected}" ${exported})
expectOnly("Needs a library beyond the system's" "${needed}" ${system})

# The library's own objects are looked at, since on Windows the runtime that is linked in calls some
# of these itself. std::terminate stays allowed: every noexcept function refers to it.
set(forbidden
    exit _exit _Exit quick_exit abort raise signal
    setlocale uselocale "std::locale::global(std::locale const&)" "std::ios_base::Init::Init()"
    getenv putenv setenv _putenv_s
    pthread_create _beginthreadex "std::thread::_M_start_thread(std::unique_ptr<std::thread::_State, std::default_delete<std::thread::_State> >, void (*)())")
run(undefined ${NM} --undefined-only ${OBJECTS})
names(used "${undefined}" " U ")
list(LENGTH used usedCount)
if(usedCount EQUAL 0)
    message(SEND_ERROR "The list of functions that the library calls cannot be read")
endif()
set(allowed ${used})
list(REMOVE_ITEM allowed ${forbidden})
expectOnly("Called, but not fit for a guest in the host's process" "${used}" ${allowed})
