// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Walks over a catalogue: children in list and sorted order, positional
// paths, path resolution with the library's trace.
#include "catalogue.h"

#include "errors.h"
#include "library_trace.h"
#include "text_output.h"

namespace ma_cli {

EntryList childrenThrough(boost::shared_ptr<ma::VfsIterator> const& iterator) {
  EntryList children;
  if (!iterator) return children;
  iterator->rewind();
  for (;;) {
    boost::shared_ptr<ma::VfsEntry> child = iterator->getCurrentChild();
    if (!child) break;
    children.push_back(child);
    iterator->advance();
  }
  return children;
}

namespace {

bool findPath(boost::shared_ptr<ma::VfsEntry> const& entry,
              boost::shared_ptr<ma::VfsEntry> const& target, std::string& path) {
  if (entry == target) return true;
  EntryList const children = childrenOf(*entry);
  for (std::size_t index = 0; index < children.size(); ++index) {
    std::size_t const length = path.size();
    path += "$" + std::to_string(index);
    if (findPath(children[index], target, path)) return true;
    path.resize(length);
  }
  return false;
}

}  // namespace

EntryList childrenOf(ma::VfsEntry& entry) {
  if (!entry.hasIterator()) return EntryList();
  return childrenThrough(entry.getIterator());
}

EntryList sortedChildrenOf(ma::VfsEntry& entry, std::string const& criteria) {
  if (ma::VfsFixedFolder* folder = dynamic_cast<ma::VfsFixedFolder*>(&entry)) {
    return childrenThrough(folder->getSortedIterator(criteria));
  }
  return childrenThrough(sortedDirectoryIterator(entry, criteria));
}

bool isFolder(boost::shared_ptr<ma::VfsEntry> const& entry) {
  return boost::dynamic_pointer_cast<ma::VfsFixedFolder>(entry) != nullptr || isDirectoryFolder(*entry);
}

std::string positionalPathOf(boost::shared_ptr<ma::VfsEntry> const& root,
                             boost::shared_ptr<ma::VfsEntry> const& target) {
  if (Positioned const* positioned = dynamic_cast<Positioned const*>(target.get())) {
    return positioned->positionalPath();
  }
  std::string path;
  return findPath(root, target, path) ? path : "?";
}

Resolution resolve(boost::shared_ptr<ma::VfsEntry> const& root, std::string const& path) {
  Resolution resolution;
  TraceRecording recording;
  resolution.result =
      root->resolvePath(resolution.entry, resolution.resultPath, resolution.parent, path, "");
  resolution.trace = recording.lines();
  if (resolution.result < 0) resolution.entry.reset();
  return resolution;
}

Resolution resolveOrThrow(boost::shared_ptr<ma::VfsEntry> const& root,
                          std::string const& path) {
  Resolution resolution = resolve(root, path);
  if (resolution.entry) return resolution;
  std::string message = "path " + quoted(path) + " does not resolve (result " +
                        std::to_string(resolution.result) + ")";
  // The library's failure lines say which step failed and why.
  for (std::string const& line : resolution.trace) {
    if (line.find("failed with currPath") == std::string::npos) message += ": " + clipped(line, 300);
  }
  throw InputError(message);
}

}  // namespace ma_cli
