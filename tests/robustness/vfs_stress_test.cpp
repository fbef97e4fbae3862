// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Concurrency stress, meant for ThreadSanitizer above all: eight threads
// mixing every folder operation on one folder; readers and writers of one
// recorder user data; and the synchronous twins driven against an
// asynchronous iterator that calls back from a pool of worker threads, a
// million times in all.
//
// Every test is bounded in count (scaled down under the slow tools and
// longer with MA_TEST_LONG=1, see ma_test/run_length.h) and in time: a watchdog fails it rather than let a
// deadlock hang the test run. Each prints the operations it made.
//
// The folder test keeps to the folder's contract: adding and removing
// (which lock the folder) may overlap each other, walks, sorting and path
// resolution (which read the list without the lock) may overlap each
// other, and the lookups and attribute reads (which lock) may overlap
// anything. A gate in the test keeps changes and unlocked reads apart, as
// a caller must.
#include <gtest/gtest.h>

#include <atomic>
#include <boost/shared_ptr.hpp>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <memory>
#include <mutex>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "ma/mdc_vfs_fixed.h"
#include "ma/mdc_vfs_user_data_dr.h"
#include "ma_test/run_length.h"
#include "ma_test/watchdog.h"
#include "scripted_iterator.h"
#include "vfs_test_support.h"
#include "zel/zel_standin.h"

namespace {

using ma_test::runLength;
using ma_test::Watchdog;
using vfs_test::captionOf;
using vfs_test::DeferredIterator;
using vfs_test::EntryPtr;
using vfs_test::isMirrored;
using vfs_test::makeLeaf;
using vfs_test::mirrored;
using vfs_test::Worker;

// Far above the short forms' running time, and than the long forms' under
// ThreadSanitizer.
std::chrono::seconds watchdogLimit() {
  return std::chrono::seconds(ma_test::longRunRequested() ? 3600 : 400);
}

// Lets the threads of one group in together and keeps the groups apart:
// changers (add, remove) or readers (walks, sorting, paths), or one thread
// alone (remove everything). A group that waits stops the other from
// letting more threads in, so neither starves.
class PhaseGate {
 public:
  enum Group { kChangers = 0, kReaders = 1, kAlone = 2 };

  class Pass {
   public:
    Pass(PhaseGate& gate, Group group) : m_gate(gate) { gate.enter(group); }
    ~Pass() { m_gate.leave(); }
    Pass(const Pass&) = delete;
    Pass& operator=(const Pass&) = delete;

   private:
    PhaseGate& m_gate;
  };

 private:
  void enter(Group group) {
    std::unique_lock<std::mutex> lock(m_mutex);
    ++m_waiting[group];
    m_changed.wait(lock, [this, group] {
      if (m_inside == 0) return true;
      if (group == kAlone || m_group != group) return false;
      for (int other = 0; other < 3; ++other) {
        if (other != group && m_waiting[other] > 0) return false;
      }
      return true;
    });
    --m_waiting[group];
    m_group = group;
    ++m_inside;
  }

  void leave() {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (--m_inside == 0) m_changed.notify_all();
  }

  std::mutex m_mutex;
  std::condition_variable m_changed;
  Group m_group = kChangers;
  int m_inside = 0;
  int m_waiting[3] = {0, 0, 0};
};

// What the folder stress counts, by kind of operation.
struct Counts {
  std::atomic<long> adds{0}, removals{0}, clears{0}, lookups{0}, attributes{0}, walks{0},
      sortedWalks{0}, paths{0}, uuidQueries{0}, errors{0};
  long total() const {
    return adds + removals + clears + lookups + attributes + walks + sortedWalks + paths +
           uuidQueries;
  }
};

// One of the eight threads: adds and removes its own children (captions
// "t<thread>-<n>"), and checks every answer it gets against what it knows.
class FolderWorker {
 public:
  FolderWorker(int id, vfs_test::QueryableFolder& folder, PhaseGate& gate, Counts& counts,
               std::atomic<int>& epoch)
      : m_id(id), m_folder(folder), m_gate(gate), m_counts(counts), m_epoch(epoch), m_random(id) {}

