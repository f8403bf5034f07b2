# Settings and functions every folder's CMakeLists.txt uses.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_C_FLAGS_RELEASE "-O2 -DNDEBUG")
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

option(VESTREL_TESTS "Build the tests" OFF)
option(VESTREL_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(VESTREL_FUZZ "Build the fuzz targets (clang only)" OFF)
option(VESTREL_COVERAGE "Count what the tests reach (clang only)" OFF)
option(VESTREL_BENCH "Build the benchmarks" OFF)

find_program(VESTREL_CCACHE ccache)
if(VESTREL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_C_COMPILER_LAUNCHER "${VESTREL_CCACHE}")
  set(CMAKE_CXX_COMPILER_LAUNCHER "${VESTREL_CCACHE}")
endif()

add_library(vestrel_options INTERFACE)
target_include_directories(vestrel_options INTERFACE "${CMAKE_SOURCE_DIR}")
target_compile_options(vestrel_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
  -Woverloaded-virtual -Wnull-dereference -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # GCC's default.
  target_compile_options(vestrel_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-fsized-deallocation>)
endif()

if(VESTREL_SANITIZE)
  target_compile_options(vestrel_options INTERFACE
    -g1 -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(vestrel_options INTERFACE -fsanitize=address,undefined)
  target_compile_definitions(vestrel_options INTERFACE VESTREL_SANITIZED)
endif()
if(VESTREL_FUZZ)
  target_compile_options(vestrel_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(VESTREL_COVERAGE)
  target_compile_options(vestrel_options INTERFACE -fprofile-instr-generate -fcoverage-mapping)
  target_link_options(vestrel_options INTERFACE -fprofile-instr-generate)
endif()

# Containers check their bounds wherever speed is not the point.
target_compile_definitions(vestrel_options INTERFACE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)

if(WIN32)
  target_compile_definitions(vestrel_options INTERFACE UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX)
  target_link_options(vestrel_options INTERFACE -static)
else()
  target_compile_options(vestrel_options INTERFACE -fstack-protector-strong)
  target_compile_definitions(vestrel_options INTERFACE $<$<CONFIG:Release>:_FORTIFY_SOURCE=2>)
  target_link_options(vestrel_options INTERFACE -Wl,-z,relro,-z,now)
endif()

# vestrel_folder(FOLDER): adds the folder when the tree has it.
function(vestrel_folder folder)
  if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/CMakeLists.txt")
    add_subdirectory(${folder})
  endif()
endfunction()

# vestrel_library(NAME SOURCES a.cpp ... LINKS target ...): one static target for one folder.
function(vestrel_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC vestrel_options ${ARG_LINKS})
  if(VESTREL_SANITIZE)
    # The library runs fast enough and keeps readable stack traces; tests compile three times as fast without it.
    target_compile_options(${name} PRIVATE -O1)
  endif()
endfunction()

# vestrel_test(NAME SOURCES a.cpp ... LINKS target ...): one test program for one folder. It is one CTest test:
# starting a process for each case would cost more than the cases; ./test counts them from the program's report.
function(vestrel_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} vestrel_test_support GTest::gmock GTest::gtest_main)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 900)
endfunction()

# vestrel_fuzz(NAME SOURCES a.cpp ... LINKS target ...): one libFuzzer program, which the target "fuzz" builds.
function(vestrel_fuzz name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} vestrel_fuzz_support)
  target_compile_options(${name} PRIVATE -O1)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  add_dependencies(fuzz ${name})
endfunction()
