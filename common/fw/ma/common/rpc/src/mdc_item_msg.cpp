// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Item to message, message to item, and release of message content.
#include "ma/rpc/mdc_item_msg.h"

#include <cstdlib>

#include "item_msg_codec.h"

namespace ma {
namespace rpc {

// A failed payload allocation attaches a null payload for every kind: the
// slot is set (presence 1, pointer null) and the kind code too, and the
// common block is not filled. Readers and the release take a null payload
// for "no item", so nothing is ever written through the null pointer.
void convertMaItem(_itemMsgMaItem_struct& msg, ItemInfo const& item) {
  codec::clearMessage(msg);
  const codec::MessageKind* kind = codec::kindOfItemType(item.getItemType());
  if (kind == nullptr) return;
  void* payload = std::malloc(kind->payloadSize);
  // An item whose class does not match its type leaves the message zero; the
  // payload block then stays allocated and unreferenced, as defined.
  if (!kind->isInstance(item)) return;
  if (payload != nullptr) kind->fill(item, static_cast<unsigned char*>(payload));
  codec::attachPayload(msg, *kind, payload);
}

boost::shared_ptr<ItemInfo> convertMaItem(_itemMsgMaItem_struct const& msg) {
  const codec::MessageKind* kind = codec::kindOfCode(msg.kind);
  if (kind == nullptr) return boost::shared_ptr<ItemInfo>();
  return kind->build(codec::payloadOf(msg, *kind));
}

void releaseMaItemMsgContent(_itemMsgMaItem_struct& msg) {
  const codec::MessageKind* kind = codec::kindOfCode(msg.kind);
  if (kind == nullptr) return;
  unsigned char* payload = codec::payloadOf(msg, *kind);
  if (payload == nullptr) return;
  kind->freeStrings(payload);
  std::free(payload);
}

void releaseMaItemMsgContentAndReset(_itemMsgMaItem_struct& msg) {
  releaseMaItemMsgContent(msg);
  codec::clearMessage(msg);
}

}  // namespace rpc
}  // namespace ma
