#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Rewrites tests/abi/libma-common.so.1.armhf.abi, the type-level ABI of the
# ARM library that the abi_baseline test compares every `arm` build with.
# Run it only when a change of the binary interface is intended (and the
# SONAME or the clients follow it), and commit the new file with that change.
#
#   scripts/update-abi-baseline.sh
#
# The library is built as the `arm` preset builds it, in a folder of its own
# (build/abi-baseline) whose debug information names the sources relative to
# the checkout: libabigail's output then depends on the sources alone, not on
# where they are checked out. Locations in the file are file names only, and
# the corpus and compilation folders are left out.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh

source_dir=$(pwd)
build_dir=build/abi-baseline
cmake --preset arm -B "$build_dir" \
  -DMA_COMMON_BUILD_TESTS=OFF -DMA_COMMON_BUILD_EXAMPLES=OFF \
  "-DCMAKE_CXX_FLAGS=-ffile-prefix-map=${source_dir}=." >/dev/null
cmake --build "$build_dir" --target ma-common -j"$(nproc)"

baseline=tests/abi/libma-common.so.1.armhf.abi
abidw --no-corpus-path --no-comp-dir-path --short-locs --type-id-style hash \
  --out-file "$baseline" "$build_dir/libma-common.so.1.0.0"
echo "wrote $baseline; review the change with: git diff --stat $baseline"
