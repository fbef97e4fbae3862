// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Soak: a long browse session in one process. A folder of 10,000 children
// is walked, sorted three ways, resolved child by child and by identifier,
// changed (a hundred children removed and added again) and every record is
// converted to a message and back, round after round. Every answer is
// checked, and the resident memory after the first round and at the end
// must differ by less than 1%: a session that leaks or fragments shows.
//
// Short in the test command (a few rounds; a smaller folder under the slow
// tools); MA_TEST_LONG=1 runs the long session of more than a million
// operations (scripts/soak.sh). The memory is compared only natively and
// without sanitizers: their own allocators keep freed memory aside on
// purpose, and the emulator reports its own memory.
#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include <boost/shared_ptr.hpp>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "ma/mdc_item.h"
#include "ma/mdc_vfs_fixed.h"
#include "ma/rpc/mdc_item_msg.h"
#include "ma_test/run_length.h"
#include "ma_test/watchdog.h"
#include "vfs_test_support.h"
#include "zel/zel_standin.h"

namespace {

using vfs_test::captionOf;
using vfs_test::EntryPtr;
using vfs_test::ItemPtr;

// The resident set size of this process in bytes, from /proc/self/statm.
long residentBytes() {
  std::ifstream statm("/proc/self/statm");
  long size = 0;
  long resident = 0;
  statm >> size >> resident;
  return resident * sysconf(_SC_PAGESIZE);
}

bool memoryIsComparable() {
#if defined(MA_TEST_EMULATED) || defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  return false;
#else
  return ma_test::runLengthDivisor() == 1;  // not under valgrind either
#endif
}

const ma::itemType kKinds[] = {ma::ITEM_TYPE_MUSIC, ma::ITEM_TYPE_VIDEO, ma::ITEM_TYPE_PICTURE,
                               ma::ITEM_TYPE_DOCUMENT, ma::ITEM_TYPE_OTHER};

ItemPtr makeRecord(int index) {
  const std::string name = std::to_string(index);
  const std::string caption = "caption " + std::to_string((index * 7919) % 10007) + " " + name;
  const std::string uuid = "UUID-soak-" + name;
  ItemPtr item;
  switch (kKinds[index % 5]) {
    case ma::ITEM_TYPE_MUSIC: item.reset(new ma::MusicItemInfo(caption, uuid)); break;
    case ma::ITEM_TYPE_VIDEO: item.reset(new ma::VideoItemInfo(caption, uuid)); break;
    case ma::ITEM_TYPE_PICTURE: item.reset(new ma::PictureItemInfo(caption, uuid)); break;
    case ma::ITEM_TYPE_DOCUMENT: item.reset(new ma::DocumentItemInfo(caption, uuid)); break;
    default: item.reset(new ma::OtherItemInfo(caption, uuid));
  }
  item->setDateNumeric((index * 104729LL) % 1000003);
  item->setItemLocator("file:///media/soak/" + name + ".ts");
  item->setTitle("Title of " + name);
  item->setGenre("Genre " + std::to_string(index % 17));
  item->setLcn(static_cast<unsigned>(index));
  return item;
}

// One browse session over one folder; counts the library operations made.
class Session {
 public:
  explicit Session(int children) : m_folder(new vfs_test::QueryableFolder("soak")) {
    for (int i = 0; i < children; ++i) {
      m_folder->addEntry(EntryPtr(
          new ma::VfsFixedEntry(makeRecord(i), boost::shared_ptr<ma::VfsUserData>())));
    }
  }

  long operations() const { return m_operations; }

  void round() {
    const std::vector<EntryPtr> children = walk();
    sortedWalk("+dc:title", children.size());
    sortedWalk("-dc:title", children.size());
    sortedWalk("", children.size());
    resolveEach(children);
    convertEach(children);
    change(children);
  }

 private:
  std::vector<EntryPtr> walk() {
    boost::shared_ptr<ma::VfsIterator> iterator = m_folder->getIterator();
    const int total = iterator->getNTotal();
    m_operations += 2;
    std::vector<EntryPtr> children;
    children.reserve(static_cast<std::size_t>(total));
    for (int i = 0; i < total; ++i) {
      children.push_back(iterator->getCurrentChild());
      EXPECT_EQ("/soak$" + std::to_string(i), iterator->getCurrentChildPath("/soak"));
      EXPECT_EQ(i + 1, iterator->advance());
      m_operations += 3;
    }
    EXPECT_FALSE(iterator->getCurrentChild());
    return children;
  }

