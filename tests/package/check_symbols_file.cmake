# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# ctest -P script: checks the symbols control file of the runtime package,
# which dpkg-gensymbols generated from the library, against the list of the
# names client binaries call (tests/abi/exported-symbols.txt).
#   -DDPKG_DEB=<dpkg-deb> -DDEB=<libma-common1 package> -DEXPECTED=<list>
#   -DVERSION=<upstream version> -DWORK_DIR=<scratch>
#
# The file must name the library's SONAME and its package, list every name
# of the list (compared demangled, std::string spelled short, as the list
# is written) and give each symbol the upstream version, never one with a
# Debian revision.
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/run_checked.cmake")
file(REMOVE_RECURSE "${WORK_DIR}")
run_checked("dpkg-deb" ignored "${DPKG_DEB}" --control "${DEB}" "${WORK_DIR}")
if(NOT EXISTS "${WORK_DIR}/symbols")
  message(FATAL_ERROR "${DEB} has no symbols file")
endif()
file(STRINGS "${WORK_DIR}/symbols" lines)
list(POP_FRONT lines header)
if(NOT header MATCHES "^libma-common\\.so\\.1 libma-common1 #MINVER#$")
  message(FATAL_ERROR "symbols file starts with \"${header}\"")
endif()

set(failures "")
set(mangled "")
foreach(line IN LISTS lines)
  # " [(tags)]name@Base version"; the C++ library's and Boost's template
  # instances the library exports are tagged (optional).
  if(line MATCHES "^ (\\([^)]*\\))?([^ ]+) (.+)$")
    list(APPEND mangled "${CMAKE_MATCH_2}")
    if(NOT CMAKE_MATCH_3 STREQUAL VERSION)
      string(APPEND failures "  ${CMAKE_MATCH_2}: version ${CMAKE_MATCH_3}, not ${VERSION}\n")
    endif()
  elseif(NOT line MATCHES "^[*|#]")
    string(APPEND failures "  unexpected line \"${line}\"\n")
  endif()
endforeach()

# Symbol names carry their symbol version (name@Base): demangle the names.
list(TRANSFORM mangled REPLACE "@[^@]*$" "")
list(JOIN mangled "\n" mangled_text)
file(WRITE "${WORK_DIR}/mangled.txt" "${mangled_text}\n")
execute_process(COMMAND c++filt INPUT_FILE "${WORK_DIR}/mangled.txt"
  OUTPUT_VARIABLE demangled RESULT_VARIABLE result)
if(result)
  message(FATAL_ERROR "c++filt failed")
endif()
include("${CMAKE_CURRENT_LIST_DIR}/../abi/exported_names.cmake")
ma_common_spell_exported_names(demangled)
string(REPLACE "\n" ";" listed "${demangled}")

file(STRINGS "${EXPECTED}" expected REGEX "^[^#]")
foreach(name IN LISTS expected)
  if(NOT name IN_LIST listed)
    string(APPEND failures "  not in the symbols file: ${name}\n")
  endif()
endforeach()
if(failures)
  message(FATAL_ERROR "symbols file of ${DEB}:\n${failures}")
endif()
list(LENGTH mangled count)
list(LENGTH expected listed_count)
message(STATUS "symbols file: ${count} symbols of ${VERSION}, all ${listed_count} listed names among them")
