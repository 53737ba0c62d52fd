# share/ beside the executables: what the program finds there at run time, made from packaging/.
set(share ${CMAKE_BINARY_DIR}/share)
file(GLOB picture_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/packaging/pictures/*.svg
     ${CMAKE_SOURCE_DIR}/packaging/skin/* ${CMAKE_SOURCE_DIR}/packaging/animation/*)
add_custom_command(
  OUTPUT ${share}/pictures/brasmir.ico
  COMMAND ${CMAKE_SOURCE_DIR}/tools/make-pictures ${share}/pictures
  DEPENDS ${picture_sources} ${CMAKE_SOURCE_DIR}/tools/make-pictures
  COMMENT "Drawing the pictures" VERBATIM)
file(GLOB help_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/packaging/help/*)
add_custom_command(
  OUTPUT ${share}/help/Tidorra.chm
  COMMAND ${CMAKE_SOURCE_DIR}/tools/make-help ${share}/help
  DEPENDS ${help_sources} ${picture_sources} ${CMAKE_SOURCE_DIR}/tools/make-help
  COMMENT "Compiling the help" VERBATIM)
file(GLOB_RECURSE plug_ins CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/packaging/plug-ins/*.plg)
add_custom_command(
  OUTPUT ${share}/first-time-settings.txt
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${share}/plug-ins
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_SOURCE_DIR}/packaging/plug-ins ${share}/plug-ins
  COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/packaging/first-time-settings.txt ${share}/first-time-settings.txt
  COMMAND ${CMAKE_COMMAND} -E touch ${share}/first-time-settings.txt
  DEPENDS ${plug_ins} ${CMAKE_SOURCE_DIR}/packaging/first-time-settings.txt
  COMMENT "Copying the first settings and plug-ins" VERBATIM)
add_custom_target(share ALL DEPENDS ${share}/pictures/brasmir.ico ${share}/help/Tidorra.chm
                  ${share}/first-time-settings.txt)
