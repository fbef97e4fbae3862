// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Item records built by arbitrary scripts of setter calls.
//
// The first byte picks one of the nine kinds; caption and identifier come
// from the input. Then each step picks a field (every field with a setter,
// actor and director, and on videos start and end time) and gives it a
// value from the input: a string that may be empty, padded with blanks or
// hold NUL bytes, or a number. After every step each getter must answer
// what the record was given (trimmed where the setter trims, as the
// trimming rule says); at the end a copy made by the kind's copy
// constructor and one made by duplicate() must equal the record under
// operator== and in every getter, the text dump must not throw and must be
// the same for all three, and a changed caption must make them differ.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "ma/mdc_item.h"
#include "ma_internal/item_fields.h"
#include "zel/zel_standin.h"

namespace {

using ma::ItemInfo;

void check(bool condition) {
  if (!condition) std::abort();
}

// Consumes the input from the front; past its end every byte is 0.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
  bool empty() const { return size_ == 0; }
  std::uint8_t byte() { return size_ == 0 ? 0 : (--size_, *data_++); }
  unsigned long long number() {
    unsigned long long value = 0;
    for (int i = 0; i < 8; ++i) value = value << 8 | byte();
    return value;
  }
  // A string in one of four shapes chosen by a control byte: input bytes,
  // input bytes between runs of blanks, empty, input bytes around a NUL.
  std::string text() {
    const std::uint8_t control = byte();
    const std::size_t length = control & 0x1Fu;
    std::string body;
    for (std::size_t i = 0; i < length && !empty(); ++i) body += static_cast<char>(byte());
    switch (control >> 6) {
      case 0:
        return body;
      case 1:
        return blanks() + body + blanks();
      case 2:
        return std::string();
      default:
        return body.substr(0, body.size() / 2) + std::string(1, '\0') + body.substr(body.size() / 2);
    }
  }

 private:
  // Up to seven characters of " \t\n\r" and, now and then, a vertical tab
  // or form feed, which are not blanks.
  std::string blanks() {
    static const char kChars[] = " \t\n\r \t\v\f";
    const std::uint8_t control = byte();
    std::string run;
    for (int i = 0; i < (control & 7); ++i) run += kChars[(control >> 3 >> (i % 3)) & 7];
    return run;
  }

  const std::uint8_t* data_;
  std::size_t size_;
};

// The trimming rule, written out: without the blanks " \t\n\r" at both ends.
std::string trimmed(const std::string& value) {
  const char* const blank = " \t\n\r";
  const std::size_t first = value.find_first_not_of(blank, 0, 4);
  if (first == std::string::npos) return std::string();
  const std::size_t last = value.find_last_not_of(blank, std::string::npos, 4);
  return value.substr(first, last - first + 1);
}

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// stripValue against the rule, and the rule's own properties.
void checkTrimming(const std::string& value) {
  const std::string result = ItemInfo::ItemImpl::stripValue(value);
  check(result == trimmed(value));
  if (result.empty()) {
    for (char c : value) check(isBlank(c));
    return;
  }
  check(!isBlank(result.front()) && !isBlank(result.back()));
  const std::size_t at = value.find(result);
  check(at != std::string::npos);
  for (std::size_t i = 0; i < at; ++i) check(isBlank(value[i]));
  for (std::size_t i = at + result.size(); i < value.size(); ++i) check(isBlank(value[i]));
}

// One settable field of the facade: its setter (a text field takes the
// text, a number field the number converted to its type), its getter, and
// what the getter must answer after the setter, all as text.
struct Field {
  void (*set)(ItemInfo& record, const std::string& text, unsigned long long number);
  std::string (*get)(const ItemInfo& record);
  std::string (*expected)(const std::string& text, unsigned long long number);
};

std::string asStored(const std::string& text, unsigned long long) { return text; }
std::string asTrimmed(const std::string& text, unsigned long long) { return trimmed(text); }

