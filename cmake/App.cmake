# The application: one library of Qt classes, so that tests can link them, and the program itself.
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets Network PrintSupport DBus Pdf PdfWidgets
    WebEngineWidgets)
find_package(qpdf REQUIRED CONFIG)
set(CMAKE_AUTOMOC ON)
# What moc reads is not made by what the library links: no need to build that first.
set(CMAKE_AUTOGEN_ORIGIN_DEPENDS OFF)
# No deprecated call, so that a newer Qt with a newer engine drops in.
add_compile_definitions(QT_DISABLE_DEPRECATED_BEFORE=0x060400 QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII)

file(GLOB_RECURSE appSources CONFIGURE_DEPENDS src/app/*.cpp src/app/*.h)
list(REMOVE_ITEM appSources ${CMAKE_SOURCE_DIR}/src/app/main.cpp)
add_library(tallowmere_app STATIC ${appSources})
target_link_libraries(tallowmere_app PUBLIC
    tallowmere_core Qt6::Widgets Qt6::Network Qt6::PrintSupport Qt6::WebEngineWidgets
    qpdf::libqpdf
    # Few files speak to the desktop or read PDF documents, and name the headers for it with their folder.
    $<LINK_ONLY:Qt6::DBus> $<LINK_ONLY:Qt6::Pdf> $<LINK_ONLY:Qt6::PdfWidgets>)
target_precompile_headers(tallowmere_app PRIVATE
    <QtCore> <QtGui> <QtWidgets> <QtNetwork> <QtWebEngineCore> <string> <string_view> <vector>)

# An installed program finds its data from where it lies itself; no path of the build is in it. A
# program that runs in place finds the source tree's data by a link beside it.
include(GNUInstallDirs)
file(RELATIVE_PATH dataFromProgram /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_DATADIR}/tallowmere)
set_source_files_properties(src/app/base/Folders.cpp PROPERTIES
    COMPILE_DEFINITIONS TALLOWMERE_DATA_FROM_PROGRAM="${dataFromProgram}")
foreach(place . tests bench)
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/${place})
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/data ${CMAKE_BINARY_DIR}/${place}/data SYMBOLIC)
endforeach()

# The icon of the windows. The times of the files would make every build another one.
set(iconFiles)
foreach(size 48 64 128 256)
    set_source_files_properties(packaging/icons/${size}.png PROPERTIES QT_RESOURCE_ALIAS ${size}.png)
    list(APPEND iconFiles packaging/icons/${size}.png)
endforeach()
qt_add_resources(tallowmere_app icons PREFIX /icons FILES ${iconFiles}
    OPTIONS --no-compress --format-version 1)

add_executable(tallowmere src/app/main.cpp)
target_link_libraries(tallowmere PRIVATE tallowmere_app)
target_precompile_headers(tallowmere REUSE_FROM tallowmere_app)

# Asks for every address of the tables, for people with a network: ./dev probe
add_library(prober STATIC probe/Prober.cpp probe/Prober.h)
target_link_libraries(prober PUBLIC tallowmere_app)
target_include_directories(prober PUBLIC ${CMAKE_SOURCE_DIR})
add_executable(probe probe/probe.cpp)
target_link_libraries(probe PRIVATE prober)

include(cmake/Install.cmake)
