// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The VFS core: criteria, entries and their attributes, the iterator's
// synchronous bridge, path resolution, lookup by identifier, and the
// recorder's user data.
#include "ma/mdc_vfs_base.h"

#include <cctype>
#include <cstring>
#include <utility>

#include <boost/make_shared.hpp>

#include "ma/mdc_vfs_criteria.h"
#include "ma/mdc_vfs_user_data_dr.h"
#include "ma_internal/trace.h"
#include "vfs_internal.h"

namespace ma {

using trace::kVfsCalls;
using trace::kVfsFailures;
using trace::kVfsQueries;
using vfs_internal::kPartNotUnderstood;
using vfs_internal::kPathNotResolved;
using vfs_internal::ScopedMutexLock;

// ---------------------------------------------------------------------------
// Criteria

VfsSearchCriteria::SingleCriterium::SingleCriterium(std::string const& property,
                                                    std::string const& relation,
                                                    std::string const& value)
    : m_property(property), m_relation(relation), m_value(value) {}

void VfsSearchCriteria::add(SingleCriterium const& criterium) { m_criteria.push_back(criterium); }

VfsFilterCriteria::SingleCriterium::SingleCriterium(std::string const& filter) : m_filter(filter) {}

void VfsFilterCriteria::add(SingleCriterium const& criterium) { m_criteria.push_back(criterium); }

// ---------------------------------------------------------------------------
// User data

VfsUserData::~VfsUserData() {}

// ---------------------------------------------------------------------------
// Entry and attributes

VfsEntry::VfsEntry() : m_attributes(nullptr) {
  pthread_mutexattr_t kind;
  pthread_mutexattr_init(&kind);
  pthread_mutexattr_settype(&kind, PTHREAD_MUTEX_ERRORCHECK);
  pthread_mutex_init(&m_mutex, &kind);
  pthread_mutexattr_destroy(&kind);
}

VfsEntry::~VfsEntry() {
  pthread_mutex_destroy(&m_mutex);
  // m_attributes is deliberately not freed: the base's destruction leaves the
  // map behind, as it always has; leak checks suppress exactly this block.
}

boost::shared_ptr<VfsIterator> VfsEntry::getIterator() { return boost::shared_ptr<VfsIterator>(); }

boost::shared_ptr<VfsUserData> VfsEntry::getUserData() { return boost::shared_ptr<VfsUserData>(); }

bool VfsEntry::hasIterator() { return false; }

bool VfsEntry::hasAttribute(std::string const& name) {
  ScopedMutexLock lock(m_mutex);
  return m_attributes != nullptr && m_attributes->find(name) != m_attributes->end();
}

std::string VfsEntry::getAttribute(std::string const& name) {
  ScopedMutexLock lock(m_mutex);
  if (m_attributes == nullptr) return std::string();
  std::map<std::string, std::string>::const_iterator found = m_attributes->find(name);
  return found == m_attributes->end() ? std::string() : found->second;
}

void VfsEntry::setAttribute(std::string const& name, std::string const& value) {
  // No lock, unlike the readers: callers set attributes before sharing.
  if (m_attributes == nullptr) m_attributes = new std::map<std::string, std::string>();
  (*m_attributes)[name] = value;
}

// ---------------------------------------------------------------------------
// Path resolution

int VfsEntry::resolvePathPart(boost::shared_ptr<VfsEntry>& child, std::string& rest,
                              std::string& /*resolvedPath*/, std::string path,
                              std::string /*query*/) {
  if (path.empty()) {
    rest.clear();
    child = shared_from_this();
    return 0;
  }
  // A part that starts with a letter is a query. The byte is classified as
  // an unsigned char, so bytes above 127 are never letters in the C locale.
  if (std::isalpha(static_cast<unsigned char>(path[0]))) {
    MA_TRACE_AT(kVfsQueries, 367, __func__, "Found possible query: %s.\n", path.c_str());
    if (path.compare(0, 4, "UUID") == 0) {
      MA_TRACE_AT(kVfsQueries, 377, __func__, "Looking for uuid \"%s\".\n", path.c_str());
      boost::shared_ptr<VfsEntry> found = findUuid(path);
      if (found) {
        MA_TRACE_AT(kVfsQueries, 380, __func__, "Found uuid \"%s\".\n", path.c_str());
        rest.clear();
        child = found;
        return 0;
      }
    } else {
      MA_TRACE_AT(kVfsQueries, 371, __func__, "Unsupported query: %s.\n", path.c_str());
    }
  }
  rest.clear();
  child.reset();
  return kPartNotUnderstood;
}

namespace {

// What the five-argument resolvePath() reports beside the entry named: the
// entry whose step produced it and the resolved path as it stood when the
// walk reached that entry. The walk writes `parent` at every step, so that
// a step that throws leaves it naming the entry the current one was reached
// from. The one-argument form reports neither, so its walk keeps neither
// (no copy of the resolved path per level).
struct WalkTrail {
  boost::shared_ptr<VfsEntry>& parent;
  std::string& resultPath;
};

// The walk of both resolvePath() forms from `current` (the starting entry,
// already shared), one step per part; `trail` is null when the caller does
// not want it. Returns 0 with `result` set, or kPathNotResolved.
int walkPath(boost::shared_ptr<VfsEntry> current, std::string const& path,
             std::string const& query, boost::shared_ptr<VfsEntry>& result, WalkTrail* trail) {
  if (path.empty()) {
    result = std::move(current);
    if (trail != nullptr) {
      trail->resultPath.clear();
      trail->parent.reset();
    }
    return 0;
  }
  // The remaining path is `path` itself until the first step leaves a rest;
  // the steps take it by value, so it is not copied here. After that it is
  // the previous step's rest: two buffers take turns as the remaining path
  // and the next step's rest (each keeps its storage for the whole walk).
  std::string buffers[2];
  std::string const* remaining = &path;
  std::string* rest = &buffers[0];
  std::string resolvedPath;  // what the steps append, shared by the whole walk
  std::string parentPath;    // resolvedPath as it stood when `current` was reached
  if (path.size() >= 16) {   // past the short-string buffer: grow once, not per step
    resolvedPath.reserve(2 * path.size());
    if (trail != nullptr) parentPath.reserve(2 * path.size());
  }
  for (;;) {
    MA_TRACE_AT(kVfsCalls, 240, "resolvePath", "Resolving path part \"%s\" childTotal = \"%s\"... \n",
                remaining->c_str(), resolvedPath.c_str());
    // Fresh outputs for every step, so that a step which leaves them alone
    // fails (no child) or ends the walk (no rest) instead of looping.
    boost::shared_ptr<VfsEntry> child;
    rest->clear();
    const int status = current->resolvePathPart(child, *rest, resolvedPath, *remaining, query);
    if (status < 0 || !child) {
      MA_TRACE_AT(kVfsFailures, 246, "resolvePath",
                  "Lookup of \"%s\" failed with currPath \"%s\" (%d).\n", path.c_str(),
                  remaining->c_str(), status);
      // `parent` already names the entry `current` was reached from (the
      // caller's value when the first step failed).
      return kPathNotResolved;
    }
    if (rest->empty()) {
      result = std::move(child);
      if (trail != nullptr) {
        trail->resultPath = std::move(parentPath);
        trail->parent = std::move(current);
      }
      return 0;
    }
    if (trail != nullptr) {
      // The caller's `parent` takes the entry left behind (moved, not
      // copied) before anything that may throw: the copy below, the next step.
      trail->parent = std::move(current);
      parentPath = resolvedPath;
    }
    current = std::move(child);
    remaining = rest;
    rest = rest == &buffers[0] ? &buffers[1] : &buffers[0];
  }
}

}  // namespace

boost::shared_ptr<VfsEntry> VfsEntry::resolvePath(std::string path) {
  // The same walk as the five-argument form with an empty query, without
  // the parent and its path, which this form does not report.
  boost::shared_ptr<VfsEntry> result;
  if (walkPath(shared_from_this(), path, std::string(), result, nullptr) < 0) result.reset();
  return result;
}

int VfsEntry::resolvePath(boost::shared_ptr<VfsEntry>& result, std::string& resultPath,
                          boost::shared_ptr<VfsEntry>& parent, std::string path,
                          std::string query) {
  WalkTrail trail = {parent, resultPath};
  return walkPath(shared_from_this(), path, query, result, &trail);
}

// ---------------------------------------------------------------------------
// Lookup by identifier

boost::shared_ptr<VfsEntry> VfsEntry::findUuid(std::string const& uuid) {
  if (!hasIterator()) return boost::shared_ptr<VfsEntry>();
  MA_TRACE_AT(kVfsCalls, 291, __func__, "We have an iterator.\n");
  boost::shared_ptr<VfsIterator> iterator =
      getIterator(VfsSearchCriteria(), VfsOrderCriteria(), VfsFilterCriteria());
  if (!iterator) return boost::shared_ptr<VfsEntry>();
  MA_TRACE_AT(kVfsCalls, 313, __func__, "We got the iterator.\n");
  // A fresh iterator stands on its first child: no rewind.
  for (;;) {
    boost::shared_ptr<VfsEntry> child = iterator->getCurrentChild();
    if (!child) {
      MA_TRACE_AT(kVfsCalls, 317, __func__, "No current child.\n");
      return child;
    }
    boost::shared_ptr<ItemInfo> item = child->getItemInfo();
    if (item) {
      std::string const& candidate = item->getUUID();
      MA_TRACE_AT(kVfsCalls, 325, __func__, "Checking cand uuid \"%s\" against \"%s\".\n",
                  candidate.c_str(), uuid.c_str());
      if (candidate == uuid) {
        MA_TRACE_AT(kVfsCalls, 329, __func__, "Found match cand uuid \"%s\" against \"%s\".\n",
                    candidate.c_str(), uuid.c_str());
        return child;
      }
    }
    iterator->advance();
  }
}

// ---------------------------------------------------------------------------
// Iterator and its synchronous bridge

template <typename T>
TemplateSyncFunctorData<T>::TemplateSyncFunctorData() : value() {
  MA_TRACE_AT(kVfsCalls, 52, __func__, "Init %p.\n", static_cast<void*>(&semaphore));
  sem_init(&semaphore, 0, 0);
}

template <typename T>
TemplateSyncFunctorData<T>::~TemplateSyncFunctorData() {
  MA_TRACE_AT(kVfsCalls, 56, __func__, "Destroy %p.\n", static_cast<void*>(&semaphore));
  sem_destroy(&semaphore);
}

template <typename T>
TemplateSyncFunctor<T>::TemplateSyncFunctor(boost::shared_ptr<TemplateSyncFunctorData<T> > data)
    : m_data(std::move(data)) {}

template <typename T>
void TemplateSyncFunctor<T>::operator()(T value) {
  m_data->value = std::move(value);
  MA_TRACE_AT(kVfsCalls, 67, __func__, "Post %p.\n", static_cast<void*>(&m_data->semaphore));
  sem_post(&m_data->semaphore);
}

template class TemplateSyncFunctorData<int>;
template class TemplateSyncFunctorData<std::string>;
template class TemplateSyncFunctorData<boost::shared_ptr<VfsEntry> >;
template class TemplateSyncFunctor<int>;
template class TemplateSyncFunctor<std::string>;
template class TemplateSyncFunctor<boost::shared_ptr<VfsEntry> >;

namespace {

// One synchronous call in progress: the rendezvous, from which callback()
// makes the function object the asynchronous operation is handed; then
// wait().
//
// Kept lean, since every browsing step makes one: the rendezvous and its
// shared owner's count live in one allocation, and the function object is
// built right in the operation's by-value parameter (no copy of it is made
// and dropped on the way).
template <typename T>
class SyncCall {
 public:
  SyncCall() : m_data(boost::make_shared<TemplateSyncFunctorData<T> >()) {}

