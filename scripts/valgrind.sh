#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Runs every test program of the host debug build under valgrind's memcheck:
# no invalid access, no uninitialised read, no leak beyond the suppressed
# blocks that the library keeps on purpose.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset host-debug >/dev/null
cmake --build --preset host-debug -j"$(nproc)"
echo "=== valgrind: memcheck of every test program"
failed=0
while read -r program; do
  [ -n "$program" ] || continue
  if valgrind --quiet --error-exitcode=99 --leak-check=full \
       --errors-for-leak-kinds=definite,indirect --show-leak-kinds=definite,indirect \
       --suppressions="$PWD/tests/sanitizers/valgrind.supp" \
       "$program" --gtest_brief=1 >"build/host-debug/valgrind-$(basename "$program").log" 2>&1; then
    echo "valgrind: $(basename "$program") clean"
  else
    echo "valgrind: $(basename "$program") FAILED:"
    tail -n 60 "build/host-debug/valgrind-$(basename "$program").log"
    failed=1
  fi
done < build/host-debug/test-programs.txt
exit $failed
