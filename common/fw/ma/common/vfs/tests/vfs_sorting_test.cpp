// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Sorted iteration: the criteria strings, the comparators, the place of
// children without item, and the independence of the sorted copy.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/bad_weak_ptr.hpp>
#include <climits>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "ma/mdc_vfs_fixed.h"
#include "vfs_test_support.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using vfs_test::captionOf;
using vfs_test::EntryPtr;
using vfs_test::FolderPtr;
using vfs_test::ItemPtr;
using vfs_test::LockWitness;
using vfs_test::makeBareLeaf;
using vfs_test::makeFolder;
using vfs_test::makeFolderOf;
using vfs_test::makeItem;
using vfs_test::makeLeaf;
using vfs_test::ProbeFolder;
using vfs_test::remainingCaptions;

typedef boost::shared_ptr<ma::VfsIterator> IteratorPtr;
typedef bool (*Comparator)(EntryPtr, EntryPtr);

std::vector<std::string> sortedCaptions(FolderPtr const& folder, std::string const& criteria) {
  IteratorPtr iterator = folder->getSortedIterator(criteria);
  return remainingCaptions(*iterator);
}

// A folder of leaves captioned by their date, added in the given order.
FolderPtr folderDated(std::vector<long long> const& dates) {
  FolderPtr folder = makeFolder();
  for (long long date : dates) folder->addEntry(makeLeaf(std::to_string(date), "", date));
  return folder;
}

// A leaf that counts how often it is asked for its item.
class CountingLeaf : public ma::VfsFixedEntry {
 public:
  explicit CountingLeaf(ItemPtr item)
      : ma::VfsFixedEntry(item, boost::shared_ptr<ma::VfsUserData>()) {}
  ItemPtr getItemInfo() override {
    ++asked;
    return ma::VfsFixedEntry::getItemInfo();
  }
  int asked = 0;
};

TEST(VfsSortingTest, EmptyFolderYieldsAnIteratorCountingZero) {
  FolderPtr folder = makeFolder();
  for (const char* criteria : {"+dc:title", "-dc:title", ""}) {
    IteratorPtr iterator = folder->getSortedIterator(criteria);
    ASSERT_TRUE(iterator);
    EXPECT_EQ(0, iterator->getNTotal());
    EXPECT_FALSE(iterator->getCurrentChild());
  }
}

TEST(VfsSortingTest, CaptionsAscendingPutUpperCaseBeforeLowerCase) {
  FolderPtr folder = makeFolderOf({"b", "A", "a"});
  EXPECT_THAT(sortedCaptions(folder, "+dc:title"), ElementsAre("A", "a", "b"));
}

TEST(VfsSortingTest, CaptionsDescendingAreTheReverseByteOrder) {
  FolderPtr folder = makeFolderOf({"b", "A", "a"});
  EXPECT_THAT(sortedCaptions(folder, "-dc:title"), ElementsAre("b", "a", "A"));
}

TEST(VfsSortingTest, CaptionThatIsAPrefixOfAnotherSortsFirstAscending) {
  FolderPtr folder = makeFolderOf({"abc", "ab", "abd", "a", ""});
  EXPECT_THAT(sortedCaptions(folder, "+dc:title"), ElementsAre("", "a", "ab", "abc", "abd"));
  EXPECT_THAT(sortedCaptions(folder, "-dc:title"), ElementsAre("abd", "abc", "ab", "a", ""));
}

TEST(VfsSortingTest, CaptionsCompareAsUnsignedBytes) {
  FolderPtr folder = makeFolderOf({"\xc3\xa9", "z", "\x01"});
  EXPECT_THAT(sortedCaptions(folder, "+dc:title"), ElementsAre("\x01", "z", "\xc3\xa9"));
}

TEST(VfsSortingTest, LongCaptionsWithACommonBeginningSortByTheirWholeText) {
  FolderPtr folder = makeFolderOf({"Recording b", "Recording a", "Recordin", "Recording",
                                   "Recording ab", "Recordinf"});
  EXPECT_THAT(sortedCaptions(folder, "+dc:title"),
              ElementsAre("Recordin", "Recordinf", "Recording", "Recording a", "Recording ab",
                          "Recording b"));
  EXPECT_THAT(sortedCaptions(folder, "-dc:title"),
              ElementsAre("Recording b", "Recording ab", "Recording a", "Recording", "Recordinf",
                          "Recordin"));
}

