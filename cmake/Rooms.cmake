# A room is one folder of src/ and one library. It sees the headers of the rooms that it links and no others:
# each room's headers are reached through a folder of links of its own, so that an include of a room that isn't
# linked doesn't compile.

# add_room(NAME DIR dep...): the library NAME from all sources directly in src/DIR. A dependency that is a room is
# visible to those who link NAME as well.
function(add_room name dir)
  set(source_dir ${CMAKE_SOURCE_DIR}/src/${dir})
  file(GLOB sources CONFIGURE_DEPENDS ${source_dir}/*.cpp ${source_dir}/*.h)
  set(include_dir ${CMAKE_BINARY_DIR}/include/${name})
  get_filename_component(parent ${include_dir}/${dir} DIRECTORY)
  file(MAKE_DIRECTORY ${parent})
  if(NOT EXISTS ${include_dir}/${dir})
    file(CREATE_LINK ${source_dir} ${include_dir}/${dir} SYMBOLIC)
  endif()

  set(compiled ${sources})
  list(FILTER compiled INCLUDE REGEX "\\.cpp$")
  if(compiled)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${include_dir})
    target_link_libraries(${name} PUBLIC ${ARGN})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${include_dir})
    target_link_libraries(${name} INTERFACE ${ARGN})
  endif()
endfunction()

# What a test file's name begins with tells where it is built: Host... not for Windows, Windows... for nothing else.
function(glob_test_sources variable folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "/Host[^/]*$")
  else()
    list(FILTER sources EXCLUDE REGEX "/Windows[^/]*$")
  endif()
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()

# add_room_tests(NAME dep...): one test program from all sources directly in tests/NAME, found by ctest. A program for
# Windows is one test, on one computer of its own; each of its results is in wine/NAME.xml.
function(add_room_tests name)
  glob_test_sources(sources ${name})
  if(NOT sources)
    return()
  endif()
  add_executable(${name}_tests ${sources})
  target_link_libraries(${name}_tests PRIVATE ${ARGN} GTest::gtest GTest::gtest_main)
  target_include_directories(${name}_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  if(WIN32)
    add_wine_test(${name} COMMAND $<TARGET_FILE:${name}_tests>)
  else()
    gtest_discover_tests(${name}_tests DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300)
  endif()
endfunction()

# add_wine_test(NAME [SCREEN] [GROUP filter] [BRING path...] COMMAND program [argument...]): a program of GoogleTest's, or
# a group of its tests, that runs under Wine, with what tests/wine-left-out.txt names left out.
function(add_wine_test name)
  cmake_parse_arguments(PARSE_ARGV 1 test SCREEN "GROUP" "BRING;COMMAND")
  if(NOT test_GROUP)
    set(test_GROUP "*")
  endif()
  file(STRINGS ${CMAKE_SOURCE_DIR}/tests/wine-left-out.txt lines REGEX "^[A-Za-z]")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/wine-left-out.txt)
  set(left_out "")
  foreach(line ${lines})
    string(REGEX MATCH "^[^ ]+" pattern "${line}")
    string(APPEND left_out ":${pattern}")
  endforeach()
  set(bring "")
  foreach(path ${test_BRING})
    list(APPEND bring --bring ${path})
  endforeach()
  set(screen "")
  set(limit 580)
  if(test_SCREEN)
    set(screen ${CMAKE_SOURCE_DIR}/tests/e2e/second-chance 250 ${CMAKE_SOURCE_DIR}/tools/with-screen)
    set(limit 180)
  endif()
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/wine)
  add_test(NAME wine.${name}
           COMMAND ${screen} ${CMAKE_SOURCE_DIR}/tools/with-wine
                   --fetch results.xml ${CMAKE_BINARY_DIR}/wine/${name}.xml
                   --bring ${CMAKE_SOURCE_DIR}/packaging --bring ${CMAKE_SOURCE_DIR}/src ${bring} ${test_COMMAND}
                   --gtest_output=xml:results.xml --gtest_filter=${test_GROUP}-${left_out})
  set_tests_properties(wine.${name} PROPERTIES TIMEOUT 600 ENVIRONMENT "WINE_TIMEOUT=${limit}")
endfunction()
