// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Kind names, record construction by kind, kind by file extension.
#include "item_kinds.h"

#include <algorithm>
#include <cctype>
#include <cstring>

namespace ma_cli {

namespace {

struct ExtensionKind {
  char const* extension;  // lower case, without the dot
  ma::itemType kind;
};

// Sorted by extension for the binary search below.
constexpr ExtensionKind kExtensions[] = {
    {"aac", ma::ITEM_TYPE_MUSIC},      {"asx", ma::ITEM_TYPE_PLAYLIST},
    {"avi", ma::ITEM_TYPE_VIDEO},      {"bmp", ma::ITEM_TYPE_PICTURE},
    {"doc", ma::ITEM_TYPE_DOCUMENT},   {"docx", ma::ITEM_TYPE_DOCUMENT},
    {"epub", ma::ITEM_TYPE_DOCUMENT},  {"flac", ma::ITEM_TYPE_MUSIC},
    {"gif", ma::ITEM_TYPE_PICTURE},    {"heic", ma::ITEM_TYPE_PICTURE},
    {"htm", ma::ITEM_TYPE_INTERACTIVE}, {"html", ma::ITEM_TYPE_INTERACTIVE},
    {"idx", ma::ITEM_TYPE_OTHER},      {"jpeg", ma::ITEM_TYPE_PICTURE},
    {"jpg", ma::ITEM_TYPE_PICTURE},    {"m2ts", ma::ITEM_TYPE_VIDEO},
    {"m3u", ma::ITEM_TYPE_PLAYLIST},   {"m3u8", ma::ITEM_TYPE_PLAYLIST},
    {"m4a", ma::ITEM_TYPE_MUSIC},      {"m4v", ma::ITEM_TYPE_VIDEO},
    {"mkv", ma::ITEM_TYPE_VIDEO},      {"mov", ma::ITEM_TYPE_VIDEO},
    {"mp3", ma::ITEM_TYPE_MUSIC},      {"mp4", ma::ITEM_TYPE_VIDEO},
    {"mpeg", ma::ITEM_TYPE_VIDEO},     {"mpg", ma::ITEM_TYPE_VIDEO},
    {"nfo", ma::ITEM_TYPE_OTHER},      {"odt", ma::ITEM_TYPE_DOCUMENT},
    {"oga", ma::ITEM_TYPE_MUSIC},      {"ogg", ma::ITEM_TYPE_MUSIC},
    {"opus", ma::ITEM_TYPE_MUSIC},     {"pdf", ma::ITEM_TYPE_DOCUMENT},
    {"pls", ma::ITEM_TYPE_PLAYLIST},   {"png", ma::ITEM_TYPE_PICTURE},
    {"srt", ma::ITEM_TYPE_OTHER},      {"sub", ma::ITEM_TYPE_OTHER},
    {"ts", ma::ITEM_TYPE_VIDEO},       {"txt", ma::ITEM_TYPE_DOCUMENT},
    {"wav", ma::ITEM_TYPE_MUSIC},      {"webm", ma::ITEM_TYPE_VIDEO},
    {"webp", ma::ITEM_TYPE_PICTURE},   {"wma", ma::ITEM_TYPE_MUSIC},
    {"wpl", ma::ITEM_TYPE_PLAYLIST},   {"xht", ma::ITEM_TYPE_INTERACTIVE},
    {"xhtml", ma::ITEM_TYPE_INTERACTIVE}, {"xspf", ma::ITEM_TYPE_PLAYLIST},
};

// Longest extension above; longer ones are unknown without a search.
constexpr std::size_t kLongestExtension = 5;

}  // namespace

std::string kindName(ma::itemType kind) {
  switch (kind) {
    case ma::ITEM_TYPE_UNKNOWN: return "unknown";
    case ma::ITEM_TYPE_MUSIC: return "music";
    case ma::ITEM_TYPE_VIDEO: return "video";
    case ma::ITEM_TYPE_PICTURE: return "picture";
    case ma::ITEM_TYPE_PLAYLIST: return "playlist";
    case ma::ITEM_TYPE_FOLDER: return "folder";
    case ma::ITEM_TYPE_DOCUMENT: return "document";
    case ma::ITEM_TYPE_OTHER: return "other";
    case ma::ITEM_TYPE_INTERACTIVE: return "interactive";
  }
  return "kind " + std::to_string(static_cast<int>(kind));
}

boost::shared_ptr<ma::ItemInfo> makeItem(ma::itemType kind, std::string const& caption,
                                         std::string const& uuid) {
  switch (kind) {
    case ma::ITEM_TYPE_MUSIC: return boost::shared_ptr<ma::ItemInfo>(new ma::MusicItemInfo(caption, uuid));
    case ma::ITEM_TYPE_VIDEO: return boost::shared_ptr<ma::ItemInfo>(new ma::VideoItemInfo(caption, uuid));
    case ma::ITEM_TYPE_PICTURE: return boost::shared_ptr<ma::ItemInfo>(new ma::PictureItemInfo(caption, uuid));
    case ma::ITEM_TYPE_PLAYLIST: return boost::shared_ptr<ma::ItemInfo>(new ma::PlaylistItemInfo(caption, uuid));
    case ma::ITEM_TYPE_FOLDER: return boost::shared_ptr<ma::ItemInfo>(new ma::FolderItemInfo(caption, uuid));
    case ma::ITEM_TYPE_DOCUMENT: return boost::shared_ptr<ma::ItemInfo>(new ma::DocumentItemInfo(caption, uuid));
    case ma::ITEM_TYPE_OTHER: return boost::shared_ptr<ma::ItemInfo>(new ma::OtherItemInfo(caption, uuid));
    case ma::ITEM_TYPE_INTERACTIVE: return boost::shared_ptr<ma::ItemInfo>(new ma::InteractiveItemInfo(caption, uuid));
    case ma::ITEM_TYPE_UNKNOWN: break;
  }
  return boost::shared_ptr<ma::ItemInfo>(new ma::UnknownItemInfo(caption, uuid));
}

ma::itemType kindOfFileName(std::string const& fileName) {
  std::size_t const dot = fileName.rfind('.');
  // No extension, a hidden file's name ("" before the dot), or a long one.
  if (dot == std::string::npos || dot == 0 || fileName.size() - dot - 1 > kLongestExtension) {
    return ma::ITEM_TYPE_UNKNOWN;
  }
  char extension[kLongestExtension + 1] = {};
  for (std::size_t i = dot + 1; i < fileName.size(); ++i) {
    extension[i - dot - 1] = static_cast<char>(std::tolower(static_cast<unsigned char>(fileName[i])));
  }
  auto const found = std::lower_bound(
      std::begin(kExtensions), std::end(kExtensions), extension,
      [](ExtensionKind const& entry, char const* key) { return std::strcmp(entry.extension, key) < 0; });
  if (found != std::end(kExtensions) && std::strcmp(found->extension, extension) == 0) {
    return found->kind;
  }
  return ma::ITEM_TYPE_UNKNOWN;
}

}  // namespace ma_cli
