// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
/// @file
/// The item message: one item record, flattened so that it can cross a
/// process boundary.
///
/// A message is a tagged choice: a kind code and nine optional references,
/// one per item kind, of which at most the one named by the code is set. The
/// reference leads to the kind's payload, a separately malloc()ed block that
/// starts with the common block itemMsgMaItemInfo_t (the video payload adds
/// start and end time). Strings are the platform's counted strings
/// (zelDeserString_t), each with its own malloc()ed characters.
///
/// The layout is a contract with the other processes of the receiver: every
/// structure is packed, several 4-byte members lie at odd offsets (read them
/// by value or through memcpy, never through an aligned pointer), and on the
/// 32-bit target every size and offset is pinned at the end of this file. On
/// a 64-bit build the same declarations hold 8-byte pointers, so sizes and
/// offsets differ there.
///
/// The platform's serialiser converts byte order and follows the references
/// through the endian description objects declared below; this library only
/// builds, reads and frees the in-memory form.
///
/// Ownership: a message owns its payload and every string buffer under it.
/// The wrapper's destructor frees them (releaseMaItemMsgContent()). To free
/// them earlier, new code calls releaseMaItemMsgContentAndReset(), which
/// leaves the message empty, so that the destructor afterwards frees nothing;
/// releaseMaItemMsgContent() is kept for the clients already built against
/// it and leaves stale pointers behind.
///
/// Thread-safety: a message is plain data without locking. The conversions
/// keep no state and may run concurrently on different messages; the
/// description objects are constant.
#ifndef MA_RPC_MDC_ITEM_MSG_H_
#define MA_RPC_MDC_ITEM_MSG_H_

#include <stddef.h>
#include <stdint.h>

#include <boost/shared_ptr.hpp>

#include "ma/export.h"
#include "zel/zel_deser.h"

namespace ma {
class ItemInfo;
}  // namespace ma

/// An optional reference: a presence word and a pointer to a separately
/// allocated `Payload`. A message built by this library sets `present` to 1
/// whenever it sets the slot, also when the payload allocation failed and
/// `data` is null; readers look at `data` only.
template <typename Payload>
struct __attribute__((packed)) itemMsgOptionalRef_t {
  uint32_t present;  ///< 1 whenever the writer set the slot (`data` may still be null), else 0
  Payload* data;     ///< from malloc(), or null
};

/// The common block of every kind's payload: the item's fields, each named
/// after the accessor pair of ma::ItemInfo that it carries. Strings are
/// counted strings, bools one byte holding 0 or 1.
struct __attribute__((packed)) itemMsgMaItemInfo_t {
  /// @name Item fields
  //@{
  /// The ma::ItemInfo field of the same name (the locator: getItemLocator),
  /// in the message's own order.
  zelDeserString_t itemSubType;
  zelDeserString_t caption;  ///< the kind constructor's first argument
  zelDeserString_t uuid;     ///< the kind constructor's second argument
  zelDeserString_t originalUuid;
  zelDeserString_t originalVolume;
  zelDeserString_t itemLocator;
  zelDeserString_t playtime;
  zelDeserString_t thumbURL;
  zelDeserString_t stationName;
  zelDeserString_t stationDescription;
  zelDeserString_t title;
  zelDeserString_t genre;
  zelDeserString_t description;
  zelDeserString_t comment;
  zelDeserString_t date;
  zelDeserString_t userIndex;
  zelDeserString_t parentalRating;
  zelDeserString_t displayRules;
  uint64_t fileSize;
  int32_t attributes;
  uint32_t maxPosition;
  uint32_t resumePosition;
  int64_t dateNumeric;
  zelDeserString_t originalAncestor;
  zelDeserString_t creator;
  zelDeserString_t longStationDescription;
  zelDeserString_t artist;
  zelDeserString_t album;
  zelDeserString_t albumUUID;
  zelDeserString_t trackNum;
  zelDeserString_t year;
  zelDeserString_t bitrate;
  zelDeserString_t actor;
  zelDeserString_t director;
  zelDeserString_t creationTime;
  zelDeserString_t modificationTime;
  zelDeserString_t encryptionScheme;
  zelDeserString_t encryptionInfo;
  zelDeserString_t tunerUUID;
  int32_t previewPage;
  int32_t subtitlePage;
  int32_t encoding;
  uint8_t receivable;
  int32_t volumeCorrection;
  uint8_t visible;
  uint8_t selectable;
  uint32_t reserved;  ///< never written by the library (holds what malloc left) and never read
  uint32_t soundSelection;
  uint32_t lcn;
  int32_t epgTheme;
  int32_t networkID;
  zelDeserString_t recStartTime;
  zelDeserString_t recEndTime;
  zelDeserString_t recDuration;
  zelDeserString_t recTsId;
  zelDeserString_t recOnId;
  zelDeserString_t recServiceId;
  zelDeserString_t recEventType;
  zelDeserString_t recFailType;
  int32_t recChnum;
  //@}
};

