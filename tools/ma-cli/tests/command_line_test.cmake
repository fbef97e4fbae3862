# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# The command line is strict: words and options a command does not take
# are errors (exit 2) that name them; numbers are checked; the help and
# version report a failed write; every failure is one escaped line on
# stderr, clipped when it echoes a long input, and with --json also one
# JSON document on stdout. msg decode reads standard input for "-".
include("${CMAKE_CURRENT_LIST_DIR}/MaCliTestSupport.cmake")

# "" is the root for msg too, as for resolve and dump.
# (An empty argument is passed on by execute_process alone.)
execute_process(COMMAND ${MA_CLI_EMULATOR} "${MA_CLI}" msg ""
  OUTPUT_VARIABLE root_out ERROR_VARIABLE root_err RESULT_VARIABLE root_rc)
ma_cli_expect_match("msg \"\" (exit ${root_rc}) ${root_err}" "${root_out}" "^item   folder  \"Receiver\"\n")

# Words that msg decode does not take.
ma_cli_run(written ARGS msg "$2$4" --out "${WORK_DIR}/weather.msg")
ma_cli_bad(2 "msg decode takes one FILE. unexpected argument \"extra\"" msg decode "${WORK_DIR}/weather.msg" extra)
ma_cli_bad(2 "msg decode takes one FILE. unexpected argument \"\\$1\"" msg "$1" decode "${WORK_DIR}/weather.msg")
ma_cli_bad(2 "msg decode does not take --out" msg decode "${WORK_DIR}/weather.msg" --out x.msg)
ma_cli_bad(2 "not expected: b" tree a b)
ma_cli_bad(2 "not expected: extra" resolve "$0" "${WORK_DIR}" extra)

# Numbers.
ma_cli_bad(2 "^ma-cli: --depth: a whole number from 0 to 2147483647 .not \"-1\". .see ma-cli --help.\n$"
  tree --depth -1)
ma_cli_bad(2 "--depth: a whole number from 0" tree --depth 99999999999999999999)
ma_cli_bad(2 "--depth: a whole number from 0" tree --depth 1x)

# msg decode reads standard input for "-"; grammar of the kind.
execute_process(COMMAND ${MA_CLI_EMULATOR} "${MA_CLI}" msg decode -
  INPUT_FILE "${WORK_DIR}/weather.msg" OUTPUT_VARIABLE stdin_out ERROR_VARIABLE stdin_err RESULT_VARIABLE stdin_rc)
ma_cli_expect_match("msg decode - (exit ${stdin_rc}) ${stdin_err}" "${stdin_out}"
  "^standard input: [0-9]+ bytes, an interactive item\n" "\ncaption         : Weather\\.html\n")

# --help and --version report a full disk.
if(EXISTS /dev/full)
  foreach(words "--help" "--version" "tree --help")
    string(JOIN " " command ${MA_CLI_EMULATOR} "'${MA_CLI}'" ${words})
    execute_process(COMMAND sh -c "${command} >/dev/full" ERROR_VARIABLE err RESULT_VARIABLE rc)
    if(NOT rc STREQUAL "1" OR NOT err MATCHES "^ma-cli: cannot write the output: No space left on device\n$")
      ma_cli_fail("${words} >/dev/full: exit ${rc}, stderr [${err}]")
    endif()
  endforeach()
endif()

# --json: every failure also prints one JSON error document on stdout.
ma_cli_run(json_bad ARGS --json resolve "$9")
ma_cli_expect_json("--json resolve \$9" "${json_bad_OUT}" "1" error exitCode)
ma_cli_expect_match("--json resolve \$9" "${json_bad_OUT}" "does not resolve")
ma_cli_run(json_usage ARGS tree --bogus --json)
ma_cli_expect_json("tree --bogus --json" "${json_usage_OUT}" "2" error exitCode)
if(NOT json_bad_RC STREQUAL "1" OR NOT json_usage_RC STREQUAL "2")
  ma_cli_fail("--json errors: exit ${json_bad_RC} and ${json_usage_RC}")
endif()

# An echoed input is clipped: a 130,000-byte path gives a short line.
string(REPEAT "x" 130000 long_path)
ma_cli_run(long ARGS resolve "${long_path}")
string(LENGTH "${long_ERR}" long_length)
if(long_length GREATER 600 OR NOT long_ERR MATCHES "^ma-cli: [^\n]*\n$" OR NOT long_RC STREQUAL "1")
  ma_cli_fail("a 130,000-byte path: exit ${long_RC}, a ${long_length}-byte error")
endif()
ma_cli_expect_match("a 130,000-byte path" "${long_ERR}" "x\\.\\.\\.\" .130000 bytes.")

# Control bytes in arguments, in the parser's messages and in the library's
# trace reach the terminal escaped.
string(ASCII 27 esc)
ma_cli_run(parser ARGS tree a "${esc}]2Xtitle")
ma_cli_check_one_error_line("parser message" 2 "not expected: \\\\x1b.2Xtitle" parser)
ma_cli_run(trace ARGS uri parse "file${esc}x")
string(FIND "${trace_OUT}${trace_ERR}" "${esc}" at)
if(NOT at LESS 0)
  ma_cli_fail("uri parse: a raw escape reached the terminal: ${trace_OUT}${trace_ERR}")
endif()

ma_cli_finish()
