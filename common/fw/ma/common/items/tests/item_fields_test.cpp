// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Every field of the item record with a facade accessor: its initial value,
// set and get (trimmed or raw), and the neutral answer and trace line of a
// record without field store.
//
// The table below is written independently of the library's own field list,
// and its member-pointer types pin every accessor's exact signature.
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <regex>
#include <ostream>
#include <string>
#include <vector>

#include "item_test_util.h"
#include "ma_test/trace_capture.h"

namespace {

using ma::ItemInfo;
using ma_item_test::storeless;

enum class Stores { kRaw, kStrip };

struct FieldCase {
  std::string getter;
  std::string setter;
  std::function<std::string(const ItemInfo&)> read;  // the value, as text
  std::function<const void*(const ItemInfo&)> resultAddress;  // null for flags
  std::function<void(ItemInfo&)> writeSample;
  std::string sampleStored;  // what read() gives after writeSample()
  std::string initial;       // after a kind constructor with caption "c", UUID "u"
  std::string neutral;       // without field store
  const void* neutralAddress;
  bool locatedReport;        // the sub-type accessors' own missing-store line
};

// Names a case by its getter in test output.
void PrintTo(const FieldCase& field, std::ostream* out) { *out << field.getter; }

using TextGetter = std::string const& (ItemInfo::*)() const;
using TextSetter = void (ItemInfo::*)(std::string const&);

const std::string kPadded = " \t padded  value \r\n";

FieldCase text(const char* getter, TextGetter get, const char* setter, TextSetter set,
               Stores stores, std::string initial = "") {
  FieldCase c;
  c.getter = getter;
  c.setter = setter;
  c.read = [get](const ItemInfo& item) { return (item.*get)(); };
  c.resultAddress = [get](const ItemInfo& item) -> const void* { return &(item.*get)(); };
  c.writeSample = [set](ItemInfo& item) { (item.*set)(kPadded); };
  c.sampleStored = stores == Stores::kStrip ? "padded  value" : kPadded;
  c.initial = std::move(initial);
  c.neutral = "";
  c.neutralAddress = &ItemInfo::empty;
  c.locatedReport = false;
  return c;
}

// A number field. The sample is the type's extreme that a narrower or
// differently signed store would not keep.
template <class T>
FieldCase number(const char* getter, T const& (ItemInfo::*get)() const, const char* setter,
                 void (ItemInfo::*set)(T const&), T initial, const T& neutral) {
  const T sample = std::numeric_limits<T>::is_signed ? std::numeric_limits<T>::min()
                                                     : std::numeric_limits<T>::max();
  FieldCase c;
  c.getter = getter;
  c.setter = setter;
  c.read = [get](const ItemInfo& item) { return std::to_string((item.*get)()); };
  c.resultAddress = [get](const ItemInfo& item) -> const void* { return &(item.*get)(); };
  c.writeSample = [set, sample](ItemInfo& item) { (item.*set)(sample); };
  c.sampleStored = std::to_string(sample);
  c.initial = std::to_string(initial);
  c.neutral = "0";
  c.neutralAddress = &neutral;
  c.locatedReport = false;
  return c;
}

FieldCase flag(const char* getter, bool (ItemInfo::*get)() const, const char* setter,
               void (ItemInfo::*set)(bool)) {
  FieldCase c;
  c.getter = getter;
  c.setter = setter;
  c.read = [get](const ItemInfo& item) { return (item.*get)() ? "true" : "false"; };
  c.resultAddress = nullptr;
  c.writeSample = [set](ItemInfo& item) { (item.*set)(false); };
  c.sampleStored = "false";
  c.initial = "true";
  c.neutral = "false";
  c.neutralAddress = nullptr;
  c.locatedReport = false;
  return c;
}

FieldCase subType() {
  FieldCase c = text("getItemSubType", &ItemInfo::getItemSubType, "setItemSubType",
                     &ItemInfo::setItemSubType, Stores::kRaw);
  c.locatedReport = true;
  return c;
}

const std::vector<FieldCase>& fieldCases() {
  static const std::vector<FieldCase> cases = {
      subType(),
      text("getCaption", &ItemInfo::getCaption, "setCaption", &ItemInfo::setCaption, Stores::kStrip, "c"),
      text("getOriginalAncestor", &ItemInfo::getOriginalAncestor, "setOriginalAncestor", &ItemInfo::setOriginalAncestor, Stores::kRaw),
      text("getCreator", &ItemInfo::getCreator, "setCreator", &ItemInfo::setCreator, Stores::kRaw),
      text("getOriginalUuid", &ItemInfo::getOriginalUuid, "setOriginalUuid", &ItemInfo::setOriginalUuid, Stores::kRaw),
      text("getOriginalVolume", &ItemInfo::getOriginalVolume, "setOriginalVolume", &ItemInfo::setOriginalVolume, Stores::kRaw),
      text("getItemLocator", &ItemInfo::getItemLocator, "setItemLocator", &ItemInfo::setItemLocator, Stores::kStrip),
      text("getPlaytime", &ItemInfo::getPlaytime, "setPlaytime", &ItemInfo::setPlaytime, Stores::kStrip),
      text("getThumbURL", &ItemInfo::getThumbURL, "setThumbURL", &ItemInfo::setThumbURL, Stores::kStrip),
      text("getStationName", &ItemInfo::getStationName, "setStationName", &ItemInfo::setStationName, Stores::kRaw),
      text("getStationDescription", &ItemInfo::getStationDescription, "setStationDescription", &ItemInfo::setStationDescription, Stores::kRaw),
      text("getLongStationDescription", &ItemInfo::getLongStationDescription, "setLongStationDescription", &ItemInfo::setLongStationDescription, Stores::kRaw),
      text("getTitle", &ItemInfo::getTitle, "setTitle", &ItemInfo::setTitle, Stores::kStrip),
      text("getGenre", &ItemInfo::getGenre, "setGenre", &ItemInfo::setGenre, Stores::kStrip),
      text("getDescription", &ItemInfo::getDescription, "setDescription", &ItemInfo::setDescription, Stores::kStrip),
      text("getComment", &ItemInfo::getComment, "setComment", &ItemInfo::setComment, Stores::kStrip),
      text("getDate", &ItemInfo::getDate, "setDate", &ItemInfo::setDate, Stores::kStrip),
      text("getUserIndex", &ItemInfo::getUserIndex, "setUserIndex", &ItemInfo::setUserIndex, Stores::kRaw),
      text("getParentalRating", &ItemInfo::getParentalRating, "setParentalRating", &ItemInfo::setParentalRating, Stores::kRaw),
      text("getCreationTime", &ItemInfo::getCreationTime, "setCreationTime", &ItemInfo::setCreationTime, Stores::kRaw),
      text("getModificationTime", &ItemInfo::getModificationTime, "setModificationTime", &ItemInfo::setModificationTime, Stores::kRaw),
      text("getEncryptionScheme", &ItemInfo::getEncryptionScheme, "setEncryptionScheme", &ItemInfo::setEncryptionScheme, Stores::kRaw),
      text("getEncryptionInfo", &ItemInfo::getEncryptionInfo, "setEncryptionInfo", &ItemInfo::setEncryptionInfo, Stores::kRaw),
      text("getDisplayRules", &ItemInfo::getDisplayRules, "setDisplayRules", &ItemInfo::setDisplayRules, Stores::kRaw),
      number<int>("getPreviewPage", &ItemInfo::getPreviewPage, "setPreviewPage", &ItemInfo::setPreviewPage, 0, ItemInfo::i32zero),
      number<int>("getSubtitlePage", &ItemInfo::getSubtitlePage, "setSubtitlePage", &ItemInfo::setSubtitlePage, 0, ItemInfo::i32zero),
      number<int>("getEncoding", &ItemInfo::getEncoding, "setEncoding", &ItemInfo::setEncoding, 0, ItemInfo::i32zero),
      flag("isReceivable", &ItemInfo::isReceivable, "setReceivable", &ItemInfo::setReceivable),
      number<unsigned long long>("getFileSize", &ItemInfo::getFileSize, "setFileSize", &ItemInfo::setFileSize, 0, ItemInfo::zero),
      number<long long>("getDateNumeric", &ItemInfo::getDateNumeric, "setDateNumeric", &ItemInfo::setDateNumeric, 0, ItemInfo::i64zero),
      number<int>("getAttributes", &ItemInfo::getAttributes, "setAttributes", &ItemInfo::setAttributes, 0, ItemInfo::i32zero),
      number<unsigned int>("getMaxPosition", &ItemInfo::getMaxPosition, "setMaxPosition", &ItemInfo::setMaxPosition, 0, ItemInfo::u32zero),
      number<unsigned int>("getResumePosition", &ItemInfo::getResumePosition, "setResumePosition", &ItemInfo::setResumePosition, 0, ItemInfo::u32zero),
      number<int>("getVolumeCorrection", &ItemInfo::getVolumeCorrection, "setVolumeCorrection", &ItemInfo::setVolumeCorrection, 0, ItemInfo::i32zero),
      flag("isVisible", &ItemInfo::isVisible, "setVisible", &ItemInfo::setVisible),
      flag("isSelectable", &ItemInfo::isSelectable, "setSelectable", &ItemInfo::setSelectable),
      number<unsigned int>("getSoundSelection", &ItemInfo::getSoundSelection, "setSoundSelection", &ItemInfo::setSoundSelection, 0, ItemInfo::u32zero),
      text("getTunerUUID", &ItemInfo::getTunerUUID, "setTunerUUID", &ItemInfo::setTunerUUID, Stores::kRaw),
      number<unsigned int>("getLcn", &ItemInfo::getLcn, "setLcn", &ItemInfo::setLcn, 0, ItemInfo::u32zero),
      number<int>("getEpgTheme", &ItemInfo::getEpgTheme, "setEpgTheme", &ItemInfo::setEpgTheme, 0, ItemInfo::i32zero),
      number<int>("getNetworkID", &ItemInfo::getNetworkID, "setNetworkID", &ItemInfo::setNetworkID, -1, ItemInfo::i32zero),
      text("getArtist", &ItemInfo::getArtist, "setArtist", &ItemInfo::setArtist, Stores::kRaw),
      text("getAlbum", &ItemInfo::getAlbum, "setAlbum", &ItemInfo::setAlbum, Stores::kRaw),
      text("getAlbumUUID", &ItemInfo::getAlbumUUID, "setAlbumUUID", &ItemInfo::setAlbumUUID, Stores::kRaw),
      text("getTrackNum", &ItemInfo::getTrackNum, "setTrackNum", &ItemInfo::setTrackNum, Stores::kRaw),
      text("getYear", &ItemInfo::getYear, "setYear", &ItemInfo::setYear, Stores::kRaw),
      text("getBitrate", &ItemInfo::getBitrate, "setBitrate", &ItemInfo::setBitrate, Stores::kRaw),
      text("getRecStartTime", &ItemInfo::getRecStartTime, "setRecStartTime", &ItemInfo::setRecStartTime, Stores::kRaw),
      text("getRecEndTime", &ItemInfo::getRecEndTime, "setRecEndTime", &ItemInfo::setRecEndTime, Stores::kRaw),
      text("getRecDuration", &ItemInfo::getRecDuration, "setRecDuration", &ItemInfo::setRecDuration, Stores::kRaw),
      text("getRecTsId", &ItemInfo::getRecTsId, "setRecTsId", &ItemInfo::setRecTsId, Stores::kRaw),
      text("getRecServiceId", &ItemInfo::getRecServiceId, "setRecServiceId", &ItemInfo::setRecServiceId, Stores::kRaw),
      text("getRecOnId", &ItemInfo::getRecOnId, "setRecOnId", &ItemInfo::setRecOnId, Stores::kRaw),
      text("getRecEventType", &ItemInfo::getRecEventType, "setRecEventType", &ItemInfo::setRecEventType, Stores::kRaw),
      text("getRecFailType", &ItemInfo::getRecFailType, "setRecFailType", &ItemInfo::setRecFailType, Stores::kRaw),
      number<int>("getRecChnum", &ItemInfo::getRecChnum, "setRecChnum", &ItemInfo::setRecChnum, 0, ItemInfo::i32zero),
  };
  return cases;
}

// One record of every kind, built with caption "c" and UUID "u".
std::vector<std::unique_ptr<ItemInfo>> oneOfEachKind() {
  std::vector<std::unique_ptr<ItemInfo>> items;
  items.emplace_back(new ma::UnknownItemInfo("c", "u"));
  items.emplace_back(new ma::MusicItemInfo("c", "u"));
  items.emplace_back(new ma::VideoItemInfo("c", "u"));
  items.emplace_back(new ma::PictureItemInfo("c", "u"));
  items.emplace_back(new ma::PlaylistItemInfo("c", "u"));
  items.emplace_back(new ma::FolderItemInfo("c", "u"));
  items.emplace_back(new ma::DocumentItemInfo("c", "u"));
  items.emplace_back(new ma::OtherItemInfo("c", "u"));
  items.emplace_back(new ma::InteractiveItemInfo("c", "u"));
  return items;
}

class ItemField : public ::testing::TestWithParam<FieldCase> {};

// The capture holds exactly the missing-store line of `accessor`.
void expectOneMissingStoreLine(const ma_test::TraceCapture& capture, const FieldCase& field,
                               const std::string& accessor) {
  const auto lines = capture.lines();
  ASSERT_EQ(1u, lines.size());
  EXPECT_EQ(ma_item_test::kItemFailureCategory, lines[0].category);
  if (field.locatedReport) {
    EXPECT_TRUE(ma_item_test::isSubTypeMissingStoreLine(lines[0].text, accessor)) << lines[0].text;
  } else {
    EXPECT_EQ(ma_item_test::missingStoreLine(accessor), lines[0].text);
  }
}

TEST_P(ItemField, StartsAtItsInitialValueInEveryKind) {
  for (const auto& item : oneOfEachKind()) {
    EXPECT_EQ(GetParam().initial, GetParam().read(*item)) << item->getItemType();
  }
}

TEST_P(ItemField, SetterStoresTrimmedOrRawAsTheFieldRequires) {
  ma::MusicItemInfo item("c", "u");
  GetParam().writeSample(item);
  EXPECT_EQ(GetParam().sampleStored, GetParam().read(item));
}

TEST_P(ItemField, SettingOneFieldLeavesEveryOtherFieldAlone) {
  ma::PictureItemInfo item("c", "u");
  GetParam().writeSample(item);
  for (const FieldCase& other : fieldCases()) {
    if (other.getter == GetParam().getter) continue;
    EXPECT_EQ(other.initial, other.read(item)) << other.getter;
  }
}

TEST_P(ItemField, GetterWithoutStoreAnswersNeutralAndTracesOnce) {
  auto item = storeless();
  ma_test::TraceCapture capture;
  EXPECT_EQ(GetParam().neutral, GetParam().read(item));
  expectOneMissingStoreLine(capture, GetParam(), GetParam().getter);
}

TEST_P(ItemField, GetterWithoutStoreAnswersTheSharedNeutralConstant) {
  if (!GetParam().resultAddress) GTEST_SKIP() << "flags answer by value";
  auto item = storeless();
  EXPECT_EQ(GetParam().neutralAddress, GetParam().resultAddress(item));
}

TEST_P(ItemField, SetterWithoutStoreOnlyTracesOnce) {
  auto item = storeless();
  ma_test::TraceCapture capture;
  GetParam().writeSample(item);
  expectOneMissingStoreLine(capture, GetParam(), GetParam().setter);
  capture.clear();
  EXPECT_EQ(GetParam().neutral, GetParam().read(item));
}

INSTANTIATE_TEST_SUITE_P(EveryAccessorField, ItemField, ::testing::ValuesIn(fieldCases()),
                         [](const ::testing::TestParamInfo<FieldCase>& param) {
                           return param.param.getter;
                         });

TEST(ItemFieldTable, CoversEveryFieldWithBothAccessors) {
  // 59 fields: item type and UUID (getters only) and the word without
  // accessors are tested on their own; the other 56 are in the table.
  EXPECT_EQ(56u, fieldCases().size());
}

// The three fields outside the table.

TEST(ItemTypeField, IsTheKindValueAndNeutralIsUnknown) {
  const ma::itemType expected[] = {ma::ITEM_TYPE_UNKNOWN, ma::ITEM_TYPE_MUSIC,
                                   ma::ITEM_TYPE_VIDEO,   ma::ITEM_TYPE_PICTURE,
                                   ma::ITEM_TYPE_PLAYLIST, ma::ITEM_TYPE_FOLDER,
                                   ma::ITEM_TYPE_DOCUMENT, ma::ITEM_TYPE_OTHER,
                                   ma::ITEM_TYPE_INTERACTIVE};
  const auto items = oneOfEachKind();
  for (std::size_t i = 0; i < items.size(); ++i) EXPECT_EQ(expected[i], items[i]->getItemType());

  auto item = storeless();
  ma_test::TraceCapture capture;
  EXPECT_EQ(ma::ITEM_TYPE_UNKNOWN, item.getItemType());
  EXPECT_EQ(std::vector<std::string>{"getItemType(): impl is NULL\n"}, capture.texts());
}

TEST(ItemTypeField, KindValuesAreSingleBits) {
  EXPECT_EQ(1, ma::ITEM_TYPE_UNKNOWN);
  EXPECT_EQ(2, ma::ITEM_TYPE_MUSIC);
  EXPECT_EQ(4, ma::ITEM_TYPE_VIDEO);
  EXPECT_EQ(8, ma::ITEM_TYPE_PICTURE);
  EXPECT_EQ(16, ma::ITEM_TYPE_PLAYLIST);
  EXPECT_EQ(32, ma::ITEM_TYPE_FOLDER);
  EXPECT_EQ(64, ma::ITEM_TYPE_DOCUMENT);
  EXPECT_EQ(128, ma::ITEM_TYPE_OTHER);
  EXPECT_EQ(256, ma::ITEM_TYPE_INTERACTIVE);
}

TEST(ItemTypeField, StoreSetterChangesTheStoredValueOnly) {
  ma::FolderItemInfo folder("c", "u");
  folder.getImpl()->setItemType(ma::ITEM_TYPE_VIDEO);
  EXPECT_EQ(ma::ITEM_TYPE_VIDEO, folder.getItemType());
  EXPECT_NE(nullptr, folder.getImpl());  // the store's class is unchanged
}

TEST(UuidField, IsTheSecondConstructorArgumentUntrimmed) {
  ma::DocumentItemInfo item(" cap ", "  id\t");
  EXPECT_EQ("  id\t", item.getUUID());
  EXPECT_EQ(" cap ", item.getCaption());

  auto none = storeless();
  ma_test::TraceCapture capture;
  EXPECT_EQ(&ItemInfo::empty, &none.getUUID());
  EXPECT_EQ(std::vector<std::string>{"getUUID(): impl is NULL\n"}, capture.texts());
}

TEST(StoreCopyConstructor, CopiesEveryField) {
  ma::MusicItemInfo source("c", "u");
  for (const FieldCase& field : fieldCases()) field.writeSample(source);

  // The copy is adopted by a facade that reads it through the same table.
  ma::VideoItemInfo copy(new ma::ItemInfo::ItemImpl(*source.getImpl()));
  EXPECT_EQ(ma::ITEM_TYPE_MUSIC, copy.getItemType());
  EXPECT_EQ("u", copy.getUUID());
  for (const FieldCase& field : fieldCases()) {
    EXPECT_EQ(field.sampleStored, field.read(copy)) << field.getter;
  }
}

TEST(ItemSubTypeField, GetterAndSetterReportFromTheirOwnLines) {
  auto item = storeless();
  ma_test::TraceCapture capture;
  item.getItemSubType();
  item.setItemSubType("x");
  const auto texts = capture.texts();
  ASSERT_EQ(2u, texts.size());
  const std::regex located("mdc_item\\.cpp:([0-9]+):[a-zA-Z]+\\(\\): Impl is NULL\\.\n");
  std::smatch getter;
  std::smatch setter;
  ASSERT_TRUE(std::regex_match(texts[0], getter, located)) << texts[0];
  ASSERT_TRUE(std::regex_match(texts[1], setter, located)) << texts[1];
  EXPECT_NE(getter[1].str(), setter[1].str());
}

TEST(NeutralConstants, AreZeroAndEmpty) {
  EXPECT_EQ(0u, ItemInfo::zero);
  EXPECT_EQ(0, ItemInfo::i64zero);
  EXPECT_EQ(0, ItemInfo::i32zero);
  EXPECT_EQ(0u, ItemInfo::u32zero);
  EXPECT_TRUE(ItemInfo::empty.empty());
  EXPECT_TRUE(ItemInfo::ItemImpl::empty.empty());
}

}  // namespace
