# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# ctest -P script: compares the demangled dynamic symbols of LIBRARY (read
# with NM) with the list in EXPECTED. Every listed name must be defined and
# exported; no name of an anonymous namespace may be.
#
# Names are compared in the list's spelling (exported_names.cmake), so that
# one list serves the host and the target.
include("${CMAKE_CURRENT_LIST_DIR}/exported_names.cmake")
execute_process(COMMAND "${NM}" -DC --defined-only "${LIBRARY}"
  OUTPUT_VARIABLE listing RESULT_VARIABLE result)
if(result)
  message(FATAL_ERROR "${NM} failed on ${LIBRARY}")
endif()
ma_common_spell_exported_names(listing)
string(REGEX REPLACE "(^|\n)[0-9a-f]+ [A-Za-z] " "\\1" listing "${listing}")
string(REPLACE "\n" ";" exported "${listing}")

file(STRINGS "${EXPECTED}" expected REGEX "^[^#]")
set(missing "")
foreach(name IN LISTS expected)
  list(FIND exported "${name}" index)
  if(index EQUAL -1)
    string(APPEND missing "  ${name}\n")
  endif()
endforeach()

set(internal "")
foreach(name IN LISTS exported)
  if(name MATCHES "anonymous namespace")
    string(APPEND internal "  ${name}\n")
  endif()
endforeach()

if(missing OR internal)
  message(FATAL_ERROR "not exported:\n${missing}exported but internal:\n${internal}")
endif()
list(LENGTH expected count)
message(STATUS "all ${count} expected symbols exported, none internal")