#define MA_FUZZ_STORED_STRIP asTrimmed
#define MA_FUZZ_STORED_RAW asStored
#define MA_FUZZ_TEXT_FIELD(get, set, stores)                                \
  {[](ItemInfo& r, const std::string& t, unsigned long long) { r.set(t); }, \
   [](const ItemInfo& r) { return std::string(r.get()); }, MA_FUZZ_STORED_##stores},
#define MA_FUZZ_NUMBER_FIELD(type, get, set)                                                    \
  {[](ItemInfo& r, const std::string&, unsigned long long n) { r.set(static_cast<type>(n)); },  \
   [](const ItemInfo& r) { return std::to_string(r.get()); },                                   \
   [](const std::string&, unsigned long long n) { return std::to_string(static_cast<type>(n)); }},
#define MA_FUZZ_FIELD_TYPE(get, set, stores)
#define MA_FUZZ_FIELD_UUID(get, set, stores)
#define MA_FUZZ_FIELD_WORD(get, set, stores)
#define MA_FUZZ_FIELD_SUBTYPE(get, set, stores) MA_FUZZ_TEXT_FIELD(get, set, stores)
#define MA_FUZZ_FIELD_STR(get, set, stores) MA_FUZZ_TEXT_FIELD(get, set, stores)
#define MA_FUZZ_FIELD_BOOL(get, set, stores)                                          \
  {[](ItemInfo& r, const std::string&, unsigned long long n) { r.set((n & 1) != 0); }, \
   [](const ItemInfo& r) { return std::to_string(r.get()); },                          \
   [](const std::string&, unsigned long long n) { return std::to_string((n & 1) != 0); }},
#define MA_FUZZ_FIELD_I32(get, set, stores) MA_FUZZ_NUMBER_FIELD(int, get, set)
#define MA_FUZZ_FIELD_U32(get, set, stores) MA_FUZZ_NUMBER_FIELD(unsigned int, get, set)
#define MA_FUZZ_FIELD_I64(get, set, stores) MA_FUZZ_NUMBER_FIELD(long long, get, set)
#define MA_FUZZ_FIELD_U64(get, set, stores) MA_FUZZ_NUMBER_FIELD(unsigned long long, get, set)
#define MA_FUZZ_FIELD(kind, member, get, set, storeGet, storeSet, q, stores, initial) \
  MA_FUZZ_FIELD_##kind(get, set, stores)

// Every field with a facade setter, then actor and director (raw, through
// the store's slots: the video store keeps them, the others answer "").
const Field kFields[] = {
    MA_ITEM_FIELDS(MA_FUZZ_FIELD)
    {[](ItemInfo& r, const std::string& t, unsigned long long) { r.setActor(t); },
     [](const ItemInfo& r) { return std::string(r.getActor()); }, asStored},
    {[](ItemInfo& r, const std::string& t, unsigned long long) { r.setDirector(t); },
     [](const ItemInfo& r) { return std::string(r.getDirector()); }, asStored},
};
constexpr std::size_t kFieldCount = sizeof kFields / sizeof kFields[0];
constexpr std::size_t kActor = kFieldCount - 2;
constexpr std::size_t kDirector = kFieldCount - 1;

// A kind: its type, how to make one and how its copy constructor copies.
struct Kind {
  ma::itemType type;
  ItemInfo* (*make)(const std::string& caption, const std::string& uuid);
  ItemInfo* (*copy)(const ItemInfo& record);
};

template <typename K>
Kind kindOf(ma::itemType type) {
  return {type, [](const std::string& c, const std::string& u) -> ItemInfo* { return new K(c, u); },
          [](const ItemInfo& r) -> ItemInfo* { return new K(static_cast<const K&>(r)); }};
}

const Kind kKinds[] = {
    kindOf<ma::UnknownItemInfo>(ma::ITEM_TYPE_UNKNOWN),
    kindOf<ma::MusicItemInfo>(ma::ITEM_TYPE_MUSIC),
    kindOf<ma::VideoItemInfo>(ma::ITEM_TYPE_VIDEO),
    kindOf<ma::PictureItemInfo>(ma::ITEM_TYPE_PICTURE),
    kindOf<ma::PlaylistItemInfo>(ma::ITEM_TYPE_PLAYLIST),
    kindOf<ma::FolderItemInfo>(ma::ITEM_TYPE_FOLDER),
    kindOf<ma::DocumentItemInfo>(ma::ITEM_TYPE_DOCUMENT),
    kindOf<ma::OtherItemInfo>(ma::ITEM_TYPE_OTHER),
    kindOf<ma::InteractiveItemInfo>(ma::ITEM_TYPE_INTERACTIVE),
};

// What every getter of a record must answer.
struct Model {
  std::vector<std::string> fields;  // by kFields index
  std::string uuid;
  std::string startTime;
  std::string endTime;
};

void checkAgainst(const ItemInfo& record, const Model& model, ma::itemType type) {
  for (std::size_t i = 0; i < kFieldCount; ++i) check(kFields[i].get(record) == model.fields[i]);
  check(record.getUUID() == model.uuid);
  check(record.getItemType() == type);
  if (type == ma::ITEM_TYPE_VIDEO) {
    const auto& video = static_cast<const ma::VideoItemInfo&>(record);
    check(video.getStartTime() == model.startTime && video.getEndTime() == model.endTime);
  }
}

std::string dumpOf(const ItemInfo& record) {
  try {
    return record.toString();
  } catch (...) {
    std::abort();  // the dump never throws
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool quiet = (zel_standin::setThreshold(375, 0), true);
  (void)quiet;
  Input input(data, size);
  const Kind& kind = kKinds[input.byte() % 9];
  const bool isVideo = kind.type == ma::ITEM_TYPE_VIDEO;
  const std::string caption = input.text();
  const std::string uuid = input.text();
  std::unique_ptr<ItemInfo> record(kind.make(caption, uuid));

  Model model;
  for (const Field& field : kFields) model.fields.push_back(field.get(*record));
  model.uuid = uuid;
  check(record->getCaption() == caption);  // construction does not trim
  checkAgainst(*record, model, kind.type);

  const std::size_t steps = kFieldCount + (isVideo ? 2 : 0);
  while (!input.empty()) {
    const std::size_t step = input.byte() % steps;
    const std::string text = input.text();
    const unsigned long long number = input.number();
    checkTrimming(text);
    if (step < kFieldCount) {
      kFields[step].set(*record, text, number);
      const bool kept = isVideo || (step != kActor && step != kDirector);
      if (kept) model.fields[step] = kFields[step].expected(text, number);
    } else {
      auto& video = static_cast<ma::VideoItemInfo&>(*record);
      if (step == kFieldCount) {
        video.setStartTime(text);
        model.startTime = trimmed(text);
      } else {
        video.setEndTime(text);
        model.endTime = trimmed(text);
      }
    }
    checkAgainst(*record, model, kind.type);
  }

  std::unique_ptr<ItemInfo> copy(kind.copy(*record));
  std::unique_ptr<ItemInfo> duplicate(record->duplicate());
  checkAgainst(*copy, model, kind.type);
  checkAgainst(*duplicate, model, kind.type);
  check(*record == *record && *copy == *record && *duplicate == *record && *record == *duplicate);
  check(!(*copy != *record) && !(*duplicate != *record));
  const std::string dump = dumpOf(*record);
  check(dumpOf(*copy) == dump && dumpOf(*duplicate) == dump);

  copy->setCaption(record->getCaption() + "x");
  check(*copy != *record && !(*copy == *record));
  return 0;
}
