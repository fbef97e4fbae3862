# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# The directory walk where file systems get awkward: a 3,000-level chain
# under a 1 MiB stack, names carrying every class of control byte, special
# files, and an entry that vanishes between the listing and its stat.
include("${CMAKE_CURRENT_LIST_DIR}/MaCliTestSupport.cmake")

# A chain of 3,000 directories "d", a file at the bottom: deeper than
# PATH_MAX allows as one path, and deeper than a recursive walk would go
# in 1 MiB of stack. Everything is listed; the bottom resolves. Beside the
# chain's first level sits "e", listed after the chain: its parent's
# descriptor was closed long before, and is opened again.
set(levels 3000)
# (Built with descriptors: a shell's cd gives up long before the bottom.)
ma_cli_shell("rm -rf chain && mkdir chain && python3 -c \"
import os
fd = os.open('chain', os.O_RDONLY)
for _ in range(${levels}):
    os.mkdir('d', dir_fd=fd)
    below = os.open('d', os.O_RDONLY, dir_fd=fd)
    os.close(fd)
    fd = below
os.close(os.open('bottom.txt', os.O_CREAT | os.O_WRONLY, dir_fd=fd))
os.makedirs('chain/d/e')
open('chain/d/e/f.txt', 'w').close()
\"")
string(JOIN " " command ${MA_CLI_EMULATOR} "'${MA_CLI}'" tree chain)
execute_process(COMMAND sh -c "ulimit -s 1024 && exec ${command}" WORKING_DIRECTORY "${WORK_DIR}"
  OUTPUT_VARIABLE chain_out ERROR_VARIABLE chain_err RESULT_VARIABLE chain_rc)
string(REGEX MATCHALL "\n" chain_lines "${chain_out}")
list(LENGTH chain_lines chain_count)
math(EXPR expected_lines "${levels} + 4")
if(NOT chain_rc STREQUAL "0" OR NOT chain_err STREQUAL "" OR NOT chain_count EQUAL expected_lines)
  ma_cli_fail("3,000-level chain: exit ${chain_rc}, ${chain_count} lines instead of ${expected_lines}: ${chain_err}")
endif()
string(REPEAT "$0" ${levels} chain_path)
string(FIND "${chain_out}" "${chain_path}$0 document" at)
if(at LESS 0)
  ma_cli_fail("3,000-level chain: no line for the bottom file ${chain_path}$0")
endif()
ma_cli_expect_match("3,000-level chain" "${chain_out}" "\n\\$0\\$1 +folder +e\n\\$0\\$1\\$0 +document +f\\.txt\n$")
ma_cli_run(bottom ARGS resolve "${chain_path}$0" chain --json)
ma_cli_expect_json("resolve the chain's bottom" "${bottom_OUT}" "bottom.txt" entry caption)

# Names with control bytes: escape (C0), DEL, a raw C1 byte, U+009B, the
# right-to-left override U+202E, a byte that is no UTF-8, and a line feed
# that tries to forge a dump line. The output is checked byte by byte.
ma_cli_shell("rm -rf hostile && mkdir hostile && cd hostile &&
  : > \"$(printf 'a\\033]0;title\\007.mp3')\" && : > \"$(printf 'b\\177.mp3')\" &&
  : > \"$(printf 'c\\233x.mp3')\" && : > \"$(printf 'd\\302\\233x.mp3')\" &&
  : > \"$(printf 'e\\342\\200\\256txt.exe')\" && : > \"$(printf 'f\\377.mp3')\" &&
  : > \"$(printf 'movie\\nm_fileSize      : 999999999999')\"")
ma_cli_run(hostile ARGS tree hostile)
string(ASCII 27 esc)
string(ASCII 127 del)
string(ASCII 155 c1)
string(ASCII 226 128 174 rlo)
string(ASCII 194 155 u9b)
# Fails `what` for each of the control sequences above found raw in `text`.
function(expect_no_raw_controls what text)
  foreach(byte esc del c1 rlo u9b)
    string(FIND "${text}" "${${byte}}" at)
    if(NOT at LESS 0)
      ma_cli_fail("${what}: a raw ${byte} reached stdout")
    endif()
  endforeach()
endfunction()
expect_no_raw_controls("hostile names" "${hostile_OUT}")
ma_cli_expect_match("hostile names" "${hostile_OUT}"
  "\n\\$0 +music +a\\\\x1b.0.title\\\\x07\\.mp3\n" "\n\\$1 +music +b\\\\x7f\\.mp3\n"
  "\n\\$2 +music +c\\\\x9bx\\.mp3\n" "\n\\$3 +music +d\\\\xc2\\\\x9bx\\.mp3\n"
  "\n\\$4 +unknown +e\\\\u202etxt\\.exe\n" "\n\\$5 +music +f\\\\xff\\.mp3\n"
  "\n\\$6 +unknown +movie\\\\x0am_fileSize      : 999999999999\n$")
