# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# The walk through the sample catalogue: the text output byte for byte
# against expected/default-walk.txt, at most 80 columns, and its --json form
# parsed back. Also --version and --help.
#
# After an intended change of the walk, regenerate the expected text with
#   build/host-debug/tools/ma-cli/ma-cli > tools/ma-cli/tests/expected/default-walk.txt
# and review the difference.
include("${CMAKE_CURRENT_LIST_DIR}/MaCliTestSupport.cmake")

ma_cli_ok(walk)
file(READ "${EXPECTED_DIR}/default-walk.txt" expected)
if(NOT walk_OUT STREQUAL expected)
  file(WRITE "${WORK_DIR}/default-walk.actual.txt" "${walk_OUT}")
  execute_process(COMMAND diff -u "${EXPECTED_DIR}/default-walk.txt" "${WORK_DIR}/default-walk.actual.txt"
    OUTPUT_VARIABLE difference)
  ma_cli_fail("the walk differs from expected/default-walk.txt:\n${difference}")
endif()

# Every line fits an 80-column terminal.
string(REPLACE "\n" ";" lines "${walk_OUT}")
foreach(line IN LISTS lines)
  string(LENGTH "${line}" length)
  if(length GREATER 80)
    ma_cli_fail("line of ${length} columns: ${line}")
  endif()
endforeach()

# Every kind occurs, at least three levels deep.
foreach(kind folder music video picture playlist document other interactive unknown)
  ma_cli_expect_match("walk" "${walk_OUT}" "\n\\$[0-9$]+ +${kind} ")
endforeach()
ma_cli_expect_match("walk" "${walk_OUT}" "\n\\$[0-9]\\$[0-9]\\$[0-9]\\$[0-9] ")

# The same walk as JSON.
ma_cli_ok(json --json)
ma_cli_expect_json("walk --json" "${json_OUT}" "Receiver" tree caption)
ma_cli_expect_json("walk --json" "${json_OUT}" "folder" tree kind)
ma_cli_expect_json("walk --json" "${json_OUT}" "Freddie Freeloader" tree children 2 children 0 children 0 children 1 caption)
ma_cli_expect_json("walk --json" "${json_OUT}" "$1$1" sorted "date" 0 path)
ma_cli_expect_json("walk --json" "${json_OUT}" "$1$2" sorted "+dc:title" 0 path)
ma_cli_expect_json("walk --json" "${json_OUT}" "0" resolve 0 result)
ma_cli_expect_json("walk --json" "${json_OUT}" "music" resolve 0 entry kind)
ma_cli_expect_json("walk --json" "${json_OUT}" "-2" resolve 2 result)
ma_cli_expect_json("walk --json" "${json_OUT}" "$0$1" findEntrybyUUID entry path)
ma_cli_expect_json("walk --json" "${json_OUT}" "ZDF HD" findEntrybyUUID entry caption)
ma_cli_expect_json("walk --json" "${json_OUT}" "76" message size)
ma_cli_expect_json("walk --json" "${json_OUT}" "video" message payload slot)
ma_cli_expect_json("walk --json" "${json_OUT}" "423" message payload size)
ma_cli_expect_json("walk --json" "${json_OUT}" "caption" message payload fields 1 field)
ma_cli_expect_json("walk --json" "${json_OUT}" "8" message payload fields 1 offset)
ma_cli_expect_json("walk --json" "${json_OUT}" "Tatort: Borowski" message payload fields 1 value)
ma_cli_expect_json("walk --json" "${json_OUT}" "ON" message roundTrip equal)
ma_cli_expect_json("walk --json" "${json_OUT}" "length_error" selection parse 0 outcome)
ma_cli_expect_json("walk --json" "${json_OUT}" "file" selection parse 0 sourceType)
ma_cli_expect_json("walk --json" "${json_OUT}" "-22" selection parse 1 result)
ma_cli_expect_json("walk --json" "${json_OUT}" "DELIVERY_SYSTEM_DVB_T2" deliverySystems 3 name)
ma_cli_json_length(systems "${json_OUT}" deliverySystems)
if(NOT systems EQUAL 13)
  ma_cli_fail("walk --json: ${systems} delivery systems, expected 13")
endif()

ma_cli_ok(version --version)
ma_cli_expect_match("--version" "${version_OUT}" "^ma-cli [0-9]+\\.[0-9]+\\.[0-9]+\n$")
ma_cli_ok(help --help)
ma_cli_expect_match("--help" "${help_OUT}" "tree" "resolve" "dump" "msg" "uri" "dsys" "--json" "--version")

ma_cli_finish()
