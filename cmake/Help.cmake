# ORIMDOORS.chm, the help file, beside Kestrune.dll.
find_program(FPC fpc REQUIRED)
set(help ${PROJECT_SOURCE_DIR}/docs/help)
file(GLOB help_sources CONFIGURE_DEPENDS ${help}/*.* ${PROJECT_SOURCE_DIR}/docs/images/*.png)
set(makehelp ${PROJECT_BINARY_DIR}/makehelp)
file(MAKE_DIRECTORY ${makehelp})
add_custom_command(
  OUTPUT ${makehelp}/makehelp
  COMMAND ${FPC} -O2 -v0 -FE${makehelp} ${PROJECT_SOURCE_DIR}/setup/makehelp.pas
  DEPENDS ${PROJECT_SOURCE_DIR}/setup/makehelp.pas
  VERBATIM)
set(KESTRUNE_HELP ${PROJECT_BINARY_DIR}/ORIMDOORS.chm)
add_custom_command(
  OUTPUT ${KESTRUNE_HELP}
  COMMAND ${makehelp}/makehelp ${help} ${KESTRUNE_HELP}
  DEPENDS ${makehelp}/makehelp ${help_sources}
  VERBATIM)
add_custom_target(help-file DEPENDS ${KESTRUNE_HELP})
add_dependencies(Kestrune help-file)
