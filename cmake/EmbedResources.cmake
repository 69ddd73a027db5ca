# kestrune_embed_resources(TARGET): adds to TARGET a source file that holds the string table and the "DXL" and "SQL"
# resources, the native build's answer to platform/ResourceStore.h.
function(kestrune_embed_resources target)
  set(resources ${PROJECT_SOURCE_DIR}/common/resources)
  file(GLOB files CONFIGURE_DEPENDS ${resources}/dxl/*.dxl ${resources}/sql/*.sql)
  set(source ${PROJECT_BINARY_DIR}/generated/EmbeddedResources.cpp)
  add_custom_command(
    OUTPUT ${source}
    COMMAND ${CMAKE_COMMAND} -DOUTPUT=${source} "-DFILES=${files}" -P ${PROJECT_SOURCE_DIR}/cmake/WriteResources.cmake
    DEPENDS ${files} ${PROJECT_SOURCE_DIR}/cmake/WriteResources.cmake
    VERBATIM)
  target_sources(${target} PRIVATE ${source})
endfunction()
