// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Helpers shared by the VFS tests: building records and trees, reading a
// folder back, and matching located trace lines.
#ifndef MA_VFS_TESTS_VFS_TEST_SUPPORT_H_
#define MA_VFS_TESTS_VFS_TEST_SUPPORT_H_

#include <gmock/gmock.h>
#include <pthread.h>

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>
#include <vector>

#include "ma/mdc_item.h"
#include "ma/mdc_vfs_base.h"
#include "ma/mdc_vfs_fixed.h"

namespace vfs_test {

typedef boost::shared_ptr<ma::VfsEntry> EntryPtr;
typedef boost::shared_ptr<ma::VfsFixedFolder> FolderPtr;
typedef boost::shared_ptr<ma::ItemInfo> ItemPtr;

inline ItemPtr makeItem(std::string const& caption, std::string const& uuid = "",
                        long long date = 0) {
  ItemPtr item(new ma::VideoItemInfo(caption, uuid));
  item->setDateNumeric(date);
  return item;
}

inline EntryPtr makeLeaf(std::string const& caption, std::string const& uuid = "",
                         long long date = 0) {
  return EntryPtr(
      new ma::VfsFixedEntry(makeItem(caption, uuid, date), boost::shared_ptr<ma::VfsUserData>()));
}

// A leaf without item record.
inline EntryPtr makeBareLeaf() {
  return EntryPtr(new ma::VfsFixedEntry(ItemPtr(), boost::shared_ptr<ma::VfsUserData>()));
}

inline FolderPtr makeFolder(std::string const& caption = "folder", std::string const& uuid = "") {
  return FolderPtr(new ma::VfsFixedFolder(ItemPtr(new ma::FolderItemInfo(caption, uuid))));
}

// A fixed folder that can tell whether its entry lock is held (by any
// thread, this one included).
class ProbeFolder : public ma::VfsFixedFolder {
 public:
  explicit ProbeFolder(std::string const& caption = "probe")
      : ma::VfsFixedFolder(ItemPtr(new ma::FolderItemInfo(caption, ""))) {}

  bool isLocked() {
    if (pthread_mutex_trylock(&mutexOf(*this)) != 0) return true;
    pthread_mutex_unlock(&mutexOf(*this));
    return false;
  }
};

// A leaf that notes, each time it is asked for its item, whether its
// folder's lock is held.
class LockWitness : public ma::VfsFixedEntry {
 public:
  LockWitness(std::string const& caption, boost::shared_ptr<ProbeFolder> const& folder)
      : ma::VfsFixedEntry(makeItem(caption, caption), boost::shared_ptr<ma::VfsUserData>()),
        m_folder(folder) {}

  ItemPtr getItemInfo() override {
    boost::shared_ptr<ProbeFolder> folder = m_folder.lock();
    if (folder) locked.push_back(folder->isLocked());
    return ma::VfsFixedEntry::getItemInfo();
  }

  std::vector<bool> locked;  // one answer per request, in order

 private:
  boost::weak_ptr<ProbeFolder> m_folder;  // weak: the folder owns the witness
};

// An entry that keeps the base's path step and lookup but has children:
// both iterator factories (the criteria one included) walk its list.
// With `answers` false, it claims an iterator but hands out none.
class BrowsableEntry : public ma::VfsEntry {
 public:
  explicit BrowsableEntry(ItemPtr item = ItemPtr(), bool answers = true)
      : m_item(item), m_answers(answers) {}

  void add(EntryPtr const& child) { m_children.push_back(child); }

  boost::shared_ptr<ma::VfsIterator> getIterator() override { return iterate(); }
  boost::shared_ptr<ma::VfsIterator> getIterator(ma::VfsSearchCriteria const&,
                                                 ma::VfsOrderCriteria const&,
                                                 ma::VfsFilterCriteria const&) override {
    return iterate();
  }
  ItemPtr getItemInfo() override { return m_item; }
  boost::shared_ptr<ma::VfsUserData> getUserData() override {
    return boost::shared_ptr<ma::VfsUserData>();
  }
  bool hasIterator() override { return true; }

