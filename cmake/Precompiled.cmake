# What nearly every source includes of the standard library, of Qt and of GoogleTest is compiled once
# for the whole tree. Three rooms of headers, each only for targets that may see all of it anyway:
#   standard  the standard library
#   qt        and Qt's widgets
#   test      and GoogleTest, with Qt's widgets where the test links them

set(QUOR_PRECOMPILED_STANDARD
    <algorithm> <array> <charconv> <chrono> <cmath> <cstdint> <filesystem> <functional> <map>
    <memory> <optional> <set> <string> <string_view> <unordered_map> <utility> <variant> <vector>)
set(QUOR_PRECOMPILED_QT ${QUOR_PRECOMPILED_STANDARD} <QtWidgets>)

# quor_precompiled_room(ROOM KIND LIBRARY HEADERS...): the room, compiled as KIND (library or
# program) is.
function(quor_precompiled_room room kind library)
  set(target quor_precompiled_${room})
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/precompiled/${room}.cpp CONTENT
       "int main() { return 0; }\n")
  if(kind STREQUAL "library")
    add_library(${target} OBJECT ${CMAKE_BINARY_DIR}/precompiled/${room}.cpp)
  else()
    add_executable(${target} ${CMAKE_BINARY_DIR}/precompiled/${room}.cpp)
  endif()
  set_target_properties(${target} PROPERTIES EXCLUDE_FROM_ALL ON)
  if(library)
    target_link_libraries(${target} PRIVATE ${library})
  endif()
  target_compile_options(${target} PRIVATE ${QUOR_WARNINGS})
  target_precompile_headers(${target} PRIVATE ${ARGN})
endfunction()

# quor_precompile(TARGET ROOM): TARGET sees the headers of ROOM without reading them.
function(quor_precompile target room)
  if(NOT TARGET quor_precompiled_${room})
    if(room STREQUAL "standard")
      quor_precompiled_room(standard library "" ${QUOR_PRECOMPILED_STANDARD})
    elseif(room STREQUAL "qt")
      quor_precompiled_room(qt library Qt6::Widgets ${QUOR_PRECOMPILED_QT})
    elseif(room STREQUAL "test")
      quor_precompiled_room(test program GTest::gtest ${QUOR_PRECOMPILED_STANDARD} <gtest/gtest.h>)
    else()
      quor_precompiled_room(qt_test program "GTest::gtest;Qt6::Widgets;Qt6::Test"
                            ${QUOR_PRECOMPILED_QT} <QtTest> <gtest/gtest.h>)
    endif()
  endif()
  target_precompile_headers(${target} REUSE_FROM quor_precompiled_${room})
endfunction()
