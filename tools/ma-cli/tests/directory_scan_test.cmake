# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# tree, resolve, dump and msg on a directory that the test builds: nested
# folders, every extension class, names with blanks and non-ASCII bytes,
# an unreadable file and folder, a link loop and a dangling link, links to
# a directory and out of the root, listed and (with --follow) followed.
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
# Done, but entries were skipped: exit code 4.
if(NOT scan_RC STREQUAL "4")
  ma_cli_fail("tree ${tree}: exit ${scan_RC}, expected 4: ${scan_ERR}")
endif()

# Sorted by name, byte for byte; kinds from the extensions; symbolic links
# listed as links with their targets and never descended (so no loop).
ma_cli_expect_match("scan" "${scan_OUT}"
  "^\\(root\\) +folder +tree\n\\$0 +unknown +\\.hidden\n\\$1 +folder +Music\n"
  "\n\\$1\\$0 +folder +Album One\n\\$1\\$0\\$0 +music +01 song\\.mp3\n\\$1\\$0\\$1 +music +02 song\\.flac\n"
  "\n\\$1\\$1 +playlist +list\\.m3u\n\\$2 +music +M..sik\\.flac\n"
  "\n\\$3 +folder +Pictures\n\\$3\\$0 +picture +photo\\.JPG\n\\$4 +unknown +README\n"
  "\n\\$5 +folder +Videos\n\\$5\\$0 +video +clip\\.mkv\n\\$5\\$1 +folder +deep\n"
  "\n\\$5\\$1\\$0 +folder +er\n\\$5\\$1\\$0\\$0 +video +movie\\.ts\n\\$5\\$1\\$1 +unknown +loop -> \\.\\./\\.\\.\n"
  "\n\\$6 +interactive +app\\.html\n\\$7 +unknown +blob\\.bin\n\\$8 +document +caf\\\\xe9\\.txt\n"
  "\n\\$9 +unknown +dangling -> nowhere\n\\$10 +music +link-to-song\\.mp3 -> Music/Album One/01 song\\.mp3\n"
  "\n\\$11 +music +name with blanks\\.mp3\n\\$12 +document +paper\\.pdf\n\\$13 +other +subs\\.srt\n$")
ma_cli_expect_no_match("scan" "${scan_OUT}" "secret" "locked" "inner" "\\$5\\$1\\$1\\$")
# UTF-8 passes unchanged; a byte that is no UTF-8 is escaped.
string(ASCII 195 188 u_umlaut)
string(FIND "${scan_OUT}" " M${u_umlaut}sik.flac\n" at)
if(at LESS 0)
  ma_cli_fail("scan: \"M${u_umlaut}sik.flac\" not shown byte for byte")
endif()

# Each left-out entry is reported on stderr, one line each, as it is found.
ma_cli_expect_match("scan stderr" "${scan_ERR}"
  "^ma-cli: skipped [^\n]*/tree/locked: not readable\n"
  "ma-cli: skipped [^\n]*/tree/secret\\.mp3: not readable\n$")

# The same as JSON, written as the walk goes, with the records' details.
ma_cli_run(json PREFIX_COMMAND ${as_user} ARGS tree "${tree}" --json)
ma_cli_expect_json("scan --json" "${json_OUT}" "${tree}" source)
ma_cli_expect_json("scan --json" "${json_OUT}" "tree" tree caption)
ma_cli_json_length(count "${json_OUT}" tree children)
if(NOT count EQUAL 14)
  ma_cli_fail("scan --json: ${count} children of the root instead of 14")
endif()
ma_cli_expect_json("scan --json" "${json_OUT}" "3" tree children 1 children 0 children 0 size)
ma_cli_expect_json("scan --json" "${json_OUT}" "file://${tree}/Music/Album One/01 song.mp3"
  tree children 1 children 0 children 0 locator)
ma_cli_expect_json("scan --json" "${json_OUT}" "1767323045" tree children 12 dateNumeric)
ma_cli_expect_json("scan --json" "${json_OUT}" "Music/Album One/01 song.mp3" tree children 10 linkTarget)
ma_cli_json_length(count "${json_OUT}" skipped)
if(NOT count EQUAL 2)
  ma_cli_fail("scan --json: ${count} skipped entries instead of 2")
