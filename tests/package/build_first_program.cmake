# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# ctest -P script: builds the user guide's first program from the Debian
# packages alone and runs it: the packages are extracted into <WORK_DIR>/root
# (dpkg-deb -x), and the program is compiled with the command line of the
# guide, whose flags pkg-config reads from the extracted ma-common.pc; no
# folder of the source or build tree is on the include or library path.
#   -DDPKG_DEB=<dpkg-deb> -DDEBS=<package|package|...> -DPROGRAM=<first_program.cpp>
#   -DLIBDIR=<lib/<multiarch triplet>> -DCXX=<the build's C++ compiler>
#   -DWORK_DIR=<scratch>
# For a cross build also:
#   -DEMULATOR=<a|b|c>     the program that runs target binaries, '|' between its words
#   -DBOOST_HEADERS=<dir>  Boost's headers, linked into the root as a device SDK has them
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/run_checked.cmake")
set(root "${WORK_DIR}/root")
set(libdir "${root}/usr/${LIBDIR}")
file(REMOVE_RECURSE "${WORK_DIR}")
file(MAKE_DIRECTORY "${root}")
string(REPLACE "|" ";" debs "${DEBS}")
foreach(deb IN LISTS debs)
  run_checked("dpkg-deb -x ${deb}" ignored "${DPKG_DEB}" -x "${deb}" "${root}")
endforeach()
if(BOOST_HEADERS)
  file(CREATE_LINK "${BOOST_HEADERS}" "${root}/usr/include/boost" SYMBOLIC)
endif()

# g++ -std=c++17 first_program.cpp -o first_program $(pkg-config --cflags --libs ma-common)
run_checked("pkg-config" flags ${CMAKE_COMMAND} -E env "PKG_CONFIG_LIBDIR=${libdir}/pkgconfig"
  --unset=PKG_CONFIG_PATH --unset=PKG_CONFIG_SYSROOT_DIR
  pkg-config --cflags --libs ma-common)
separate_arguments(flags UNIX_COMMAND "${flags}")
configure_file("${PROGRAM}" "${WORK_DIR}/first_program.cpp" COPYONLY)
run_checked("compiling the first program" ignored "${CXX}" -std=c++17 first_program.cpp
  -o first_program ${flags}
  WORKING_DIRECTORY "${WORK_DIR}")
message(STATUS "built: ${CXX} -std=c++17 first_program.cpp -o first_program ${flags}")

if(EMULATOR)
  string(REPLACE "|" ";" emulator "${EMULATOR}")
  set(command ${emulator} -E "LD_LIBRARY_PATH=${libdir}" "${WORK_DIR}/first_program")
else()
  set(command ${CMAKE_COMMAND} -E env "LD_LIBRARY_PATH=${libdir}" "${WORK_DIR}/first_program")
endif()
run_checked("running the first program" output ${command})
message(STATUS "first program:\n${output}")
