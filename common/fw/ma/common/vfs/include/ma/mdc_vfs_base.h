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
/// Exceptions: the library throws none of its own and reports failures by
/// result and on the debug trace. What passes through is named at each
/// function: std::bad_alloc when memory runs out, boost::bad_weak_ptr from an
/// entry without a shared owner, boost::bad_function_call from an empty
/// callback, and whatever a subclass's override or a caller's callback
/// throws.
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
/// as a mere marker. Held by boost::shared_ptr; callers that know the kind
/// convert it back with boost::dynamic_pointer_cast.
class MA_COMMON_EXPORT VfsUserData : public boost::enable_shared_from_this<VfsUserData> {
 public:
  /// Virtual, so that the data is destroyed as its own kind through a base
  /// pointer. Throws nothing.
  virtual ~VfsUserData();
};

/// An abstract node of the tree. Concrete entries supply the item record, the
/// user data and the iterators; the base supplies the attribute map, path
/// resolution and lookup by identifier.
class MA_COMMON_EXPORT VfsEntry : public boost::enable_shared_from_this<VfsEntry> {
 public:
  /// An entry without attributes and without a shared owner yet: the creator
  /// puts it under a boost::shared_ptr. Throws nothing.
  VfsEntry();
  /// Not copyable: copying a pthread mutex is undefined.
  VfsEntry(VfsEntry const&) = delete;
  /// Not assignable, for the same reason.
  VfsEntry& operator=(VfsEntry const&) = delete;

  /// Destroys the mutex. Deliberately leaves the attribute map allocated: an
  /// entry that ever had an attribute set leaves its map behind. Throws
  /// nothing.
  virtual ~VfsEntry();

  /// An iterator over the children, in the entry's own order.
  /// The base throws nothing; an override may (see
  /// VfsFixedFolder::getIterator()).
  /// @return the iterator, or an empty pointer when the entry has no
  ///         children to offer (the base: always empty)
  virtual boost::shared_ptr<VfsIterator> getIterator();

  /// An iterator over the children that match `search` and `filter`, ordered
  /// by `order`. The criteria's texts mean what the concrete entry makes of
  /// them; the fixed tree ignores them and offers no such iterator. What it
  /// throws is the implementation's.
  /// @param search the children wanted
  /// @param order the order wanted
  /// @param filter the children to leave out
  /// @return the iterator, or an empty pointer when the entry offers none
  virtual boost::shared_ptr<VfsIterator> getIterator(VfsSearchCriteria const& search,
                                                     VfsOrderCriteria const& order,
                                                     VfsFilterCriteria const& filter) = 0;

  /// The item record that describes this entry: its caption, identifier and
  /// metadata.
  /// @return the record, shared (not a copy); may be empty
  virtual boost::shared_ptr<ItemInfo> getItemInfo() = 0;

  /// The caller's data hung on this entry, such as the recorder's
  /// VfsUserDataDR. Subclasses must override it; the base's body,
  /// VfsEntry::getUserData(), answers an empty pointer.
  /// @return the data, shared; may be empty
  virtual boost::shared_ptr<VfsUserData> getUserData() = 0;

  /// Whether the entry has children to iterate, i.e. is a folder.
  /// @return true when getIterator() yields an iterator (the base: false;
  ///         a fixed folder: true, even when empty)
  virtual bool hasIterator();

  /// Whether an attribute was ever set under `name`. Keys compare byte-wise
  /// and case-sensitively. Takes the entry's lock; never creates the map.
  /// @param name the attribute's key
  /// @return true if setAttribute() stored a value (the empty one too)
  ///         under `name`
  virtual bool hasAttribute(std::string const& name);

  /// The value stored under `name`. Takes the entry's lock; never creates
  /// the map.
  /// @param name the attribute's key, compared byte-wise
  /// @return a copy of the value, or "" if none was ever set
  /// @throws std::bad_alloc if the copy cannot be made
  virtual std::string getAttribute(std::string const& name);

  /// Stores `value` under `name`, replacing an earlier value, and creates
  /// the map on first use. Takes NO lock: callers set attributes before the
  /// entry is shared between threads.
  /// @param name the attribute's key, kept as given
  /// @param value the value, kept as given (the empty one too)
  /// @throws std::bad_alloc if the map or its element cannot be made; the
  ///         attributes are then unchanged, except for a map already made
  virtual void setAttribute(std::string const& name, std::string const& value);

