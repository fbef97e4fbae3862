// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// What the two halves of the VFS share internally: result codes and the
// scoped lock.
#ifndef MA_VFS_VFS_INTERNAL_H_
#define MA_VFS_VFS_INTERNAL_H_

#include <pthread.h>

namespace ma {
namespace vfs_internal {

// A path step does not understand the part (ENOSYS).
const int kPartNotUnderstood = -38;
// A path or path part could not be resolved (ENOENT).
const int kPathNotResolved = -2;

// Locks `mutex` on construction and unlocks it on destruction. The lock's
// result is not treated as an error: on an error-checking mutex that this
// thread already holds, the lock fails and the scope runs without it. Such a
// scope then does not unlock either, so the outer scope keeps its lock until
// it ends (an unconditional unlock would release it early).
class ScopedMutexLock {
 public:
  explicit ScopedMutexLock(pthread_mutex_t& mutex)
      : m_mutex(mutex), m_held(pthread_mutex_lock(&mutex) == 0) {}
  ScopedMutexLock(ScopedMutexLock const&) = delete;
  ScopedMutexLock& operator=(ScopedMutexLock const&) = delete;
  ~ScopedMutexLock() {
    if (m_held) pthread_mutex_unlock(&m_mutex);
  }

 private:
  pthread_mutex_t& m_mutex;
  bool m_held;  // whether this scope took the lock
};

}  // namespace vfs_internal
}  // namespace ma

#endif  // MA_VFS_VFS_INTERNAL_H_
