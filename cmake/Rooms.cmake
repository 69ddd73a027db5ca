# What nearly every file includes, compiled once: it halves the time of a first build.
set(KESTRUNE_STANDARD_HEADERS <algorithm> <filesystem> <functional> <map> <memory> <optional> <stdexcept> <string>
    <unordered_map> <variant> <vector>)

# kestrune_room(DIR [LIBRARY...]): a static library of all sources below DIR/, linked to LIBRARY... Its name is DIR with
# hyphens, and -room. On Windows it takes what lies in platform/com and platform/windows in place of platform/headless, and
# nothing of what reads exchange files. addin/com belongs to Kestrune.dll, main.cpp to a program.
function(kestrune_room dir)
  string(REPLACE "/" "-" name ${dir})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${dir}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "/addin/com/|/main\\.cpp$")
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "/platform/headless/|/doors-database/reqif/|/doors-database/LoadReqif")
  else()
    list(FILTER sources EXCLUDE REGEX "/platform/com/|/platform/windows/")
  endif()
  if(NOT sources)  # a room of headers
    add_library(${name}-room INTERFACE)
    target_link_libraries(${name}-room INTERFACE ${ARGN})
    return()
  endif()
  add_library(${name}-room STATIC ${sources})
  target_include_directories(${name}-room PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name}-room PUBLIC ${ARGN})
  if(dir STREQUAL platform)
    target_precompile_headers(${name}-room PRIVATE ${KESTRUNE_STANDARD_HEADERS})
  else()
    target_precompile_headers(${name}-room REUSE_FROM platform-room)
  endif()
endfunction()

# kestrune_test_program(DIR [LIBRARY...]): the test program DIR-tests of all sources in tests/DIR/.
function(kestrune_test_program dir)
  string(REPLACE "/" "-" name ${dir})
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${dir}/*.cpp)
  add_executable(${name}-tests ${sources})
  target_compile_definitions(${name}-tests PRIVATE KESTRUNE_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name}-tests PRIVATE ${ARGN} GTest::gtest_main)
  if(dir STREQUAL house)  # the first of them
    target_precompile_headers(${name}-tests PRIVATE ${KESTRUNE_STANDARD_HEADERS} <gtest/gtest.h>)
  else()
    target_precompile_headers(${name}-tests REUSE_FROM house-tests)
  endif()
endfunction()

# kestrune_tests(DIR [LIBRARY...]): one that ctest runs.
function(kestrune_tests dir)
  kestrune_test_program(${dir} ${ARGN})
  string(REPLACE "/" "-" name ${dir})
  gtest_discover_tests(${name}-tests DISCOVERY_MODE PRE_TEST NO_PRETTY_VALUES TEST_PREFIX "${name}." PROPERTIES TIMEOUT 600)
endfunction()

# The add-in's rooms, from the ground to the top floor; each may use those above it in this list. ARGN: what the platform
# is built on.
macro(kestrune_add_in_rooms)
  kestrune_room(platform ${ARGN})
  kestrune_room(orim platform-room)
  kestrune_room(common orim-room)
  kestrune_room(doors common-room)
  kestrune_room(options doors-room)
  kestrune_room(documents options-room)
  kestrune_room(import documents-room)
  kestrune_room(addin import-room)
  target_compile_definitions(addin-room PRIVATE KESTRUNE_VERSION="${PROJECT_VERSION}")
endmacro()

# The rooms of the stand-ins. ARGN: what reading exchange files takes.
macro(kestrune_stand_in_rooms)
  kestrune_room(standins/desktop platform-room)
  kestrune_room(standins/sqlite platform-room SQLite::SQLite3)
  kestrune_room(standins/dxl platform-room)
  kestrune_room(standins/doors-database standins-desktop-room standins-dxl-room standins-sqlite-room ${ARGN})
  kestrune_room(standins/host-model standins-sqlite-room)
  kestrune_room(standins/play standins-desktop-room)
  kestrune_room(standins/stage orim-room standins-doors-database-room standins-host-model-room standins-play-room)
endmacro()
