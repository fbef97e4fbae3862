# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# ma_common_set_warnings(<target>): the project's warning set for <target>.
function(ma_common_set_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-align
    -Woverloaded-virtual -Wformat=2 -Wimplicit-fallthrough)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^arm")
    # Notes on an ABI change of GCC 7.1 that concerns no interface of ours.
    target_compile_options(${target} PRIVATE -Wno-psabi)
  endif()
  if(MA_COMMON_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
