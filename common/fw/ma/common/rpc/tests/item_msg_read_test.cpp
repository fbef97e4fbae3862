// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Message to item.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <typeinfo>
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
using Bytes = std::vector<unsigned char>;

// A payload built by hand: zeroed, with strings pointing into storage the
// test owns. The message referring to it must not be released.
class HandMadePayload {
 public:
  HandMadePayload() : bytes_(sizeof(itemMsgMaItemVideo_t) + 1, 0) {}

  // The payload starts one byte into the storage, so that every member
  // lies at another alignment than in a fresh allocation.
  unsigned char* at() { return bytes_.data() + 1; }
  itemMsgMaItemInfo_t* info() { return reinterpret_cast<itemMsgMaItemInfo_t*>(at()); }

  // Points the string at `offset` to `text` with the given length.
  void setString(std::size_t offset, const char* text, std::uint32_t length) {
    const zelDeserString_t string = {length, const_cast<char*>(text)};
    std::memcpy(at() + offset, &string, sizeof string);
  }

  template <typename T>
  void setNumber(std::size_t offset, T value) {
    std::memcpy(at() + offset, &value, sizeof value);
  }

 private:
  std::vector<unsigned char> bytes_;
};

// A message that refers to a hand-made payload: zeroed again before its
// destructor runs, so that nothing is freed.
struct BorrowedMessage {
  itemMsgMaItem_t msg;
  ~BorrowedMessage() { std::memset(static_cast<void*>(&msg), 0, sizeof msg); }
};

// Reads `payload` as the payload of the kind with message code `kind`,
// hung in that kind's slot of an otherwise empty message.
ItemPtr readPayload(std::uint32_t kind, HandMadePayload& payload) {
  BorrowedMessage borrowed;
  borrowed.msg.kind = kind;
  void* const data = payload.at();
  switch (kind) {
    case 0: borrowed.msg.folder.data = static_cast<itemMsgMaItemFolder_t*>(data); break;
    case 1: borrowed.msg.music.data = static_cast<itemMsgMaItemMusic_t*>(data); break;
    case 2: borrowed.msg.other.data = static_cast<itemMsgMaItemOther_t*>(data); break;
    case 3: borrowed.msg.picture.data = static_cast<itemMsgMaItemPicture_t*>(data); break;
    case 4: borrowed.msg.playlist.data = static_cast<itemMsgMaItemPlaylist_t*>(data); break;
    case 6: borrowed.msg.unknown.data = static_cast<itemMsgMaItemUnknown_t*>(data); break;
    case 7: borrowed.msg.video.data = static_cast<itemMsgMaItemVideo_t*>(data); break;
    case 8: borrowed.msg.interactive.data = static_cast<itemMsgMaItemInteractive_t*>(data); break;
    case 9: borrowed.msg.document.data = static_cast<itemMsgMaItemDocument_t*>(data); break;
    default: break;
  }
  return ma::rpc::convertMaItem(borrowed.msg);
}

TEST(MessageToItem, AllZeroMessageGivesAnEmptyPointer) {
  const itemMsgMaItem_t msg;
  EXPECT_FALSE(ma::rpc::convertMaItem(msg));
}

TEST(MessageToItem, EveryKindBuildsItsOwnClass) {
  for (const KindCase& kind : allKinds()) {
    const ItemPtr item = makeDistinctItem(kind.type, 2);
    const itemMsgMaItem_t msg(*item);
    const ItemPtr back = ma::rpc::convertMaItem(msg);
    ASSERT_TRUE(back) << kind.name;
    EXPECT_EQ(typeid(*item), typeid(*back)) << kind.name;
    EXPECT_EQ(kind.type, back->getItemType()) << kind.name;
    EXPECT_EQ(1, back.use_count());
  }
}

TEST(MessageToItem, SlotWithPresenceZeroButAPointerIsStillConverted) {
  HandMadePayload payload;
  payload.setString(offsetof(itemMsgMaItemInfo_t, caption), "cap", 3);
  BorrowedMessage borrowed;
  borrowed.msg.kind = 3;
  borrowed.msg.picture.present = 0;
  borrowed.msg.picture.data = reinterpret_cast<itemMsgMaItemPicture_t*>(payload.at());
  const ItemPtr item = ma::rpc::convertMaItem(borrowed.msg);
  ASSERT_TRUE(item);
  EXPECT_NE(nullptr, dynamic_cast<ma::PictureItemInfo*>(item.get()));
  EXPECT_EQ("cap", item->getCaption());
}

