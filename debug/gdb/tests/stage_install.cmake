# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Installs the build BUILD_DIR into STAGE/usr afresh, as the packages lay it
# out under /usr: the printer tests load the installed auto-load script and
# library from there.
#   cmake -DBUILD_DIR=<build> -DSTAGE=<folder> -P stage_install.cmake
file(REMOVE_RECURSE "${STAGE}")
execute_process(
  COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${STAGE}/usr"
  RESULT_VARIABLE result
  OUTPUT_VARIABLE output
  ERROR_VARIABLE output)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "installing ${BUILD_DIR} into ${STAGE}/usr failed:\n${output}")
endif()
