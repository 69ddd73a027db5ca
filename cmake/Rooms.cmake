# What nearly every file includes, compiled once: it halves the time of a first build.
set(KESTRUNE_STANDARD_HEADERS <algorithm> <filesystem> <functional> <map> <memory> <optional> <stdexcept> <string>
    <unordered_map> <variant> <vector>)

# kestrune_room(DIR [LIBRARY...]): a static library of all sources below DIR/, linked to LIBRARY... Its name is kestrune-
# and DIR with hyphens. On Windows it takes what lies in folders named win32 in place of what is named after the libraries
# of the native build (platform/headless/Xml*), and nothing of what reads exchange files. addin/com belongs to
# Kestrune.dll, main.cpp to a program.
function(kestrune_room dir)
  string(REPLACE "/" "-" name ${dir})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${dir}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "/com/|/main\\.cpp$")
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "/headless/Xml|/doors/reqif/|/doors/LoadReqif")
  else()
    list(FILTER sources EXCLUDE REGEX "/win32/")
  endif()
  if(NOT sources)  # a room of headers
    add_library(kestrune-${name} INTERFACE)
    target_link_libraries(kestrune-${name} INTERFACE ${ARGN})
    return()
  endif()
  add_library(kestrune-${name} STATIC ${sources})
  target_include_directories(kestrune-${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(kestrune-${name} PUBLIC ${ARGN})
  if(dir STREQUAL platform)
    target_precompile_headers(kestrune-${name} PRIVATE ${KESTRUNE_STANDARD_HEADERS})
  else()
    target_precompile_headers(kestrune-${name} REUSE_FROM kestrune-platform)
  endif()
endfunction()

# kestrune_tests(DIR [LIBRARY...]): the test program DIR-tests of all sources in tests/DIR/.
function(kestrune_tests dir)
  string(REPLACE "/" "-" name ${dir})
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${dir}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name}-tests ${sources})
  target_compile_definitions(${name}-tests PRIVATE KESTRUNE_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name}-tests PRIVATE ${ARGN} GTest::gtest_main)
  if(dir STREQUAL house)  # the first of them
    target_precompile_headers(${name}-tests PRIVATE ${KESTRUNE_STANDARD_HEADERS} <gtest/gtest.h>)
  else()
    target_precompile_headers(${name}-tests REUSE_FROM house-tests)
  endif()
  gtest_discover_tests(${name}-tests DISCOVERY_MODE PRE_TEST NO_PRETTY_VALUES TEST_PREFIX "${name}." PROPERTIES TIMEOUT 600)
endfunction()

# The add-in's rooms, from the ground to the top floor; each may use those above it in this list. ARGN: what the platform
# is built on.
macro(kestrune_add_in_rooms)
  kestrune_room(platform ${ARGN})
  kestrune_room(orim kestrune-platform)
  kestrune_room(common kestrune-orim)
  kestrune_room(doors kestrune-common)
  kestrune_room(options kestrune-doors)
  kestrune_room(documents kestrune-options)
  kestrune_room(import kestrune-documents)
  kestrune_room(addin kestrune-import)
  target_compile_definitions(kestrune-addin PRIVATE KESTRUNE_VERSION="${PROJECT_VERSION}")
endmacro()

# The rooms of the stand-ins. ARGN: what reading exchange files takes.
macro(kestrune_stand_in_rooms)
  kestrune_room(workbench/sqlite kestrune-platform SQLite::SQLite3)
  kestrune_room(workbench/dxl kestrune-platform)
  kestrune_room(workbench/doors kestrune-workbench-dxl kestrune-workbench-sqlite ${ARGN})
  kestrune_room(workbench/orim kestrune-workbench-sqlite)
  kestrune_room(workbench/play kestrune-platform)
  kestrune_room(workbench/stage kestrune-common kestrune-workbench-doors kestrune-workbench-orim kestrune-workbench-play)
endmacro()