 private:
  boost::shared_ptr<ma::VfsIterator> iterate() {
    if (!m_answers) return boost::shared_ptr<ma::VfsIterator>();
    return boost::shared_ptr<ma::VfsIterator>(new ma::VfsFixedFolder::ChildrenIterator(
        shared_from_this(), m_children.cbegin(), m_children.cend()));
  }

  ItemPtr m_item;
  bool m_answers;
  ma::VfsFixedFolder::Children m_children;
};

// A fixed folder whose criteria iterator factory walks its children, so
// that identifier queries ("UUID...") find them.
class QueryableFolder : public ma::VfsFixedFolder {
 public:
  explicit QueryableFolder(std::string const& caption = "queryable", std::string const& uuid = "")
      : ma::VfsFixedFolder(ItemPtr(new ma::FolderItemInfo(caption, uuid))) {}

  using ma::VfsFixedFolder::getIterator;
  boost::shared_ptr<ma::VfsIterator> getIterator(ma::VfsSearchCriteria const&,
                                                 ma::VfsOrderCriteria const&,
                                                 ma::VfsFilterCriteria const&) override {
    return getIterator();
  }
};

// A folder with one leaf per caption, in order; leaf i has identifier "u<i>".
inline FolderPtr makeFolderOf(std::vector<std::string> const& captions) {
  FolderPtr folder = makeFolder();
  for (std::size_t i = 0; i < captions.size(); ++i) {
    folder->addEntry(makeLeaf(captions[i], "u" + std::to_string(i)));
  }
  return folder;
}

// The caption of `entry`'s item, "<empty>" for an empty pointer and
// "<no item>" for an entry without item.
inline std::string captionOf(EntryPtr const& entry) {
  if (!entry) return "<empty>";
  ItemPtr item = entry->getItemInfo();
  return item ? item->getCaption() : "<no item>";
}

// The captions an iterator yields from where it stands to its end.
inline std::vector<std::string> remainingCaptions(ma::VfsIterator& iterator) {
  std::vector<std::string> captions;
  for (EntryPtr child = iterator.getCurrentChild(); child; child = iterator.getCurrentChild()) {
    captions.push_back(captionOf(child));
    iterator.advance();
  }
  return captions;
}

// The captions of a folder's children, in list order.
inline std::vector<std::string> childCaptions(ma::VfsFixedFolder& folder) {
  boost::shared_ptr<ma::VfsIterator> iterator = folder.getIterator();
  return remainingCaptions(*iterator);
}

// A 64-bit value whose two 32-bit halves are equal (all bits inverted when
// `negative`), so that a read torn between two such writes shows.
inline long long mirrored(unsigned int half, bool negative) {
  const long long value = static_cast<long long>((static_cast<unsigned long long>(half) << 32) | half);
  return negative ? ~value : value;
}

inline bool isMirrored(long long value) {
  const unsigned long long bits = static_cast<unsigned long long>(value);
  return (bits >> 32) == (bits & 0xffffffffu);
}

// "<file>:<line>:<function>(): <text>": a located trace line.
inline std::string located(std::string const& file, int line, std::string const& function,
                           std::string const& text) {
  return file + ":" + std::to_string(line) + ":" + function + "(): " + text;
}

// Matches a located trace line whatever its line number.
MATCHER_P3(IsLocated, file, function, text,
           std::string("is \"") + file + ":<line>:" + function + "(): " + text + "\"") {
  const std::string head = std::string(file) + ":";
  const std::string tail = std::string(":") + function + "(): " + text;
  if (arg.size() <= head.size() + tail.size()) return false;
  if (arg.compare(0, head.size(), head) != 0) return false;
  if (arg.compare(arg.size() - tail.size(), tail.size(), tail) != 0) return false;
  const std::string number = arg.substr(head.size(), arg.size() - head.size() - tail.size());
  return number.find_first_not_of("0123456789") == std::string::npos;
}

}  // namespace vfs_test

#endif  // MA_VFS_TESTS_VFS_TEST_SUPPORT_H_
