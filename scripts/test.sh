#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Builds and runs the whole test suite: on the host (debug, ASan+UBSan, TSan,
# valgrind), on the ARM target under qemu-arm, and every fuzz target for a
# few seconds (scripts/fuzz.sh runs them longer); then builds the benchmarks
# and runs each once at a tiny size (bench-smoke), so that they cannot rot.
#
#   scripts/test.sh               every configuration
#   scripts/test.sh arm host-asan only the named presets
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh

presets=("$@")
[ ${#presets[@]} -eq 0 ] && presets=(host-debug arm host-asan host-tsan valgrind fuzz bench-smoke)
jobs=$(nproc)

run_preset() {
  local preset=$1
  echo "=== ${preset}: configure and build"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j"$jobs"
  echo "=== ${preset}: test"
  ctest --preset "$preset" -j"$jobs"
}

for preset in "${presets[@]}"; do
  case "$preset" in
    valgrind) scripts/valgrind.sh ;;
    bench-smoke) scripts/bench.sh --smoke ;;
    fuzz) scripts/fuzz.sh 5 ;;
    *) run_preset "$preset" ;;
  esac
done
echo "=== all of ${presets[*]} passed"
