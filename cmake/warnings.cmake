# The warnings that all code of the project is compiled with.
function(kvocaeio_warnings target)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /permissive-)
    else()
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
            -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor)
        # Before version 13, g++ takes text + std::string for a copy onto itself.
        target_compile_options(${target} PRIVATE
            $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
    endif()
    set_target_properties(${target} PROPERTIES
        COMPILE_WARNING_AS_ERROR ${KVOCAEIO_WARNINGS_AS_ERRORS})
endfunction()
