// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Scanning a real directory into a fixed tree.
//
// Every directory becomes a folder, every other entry a leaf whose kind
// comes from its file extension (kindOfFileName). A record carries the
// file name as caption, "UUID-" and the file's device and inode as
// identifier, the file's size and modification time (dateNumeric, and date
// as UTC text), and as locator the selection URI
// "file://" + "/" + absolute path built with mdcSelectionCreate.
//
// Children are added sorted by name, byte for byte, so positional paths do
// not depend on the order in which the file system lists a directory.
// Symbolic links are followed, except into a directory already scanned
// (which stops symlink loops); entries that cannot be read (permission
// bits, a dangling link, a directory that cannot be opened) are left out
// and listed in Catalogue::skipped.
//
// Cost: one stat per entry, one open per directory, no other system call
// per entry.
//
// Thread-safety: scans run on the calling thread and share nothing.
#ifndef MA_CLI_DIRECTORY_SCAN_H_
#define MA_CLI_DIRECTORY_SCAN_H_

#include <string>

#include "catalogue.h"

namespace ma_cli {

struct ScanOptions {
  int maxDepth = -1;          // levels below the root to scan; -1: all
  bool showProgress = false;  // a progress line on stderr (callers: only on a terminal)
};

// The tree of directory `path`. Throws InputError when `path` is missing,
// not a directory or cannot be opened.
Catalogue scanDirectory(std::string const& path, ScanOptions const& options);

}  // namespace ma_cli

#endif  // MA_CLI_DIRECTORY_SCAN_H_