TEST(VfsSortingTest, CaptionsWithZeroAndHighBytesSortByteWise) {
  const std::string withZero("a\0", 2);
  const std::string withZeroAndMore("a\0b", 3);
  FolderPtr folder = makeFolderOf({withZeroAndMore, "\xff", "a", withZero, "\x7f", "a\x01"});
  EXPECT_THAT(sortedCaptions(folder, "+dc:title"),
              ElementsAre("a", withZero, withZeroAndMore, "a\x01", "\x7f", "\xff"));
}

TEST(VfsSortingTest, AnyOtherCriteriaGiveNewestFirstByDate) {
  FolderPtr folder = folderDated({5, -3, 100, 0, LLONG_MIN, LLONG_MAX});
  for (const char* criteria : {"+DC:TITLE", "dc:title", "", "-dc:date", "+dc:date", " +dc:title"}) {
    EXPECT_THAT(sortedCaptions(folder, criteria), ElementsAre(std::to_string(LLONG_MAX), "100", "5",
                                                              "0", "-3", std::to_string(LLONG_MIN)))
        << criteria;
  }
}

TEST(VfsSortingTest, AddingAChildAfterwardsDoesNotChangeTheSortedCount) {
  FolderPtr folder = makeFolderOf({"b", "a"});
  IteratorPtr sorted = folder->getSortedIterator("+dc:title");
  folder->addEntry(makeLeaf("c"));
  EXPECT_EQ(2, sorted->getNTotal());
  EXPECT_THAT(remainingCaptions(*sorted), ElementsAre("a", "b"));
}

TEST(VfsSortingTest, SortedIteratorKeepsRemovedChildrenAlive) {
  FolderPtr folder = makeFolderOf({"b", "a"});
  boost::weak_ptr<ma::VfsEntry> watch = folder->findEntry("a");
  IteratorPtr sorted = folder->getSortedIterator("-dc:title");
  folder->removeAllEntries();
  EXPECT_FALSE(watch.expired());
  EXPECT_THAT(remainingCaptions(*sorted), ElementsAre("b", "a"));
  sorted.reset();
  EXPECT_TRUE(watch.expired());
}

TEST(VfsSortingTest, FolderListIsLeftInInsertionOrder) {
  FolderPtr folder = makeFolderOf({"c", "a", "b"});
  folder->getSortedIterator("+dc:title");
  EXPECT_THAT(vfs_test::childCaptions(*folder), ElementsAre("c", "a", "b"));
}

TEST(VfsSortingTest, PositionsAndChildPathsCountInSortedOrder) {
  FolderPtr folder = makeFolderOf({"c", "a", "b"});
  IteratorPtr sorted = folder->getSortedIterator("+dc:title");
  EXPECT_EQ(3, sorted->getNTotal());
  EXPECT_EQ(2, sorted->seekTo(2));
  EXPECT_EQ("c", captionOf(sorted->getCurrentChild()));
  EXPECT_EQ("/f$2", sorted->getCurrentChildPath("/f"));
}

TEST(VfsSortingTest, ChildrenWithoutItemAndEmptyPointersComeLastInListOrder) {
  FolderPtr folder = makeFolder();
  EntryPtr bare1 = makeBareLeaf();
  EntryPtr bare2 = makeBareLeaf();
  folder->addEntry(bare1);
  folder->addEntry(makeLeaf("b", "", 1));
  folder->addEntry(EntryPtr());
  folder->addEntry(makeLeaf("a", "", 2));
  folder->addEntry(bare2);
  for (const char* criteria : {"+dc:title", "-dc:title", ""}) {
    IteratorPtr sorted = folder->getSortedIterator(criteria);
    EXPECT_EQ(5, sorted->getNTotal());
    std::vector<EntryPtr> order;
    for (int i = 0; i < 5; ++i) {
      sorted->seekTo(i);
      order.push_back(sorted->getCurrentChild());
    }
    EXPECT_EQ(bare1, order[2]) << criteria;
    EXPECT_FALSE(order[3]) << criteria;
    EXPECT_EQ(bare2, order[4]) << criteria;
  }
  EXPECT_EQ("a", captionOf((folder->getSortedIterator("+dc:title"))->getCurrentChild()));
  EXPECT_EQ("b", captionOf((folder->getSortedIterator("-dc:title"))->getCurrentChild()));
  EXPECT_EQ("a", captionOf((folder->getSortedIterator(""))->getCurrentChild()));
}

