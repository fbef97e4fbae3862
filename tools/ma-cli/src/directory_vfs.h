// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// A directory of the file system as a VFS, read on demand, the way a
// receiver's storage browser offers a USB stick to the library.
//
// openDirectoryTree() gives the root: a DirectoryFolder (a ma::VfsEntry).
// A folder reads its directory only when asked: its iterator (a
// ma::VfsIterator) lists the directory on the storage worker's thread and
// answers there (later steps over a listing already read answer at once),
// and resolvePathPart() reads only the directory the part names. Nothing is
// kept once the entries are released, so a walk holds the listings of the
// folders on its current path and no more.
//
// A listing: the directory's names in byte order (so positional paths "$N"
// stay stable), each with one fstatat relative to the directory's
// descriptor. Directories become folders; regular files leaves whose kind
// comes from the extension (kindOfFileName); symbolic links, unless
// followed, leaves that carry their target and are never descended.
// A record holds the name as caption, "UUID-<device>-<inode>" as identifier,
// size and modification time, and the locator "file://" + "/" + path built
// with mdcSelectionCreate, from the canonical root path (no ".", "..", "//").
//
// Left out and reported (ScanReport): entries the permission bits do not let
// this process read, FIFOs, sockets and device nodes (never opened), entries
// that vanish between the listing and their stat, dangling links (when
// following), and with --follow a link back to one of its own ancestors.
//
// Directories are opened with openat() from their parent's descriptor, so
// no path length limit applies; a bounded number of descriptors stays open
// and an evicted one is opened again from the nearest open ancestor, checked
// against the device and inode seen when it was listed.
//
// Thread-safety: entries and the report may be used from any thread; an
// iterator, as every ma::VfsIterator, from one thread at a time.
#ifndef MA_CLI_DIRECTORY_VFS_H_
#define MA_CLI_DIRECTORY_VFS_H_

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

#include "ma/mdc_vfs_base.h"

namespace ma_cli {

// How a directory tree is walked.
struct ScanSettings {
  bool follow = false;          // follow symbolic links (as find -L)
  bool oneFileSystem = false;   // do not read directories on another device
  bool showProgress = false;    // a progress line on stderr (callers: only on a terminal)
};

// An entry left out, and why.
struct SkippedEntry {
  std::string path;    // file system path
  std::string reason;  // e.g. "not readable", "vanished before it could be read"
};

// What a scan left out. Each entry is reported on stderr as it is found
// (one escaped line) and kept for --json.
class ScanReport {
 public:
  explicit ScanReport(bool showProgress) : showProgress_(showProgress) {}
  ScanReport(ScanReport const&) = delete;
  ScanReport& operator=(ScanReport const&) = delete;
  // Erases the progress line.
  ~ScanReport();

  void skip(std::string const& path, std::string const& reason);
  // Counts `count` entries listed (for the progress line).
  void listed(std::size_t count);
  std::vector<SkippedEntry> skipped() const;

 private:
  mutable std::mutex mutex_;
  bool const showProgress_;
  std::size_t listed_ = 0;
  std::vector<SkippedEntry> skipped_;
};

// An entry that knows its own positional path ("$2$0"; "" for the root).
class Positioned {
 public:
  virtual ~Positioned() {}
  virtual std::string const& positionalPath() const = 0;
};

// The root folder of directory `path`, its caption the last part of the
// canonical path ("/" for the root directory). Throws InputError when
// `path` is missing, not a directory or cannot be read.
boost::shared_ptr<ma::VfsEntry> openDirectoryTree(std::string const& path, ScanSettings const& settings,
                                                  boost::shared_ptr<ScanReport> const& report);

// How many entries the scans of this run have skipped so far.
std::size_t entriesSkippedThisRun();

// The target of `entry` if it is a symbolic link left unfollowed, else "".
std::string linkTargetOf(ma::VfsEntry& entry);

// Whether `entry` is a folder of a directory tree.
bool isDirectoryFolder(ma::VfsEntry& entry);

// The iterator of getSortedIterator(criteria) over the children of folder
// `entry` of a directory tree (the library's sort over one listing).
boost::shared_ptr<ma::VfsIterator> sortedDirectoryIterator(ma::VfsEntry& entry,
                                                           std::string const& criteria);

}  // namespace ma_cli

#endif  // MA_CLI_DIRECTORY_VFS_H_
