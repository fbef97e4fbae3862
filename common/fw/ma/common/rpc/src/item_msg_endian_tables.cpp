// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The endian descriptions of the item message, read by the platform's
// serialiser. Entry order, codes and links are part of the message contract;
// offsets and sizes come from the declarations, so they are right on every
// build and equal the pinned numbers on the target.
#include <cstddef>
#include <cstdint>

#include "ma/rpc/mdc_item_msg.h"

namespace {

constexpr std::uint32_t descriptor(std::uint32_t code, std::size_t offset) {
  return code << 16 | static_cast<std::uint32_t>(offset);
}

// The member code of a scalar is its width.
template <std::size_t Width>
constexpr std::uint32_t scalarCode() {
  static_assert(Width == 1 || Width == 4 || Width == 8, "scalars are 1, 4 or 8 bytes");
  return Width;
}

#define MA_END_OF_MEMBERS \
  { ZEL_ENDIAN_END_DESCRIPTOR, reinterpret_cast<const void*>(ZEL_ENDIAN_END_LINK) }

#define MA_SCALAR(type, member) \
  { descriptor(scalarCode<sizeof(type::member)>(), offsetof(type, member)), nullptr }

#define MA_EMBEDDED(type, member, description) \
  { descriptor(ZEL_ENDIAN_STRUCT, offsetof(type, member)), &description }

#define MA_OPTIONAL(type, member, description) \
  { descriptor(ZEL_ENDIAN_OPTIONAL_REF, offsetof(type, member)), &description }

#define MA_INFO_STRING(member) \
  MA_EMBEDDED(itemMsgMaItemInfo_t, member, __zel_EndianTable_zelDeserString_t)
#define MA_INFO_SCALAR(member) MA_SCALAR(itemMsgMaItemInfo_t, member)

// The numbers that lie between the strings first, the trailing group of
// numbers (previewPage ... networkID) after recChnum.
const zelEndianEntry_t kInfoMembers[] = {
    MA_INFO_STRING(itemSubType),
    MA_INFO_STRING(caption),
    MA_INFO_STRING(uuid),
    MA_INFO_STRING(originalUuid),
    MA_INFO_STRING(originalVolume),
    MA_INFO_STRING(itemLocator),
    MA_INFO_STRING(playtime),
    MA_INFO_STRING(thumbURL),
    MA_INFO_STRING(stationName),
    MA_INFO_STRING(stationDescription),
    MA_INFO_STRING(title),
    MA_INFO_STRING(genre),
    MA_INFO_STRING(description),
    MA_INFO_STRING(comment),
    MA_INFO_STRING(date),
    MA_INFO_STRING(userIndex),
    MA_INFO_STRING(parentalRating),
    MA_INFO_STRING(displayRules),
    MA_INFO_SCALAR(fileSize),
    MA_INFO_SCALAR(attributes),
    MA_INFO_SCALAR(maxPosition),
    MA_INFO_SCALAR(resumePosition),
    MA_INFO_SCALAR(dateNumeric),
    MA_INFO_STRING(originalAncestor),
    MA_INFO_STRING(creator),
    MA_INFO_STRING(longStationDescription),
    MA_INFO_STRING(artist),
    MA_INFO_STRING(album),
    MA_INFO_STRING(albumUUID),
    MA_INFO_STRING(trackNum),
    MA_INFO_STRING(year),
    MA_INFO_STRING(bitrate),
    MA_INFO_STRING(actor),
    MA_INFO_STRING(director),
    MA_INFO_STRING(creationTime),
    MA_INFO_STRING(modificationTime),
    MA_INFO_STRING(encryptionScheme),
    MA_INFO_STRING(encryptionInfo),
    MA_INFO_STRING(tunerUUID),
    MA_INFO_STRING(recStartTime),
    MA_INFO_STRING(recEndTime),
    MA_INFO_STRING(recDuration),
    MA_INFO_STRING(recTsId),
    MA_INFO_STRING(recOnId),
    MA_INFO_STRING(recServiceId),
    MA_INFO_STRING(recEventType),
    MA_INFO_STRING(recFailType),
    MA_INFO_SCALAR(recChnum),
    MA_INFO_SCALAR(previewPage),
    MA_INFO_SCALAR(subtitlePage),
    MA_INFO_SCALAR(encoding),
    MA_INFO_SCALAR(receivable),
    MA_INFO_SCALAR(volumeCorrection),
    MA_INFO_SCALAR(visible),
    MA_INFO_SCALAR(selectable),
    MA_INFO_SCALAR(reserved),
    MA_INFO_SCALAR(soundSelection),
    MA_INFO_SCALAR(lcn),
    MA_INFO_SCALAR(epgTheme),
    MA_INFO_SCALAR(networkID),
    MA_END_OF_MEMBERS,
};

const zelEndianEntry_t kVideoMembers[] = {
    MA_EMBEDDED(itemMsgMaItemVideo_t, info, __zel_EndianTable_itemMsgMaItemInfo_t),
    MA_EMBEDDED(itemMsgMaItemVideo_t, startTime, __zel_EndianTable_zelDeserString_t),
    MA_EMBEDDED(itemMsgMaItemVideo_t, endTime, __zel_EndianTable_zelDeserString_t),
    MA_END_OF_MEMBERS,
};

// The eight kinds whose payload is the common block alone.
#define MA_COMMON_BLOCK_MEMBERS(name, Payload)                                     \
  const zelEndianEntry_t name[] = {                                                \
      MA_EMBEDDED(Payload, info, __zel_EndianTable_itemMsgMaItemInfo_t),           \
      MA_END_OF_MEMBERS,                                                           \
  }

MA_COMMON_BLOCK_MEMBERS(kFolderMembers, itemMsgMaItemFolder_t);
MA_COMMON_BLOCK_MEMBERS(kMusicMembers, itemMsgMaItemMusic_t);
MA_COMMON_BLOCK_MEMBERS(kOtherMembers, itemMsgMaItemOther_t);
MA_COMMON_BLOCK_MEMBERS(kPictureMembers, itemMsgMaItemPicture_t);
MA_COMMON_BLOCK_MEMBERS(kPlaylistMembers, itemMsgMaItemPlaylist_t);
MA_COMMON_BLOCK_MEMBERS(kUnknownMembers, itemMsgMaItemUnknown_t);
MA_COMMON_BLOCK_MEMBERS(kInteractiveMembers, itemMsgMaItemInteractive_t);
MA_COMMON_BLOCK_MEMBERS(kDocumentMembers, itemMsgMaItemDocument_t);

const zelEndianEntry_t kMessageMembers[] = {
    MA_SCALAR(itemMsgMaItem_t, kind),
    MA_OPTIONAL(itemMsgMaItem_t, folder, __zel_EndianTable_itemMsgMaItemFolder_t),
    MA_OPTIONAL(itemMsgMaItem_t, music, __zel_EndianTable_itemMsgMaItemMusic_t),
    MA_OPTIONAL(itemMsgMaItem_t, other, __zel_EndianTable_itemMsgMaItemOther_t),
    MA_OPTIONAL(itemMsgMaItem_t, picture, __zel_EndianTable_itemMsgMaItemPicture_t),
    MA_OPTIONAL(itemMsgMaItem_t, playlist, __zel_EndianTable_itemMsgMaItemPlaylist_t),
    MA_OPTIONAL(itemMsgMaItem_t, unknown, __zel_EndianTable_itemMsgMaItemUnknown_t),
    MA_OPTIONAL(itemMsgMaItem_t, video, __zel_EndianTable_itemMsgMaItemVideo_t),
    MA_OPTIONAL(itemMsgMaItem_t, interactive, __zel_EndianTable_itemMsgMaItemInteractive_t),
    MA_OPTIONAL(itemMsgMaItem_t, document, __zel_EndianTable_itemMsgMaItemDocument_t),
    MA_END_OF_MEMBERS,
};

}  // namespace

#define MA_DESCRIPTION(type, members) \
  const zelEndianTable_t __zel_EndianTable_##type = {sizeof(type), members}

MA_DESCRIPTION(itemMsgMaItem_t, kMessageMembers);
MA_DESCRIPTION(itemMsgMaItemInfo_t, kInfoMembers);
MA_DESCRIPTION(itemMsgMaItemVideo_t, kVideoMembers);
MA_DESCRIPTION(itemMsgMaItemFolder_t, kFolderMembers);
MA_DESCRIPTION(itemMsgMaItemMusic_t, kMusicMembers);
MA_DESCRIPTION(itemMsgMaItemOther_t, kOtherMembers);
MA_DESCRIPTION(itemMsgMaItemPicture_t, kPictureMembers);
MA_DESCRIPTION(itemMsgMaItemPlaylist_t, kPlaylistMembers);
MA_DESCRIPTION(itemMsgMaItemUnknown_t, kUnknownMembers);
MA_DESCRIPTION(itemMsgMaItemInteractive_t, kInteractiveMembers);
MA_DESCRIPTION(itemMsgMaItemDocument_t, kDocumentMembers);
