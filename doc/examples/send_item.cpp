// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Sending an item record to another process: record to message, message
// through the platform's serialiser, message back to a record.
//
// The platform's transport is played here by the stand-in serialiser of
// this tree (zel/zel_standin_serialiser.h), which walks the same endian
// description objects as the platform library does.
#include <boost/shared_ptr.hpp>
#include <vector>

#include "example_tree.h"
#include "ma/mdc_item.h"
#include "ma/rpc/mdc_item_msg.h"
#include "zel/zel_standin_serialiser.h"

using example::check;

int main() {
  ma::VideoItemInfo recording("Tatort", "UUID-rec-1");
  recording.setStationName("Das Erste HD");
  recording.setStartTime("20:15");

  // [guide:send]
  // Sender: the message owns a malloc()ed payload and string buffers.
  itemMsgMaItem_t outgoing(recording);  // ma::rpc::convertMaItem(outgoing, recording)
  std::vector<unsigned char> wire;
  check(zel_standin::flatten(__zel_EndianTable_itemMsgMaItem_t, &outgoing,
                             zel_standin::ByteOrder::kNative, &wire),
        "serialised");
  // outgoing's destructor frees its content (ma::rpc::releaseMaItemMsgContent).
  // [guide:end]

  // [guide:receive]
  // Receiver: the serialiser rebuilds the message with malloc()ed content,
  // which the message then owns; the record made from it is the caller's.
  itemMsgMaItem_t incoming;
  check(zel_standin::unflatten(__zel_EndianTable_itemMsgMaItem_t, wire.data(), wire.size(),
                               zel_standin::ByteOrder::kNative, &incoming),
        "deserialised");
  boost::shared_ptr<ma::ItemInfo> received = ma::rpc::convertMaItem(incoming);
  check(received->getItemType() == ma::ITEM_TYPE_VIDEO, "same kind");
  check(received->getStationName() == "Das Erste HD", "fields carried");
  // incoming's destructor frees the content; `received` lives on.
  // [guide:end]

  // [guide:reuse-message]
  // Converting into a filled message does not free its old content: release
  // first. Never release a message by hand and then let it be destroyed
  // without filling it again (its destructor would free the same blocks).
  itemMsgMaItem_t message(recording);
  ma::rpc::releaseMaItemMsgContent(message);
  message = ma::FolderItemInfo("Recordings", "UUID-recordings");
  boost::shared_ptr<ma::ItemInfo> back = message;  // operator boost::shared_ptr<ma::ItemInfo>
  check(back->getItemType() == ma::ITEM_TYPE_FOLDER, "the second record");
  // [guide:end]
  return 0;
}
