#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Runs every fuzz target of fuzz/ as a libFuzzer program (the `fuzz` preset:
# clang, ASan+UBSan) for a bounded time, each on a scratch copy of its
# corpus, and prints the executions per target. A finding stops the target
# with its crashing input in build/fuzz/findings/ and fails the script.
#
#   scripts/fuzz.sh                 60 seconds per target
#   scripts/fuzz.sh 600             10 minutes per target
#   scripts/fuzz.sh 5 vfs_tree_fuzzer          only the named targets
#   MERGE=1 scripts/fuzz.sh 300     afterwards merges the inputs that reach
#                                   new code into fuzz/corpus/ (-merge=1)
#
# scripts/test.sh runs it for a few seconds per target.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-60}
shift || true
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  targets=()
  for folder in fuzz/corpus/*/; do targets+=("$(basename "$folder")"); done
fi

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -j"$(nproc)" --target "${targets[@]}"

work=build/fuzz/work
findings=build/fuzz/findings
mkdir -p "$findings"
failed=0
for target in "${targets[@]}"; do
  rm -rf "${work:?}/$target"
  mkdir -p "$work/$target"
  cp fuzz/corpus/"$target"/* "$work/$target"/
  log="$work/$target.log"
  # Leaks are checked as everywhere else: the blocks the library keeps on
  # purpose are suppressed with their reasons.
  if LSAN_OPTIONS="suppressions=$PWD/tests/sanitizers/lsan.supp" \
     UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1" \
     "build/fuzz/fuzz/$target" -max_total_time="$seconds" -print_final_stats=1 \
       -artifact_prefix="$findings/$target-" "$work/$target" >"$log" 2>&1; then
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    inputs=$(find "$work/$target" -type f | wc -l)
    echo "fuzz: $target: ${runs:-?} executions in ${seconds} s, corpus $(find "fuzz/corpus/$target" -type f | wc -l) -> $inputs inputs, no finding"
  else
    echo "fuzz: $target FAILED; input and log in $findings/, $log:"
    tail -n 40 "$log"
    failed=1
  fi
  if [ "${MERGE:-0}" = 1 ] && [ $failed = 0 ]; then
    "build/fuzz/fuzz/$target" -merge=1 -use_counters=0 "fuzz/corpus/$target" "$work/$target" >"$work/$target.merge.log" 2>&1
    echo "fuzz: $target: corpus merged, now $(find "fuzz/corpus/$target" -type f | wc -l) inputs"
  fi
done
exit $failed
