# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Provides CLI11::CLI11 (argument parsing) and nlohmann_json::nlohmann_json
# (the --json output): header-only libraries from Debian's packages
# libcli11-dev and nlohmann-json3-dev.
#
# A cross build must not search the host's /usr/include (it would pull the
# host's C library headers into the target build), so, like Boost, it sees
# each library alone through a folder in the build tree that holds nothing
# but links to the libraries' header folders.
if(NOT CMAKE_CROSSCOMPILING)
  find_package(CLI11 REQUIRED CONFIG)
  find_package(nlohmann_json 3.9 REQUIRED CONFIG)
  return()
endif()

set(MA_CLI_HOST_INCLUDE_DIR "/usr/include" CACHE PATH
  "Folder holding the architecture-independent CLI/ and nlohmann/ headers")
foreach(_ma_cli_header IN ITEMS CLI/CLI.hpp nlohmann/json.hpp)
  if(NOT EXISTS "${MA_CLI_HOST_INCLUDE_DIR}/${_ma_cli_header}")
    message(FATAL_ERROR "No ${_ma_cli_header} in ${MA_CLI_HOST_INCLUDE_DIR}")
  endif()
endforeach()

set(_ma_cli_shim "${CMAKE_BINARY_DIR}/ma-cli-only-include")
file(MAKE_DIRECTORY "${_ma_cli_shim}")
file(CREATE_LINK "${MA_CLI_HOST_INCLUDE_DIR}/CLI" "${_ma_cli_shim}/CLI" SYMBOLIC)
file(CREATE_LINK "${MA_CLI_HOST_INCLUDE_DIR}/nlohmann" "${_ma_cli_shim}/nlohmann" SYMBOLIC)
add_library(CLI11::CLI11 INTERFACE IMPORTED)
target_include_directories(CLI11::CLI11 SYSTEM INTERFACE "${_ma_cli_shim}")
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED)
target_include_directories(nlohmann_json::nlohmann_json SYSTEM INTERFACE "${_ma_cli_shim}")
