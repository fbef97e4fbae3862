# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# ma_common_add_subsystem(SOURCES <files...>)
# Adds one subsystem to the library: its sources (relative to the calling
# folder) and its public header folder `include/`, which is also installed
# (component development) and listed in the global property
# MA_COMMON_PUBLIC_HEADER_DIRS.
function(ma_common_add_subsystem)
  cmake_parse_arguments(ARG "" "" "SOURCES" ${ARGN})
  target_sources(ma-common-objects PRIVATE ${ARG_SOURCES})
  set(include_dir "${CMAKE_CURRENT_SOURCE_DIR}/include")
  target_include_directories(ma-common-objects PUBLIC "${include_dir}")
  target_include_directories(ma-common PUBLIC "$<BUILD_INTERFACE:${include_dir}>")
  set_property(GLOBAL APPEND PROPERTY MA_COMMON_PUBLIC_HEADER_DIRS "${include_dir}")
  if(MA_COMMON_INSTALL)
    install(DIRECTORY "${include_dir}/" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
      COMPONENT development)
  endif()
endfunction()
