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

# add_room_tests(NAME dep...): one test program from all sources directly in tests/NAME, found by ctest.
function(add_room_tests name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name}_tests ${sources})
  target_link_libraries(${name}_tests PRIVATE ${ARGN} GTest::gtest GTest::gtest_main)
  target_include_directories(${name}_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  gtest_discover_tests(${name}_tests DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300)
endfunction()
