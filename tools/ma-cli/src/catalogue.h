// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// A catalogue: the tree the tool works on (the built-in sample, a fixed
// tree, or a directory read on demand), and the walks every command makes
// over it.
//
// Entries are named by their positional path, "$" and the child's index in
// its folder's list per level ("$2$0$1"); the root's path is "". A sorted
// view never changes these names: the index is always the list position,
// which is what path resolution reads.
//
// Thread-safety: a catalogue belongs to the tool's main thread (a directory
// tree answers some of its calls from the storage worker).
#ifndef MA_CLI_CATALOGUE_H_
#define MA_CLI_CATALOGUE_H_

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "directory_vfs.h"
#include "ma/mdc_vfs_fixed.h"

namespace ma_cli {

struct Catalogue {
  boost::shared_ptr<ma::VfsEntry> root;
  boost::shared_ptr<ScanReport> report;  // what a directory scan left out; empty for the sample
};

typedef std::vector<boost::shared_ptr<ma::VfsEntry> > EntryList;

// Every child `iterator` delivers, from its first (after a rewind) to the
// end, through the synchronous twins; empty for an empty pointer.
EntryList childrenThrough(boost::shared_ptr<ma::VfsIterator> const& iterator);

// The children of `entry` in list order, through its plain iterator and the
// synchronous twins; empty for a leaf.
EntryList childrenOf(ma::VfsEntry& entry);

// The children of folder `entry` in the order of getSortedIterator(criteria)
// (a fixed folder's, or the same over a directory's listing); empty for a
// leaf.
EntryList sortedChildrenOf(ma::VfsEntry& entry, std::string const& criteria);

// Whether `entry` is a folder (of the fixed tree or of a directory).
bool isFolder(boost::shared_ptr<ma::VfsEntry> const& entry);

// The positional path of `target` below `root`: what an entry of a
// directory tree knows of itself; in the fixed tree the first place where
// it sits (depth-first, list order). "" for the root itself; "?" if it is
// not in the tree.
std::string positionalPathOf(boost::shared_ptr<ma::VfsEntry> const& root,
                             boost::shared_ptr<ma::VfsEntry> const& target);

// The outcome of resolving a path with VfsEntry::resolvePath (the form
// with details).
struct Resolution {
  int result = 0;                              // 0, or -2 on failure
  boost::shared_ptr<ma::VfsEntry> entry;       // the entry named (on success)
  boost::shared_ptr<ma::VfsEntry> parent;      // see VfsEntry::resolvePath
  std::string resultPath;                      // the parent's resolved path text
  std::vector<std::string> trace;              // the library's trace lines
};

// Resolves `path` below `root`, recording the library's trace lines.
Resolution resolve(boost::shared_ptr<ma::VfsEntry> const& root, std::string const& path);

// Like resolve(), but a failure throws InputError naming the path and the
// library's explanation; the answer always has an entry.
Resolution resolveOrThrow(boost::shared_ptr<ma::VfsEntry> const& root,
                          std::string const& path);

}  // namespace ma_cli

#endif  // MA_CLI_CATALOGUE_H_
