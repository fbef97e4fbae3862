#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
#
# Rewrites the symbols files of the runtime package,
# packaging/debian/libma-common1.symbols.<architecture>, from the libraries
# of the host-debug (amd64) and arm (armhf) builds, with dpkg-gensymbols.
# Run it when the exported symbols change on purpose, and commit the files
# with the change: the packaging fails on any difference between a library
# and its file.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
version=$(dpkg-parsechangelog -l packaging/debian/changelog -SVersion)
upstream=${version%-*}
# The library also exports the instances of the C++ library's and Boost's
# templates it uses (std::map nodes, boost::exception): they are emitted
# where they are used, and an optimised build may inline them away. They
# are marked optional, so that only the library's own symbols must stay.
mark_optional() {
  local file=$1 line
  # Mangled names in namespace std (St) or boost (5boost): functions,
  # members, and their typeinfo, typeinfo names, vtables and thunks.
  local foreign='^ _Z(T[ISV]|Th[n0-9_]+|Tv[n0-9_]+)?N?K?(St|5boost)'
  while IFS= read -r line; do
    if [[ $line =~ $foreign ]]; then
      line=" (optional)${line# }"
    fi
    printf '%s\n' "$line"
  done <"$file" >"$file.new"
  mv "$file.new" "$file"
}

for preset in host-debug arm; do
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset"
  # Packaging stops at the symbols check when they changed; the stripped
  # library is staged by then.
  ctest --preset "$preset" -R '^packages_build$' >/dev/null || true
  work="build/$preset/package-check/packaging"
  arch=$(sed -n 's/^MA_COMMON_PACKAGE_ARCHITECTURE:STRING=//p' "build/$preset/CMakeCache.txt")
  rm -f "$work"/debian/libma-common1.symbols*
  (cd "$work" && dpkg-architecture -a"$arch" -f -c \
    dpkg-gensymbols -plibma-common1 -Pdebian/libma-common1 -v"$upstream" -c0 \
      -O"$root/packaging/debian/libma-common1.symbols.$arch" >/dev/null)
  mark_optional "packaging/debian/libma-common1.symbols.$arch"
  # Clients' packages learn which development package gives the version.
  sed -i '1a\* Build-Depends-Package: libma-common-dev' "packaging/debian/libma-common1.symbols.$arch"
  echo "packaging/debian/libma-common1.symbols.$arch: $(grep -c '^ ' "packaging/debian/libma-common1.symbols.$arch") symbols"
done
