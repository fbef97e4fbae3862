// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The text dump: exact labels, the condition of each line, and the order.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "item_test_util.h"
#include "ma_test/trace_capture.h"

namespace {

using ma::ItemInfo;

const std::string kMusicTypeLine = "ItemType        : 2\n";

struct DumpedField {
  const char* name;
  std::function<void(ItemInfo&)> set;
  std::string line;  // the line the value adds to the dump
};

// Every line of the base dump after the type line, in dump order.
std::vector<DumpedField> dumpedFields() {
  return {
      {"locator", [](ItemInfo& i) { i.setItemLocator("/l"); }, "locator         : /l\n"},
      {"subType", [](ItemInfo& i) { i.setItemSubType("st"); }, "subType         : st\n"},
      {"caption", [](ItemInfo& i) { i.setCaption("cap"); }, "caption         : cap\n"},
      // uuid has no setter: see UuidLineComesFromTheConstructor.
      {"ancestor", [](ItemInfo& i) { i.setOriginalAncestor("an"); }, "ancestor        : an\n"},
      {"creator", [](ItemInfo& i) { i.setCreator("cr"); }, "creator        : cr\n"},
      {"originalUuid", [](ItemInfo& i) { i.setOriginalUuid("ou"); }, "originalUuid    : ou\n"},
      {"originalVolume", [](ItemInfo& i) { i.setOriginalVolume("ov"); }, "originalVolume  : ov\n"},
      {"playtime", [](ItemInfo& i) { i.setPlaytime("pt"); }, "playtime        : pt\n"},
      {"thumburl", [](ItemInfo& i) { i.setThumbURL("tu"); }, "thumburl        : tu\n"},
      {"stationName", [](ItemInfo& i) { i.setStationName("sn"); }, "stationName     : sn\n"},
      {"stationDescription", [](ItemInfo& i) { i.setStationDescription("sd"); }, "m_stationDescription: sd\n"},
      {"longStationDescription", [](ItemInfo& i) { i.setLongStationDescription("ld"); }, "m_longStationDescription: ld\n"},
      {"title", [](ItemInfo& i) { i.setTitle("ti"); }, "title           : ti\n"},
      {"genre", [](ItemInfo& i) { i.setGenre("ge"); }, "genre           : ge\n"},
      {"description", [](ItemInfo& i) { i.setDescription("de"); }, "description     : de\n"},
      {"comment", [](ItemInfo& i) { i.setComment("co"); }, "comment         : co\n"},
      {"date", [](ItemInfo& i) { i.setDate("da"); }, "date            : da\n"},
      {"dateNumeric", [](ItemInfo& i) { i.setDateNumeric(-9223372036854775807LL - 1); }, "dateNumeric     : -9223372036854775808\n"},
      {"userIndex", [](ItemInfo& i) { i.setUserIndex("ui"); }, "userIndex       : ui\n"},
      {"parentalRating", [](ItemInfo& i) { i.setParentalRating("pr"); }, "parentalRating  : pr\n"},
      {"creationTime", [](ItemInfo& i) { i.setCreationTime("ct"); }, "creationTime    : ct\n"},
      {"modificationTime", [](ItemInfo& i) { i.setModificationTime("mt"); }, "modificationTime: mt\n"},
      {"encryptionScheme", [](ItemInfo& i) { i.setEncryptionScheme("es"); }, "encryptionScheme: es\n"},
      {"encryptionInfo", [](ItemInfo& i) { i.setEncryptionInfo("ei"); }, "encryptionInfo  : ei\n"},
      {"displayRules", [](ItemInfo& i) { i.setDisplayRules("dr"); }, "displayRules    : dr\n"},
      {"fileSize", [](ItemInfo& i) { i.setFileSize(18446744073709551615ULL); }, "m_fileSize      : 18446744073709551615\n"},
      {"resumePosition", [](ItemInfo& i) { i.setResumePosition(4294967295u); }, "m_resumePosition: 4294967295\n"},
      {"tunerUUID", [](ItemInfo& i) { i.setTunerUUID("tn"); }, "m_tunerUUID    : tn\n"},
      {"year", [](ItemInfo& i) { i.setYear("1999"); }, "year    : 1999\n"},
      {"recStartTime", [](ItemInfo& i) { i.setRecStartTime("rs"); }, "m_recStartTime    : rs\n"},
      {"recEndTime", [](ItemInfo& i) { i.setRecEndTime("re"); }, "m_recEndTime    : re\n"},
      {"recDuration", [](ItemInfo& i) { i.setRecDuration("rd"); }, "m_recDuration    : rd\n"},
      {"recTsId", [](ItemInfo& i) { i.setRecTsId("rt"); }, "m_recTsId    : rt\n"},
      {"recServiceId", [](ItemInfo& i) { i.setRecServiceId("rv"); }, "m_recServiceId    : rv\n"},
      {"recOnId", [](ItemInfo& i) { i.setRecOnId("ro"); }, "m_recOnId    : ro\n"},
      {"recEventType", [](ItemInfo& i) { i.setRecEventType("ev"); }, "m_recEventType    : ev\n"},
      {"recFailType", [](ItemInfo& i) { i.setRecFailType("rf"); }, "m_recFailType    : rf\n"},
      {"recChnum", [](ItemInfo& i) { i.setRecChnum(-7); }, "m_recChnum    : -7\n"},
  };
}

TEST(ItemDump, FreshMusicRecordDumpsOnlyItsType) {
  ma::MusicItemInfo music("", "");
  EXPECT_EQ("ItemType        : 2\n", music.toString());
}

TEST(ItemDump, FreshFolderDumpsTypeCaptionAndUuid) {
  ma::FolderItemInfo folder("Music", "u1");
  EXPECT_EQ("ItemType        : 32\ncaption         : Music\nuuid            : u1\n",
            folder.toString());
}

TEST(ItemDump, NegativeDateNumericIsShownAndZeroFileSizeIsNot) {
  ma::MusicItemInfo music("", "");
  music.setDateNumeric(-5);
  music.setFileSize(0);
  EXPECT_EQ(kMusicTypeLine + "dateNumeric     : -5\n", music.toString());
}

TEST(ItemDump, VideoWithOnlyDirectorAddsOneLineAfterTheBase) {
  ma::VideoItemInfo video("", "");
  video.setDirector("Kubrick");
  EXPECT_EQ("ItemType        : 4\ndirector : Kubrick\n", video.toString());
}

TEST(ItemDump, StorelessRecordDumpsNothingAndTracesToString) {
  auto item = ma_item_test::storeless();
  ma_test::TraceCapture capture;
  EXPECT_EQ("", item.toString());
  EXPECT_EQ(std::vector<std::string>{"toString(): impl is NULL\n"}, capture.texts());
}

TEST(ItemDump, EachShownFieldAddsExactlyItsLine) {
  for (const DumpedField& field : dumpedFields()) {
    ma::MusicItemInfo music("", "");
    field.set(music);
    EXPECT_EQ(kMusicTypeLine + field.line, music.toString()) << field.name;
  }
}

TEST(ItemDump, UuidLineComesFromTheConstructor) {
  ma::MusicItemInfo music("", "id-1");
  EXPECT_EQ(kMusicTypeLine + "uuid            : id-1\n", music.toString());
}

TEST(ItemDump, LinesFollowTheFixedOrder) {
  ma::MusicItemInfo music("", "");
  std::string expected = kMusicTypeLine;
  const auto fields = dumpedFields();
  for (auto it = fields.rbegin(); it != fields.rend(); ++it) it->set(music);  // set backwards
  for (const DumpedField& field : fields) {
    expected += field.line;
    if (std::string(field.name) == "caption") expected += "uuid            : id\n";
  }
  ma::MusicItemInfo withUuid("", "id");
  for (const DumpedField& field : fields) field.set(withUuid);
  EXPECT_EQ(expected, withUuid.toString());
}

TEST(ItemDump, FieldsNeverShownLeaveTheDumpAlone) {
  ma::MusicItemInfo music("", "");
  music.setPreviewPage(1);
  music.setSubtitlePage(2);
  music.setEncoding(3);
  music.setReceivable(false);
  music.setAttributes(4);
  music.setMaxPosition(5);
  music.setVolumeCorrection(6);
  music.setVisible(false);
  music.setSelectable(false);
  music.setSoundSelection(7);
  music.setLcn(8);
  music.setEpgTheme(9);
  music.setNetworkID(10);
  music.setArtist("artist");
  music.setAlbum("album");
  music.setAlbumUUID("album-uuid");
  music.setTrackNum("3");
  music.setBitrate("320");
  EXPECT_EQ(kMusicTypeLine, music.toString());
}

TEST(ItemDump, StringsAreWrittenByteForByte) {
  ma::MusicItemInfo music("", "");
  music.setStationName(std::string("a\0b\n", 4));
  EXPECT_EQ(kMusicTypeLine + std::string("stationName     : a\0b\n\n", 23), music.toString());
}

TEST(ItemDump, VideoLinesFollowTheBaseInTheirOrder) {
  ma::VideoItemInfo video("", "");
  video.setDirector("d");
  video.setActor("a");
  video.setEndTime("e");
  video.setStartTime("s");
  video.setTitle("t");
  EXPECT_EQ(
      "ItemType        : 4\ntitle           : t\n"
      "start    : s\nend      : e\nactor    : a\ndirector : d\n",
      video.toString());
}

TEST(ItemDump, RecordStoreTypeIsWhatTheStoreHolds) {
  ma::FolderItemInfo folder("", "");
  folder.getImpl()->setItemType(ma::ITEM_TYPE_INTERACTIVE);
  EXPECT_EQ("ItemType        : 256\n", folder.toString());
}

}  // namespace
