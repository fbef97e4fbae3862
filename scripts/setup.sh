#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Installs the Debian packages the build and the tests need. Idempotent, and
# quiet when everything is already there.
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config binutils   # host build
  python3 doxygen                             # guide snippet check, API reference
  libboost-dev                                # Boost headers (host and target)
  libcli11-dev nlohmann-json3-dev             # ma-cli: arguments and --json
  googletest libbenchmark-dev                 # tests and benchmarks
  valgrind                                    # memory checks
  g++-arm-linux-gnueabihf qemu-user           # ARM target build and its test runs
  dpkg-dev debhelper make lintian help2man    # Debian packages: debhelper, lintian, ma-cli's manual page
  abigail-tools                               # ABI baseline: abidw, abidiff
  libprotobuf-dev protobuf-compiler python3-matplotlib  # benchmarks: protobuf peer, plot
  clang libclang-rt-14-dev                    # fuzz targets (libFuzzer)
  gdb gdb-multiarch                           # pretty-printer tests, host and ARM
)

missing=()
for package in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$package")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "setup: installing ${missing[*]}"
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
