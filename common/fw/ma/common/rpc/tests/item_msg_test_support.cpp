// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors

#include "item_msg_test_support.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "ma_internal/item_fields.h"

namespace ma_rpc_test {
namespace {

using Bytes = std::vector<unsigned char>;

// The nine slots of the message with their offsets; video has extras.
const std::vector<std::size_t>& slotOffsets() {
  static const std::vector<std::size_t> offsets = {
      offsetof(itemMsgMaItem_t, folder),      offsetof(itemMsgMaItem_t, music),
      offsetof(itemMsgMaItem_t, other),       offsetof(itemMsgMaItem_t, picture),
      offsetof(itemMsgMaItem_t, playlist),    offsetof(itemMsgMaItem_t, unknown),
      offsetof(itemMsgMaItem_t, video),       offsetof(itemMsgMaItem_t, interactive),
      offsetof(itemMsgMaItem_t, document)};
  return offsets;
}

constexpr std::size_t kPresent = offsetof(itemMsgOptionalRef_t<void>, present);
constexpr std::size_t kPointer = offsetof(itemMsgOptionalRef_t<void>, data);

const unsigned char* pointerAt(const unsigned char* at) {
  const unsigned char* pointer;
  std::memcpy(&pointer, at, sizeof pointer);
  return pointer;
}

// Walks the message and every payload it references, calling
//   scalar(bytes, size)  for every scalar (kind, presence, numbers, lengths),
//   other(bytes, size)   for bools and pointers,
//   string(member)       for every counted string (after its length and
//                        pointer have been passed to scalar and other).
template <typename Visitor>
void walkMessage(const itemMsgMaItem_t& msg, Visitor& visitor) {
  const unsigned char* top = reinterpret_cast<const unsigned char*>(&msg);
  visitor.scalar(top + offsetof(itemMsgMaItem_t, kind), sizeof msg.kind);
  for (std::size_t slot : slotOffsets()) {
    visitor.scalar(top + slot + kPresent, 4);
    visitor.other(top + slot + kPointer, sizeof(void*));
    const unsigned char* payload = pointerAt(top + slot + kPointer);
    if (payload == nullptr) continue;
    std::vector<std::size_t> strings;
    for (const InfoMember& member : infoMembers()) {
      const unsigned char* at = payload + member.offset;
      if (member.kind == 'S') {
        strings.push_back(member.offset);
      } else if (member.kind == 'B') {
        visitor.other(at, member.size);
      } else {
        visitor.scalar(at, member.size);
      }
    }
    if (slot == offsetof(itemMsgMaItem_t, video)) {
      strings.push_back(offsetof(itemMsgMaItemVideo_t, startTime));
      strings.push_back(offsetof(itemMsgMaItemVideo_t, endTime));
    }
    for (std::size_t offset : strings) {
      visitor.scalar(payload + offset + offsetof(zelDeserString_t, length), 4);
      visitor.other(payload + offset + offsetof(zelDeserString_t, data), sizeof(char*));
      visitor.string(payload + offset);
    }
  }
}

struct ImageWriter {
  Bytes image;
  void scalar(const unsigned char* at, std::size_t size) { image.insert(image.end(), at, at + size); }
  void other(const unsigned char* at, std::size_t size) {
    if (size == sizeof(void*)) {
      image.push_back(pointerAt(at) == nullptr ? 0 : 1);  // the pointer only as present or not
    } else {
      image.insert(image.end(), at, at + size);
    }
  }
  void string(const unsigned char* member) {
    zelDeserString_t string;
    std::memcpy(&string, member, sizeof string);
    if (string.data != nullptr) image.insert(image.end(), string.data, string.data + string.length);
  }
};

struct BytesSplitter {
  MessageBytes bytes;
  void scalar(const unsigned char* at, std::size_t size) { bytes.scalars.emplace_back(at, at + size); }
  void other(const unsigned char* at, std::size_t size) {
    bytes.others.insert(bytes.others.end(), at, at + size);
  }
  void string(const unsigned char*) {}
};

// A text naming the field and the seed, so that no two fields are equal.
std::string distinctText(const char* getter, int seed) {
  return std::string(getter) + "-value-" + std::to_string(seed);
}

}  // namespace

const std::vector<InfoMember>& infoMembers() {
#define MA_TEST_INFO_MEMBER(kind, member, getter) \
  {#member, #kind[0], offsetof(itemMsgMaItemInfo_t, member), sizeof(itemMsgMaItemInfo_t::member)},
  static const std::vector<InfoMember> members = {MA_TEST_INFO_MEMBERS(MA_TEST_INFO_MEMBER)};
#undef MA_TEST_INFO_MEMBER
  return members;
}

const std::vector<KindCase>& allKinds() {
  static const std::vector<KindCase> kinds = {
      {ma::ITEM_TYPE_FOLDER, 0, "Folder"},   {ma::ITEM_TYPE_MUSIC, 1, "Music"},
      {ma::ITEM_TYPE_OTHER, 2, "Other"},     {ma::ITEM_TYPE_PICTURE, 3, "Picture"},
      {ma::ITEM_TYPE_PLAYLIST, 4, "Playlist"}, {ma::ITEM_TYPE_UNKNOWN, 6, "Unknown"},
      {ma::ITEM_TYPE_VIDEO, 7, "Video"},     {ma::ITEM_TYPE_INTERACTIVE, 8, "Interactive"},
      {ma::ITEM_TYPE_DOCUMENT, 9, "Document"}};
  return kinds;
}

ItemPtr makeItem(ma::itemType type, const std::string& caption, const std::string& uuid) {
  switch (type) {
    case ma::ITEM_TYPE_UNKNOWN: return ItemPtr(new ma::UnknownItemInfo(caption, uuid));
    case ma::ITEM_TYPE_MUSIC: return ItemPtr(new ma::MusicItemInfo(caption, uuid));
    case ma::ITEM_TYPE_VIDEO: return ItemPtr(new ma::VideoItemInfo(caption, uuid));
    case ma::ITEM_TYPE_PICTURE: return ItemPtr(new ma::PictureItemInfo(caption, uuid));
    case ma::ITEM_TYPE_PLAYLIST: return ItemPtr(new ma::PlaylistItemInfo(caption, uuid));
    case ma::ITEM_TYPE_FOLDER: return ItemPtr(new ma::FolderItemInfo(caption, uuid));
    case ma::ITEM_TYPE_DOCUMENT: return ItemPtr(new ma::DocumentItemInfo(caption, uuid));
    case ma::ITEM_TYPE_OTHER: return ItemPtr(new ma::OtherItemInfo(caption, uuid));
    case ma::ITEM_TYPE_INTERACTIVE: return ItemPtr(new ma::InteractiveItemInfo(caption, uuid));
  }
  return ItemPtr();
}

ItemPtr makeDistinctItem(ma::itemType type, int seed) {
  ItemPtr made = makeItem(type, "caption-" + std::to_string(seed), "uuid-" + std::to_string(seed));
  ma::ItemInfo& item = *made;
  long long n = 0;  // field counter: numbers differ from field to field
#define MA_TEST_SET_TYPE(get, set)
#define MA_TEST_SET_UUID(get, set)
#define MA_TEST_SET_WORD(get, set)
#define MA_TEST_SET_SUBTYPE(get, set) item.set(distinctText(#get, seed));
#define MA_TEST_SET_STR(get, set) item.set(distinctText(#get, seed));
#define MA_TEST_SET_I32(get, set) item.set(static_cast<int>(-1000 * ++n - seed));
#define MA_TEST_SET_U32(get, set) item.set(0x80000000u + static_cast<unsigned int>(1000 * ++n + seed));
#define MA_TEST_SET_I64(get, set) item.set(-(1LL << 40) - 1000 * ++n - seed);
#define MA_TEST_SET_U64(get, set) item.set((1ULL << 63) + static_cast<unsigned long long>(1000 * ++n + seed));
#define MA_TEST_SET_BOOL(get, set) item.set(((++n + seed) % 2) == 0);
#define MA_TEST_SET(kind, member, get, set, storeGet, storeSet, q, stores, initial) \
  MA_TEST_SET_##kind(get, set)
  MA_ITEM_FIELDS(MA_TEST_SET)
#undef MA_TEST_SET
#undef MA_TEST_SET_BOOL
#undef MA_TEST_SET_U64
#undef MA_TEST_SET_I64
#undef MA_TEST_SET_U32
#undef MA_TEST_SET_I32
#undef MA_TEST_SET_STR
#undef MA_TEST_SET_SUBTYPE
#undef MA_TEST_SET_WORD
#undef MA_TEST_SET_UUID
#undef MA_TEST_SET_TYPE
  item.setActor(distinctText("getActor", seed));
  item.setDirector(distinctText("getDirector", seed));
  if (ma::VideoItemInfo* video = dynamic_cast<ma::VideoItemInfo*>(&item)) {
    video->setStartTime(distinctText("getStartTime", seed));
    video->setEndTime(distinctText("getEndTime", seed));
  }
  return made;
}

void expectSameCarriedFields(const ma::ItemInfo& expected, const ma::ItemInfo& actual) {
#define MA_TEST_COMPARE_TYPE(get)
#define MA_TEST_COMPARE_WORD(get)
#define MA_TEST_COMPARE_ANY(get) EXPECT_EQ(expected.get(), actual.get()) << #get;
#define MA_TEST_COMPARE_UUID MA_TEST_COMPARE_ANY
#define MA_TEST_COMPARE_SUBTYPE MA_TEST_COMPARE_ANY
#define MA_TEST_COMPARE_STR MA_TEST_COMPARE_ANY
#define MA_TEST_COMPARE_I32 MA_TEST_COMPARE_ANY
#define MA_TEST_COMPARE_U32 MA_TEST_COMPARE_ANY
#define MA_TEST_COMPARE_I64 MA_TEST_COMPARE_ANY
#define MA_TEST_COMPARE_U64 MA_TEST_COMPARE_ANY
#define MA_TEST_COMPARE_BOOL MA_TEST_COMPARE_ANY
#define MA_TEST_COMPARE(kind, member, get, set, storeGet, storeSet, q, stores, initial) \
  MA_TEST_COMPARE_##kind(get)
  MA_ITEM_FIELDS(MA_TEST_COMPARE)
  MA_TEST_COMPARE_ANY(getActor)
  MA_TEST_COMPARE_ANY(getDirector)
#undef MA_TEST_COMPARE
#undef MA_TEST_COMPARE_BOOL
#undef MA_TEST_COMPARE_U64
#undef MA_TEST_COMPARE_I64
#undef MA_TEST_COMPARE_U32
#undef MA_TEST_COMPARE_I32
#undef MA_TEST_COMPARE_STR
#undef MA_TEST_COMPARE_SUBTYPE
#undef MA_TEST_COMPARE_UUID
#undef MA_TEST_COMPARE_ANY
#undef MA_TEST_COMPARE_WORD
#undef MA_TEST_COMPARE_TYPE
  const auto* expectedVideo = dynamic_cast<const ma::VideoItemInfo*>(&expected);
  const auto* actualVideo = dynamic_cast<const ma::VideoItemInfo*>(&actual);
  if (expectedVideo != nullptr && actualVideo != nullptr) {
    EXPECT_EQ(expectedVideo->getStartTime(), actualVideo->getStartTime());
    EXPECT_EQ(expectedVideo->getEndTime(), actualVideo->getEndTime());
  }
}

std::string textOf(const zelDeserString_t& string) {
  return string.data == nullptr ? std::string() : std::string(string.data, string.length);
}

itemMsgMaItemInfo_t* infoOf(const itemMsgMaItem_t& msg) {
  switch (msg.kind) {
    case 0: return msg.folder.data == nullptr ? nullptr : &msg.folder.data->info;
    case 1: return msg.music.data == nullptr ? nullptr : &msg.music.data->info;
    case 2: return msg.other.data == nullptr ? nullptr : &msg.other.data->info;
    case 3: return msg.picture.data == nullptr ? nullptr : &msg.picture.data->info;
    case 4: return msg.playlist.data == nullptr ? nullptr : &msg.playlist.data->info;
    case 6: return msg.unknown.data == nullptr ? nullptr : &msg.unknown.data->info;
    case 7: return msg.video.data == nullptr ? nullptr : &msg.video.data->info;
    case 8: return msg.interactive.data == nullptr ? nullptr : &msg.interactive.data->info;
    case 9: return msg.document.data == nullptr ? nullptr : &msg.document.data->info;
    default: return nullptr;
  }
}

namespace {

void expectStringCarries(const zelDeserString_t& string, const std::string& value,
                         const char* member) {
  ASSERT_NE(nullptr, string.data) << member;
  EXPECT_EQ(value.size(), string.length) << member;
  EXPECT_EQ(value, textOf(string)) << member;
  EXPECT_EQ('\0', string.data[string.length]) << member;
}

}  // namespace

void expectInfoCarries(const itemMsgMaItemInfo_t& info, const ma::ItemInfo& item) {
#define MA_TEST_CARRIES_S(member, get) expectStringCarries(info.member, item.get(), #member);
#define MA_TEST_CARRIES_N(member, get)                 \
  {                                                    \
    const auto value = info.member;                    \
    EXPECT_EQ(item.get(), value) << #member;           \
    EXPECT_EQ(sizeof(item.get()), sizeof value) << #member; \
  }
#define MA_TEST_CARRIES_B(member, get) EXPECT_EQ(item.get() ? 1 : 0, int{info.member}) << #member;
#define MA_TEST_CARRIES_R(member, get)
#define MA_TEST_CARRIES(kind, member, get) MA_TEST_CARRIES_##kind(member, get)
  MA_TEST_INFO_MEMBERS(MA_TEST_CARRIES)
#undef MA_TEST_CARRIES
#undef MA_TEST_CARRIES_R
#undef MA_TEST_CARRIES_B
#undef MA_TEST_CARRIES_N
#undef MA_TEST_CARRIES_S
}

std::vector<unsigned char> imageOf(const itemMsgMaItem_t& msg) {
  ImageWriter writer;
  walkMessage(msg, writer);
  return writer.image;
}

MessageBytes bytesOf(const itemMsgMaItem_t& msg) {
  BytesSplitter splitter;
  walkMessage(msg, splitter);
  return splitter.bytes;
}

::testing::AssertionResult isByteSwapOf(const MessageBytes& before, const MessageBytes& after) {
  if (before.others != after.others) {
    return ::testing::AssertionFailure() << "bools or pointers changed";
  }
  if (before.scalars.size() != after.scalars.size()) {
    return ::testing::AssertionFailure() << "different number of scalars";
  }
  for (std::size_t i = 0; i < before.scalars.size(); ++i) {
    const Bytes& was = before.scalars[i];
    if (!std::equal(was.rbegin(), was.rend(), after.scalars[i].begin(), after.scalars[i].end())) {
      return ::testing::AssertionFailure() << "scalar " << i << " of " << was.size()
                                           << " bytes is not reversed";
    }
  }
  return ::testing::AssertionSuccess();
}

void defineReservedWord(const itemMsgMaItem_t& msg, std::uint32_t value) {
  itemMsgMaItemInfo_t* info = infoOf(msg);
  if (info != nullptr) info->reserved = value;
}

std::vector<unsigned char> topLevelOf(const itemMsgMaItem_t& msg) {
  const unsigned char* bytes = reinterpret_cast<const unsigned char*>(&msg);
  return std::vector<unsigned char>(bytes, bytes + sizeof msg);
}

void copyTopLevel(const itemMsgMaItem_t& from, itemMsgMaItem_t* to) {
  std::memcpy(static_cast<void*>(to), static_cast<const void*>(&from), sizeof from);
}

// ---------------------------------------------------------------------------
// Random items

std::string RandomItems::text() {
  std::uniform_int_distribution<int> shape(0, 5);
  std::uniform_int_distribution<int> byte(1, 255);
  auto randomChars = [&](std::size_t count) {
    std::string s(count, ' ');
    for (char& c : s) c = static_cast<char>(byte(engine_));
    return s;
  };
  std::uniform_int_distribution<std::size_t> shortLength(1, 16);
  switch (shape(engine_)) {
    case 0: return std::string();
    case 1: return randomChars(shortLength(engine_));
    case 2: return randomChars(std::uniform_int_distribution<std::size_t>(256, 1200)(engine_));
    case 3: return " \t" + randomChars(shortLength(engine_)) + "\r\n ";
    case 4: {
      std::string s = randomChars(shortLength(engine_) + 2);
      s[s.size() / 2] = '\0';
      s.back() = '\0';
      return s;
    }
    default: return " \t\n\r";
  }
}

template <typename T>
T RandomItems::number() {
  static const T extremes[] = {std::numeric_limits<T>::min(), std::numeric_limits<T>::max(), T(0),
                               T(1), static_cast<T>(-1)};
  if (engine_() % 2 == 0) return extremes[engine_() % 5];
  const unsigned long long bits =
      (static_cast<unsigned long long>(engine_()) << 32) | static_cast<unsigned long long>(engine_());
  return static_cast<T>(bits);
}

ItemPtr RandomItems::next() {
  const KindCase& kind = allKinds()[engine_() % allKinds().size()];
  ItemPtr made = makeItem(kind.type, text(), text());
  ma::ItemInfo& item = *made;
#define MA_TEST_RANDOM_TYPE(get, set)
#define MA_TEST_RANDOM_UUID(get, set)
#define MA_TEST_RANDOM_WORD(get, set)
#define MA_TEST_RANDOM_SUBTYPE(get, set) item.set(text());
#define MA_TEST_RANDOM_STR(get, set) item.set(text());
#define MA_TEST_RANDOM_I32(get, set) item.set(number<int>());
#define MA_TEST_RANDOM_U32(get, set) item.set(number<unsigned int>());
#define MA_TEST_RANDOM_I64(get, set) item.set(number<long long>());
#define MA_TEST_RANDOM_U64(get, set) item.set(number<unsigned long long>());
#define MA_TEST_RANDOM_BOOL(get, set) item.set(engine_() % 2 == 0);
#define MA_TEST_RANDOM(kind, member, get, set, storeGet, storeSet, q, stores, initial) \
  MA_TEST_RANDOM_##kind(get, set)
  MA_ITEM_FIELDS(MA_TEST_RANDOM)
#undef MA_TEST_RANDOM
#undef MA_TEST_RANDOM_BOOL
#undef MA_TEST_RANDOM_U64
#undef MA_TEST_RANDOM_I64
#undef MA_TEST_RANDOM_U32
#undef MA_TEST_RANDOM_I32
#undef MA_TEST_RANDOM_STR
#undef MA_TEST_RANDOM_SUBTYPE
#undef MA_TEST_RANDOM_WORD
#undef MA_TEST_RANDOM_UUID
#undef MA_TEST_RANDOM_TYPE
  item.setActor(text());
  item.setDirector(text());
  if (ma::VideoItemInfo* video = dynamic_cast<ma::VideoItemInfo*>(&item)) {
    video->setStartTime(text());
    video->setEndTime(text());
  }
  return made;
}

}  // namespace ma_rpc_test
