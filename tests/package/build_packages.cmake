# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# ctest -P script: makes the Debian packages of a build into an empty folder.
#   -DCPACK_COMMAND=<cpack> -DCONFIG=<build>/CPackConfig.cmake -DOUTPUT_DIR=<folder>
include("${CMAKE_CURRENT_LIST_DIR}/run_checked.cmake")
file(REMOVE_RECURSE "${OUTPUT_DIR}")
run_checked("cpack" ignored "${CPACK_COMMAND}" --config "${CONFIG}" -B "${OUTPUT_DIR}")
file(GLOB packages "${OUTPUT_DIR}/*.deb")
foreach(package IN LISTS packages)
  file(SIZE "${package}" size)
  get_filename_component(name "${package}" NAME)
  message(STATUS "${name}: ${size} bytes")
endforeach()
