# Kestrune.dll and what is needed to test it under Wine.
option(KESTRUNE_SYMBOLS "Keep the debugging symbols of Kestrune.dll, in a file beside it" OFF)
if(KESTRUNE_SYMBOLS)
  add_compile_options(-g -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
endif()
add_compile_definitions(UNICODE _UNICODE NOMINMAX _WIN32_WINNT=0x0601 WINVER=0x0601)

# utf8cpp is headers alone; they are the same for every target.
find_path(UTF8CPP_DIR utf8.h PATHS /usr/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/include)
file(CREATE_LINK ${UTF8CPP_DIR}/utf8.h ${PROJECT_BINARY_DIR}/include/utf8.h SYMBOLIC)
file(CREATE_LINK ${UTF8CPP_DIR}/utf8 ${PROJECT_BINARY_DIR}/include/utf8 SYMBOLIC)
include_directories(SYSTEM ${PROJECT_BINARY_DIR}/include)

kestrune_add_in_rooms(ole32 oleaut32 uuid advapi32 shell32 comctl32 gdi32 user32)
include(cmake/KestruneDll.cmake)
include(cmake/Help.cmake)
include(cmake/WindowsStandIns.cmake)

include(cmake/Screen.cmake)
include(cmake/WindowsTests.cmake)
add_subdirectory(tests/standins/windows/screen)
add_subdirectory(tests/windows/sessions)
add_subdirectory(tests/windows/setup)
add_subdirectory(bench/windows)
add_subdirectory(fuzz/windows)
