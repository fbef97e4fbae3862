// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The message structures and their endian descriptions, proven against the
// platform's table-walking serialiser (its stand-in).
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "item_msg_test_support.h"
#include "ma/rpc/mdc_item_msg.h"
#include "zel/zel_standin_serialiser.h"

namespace {

using ma_rpc_test::allKinds;
using ma_rpc_test::infoMembers;
using ma_rpc_test::KindCase;
using zel_standin::ByteOrder;
using Bytes = std::vector<unsigned char>;

const void* const kEndLink = reinterpret_cast<const void*>(std::uintptr_t{ZEL_ENDIAN_END_LINK});

std::uint32_t codeOf(const zelEndianEntry_t& entry) { return entry.descriptor >> 16; }
std::uint32_t offsetOf(const zelEndianEntry_t& entry) { return entry.descriptor & 0xFFFFu; }

// ---------------------------------------------------------------------------
// Structures

TEST(ItemMsgStructures, CommonBlockIsItsMembersWithoutPadding) {
  std::size_t next = 0;
  for (const auto& member : infoMembers()) {
    EXPECT_EQ(next, member.offset) << member.name;
    next = member.offset + member.size;
  }
  EXPECT_EQ(sizeof(itemMsgMaItemInfo_t), next);
  EXPECT_EQ(60u, infoMembers().size());
  EXPECT_EQ(42 * sizeof(zelDeserString_t) + 2 * 8 + 12 * 4 + 3 * 1 + 4, sizeof(itemMsgMaItemInfo_t));
}

TEST(ItemMsgStructures, VideoPayloadIsCommonBlockAndTwoStringsOthersTheCommonBlockAlone) {
  EXPECT_EQ(sizeof(itemMsgMaItemInfo_t) + 2 * sizeof(zelDeserString_t), sizeof(itemMsgMaItemVideo_t));
  EXPECT_EQ(sizeof(itemMsgMaItemInfo_t), offsetof(itemMsgMaItemVideo_t, startTime));
  EXPECT_EQ(sizeof(itemMsgMaItemInfo_t) + sizeof(zelDeserString_t),
            offsetof(itemMsgMaItemVideo_t, endTime));
  for (std::size_t size : {sizeof(itemMsgMaItemFolder_t), sizeof(itemMsgMaItemMusic_t),
                           sizeof(itemMsgMaItemOther_t), sizeof(itemMsgMaItemPicture_t),
                           sizeof(itemMsgMaItemPlaylist_t), sizeof(itemMsgMaItemUnknown_t),
                           sizeof(itemMsgMaItemInteractive_t), sizeof(itemMsgMaItemDocument_t)}) {
    EXPECT_EQ(sizeof(itemMsgMaItemInfo_t), size);
  }
}

TEST(ItemMsgStructures, MessageIsKindAndNineOptionalReferences) {
  const std::size_t reference = 4 + sizeof(void*);
  EXPECT_EQ(reference, sizeof(itemMsgOptionalRef_t<itemMsgMaItemVideo_t>));
  EXPECT_EQ(4 + 9 * reference, sizeof(itemMsgMaItem_t));
  EXPECT_EQ(4 + 0 * reference, offsetof(itemMsgMaItem_t, folder));
  EXPECT_EQ(4 + 1 * reference, offsetof(itemMsgMaItem_t, music));
  EXPECT_EQ(4 + 2 * reference, offsetof(itemMsgMaItem_t, other));
  EXPECT_EQ(4 + 3 * reference, offsetof(itemMsgMaItem_t, picture));
  EXPECT_EQ(4 + 4 * reference, offsetof(itemMsgMaItem_t, playlist));
  EXPECT_EQ(4 + 5 * reference, offsetof(itemMsgMaItem_t, unknown));
  EXPECT_EQ(4 + 6 * reference, offsetof(itemMsgMaItem_t, video));
  EXPECT_EQ(4 + 7 * reference, offsetof(itemMsgMaItem_t, interactive));
  EXPECT_EQ(4 + 8 * reference, offsetof(itemMsgMaItem_t, document));
}

#if __SIZEOF_POINTER__ == 4
TEST(ItemMsgStructures, VideoMessageIs76Plus423BytesAndOtherKinds76Plus407) {
  EXPECT_EQ(76u, sizeof(itemMsgMaItem_t));
  EXPECT_EQ(423u, sizeof(itemMsgMaItemVideo_t));
  EXPECT_EQ(407u, sizeof(itemMsgMaItemFolder_t));
  EXPECT_EQ(407u, sizeof(itemMsgMaItemDocument_t));
}

TEST(ItemMsgStructures, TargetOffsetsOfTheCommonBlockAreByteForByte) {
  const std::map<std::string, std::size_t> oddOnes = {
      {"volumeCorrection", 313}, {"reserved", 319}, {"soundSelection", 323}, {"lcn", 327},
      {"epgTheme", 331},         {"networkID", 335}, {"recStartTime", 339}, {"recFailType", 395},
      {"recChnum", 403}};
  for (const auto& member : infoMembers()) {
    auto odd = oddOnes.find(member.name);
    if (odd != oddOnes.end()) {
      EXPECT_EQ(odd->second, member.offset) << member.name;
    }
  }
  EXPECT_EQ(407u, sizeof(itemMsgMaItemInfo_t));
}
#endif

// ---------------------------------------------------------------------------
// The description contract, restated from the message format

enum class Role {
  kNone, kString, kMessage, kInfo, kVideo, kFolder, kMusic, kOther, kPicture, kPlaylist,
  kUnknown, kInteractive, kDocument
};

struct ExpectedEntry {
  std::uint32_t code;
  std::size_t offset;
  Role link;
};

struct ExpectedDescription {
  std::size_t size;
  std::vector<ExpectedEntry> entries;
};

#define MA_EXPECT_STRING(member) {3, offsetof(itemMsgMaItemInfo_t, member), Role::kString}
#define MA_EXPECT_SCALAR(code, member) {code, offsetof(itemMsgMaItemInfo_t, member), Role::kNone}

ExpectedDescription expectedFor(Role role) {
  switch (role) {
    case Role::kMessage:
      return {sizeof(itemMsgMaItem_t),
              {{4, offsetof(itemMsgMaItem_t, kind), Role::kNone},
               {0x4049, offsetof(itemMsgMaItem_t, folder), Role::kFolder},
               {0x4049, offsetof(itemMsgMaItem_t, music), Role::kMusic},
               {0x4049, offsetof(itemMsgMaItem_t, other), Role::kOther},
               {0x4049, offsetof(itemMsgMaItem_t, picture), Role::kPicture},
               {0x4049, offsetof(itemMsgMaItem_t, playlist), Role::kPlaylist},
               {0x4049, offsetof(itemMsgMaItem_t, unknown), Role::kUnknown},
               {0x4049, offsetof(itemMsgMaItem_t, video), Role::kVideo},
               {0x4049, offsetof(itemMsgMaItem_t, interactive), Role::kInteractive},
               {0x4049, offsetof(itemMsgMaItem_t, document), Role::kDocument}}};
    case Role::kVideo:
      return {sizeof(itemMsgMaItemVideo_t),
              {{3, offsetof(itemMsgMaItemVideo_t, info), Role::kInfo},
               {3, offsetof(itemMsgMaItemVideo_t, startTime), Role::kString},
               {3, offsetof(itemMsgMaItemVideo_t, endTime), Role::kString}}};
    case Role::kInfo:
      return {sizeof(itemMsgMaItemInfo_t),
              {MA_EXPECT_STRING(itemSubType), MA_EXPECT_STRING(caption), MA_EXPECT_STRING(uuid),
               MA_EXPECT_STRING(originalUuid), MA_EXPECT_STRING(originalVolume),
               MA_EXPECT_STRING(itemLocator), MA_EXPECT_STRING(playtime),
               MA_EXPECT_STRING(thumbURL), MA_EXPECT_STRING(stationName),
               MA_EXPECT_STRING(stationDescription), MA_EXPECT_STRING(title),
               MA_EXPECT_STRING(genre), MA_EXPECT_STRING(description), MA_EXPECT_STRING(comment),
               MA_EXPECT_STRING(date), MA_EXPECT_STRING(userIndex),
               MA_EXPECT_STRING(parentalRating), MA_EXPECT_STRING(displayRules),
               MA_EXPECT_SCALAR(8, fileSize), MA_EXPECT_SCALAR(4, attributes),
               MA_EXPECT_SCALAR(4, maxPosition), MA_EXPECT_SCALAR(4, resumePosition),
               MA_EXPECT_SCALAR(8, dateNumeric), MA_EXPECT_STRING(originalAncestor),
               MA_EXPECT_STRING(creator), MA_EXPECT_STRING(longStationDescription),
               MA_EXPECT_STRING(artist), MA_EXPECT_STRING(album), MA_EXPECT_STRING(albumUUID),
               MA_EXPECT_STRING(trackNum), MA_EXPECT_STRING(year), MA_EXPECT_STRING(bitrate),
               MA_EXPECT_STRING(actor), MA_EXPECT_STRING(director),
               MA_EXPECT_STRING(creationTime), MA_EXPECT_STRING(modificationTime),
               MA_EXPECT_STRING(encryptionScheme), MA_EXPECT_STRING(encryptionInfo),
               MA_EXPECT_STRING(tunerUUID), MA_EXPECT_STRING(recStartTime),
               MA_EXPECT_STRING(recEndTime), MA_EXPECT_STRING(recDuration),
               MA_EXPECT_STRING(recTsId), MA_EXPECT_STRING(recOnId),
               MA_EXPECT_STRING(recServiceId), MA_EXPECT_STRING(recEventType),
               MA_EXPECT_STRING(recFailType), MA_EXPECT_SCALAR(4, recChnum),
               MA_EXPECT_SCALAR(4, previewPage), MA_EXPECT_SCALAR(4, subtitlePage),
               MA_EXPECT_SCALAR(4, encoding), MA_EXPECT_SCALAR(1, receivable),
               MA_EXPECT_SCALAR(4, volumeCorrection), MA_EXPECT_SCALAR(1, visible),
               MA_EXPECT_SCALAR(1, selectable), MA_EXPECT_SCALAR(4, reserved),
               MA_EXPECT_SCALAR(4, soundSelection), MA_EXPECT_SCALAR(4, lcn),
               MA_EXPECT_SCALAR(4, epgTheme), MA_EXPECT_SCALAR(4, networkID)}};
    case Role::kNone:
    case Role::kString:
      break;
    default:  // the eight kinds whose payload is the common block alone
      return {sizeof(itemMsgMaItemInfo_t), {{3, 0, Role::kInfo}}};
  }
  return {0, {}};
}

#undef MA_EXPECT_SCALAR
#undef MA_EXPECT_STRING

// Which description plays which role; each role has its own description.
using Roles = std::map<const zelEndianTable_t*, Role>;

// Whether `table` and everything it links to is what the message format
// prescribes: sizes, entry order, codes, offsets, links and terminators.
::testing::AssertionResult describes(const zelEndianTable_t& table, Role role,
                                     const std::string& where, Roles& roles) {
  for (const auto& known : roles) {
    if ((known.first == &table) != (known.second == role)) {
      return ::testing::AssertionFailure() << where << ": one description for two roles";
    }
  }
  roles[&table] = role;
  const ExpectedDescription expected = expectedFor(role);
  if (table.size != expected.size) {
    return ::testing::AssertionFailure() << where << ": size " << table.size << " instead of "
                                         << expected.size;
  }
  for (std::size_t i = 0; i <= expected.entries.size(); ++i) {
    const zelEndianEntry_t& entry = table.entries[i];
    const std::string at = where + " entry " + std::to_string(i);
    if (i == expected.entries.size()) {
      if (entry.descriptor != ZEL_ENDIAN_END_DESCRIPTOR || entry.link != kEndLink) {
        return ::testing::AssertionFailure() << at << " is not the terminator";
      }
      break;
    }
    const ExpectedEntry& want = expected.entries[i];
    if (codeOf(entry) != want.code || offsetOf(entry) != want.offset) {
      return ::testing::AssertionFailure()
             << at << ": code " << codeOf(entry) << " offset " << offsetOf(entry)
             << " instead of code " << want.code << " offset " << want.offset;
    }
    if (want.link == Role::kNone) {
      if (entry.link != nullptr) return ::testing::AssertionFailure() << at << " has a link";
    } else if (want.link == Role::kString) {
      if (entry.link != &__zel_EndianTable_zelDeserString_t) {
        return ::testing::AssertionFailure() << at << " does not link the string description";
      }
    } else {
      if (entry.link == nullptr) return ::testing::AssertionFailure() << at << " has no link";
      ::testing::AssertionResult linked = describes(
          *static_cast<const zelEndianTable_t*>(entry.link), want.link, at + " ->", roles);
      if (!linked) return linked;
    }
  }
  return ::testing::AssertionSuccess();
}

::testing::AssertionResult describes(const zelEndianTable_t& table, Role role,
                                     const std::string& where) {
  Roles roles;
  return describes(table, role, where, roles);
}

TEST(ItemMsgDescriptions, MessageDescriptionAndAllItLinksFollowTheFormat) {
  EXPECT_TRUE(describes(__zel_EndianTable_itemMsgMaItem_t, Role::kMessage, "message"));
}

TEST(ItemMsgDescriptions, EveryDescriptionFollowsTheFormatOnItsOwn) {
  EXPECT_TRUE(describes(__zel_EndianTable_itemMsgMaItemInfo_t, Role::kInfo, "info"));
  EXPECT_TRUE(describes(__zel_EndianTable_itemMsgMaItemVideo_t, Role::kVideo, "video"));
  for (const zelEndianTable_t* table :
       {&__zel_EndianTable_itemMsgMaItemFolder_t, &__zel_EndianTable_itemMsgMaItemMusic_t,
        &__zel_EndianTable_itemMsgMaItemOther_t, &__zel_EndianTable_itemMsgMaItemPicture_t,
        &__zel_EndianTable_itemMsgMaItemPlaylist_t, &__zel_EndianTable_itemMsgMaItemUnknown_t,
        &__zel_EndianTable_itemMsgMaItemInteractive_t, &__zel_EndianTable_itemMsgMaItemDocument_t}) {
    EXPECT_TRUE(describes(*table, Role::kFolder, "kind"));
  }
}

TEST(ItemMsgDescriptions, LinksAreTheExportedDescriptions) {
  const zelEndianEntry_t* message = __zel_EndianTable_itemMsgMaItem_t.entries;
  const zelEndianTable_t* kinds[] = {
      &__zel_EndianTable_itemMsgMaItemFolder_t,   &__zel_EndianTable_itemMsgMaItemMusic_t,
      &__zel_EndianTable_itemMsgMaItemOther_t,    &__zel_EndianTable_itemMsgMaItemPicture_t,
      &__zel_EndianTable_itemMsgMaItemPlaylist_t, &__zel_EndianTable_itemMsgMaItemUnknown_t,
      &__zel_EndianTable_itemMsgMaItemVideo_t,    &__zel_EndianTable_itemMsgMaItemInteractive_t,
      &__zel_EndianTable_itemMsgMaItemDocument_t};
  for (std::size_t i = 0; i < 9; ++i) {
    EXPECT_EQ(kinds[i], message[i + 1].link) << i;
    EXPECT_EQ(&__zel_EndianTable_itemMsgMaItemInfo_t, kinds[i]->entries[0].link) << i;
  }
}

TEST(ItemMsgDescriptions, ElevenDescriptionsAreExportedUnderTheirNames) {
  const std::map<std::string, const zelEndianTable_t*> names = {
      {"__zel_EndianTable_itemMsgMaItem_t", &__zel_EndianTable_itemMsgMaItem_t},
      {"__zel_EndianTable_itemMsgMaItemInfo_t", &__zel_EndianTable_itemMsgMaItemInfo_t},
      {"__zel_EndianTable_itemMsgMaItemVideo_t", &__zel_EndianTable_itemMsgMaItemVideo_t},
      {"__zel_EndianTable_itemMsgMaItemFolder_t", &__zel_EndianTable_itemMsgMaItemFolder_t},
      {"__zel_EndianTable_itemMsgMaItemMusic_t", &__zel_EndianTable_itemMsgMaItemMusic_t},
      {"__zel_EndianTable_itemMsgMaItemOther_t", &__zel_EndianTable_itemMsgMaItemOther_t},
      {"__zel_EndianTable_itemMsgMaItemPicture_t", &__zel_EndianTable_itemMsgMaItemPicture_t},
      {"__zel_EndianTable_itemMsgMaItemPlaylist_t", &__zel_EndianTable_itemMsgMaItemPlaylist_t},
      {"__zel_EndianTable_itemMsgMaItemUnknown_t", &__zel_EndianTable_itemMsgMaItemUnknown_t},
      {"__zel_EndianTable_itemMsgMaItemInteractive_t",
       &__zel_EndianTable_itemMsgMaItemInteractive_t},
      {"__zel_EndianTable_itemMsgMaItemDocument_t", &__zel_EndianTable_itemMsgMaItemDocument_t}};
  for (const auto& name : names) {
    EXPECT_EQ(static_cast<const void*>(name.second), dlsym(RTLD_DEFAULT, name.first.c_str()))
        << name.first;
  }
}

TEST(ItemMsgDescriptions, SerialiserFindsNoFaultInAnyDescription) {
  for (const zelEndianTable_t* table :
       {&__zel_EndianTable_itemMsgMaItem_t, &__zel_EndianTable_itemMsgMaItemInfo_t,
        &__zel_EndianTable_itemMsgMaItemVideo_t, &__zel_EndianTable_itemMsgMaItemDocument_t}) {
    const std::vector<std::string> faults = zel_standin::descriptionFaults(*table);
    EXPECT_TRUE(faults.empty()) << faults.front();
  }
}

#if __SIZEOF_POINTER__ == 4
// The numbers of the format itself, without the declarations.
TEST(ItemMsgDescriptions, TargetEntriesCarryTheFormatsNumbers) {
  std::vector<std::pair<std::uint32_t, std::uint32_t>> info;  // (code, offset)
  for (std::uint32_t offset = 0; offset <= 136; offset += 8) info.push_back({3, offset});
  for (auto entry : {std::make_pair(8u, 144u), {4u, 152u}, {4u, 156u}, {4u, 160u}, {8u, 164u}}) {
    info.push_back(entry);
  }
  for (std::uint32_t offset = 172; offset <= 292; offset += 8) info.push_back({3, offset});
  for (std::uint32_t offset = 339; offset <= 395; offset += 8) info.push_back({3, offset});
  for (auto entry : {std::make_pair(4u, 403u), {4u, 300u}, {4u, 304u}, {4u, 308u}, {1u, 312u},
                     {4u, 313u}, {1u, 317u}, {1u, 318u}, {4u, 319u}, {4u, 323u}, {4u, 327u},
                     {4u, 331u}, {4u, 335u}}) {
    info.push_back(entry);
  }
  ASSERT_EQ(60u, info.size());
  EXPECT_EQ(407u, __zel_EndianTable_itemMsgMaItemInfo_t.size);
  for (std::size_t i = 0; i < info.size(); ++i) {
    EXPECT_EQ(info[i].first << 16 | info[i].second,
              __zel_EndianTable_itemMsgMaItemInfo_t.entries[i].descriptor)
        << i;
  }
  EXPECT_EQ(0u, __zel_EndianTable_itemMsgMaItemInfo_t.entries[60].descriptor);
  EXPECT_EQ(0xFFFFFFFFu, reinterpret_cast<std::uintptr_t>(
                             __zel_EndianTable_itemMsgMaItemInfo_t.entries[60].link));

  EXPECT_EQ(76u, __zel_EndianTable_itemMsgMaItem_t.size);
  EXPECT_EQ(0x40000u, __zel_EndianTable_itemMsgMaItem_t.entries[0].descriptor);
  for (std::uint32_t slot = 0; slot < 9; ++slot) {
    EXPECT_EQ(0x40490000u | (4 + 8 * slot), __zel_EndianTable_itemMsgMaItem_t.entries[1 + slot].descriptor);
  }
  EXPECT_EQ(423u, __zel_EndianTable_itemMsgMaItemVideo_t.size);
  EXPECT_EQ(0x30000u, __zel_EndianTable_itemMsgMaItemVideo_t.entries[0].descriptor);
  EXPECT_EQ(0x30000u | 407u, __zel_EndianTable_itemMsgMaItemVideo_t.entries[1].descriptor);
  EXPECT_EQ(0x30000u | 415u, __zel_EndianTable_itemMsgMaItemVideo_t.entries[2].descriptor);
  EXPECT_EQ(407u, __zel_EndianTable_itemMsgMaItemMusic_t.size);
  EXPECT_EQ(0x30000u, __zel_EndianTable_itemMsgMaItemMusic_t.entries[0].descriptor);
}
#endif

// ---------------------------------------------------------------------------
// Proof through the serialiser

// A message of `kind` with every field distinct and the reserved word set.
void fillDistinct(const KindCase& kind, itemMsgMaItem_t* msg) {
  ma::rpc::convertMaItem(*msg, *ma_rpc_test::makeDistinctItem(kind.type, 7));
  ma_rpc_test::defineReservedWord(*msg, 0x0A0B0C0Du);
}

// Whether the serialiser, walking `root`, flattens `msg` and rebuilds it
// unchanged in both byte orders, swaps every scalar of it, and swaps it back.
// `msg` is the same afterwards.
::testing::AssertionResult survivesSerialiser(const zelEndianTable_t& root, itemMsgMaItem_t& msg) {
  const std::vector<std::string> faults = zel_standin::descriptionFaults(root);
  if (!faults.empty()) return ::testing::AssertionFailure() << faults.front();
  const Bytes image = ma_rpc_test::imageOf(msg);
  for (ByteOrder order : {ByteOrder::kNative, ByteOrder::kSwapped}) {
    Bytes buffer;
    if (!zel_standin::flatten(root, &msg, order, &buffer)) {
      return ::testing::AssertionFailure() << "not flattened";
    }
    itemMsgMaItem_t rebuilt;  // zero; the serialiser fills the same 76 bytes
    if (!zel_standin::unflatten(root, buffer.data(), buffer.size(), order, &rebuilt)) {
      return ::testing::AssertionFailure() << "not rebuilt";
    }
    const bool same = ma_rpc_test::imageOf(rebuilt) == image;
    zel_standin::freeReferences(root, &rebuilt);
    if (!same) return ::testing::AssertionFailure() << "rebuilt message differs";
  }
  const ma_rpc_test::MessageBytes before = ma_rpc_test::bytesOf(msg);
  zel_standin::swapInPlace(root, &msg);
  const ma_rpc_test::MessageBytes swapped = ma_rpc_test::bytesOf(msg);
  zel_standin::swapInPlace(root, &msg);
  ::testing::AssertionResult reversed = ma_rpc_test::isByteSwapOf(before, swapped);
  if (!reversed) return reversed;
  if (ma_rpc_test::imageOf(msg) != image) {
    return ::testing::AssertionFailure() << "swapping twice did not restore the message";
  }
  return ::testing::AssertionSuccess();
}

TEST(ItemMsgSerialiser, EveryKindFlattensRebuildsAndSwapsThroughTheDescriptions) {
  for (const KindCase& kind : allKinds()) {
    itemMsgMaItem_t msg;
    fillDistinct(kind, &msg);
    EXPECT_TRUE(survivesSerialiser(__zel_EndianTable_itemMsgMaItem_t, msg)) << kind.name;
  }
}

TEST(ItemMsgSerialiser, RebuiltMessageConvertsToAnEqualItem) {
  for (const KindCase& kind : allKinds()) {
    const ma_rpc_test::ItemPtr item = ma_rpc_test::makeDistinctItem(kind.type, 3);
    const itemMsgMaItem_t msg(*item);
    Bytes buffer;
    ASSERT_TRUE(zel_standin::flatten(__zel_EndianTable_itemMsgMaItem_t, &msg, ByteOrder::kSwapped,
                                     &buffer));
    itemMsgMaItem_t rebuilt;
    ASSERT_TRUE(zel_standin::unflatten(__zel_EndianTable_itemMsgMaItem_t, buffer.data(),
                                       buffer.size(), ByteOrder::kSwapped, &rebuilt));
    const ma_rpc_test::ItemPtr back = rebuilt;
    ASSERT_TRUE(back) << kind.name;
    EXPECT_EQ(typeid(*item), typeid(*back)) << kind.name;
    ma_rpc_test::expectSameCarriedFields(*item, *back);
  }  // the rebuilt message goes back through the library's release
}

TEST(ItemMsgSerialiser, AllZeroMessageFlattensToZeroKindAndNineAbsentReferences) {
  const itemMsgMaItem_t msg;
  Bytes buffer;
  ASSERT_TRUE(zel_standin::flatten(__zel_EndianTable_itemMsgMaItem_t, &msg, ByteOrder::kNative,
                                   &buffer));
  EXPECT_EQ(Bytes(4 + 9 * (4 + 1), 0), buffer);
}

TEST(ItemMsgSerialiser, OneSwapReversesTheKindWordOfTheMessage) {
  itemMsgMaItem_t msg;
  fillDistinct(allKinds()[8], &msg);  // document, kind 9
  const std::uint32_t length = msg.document.data->info.caption.length;
  ASSERT_LT(length, 256u);
  ASSERT_TRUE(zel_standin::swapInPlace(__zel_EndianTable_itemMsgMaItem_t, &msg));
  EXPECT_EQ(0x09000000u, msg.kind);
  EXPECT_EQ(0x01000000u, msg.document.present);
  const std::uint32_t swappedLength = msg.document.data->info.caption.length;
  EXPECT_EQ(length << 24, swappedLength);
  ASSERT_TRUE(zel_standin::swapInPlace(__zel_EndianTable_itemMsgMaItem_t, &msg));
  EXPECT_EQ(9u, msg.kind);
}

// ---------------------------------------------------------------------------
// A wrong entry is caught

// A deep copy of a description and everything it links to (the platform's
// string description excepted), for breaking one entry at a time.
class DescriptionCopy {
 public:
  explicit DescriptionCopy(const zelEndianTable_t& root) : root_(copy(root)) {}

