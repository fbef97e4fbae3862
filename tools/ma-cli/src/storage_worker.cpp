// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// One thread, one queue of jobs.
#include "storage_worker.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace ma_cli {

namespace {

class StorageWorker {
 public:
  StorageWorker() : thread_([this] { run(); }) {}

  // Lets the jobs already posted finish, then ends the thread.
  ~StorageWorker() {
    {
      std::lock_guard<std::mutex> lock(mutex_);
      stopping_ = true;
    }
    wake_.notify_one();
    thread_.join();
  }

  void post(std::function<void()> job) {
    {
      std::lock_guard<std::mutex> lock(mutex_);
      jobs_.push_back(std::move(job));
    }
    wake_.notify_one();
  }

 private:
  void run() {
    std::unique_lock<std::mutex> lock(mutex_);
    for (;;) {
      wake_.wait(lock, [this] { return stopping_ || !jobs_.empty(); });
      if (jobs_.empty()) return;  // stopping, nothing left
      std::function<void()> job = std::move(jobs_.front());
      jobs_.pop_front();
      lock.unlock();
      job();
      job = nullptr;  // whatever the job held is released on this thread, unlocked
      lock.lock();
    }
  }

  std::mutex mutex_;
  std::condition_variable wake_;
  std::deque<std::function<void()> > jobs_;
  bool stopping_ = false;
  std::thread thread_;  // last: starts once the members above exist
};

}  // namespace

void postToStorageWorker(std::function<void()> job) {
  static StorageWorker worker;
  worker.post(std::move(job));
}

}  // namespace ma_cli
