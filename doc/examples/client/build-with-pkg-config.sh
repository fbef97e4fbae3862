#!/bin/sh
# Builds the guide's client with the compiler and linker flags that
# pkg-config gives for the installed library.
#   PKG_CONFIG_PATH=<prefix>/lib/pkgconfig build-with-pkg-config.sh <program>
set -eu
cd "$(dirname "$0")"
# [guide:client-pkg-config]
g++ -std=c++17 -o "$1" main.cpp $(pkg-config --define-prefix --cflags --libs ma-common)
# [guide:end]