  const zelEndianTable_t& root() {
    for (auto& node : nodes_) node.second->table.entries = node.second->entries.data();
    return *root_;
  }

  // The copy's version of `original`, to link to or to change.
  zelEndianTable_t* copyOf(const zelEndianTable_t& original) { return &nodes_.at(&original)->table; }
  std::vector<zelEndianEntry_t>& entriesOf(const zelEndianTable_t& original) {
    return nodes_.at(&original)->entries;
  }

 private:
  struct Node {
    zelEndianTable_t table;
    std::vector<zelEndianEntry_t> entries;
  };

  zelEndianTable_t* copy(const zelEndianTable_t& original) {
    auto found = nodes_.find(&original);
    if (found != nodes_.end()) return &found->second->table;
    Node& node = *(nodes_[&original] = std::make_unique<Node>());
    node.table = original;
    for (const zelEndianEntry_t* entry = original.entries;; ++entry) {
      node.entries.push_back(*entry);
      if (entry->descriptor == ZEL_ENDIAN_END_DESCRIPTOR) break;
    }
    for (zelEndianEntry_t& entry : node.entries) {
      const auto* linked = static_cast<const zelEndianTable_t*>(entry.link);
      if (entry.descriptor != ZEL_ENDIAN_END_DESCRIPTOR && linked != nullptr &&
          linked != &__zel_EndianTable_zelDeserString_t) {
        entry.link = copy(*linked);
      }
    }
    return &node.table;
  }

