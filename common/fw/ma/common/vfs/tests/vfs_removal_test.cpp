// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Removing children from a fixed folder: by caption, by identifier, all.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>
#include <vector>

#include "ma/mdc_vfs_fixed.h"
#include "ma_test/trace_capture.h"
#include "vfs_test_support.h"

namespace {

using testing::ElementsAre;
using vfs_test::childCaptions;
using vfs_test::EntryPtr;
using vfs_test::FolderPtr;
using vfs_test::IsLocated;
using vfs_test::LockWitness;
using vfs_test::makeFolder;
using vfs_test::makeFolderOf;
using vfs_test::makeItem;
using vfs_test::makeLeaf;
using vfs_test::ProbeFolder;

constexpr unsigned int kVfsCalls = 24580000;

testing::Matcher<std::string> removalLine(std::string const& text) {
  return IsLocated("mdc_vfs_fixed.cpp", "removeEntryByUUID", text);
}

// A folder of leaves with the given identifiers, captioned "c" + identifier.
FolderPtr folderWithIds(std::vector<std::string> const& uuids) {
  FolderPtr folder = makeFolder();
  for (const std::string& uuid : uuids) folder->addEntry(makeLeaf("c" + uuid, uuid));
  return folder;
}

std::vector<std::string> childIds(FolderPtr const& folder) {
  std::vector<std::string> ids;
  boost::shared_ptr<ma::VfsIterator> iterator = folder->getIterator();
  for (EntryPtr child = iterator->getCurrentChild(); child; child = iterator->getCurrentChild()) {
    ids.push_back(child->getItemInfo()->getUUID());
    iterator->advance();
  }
  return ids;
}

TEST(VfsRemovalTest, RemovingFromAnEmptyFolderReturnsZeroAndTracesOnlyTheFirstTwoLines) {
  FolderPtr folder = makeFolder();
  EntryPtr entry = makeLeaf("x", "X");
  EXPECT_EQ(0, folder->removeEntry(entry));
  ma_test::TraceCapture capture;
  EXPECT_EQ(0, folder->removeEntryByUUID(entry));
  EXPECT_THAT(capture.texts(),
              ElementsAre(removalLine("Called.\n"), removalLine("Attempting to remove: 'X'.\n")));
  for (const zel_standin::TraceLine& line : capture.lines()) {
    EXPECT_EQ(kVfsCalls, line.category) << line.text;
  }
  EXPECT_EQ(0, folder->removeAllEntries());
}

TEST(VfsRemovalTest, RemoveEntryRemovesOnlyTheFirstChildWithTheCaption) {
  FolderPtr folder = makeFolderOf({"a", "b", "a"});
  EXPECT_EQ(0, folder->removeEntry(makeLeaf("a")));
  EXPECT_THAT(childCaptions(*folder), ElementsAre("b", "a"));
  EXPECT_THAT(childIds(folder), ElementsAre("u1", "u2"));
}

TEST(VfsRemovalTest, RemoveEntryMatchesByCaptionNotByIdentity) {
  FolderPtr folder = makeFolderOf({"x", "y", "z"});
  EntryPtr stranger = makeLeaf("y", "not a child");
  EXPECT_EQ(0, folder->removeEntry(stranger));
  EXPECT_THAT(childCaptions(*folder), ElementsAre("x", "z"));
}

TEST(VfsRemovalTest, RemoveEntryWithoutMatchLeavesTheListAndWritesNoTrace) {
  FolderPtr folder = makeFolderOf({"a", "b"});
  ma_test::TraceCapture capture;
  EXPECT_EQ(0, folder->removeEntry(makeLeaf("A")));
  EXPECT_EQ(0, folder->removeEntry(makeLeaf("a ")));
  EXPECT_THAT(childCaptions(*folder), ElementsAre("a", "b"));
  std::vector<std::string> removalLines;
  for (const std::string& text : capture.texts()) {
    if (text.find("remove") != std::string::npos) removalLines.push_back(text);
  }
  EXPECT_TRUE(removalLines.empty());
}

TEST(VfsRemovalTest, RemovalKeepsTheOrderOfTheRest) {
  FolderPtr folder = makeFolderOf({"a", "b", "c", "d", "e"});
  folder->removeEntry(makeLeaf("c"));
  folder->removeEntryByUUID(makeLeaf("", "u0"));
  folder->removeEntry(makeLeaf("e"));
  EXPECT_THAT(childCaptions(*folder), ElementsAre("b", "d"));
}

TEST(VfsRemovalTest, RemoveByUuidOverOneTwoThreeAskingThreeTracesTwoTraversalsAndTheRemoval) {
  FolderPtr folder = folderWithIds({"1", "2", "3"});
  ma_test::TraceCapture capture;
  EXPECT_EQ(0, folder->removeEntryByUUID(makeLeaf("other caption", "3")));
  EXPECT_THAT(
      capture.texts(),
      ElementsAre(removalLine("Called.\n"), removalLine("Attempting to remove: '3'.\n"),
                  removalLine("Traversing: 'c1' '1'.\n"), removalLine("Traversing: 'c2' '2'.\n"),
                  removalLine("Removing: 'c3' '3'.\n")));
  for (const zel_standin::TraceLine& line : capture.lines()) {
    EXPECT_EQ(kVfsCalls, line.category) << line.text;
  }
  EXPECT_THAT(childIds(folder), ElementsAre("1", "2"));
}

TEST(VfsRemovalTest, RemoveByUuidRemovesOnlyTheFirstMatch) {
  FolderPtr folder = folderWithIds({"1", "2", "1"});
  ma_test::TraceCapture capture;
  folder->removeEntryByUUID(makeLeaf("", "1"));
  EXPECT_THAT(capture.texts(),
              ElementsAre(removalLine("Called.\n"), removalLine("Attempting to remove: '1'.\n"),
                          removalLine("Removing: 'c1' '1'.\n")));
  EXPECT_THAT(childIds(folder), ElementsAre("2", "1"));
}

TEST(VfsRemovalTest, RemoveByUuidWithoutMatchTraversesEveryChildAndKeepsThem) {
  FolderPtr folder = folderWithIds({"1", "2"});
  ma_test::TraceCapture capture;
  EXPECT_EQ(0, folder->removeEntryByUUID(makeLeaf("c1", "9")));
  EXPECT_THAT(
      capture.texts(),
      ElementsAre(removalLine("Called.\n"), removalLine("Attempting to remove: '9'.\n"),
                  removalLine("Traversing: 'c1' '1'.\n"), removalLine("Traversing: 'c2' '2'.\n")));
  EXPECT_THAT(childIds(folder), ElementsAre("1", "2"));
}

TEST(VfsRemovalTest, RemovalTracesPrintTextsAsTheyAre) {
  FolderPtr folder = makeFolder();
  folder->addEntry(makeLeaf(" it's ", "a b"));
  ma_test::TraceCapture capture;
  folder->removeEntryByUUID(makeLeaf("", "a b"));
  EXPECT_THAT(capture.texts().back(), removalLine("Removing: ' it's ' 'a b'.\n"));
}

TEST(VfsRemovalTest, AfterRemoveAllEntriesANewIteratorCountsZeroAndFindEntryFindsNothing) {
  FolderPtr folder = makeFolderOf({"a", "b", "c"});
  EXPECT_EQ(0, folder->removeAllEntries());
  EXPECT_EQ(0, folder->getIterator()->getNTotal());
  EXPECT_FALSE(folder->findEntry("a"));
  EXPECT_FALSE(folder->findEntrybyUUID("u0"));
  folder->addEntry(makeLeaf("new"));
  EXPECT_THAT(childCaptions(*folder), ElementsAre("new"));
}

TEST(VfsRemovalTest, RemoveAllEntriesReleasesTheChildrenNobodyElseHolds) {
  FolderPtr folder = makeFolder();
  EntryPtr kept = makeLeaf("kept");
  boost::weak_ptr<ma::VfsEntry> dropped;
  {
    EntryPtr other = makeLeaf("dropped");
    dropped = other;
    folder->addEntry(other);
  }
  folder->addEntry(kept);
  folder->removeAllEntries();
  EXPECT_TRUE(dropped.expired());
  EXPECT_EQ(1, kept.use_count());
}

TEST(VfsRemovalTest, ChildHeldElsewhereSurvivesItsRemovalAndCanBeAddedAgain) {
  FolderPtr folder = makeFolderOf({"a", "b"});
  EntryPtr held = folder->findEntry("b");
  folder->removeEntry(held);
  EXPECT_FALSE(folder->findEntry("b"));
  EXPECT_EQ(1, held.use_count());
  EXPECT_EQ("b", held->getItemInfo()->getCaption());
  folder->addEntry(held);
  EXPECT_EQ(held, folder->findEntry("b"));

  folder->removeEntryByUUID(held);
  EXPECT_EQ(1, held.use_count());
  folder->addEntry(held);
  EXPECT_THAT(childCaptions(*folder), ElementsAre("a", "b"));
}

TEST(VfsRemovalTest, FolderThatContainsItselfIsFreedOnceItRemovesItself) {
  boost::weak_ptr<ma::VfsFixedFolder> watch;
  {
    FolderPtr folder = makeFolder();
    watch = folder;
    EXPECT_EQ(0, folder->addEntry(folder));
    boost::shared_ptr<ma::VfsIterator> iterator = folder->getIterator();
    EXPECT_EQ(folder, iterator->getCurrentChild());
    iterator.reset();
    folder->removeAllEntries();
  }
  EXPECT_TRUE(watch.expired());
}

TEST(VfsRemovalTest, RemovalsHoldTheFolderLockWhileReadingTheChildren) {
  boost::shared_ptr<ProbeFolder> folder(new ProbeFolder);
  boost::shared_ptr<LockWitness> witness(new LockWitness("w", folder));
  folder->addEntry(witness);
  folder->addEntry(makeLeaf("x", "x"));
  folder->removeEntry(makeLeaf("x"));
  folder->removeEntryByUUID(makeLeaf("", "nothing"));
  EXPECT_THAT(witness->locked, ElementsAre(true, true));
  EXPECT_FALSE(folder->isLocked());
  folder->removeAllEntries();
  EXPECT_FALSE(folder->isLocked());
}

}  // namespace
