# Kestrune.dll: all rooms, the COM entry (addin/com) and the resources.
enable_language(RC)

# Wine's headers and its type library stdole2, which MinGW lacks.
find_path(IDL_DIR oaidl.idl PATHS /usr/include/wine/wine/windows NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
find_path(STDOLE_DIR stdole2.tlb PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows NO_DEFAULT_PATH
          NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(idl ${PROJECT_SOURCE_DIR}/addin/com/Kestrune.idl)
set(KESTRUNE_GENERATED ${PROJECT_BINARY_DIR}/generated)
# widl writes the time of its run into the type library, where the same sources must give the same bytes.
find_program(FAKETIME faketime REQUIRED)
set(widl ${CMAKE_COMMAND} -E env TZ=UTC ${FAKETIME} -f "2000-01-01 00:00:00" ${KESTRUNE_ARCH}-w64-mingw32-widl -I${IDL_DIR})
file(MAKE_DIRECTORY ${KESTRUNE_GENERATED})
add_custom_command(
  OUTPUT ${KESTRUNE_GENERATED}/Kestrune.tlb ${KESTRUNE_GENERATED}/Kestrune_h.h ${KESTRUNE_GENERATED}/Kestrune_i.c
  COMMAND ${widl} -L${STDOLE_DIR} -t -o ${KESTRUNE_GENERATED}/Kestrune.tlb ${idl}
  COMMAND ${widl} -h -o ${KESTRUNE_GENERATED}/Kestrune_h.h ${idl}
  COMMAND ${widl} -u -o ${KESTRUNE_GENERATED}/Kestrune_i.c ${idl}
  DEPENDS ${idl}
  VERBATIM)
add_custom_target(kestrune-type-library DEPENDS ${KESTRUNE_GENERATED}/Kestrune.tlb)

string(REPLACE "." "," version_numbers ${PROJECT_VERSION}.0)
configure_file(${PROJECT_SOURCE_DIR}/common/resources/Version.h.in ${KESTRUNE_GENERATED}/Version.h)

set(resources ${PROJECT_SOURCE_DIR}/common/resources)
file(GLOB resource_files CONFIGURE_DEPENDS ${resources}/*.* ${resources}/dxl/*.dxl ${resources}/sql/*.sql)
set_source_files_properties(${resources}/Kestrune.rc PROPERTIES
  OBJECT_DEPENDS "${resource_files};${KESTRUNE_GENERATED}/Kestrune.tlb;${KESTRUNE_GENERATED}/Version.h"
  INCLUDE_DIRECTORIES "${KESTRUNE_GENERATED};${resources};${PROJECT_SOURCE_DIR}")

add_library(kestrune-resources OBJECT ${resources}/Kestrune.rc)
add_dependencies(kestrune-resources kestrune-type-library)

file(GLOB com_entry CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/addin/com/*.cpp)
add_library(Kestrune MODULE ${com_entry} ${PROJECT_SOURCE_DIR}/addin/com/Kestrune.def)
set_target_properties(Kestrune PROPERTIES PREFIX "" SUFFIX ".dll")
add_dependencies(Kestrune kestrune-type-library)
target_include_directories(Kestrune SYSTEM PRIVATE ${KESTRUNE_GENERATED})
target_precompile_headers(Kestrune REUSE_FROM platform-room)
target_link_libraries(Kestrune PRIVATE addin-room kestrune-resources)
target_link_options(Kestrune PRIVATE -Wl,--kill-at,--enable-stdcall-fixup,--no-undefined,--dynamicbase,--nxcompat
                    -Wl,--no-insert-timestamp $<$<AND:$<CONFIG:Release>,$<NOT:$<BOOL:${KESTRUNE_SYMBOLS}>>>:-s>)
if(KESTRUNE_SYMBOLS)
  add_custom_command(TARGET Kestrune POST_BUILD
    COMMAND ${CMAKE_OBJCOPY} --only-keep-debug $<TARGET_FILE:Kestrune> $<TARGET_FILE:Kestrune>.debug
    COMMAND ${CMAKE_STRIP} --preserve-dates $<TARGET_FILE:Kestrune>
    COMMAND ${CMAKE_OBJCOPY} --add-gnu-debuglink=$<TARGET_FILE:Kestrune>.debug $<TARGET_FILE:Kestrune>
    VERBATIM)
endif()
add_custom_command(TARGET Kestrune POST_BUILD
  COMMAND ${CMAKE_COMMAND} -DDLL=$<TARGET_FILE:Kestrune> -DARCH=${KESTRUNE_ARCH} -DOBJDUMP=${CMAKE_OBJDUMP}
          -P ${PROJECT_SOURCE_DIR}/cmake/CheckDll.cmake
  VERBATIM)
