# The application: one library of Qt classes, so that tests can link them, and the program itself.
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets Network PrintSupport WebEngineWidgets)
set(CMAKE_AUTOMOC ON)
# What moc reads is not made by what the library links: no need to build that first.
set(CMAKE_AUTOGEN_ORIGIN_DEPENDS OFF)
# No deprecated call, so that a newer Qt with a newer engine drops in.
add_compile_definitions(QT_DISABLE_DEPRECATED_BEFORE=0x060400 QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII)

file(GLOB_RECURSE appSources CONFIGURE_DEPENDS src/app/*.cpp src/app/*.h)
list(REMOVE_ITEM appSources ${CMAKE_SOURCE_DIR}/src/app/main.cpp)
add_library(tallowmere_app STATIC ${appSources})
target_link_libraries(tallowmere_app PUBLIC
    tallowmere_core Qt6::Widgets Qt6::Network Qt6::PrintSupport Qt6::WebEngineWidgets)
target_precompile_headers(tallowmere_app PRIVATE
    <QtCore> <QtGui> <QtWidgets> <QtNetwork> <QtWebEngineCore> <string> <string_view> <vector>)

# Where the shipped data lies: beside the program, in the installed share folder, or in the source
# tree that the program was built from.
set_source_files_properties(src/app/base/Folders.cpp PROPERTIES
    COMPILE_DEFINITIONS TALLOWMERE_SOURCE_DATA="${CMAKE_SOURCE_DIR}/data")

add_executable(tallowmere src/app/main.cpp)
target_link_libraries(tallowmere PRIVATE tallowmere_app)
target_precompile_headers(tallowmere REUSE_FROM tallowmere_app)
install(TARGETS tallowmere)
install(DIRECTORY data/ DESTINATION share/tallowmere)

# Asks for every address of the tables, for people with a network: ./dev probe
add_library(prober STATIC probe/Prober.cpp probe/Prober.h)
target_link_libraries(prober PUBLIC tallowmere_app)
target_include_directories(prober PUBLIC ${CMAKE_SOURCE_DIR})
add_executable(probe probe/probe.cpp)
target_link_libraries(probe PRIVATE prober)
