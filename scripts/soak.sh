#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# The long forms of the robustness tests: the browse-session soak (a folder
# of 10,000 children, more than a million operations, resident memory
# compared after the first round and at the end) and the concurrency stress
# (eight threads on one folder, recorder user data, a million synchronous
# calls answered from a worker pool), both with MA_TEST_LONG=1.
#
#   scripts/soak.sh              in the host debug build
#   scripts/soak.sh host-tsan    the same under ThreadSanitizer (slow)
#
# The test command runs their short forms.
set -euo pipefail
cd "$(dirname "$0")/.."
preset=${1:-host-debug}

cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" -j"$(nproc)" --target soak_test vfs_stress_test
for program in soak_test vfs_stress_test; do
  echo "=== ${preset}: ${program}, long form"
  MA_TEST_LONG=1 "build/${preset}/tests/robustness/${program}" --gtest_brief=1
done