  void sortedWalk(std::string const& criteria, std::size_t count) {
    boost::shared_ptr<ma::VfsIterator> sorted = m_folder->getSortedIterator(criteria);
    ++m_operations;
    ItemPtr previous;
    std::size_t walked = 0;
    for (EntryPtr child = sorted->getCurrentChild(); child; child = sorted->getCurrentChild()) {
      const ItemPtr item = child->getItemInfo();
      if (previous) {
        const bool ordered =
            criteria == "+dc:title"   ? previous->getCaption() <= item->getCaption()
            : criteria == "-dc:title" ? previous->getCaption() >= item->getCaption()
                                      : previous->getDateNumeric() >= item->getDateNumeric();
        ASSERT_TRUE(ordered) << criteria << " at " << walked;
      }
      previous = item;
      ++walked;
      sorted->advance();
      m_operations += 2;
    }
    EXPECT_EQ(count, walked);
  }

  void resolveEach(std::vector<EntryPtr> const& children) {
    for (std::size_t i = 0; i < children.size(); ++i) {
      ASSERT_EQ(children[i], m_folder->resolvePath("$" + std::to_string(i))) << i;
      ++m_operations;
    }
    EXPECT_FALSE(m_folder->resolvePath("$" + std::to_string(children.size())));
    // A few identifier queries, each a walk of the folder.
    for (std::size_t i = 0; i < children.size(); i += children.size() / 8 + 1) {
      const std::string uuid = children[i]->getItemInfo()->getUUID();
      EXPECT_EQ(children[i], m_folder->resolvePath(uuid));
      ++m_operations;
    }
  }

  void convertEach(std::vector<EntryPtr> const& children) {
    for (const EntryPtr& child : children) {
      const ItemPtr item = child->getItemInfo();
      ItemPtr back;
      {
        const itemMsgMaItem_t msg(*item);  // released by its destructor
        back = ma::rpc::convertMaItem(msg);
      }
      ASSERT_TRUE(back);
      ASSERT_TRUE(*back == *item) << captionOf(child);
      m_operations += 3;
    }
  }

  // A hundred children leave (by identifier or caption) and come back at
  // the end of the list.
  void change(std::vector<EntryPtr> const& children) {
    for (std::size_t i = 0; i < children.size(); i += children.size() / 100 + 1) {
      if (i % 2 == 0) {
        m_folder->removeEntryByUUID(children[i]);
      } else {
        m_folder->removeEntry(children[i]);
      }
      m_folder->addEntry(children[i]);
      m_operations += 2;
    }
    ASSERT_EQ(static_cast<int>(children.size()), m_folder->getIterator()->getNTotal());
  }

  boost::shared_ptr<vfs_test::QueryableFolder> m_folder;
  long m_operations = 0;
};

TEST(Soak, BrowseSessionOverTenThousandChildrenKeepsItsMemory) {
  ma_test::Watchdog watchdog("Soak.BrowseSessionOverTenThousandChildrenKeepsItsMemory",
                             std::chrono::seconds(3000));
  zel_standin::setThreshold(375, 0);  // no trace lines of queries
  // A fixed threshold for blocks that the C library maps on their own: by
  // default it rises after the first such block is freed, and the next
  // rounds would keep their 160 kB lists on the heap instead, which looks
  // like growth after the first round without being one.
  mallopt(M_MMAP_THRESHOLD, 128 * 1024);
  const int children = static_cast<int>(ma_test::runLength(10000, 10000, 200));
  const long rounds = ma_test::runLength(3, 10, 2);
  Session session(children);
  session.round();
  ASSERT_FALSE(::testing::Test::HasFailure());
  const long afterFirstRound = residentBytes();
  for (long round = 1; round < rounds && !::testing::Test::HasFailure(); ++round) session.round();
  const long atTheEnd = residentBytes();
  const double growth = 100.0 * static_cast<double>(atTheEnd - afterFirstRound) /
                        static_cast<double>(afterFirstRound);
  std::printf(
      "soak: %d children, %ld rounds, %ld operations; resident memory %ld kB after the first "
      "round, %ld kB at the end (%+.3f%%)\n",
      children, rounds, session.operations(), afterFirstRound / 1024, atTheEnd / 1024, growth);
  if (memoryIsComparable()) {
    EXPECT_LT(growth, 1.0);
    EXPECT_GT(growth, -1.0);
  }
  zel_standin::resetThresholds();
}

}  // namespace
