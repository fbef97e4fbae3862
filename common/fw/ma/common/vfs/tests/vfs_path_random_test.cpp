// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Random trees and random paths, resolved by the library and by a small
// reference resolver written here from the rules of path resolution; the
// two must agree on result, resolved path and parent.
#include <errno.h>
#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "ma/mdc_vfs_fixed.h"
#include "vfs_test_support.h"
#include "zel/zel_standin.h"

namespace {

using vfs_test::BrowsableEntry;
using vfs_test::EntryPtr;
using vfs_test::makeBareLeaf;
using vfs_test::makeItem;
using vfs_test::makeLeaf;
using vfs_test::QueryableFolder;

const int kPathNotResolved = -2;
const unsigned int kVfsModule = 375;

// How an entry of the random tree resolves a part and finds an identifier.
enum class Kind {
  kLeaf,       // base step, no children
  kFixed,      // base step, then the index syntax; finds no identifier
  kQueryable,  // like kFixed, but finds identifiers among its children
  kBrowsable,  // base step only; finds identifiers among its children
};

struct Node {
  Kind kind;
  std::vector<EntryPtr> children;  // as added, empty pointers included
};

// The reference resolver over a tree whose shape it was told while the
// tree was built (it never asks the library for a folder's children).
class Reference {
 public:
  void add(EntryPtr const& entry, Kind kind) { m_nodes[entry.get()] = Node{kind, {}}; }
  void addChild(EntryPtr const& folder, EntryPtr const& child) {
    m_nodes[folder.get()].children.push_back(child);
  }

  // The five-argument resolvePath.
  int resolve(EntryPtr const& start, std::string const& path, EntryPtr& result,
              std::string& resultPath, EntryPtr& parent) const {
    if (path.empty()) {
      result = start;
      resultPath = "";
      parent.reset();
      return 0;
    }
    EntryPtr current = start;
    std::string remaining = path;
    std::string resolved;
    std::string parentPath;
    for (;;) {
      EntryPtr child;
      std::string rest;
      if (!step(current, remaining, resolved, child, rest) || !child) return kPathNotResolved;
      if (rest.empty()) {
        result = child;
        resultPath = parentPath;
        parent = current;
        return 0;
      }
      parent = current;
      current = child;
      remaining = rest;
      parentPath = resolved;
    }
  }

 private:
  // A 32-bit strtol in base 10, written out: blanks, a sign, digits.
  struct Number {
    bool digits = false;    // at least one digit read
    bool overflow = false;  // outside the 32-bit range
    long long value = 0;
    std::size_t consumed = 0;
  };

  static Number parse(std::string const& text) {
    Number number;
    std::size_t i = text.find_first_not_of(" \t\n\v\f\r");
    if (i == std::string::npos) return number;
    const bool negative = text[i] == '-';
    if (text[i] == '+' || text[i] == '-') ++i;
    long long magnitude = 0;
    const long long limit = negative ? 2147483648LL : 2147483647LL;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9') {
      number.digits = true;
      magnitude = magnitude * 10 + (text[i] - '0');
      if (magnitude > limit) {
        number.overflow = true;
        magnitude = limit;
      }
      ++i;
    }
    if (!number.digits) return number;
    number.value = negative ? -magnitude : magnitude;
    number.consumed = i;
    return number;
  }

  static bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

  EntryPtr findUuid(EntryPtr const& entry, std::string const& uuid) const {
    const Node& node = m_nodes.at(entry.get());
    if (node.kind != Kind::kQueryable && node.kind != Kind::kBrowsable) return EntryPtr();
    for (const EntryPtr& child : node.children) {
      if (!child) return EntryPtr();  // reads as the end of the children
      vfs_test::ItemPtr item = child->getItemInfo();
      if (item && item->getUUID() == uuid) return child;
    }
    return EntryPtr();
  }

  // One step; false on failure.
  bool step(EntryPtr const& entry, std::string const& path, std::string& resolved, EntryPtr& child,
            std::string& rest) const {
    if (path.empty()) {
      child = entry;
      return true;
    }
    if (isLetter(path[0]) && path.compare(0, 4, "UUID") == 0) {
      child = findUuid(entry, path);
      if (child) return true;
    }
    const Node& node = m_nodes.at(entry.get());
    if (node.kind != Kind::kFixed && node.kind != Kind::kQueryable) return false;
    const std::string part = path[0] == '$' ? path.substr(1) : path;
    const std::size_t separator = part.find('$');
    const std::string index = part.substr(0, separator);
    if (index.empty()) return false;
    const Number number = parse(index);
    if (number.overflow || !number.digits) return false;
    resolved += "$" + index.substr(0, number.consumed);
    if (number.value < 0 || number.value >= static_cast<long long>(node.children.size())) {
      return false;
    }
    child = node.children[static_cast<std::size_t>(number.value)];
    rest = separator == std::string::npos ? "" : part.substr(separator + 1);
    return true;
  }

  std::map<ma::VfsEntry*, Node> m_nodes;
};

// Builds random trees: repeated identifiers (some of them "UUID..."),
// empty captions, leaves without item, empty child pointers, entries that
// sit in several folders, sub-folders of every kind.
class TreeBuilder {
 public:
  TreeBuilder(std::mt19937& random, Reference& reference)
      : m_random(random), m_reference(reference) {}

