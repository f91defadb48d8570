# What an installed copy consists of, where distributions expect it.
include(GNUInstallDirs)
set(id org.tallowmere.tallowmere)
# Where this project is at home in the web; the pictures of the software centres lie under it. There
# is no such place yet: who publishes the program says it here.
set(TALLOWMERE_HOMEPAGE "https://tallowmere.example" CACHE STRING "The home page of the program")
set(TALLOWMERE_RELEASED 2026-11-21)

install(TARGETS tallowmere RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/tallowmere
        PATTERN "*.py" EXCLUDE)

install(FILES packaging/${id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
foreach(size 48 64 128 256)
    install(FILES packaging/icons/${size}.png RENAME ${id}.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()
install(FILES packaging/icons/scalable.svg RENAME ${id}.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

# AppStream 1.0 renamed the tag of who makes a program, and each side of it frowns on the other's
# tag. Systems with Qt 6.4 are from before.
if(Qt6_VERSION VERSION_LESS 6.5)
    set(developer "<developer_name>The Tallowmere developers</developer_name>")
else()
    set(developer "<developer id=\"${id}\"><name>The Tallowmere developers</name></developer>")
endif()
configure_file(packaging/${id}.metainfo.xml.in packaging/${id}.metainfo.xml @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/packaging/${id}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# The manual page comes from the table of options, so that it cannot differ from the program.
add_executable(man_page packaging/man_page.cpp)
target_link_libraries(man_page PRIVATE tallowmere_core)
set_target_properties(man_page PROPERTIES AUTOMOC OFF)
add_custom_command(OUTPUT packaging/tallowmere.1
    COMMAND man_page > packaging/tallowmere.1
    DEPENDS man_page VERBATIM)
add_custom_target(manual DEPENDS packaging/tallowmere.1)
# A program that is installed has its page.
add_dependencies(tallowmere manual)
install(FILES ${CMAKE_BINARY_DIR}/packaging/tallowmere.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

# The licences: the program's and those of what is compiled in.
install(FILES packaging/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})
# The guide is read by the program, and so lies with its data; people find it with the documents.
file(RELATIVE_PATH guide /${CMAKE_INSTALL_DOCDIR} /${CMAKE_INSTALL_DATADIR}/tallowmere/help)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/packaging)
file(CREATE_LINK ${guide} ${CMAKE_BINARY_DIR}/packaging/guide SYMBOLIC)
install(FILES ${CMAKE_BINARY_DIR}/packaging/guide DESTINATION ${CMAKE_INSTALL_DOCDIR})

include(cmake/Package.cmake)
