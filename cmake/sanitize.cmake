# The sanitizers of KVOCAEIO_SANITIZE, for every target; the first report ends the program.
if(KVOCAEIO_SANITIZE)
    add_compile_options(-fsanitize=${KVOCAEIO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${KVOCAEIO_SANITIZE})
endif()
