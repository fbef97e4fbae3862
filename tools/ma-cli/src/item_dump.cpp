// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The dump of a copy whose text fields are escaped.
#include "item_dump.h"

#include <memory>

#include "text_output.h"

namespace ma_cli {

namespace {

typedef std::string const& (ma::ItemInfo::*Getter)() const;
typedef void (ma::ItemInfo::*Setter)(std::string const&);

struct TextField {
  Getter get;
  Setter set;
};

#define MA_CLI_TEXT_FIELD(name) \
  TextField { &ma::ItemInfo::get##name, &ma::ItemInfo::set##name }

// Every text field of a record that has a setter.
TextField const kTextFields[] = {
    MA_CLI_TEXT_FIELD(ItemSubType),    MA_CLI_TEXT_FIELD(Caption),
    MA_CLI_TEXT_FIELD(OriginalAncestor), MA_CLI_TEXT_FIELD(Creator),
    MA_CLI_TEXT_FIELD(OriginalUuid),   MA_CLI_TEXT_FIELD(OriginalVolume),
    MA_CLI_TEXT_FIELD(ItemLocator),    MA_CLI_TEXT_FIELD(Playtime),
    MA_CLI_TEXT_FIELD(ThumbURL),       MA_CLI_TEXT_FIELD(StationName),
    MA_CLI_TEXT_FIELD(StationDescription), MA_CLI_TEXT_FIELD(LongStationDescription),
    MA_CLI_TEXT_FIELD(Title),          MA_CLI_TEXT_FIELD(Genre),
    MA_CLI_TEXT_FIELD(Description),    MA_CLI_TEXT_FIELD(Comment),
    MA_CLI_TEXT_FIELD(Date),           MA_CLI_TEXT_FIELD(UserIndex),
    MA_CLI_TEXT_FIELD(ParentalRating), MA_CLI_TEXT_FIELD(CreationTime),
    MA_CLI_TEXT_FIELD(ModificationTime), MA_CLI_TEXT_FIELD(EncryptionScheme),
    MA_CLI_TEXT_FIELD(EncryptionInfo), MA_CLI_TEXT_FIELD(DisplayRules),
    MA_CLI_TEXT_FIELD(TunerUUID),      MA_CLI_TEXT_FIELD(Artist),
    MA_CLI_TEXT_FIELD(Album),          MA_CLI_TEXT_FIELD(AlbumUUID),
    MA_CLI_TEXT_FIELD(TrackNum),       MA_CLI_TEXT_FIELD(Year),
    MA_CLI_TEXT_FIELD(Bitrate),        MA_CLI_TEXT_FIELD(RecStartTime),
    MA_CLI_TEXT_FIELD(RecEndTime),     MA_CLI_TEXT_FIELD(RecDuration),
    MA_CLI_TEXT_FIELD(RecTsId),        MA_CLI_TEXT_FIELD(RecServiceId),
    MA_CLI_TEXT_FIELD(RecOnId),        MA_CLI_TEXT_FIELD(RecEventType),
    MA_CLI_TEXT_FIELD(RecFailType),    MA_CLI_TEXT_FIELD(Actor),
    MA_CLI_TEXT_FIELD(Director),
};
#undef MA_CLI_TEXT_FIELD

// In `dump`, from `*from` on, the first line "<label><value>\n" gets its
// value escaped; `*from` moves past it. (Used for the fields without a
// setter; every field before them is escaped already, so the first such
// line is the field's own.)
void escapeLine(std::string& dump, std::size_t* from, std::string const& label, std::string const& value) {
  if (value.empty()) return;
  std::string const line = label + value + "\n";
  std::size_t at = dump.find(line, *from);
  while (at != std::string::npos && at != 0 && dump[at - 1] != '\n') at = dump.find(line, at + 1);
  if (at == std::string::npos) return;
  std::string const safe = label + escaped(value) + "\n";
  dump.replace(at, line.size(), safe);
  *from = at + safe.size();
}

}  // namespace

std::vector<std::string> safeDumpLines(ma::ItemInfo const& item) {
  std::unique_ptr<ma::ItemInfo> copy(item.duplicate());
  for (TextField const& field : kTextFields) {
    std::string const& value = (copy.get()->*field.get)();
    std::string const safe = escaped(value);
    if (safe != value) (copy.get()->*field.set)(safe);
  }
  std::string dump = copy->toString();
  // The identifier is fixed at construction, and a video's start and end
  // have setters of their own kind: their lines are escaped in place.
  std::size_t from = 0;
  escapeLine(dump, &from, "uuid            : ", copy->getUUID());
  if (auto const* video = dynamic_cast<ma::VideoItemInfo const*>(copy.get())) {
    escapeLine(dump, &from, "start    : ", video->getStartTime());
    escapeLine(dump, &from, "end      : ", video->getEndTime());
  }
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < dump.size()) {
    std::size_t end = dump.find('\n', start);
    if (end == std::string::npos) end = dump.size();
    lines.push_back(dump.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

}  // namespace ma_cli
