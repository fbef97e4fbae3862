// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
/// @file
/// The fixed tree: an in-memory VFS built by hand.
///
/// A VfsFixedFolder holds an ordered list of children (leaves or folders,
/// owned by shared pointer; the same entry may appear several times or sit in
/// several folders). A VfsFixedEntry is a leaf with an item record and
/// optional user data. Both are always created inside a boost::shared_ptr.
///
/// A folder's children are walked with getIterator() (a cursor over the live
/// list) or getSortedIterator() (a cursor over a sorted private copy). Both
/// iterators answer every request at once: the callback runs on the caller's
/// thread before the operation returns. A child is named by "$" and its
/// decimal position in the folder's list, e.g. "$2"; paths such as "$2$0"
/// resolve level by level (VfsEntry::resolvePath()).
///
/// Thread-safety: addEntry, findEntry, findEntrybyUUID, the removals and an
/// iterator's getNTotal hold the folder's entry lock. getIterator(), sorting,
/// path resolution and the other iterator steps read the list without it: a
/// caller changing a folder concurrently must exclude them itself. A plain
/// iterator is invalid once its folder's list has grown or shrunk.
#ifndef MA_MDC_VFS_FIXED_H_
#define MA_MDC_VFS_FIXED_H_

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ma/export.h"
#include "ma/mdc_item.h"
#include "ma/mdc_vfs_base.h"

namespace ma {

/// A leaf: an item record and the caller's user data, both shared, both
/// possibly empty. It has no children.
class MA_COMMON_EXPORT VfsFixedEntry : public VfsEntry {
 public:
  /// A leaf holding `item` and `userData` (each may be empty).
  VfsFixedEntry(boost::shared_ptr<ItemInfo> item, boost::shared_ptr<VfsUserData> userData);
  ~VfsFixedEntry() override;

  using VfsEntry::getIterator;
  /// Ignores the criteria: always an empty pointer.
  boost::shared_ptr<VfsIterator> getIterator(VfsSearchCriteria const& search,
                                             VfsOrderCriteria const& order,
                                             VfsFilterCriteria const& filter) override;
  /// The stored item (the same object, not a copy).
  boost::shared_ptr<ItemInfo> getItemInfo() override;
  /// The stored user data.
  boost::shared_ptr<VfsUserData> getUserData() override;

 private:
  boost::shared_ptr<ItemInfo> m_item;
  boost::shared_ptr<VfsUserData> m_userData;  ///< released before m_item
};

/// A folder: its own item record and an ordered list of children.
class MA_COMMON_EXPORT VfsFixedFolder : public VfsEntry {
 public:
  /// The children, in insertion order.
  typedef std::vector<boost::shared_ptr<VfsEntry> > Children;

  /// A cursor over a range of child pointers: positions 0 to the count, the
  /// count being past the end. Moving is not checked against the range:
  /// callers keep the position within 0 and getNTotal().
  class MA_COMMON_EXPORT ChildrenIterator : public VfsIterator {
   public:
    /// A cursor at `begin`, position 0, over [begin, end) of the children of
    /// `entry`, which it keeps alive. The range must stay valid meanwhile.
    ChildrenIterator(boost::shared_ptr<VfsEntry> entry, Children::const_iterator begin,
                     Children::const_iterator end);
    ~ChildrenIterator() override;

    /// @name Synchronous twins
    //@{
    /// VfsIterator's synchronous twins, visible beside the overrides below.
    using VfsIterator::advance;
    using VfsIterator::getCurrentChild;
    using VfsIterator::getCurrentChildPath;
    using VfsIterator::getNTotal;
    using VfsIterator::rewind;
    using VfsIterator::seekTo;
    //@}

    /// The size of the range, delivered while holding the entry's lock.
    void getNTotal(IntCallback done) override;
    /// Back to position 0; delivers 0.
    void rewind(IntCallback done) override;
    /// One position on; delivers the new position.
    void advance(IntCallback done) override;
    /// To `position`, or to 0 if `position` is below 1; delivers the new
    /// position.
    void seekTo(int position, IntCallback done) override;
    /// The child at the position, or an empty pointer at the end.
    void getCurrentChild(EntryCallback done) override;
    /// `path` + "$" + the position in decimal, wherever the cursor stands.
    void getCurrentChildPath(std::string path, PathCallback done) override;

   private:
    VfsEntry* m_folder;  ///< its entry lock guards getNTotal
    Children::const_iterator m_begin;
    Children::const_iterator m_end;
    Children::const_iterator m_current;
    int m_index;  ///< m_current - m_begin
  };