  // A callback that fills this call's rendezvous.
  boost::function<void(T)> callback() const {
    return boost::function<void(T)>(TemplateSyncFunctor<T>(m_data));
  }

  void* semaphore() const { return &m_data->semaphore; }

  // Waits once for the delivery and answers the value as it then stands.
  // An early return of the wait (a signal) is deliberately not retried.
  // The value is copied out, or moved out when no copy of the callback
  // (kept by the implementation) can see the rendezvous any more.
  T wait() {
    sem_wait(&m_data->semaphore);
    if (m_data.use_count() == 1) return std::move(m_data->value);
    return m_data->value;
  }

 private:
  boost::shared_ptr<TemplateSyncFunctorData<T> > m_data;
};

}  // namespace

VfsIterator::VfsIterator(boost::shared_ptr<VfsEntry> entry) : m_entry(std::move(entry)) {}

VfsIterator::~VfsIterator() {}

int VfsIterator::getNTotal() {
  MA_TRACE_AT(kVfsCalls, 85, __func__, "Called.\n");
  SyncCall<int> call;
  getNTotal(call.callback());
  MA_TRACE_AT(kVfsCalls, 90, __func__, "Wait %p.\n", call.semaphore());
  const int total = call.wait();
  MA_TRACE_AT(kVfsCalls, 92, __func__, "Wait finished.\n");
  return total;
}

int VfsIterator::rewind() {
  SyncCall<int> call;
  rewind(call.callback());
  return call.wait();
}

int VfsIterator::advance() {
  SyncCall<int> call;
  advance(call.callback());
  return call.wait();
}

int VfsIterator::seekTo(int position) {
  SyncCall<int> call;
  seekTo(position, call.callback());
  return call.wait();
}

boost::shared_ptr<VfsEntry> VfsIterator::getCurrentChild() {
  SyncCall<boost::shared_ptr<VfsEntry> > call;
  getCurrentChild(call.callback());
  return call.wait();
}

std::string VfsIterator::getCurrentChildPath(std::string path) {
  SyncCall<std::string> call;
  getCurrentChildPath(path, call.callback());
  return call.wait();
}

}  // namespace ma