  EntryPtr folder(int depth) {
    const Kind kinds[] = {Kind::kFixed, Kind::kFixed, Kind::kQueryable, Kind::kBrowsable};
    const Kind kind = kinds[pick(4)];
    EntryPtr entry;
    boost::shared_ptr<ma::VfsFixedFolder> fixed;
    boost::shared_ptr<BrowsableEntry> browsable;
    if (kind == Kind::kBrowsable) {
      browsable.reset(new BrowsableEntry(makeItem(caption(), uuid())));
      entry = browsable;
    } else {
      fixed.reset(kind == Kind::kFixed ? new ma::VfsFixedFolder(makeItem(caption(), uuid()))
                                       : new QueryableFolder(caption(), uuid()));
      entry = fixed;
    }
    m_reference.add(entry, kind);
    const int count = pick(6);
    for (int i = 0; i < count; ++i) {
      EntryPtr child = anyChild(depth);
      if (fixed) fixed->addEntry(child);
      if (browsable) browsable->add(child);
      m_reference.addChild(entry, child);
    }
    m_built.push_back(entry);
    return entry;
  }

 private:
  int pick(int n) { return static_cast<int>(m_random() % static_cast<unsigned int>(n)); }

  std::string caption() {
    const char* captions[] = {"", "a", "b", " c "};
    return captions[pick(4)];
  }
  std::string uuid() {
    const char* uuids[] = {"UUID1", "UUID2", "UUID1", "UUID$0", "UUID", "u1", "1", ""};
    return uuids[pick(8)];
  }

  EntryPtr anyChild(int depth) {
    const int roll = pick(100);
    if (roll < 5) return EntryPtr();
    if (roll < 10) return leaf(makeBareLeaf());
    if (roll < 20 && !m_built.empty()) return m_built[pick(static_cast<int>(m_built.size()))];
    if (roll < 55 && depth < 3) return folder(depth + 1);
    return leaf(makeLeaf(caption(), uuid()));
  }

  EntryPtr leaf(EntryPtr const& entry) {
    m_reference.add(entry, Kind::kLeaf);
    m_built.push_back(entry);
    return entry;
  }

  std::mt19937& m_random;
  Reference& m_reference;
  std::vector<EntryPtr> m_built;  // finished entries, free to appear again
};

// A random path of up to four pieces from a vocabulary of index parts,
// separators, signs, blanks, letters, identifier queries and huge numbers.
std::string randomPath(std::mt19937& random) {
  const char* pieces[] = {
      "$0",          "$1",         "$2",          "$3",    "$5",       "0",    "1",      "2",
      "$",           "$$",         "-1",          "+1",    " 2",       "\t0",  "$ +1",   "12abc",
      "1x",          "abc",        "x",           "UUID1", "UUID2",    "UUID", "UUID$0", "$UUID1",
      "99999999999", "2147483647", "-2147483648", "-0",    "\xc3\xa9", "",     "$-1"};
  const unsigned int count = sizeof pieces / sizeof pieces[0];
  std::string path;
  const unsigned int length = random() % 5;
  for (unsigned int i = 0; i < length; ++i) path += pieces[random() % count];
  return path;
}

class VfsPathRandomTest : public testing::Test {
 protected:
  // The many failure lines would only flood the output.
  void SetUp() override { zel_standin::setThreshold(kVfsModule, 0); }
  void TearDown() override { zel_standin::resetThresholds(); }
};

TEST_F(VfsPathRandomTest, LibraryAndReferenceResolverAgreeOnRandomTreesAndPaths) {
  std::mt19937 random(7130);
  const int kTrees = 40;
  const int kPathsPerTree = 150;
  int resolved = 0;
  for (int tree = 0; tree < kTrees; ++tree) {
    Reference reference;
    TreeBuilder builder(random, reference);
    const EntryPtr root = builder.folder(0);
    for (int i = 0; i < kPathsPerTree; ++i) {
      const std::string path = randomPath(random);
      const EntryPtr sentinel = makeLeaf("sentinel");
      EntryPtr expectedResult = sentinel;
      EntryPtr expectedParent = sentinel;
      std::string expectedPath = "sentinel";
      const int expected =
          reference.resolve(root, path, expectedResult, expectedPath, expectedParent);

      EntryPtr result = sentinel;
      EntryPtr parent = sentinel;
      std::string resultPath = "sentinel";
      errno = 0;
      const int actual = root->resolvePath(result, resultPath, parent, path, "");

      const std::string where = "tree " + std::to_string(tree) + " path \"" + path + "\"";
      ASSERT_EQ(expected, actual) << where;
      ASSERT_EQ(expectedResult, result) << where;
      ASSERT_EQ(expectedPath, resultPath) << where;
      ASSERT_EQ(expectedParent, parent) << where;
      errno = 0;
      ASSERT_EQ(expected == 0 ? expectedResult : EntryPtr(), root->resolvePath(path)) << where;
      if (expected == 0) ++resolved;
    }
  }
  // The vocabulary must reach both outcomes often enough to mean something.
  EXPECT_GT(resolved, kTrees * kPathsPerTree / 10);
  EXPECT_LT(resolved, kTrees * kPathsPerTree * 9 / 10);
}

}  // namespace
