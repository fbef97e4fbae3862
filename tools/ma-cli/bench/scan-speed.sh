#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Measures how fast ma-cli scans a directory of 100,000 files (100 folders
# of 1,000, a quarter of them one level deeper, ten extensions) and prints
# the sorted tree, against `find DIR | sort` and against find printing the
# same size and date that ma-cli reads. Needs hyperfine.
#
#   tools/ma-cli/bench/scan-speed.sh [SCRATCH_DIR]   (default: /tmp/ma-cli-scan-speed)
set -euo pipefail
cd "$(dirname "$0")/../../.."
scratch=${1:-/tmp/ma-cli-scan-speed}
tool=build/host-release/tools/ma-cli/ma-cli

cmake --preset host-release >/dev/null
cmake --build --preset host-release --target ma-cli >/dev/null

if [ ! -d "$scratch/dir99" ]; then
  echo "scan-speed: creating 100,000 files in $scratch"
  python3 - "$scratch" <<'PY'
import os, sys
root = sys.argv[1]
extensions = ["mp3", "mkv", "jpg", "m3u", "pdf", "html", "srt", "bin", "flac", "ts"]
for folder in range(100):
    os.makedirs(f"{root}/dir{folder:02d}/sub", exist_ok=True)
    for number in range(1000):
        sub = "sub/" if number % 4 == 0 else ""
        open(f"{root}/dir{folder:02d}/{sub}file {number:04d}.{extensions[number % 10]}", "w").close()
PY
fi

hyperfine --warmup 1 --runs 10 \
  "find $scratch | sort" \
  "find $scratch -printf '%p %s %T@\n' | sort" \
  "$tool tree $scratch" \
  "$tool tree $scratch --sort +dc:title"