endif()

# --follow follows links: a link back to an ancestor is a loop (reported,
# not descended), a dangling link is reported, a link to a file is the file.
ma_cli_run(followed PREFIX_COMMAND ${as_user} ARGS tree "${tree}" --follow)
ma_cli_expect_match("scan --follow" "${followed_OUT}"
  "\n\\$9 +music +link-to-song\\.mp3\n\\$10 +music +name with blanks\\.mp3\n")
ma_cli_expect_no_match("scan --follow" "${followed_OUT}" "dangling" "loop")
ma_cli_expect_match("scan --follow stderr" "${followed_ERR}"
  "ma-cli: skipped [^\n]*/tree/Videos/deep/loop: loop: leads back to a directory above it\n"
  "ma-cli: skipped [^\n]*/tree/dangling: dangling symbolic link\n")

# --depth stops the scan itself: nothing below the first level.
ma_cli_run(shallow PREFIX_COMMAND ${as_user} ARGS tree "${tree}" --depth 1)
ma_cli_expect_match("scan --depth 1" "${shallow_OUT}" "\n\\$5 +folder +Videos\n\\$6 ")
ma_cli_expect_no_match("scan --depth 1" "${shallow_OUT}" "clip" "movie")

# Sorting a scanned tree (the library's sort over each listing).
ma_cli_run(by_title PREFIX_COMMAND ${as_user} ARGS tree "${tree}" --depth 1 --sort -dc:title)
ma_cli_expect_match("scan --sort -dc:title" "${by_title_OUT}"
  "^\\(root\\) +folder +tree\n\\$13 +other +subs\\.srt\n\\$12 +document +paper\\.pdf\n")

# The root's caption and every locator are canonical.
ma_cli_run(detour PREFIX_COMMAND ${as_user} ARGS tree "${tree}/./Music/..//" --json --depth 1)
ma_cli_expect_json("tree DIR/./Music/..//" "${detour_OUT}" "tree" tree caption)
ma_cli_expect_json("tree DIR/./Music/..//" "${detour_OUT}" "file://${tree}" tree locator)
ma_cli_expect_json("tree DIR/./Music/..//" "${detour_OUT}" "file://${tree}/Music" tree children 1 locator)
ma_cli_run(here ARGS tree . --depth 0)
get_filename_component(work_name "${WORK_DIR}" NAME)
ma_cli_expect_match("tree ." "${here_OUT}" "^\\(root\\) +folder +${work_name}\n$")

# The link-before-real-directory layout: the real directory is never dropped,
# not even when the link is followed (a directory reached twice is listed
# twice), and nothing is a loop.
ma_cli_shell("rm -rf layout && mkdir -p layout/zreal && : > layout/zreal/file.txt && ln -s zreal layout/alink")
ma_cli_run(layout ARGS tree "${WORK_DIR}/layout")
ma_cli_expect_match("link before directory" "${layout_OUT}"
  "\n\\$0 +unknown +alink -> zreal\n\\$1 +folder +zreal\n\\$1\\$0 +document +file\\.txt\n$")
ma_cli_run(layout_followed ARGS tree "${WORK_DIR}/layout" --follow)
ma_cli_expect_match("link before directory, --follow" "${layout_followed_OUT}"
  "\n\\$0 +folder +alink\n\\$0\\$0 +document +file\\.txt\n\\$1 +folder +zreal\n\\$1\\$0 +document +file\\.txt\n$")
if(NOT layout_RC STREQUAL "0" OR NOT layout_followed_RC STREQUAL "0" OR NOT layout_followed_ERR STREQUAL "")
  ma_cli_fail("link before directory: exit ${layout_RC} and ${layout_followed_RC}: ${layout_followed_ERR}")
endif()

# A link out of the root is listed, never walked.
ma_cli_shell("rm -rf escape && mkdir escape && ln -s /proc/self escape/p && ln -s / escape/root")
ma_cli_run(escape ARGS tree "${WORK_DIR}/escape")
ma_cli_expect_match("links out of the root" "${escape_OUT}"
  "^\\(root\\) +folder +escape\n\\$0 +unknown +p -> /proc/self\n\\$1 +unknown +root -> /\n$")

