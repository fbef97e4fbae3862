// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Item messages from arbitrary content.
//
// The input becomes one message as another process could send it: a kind
// code, the payload's bytes and, for every string member (found through the
// endian description), a counted string of input bytes, sometimes with a
// null buffer. Reading it must not fail; when it yields an item, writing that
// item and reading it back must give an equal item whose strings are
// NUL-terminated copies of at most their length.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "ma/mdc_item.h"
#include "ma/rpc/mdc_item_msg.h"

namespace {

void check(bool condition) {
  if (!condition) std::abort();
}

// Consumes the input from the front.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
  std::uint8_t byte() { return size_ == 0 ? 0 : (--size_, *data_++); }
  std::size_t take(void* out, std::size_t wanted) {
    const std::size_t n = wanted < size_ ? wanted : size_;
    if (n != 0) std::memcpy(out, data_, n);
    data_ += n;
    size_ -= n;
    return n;
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

// Gives every string member that `table` describes (recursively) a counted
// string made of input bytes; about one in eight has a null buffer.
void fillStrings(const zelEndianTable_t& table, unsigned char* base, Input& input) {
  for (const zelEndianEntry_t* entry = table.entries; entry->descriptor != ZEL_ENDIAN_END_DESCRIPTOR;
       ++entry) {
    if ((entry->descriptor >> 16) != ZEL_ENDIAN_STRUCT) continue;
    unsigned char* member = base + (entry->descriptor & 0xFFFFu);
    const auto* nested = static_cast<const zelEndianTable_t*>(entry->link);
    if (nested != &__zel_EndianTable_zelDeserString_t) {
      fillStrings(*nested, member, input);
      continue;
    }
    const std::uint8_t control = input.byte();
    zelDeserString_t text;
    text.length = control & 0x3Fu;
    text.data = nullptr;
    if ((control & 0xC0u) != 0xC0u) {
      text.data = static_cast<char*>(std::malloc(text.length + 1u));
      check(text.data != nullptr);
      std::memset(text.data, 'x', text.length + 1u);
      input.take(text.data, text.length);  // shorter input leaves 'x's
      text.data[text.length] = '\0';
    }
    std::memcpy(member, &text, sizeof text);
  }
}

struct SlotOf {
  std::uint32_t code;
  std::size_t offset;
  const zelEndianTable_t* payload;
};

const SlotOf kSlots[] = {
    {0, offsetof(itemMsgMaItem_t, folder), &__zel_EndianTable_itemMsgMaItemFolder_t},
    {1, offsetof(itemMsgMaItem_t, music), &__zel_EndianTable_itemMsgMaItemMusic_t},
    {2, offsetof(itemMsgMaItem_t, other), &__zel_EndianTable_itemMsgMaItemOther_t},
    {3, offsetof(itemMsgMaItem_t, picture), &__zel_EndianTable_itemMsgMaItemPicture_t},
    {4, offsetof(itemMsgMaItem_t, playlist), &__zel_EndianTable_itemMsgMaItemPlaylist_t},
    {6, offsetof(itemMsgMaItem_t, unknown), &__zel_EndianTable_itemMsgMaItemUnknown_t},
    {7, offsetof(itemMsgMaItem_t, video), &__zel_EndianTable_itemMsgMaItemVideo_t},
    {8, offsetof(itemMsgMaItem_t, interactive), &__zel_EndianTable_itemMsgMaItemInteractive_t},
    {9, offsetof(itemMsgMaItem_t, document), &__zel_EndianTable_itemMsgMaItemDocument_t},
};

void checkStringsTerminated(const zelEndianTable_t& table, const unsigned char* base) {
  for (const zelEndianEntry_t* entry = table.entries; entry->descriptor != ZEL_ENDIAN_END_DESCRIPTOR;
       ++entry) {
    if ((entry->descriptor >> 16) != ZEL_ENDIAN_STRUCT) continue;
    const unsigned char* member = base + (entry->descriptor & 0xFFFFu);
    const auto* nested = static_cast<const zelEndianTable_t*>(entry->link);
    if (nested != &__zel_EndianTable_zelDeserString_t) {
      checkStringsTerminated(*nested, member);
      continue;
    }
    zelDeserString_t text;
    std::memcpy(&text, member, sizeof text);
    check(text.data != nullptr && text.data[text.length] == '\0');
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  itemMsgMaItem_t received;
  received.kind = input.byte() % 12u;  // every code and a few unknown ones
  for (const SlotOf& slot : kSlots) {
    if (slot.code != received.kind) continue;
    auto* payload = static_cast<unsigned char*>(std::malloc(slot.payload->size));
    check(payload != nullptr);
    std::memset(payload, 0, slot.payload->size);
    input.take(payload, slot.payload->size);  // numbers, flags, reserved word
    fillStrings(*slot.payload, payload, input);
    std::memcpy(reinterpret_cast<unsigned char*>(&received) + slot.offset + sizeof(std::uint32_t),
                &payload, sizeof payload);
  }

  const boost::shared_ptr<ma::ItemInfo> item = ma::rpc::convertMaItem(received);
  const bool known = received.kind <= 9u && received.kind != 5u;
  check(static_cast<bool>(item) == known);
  if (!item) return 0;

  itemMsgMaItem_t sent(*item);
  check(sent.kind == received.kind);
  for (const SlotOf& slot : kSlots) {
    if (slot.code != sent.kind) continue;
    unsigned char* payload;
    std::memcpy(&payload, reinterpret_cast<unsigned char*>(&sent) + slot.offset + sizeof(std::uint32_t),
                sizeof payload);
    checkStringsTerminated(*slot.payload, payload);
  }
  const boost::shared_ptr<ma::ItemInfo> back = sent;
  check(back && *back == *item && back->toString() == item->toString());
  return 0;  // both messages free their content as they go
}
