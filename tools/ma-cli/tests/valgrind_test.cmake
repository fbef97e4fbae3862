# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# ma-cli under valgrind's memcheck: the sample walk, a directory with a
# link loop (listed, and followed), and message files that are truncated or corrupted:
# no invalid read (in particular none beyond a damaged file's bytes), no
# uninitialised value, no leak. Given -DVALGRIND=<valgrind> and
# -DSUPPRESSIONS=<the project's suppression file>.
include("${CMAKE_CURRENT_LIST_DIR}/MaCliTestSupport.cmake")

set(memcheck "${VALGRIND}" --quiet --error-exitcode=99 --leak-check=full
  --errors-for-leak-kinds=definite,indirect --show-leak-kinds=definite,indirect
  "--suppressions=${SUPPRESSIONS}")

# memchecked(<expected exit code> <args...>)
function(memchecked code)
  ma_cli_run(run PREFIX_COMMAND ${memcheck} ARGS ${ARGN})
  if(NOT run_RC STREQUAL "${code}")
    ma_cli_fail("valgrind ma-cli ${ARGN}: exit ${run_RC} instead of ${code}:\n${run_ERR}")
  endif()
  set(run_ERR "${run_ERR}" PARENT_SCOPE)
endfunction()

memchecked(0)
memchecked(0 --json)

ma_cli_shell("rm -rf tree && mkdir -p tree/a/b && : > tree/a/b/x.mp3 && : > tree/y.jpg &&
  ln -s .. tree/a/b/loop")
memchecked(0 tree "${WORK_DIR}/tree" --sort -dc:title)
# The plain walk (the storage worker reads ahead), --follow with its loop
# report (exit 4), streamed JSON and a resolve through two folders.
memchecked(0 tree "${WORK_DIR}/tree" --json)
memchecked(4 tree "${WORK_DIR}/tree" --follow)
memchecked(0 resolve "$0$0$0" "${WORK_DIR}/tree")

ma_cli_ok(written msg "$1$2" --out "${WORK_DIR}/good.bin")
ma_cli_shell("head -c 200 good.bin > cut.bin &&
  cp good.bin count.bin && printf '\\377\\377' | dd of=count.bin bs=1 seek=63 conv=notrunc status=none")
memchecked(0 msg decode "${WORK_DIR}/good.bin")
memchecked(1 msg decode "${WORK_DIR}/cut.bin")
ma_cli_expect_match("decode of a cut file" "${run_ERR}" "truncated at byte")
memchecked(1 msg decode "${WORK_DIR}/count.bin")

ma_cli_finish()