TEST(MessageToItem, PresentSlotWithANullPointerGivesAnEmptyPointer) {
  itemMsgMaItem_t msg;
  msg.kind = 6;
  msg.unknown.present = 1;
  ma_test::TraceCapture capture;
  EXPECT_FALSE(ma::rpc::convertMaItem(msg));
  EXPECT_EQ(std::vector<std::string>(), capture.texts());  // nothing is reported
}

TEST(MessageToItem, KindNamingANullSlotGivesAnEmptyPointerWhileAnotherSlotIsSet) {
  HandMadePayload payload;
  BorrowedMessage borrowed;
  borrowed.msg.kind = 8;  // interactive, not set
  borrowed.msg.music.present = 1;
  borrowed.msg.music.data = reinterpret_cast<itemMsgMaItemMusic_t*>(payload.at());
  ma_test::TraceCapture capture;
  EXPECT_FALSE(ma::rpc::convertMaItem(borrowed.msg));
  EXPECT_EQ(std::vector<std::string>(), capture.texts());  // nothing is reported
}

TEST(MessageToItem, KindFiveAndKindsAboveNineGiveAnEmptyPointer) {
  HandMadePayload payload;
  ma_test::TraceCapture capture;
  for (std::uint32_t kind : {5u, 10u, 255u, 256u, 0x100u | 7u, 0xFFFFFFFFu}) {
    BorrowedMessage borrowed;
    borrowed.msg.kind = kind;
    // Every slot is set, so no empty slot could be the reason.
    borrowed.msg.folder = {1, reinterpret_cast<itemMsgMaItemFolder_t*>(payload.at())};
    borrowed.msg.music = {1, reinterpret_cast<itemMsgMaItemMusic_t*>(payload.at())};
    borrowed.msg.other = {1, reinterpret_cast<itemMsgMaItemOther_t*>(payload.at())};
    borrowed.msg.picture = {1, reinterpret_cast<itemMsgMaItemPicture_t*>(payload.at())};
    borrowed.msg.playlist = {1, reinterpret_cast<itemMsgMaItemPlaylist_t*>(payload.at())};
    borrowed.msg.unknown = {1, reinterpret_cast<itemMsgMaItemUnknown_t*>(payload.at())};
    borrowed.msg.video = {1, reinterpret_cast<itemMsgMaItemVideo_t*>(payload.at())};
    borrowed.msg.interactive = {1, reinterpret_cast<itemMsgMaItemInteractive_t*>(payload.at())};
    borrowed.msg.document = {1, reinterpret_cast<itemMsgMaItemDocument_t*>(payload.at())};
    EXPECT_FALSE(ma::rpc::convertMaItem(borrowed.msg)) << kind;
  }
  EXPECT_EQ(std::vector<std::string>(), capture.texts());  // nothing is reported
}

TEST(MessageToItem, StringOfLengthThreeOverSixCharactersGivesTheFirstThree) {
  HandMadePayload payload;
  payload.setString(offsetof(itemMsgMaItemInfo_t, title), "abcdef", 3);
  payload.setString(offsetof(itemMsgMaItemInfo_t, caption), "xyzuvw", 3);
  const ItemPtr item = readPayload(0, payload);
  ASSERT_TRUE(item);
  EXPECT_EQ("abc", item->getTitle());
  EXPECT_EQ("xyz", item->getCaption());
}

TEST(MessageToItem, StringsAreCopiedByLengthNotByTerminator) {
  static const char kText[] = {'a', '\0', 'b', 'c'};  // no terminator at 3
  HandMadePayload payload;
  payload.setString(offsetof(itemMsgMaItemInfo_t, uuid), kText, 4);
  const ItemPtr item = readPayload(0, payload);
  EXPECT_EQ(std::string(kText, 4), item->getUUID());
}

TEST(MessageToItem, StringWithALengthButNullDataGivesTheEmptyText) {
  HandMadePayload payload;
  payload.setString(offsetof(itemMsgMaItemInfo_t, caption), nullptr, 12);
  payload.setString(offsetof(itemMsgMaItemInfo_t, genre), nullptr, 5);
  const ItemPtr item = readPayload(1, payload);
  ASSERT_TRUE(item);
  EXPECT_EQ("", item->getCaption());
  EXPECT_EQ("", item->getGenre());
}

