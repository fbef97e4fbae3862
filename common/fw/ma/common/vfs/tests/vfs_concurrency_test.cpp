// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Several threads on one folder, on one recorder user data, and the
// synchronous bridge answered from another thread, many times over.
// Meant to run under ThreadSanitizer as well.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <boost/shared_ptr.hpp>
#include <climits>
#include <future>
#include <string>
#include <thread>
#include <vector>

#include "ma/mdc_vfs_fixed.h"
#include "ma/mdc_vfs_user_data_dr.h"
#include "ma_test/trace_capture.h"
#include "scripted_iterator.h"
#include "vfs_test_support.h"

namespace {

using vfs_test::DeferredIterator;
using vfs_test::EntryPtr;
using vfs_test::FolderPtr;
using vfs_test::isMirrored;
using vfs_test::makeFolderOf;
using vfs_test::makeLeaf;
using vfs_test::mirrored;
using vfs_test::Worker;

TEST(VfsConcurrencyTest, ThreadsAddToFindInAndCountOneFolder) {
  const int kAdders = 2;
  const int kPerAdder = 150;
  FolderPtr folder = makeFolderOf({"c0", "c1", "c2"});
  // Made before the adders start: a plain iterator must not be created while
  // the list changes, but its getNTotal takes the folder's lock.
  boost::shared_ptr<ma::VfsIterator> counting = folder->getIterator();

  std::atomic<bool> stop(false);
  std::atomic<int> wrongCounts(0);
  std::atomic<int> lostEntries(0);
  std::vector<std::thread> threads;
  for (int a = 0; a < kAdders; ++a) {
    threads.emplace_back([&folder, a, kPerAdder] {
      for (int i = 0; i < kPerAdder; ++i) {
        const std::string name = std::to_string(a) + "-" + std::to_string(i);
        folder->addEntry(makeLeaf("caption " + name, "uuid " + name));
      }
    });
  }
  threads.emplace_back([&] {
    while (!stop.load()) {
      if (!folder->findEntry("c1") || !folder->findEntrybyUUID("u2")) ++lostEntries;
      folder->findEntry("absent");
    }
  });
  threads.emplace_back([&] {
    while (!stop.load()) {
      if (counting->getNTotal() != 3) ++wrongCounts;
    }
  });
  for (int a = 0; a < kAdders; ++a) threads[a].join();
  stop = true;
  for (std::size_t t = kAdders; t < threads.size(); ++t) threads[t].join();

  EXPECT_EQ(0, wrongCounts.load());
  EXPECT_EQ(0, lostEntries.load());
  EXPECT_EQ(3 + kAdders * kPerAdder, folder->getIterator()->getNTotal());
  for (int a = 0; a < kAdders; ++a) {
    for (int i = 0; i < kPerAdder; i += 37) {
      const std::string name = std::to_string(a) + "-" + std::to_string(i);
      EntryPtr found = folder->findEntrybyUUID("uuid " + name);
      ASSERT_TRUE(found) << name;
      EXPECT_EQ("caption " + name, found->getItemInfo()->getCaption());
    }
  }
}

TEST(VfsConcurrencyTest, ThreadsAddRemoveAndFindInOneFolder) {
  const int kEach = 100;
  FolderPtr folder = makeFolderOf({"c0", "c1", "c2"});
  for (int i = 0; i < kEach; ++i) {
    folder->addEntry(makeLeaf("removable " + std::to_string(i), "r" + std::to_string(i)));
  }
  std::atomic<bool> stop(false);
  std::atomic<int> lost(0);
  std::thread adder([&folder, kEach] {
    for (int i = 0; i < kEach; ++i) folder->addEntry(makeLeaf("added", "a" + std::to_string(i)));
  });
  std::thread byUuid([&folder, kEach] {
    for (int i = 0; i < kEach; i += 2)
      folder->removeEntryByUUID(makeLeaf("", "r" + std::to_string(i)));
  });
  std::thread byCaption([&folder, kEach] {
    for (int i = 1; i < kEach; i += 2)
      folder->removeEntry(makeLeaf("removable " + std::to_string(i)));
  });
  std::thread finder([&] {
    while (!stop.load()) {
      if (!folder->findEntry("c1")) ++lost;
    }
  });
  adder.join();
  byUuid.join();
  byCaption.join();
  stop = true;
  finder.join();

  EXPECT_EQ(0, lost.load());
  EXPECT_EQ(3 + kEach, folder->getIterator()->getNTotal());
  for (int i = 0; i < kEach; ++i) {
    EXPECT_FALSE(folder->findEntrybyUUID("r" + std::to_string(i))) << i;
    EXPECT_TRUE(folder->findEntrybyUUID("a" + std::to_string(i))) << i;
  }
}

TEST(VfsConcurrencyTest, ThreadsReadAndWriteOneRecorderUserDataAndBoundsStayWhole) {
  const int kRounds = 20000;
  VfsUserDataDR data(true, mirrored(1, false), mirrored(2, false), mirrored(3, true),
                     mirrored(4, true), 0, nullptr);
  std::atomic<int> torn(0);
  std::vector<std::thread> threads;
  for (int w = 0; w < 2; ++w) {
    threads.emplace_back([&data, w, kRounds] {
      for (int i = 0; i < kRounds; ++i) {
        // Alternate between all-zero-ish and all-one-ish patterns so that
        // a mix of halves of two writes cannot look whole.
        const long long value = mirrored(static_cast<unsigned int>(i * 2 + w), i % 2 != 0);
        data.setStreamBegin(value);
        data.setStreamEnd(value);
        data.setCircularBegin(value);
        data.setCircularEnd(value);
        data.setIsRecording(i % 2 == 0);
      }
    });
  }
  for (int r = 0; r < 2; ++r) {
    threads.emplace_back([&data, &torn, kRounds] {
      for (int i = 0; i < kRounds; ++i) {
        if (!isMirrored(data.getStreamBegin())) ++torn;
        if (!isMirrored(data.getStreamEnd())) ++torn;
        if (!isMirrored(data.getCircularBegin())) ++torn;
        if (!isMirrored(data.getCircularEnd())) ++torn;
        data.getIsRecording();
        if (data.getEncryption() != 0) ++torn;
        data.getKey();
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(0, torn.load());
  EXPECT_TRUE(isMirrored(data.getStreamBegin()));
}

TEST(VfsConcurrencyTest, MirroredValuesDetectMixedHalves) {
  EXPECT_TRUE(isMirrored(mirrored(7, false)));
  EXPECT_TRUE(isMirrored(mirrored(7, true)));
  EXPECT_TRUE(isMirrored(-1));
  EXPECT_FALSE(isMirrored(0x0000000700000008LL));
  EXPECT_FALSE(isMirrored(LLONG_MIN));
}

// Runs every task on `worker` (and drops it there).
DeferredIterator::Scheduler onWorker(Worker& worker) {
  return [&worker](DeferredIterator::Task task) { worker.post(std::move(task)); };
}

void drain(Worker& worker) {
  std::promise<void> done;
  worker.post([&done] { done.set_value(); });
  done.get_future().wait();
}

TEST(VfsConcurrencyTest, BridgeAnsweredFromAnotherThreadThousandsOfTimes) {
  const int kCalls = 3000;
  Worker worker;
  DeferredIterator iterator(onWorker(worker));
  iterator.suffix = "!";
  int wrong = 0;
  for (int i = 0; i < kCalls; ++i) {
    if (iterator.seekTo(i) != i) ++wrong;
    if (i % 10 == 0 && iterator.getCurrentChildPath(std::to_string(i)) != std::to_string(i) + "!") {
      ++wrong;
    }
  }
  EXPECT_EQ(0, wrong);
}

TEST(VfsConcurrencyTest, BridgeAnsweredFromAnotherThreadDestroysEveryRendezvousOnce) {
  const int kCalls = 300;
  Worker worker;
  DeferredIterator iterator(onWorker(worker));
  iterator.number = 9;
  iterator.child = makeLeaf("c");
  ma_test::TraceCapture capture;
  for (int i = 0; i < kCalls; ++i) {
    ASSERT_EQ(9, iterator.getNTotal());
    ASSERT_EQ(iterator.child, iterator.getCurrentChild());
  }
  drain(worker);  // the worker may have held the last copies
  const std::vector<std::string> texts = capture.texts();
  const auto count = [&texts](std::string const& words) {
    return std::count_if(texts.begin(), texts.end(), [&words](std::string const& text) {
      return text.find("(): " + words) != std::string::npos;
    });
  };
  EXPECT_EQ(2 * kCalls, count("Init 0x"));
  EXPECT_EQ(2 * kCalls, count("Post 0x"));
  EXPECT_EQ(2 * kCalls, count("Destroy 0x"));
  EXPECT_EQ(kCalls, count("Wait 0x"));
  EXPECT_EQ(kCalls, count("Wait finished."));
}

}  // namespace
