# What makes an overrun that slipped through harmless, in every build that is handed out: no writable
# tables of addresses, guarded stacks, checked calls of the C library, random load addresses.
option(KVOCAEIO_HARDENING "Build the library and the host with the toolchain's hardening" ON)

function(kvocaeio_hardening target)
    if(NOT KVOCAEIO_HARDENING)
        return()
    endif()
    get_target_property(type ${target} TYPE)
    set(links TRUE)
    if(type MATCHES "OBJECT|STATIC")
        set(links FALSE)
    endif()
    if(MSVC)
        target_compile_options(${target} PRIVATE /GS /guard:cf)
        if(links)
            target_link_options(${target} PRIVATE /guard:cf)
        endif()
        return()
    endif()
    target_compile_options(${target} PRIVATE -fstack-protector-strong)
    if(NOT KVOCAEIO_SANITIZE)  # the sanitizers check these calls themselves
        target_compile_options(${target} PRIVATE
            $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE> $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
    endif()
    if(NOT links)
        if(WIN32)  # whoever links these objects needs the runtime part of the guarded stacks
            target_link_options(${target} INTERFACE -fstack-protector-strong)
        endif()
        return()
    endif()
    if(WIN32)
        target_link_options(${target} PRIVATE -fstack-protector-strong
            LINKER:--dynamicbase,--nxcompat,--high-entropy-va)
    elseif(LINUX)
        target_link_options(${target} PRIVATE LINKER:-z,relro,-z,now,-z,noexecstack)
    endif()
endfunction()
