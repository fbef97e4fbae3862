# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# tree, resolve, dump and msg on a directory that the test builds: nested
# folders, every extension class, names with blanks and non-ASCII bytes,
# an unreadable file and folder, a symlink loop and a dangling link.
#
# The superuser reads files whatever their permission bits, so when the
# test runs as root the tool runs as the user "nobody" (setpriv), for
# whom the unreadable entries really are unreadable.
include("${CMAKE_CURRENT_LIST_DIR}/MaCliTestSupport.cmake")

set(tree "${WORK_DIR}/tree")
ma_cli_shell("chmod -R u+rwX tree 2>/dev/null; rm -rf tree && mkdir -p tree && cd tree &&
  mkdir -p 'Music/Album One' Pictures Videos/deep/er locked &&
  printf 'abc' > 'Music/Album One/01 song.mp3' && : > 'Music/Album One/02 song.flac' &&
  : > Music/list.m3u && : > Pictures/photo.JPG && printf 1234567 > Videos/clip.mkv &&
  : > Videos/deep/er/movie.ts && : > paper.pdf && : > app.html && : > subs.srt &&
  : > blob.bin && : > README && : > .hidden && : > 'name with blanks.mp3' &&
  : > \"$(printf 'M\\303\\274sik.flac')\" && : > \"$(printf 'caf\\351.txt')\" &&
  : > secret.mp3 && chmod 000 secret.mp3 && : > locked/inner.mp3 && chmod 000 locked &&
  ln -s ../.. Videos/deep/loop && ln -s nowhere dangling &&
  ln -s 'Music/Album One/01 song.mp3' link-to-song.mp3 &&
  touch -d '2026-01-02 03:04:05 UTC' paper.pdf")

execute_process(COMMAND id -u OUTPUT_VARIABLE uid OUTPUT_STRIP_TRAILING_WHITESPACE)
if(uid STREQUAL "0")
  set(as_user setpriv --reuid=65534 --regid=65534 --clear-groups)
else()
  set(as_user "")
endif()

ma_cli_run(scan PREFIX_COMMAND ${as_user} ARGS tree "${tree}")
if(NOT scan_RC STREQUAL "0")
  ma_cli_fail("tree ${tree}: exit ${scan_RC}: ${scan_ERR}")
endif()

# Sorted by name, byte for byte; kinds from the extensions; nothing
# unreadable, no loop.
ma_cli_expect_match("scan" "${scan_OUT}"
  "^\\(root\\) +folder +tree\n\\$0 +unknown +\\.hidden\n\\$1 +folder +Music\n"
  "\n\\$1\\$0 +folder +Album One\n\\$1\\$0\\$0 +music +01 song\\.mp3\n\\$1\\$0\\$1 +music +02 song\\.flac\n"
  "\n\\$1\\$1 +playlist +list\\.m3u\n\\$2 +music +M..sik\\.flac\n"
  "\n\\$3 +folder +Pictures\n\\$3\\$0 +picture +photo\\.JPG\n\\$4 +unknown +README\n"
  "\n\\$5 +folder +Videos\n\\$5\\$0 +video +clip\\.mkv\n\\$5\\$1 +folder +deep\n"
  "\n\\$5\\$1\\$0 +folder +er\n\\$5\\$1\\$0\\$0 +video +movie\\.ts\n"
  "\n\\$6 +interactive +app\\.html\n\\$7 +unknown +blob\\.bin\n\\$8 +document +caf.\\.txt\n"
  "\n\\$9 +music +link-to-song\\.mp3\n\\$10 +music +name with blanks\\.mp3\n"
  "\n\\$11 +document +paper\\.pdf\n\\$12 +other +subs\\.srt\n$")
ma_cli_expect_no_match("scan" "${scan_OUT}" "secret" "locked" "inner" "loop" "dangling")
# Bytes beyond ASCII pass unchanged: UTF-8 and Latin-1 alike.
string(ASCII 195 188 u_umlaut)
string(ASCII 233 latin1_e_acute)
foreach(name "M${u_umlaut}sik.flac" "caf${latin1_e_acute}.txt")
  string(FIND "${scan_OUT}" " ${name}\n" at)
  if(at LESS 0)
    ma_cli_fail("scan: \"${name}\" not shown byte for byte")
  endif()
endforeach()

# Each left-out entry is reported on stderr, one line each, and the scan
# goes on (exit code 0).
ma_cli_expect_match("scan stderr" "${scan_ERR}"
  "ma-cli: skipped [^\n]*/tree/secret\\.mp3: not readable\n"
  "ma-cli: skipped [^\n]*/tree/locked: not readable\n"
  "ma-cli: skipped [^\n]*/tree/Videos/deep/loop: symlink loop: directory already scanned\n"
  "ma-cli: skipped [^\n]*/tree/dangling: dangling symbolic link\n")
string(REGEX MATCHALL "\n" stderr_lines "${scan_ERR}")
list(LENGTH stderr_lines stderr_count)
if(NOT stderr_count EQUAL 4)
  ma_cli_fail("scan: ${stderr_count} stderr lines instead of 4:\n${scan_ERR}")
endif()

# The same as JSON, with the records' details.
ma_cli_run(json PREFIX_COMMAND ${as_user} ARGS tree "${tree}" --json)
ma_cli_expect_json("scan --json" "${json_OUT}" "${tree}" source)
ma_cli_expect_json("scan --json" "${json_OUT}" "tree" tree caption)
ma_cli_json_length(count "${json_OUT}" tree children)
if(NOT count EQUAL 13)
  ma_cli_fail("scan --json: ${count} children of the root instead of 13")
endif()
ma_cli_expect_json("scan --json" "${json_OUT}" "3" tree children 1 children 0 children 0 size)
ma_cli_expect_json("scan --json" "${json_OUT}" "file://${tree}/Music/Album One/01 song.mp3"
  tree children 1 children 0 children 0 locator)
ma_cli_expect_json("scan --json" "${json_OUT}" "1767323045" tree children 11 dateNumeric)
ma_cli_expect_json("scan --json" "${json_OUT}" "3" tree children 9 size)
ma_cli_json_length(count "${json_OUT}" skipped)
if(NOT count EQUAL 4)
  ma_cli_fail("scan --json: ${count} skipped entries instead of 4")
endif()

# --depth stops the scan itself: nothing below the first level, no loop.
ma_cli_run(shallow PREFIX_COMMAND ${as_user} ARGS tree "${tree}" --depth 1)
ma_cli_expect_match("scan --depth 1" "${shallow_OUT}" "\n\\$5 +folder +Videos\n\\$6 ")
ma_cli_expect_no_match("scan --depth 1" "${shallow_OUT}" "clip" "movie")
ma_cli_expect_no_match("scan --depth 1" "${shallow_ERR}" "loop")

# Sorting a scanned tree: by date, newest first, paper.pdf (2026) is last
# among the root's leaves, which the test made just now.
ma_cli_run(by_title PREFIX_COMMAND ${as_user} ARGS tree "${tree}" --depth 1 --sort -dc:title)
ma_cli_expect_match("scan --sort -dc:title" "${by_title_OUT}"
  "^\\(root\\) +folder +tree\n\\$12 +other +subs\\.srt\n\\$11 +document +paper\\.pdf\n")

# The other commands on the scanned tree.
ma_cli_run(dumped PREFIX_COMMAND ${as_user} ARGS dump "$10" "${tree}")
ma_cli_expect_match("dump \$10 DIR" "${dumped_OUT}"
  "^\\$10  music  \"name with blanks\\.mp3\"\nItemType        : 2\nlocator         : file://[^\n]*/tree/name with blanks\\.mp3\n")
# (A folder that "nobody" may write to.)
ma_cli_shell("rm -rf out && mkdir out && chmod 777 out")
set(file "${WORK_DIR}/out/scanned.bin")
ma_cli_run(written PREFIX_COMMAND ${as_user} ARGS msg "$11" "${tree}" --out "${WORK_DIR}/out/missing/x.bin")
ma_cli_expect_match("msg --out into a missing folder (exit ${written_RC})" "${written_ERR}"
  "\nma-cli: cannot write \"[^\"]*/out/missing/x\.bin\": No such file or directory\n$")
if(NOT written_RC STREQUAL "1")
  ma_cli_fail("msg --out into a missing folder: exit ${written_RC}")
endif()
ma_cli_run(written PREFIX_COMMAND ${as_user} ARGS msg "$11" "${tree}" --out "${file}")
ma_cli_ok(decoded msg decode "${file}")
ma_cli_expect_match("decode" "${decoded_OUT}" "a document item\n" "\ncaption         : paper\\.pdf\n"
  "\ndate            : 2026-01-02 03:04:05\n" "\ndateNumeric     : 1767323045\n")
ma_cli_run(resolved PREFIX_COMMAND ${as_user} ARGS resolve "$5$1$0$0" "${tree}" --json)
ma_cli_expect_json("resolve DIR" "${resolved_OUT}" "movie.ts" entry caption)
ma_cli_expect_json("resolve DIR" "${resolved_OUT}" "video" entry kind)
ma_cli_run(missing PREFIX_COMMAND ${as_user} ARGS resolve "$13" "${tree}")
ma_cli_expect_match("resolve \$13 DIR" "${missing_ERR}" "\nma-cli: path \"\\$13\" does not resolve[^\n]*\n$")
if(NOT missing_RC STREQUAL "1")
  ma_cli_fail("resolve \$13 DIR: exit ${missing_RC}")
endif()

# Directories that cannot be scanned.
ma_cli_bad(1 "directory \"[^\"]*/nowhere\": No such file or directory" tree "${WORK_DIR}/nowhere")
ma_cli_bad(1 "\"[^\"]*/tree/paper\\.pdf\" is not a directory" tree "${tree}/paper.pdf")
ma_cli_bad(1 "directory \"[^\"]*/nowhere\": No such file or directory" dump "$0" "${WORK_DIR}/nowhere")
ma_cli_run(locked PREFIX_COMMAND ${as_user} ARGS tree "${tree}/locked")
ma_cli_check_one_error_line("tree locked" 1 "directory \"[^\"]*/locked\" cannot be read: Permission denied" locked)

# A progress line on stderr while scanning, only when stderr is a terminal
# (`script` gives the tool one): every 4096 entries, erased at the end.
find_program(SCRIPT script)
if(SCRIPT)
  ma_cli_shell("rm -rf many && mkdir many && cd many && seq 5000 | xargs touch")
  string(JOIN " " command ${MA_CLI_EMULATOR} "${MA_CLI}" tree "${WORK_DIR}/many" ">/dev/null")
  execute_process(COMMAND "${SCRIPT}" -qec "${command}" /dev/null
    OUTPUT_VARIABLE terminal RESULT_VARIABLE rc)
  string(ASCII 27 escape)
  ma_cli_expect_match("progress on a terminal (exit ${rc})" "${terminal}"
    "\rma-cli: scanning, 4096 entries" "\r${escape}\\[K$")
  ma_cli_ok(piped tree "${WORK_DIR}/many")  # stderr a pipe: nothing there
endif()

ma_cli_shell("chmod -R u+rwX tree")
ma_cli_finish()
