#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Builds the library and its inspection tool on the host and runs ma-cli
# without arguments: a walk through the built-in sample receiver catalogue
# (tree, sorting, path resolution, an item message, a selection URI,
# delivery systems). Arguments are passed on to ma-cli.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake --preset host-release >/dev/null
cmake --build --preset host-release --target ma-cli >/dev/null
exec build/host-release/tools/ma-cli/ma-cli "$@"
