// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// White-box tests of the item message: the field table's order, the exact
// allocations and frees, and what happens when an allocation fails.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <set>
#include <string>
#include <vector>

#include "ma_test/allocation_watch.h"
#include "item_msg_codec.h"
#include "item_msg_test_support.h"
#include "ma/mdc_item.h"
#include "ma/rpc/mdc_item_msg.h"

namespace {

using ma::rpc::codec::kInfoFields;
using ma_rpc_test::allKinds;
using ma_rpc_test::infoMembers;
using ma_rpc_test::infoOf;
using ma_rpc_test::ItemPtr;
using ma_rpc_test::KindCase;
using ma_rpc_test::makeDistinctItem;
using ma_rpc_test::makeItem;
using ma_rpc_test::textOf;
using ma_test::AllocationWatch;
using Bytes = std::vector<unsigned char>;

std::size_t payloadSizeOf(const KindCase& kind) {
  return kind.code == 7 ? sizeof(itemMsgMaItemVideo_t) : sizeof(itemMsgMaItemInfo_t);
}

zelDeserString_t stringAt(const void* payload, std::size_t offset) {
  zelDeserString_t string;
  std::memcpy(&string, static_cast<const unsigned char*>(payload) + offset, sizeof string);
  return string;
}

// The offsets of every string of a payload of `kind`.
std::vector<std::size_t> stringOffsets(const KindCase& kind) {
  std::vector<std::size_t> offsets;
  for (const auto& member : infoMembers()) {
    if (member.kind == 'S') offsets.push_back(member.offset);
  }
  if (kind.code == 7) {
    offsets.push_back(offsetof(itemMsgMaItemVideo_t, startTime));
    offsets.push_back(offsetof(itemMsgMaItemVideo_t, endTime));
  }
  return offsets;
}

void forget(itemMsgMaItem_t* msg) { std::memset(static_cast<void*>(msg), 0, sizeof *msg); }

// ---------------------------------------------------------------------------
// Field table

TEST(ItemMsgFieldTable, ReaderSetsTheFieldsInTheDocumentedOrder) {
  const std::vector<std::string> expected = {
      "caption", "uuid",
      // setters, in calling order
      "itemSubType", "originalUuid", "originalVolume", "itemLocator", "playtime", "thumbURL",
      "stationName", "stationDescription", "title", "genre", "description", "comment", "date",
      "userIndex", "parentalRating", "displayRules",
      "fileSize", "attributes", "maxPosition", "resumePosition", "dateNumeric",
      "originalAncestor", "creator", "longStationDescription", "artist", "album", "albumUUID",
      "trackNum", "year", "bitrate", "actor", "director", "creationTime", "modificationTime",
      "encryptionScheme", "encryptionInfo",
      "previewPage", "subtitlePage", "encoding", "receivable", "volumeCorrection", "visible",
      "selectable", "soundSelection", "tunerUUID", "lcn", "epgTheme", "networkID",
      "recStartTime", "recEndTime", "recDuration", "recTsId", "recServiceId", "recOnId",
      "recEventType", "recFailType", "recChnum"};
  std::vector<std::string> names;
  std::size_t setters = 0;
  for (const auto& field : kInfoFields) {
    names.push_back(field.name);
    if (field.read != nullptr) ++setters;
  }
  EXPECT_EQ(expected, names);
  EXPECT_EQ(57u, setters);
  EXPECT_EQ(nullptr, kInfoFields[0].read);
  EXPECT_EQ(nullptr, kInfoFields[1].read);
}

TEST(ItemMsgFieldTable, EveryMemberButTheReservedWordIsWrittenAtItsOwnOffset) {
  std::set<std::string> seen;
  for (const auto& field : kInfoFields) {
    const auto member = std::find_if(infoMembers().begin(), infoMembers().end(),
                                     [&](const auto& m) { return field.name == std::string(m.name); });
    ASSERT_NE(infoMembers().end(), member) << field.name;
    EXPECT_EQ(member->offset, field.offset) << field.name;
    EXPECT_EQ(member->kind == 'S', field.isString) << field.name;
    EXPECT_NE(nullptr, field.write) << field.name;
    EXPECT_TRUE(seen.insert(field.name).second) << field.name;
  }
  EXPECT_EQ(infoMembers().size() - 1, seen.size());
  EXPECT_EQ(0u, seen.count("reserved"));
}

TEST(ItemMsgFieldTable, ReleaseOrderIsEveryStringFromTheHighestOffsetDown) {
  std::vector<std::size_t> expected;
  for (const auto& member : infoMembers()) {
    if (member.kind == 'S') expected.insert(expected.begin(), member.offset);
  }
  const auto& order = ma::rpc::codec::kInfoStringsDescending;
  EXPECT_EQ(expected, std::vector<std::size_t>(order.begin(), order.end()));
}

TEST(ItemMsgKinds, EachSingleKindBitFindsItsCodeAndNothingElseFindsAKind) {
  for (const KindCase& kind : allKinds()) {
    const ma::rpc::codec::MessageKind* found = ma::rpc::codec::kindOfItemType(kind.type);
    ASSERT_NE(nullptr, found) << kind.name;
    EXPECT_EQ(kind.code, found->code) << kind.name;
    EXPECT_EQ(found, ma::rpc::codec::kindOfCode(kind.code)) << kind.name;
  }
  for (unsigned int type : {0u, 3u, 6u, 512u, 1024u, 0x101u, 0xFFFFFFFFu}) {
    EXPECT_EQ(nullptr, ma::rpc::codec::kindOfItemType(type)) << type;
  }
  for (std::uint32_t code : {5u, 10u, 0x100u, 0xFFFFFFFFu}) {
    EXPECT_EQ(nullptr, ma::rpc::codec::kindOfCode(code)) << code;
  }
}

// ---------------------------------------------------------------------------
// Allocations of the writer

TEST(ItemMsgAllocations, WriterAllocatesThePayloadThenEveryStringWithItsTerminator) {
  for (const KindCase& kind : allKinds()) {
    const ItemPtr item = makeDistinctItem(kind.type, 1);
    itemMsgMaItem_t msg;
    std::vector<std::size_t> sizes;
    {
      AllocationWatch watch;
      ma::rpc::convertMaItem(msg, *item);
      sizes = watch.mallocSizes();
    }
    ASSERT_FALSE(sizes.empty());
    EXPECT_EQ(payloadSizeOf(kind), sizes[0]) << kind.name;
    std::multiset<std::size_t> expected;
    for (std::size_t offset : stringOffsets(kind)) {
      expected.insert(stringAt(infoOf(msg), offset).length + 1);
    }
    EXPECT_EQ(expected, std::multiset<std::size_t>(sizes.begin() + 1, sizes.end())) << kind.name;
  }
}

#if __SIZEOF_POINTER__ == 4
TEST(ItemMsgAllocations, VideoPayloadIs423BytesAndOtherPayloads407OnTheTarget) {
  for (const KindCase& kind : allKinds()) {
    itemMsgMaItem_t msg;
    AllocationWatch watch;
    ma::rpc::convertMaItem(msg, *makeItem(kind.type, "", ""));
    EXPECT_EQ(kind.code == 7 ? 423u : 407u, watch.mallocSizes().at(0)) << kind.name;
  }
}
#endif

TEST(ItemMsgAllocations, ReservedWordKeepsWhatTheFreshAllocationHeld) {
  for (unsigned char fill : {0xA5, 0x00, 0x3C}) {
    itemMsgMaItem_t msg;
    {
      AllocationWatch watch;
      watch.fillMallocWith(fill);
      ma::rpc::convertMaItem(msg, *makeDistinctItem(ma::ITEM_TYPE_MUSIC, 2));
    }
    const std::uint32_t reserved = infoOf(msg)->reserved;
    EXPECT_EQ(0x01010101u * fill, reserved);
  }
}

// ---------------------------------------------------------------------------
// Frees of the release

TEST(ItemMsgFrees, ReleaseFreesVideoExtrasThenStringsFromLastToFirstThenThePayload) {
  itemMsgMaItem_t msg(*makeDistinctItem(ma::ITEM_TYPE_VIDEO, 3));
  const void* payload = msg.video.data;
  std::vector<const void*> expected = {
      stringAt(payload, offsetof(itemMsgMaItemVideo_t, endTime)).data,
      stringAt(payload, offsetof(itemMsgMaItemVideo_t, startTime)).data};
  for (auto member = infoMembers().rbegin(); member != infoMembers().rend(); ++member) {
    if (member->kind == 'S') expected.push_back(stringAt(payload, member->offset).data);
  }
  expected.push_back(payload);
  AllocationWatch watch;
  ma::rpc::releaseMaItemMsgContent(msg);
  EXPECT_EQ(expected, watch.frees());
  EXPECT_EQ(42u + 2u + 1u, watch.frees().size());
  forget(&msg);
}

TEST(ItemMsgFrees, ReleaseOfACommonBlockKindFreesFortyTwoStringsAndThePayload) {
  for (const KindCase& kind : allKinds()) {
    if (kind.code == 7) continue;
    itemMsgMaItem_t msg(*makeItem(kind.type, "c", "u"));
    const void* payload = infoOf(msg);
    const void* last = stringAt(payload, offsetof(itemMsgMaItemInfo_t, recFailType)).data;
    const void* first = stringAt(payload, offsetof(itemMsgMaItemInfo_t, itemSubType)).data;
    AllocationWatch watch;
    ma::rpc::releaseMaItemMsgContent(msg);
    const std::vector<const void*> frees = watch.frees();
    ASSERT_EQ(43u, frees.size()) << kind.name;
    EXPECT_EQ(last, frees.front());
    EXPECT_EQ(first, frees[41]);
    EXPECT_EQ(payload, frees.back());
    forget(&msg);
  }
}

TEST(ItemMsgFrees, ReleasingAMessageWhoseStringsHaveNullDataSkipsThemAndFreesThePayload) {
  itemMsgMaItem_t msg(*makeDistinctItem(ma::ITEM_TYPE_VIDEO, 4));
  itemMsgMaItemVideo_t* payload = msg.video.data;
  char* title = payload->info.title.data;
  char* startTime = payload->startTime.data;
  payload->info.title.data = nullptr;
  payload->startTime.data = nullptr;
  AllocationWatch watch;
  ma::rpc::releaseMaItemMsgContent(msg);
  const std::vector<const void*> frees = watch.frees();
  EXPECT_EQ(42u + 2u + 1u - 2u, frees.size());
  EXPECT_EQ(payload, frees.back());
  EXPECT_EQ(frees.end(), std::find(frees.begin(), frees.end(), nullptr));
  std::free(title);
  std::free(startTime);
  forget(&msg);
}

TEST(ItemMsgFrees, DestroyingADefaultConstructedWrapperFreesNothing) {
  AllocationWatch watch;
  { const itemMsgMaItem_t msg; }
  EXPECT_TRUE(watch.frees().empty());
}

TEST(ItemMsgFrees, DestroyingAFilledWrapperReleasesItsContent) {
  auto* msg = new itemMsgMaItem_t(*makeItem(ma::ITEM_TYPE_FOLDER, "c", "u"));
  const void* payload = msg->folder.data;
  AllocationWatch watch;
  delete msg;
  ASSERT_EQ(43u, watch.frees().size());
  EXPECT_EQ(payload, watch.frees().back());
}

TEST(ItemMsgFrees, ReleaseExaminesOnlyTheSlotNamedByKind) {
  itemMsgMaItem_t msg(*makeItem(ma::ITEM_TYPE_FOLDER, "c", "u"));
  for (std::uint32_t kind : {1u, 5u, 6u, 10u, 0xFFFFFFFFu}) {
    msg.kind = kind;
    AllocationWatch watch;
    ma::rpc::releaseMaItemMsgContent(msg);
    EXPECT_TRUE(watch.frees().empty()) << kind;
  }
  msg.kind = 0;
}

TEST(ItemMsgFrees, ReleasingTwiceFreesTheSameBlocksTwice) {
  itemMsgMaItem_t msg(*makeItem(ma::ITEM_TYPE_MUSIC, "c", "u"));
  const void* payload = msg.music.data;
  std::vector<const void*> frees;
  {
    AllocationWatch watch;
    watch.holdFrees();  // the blocks stay valid, so the second release can run
    ma::rpc::releaseMaItemMsgContent(msg);
    EXPECT_EQ(1u, msg.kind);
    EXPECT_EQ(payload, static_cast<const void*>(msg.music.data));
    ma::rpc::releaseMaItemMsgContent(msg);
    frees = watch.frees();
  }
  ASSERT_EQ(2 * 43u, frees.size());
  const std::vector<const void*> first(frees.begin(), frees.begin() + 43);
  EXPECT_EQ(first, std::vector<const void*>(frees.begin() + 43, frees.end()));
  EXPECT_EQ(payload, first.back());
  for (const void* block : first) std::free(const_cast<void*>(block));
  forget(&msg);
}

TEST(ItemMsgFrees, ReleaseAndResetFreesTheSameBlocksInTheSameOrderAsRelease) {
  for (const KindCase& kind : allKinds()) {
    std::vector<const void*> released;
    {
      itemMsgMaItem_t msg(*makeDistinctItem(kind.type, 6));
      AllocationWatch watch;
      watch.holdFrees();  // the blocks stay valid for the second release
      ma::rpc::releaseMaItemMsgContent(msg);
      released = watch.frees();
      ma::rpc::releaseMaItemMsgContentAndReset(msg);
      const std::vector<const void*> frees = watch.frees();
      ASSERT_EQ(2 * released.size(), frees.size()) << kind.name;
      EXPECT_EQ(released, std::vector<const void*>(frees.begin() + released.size(), frees.end()))
          << kind.name;
    }  // the destructor of the reset message frees nothing
    ASSERT_FALSE(released.empty()) << kind.name;
    for (const void* block : released) std::free(const_cast<void*>(block));
  }
}

TEST(ItemMsgFrees, ReleaseAndResetTwiceAndTheDestructorFreeOnlyOnce) {
  auto* msg = new itemMsgMaItem_t(*makeItem(ma::ITEM_TYPE_VIDEO, "c", "u"));
  const void* payload = msg->video.data;
  AllocationWatch watch;
  ma::rpc::releaseMaItemMsgContentAndReset(*msg);
  ASSERT_EQ(42u + 2u + 1u, watch.frees().size());
  EXPECT_EQ(payload, watch.frees().back());
  ma::rpc::releaseMaItemMsgContentAndReset(*msg);
  delete msg;
  EXPECT_EQ(42u + 2u + 1u, watch.frees().size());
}

// ---------------------------------------------------------------------------
// Failed allocations

// A payload allocation that fails attaches a null payload for Unknown and
// Document, as defined, and for every other kind as well (the choice made
// for kinds the format leaves unchecked).
TEST(ItemMsgAllocationFailure, FailedPayloadOfUnknownSetsTheSlotWithANullPointer) {
  itemMsgMaItem_t msg;
  {
    AllocationWatch watch;
    watch.failMalloc(sizeof(itemMsgMaItemUnknown_t));
    ma::rpc::convertMaItem(msg, *makeDistinctItem(ma::ITEM_TYPE_UNKNOWN, 5));
    EXPECT_EQ(1, watch.failures());
    EXPECT_EQ(1u, watch.mallocSizes().size());  // nothing filled
  }
  EXPECT_EQ(6u, msg.kind);
  EXPECT_EQ(1u, msg.unknown.present);
  EXPECT_EQ(nullptr, msg.unknown.data);
  EXPECT_FALSE(ma::rpc::convertMaItem(msg));
}

TEST(ItemMsgAllocationFailure, FailedPayloadOfDocumentSetsTheSlotWithANullPointer) {
  itemMsgMaItem_t msg;
  {
    AllocationWatch watch;
    watch.failMalloc(sizeof(itemMsgMaItemDocument_t));
    ma::rpc::convertMaItem(msg, *makeDistinctItem(ma::ITEM_TYPE_DOCUMENT, 5));
  }
  Bytes expected(sizeof msg, 0);
  expected[0] = 9;
  expected[offsetof(itemMsgMaItem_t, document)] = 1;
  EXPECT_EQ(expected, Bytes(reinterpret_cast<const unsigned char*>(&msg),
                            reinterpret_cast<const unsigned char*>(&msg) + sizeof msg));
  EXPECT_FALSE(ma::rpc::convertMaItem(msg));
  ma::rpc::releaseMaItemMsgContent(msg);  // a null payload: nothing to free
}

TEST(ItemMsgAllocationFailure, FailedPayloadOfAnyOtherKindAlsoLeavesANullSlotAndNoCrash) {
  for (const KindCase& kind : allKinds()) {
    itemMsgMaItem_t msg;
    {
      AllocationWatch watch;
      watch.failMalloc(payloadSizeOf(kind));
      ma::rpc::convertMaItem(msg, *makeDistinctItem(kind.type, 6));
      EXPECT_EQ(1, watch.failures()) << kind.name;
    }
    EXPECT_EQ(kind.code, msg.kind) << kind.name;
    EXPECT_EQ(nullptr, infoOf(msg)) << kind.name;
    EXPECT_FALSE(ma::rpc::convertMaItem(msg)) << kind.name;
  }
}

TEST(ItemMsgAllocationFailure, FailedStringAllocationLeavesThatStringUnsetAndTheRestIntact) {
  for (const KindCase& kind : allKinds()) {
    const ItemPtr item = makeDistinctItem(kind.type, 7);
    const std::vector<std::size_t> offsets = stringOffsets(kind);
    for (int call = 2; call <= static_cast<int>(offsets.size()) + 1; ++call) {
      itemMsgMaItem_t msg;
      {
        AllocationWatch watch;
        watch.failMallocCall(call);
        ma::rpc::convertMaItem(msg, *item);
        ASSERT_EQ(1, watch.failures()) << kind.name << " call " << call;
      }
      std::size_t unset = 0;
      for (std::size_t offset : offsets) {
        const zelDeserString_t string = stringAt(infoOf(msg), offset);
        if (string.data == nullptr) {
          ++unset;
          EXPECT_EQ(0u, string.length);
        }
      }
      EXPECT_EQ(1u, unset) << kind.name << " call " << call;
      const ItemPtr back = msg;  // reads the unset string as empty
      ASSERT_TRUE(back);
      EXPECT_EQ(item->getLcn(), back->getLcn());
    }  // release skips the unset string
  }
}

TEST(ItemMsgAllocationFailure, ExceptionWhileBuildingAnItemPropagatesAndFreesThePartlyBuiltItem) {
  const itemMsgMaItem_t msg(*makeDistinctItem(ma::ITEM_TYPE_VIDEO, 8));
  int thrown = 0;
  for (int nth = 1;; ++nth) {
    bool threw = false;
    {
      AllocationWatch watch;
      watch.failNew(nth);
      try {
        const ItemPtr item = ma::rpc::convertMaItem(msg);
      } catch (const std::bad_alloc&) {
        threw = true;
      }
      if (nth == 1 && watch.failures() == 0) {
        GTEST_SKIP() << "operator new is not this program's (valgrind replaces it)";
      }
    }
    if (!threw) break;
    ++thrown;
  }
  // Construction, the shared owner and every string the setters copy; the
  // leak checkers confirm nothing stays behind.
  EXPECT_GT(thrown, 3);
}

}  // namespace
