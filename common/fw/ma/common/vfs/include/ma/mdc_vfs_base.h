// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
/// @file
/// The core of the virtual file system (VFS): entries and their iterators.
///
/// A VfsEntry is one node of a browsable tree: a folder or a leaf, described
/// by an item record (ma::ItemInfo). Entries are always owned by
/// boost::shared_ptr; an entry finds its own shared pointer through
/// enable_shared_from_this, and the operations that need it (path resolution,
/// lookup by identifier, a folder's iterators) throw boost::bad_weak_ptr on an
/// entry that has no shared owner.
///
/// The children of an entry are reached through a VfsIterator. Its operations
/// are asynchronous: each delivers its result to a boost::function callback,
/// maybe before it returns, maybe later on another thread. Each has a blocking
/// synchronous twin that waits on a POSIX semaphore until the callback ran.
///
/// A path names an entry below another one. resolvePath() walks it one part
/// at a time, letting each entry reached resolve the next part through its
/// resolvePathPart(). The base step understands the empty part (the entry
/// itself) and identifier queries, parts that begin with "UUID", which name a
/// direct child by its item's identifier (findUuid()).
///
/// Thread-safety: each entry owns an error-checking POSIX mutex. The base
/// guards the attribute readers with it; subclasses may guard their own state
/// with it (see mutexOf()). The base attribute writer takes no lock: set
/// attributes before an entry is shared. Iterators are not synchronised: use
/// one iterator from one thread at a time.
#ifndef MA_MDC_VFS_BASE_H_
#define MA_MDC_VFS_BASE_H_

#include <pthread.h>
#include <semaphore.h>

#include <boost/enable_shared_from_this.hpp>
#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <map>
#include <string>

#include "ma/export.h"
#include "ma/mdc_item.h"
#include "ma/mdc_vfs_criteria.h"

namespace ma {

class VfsIterator;

/// The base of the opaque data a caller hangs on an entry (see
/// VfsEntry::getUserData()). It has no state; a plain VfsUserData may serve
/// as a mere marker.
class MA_COMMON_EXPORT VfsUserData : public boost::enable_shared_from_this<VfsUserData> {
 public:
  virtual ~VfsUserData();
};

/// An abstract node of the tree. Concrete entries supply the item record, the
/// user data and the iterators; the base supplies the attribute map, path
/// resolution and lookup by identifier.
class MA_COMMON_EXPORT VfsEntry : public boost::enable_shared_from_this<VfsEntry> {
 public:
  /// An entry without attributes and without a shared owner yet: the creator
  /// puts it under a boost::shared_ptr.
  VfsEntry();
  /// Not copyable: copying a pthread mutex is undefined.
  VfsEntry(VfsEntry const&) = delete;
  VfsEntry& operator=(VfsEntry const&) = delete;

  /// Destroys the mutex. Deliberately leaves the attribute map allocated: an
  /// entry that ever had an attribute set leaves its map behind.
  virtual ~VfsEntry();

  /// An iterator over the children, or an empty pointer (the base: no
  /// children).
  virtual boost::shared_ptr<VfsIterator> getIterator();

  /// An iterator over the children that match `search` and `filter`, ordered
  /// by `order`, or an empty pointer. The criteria's meaning is the entry's.
  virtual boost::shared_ptr<VfsIterator> getIterator(VfsSearchCriteria const& search,
                                                     VfsOrderCriteria const& order,
                                                     VfsFilterCriteria const& filter) = 0;

  /// The item record that describes this entry; may be empty.
  virtual boost::shared_ptr<ItemInfo> getItemInfo() = 0;

  /// The caller's data hung on this entry; may be empty. Subclasses must
  /// override it; VfsEntry::getUserData() answers an empty pointer.
  virtual boost::shared_ptr<VfsUserData> getUserData() = 0;

  /// Whether getIterator() yields children (the base: false).
  virtual bool hasIterator();