  void run(long steps) {
    for (long step = 0; step < steps; ++step) {
      const unsigned choice = m_random() % 100;
      if (m_id == 0 && step == steps / 2) {
        clear();  // at least once, however short the run
      } else if (choice < 22) {
        if (m_mine.size() < 24) {
          add();
        } else {
          removeOne(choice % 2 == 0);
        }
      } else if (choice < 36) {
        removeOne(choice % 2 == 0);
      } else if (choice == 36 && m_id == 0) {
        clear();
      } else if (choice < 48) {
        lookUp();
      } else if (choice < 56) {
        readAttributes();
      } else if (choice < 70) {
        walk();
      } else if (choice < 82) {
        walkSorted(choice % 2 == 0 ? "+dc:title" : "");
      } else if (choice < 94) {
        resolve();
      } else {
        queryUuid();
      }
    }
  }

 private:
  void fail() { ++m_counts.errors; }

  // After a clear by any thread, nothing of this thread's is left.
  void catchUpWithClears() {
    if (m_epoch.load() != m_seenEpoch) {
      m_seenEpoch = m_epoch.load();
      m_mine.clear();
    }
  }

  void add() {
    PhaseGate::Pass pass(m_gate, PhaseGate::kChangers);
    catchUpWithClears();
    const std::string name = "t" + std::to_string(m_id) + "-" + std::to_string(m_next++);
    const EntryPtr entry = makeLeaf(name, "UUID-" + name, static_cast<long long>(m_random() % 50));
    if (m_folder.addEntry(entry) != 0) fail();
    if (m_folder.findEntrybyUUID("UUID-" + name) != entry) fail();
    m_mine.push_back(entry);
    ++m_counts.adds;
  }

  void removeOne(bool byCaption) {
    PhaseGate::Pass pass(m_gate, PhaseGate::kChangers);
    catchUpWithClears();
    if (m_mine.empty()) return;
    const std::size_t at = m_random() % m_mine.size();
    const EntryPtr entry = m_mine[at];
    const std::string caption = captionOf(entry);
    if (byCaption) {
      if (m_folder.removeEntry(entry) != 0) fail();
    } else {
      if (m_folder.removeEntryByUUID(entry) != 0) fail();
    }
    if (m_folder.findEntry(caption)) fail();
    m_mine.erase(m_mine.begin() + static_cast<long>(at));
    ++m_counts.removals;
  }

  void clear() {
    PhaseGate::Pass pass(m_gate, PhaseGate::kAlone);
    if (m_folder.removeAllEntries() != 0) fail();
    if (m_folder.getIterator()->getNTotal() != 0) fail();
    ++m_epoch;
    ++m_counts.clears;
  }

  // Locked lookups overlap anything: whatever they find must be what they
  // looked for.
  void lookUp() {
    const std::string name = "t" + std::to_string(m_random() % 8) + "-" + std::to_string(m_random() % 64);
    const EntryPtr byCaption = m_folder.findEntry(name);
    if (byCaption && captionOf(byCaption) != name) fail();
    const EntryPtr byUuid = m_folder.findEntrybyUUID("UUID-" + name);
    if (byUuid && byUuid->getItemInfo()->getUUID() != "UUID-" + name) fail();
    ++m_counts.lookups;
  }

  void readAttributes() {
    if (!m_folder.hasAttribute("purpose") || m_folder.getAttribute("purpose") != "stress") fail();
    if (m_folder.hasAttribute("absent") || !m_folder.getAttribute("absent").empty()) fail();
    ++m_counts.attributes;
  }

  // A fresh iterator: its count, a walk to the end, and this thread's
  // children among those walked.
  void walk() {
    PhaseGate::Pass pass(m_gate, PhaseGate::kReaders);
    catchUpWithClears();
    boost::shared_ptr<ma::VfsIterator> iterator = m_folder.getIterator();
    const int total = iterator->getNTotal();
    std::set<EntryPtr> seen;
    int walked = 0;
    for (EntryPtr child = iterator->getCurrentChild(); child && walked <= total;
         child = iterator->getCurrentChild()) {
      if (!child->getItemInfo()) fail();
      if (iterator->getCurrentChildPath("") != "$" + std::to_string(walked)) fail();
      seen.insert(child);
      ++walked;
      iterator->advance();
    }
    if (walked != total) fail();
    for (const EntryPtr& entry : m_mine) {
      if (seen.count(entry) == 0) fail();
    }
    ++m_counts.walks;
  }