  std::map<const zelEndianTable_t*, std::unique_ptr<Node>> nodes_;
  zelEndianTable_t* root_;
};

zelEndianEntry_t entry(std::uint32_t code, std::size_t offset, const void* link = nullptr) {
  return {code << 16 | static_cast<std::uint32_t>(offset), link};
}

std::size_t indexOfOffset(const std::vector<zelEndianEntry_t>& entries, std::size_t offset) {
  for (std::size_t i = 0; i + 1 < entries.size(); ++i) {
    if (offsetOf(entries[i]) == offset) return i;
  }
  ADD_FAILURE() << "no entry at offset " << offset;
  return 0;
}

class ItemMsgWrongEntry : public ::testing::Test {
 protected:
  ItemMsgWrongEntry() : copy_(__zel_EndianTable_itemMsgMaItem_t) {
    fillDistinct(allKinds()[6], &video_);  // kind 7
    fillDistinct(allKinds()[1], &music_);  // kind 1
  }

  std::vector<zelEndianEntry_t>& info() { return copy_.entriesOf(__zel_EndianTable_itemMsgMaItemInfo_t); }
  std::size_t infoIndex(std::size_t offset) { return indexOfOffset(info(), offset); }

  // The copy with its change fails the format check and the serialiser.
  void expectCaught() {
    const zelEndianTable_t& root = copy_.root();
    EXPECT_FALSE(describes(root, Role::kMessage, "message"));
    EXPECT_FALSE(survivesSerialiser(root, video_));
  }

