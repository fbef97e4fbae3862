#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Measures time and peak memory of ma-cli reading a directory of 100,000
# files (100 folders of 1,000, a quarter of them one level deeper, ten
# extensions) and printing the tree, against find printing the same size
# and date (`find DIR -printf '%p %s %T@\n' | sort`). Each command runs
# RUNS times (default 5) after one warm-up run; the table shows the median
# wall time and the largest peak resident set size (GNU time's %M, the
# largest process of the pipeline), and the factor against find. Targets:
# ma-cli within 1.5 times find's time, under 40 MB with and without --json.
#
#   tools/ma-cli/bench/scan-speed.sh [SCRATCH_DIR]   (default: /tmp/ma-cli-scan-speed)
#
# Needs GNU time (/usr/bin/time, Debian package "time") and a release build
# (made here).
set -euo pipefail
cd "$(dirname "$0")/../../.."
scratch=${1:-/tmp/ma-cli-scan-speed}
runs=${RUNS:-5}
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

# measure COMMAND: prints "median-seconds peak-kilobytes".
measure() {
  local command=$1 times=() peak=0 line
  sh -c "$command" >/dev/null
  for _ in $(seq "$runs"); do
    line=$(/usr/bin/time -f '%e %M' sh -c "$command >/dev/null" 2>&1 >/dev/null | tail -n 1)
    times+=("${line% *}")
    (( ${line#* } > peak )) && peak=${line#* }
  done
  printf '%s %s\n' "$(printf '%s\n' "${times[@]}" | sort -n | sed -n "$(( (runs + 1) / 2 ))p")" "$peak"
}

# divide A B: A / B with two decimals.
divide() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'; }

reference="find '$scratch' -printf '%p %s %T@\n' | sort"
read -r find_time find_peak < <(measure "$reference")
printf '%-44s %8s %10s %8s\n' "command" "time/s" "peak/MB" "vs find"
printf '%-44s %8s %10s %8s\n' "find DIR -printf '%p %s %T@\\n' | sort" "$find_time" \
  "$(divide "$find_peak" 1024)" "1.00"
for arguments in "tree DIR" "tree DIR --json" "tree DIR --sort +dc:title"; do
  read -r time peak < <(measure "$tool ${arguments/DIR/$scratch}")
  printf '%-44s %8s %10s %8s\n' "ma-cli $arguments" "$time" "$(divide "$peak" 1024)" \
    "$(divide "$time" "$find_time")"
done
