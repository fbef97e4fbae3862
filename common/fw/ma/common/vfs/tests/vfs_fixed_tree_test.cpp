// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The fixed tree's leaves and folders: construction, answers, adding and
// looking up children, and what their destruction releases.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>
#include <vector>

#include "ma/mdc_vfs_fixed.h"
#include "vfs_test_support.h"

namespace {

using testing::ElementsAre;
using vfs_test::childCaptions;
using vfs_test::EntryPtr;
using vfs_test::FolderPtr;
using vfs_test::ItemPtr;
using vfs_test::makeBareLeaf;
using vfs_test::makeFolder;
using vfs_test::makeFolderOf;
using vfs_test::makeItem;
using vfs_test::makeLeaf;
using vfs_test::ProbeFolder;

typedef boost::shared_ptr<ma::VfsUserData> UserDataPtr;

// Criteria that are not empty, to show they are ignored.
struct SomeCriteria {
  SomeCriteria() {
    search.add(ma::VfsSearchCriteria::SingleCriterium("dc:title", "=", "a"));
    order.add({"dc:title", "+"});
    filter.add(ma::VfsFilterCriteria::SingleCriterium("*"));
  }
  ma::VfsSearchCriteria search;
  ma::VfsOrderCriteria order;
  ma::VfsFilterCriteria filter;
};

// Objects that append their name to a log when destroyed.
class LoggedItem : public ma::FolderItemInfo {
 public:
  LoggedItem(std::string const& name, std::vector<std::string>& log)
      : ma::FolderItemInfo(name, name), m_name(name), m_log(log) {}
  ~LoggedItem() override { m_log.push_back(m_name); }

 private:
  std::string m_name;
  std::vector<std::string>& m_log;
};

class LoggedUserData : public ma::VfsUserData {
 public:
  LoggedUserData(std::string const& name, std::vector<std::string>& log)
      : m_name(name), m_log(log) {}
  ~LoggedUserData() override { m_log.push_back(m_name); }

 private:
  std::string m_name;
  std::vector<std::string>& m_log;
};

// A leaf whose item lookup calls back into a folder while that folder's
// lookup holds its lock.
class ReentrantEntry : public ma::VfsFixedEntry {
 public:
  ReentrantEntry(std::string const& caption, boost::shared_ptr<ProbeFolder> folder)
      : ma::VfsFixedEntry(makeItem(caption, caption), UserDataPtr()), m_folder(folder) {}

  ItemPtr getItemInfo() override {
    boost::shared_ptr<ProbeFolder> folder = m_folder.lock();
    if (folder && !inner) {
      inner = true;
      lockedBefore = folder->isLocked();
      nestedFound = folder->findEntrybyUUID("other");
      lockedAfter = folder->isLocked();
    }
    return ma::VfsFixedEntry::getItemInfo();
  }

  bool inner = false;
  bool lockedBefore = false;
  bool lockedAfter = false;
  EntryPtr nestedFound;

