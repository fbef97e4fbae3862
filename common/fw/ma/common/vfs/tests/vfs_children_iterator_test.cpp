// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// A fixed folder's children iterators: the cursor rules, immediate
// callbacks, trace lines, and misuse.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/bad_weak_ptr.hpp>
#include <string>
#include <vector>

#include "ma/mdc_vfs_fixed.h"
#include "ma_test/trace_capture.h"
#include "vfs_test_support.h"

namespace {

using testing::ElementsAre;
using vfs_test::captionOf;
using vfs_test::EntryPtr;
using vfs_test::FolderPtr;
using vfs_test::located;
using vfs_test::makeFolder;
using vfs_test::makeFolderOf;
using vfs_test::makeLeaf;
using vfs_test::ProbeFolder;
using vfs_test::remainingCaptions;

typedef boost::shared_ptr<ma::VfsIterator> IteratorPtr;
typedef ma::VfsFixedFolder::Children Children;

constexpr unsigned int kVfsCalls = 24580000;

std::string calledLine(int line, std::string const& function) {
  return located("mdc_vfs_fixed.cpp", line, function, "Called.\n");
}

// Records what an asynchronous callback received and whether it ran.
struct Received {
  int calls = 0;
  int number = -100;
  EntryPtr child;
  std::string path;

