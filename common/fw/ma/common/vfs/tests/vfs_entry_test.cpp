// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The abstract entry: its base answers and its attribute map.
#include <errno.h>
#include <gtest/gtest.h>
#include <pthread.h>

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/bad_weak_ptr.hpp>
#include <string>

#include "ma/mdc_vfs_base.h"
#include "vfs_test_support.h"

namespace {

using vfs_test::makeItem;

// The smallest concrete entry: everything the base leaves open answered
// plainly, and a window on the entry's mutex.
class PlainEntry : public ma::VfsEntry {
 public:
  explicit PlainEntry(boost::shared_ptr<ma::ItemInfo> item = boost::shared_ptr<ma::ItemInfo>())
      : m_item(item) {}

  using ma::VfsEntry::getIterator;
  boost::shared_ptr<ma::VfsIterator> getIterator(ma::VfsSearchCriteria const&,
                                                 ma::VfsOrderCriteria const&,
                                                 ma::VfsFilterCriteria const&) override {
    return boost::shared_ptr<ma::VfsIterator>();
  }
  boost::shared_ptr<ma::ItemInfo> getItemInfo() override { return m_item; }
  boost::shared_ptr<ma::VfsUserData> getUserData() override { return VfsEntry::getUserData(); }

  pthread_mutex_t& mutex() { return mutexOf(*this); }

 private:
  boost::shared_ptr<ma::ItemInfo> m_item;
};

TEST(VfsEntryTest, FreshEntryHasNoAttributeAndReadingCreatesNone) {
  PlainEntry entry;
  EXPECT_FALSE(entry.hasAttribute("x"));
  EXPECT_EQ("", entry.getAttribute("x"));
  EXPECT_FALSE(entry.hasAttribute("x"));  // the read did not create it
  EXPECT_FALSE(entry.hasAttribute(""));
}

TEST(VfsEntryTest, SetAttributeTwiceKeepsOneElementWithTheLastValue) {
  PlainEntry entry;
  entry.setAttribute("k", "v");
  entry.setAttribute("k", "w");
  EXPECT_TRUE(entry.hasAttribute("k"));
  EXPECT_EQ("w", entry.getAttribute("k"));
}

TEST(VfsEntryTest, AttributeWithEmptyValueIsPresentAndReadsEmpty) {
  PlainEntry entry;
  entry.setAttribute("k", "");
  EXPECT_TRUE(entry.hasAttribute("k"));
  EXPECT_EQ("", entry.getAttribute("k"));
}

TEST(VfsEntryTest, AttributeKeysCompareByteWiseAndCaseSensitively) {
  PlainEntry entry;
  entry.setAttribute("Title", "upper");
  entry.setAttribute("title", "lower");
  EXPECT_EQ("upper", entry.getAttribute("Title"));
  EXPECT_EQ("lower", entry.getAttribute("title"));
  EXPECT_FALSE(entry.hasAttribute("TITLE"));
  EXPECT_FALSE(entry.hasAttribute("Title "));
}

TEST(VfsEntryTest, AttributesKeepBytesAndEmptyName) {
  PlainEntry entry;
  const std::string value("a\0b\xff", 4);
  entry.setAttribute("", value);
  EXPECT_TRUE(entry.hasAttribute(""));
  EXPECT_EQ(value, entry.getAttribute(""));
}

TEST(VfsEntryTest, AttributesOfEntriesAreIndependent) {
  PlainEntry first;
  PlainEntry second;
  first.setAttribute("k", "1");
  EXPECT_FALSE(second.hasAttribute("k"));
}

TEST(VfsEntryTest, GetAttributeReturnsACopy) {
  PlainEntry entry;
  entry.setAttribute("k", "v");
  std::string copy = entry.getAttribute("k");
  copy += "changed";
  EXPECT_EQ("v", entry.getAttribute("k"));
}

TEST(VfsEntryTest, BaseAnswersNoIteratorNoUserDataNoChildren) {
  boost::shared_ptr<PlainEntry> entry(new PlainEntry(makeItem("leaf")));
  EXPECT_FALSE(entry->getIterator());
  EXPECT_FALSE(entry->getUserData());
  EXPECT_FALSE(entry->hasIterator());
}

TEST(VfsEntryTest, EntryFindsItsOwnSharedPointerOnlyWhenOwned) {
  PlainEntry unowned;
  EXPECT_THROW(unowned.shared_from_this(), boost::bad_weak_ptr);
  boost::shared_ptr<PlainEntry> owned(new PlainEntry);
  EXPECT_EQ(owned.get(), owned->shared_from_this().get());
}

TEST(VfsEntryTest, MutexIsErrorCheckingSoARelockFailsInsteadOfDeadlocking) {
  PlainEntry entry;
  ASSERT_EQ(0, pthread_mutex_lock(&entry.mutex()));
  EXPECT_EQ(EDEADLK, pthread_mutex_lock(&entry.mutex()));
  EXPECT_EQ(0, pthread_mutex_unlock(&entry.mutex()));
}

TEST(VfsEntryTest, ReadersInsideALockedSectionProceedAndLeaveTheLockHeld) {
  PlainEntry entry;
  entry.setAttribute("k", "v");
  ASSERT_EQ(0, pthread_mutex_lock(&entry.mutex()));
  EXPECT_TRUE(entry.hasAttribute("k"));
  EXPECT_EQ("v", entry.getAttribute("k"));
  // The nested readers did not release the outer holder's lock.
  EXPECT_EQ(EDEADLK, pthread_mutex_lock(&entry.mutex()));
  EXPECT_EQ(0, pthread_mutex_unlock(&entry.mutex()));
}

TEST(VfsEntryTest, ReadersReleaseTheLock) {
  PlainEntry entry;
  entry.setAttribute("k", "v");
  entry.getAttribute("k");
  entry.hasAttribute("k");
  EXPECT_EQ(0, pthread_mutex_trylock(&entry.mutex()));
  EXPECT_EQ(0, pthread_mutex_unlock(&entry.mutex()));
}

TEST(VfsUserDataTest, PlainUserDataIsAMarkerOwnedBySharedPointer) {
  boost::shared_ptr<ma::VfsUserData> data(new ma::VfsUserData);
  EXPECT_EQ(data.get(), data->shared_from_this().get());
}

}  // namespace
