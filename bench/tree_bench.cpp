// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Building a folder: addEntry() of N leaves, each with a video record,
// beside the floor of making the same leaves and keeping them in a vector.
#include <memory>
#include <vector>

#include "harness/bench_case.h"
#include "harness/bench_tree.h"

namespace {

const std::vector<long> kSizes = {1000, 10000, 100000, 1000000};

long perLeaf(long leaves) { return leaves; }

const bench::Registration kTree([] {
  bench::addCase("tree.add_entry", "ours", kSizes, [](long n) -> bench::Operation {
    return [n] {
      bench::FolderPtr folder(new bench::BrowsableFolder());
      for (long i = 0; i < n; ++i) {
        folder->addEntry(bench::makeLeaf("caption of a leaf", "uuid", i));
      }
      bench::keep(folder.get());
    };
  }, perLeaf);
  bench::addCase("tree.add_entry", "floor", kSizes, [](long n) -> bench::Operation {
    return [n] {
      ma::VfsFixedFolder::Children children;
      for (long i = 0; i < n; ++i) children.push_back(bench::makeLeaf("caption of a leaf", "uuid", i));
      bench::keep(children.data());
    };
  }, perLeaf);
});

}  // namespace