ma_cli_run(hostile_json ARGS tree hostile --json)
expect_no_raw_controls("hostile names --json" "${hostile_json_OUT}")
ma_cli_expect_match("hostile names --json" "${hostile_json_OUT}" "e\\\\u202etxt\\.exe")
# The forged field stays inside the caption line of the dump, and of the
# dump of the item message read back.
ma_cli_run(forged ARGS dump "$6" hostile)
ma_cli_expect_match("forged dump line" "${forged_OUT}" "\ncaption         : movie\\\\x0am_fileSize      : 999999999999\n")
ma_cli_expect_no_match("forged dump line" "${forged_OUT}" "\nm_fileSize")
ma_cli_run(forged_msg ARGS msg "$6" hostile --out "${WORK_DIR}/forged.msg")
ma_cli_run(forged_decode ARGS msg decode "${WORK_DIR}/forged.msg")
ma_cli_expect_match("forged line after decode" "${forged_decode_OUT}" "\ncaption         : movie\\\\x0am_fileSize")
ma_cli_expect_no_match("forged line after decode" "${forged_decode_OUT}" "\nm_fileSize")
# An argument with control bytes reaches stderr escaped, in one line.
ma_cli_run(bad_dir ARGS tree "${WORK_DIR}/${esc}[31mred${esc}[0m/nowhere\nline")
ma_cli_check_one_error_line("escaped argument" 1 "\\\\x1b\\[31mred\\\\x1b\\[0m/nowhere\\\\x0aline" bad_dir)

# Special files are never opened nor made into items: reported, exit 4.
ma_cli_shell("rm -rf special && mkdir special && mkfifo special/pipe && : > special/song.mp3")
find_program(PYTHON3 python3)
if(PYTHON3)
  execute_process(COMMAND "${PYTHON3}" -c "import socket; socket.socket(socket.AF_UNIX).bind('special/sock')"
    WORKING_DIRECTORY "${WORK_DIR}")
endif()
ma_cli_run(special ARGS tree special)
ma_cli_expect_match("special files" "${special_OUT}" "^\\(root\\) +folder +special\n\\$0 +music +song\\.mp3\n$")
ma_cli_expect_match("special files" "${special_ERR}" "ma-cli: skipped [^\n]*/special/pipe: named pipe, not opened\n")
if(PYTHON3)
  ma_cli_expect_match("special files" "${special_ERR}" "ma-cli: skipped [^\n]*/special/sock: socket, not opened\n")
endif()
if(NOT special_RC STREQUAL "4")
  ma_cli_fail("special files: exit ${special_RC}, expected 4")
endif()

# An entry that vanishes between the listing and its stat (a test hook
# removes it there): reported as vanished, whatever it was; the last entry
# failing leaves no stale error for the listing.
ma_cli_shell("rm -rf vanishing && mkdir -p vanishing/gone vanishing/kept && : > vanishing/zz-last")
foreach(name gone zz-last)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env MA_CLI_TEST_REMOVE_BEFORE_STAT=${name}
      ${MA_CLI_EMULATOR} "${MA_CLI}" tree vanishing
    WORKING_DIRECTORY "${WORK_DIR}" OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE rc)
  ma_cli_expect_match("vanished ${name}" "${err}"
    "^ma-cli: skipped [^\n]*/vanishing/${name}: vanished before it could be read\n$")
  ma_cli_expect_no_match("vanished ${name}" "${err}" "dangling" "listing stopped")
  if(NOT rc STREQUAL "4")
    ma_cli_fail("vanished ${name}: exit ${rc}, expected 4")
  endif()
  ma_cli_shell("mkdir -p vanishing/gone && : > vanishing/zz-last")
endforeach()

# --one-file-system: a directory on another device (here /proc, when it is
# one) is listed but not read.
ma_cli_run(whole ARGS tree / --depth 2)
if(whole_OUT MATCHES "\n(\\$[0-9]+) +folder +proc\n")
  string(REPLACE "$" "\\$" proc_path "${CMAKE_MATCH_1}")
  ma_cli_run(one ARGS tree / --depth 2 --one-file-system)
  ma_cli_expect_match("tree / without --one-file-system" "${whole_OUT}" "\n${proc_path}\\$0 ")
  ma_cli_expect_match("tree / --one-file-system" "${one_OUT}" "\n${proc_path} +folder +proc\n")
  ma_cli_expect_no_match("tree / --one-file-system" "${one_OUT}" "\n${proc_path}\\$0 ")
endif()

ma_cli_finish()