  void walkSorted(std::string const& criteria) {
    PhaseGate::Pass pass(m_gate, PhaseGate::kReaders);
    const int total = m_folder.getIterator()->getNTotal();
    boost::shared_ptr<ma::VfsIterator> sorted = m_folder.getSortedIterator(criteria);
    if (sorted->getNTotal() != total) fail();
    EntryPtr previous;
    for (int i = 0; i < total; ++i) {
      const EntryPtr child = sorted->getCurrentChild();
      if (!child) {
        fail();
        break;
      }
      if (previous) {
        const bool ordered = criteria == "+dc:title"
                                 ? captionOf(previous) <= captionOf(child)
                                 : previous->getItemInfo()->getDateNumeric() >=
                                       child->getItemInfo()->getDateNumeric();
        if (!ordered) fail();
      }
      previous = child;
      sorted->advance();
    }
    if (sorted->getCurrentChild()) fail();
    ++m_counts.sortedWalks;
  }

  void resolve() {
    PhaseGate::Pass pass(m_gate, PhaseGate::kReaders);
    boost::shared_ptr<ma::VfsIterator> iterator = m_folder.getIterator();
    const int total = iterator->getNTotal();
    if (m_folder.resolvePath("$" + std::to_string(total))) fail();
    if (total > 0) {
      const int position = static_cast<int>(m_random() % static_cast<unsigned>(total));
      iterator->seekTo(position);
      if (m_folder.resolvePath("$" + std::to_string(position)) != iterator->getCurrentChild()) {
        fail();
      }
    }
    ++m_counts.paths;
  }

  void queryUuid() {
    PhaseGate::Pass pass(m_gate, PhaseGate::kReaders);
    catchUpWithClears();
    if (m_mine.empty()) return;
    const EntryPtr entry = m_mine[m_random() % m_mine.size()];
    const std::string uuid = entry->getItemInfo()->getUUID();
    if (m_folder.findUuid(uuid) != entry || m_folder.resolvePath(uuid) != entry) fail();
    ++m_counts.uuidQueries;
  }

  const int m_id;
  vfs_test::QueryableFolder& m_folder;
  PhaseGate& m_gate;
  Counts& m_counts;
  std::atomic<int>& m_epoch;
  int m_seenEpoch = 0;
  std::mt19937 m_random;
  std::vector<EntryPtr> m_mine;  // this thread's children, in no order
  long m_next = 0;
};

TEST(VfsStress, EightThreadsMixEveryOperationOnOneFolder) {
  Watchdog watchdog("VfsStress.EightThreadsMixEveryOperationOnOneFolder", watchdogLimit());
  const int kThreads = 8;
  const long steps = runLength(4000, 50000, 100);  // per thread
  zel_standin::setThreshold(375, 0);  // no trace lines for failed paths and queries
  boost::shared_ptr<vfs_test::QueryableFolder> folder(new vfs_test::QueryableFolder("stress"));
  folder->setAttribute("purpose", "stress");  // before the folder is shared
  PhaseGate gate;
  Counts counts;
  std::atomic<int> epoch(0);
  std::vector<std::unique_ptr<FolderWorker>> workers;
  for (int t = 0; t < kThreads; ++t) {
    workers.emplace_back(new FolderWorker(t, *folder, gate, counts, epoch));
  }
  std::vector<std::thread> threads;
  for (auto& worker : workers) threads.emplace_back([&worker, steps] { worker->run(steps); });
  for (std::thread& thread : threads) thread.join();

  std::printf(
      "stress: one folder, %d threads: %ld operations (%ld adds, %ld removals, %ld clears, "
      "%ld lookups, %ld attribute reads, %ld walks, %ld sorted walks, %ld paths, %ld uuid "
      "queries)\n",
      kThreads, counts.total(), counts.adds.load(), counts.removals.load(), counts.clears.load(),
      counts.lookups.load(), counts.attributes.load(), counts.walks.load(),
      counts.sortedWalks.load(), counts.paths.load(), counts.uuidQueries.load());
  EXPECT_EQ(0, counts.errors.load());
  EXPECT_GT(counts.adds.load(), 0);
  EXPECT_GT(counts.removals.load(), 0);
  EXPECT_GT(counts.walks.load(), 0);
  EXPECT_GT(counts.uuidQueries.load(), 0);
  EXPECT_GT(counts.clears.load(), 0);
  zel_standin::resetThresholds();
}

TEST(VfsStress, FourWritersAndFourReadersOfOneRecorderUserData) {
  Watchdog watchdog("VfsStress.FourWritersAndFourReadersOfOneRecorderUserData", watchdogLimit());
  const long rounds = runLength(100000, 1000000, 1000);  // per thread
  unsigned char key[VfsUserDataDR::kKeySize] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
  VfsUserDataDR data(true, mirrored(1, false), mirrored(2, false), mirrored(3, true),
                     mirrored(4, true), 1, key);
  std::atomic<long> errors(0);
  std::atomic<long> operations(0);
  std::vector<std::thread> threads;
  for (int w = 0; w < 4; ++w) {
    threads.emplace_back([&, w] {
      for (long i = 0; i < rounds; ++i) {
        // Alternate all-zero-ish and all-one-ish patterns, so that a mix
        // of two writes' halves cannot look whole.
        const long long value = mirrored(static_cast<unsigned>(i * 4 + w), i % 2 != 0);
        switch (i % 5) {
          case 0: data.setStreamBegin(value); break;
          case 1: data.setStreamEnd(value); break;
          case 2: data.setCircularBegin(value); break;
          case 3: data.setCircularEnd(value); break;
          default: data.setIsRecording(i % 2 == 0);
        }
      }
      operations += rounds;
    });
  }
  for (int r = 0; r < 4; ++r) {
    threads.emplace_back([&] {
      for (long i = 0; i < rounds; ++i) {
        long long value = 0;
        switch (i % 7) {
          case 0: value = data.getStreamBegin(); break;
          case 1: value = data.getStreamEnd(); break;
          case 2: value = data.getCircularBegin(); break;
          case 3: value = data.getCircularEnd(); break;
          case 4: data.getIsRecording(); break;
          case 5: if (data.getEncryption() != 1) ++errors; break;
          default: if (data.getKey()[15] != 16) ++errors;
        }
        if (!isMirrored(value)) ++errors;
      }
      operations += rounds;
    });
  }
  for (std::thread& thread : threads) thread.join();
  std::printf("stress: recorder user data, 4 writers and 4 readers: %ld operations\n",
              operations.load());
  EXPECT_EQ(0, errors.load());
}

// Worker threads that run the tasks handed to them, each task on the next
// worker in turn.
class WorkerPool {
 public:
  explicit WorkerPool(int size) {
    for (int i = 0; i < size; ++i) m_workers.emplace_back(new Worker());
  }