  /// Whether an attribute `name` was ever set. Keys compare byte-wise.
  /// Takes the entry's lock; never creates the map.
  virtual bool hasAttribute(std::string const& name);

  /// A copy of attribute `name`, or "" if it was never set. Takes the
  /// entry's lock; never creates the map.
  virtual std::string getAttribute(std::string const& name);

  /// Sets attribute `name` to `value`, creating the map on first use.
  /// Takes NO lock: callers set attributes before the entry is shared between
  /// threads.
  virtual void setAttribute(std::string const& name, std::string const& value);

  /// Resolves the first part of `path` against this entry: on success
  /// (result 0 or more) `child` is the entry the part names and `rest` what
  /// remains of `path` ("" ends the walk). A step may append its own part to
  /// `resolvedPath`, which the driver passes to every step of one walk;
  /// `query` passes through unchanged. A negative result is a failure.
  /// The base resolves "" to this entry and "UUID..." to the direct child of
  /// that identifier (findUuid(path)), and answers -38 to anything else.
  /// REQUIRES for "": the entry is owned by a shared pointer.
  virtual int resolvePathPart(boost::shared_ptr<VfsEntry>& child, std::string& rest,
                              std::string& resolvedPath, std::string path, std::string query);

  /// The entry named by `path` below this one ("" names this entry), or an
  /// empty pointer if a step fails.
  /// REQUIRES: the entry is owned by a shared pointer.
  boost::shared_ptr<VfsEntry> resolvePath(std::string path);

  /// As above, with the details: 0 on success, with `result` the entry named,
  /// `parent` the entry whose step produced it (empty for ""), `resultPath`
  /// the resolved-path text as it stood when the walk reached `parent`.
  /// -2 on failure, with `result` and `resultPath` untouched and `parent` the
  /// entry before the one that failed (untouched if the first step failed).
  /// `parent` is written at every step: a step that throws (the exception
  /// passes through) leaves it the same way.
  /// REQUIRES: the entry is owned by a shared pointer; every step consumes
  /// at least one character or ends the walk.
  int resolvePath(boost::shared_ptr<VfsEntry>& result, std::string& resultPath,
                  boost::shared_ptr<VfsEntry>& parent, std::string path, std::string query);

  /// The first direct child, in the order of a fresh iterator from the
  /// criteria getIterator(), whose item identifier equals `uuid` exactly, or
  /// an empty pointer. Children without item are passed over; sub-folders
  /// are not searched. Blocks in the iterator's synchronous twins.
  boost::shared_ptr<VfsEntry> findUuid(std::string const& uuid);

 protected:
  /// The mutex of `entry`, for subclasses (and their iterators) that guard
  /// their own state with the entry's lock. Error-checking: a relock by the
  /// holding thread fails instead of deadlocking.
  static pthread_mutex_t& mutexOf(VfsEntry& entry) { return entry.m_mutex; }

 private:
  pthread_mutex_t m_mutex;  ///< error-checking; guards *m_attributes for readers
  std::map<std::string, std::string>* m_attributes;  ///< null until the first set
};

/// Iterates over the children of one entry, which it keeps alive. Concrete
/// iterators implement the six asynchronous operations; every one must call
/// its callback exactly once, on any thread, before or after it returns.
/// The synchronous twins call the asynchronous operation and block until the
/// callback has run (for ever if it never does).
///
/// Thread-safety: none. An iterator is used from one thread at a time; its
/// callbacks may run on any thread.
class MA_COMMON_EXPORT VfsIterator {
 public:
  /// Receives a count, status or position.
  typedef boost::function<void(int)> IntCallback;
  /// Receives a child, or an empty pointer.
  typedef boost::function<void(boost::shared_ptr<VfsEntry>)> EntryCallback;
  /// Receives a path text.
  typedef boost::function<void(std::string)> PathCallback;

  /// An iterator over the children of `entry`, which it keeps alive.
  /// Converts implicitly; a copy shares the entry and nothing else.
  VfsIterator(boost::shared_ptr<VfsEntry> entry);
  virtual ~VfsIterator() = 0;