TEST(MessageToItem, StringWithDataButLengthZeroGivesTheEmptyText) {
  HandMadePayload payload;
  payload.setString(offsetof(itemMsgMaItemInfo_t, artist), "not read", 0);
  BorrowedMessage borrowed;
  borrowed.msg.kind = 1;
  borrowed.msg.music.data = reinterpret_cast<itemMsgMaItemMusic_t*>(payload.at());
  EXPECT_EQ("", ma::rpc::convertMaItem(borrowed.msg)->getArtist());
}

TEST(MessageToItem, VideoTimesWithNullDataOrLengthZeroGiveEmptyTexts) {
  HandMadePayload payload;
  payload.setString(offsetof(itemMsgMaItemInfo_t, caption), "cap", 3);
  payload.setString(offsetof(itemMsgMaItemVideo_t, startTime), nullptr, 5);
  payload.setString(offsetof(itemMsgMaItemVideo_t, endTime), "x", 0);
  const ItemPtr item = readPayload(7, payload);
  ASSERT_TRUE(item);
  const auto& video = dynamic_cast<const ma::VideoItemInfo&>(*item);
  EXPECT_EQ("cap", video.getCaption());
  EXPECT_EQ("", video.getStartTime());
  EXPECT_EQ("", video.getEndTime());
}

TEST(MessageToItem, MessageValuesReplaceEveryConstructorDefault) {
  HandMadePayload payload;  // all zero: empty strings, 0 and false
  const ItemPtr item = readPayload(9, payload);
  ASSERT_TRUE(item);
  EXPECT_FALSE(item->isReceivable());
  EXPECT_FALSE(item->isVisible());
  EXPECT_FALSE(item->isSelectable());
  EXPECT_EQ(0, item->getNetworkID());
  EXPECT_EQ(0, item->getRecChnum());
  EXPECT_EQ("", item->getCaption());
}

TEST(MessageToItem, AnyNonZeroBoolByteIsTrue) {
  HandMadePayload payload;
  payload.setNumber<std::uint8_t>(offsetof(itemMsgMaItemInfo_t, receivable), 2);
  payload.setNumber<std::uint8_t>(offsetof(itemMsgMaItemInfo_t, visible), 0xFF);
  payload.setNumber<std::uint8_t>(offsetof(itemMsgMaItemInfo_t, selectable), 0x80);
  const ItemPtr item = readPayload(4, payload);
  EXPECT_TRUE(item->isReceivable());
  EXPECT_TRUE(item->isVisible());
  EXPECT_TRUE(item->isSelectable());
}

TEST(MessageToItem, NumbersAtOddOffsetsAreReadWithoutAlignment) {
  HandMadePayload payload;
  payload.setNumber<std::int32_t>(offsetof(itemMsgMaItemInfo_t, volumeCorrection), -313);
  payload.setNumber<std::uint32_t>(offsetof(itemMsgMaItemInfo_t, reserved), 0xDEADBEEF);
  payload.setNumber<std::uint32_t>(offsetof(itemMsgMaItemInfo_t, soundSelection), 323);
  payload.setNumber<std::uint32_t>(offsetof(itemMsgMaItemInfo_t, lcn), 0xFFFFFFF0u);
  payload.setNumber<std::int32_t>(offsetof(itemMsgMaItemInfo_t, epgTheme), -331);
  payload.setNumber<std::int32_t>(offsetof(itemMsgMaItemInfo_t, networkID), 335);
  payload.setNumber<std::int32_t>(offsetof(itemMsgMaItemInfo_t, recChnum), -403);
  payload.setNumber<std::uint64_t>(offsetof(itemMsgMaItemInfo_t, fileSize), 0x0102030405060708ull);
  payload.setNumber<std::int64_t>(offsetof(itemMsgMaItemInfo_t, dateNumeric), -164);
  payload.setString(offsetof(itemMsgMaItemInfo_t, recStartTime), "339", 3);
  payload.setString(offsetof(itemMsgMaItemInfo_t, recFailType), "395", 3);
  const ItemPtr item = readPayload(2, payload);
  ASSERT_TRUE(item);
  EXPECT_EQ(-313, item->getVolumeCorrection());
  EXPECT_EQ(323u, item->getSoundSelection());
  EXPECT_EQ(0xFFFFFFF0u, item->getLcn());
  EXPECT_EQ(-331, item->getEpgTheme());
  EXPECT_EQ(335, item->getNetworkID());
  EXPECT_EQ(-403, item->getRecChnum());
  EXPECT_EQ(0x0102030405060708ull, item->getFileSize());
  EXPECT_EQ(-164, item->getDateNumeric());
  EXPECT_EQ("339", item->getRecStartTime());
  EXPECT_EQ("395", item->getRecFailType());
}

