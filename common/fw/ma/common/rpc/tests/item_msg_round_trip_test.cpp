// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Items through messages and back: every kind with distinct values, and
// seeded random items, directly and through the platform's serialiser.
#include <gtest/gtest.h>

#include <typeinfo>
#include <vector>

#include "item_msg_test_support.h"
#include "ma/mdc_item.h"
#include "ma/rpc/mdc_item_msg.h"
#include "zel/zel_standin_serialiser.h"

namespace {

using ma_rpc_test::ItemPtr;
using zel_standin::ByteOrder;

// Modest counts: the whole program also runs on the target under qemu.
constexpr int kDirectItems = 3000;
constexpr int kSerialisedItems = 1500;

void expectRoundTrip(const ma::ItemInfo& item, const ItemPtr& back, std::uint32_t kind) {
  ASSERT_TRUE(back);
  EXPECT_EQ(typeid(item), typeid(*back));
  EXPECT_EQ(item.getItemType(), back->getItemType()) << "kind code " << kind;
  ma_rpc_test::expectSameCarriedFields(item, *back);
}

TEST(ItemMsgRoundTrip, EveryKindWithEveryFieldDistinctComesBackEqual) {
  for (const auto& kind : ma_rpc_test::allKinds()) {
    SCOPED_TRACE(kind.name);
    const ItemPtr item = ma_rpc_test::makeDistinctItem(kind.type, 13);
    const itemMsgMaItem_t msg(*item);
    EXPECT_EQ(kind.code, msg.kind);  // the item type travels as the kind code
    expectRoundTrip(*item, ma::rpc::convertMaItem(msg), kind.code);
  }
}

TEST(ItemMsgRoundTrip, RandomItemsComeBackEqual) {
  const std::uint32_t seed = 0x5EED0001u;
  SCOPED_TRACE("seed " + std::to_string(seed));
  ma_rpc_test::RandomItems random(seed);
  for (int i = 0; i < kDirectItems && !HasFailure(); ++i) {
    SCOPED_TRACE("item " + std::to_string(i));
    const ItemPtr item = random.next();
    const itemMsgMaItem_t msg(*item);
    expectRoundTrip(*item, msg, msg.kind);
  }
}

TEST(ItemMsgRoundTrip, RandomItemsComeBackEqualThroughTheSerialiser) {
  const std::uint32_t seed = 0x5EED0002u;
  SCOPED_TRACE("seed " + std::to_string(seed));
  ma_rpc_test::RandomItems random(seed);
  for (int i = 0; i < kSerialisedItems && !HasFailure(); ++i) {
    SCOPED_TRACE("item " + std::to_string(i));
    const ItemPtr item = random.next();
    itemMsgMaItem_t msg(*item);
    ma_rpc_test::defineReservedWord(msg, static_cast<std::uint32_t>(i));
    const ByteOrder order = i % 2 == 0 ? ByteOrder::kSwapped : ByteOrder::kNative;
    std::vector<unsigned char> buffer;
    ASSERT_TRUE(zel_standin::flatten(__zel_EndianTable_itemMsgMaItem_t, &msg, order, &buffer));
    itemMsgMaItem_t received;
    ASSERT_TRUE(zel_standin::unflatten(__zel_EndianTable_itemMsgMaItem_t, buffer.data(),
                                       buffer.size(), order, &received));
    EXPECT_EQ(ma_rpc_test::imageOf(msg), ma_rpc_test::imageOf(received));
    expectRoundTrip(*item, received, received.kind);

    const std::vector<unsigned char> image = ma_rpc_test::imageOf(msg);
    ASSERT_TRUE(zel_standin::swapInPlace(__zel_EndianTable_itemMsgMaItem_t, &msg));
    ASSERT_TRUE(zel_standin::swapInPlace(__zel_EndianTable_itemMsgMaItem_t, &msg));
    EXPECT_EQ(image, ma_rpc_test::imageOf(msg));
  }
}

}  // namespace
