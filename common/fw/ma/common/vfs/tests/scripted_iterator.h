// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Iterators written for the bridge tests: one that answers at once (once or
// twice), and one that hands every callback to a worker thread which
// answers later.
#ifndef MA_VFS_TESTS_SCRIPTED_ITERATOR_H_
#define MA_VFS_TESTS_SCRIPTED_ITERATOR_H_

#include <boost/shared_ptr.hpp>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "ma/mdc_vfs_base.h"

namespace vfs_test {

// Answers every operation inside the call, `repeat` times, with the values
// set below; records each call and its arguments.
class InlineIterator : public ma::VfsIterator {
 public:
  explicit InlineIterator(int repeat = 1)
      : ma::VfsIterator(boost::shared_ptr<ma::VfsEntry>()), m_repeat(repeat) {}
  ~InlineIterator() override {}

  using ma::VfsIterator::advance;
  using ma::VfsIterator::getCurrentChild;
  using ma::VfsIterator::getCurrentChildPath;
  using ma::VfsIterator::getNTotal;
  using ma::VfsIterator::rewind;
  using ma::VfsIterator::seekTo;

  void getNTotal(IntCallback done) override { answer("getNTotal", done, number); }
  void rewind(IntCallback done) override { answer("rewind", done, number); }
  void advance(IntCallback done) override { answer("advance", done, number); }
  void seekTo(int position, IntCallback done) override {
    answer("seekTo(" + std::to_string(position) + ")", done, number);
  }
  void getCurrentChild(EntryCallback done) override { answer("getCurrentChild", done, child); }
  void getCurrentChildPath(std::string path, PathCallback done) override {
    answer("getCurrentChildPath(" + path + ")", done, path + suffix);
  }

  // What each delivery sends; with repeat > 1 the k-th delivery (from 0)
  // adds k to `number`.
  int number = 0;
  boost::shared_ptr<ma::VfsEntry> child;
  std::string suffix;
  std::vector<std::string> calls;

 private:
  template <typename Callback, typename Value>
  void answer(std::string const& call, Callback& done, Value const& value) {
    calls.push_back(call);
    for (int k = 0; k < m_repeat; ++k) done(next(value, k));
  }
  static int next(int value, int k) { return value + k; }
  template <typename Value>
  static Value const& next(Value const& value, int) {
    return value;
  }

  const int m_repeat;
};

// A worker thread that runs queued tasks in order until it is destroyed.
class Worker {
 public:
  Worker() : m_thread([this] { run(); }) {}
  ~Worker() {
    post(std::function<void()>());
    m_thread.join();
  }

  void post(std::function<void()> task) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_tasks.push_back(std::move(task));
    m_ready.notify_one();
  }

 private:
  void run() {
    for (;;) {
      std::function<void()> task;
      {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_ready.wait(lock, [this] { return !m_tasks.empty(); });
        task = std::move(m_tasks.front());
        m_tasks.pop_front();
      }
      if (!task) return;
      task();
    }
  }

  std::mutex m_mutex;
  std::condition_variable m_ready;
  std::deque<std::function<void()> > m_tasks;
  std::thread m_thread;
};

// Answers nothing inside the call: each operation hands a task that calls
// its callback (keeping a copy of it) to `schedule`, which decides when, on
// which thread and how often the task runs, and when it is dropped.
class DeferredIterator : public ma::VfsIterator {
 public:
  typedef std::function<void()> Task;
  typedef std::function<void(Task)> Scheduler;

  explicit DeferredIterator(Scheduler schedule)
      : ma::VfsIterator(boost::shared_ptr<ma::VfsEntry>()), m_schedule(std::move(schedule)) {}
  ~DeferredIterator() override {}

  using ma::VfsIterator::advance;
  using ma::VfsIterator::getCurrentChild;
  using ma::VfsIterator::getCurrentChildPath;
  using ma::VfsIterator::getNTotal;
  using ma::VfsIterator::rewind;
  using ma::VfsIterator::seekTo;

  void getNTotal(IntCallback done) override { deliver(done, number); }
  void rewind(IntCallback done) override { deliver(done, number); }
  void advance(IntCallback done) override { deliver(done, number); }
  void seekTo(int position, IntCallback done) override { deliver(done, position); }
  void getCurrentChild(EntryCallback done) override { deliver(done, child); }
  void getCurrentChildPath(std::string path, PathCallback done) override {
    deliver(done, path + suffix);
  }

  // What the deliveries send (seekTo sends its position).
  int number = 0;
  boost::shared_ptr<ma::VfsEntry> child;
  std::string suffix;

 private:
  template <typename Callback, typename Value>
  void deliver(Callback const& done, Value const& value) {
    m_schedule([done, value] { done(value); });
  }

  Scheduler m_schedule;
};

}  // namespace vfs_test

#endif  // MA_VFS_TESTS_SCRIPTED_ITERATOR_H_
