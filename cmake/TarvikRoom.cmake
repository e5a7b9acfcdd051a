# One static library per folder. Sources are found by name, so adding a file needs no list;
# what a room may use is what it names here, and the linker and the include checker hold it to that.
#
#   tarvik_room(lcu USES files equipment app)
#   tarvik_test(lcu)            every tests/lcu/*_test.cpp in one program, registered with CTest;
#                               HEADERS <...> for what costs its files most to read
#   tarvik_program(tarvik SOURCES ... USES ...)

add_library(tarvik_options INTERFACE)
target_include_directories(tarvik_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(tarvik_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  -Wimplicit-fallthrough -Werror
  # GCC 12 sees overlapping copies in every assignment of a short text when it optimises.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)

function(tarvik_room name)
  cmake_parse_arguments(ROOM "" "" "USES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_library(${name} STATIC ${sources})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX OUTPUT_NAME tarvik_${name})
  target_link_libraries(${name} PUBLIC tarvik_options ${ROOM_USES})
endfunction()

function(tarvik_program name)
  cmake_parse_arguments(PROGRAM "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${PROGRAM_SOURCES})
  target_link_libraries(${name} PRIVATE tarvik_options ${PROGRAM_USES})
endfunction()

# Tests run in moments as they are; optimising them took a quarter of the whole build.
add_library(tarvik_test_options INTERFACE)
target_compile_options(tarvik_test_options INTERFACE -O0)
target_link_libraries(tarvik_test_options INTERFACE tarvik_options)

# What every test includes is read once for all of them; parsing it costs more than the tests themselves.
function(tarvik_test_headers)
  file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/test_headers.cpp CONTENT "// only carries the headers\n")
  add_library(test_headers OBJECT ${CMAKE_CURRENT_BINARY_DIR}/test_headers.cpp)
  target_link_libraries(test_headers PRIVATE tarvik_test_options GTest::gtest GTest::gmock)
  target_precompile_headers(test_headers PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
endfunction()

function(tarvik_test room)
  cmake_parse_arguments(TEST "" "" "USES;HEADERS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_executable(${room}_tests ${sources})
  target_include_directories(${room}_tests PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${room}_tests PRIVATE tarvik_test_options ${TEST_USES} GTest::gtest_main GTest::gmock)
  target_compile_definitions(${room}_tests PRIVATE TARVIK_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
  if(TEST_HEADERS)
    target_precompile_headers(${room}_tests PRIVATE <gmock/gmock.h> <gtest/gtest.h> ${TEST_HEADERS})
  else()
    target_precompile_headers(${room}_tests REUSE_FROM test_headers)
  endif()
  gtest_discover_tests(${room}_tests PROPERTIES TIMEOUT 120 DISCOVERY_TIMEOUT 60)
endfunction()
