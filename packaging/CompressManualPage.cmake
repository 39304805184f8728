# As Debian wants it; without the time, so that the same page gives the same file.
file(GLOB_RECURSE pages ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*.1)
execute_process(COMMAND gzip -9n ${pages} COMMAND_ERROR_IS_FATAL ANY)