// The kind payloads. All but video are the common block alone.

/// The payload of a folder: the common block.
struct __attribute__((packed)) itemMsgMaItemFolder_t { itemMsgMaItemInfo_t info; /**< the fields */ };
/// The payload of a music item: the common block.
struct __attribute__((packed)) itemMsgMaItemMusic_t { itemMsgMaItemInfo_t info; /**< the fields */ };
/// The payload of an item of other content: the common block.
struct __attribute__((packed)) itemMsgMaItemOther_t { itemMsgMaItemInfo_t info; /**< the fields */ };
/// The payload of a picture: the common block.
struct __attribute__((packed)) itemMsgMaItemPicture_t { itemMsgMaItemInfo_t info; /**< the fields */ };
/// The payload of a playlist: the common block.
struct __attribute__((packed)) itemMsgMaItemPlaylist_t { itemMsgMaItemInfo_t info; /**< the fields */ };
/// The payload of an item of unknown kind: the common block.
struct __attribute__((packed)) itemMsgMaItemUnknown_t { itemMsgMaItemInfo_t info; /**< the fields */ };
/// The payload of an interactive service: the common block.
struct __attribute__((packed)) itemMsgMaItemInteractive_t { itemMsgMaItemInfo_t info; /**< the fields */ };
/// The payload of a document: the common block.
struct __attribute__((packed)) itemMsgMaItemDocument_t { itemMsgMaItemInfo_t info; /**< the fields */ };

/// The payload of a video: the common block and the video's own times.
struct __attribute__((packed)) itemMsgMaItemVideo_t {
  itemMsgMaItemInfo_t info;  ///< the fields common to every kind
  zelDeserString_t startTime;  ///< ma::VideoItemInfo::getStartTime / setStartTime
  zelDeserString_t endTime;    ///< ma::VideoItemInfo::getEndTime / setEndTime
};

namespace ma {
namespace rpc {

/// The message's kind codes: its own numbering, not ma::itemType. Code 5 is
/// reserved and names no slot, so that 6 to 9 keep their numbers; writers
/// never produce it and readers treat it like any unknown code.
enum ItemMsgKind : uint32_t {
  kItemMsgFolder = 0,
  kItemMsgMusic = 1,
  kItemMsgOther = 2,
  kItemMsgPicture = 3,
  kItemMsgPlaylist = 4,
  kItemMsgUnknown = 6,
  kItemMsgVideo = 7,
  kItemMsgInteractive = 8,
  kItemMsgDocument = 9,
};

}  // namespace rpc
}  // namespace ma

