// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Lookup by identifier: the first direct child with the identifier, found
// through the entry's criteria iterator.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ma/mdc_vfs_base.h"
#include "ma_test/trace_capture.h"
#include "vfs_test_support.h"

namespace {

using testing::ElementsAre;
using vfs_test::BrowsableEntry;
using vfs_test::EntryPtr;
using vfs_test::located;
using vfs_test::makeBareLeaf;
using vfs_test::makeFolder;
using vfs_test::makeItem;
using vfs_test::makeLeaf;

typedef boost::shared_ptr<BrowsableEntry> BrowsablePtr;

constexpr unsigned int kVfsCalls = 24580000;

std::string lookupLine(int line, std::string const& text) {
  return located("mdc_vfs_base.cpp", line, "findUuid", text);
}
const std::string kHaveIterator = lookupLine(291, "We have an iterator.\n");
const std::string kGotIterator = lookupLine(313, "We got the iterator.\n");
const std::string kNoChild = lookupLine(317, "No current child.\n");
std::string checking(std::string const& candidate, std::string const& wanted) {
  return lookupLine(325, "Checking cand uuid \"" + candidate + "\" against \"" + wanted + "\".\n");
}
std::string matched(std::string const& candidate, std::string const& wanted) {
  return lookupLine(329,
                    "Found match cand uuid \"" + candidate + "\" against \"" + wanted + "\".\n");
}

// The trace lines of the lookup itself, without the bridge's and the
// iterator's own lines.
std::vector<std::string> lookupLines(ma_test::TraceCapture const& capture) {
  std::vector<std::string> lines;
  for (const zel_standin::TraceLine& line : capture.lines()) {
    if (line.text.find(":findUuid(): ") != std::string::npos) {
      EXPECT_EQ(kVfsCalls, line.category) << line.text;
      lines.push_back(line.text);
    }
  }
  return lines;
}

BrowsablePtr browsableOf(std::vector<EntryPtr> const& children) {
  BrowsablePtr entry(new BrowsableEntry(makeItem("parent", "P")));
  for (const EntryPtr& child : children) entry->add(child);
  return entry;
}

TEST(VfsLookupTest, LeafHasNoIteratorSoTheResultIsEmptyWithoutTrace) {
  EntryPtr leaf = makeLeaf("leaf", "L");
  ma_test::TraceCapture capture;
  EXPECT_FALSE(leaf->findUuid("L"));
  EXPECT_TRUE(capture.texts().empty());
}

TEST(VfsLookupTest, OfThreeChildrenABBTheSecondIsFound) {
  EntryPtr a = makeLeaf("a", "A");
  EntryPtr b1 = makeLeaf("b1", "B");
  EntryPtr b2 = makeLeaf("b2", "B");
  BrowsablePtr parent = browsableOf({a, b1, b2});
  ma_test::TraceCapture capture;
  EXPECT_EQ(b1, parent->findUuid("B"));
  EXPECT_THAT(lookupLines(capture), ElementsAre(kHaveIterator, kGotIterator, checking("A", "B"),
                                                checking("B", "B"), matched("B", "B")));
}

TEST(VfsLookupTest, IdentifierDifferingInLetterCaseDoesNotMatch) {
  BrowsablePtr parent = browsableOf({makeLeaf("a", "abc")});
  ma_test::TraceCapture capture;
  EXPECT_FALSE(parent->findUuid("ABC"));
  EXPECT_THAT(lookupLines(capture),
              ElementsAre(kHaveIterator, kGotIterator, checking("abc", "ABC"), kNoChild));
}

TEST(VfsLookupTest, IdentifiersCompareExactlyWithoutTrimmingOrPrefixes) {
  BrowsablePtr parent = browsableOf({makeLeaf("a", "B "), makeLeaf("b", "BB"), makeLeaf("c", "")});
  EXPECT_FALSE(parent->findUuid("B"));
  EXPECT_EQ("c", vfs_test::captionOf(parent->findUuid("")));
  EXPECT_EQ("a", vfs_test::captionOf(parent->findUuid("B ")));
}

TEST(VfsLookupTest, ChildWithoutItemIsPassedOverSilentlyAndTheSearchGoesOn) {
  EntryPtr wanted = makeLeaf("w", "W");
  BrowsablePtr parent = browsableOf({makeBareLeaf(), wanted});
  ma_test::TraceCapture capture;
  EXPECT_EQ(wanted, parent->findUuid("W"));
  EXPECT_THAT(lookupLines(capture),
              ElementsAre(kHaveIterator, kGotIterator, checking("W", "W"), matched("W", "W")));
}

TEST(VfsLookupTest, EmptyFolderTracesIteratorLinesAndNoCurrentChild) {
  BrowsablePtr parent = browsableOf({});
  ma_test::TraceCapture capture;
  EXPECT_FALSE(parent->findUuid("X"));
  EXPECT_THAT(lookupLines(capture), ElementsAre(kHaveIterator, kGotIterator, kNoChild));
}

TEST(VfsLookupTest, NoMatchChecksEveryChildThenReportsNoCurrentChild) {
  BrowsablePtr parent = browsableOf({makeLeaf("a", "1"), makeLeaf("b", "2")});
  ma_test::TraceCapture capture;
  EXPECT_FALSE(parent->findUuid("3"));
  EXPECT_THAT(lookupLines(capture), ElementsAre(kHaveIterator, kGotIterator, checking("1", "3"),
                                                checking("2", "3"), kNoChild));
}

TEST(VfsLookupTest, WalksWithTheSynchronousCurrentChildAndAdvance) {
  BrowsablePtr parent = browsableOf({makeLeaf("a", "1"), makeLeaf("b", "2")});
  ma_test::TraceCapture capture;
  parent->findUuid("2");
  std::vector<std::string> iteratorCalls;
  for (const std::string& text : capture.texts()) {
    if (text.find("mdc_vfs_fixed.cpp:") == 0) iteratorCalls.push_back(text);
  }
  const std::string file = "mdc_vfs_fixed.cpp";
  EXPECT_THAT(iteratorCalls, ElementsAre(located(file, 94, "getCurrentChild", "Called.\n"),
                                         located(file, 71, "advance", "Called.\n"),
                                         located(file, 94, "getCurrentChild", "Called.\n")));
}

TEST(VfsLookupTest, EntryThatClaimsAnIteratorButGivesNoneFindsNothing) {
  BrowsablePtr parent(new BrowsableEntry(makeItem("p"), false));
  parent->add(makeLeaf("a", "A"));
  ma_test::TraceCapture capture;
  EXPECT_FALSE(parent->findUuid("A"));
  EXPECT_THAT(capture.texts(), ElementsAre(kHaveIterator));
}

TEST(VfsLookupTest, FixedFolderGivesNoCriteriaIteratorSoFindsNothing) {
  vfs_test::FolderPtr folder = vfs_test::makeFolderOf({"a"});
  ma_test::TraceCapture capture;
  EXPECT_FALSE(folder->findUuid("u0"));
  EXPECT_THAT(capture.texts(), ElementsAre(kHaveIterator));
}

TEST(VfsLookupTest, QueryableFixedFolderFindsItsDirectChild) {
  boost::shared_ptr<vfs_test::QueryableFolder> folder(new vfs_test::QueryableFolder);
  EntryPtr child = makeLeaf("c", "C");
  folder->addEntry(makeLeaf("b", "B"));
  folder->addEntry(child);
  EXPECT_EQ(child, folder->findUuid("C"));
}

TEST(VfsLookupTest, SubFoldersAreNotSearched) {
  BrowsablePtr sub = browsableOf({makeLeaf("deep", "D")});
  BrowsablePtr parent = browsableOf({sub});
  EXPECT_FALSE(parent->findUuid("D"));
  EXPECT_EQ(sub, parent->findUuid("P"));  // the sub-folder's own identifier
}

TEST(VfsLookupTest, EmptyChildPointerLooksLikeTheEndAndStopsTheSearch) {
  BrowsablePtr parent = browsableOf({makeLeaf("a", "A"), EntryPtr(), makeLeaf("b", "B")});
  ma_test::TraceCapture capture;
  EXPECT_FALSE(parent->findUuid("B"));
  EXPECT_THAT(lookupLines(capture),
              ElementsAre(kHaveIterator, kGotIterator, checking("A", "B"), kNoChild));
}

}  // namespace