# One path costs the folders along it, not the tree: resolving a file in
# "a" never reads "b", whose unreadable sub-folder only a walk finds.
ma_cli_shell("chmod -R u+rwX lazy 2>/dev/null; rm -rf lazy && mkdir -p lazy/a lazy/b/c &&
  : > lazy/a/f.mp3 && chmod 000 lazy/b/c")
ma_cli_run(lazy_resolve PREFIX_COMMAND ${as_user} ARGS resolve "$0$0" "${WORK_DIR}/lazy")
if(NOT lazy_resolve_RC STREQUAL "0" OR NOT lazy_resolve_ERR STREQUAL "")
  ma_cli_fail("resolve in a lazy tree: exit ${lazy_resolve_RC}, stderr [${lazy_resolve_ERR}]")
endif()
ma_cli_run(lazy_walk PREFIX_COMMAND ${as_user} ARGS tree "${WORK_DIR}/lazy")
ma_cli_expect_match("tree of the lazy tree (exit ${lazy_walk_RC})" "${lazy_walk_ERR}"
  "^ma-cli: skipped [^\n]*/lazy/b/c: not readable\n$")
ma_cli_shell("chmod -R u+rwX lazy")

# Identifier queries work on a directory: a child by UUID-<device>-<inode>.
ma_cli_run(by_uuid PREFIX_COMMAND ${as_user} ARGS dump "$1" "${tree}" --json)
string(JSON music_uuid ERROR_VARIABLE error GET "${by_uuid_OUT}" uuid)
ma_cli_run(found PREFIX_COMMAND ${as_user} ARGS resolve "${music_uuid}" "${tree}" --json)
ma_cli_expect_json("resolve \$UUID DIR" "${found_OUT}" "Music" entry caption)
ma_cli_expect_json("resolve \$UUID DIR" "${found_OUT}" "$1" entry path)

# The other commands on the scanned tree.
ma_cli_run(dumped PREFIX_COMMAND ${as_user} ARGS dump "$11" "${tree}")
ma_cli_expect_match("dump \$11 DIR" "${dumped_OUT}"
  "^\\$11  music  \"name with blanks\\.mp3\"\nItemType        : 2\nlocator         : file://[^\n]*/tree/name with blanks\\.mp3\n")
# (A folder that "nobody" may write to.)
ma_cli_shell("rm -rf out && mkdir out && chmod 777 out")
set(file "${WORK_DIR}/out/scanned.bin")
ma_cli_run(written PREFIX_COMMAND ${as_user} ARGS msg "$12" "${tree}" --out "${WORK_DIR}/out/missing/x.bin")
ma_cli_expect_match("msg --out into a missing folder (exit ${written_RC})" "${written_ERR}"
  "\nma-cli: cannot write \"[^\"]*/out/missing/x\.bin\": No such file or directory\n$")
if(NOT written_RC STREQUAL "1")
  ma_cli_fail("msg --out into a missing folder: exit ${written_RC}")
endif()
ma_cli_run(written PREFIX_COMMAND ${as_user} ARGS msg "$12" "${tree}" --out "${file}")
ma_cli_ok(decoded msg decode "${file}")
ma_cli_expect_match("decode" "${decoded_OUT}" "a document item\n" "\ncaption         : paper\\.pdf\n"
  "\ndate            : 2026-01-02 03:04:05\n" "\ndateNumeric     : 1767323045\n")
ma_cli_run(resolved PREFIX_COMMAND ${as_user} ARGS resolve "$5$1$0$0" "${tree}" --json)
ma_cli_expect_json("resolve DIR" "${resolved_OUT}" "movie.ts" entry caption)
ma_cli_expect_json("resolve DIR" "${resolved_OUT}" "video" entry kind)
ma_cli_run(missing PREFIX_COMMAND ${as_user} ARGS resolve "$14" "${tree}")
ma_cli_expect_match("resolve \$14 DIR" "${missing_ERR}" "\nma-cli: path \"\\$14\" does not resolve[^\n]*\n$")
if(NOT missing_RC STREQUAL "1")
  ma_cli_fail("resolve \$14 DIR: exit ${missing_RC}")
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