  /// A ChildrenIterator over a list that it keeps alive itself, so that it is
  /// unaffected by later changes to the folder.
  class MA_COMMON_EXPORT SharedVectorIterator : public ChildrenIterator {
   public:
    /// A cursor at position 0 over `*vector`, which it keeps alive, of the
    /// children of `entry`, which it keeps alive too.
    SharedVectorIterator(boost::shared_ptr<VfsEntry> entry,
                         boost::shared_ptr<const Children> vector);
    ~SharedVectorIterator() override;

   private:
    boost::shared_ptr<const Children> m_vector;
  };

  /// An empty folder described by `item` (may be empty). Converts
  /// implicitly.
  VfsFixedFolder(boost::shared_ptr<ItemInfo> item);
  /// Releases the children in list order, then the item.
  ~VfsFixedFolder() override;

  /// A ChildrenIterator over the live list: valid until the list changes.
  /// Takes no lock. Throws boost::bad_weak_ptr if the folder has no shared
  /// owner.
  boost::shared_ptr<VfsIterator> getIterator() override;
  /// Ignores the criteria: always an empty pointer.
  boost::shared_ptr<VfsIterator> getIterator(VfsSearchCriteria const& search,
                                             VfsOrderCriteria const& order,
                                             VfsFilterCriteria const& filter) override;
  /// The stored item (the same object, not a copy).
  boost::shared_ptr<ItemInfo> getItemInfo() override;
  /// Always an empty pointer: a folder carries no user data.
  boost::shared_ptr<VfsUserData> getUserData() override;
  /// Always true, even without children.
  bool hasIterator() override;
  /// The base's setAttribute, unchanged (no lock).
  void setAttribute(std::string const& name, std::string const& value) override;

  /// Besides the base's parts: an index part "N" or "$N" (decimal, as strtol
  /// reads it; trailing characters ignored) names child N of the list, and
  /// what follows the next "$" is the rest. Appends "$" and the index text to
  /// `partInfo`. -2 on a bad or out-of-range index, with a failure trace.
  int resolvePathPart(boost::shared_ptr<VfsEntry>& child, std::string& rest, std::string& partInfo,
                      std::string path, std::string query) override;

  /// A SharedVectorIterator over a sorted copy of the children:
  /// "+dc:title" by caption ascending, "-dc:title" descending, anything else
  /// by date, newest first. Children with equal keys keep their list order;
  /// children without item (and empty pointers) come last, in list order.
  /// Takes no lock. Throws boost::bad_weak_ptr if the folder has no shared
  /// owner.
  virtual boost::shared_ptr<VfsIterator> getSortedIterator(std::string const& criteria);

  /// Appends `entry` to the children, unchecked (empty pointers, duplicates
  /// and the folder itself included). Always 0.
  int addEntry(boost::shared_ptr<VfsEntry> entry);

  /// @name Lookup by caption or identifier
  //@{
  /// The first child whose item's caption (identifier) equals the argument
  /// byte for byte, or an empty pointer. Direct children only.
  /// REQUIRES: every child has an item.
  boost::shared_ptr<VfsEntry> findEntry(std::string const& caption);
  boost::shared_ptr<VfsEntry> findEntrybyUUID(std::string const& uuid);
  //@}

  /// @name Removal
  //@{
  /// Removes the first child whose item's caption (identifier) equals that of
  /// `entry`'s item; the others keep their order. Always 0, match or not.
  /// REQUIRES: `entry` and every child have an item.
  int removeEntry(boost::shared_ptr<VfsEntry> entry);
  int removeEntryByUUID(boost::shared_ptr<VfsEntry> entry);
  //@}
  /// Removes every child. Always 0.
  int removeAllEntries();

  /// @name Sort orders
  //@{
  /// Sort orders: whether `a` goes before `b`. An empty entry or one without
  /// item compares false both ways.
  static bool compareCaptionInc(boost::shared_ptr<VfsEntry> a, boost::shared_ptr<VfsEntry> b);
  static bool compareCaptionDec(boost::shared_ptr<VfsEntry> a, boost::shared_ptr<VfsEntry> b);
  static bool compareDateInc(boost::shared_ptr<VfsEntry> a, boost::shared_ptr<VfsEntry> b);
  static bool compareDateDec(boost::shared_ptr<VfsEntry> a, boost::shared_ptr<VfsEntry> b);
  //@}

 private:
  boost::shared_ptr<ItemInfo> m_item;
  Children m_children;  ///< insertion order; guarded by the entry lock
};

}  // namespace ma

#endif  // MA_MDC_VFS_FIXED_H_
