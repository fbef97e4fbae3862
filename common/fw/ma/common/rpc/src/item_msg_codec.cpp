// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The mapping between item records and the item message: the common
// block's field table, the message kinds and the counted strings.
#include "item_msg_codec.h"

#include <cstdlib>
#include <cstring>
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace ma {
namespace rpc {
namespace codec {
namespace {

// ---------------------------------------------------------------------------
// Values in members

// Bytes that a value of type T takes in the message.
template <typename T>
constexpr std::size_t widthInMessage() {
  if constexpr (std::is_same<T, std::string>::value) {
    return sizeof(zelDeserString_t);
  } else {
    static_assert(std::is_integral<T>::value, "the message holds strings and integers");
    return sizeof(T);
  }
}

void storeValue(unsigned char* member, std::string const& value) { storeString(member, value); }

void storeValue(unsigned char* member, bool value) { *member = value ? 1 : 0; }

template <typename Number>
void storeValue(unsigned char* member, Number const& value) {
  std::memcpy(member, &value, sizeof value);
}

template <typename T>
T loadValue(unsigned char const* member) {
  if constexpr (std::is_same<T, std::string>::value) {
    return loadString(member);
  } else if constexpr (std::is_same<T, bool>::value) {
    return *member != 0;
  } else {
    T value;
    std::memcpy(&value, member, sizeof value);
    return value;
  }
}

// The value type that a setter of ma::ItemInfo takes.
template <typename Setter>
struct SetterValue;
template <typename T>
struct SetterValue<void (ItemInfo::*)(T const&)> {
  using type = T;
};
template <>
struct SetterValue<void (ItemInfo::*)(bool)> {
  using type = bool;
};

// The getter's value into a member of `Width` bytes.
template <auto Get, std::size_t Width>
void writeMember(ItemInfo const& item, unsigned char* member) {
  using Value = std::decay_t<decltype((std::declval<ItemInfo const&>().*Get)())>;
  static_assert(widthInMessage<Value>() == Width, "member width matches the getter's type");
  storeValue(member, (item.*Get)());
}

// A member of `Width` bytes into the setter. A string member is copied into
// `scratch` first, whose storage serves every string field of the item in
// turn, so no string is allocated just to be handed to a setter.
template <auto Set, std::size_t Width>
void readMember(unsigned char const* member, ItemInfo& item, std::string& scratch) {
  using Value = typename SetterValue<decltype(Set)>::type;
  static_assert(widthInMessage<Value>() == Width, "member width matches the setter's type");
  if constexpr (std::is_same<Value, std::string>::value) {
    loadStringInto(member, scratch);
    (item.*Set)(scratch);
  } else {
    (item.*Set)(loadValue<Value>(member));
  }
}

#define MA_INFO_MEMBER(member)                                                  \
  #member, offsetof(itemMsgMaItemInfo_t, member),                               \
      std::is_same<decltype(itemMsgMaItemInfo_t::member), zelDeserString_t>::value

// A member that the reader passes to a setter.
#define MA_INFO_FIELD(member, get, set)                                         \
  {                                                                             \
    MA_INFO_MEMBER(member),                                                     \
        &writeMember<&ItemInfo::get, sizeof(itemMsgMaItemInfo_t::member)>,      \
        &readMember<&ItemInfo::set, sizeof(itemMsgMaItemInfo_t::member)>        \
  }

// A member that the reader passes to the kind constructor.
#define MA_INFO_CONSTRUCTOR_FIELD(member, get) \
  { MA_INFO_MEMBER(member), &writeMember<&ItemInfo::get, sizeof(itemMsgMaItemInfo_t::member)>, nullptr }

}  // namespace

// clang-format off
constexpr InfoField kInfoFields[kInfoFieldCount] = {
    MA_INFO_CONSTRUCTOR_FIELD(caption, getCaption),
    MA_INFO_CONSTRUCTOR_FIELD(uuid, getUUID),

    MA_INFO_FIELD(itemSubType, getItemSubType, setItemSubType),
    MA_INFO_FIELD(originalUuid, getOriginalUuid, setOriginalUuid),
    MA_INFO_FIELD(originalVolume, getOriginalVolume, setOriginalVolume),
    MA_INFO_FIELD(itemLocator, getItemLocator, setItemLocator),
    MA_INFO_FIELD(playtime, getPlaytime, setPlaytime),
    MA_INFO_FIELD(thumbURL, getThumbURL, setThumbURL),
    MA_INFO_FIELD(stationName, getStationName, setStationName),
    MA_INFO_FIELD(stationDescription, getStationDescription, setStationDescription),
    MA_INFO_FIELD(title, getTitle, setTitle),
    MA_INFO_FIELD(genre, getGenre, setGenre),
    MA_INFO_FIELD(description, getDescription, setDescription),
    MA_INFO_FIELD(comment, getComment, setComment),
    MA_INFO_FIELD(date, getDate, setDate),
    MA_INFO_FIELD(userIndex, getUserIndex, setUserIndex),
    MA_INFO_FIELD(parentalRating, getParentalRating, setParentalRating),
    MA_INFO_FIELD(displayRules, getDisplayRules, setDisplayRules),

    MA_INFO_FIELD(fileSize, getFileSize, setFileSize),
    MA_INFO_FIELD(attributes, getAttributes, setAttributes),
    MA_INFO_FIELD(maxPosition, getMaxPosition, setMaxPosition),
    MA_INFO_FIELD(resumePosition, getResumePosition, setResumePosition),
    MA_INFO_FIELD(dateNumeric, getDateNumeric, setDateNumeric),

    MA_INFO_FIELD(originalAncestor, getOriginalAncestor, setOriginalAncestor),
    MA_INFO_FIELD(creator, getCreator, setCreator),
    MA_INFO_FIELD(longStationDescription, getLongStationDescription, setLongStationDescription),
    MA_INFO_FIELD(artist, getArtist, setArtist),
    MA_INFO_FIELD(album, getAlbum, setAlbum),
    MA_INFO_FIELD(albumUUID, getAlbumUUID, setAlbumUUID),
    MA_INFO_FIELD(trackNum, getTrackNum, setTrackNum),
    MA_INFO_FIELD(year, getYear, setYear),
    MA_INFO_FIELD(bitrate, getBitrate, setBitrate),
    MA_INFO_FIELD(actor, getActor, setActor),
    MA_INFO_FIELD(director, getDirector, setDirector),
    MA_INFO_FIELD(creationTime, getCreationTime, setCreationTime),
    MA_INFO_FIELD(modificationTime, getModificationTime, setModificationTime),
    MA_INFO_FIELD(encryptionScheme, getEncryptionScheme, setEncryptionScheme),
    MA_INFO_FIELD(encryptionInfo, getEncryptionInfo, setEncryptionInfo),

    MA_INFO_FIELD(previewPage, getPreviewPage, setPreviewPage),
    MA_INFO_FIELD(subtitlePage, getSubtitlePage, setSubtitlePage),
    MA_INFO_FIELD(encoding, getEncoding, setEncoding),
    MA_INFO_FIELD(receivable, isReceivable, setReceivable),
    MA_INFO_FIELD(volumeCorrection, getVolumeCorrection, setVolumeCorrection),
    MA_INFO_FIELD(visible, isVisible, setVisible),
    MA_INFO_FIELD(selectable, isSelectable, setSelectable),
    MA_INFO_FIELD(soundSelection, getSoundSelection, setSoundSelection),
    MA_INFO_FIELD(tunerUUID, getTunerUUID, setTunerUUID),
    MA_INFO_FIELD(lcn, getLcn, setLcn),
    MA_INFO_FIELD(epgTheme, getEpgTheme, setEpgTheme),
    MA_INFO_FIELD(networkID, getNetworkID, setNetworkID),

    // recServiceId is set before recOnId, although it lies after it.
    MA_INFO_FIELD(recStartTime, getRecStartTime, setRecStartTime),
    MA_INFO_FIELD(recEndTime, getRecEndTime, setRecEndTime),
    MA_INFO_FIELD(recDuration, getRecDuration, setRecDuration),
    MA_INFO_FIELD(recTsId, getRecTsId, setRecTsId),
    MA_INFO_FIELD(recServiceId, getRecServiceId, setRecServiceId),
    MA_INFO_FIELD(recOnId, getRecOnId, setRecOnId),
    MA_INFO_FIELD(recEventType, getRecEventType, setRecEventType),
    MA_INFO_FIELD(recFailType, getRecFailType, setRecFailType),
    MA_INFO_FIELD(recChnum, getRecChnum, setRecChnum),
};
// clang-format on

#undef MA_INFO_CONSTRUCTOR_FIELD
#undef MA_INFO_FIELD
#undef MA_INFO_MEMBER

namespace {

constexpr std::array<std::size_t, kInfoStringCount> stringOffsetsDescending() {
  std::array<std::size_t, kInfoStringCount> offsets{};
  std::size_t count = 0;
  for (const InfoField& field : kInfoFields) {
    if (!field.isString) continue;
    // Insertion into the sorted prefix, highest first.
    std::size_t at = count++;
    while (at > 0 && offsets[at - 1] < field.offset) {
      offsets[at] = offsets[at - 1];
      --at;
    }
    offsets[at] = field.offset;
  }
  return offsets;
}

constexpr std::size_t countStrings() {
  std::size_t count = 0;
  for (const InfoField& field : kInfoFields) count += field.isString ? 1 : 0;
  return count;
}
static_assert(countStrings() == kInfoStringCount, "the common block holds 42 strings");

}  // namespace

constexpr std::array<std::size_t, kInfoStringCount> kInfoStringsDescending =
    stringOffsetsDescending();

namespace {

// ---------------------------------------------------------------------------
// Kind steps

// An item of exactly the kind's class (as the library makes them) is
// recognised by its type alone; only for another class is the hierarchy
// searched.
template <class Kind>
bool isInstance(ItemInfo const& item) {
  return typeid(item) == typeid(Kind) || dynamic_cast<Kind const*>(&item) != nullptr;
}

// Every field of the table in turn, written out by the compiler: each
// field's writer is called directly (and inlined), not through the table.
template <std::size_t... Field>
void fillInfoFields(ItemInfo const& item, unsigned char* info, std::index_sequence<Field...>) {
  (kInfoFields[Field].write(item, info + kInfoFields[Field].offset), ...);
}

// fillItemMsgInfo: the common block from the item's getters.
void fillItemMsgInfo(ItemInfo const& item, unsigned char* info) {
  fillInfoFields(item, info, std::make_index_sequence<kInfoFieldCount>());
}

// The fields with setters in table order, each setter's reader called
// directly as above.
template <std::size_t Field>
void readInfoField(unsigned char const* info, ItemInfo& item, std::string& scratch) {
  if constexpr (kInfoFields[Field].read != nullptr) {
    kInfoFields[Field].read(info + kInfoFields[Field].offset, item, scratch);
  }
}

template <std::size_t... Field>
void readInfoFields(unsigned char const* info, ItemInfo& item, std::string& scratch,
                    std::index_sequence<Field...>) {
  (readInfoField<Field>(info, item, scratch), ...);
}

void fillVideo(ItemInfo const& item, unsigned char* payload) {
  fillItemMsgInfo(item, payload + offsetof(itemMsgMaItemVideo_t, info));
  VideoItemInfo const& video = static_cast<VideoItemInfo const&>(item);
  storeString(payload + offsetof(itemMsgMaItemVideo_t, startTime), video.getStartTime());
  storeString(payload + offsetof(itemMsgMaItemVideo_t, endTime), video.getEndTime());
}

// buildItemFromMsgInfo: the kind class made from caption and UUID, then every
// setter in table order, so that the message replaces every default.
template <class Kind>
boost::shared_ptr<ItemInfo> buildItemFromMsgInfo(unsigned char const* info) {
  if (info == nullptr) return boost::shared_ptr<ItemInfo>();
  std::string scratch;  // the caption first, then every string field in turn
  loadStringInto(info + offsetof(itemMsgMaItemInfo_t, caption), scratch);
  boost::shared_ptr<Kind> item(
      new Kind(scratch, loadString(info + offsetof(itemMsgMaItemInfo_t, uuid))));
  readInfoFields(info, *item, scratch, std::make_index_sequence<kInfoFieldCount>());
  return item;
}

boost::shared_ptr<ItemInfo> buildVideo(unsigned char const* payload) {
  boost::shared_ptr<ItemInfo> item = buildItemFromMsgInfo<VideoItemInfo>(payload);
  if (item) {
    VideoItemInfo& video = static_cast<VideoItemInfo&>(*item);
    video.setStartTime(loadString(payload + offsetof(itemMsgMaItemVideo_t, startTime)));
    video.setEndTime(loadString(payload + offsetof(itemMsgMaItemVideo_t, endTime)));
  }
  return item;
}

void freeInfoStrings(unsigned char* info) {
  for (std::size_t offset : kInfoStringsDescending) freeString(info + offset);
}

void freeVideoStrings(unsigned char* payload) {
  freeString(payload + offsetof(itemMsgMaItemVideo_t, endTime));
  freeString(payload + offsetof(itemMsgMaItemVideo_t, startTime));
  freeInfoStrings(payload + offsetof(itemMsgMaItemVideo_t, info));
}

#define MA_COMMON_KIND(type, code, slot, Payload, Kind)                                        \
  {                                                                                            \
    type, code, offsetof(itemMsgMaItem_t, slot), sizeof(Payload), &isInstance<Kind>,           \
        &fillItemMsgInfo, &buildItemFromMsgInfo<Kind>, &freeInfoStrings                        \
  }

// In order of kind code; code 5 is reserved.
constexpr MessageKind kKinds[] = {
    MA_COMMON_KIND(ITEM_TYPE_FOLDER, kItemMsgFolder, folder, itemMsgMaItemFolder_t, FolderItemInfo),
    MA_COMMON_KIND(ITEM_TYPE_MUSIC, kItemMsgMusic, music, itemMsgMaItemMusic_t, MusicItemInfo),
    MA_COMMON_KIND(ITEM_TYPE_OTHER, kItemMsgOther, other, itemMsgMaItemOther_t, OtherItemInfo),
    MA_COMMON_KIND(ITEM_TYPE_PICTURE, kItemMsgPicture, picture, itemMsgMaItemPicture_t,
                   PictureItemInfo),
    MA_COMMON_KIND(ITEM_TYPE_PLAYLIST, kItemMsgPlaylist, playlist, itemMsgMaItemPlaylist_t,
                   PlaylistItemInfo),
    MA_COMMON_KIND(ITEM_TYPE_UNKNOWN, kItemMsgUnknown, unknown, itemMsgMaItemUnknown_t,
                   UnknownItemInfo),
    {ITEM_TYPE_VIDEO, kItemMsgVideo, offsetof(itemMsgMaItem_t, video), sizeof(itemMsgMaItemVideo_t),
     &isInstance<VideoItemInfo>, &fillVideo, &buildVideo, &freeVideoStrings},
    MA_COMMON_KIND(ITEM_TYPE_INTERACTIVE, kItemMsgInteractive, interactive,
                   itemMsgMaItemInteractive_t, InteractiveItemInfo),
    MA_COMMON_KIND(ITEM_TYPE_DOCUMENT, kItemMsgDocument, document, itemMsgMaItemDocument_t,
                   DocumentItemInfo),
};

#undef MA_COMMON_KIND

constexpr std::size_t kSlotPointer = offsetof(itemMsgOptionalRef_t<void>, data);

}  // namespace

const MessageKind* kindOfItemType(unsigned int type) {
  for (const MessageKind& kind : kKinds) {
    if (kind.itemType == type) return &kind;
  }
  return nullptr;
}

const MessageKind* kindOfCode(std::uint32_t code) {
  for (const MessageKind& kind : kKinds) {
    if (kind.code == code) return &kind;
  }
  return nullptr;
}

unsigned char* payloadOf(_itemMsgMaItem_struct const& msg, MessageKind const& kind) {
  unsigned char* payload;
  std::memcpy(&payload, reinterpret_cast<unsigned char const*>(&msg) + kind.slot + kSlotPointer,
              sizeof payload);
  return payload;
}

void attachPayload(_itemMsgMaItem_struct& msg, MessageKind const& kind, void* payload) {
  unsigned char* slot = reinterpret_cast<unsigned char*>(&msg) + kind.slot;
  const std::uint32_t present = 1;
  std::memcpy(slot + offsetof(itemMsgOptionalRef_t<void>, present), &present, sizeof present);
  std::memcpy(slot + kSlotPointer, &payload, sizeof payload);
  msg.kind = kind.code;
}

void clearMessage(_itemMsgMaItem_struct& msg) {
  std::memset(static_cast<void*>(&msg), 0, sizeof msg);
}

void storeString(unsigned char* member, std::string const& text) {
  zelDeserString_t string = {0, nullptr};
  char* buffer = static_cast<char*>(std::malloc(text.size() + 1));
  if (buffer != nullptr) {
    std::memcpy(buffer, text.data(), text.size());
    buffer[text.size()] = '\0';
    string.length = static_cast<std::uint32_t>(text.size());
    string.data = buffer;
  }
  std::memcpy(member, &string, sizeof string);
}

std::string loadString(unsigned char const* member) {
  std::string text;
  loadStringInto(member, text);
  return text;
}

void loadStringInto(unsigned char const* member, std::string& text) {
  zelDeserString_t string;
  std::memcpy(&string, member, sizeof string);
  text.clear();  // keeps the storage; append() then copies without the
                // overlap checks of assign()
  if (string.data != nullptr && string.length != 0) text.append(string.data, string.length);
}

void freeString(unsigned char* member) {
  zelDeserString_t string;
  std::memcpy(&string, member, sizeof string);
  if (string.data != nullptr) std::free(string.data);
}

}  // namespace codec
}  // namespace rpc
}  // namespace ma