TEST(VfsSortingTest, EqualKeysKeepTheirListOrder) {
  FolderPtr folder = makeFolder();
  folder->addEntry(makeLeaf("same", "1", 7));
  folder->addEntry(makeLeaf("other", "2", 9));
  folder->addEntry(makeLeaf("same", "3", 7));
  folder->addEntry(makeLeaf("same", "4", 7));
  const auto uuids = [](IteratorPtr iterator) {
    std::vector<std::string> result;
    for (EntryPtr child = iterator->getCurrentChild(); child; child = iterator->getCurrentChild()) {
      result.push_back(child->getItemInfo()->getUUID());
      iterator->advance();
    }
    return result;
  };
  EXPECT_THAT(uuids(folder->getSortedIterator("+dc:title")), ElementsAre("2", "1", "3", "4"));
  EXPECT_THAT(uuids(folder->getSortedIterator("-dc:title")), ElementsAre("1", "3", "4", "2"));
  EXPECT_THAT(uuids(folder->getSortedIterator("")), ElementsAre("2", "1", "3", "4"));
}

TEST(VfsSortingTest, EachChildIsAskedForItsItemOnce) {
  FolderPtr folder = makeFolder();
  std::vector<boost::shared_ptr<CountingLeaf> > leaves;
  for (int i = 0; i < 40; ++i) {
    leaves.emplace_back(new CountingLeaf(makeItem(std::to_string(i % 7), "", i % 5)));
    folder->addEntry(leaves.back());
  }
  folder->getSortedIterator("+dc:title");
  for (const auto& leaf : leaves) EXPECT_EQ(1, leaf->asked);
}

TEST(VfsSortingTest, ChildrenAreCopiedAndSortedWithoutTheFolderLock) {
  boost::shared_ptr<ProbeFolder> folder(new ProbeFolder);
  std::vector<boost::shared_ptr<LockWitness> > witnesses;
  for (const char* caption : {"c", "a", "b"}) {
    witnesses.emplace_back(new LockWitness(caption, folder));
    folder->addEntry(witnesses.back());
  }
  for (const char* criteria : {"+dc:title", "-dc:title", ""}) {
    folder->getSortedIterator(criteria);
  }
  for (const auto& witness : witnesses) {
    EXPECT_THAT(witness->locked, Not(IsEmpty()));
    EXPECT_THAT(witness->locked, Each(false));
    witness->locked.clear();
  }
  folder->findEntry("none");  // a locked read, seen as such by the witnesses
  for (const auto& witness : witnesses) EXPECT_THAT(witness->locked, ElementsAre(true));
}

TEST(VfsSortingTest, UnownedFolderThrowsBadWeakPtrOnlyAfterSorting) {
  ma::VfsFixedFolder folder(makeItem("unowned"));
  boost::shared_ptr<CountingLeaf> b(new CountingLeaf(makeItem("b")));
  boost::shared_ptr<CountingLeaf> a(new CountingLeaf(makeItem("a")));
  folder.addEntry(b);
  folder.addEntry(a);
  EXPECT_THROW(folder.getSortedIterator("+dc:title"), boost::bad_weak_ptr);
  EXPECT_LT(0, b->asked);  // the sort had read both keys
  EXPECT_LT(0, a->asked);
}

// --- the comparators ---------------------------------------------------------

struct ComparatorCase {
  const char* name;
  Comparator compare;
};

const ComparatorCase kComparators[] = {
    {"compareCaptionInc", &ma::VfsFixedFolder::compareCaptionInc},
    {"compareCaptionDec", &ma::VfsFixedFolder::compareCaptionDec},
    {"compareDateInc", &ma::VfsFixedFolder::compareDateInc},
    {"compareDateDec", &ma::VfsFixedFolder::compareDateDec},
};

TEST(VfsComparatorTest, EmptyEntryOrEntryWithoutItemComparesFalseBothWays) {
  const EntryPtr some = makeLeaf("m", "", 5);
  const EntryPtr others[] = {EntryPtr(), makeBareLeaf()};
  for (const ComparatorCase& c : kComparators) {
    for (const EntryPtr& other : others) {
      EXPECT_FALSE(c.compare(other, some)) << c.name;
      EXPECT_FALSE(c.compare(some, other)) << c.name;
      EXPECT_FALSE(c.compare(other, other)) << c.name;
    }
    EXPECT_FALSE(c.compare(EntryPtr(), makeBareLeaf())) << c.name;
  }
}

