#!/usr/bin/env bash
# Builds the library on the host and runs the example program, which prints
# the text dump of one item record of each kind.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake --preset host-release >/dev/null
cmake --build --preset host-release --target item_dump >/dev/null
exec build/host-release/examples/item_dump