  DeferredIterator::Scheduler scheduler() {
    return [this](DeferredIterator::Task task) {
      const unsigned next = m_next.fetch_add(1);
      m_workers[next % m_workers.size()]->post(std::move(task));
    };
  }

 private:
  std::vector<std::unique_ptr<Worker>> m_workers;
  std::atomic<unsigned> m_next{0};
};

TEST(VfsStress, SynchronousTwinsAnsweredFromAWorkerPoolAMillionTimes) {
  Watchdog watchdog("VfsStress.SynchronousTwinsAnsweredFromAWorkerPoolAMillionTimes",
                    watchdogLimit());
  const int kDrivers = 4;
  const long calls = runLength(1000000, 1000000, 2000) / kDrivers;
  const EntryPtr child = makeLeaf("answer");
  std::atomic<long> wrong(0);
  std::atomic<long> made(0);
  {
    WorkerPool pool(4);
    std::vector<std::thread> drivers;
    for (int d = 0; d < kDrivers; ++d) {
      drivers.emplace_back([&, d] {
        DeferredIterator iterator(pool.scheduler());  // one iterator per thread
        iterator.number = d;
        iterator.child = child;
        iterator.suffix = "$" + std::to_string(d);
        for (long i = 0; i < calls; ++i) {
          const int position = static_cast<int>(i % 1000);
          switch (i % 6) {
            case 0: if (iterator.seekTo(position) != position) ++wrong; break;
            case 1: if (iterator.getNTotal() != d) ++wrong; break;
            case 2: if (iterator.advance() != d) ++wrong; break;
            case 3: if (iterator.rewind() != d) ++wrong; break;
            case 4: if (iterator.getCurrentChild() != child) ++wrong; break;
            default:
              if (iterator.getCurrentChildPath("p") != "p$" + std::to_string(d)) ++wrong;
          }
        }
        made += calls;
      });
    }
    for (std::thread& driver : drivers) driver.join();
  }  // the pool drains and drops the last copies of the callbacks
  std::printf("stress: synchronous twins over a pool of 4 workers, %d drivers: %ld calls\n",
              kDrivers, made.load());
  EXPECT_EQ(0, wrong.load());
  EXPECT_EQ(kDrivers * calls, made.load());
}

}  // namespace
