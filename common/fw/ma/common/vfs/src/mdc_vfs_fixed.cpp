// The fixed tree: leaves, folders and the folders' children iterators.
#include "ma/mdc_vfs_fixed.h"

#include <string>
#include <utility>

#include "ma_internal/trace.h"
#include "scoped_mutex_lock.h"

namespace ma {

using trace::kVfsCalls;
using vfs_internal::ScopedMutexLock;

namespace {

// The item text a folder lookup compares: caption or identifier.
typedef std::string const& (ItemInfo::*ItemText)() const;

// The position of the first child whose item's `text` equals `wanted`, or
// the number of children. Range-checked access; every child must have an
// item. The caller holds the folder's lock.
std::size_t findFirstChild(VfsFixedFolder::Children const& children, ItemText text,
                           std::string const& wanted) {
  for (std::size_t i = 0; i < children.size(); ++i) {
    if ((*children.at(i)->getItemInfo().*text)() == wanted) return i;
  }
  return children.size();
}

// The child at `position`, or an empty pointer past the end.
boost::shared_ptr<VfsEntry> childOrEmpty(VfsFixedFolder::Children const& children,
                                         std::size_t position) {
  return position < children.size() ? children[position] : boost::shared_ptr<VfsEntry>();
}

}  // namespace

// ---------------------------------------------------------------------------
// Leaf

VfsFixedEntry::VfsFixedEntry(boost::shared_ptr<ItemInfo> item,
                             boost::shared_ptr<VfsUserData> userData)
    : m_item(std::move(item)), m_userData(std::move(userData)) {}

VfsFixedEntry::~VfsFixedEntry() {}

boost::shared_ptr<VfsIterator> VfsFixedEntry::getIterator(VfsSearchCriteria const& /*search*/,
                                                          VfsOrderCriteria const& /*order*/,
                                                          VfsFilterCriteria const& /*filter*/) {
  return boost::shared_ptr<VfsIterator>();
}

boost::shared_ptr<ItemInfo> VfsFixedEntry::getItemInfo() { return m_item; }

boost::shared_ptr<VfsUserData> VfsFixedEntry::getUserData() { return m_userData; }

// ---------------------------------------------------------------------------
// Children iterators

VfsFixedFolder::ChildrenIterator::ChildrenIterator(boost::shared_ptr<VfsEntry> entry,
                                                   Children::const_iterator begin,
                                                   Children::const_iterator end)
    : VfsIterator(entry),
      m_folder(entry.get()),
      m_begin(begin),
      m_end(end),
      m_current(begin),
      m_index(0) {}

VfsFixedFolder::ChildrenIterator::~ChildrenIterator() {}

void VfsFixedFolder::ChildrenIterator::getNTotal(IntCallback done) {
  MA_TRACE_AT(kVfsCalls, 55, __func__, "Called.\n");
  ScopedMutexLock lock(mutexOf(*m_folder));
  done(static_cast<int>(m_end - m_begin));
}

void VfsFixedFolder::ChildrenIterator::rewind(IntCallback done) {
  MA_TRACE_AT(kVfsCalls, 62, __func__, "Called.\n");
  m_current = m_begin;
  m_index = 0;
  done(0);
}

void VfsFixedFolder::ChildrenIterator::advance(IntCallback done) {
  MA_TRACE_AT(kVfsCalls, 71, __func__, "Called.\n");
  ++m_current;  // unchecked: callers stay within the count
  ++m_index;
  done(m_index);
}

void VfsFixedFolder::ChildrenIterator::seekTo(int position, IntCallback done) {
  MA_TRACE_AT(kVfsCalls, 80, __func__, "Called.\n");
  m_index = position < 1 ? 0 : position;
  m_current = m_begin + m_index;  // unchecked: callers stay within the count
  done(m_index);
}

void VfsFixedFolder::ChildrenIterator::getCurrentChild(EntryCallback done) {
  MA_TRACE_AT(kVfsCalls, 94, __func__, "Called.\n");
  done(m_current == m_end ? boost::shared_ptr<VfsEntry>() : *m_current);
}

void VfsFixedFolder::ChildrenIterator::getCurrentChildPath(std::string path, PathCallback done) {
  MA_TRACE_AT(kVfsCalls, 105, __func__, "Called.\n");
  done(path + "$" + std::to_string(m_index));
}

VfsFixedFolder::SharedVectorIterator::SharedVectorIterator(
    boost::shared_ptr<VfsEntry> entry, boost::shared_ptr<const Children> vector)
    : ChildrenIterator(std::move(entry), vector->begin(), vector->end()),
      m_vector(std::move(vector)) {}

VfsFixedFolder::SharedVectorIterator::~SharedVectorIterator() {}

// ---------------------------------------------------------------------------
// Folder

VfsFixedFolder::VfsFixedFolder(boost::shared_ptr<ItemInfo> item) : m_item(std::move(item)) {}

VfsFixedFolder::~VfsFixedFolder() {}

boost::shared_ptr<VfsIterator> VfsFixedFolder::getIterator() {
  MA_TRACE_AT(kVfsCalls, 157, __func__, "Called.\n");
  return boost::shared_ptr<VfsIterator>(
      new ChildrenIterator(shared_from_this(), m_children.cbegin(), m_children.cend()));
}

boost::shared_ptr<VfsIterator> VfsFixedFolder::getIterator(VfsSearchCriteria const& /*search*/,
                                                           VfsOrderCriteria const& /*order*/,
                                                           VfsFilterCriteria const& /*filter*/) {
  return boost::shared_ptr<VfsIterator>();
}

boost::shared_ptr<ItemInfo> VfsFixedFolder::getItemInfo() { return m_item; }

boost::shared_ptr<VfsUserData> VfsFixedFolder::getUserData() {
  return boost::shared_ptr<VfsUserData>();
}

bool VfsFixedFolder::hasIterator() { return true; }

void VfsFixedFolder::setAttribute(std::string const& name, std::string const& value) {
  VfsEntry::setAttribute(name, value);
}

int VfsFixedFolder::addEntry(boost::shared_ptr<VfsEntry> entry) {
  ScopedMutexLock lock(mutexOf(*this));
  m_children.push_back(std::move(entry));
  return 0;
}

boost::shared_ptr<VfsEntry> VfsFixedFolder::findEntry(std::string const& caption) {
  ScopedMutexLock lock(mutexOf(*this));
  return childOrEmpty(m_children, findFirstChild(m_children, &ItemInfo::getCaption, caption));
}

boost::shared_ptr<VfsEntry> VfsFixedFolder::findEntrybyUUID(std::string const& uuid) {
  ScopedMutexLock lock(mutexOf(*this));
  return childOrEmpty(m_children, findFirstChild(m_children, &ItemInfo::getUUID, uuid));
}

}  // namespace ma
