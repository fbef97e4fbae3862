// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Allocation failure everywhere: each operation below runs once with its
// first allocation failing, once with its second failing, and so on, until
// a run completes without reaching the failing allocation. Every run whose
// allocation failed must end in std::bad_alloc (or in the result the
// library defines for that failure), and leave the structures it worked on
// as they were and usable: a folder holds exactly its children, its lock is
// free, a record and a message keep their content. Leak checks
// (LeakSanitizer, valgrind) then find no block left behind by any run.
//
// A white-box program: the library's own objects are linked in, so that
// their malloc() calls go through the allocation watch as well as every
// operator new of the program and of the shared libraries it uses.
// The number of failure points tried per operation is printed on stdout.
#include <gtest/gtest.h>
#include <pthread.h>

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "item_msg_test_support.h"
#include "ma/mdc_item.h"
#include "ma/mdc_selection_uris.h"
#include "ma/mdc_vfs_fixed.h"
#include "ma/rpc/mdc_item_msg.h"
#include "ma_test/allocation_watch.h"
#include "vfs_test_support.h"
#include "zel/zel_standin.h"

namespace {

using ma_rpc_test::allKinds;
using ma_rpc_test::imageOf;
using ma_rpc_test::KindCase;
using ma_rpc_test::makeDistinctItem;
using ma_test::AllocationWatch;
using vfs_test::captionOf;
using vfs_test::EntryPtr;
using vfs_test::ItemPtr;
using vfs_test::makeLeaf;

// Longer than any short-string buffer, so that every copy allocates.
std::string longText(const std::string& head) { return head + std::string(40, '.') + head; }

// What a run in which an allocation failed must end in.
enum class Outcome {
  kBadAlloc,  // std::bad_alloc from the operation
  kCarriesOn,  // a result defined for the failure, no exception
};

// Runs `operation` with its n-th allocation failing, for n = 1, 2, ...,
// until a run completes without reaching that allocation. A run in which
// the allocation failed must end as `outcome` says; `afterFailure` then
// checks the structures the operation touched. Prints and returns how many
// failure points were tried.
int failEachAllocation(const char* name, const std::function<void()>& operation,
                       const std::function<void()>& afterFailure,
                       Outcome outcome = Outcome::kBadAlloc) {
  const int kMostPoints = 100000;
  for (int n = 1; n < kMostPoints; ++n) {
    bool threw = false;
    int failures = 0;
    {
      AllocationWatch watch;
      watch.failAllocation(n);  // malloc() calls and operator new alike
      try {
        operation();
      } catch (const std::bad_alloc&) {
        threw = true;
      }
      failures = watch.failures();
    }
    if (failures == 0) {
      EXPECT_FALSE(threw) << name << ": std::bad_alloc without a failed allocation";
      std::printf("allocation-failure points: %s: %d\n", name, n - 1);
      return n - 1;
    }
    if (outcome == Outcome::kBadAlloc) {
      EXPECT_TRUE(threw) << name << ": allocation " << n << " failed, yet the operation went on";
    } else {
      EXPECT_FALSE(threw) << name << ": allocation " << n << " failed and the operation threw";
    }
    afterFailure();
    if (::testing::Test::HasFailure()) {
      ADD_FAILURE() << name << ": at failure point " << n;
      return n;
    }
  }
  ADD_FAILURE() << name << ": more than " << kMostPoints << " allocations";
  return kMostPoints;
}

class AllocationFailure : public ::testing::Test {
 protected:
  // No trace line is formatted: the failures belong to the library alone.
  void SetUp() override {
    zel_standin::setThreshold(375, 0);
    zel_standin::setThreshold(126, 0);
  }
  void TearDown() override { zel_standin::resetThresholds(); }
};

// A folder whose children are also reached by identifier queries and which
// tells whether its entry lock is held.
class CheckedFolder : public vfs_test::QueryableFolder {
 public:
  explicit CheckedFolder(std::string const& caption) : vfs_test::QueryableFolder(caption, "") {}

