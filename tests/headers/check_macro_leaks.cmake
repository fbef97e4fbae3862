# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# ctest -P script: lists the macros that the installed headers leave visible
# to a client and fails on any that is not allowed below.
#   -DBUILD_DIR=<library build> -DWORK_DIR=<scratch> -DCXX=<C++ compiler>
#   -DSYSTEM_INCLUDES=<Boost include folders, ;-separated>
#
# Which macros are visible at the end of the client's file comes from the
# compiler's `-dM -E`; which header defined each one from `-dD -E`, whose
# line markers name the file every #define stands in. Macros of the standard
# library, Boost and the compiler are not ours and not listed.

# Include guards, the export macro, and the platform serialiser's interface
# macros (its endian descriptions are written with them).
set(allowed
  MA_EXPORT_H_ MA_COMMON_EXPORT
  MA_MDC_ITEM_H_
  MA_RPC_MDC_ITEM_MSG_H_
  MA_MDC_VFS_BASE_H_ MA_MDC_VFS_CRITERIA_H_ MA_MDC_VFS_FIXED_H_ MA_MDC_VFS_USER_DATA_DR_H_
  MA_MDC_SELECTION_URIS_H_
  ZU_DOMAIN_TV_DELIVERY_SYSTEM_H_
  ZEL_ZEL_DEBUG_H_ ZEL_ZEL_DESER_H_ ZEL_ZEL_STANDIN_H_ ZEL_ZEL_STANDIN_SERIALISER_H_
  ZEL_ENDIAN_END_DESCRIPTOR ZEL_ENDIAN_END_LINK ZEL_ENDIAN_DESCRIPTOR)

cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE "${WORK_DIR}")
set(prefix "${WORK_DIR}/prefix")
execute_process(COMMAND ${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}"
  RESULT_VARIABLE result OUTPUT_QUIET)
if(result)
  message(FATAL_ERROR "install failed: ${result}")
endif()

# The client: every installed header, in a fixed order.
file(GLOB_RECURSE headers RELATIVE "${prefix}/include" "${prefix}/include/*.h")
list(SORT headers)
if(NOT headers)
  message(FATAL_ERROR "no headers installed under ${prefix}/include")
endif()
set(client "${WORK_DIR}/client.cpp")
set(content "")
foreach(header IN LISTS headers)
  string(APPEND content "#include \"${header}\"\n")
endforeach()
file(WRITE "${client}" "${content}")

set(flags -std=c++17 "-I${prefix}/include")
foreach(dir IN LISTS SYSTEM_INCLUDES)
  list(APPEND flags -idirafter "${dir}")  # after the system folders: /usr/include stays in its place
endforeach()

function(preprocess mode output)
  execute_process(COMMAND "${CXX}" ${flags} ${mode} -E "${client}" -o "${output}"
    RESULT_VARIABLE result ERROR_VARIABLE errors)
  if(result)
    message(FATAL_ERROR "preprocessing the client failed:\n${errors}")
  endif()
endfunction()
preprocess(-dM "${WORK_DIR}/visible.txt")
preprocess(-dD "${WORK_DIR}/annotated.txt")

# Macros visible at the end of the client.
file(STRINGS "${WORK_DIR}/visible.txt" lines REGEX "^#define ")
set(visible "")
foreach(line IN LISTS lines)
  string(REGEX MATCH "^#define ([A-Za-z_][A-Za-z0-9_]*)" _ "${line}")
  list(APPEND visible "${CMAKE_MATCH_1}")
endforeach()

# Macros #defined while the preprocessor was inside an installed header.
file(STRINGS "${WORK_DIR}/annotated.txt" lines REGEX "^(# [0-9]+ \"|#define )")
set(ours "")
set(inside FALSE)
foreach(line IN LISTS lines)
  if(line MATCHES "^# [0-9]+ \"([^\"]*)\"")
    string(FIND "${CMAKE_MATCH_1}" "${prefix}/include/" at)
    if(at EQUAL 0)
      set(inside TRUE)
    else()
      set(inside FALSE)
    endif()
  elseif(inside AND line MATCHES "^#define ([A-Za-z_][A-Za-z0-9_]*)")
    list(APPEND ours "${CMAKE_MATCH_1}")
  endif()
endforeach()
if(NOT ours)
  message(FATAL_ERROR "no macro found in the installed headers: the line markers were not understood")
endif()

set(leaked "")
foreach(name IN LISTS ours)
  if(name IN_LIST visible AND NOT name IN_LIST allowed)
    list(APPEND leaked "${name}")
  endif()
endforeach()
list(REMOVE_DUPLICATES leaked)
list(LENGTH headers header_count)
if(leaked)
  list(JOIN leaked "\n  " leaked_text)
  message(FATAL_ERROR
    "the installed headers leave these macros visible to clients:\n  ${leaked_text}\n"
    "(#undef helper macros at the end of the header; a new include guard or "
    "interface macro belongs on the list in check_macro_leaks.cmake)")
endif()
message(STATUS "${header_count} installed headers leave only include guards and interface macros")
