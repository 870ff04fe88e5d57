# Installs the build folder BUILD into an empty folder and moves that to INSTALLED.
file(REMOVE_RECURSE ${INSTALLED} ${INSTALLED}-from)
execute_process(
    COMMAND ${CMAKE_COMMAND} --install ${BUILD} --config ${CONFIG} --prefix ${INSTALLED}-from
    COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${INSTALLED}-from ${INSTALLED})
