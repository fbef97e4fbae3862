#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Builds the consumer in folder <work> with the compiler $CXX and the flags
# that pkg-config gives for the installed library: the command line of the
# user guide.
#   CXX=<compiler> PKG_CONFIG_LIBDIR=<prefix>/lib/<triplet>/pkgconfig build-with-pkg-config.sh <work>
set -eu
cp "$(dirname "$0")/main.cpp" "$1/"
cd "$1"
# [guide:client-pkg-config]
"$CXX" -std=c++17 main.cpp -o consumer $(pkg-config --cflags --libs ma-common)
# [guide:end]
