# Settings and functions every folder's CMakeLists.txt uses.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

option(VESTREL_TESTS "Build the tests" OFF)
option(VESTREL_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

add_library(vestrel_options INTERFACE)
target_include_directories(vestrel_options INTERFACE "${CMAKE_SOURCE_DIR}")
target_compile_options(vestrel_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
  -Woverloaded-virtual -Wnull-dereference -Wdouble-promotion -Wformat=2 -Werror)
if(VESTREL_SANITIZE)
  target_compile_options(vestrel_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(vestrel_options INTERFACE -fsanitize=address,undefined)
endif()
if(WIN32)
  target_compile_definitions(vestrel_options INTERFACE UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX)
  target_link_options(vestrel_options INTERFACE -static)
endif()

# vestrel_library(NAME SOURCES a.cpp ... LINKS target ...): one static target for one folder.
function(vestrel_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC vestrel_options ${ARG_LINKS})
endfunction()

# vestrel_test(NAME SOURCES a.cpp ... LINKS target ...): one test program for one folder.
function(vestrel_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} vestrel_test_support GTest::gmock GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60)
endfunction()
