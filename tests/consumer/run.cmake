# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# ctest -P script: installs the build into a scratch root, then builds the
# consumer against it and runs it (a cross build's under the emulator).
#   -DBUILD_DIR=<library build> -DSOURCE_DIR=<this folder> -DWORK_DIR=<scratch>
#   -DGENERATOR=<generator> -DLIBDIR=<CMAKE_INSTALL_LIBDIR of the build: lib/<multiarch triplet>>
#   -DCXX=<the build's C++ compiler>
#   -DMETHOD=cmake|pkg-config  how the consumer finds the library: find_package
#                              (CMakeLists.txt) or the compiler command line of
#                              build-with-pkg-config.sh
# For a cross build also:
#   -DTOOLCHAIN_FILE=<file>    the build's toolchain file
#   -DEMULATOR=<a|b|c>         the program that runs target binaries, '|' between its words
#   -DBOOST_HEADERS=<dir>      the architecture-independent Boost headers
#
# The install goes to <root>/usr. A cross build treats <root> as a device
# SDK's root: Boost's headers are linked into <root>/usr/include, where the
# cross compiler finds them through the install's include folder, and CMake
# finds the package through sdk-toolchain.cmake.in, which adds <root> to the
# find root. pkg-config sees the install's ma-common.pc alone
# (PKG_CONFIG_LIBDIR). The consumer runs with the install's library folder on
# LD_LIBRARY_PATH (given to the program itself, not to the emulator).
include("${CMAKE_CURRENT_LIST_DIR}/../package/run_checked.cmake")
set(SDK_ROOT "${WORK_DIR}/root")
set(prefix "${SDK_ROOT}/usr")
set(libdir "${prefix}/${LIBDIR}")
set(build "${WORK_DIR}/build")
file(REMOVE_RECURSE "${WORK_DIR}")

function(run what)
  run_checked("${what}" output ${ARGN})
  message(STATUS "${what}: ok")
endfunction()

run("installing" ${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")
# Debian's multiarch layout: the library, its CMake package and .pc file in
# lib/<triplet>, nothing architecture-dependent directly in lib/.
if(NOT LIBDIR MATCHES "^lib/[a-z0-9_]+-linux-[a-z0-9_]+$" OR NOT EXISTS "${libdir}/libma-common.so.1"
    OR NOT EXISTS "${libdir}/pkgconfig/ma-common.pc" OR NOT EXISTS "${libdir}/cmake/ma-common"
    OR EXISTS "${prefix}/lib/pkgconfig" OR EXISTS "${prefix}/lib/cmake")
  message(FATAL_ERROR "the install does not follow the multiarch layout lib/<triplet> (${LIBDIR})")
endif()
if(TOOLCHAIN_FILE)
  file(CREATE_LINK "${BOOST_HEADERS}" "${prefix}/include/boost" SYMBOLIC)
endif()

if(METHOD STREQUAL "pkg-config")
  file(MAKE_DIRECTORY "${build}")
  run("building the consumer with pkg-config" ${CMAKE_COMMAND} -E env
    "CXX=${CXX}" "PKG_CONFIG_LIBDIR=${libdir}/pkgconfig" --unset=PKG_CONFIG_PATH
    "${SOURCE_DIR}/build-with-pkg-config.sh" "${build}")
else()
  if(TOOLCHAIN_FILE)
    configure_file("${SOURCE_DIR}/sdk-toolchain.cmake.in" "${WORK_DIR}/sdk-toolchain.cmake" @ONLY)
    set(find_option "-DCMAKE_TOOLCHAIN_FILE=${WORK_DIR}/sdk-toolchain.cmake")
  else()
    set(find_option "-DCMAKE_PREFIX_PATH=${prefix}")
  endif()
  run("configuring the consumer" ${CMAKE_COMMAND} -S "${SOURCE_DIR}" -B "${build}"
    -G "${GENERATOR}" "${find_option}")
  run("building the consumer" ${CMAKE_COMMAND} --build "${build}")
endif()

if(EMULATOR)
  string(REPLACE "|" ";" emulator "${EMULATOR}")
  set(command ${emulator} -E "LD_LIBRARY_PATH=${libdir}" "${build}/consumer")
else()
  set(command ${CMAKE_COMMAND} -E env "LD_LIBRARY_PATH=${libdir}" "${build}/consumer")
endif()
run_checked("running the consumer" output ${command})
message(STATUS "running the consumer: ${output}")
