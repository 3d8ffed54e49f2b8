# Run by CPack on the tree of the package: what Debian wants beside an installed program, as debhelper would add it.
set(DOCUMENTS ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share/doc/brixley)
file(COPY ${CPACK_BRIXLEY_SOURCE}/debian/copyright ${CPACK_BRIXLEY_SOURCE}/debian/changelog DESTINATION ${DOCUMENTS}
     FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
file(GLOB COMPRESSED ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share/man/man1/*.1 ${DOCUMENTS}/changelog)
execute_process(COMMAND gzip -9n ${COMPRESSED} COMMAND_ERROR_IS_FATAL ANY)