/// The message as the library's callers hold it: the top level of the item
/// message and nothing else, with conversions from and to item records.
///
/// Construction or assignment from an item overwrites all of the top level
/// and builds new content; neither frees content the message held before
/// (call ma::rpc::releaseMaItemMsgContentAndReset() first). The destructor
/// frees the content, so a message released by hand with
/// ma::rpc::releaseMaItemMsgContent() must be filled again or reset before
/// it is destroyed.
///
/// Copying is disabled: a byte copy would share the payload and both
/// destructors would free it, and a deep copy cannot tell filled content
/// from the stale pointers of a released message.
struct MA_COMMON_EXPORT __attribute__((packed)) _itemMsgMaItem_struct {
  /// All zero: kind 0 with no slot set, which carries no item.
  _itemMsgMaItem_struct();
  /// The message of `*item` (ma::rpc::convertMaItem), or all zero when
  /// `item` is empty.
  /// Throws nothing: a failed malloc() leaves that payload or string null.
  /// @param item the record to carry, or an empty pointer
  _itemMsgMaItem_struct(boost::shared_ptr<ma::ItemInfo> item);
  /// The message of `item` (ma::rpc::convertMaItem). Throws nothing.
  /// @param item the record to carry
  _itemMsgMaItem_struct(ma::ItemInfo const& item);
  /// Not copyable: both copies would free one payload.
  _itemMsgMaItem_struct(_itemMsgMaItem_struct const&) = delete;
  /// Not assignable from another message, for the same reason.
  _itemMsgMaItem_struct& operator=(_itemMsgMaItem_struct const&) = delete;
  /// Frees the content (ma::rpc::releaseMaItemMsgContent). Never throws.
  /// After ma::rpc::releaseMaItemMsgContentAndReset() there is nothing left
  /// to free; after ma::rpc::releaseMaItemMsgContent() alone it frees the
  /// same blocks a second time.
  ~_itemMsgMaItem_struct();

  /// Converts `*item` into this message; an empty `item` leaves the message
  /// exactly as it was (unlike the constructor, which zeroes it). Content
  /// the message held before is not freed. Throws nothing.
  /// @param item the record to carry, or an empty pointer
  /// @return this message
  _itemMsgMaItem_struct& operator=(boost::shared_ptr<ma::ItemInfo> item);
  /// Converts `item` into this message. Content the message held before is
  /// not freed. Throws nothing.
  /// @param item the record to carry
  /// @return this message
  _itemMsgMaItem_struct& operator=(ma::ItemInfo const& item);

  /// A new item rebuilt from this message (ma::rpc::convertMaItem), or an
  /// empty pointer when the message carries none. The message is unchanged.
  /// @return the new record, owned by the caller, or an empty pointer
  /// @throws std::bad_alloc when memory for the record runs out
  operator boost::shared_ptr<ma::ItemInfo>() const;

  uint32_t kind;  ///< an ma::rpc::ItemMsgKind; only the low byte is ever non-zero
  /// @name Kind slots
  //@{
  /// The slot of one kind: only the one that `kind` names may be set.
  itemMsgOptionalRef_t<itemMsgMaItemFolder_t> folder;
  itemMsgOptionalRef_t<itemMsgMaItemMusic_t> music;
  itemMsgOptionalRef_t<itemMsgMaItemOther_t> other;
  itemMsgOptionalRef_t<itemMsgMaItemPicture_t> picture;
  itemMsgOptionalRef_t<itemMsgMaItemPlaylist_t> playlist;
  itemMsgOptionalRef_t<itemMsgMaItemUnknown_t> unknown;
  itemMsgOptionalRef_t<itemMsgMaItemVideo_t> video;
  itemMsgOptionalRef_t<itemMsgMaItemInteractive_t> interactive;
  itemMsgOptionalRef_t<itemMsgMaItemDocument_t> document;
  //@}
};
/// The name clients use for the message.
typedef _itemMsgMaItem_struct itemMsgMaItem_t;