  /// One step of path resolution: resolves the first part of `path` against
  /// this entry. resolvePath() calls it once per part on the entry reached
  /// so far; an override defines the entry's own path syntax and should try
  /// the base first. The base resolves "" to this entry and "UUID..." to the
  /// direct child of that identifier (findUuid() with the whole part), and
  /// declines anything else with -38.
  /// @param child out: the entry the part names; must be non-empty on
  ///        success (the base resets it on failure)
  /// @param rest out: what remains of `path` after the part; "" ends the
  ///        walk at `child`
  /// @param resolvedPath in and out: the path text resolved so far, the same
  ///        string for every step of one walk; a step may append its own part
  ///        (the base leaves it alone)
  /// @param path the remaining path at this entry
  /// @param query passed unchanged from resolvePath() to every step (the
  ///        base ignores it)
  /// @return 0 or more on success, a negative number on failure (the base:
  ///         -38, the part is not understood)
  /// @throws boost::bad_weak_ptr for "" on an entry without a shared owner
  /// @throws std::bad_alloc for an identifier query when memory runs out;
  ///         what the entry's iterator throws passes through findUuid()
  virtual int resolvePathPart(boost::shared_ptr<VfsEntry>& child, std::string& rest,
                              std::string& resolvedPath, std::string path, std::string query);

  /// The entry that `path` names below this one, resolved part by part
  /// through resolvePathPart(). A failure is written on the debug trace;
  /// what a step throws passes through.
  /// REQUIRES: every step consumes at least one character or ends the walk.
  /// @param path the path, e.g. "$2$0" on a fixed folder; "" names this
  ///        entry
  /// @return the entry named, or an empty pointer if a step fails
  /// @throws boost::bad_weak_ptr if this entry has no shared owner
  /// @throws std::bad_alloc when memory runs out
  boost::shared_ptr<VfsEntry> resolvePath(std::string path);

  /// The entry that `path` names below this one, with the details of the
  /// walk. A failure is written on the debug trace; what a step throws
  /// passes through.
  /// REQUIRES: every step consumes at least one character or ends the walk.
  /// @param result out: on success the entry named; untouched on failure
  /// @param resultPath out: on success the resolved-path text as it stood
  ///        when the walk reached `parent` ("" when `parent` is this entry
  ///        or `path` is ""); untouched on failure
  /// @param parent out: written at every step of the walk with the entry
  ///        the walk leaves. On success the entry whose step produced
  ///        `result` (empty for ""); on failure, or when a step throws, the
  ///        entry from which the failing one was reached, or untouched if
  ///        the first step failed or threw
  /// @param path the path; "" names this entry
  /// @param query handed unchanged to every step
  /// @return 0 on success, -2 if the path is not resolved
  /// @throws boost::bad_weak_ptr if this entry has no shared owner
  /// @throws std::bad_alloc when memory runs out
  int resolvePath(boost::shared_ptr<VfsEntry>& result, std::string& resultPath,
                  boost::shared_ptr<VfsEntry>& parent, std::string path, std::string query);

  /// The first direct child whose item identifier equals `uuid`, in the
  /// order of a fresh iterator from the criteria getIterator() (empty
  /// criteria). Children without item are passed over; sub-folders are not
  /// searched. Blocks in the iterator's synchronous twins. A fixed folder
  /// offers no criteria iterator, so this finds nothing there: use
  /// VfsFixedFolder::findEntrybyUUID(). What the entry's iterator throws
  /// passes through.
  /// @param uuid the identifier, compared byte for byte (no trimming, no
  ///        case folding)
  /// @return the child, or an empty pointer (no iterator, no match)
  /// @throws std::bad_alloc when memory runs out
  boost::shared_ptr<VfsEntry> findUuid(std::string const& uuid);

 protected:
  /// The mutex of `entry`, for subclasses (and their iterators) that guard
  /// their own state with the entry's lock. Error-checking: a relock by the
  /// holding thread fails instead of deadlocking. Throws nothing.
  /// @param entry the entry whose mutex is wanted
  /// @return its mutex, valid while `entry` lives
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
  /// Converts implicitly; a copy shares the entry and nothing else. Throws
  /// nothing.
  /// @param entry the entry whose children are iterated
  VfsIterator(boost::shared_ptr<VfsEntry> entry);
  /// Releases the entry. Pure, with a body: every concrete iterator defines
  /// its own destructor.
  virtual ~VfsIterator() = 0;

