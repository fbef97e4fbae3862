# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# ctest -P script: runs lintian (Debian 12, default profile) once on every
# package of a folder; fails on any error or warning and shows what lintian
# said, the informational tags included.
#   -DLINTIAN=<lintian> -DDEB_DIR=<folder of .deb files>
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/run_checked.cmake")
file(GLOB packages "${DEB_DIR}/*.deb")
if(NOT packages)
  message(FATAL_ERROR "no packages in ${DEB_DIR}")
endif()
execute_process(
  COMMAND "${LINTIAN}" --fail-on error,warning --display-info --tag-display-limit 0
    ${packages}
  RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE error)
# lintian's note that it runs as root (in containers) is not a finding.
string(REGEX REPLACE "[^\n]*running with root privileges is not recommended[^\n]*\n?" ""
  error "${error}")
list(LENGTH packages count)
if(result OR output MATCHES "(^|\n)[EW]: ")
  message(FATAL_ERROR "lintian (${result}) on ${count} packages:\n${output}${error}")
endif()
message(STATUS "lintian: no error, no warning in ${count} packages\n${output}${error}")
