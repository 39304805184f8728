# As Debian wants the manual page and the list of changes; without the time, so that the same page gives the same file.
file(GLOB_RECURSE pages ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*.1 ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/changelog)
execute_process(COMMAND gzip -9n ${pages} COMMAND_ERROR_IS_FATAL ANY)