namespace ma {
namespace rpc {

/// Overwrites `msg` with the message of `item`: kind code, one slot, a fresh
/// payload and string buffers from malloc(). An item of no single known kind
/// (type 0, several bits, unknown bits) or whose class does not match its
/// type leaves `msg` all zero. Content `msg` held before is not freed.
/// Throws nothing: a failed malloc() leaves that payload or string null.
/// @param msg the message to overwrite
/// @param item the record to carry
MA_COMMON_EXPORT void convertMaItem(_itemMsgMaItem_struct& msg, ma::ItemInfo const& item);

/// A new item of the kind that `msg` names, with every carried field set
/// through the item's setters. Only the named slot's pointer is read: its
/// presence word and the other slots are ignored. `msg` is not changed.
/// @param msg the message to read
/// @return the new record, owned by the caller; an empty pointer for kind 5,
///   kinds above 9 and a null payload pointer in the named slot
/// @throws std::bad_alloc when memory for the record runs out
MA_COMMON_EXPORT boost::shared_ptr<ma::ItemInfo> convertMaItem(_itemMsgMaItem_struct const& msg);

/// Kept for the clients already built against it; new code calls
/// releaseMaItemMsgContentAndReset().
///
/// Frees the payload named by `msg.kind` and every string buffer in it. Does
/// nothing for kind 5, kinds above 9 and a null payload pointer. Nothing in
/// `msg` is reset: releasing the same message twice frees twice, and so
/// does destroying the wrapper afterwards unless it is filled again.
/// @param msg the message whose content is freed; its bytes are unchanged
MA_COMMON_EXPORT void releaseMaItemMsgContent(_itemMsgMaItem_struct& msg);

/// Frees the content exactly as releaseMaItemMsgContent() does, then sets
/// the whole message to zero (76 bytes on the 32-bit target): the message is
/// empty again, as if default-constructed. Releasing it again and its
/// destructor then free nothing.
/// @param msg the message whose content is freed and which is then cleared
MA_COMMON_EXPORT void releaseMaItemMsgContentAndReset(_itemMsgMaItem_struct& msg);

}  // namespace rpc
}  // namespace ma

extern "C" {
/// @name Endian descriptions
//@{
/// The endian descriptions through which the platform's serialiser walks the
/// message: one per message structure, named __zel_EndianTable_<type>.
MA_COMMON_EXPORT extern const zelEndianTable_t __zel_EndianTable_itemMsgMaItem_t;
MA_COMMON_EXPORT extern const zelEndianTable_t __zel_EndianTable_itemMsgMaItemInfo_t;
MA_COMMON_EXPORT extern const zelEndianTable_t __zel_EndianTable_itemMsgMaItemFolder_t;
MA_COMMON_EXPORT extern const zelEndianTable_t __zel_EndianTable_itemMsgMaItemMusic_t;
MA_COMMON_EXPORT extern const zelEndianTable_t __zel_EndianTable_itemMsgMaItemOther_t;
MA_COMMON_EXPORT extern const zelEndianTable_t __zel_EndianTable_itemMsgMaItemPicture_t;
MA_COMMON_EXPORT extern const zelEndianTable_t __zel_EndianTable_itemMsgMaItemPlaylist_t;
MA_COMMON_EXPORT extern const zelEndianTable_t __zel_EndianTable_itemMsgMaItemUnknown_t;
MA_COMMON_EXPORT extern const zelEndianTable_t __zel_EndianTable_itemMsgMaItemVideo_t;
MA_COMMON_EXPORT extern const zelEndianTable_t __zel_EndianTable_itemMsgMaItemInteractive_t;
MA_COMMON_EXPORT extern const zelEndianTable_t __zel_EndianTable_itemMsgMaItemDocument_t;
//@}
}  // extern "C"

// ---------------------------------------------------------------------------
// The layout on the 32-bit target, byte for byte.
#if __SIZEOF_POINTER__ == 4