// ---------------------------------------------------------------------------
// Recorder user data

namespace {

using ma::vfs_internal::ScopedMutexLock;

template <typename T>
T readLocked(pthread_mutex_t& mutex, T const& field) {
  ScopedMutexLock lock(mutex);
  return field;
}

template <typename T>
void writeLocked(pthread_mutex_t& mutex, T& field, T value) {
  ScopedMutexLock lock(mutex);
  field = value;
}

}  // namespace

VfsUserDataDR::VfsUserDataDR(bool isRecording, long long streamBegin, long long streamEnd,
                             long long circularBegin, long long circularEnd, int encryption,
                             unsigned char* key)
    : m_isRecording(isRecording),
      m_streamBegin(streamBegin),
      m_streamEnd(streamEnd),
      m_circularBegin(circularBegin),
      m_circularEnd(circularEnd),
      m_encryption(encryption) {
  pthread_mutex_init(&m_mutex, nullptr);
  if (encryption != 0 && key != nullptr) std::memcpy(m_key, key, kKeySize);
}

VfsUserDataDR::~VfsUserDataDR() { pthread_mutex_destroy(&m_mutex); }

bool VfsUserDataDR::getIsRecording() { return readLocked(m_mutex, m_isRecording); }

void VfsUserDataDR::setIsRecording(bool isRecording) {
  writeLocked(m_mutex, m_isRecording, isRecording);
}