  bool isLocked() {
    if (pthread_mutex_trylock(&mutexOf(*this)) != 0) return true;
    pthread_mutex_unlock(&mutexOf(*this));
    return false;
  }
};
typedef boost::shared_ptr<CheckedFolder> CheckedFolderPtr;

// A folder of `count` leaves with long captions "c<i>..." and identifiers
// "UUID<i>...", dates counting down.
CheckedFolderPtr makeFolder(int count, std::string const& caption = "folder") {
  CheckedFolderPtr folder(new CheckedFolder(caption));
  for (int i = 0; i < count; ++i) {
    const std::string index = std::to_string(i);
    folder->addEntry(makeLeaf(longText("c" + index), longText("UUID" + index), 100 - i));
  }
  return folder;
}

// The folder's children, read through the library's list without a walk.
std::vector<EntryPtr> childrenOf(CheckedFolder& folder) {
  std::vector<EntryPtr> children;
  boost::shared_ptr<ma::VfsIterator> iterator = folder.getIterator();
  const int total = iterator->getNTotal();
  for (int i = 0; i < total; ++i) {
    iterator->seekTo(i);
    children.push_back(iterator->getCurrentChild());
  }
  return children;
}

// Expects the folder to hold exactly `children`, in order, and its lock to
// be free.
void expectHolds(CheckedFolder& folder, std::vector<EntryPtr> const& children) {
  EXPECT_FALSE(folder.isLocked());
  EXPECT_EQ(children, childrenOf(folder));
}

// ---------------------------------------------------------------------------
// Item records

TEST_F(AllocationFailure, BuildingARecordAndSettingItsFields) {
  failEachAllocation(
      "build record",
      [] {
        std::unique_ptr<ma::VideoItemInfo> item(
            new ma::VideoItemInfo(longText("caption"), longText("uuid")));
        item->setTitle(longText(" title "));
        item->setItemLocator(longText("locator"));
        item->setActor(longText("actor"));
        item->setStartTime(longText(" start "));
        item->setRecTsId(longText("ts"));
      },
      [] {});
}

TEST_F(AllocationFailure, CopyingAndDuplicatingRecordsOfEveryKind) {
  for (const KindCase& kind : allKinds()) {
    const ItemPtr source = makeDistinctItem(kind.type, 3);
    const std::string dump = source->toString();
    const std::string name = std::string("copy record ") + kind.name;
    failEachAllocation(
        name.c_str(),
        [&source] {
          std::unique_ptr<ma::ItemInfo> duplicate(source->duplicate());
          std::unique_ptr<ma::ItemInfo> again(duplicate->duplicate());
        },
        [&source, &dump] { EXPECT_EQ(dump, source->toString()); });
  }
  const ItemPtr video = makeDistinctItem(ma::ITEM_TYPE_VIDEO, 4);
  const std::string dump = video->toString();
  failEachAllocation(
      "copy video record by its copy constructor",
      [&video] { ma::VideoItemInfo copy(static_cast<ma::VideoItemInfo const&>(*video)); },
      [&video, &dump] { EXPECT_EQ(dump, video->toString()); });
}

TEST_F(AllocationFailure, TheTextDumpOfARecord) {
  const ItemPtr video = makeDistinctItem(ma::ITEM_TYPE_VIDEO, 5);
  std::string dump;
  failEachAllocation("text dump", [&video, &dump] { dump = video->toString(); }, [] {});
  EXPECT_EQ(video->toString(), dump);
}

// ---------------------------------------------------------------------------
// Item messages

TEST_F(AllocationFailure, MessageToItemForEveryKind) {
  for (const KindCase& kind : allKinds()) {
    const ItemPtr item = makeDistinctItem(kind.type, 6);
    itemMsgMaItem_t msg(*item);
    ma_rpc_test::defineReservedWord(msg);
    const std::vector<unsigned char> image = imageOf(msg);
    ItemPtr back;
    const std::string name = std::string("message to item ") + kind.name;
    failEachAllocation(
        name.c_str(), [&msg, &back] { back = ma::rpc::convertMaItem(msg); },
        [&msg, &image, &back] {
          EXPECT_FALSE(back);
          EXPECT_EQ(image, imageOf(msg));
        });
    ASSERT_TRUE(back) << kind.name;
    ma_rpc_test::expectSameCarriedFields(*item, *back);
  }
}

// The writer tests each malloc(): a failed payload leaves the kind's slot
// present with a null pointer, a failed string copy leaves that one string
// unset (null, length 0). Either way the message reads back (or reads as
// nothing) and releases what it holds.
TEST_F(AllocationFailure, ItemToMessageForEveryKindLeavesWhatFailedUnset) {
  for (const KindCase& kind : allKinds()) {
    const ItemPtr item = makeDistinctItem(kind.type, 7);
    const std::string dump = item->toString();
    itemMsgMaItem_t msg;
    const std::string name = std::string("item to message ") + kind.name;
    failEachAllocation(
        name.c_str(), [&item, &msg] { ma::rpc::convertMaItem(msg, *item); },
        [&] {
          EXPECT_EQ(kind.code, msg.kind);
          const ItemPtr back = ma::rpc::convertMaItem(msg);
          EXPECT_EQ(ma_rpc_test::infoOf(msg) != nullptr, static_cast<bool>(back));
          if (back) {
            EXPECT_EQ(item->getLcn(), back->getLcn());
          }
          ma::rpc::releaseMaItemMsgContent(msg);
          std::memset(static_cast<void*>(&msg), 0, sizeof msg);
          EXPECT_EQ(dump, item->toString());
        },
        Outcome::kCarriesOn);
    const ItemPtr back = ma::rpc::convertMaItem(msg);
    ASSERT_TRUE(back) << kind.name;
    ma_rpc_test::expectSameCarriedFields(*item, *back);
  }
}

TEST_F(AllocationFailure, ReleasingAMessageAllocatesNothing) {
  for (const KindCase& kind : allKinds()) {
    const ItemPtr item = makeDistinctItem(kind.type, 9);
    itemMsgMaItem_t msg(*item);
    const std::string name = std::string("release message ") + kind.name;
    EXPECT_EQ(0, failEachAllocation(
                     name.c_str(), [&msg] { ma::rpc::releaseMaItemMsgContent(msg); }, [] {}));
    std::memset(static_cast<void*>(&msg), 0, sizeof msg);  // released: nothing left to free
  }
}

TEST_F(AllocationFailure, ReleasingAndResettingAMessageAllocatesNothing) {
  for (const KindCase& kind : allKinds()) {
    itemMsgMaItem_t msg(*makeDistinctItem(kind.type, 9));
    const std::string name = std::string("release and reset message ") + kind.name;
    EXPECT_EQ(0, failEachAllocation(
                     name.c_str(), [&msg] { ma::rpc::releaseMaItemMsgContentAndReset(msg); },
                     [] {}));
  }  // reset: the destructors have nothing left to free
}

// ---------------------------------------------------------------------------
// The fixed tree

TEST_F(AllocationFailure, AddingAnEntryAddsItWholeOrNotAtAll) {
  // Every size up to 33 meets each growth of the list more than once.
  for (int size = 0; size <= 33; ++size) {
    const CheckedFolderPtr folder = makeFolder(size);
    const std::vector<EntryPtr> before = childrenOf(*folder);
    const EntryPtr extra = makeLeaf("extra", "UUID-extra");
    const std::string name = "addEntry to " + std::to_string(size) + " children";
    int result = -1;
    failEachAllocation(
        name.c_str(), [&] { result = folder->addEntry(extra); },
        [&] { expectHolds(*folder, before); });
    EXPECT_EQ(0, result);
    std::vector<EntryPtr> after = before;
    after.push_back(extra);
    expectHolds(*folder, after);
  }
}

TEST_F(AllocationFailure, BuildingATree) {
  CheckedFolderPtr root;
  failEachAllocation(
      "build tree of 2 folders and 6 leaves",
      [&root] {
        CheckedFolderPtr tree(new CheckedFolder(longText("root")));
        for (int f = 0; f < 2; ++f) {
          CheckedFolderPtr sub = makeFolder(3, longText("sub" + std::to_string(f)));
          tree->addEntry(sub);
        }
        root = tree;
      },
      [&root] { EXPECT_FALSE(root); });
  ASSERT_TRUE(root);
  EXPECT_EQ(2u, childrenOf(*root).size());
}

TEST_F(AllocationFailure, SortedIteration) {
  const CheckedFolderPtr folder = makeFolder(12);
  folder->addEntry(vfs_test::makeBareLeaf());
  const std::vector<EntryPtr> before = childrenOf(*folder);
  for (std::string const criteria : {"+dc:title", "-dc:title", "dc:date"}) {
    std::vector<EntryPtr> walked;
    walked.reserve(before.size());
    failEachAllocation(
        ("sorted iteration " + criteria).c_str(),
        [&] {
          walked.clear();
          boost::shared_ptr<ma::VfsIterator> sorted = folder->getSortedIterator(criteria);
          for (EntryPtr child = sorted->getCurrentChild(); child; child = sorted->getCurrentChild()) {
            walked.push_back(child);
            sorted->advance();
          }
        },
        [&] { expectHolds(*folder, before); });
    ASSERT_EQ(before.size(), walked.size());
    EXPECT_EQ("<no item>", captionOf(walked.back()));
    expectHolds(*folder, before);
  }
}

TEST_F(AllocationFailure, SynchronousWalk) {
  const CheckedFolderPtr folder = makeFolder(8);
  const std::vector<EntryPtr> before = childrenOf(*folder);
  std::vector<EntryPtr> walked;
  walked.reserve(before.size());
  std::string lastPath;
  failEachAllocation(
      "synchronous walk of 8 children",
      [&] {
        walked.clear();
        boost::shared_ptr<ma::VfsIterator> iterator = folder->getIterator();
        const int total = iterator->getNTotal();
        iterator->rewind();
        for (int i = 0; i < total; ++i) {
          walked.push_back(iterator->getCurrentChild());
          lastPath = iterator->getCurrentChildPath("/top");
          iterator->advance();
        }
        iterator->seekTo(total / 2);
      },
      [&] { expectHolds(*folder, before); });
  EXPECT_EQ(before, walked);
  EXPECT_EQ("/top$7", lastPath);
}

TEST_F(AllocationFailure, PathResolution) {
  const CheckedFolderPtr root(new CheckedFolder("root"));
  std::vector<CheckedFolderPtr> subs;
  for (int f = 0; f < 3; ++f) {
    subs.push_back(makeFolder(4, "sub" + std::to_string(f)));
    root->addEntry(subs.back());
  }
  const std::vector<EntryPtr> before = childrenOf(*root);
  const std::vector<EntryPtr> subBefore = childrenOf(*subs[2]);
  const auto unchanged = [&] {
    expectHolds(*root, before);
    expectHolds(*subs[2], subBefore);
  };

  EntryPtr found;
  failEachAllocation("resolvePath $2$3", [&] { found = root->resolvePath("$2$3"); }, unchanged);
  EXPECT_EQ(subBefore[3], found);

  const std::string uuid = longText("UUID2");
  failEachAllocation("resolvePath UUID query", [&] { found = subs[2]->resolvePath(uuid); },
                     unchanged);
  EXPECT_EQ(subBefore[2], found);

  EntryPtr result;
  EntryPtr parent;
  std::string resultPath;
  int status = 1;
  failEachAllocation(
      "resolvePath $1$0 with details",
      [&] { status = root->resolvePath(result, resultPath, parent, "$1$0", ""); }, unchanged);
  EXPECT_EQ(0, status);
  EXPECT_EQ(subs[1], parent);
  EXPECT_EQ("$1", resultPath);

  failEachAllocation("resolvePath out of range", [&] { found = root->resolvePath("$1$9"); },
                     unchanged);
  EXPECT_FALSE(found);
}

// How many path steps of a walk were entered and how many returned; plain
// counters, so that counting allocates nothing.
struct StepCount {
  int entered = 0;
  int returned = 0;
};

// A folder that counts its path steps.
class StepCountingFolder : public CheckedFolder {
 public:
  StepCountingFolder(std::string const& caption, StepCount& count)
      : CheckedFolder(caption), m_count(count) {}

