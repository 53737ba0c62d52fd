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

if(WIN32)
  # resource_file(VARIABLE PROGRAM DESCRIPTION): the icon, the version and what the program asks of Windows. Who compiles
  # it must depend on `share`.
  function(resource_file variable program description)
    set(file ${CMAKE_BINARY_DIR}/resources/${program}.rc)
    set(share ${CMAKE_BINARY_DIR}/share)
    configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/Brasmir.rc.in ${file} @ONLY)
    set_source_files_properties(${file} PROPERTIES OBJECT_DEPENDS
                                ${CMAKE_SOURCE_DIR}/packaging/windows/Brasmir.manifest)
    set(${variable} ${file} PARENT_SCOPE)
  endfunction()

  # The folder as the installer leaves it, beside the programs that the linker puts there.
  file(MAKE_DIRECTORY ${installed})
  add_custom_command(
    OUTPUT ${CMAKE_BINARY_DIR}/installed.stamp
    COMMAND ${CMAKE_SOURCE_DIR}/packaging/windows/make-folder ${share} ${installed}
    COMMAND ${CMAKE_COMMAND} -E touch ${CMAKE_BINARY_DIR}/installed.stamp
    DEPENDS ${share}/pictures/brasmir.ico ${share}/help/Tidorra.chm ${share}/first-time-settings.txt
            ${CMAKE_SOURCE_DIR}/packaging/windows/make-folder
    COMMENT "Filling the program's folder" VERBATIM)
  add_custom_target(installed ALL DEPENDS ${CMAKE_BINARY_DIR}/installed.stamp)
  add_dependencies(installed share)
endif()