#define MA_ITEM_MSG_PIN(type, member, offset) \
  static_assert(offsetof(type, member) == (offset), #type "::" #member " lies at " #offset)

static_assert(sizeof(zelDeserString_t) == 8, "a counted string is 8 bytes");
MA_ITEM_MSG_PIN(zelDeserString_t, length, 0);
MA_ITEM_MSG_PIN(zelDeserString_t, data, 4);

static_assert(sizeof(itemMsgOptionalRef_t<itemMsgMaItemFolder_t>) == 8, "a reference is 8 bytes");
MA_ITEM_MSG_PIN(itemMsgOptionalRef_t<itemMsgMaItemFolder_t>, present, 0);
MA_ITEM_MSG_PIN(itemMsgOptionalRef_t<itemMsgMaItemFolder_t>, data, 4);

static_assert(sizeof(itemMsgMaItem_t) == 76, "the message is 76 bytes");
MA_ITEM_MSG_PIN(itemMsgMaItem_t, kind, 0);
MA_ITEM_MSG_PIN(itemMsgMaItem_t, folder, 4);
MA_ITEM_MSG_PIN(itemMsgMaItem_t, music, 12);
MA_ITEM_MSG_PIN(itemMsgMaItem_t, other, 20);
MA_ITEM_MSG_PIN(itemMsgMaItem_t, picture, 28);
MA_ITEM_MSG_PIN(itemMsgMaItem_t, playlist, 36);
MA_ITEM_MSG_PIN(itemMsgMaItem_t, unknown, 44);
MA_ITEM_MSG_PIN(itemMsgMaItem_t, video, 52);
MA_ITEM_MSG_PIN(itemMsgMaItem_t, interactive, 60);
MA_ITEM_MSG_PIN(itemMsgMaItem_t, document, 68);

static_assert(sizeof(itemMsgMaItemFolder_t) == 407, "a folder payload is 407 bytes");
static_assert(sizeof(itemMsgMaItemMusic_t) == 407, "a music payload is 407 bytes");
static_assert(sizeof(itemMsgMaItemOther_t) == 407, "an other payload is 407 bytes");
static_assert(sizeof(itemMsgMaItemPicture_t) == 407, "a picture payload is 407 bytes");
static_assert(sizeof(itemMsgMaItemPlaylist_t) == 407, "a playlist payload is 407 bytes");
static_assert(sizeof(itemMsgMaItemUnknown_t) == 407, "an unknown payload is 407 bytes");
static_assert(sizeof(itemMsgMaItemInteractive_t) == 407, "an interactive payload is 407 bytes");
static_assert(sizeof(itemMsgMaItemDocument_t) == 407, "a document payload is 407 bytes");
static_assert(sizeof(itemMsgMaItemVideo_t) == 423, "a video payload is 423 bytes");
MA_ITEM_MSG_PIN(itemMsgMaItemVideo_t, info, 0);
MA_ITEM_MSG_PIN(itemMsgMaItemVideo_t, startTime, 407);
MA_ITEM_MSG_PIN(itemMsgMaItemVideo_t, endTime, 415);

static_assert(sizeof(itemMsgMaItemInfo_t) == 407, "the common block is 407 bytes");
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, itemSubType, 0);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, caption, 8);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, uuid, 16);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, originalUuid, 24);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, originalVolume, 32);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, itemLocator, 40);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, playtime, 48);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, thumbURL, 56);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, stationName, 64);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, stationDescription, 72);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, title, 80);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, genre, 88);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, description, 96);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, comment, 104);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, date, 112);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, userIndex, 120);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, parentalRating, 128);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, displayRules, 136);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, fileSize, 144);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, attributes, 152);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, maxPosition, 156);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, resumePosition, 160);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, dateNumeric, 164);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, originalAncestor, 172);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, creator, 180);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, longStationDescription, 188);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, artist, 196);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, album, 204);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, albumUUID, 212);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, trackNum, 220);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, year, 228);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, bitrate, 236);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, actor, 244);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, director, 252);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, creationTime, 260);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, modificationTime, 268);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, encryptionScheme, 276);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, encryptionInfo, 284);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, tunerUUID, 292);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, previewPage, 300);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, subtitlePage, 304);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, encoding, 308);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, receivable, 312);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, volumeCorrection, 313);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, visible, 317);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, selectable, 318);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, reserved, 319);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, soundSelection, 323);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, lcn, 327);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, epgTheme, 331);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, networkID, 335);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, recStartTime, 339);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, recEndTime, 347);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, recDuration, 355);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, recTsId, 363);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, recOnId, 371);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, recServiceId, 379);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, recEventType, 387);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, recFailType, 395);
MA_ITEM_MSG_PIN(itemMsgMaItemInfo_t, recChnum, 403);

#undef MA_ITEM_MSG_PIN

#endif  // __SIZEOF_POINTER__ == 4

#endif  // MA_RPC_MDC_ITEM_MSG_H_
