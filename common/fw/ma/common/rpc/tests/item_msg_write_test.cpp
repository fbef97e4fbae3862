// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Item to message.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>
#include <vector>

#include "item_msg_test_support.h"
#include "ma/mdc_item.h"
#include "ma/rpc/mdc_item_msg.h"
#include "ma_test/trace_capture.h"

namespace {

using ma_rpc_test::allKinds;
using ma_rpc_test::infoOf;
using ma_rpc_test::ItemPtr;
using ma_rpc_test::KindCase;
using ma_rpc_test::makeDistinctItem;
using ma_rpc_test::makeItem;
using ma_rpc_test::topLevelOf;
using ma_rpc_test::textOf;
using Bytes = std::vector<unsigned char>;

std::size_t slotOffsetOf(std::uint32_t code) {
  switch (code) {
    case 0: return offsetof(itemMsgMaItem_t, folder);
    case 1: return offsetof(itemMsgMaItem_t, music);
    case 2: return offsetof(itemMsgMaItem_t, other);
    case 3: return offsetof(itemMsgMaItem_t, picture);
    case 4: return offsetof(itemMsgMaItem_t, playlist);
    case 6: return offsetof(itemMsgMaItem_t, unknown);
    case 7: return offsetof(itemMsgMaItem_t, video);
    case 8: return offsetof(itemMsgMaItem_t, interactive);
    case 9: return offsetof(itemMsgMaItem_t, document);
  }
  ADD_FAILURE() << "no slot for code " << code;
  return 0;
}

// The top level a writer produces for `code` with payload `payload`.
Bytes expectedTopLevel(std::uint32_t code, const void* payload) {
  Bytes bytes(sizeof(itemMsgMaItem_t), 0);
  bytes[0] = static_cast<unsigned char>(code);
  const std::size_t slot = slotOffsetOf(code);
  bytes[slot] = 1;
  std::memcpy(&bytes[slot + offsetof(itemMsgOptionalRef_t<void>, data)], &payload, sizeof payload);
  return bytes;
}

const void* payloadOf(const itemMsgMaItem_t& msg) { return infoOf(msg); }

TEST(ItemToMessage, EachKindSetsItsCodeAndOnlyItsSlot) {
  for (const KindCase& kind : allKinds()) {
    const itemMsgMaItem_t msg(*makeItem(kind.type, "c", "u"));
    EXPECT_EQ(kind.code, msg.kind) << kind.name;
    EXPECT_NE(5u, msg.kind);
    ASSERT_NE(nullptr, payloadOf(msg)) << kind.name;
    EXPECT_EQ(expectedTopLevel(kind.code, payloadOf(msg)), topLevelOf(msg)) << kind.name;
  }
}

TEST(ItemToMessage, EveryMemberCarriesItsGetterForEveryKind) {
  for (const KindCase& kind : allKinds()) {
    SCOPED_TRACE(kind.name);
    const ItemPtr item = makeDistinctItem(kind.type, 11);
    const itemMsgMaItem_t msg(*item);
    ASSERT_NE(nullptr, infoOf(msg));
    ma_rpc_test::expectInfoCarries(*infoOf(msg), *item);
  }
}

TEST(ItemToMessage, VideoItemGivesKind7WithStartAndEndTimeAfterTheCommonBlock) {
  const ItemPtr item = makeDistinctItem(ma::ITEM_TYPE_VIDEO, 4);
  const itemMsgMaItem_t msg(*item);
  EXPECT_EQ(7u, msg.kind);
  ASSERT_NE(nullptr, msg.video.data);
  const unsigned char* payload = reinterpret_cast<const unsigned char*>(msg.video.data);
  zelDeserString_t startTime;
  zelDeserString_t endTime;
#if __SIZEOF_POINTER__ == 4
  std::memcpy(&startTime, payload + 407, sizeof startTime);
  std::memcpy(&endTime, payload + 415, sizeof endTime);
#else
  std::memcpy(&startTime, payload + sizeof(itemMsgMaItemInfo_t), sizeof startTime);
  std::memcpy(&endTime, payload + sizeof(itemMsgMaItemInfo_t) + sizeof startTime, sizeof endTime);
#endif
  EXPECT_EQ("getStartTime-value-4", textOf(startTime));
  EXPECT_EQ("getEndTime-value-4", textOf(endTime));
  EXPECT_EQ('\0', endTime.data[endTime.length]);
  ma_rpc_test::expectInfoCarries(msg.video.data->info, *item);
}

// The record's class matches type 4, but its store is not a video store:
// start and end time are read as "" (each read reporting the missing store)
// and travel as empty strings.
TEST(ItemToMessage, VideoRecordWithAPlainStoreGivesEmptyStartAndEndTime) {
  const ma::VideoItemInfo item(new ma::ItemInfo::ItemImpl(ma::ITEM_TYPE_VIDEO, "c", "u"));
  ma_test::TraceCapture capture;
  const itemMsgMaItem_t msg(item);
  EXPECT_EQ(7u, msg.kind);
  ASSERT_NE(nullptr, msg.video.data);
  EXPECT_EQ(expectedTopLevel(7, msg.video.data), topLevelOf(msg));
  EXPECT_EQ("c", textOf(msg.video.data->info.caption));
  for (const zelDeserString_t& time : {msg.video.data->startTime, msg.video.data->endTime}) {
    EXPECT_EQ(0u, time.length);
    ASSERT_NE(nullptr, time.data);
    EXPECT_EQ('\0', time.data[0]);
  }
  EXPECT_EQ(std::vector<std::string>(2, "getImpl(): impl is NULL\n"), capture.texts());
}

TEST(ItemToMessage, EveryStringOfANewItemOwnsABufferHoldingOnlyTheTerminator) {
  for (const KindCase& kind : allKinds()) {
    const itemMsgMaItem_t msg(*makeItem(kind.type, "", ""));
    const unsigned char* info = reinterpret_cast<const unsigned char*>(infoOf(msg));
    std::vector<std::size_t> strings;
    for (const auto& member : ma_rpc_test::infoMembers()) {
      if (member.kind == 'S') strings.push_back(member.offset);
    }
    if (kind.code == 7) {
      strings.push_back(offsetof(itemMsgMaItemVideo_t, startTime));
      strings.push_back(offsetof(itemMsgMaItemVideo_t, endTime));
    }
    for (std::size_t offset : strings) {
      zelDeserString_t string;
      std::memcpy(&string, info + offset, sizeof string);
      EXPECT_EQ(0u, string.length) << kind.name << " " << offset;
      ASSERT_NE(nullptr, string.data) << kind.name << " " << offset;
      EXPECT_EQ('\0', string.data[0]) << kind.name << " " << offset;
    }
  }
}

TEST(ItemToMessage, EmbeddedNulsAreCopiedAsPartOfTheLength) {
  const ItemPtr item = makeItem(ma::ITEM_TYPE_MUSIC, std::string("a\0b", 3), "u");
  item->setArtist(std::string("\0\0x\0", 4));
  const itemMsgMaItem_t msg(*item);
  const zelDeserString_t caption = msg.music.data->info.caption;
  const zelDeserString_t artist = msg.music.data->info.artist;
  EXPECT_EQ(std::string("a\0b", 3), textOf(caption));
  EXPECT_EQ(std::string("\0\0x\0", 4), textOf(artist));
  EXPECT_EQ('\0', artist.data[4]);
}

TEST(ItemToMessage, LongStringsAreNotTruncated) {
  const std::string longText(70000, 'q');
  const ItemPtr item = makeItem(ma::ITEM_TYPE_DOCUMENT, longText, longText + "u");
  const itemMsgMaItem_t msg(*item);
  EXPECT_EQ(longText, textOf(msg.document.data->info.caption));
  EXPECT_EQ(longText + "u", textOf(msg.document.data->info.uuid));
}

TEST(ItemToMessage, BoolsBecomeOneByteOneOrZero) {
  const ItemPtr item = makeItem(ma::ITEM_TYPE_PICTURE, "c", "u");
  item->setReceivable(true);
  item->setVisible(false);
  item->setSelectable(true);
  {
    const itemMsgMaItem_t msg(*item);
    EXPECT_EQ(1, msg.picture.data->info.receivable);
    EXPECT_EQ(0, msg.picture.data->info.visible);
    EXPECT_EQ(1, msg.picture.data->info.selectable);
  }
  item->setReceivable(false);
  item->setVisible(true);
  item->setSelectable(false);
  const itemMsgMaItem_t msg(*item);
  EXPECT_EQ(0, msg.picture.data->info.receivable);
  EXPECT_EQ(1, msg.picture.data->info.visible);
  EXPECT_EQ(0, msg.picture.data->info.selectable);
}

TEST(ItemToMessage, NumbersAreStoredAsTheyAreInTheirWidth) {
  const ItemPtr item = makeItem(ma::ITEM_TYPE_PLAYLIST, "c", "u");
  item->setFileSize(ULLONG_MAX);
  item->setDateNumeric(LLONG_MIN);
  item->setAttributes(INT_MIN);
  item->setMaxPosition(UINT_MAX);
  item->setVolumeCorrection(-5);
  item->setRecChnum(INT_MAX);
  const itemMsgMaItem_t msg(*item);
  const itemMsgMaItemInfo_t& info = msg.playlist.data->info;
  EXPECT_EQ(ULLONG_MAX, std::uint64_t{info.fileSize});
  EXPECT_EQ(LLONG_MIN, std::int64_t{info.dateNumeric});
  EXPECT_EQ(INT_MIN, std::int32_t{info.attributes});
  EXPECT_EQ(UINT_MAX, std::uint32_t{info.maxPosition});
  EXPECT_EQ(-5, std::int32_t{info.volumeCorrection});
  EXPECT_EQ(INT_MAX, std::int32_t{info.recChnum});
  EXPECT_EQ(-1, std::int32_t{info.networkID});  // the constructor's default travels too
}

TEST(ItemToMessage, TheMessageIsOverwrittenCompletely) {
  itemMsgMaItem_t msg;
  std::memset(static_cast<void*>(&msg), 0xEE, sizeof msg);
  ma::rpc::convertMaItem(msg, *makeItem(ma::ITEM_TYPE_OTHER, "c", "u"));
  EXPECT_EQ(expectedTopLevel(2, payloadOf(msg)), topLevelOf(msg));
}

// 512 lies outside the values ma::itemType can hold (0 to 511), so a record
// cannot carry it without undefined behaviour; the white-box tests give the
// kind lookup 512 directly.
TEST(ItemToMessage, ItemTypeOfTwoBitsOrZeroGivesAllZeroMessage) {
  ma_test::TraceCapture capture;
  for (unsigned int type : {3u, 0u, 6u, 0x101u, 0x1FFu}) {
    const ItemPtr item = makeItem(ma::ITEM_TYPE_FOLDER, "c", "u");
    static_cast<ma::FolderItemInfo&>(*item).getImpl()->setItemType(static_cast<ma::itemType>(type));
    itemMsgMaItem_t msg;
    std::memset(static_cast<void*>(&msg), 0xEE, sizeof msg);
    ma::rpc::convertMaItem(msg, *item);
    EXPECT_EQ(Bytes(sizeof msg, 0), topLevelOf(msg)) << type;
  }
  EXPECT_EQ(std::vector<std::string>(), capture.texts());  // nothing is reported
}

TEST(ItemToMessage, ConvertingIntoAFilledMessageLeavesTheOldPayloadAllocated) {
  itemMsgMaItem_t msg(*makeItem(ma::ITEM_TYPE_MUSIC, "first", "u1"));
  itemMsgMaItem_t first;
  ma_rpc_test::copyTopLevel(msg, &first);  // now owns the first content
  ma::rpc::convertMaItem(msg, *makeItem(ma::ITEM_TYPE_MUSIC, "second", "u2"));
  EXPECT_NE(first.music.data, msg.music.data);
  EXPECT_EQ("second", textOf(msg.music.data->info.caption));
  // Reading the old payload is valid (the sanitizers would report a freed
  // block); its owner `first` frees it.
  EXPECT_EQ("first", textOf(first.music.data->info.caption));
}

TEST(ItemToMessage, ConversionWritesNoTraceLines) {
  ma_test::TraceCapture capture;
  const ItemPtr item = makeDistinctItem(ma::ITEM_TYPE_VIDEO, 1);
  const itemMsgMaItem_t msg(*item);
  const ItemPtr back = msg;
  EXPECT_TRUE(capture.lines().empty());
}

// How a test hands a mismatched record to the writer: directly, or by
// assigning it to a wrapper.
enum class Route { kConvert, kAssign };

// A record whose class does not match its type gives an all-zero message,
// and the payload the writer allocated stays behind, unreferenced, by
// definition. The leak checkers' suppressions name this helper, so that a
// leak anywhere else is still reported.
__attribute__((noinline)) void convertMismatched(itemMsgMaItem_t& msg, const ma::ItemInfo& item,
                                                 Route route = Route::kConvert) {
  if (route == Route::kAssign) {
    msg = item;
  } else {
    ma::rpc::convertMaItem(msg, item);
  }
}

TEST(ItemMsgClassMismatch, VideoRecordHoldingAFolderStoreGivesAllZeroMessage) {
  const ma::VideoItemInfo item(new ma::FolderItemInfo::FolderItemImpl("c", "u"));
  ASSERT_EQ(ma::ITEM_TYPE_FOLDER, item.getItemType());
  itemMsgMaItem_t msg;
  std::memset(static_cast<void*>(&msg), 0xEE, sizeof msg);
  ma_test::TraceCapture capture;
  convertMismatched(msg, item);
  EXPECT_EQ(Bytes(sizeof msg, 0), topLevelOf(msg));
  EXPECT_EQ(std::vector<std::string>(), capture.texts());  // nothing is reported
}

TEST(ItemMsgClassMismatch, FolderRecordRetypedAsMusicGivesAllZeroMessage) {
  ma::FolderItemInfo item("c", "u");
  item.getImpl()->setItemType(ma::ITEM_TYPE_MUSIC);
  itemMsgMaItem_t msg;
  ma_test::TraceCapture capture;
  convertMismatched(msg, item);
  EXPECT_EQ(Bytes(sizeof msg, 0), topLevelOf(msg));
  EXPECT_EQ(std::vector<std::string>(), capture.texts());  // nothing is reported
}

// Unknown is one of the kinds whose class test the writer makes inline.
TEST(ItemMsgClassMismatch, VideoRecordHoldingAStoreOfTypeUnknownGivesAllZeroMessage) {
  const ma::VideoItemInfo item(new ma::ItemInfo::ItemImpl(ma::ITEM_TYPE_UNKNOWN, "c", "u"));
  ASSERT_EQ(ma::ITEM_TYPE_UNKNOWN, item.getItemType());
  itemMsgMaItem_t msg;
  std::memset(static_cast<void*>(&msg), 0xEE, sizeof msg);
  ma_test::TraceCapture capture;
  convertMismatched(msg, item);
  EXPECT_EQ(Bytes(sizeof msg, 0), topLevelOf(msg));
  EXPECT_EQ(std::vector<std::string>(), capture.texts());  // nothing is reported
}

// Assigning an empty pointer leaves a filled wrapper as it was; assigning a
// record that cannot be converted zeroes it. Neither frees the old content.
TEST(ItemMsgClassMismatch, AssigningToAFilledWrapperZeroesItAndLeavesTheOldContentAllocated) {
  itemMsgMaItem_t msg(*makeItem(ma::ITEM_TYPE_MUSIC, "old", "u"));
  itemMsgMaItem_t old;
  ma_rpc_test::copyTopLevel(msg, &old);
  msg = ItemPtr();
  ASSERT_EQ(topLevelOf(old), topLevelOf(msg));

  const ma::VideoItemInfo item(new ma::FolderItemInfo::FolderItemImpl("c", "u"));
  convertMismatched(msg, item, Route::kAssign);
  EXPECT_EQ(Bytes(sizeof msg, 0), topLevelOf(msg));

  // The old content is still allocated and intact (the sanitizers would
  // report reading a freed block); only releasing it frees it.
  EXPECT_EQ("old", textOf(old.music.data->info.caption));
  ma::rpc::releaseMaItemMsgContent(old);
  std::memset(static_cast<void*>(&old), 0, sizeof old);  // its destructor frees nothing more
}

TEST(ItemMsgClassMismatch, RecordWithoutStoreCountsAsUnknownAndGivesAllZeroMessage) {
  ma_test::TraceCapture capture;  // the record reports its missing store
  const ma::VideoItemInfo item(nullptr);
  itemMsgMaItem_t msg;
  convertMismatched(msg, item);
  EXPECT_EQ(Bytes(sizeof msg, 0), topLevelOf(msg));
  ASSERT_FALSE(capture.texts().empty());
  EXPECT_EQ("getItemType(): impl is NULL\n", capture.texts()[0]);
}

}  // namespace
