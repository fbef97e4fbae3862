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
/// Exceptions: none of the library's own. std::bad_alloc passes through
/// where an operation allocates, boost::bad_weak_ptr where it needs the
/// folder's own shared pointer, boost::bad_function_call where an iterator
/// is handed an empty callback; each function names its own.
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
  /// A leaf holding `item` and `userData`, shared (not copied). Throws
  /// nothing.
  /// @param item the record that describes the leaf; may be empty
  /// @param userData the caller's data on the leaf; may be empty
  VfsFixedEntry(boost::shared_ptr<ItemInfo> item, boost::shared_ptr<VfsUserData> userData);
  /// Releases the user data, then the item. Throws nothing.
  ~VfsFixedEntry() override;

  using VfsEntry::getIterator;
  /// No criteria iterator: a leaf has no children. Throws nothing.
  /// @param search ignored
  /// @param order ignored
  /// @param filter ignored
  /// @return always an empty pointer
  boost::shared_ptr<VfsIterator> getIterator(VfsSearchCriteria const& search,
                                             VfsOrderCriteria const& order,
                                             VfsFilterCriteria const& filter) override;
  /// The record given to the constructor. Throws nothing.
  /// @return the stored item (the same object, not a copy); may be empty
  boost::shared_ptr<ItemInfo> getItemInfo() override;
  /// The caller's data given to the constructor. Throws nothing.
  /// @return the stored user data; may be empty
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
    /// `entry`, which it keeps alive. Throws nothing.
    /// @param entry the folder whose children these are; its entry lock
    ///        guards getNTotal()
    /// @param begin the first child of the range
    /// @param end one past the last child; the range must stay valid while
    ///        the iterator is used
    ChildrenIterator(boost::shared_ptr<VfsEntry> entry, Children::const_iterator begin,
                     Children::const_iterator end);
    /// Releases the folder. Throws nothing.
    ~ChildrenIterator() override;

    // VfsIterator's synchronous twins (VfsIterator::getNTotal() and the
    // others), visible beside the overrides below. With this iterator they
    // never wait: every callback runs before its operation returns.
    using VfsIterator::advance;
    using VfsIterator::getCurrentChild;
    using VfsIterator::getCurrentChildPath;
    using VfsIterator::getNTotal;
    using VfsIterator::rewind;
    using VfsIterator::seekTo;

    /// Delivers the size of the range while holding the folder's entry lock
    /// (the callback runs under it: do not change the folder from there).
    /// The count is that of the range fixed at construction.
    /// @param done called once, before the call returns, with the count
    /// @throws boost::bad_function_call if `done` is empty (the lock is
    ///         released); what `done` throws passes through
    void getNTotal(IntCallback done) override;
    /// Moves back to position 0, the first child.
    /// @param done called once, before the call returns, with 0
    /// @throws boost::bad_function_call if `done` is empty, after the move;
    ///         what `done` throws passes through
    void rewind(IntCallback done) override;
    /// Moves one position on, unchecked: past the end position the cursor
    /// leaves the range (keep it within 0 and getNTotal()).
    /// @param done called once, before the call returns, with the new
    ///        position
    /// @throws boost::bad_function_call if `done` is empty, after the move;
    ///         what `done` throws passes through
    void advance(IntCallback done) override;
    /// Moves to `position`, unchecked against the count.
    /// @param position the position wanted; below 1 means 0
    /// @param done called once, before the call returns, with the new
    ///        position
    /// @throws boost::bad_function_call if `done` is empty, after the move;
    ///         what `done` throws passes through
    void seekTo(int position, IntCallback done) override;
    /// Delivers the child at the cursor.
    /// @param done called once, before the call returns, with the child, or
    ///        an empty pointer at the end position
    /// @throws boost::bad_function_call if `done` is empty; what `done`
    ///         throws passes through
    void getCurrentChild(EntryCallback done) override;
    /// Delivers the path of the child at the cursor: `path` + "$" + the
    /// position in decimal, wherever the cursor stands. In a sorted
    /// iterator the position is the sorted one, not the folder's.
    /// @param path the folder's own path, e.g. "$2"; may be empty
    /// @param done called once, before the call returns, with the path
    /// @throws std::bad_alloc if the text cannot be built
    /// @throws boost::bad_function_call if `done` is empty; what `done`
    ///         throws passes through
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
    /// children of `entry`, which it keeps alive too. Throws nothing.
    /// @param entry the folder whose children these are
    /// @param vector the list to iterate; must not be empty (the pointer)
    SharedVectorIterator(boost::shared_ptr<VfsEntry> entry,
                         boost::shared_ptr<const Children> vector);
    /// Releases the list, then the folder. Throws nothing.
    ~SharedVectorIterator() override;

   private:
    boost::shared_ptr<const Children> m_vector;
  };

  /// An empty folder described by `item`. Converts implicitly. Throws
  /// nothing.
  /// @param item the record that describes the folder itself, shared (not
  ///        copied); may be empty
  VfsFixedFolder(boost::shared_ptr<ItemInfo> item);
  /// Releases the children in list order, then the item. Throws nothing.
  ~VfsFixedFolder() override;

  /// A plain iterator over the children in list order: a ChildrenIterator
  /// over the live list, valid until the list grows or shrinks. Takes no
  /// lock.
  /// @return the iterator, at the first child
  /// @throws boost::bad_weak_ptr if the folder has no shared owner
  /// @throws std::bad_alloc when memory runs out
  boost::shared_ptr<VfsIterator> getIterator() override;
  /// No criteria iterator: the fixed tree offers no searching, filtering or
  /// ordering by criteria (sort with getSortedIterator()). Throws nothing.
  /// @param search ignored
  /// @param order ignored
  /// @param filter ignored
  /// @return always an empty pointer
  boost::shared_ptr<VfsIterator> getIterator(VfsSearchCriteria const& search,
                                             VfsOrderCriteria const& order,
                                             VfsFilterCriteria const& filter) override;
  /// The record given to the constructor. Throws nothing.
  /// @return the stored item (the same object, not a copy); may be empty
  boost::shared_ptr<ItemInfo> getItemInfo() override;
  /// A folder carries no user data. Throws nothing.
  /// @return always an empty pointer
  boost::shared_ptr<VfsUserData> getUserData() override;
  /// A folder always has an iterator. Throws nothing.
  /// @return always true, even without children
  bool hasIterator() override;
  /// The base's VfsEntry::setAttribute(), unchanged: no lock, so set
  /// attributes before the folder is shared.
  /// @param name the attribute's key, kept as given
  /// @param value the value, kept as given
  /// @throws std::bad_alloc if the map or its element cannot be made
  void setAttribute(std::string const& name, std::string const& value) override;

  /// One step of path resolution: the base's parts ("" and identifier
  /// queries) first, then an index part "N" or "$N" that names child N of
  /// the list. The index is read as decimal by strtol (characters after the
  /// digits are ignored: "12abc" is 12) and must be at least 0 and less
  /// than the number of children; what follows the next "$" is the rest.
  /// A bad or out-of-range index is written on the debug trace. Takes no
  /// lock.
  /// @param child out: the child named; empty on failure
  /// @param rest out: the text after the first "$" of the part; empty on
  ///        failure
  /// @param partInfo in and out: gains "$" and the index text read, also
  ///        when the index is then found out of range
  /// @param path the remaining path at this folder
  /// @param query handed to the base step only
  /// @return 0 on success (or the base's result when it resolved the part),
  ///         -2 for an empty, unreadable, overflowing or out-of-range index
  /// @throws boost::bad_weak_ptr for "" if the folder has no shared owner
  /// @throws std::bad_alloc when memory runs out
  int resolvePathPart(boost::shared_ptr<VfsEntry>& child, std::string& rest, std::string& partInfo,
                      std::string path, std::string query) override;

  /// A sorted iterator over a private copy of the children, unaffected by
  /// later changes of the folder. "+dc:title" sorts by caption ascending,
  /// "-dc:title" descending, anything else (the empty text too) by date
  /// (ItemInfo::getDateNumeric()), newest first. Captions compare byte-wise:
  /// no locale, no case folding ("B" before "a"), and the caption, not the
  /// title. Equal keys keep their list order; children without item (and
  /// empty pointers) come last, in list order. Positions count in the
  /// sorted order. Takes no lock. Only fixed folders have it: it is not a
  /// member of VfsEntry.
  /// @param criteria "+dc:title", "-dc:title" or anything else, compared
  ///        exactly
  /// @return a SharedVectorIterator at the first child of the sorted copy
  /// @throws std::bad_alloc when memory runs out; the folder is unchanged
  /// @throws boost::bad_weak_ptr if the folder has no shared owner
  virtual boost::shared_ptr<VfsIterator> getSortedIterator(std::string const& criteria);

  /// Appends `entry` to the children, unchecked (empty pointers, duplicates
  /// and the folder itself included). Its position in the list is its name
  /// in paths. Holds the folder's lock.
  /// @param entry the child to append
  /// @return always 0
  /// @throws std::bad_alloc when the list cannot grow; the list is then
  ///         unchanged
  int addEntry(boost::shared_ptr<VfsEntry> entry);

  /// @name Lookup by caption or identifier
  /// Direct children only, first match in list order; the folder's lock is
  /// held. REQUIRES: every child has an item.
  //@{
  /// The first child whose item's caption equals `caption` byte for byte
  /// (no trimming, no case folding). Throws nothing of its own.
  /// @param caption the caption looked for
  /// @return the child, or an empty pointer
  boost::shared_ptr<VfsEntry> findEntry(std::string const& caption);
  /// The first child whose item's identifier equals `uuid` byte for byte.
  /// The lookup by identifier that works in a fixed folder (findUuid() does
  /// not). Throws nothing of its own.
  /// @param uuid the identifier looked for
  /// @return the child, or an empty pointer
  boost::shared_ptr<VfsEntry> findEntrybyUUID(std::string const& uuid);
  //@}

  /// @name Removal
  /// Matching is by the items' texts, never by pointer: `entry` only
  /// supplies the text looked for. The others keep their order; the
  /// folder's lock is held; a removed child lives on while someone else
  /// holds it. REQUIRES: `entry` and every child have an item.
  //@{
  /// Removes the first child whose item's caption equals that of `entry`'s
  /// item.
  /// @param entry supplies the caption
  /// @return always 0, match or not
  /// @throws std::bad_alloc if the caption cannot be copied; the list is
  ///         then unchanged
  int removeEntry(boost::shared_ptr<VfsEntry> entry);
  /// Removes the first child whose item's identifier equals that of
  /// `entry`'s item, tracing the children passed over (level 4000).
  /// @param entry supplies the identifier
  /// @return always 0, match or not
  /// @throws std::bad_alloc if the identifier cannot be copied; the list is
  ///         then unchanged
  int removeEntryByUUID(boost::shared_ptr<VfsEntry> entry);
  //@}
  /// Removes every child, in list order; the list keeps its storage. Holds
  /// the folder's lock. Throws nothing.
  /// @return always 0
  int removeAllEntries();

  /// @name Sort orders
  /// Whether `a` goes before `b`. An empty entry or one without item
  /// compares false both ways. Throw nothing of their own.
  //@{
  /// Caption ascending, byte-wise (the order of "+dc:title").
  /// @param a the first entry
  /// @param b the second entry
  /// @return true if `a`'s caption is less than `b`'s
  static bool compareCaptionInc(boost::shared_ptr<VfsEntry> a, boost::shared_ptr<VfsEntry> b);
  /// Caption descending, byte-wise (the order of "-dc:title").
  /// @param a the first entry
  /// @param b the second entry
  /// @return true if `a`'s caption is greater than `b`'s
  static bool compareCaptionDec(boost::shared_ptr<VfsEntry> a, boost::shared_ptr<VfsEntry> b);
  /// Date ascending, oldest first (no criteria text selects it).
  /// @param a the first entry
  /// @param b the second entry
  /// @return true if `a`'s getDateNumeric() is less than `b`'s
  static bool compareDateInc(boost::shared_ptr<VfsEntry> a, boost::shared_ptr<VfsEntry> b);
  /// Date descending, newest first (the order of any other criteria text).
  /// @param a the first entry
  /// @param b the second entry
  /// @return true if `a`'s getDateNumeric() is greater than `b`'s
  static bool compareDateDec(boost::shared_ptr<VfsEntry> a, boost::shared_ptr<VfsEntry> b);
  //@}

 private:
  boost::shared_ptr<ItemInfo> m_item;
  Children m_children;  ///< insertion order; guarded by the entry lock
};

}  // namespace ma

#endif  // MA_MDC_VFS_FIXED_H_