  /// Delivers the number of children the iterator covers.
  virtual void getNTotal(IntCallback done) = 0;
  /// Moves to the first child; delivers a status or position.
  virtual void rewind(IntCallback done) = 0;
  /// Moves to the next child; delivers a status or position.
  virtual void advance(IntCallback done) = 0;
  /// Moves to child `position`; delivers a status or position.
  virtual void seekTo(int position, IntCallback done) = 0;
  /// Delivers the current child, or an empty pointer past the last one.
  virtual void getCurrentChild(EntryCallback done) = 0;
  /// Delivers a path text for the current child, built from `path`.
  virtual void getCurrentChildPath(std::string path, PathCallback done) = 0;

  /// @name Synchronous twins
  //@{
  /// Synchronous twins: each calls the operation above and returns what its
  /// callback delivered. If the wait ends early (a signal), the result is the
  /// initial value (0, "", an empty pointer) unless the callback already ran.
  int getNTotal();
  int rewind();
  int advance();
  int seekTo(int position);
  boost::shared_ptr<VfsEntry> getCurrentChild();
  std::string getCurrentChildPath(std::string path);
  //@}

 protected:
  /// The entry whose children are iterated.
  boost::shared_ptr<VfsEntry> const& getEntry() const { return m_entry; }

 private:
  boost::shared_ptr<VfsEntry> m_entry;  ///< kept alive while the iterator lives
};

/// The rendezvous of one synchronous call: the slot the callback fills and the
/// semaphore it posts. Always held by a boost::shared_ptr, shared between the
/// waiting caller and every copy of the callback; it is destroyed (and its
/// semaphore with it) on the thread that drops the last reference.
/// Instantiated for int, std::string and boost::shared_ptr<VfsEntry>.
template <typename T>
class MA_COMMON_EXPORT TemplateSyncFunctorData {
 public:
  /// The value starts as 0, "" or an empty pointer; the semaphore at 0.
  TemplateSyncFunctorData();
  /// Not copyable: copying a POSIX semaphore is undefined.
  TemplateSyncFunctorData(TemplateSyncFunctorData const&) = delete;
  TemplateSyncFunctorData& operator=(TemplateSyncFunctorData const&) = delete;
  ~TemplateSyncFunctorData();

  T value;          ///< the delivered result
  sem_t semaphore;  ///< process-private; posted once per delivery
};

/// The callback of one synchronous call: stores the delivered value into the
/// shared rendezvous and posts its semaphore. Copyable; every copy shares the
/// same rendezvous.
template <typename T>
class MA_COMMON_EXPORT TemplateSyncFunctor {
 public:
  /// A callback that fills `data`, which it shares.
  explicit TemplateSyncFunctor(boost::shared_ptr<TemplateSyncFunctorData<T> > data);

  /// Stores `value` (a later call overwrites it) and posts the semaphore.
  void operator()(T value);

 private:
  boost::shared_ptr<TemplateSyncFunctorData<T> > m_data;
};

/// The library holds the only instantiations. They are exported here, at
/// their first declaration: boost::shared_ptr has hidden visibility in the
/// library's build and would otherwise hide the ones for entry pointers.
extern template class MA_COMMON_EXPORT TemplateSyncFunctorData<int>;
extern template class MA_COMMON_EXPORT TemplateSyncFunctorData<std::string>;
extern template class MA_COMMON_EXPORT TemplateSyncFunctorData<boost::shared_ptr<VfsEntry> >;
extern template class MA_COMMON_EXPORT TemplateSyncFunctor<int>;
extern template class MA_COMMON_EXPORT TemplateSyncFunctor<std::string>;
extern template class MA_COMMON_EXPORT TemplateSyncFunctor<boost::shared_ptr<VfsEntry> >;

}  // namespace ma

#endif  // MA_MDC_VFS_BASE_H_
