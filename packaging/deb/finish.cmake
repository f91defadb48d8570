# What Debian wants of the files of a package, once they are in their places and before they are
# packed: documents compressed without the time, and a change log of its own form.
set(root ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr)
configure_file(${CPACK_TALLOWMERE_SOURCE}/packaging/deb/changelog
               ${root}/share/doc/tallowmere/changelog.Debian COPYONLY)
execute_process(COMMAND gzip -9nf ${root}/share/man/man1/tallowmere.1
                                  ${root}/share/doc/tallowmere/changelog.Debian
                COMMAND_ERROR_IS_FATAL ANY)
