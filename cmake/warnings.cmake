# The warnings that all code of the project is compiled with.
function(kvocaeio_warnings target)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /permissive-)
    else()
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
            -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor)
    endif()
endfunction()