TEST(MessageToItem, ServiceAndOriginalNetworkIdentifiersKeepTheirMembers) {
  HandMadePayload payload;
  payload.setString(offsetof(itemMsgMaItemInfo_t, recOnId), "on", 2);
  payload.setString(offsetof(itemMsgMaItemInfo_t, recServiceId), "service", 7);
  const ItemPtr item = readPayload(0, payload);
  EXPECT_EQ("on", item->getRecOnId());
  EXPECT_EQ("service", item->getRecServiceId());
}

TEST(MessageToItem, SettersTrimWhatTheyTrimAndTheConstructorKeepsCaptionAndUuid) {
  HandMadePayload payload;
  payload.setString(offsetof(itemMsgMaItemInfo_t, caption), "  cap \t", 7);
  payload.setString(offsetof(itemMsgMaItemInfo_t, uuid), " id ", 4);
  payload.setString(offsetof(itemMsgMaItemInfo_t, title), "\t title \r\n", 10);
  payload.setString(offsetof(itemMsgMaItemInfo_t, stationName), " station ", 9);
  payload.setString(offsetof(itemMsgMaItemVideo_t, startTime), "  10:00 ", 8);
  payload.setString(offsetof(itemMsgMaItemVideo_t, endTime), "11:00\n", 6);
  payload.setString(offsetof(itemMsgMaItemInfo_t, actor), " actor ", 7);
  const ItemPtr item = readPayload(7, payload);
  ASSERT_TRUE(item);
  const auto& video = dynamic_cast<const ma::VideoItemInfo&>(*item);
  EXPECT_EQ("  cap \t", video.getCaption());
  EXPECT_EQ(" id ", video.getUUID());
  EXPECT_EQ("title", video.getTitle());
  EXPECT_EQ(" station ", video.getStationName());
  EXPECT_EQ("10:00", video.getStartTime());
  EXPECT_EQ("11:00", video.getEndTime());
  EXPECT_EQ(" actor ", video.getActor());
}

TEST(MessageToItem, ActorAndDirectorOfANonVideoKindAreDropped) {
  HandMadePayload payload;
  payload.setString(offsetof(itemMsgMaItemInfo_t, actor), "actor", 5);
  payload.setString(offsetof(itemMsgMaItemInfo_t, director), "director", 8);
  const ItemPtr item = readPayload(1, payload);
  EXPECT_EQ("", item->getActor());
  EXPECT_EQ("", item->getDirector());
}

TEST(MessageToItem, ReservedWordMakesNoDifference) {
  const ItemPtr item = makeDistinctItem(ma::ITEM_TYPE_INTERACTIVE, 5);
  const itemMsgMaItem_t msg(*item);
  ma_rpc_test::defineReservedWord(msg, 0);
  const ItemPtr first = ma::rpc::convertMaItem(msg);
  ma_rpc_test::defineReservedWord(msg, 0xFFFFFFFFu);
  const ItemPtr second = ma::rpc::convertMaItem(msg);
  ma_rpc_test::expectSameCarriedFields(*first, *second);
}

TEST(MessageToItem, TheMessageIsLeftUnchanged) {
  const itemMsgMaItem_t msg(*makeDistinctItem(ma::ITEM_TYPE_VIDEO, 6));
  ma_rpc_test::defineReservedWord(msg);
  const Bytes image = ma_rpc_test::imageOf(msg);
  const Bytes top(reinterpret_cast<const unsigned char*>(&msg),
                  reinterpret_cast<const unsigned char*>(&msg) + sizeof msg);
  const ItemPtr item = ma::rpc::convertMaItem(msg);
  EXPECT_EQ(image, ma_rpc_test::imageOf(msg));
  EXPECT_EQ(top, Bytes(reinterpret_cast<const unsigned char*>(&msg),
                       reinterpret_cast<const unsigned char*>(&msg) + sizeof msg));
}

}  // namespace
