# The stand-ins of host and DOORS as Windows programs, each in a process of its own.
enable_language(C)
set(sqlite ${PROJECT_BINARY_DIR}/sqlite)
add_custom_command(
  OUTPUT ${sqlite}/sqlite3.c ${sqlite}/sqlite3.h
  COMMAND ${PROJECT_SOURCE_DIR}/scripts/sqlite-amalgamation.sh ${sqlite}
  DEPENDS ${PROJECT_SOURCE_DIR}/scripts/sqlite-amalgamation.sh
  VERBATIM)
add_library(sqlite STATIC ${sqlite}/sqlite3.c ${sqlite}/sqlite3.h)
target_compile_options(sqlite PRIVATE -O1 -w)  # not our code to warn of; -O2 takes twice as long
target_compile_definitions(sqlite PRIVATE SQLITE_OMIT_LOAD_EXTENSION)
target_include_directories(sqlite SYSTEM INTERFACE ${sqlite})
add_library(SQLite::SQLite3 ALIAS sqlite)

# CLI11 is headers alone, too.
find_path(CLI11_DIR CLI/CLI.hpp PATHS /usr/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(CREATE_LINK ${CLI11_DIR}/CLI ${PROJECT_BINARY_DIR}/include/CLI SYMBOLIC)

kestrune_stand_in_rooms()
kestrune_room(standins/windows/process platform-room)
kestrune_room(standins/windows/doors standins-doors-database-room standins-windows-process-room)
add_executable(kestrune-doors standins/windows/doors/main.cpp)
target_link_libraries(kestrune-doors PRIVATE standins-windows-doors-room kestrune-resources)

kestrune_room(standins/windows/host standins-stage-room standins-windows-process-room)
add_executable(kestrune-host standins/windows/host/main.cpp)
add_dependencies(kestrune-host kestrune-doors)
target_link_libraries(kestrune-host PRIVATE standins-windows-host-room standins-windows-screen-room kestrune-resources)