  ma::VfsIterator::IntCallback intCallback() {
    return [this](int value) {
      ++calls;
      number = value;
    };
  }
  ma::VfsIterator::EntryCallback entryCallback() {
    return [this](EntryPtr value) {
      ++calls;
      child = value;
    };
  }
  ma::VfsIterator::PathCallback pathCallback() {
    return [this](std::string value) {
      ++calls;
      path = value;
    };
  }
};

TEST(VfsChildrenIteratorTest, EmptyFolderCountsZeroAndHasNoCurrentChildAtOnce) {
  FolderPtr folder = makeFolder();
  IteratorPtr iterator = folder->getIterator();
  ASSERT_TRUE(iterator);
  EXPECT_EQ(0, iterator->getNTotal());
  EXPECT_FALSE(iterator->getCurrentChild());
}

TEST(VfsChildrenIteratorTest, ThreeChildrenAdvanceWalksThemAndTheThirdAdvanceReportsThree) {
  FolderPtr folder = makeFolderOf({"c0", "c1", "c2"});
  IteratorPtr iterator = folder->getIterator();
  EXPECT_EQ(3, iterator->getNTotal());
  EXPECT_EQ("c0", captionOf(iterator->getCurrentChild()));
  EXPECT_EQ(1, iterator->advance());
  EXPECT_EQ("c1", captionOf(iterator->getCurrentChild()));
  EXPECT_EQ(2, iterator->advance());
  EXPECT_EQ("c2", captionOf(iterator->getCurrentChild()));
  EXPECT_EQ(3, iterator->advance());
  EXPECT_FALSE(iterator->getCurrentChild());
}

TEST(VfsChildrenIteratorTest, SeekToBelowOneReportsZeroAndStandsOnTheFirstChild) {
  FolderPtr folder = makeFolderOf({"c0", "c1", "c2"});
  IteratorPtr iterator = folder->getIterator();
  iterator->advance();
  EXPECT_EQ(0, iterator->seekTo(-5));
  EXPECT_EQ("c0", captionOf(iterator->getCurrentChild()));
  EXPECT_EQ("$0", iterator->getCurrentChildPath(""));
  iterator->advance();
  EXPECT_EQ(0, iterator->seekTo(0));
  EXPECT_EQ("c0", captionOf(iterator->getCurrentChild()));
}

TEST(VfsChildrenIteratorTest, SeekToPositionReportsItAndStandsThere) {
  FolderPtr folder = makeFolderOf({"c0", "c1", "c2"});
  IteratorPtr iterator = folder->getIterator();
  EXPECT_EQ(2, iterator->seekTo(2));
  EXPECT_EQ("c2", captionOf(iterator->getCurrentChild()));
  EXPECT_EQ(1, iterator->seekTo(1));
  EXPECT_EQ("c1", captionOf(iterator->getCurrentChild()));
  EXPECT_EQ(3, iterator->seekTo(3));  // the end position
  EXPECT_FALSE(iterator->getCurrentChild());
}

TEST(VfsChildrenIteratorTest, RewindAfterMovementReportsZeroAndReturnsToTheFirstChild) {
  FolderPtr folder = makeFolderOf({"c0", "c1", "c2"});
  IteratorPtr iterator = folder->getIterator();
  iterator->seekTo(2);
  iterator->advance();
  EXPECT_EQ(0, iterator->rewind());
  EXPECT_EQ("c0", captionOf(iterator->getCurrentChild()));
  EXPECT_EQ("/a$0", iterator->getCurrentChildPath("/a"));
  EXPECT_EQ(1, iterator->advance());
}

TEST(VfsChildrenIteratorTest, ChildPathIsBaseDollarIndexAlsoPastTheEnd) {
  FolderPtr folder = makeFolderOf({"c0", "c1", "c2"});
  IteratorPtr iterator = folder->getIterator();
  EXPECT_EQ("/a$0", iterator->getCurrentChildPath("/a"));
  iterator->advance();
  EXPECT_EQ("$1", iterator->getCurrentChildPath(""));
  EXPECT_EQ("/media$1", iterator->getCurrentChildPath("/media"));
  iterator->seekTo(3);
  EXPECT_EQ("/a$3", iterator->getCurrentChildPath("/a"));
}

TEST(VfsChildrenIteratorTest, ChildPathNumbersLargePositionsInDecimal) {
  FolderPtr folder = makeFolder();
  IteratorPtr iterator = folder->getIterator();
  // Only the path is read here: the cursor stands far outside the range.
  iterator->seekTo(1234567);
  EXPECT_EQ("x$1234567", iterator->getCurrentChildPath("x"));
}

TEST(VfsChildrenIteratorTest, EveryCallbackRunsBeforeTheOperationReturns) {
  FolderPtr folder = makeFolderOf({"c0", "c1"});
  IteratorPtr iterator = folder->getIterator();
  Received received;
  iterator->getNTotal(received.intCallback());
  EXPECT_EQ(1, received.calls);
  EXPECT_EQ(2, received.number);
  iterator->advance(received.intCallback());
  EXPECT_EQ(2, received.calls);
  EXPECT_EQ(1, received.number);
  iterator->getCurrentChild(received.entryCallback());
  EXPECT_EQ(3, received.calls);
  EXPECT_EQ("c1", captionOf(received.child));
  iterator->getCurrentChildPath("/p", received.pathCallback());
  EXPECT_EQ(4, received.calls);
  EXPECT_EQ("/p$1", received.path);
  iterator->seekTo(-1, received.intCallback());
  EXPECT_EQ(5, received.calls);
  EXPECT_EQ(0, received.number);
  iterator->advance(received.intCallback());
  iterator->rewind(received.intCallback());
  EXPECT_EQ(7, received.calls);
  EXPECT_EQ(0, received.number);
}

TEST(VfsChildrenIteratorTest, EachOperationTracesCalledWithItsLineAndName) {
  FolderPtr folder = makeFolderOf({"c0"});
  ma_test::TraceCapture capture;
  IteratorPtr iterator = folder->getIterator();
  Received received;
  iterator->getNTotal(received.intCallback());
  iterator->rewind(received.intCallback());
  iterator->advance(received.intCallback());
  iterator->seekTo(0, received.intCallback());
  iterator->getCurrentChild(received.entryCallback());
  iterator->getCurrentChildPath("", received.pathCallback());
  EXPECT_THAT(
      capture.texts(),
      ElementsAre(calledLine(157, "getIterator"), calledLine(55, "getNTotal"),
                  calledLine(62, "rewind"), calledLine(71, "advance"), calledLine(80, "seekTo"),
                  calledLine(94, "getCurrentChild"), calledLine(105, "getCurrentChildPath")));
  for (const zel_standin::TraceLine& line : capture.lines()) {
    EXPECT_EQ(kVfsCalls, line.category) << line.text;
  }
}

TEST(VfsChildrenIteratorTest, GetNTotalHoldsTheFolderLockWhileItsCallbackRuns) {
  boost::shared_ptr<ProbeFolder> folder(new ProbeFolder);
  folder->addEntry(makeLeaf("c0"));
  IteratorPtr iterator = folder->getIterator();
  bool lockedInCallback = false;
  iterator->getNTotal([&](int) { lockedInCallback = folder->isLocked(); });
  EXPECT_TRUE(lockedInCallback);
  EXPECT_FALSE(folder->isLocked());
}

TEST(VfsChildrenIteratorTest, OtherOperationsTakeNoLock) {
  boost::shared_ptr<ProbeFolder> folder(new ProbeFolder);
  folder->addEntry(makeLeaf("c0"));
  IteratorPtr iterator = folder->getIterator();
  std::vector<bool> locked;
  iterator->rewind([&](int) { locked.push_back(folder->isLocked()); });
  iterator->seekTo(0, [&](int) { locked.push_back(folder->isLocked()); });
  iterator->getCurrentChild([&](EntryPtr) { locked.push_back(folder->isLocked()); });
  iterator->getCurrentChildPath("", [&](std::string) { locked.push_back(folder->isLocked()); });
  iterator->advance([&](int) { locked.push_back(folder->isLocked()); });
  EXPECT_THAT(locked, ElementsAre(false, false, false, false, false));
}

TEST(VfsChildrenIteratorTest, EmptyCallbackThrowsAfterTheCursorMoved) {
  FolderPtr folder = makeFolderOf({"c0", "c1", "c2"});
  IteratorPtr iterator = folder->getIterator();
  const ma::VfsIterator::IntCallback none;
  EXPECT_THROW(iterator->advance(none), boost::bad_function_call);
  EXPECT_EQ("c1", captionOf(iterator->getCurrentChild()));
  EXPECT_THROW(iterator->seekTo(2, none), boost::bad_function_call);
  EXPECT_EQ("c2", captionOf(iterator->getCurrentChild()));
  EXPECT_THROW(iterator->rewind(none), boost::bad_function_call);
  EXPECT_EQ("c0", captionOf(iterator->getCurrentChild()));
  EXPECT_THROW(iterator->getCurrentChild(ma::VfsIterator::EntryCallback()),
               boost::bad_function_call);
  EXPECT_THROW(iterator->getCurrentChildPath("", ma::VfsIterator::PathCallback()),
               boost::bad_function_call);
}

TEST(VfsChildrenIteratorTest, EmptyCallbackErrorSaysCallToEmptyFunction) {
  FolderPtr folder = makeFolderOf({"c0"});
  IteratorPtr iterator = folder->getIterator();
  try {
    iterator->rewind(ma::VfsIterator::IntCallback());
    FAIL() << "no exception";
  } catch (boost::bad_function_call const& error) {
    EXPECT_STREQ("call to empty boost::function", error.what());
  }
}

TEST(VfsChildrenIteratorTest, GetNTotalWithEmptyCallbackReleasesTheLockAsItThrows) {
  boost::shared_ptr<ProbeFolder> folder(new ProbeFolder);
  IteratorPtr iterator = folder->getIterator();
  EXPECT_THROW(iterator->getNTotal(ma::VfsIterator::IntCallback()), boost::bad_function_call);
  EXPECT_FALSE(folder->isLocked());
}

TEST(VfsChildrenIteratorTest, GetIteratorOnAnUnownedFolderThrowsBadWeakPtr) {
  ma::VfsFixedFolder folder(vfs_test::makeItem("unowned"));
  EXPECT_THROW(folder.getIterator(), boost::bad_weak_ptr);
}

TEST(VfsChildrenIteratorTest, IteratorKeepsItsFolderAlive) {
  FolderPtr folder = makeFolderOf({"c0", "c1"});
  IteratorPtr iterator = folder->getIterator();
  boost::weak_ptr<ma::VfsFixedFolder> watch = folder;
  folder.reset();
  EXPECT_FALSE(watch.expired());
  EXPECT_EQ(2, iterator->getNTotal());
  EXPECT_THAT(remainingCaptions(*iterator), ElementsAre("c0", "c1"));
  iterator.reset();
  EXPECT_TRUE(watch.expired());
}

TEST(VfsChildrenIteratorTest, CountIsTheRangeFixedAtConstruction) {
  FolderPtr folder = makeFolderOf({"c0", "c1", "c2", "c3"});
  Children children;
  for (const char* caption : {"r0", "r1", "r2", "r3"}) children.push_back(makeLeaf(caption));
  ma::VfsFixedFolder::ChildrenIterator iterator(folder, children.cbegin() + 1,
                                                children.cbegin() + 3);
  EXPECT_EQ(2, iterator.getNTotal());
  EXPECT_THAT(remainingCaptions(iterator), ElementsAre("r1", "r2"));
  EXPECT_EQ("$2", iterator.getCurrentChildPath(""));
}

TEST(VfsSharedVectorIteratorTest, WalksItsOwnListWhichItKeepsAlive) {
  FolderPtr folder = makeFolderOf({"f0"});
  boost::shared_ptr<Children> list(new Children);
  list->push_back(makeLeaf("v0"));
  list->push_back(makeLeaf("v1"));
  boost::weak_ptr<Children> watch = list;
  ma::VfsFixedFolder::SharedVectorIterator iterator(folder, list);
  list.reset();
  EXPECT_FALSE(watch.expired());
  EXPECT_EQ(2, iterator.getNTotal());
  EXPECT_THAT(remainingCaptions(iterator), ElementsAre("v0", "v1"));
  EXPECT_EQ(0, iterator.rewind());
  EXPECT_EQ("v1", captionOf((iterator.seekTo(1), iterator.getCurrentChild())));
}

TEST(VfsSharedVectorIteratorTest, UnaffectedByLaterChangesToTheFolder) {
  FolderPtr folder = makeFolderOf({"f0"});
  boost::shared_ptr<Children> list(new Children(1, makeLeaf("v0")));
  ma::VfsFixedFolder::SharedVectorIterator iterator(folder, list);
  for (int i = 0; i < 100; ++i) folder->addEntry(makeLeaf("more"));
  EXPECT_EQ(1, iterator.getNTotal());
  EXPECT_THAT(remainingCaptions(iterator), ElementsAre("v0"));
}

}  // namespace