TEST(VfsComparatorTest, CaptionComparatorsCompareBytesAndIgnoreDates) {
  const EntryPtr upper = makeLeaf("A", "", 9);
  const EntryPtr lower = makeLeaf("a", "", 1);
  const EntryPtr prefix = makeLeaf("a", "", 3);
  EXPECT_TRUE(ma::VfsFixedFolder::compareCaptionInc(upper, lower));
  EXPECT_FALSE(ma::VfsFixedFolder::compareCaptionInc(lower, upper));
  EXPECT_FALSE(ma::VfsFixedFolder::compareCaptionInc(lower, prefix));
  EXPECT_TRUE(ma::VfsFixedFolder::compareCaptionDec(lower, upper));
  EXPECT_FALSE(ma::VfsFixedFolder::compareCaptionDec(upper, lower));
  EXPECT_FALSE(ma::VfsFixedFolder::compareCaptionDec(lower, prefix));
  EXPECT_TRUE(ma::VfsFixedFolder::compareCaptionInc(makeLeaf("ab"), makeLeaf("abc")));
}

TEST(VfsComparatorTest, DateComparatorsCompareSigned64BitDatesAndIgnoreCaptions) {
  const EntryPtr older = makeLeaf("z", "", LLONG_MIN);
  const EntryPtr newer = makeLeaf("a", "", 0x100000000LL);
  const EntryPtr same = makeLeaf("b", "", 0x100000000LL);
  EXPECT_TRUE(ma::VfsFixedFolder::compareDateInc(older, newer));
  EXPECT_FALSE(ma::VfsFixedFolder::compareDateInc(newer, older));
  EXPECT_FALSE(ma::VfsFixedFolder::compareDateInc(newer, same));
  EXPECT_TRUE(ma::VfsFixedFolder::compareDateDec(newer, older));
  EXPECT_FALSE(ma::VfsFixedFolder::compareDateDec(older, newer));
  EXPECT_FALSE(ma::VfsFixedFolder::compareDateDec(newer, same));
}

TEST(VfsComparatorTest, FirstEntryIsAskedForItsItemBeforeTheSecondIsLookedAt) {
  boost::shared_ptr<CountingLeaf> a(new CountingLeaf(makeItem("a")));
  boost::shared_ptr<CountingLeaf> b(new CountingLeaf(makeItem("b")));
  boost::shared_ptr<CountingLeaf> bare(new CountingLeaf(ItemPtr()));
  for (const ComparatorCase& c : kComparators) {
    a->asked = b->asked = bare->asked = 0;
    c.compare(EntryPtr(), b);
    EXPECT_EQ(0, b->asked) << c.name;
    c.compare(a, EntryPtr());
    EXPECT_EQ(1, a->asked) << c.name;
    c.compare(bare, b);
    EXPECT_EQ(1, bare->asked) << c.name;
    EXPECT_EQ(0, b->asked) << c.name;
    c.compare(a, b);
    EXPECT_EQ(2, a->asked) << c.name;
    EXPECT_EQ(1, b->asked) << c.name;
  }
}

// --- randomized -------------------------------------------------------------

// The order `before` defines, made total: children with item sorted stably
// (on them `before` is a strict weak ordering), then the children without
// item (or empty) in list order.
std::vector<EntryPtr> referenceSort(std::vector<EntryPtr> const& children, Comparator before) {
  std::vector<EntryPtr> keyed;
  std::vector<EntryPtr> keyless;
  for (const EntryPtr& child : children) {
    (child && child->getItemInfo() ? keyed : keyless).push_back(child);
  }
  std::stable_sort(keyed.begin(), keyed.end(), before);
  keyed.insert(keyed.end(), keyless.begin(), keyless.end());
  return keyed;
}

