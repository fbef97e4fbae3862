// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// msg and msg decode: the message an item becomes, and the item a message
// file carries.
#ifndef MA_CLI_MESSAGE_COMMANDS_H_
#define MA_CLI_MESSAGE_COMMANDS_H_

#include <string>

#include "catalogue_commands.h"

namespace ma_cli {

// The message of the item at `path`, field by field in this build's
// layout, and whether it converts back to an equal item. With a non-empty
// `outFile`, also writes the message's file form there.
void runMsg(Output& output, std::string const& path, std::string const& directory,
            ScanSettings const& settings, std::string const& outFile);

// The item that message file `file` ("-": standard input) carries, as its
// text dump, every field escaped. A missing,
// unreadable, truncated or corrupted file is bad input (InputError).
void runMsgDecode(Output& output, std::string const& file);

// Whether `rebuilt` is the same as `original`: operator== and equal dumps.
struct RoundTrip {
  bool equal = false;       // operator==
  bool sameDump = false;    // toString() byte for byte
  std::string kind;         // the rebuilt item's kind
};
RoundTrip compareRoundTrip(ma::ItemInfo& original, boost::shared_ptr<ma::ItemInfo> const& rebuilt);
void printRoundTripText(TextWriter& out, RoundTrip const& roundTrip);
Json roundTripJson(RoundTrip const& roundTrip);

}  // namespace ma_cli

#endif  // MA_CLI_MESSAGE_COMMANDS_H_
