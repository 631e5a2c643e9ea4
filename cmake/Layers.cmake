# The folders of the tree are layers, and who may include whom is decided here: a target exports an
# include root that holds the headers of its own folder and nothing else, so that an include which
# the layer below was not linked for fails with "no such file".

set(QUOR_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 14)
  # Where a literal is put before a std::string, these take its copying, once it is optimised, for one
  # that overlaps or goes beyond any object. Without optimising they say nothing anyway.
  list(APPEND QUOR_WARNINGS -Wno-restrict -Wno-stringop-overflow -Wno-array-bounds)
endif()

# quor_layer(TARGET FOLDER): gives TARGET the headers of FOLDER (a path from the top of the tree)
# under that path, and the warnings of the house; tests/walls checks both.
function(quor_layer target folder)
  set(root ${CMAKE_BINARY_DIR}/layers/${target})
  file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.h)
  file(REMOVE_RECURSE ${root}/${folder})
  file(MAKE_DIRECTORY ${root}/${folder})
  foreach(header IN LISTS headers)
    cmake_path(GET header FILENAME name)
    file(CREATE_LINK ${header} ${root}/${folder}/${name} SYMBOLIC)
  endforeach()
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "INTERFACE_LIBRARY")
    set(seen INTERFACE_)
    target_include_directories(${target} INTERFACE ${root})
  else()
    target_include_directories(${target} PUBLIC ${root})
    target_compile_options(${target} PRIVATE ${QUOR_WARNINGS})
  endif()
  string(JOIN "|" line ${folder} "$<TARGET_PROPERTY:${target},${seen}INCLUDE_DIRECTORIES>"
         "$<TARGET_PROPERTY:${target},${seen}COMPILE_DEFINITIONS>")
  set_property(GLOBAL APPEND_STRING PROPERTY QUOR_LAYERS "${line}\n")
endfunction()

# quor_sources(VARIABLE): the sources of the current folder.
function(quor_sources variable)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()

# quor_library(TARGET ROOM LIBRARIES...): the sources of the current folder as a static library and a
# layer that sees LIBRARIES, with the precompiled headers of ROOM.
function(quor_library target room)
  quor_sources(sources)
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${CMAKE_SOURCE_DIR}
             OUTPUT_VARIABLE folder)
  add_library(${target} STATIC ${sources})
  quor_layer(${target} ${folder})
  quor_precompile(${target} ${room})
  target_link_libraries(${target} PUBLIC ${ARGN})
endfunction()
