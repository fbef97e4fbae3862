// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Heap bytes per leaf of a fixed folder: the leaf entry, its video record
// (facade and field store) and the shared owners' control blocks, counted
// from the allocations themselves and printed beside the sizeof of each
// part. Runs on the host and, under qemu, on the ARM target.
//
// It also checks that a leaf costs no allocation beyond those parts: making
// a leaf takes exactly five (record facade, field store, entry, two control
// blocks) and adding leaves to a folder allocates only when the children
// list grows, never once per leaf. Exit status 1 when that does not hold.
#include <cstdio>
#include <cstdlib>
#include <new>
#include <vector>

#include "ma/mdc_item.h"
#include "ma/mdc_vfs_fixed.h"

namespace {

// Allocations counted while `counting` is set.
bool counting = false;
long allocations = 0;
long bytes = 0;

void* allocate(std::size_t size) {
  if (counting) {
    ++allocations;
    bytes += static_cast<long>(size);
  }
  void* block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

struct Count {
  long allocations;
  long bytes;
};

template <typename Work>
Count counted(Work work) {
  allocations = 0;
  bytes = 0;
  counting = true;
  work();
  counting = false;
  return {allocations, bytes};
}

typedef boost::shared_ptr<ma::VfsEntry> EntryPtr;
typedef boost::shared_ptr<ma::ItemInfo> ItemPtr;

EntryPtr makeLeaf(long i) {
  ItemPtr item(new ma::VideoItemInfo("caption", "uuid"));
  item->setDateNumeric(i);
  return EntryPtr(new ma::VfsFixedEntry(item, boost::shared_ptr<ma::VfsUserData>()));
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }

int main() {
  constexpr long kLeaves = 1000;
  std::vector<EntryPtr> leaves;
  leaves.reserve(kLeaves);
  const Count made = counted([&] {
    for (long i = 0; i < kLeaves; ++i) leaves.push_back(makeLeaf(i));
  });
  boost::shared_ptr<ma::VfsFixedFolder> folder(
      new ma::VfsFixedFolder(ItemPtr(new ma::FolderItemInfo("folder", "folder"))));
  const Count added = counted([&] {
    for (EntryPtr const& leaf : leaves) folder->addEntry(leaf);
  });

  std::printf("target: %u-bit\n", static_cast<unsigned>(sizeof(void*) * 8));
  std::printf("sizeof VfsFixedEntry: %zu\n", sizeof(ma::VfsFixedEntry));
  std::printf("sizeof VideoItemInfo: %zu\n", sizeof(ma::VideoItemInfo));
  std::printf("sizeof VideoItemImpl: %zu\n", sizeof(ma::VideoItemInfo::VideoItemImpl));
  std::printf("sizeof child pointer: %zu\n", sizeof(EntryPtr));
  std::printf("allocations per leaf made: %.2f\n", static_cast<double>(made.allocations) / kLeaves);
  std::printf("heap bytes per leaf made: %.1f\n", static_cast<double>(made.bytes) / kLeaves);
  std::printf("allocations per leaf added: %.3f\n", static_cast<double>(added.allocations) / kLeaves);
  std::printf("heap bytes per leaf added: %.1f\n", static_cast<double>(added.bytes) / kLeaves);

  int status = 0;
  if (made.allocations != 5 * kLeaves) {
    std::printf("FAILED: a leaf takes %ld allocations, expected 5\n", made.allocations / kLeaves);
    status = 1;
  }
  if (added.allocations > 12) {  // list growth by doubling: about log2(1000)
    std::printf("FAILED: adding %ld leaves took %ld allocations\n", kLeaves, added.allocations);
    status = 1;
  }
  return status;
}
