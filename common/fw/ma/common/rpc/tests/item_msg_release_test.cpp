// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Message release and the item message wrapper. Whether release frees
// exactly the right blocks is checked by the sanitizers and valgrind here,
// and by the recorded free() calls in the white-box tests.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <type_traits>
#include <vector>

#include "item_msg_test_support.h"
#include "ma/mdc_item.h"
#include "ma/rpc/mdc_item_msg.h"
#include "ma_test/trace_capture.h"

namespace {

using ma_rpc_test::infoOf;
using ma_rpc_test::ItemPtr;
using ma_rpc_test::makeDistinctItem;
using ma_rpc_test::makeItem;
using ma_rpc_test::topLevelOf;
using Bytes = std::vector<unsigned char>;

// Zeroes a message whose content is gone, so that its destructor frees
// nothing a second time.
void forget(itemMsgMaItem_t* msg) { std::memset(static_cast<void*>(msg), 0, sizeof *msg); }

char* copyOf(const char* text) {
  char* copy = static_cast<char*>(std::malloc(std::strlen(text) + 1));
  std::strcpy(copy, text);
  return copy;
}

// ---------------------------------------------------------------------------
// Release

TEST(ItemMsgRelease, ReleaseFreesTheContentOfEveryKind) {
  for (const auto& kind : ma_rpc_test::allKinds()) {
    itemMsgMaItem_t msg(*makeDistinctItem(kind.type, 8));
    ma::rpc::releaseMaItemMsgContent(msg);
    forget(&msg);
  }  // the leak checkers see every block freed exactly once
}

TEST(ItemMsgRelease, ReleaseLeavesKindPresenceAndStalePointerAsTheyWere) {
  itemMsgMaItem_t msg(*makeItem(ma::ITEM_TYPE_PLAYLIST, "c", "u"));
  const Bytes before = topLevelOf(msg);
  ma::rpc::releaseMaItemMsgContent(msg);
  EXPECT_EQ(before, topLevelOf(msg));
  forget(&msg);
}

TEST(ItemMsgRelease, ReleasingAMessageWhoseStringsHaveNullDataSkipsThemAndFreesThePayload) {
  itemMsgMaItem_t msg;
  auto* payload = static_cast<itemMsgMaItemVideo_t*>(std::calloc(1, sizeof(itemMsgMaItemVideo_t)));
  payload->info.caption = {3, copyOf("cap")};
  payload->info.recFailType = {4, copyOf("fail")};
  payload->info.title = {9, nullptr};
  payload->endTime = {2, copyOf("11")};
  msg.kind = 7;
  msg.video = {1, payload};
  ma::rpc::releaseMaItemMsgContent(msg);
  forget(&msg);
}

TEST(ItemMsgRelease, AllZeroMessageReleasesNothing) {
  itemMsgMaItem_t msg;
  ma_test::TraceCapture capture;
  ma::rpc::releaseMaItemMsgContent(msg);
  EXPECT_EQ(Bytes(sizeof msg, 0), topLevelOf(msg));
  EXPECT_EQ(std::vector<std::string>(), capture.texts());  // nothing is reported
}

TEST(ItemMsgRelease, KindFiveAndKindsAboveNineReleaseNothing) {
  itemMsgMaItem_t filled(*makeItem(ma::ITEM_TYPE_FOLDER, "c", "u"));
  ma_test::TraceCapture capture;
  for (std::uint32_t kind : {5u, 10u, 0x100u}) {
    filled.kind = kind;
    ma::rpc::releaseMaItemMsgContent(filled);
  }
  EXPECT_EQ(std::vector<std::string>(), capture.texts());  // nothing is reported
  filled.kind = 0;  // the destructor frees the folder content once
  EXPECT_EQ("c", ma_rpc_test::textOf(filled.folder.data->info.caption));
}

TEST(ItemMsgRelease, OnlyTheSlotNamedByKindIsReleased) {
  itemMsgMaItem_t msg(*makeItem(ma::ITEM_TYPE_FOLDER, "folder", "u"));
  msg.kind = 1;  // music: a null slot
  ma::rpc::releaseMaItemMsgContent(msg);
  EXPECT_EQ("folder", ma_rpc_test::textOf(msg.folder.data->info.caption));
  msg.kind = 0;
}

TEST(ItemMsgRelease, PresenceWordIsNotConsulted) {
  itemMsgMaItem_t msg(*makeItem(ma::ITEM_TYPE_INTERACTIVE, "c", "u"));
  msg.interactive.present = 0;
  ma::rpc::releaseMaItemMsgContent(msg);
  forget(&msg);  // released despite presence 0; the leak checkers would see it
}

// ---------------------------------------------------------------------------
// Release and reset

TEST(ItemMsgReleaseAndReset, FreesTheContentOfEveryKindAndLeavesTheMessageAllZero) {
  for (const auto& kind : ma_rpc_test::allKinds()) {
    itemMsgMaItem_t msg(*makeDistinctItem(kind.type, 8));
    ASSERT_NE(Bytes(sizeof msg, 0), topLevelOf(msg)) << kind.name;
    ma::rpc::releaseMaItemMsgContentAndReset(msg);
    EXPECT_EQ(Bytes(sizeof msg, 0), topLevelOf(msg)) << kind.name;
  }  // the destructors free nothing more; the leak checkers see each block freed once
}

TEST(ItemMsgReleaseAndReset, ReleasingTwiceIsSafe) {
  itemMsgMaItem_t msg(*makeItem(ma::ITEM_TYPE_VIDEO, "c", "u"));
  ma::rpc::releaseMaItemMsgContentAndReset(msg);
  ma::rpc::releaseMaItemMsgContentAndReset(msg);
  EXPECT_EQ(Bytes(sizeof msg, 0), topLevelOf(msg));
}

TEST(ItemMsgReleaseAndReset, ResetMessageCarriesNoItemAndCanBeFilledAgain) {
  itemMsgMaItem_t msg(*makeItem(ma::ITEM_TYPE_MUSIC, "first", "u1"));
  ma::rpc::releaseMaItemMsgContentAndReset(msg);
  EXPECT_FALSE(ma::rpc::convertMaItem(msg));
  msg = *makeItem(ma::ITEM_TYPE_PICTURE, "second", "u2");
  const ItemPtr back = msg;
  ASSERT_TRUE(back);
  EXPECT_EQ(ma::ITEM_TYPE_PICTURE, back->getItemType());
  EXPECT_EQ("second", back->getCaption());
}  // the destructor frees the second content

TEST(ItemMsgReleaseAndReset, ClearsEveryByteAlsoWhereReleaseHadNothingToFree) {
  itemMsgMaItem_t msg;
  std::memset(static_cast<void*>(&msg), 0, sizeof msg);
  msg.kind = 5;  // names no slot: release frees nothing
  msg.folder.present = 1;
  ma::rpc::releaseMaItemMsgContentAndReset(msg);
  EXPECT_EQ(Bytes(sizeof msg, 0), topLevelOf(msg));
}

TEST(ItemMsgReleaseAndReset, FreesOnlyTheSlotNamedByKindAndThenForgetsTheOthers) {
  // A payload hanging from a slot that `kind` does not name is not freed,
  // as by release; the caller that put it there still owns it.
  const itemMsgMaItem_t owner(*makeItem(ma::ITEM_TYPE_FOLDER, "folder", "u"));
  itemMsgMaItem_t msg(*makeItem(ma::ITEM_TYPE_MUSIC, "music", "u"));
  msg.folder = {1, owner.folder.data};
  ma::rpc::releaseMaItemMsgContentAndReset(msg);
  EXPECT_EQ(Bytes(sizeof msg, 0), topLevelOf(msg));
  EXPECT_EQ("folder", ma_rpc_test::textOf(owner.folder.data->info.caption));
}  // `owner` frees the folder payload once

TEST(ItemMsgReleaseAndReset, WritesNoTraceLine) {
  itemMsgMaItem_t msg(*makeItem(ma::ITEM_TYPE_DOCUMENT, "c", "u"));
  ma_test::TraceCapture capture;
  ma::rpc::releaseMaItemMsgContentAndReset(msg);
  EXPECT_EQ(std::vector<std::string>(), capture.texts());
}

// ---------------------------------------------------------------------------
// Wrapper

TEST(ItemMsgWrapper, IsTheMessageAndNothingElse) {
  static_assert(std::is_same<itemMsgMaItem_t, _itemMsgMaItem_struct>::value, "one type");
  static_assert(std::is_standard_layout<_itemMsgMaItem_struct>::value, "plain layout");
  EXPECT_EQ(4 + 9 * (4 + sizeof(void*)), sizeof(_itemMsgMaItem_struct));
}

TEST(ItemMsgWrapper, DestructorNeverThrowsAndCopyingIsDisabled) {
  static_assert(std::is_nothrow_destructible<_itemMsgMaItem_struct>::value, "never throws");
  static_assert(!std::is_copy_constructible<_itemMsgMaItem_struct>::value, "no shared payload");
  static_assert(!std::is_copy_assignable<_itemMsgMaItem_struct>::value, "no shared payload");
  SUCCEED();
}

TEST(ItemMsgWrapper, DefaultConstructionIsAllZero) {
  alignas(8) unsigned char storage[sizeof(itemMsgMaItem_t)];
  std::memset(storage, 0xEE, sizeof storage);
  auto* msg = new (storage) itemMsgMaItem_t;
  EXPECT_EQ(Bytes(sizeof storage, 0), topLevelOf(*msg));
  msg->~itemMsgMaItem_t();  // frees nothing: kind 0 with a null folder pointer
}

TEST(ItemMsgWrapper, ConstructionFromAnEmptyPointerIsAllZero) {
  alignas(8) unsigned char storage[sizeof(itemMsgMaItem_t)];
  std::memset(storage, 0xEE, sizeof storage);
  auto* msg = new (storage) itemMsgMaItem_t(ItemPtr());
  EXPECT_EQ(Bytes(sizeof storage, 0), topLevelOf(*msg));
  msg->~itemMsgMaItem_t();
}

TEST(ItemMsgWrapper, ConstructionFromAPointerOrARecordConverts) {
  const ItemPtr item = makeDistinctItem(ma::ITEM_TYPE_MUSIC, 9);
  const itemMsgMaItem_t fromPointer(item);
  const itemMsgMaItem_t fromRecord(*item);
  ma_rpc_test::defineReservedWord(fromPointer);
  ma_rpc_test::defineReservedWord(fromRecord);
  EXPECT_EQ(1u, fromPointer.kind);
  EXPECT_EQ(ma_rpc_test::imageOf(fromRecord), ma_rpc_test::imageOf(fromPointer));
  ma_rpc_test::expectInfoCarries(*infoOf(fromPointer), *item);
}

TEST(ItemMsgWrapper, AssigningAnEmptyPointerLeavesContentAndKindUntouched) {
  itemMsgMaItem_t msg(*makeItem(ma::ITEM_TYPE_DOCUMENT, "doc", "u"));
  ma_rpc_test::defineReservedWord(msg);
  const Bytes before = topLevelOf(msg);
  const Bytes image = ma_rpc_test::imageOf(msg);
  itemMsgMaItem_t& result = (msg = ItemPtr());
  EXPECT_EQ(&msg, &result);
  EXPECT_EQ(before, topLevelOf(msg));
  EXPECT_EQ(image, ma_rpc_test::imageOf(msg));
}

TEST(ItemMsgWrapper, AssigningAnItemConvertsWithoutReleasingTheOldContent) {
  itemMsgMaItem_t msg(*makeItem(ma::ITEM_TYPE_FOLDER, "old", "u"));
  itemMsgMaItem_t old;
  ma_rpc_test::copyTopLevel(msg, &old);  // `old` frees the first content
  itemMsgMaItem_t& byPointer = (msg = makeItem(ma::ITEM_TYPE_VIDEO, "new", "u"));
  EXPECT_EQ(&msg, &byPointer);
  EXPECT_EQ(7u, msg.kind);
  EXPECT_EQ(nullptr, msg.folder.data);
  EXPECT_EQ("old", ma_rpc_test::textOf(old.folder.data->info.caption));

  ma::rpc::releaseMaItemMsgContent(msg);
  itemMsgMaItem_t& byRecord = (msg = *makeItem(ma::ITEM_TYPE_OTHER, "other", "u"));
  EXPECT_EQ(&msg, &byRecord);
  EXPECT_EQ(2u, msg.kind);
  EXPECT_EQ("other", ma_rpc_test::textOf(msg.other.data->info.caption));
}

TEST(ItemMsgWrapper, ConvertingToAPointerTwiceGivesTwoDistinctEqualItems) {
  const ItemPtr item = makeDistinctItem(ma::ITEM_TYPE_VIDEO, 10);
  const itemMsgMaItem_t msg(*item);
  ma_rpc_test::defineReservedWord(msg);
  const Bytes image = ma_rpc_test::imageOf(msg);
  const ItemPtr first = msg;
  const ItemPtr second = msg;
  ASSERT_TRUE(first);
  ASSERT_TRUE(second);
  EXPECT_NE(first.get(), second.get());
  ma_rpc_test::expectSameCarriedFields(*first, *second);
  ma_rpc_test::expectSameCarriedFields(*item, *first);
  EXPECT_EQ(image, ma_rpc_test::imageOf(msg));
}

TEST(ItemMsgWrapper, AllZeroWrapperConvertsToAnEmptyPointer) {
  const itemMsgMaItem_t msg;
  const ItemPtr item = msg;
  EXPECT_FALSE(item);
}

TEST(ItemMsgWrapper, NoMemberWritesATraceLine) {
  const ItemPtr item = makeDistinctItem(ma::ITEM_TYPE_VIDEO, 13);
  ma_test::TraceCapture capture;
  {
    itemMsgMaItem_t empty;
    itemMsgMaItem_t fromEmptyPointer{ItemPtr()};
    itemMsgMaItem_t fromPointer(item);
    itemMsgMaItem_t fromRecord(*item);
    fromPointer = ItemPtr();
    ma::rpc::releaseMaItemMsgContent(fromPointer);
    fromPointer = item;
    ma::rpc::releaseMaItemMsgContent(fromRecord);
    fromRecord = *item;
    const ItemPtr fromEmpty = empty;
    const ItemPtr back = fromRecord;
    EXPECT_FALSE(fromEmpty);
    EXPECT_TRUE(back);
  }  // the destructors release
  EXPECT_EQ(std::vector<std::string>(), capture.texts());  // nothing is reported
}

TEST(ItemMsgWrapper, ItemTravelsThroughAMessageInOneExpression) {
  const ItemPtr item = makeDistinctItem(ma::ITEM_TYPE_PICTURE, 12);
  const ItemPtr back = _itemMsgMaItem_struct(item);
  ASSERT_TRUE(back);
  ma_rpc_test::expectSameCarriedFields(*item, *back);
}

}  // namespace
