# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Provides Boost::headers. The library uses header-only parts of Boost
# (shared_ptr, enable_shared_from_this, function) and links no Boost binary.
#
# A cross build must not search the host's /usr/include (it would pull the
# host's C library headers into the target build), so it sees Boost alone
# through a folder in the build tree that holds a link to the headers.
if(NOT CMAKE_CROSSCOMPILING)
  find_package(Boost 1.73 REQUIRED)
  return()
endif()

set(MA_COMMON_BOOST_HEADERS "/usr/include/boost" CACHE PATH
  "Architecture-independent Boost headers to expose to the cross compiler")
if(NOT EXISTS "${MA_COMMON_BOOST_HEADERS}/version.hpp")
  message(FATAL_ERROR "No Boost headers at ${MA_COMMON_BOOST_HEADERS}")
endif()
set(_ma_boost_shim "${CMAKE_BINARY_DIR}/boost-only-include")
file(MAKE_DIRECTORY "${_ma_boost_shim}")
file(CREATE_LINK "${MA_COMMON_BOOST_HEADERS}" "${_ma_boost_shim}/boost" SYMBOLIC)
add_library(Boost::headers INTERFACE IMPORTED)
target_include_directories(Boost::headers SYSTEM INTERFACE "${_ma_boost_shim}")