long long VfsUserDataDR::getStreamBegin() { return readLocked(m_mutex, m_streamBegin); }

void VfsUserDataDR::setStreamBegin(long long streamBegin) {
  writeLocked(m_mutex, m_streamBegin, streamBegin);
}

long long VfsUserDataDR::getStreamEnd() { return readLocked(m_mutex, m_streamEnd); }

void VfsUserDataDR::setStreamEnd(long long streamEnd) {
  writeLocked(m_mutex, m_streamEnd, streamEnd);
}

long long VfsUserDataDR::getCircularBegin() { return readLocked(m_mutex, m_circularBegin); }

void VfsUserDataDR::setCircularBegin(long long circularBegin) {
  writeLocked(m_mutex, m_circularBegin, circularBegin);
}

long long VfsUserDataDR::getCircularEnd() { return readLocked(m_mutex, m_circularEnd); }

void VfsUserDataDR::setCircularEnd(long long circularEnd) {
  writeLocked(m_mutex, m_circularEnd, circularEnd);
}

int VfsUserDataDR::getEncryption() { return readLocked(m_mutex, m_encryption); }

unsigned char* VfsUserDataDR::getKey() {
  // The lock orders nothing here: the key never changes after construction,
  // so the caller may read it after the lock is gone.
  ScopedMutexLock lock(m_mutex);
  return m_key;
}
