// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Accessor signatures of the field store. Client binaries call them by their
// mangled names, which depend on the exact parameter and result types and on
// const-ness; the facade's are pinned by the field table test.
//
// The second half holds the accessors declared in ma/mdc_item.h to the
// library's private field list, row by row, so that the written-out public
// declarations and the list that generates their definitions agree.
#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "ma/mdc_item.h"
#include "ma_internal/item_fields.h"
#include "ma_test/vtable_slot.h"

namespace {

using Store = ma::ItemInfo::ItemImpl;

template <class Expected, class Actual>
constexpr bool same(Actual) {
  return std::is_same<Expected, Actual>::value;
}

// Const getters and setters of the store.
#define EXPECT_STORE_TEXT(get, set)                                                  \
  static_assert(same<std::string const& (Store::*)() const>(&Store::get), #get);     \
  static_assert(same<void (Store::*)(std::string const&)>(&Store::set), #set)
#define EXPECT_STORE_NUMBER(type, get, set)                                          \
  static_assert(same<type const& (Store::*)() const>(&Store::get), #get);            \
  static_assert(same<void (Store::*)(type const&)>(&Store::set), #set)
// The recording getters are not const on the store.
#define EXPECT_STORE_RECORDING_TEXT(get, set)                                        \
  static_assert(same<std::string const& (Store::*)()>(&Store::get), #get);           \
  static_assert(same<void (Store::*)(std::string const&)>(&Store::set), #set)

EXPECT_STORE_TEXT(getItemSubType, setItemSubType);
EXPECT_STORE_TEXT(getCaption, setCaption);
EXPECT_STORE_TEXT(getOriginalAncestor, setOriginalAncestor);
EXPECT_STORE_TEXT(getCreator, setCreator);
EXPECT_STORE_TEXT(getOriginalUuid, setOriginalUuid);
EXPECT_STORE_TEXT(getOriginalVolume, setOriginalVolume);
EXPECT_STORE_TEXT(getLocator, setLocator);
EXPECT_STORE_TEXT(getPlaytime, setPlaytime);
EXPECT_STORE_TEXT(getThumbURL, setThumbURL);
EXPECT_STORE_TEXT(getStationName, setStationName);
EXPECT_STORE_TEXT(getStationDescription, setStationDescription);
EXPECT_STORE_TEXT(getLongStationDescription, setLongStationDescription);
EXPECT_STORE_TEXT(getTitle, setTitle);
EXPECT_STORE_TEXT(getGenre, setGenre);
EXPECT_STORE_TEXT(getDescription, setDescription);
EXPECT_STORE_TEXT(getComment, setComment);
EXPECT_STORE_TEXT(getDate, setDate);
EXPECT_STORE_TEXT(getUserIndex, setUserIndex);
EXPECT_STORE_TEXT(getParentalRating, setParentalRating);
EXPECT_STORE_TEXT(getCreationTime, setCreationTime);
EXPECT_STORE_TEXT(getModificationTime, setModificationTime);
EXPECT_STORE_TEXT(getEncryptionScheme, setEncryptionScheme);
EXPECT_STORE_TEXT(getEncryptionInfo, setEncryptionInfo);
EXPECT_STORE_TEXT(getDisplayRules, setDisplayRules);
EXPECT_STORE_TEXT(getTunerUUID, setTunerUUID);
EXPECT_STORE_TEXT(getArtist, setArtist);
EXPECT_STORE_TEXT(getAlbum, setAlbum);
EXPECT_STORE_TEXT(getAlbumUUID, setAlbumUUID);
EXPECT_STORE_TEXT(getTrackNum, setTrackNum);
EXPECT_STORE_TEXT(getYear, setYear);
EXPECT_STORE_TEXT(getBitrate, setBitrate);
EXPECT_STORE_RECORDING_TEXT(getRecStartTime, setRecStartTime);
EXPECT_STORE_RECORDING_TEXT(getRecEndTime, setRecEndTime);
EXPECT_STORE_RECORDING_TEXT(getRecDuration, setRecDuration);
EXPECT_STORE_RECORDING_TEXT(getRecTsId, setRecTsId);
EXPECT_STORE_RECORDING_TEXT(getRecServiceId, setRecServiceId);
EXPECT_STORE_RECORDING_TEXT(getRecOnId, setRecOnId);
EXPECT_STORE_RECORDING_TEXT(getRecEventType, setRecEventType);
EXPECT_STORE_RECORDING_TEXT(getRecFailType, setRecFailType);
EXPECT_STORE_NUMBER(int, getPreviewPage, setPreviewPage);
EXPECT_STORE_NUMBER(int, getSubtitlePage, setSubtitlePage);
EXPECT_STORE_NUMBER(int, getEncoding, setEncoding);
EXPECT_STORE_NUMBER(unsigned long long, getFileSize, setFileSize);
EXPECT_STORE_NUMBER(long long, getDateNumeric, setDateNumeric);
EXPECT_STORE_NUMBER(int, getAttributes, setAttributes);
EXPECT_STORE_NUMBER(unsigned int, getMaxPosition, setMaxPosition);
EXPECT_STORE_NUMBER(unsigned int, getResumePosition, setResumePosition);
EXPECT_STORE_NUMBER(int, getVolumeCorrection, setVolumeCorrection);
EXPECT_STORE_NUMBER(unsigned int, getSoundSelection, setSoundSelection);
EXPECT_STORE_NUMBER(unsigned int, getLcn, setLcn);
EXPECT_STORE_NUMBER(int, getEpgTheme, setEpgTheme);
EXPECT_STORE_NUMBER(int, getNetworkID, setNetworkID);
static_assert(same<int const& (Store::*)()>(&Store::getRecChnum), "getRecChnum");
static_assert(same<void (Store::*)(int const&)>(&Store::setRecChnum), "setRecChnum");
static_assert(same<bool (Store::*)() const>(&Store::isReceivable), "isReceivable");
static_assert(same<void (Store::*)(bool)>(&Store::setVisible), "setVisible");
static_assert(same<bool (Store::*)() const>(&Store::isSelectable), "isSelectable");
static_assert(same<ma::itemType const& (Store::*)() const>(&Store::getItemType), "getItemType");
static_assert(same<void (Store::*)(ma::itemType)>(&Store::setItemType), "setItemType");
static_assert(same<std::string const& (Store::*)() const>(&Store::getUUID), "getUUID");
static_assert(same<std::string (*)(std::string const&)>(&Store::stripValue), "stripValue");
static_assert(same<ma::itemType (ma::ItemInfo::*)() const>(&ma::ItemInfo::getItemType),
              "facade item type by value");
static_assert(same<void (ma::VideoItemInfo::*)(std::string)>(&ma::VideoItemInfo::setStartTime),
              "start time by value");
static_assert(same<bool (ma::ItemInfo::*)(ma::ItemInfo const&)>(&ma::ItemInfo::operator==),
              "non-const comparison");

// Every row of the field list, on the facade: the item type is answered by
// value and has no facade setter, the UUID has a getter only, flags go by
// value, every other field is answered by const reference and set from one.
using Facade = ma::ItemInfo;
#define EXPECT_FACADE_TYPE(type, get, set) \
  static_assert(same<type (Facade::*)() const>(&Facade::get), "facade " #get);
#define EXPECT_FACADE_UUID(type, get, set) \
  static_assert(same<type const& (Facade::*)() const>(&Facade::get), "facade " #get);
#define EXPECT_FACADE_BOOL(type, get, set)                                        \
  static_assert(same<type (Facade::*)() const>(&Facade::get), "facade " #get); \
  static_assert(same<void (Facade::*)(type)>(&Facade::set), "facade " #set);
#define EXPECT_FACADE_WORD(type, get, set)
#define EXPECT_FACADE_VALUE(type, get, set)                                              \
  static_assert(same<type const& (Facade::*)() const>(&Facade::get), "facade " #get); \
  static_assert(same<void (Facade::*)(type const&)>(&Facade::set), "facade " #set);
#define EXPECT_FACADE_SUBTYPE EXPECT_FACADE_VALUE
#define EXPECT_FACADE_STR EXPECT_FACADE_VALUE
#define EXPECT_FACADE_I32 EXPECT_FACADE_VALUE
#define EXPECT_FACADE_U32 EXPECT_FACADE_VALUE
#define EXPECT_FACADE_I64 EXPECT_FACADE_VALUE
#define EXPECT_FACADE_U64 EXPECT_FACADE_VALUE
#define EXPECT_FACADE(kind, member, get, set, storeGet, storeSet, q, stores, initial) \
  EXPECT_FACADE_##kind(MA_ITEM_FIELD_TYPE_##kind, get, set)
MA_ITEM_FIELDS(EXPECT_FACADE)

// Every row on the store: the getter's const-ness is the row's; the item
// type's setter takes a value.
#define EXPECT_STORE_TYPE(type, get, set, q)                                       \
  static_assert(same<type const& (Store::*)() q>(&Store::get), "store " #get); \
  static_assert(same<void (Store::*)(type)>(&Store::set), "store " #set);
#define EXPECT_STORE_UUID(type, get, set, q) \
  static_assert(same<type const& (Store::*)() q>(&Store::get), "store " #get);
#define EXPECT_STORE_BOOL(type, get, set, q)                                \
  static_assert(same<type (Store::*)() q>(&Store::get), "store " #get); \
  static_assert(same<void (Store::*)(type)>(&Store::set), "store " #set);
#define EXPECT_STORE_WORD(type, get, set, q)
#define EXPECT_STORE_VALUE(type, get, set, q)                                      \
  static_assert(same<type const& (Store::*)() q>(&Store::get), "store " #get); \
  static_assert(same<void (Store::*)(type const&)>(&Store::set), "store " #set);
#define EXPECT_STORE_SUBTYPE EXPECT_STORE_VALUE
#define EXPECT_STORE_STR EXPECT_STORE_VALUE
#define EXPECT_STORE_I32 EXPECT_STORE_VALUE
#define EXPECT_STORE_U32 EXPECT_STORE_VALUE
#define EXPECT_STORE_I64 EXPECT_STORE_VALUE
#define EXPECT_STORE_U64 EXPECT_STORE_VALUE
#define EXPECT_STORE(kind, member, get, set, storeGet, storeSet, q, stores, initial) \
  EXPECT_STORE_##kind(MA_ITEM_FIELD_TYPE_##kind, storeGet, storeSet, q)
MA_ITEM_FIELDS(EXPECT_STORE)

// The list names every field once: 59 rows, 58 of them with accessors.
#define COUNT_ROW(kind, member, get, set, storeGet, storeSet, q, stores, initial) +1
static_assert(0 MA_ITEM_FIELDS(COUNT_ROW) == 59, "one row per field");

// The store's recording getters work on a non-const store.
TEST(ItemStoreSignatures, RecordingGettersReadTheStoredValues) {
  Store store(ma::ITEM_TYPE_VIDEO, "c", "u");
  store.setRecOnId("on");
  store.setRecChnum(12);
  EXPECT_EQ("on", store.getRecOnId());
  EXPECT_EQ(12, store.getRecChnum());
}

// Facades are not assignable (a facade owns its store); stores are.
static_assert(!std::is_copy_assignable<ma::FolderItemInfo>::value, "no facade assignment");
static_assert(std::is_copy_assignable<Store>::value, "store assignment copies the fields");
// duplicate() answers the base type on every kind, so that client
// subclasses may override it as declared on the base.
static_assert(same<ma::ItemInfo* (ma::FolderItemInfo::*)() const>(&ma::FolderItemInfo::duplicate),
              "duplicate");
static_assert(same<ma::ItemInfo* (ma::UnknownItemInfo::*)() const>(&ma::UnknownItemInfo::duplicate),
              "duplicate");
// The adopting constructors convert implicitly, as clients may expect.
static_assert(std::is_convertible<Store*, ma::VideoItemInfo>::value, "adopting constructor");
static_assert(std::is_abstract<ma::ItemInfo>::value, "the facade is abstract");

// Virtual slot order: destructors first, then the declared order.
TEST(ItemVirtualSlots, FieldStoreSlotsFollowTheDestructors) {
  using ma_test::vtableSlot;
  EXPECT_EQ(2, vtableSlot(&Store::toString));
  EXPECT_EQ(3, vtableSlot(&Store::getActor));
  EXPECT_EQ(4, vtableSlot(&Store::setActor));
  EXPECT_EQ(5, vtableSlot(&Store::getDirector));
  EXPECT_EQ(6, vtableSlot(&Store::setDirector));
  EXPECT_EQ(-1, vtableSlot(&Store::getCaption));  // accessors are not virtual
}

TEST(ItemVirtualSlots, FacadeHasOnlyDuplicateAfterTheDestructors) {
  using ma_test::vtableSlot;
  EXPECT_EQ(2, vtableSlot(&ma::ItemInfo::duplicate));
  EXPECT_EQ(2, vtableSlot(&ma::FolderItemInfo::duplicate));
  EXPECT_EQ(2, vtableSlot(&ma::VideoItemInfo::VideoItemImpl::toString));
  EXPECT_EQ(-1, vtableSlot(&ma::ItemInfo::toString));
  EXPECT_EQ(-1, vtableSlot(&ma::ItemInfo::getActor));
}

}  // namespace
