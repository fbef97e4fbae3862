// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Path resolution ("$i$j...") of depth 1 to 8 in a tree of fan-out 1,000,
// beside its floor: parsing each index with strtol and indexing the child
// vector.
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "harness/bench_case.h"
#include "harness/bench_tree.h"

namespace {

constexpr long kFanOut = 1000;
constexpr int kPaths = 64;
const std::vector<long> kDepths = {1, 2, 4, 8};

// A tree `depth` levels deep in which every folder has kFanOut children: all
// children of a level are the same folder (a child may appear many times),
// so the tree holds depth * kFanOut child pointers.
struct Tree {
  std::vector<bench::FolderPtr> levels;  // levels[0] is the root
  std::vector<std::string> paths;        // kPaths paths to leaves
};

std::shared_ptr<Tree> treeOf(long depth) {
  auto tree = std::make_shared<Tree>();
  bench::FolderPtr below;
  for (long level = depth - 1; level >= 0; --level) {
    bench::FolderPtr folder(new bench::BrowsableFolder());
    for (long i = 0; i < kFanOut; ++i) {
      folder->addEntry(below ? bench::EntryPtr(below)
                             : bench::makeLeaf("leaf", bench::uuidOf(i), i));
    }
    tree->levels.insert(tree->levels.begin(), folder);
    below = folder;
  }
  std::mt19937 random(7);
  std::uniform_int_distribution<long> index(0, kFanOut - 1);
  for (int p = 0; p < kPaths; ++p) {
    std::string path;
    for (long level = 0; level < depth; ++level) path += "$" + std::to_string(index(random));
    tree->paths.push_back(path);
  }
  return tree;
}

long perLevel(long depth) { return depth * kPaths; }

const bench::Registration kPath([] {
  bench::addCase("path.resolve", "ours", kDepths, [](long depth) -> bench::Operation {
    std::shared_ptr<Tree> tree = treeOf(depth);
    return [tree] {
      for (std::string const& path : tree->paths) {
        bench::keep(tree->levels[0]->resolvePath(path).get());
      }
    };
  }, perLevel);
  // The floor: each index parsed with strtol (as the step must) and looked up
  // in the level's child vector.
  bench::addCase("path.resolve", "floor", kDepths, [](long depth) -> bench::Operation {
    std::shared_ptr<Tree> tree = treeOf(depth);
    auto children = std::make_shared<std::vector<ma::VfsFixedFolder::Children>>();
    for (bench::FolderPtr const& folder : tree->levels) {
      ma::VfsFixedFolder::Children level;
      boost::shared_ptr<ma::VfsIterator> iterator = folder->getIterator();
      for (bench::EntryPtr child = iterator->getCurrentChild(); child;
           child = iterator->getCurrentChild()) {
        level.push_back(child);
        iterator->advance();
      }
      children->push_back(level);
    }
    return [tree, children] {
      for (std::string const& path : tree->paths) {
        const char* at = path.c_str();
        bench::EntryPtr entry;
        for (ma::VfsFixedFolder::Children const& level : *children) {
          char* end = nullptr;
          const long index = std::strtol(at + 1, &end, 10);
          if (end == at + 1 || index < 0 || index >= static_cast<long>(level.size())) break;
          entry = level[static_cast<std::size_t>(index)];
          at = end;
        }
        bench::keep(entry.get());
      }
    };
  }, perLevel);
});

}  // namespace
