// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The nine item kinds as the tool names them, and the kind of a file.
//
// Thread-safety: stateless functions.
#ifndef MA_CLI_ITEM_KINDS_H_
#define MA_CLI_ITEM_KINDS_H_

#include <boost/shared_ptr.hpp>
#include <string>

#include "ma/mdc_item.h"

namespace ma_cli {

// "folder", "music", "video", "picture", "playlist", "document", "other",
// "interactive", "unknown"; "kind N" for a value that names no single kind.
std::string kindName(ma::itemType kind);

// A new record of `kind` (one of the nine) built from caption and UUID.
// A value that names no single kind gives an unknown record.
boost::shared_ptr<ma::ItemInfo> makeItem(ma::itemType kind, std::string const& caption,
                                         std::string const& uuid);

// The kind of a file named `fileName`, from its extension (letter case
// ignored): audio files are music, "m3u" and friends playlists, "pdf" and
// office texts documents, "html" and "xht" interactive services, subtitles
// and metadata side files other; anything else (no extension included) is
// unknown. Folders are recognised by the caller, not by name.
ma::itemType kindOfFileName(std::string const& fileName);

}  // namespace ma_cli

#endif  // MA_CLI_ITEM_KINDS_H_
