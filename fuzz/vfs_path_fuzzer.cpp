// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Path resolution through a fixed tree on arbitrary input.
//
// The first bytes shape a small tree (how many children each folder has,
// which of them are folders); the rest is the path. Resolution must not
// fail in any other way than an empty result, and must agree with a walk
// that follows the "$<index>" parts by hand: the same entry for a path made
// only of such parts, and no entry where a part's index is out of range.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "ma/mdc_vfs_fixed.h"
#include "zel/zel_standin.h"

namespace {

typedef boost::shared_ptr<ma::VfsEntry> EntryPtr;
typedef boost::shared_ptr<ma::VfsFixedFolder> FolderPtr;

void check(bool condition) {
  if (!condition) std::abort();
}

FolderPtr newFolder(const std::string& caption) {
  return FolderPtr(new ma::VfsFixedFolder(
      boost::shared_ptr<ma::ItemInfo>(new ma::FolderItemInfo(caption, "UUID-" + caption))));
}

// Builds up to three levels; consumes one byte per folder.
void grow(const FolderPtr& folder, const std::string& name, const std::uint8_t*& data,
          std::size_t& size, int depth) {
  if (size == 0) return;
  const std::uint8_t shape = *data++;
  --size;
  const int children = shape & 0x7;
  for (int i = 0; i < children; ++i) {
    const std::string caption = name + "." + std::to_string(i);
    if (depth < 3 && (shape >> (3 + i % 5)) & 1) {
      FolderPtr sub = newFolder(caption);
      grow(sub, caption, data, size, depth + 1);
      folder->addEntry(sub);
    } else {
      folder->addEntry(EntryPtr(new ma::VfsFixedEntry(
          boost::shared_ptr<ma::ItemInfo>(new ma::MusicItemInfo(caption, "UUID-" + caption)),
          boost::shared_ptr<ma::VfsUserData>())));
    }
  }
}

// The entry a path of plain "$<digits>" parts names, walked by hand; sets
// `plain` to false when the path has any other shape.
EntryPtr walkPlainPath(const FolderPtr& root, const std::string& path, bool& plain) {
  plain = true;
  EntryPtr current = root;
  std::size_t at = 0;
  while (at < path.size()) {
    if (path[at] != '$' || at + 1 >= path.size()) return plain = false, EntryPtr();
    std::size_t end = at + 1;
    while (end < path.size() && path[end] >= '0' && path[end] <= '9') ++end;
    if (end == at + 1 || end - at > 6 || (end < path.size() && path[end] != '$')) {
      return plain = false, EntryPtr();
    }
    const unsigned long index = std::strtoul(path.substr(at + 1, end - at - 1).c_str(), nullptr, 10);
    auto* folder = dynamic_cast<ma::VfsFixedFolder*>(current.get());
    if (folder == nullptr) return plain = false, EntryPtr();  // a leaf's parts are another story
    auto iterator = folder->getIterator();
    if (index >= static_cast<unsigned long>(iterator->getNTotal())) return EntryPtr();
    iterator->seekTo(static_cast<int>(index));
    current = iterator->getCurrentChild();
    at = end;
  }
  return current;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool quiet = (zel_standin::setThreshold(375, 0), true);
  (void)quiet;
  const FolderPtr root = newFolder("root");
  grow(root, "root", data, size, 0);
  const std::string path(reinterpret_cast<const char*>(data), size);

  const EntryPtr found = root->resolvePath(path);
  EntryPtr result;
  EntryPtr parent;
  std::string resultPath = "untouched";
  const int status = root->resolvePath(result, resultPath, parent, path, "");
  check(status == 0 || status == -2);
  check((status == 0) == static_cast<bool>(found));
  if (status == 0) check(result == found);

  bool plain = false;
  const EntryPtr expected = walkPlainPath(root, path, plain);
  if (plain) check(expected == found);
  return 0;
}
