# The package of Debian: ./dev package
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tallowmere)
set(CPACK_PACKAGE_VENDOR "The Tallowmere developers")
set(CPACK_PACKAGE_CONTACT "The Tallowmere developers <support@quorvane.example>")
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
    GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# Below whatever Debian itself may pack one day.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0upstream1)
set(CPACK_DEBIAN_PACKAGE_SECTION web)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${TALLOWMERE_HOMEPAGE})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core, xdg-utils")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "research browser for private stock investors")
set(CPACK_PACKAGE_DESCRIPTION
"Pick a ticker, click once, and read any of some two hundred research pages
about it, beside ten portfolios, notes and links of your own and a strip of
market indices.
.
A sample mode shows an invented market and needs no network.")
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/packaging/deb/finish.cmake)
set(CPACK_TALLOWMERE_SOURCE ${CMAKE_SOURCE_DIR})
include(CPack)