TEST(VfsSortingTest, RandomFoldersWithUnkeyedChildrenAndEqualKeysSortSafely) {
  std::mt19937 random(20240611);
  const struct {
    const char* criteria;
    Comparator before;
  } kOrders[] = {{"+dc:title", &ma::VfsFixedFolder::compareCaptionInc},
                 {"-dc:title", &ma::VfsFixedFolder::compareCaptionDec},
                 {"", &ma::VfsFixedFolder::compareDateDec}};
  const std::size_t kSizes[] = {0, 1, 2, 15, 16, 17, 33, 200, 3000};
  for (std::size_t size : kSizes) {
    for (int round = 0; round < 3; ++round) {
      // Few distinct keys, so that many are equal; unkeyed children now
      // rare, now most of the list.
      const int unkeyedPercent = round == 0 ? 5 : round == 1 ? 50 : 90;
      FolderPtr folder = makeFolder();
      std::vector<EntryPtr> children;
      for (std::size_t i = 0; i < size; ++i) {
        EntryPtr child;
        const int roll = static_cast<int>(random() % 100);
        if (roll < unkeyedPercent / 2) {
          child = EntryPtr();
        } else if (roll < unkeyedPercent) {
          child = makeBareLeaf();
        } else if (!children.empty() && roll % 10 == 0) {
          child = children[random() % children.size()];  // the same entry again
        } else {
          child = makeLeaf(std::string(1 + random() % 3, static_cast<char>('a' + random() % 4)), "",
                           static_cast<long long>(random() % 9) - 4);
        }
        children.push_back(child);
        folder->addEntry(child);
      }
      for (const auto& order : kOrders) {
        IteratorPtr iterator = folder->getSortedIterator(order.criteria);
        const int total = iterator->getNTotal();
        std::vector<EntryPtr> sorted;
        for (int i = 0; i < total; ++i) {
          iterator->seekTo(i);
          sorted.push_back(iterator->getCurrentChild());
        }
        ASSERT_TRUE(sorted == referenceSort(children, order.before))
            << "criteria \"" << order.criteria << "\" size " << size << " round " << round;
      }
    }
  }
}

// Large folders sort by date through a radix sort of the 64-bit dates: dates
// over the whole signed range, the extremes and many equal ones included,
// must come out newest first with equal dates in list order.
TEST(VfsSortingTest, LargeFoldersSortDatesOverTheWholeRangeNewestFirstStably) {
  std::mt19937_64 random(7);
  const long long kExtremes[] = {std::numeric_limits<long long>::min(), -1, 0, 1,
                                 std::numeric_limits<long long>::max()};
  FolderPtr folder = makeFolder();
  std::vector<EntryPtr> children;
  for (int i = 0; i < 2000; ++i) {
    const long long date = i % 7 == 0 ? kExtremes[random() % 5]
                           : i % 3 == 0 ? static_cast<long long>(random() % 50) * 1000003LL
                                        : static_cast<long long>(random());
    children.push_back(makeLeaf("c" + std::to_string(i), "", date));
    folder->addEntry(children.back());
  }
  IteratorPtr iterator = folder->getSortedIterator("");
  std::vector<EntryPtr> sorted;
  for (EntryPtr child = iterator->getCurrentChild(); child; child = iterator->getCurrentChild()) {
    sorted.push_back(child);
    iterator->advance();
  }
  EXPECT_TRUE(sorted == referenceSort(children, &ma::VfsFixedFolder::compareDateDec));
}

// Large folders (here 20,000 children) sort captions by a radix sort of their
// first eight bytes and then by the whole captions where those agree:
// captions with long common beginnings, prefixes of each other, zero and high
// bytes and duplicates must come out in byte order both ways, equal captions
// in list order.
TEST(VfsSortingTest, LargeFoldersSortCaptionsWithCommonBeginningsByTheirWholeText) {
  std::mt19937 random(11);
  const std::string kBeginnings[] = {"", "Tagesschau ", "Tagessch", std::string("ab\0", 3),
                                     "\xff\xfe", "a"};
  FolderPtr folder = makeFolder();
  std::vector<EntryPtr> children;
  for (int i = 0; i < 20000; ++i) {
    std::string caption = kBeginnings[random() % 6];
    const std::size_t tail = random() % 4;
    for (std::size_t c = 0; c < tail; ++c) caption += static_cast<char>("a\0Zz\x80"[random() % 5]);
    children.push_back(makeLeaf(caption, "", 0));
    folder->addEntry(children.back());
  }
  const struct {
    const char* criteria;
    Comparator before;
  } kOrders[] = {{"+dc:title", &ma::VfsFixedFolder::compareCaptionInc},
                 {"-dc:title", &ma::VfsFixedFolder::compareCaptionDec}};
  for (const auto& order : kOrders) {
    IteratorPtr iterator = folder->getSortedIterator(order.criteria);
    std::vector<EntryPtr> sorted;
    for (EntryPtr child = iterator->getCurrentChild(); child; child = iterator->getCurrentChild()) {
      sorted.push_back(child);
      iterator->advance();
    }
    EXPECT_TRUE(sorted == referenceSort(children, order.before)) << order.criteria;
  }
}

}  // namespace
