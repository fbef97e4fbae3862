// ScopedMutexLock: holds a POSIX mutex for the duration of one operation.
#ifndef MA_VFS_SCOPED_MUTEX_LOCK_H_
#define MA_VFS_SCOPED_MUTEX_LOCK_H_

#include <pthread.h>

namespace ma {
namespace vfs_internal {

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

#endif  // MA_VFS_SCOPED_MUTEX_LOCK_H_
