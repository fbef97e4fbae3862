// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// How item records map onto the item message (mdc_item_msg.h).
//
// Two tables hold the whole mapping, so that the writer, the reader and the
// release walk the same description instead of repeating it:
//   kInfoFields   every field of the common block with the item accessors
//                 that carry it, in the order the reader sets them;
//   message kinds every kind code with its slot, payload size, item class
//                 and the kind's fill, build and free steps.
// Members are reached by byte offset and copied with memcpy, so that the odd
// offsets of the packed layout need no alignment.
//
// Thread-safety: the tables are constant; the functions keep no state.
#ifndef MA_RPC_ITEM_MSG_CODEC_H_
#define MA_RPC_ITEM_MSG_CODEC_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include <boost/shared_ptr.hpp>

#include "ma/mdc_item.h"
#include "ma/rpc/mdc_item_msg.h"

namespace ma {
namespace rpc {
namespace codec {

// One member of itemMsgMaItemInfo_t and the item accessors that carry it.
struct InfoField {
  const char* name;    // the member's name
  std::size_t offset;  // the member's offset in the common block
  bool isString;       // a zelDeserString_t
  // Stores the getter's value in `member`; a string gets a new buffer.
  void (*write)(ItemInfo const& item, unsigned char* member);
  // Passes the member's value to the setter; null for caption and UUID,
  // which go to the kind constructor instead. A string member passes through
  // `scratch` (its storage is reused; its content is then undefined).
  void (*read)(unsigned char const* member, ItemInfo& item, std::string& scratch);
};

constexpr std::size_t kInfoFieldCount = 59;  // every member but `reserved`
constexpr std::size_t kInfoStringCount = 42;

// Caption and UUID first, then the 57 fields with setters in the order the
// reader calls the setters.
extern const InfoField kInfoFields[kInfoFieldCount];

// The offsets of the common block's strings, highest first: release order.
extern const std::array<std::size_t, kInfoStringCount> kInfoStringsDescending;

// One kind of message.
struct MessageKind {
  unsigned int itemType;    // the ma::itemType value of the item
  ItemMsgKind code;         // the message's kind code
  std::size_t slot;         // offset of the kind's optional reference
  std::size_t payloadSize;  // bytes allocated for the payload
  // Whether `item` is an instance of the kind's class (a subclass passes).
  bool (*isInstance)(ItemInfo const& item);
  // Writes every member of `payload` from `item`, which is of the kind's
  // class; the reserved word is left as it is.
  void (*fill)(ItemInfo const& item, unsigned char* payload);
  // A new item of the kind's class from `payload`, or an empty pointer when
  // `payload` is null (buildItemFromMsgInfo plus the kind's extras).
  boost::shared_ptr<ItemInfo> (*build)(unsigned char const* payload);
  // Frees every string buffer of `payload` (not the payload itself): the
  // kind's extras first, then the common block from the last string down.
  void (*freeStrings)(unsigned char* payload);
};

// The kind whose item type is `type`, or null when no kind has it (0 and
// combinations of kinds included).
const MessageKind* kindOfItemType(unsigned int type);

// The kind with message code `code`, or null (5 and codes above 9).
const MessageKind* kindOfCode(std::uint32_t code);

// The payload pointer in the slot of `kind`; the presence word is ignored.
unsigned char* payloadOf(_itemMsgMaItem_struct const& msg, MessageKind const& kind);

// Sets the slot of `kind` (presence word 1, pointer `payload`) and the kind
// code.
void attachPayload(_itemMsgMaItem_struct& msg, MessageKind const& kind, void* payload);

// Sets every byte of the message's top level to zero.
void clearMessage(_itemMsgMaItem_struct& msg);

// Writes `text` as a counted string: its length and a new malloc() buffer of
// length + 1 bytes holding the characters (NULs included) and a NUL. When
// the buffer cannot be allocated the string is left unset (length 0, data
// null), which every reader takes for empty.
void storeString(unsigned char* member, std::string const& text);

// The text of a counted string: exactly `length` characters from `data`, or
// "" when `data` is null or `length` is 0.
std::string loadString(unsigned char const* member);

// The same text into `text`, reusing its storage.
void loadStringInto(unsigned char const* member, std::string& text);

// Frees the string's buffer when its pointer is not null.
void freeString(unsigned char* member);

}  // namespace codec
}  // namespace rpc
}  // namespace ma

#endif  // MA_RPC_ITEM_MSG_CODEC_H_
