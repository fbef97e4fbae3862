// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The item message as the tool shows it, and its file form.
//
// Listing: the message of an item (ma::rpc::convertMaItem) field by field,
// each row with offset, size, field name and value, for one of two
// layouts. The structures are packed; what differs between builds is the
// pointer width. The default walk shows the 32-bit receiver's layout (the
// wire contract, the same on every build, so one expected output serves
// host and target); `msg` shows this build's layout, which on the target is
// that same layout.
//
// File form: the message flattened by the platform serialiser's stand-in
// (zel/zel_standin_serialiser.h) in little-endian byte order. Reading a
// file checks every length and marker against the bytes that remain before
// anything is rebuilt, so a truncated or corrupted file is reported in one
// line and never read beyond its end.
//
// Thread-safety: none needed; messages are local to one call.
#ifndef MA_CLI_ITEM_MESSAGE_H_
#define MA_CLI_ITEM_MESSAGE_H_

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>
#include <vector>

#include "json_output.h"
#include "ma/mdc_item.h"
#include "text_output.h"

namespace ma_cli {

enum class Layout {
  kThisBuild,  // offsets and sizes of this build's structures
  kTarget32,   // offsets and sizes on the 32-bit receiver
};

// One row of the listing.
struct MessageRow {
  std::size_t offset;
  std::size_t size;
  std::string field;
  std::string text;  // the value as shown in text
  Json value;        // the value in --json
};

// A message listed: the top level and the payload of its kind.
struct MessageListing {
  std::string layout;          // a description of the layout
  std::size_t messageSize = 0;
  std::vector<MessageRow> message;
  std::string payloadSlot;     // "video", ...; empty without payload
  std::size_t payloadSize = 0;
  std::vector<MessageRow> payload;
};

// The message of `item`, listed in `layout`; the message is converted back
// into an item, returned in `*rebuilt` when not null.
MessageListing listMessage(ma::ItemInfo const& item, Layout layout,
                           boost::shared_ptr<ma::ItemInfo>* rebuilt = nullptr);

void printMessageText(TextWriter& out, MessageListing const& listing);
Json messageJson(MessageListing const& listing);

// The message of `item` flattened, as the bytes of its file form.
std::vector<unsigned char> flattenedMessage(ma::ItemInfo const& item);

// The item that the file form `bytes` carries. Throws InputError, naming
// the byte and the field, when the bytes are truncated, corrupted or carry
// no item.
boost::shared_ptr<ma::ItemInfo> decodeMessage(std::vector<unsigned char> const& bytes);

}  // namespace ma_cli

#endif  // MA_CLI_ITEM_MESSAGE_H_
