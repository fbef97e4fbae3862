// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Comparison: which fields take part, in which order, and that it stops at
// the first difference.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "item_test_util.h"
#include "ma_test/trace_capture.h"

namespace {

using ma::ItemInfo;

struct ComparedField {
  const char* getter;
  std::function<void(ItemInfo&)> change;  // away from the initial value
};

// The compared fields in comparison order. UUID and item type (steps 1 and
// 2) are given at construction and tested on their own.
std::vector<ComparedField> comparedFieldsAfterType() {
  return {
      {"getPlaytime", [](ItemInfo& i) { i.setPlaytime("x"); }},
      {"getThumbURL", [](ItemInfo& i) { i.setThumbURL("x"); }},
      {"getItemLocator", [](ItemInfo& i) { i.setItemLocator("x"); }},
      {"getCaption", [](ItemInfo& i) { i.setCaption("x"); }},
      {"getStationName", [](ItemInfo& i) { i.setStationName("x"); }},
      {"getStationDescription", [](ItemInfo& i) { i.setStationDescription("x"); }},
      {"getLongStationDescription", [](ItemInfo& i) { i.setLongStationDescription("x"); }},
      {"getTitle", [](ItemInfo& i) { i.setTitle("x"); }},
      {"getArtist", [](ItemInfo& i) { i.setArtist("x"); }},
      {"getAlbum", [](ItemInfo& i) { i.setAlbum("x"); }},
      {"getAlbumUUID", [](ItemInfo& i) { i.setAlbumUUID("x"); }},
      {"getTrackNum", [](ItemInfo& i) { i.setTrackNum("x"); }},
      {"getUserIndex", [](ItemInfo& i) { i.setUserIndex("x"); }},
      {"getGenre", [](ItemInfo& i) { i.setGenre("x"); }},
      {"getYear", [](ItemInfo& i) { i.setYear("x"); }},
      {"getBitrate", [](ItemInfo& i) { i.setBitrate("x"); }},
      {"getActor", [](ItemInfo& i) { i.setActor("x"); }},
      {"getDirector", [](ItemInfo& i) { i.setDirector("x"); }},
      {"getDescription", [](ItemInfo& i) { i.setDescription("x"); }},
      {"getComment", [](ItemInfo& i) { i.setComment("x"); }},
      {"getDate", [](ItemInfo& i) { i.setDate("x"); }},
      {"getTunerUUID", [](ItemInfo& i) { i.setTunerUUID("x"); }},
      {"getLcn", [](ItemInfo& i) { i.setLcn(4294967295u); }},
      {"getEpgTheme", [](ItemInfo& i) { i.setEpgTheme(-1); }},
      {"getNetworkID", [](ItemInfo& i) { i.setNetworkID(7); }},
      {"getRecStartTime", [](ItemInfo& i) { i.setRecStartTime("x"); }},
      {"getRecEndTime", [](ItemInfo& i) { i.setRecEndTime("x"); }},
      {"getRecDuration", [](ItemInfo& i) { i.setRecDuration("x"); }},
      {"getRecTsId", [](ItemInfo& i) { i.setRecTsId("x"); }},
      {"getRecServiceId", [](ItemInfo& i) { i.setRecServiceId("x"); }},
      {"getRecOnId", [](ItemInfo& i) { i.setRecOnId("x"); }},
      {"getRecEventType", [](ItemInfo& i) { i.setRecEventType("x"); }},
      {"getRecFailType", [](ItemInfo& i) { i.setRecFailType("x"); }},
      {"getRecChnum", [](ItemInfo& i) { i.setRecChnum(3); }},
      {"getOriginalAncestor", [](ItemInfo& i) { i.setOriginalAncestor("x"); }},
      {"getCreator", [](ItemInfo& i) { i.setCreator("x"); }},
  };
}

TEST(ItemCompare, RecordsDifferingOnlyInUncomparedFieldsAreEqual) {
  const std::vector<std::function<void(ma::VideoItemInfo&)>> uncompared = {
      [](ma::VideoItemInfo& i) { i.setFileSize(1); },
      [](ma::VideoItemInfo& i) { i.setResumePosition(1); },
      [](ma::VideoItemInfo& i) { i.setVisible(false); },
      [](ma::VideoItemInfo& i) { i.setStartTime("s"); },
      [](ma::VideoItemInfo& i) { i.setEndTime("e"); },
      [](ma::VideoItemInfo& i) { i.setItemSubType("x"); },
      [](ma::VideoItemInfo& i) { i.setOriginalUuid("x"); },
      [](ma::VideoItemInfo& i) { i.setOriginalVolume("x"); },
      [](ma::VideoItemInfo& i) { i.setParentalRating("x"); },
      [](ma::VideoItemInfo& i) { i.setCreationTime("x"); },
      [](ma::VideoItemInfo& i) { i.setModificationTime("x"); },
      [](ma::VideoItemInfo& i) { i.setEncryptionScheme("x"); },
      [](ma::VideoItemInfo& i) { i.setEncryptionInfo("x"); },
      [](ma::VideoItemInfo& i) { i.setDisplayRules("x"); },
      [](ma::VideoItemInfo& i) { i.setPreviewPage(1); },
      [](ma::VideoItemInfo& i) { i.setSubtitlePage(1); },
      [](ma::VideoItemInfo& i) { i.setEncoding(1); },
      [](ma::VideoItemInfo& i) { i.setReceivable(false); },
      [](ma::VideoItemInfo& i) { i.setDateNumeric(1); },
      [](ma::VideoItemInfo& i) { i.setAttributes(1); },
      [](ma::VideoItemInfo& i) { i.setMaxPosition(1); },
      [](ma::VideoItemInfo& i) { i.setVolumeCorrection(1); },
      [](ma::VideoItemInfo& i) { i.setSelectable(false); },
      [](ma::VideoItemInfo& i) { i.setSoundSelection(1); },
  };
  for (std::size_t n = 0; n < uncompared.size(); ++n) {
    ma::VideoItemInfo a("c", "u");
    ma::VideoItemInfo b("c", "u");
    uncompared[n](b);
    EXPECT_TRUE(a == b) << "uncompared change #" << n;
    EXPECT_FALSE(a != b) << "uncompared change #" << n;
  }
}

TEST(ItemCompare, EveryComparedFieldMakesRecordsUnequal) {
  for (const ComparedField& field : comparedFieldsAfterType()) {
    ma::VideoItemInfo a("c", "u");
    ma::VideoItemInfo b("c", "u");
    field.change(b);
    EXPECT_FALSE(a == b) << field.getter;
    EXPECT_TRUE(a != b) << field.getter;
  }
}

TEST(ItemCompare, DifferentUuidsAreUnequal) {
  ma::FolderItemInfo a("c", "u1");
  ma::FolderItemInfo b("c", "u2");
  EXPECT_FALSE(a == b);
}

TEST(ItemCompare, CaptionDifferenceStopsTheComparisonThere) {
  // The storeless side reports every getter it is asked, so its trace shows
  // where the comparison stopped.
  auto storeless = ma_item_test::storeless();
  ma::UnknownItemInfo other("different", "");
  ma_test::TraceCapture capture;
  EXPECT_FALSE(storeless == other);
  const std::vector<std::string> expected = {
      "getUUID(): impl is NULL\n",      "getItemType(): impl is NULL\n",
      "getPlaytime(): impl is NULL\n",  "getThumbURL(): impl is NULL\n",
      "getItemLocator(): impl is NULL\n", "getCaption(): impl is NULL\n"};
  EXPECT_EQ(expected, capture.texts());
}

TEST(ItemCompare, StopsAtTheFirstDifferenceForEveryStep) {
  const auto fields = comparedFieldsAfterType();
  for (std::size_t step = 0; step < fields.size(); ++step) {
    // A record equal to the storeless record's neutral values but for one
    // field: a video store (it can hold actor and director) with the neutral
    // type 1 and the neutral network ID 0.
    ma::VideoItemInfo other("", "");
    other.getImpl()->setItemType(ma::ITEM_TYPE_UNKNOWN);
    other.setNetworkID(0);
    fields[step].change(other);
    auto storeless = ma_item_test::storeless();
    ma_test::TraceCapture capture;
    EXPECT_FALSE(storeless == other) << fields[step].getter;

    std::vector<std::string> expected = {"getUUID(): impl is NULL\n",
                                         "getItemType(): impl is NULL\n"};
    for (std::size_t i = 0; i <= step; ++i) {
      expected.push_back(std::string(fields[i].getter) + "(): impl is NULL\n");
    }
    EXPECT_EQ(expected, capture.texts()) << fields[step].getter;
  }
}

TEST(ItemCompare, MusicAndVideoWithIdenticalFieldsDifferInKind) {
  ma::MusicItemInfo music("c", "u");
  ma::VideoItemInfo video("c", "u");
  EXPECT_FALSE(music == video);
  EXPECT_TRUE(music != video);
}

TEST(ItemCompare, VideoDirectorsCountAndMusicCreditsAreAlwaysEqual) {
  ma::VideoItemInfo v1("c", "u");
  ma::VideoItemInfo v2("c", "u");
  v1.setDirector("a");
  v2.setDirector("b");
  EXPECT_FALSE(v1 == v2);

  ma::MusicItemInfo m1("c", "u");
  ma::MusicItemInfo m2("c", "u");
  m1.setDirector("a");
  m2.setActor("b");
  EXPECT_TRUE(m1 == m2);
}

TEST(ItemCompare, StorelessRecordDiffersFromFreshUnknownByNetworkId) {
  auto storeless = ma_item_test::storeless();
  ma::UnknownItemInfo unknown("", "");
  EXPECT_FALSE(storeless == unknown);
  unknown.setNetworkID(0);
  EXPECT_TRUE(storeless == unknown);
}

TEST(ItemCompare, TwoStorelessRecordsAreEqualAfterAllThirtyEightSteps) {
  auto a = ma_item_test::storeless();
  auto b = ma_item_test::storeless();
  ma_test::TraceCapture capture;
  EXPECT_TRUE(a == b);
  EXPECT_EQ(2u * 38u, capture.texts().size());
  EXPECT_EQ("getCreator(): impl is NULL\n", capture.texts().back());
}

TEST(ItemCompare, DifferentClassesWithTheSameStoredTypeAreEqual) {
  ma::FolderItemInfo folder("c", "u");
  ma::MusicItemInfo music("c", "u");
  music.getImpl()->setItemType(ma::ITEM_TYPE_FOLDER);
  EXPECT_TRUE(folder == music);
}

TEST(ItemCompare, NotEqualIsExactlyTheNegation) {
  ma::FolderItemInfo a("c", "u");
  ma::FolderItemInfo b("c", "u");
  EXPECT_TRUE(a == b);
  EXPECT_FALSE(a != b);
  b.setTitle("t");
  EXPECT_FALSE(a == b);
  EXPECT_TRUE(a != b);
}

TEST(ItemCompare, StringsCompareIncludingLength) {
  ma::FolderItemInfo a("c", "u");
  ma::FolderItemInfo b("c", "u");
  a.setTitle(std::string("t\0", 2));
  b.setTitle("t");
  EXPECT_FALSE(a == b);
}

}  // namespace
