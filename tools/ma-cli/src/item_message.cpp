// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Listing, flattening and reading back the item message.
#include "item_message.h"

#include <cstdint>
#include <cstring>

#include "errors.h"
#include "item_kinds.h"
#include "ma/rpc/mdc_item_msg.h"
#include "zel/zel_standin_serialiser.h"

namespace ma_cli {

namespace {

// ---------------------------------------------------------------------------
// What the message holds

enum class FieldType { kString, kU64, kI64, kI32, kU32, kFlag, kReserved };

// A member of a payload structure.
struct Field {
  char const* name;
  FieldType type;
  std::size_t buildOffset;  // offsetof in this build
};

// Size of a member on the 32-bit receiver: a counted string is a 4-byte
// length and a 4-byte pointer there.
constexpr std::size_t targetSize(FieldType type) {
  return type == FieldType::kString || type == FieldType::kU64 || type == FieldType::kI64 ? 8
         : type == FieldType::kFlag                                                 ? 1
                                                                                    : 4;
}

std::size_t buildSize(FieldType type) {
  switch (type) {
    case FieldType::kString: return sizeof(zelDeserString_t);
    case FieldType::kU64:
    case FieldType::kI64: return 8;
    case FieldType::kFlag: return 1;
    default: return 4;
  }
}

#define MA_CLI_FIELD(type, member) \
  Field { #member, FieldType::type, offsetof(itemMsgMaItemInfo_t, member) }

// The common block, in its declaration order.
constexpr Field kInfoFields[] = {
    MA_CLI_FIELD(kString, itemSubType),      MA_CLI_FIELD(kString, caption),
    MA_CLI_FIELD(kString, uuid),             MA_CLI_FIELD(kString, originalUuid),
    MA_CLI_FIELD(kString, originalVolume),   MA_CLI_FIELD(kString, itemLocator),
    MA_CLI_FIELD(kString, playtime),         MA_CLI_FIELD(kString, thumbURL),
    MA_CLI_FIELD(kString, stationName),      MA_CLI_FIELD(kString, stationDescription),
    MA_CLI_FIELD(kString, title),            MA_CLI_FIELD(kString, genre),
    MA_CLI_FIELD(kString, description),      MA_CLI_FIELD(kString, comment),
    MA_CLI_FIELD(kString, date),             MA_CLI_FIELD(kString, userIndex),
    MA_CLI_FIELD(kString, parentalRating),   MA_CLI_FIELD(kString, displayRules),
    MA_CLI_FIELD(kU64, fileSize),            MA_CLI_FIELD(kI32, attributes),
    MA_CLI_FIELD(kU32, maxPosition),         MA_CLI_FIELD(kU32, resumePosition),
    MA_CLI_FIELD(kI64, dateNumeric),         MA_CLI_FIELD(kString, originalAncestor),
    MA_CLI_FIELD(kString, creator),          MA_CLI_FIELD(kString, longStationDescription),
    MA_CLI_FIELD(kString, artist),           MA_CLI_FIELD(kString, album),
    MA_CLI_FIELD(kString, albumUUID),        MA_CLI_FIELD(kString, trackNum),
    MA_CLI_FIELD(kString, year),             MA_CLI_FIELD(kString, bitrate),
    MA_CLI_FIELD(kString, actor),            MA_CLI_FIELD(kString, director),
    MA_CLI_FIELD(kString, creationTime),     MA_CLI_FIELD(kString, modificationTime),
    MA_CLI_FIELD(kString, encryptionScheme), MA_CLI_FIELD(kString, encryptionInfo),
    MA_CLI_FIELD(kString, tunerUUID),        MA_CLI_FIELD(kI32, previewPage),
    MA_CLI_FIELD(kI32, subtitlePage),        MA_CLI_FIELD(kI32, encoding),
    MA_CLI_FIELD(kFlag, receivable),         MA_CLI_FIELD(kI32, volumeCorrection),
    MA_CLI_FIELD(kFlag, visible),            MA_CLI_FIELD(kFlag, selectable),
    MA_CLI_FIELD(kReserved, reserved),       MA_CLI_FIELD(kU32, soundSelection),
    MA_CLI_FIELD(kU32, lcn),                 MA_CLI_FIELD(kI32, epgTheme),
    MA_CLI_FIELD(kI32, networkID),           MA_CLI_FIELD(kString, recStartTime),
    MA_CLI_FIELD(kString, recEndTime),       MA_CLI_FIELD(kString, recDuration),
    MA_CLI_FIELD(kString, recTsId),          MA_CLI_FIELD(kString, recOnId),
    MA_CLI_FIELD(kString, recServiceId),     MA_CLI_FIELD(kString, recEventType),
    MA_CLI_FIELD(kString, recFailType),      MA_CLI_FIELD(kI32, recChnum),
};
#undef MA_CLI_FIELD

constexpr std::size_t kTargetInfoSize = 407;

// The video payload's own members, after the common block.
constexpr Field kVideoFields[] = {
    {"startTime", FieldType::kString, offsetof(itemMsgMaItemVideo_t, startTime)},
    {"endTime", FieldType::kString, offsetof(itemMsgMaItemVideo_t, endTime)},
};

// Whether the 32-bit sizes above, laid end to end, give the 32-bit layout;
// on a 32-bit build that is checked against the compiler's own offsets.
constexpr bool targetLayoutIsThisBuilds() {
  std::size_t offset = 0;
  for (Field const& field : kInfoFields) {
    if (field.buildOffset != offset) return false;
    offset += targetSize(field.type);
  }
  return offset == sizeof(itemMsgMaItemInfo_t);
}
#if __SIZEOF_POINTER__ == 4
static_assert(targetLayoutIsThisBuilds(), "the field table lists the common block in order");
static_assert(kTargetInfoSize == sizeof(itemMsgMaItemInfo_t), "the common block is 407 bytes");
#endif

// The nine slots of the top level, in declaration order.
struct Slot {
  char const* name;
  ma::rpc::ItemMsgKind kind;
  std::size_t buildOffset;
  std::size_t buildPayloadSize;
  std::size_t targetPayloadSize;
  zelEndianTable_t const* table;
};

#define MA_CLI_SLOT(name, kind, type, targetSize)                                      \
  Slot {                                                                               \
    #name, ma::rpc::kind, offsetof(itemMsgMaItem_t, name), sizeof(type), targetSize,  \
        &__zel_EndianTable_##type                                                       \
  }
Slot const kSlots[] = {
    MA_CLI_SLOT(folder, kItemMsgFolder, itemMsgMaItemFolder_t, 407),
    MA_CLI_SLOT(music, kItemMsgMusic, itemMsgMaItemMusic_t, 407),
    MA_CLI_SLOT(other, kItemMsgOther, itemMsgMaItemOther_t, 407),
    MA_CLI_SLOT(picture, kItemMsgPicture, itemMsgMaItemPicture_t, 407),
    MA_CLI_SLOT(playlist, kItemMsgPlaylist, itemMsgMaItemPlaylist_t, 407),
    MA_CLI_SLOT(unknown, kItemMsgUnknown, itemMsgMaItemUnknown_t, 407),
    MA_CLI_SLOT(video, kItemMsgVideo, itemMsgMaItemVideo_t, 423),
    MA_CLI_SLOT(interactive, kItemMsgInteractive, itemMsgMaItemInteractive_t, 407),
    MA_CLI_SLOT(document, kItemMsgDocument, itemMsgMaItemDocument_t, 407),
};
#undef MA_CLI_SLOT

constexpr std::size_t kTargetMessageSize = 76;
constexpr std::size_t kPresenceWordSize = 4;
constexpr std::size_t kTargetSlotSize = 8;

// Text values are cut to fit an 80-column line after the other columns.
constexpr std::size_t kValueWidth = 42;

Slot const* slotOfKind(std::uint32_t kind) {
  for (Slot const& slot : kSlots) {
    if (slot.kind == kind) return &slot;
  }
  return nullptr;
}

std::string kindText(std::uint32_t kind) {
  Slot const* slot = slotOfKind(kind);
  return std::to_string(kind) + " (" + (slot ? slot->name : "no kind") + ")";
}

unsigned char const* bytesOf(itemMsgMaItem_t const& msg) {
  return reinterpret_cast<unsigned char const*>(&msg);
}

// The payload pointer of `slot` (read by value: members are unaligned).
unsigned char* payloadOf(itemMsgMaItem_t const& msg, Slot const& slot) {
  unsigned char* data;
  std::memcpy(&data, bytesOf(msg) + slot.buildOffset + kPresenceWordSize, sizeof data);
  return data;
}

std::uint32_t presenceOf(itemMsgMaItem_t const& msg, Slot const& slot) {
  std::uint32_t present;
  std::memcpy(&present, bytesOf(msg) + slot.buildOffset, sizeof present);
  return present;
}

template <typename T>
T load(unsigned char const* at) {
  T value;
  std::memcpy(&value, at, sizeof value);
  return value;
}

// The row of `field` of the payload at `payload`.
MessageRow fieldRow(Field const& field, unsigned char const* payload, std::size_t offset,
                    Layout layout) {
  MessageRow row{offset, layout == Layout::kTarget32 ? targetSize(field.type) : buildSize(field.type),
                 field.name, "", Json()};
  unsigned char const* at = payload + field.buildOffset;
  switch (field.type) {
    case FieldType::kString: {
      zelDeserString_t const text = load<zelDeserString_t>(at);
      if (text.data == nullptr) {
        row.text = "(null)";
      } else {
        std::string const value(text.data, text.length);
        row.text = "\"" + clipped(escaped(value), kValueWidth - 2) + "\"";
        row.value = value;
      }
      break;
    }
    case FieldType::kU64: row.value = load<std::uint64_t>(at); break;
    case FieldType::kI64: row.value = load<std::int64_t>(at); break;
    case FieldType::kI32: row.value = load<std::int32_t>(at); break;
    case FieldType::kU32: row.value = load<std::uint32_t>(at); break;
    case FieldType::kFlag: row.value = load<std::uint8_t>(at); break;
    case FieldType::kReserved:
      // Never written by the library: what it holds is not worth reading.
      row.text = "(not written)";
      break;
  }
  if (row.text.empty()) row.text = row.value.dump();
  return row;
}

// The reserved word of a payload, which the library leaves as malloc() left
// it, set to zero so that the file form does not carry stray bytes.
void clearReservedWord(itemMsgMaItem_t& msg) {
  Slot const* slot = slotOfKind(msg.kind);
  unsigned char* payload = slot ? payloadOf(msg, *slot) : nullptr;
  if (payload != nullptr) std::memset(payload + offsetof(itemMsgMaItemInfo_t, reserved), 0, 4);
}

bool hostIsLittleEndian() {
  std::uint16_t const probe = 1;
  unsigned char first;
  std::memcpy(&first, &probe, 1);
  return first == 1;
}

// The file form is little-endian on every host.
zel_standin::ByteOrder const kFileOrder =
    hostIsLittleEndian() ? zel_standin::ByteOrder::kNative : zel_standin::ByteOrder::kSwapped;

// ---------------------------------------------------------------------------
// Checking the file form before rebuilding it

// The name of the member at `offset` of the structure `table` describes.
std::string memberName(zelEndianTable_t const* table, std::size_t offset) {
  if (table == &__zel_EndianTable_itemMsgMaItem_t) {
    if (offset == 0) return "kind";
    for (Slot const& slot : kSlots) {
      if (slot.buildOffset == offset) return slot.name;
    }
  } else if (table == &__zel_EndianTable_itemMsgMaItemInfo_t) {
    for (Field const& field : kInfoFields) {
      if (field.buildOffset == offset) return field.name;
    }
  } else if (table == &__zel_EndianTable_zelDeserString_t) {
    return offset == 0 ? "length" : "characters";
  } else if (offset == 0) {
    return "info";  // every payload starts with the common block
  } else {
    for (Field const& field : kVideoFields) {
      if (field.buildOffset == offset) return field.name;
    }
  }
  return "member at " + std::to_string(offset);
}

// Walks the file form the way the stand-in's serialiser reads it, without
// building anything, and throws at the first byte that does not fit.
class FlatChecker {
 public:
  FlatChecker(unsigned char const* bytes, std::size_t size) : bytes_(bytes), size_(size) {}

  void structure(zelEndianTable_t const& table, std::string const& where) {
    bool hasLengthWord = false;
    bool hasCharacters = false;
    std::uint64_t lengthWord = 0;
    std::uint64_t characters = 0;
    for (zelEndianEntry_t const* entry = table.entries; entry->descriptor != ZEL_ENDIAN_END_DESCRIPTOR;
         ++entry) {
      std::uint32_t const code = entry->descriptor >> 16;
      std::size_t const offset = entry->descriptor & 0xFFFFu;
      std::string const member = where + "." + memberName(&table, offset);
      zelEndianTable_t const* link = static_cast<zelEndianTable_t const*>(entry->link);
      switch (code) {
        case ZEL_ENDIAN_STRUCT:
          structure(*link, member);
          break;
        case ZEL_ENDIAN_OPTIONAL_REF: {
          // A writer sets the word to 1 with the slot (also when its payload
          // could not be allocated), else leaves it 0.
          std::size_t const at = next_;
          std::uint64_t const presence = scalar(kPresenceWordSize, member + " presence word");
          if (presence > 1) {
            throw InputError("corrupted at byte " + std::to_string(at) + ": the presence word of " + member +
                             " is " + std::to_string(presence) + ", not 0 or 1");
          }
          bool const carried = marker(member);
          if (carried && presence == 0) {
            throw InputError("corrupted at byte " + std::to_string(at) + ": the presence word of " + member +
                             " is 0, but a payload follows");
          }
          if (carried) structure(*link, member);
          break;
        }
        case ZEL_ENDIAN_COUNTED_CHARS:
          if (marker(member)) {
            characters = scalar(4, member + " count");
            take(characters, member);
            hasCharacters = true;
          }
          break;
        default: {
          std::uint64_t const value = scalar(code, member);
          if (code == 4 && offset == 0) {
            hasLengthWord = true;
            lengthWord = value;
          }
        }
      }
    }
    // The reader trusts the length word, so it must not exceed the
    // characters that were carried.
    if (hasLengthWord && hasCharacters && lengthWord != characters) {
      throw InputError("corrupted: " + where + " has a length of " + std::to_string(lengthWord) +
                       " but carries " + std::to_string(characters) + " characters");
    }
  }

  void end() const {
    if (next_ != size_) {
      throw InputError("corrupted: " + std::to_string(size_ - next_) +
                       " bytes follow the end of the message at byte " + std::to_string(next_));
    }
  }

 private:
  void take(std::uint64_t count, std::string const& what) {
    if (count > size_ - next_) {
      throw InputError("truncated at byte " + std::to_string(next_) + ": " + what + " needs " +
                       std::to_string(count) + " bytes, " + std::to_string(size_ - next_) + " left");
    }
    next_ += static_cast<std::size_t>(count);
  }

  // A little-endian number of `width` bytes.
  std::uint64_t scalar(std::size_t width, std::string const& what) {
    std::size_t const at = next_;
    take(width, what);
    std::uint64_t value = 0;
    for (std::size_t i = width; i-- > 0;) value = value << 8 | bytes_[at + i];
    return value;
  }

  bool marker(std::string const& what) {
    std::size_t const at = next_;
    take(1, what + " marker");
    if (bytes_[at] > 1) {
      throw InputError("corrupted at byte " + std::to_string(at) + ": the marker of " + what +
                       " is " + std::to_string(bytes_[at]) + ", not 0 or 1");
    }
    return bytes_[at] == 1;
  }

  unsigned char const* const bytes_;
  std::size_t const size_;
  std::size_t next_ = 0;
};

// A message rebuilt from its file form; frees what the stand-in allocated.
struct RebuiltMessage {
  itemMsgMaItem_t msg;
  ~RebuiltMessage() {
    // Frees every slot (a corrupted file may set several) and nulls the
    // pointers, so that the message's own release finds nothing left.
    zel_standin::freeReferences(__zel_EndianTable_itemMsgMaItem_t, &msg);
  }
};

}  // namespace

MessageListing listMessage(ma::ItemInfo const& item, Layout layout,
                           boost::shared_ptr<ma::ItemInfo>* rebuilt) {
  itemMsgMaItem_t const msg(item);
  bool const target = layout == Layout::kTarget32;
  MessageListing listing;
  listing.layout = target ? "32-bit receiver layout"
                          : "this build's layout (" + std::to_string(sizeof(void*)) + "-byte pointers)";
  listing.messageSize = target ? kTargetMessageSize : sizeof(itemMsgMaItem_t);
  listing.message.push_back({0, 4, "kind", kindText(msg.kind), msg.kind});

  std::size_t slotIndex = 0;
  for (Slot const& slot : kSlots) {
    std::size_t const offset = target ? 4 + slotIndex++ * kTargetSlotSize : slot.buildOffset;
    std::size_t const size = target ? kTargetSlotSize : kPresenceWordSize + sizeof(void*);
    unsigned char const* payload = payloadOf(msg, slot);
    std::uint32_t const present = presenceOf(msg, slot);
    std::size_t const payloadSize = target ? slot.targetPayloadSize : slot.buildPayloadSize;
    std::string text = "present " + std::to_string(present);
    if (payload != nullptr) text += ", payload of " + std::to_string(payloadSize) + " bytes";
    listing.message.push_back({offset, size, slot.name, text,
                               Json{{"present", present}, {"payload", payload != nullptr}}});
    if (payload == nullptr || slot.kind != msg.kind) continue;

    listing.payloadSlot = slot.name;
    listing.payloadSize = payloadSize;
    std::size_t targetOffset = 0;
    for (Field const& field : kInfoFields) {
      listing.payload.push_back(
          fieldRow(field, payload, target ? targetOffset : field.buildOffset, layout));
      targetOffset += targetSize(field.type);
    }
    if (slot.kind == ma::rpc::kItemMsgVideo) {
      targetOffset = kTargetInfoSize;
      for (Field const& field : kVideoFields) {
        listing.payload.push_back(
            fieldRow(field, payload, target ? targetOffset : field.buildOffset, layout));
        targetOffset += targetSize(field.type);
      }
    }
  }
  if (rebuilt != nullptr) *rebuilt = ma::rpc::convertMaItem(msg);
  return listing;
}

void printMessageText(TextWriter& out, MessageListing const& listing) {
  auto table = [&out](std::vector<MessageRow> const& rows) {
    out << "offset  size  field                   value\n";
    for (MessageRow const& row : rows) {
      out << padLeft(std::to_string(row.offset), 6) << padLeft(std::to_string(row.size), 6) << "  "
          << padRight(row.field, 22) << "  " << row.text << '\n';
    }
  };
  out << "message (" << listing.messageSize << " bytes, " << listing.layout << "):\n";
  table(listing.message);
  if (!listing.payloadSlot.empty()) {
    out << listing.payloadSlot << " payload (" << listing.payloadSize << " bytes):\n";
    table(listing.payload);
  }
}

Json messageJson(MessageListing const& listing) {
  auto rows = [](std::vector<MessageRow> const& list) {
    Json json = Json::array();
    for (MessageRow const& row : list) {
      json.push_back({{"offset", row.offset}, {"size", row.size}, {"field", row.field}, {"value", row.value}});
    }
    return json;
  };
  Json json;
  json["layout"] = listing.layout;
  json["size"] = listing.messageSize;
  json["fields"] = rows(listing.message);
  if (!listing.payloadSlot.empty()) {
    json["payload"] = {{"slot", listing.payloadSlot}, {"size", listing.payloadSize},
                       {"fields", rows(listing.payload)}};
  }
  return json;
}

std::vector<unsigned char> flattenedMessage(ma::ItemInfo const& item) {
  itemMsgMaItem_t msg(item);
  clearReservedWord(msg);
  std::vector<unsigned char> bytes;
  if (!zel_standin::flatten(__zel_EndianTable_itemMsgMaItem_t, &msg, kFileOrder, &bytes)) {
    throw std::runtime_error("the serialiser refused the message's description");
  }
  return bytes;
}

boost::shared_ptr<ma::ItemInfo> decodeMessage(std::vector<unsigned char> const& bytes) {
  FlatChecker checker(bytes.data(), bytes.size());
  checker.structure(__zel_EndianTable_itemMsgMaItem_t, "message");
  checker.end();

  RebuiltMessage rebuilt;
  if (!zel_standin::unflatten(__zel_EndianTable_itemMsgMaItem_t, bytes.data(), bytes.size(), kFileOrder,
                              &rebuilt.msg)) {
    throw InputError("corrupted: the serialiser cannot rebuild the message");
  }
  std::string carried;
  for (Slot const& slot : kSlots) {
    if (payloadOf(rebuilt.msg, slot) == nullptr) continue;
    if (!carried.empty()) {
      throw InputError("corrupted: both the " + carried + " and the " + slot.name +
                       " slot carry a payload");
    }
    carried = slot.name;
  }
  boost::shared_ptr<ma::ItemInfo> item = ma::rpc::convertMaItem(rebuilt.msg);
  if (!item) {
    Slot const* slot = slotOfKind(rebuilt.msg.kind);
    throw InputError("the message carries no item: kind " + std::to_string(rebuilt.msg.kind) +
                     (slot ? std::string(" names the empty ") + slot->name + " slot" : " names no slot"));
  }
  return item;
}

}  // namespace ma_cli
