# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# GoogleTest from Debian's sources, built with this tree's compiler and flags,
# so that the same tests run on the host, under the sanitizers and on the
# target under qemu.
set(MA_COMMON_GOOGLETEST_SOURCE "/usr/src/googletest" CACHE PATH
  "GoogleTest sources (Debian package googletest)")
if(NOT TARGET GTest::gtest)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  set(BUILD_GMOCK ON CACHE BOOL "" FORCE)
  add_subdirectory("${MA_COMMON_GOOGLETEST_SOURCE}"
    "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
endif()
include(GoogleTest)

# White-box tests reach the library's internal routines through a static
# archive of the very objects that make up the shared library.
add_library(ma-common-internal STATIC)
target_link_libraries(ma-common-internal PUBLIC
  ma-common-objects zel::platform Threads::Threads)
target_include_directories(ma-common-internal PUBLIC
  ${PROJECT_SOURCE_DIR}/common/fw/ma/common/internal)

# ma_common_add_test(<name> SOURCES <files...> [WHITEBOX] [LIBRARIES <libs...>])
# A test program with every test case registered in CTest. It links the
# shared library, as clients do, or with WHITEBOX the internal archive.
function(ma_common_add_test name)
  cmake_parse_arguments(ARG "WHITEBOX" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  if(ARG_WHITEBOX)
    set(library ma-common-internal)
  else()
    set(library ma-common)
  endif()
  target_link_libraries(${name} PRIVATE
    ${library} ma-test-support GTest::gmock ${ARG_LIBRARIES})
  ma_common_set_warnings(${name})
  set_property(GLOBAL APPEND PROPERTY MA_COMMON_TEST_PROGRAMS "$<TARGET_FILE:${name}>")
  if(CMAKE_CROSSCOMPILING)
    # Under the emulator a process start is expensive: one CTest test runs
    # the whole program, whose own output names any failing case.
    add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
    set_tests_properties(${name} PROPERTIES LABELS "${name}")
  else()
    gtest_discover_tests(${name}
      NO_PRETTY_TYPES NO_PRETTY_VALUES
      DISCOVERY_MODE PRE_TEST
      DISCOVERY_TIMEOUT 120
      PROPERTIES LABELS "${name}")
  endif()
endfunction()

# test-programs.txt in the build folder lists every test program, one a line,
# for tools that run whole programs (scripts/valgrind.sh).
function(ma_common_write_test_program_list)
  get_property(programs GLOBAL PROPERTY MA_COMMON_TEST_PROGRAMS)
  list(JOIN programs "\n" content)
  file(GENERATE OUTPUT "${CMAKE_BINARY_DIR}/test-programs.txt" CONTENT "${content}\n")
endfunction()
