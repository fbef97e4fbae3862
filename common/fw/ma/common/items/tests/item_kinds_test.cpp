// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The nine kinds: construction, copying by dynamic type, duplicate(),
// getImpl(), the video extras and the store's actor and director slots.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

#include "item_test_util.h"
#include "ma_test/trace_capture.h"

namespace {

using ma::ItemInfo;
using ma_item_test::storeless;

// Kind traits for the typed tests of the eight kinds with their own store.
template <class Facade, class Store, ma::itemType Type>
struct Kind {
  using FacadeType = Facade;
  using StoreType = Store;
  static constexpr ma::itemType kType = Type;
};

// Names the typed test cases by item type value ("Type32" for folders).
struct KindName {
  template <class K>
  static std::string GetName(int) {
    return "Type" + std::to_string(K::kType);
  }
};

using KindsWithOwnStore = ::testing::Types<
    Kind<ma::MusicItemInfo, ma::MusicItemInfo::MusicItemImpl, ma::ITEM_TYPE_MUSIC>,
    Kind<ma::VideoItemInfo, ma::VideoItemInfo::VideoItemImpl, ma::ITEM_TYPE_VIDEO>,
    Kind<ma::PictureItemInfo, ma::PictureItemInfo::PictureItemImpl, ma::ITEM_TYPE_PICTURE>,
    Kind<ma::PlaylistItemInfo, ma::PlaylistItemInfo::PlaylistItemImpl, ma::ITEM_TYPE_PLAYLIST>,
    Kind<ma::FolderItemInfo, ma::FolderItemInfo::FolderItemImpl, ma::ITEM_TYPE_FOLDER>,
    Kind<ma::DocumentItemInfo, ma::DocumentItemInfo::DocumentItemImpl, ma::ITEM_TYPE_DOCUMENT>,
    Kind<ma::OtherItemInfo, ma::OtherItemInfo::OtherItemImpl, ma::ITEM_TYPE_OTHER>,
    Kind<ma::InteractiveItemInfo, ma::InteractiveItemInfo::InteractiveItemImpl,
         ma::ITEM_TYPE_INTERACTIVE>>;

// A facade of kind `Facade` whose store is replaced by `store` (may be null
// or of another class): how records with a foreign store come about.
template <class Facade>
struct WithStore : Facade {
  explicit WithStore(ItemInfo::ItemImpl* store) : Facade("x", "y") {
    delete this->impl;
    this->impl = store;
  }
};

template <class K>
class ItemKind : public ::testing::Test {};
TYPED_TEST_SUITE(ItemKind, KindsWithOwnStore, KindName);

TYPED_TEST(ItemKind, ConstructorBuildsTheKindsOwnStore) {
  typename TypeParam::FacadeType item(" caption ", " uuid ");
  EXPECT_EQ(TypeParam::kType, item.getItemType());
  EXPECT_EQ(" caption ", item.getCaption());
  EXPECT_EQ(" uuid ", item.getUUID());
  ASSERT_NE(nullptr, item.getImpl());
  EXPECT_NE(nullptr, dynamic_cast<typename TypeParam::StoreType*>(item.getImpl()));
}

TYPED_TEST(ItemKind, CopyOfOwnStoreIsDeepAndIndependent) {
  typename TypeParam::FacadeType item("c", "u");
  item.setTitle("first");
  typename TypeParam::FacadeType copy(item);
  ASSERT_NE(nullptr, copy.getImpl());
  EXPECT_NE(item.getImpl(), copy.getImpl());
  EXPECT_EQ("first", copy.getTitle());
  item.setTitle("second");
  EXPECT_EQ("first", copy.getTitle());
}

TYPED_TEST(ItemKind, CopyOfStorelessRecordHasNoStore) {
  WithStore<typename TypeParam::FacadeType> holder(nullptr);
  ma_test::TraceCapture capture;
  typename TypeParam::FacadeType copy(holder);
  EXPECT_TRUE(capture.texts().empty());  // copying writes nothing
  EXPECT_EQ(nullptr, copy.getImpl());
}

TYPED_TEST(ItemKind, CopyOfAnotherKindsStoreSilentlyHasNoStore) {
  WithStore<typename TypeParam::FacadeType> holder(
      new ItemInfo::ItemImpl(TypeParam::kType, "c", "u"));
  ma_test::TraceCapture capture;
  typename TypeParam::FacadeType copy(holder);
  EXPECT_TRUE(capture.texts().empty());
  EXPECT_EQ("", copy.getCaption());
  EXPECT_EQ(std::vector<std::string>{"getCaption(): impl is NULL\n"}, capture.texts());
}

TYPED_TEST(ItemKind, DuplicateIsANewRecordOfTheSameKind) {
  typename TypeParam::FacadeType item("c", "u");
  item.setGenre("jazz");
  std::unique_ptr<ItemInfo> twin(item.duplicate());
  ASSERT_NE(nullptr, dynamic_cast<typename TypeParam::FacadeType*>(twin.get()));
  EXPECT_EQ(TypeParam::kType, twin->getItemType());
  EXPECT_EQ("jazz", twin->getGenre());
  twin->setGenre("rock");
  EXPECT_EQ("jazz", item.getGenre());
}

TYPED_TEST(ItemKind, DuplicateOfStorelessRecordIsStorelessOfTheSameKind) {
  WithStore<typename TypeParam::FacadeType> holder(nullptr);
  std::unique_ptr<ItemInfo> twin(holder.duplicate());
  ASSERT_NE(nullptr, dynamic_cast<typename TypeParam::FacadeType*>(twin.get()));
  ma_test::TraceCapture capture;
  EXPECT_EQ(ma::ITEM_TYPE_UNKNOWN, twin->getItemType());
  EXPECT_EQ(std::vector<std::string>{"getItemType(): impl is NULL\n"}, capture.texts());
}

TYPED_TEST(ItemKind, GetImplOfAnotherKindsStoreIsNullAndTraced) {
  // A plain ItemImpl is the unknown kind's store, no other kind's.
  WithStore<typename TypeParam::FacadeType> holder(
      new ItemInfo::ItemImpl(TypeParam::kType, "c", "u"));
  const typename TypeParam::FacadeType& constHolder = holder;
  ma_test::TraceCapture capture;
  EXPECT_EQ(nullptr, holder.getImpl());
  EXPECT_EQ(nullptr, constHolder.getImpl());
  const auto lines = capture.lines();
  ASSERT_EQ(2u, lines.size());
  EXPECT_EQ("getImpl(): impl is NULL\n", lines[0].text);
  EXPECT_EQ("getImpl(): impl is NULL\n", lines[1].text);
  EXPECT_EQ(ma_item_test::kItemFailureCategory, lines[1].category);
  // The base accessors still use the store.
  EXPECT_EQ("c", holder.getCaption());
}

TYPED_TEST(ItemKind, GetImplOfOwnStoreWritesNothing) {
  typename TypeParam::FacadeType item("c", "u");
  const typename TypeParam::FacadeType& constItem = item;
  ma_test::TraceCapture capture;
  EXPECT_NE(nullptr, item.getImpl());
  EXPECT_EQ(item.getImpl(), constItem.getImpl());
  EXPECT_TRUE(capture.texts().empty());
}

TEST(ItemKinds, UnknownKindsStoreIsAPlainItemImpl) {
  ma::UnknownItemInfo item("c", "u");
  EXPECT_EQ(ma::ITEM_TYPE_UNKNOWN, item.getItemType());
  EXPECT_EQ("c", item.getCaption());
  EXPECT_EQ("u", item.getUUID());
}

TEST(ItemKinds, NewFolderKeepsLeadingSpacesAndHasItsDefaults) {
  ma::FolderItemInfo folder("  Music", "id");
  EXPECT_EQ("  Music", folder.getCaption());
  EXPECT_EQ(32, folder.getItemType());
  EXPECT_TRUE(folder.isVisible());
  EXPECT_TRUE(folder.isSelectable());
  EXPECT_TRUE(folder.isReceivable());
  EXPECT_EQ(-1, folder.getNetworkID());
  EXPECT_EQ(0u, folder.getFileSize());
  EXPECT_EQ("", folder.getItemSubType());
}

TEST(ItemKinds, StorelessRecordAnswersNeutrallyWithOneTraceLinePerCall) {
  auto item = storeless();
  ma_test::TraceCapture capture;
  EXPECT_EQ(1, item.getItemType());
  EXPECT_EQ(0, item.getNetworkID());
  EXPECT_FALSE(item.isVisible());
  EXPECT_EQ("", item.getCaption());
  const std::vector<std::string> expected = {
      "getItemType(): impl is NULL\n", "getNetworkID(): impl is NULL\n",
      "isVisible(): impl is NULL\n", "getCaption(): impl is NULL\n"};
  EXPECT_EQ(expected, capture.texts());
}

TEST(ItemKinds, FolderCopyOfVideoStoreHasNoStore) {
  WithStore<ma::FolderItemInfo> holder(new ma::VideoItemInfo::VideoItemImpl("v", "w"));
  ma_test::TraceCapture capture;
  ma::FolderItemInfo copy(holder);
  EXPECT_TRUE(capture.texts().empty());
  EXPECT_EQ(nullptr, copy.getImpl());
  EXPECT_EQ(std::vector<std::string>{"getImpl(): impl is NULL\n"}, capture.texts());
  capture.clear();
  EXPECT_EQ("", copy.getCaption());
  EXPECT_EQ(std::vector<std::string>{"getCaption(): impl is NULL\n"}, capture.texts());
}

TEST(ItemKinds, StoreSubclassPassesTheKindTest) {
  struct SpecialFolderStore : ma::FolderItemInfo::FolderItemImpl {
    SpecialFolderStore() : FolderItemImpl("s", "t") {}
  };
  WithStore<ma::FolderItemInfo> holder(new SpecialFolderStore);
  ma::FolderItemInfo copy(holder);
  ASSERT_NE(nullptr, copy.getImpl());
  EXPECT_EQ("s", copy.getCaption());
  // The copy is made as the kind's own store class.
  EXPECT_TRUE(typeid(*copy.getImpl()) == typeid(ma::FolderItemInfo::FolderItemImpl));
}

TEST(ItemKinds, UnknownCopyOfVideoStoreKeepsBaseFieldsAndDropsVideoFields) {
  ma::VideoItemInfo video("cap", "id");
  video.setTitle("title");
  video.setActor("actor");
  video.setDirector("director");
  video.setStartTime("20:15");
  video.setEndTime("21:45");
  WithStore<ma::UnknownItemInfo> holder(new ma::VideoItemInfo::VideoItemImpl(*video.getImpl()));

  ma::UnknownItemInfo copy(holder);
  EXPECT_EQ("cap", copy.getCaption());
  EXPECT_EQ("id", copy.getUUID());
  EXPECT_EQ("title", copy.getTitle());
  EXPECT_EQ(ma::ITEM_TYPE_VIDEO, copy.getItemType());
  EXPECT_EQ("", copy.getActor());
  EXPECT_EQ("", copy.getDirector());
  EXPECT_EQ("actor", holder.getActor());
  // No video lines: start and end time went with the video store.
  EXPECT_EQ("ItemType        : 4\ncaption         : cap\nuuid            : id\n"
            "title           : title\n",
            copy.toString());
}

TEST(ItemKinds, UnknownCopyOfStorelessRecordHasNoStore) {
  WithStore<ma::UnknownItemInfo> holder(nullptr);
  ma::UnknownItemInfo copy(holder);
  ma_test::TraceCapture capture;
  EXPECT_EQ("", copy.getCaption());
  EXPECT_EQ(std::vector<std::string>{"getCaption(): impl is NULL\n"}, capture.texts());
}

TEST(ItemKinds, UnknownDuplicateIsAnUnknownRecord) {
  ma::UnknownItemInfo item("c", "u");
  std::unique_ptr<ItemInfo> twin(item.duplicate());
  EXPECT_NE(nullptr, dynamic_cast<ma::UnknownItemInfo*>(twin.get()));
  EXPECT_EQ("c", twin->getCaption());
}

TEST(ItemKinds, GetImplOnStorelessFacadeTracesGetImpl) {
  auto item = storeless();
  ma_test::TraceCapture capture;
  EXPECT_EQ(nullptr, item.getImpl());
  const ma::VideoItemInfo& constItem = item;
  EXPECT_EQ(nullptr, constItem.getImpl());
  const std::vector<std::string> expected = {"getImpl(): impl is NULL\n",
                                             "getImpl(): impl is NULL\n"};
  EXPECT_EQ(expected, capture.texts());
}

// Actor and director.

TEST(ActorAndDirector, MusicRecordHasNoneAndIgnoresSetting) {
  ma::MusicItemInfo music("c", "u");
  music.setActor("someone");
  music.setDirector("someone else");
  EXPECT_EQ("", music.getActor());
  EXPECT_EQ("", music.getDirector());
  EXPECT_EQ(&ItemInfo::ItemImpl::empty, &music.getActor());
  EXPECT_EQ(&ItemInfo::ItemImpl::empty, &music.getDirector());
}

TEST(ActorAndDirector, VideoRecordKeepsLeadingAndTrailingBlanks) {
  ma::VideoItemInfo video("c", "u");
  video.setActor("  actor \n");
  video.setDirector("\tdirector ");
  EXPECT_EQ("  actor \n", video.getActor());
  EXPECT_EQ("\tdirector ", video.getDirector());
}

TEST(ActorAndDirector, StorelessRecordTracesEachAccessor) {
  auto item = storeless();
  ma_test::TraceCapture capture;
  EXPECT_EQ("", item.getActor());
  item.setActor("a");
  EXPECT_EQ("", item.getDirector());
  item.setDirector("d");
  const std::vector<std::string> expected = {
      "getActor(): impl is NULL\n", "setActor(): impl is NULL\n",
      "getDirector(): impl is NULL\n", "setDirector(): impl is NULL\n"};
  EXPECT_EQ(expected, capture.texts());
}

// Video start and end time.

TEST(VideoTimes, StartTimeIsTrimmed) {
  ma::VideoItemInfo video("c", "u");
  video.setStartTime("  20:15  ");
  video.setEndTime("\t21:45\r\n");
  EXPECT_EQ("20:15", video.getStartTime());
  EXPECT_EQ("21:45", video.getEndTime());
}

TEST(VideoTimes, StartAndEndTimeStartEmpty) {
  ma::VideoItemInfo video("c", "u");
  EXPECT_EQ("", video.getStartTime());
  EXPECT_EQ("", video.getEndTime());
}

TEST(VideoTimes, FacadeWithNonVideoStoreChangesNothingAndTracesGetImpl) {
  ma::VideoItemInfo video(new ItemInfo::ItemImpl(ma::ITEM_TYPE_VIDEO, "c", "u"));
  ma_test::TraceCapture capture;
  video.setStartTime(" 10:00 ");
  EXPECT_EQ(std::vector<std::string>{"getImpl(): impl is NULL\n"}, capture.texts());
  capture.clear();
  EXPECT_EQ("", video.getStartTime());
  EXPECT_EQ(&ItemInfo::empty, &video.getStartTime());
  video.setEndTime("x");
  EXPECT_EQ("", video.getEndTime());
  EXPECT_EQ(4u, capture.texts().size());  // two start-time reads, one end-time write and read
  // The adopted plain store is still used by the base accessors.
  EXPECT_EQ("c", video.getCaption());
}

TEST(VideoTimes, AdoptingConstructorTakesAVideoStore) {
  auto* store = new ma::VideoItemInfo::VideoItemImpl("c", "u");
  ma::VideoItemInfo video(store);
  EXPECT_EQ(store, video.getImpl());
  video.setStartTime("1");
  EXPECT_EQ("1", video.getStartTime());
}

TEST(VideoTimes, CopyKeepsTheVideoFields) {
  ma::VideoItemInfo video("c", "u");
  video.setStartTime("s");
  video.setEndTime("e");
  video.setActor("a");
  video.setDirector("d");
  ma::VideoItemInfo copy(video);
  EXPECT_EQ("s", copy.getStartTime());
  EXPECT_EQ("e", copy.getEndTime());
  EXPECT_EQ("a", copy.getActor());
  EXPECT_EQ("d", copy.getDirector());
}

// Trimming.

TEST(StripValue, RemovesOuterBlanksAndKeepsInnerOnes) {
  ma::FolderItemInfo item("c", "u");
  item.setCaption(" \tHello World \r\n");
  EXPECT_EQ("Hello World", item.getCaption());
}

TEST(StripValue, AllBlankValueBecomesEmpty) {
  ma::FolderItemInfo item("c", "u");
  item.setCaption("  \t  ");
  EXPECT_EQ("", item.getCaption());
  EXPECT_EQ("", ItemInfo::ItemImpl::stripValue(""));
  EXPECT_EQ("", ItemInfo::ItemImpl::stripValue(" \t\n\r"));
}

TEST(StripValue, RawSetterKeepsBlanks) {
  ma::FolderItemInfo item("c", "u");
  item.setStationName("  ZDF  ");
  EXPECT_EQ("  ZDF  ", item.getStationName());
}

TEST(StripValue, OnlySpaceTabLineFeedAndCarriageReturnAreBlank) {
  EXPECT_EQ("\vx\v", ItemInfo::ItemImpl::stripValue("\vx\v"));
  EXPECT_EQ("\fx\f", ItemInfo::ItemImpl::stripValue("\fx\f"));
  EXPECT_EQ("\xc2\xa0x", ItemInfo::ItemImpl::stripValue("\xc2\xa0x "));
  EXPECT_EQ(std::string("a\0b", 3), ItemInfo::ItemImpl::stripValue(std::string(" a\0b ", 5)));
  EXPECT_EQ(std::string("\0", 1), ItemInfo::ItemImpl::stripValue(std::string("\0", 1)));
}

TEST(StripValue, SingleCharacterAndUntouchedValues) {
  EXPECT_EQ("x", ItemInfo::ItemImpl::stripValue(" x "));
  EXPECT_EQ("x", ItemInfo::ItemImpl::stripValue("x"));
  EXPECT_EQ("a  b", ItemInfo::ItemImpl::stripValue("a  b"));
  EXPECT_EQ("MiXeD\x01", ItemInfo::ItemImpl::stripValue("\nMiXeD\x01\n"));
}

TEST(StripValue, StoreSettersTrimLikeTheFacade) {
  ItemInfo::ItemImpl store(ma::ITEM_TYPE_MUSIC, "c", "u");
  store.setLocator("  /media/a.mp3 ");
  store.setCaption("\tcap\n");
  store.setStationName(" raw ");
  EXPECT_EQ("/media/a.mp3", store.getLocator());
  EXPECT_EQ("cap", store.getCaption());
  EXPECT_EQ(" raw ", store.getStationName());
}

TEST(NullCharacterPointer, BuildingAStringFromItThrowsLogicError) {
  const char* nothing = nullptr;
  EXPECT_THROW(ma::FolderItemInfo(nothing, "u"), std::logic_error);
}

}  // namespace
