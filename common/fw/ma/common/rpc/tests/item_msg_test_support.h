// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Helpers of the item message tests: the common block restated member by
// member, items with every field set, field-by-field comparison, message
// images that compare string contents instead of pointers, and random items.
//
// The member list below is written from the message contract on its own; it
// does not use the library's tables, so that tests can hold those tables
// against it.
#ifndef MA_RPC_TESTS_ITEM_MSG_TEST_SUPPORT_H_
#define MA_RPC_TESTS_ITEM_MSG_TEST_SUPPORT_H_

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <boost/shared_ptr.hpp>

#include "ma/mdc_item.h"
#include "ma/rpc/mdc_item_msg.h"

// Every member of itemMsgMaItemInfo_t in offset order, as
// X(kind, member, getter): kind S string, N number, B bool, R the reserved
// word (its getter is `none`).
// clang-format off
#define MA_TEST_INFO_MEMBERS(X)                                   \
  X(S, itemSubType, getItemSubType)                               \
  X(S, caption, getCaption)                                       \
  X(S, uuid, getUUID)                                             \
  X(S, originalUuid, getOriginalUuid)                             \
  X(S, originalVolume, getOriginalVolume)                         \
  X(S, itemLocator, getItemLocator)                               \
  X(S, playtime, getPlaytime)                                     \
  X(S, thumbURL, getThumbURL)                                     \
  X(S, stationName, getStationName)                               \
  X(S, stationDescription, getStationDescription)                 \
  X(S, title, getTitle)                                           \
  X(S, genre, getGenre)                                           \
  X(S, description, getDescription)                               \
  X(S, comment, getComment)                                       \
  X(S, date, getDate)                                             \
  X(S, userIndex, getUserIndex)                                   \
  X(S, parentalRating, getParentalRating)                         \
  X(S, displayRules, getDisplayRules)                             \
  X(N, fileSize, getFileSize)                                     \
  X(N, attributes, getAttributes)                                 \
  X(N, maxPosition, getMaxPosition)                               \
  X(N, resumePosition, getResumePosition)                         \
  X(N, dateNumeric, getDateNumeric)                               \
  X(S, originalAncestor, getOriginalAncestor)                     \
  X(S, creator, getCreator)                                       \
  X(S, longStationDescription, getLongStationDescription)         \
  X(S, artist, getArtist)                                         \
  X(S, album, getAlbum)                                           \
  X(S, albumUUID, getAlbumUUID)                                   \
  X(S, trackNum, getTrackNum)                                     \
  X(S, year, getYear)                                             \
  X(S, bitrate, getBitrate)                                       \
  X(S, actor, getActor)                                           \
  X(S, director, getDirector)                                     \
  X(S, creationTime, getCreationTime)                             \
  X(S, modificationTime, getModificationTime)                     \
  X(S, encryptionScheme, getEncryptionScheme)                     \
  X(S, encryptionInfo, getEncryptionInfo)                         \
  X(S, tunerUUID, getTunerUUID)                                   \
  X(N, previewPage, getPreviewPage)                               \
  X(N, subtitlePage, getSubtitlePage)                             \
  X(N, encoding, getEncoding)                                     \
  X(B, receivable, isReceivable)                                  \
  X(N, volumeCorrection, getVolumeCorrection)                     \
  X(B, visible, isVisible)                                        \
  X(B, selectable, isSelectable)                                  \
  X(R, reserved, none)                                            \
  X(N, soundSelection, getSoundSelection)                         \
  X(N, lcn, getLcn)                                               \
  X(N, epgTheme, getEpgTheme)                                     \
  X(N, networkID, getNetworkID)                                   \
  X(S, recStartTime, getRecStartTime)                             \
  X(S, recEndTime, getRecEndTime)                                 \
  X(S, recDuration, getRecDuration)                               \
  X(S, recTsId, getRecTsId)                                       \
  X(S, recOnId, getRecOnId)                                       \
  X(S, recServiceId, getRecServiceId)                             \
  X(S, recEventType, getRecEventType)                             \
  X(S, recFailType, getRecFailType)                               \
  X(N, recChnum, getRecChnum)
// clang-format on

namespace ma_rpc_test {

using ItemPtr = boost::shared_ptr<ma::ItemInfo>;

// One member of the common block, located through the declarations.
struct InfoMember {
  const char* name;
  char kind;  // 'S', 'N', 'B' or 'R'
  std::size_t offset;
  std::size_t size;
};

// The 60 members in offset order.
const std::vector<InfoMember>& infoMembers();

// The nine item kinds, and for each its message code and slot.
struct KindCase {
  ma::itemType type;
  std::uint32_t code;
  const char* name;
};
const std::vector<KindCase>& allKinds();

// A new item of kind `type` built with its two-string constructor.
ItemPtr makeItem(ma::itemType type, const std::string& caption, const std::string& uuid);

// An item of kind `type` with every field set to a value that no other
// field holds (`seed` varies them), the video times included.
ItemPtr makeDistinctItem(ma::itemType type, int seed = 0);

// Expects every field that the message carries to be equal: all fields of
// the record except the item type and the word without accessor, plus
// actor, director and, for two video items, start and end time.
void expectSameCarriedFields(const ma::ItemInfo& expected, const ma::ItemInfo& actual);

// The counted string's text: `length` characters at `data`.
std::string textOf(const zelDeserString_t& string);

// The common block of the payload that `msg.kind` names, or null.
itemMsgMaItemInfo_t* infoOf(const itemMsgMaItem_t& msg);

// Expects every member of `info` to hold the value of its getter on `item`,
// and every string to own a NUL-terminated buffer.
void expectInfoCarries(const itemMsgMaItemInfo_t& info, const ma::ItemInfo& item);

// A byte image of the message with every string and payload pointer
// replaced by what it points to, so that two messages with equal content
// have equal images. Every slot is followed, not only the named one.
std::vector<unsigned char> imageOf(const itemMsgMaItem_t& msg);

// The message's bytes split by what a byte-order swap does to them.
struct MessageBytes {
  // Each scalar on its own: kind, presence words, numbers, the reserved
  // word and string lengths, in and under every slot with a payload.
  std::vector<std::vector<unsigned char>> scalars;
  // What a swap leaves alone: bools and the bytes of every pointer.
  std::vector<unsigned char> others;
};
MessageBytes bytesOf(const itemMsgMaItem_t& msg);

// Whether `after` is `before` with the bytes of every scalar reversed and
// nothing else changed.
::testing::AssertionResult isByteSwapOf(const MessageBytes& before, const MessageBytes& after);

// Gives the reserved word of the message's common block a value. The writer
// leaves it as the allocation held it (undefined to valgrind), so a test
// that compares whole messages defines it first.
void defineReservedWord(const itemMsgMaItem_t& msg, std::uint32_t value = 0);

// The bytes of the message's top level (76 on the target).
std::vector<unsigned char> topLevelOf(const itemMsgMaItem_t& msg);

// Copies the message's 76-byte top level into `to`.
void copyTopLevel(const itemMsgMaItem_t& from, itemMsgMaItem_t* to);

// Random items for the randomized round trips: random kinds, strings that
// are empty, long, padded with blanks or hold NULs, and extreme numbers.
class RandomItems {
 public:
  explicit RandomItems(std::uint32_t seed) : engine_(seed) {}
  ItemPtr next();

 private:
  std::string text();
  template <typename T>
  T number();
  std::mt19937 engine_;
};

}  // namespace ma_rpc_test

#endif  // MA_RPC_TESTS_ITEM_MSG_TEST_SUPPORT_H_