 private:
  boost::weak_ptr<ProbeFolder> m_folder;
};

TEST(VfsFixedFolderTest, NewFolderHasIteratorNoUserDataAndFindsNothing) {
  FolderPtr folder = makeFolder();
  EXPECT_TRUE(folder->hasIterator());
  EXPECT_FALSE(folder->getUserData());
  EXPECT_FALSE(folder->findEntry("folder"));
  EXPECT_FALSE(folder->findEntry(""));
  EXPECT_FALSE(folder->findEntrybyUUID(""));
}

TEST(VfsFixedFolderTest, AddingTheSameChildTwiceShowsItTwiceAndFindEntryReturnsItOnce) {
  FolderPtr folder = makeFolder();
  EntryPtr child = makeLeaf("a", "1");
  EXPECT_EQ(0, folder->addEntry(child));
  EXPECT_EQ(0, folder->addEntry(child));
  EXPECT_THAT(childCaptions(*folder), ElementsAre("a", "a"));
  EXPECT_EQ(child, folder->findEntry("a"));
  EXPECT_EQ(3, child.use_count());
}

TEST(VfsFixedFolderTest, FindEntryOfEmptyStringMatchesTheFirstChildWithEmptyCaption) {
  FolderPtr folder = makeFolderOf({"a", "", "b", ""});
  EntryPtr found = folder->findEntry("");
  ASSERT_TRUE(found);
  EXPECT_EQ("u1", found->getItemInfo()->getUUID());
}

TEST(VfsFixedFolderTest, TwoChildrenWithEqualCaptionsFindEntryReturnsTheEarlierOne) {
  FolderPtr folder = makeFolderOf({"x", "same", "same"});
  EXPECT_EQ("u1", folder->findEntry("same")->getItemInfo()->getUUID());
}

TEST(VfsFixedFolderTest, FindEntryComparesCaptionsByteForByte) {
  FolderPtr folder = makeFolderOf({" a", "A", "ab"});
  EXPECT_FALSE(folder->findEntry("a"));
  EXPECT_EQ("u1", folder->findEntry("A")->getItemInfo()->getUUID());
  EXPECT_EQ("u0", folder->findEntry(" a")->getItemInfo()->getUUID());
  EXPECT_FALSE(folder->findEntry("a "));
}

TEST(VfsFixedFolderTest, FindEntryByUuidMatchesTheFirstIdentifierExactly) {
  FolderPtr folder = makeFolder();
  EntryPtr first = makeLeaf("one", "ID");
  folder->addEntry(makeLeaf("zero", "id"));
  folder->addEntry(first);
  folder->addEntry(makeLeaf("two", "ID"));
  EXPECT_EQ(first, folder->findEntrybyUUID("ID"));
  EXPECT_EQ("zero", folder->findEntrybyUUID("id")->getItemInfo()->getCaption());
  EXPECT_FALSE(folder->findEntrybyUUID("Id"));
  EXPECT_FALSE(folder->findEntrybyUUID("one"));  // a caption is not an identifier
}

TEST(VfsFixedFolderTest, LookupSearchesDirectChildrenOnly) {
  FolderPtr folder = makeFolder("top", "T");
  FolderPtr sub = makeFolder("sub", "S");
  sub->addEntry(makeLeaf("deep", "D"));
  folder->addEntry(sub);
  EXPECT_EQ(sub, folder->findEntry("sub"));
  EXPECT_FALSE(folder->findEntry("deep"));
  EXPECT_FALSE(folder->findEntrybyUUID("D"));
}

TEST(VfsFixedFolderTest, LookupCallingBackIntoTheSameFolderProceedsAndKeepsTheLock) {
  boost::shared_ptr<ProbeFolder> folder(new ProbeFolder);
  boost::shared_ptr<ReentrantEntry> reentrant(new ReentrantEntry("r", folder));
  EntryPtr other = makeLeaf("o", "other");
  folder->addEntry(reentrant);
  folder->addEntry(other);

  EXPECT_EQ(other, folder->findEntry("o"));
  EXPECT_TRUE(reentrant->lockedBefore);
  EXPECT_EQ(other, reentrant->nestedFound);
  EXPECT_TRUE(reentrant->lockedAfter);  // the nested lookup left the lock alone
  EXPECT_FALSE(folder->isLocked());
}

TEST(VfsFixedFolderTest, AddEntryAndLookupReleaseTheLock) {
  boost::shared_ptr<ProbeFolder> folder(new ProbeFolder);
  folder->addEntry(makeLeaf("a"));
  EXPECT_FALSE(folder->isLocked());
  folder->findEntry("a");
  folder->findEntrybyUUID("x");
  EXPECT_FALSE(folder->isLocked());
}

TEST(VfsFixedFolderTest, AddEntryAcceptsAnEmptyPointerUnchecked) {
  FolderPtr folder = makeFolder();
  EXPECT_EQ(0, folder->addEntry(EntryPtr()));
  folder->addEntry(makeLeaf("after"));
  boost::shared_ptr<ma::VfsIterator> iterator = folder->getIterator();
  EXPECT_EQ(2, iterator->getNTotal());
  // The empty child reads like the end of the list.
  EXPECT_FALSE(iterator->getCurrentChild());
  iterator->advance();
  EXPECT_EQ("after", vfs_test::captionOf(iterator->getCurrentChild()));
}

TEST(VfsFixedFolderTest, EitherClassIgnoresCriteriaAndGivesNoIterator) {
  SomeCriteria some;
  FolderPtr folder = makeFolderOf({"a"});
  EXPECT_FALSE(folder->getIterator(some.search, some.order, some.filter));
  EXPECT_FALSE(folder->getIterator(ma::VfsSearchCriteria(), ma::VfsOrderCriteria(),
                                   ma::VfsFilterCriteria()));
  EntryPtr leaf = makeLeaf("a");
  EXPECT_FALSE(leaf->getIterator(some.search, some.order, some.filter));
}

TEST(VfsFixedFolderTest, GetItemInfoReturnsTheStoredItemItself) {
  ItemPtr item = makeItem("f");
  FolderPtr folder(new ma::VfsFixedFolder(item));
  EXPECT_EQ(item, folder->getItemInfo());
  FolderPtr without(new ma::VfsFixedFolder(ItemPtr()));
  EXPECT_FALSE(without->getItemInfo());
}

TEST(VfsFixedFolderTest, SetAttributeStoresThroughTheBase) {
  FolderPtr folder = makeFolder();
  folder->setAttribute("k", "v");
  EXPECT_TRUE(folder->hasAttribute("k"));
  EXPECT_EQ("v", folder->getAttribute("k"));
  ma::VfsEntry& base = *folder;
  base.setAttribute("k", "w");  // the override, through the base
  EXPECT_EQ("w", folder->getAttribute("k"));
}

TEST(VfsFixedFolderTest, DestroyingTheFolderReleasesChildrenInListOrderThenTheItem) {
  std::vector<std::string> log;
  {
    FolderPtr folder(new ma::VfsFixedFolder(ItemPtr(new LoggedItem("folder", log))));
    for (const char* name : {"c0", "c1", "c2"}) {
      folder->addEntry(
          EntryPtr(new ma::VfsFixedEntry(ItemPtr(new LoggedItem(name, log)), UserDataPtr())));
    }
  }
  EXPECT_THAT(log, ElementsAre("c0", "c1", "c2", "folder"));
}

TEST(VfsFixedFolderTest, ChildHeldElsewhereSurvivesItsFolder) {
  EntryPtr child = makeLeaf("kept");
  boost::weak_ptr<ma::VfsEntry> dropped;
  {
    FolderPtr folder = makeFolder();
    folder->addEntry(child);
    EntryPtr other = makeLeaf("dropped");
    dropped = other;
    folder->addEntry(other);
  }
  EXPECT_TRUE(dropped.expired());
  EXPECT_EQ(1, child.use_count());
  EXPECT_EQ("kept", child->getItemInfo()->getCaption());
}

TEST(VfsFixedFolderTest, ChildMaySitInTwoFolders) {
  FolderPtr first = makeFolder();
  FolderPtr second = makeFolder();
  EntryPtr child = makeLeaf("shared", "S");
  first->addEntry(child);
  second->addEntry(child);
  EXPECT_EQ(child, first->findEntrybyUUID("S"));
  EXPECT_EQ(child, second->findEntrybyUUID("S"));
}

TEST(VfsFixedEntryTest, LeafWithEmptyItemAndEmptyUserDataReturnsEmptyPointers) {
  EntryPtr leaf = makeBareLeaf();
  EXPECT_FALSE(leaf->getItemInfo());
  EXPECT_FALSE(leaf->getUserData());
}

TEST(VfsFixedEntryTest, LeafReturnsItsItemAndUserDataThemselves) {
  ItemPtr item = makeItem("leaf");
  UserDataPtr data(new ma::VfsUserData);
  EntryPtr leaf(new ma::VfsFixedEntry(item, data));
  EXPECT_EQ(item, leaf->getItemInfo());
  EXPECT_EQ(data, leaf->getUserData());
}

TEST(VfsFixedEntryTest, LeafHasNoChildren) {
  EntryPtr leaf = makeLeaf("leaf");
  EXPECT_FALSE(leaf->hasIterator());
  EXPECT_FALSE(leaf->getIterator());
}

TEST(VfsFixedEntryTest, DestroyingTheLeafReleasesUserDataThenItem) {
  std::vector<std::string> log;
  {
    EntryPtr leaf(new ma::VfsFixedEntry(ItemPtr(new LoggedItem("item", log)),
                                        UserDataPtr(new LoggedUserData("data", log))));
  }
  EXPECT_THAT(log, ElementsAre("data", "item"));
}

TEST(VfsFixedEntryTest, LeafAttributesUseTheBaseMap) {
  EntryPtr leaf = makeLeaf("leaf");
  leaf->setAttribute("k", "v");
  EXPECT_EQ("v", leaf->getAttribute("k"));
}

}  // namespace
