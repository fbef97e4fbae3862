# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# cmake -P script: makes the Debian packages of a built CMake tree with
# debhelper (packaging/debian/rules), for the tree's architecture.
#   -DPACKAGING_DIR=<this folder> -DBUILD_DIR=<CMake build tree>
#   -DARCHITECTURE=<Debian architecture> -DSYSTEM_DEPENDS=<dependencies>
#   -DPLATFORM_DEPENDS=<dependency> -DDH_OPTIONS=<-N<package> ...>
#   -DWORK_DIR=<scratch folder> -DOUTPUT_DIR=<folder for the .deb files>
#
# debhelper works in the current folder's debian/: the packaging folder is
# copied into WORK_DIR and run there, so the source tree stays untouched.
# dpkg-architecture sets the target's variables (DEB_HOST_ARCH,
# DEB_HOST_MULTIARCH, the cross tools' prefix for strip and objcopy).
cmake_minimum_required(VERSION 3.25)
file(REMOVE_RECURSE "${WORK_DIR}" "${OUTPUT_DIR}")
file(MAKE_DIRECTORY "${WORK_DIR}" "${OUTPUT_DIR}")
file(COPY "${PACKAGING_DIR}/debian" DESTINATION "${WORK_DIR}")

execute_process(
  COMMAND ${CMAKE_COMMAND} -E env
    "MA_COMMON_BUILD_DIR=${BUILD_DIR}"
    "MA_COMMON_DEB_DIR=${OUTPUT_DIR}"
    "MA_COMMON_SYSTEM_DEPENDS=${SYSTEM_DEPENDS}"
    "MA_COMMON_PLATFORM_DEPENDS=${PLATFORM_DEPENDS}"
    "MA_COMMON_DH_OPTIONS=${DH_OPTIONS}"
    "CMAKE=${CMAKE_COMMAND}"
    --unset=DEB_BUILD_OPTIONS --unset=DEB_BUILD_PROFILES
    dpkg-architecture -a${ARCHITECTURE} -f -c
    make -f debian/rules binary
  WORKING_DIRECTORY "${WORK_DIR}"
  RESULT_VARIABLE result
  OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(result)
  message(FATAL_ERROR "debian/rules binary failed (${result}):\n${output}")
endif()
file(GLOB packages "${OUTPUT_DIR}/*.deb")
foreach(package IN LISTS packages)
  file(SIZE "${package}" size)
  get_filename_component(name "${package}" NAME)
  message(STATUS "${name}: ${size} bytes")
endforeach()
