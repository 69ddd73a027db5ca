# The programs that test the Windows build. They run on a machine without Windows under Wine: scripts/windows-tests.sh.
enable_testing()
add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)

# kestrune_windows_test(PROGRAM): runs PROGRAM in ctest. One at a time, as they share clipboard, registry and foreground.
function(kestrune_windows_test program)
  add_test(NAME ${program} COMMAND ${program})
  set_tests_properties(${program} PROPERTIES TIMEOUT 120 RUN_SERIAL ON)
endfunction()

add_subdirectory(tests/windows/com)
add_subdirectory(tests/windows/dialogs)
add_subdirectory(tests/windows/help)
add_subdirectory(tests/windows/long)
add_subdirectory(tests/windows/portable)
add_subdirectory(tests/standins/windows/processes)
