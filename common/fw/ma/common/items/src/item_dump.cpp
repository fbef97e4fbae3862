// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The text dump of an item record: one line per field that carries
// information, "<label><value>\n", in a fixed order with fixed labels. The
// labels are irregular (prefixes, column widths) and are kept as they are:
// logs and tools downstream read them.
#include <locale>
#include <sstream>

#include "ma/mdc_item.h"

namespace ma {

namespace {

class DumpWriter {
 public:
  // A stream swallows an exception of its buffer and only sets badbit; with
  // badbit in its exception mask it lets it pass. So an exhausted allocator
  // ends the dump in std::bad_alloc instead of a silently cut text.
  DumpWriter() {
    out_.exceptions(std::ios::badbit);
    out_.imbue(std::locale::classic());
  }

  // Writes the line unless the value is empty or zero.
  void text(const char* label, std::string const& value) {
    if (!value.empty()) out_ << label << value << '\n';
  }
  template <class Number>
  void number(const char* label, Number value) {
    if (value != 0) out_ << label << value << '\n';
  }

  // Writes the line whatever the value.
  void always(const char* label, long long value) { out_ << label << value << '\n'; }

  std::string str() const { return out_.str(); }

 private:
  std::ostringstream out_;
};

}  // namespace

std::string ItemInfo::ItemImpl::toString() const {
  DumpWriter dump;
  dump.always("ItemType        : ", m_itemType);
  dump.text("locator         : ", m_locator);
  dump.text("subType         : ", m_itemSubType);
  dump.text("caption         : ", m_caption);
  dump.text("uuid            : ", m_uuid);
  dump.text("ancestor        : ", m_originalAncestor);
  dump.text("creator        : ", m_creator);
  dump.text("originalUuid    : ", m_originalUuid);
  dump.text("originalVolume  : ", m_originalVolume);
  dump.text("playtime        : ", m_playtime);
  dump.text("thumburl        : ", m_thumbURL);
  dump.text("stationName     : ", m_stationName);
  dump.text("m_stationDescription: ", m_stationDescription);
  dump.text("m_longStationDescription: ", m_longStationDescription);
  dump.text("title           : ", m_title);
  dump.text("genre           : ", m_genre);
  dump.text("description     : ", m_description);
  dump.text("comment         : ", m_comment);
  dump.text("date            : ", m_date);
  dump.number("dateNumeric     : ", m_dateNumeric);
  dump.text("userIndex       : ", m_userIndex);
  dump.text("parentalRating  : ", m_parentalRating);
  dump.text("creationTime    : ", m_creationTime);
  dump.text("modificationTime: ", m_modificationTime);
  dump.text("encryptionScheme: ", m_encryptionScheme);
  dump.text("encryptionInfo  : ", m_encryptionInfo);
  dump.text("displayRules    : ", m_displayRules);
  dump.number("m_fileSize      : ", m_fileSize);
  dump.number("m_resumePosition: ", m_resumePosition);
  dump.text("m_tunerUUID    : ", m_tunerUUID);
  dump.text("year    : ", m_year);
  dump.text("m_recStartTime    : ", m_recStartTime);
  dump.text("m_recEndTime    : ", m_recEndTime);
  dump.text("m_recDuration    : ", m_recDuration);
  dump.text("m_recTsId    : ", m_recTsId);
  dump.text("m_recServiceId    : ", m_recServiceId);
  dump.text("m_recOnId    : ", m_recOnId);
  dump.text("m_recEventType    : ", m_recEventType);
  dump.text("m_recFailType    : ", m_recFailType);
  dump.number("m_recChnum    : ", m_recChnum);
  return dump.str();
}

std::string VideoItemInfo::VideoItemImpl::toString() const {
  DumpWriter dump;
  dump.text("start    : ", m_startTime);
  dump.text("end      : ", m_endTime);
  dump.text("actor    : ", m_actor);
  dump.text("director : ", m_director);
  return ItemImpl::toString() + dump.str();
}

}  // namespace ma
