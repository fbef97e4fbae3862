// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Watchdog: fails a test that hangs instead of letting it hang CI.
//
// While a Watchdog lives, a thread of its own waits for it to be destroyed;
// if `limit` passes first, it writes the test's name and the limit on stderr
// and aborts the whole program, which the test runner reports as a
// failure. Meant for tests whose failure mode is a deadlock.
//
// Thread-safety: create and destroy it on one thread; it watches them all.
#ifndef MA_TEST_WATCHDOG_H_
#define MA_TEST_WATCHDOG_H_

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <thread>

namespace ma_test {

class Watchdog {
 public:
  Watchdog(std::string name, std::chrono::seconds limit)
      : m_name(std::move(name)), m_thread([this, limit] { watch(limit); }) {}
  ~Watchdog() {
    {
      std::lock_guard<std::mutex> lock(m_mutex);
      m_done = true;
    }
    m_finished.notify_one();
    m_thread.join();
  }
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

 private:
  void watch(std::chrono::seconds limit) {
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_finished.wait_for(lock, limit, [this] { return m_done; })) return;
    std::fprintf(stderr, "watchdog: %s did not finish within %lld s: aborting\n", m_name.c_str(),
                 static_cast<long long>(limit.count()));
    std::fflush(stderr);
    std::abort();
  }

  std::string m_name;
  std::mutex m_mutex;
  std::condition_variable m_finished;
  bool m_done = false;
  std::thread m_thread;  // last: starts once the members above exist
};

}  // namespace ma_test

#endif  // MA_TEST_WATCHDOG_H_