  int resolvePathPart(EntryPtr& child, std::string& rest, std::string& resolvedPath,
                      std::string path, std::string query) override {
    ++m_count.entered;
    const int status = CheckedFolder::resolvePathPart(child, rest, resolvedPath, path, query);
    ++m_count.returned;
    return status;
  }

 private:
  StepCount& m_count;
};

TEST_F(AllocationFailure, PathResolutionLeavesParentWhereTheWalkStood) {
  // A chain of four folders, each with its successor as child 2; the path
  // names a leaf below the last with indices long enough that the path, the
  // remaining paths and the rests live on the heap.
  StepCount count;
  std::vector<CheckedFolderPtr> chain;
  for (int level = 0; level < 4; ++level) {
    chain.push_back(CheckedFolderPtr(new StepCountingFolder(longText("level"), count)));
    chain.back()->addEntry(makeLeaf(longText("a")));
    chain.back()->addEntry(makeLeaf(longText("b")));
    if (level > 0) chain[level - 1]->addEntry(chain.back());
  }
  const EntryPtr leaf = makeLeaf(longText("leaf"));
  chain.back()->addEntry(leaf);
  std::vector<std::vector<EntryPtr>> before;
  for (const CheckedFolderPtr& folder : chain) before.push_back(childrenOf(*folder));

  const EntryPtr callersParent = makeLeaf("caller's parent");
  const EntryPtr callersResult = makeLeaf("caller's result");
  EntryPtr result;
  EntryPtr parent;
  std::string resultPath;
  int status = 1;
  failEachAllocation(
      "resolvePath with details, four levels",
      [&] {
        count = StepCount();
        result = callersResult;
        parent = callersParent;
        resultPath = "caller's path";
        status = chain[0]->resolvePath(result, resultPath, parent,
                                       "$0000000002$0000000002$0000000002$0000000002", "");
      },
      [&] {
        // The current entry is chain[count.entered - 1] if the failure was
        // inside its step, chain[count.returned] if it was between steps;
        // parent is the entry it was reached from, or the caller's value
        // while the walk stands on its first entry.
        const int current = count.entered > count.returned ? count.entered - 1 : count.returned;
        EXPECT_EQ(current > 0 ? EntryPtr(chain[current - 1]) : callersParent, parent)
            << count.entered << " steps entered, " << count.returned << " returned";
        EXPECT_EQ(callersResult, result);
        EXPECT_EQ("caller's path", resultPath);
        for (std::size_t level = 0; level < chain.size(); ++level) {
          expectHolds(*chain[level], before[level]);
        }
      });
  EXPECT_EQ(0, status);
  EXPECT_EQ(leaf, result);
  EXPECT_EQ(chain[3], parent);
  EXPECT_EQ("$0000000002$0000000002$0000000002", resultPath);
}

TEST_F(AllocationFailure, Lookup) {
  const CheckedFolderPtr folder = makeFolder(6);
  const std::vector<EntryPtr> before = childrenOf(*folder);
  EntryPtr found;
  const auto unchanged = [&] { expectHolds(*folder, before); };
  const std::string caption = longText("c4");
  const std::string uuid = longText("UUID5");
  failEachAllocation("findEntry", [&] { found = folder->findEntry(caption); }, unchanged);
  EXPECT_EQ(before[4], found);
  failEachAllocation("findEntrybyUUID", [&] { found = folder->findEntrybyUUID(uuid); }, unchanged);
  EXPECT_EQ(before[5], found);
  failEachAllocation("findUuid", [&] { found = folder->findUuid(uuid); }, unchanged);
  EXPECT_EQ(before[5], found);
  failEachAllocation("findUuid without match", [&] { found = folder->findUuid("UUID-none"); },
                     unchanged);
  EXPECT_FALSE(found);
}

TEST_F(AllocationFailure, RemovalRemovesOneWholeEntryOrNothing) {
  const EntryPtr byCaption = makeLeaf(longText("c3"), "any");
  const EntryPtr byUuid = makeLeaf("any", longText("UUID4"));
  struct Case {
    const char* name;
    std::function<int(ma::VfsFixedFolder&)> remove;
    std::vector<int> kept;  // positions of the children left afterwards
  };
  const std::vector<Case> cases = {
      {"removeEntry", [&](ma::VfsFixedFolder& f) { return f.removeEntry(byCaption); },
       {0, 1, 2, 4, 5}},
      {"removeEntryByUUID", [&](ma::VfsFixedFolder& f) { return f.removeEntryByUUID(byUuid); },
       {0, 1, 2, 3, 5}},
      {"removeAllEntries", [](ma::VfsFixedFolder& f) { return f.removeAllEntries(); }, {}},
  };
  for (const Case& c : cases) {
    const CheckedFolderPtr folder = makeFolder(6);
    const std::vector<EntryPtr> before = childrenOf(*folder);
    int result = -1;
    failEachAllocation(
        c.name, [&] { result = c.remove(*folder); }, [&] { expectHolds(*folder, before); });
    EXPECT_EQ(0, result);
    std::vector<EntryPtr> after;
    for (int position : c.kept) after.push_back(before[position]);
    expectHolds(*folder, after);
  }
}

// ---------------------------------------------------------------------------
// Selection URIs

TEST_F(AllocationFailure, SelectionCreate) {
  ma::SelectionStrings parts;
  parts.sourceType = "dvbs";
  parts.volume = longText("volume");
  parts.path = longText("path/to");
  parts.parameters[longText("key")] = longText("value");
  parts.parameters["flag"] = "";
  const ma::SelectionStrings before = parts;
  std::string uri;
  int result = 1;
  failEachAllocation(
      "mdcSelectionCreate", [&] { result = mdcSelectionCreate(uri, parts); },
      [&] {
        EXPECT_EQ(before.volume, parts.volume);
        EXPECT_EQ(before.parameters, parts.parameters);
      });
  EXPECT_EQ(0, result);
  EXPECT_EQ("dvbs://" + parts.volume + "/" + parts.path + "?flag" + longText("key") + "=" +
                longText("value"),
            uri);
}

TEST_F(AllocationFailure, SelectionParse) {
  ma::SelectionStrings parts;
  parts.sourceType = longText("old-type");
  parts.volume = longText("old-volume");
  parts.path = longText("old/path");
  const ma::SelectionStrings before = parts;
  const auto untouched = [&] {
    EXPECT_EQ(before.volume, parts.volume);
    EXPECT_EQ(before.path, parts.path);
    EXPECT_TRUE(parts.parameters.empty());
  };

  // Past the syntax checks a parse always ends in std::length_error.
  const std::string uri = longText("dvbs") + "://" + longText("volume") + "/" + longText("path");
  bool lengthError = false;
  failEachAllocation(
      "mdcSelectionParse",
      [&] {
        try {
          mdcSelectionParse(parts, uri);
        } catch (const std::length_error&) {
          lengthError = true;
        }
      },
      [&] {
        untouched();
        EXPECT_TRUE(parts.sourceType == before.sourceType || parts.sourceType == longText("dvbs"));
      });
  EXPECT_TRUE(lengthError);
  EXPECT_EQ(longText("dvbs"), parts.sourceType);
  untouched();

  parts = before;
  int result = 0;
  const std::string bad = longText("no-slashes") + ":" + longText("x");
  failEachAllocation(
      "mdcSelectionParse refused", [&] { result = mdcSelectionParse(parts, bad); },
      [&] {
        untouched();
        EXPECT_EQ(before.sourceType, parts.sourceType);
      });
  EXPECT_EQ(-22, result);
  EXPECT_EQ(before.sourceType, parts.sourceType);
}

TEST_F(AllocationFailure, SelectionSplitLeavesThePartsAsTheyWere) {
  ma::SelectionStrings parts;
  parts.sourceType = longText("old-type");
  parts.volume = longText("old-volume");
  parts.path = longText("old/path");
  parts.parameters[longText("old-key")] = longText("old-value");
  const ma::SelectionStrings before = parts;
  const std::string uri = "dvbs://" + longText("volume") + "/" + longText("path") + "?" +
                          longText("key") + "=1" + longText("next") + "=" + longText("value");
  int result = 1;
  failEachAllocation(
      "mdcSelectionSplit", [&] { result = mdcSelectionSplit(parts, uri); },
      [&] {
        EXPECT_EQ(before.sourceType, parts.sourceType);
        EXPECT_EQ(before.volume, parts.volume);
        EXPECT_EQ(before.path, parts.path);
        EXPECT_EQ(before.parameters, parts.parameters);
      });
  EXPECT_EQ(0, result);
  EXPECT_EQ("dvbs", parts.sourceType);
  EXPECT_EQ(longText("volume"), parts.volume);
  EXPECT_EQ(longText("path"), parts.path);
  const std::map<std::string, std::string> expected = {{longText("key"), "1"},
                                                       {longText("next"), longText("value")}};
  EXPECT_EQ(expected, parts.parameters);
}

}  // namespace
