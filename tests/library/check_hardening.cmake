# Reads the tables of FILE, a program or library that is handed out: it is hardened against overruns.
#
# CONFIG: how it was built. SANITIZERS: those that are built in, if any. NM, OBJDUMP: the toolchain's
# programs.

function(expect what text pattern)
    if(NOT text MATCHES "${pattern}")
        message(SEND_ERROR "${FILE} has no ${what}")
    endif()
endfunction()

execute_process(COMMAND ${OBJDUMP} -p ${FILE} OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)
if(FILE MATCHES "\\.(dll|exe)$")
    expect("random load address" "${headers}" "DYNAMIC_BASE")
    expect("random load address of 64 bits" "${headers}" "HIGH_ENTROPY_VA")
    expect("data that cannot be run" "${headers}" "NX_COMPAT")
    execute_process(COMMAND ${NM} ${FILE} OUTPUT_VARIABLE symbols ERROR_QUIET)
    if(symbols)  # none in a stripped file
        expect("guarded stack" "${symbols}" "__stack_chk_fail")
    endif()
    return()
endif()

execute_process(COMMAND ${NM} --dynamic --undefined-only ${FILE}
    OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
expect("read-only relocations" "${headers}" "RELRO")
expect("immediate binding" "${headers}" "FLAGS_1 +0x[0-9a-f]*[13579bdf]\n")  # bit 0: now
expect("stack that cannot be run" "${headers}" "STACK [^\n]*\n[^\n]*flags rw-")
if(NOT SANITIZERS)
    expect("guarded stack" "${symbols}" "__stack_chk_fail")
    if(NOT CONFIG STREQUAL Debug)
        expect("checked call of the C library" "${symbols}" " U __[a-z_]+_chk")
    endif()
endif()