  /// Delivers the number of children the iterator covers.
  /// @param done called once with the count
  /// @throws boost::bad_function_call if `done` is empty; other exceptions
  ///         are the implementation's or `done`'s own
  virtual void getNTotal(IntCallback done) = 0;
  /// Moves to the first child.
  /// @param done called once with a status or position of the
  ///        implementation's choosing (the fixed tree: 0)
  /// @throws boost::bad_function_call if `done` is empty; other exceptions
  ///         are the implementation's or `done`'s own
  virtual void rewind(IntCallback done) = 0;
  /// Moves to the next child.
  /// @param done called once with a status or position of the
  ///        implementation's choosing (the fixed tree: the new position)
  /// @throws boost::bad_function_call if `done` is empty; other exceptions
  ///         are the implementation's or `done`'s own
  virtual void advance(IntCallback done) = 0;
  /// Moves to the child at `position`.
  /// @param position the position wanted, passed on unchanged; what a
  ///        position below 1 or past the end means is the implementation's
  /// @param done called once with a status or position of the
  ///        implementation's choosing (the fixed tree: the new position)
  /// @throws boost::bad_function_call if `done` is empty; other exceptions
  ///         are the implementation's or `done`'s own
  virtual void seekTo(int position, IntCallback done) = 0;
  /// Delivers the child at the current position.
  /// @param done called once with the child, or an empty pointer once the
  ///        iterator stands past its last child
  /// @throws boost::bad_function_call if `done` is empty; other exceptions
  ///         are the implementation's or `done`'s own
  virtual void getCurrentChild(EntryCallback done) = 0;
  /// Delivers a path text for the current child, built from `path`.
  /// @param path the path of the iterated entry; how it is used is the
  ///        implementation's (the fixed tree appends "$" and the position)
  /// @param done called once with the path text
  /// @throws boost::bad_function_call if `done` is empty; other exceptions
  ///         are the implementation's or `done`'s own
  virtual void getCurrentChildPath(std::string path, PathCallback done) = 0;

  /// @name Synchronous twins
  /// Each calls the asynchronous operation of the same name and blocks on a
  /// semaphore until its callback has delivered (for ever if it never
  /// does); it holds no lock while it waits. If the wait ends early (a
  /// signal), the result is the initial value (0, "", an empty pointer)
  /// unless the callback already ran. Each lets std::bad_alloc and what the
  /// asynchronous operation throws pass through, before waiting.
  //@{
  /// Blocks until getNTotal(IntCallback) delivered the count.
  /// @return the number of children the iterator covers
  int getNTotal();
  /// Blocks until rewind(IntCallback) moved to the first child.
  /// @return the status or position delivered (the fixed tree: 0)
  int rewind();
  /// Blocks until advance(IntCallback) moved to the next child.
  /// @return the status or position delivered (the fixed tree: the new
  ///         position)
  int advance();
  /// Blocks until seekTo(int, IntCallback) moved to `position`.
  /// @param position the position wanted, passed on unchanged
  /// @return the status or position delivered (the fixed tree: the new
  ///         position, 0 for any position below 1)
  int seekTo(int position);
  /// Blocks until getCurrentChild(EntryCallback) delivered the child.
  /// @return the current child, or an empty pointer past the last one
  boost::shared_ptr<VfsEntry> getCurrentChild();
  /// Blocks until getCurrentChildPath(std::string, PathCallback) delivered
  /// the path.
  /// @param path the path of the iterated entry, passed on as a copy
  /// @return the current child's path text (the fixed tree: `path` + "$" +
  ///         the position)
  std::string getCurrentChildPath(std::string path);
  //@}

 protected:
  /// The entry whose children are iterated, for implementations. Throws
  /// nothing.
  /// @return the entry given to the constructor
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
  /// Throws nothing.
  TemplateSyncFunctorData();
  /// Not copyable: copying a POSIX semaphore is undefined.
  TemplateSyncFunctorData(TemplateSyncFunctorData const&) = delete;
  /// Not assignable, for the same reason.
  TemplateSyncFunctorData& operator=(TemplateSyncFunctorData const&) = delete;
  /// Destroys the semaphore and the value, on the thread that drops the
  /// last reference. Throws nothing.
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
  /// A callback that fills `data`, which it shares. Throws nothing.
  /// @param data the rendezvous of one synchronous call; must not be empty
  explicit TemplateSyncFunctor(boost::shared_ptr<TemplateSyncFunctorData<T> > data);

  /// Delivers a result: stores `value` (a later call overwrites it) and
  /// posts the semaphore. Throws nothing.
  /// @param value the result, moved into the rendezvous
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
