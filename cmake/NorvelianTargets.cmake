# Settings and helpers that every target of this tree shares.

include(GNUInstallDirs)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# Programs are linked so too: else they would hold copies of what is in the libraries, type information among it.
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release)
endif()

# All programs and libraries of a build are together, as they do when installed.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_BUILD_RPATH "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}:$ORIGIN")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

set(NORVELIAN_SANITIZER "" CACHE STRING "Value for -fsanitize=, for example address,undefined")

# Compiler settings of our own targets; never exported.
add_library(norvelian_options INTERFACE)
target_compile_options(norvelian_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Unique symbols would pin the plug-in in the process for ever.
  target_compile_options(norvelian_options INTERFACE -fno-gnu-unique)
  # GCC 12 sees overlaps in std::string that aren't there (its bug 105651), and doesn't see that a
  # counted pointer with a second holder deletes nothing.
  target_compile_options(norvelian_options INTERFACE -Wno-restrict -Wno-use-after-free)
endif()
if(NORVELIAN_SANITIZER)
  target_compile_options(norvelian_options INTERFACE
    -fsanitize=${NORVELIAN_SANITIZER} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(norvelian_options INTERFACE -fsanitize=${NORVELIAN_SANITIZER})
endif()

# norvelian_floor(NAME sources...): the shared library of one floor. Its headers are found from the
# root of the tree and, once installed, below include/norvelian.
function(norvelian_floor name)
  add_library(${name} SHARED ${ARGN})
  add_library(Norvelian::${name} ALIAS ${name})
  target_include_directories(${name} PUBLIC
    "$<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}>"
    "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/norvelian>")
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:norvelian_options>)
  if(NORVELIAN_SANITIZER MATCHES "address" AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # Else clang's runtime takes type information that a program holds too for a second definition.
    target_compile_options(${name} PRIVATE -fsanitize-address-use-odr-indicator)
  endif()
  set_target_properties(${name} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION 0)
  install(TARGETS ${name} EXPORT NorvelianTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endfunction()

# norvelian_test(NAME LIBS libs... SOURCES sources...): one test program, found by ctest.
function(norvelian_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE norvelian_options ${arg_LIBS} GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}")
  list(LENGTH arg_SOURCES units)
  if(units GREATER 3)
    norvelian_precompile(${name} <gmock/gmock.h> <gtest/gtest.h>)
  endif()
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8" TIMEOUT 300)
endfunction()
