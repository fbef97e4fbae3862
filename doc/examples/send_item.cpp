// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Sending an item record to another process: record to message, message
// through the platform's serialiser, message back to a record; freeing a
// message early, with the release that resets and with the legacy release.
//
// The platform's transport is played here by the stand-in serialiser of
// this tree (zel/zel_standin_serialiser.h), which walks the same endian
// description objects as the platform library does.
//
// Each guide snippet is a function with the #include lines it needs.
#include "example_tree.h"

using example::check;

// [guide:send]
#include <vector>

#include "ma/mdc_item.h"
#include "ma/rpc/mdc_item_msg.h"
#include "zel/zel_standin_serialiser.h"  // the host's stand-in of the platform serialiser

// Sender: the message owns a malloc()ed payload and string buffers.
std::vector<unsigned char> send(ma::VideoItemInfo const& recording) {
  itemMsgMaItem_t outgoing(recording);  // ma::rpc::convertMaItem(outgoing, recording)
  std::vector<unsigned char> wire;
  check(zel_standin::flatten(__zel_EndianTable_itemMsgMaItem_t, &outgoing,
                             zel_standin::ByteOrder::kNative, &wire),
        "serialised");
  return wire;
}  // outgoing's destructor frees its content
// [guide:end]

// [guide:receive]
#include <boost/shared_ptr.hpp>
#include <vector>

#include "ma/mdc_item.h"
#include "ma/rpc/mdc_item_msg.h"
#include "zel/zel_standin_serialiser.h"

// Receiver: the serialiser rebuilds the message with malloc()ed content,
// which the message then owns; the record made from it is the caller's.
boost::shared_ptr<ma::ItemInfo> receive(std::vector<unsigned char> const& wire) {
  itemMsgMaItem_t incoming;
  check(zel_standin::unflatten(__zel_EndianTable_itemMsgMaItem_t, wire.data(), wire.size(),
                               zel_standin::ByteOrder::kNative, &incoming),
        "deserialised");
  return ma::rpc::convertMaItem(incoming);
}  // incoming's destructor frees the content; the record lives on
// [guide:end]

// [guide:release-and-reset]
#include <boost/shared_ptr.hpp>

#include "ma/mdc_item.h"
#include "ma/rpc/mdc_item_msg.h"

// One message for two records in turn, and its content freed early.
void reuseMessage(ma::VideoItemInfo const& recording) {
  itemMsgMaItem_t message(recording);
  // Converting into a filled message does not free the old content: free it
  // first. The reset leaves the message empty (all zero).
  ma::rpc::releaseMaItemMsgContentAndReset(message);
  message = ma::FolderItemInfo("Recordings", "UUID-recordings");
  boost::shared_ptr<ma::ItemInfo> back = message;  // operator boost::shared_ptr<ma::ItemInfo>
  check(back->getItemType() == ma::ITEM_TYPE_FOLDER, "the second record");

  ma::rpc::releaseMaItemMsgContentAndReset(message);  // free it now, not at the scope's end
  ma::rpc::releaseMaItemMsgContentAndReset(message);  // again: nothing left to free
  check(message.kind == 0 && message.folder.data == nullptr, "empty again");
}  // the destructor finds nothing to free
// [guide:end]

// [guide:legacy-release]
#include "ma/mdc_item.h"
#include "ma/rpc/mdc_item_msg.h"

// The legacy release frees the content but leaves kind and pointers as they
// were: the message must be filled again before it is destroyed.
void reuseMessageWithLegacyRelease(ma::VideoItemInfo const& recording) {
  itemMsgMaItem_t message(recording);
  ma::rpc::releaseMaItemMsgContent(message);
  check(message.video.data != nullptr, "a stale pointer to the freed payload");
  // Destroying `message` here would free the payload a second time.
  message = ma::FolderItemInfo("Recordings", "UUID-recordings");  // filled anew
}  // the destructor frees the folder content
// [guide:end]

int main() {
  ma::VideoItemInfo recording("Tatort", "UUID-rec-1");
  recording.setStationName("Das Erste HD");
  recording.setStartTime("20:15");

  boost::shared_ptr<ma::ItemInfo> received = receive(send(recording));
  check(received->getItemType() == ma::ITEM_TYPE_VIDEO, "same kind");
  check(received->getStationName() == "Das Erste HD", "fields carried");

  reuseMessage(recording);
  reuseMessageWithLegacyRelease(recording);
  return 0;
}