  DescriptionCopy copy_;
  itemMsgMaItem_t video_;
  itemMsgMaItem_t music_;
};

TEST_F(ItemMsgWrongEntry, UnchangedCopyPassesEveryCheck) {
  const zelEndianTable_t& root = copy_.root();
  EXPECT_TRUE(describes(root, Role::kMessage, "message"));
  EXPECT_TRUE(survivesSerialiser(root, video_));
  EXPECT_TRUE(survivesSerialiser(root, music_));
}

TEST_F(ItemMsgWrongEntry, EightByteNumberDescribedAsFourBytesIsCaught) {
  info()[infoIndex(offsetof(itemMsgMaItemInfo_t, fileSize))].descriptor =
      4u << 16 | offsetof(itemMsgMaItemInfo_t, fileSize);
  expectCaught();
}

TEST_F(ItemMsgWrongEntry, EightByteNumberDescribedAsTwoHalvesIsCaughtByTheSwap) {
  const std::size_t at = offsetof(itemMsgMaItemInfo_t, dateNumeric);
  const std::size_t index = infoIndex(at);
  info()[index] = entry(4, at);
  info().insert(info().begin() + static_cast<std::ptrdiff_t>(index) + 1, entry(4, at + 4));
  const zelEndianTable_t& root = copy_.root();
  EXPECT_TRUE(zel_standin::descriptionFaults(root).empty()) << "only the swap can tell";
  EXPECT_FALSE(describes(root, Role::kMessage, "message"));
  EXPECT_FALSE(survivesSerialiser(root, video_));
}

TEST_F(ItemMsgWrongEntry, StringAtAShiftedOffsetIsCaught) {
  info()[infoIndex(offsetof(itemMsgMaItemInfo_t, title))].descriptor =
      3u << 16 | (offsetof(itemMsgMaItemInfo_t, title) + 1);
  expectCaught();
}

TEST_F(ItemMsgWrongEntry, MissingMemberIsCaught) {
  info().erase(info().begin() + static_cast<std::ptrdiff_t>(infoIndex(offsetof(itemMsgMaItemInfo_t, networkID))));
  expectCaught();
}

TEST_F(ItemMsgWrongEntry, ReservedWordLeftOutIsCaught) {
  info().erase(info().begin() + static_cast<std::ptrdiff_t>(infoIndex(offsetof(itemMsgMaItemInfo_t, reserved))));
  expectCaught();
}

TEST_F(ItemMsgWrongEntry, DuplicatedMemberIsCaught) {
  info().insert(info().begin(), entry(4, offsetof(itemMsgMaItemInfo_t, lcn)));
  expectCaught();
}

TEST_F(ItemMsgWrongEntry, BoolDescribedAsFourBytesIsCaught) {
  info()[infoIndex(offsetof(itemMsgMaItemInfo_t, receivable))] =
      entry(4, offsetof(itemMsgMaItemInfo_t, receivable));
  expectCaught();
}

TEST_F(ItemMsgWrongEntry, StringLinkedToTheWrongDescriptionIsCaught) {
  info()[infoIndex(offsetof(itemMsgMaItemInfo_t, caption))].link =
      copy_.copyOf(__zel_EndianTable_itemMsgMaItemInfo_t);
  expectCaught();
}

TEST_F(ItemMsgWrongEntry, WrongStructureSizeIsCaught) {
  copy_.copyOf(__zel_EndianTable_itemMsgMaItemInfo_t)->size -= 1;
  expectCaught();
}

TEST_F(ItemMsgWrongEntry, TerminatorWithoutItsLinkWordIsCaught) {
  info().back().link = nullptr;
  expectCaught();
}

TEST_F(ItemMsgWrongEntry, VideoEndTimeOverStartTimeIsCaught) {
  copy_.entriesOf(__zel_EndianTable_itemMsgMaItemVideo_t)[2].descriptor =
      3u << 16 | offsetof(itemMsgMaItemVideo_t, startTime);
  expectCaught();
}

TEST_F(ItemMsgWrongEntry, KindWordDescribedAsEightBytesIsCaught) {
  copy_.entriesOf(__zel_EndianTable_itemMsgMaItem_t)[0].descriptor = 8u << 16;
  expectCaught();
}

TEST_F(ItemMsgWrongEntry, OptionalReferenceDescribedAsEmbeddedStructureIsCaught) {
  copy_.entriesOf(__zel_EndianTable_itemMsgMaItem_t)[7].descriptor =
      3u << 16 | offsetof(itemMsgMaItem_t, video);
  expectCaught();
}

// Entry order and links between same-sized descriptions are invisible to a
// walk that writes and reads with the same description; the format check
// catches them.
TEST_F(ItemMsgWrongEntry, EntriesInAnotherOrderAreCaughtByTheFormatCheck) {
  std::swap(info()[infoIndex(offsetof(itemMsgMaItemInfo_t, maxPosition))],
            info()[infoIndex(offsetof(itemMsgMaItemInfo_t, resumePosition))]);
  const zelEndianTable_t& root = copy_.root();
  EXPECT_TRUE(survivesSerialiser(root, video_));
  EXPECT_FALSE(describes(root, Role::kMessage, "message"));
}

TEST_F(ItemMsgWrongEntry, SlotLinkedToAnotherKindIsCaughtByTheFormatCheck) {
  copy_.entriesOf(__zel_EndianTable_itemMsgMaItem_t)[2].link =
      copy_.copyOf(__zel_EndianTable_itemMsgMaItemFolder_t);
  const zelEndianTable_t& root = copy_.root();
  EXPECT_TRUE(survivesSerialiser(root, music_));
  EXPECT_FALSE(describes(root, Role::kMessage, "message"));
}

}  // namespace
