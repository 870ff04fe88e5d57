# The manual pages and the completion of the host's commands, which the host itself writes.

find_program(KVOCAEIO_GZIP gzip REQUIRED)
set(manualFolder ${PROJECT_BINARY_DIR}/manual)
file(MAKE_DIRECTORY ${manualFolder})

# Writes what the host calls `page` into a file of the folder.
function(kvocaeio_manual page file)
    set(output ${manualFolder}/${file})
    set(compressed)
    if(file MATCHES "\\.1$")
        set(compressed | ${KVOCAEIO_GZIP} -9n)  # without a time, so that builds can be compared
        string(APPEND output .gz)
    endif()
    add_custom_command(OUTPUT ${output}
        COMMAND kvocaeio --manual ${page} ${compressed} > ${output}
        DEPENDS kvocaeio)
    set_property(TARGET kvocaeio_manual APPEND PROPERTY SOURCES ${output})
endfunction()

add_custom_target(kvocaeio_manual ALL)
kvocaeio_manual(man kvocaeio.1)
foreach(command IN ITEMS info check convert tidy view)
    kvocaeio_manual(man:${command} kvocaeio-${command}.1)
endforeach()
kvocaeio_manual(bash kvocaeio)
kvocaeio_manual(zsh _kvocaeio)
kvocaeio_manual(fish kvocaeio.fish)
