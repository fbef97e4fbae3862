# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# tree, resolve and dump on the sample catalogue: output, exit codes, the
# one-line errors of bad input, --json parsed back, --help of each command.
include("${CMAKE_CURRENT_LIST_DIR}/MaCliTestSupport.cmake")

# tree: every entry, one line each; the same tree as in the walk.
ma_cli_ok(tree tree)
file(READ "${EXPECTED_DIR}/default-walk.txt" walk)
string(REGEX MATCH "\\(root\\)[^=]*" walk_tree "${walk}")
string(STRIP "${walk_tree}" walk_tree)
string(STRIP "${tree_OUT}" tree_text)
if(NOT tree_text STREQUAL walk_tree)
  ma_cli_fail("tree differs from the walk's tree:\n${tree_OUT}")
endif()
ma_cli_expect_match("tree" "${tree_OUT}"
  "\n\\$2\\$0\\$0\\$2 +music +Blue in Green\n"
  "\n\\$1\\$0 +video +Tatort: Borowski\n")

# --depth cuts the walk; --sort orders each folder but keeps list paths.
ma_cli_ok(depth tree --depth 1)
ma_cli_expect_match("tree --depth 1" "${depth_OUT}"
  "^\\(root\\) +folder +Receiver\n\\$0 +folder +TV\n\\$1 +folder +Recordings\n\\$2 +folder +USB\n$")
ma_cli_ok(sorted tree --sort +dc:title)
ma_cli_expect_match("tree --sort +dc:title" "${sorted_OUT}"
  "\n\\$1\\$2 +video +Der Tatortreiniger\n\\$1\\$1 +video +Tagesschau\n\\$1\\$0 +video +Tatort: Borowski\n")
ma_cli_ok(by_date tree --sort date --depth 2)
ma_cli_expect_match("tree --sort date" "${by_date_OUT}"
  "\n\\$1\\$1 +video +Tagesschau\n\\$1\\$2 +video +Der Tatortreiniger\n\\$1\\$0 +video +Tatort: Borowski\n")
ma_cli_ok(tree_json tree --json --depth 2 --sort -dc:title)
ma_cli_expect_json("tree --json" "${tree_json_OUT}" "sample" source)
ma_cli_expect_json("tree --json" "${tree_json_OUT}" "-dc:title" sort)
ma_cli_expect_json("tree --json" "${tree_json_OUT}" "$2" tree children 0 path)
ma_cli_expect_json("tree --json" "${tree_json_OUT}" "$1" tree children 2 path)
ma_cli_expect_json("tree --json" "${tree_json_OUT}" "$1$0" tree children 2 children 0 path)
ma_cli_ok(shallow_json tree --json --depth 2)
ma_cli_expect_json("tree --json --depth 2" "${shallow_json_OUT}" "Music" tree children 2 children 0 caption)
ma_cli_json_length(count "${shallow_json_OUT}" tree children 2 children 0 children)
if(NOT count EQUAL 0)
  ma_cli_fail("tree --json --depth 2: $2$0 shows ${count} children")
endif()

# resolve: positional paths, the root, and failures with the library's reason.
ma_cli_ok(resolved resolve "$2$0$0$1")
ma_cli_expect_match("resolve" "${resolved_OUT}"
  "^resolvePath\\(\"\\$2\\$0\\$0\\$1\"\\) = 0\n"
  "entry +\\$2\\$0\\$0\\$1 +music +\"Freddie Freeloader\"")
# (An empty argument does not survive a CMake list: run it directly.)
execute_process(COMMAND ${MA_CLI_EMULATOR} "${MA_CLI}" resolve "" OUTPUT_VARIABLE root_OUT RESULT_VARIABLE rc)
ma_cli_expect_match("resolve \"\" (exit ${rc})" "${root_OUT}" "entry +\\(root\\) +folder +\"Receiver\"")
ma_cli_ok(resolved_json resolve "$1$2" --json)
ma_cli_expect_json("resolve --json" "${resolved_json_OUT}" "0" result)
ma_cli_expect_json("resolve --json" "${resolved_json_OUT}" "Der Tatortreiniger" entry caption)
ma_cli_expect_json("resolve --json" "${resolved_json_OUT}" "UUID-rec-003" entry uuid)
ma_cli_expect_json("resolve --json" "${resolved_json_OUT}" "$1" parent)
ma_cli_bad(1 "path \"\\$1\\$7\" does not resolve \\(result -2\\): .*out of range" resolve "$1$7")
ma_cli_bad(1 "path \"\\$\" does not resolve.*Invalid path" resolve "$")
ma_cli_bad(1 "path \"\\$x\" does not resolve.*#2" resolve "$x")
ma_cli_bad(1 "path \"\\$2\\$6\\$0\" does not resolve" resolve "$2$6$0")
ma_cli_bad(1 "path \"UUID-tv\" does not resolve" resolve "UUID-tv")
ma_cli_bad(2 "PATH" resolve)
ma_cli_bad(2 "not expected: b" resolve "$1" a b)

# dump: the record's text dump and the recorder's data.
ma_cli_ok(dumped dump "$1$2")
ma_cli_expect_match("dump" "${dumped_OUT}"
  "^\\$1\\$2  video  \"Der Tatortreiniger\"\nItemType        : 4\n"
  "\ncaption         : Der Tatortreiniger\n"
  "\nrecorder data:\n  recording       no\n"
  "\n  encryption      1\n  key             a0a1a2a3a4a5a6a7a8a9aaabacadaeaf\n")
ma_cli_ok(recording dump "$1$1" --json)
ma_cli_expect_json("dump --json" "${recording_OUT}" "ON" recorderData recording)
ma_cli_expect_json("dump --json" "${recording_OUT}" "900000" recorderData circularEnd)
ma_cli_expect_json("dump --json" "${recording_OUT}" "ItemType        : 4" dump 0)
ma_cli_ok(channel dump "$0$1")
ma_cli_expect_match("dump of a channel" "${channel_OUT}"
  "\nstationName     : ZDF HD\n" "\nm_stationDescription: ZDF\n" "\nm_tunerUUID    : UUID-tuner-dvbt2-0\n")
ma_cli_expect_no_match("dump of a channel" "${channel_OUT}" "recorder data")
ma_cli_bad(1 "path \"\\$3\" does not resolve" dump "$3")

# Every command has its help.
foreach(command tree resolve dump msg "msg;decode" "uri;create" "uri;parse" dsys)
  ma_cli_ok(help ${command} --help)
  ma_cli_expect_match("${command} --help" "${help_OUT}" "Usage|usage|USAGE")
endforeach()

# An output that cannot be written: one line, exit code 1.
execute_process(COMMAND ${MA_CLI_EMULATOR} "${MA_CLI}" tree OUTPUT_FILE /dev/full
  ERROR_VARIABLE full_ERR RESULT_VARIABLE full_RC)
set(full_OUT "")
ma_cli_check_one_error_line("tree > /dev/full" 1 "cannot write the output: No space left on device" full)

# A wrong command line: one line, exit code 2.
ma_cli_bad(2 "frobnicate" frobnicate)
ma_cli_bad(2 "--nonsense" --nonsense)
ma_cli_bad(2 "depth" tree --depth -1)
ma_cli_bad(2 "depth" tree --depth many)

ma_cli_finish()
