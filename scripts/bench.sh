#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Runs the benchmark suite and writes bench/RESULTS.md and bench/scaling.png:
#   1. every scenario program of the host-release build under Google
#      Benchmark (wall-clock time; noisy on a shared machine);
#   2. the same cases under valgrind's callgrind (instructions per
#      operation; repeatable), up to BENCH_CALLGRIND_MAX_ARG elements;
#   3. the same cases built for the ARM target (arm-release with the
#      benchmarks, in build/arm-release-bench) under qemu-arm with the
#      instruction-counting plugin (bench/insn_count): the target's
#      instructions and heap allocations per operation;
#   4. the heap-bytes-per-leaf program on the host and on the ARM target.
#
#   scripts/bench.sh                 everything (about 4 minutes on an idle 2-core machine,
#                                    15 when other builds share it)
#   scripts/bench.sh --smoke         builds the benchmarks and the plugin, runs
#                                    each case once at its smallest size, and
#                                    checks the plugin against callgrind on the
#                                    host (part of scripts/test.sh; about a
#                                    minute once built)
#   BENCH_MIN_TIME=0.05 scripts/bench.sh   shorter time runs
#   BENCH_SKIP_ARM=1 scripts/bench.sh      without the ARM build
#   BENCH_BASELINE=<folder> BENCH_BASELINE_NAME=<what it was> scripts/bench.sh
#                                    adds the instructions of an earlier run
#                                    (its build/bench-results copied aside)
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh

programs=(message_bench sort_bench browse_bench path_bench tree_bench trace_bench)
bin=build/host-release/bench
plugin=$bin/libinsn_count.so
arm_build=build/arm-release-bench
qemu_arm=(qemu-arm -L /usr/arm-linux-gnueabihf)

# check_plugin <folder>: one case counted by callgrind and by the plugin under
# qemu-x86_64, from the same host program; they must agree within 0.5%.
check_plugin() {
  local folder=$1 case_filter=message.to_item/ours
  mkdir -p "$folder"
  valgrind --tool=callgrind --collect-atstart=no --callgrind-out-file="$folder/callgrind.out" \
    "$bin/message_bench" --instructions --filter="$case_filter" \
    >"$folder/callgrind.cases" 2>"$folder/callgrind.log"
  qemu-x86_64 -plugin "$plugin,out=$folder/plugin.counts" \
    "$bin/message_bench" --instructions --filter="$case_filter" --phase-markers \
    >"$folder/plugin.cases"
  /usr/bin/python3 scripts/bench_report.py --check-plugin "$folder"
}

if [ "${1:-}" = --smoke ]; then
  echo "=== bench-smoke: build the benchmarks and the plugin (host-release) and run each case once"
  cmake --preset host-release >/dev/null
  cmake --build --preset host-release -j"$(nproc)" --target benchmarks
  for program in "${programs[@]}"; do
    "$bin/$program" --smoke >/dev/null
  done
  "$bin/item_bench" --benchmark_min_time=0.001 >/dev/null 2>&1
  "$bin/leaf_memory" >/dev/null
  echo "=== bench-smoke: the instruction-counting plugin against callgrind"
  check_plugin build/bench-smoke
  echo "=== bench-smoke: every benchmark ran"
  exit 0
fi

out=build/bench-results
min_time=${BENCH_MIN_TIME:-0.2}
callgrind_max_arg=${BENCH_CALLGRIND_MAX_ARG:-100000}
rm -rf "$out" && mkdir -p "$out/callgrind" "$out/arm"

echo "=== bench: build host-release"
cmake --preset host-release >/dev/null
cmake --build --preset host-release -j"$(nproc)" --target benchmarks

echo "=== bench: the instruction-counting plugin against callgrind"
check_plugin "$out/plugin-check"

for program in "${programs[@]}"; do
  echo "=== bench: time of ${program}"
  "$bin/$program" --benchmark_min_time="$min_time" --benchmark_format=json \
    --benchmark_out="$out/$program.json" --benchmark_out_format=json >/dev/null
done

for program in "${programs[@]}"; do
  echo "=== bench: instructions of ${program} (callgrind)"
  valgrind --tool=callgrind --collect-atstart=no \
    --callgrind-out-file="$out/callgrind/$program.out" \
    "$bin/$program" --instructions --max-arg="$callgrind_max_arg" \
    >"$out/callgrind/$program.cases" 2>"$out/callgrind/$program.log"
done

echo "=== bench: heap bytes per leaf"
"$bin/leaf_memory" >"$out/leaf_memory.host.txt"

if [ "${BENCH_SKIP_ARM:-0}" != 1 ]; then
  echo "=== bench: build the ARM target's benchmarks (arm-release, in ${arm_build})"
  cmake --preset arm-release -B "$arm_build" -DMA_COMMON_BUILD_BENCHMARKS=ON >/dev/null
  cmake --build "$arm_build" -j"$(nproc)" --target benchmarks
  for program in "${programs[@]}"; do
    echo "=== bench: instructions of ${program} on ARM (qemu-arm with the plugin)"
    "${qemu_arm[@]}" -plugin "$plugin,out=$out/arm/$program.counts" \
      "$arm_build/bench/$program" --instructions --phase-markers --max-arg="$callgrind_max_arg" \
      >"$out/arm/$program.cases"
  done
  "${qemu_arm[@]}" "$arm_build/bench/leaf_memory" >"$out/leaf_memory.arm.txt"
fi

echo "=== bench: report"
/usr/bin/python3 scripts/bench_report.py "$out" bench/RESULTS.md bench/scaling.png \
  ${BENCH_BASELINE:+"$BENCH_BASELINE"}
echo "=== bench: wrote bench/RESULTS.md and bench/scaling.png"
