// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The synchronous twins of the iterator: a semaphore rendezvous over the
// asynchronous operations, with its trace lines.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>

#include <algorithm>
#include <atomic>
#include <boost/shared_ptr.hpp>
#include <chrono>
#include <cstdio>
#include <future>
#include <string>
#include <thread>
#include <vector>

#include "ma/mdc_vfs_base.h"
#include "ma_test/trace_capture.h"
#include "scripted_iterator.h"
#include "vfs_test_support.h"

namespace {

using testing::ElementsAre;
using vfs_test::DeferredIterator;
using vfs_test::InlineIterator;
using vfs_test::located;
using vfs_test::makeLeaf;
using vfs_test::Worker;

constexpr unsigned int kVfsCalls = 24580000;

const char kFile[] = "mdc_vfs_base.cpp";

// The semaphore address that the first "Init" line of `texts` names.
std::string initAddress(std::vector<std::string> const& texts) {
  const std::string marker = "): Init ";
  for (const std::string& text : texts) {
    const std::size_t at = text.find(marker);
    if (at != std::string::npos) {
      const std::size_t begin = at + marker.size();
      return text.substr(begin, text.size() - begin - 2);  // without ".\n"
    }
  }
  return "<no Init line>";
}

std::string initLine(std::string const& address) {
  return located(kFile, 52, "TemplateSyncFunctorData", "Init " + address + ".\n");
}
std::string postLine(std::string const& address) {
  return located(kFile, 67, "operator()", "Post " + address + ".\n");
}
std::string destroyLine(std::string const& address) {
  return located(kFile, 56, "~TemplateSyncFunctorData", "Destroy " + address + ".\n");
}

TEST(VfsBridgeTest, InlineGetNTotalTracesCalledInitPostWaitWaitFinishedDestroy) {
  InlineIterator iterator;
  iterator.number = 3;
  ma_test::TraceCapture capture;
  EXPECT_EQ(3, iterator.getNTotal());
  const std::string address = initAddress(capture.texts());
  EXPECT_THAT(
      capture.texts(),
      ElementsAre(located(kFile, 85, "getNTotal", "Called.\n"), initLine(address),
                  postLine(address), located(kFile, 90, "getNTotal", "Wait " + address + ".\n"),
                  located(kFile, 92, "getNTotal", "Wait finished.\n"), destroyLine(address)));
  for (const zel_standin::TraceLine& line : capture.lines()) {
    EXPECT_EQ(kVfsCalls, line.category) << line.text;
  }
}

TEST(VfsBridgeTest, SemaphoreAddressLooksLikeAPointer) {
  InlineIterator iterator;
  ma_test::TraceCapture capture;
  iterator.rewind();
  const std::string address = initAddress(capture.texts());
  EXPECT_EQ("0x", address.substr(0, 2));
}

TEST(VfsBridgeTest, OtherTwinsTraceOnlyInitPostDestroy) {
  InlineIterator iterator;
  ma_test::TraceCapture capture;
  iterator.rewind();
  iterator.advance();
  iterator.seekTo(4);
  iterator.getCurrentChild();
  iterator.getCurrentChildPath("p");
  const std::vector<zel_standin::TraceLine> lines = capture.lines();
  ASSERT_EQ(15u, lines.size());
  for (std::size_t call = 0; call < 5; ++call) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < 3; ++i) texts.push_back(lines[3 * call + i].text);
    const std::string address = initAddress(texts);
    EXPECT_THAT(texts, ElementsAre(initLine(address), postLine(address), destroyLine(address)))
        << "call " << call;
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(kVfsCalls, lines[3 * call + i].category);
  }
}

TEST(VfsBridgeTest, IntTwinsReturnTheDeliveredInteger) {
  InlineIterator iterator;
  iterator.number = -7;
  EXPECT_EQ(-7, iterator.getNTotal());
  EXPECT_EQ(-7, iterator.rewind());
  EXPECT_EQ(-7, iterator.advance());
  EXPECT_EQ(-7, iterator.seekTo(2));
  EXPECT_THAT(iterator.calls, ElementsAre("getNTotal", "rewind", "advance", "seekTo(2)"));
}

TEST(VfsBridgeTest, SeekToPassesANegativePositionUnchanged) {
  InlineIterator iterator;
  iterator.seekTo(-5);
  EXPECT_THAT(iterator.calls, ElementsAre("seekTo(-5)"));
}

TEST(VfsBridgeTest, GetCurrentChildReturnsTheDeliveredChild) {
  InlineIterator iterator;
  iterator.child = makeLeaf("c");
  EXPECT_EQ(iterator.child, iterator.getCurrentChild());
}

TEST(VfsBridgeTest, GetCurrentChildPastTheLastChildReturnsEmpty) {
  InlineIterator iterator;  // delivers an empty pointer, as past the end
  EXPECT_FALSE(iterator.getCurrentChild());
}

TEST(VfsBridgeTest, GetCurrentChildPathPassesThePathAndReturnsTheDeliveredText) {
  InlineIterator iterator;
  iterator.suffix = "$1";
  EXPECT_EQ("/a$1", iterator.getCurrentChildPath("/a"));
  EXPECT_THAT(iterator.calls, ElementsAre("getCurrentChildPath(/a)"));
}

TEST(VfsBridgeTest, GetCurrentChildPathPassesAnEmptyPathThrough) {
  InlineIterator iterator;
  EXPECT_EQ("", iterator.getCurrentChildPath(""));
  iterator.suffix = "$1";
  EXPECT_EQ("$1", iterator.getCurrentChildPath(""));
  EXPECT_THAT(iterator.calls, ElementsAre("getCurrentChildPath()", "getCurrentChildPath()"));
}

TEST(VfsBridgeTest, CallbackCalledTwiceReturnsTheLastValueAndDestroysOnce) {
  InlineIterator iterator(2);
  iterator.number = 10;
  ma_test::TraceCapture capture;
  EXPECT_EQ(11, iterator.getNTotal());
  const std::string address = initAddress(capture.texts());
  EXPECT_THAT(
      capture.texts(),
      ElementsAre(located(kFile, 85, "getNTotal", "Called.\n"), initLine(address),
                  postLine(address), postLine(address),
                  located(kFile, 90, "getNTotal", "Wait " + address + ".\n"),
                  located(kFile, 92, "getNTotal", "Wait finished.\n"), destroyLine(address)));
}

TEST(VfsBridgeTest, CallbackCalledTwiceForEveryTwin) {
  InlineIterator iterator(2);
  iterator.number = 1;
  EXPECT_EQ(2, iterator.rewind());
  EXPECT_EQ(2, iterator.advance());
  EXPECT_EQ(2, iterator.seekTo(9));
  iterator.suffix = "!";
  EXPECT_EQ("x!", iterator.getCurrentChildPath("x"));
}

// Runs every task on the worker after a pause, and drops it at once.
DeferredIterator::Scheduler laterOn(Worker& worker, std::atomic<int>& delivered) {
  return [&worker, &delivered](DeferredIterator::Task task) {
    worker.post([task, &delivered] {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      ++delivered;
      task();
    });
  };
}

TEST(VfsBridgeTest, CallbackFromAnotherThreadLaterUnblocksTheCallerWithTheValue) {
  std::atomic<int> delivered(0);
  Worker worker;
  DeferredIterator iterator(laterOn(worker, delivered));
  iterator.number = 42;
  iterator.child = makeLeaf("c");
  iterator.suffix = "$0";

  EXPECT_EQ(42, iterator.getNTotal());
  EXPECT_EQ(1, delivered.load());
  EXPECT_EQ(42, iterator.rewind());
  EXPECT_EQ(2, delivered.load());
  EXPECT_EQ(42, iterator.advance());
  EXPECT_EQ(3, delivered.load());
  EXPECT_EQ(-5, iterator.seekTo(-5));
  EXPECT_EQ(4, delivered.load());
  EXPECT_EQ(iterator.child, iterator.getCurrentChild());
  EXPECT_EQ(5, delivered.load());
  EXPECT_EQ("/m$0", iterator.getCurrentChildPath("/m"));
  EXPECT_EQ(6, delivered.load());
}

TEST(VfsBridgeTest, WorkerThatKeepsTheCallbackLongestTracesDestroy) {
  Worker worker;
  std::vector<DeferredIterator::Task> kept;  // touched on the worker only
  DeferredIterator iterator([&worker, &kept](DeferredIterator::Task task) {
    worker.post([task, &kept] {
      task();
      kept.push_back(task);
    });
  });
  iterator.number = 5;

  ma_test::TraceCapture capture;
  EXPECT_EQ(5, iterator.getNTotal());
  const std::string address = initAddress(capture.texts());
  std::vector<std::string> texts = capture.texts();
  EXPECT_THAT(texts, testing::Contains(postLine(address)));
  EXPECT_THAT(texts, testing::Contains(located(kFile, 92, "getNTotal", "Wait finished.\n")));
  EXPECT_THAT(texts, testing::Not(testing::Contains(destroyLine(address))));

  std::promise<void> released;
  worker.post([&kept, &released] {
    kept.clear();
    released.set_value();
  });
  released.get_future().wait();
  texts = capture.texts();
  ASSERT_FALSE(texts.empty());
  EXPECT_EQ(destroyLine(address), texts.back());
  EXPECT_EQ(1, std::count(texts.begin(), texts.end(), destroyLine(address)));
}

TEST(VfsBridgeTest, WaiterThatHoldsTheDataLongestTracesDestroyAfterWaitFinished) {
  InlineIterator iterator;  // drops its copy before the operation returns
  ma_test::TraceCapture capture;
  iterator.getNTotal();
  const std::vector<std::string> texts = capture.texts();
  ASSERT_EQ(6u, texts.size());
  EXPECT_EQ(located(kFile, 92, "getNTotal", "Wait finished.\n"), texts[4]);
  EXPECT_EQ(destroyLine(initAddress(texts)), texts[5]);
}

void ignoreSignal(int) {}

// Interrupts `waiter` with signals until `done`, so that its wait ends early.
void interruptUntil(pthread_t waiter, std::atomic<bool> const& done) {
  while (!done.load()) {
    pthread_kill(waiter, SIGUSR1);
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

TEST(VfsBridgeTest, WaitEndedEarlyBySignalReturnsTheInitialValueWithoutWaitingAgain) {
  struct sigaction action = {};
  struct sigaction previous = {};
  action.sa_handler = ignoreSignal;  // no SA_RESTART: the wait ends early
  sigemptyset(&action.sa_mask);
  ASSERT_EQ(0, sigaction(SIGUSR1, &action, &previous));

  std::vector<DeferredIterator::Task> neverRun;  // touched by the waiter only
  DeferredIterator iterator([&neverRun](DeferredIterator::Task task) { neverRun.push_back(task); });
  iterator.number = 7;
  iterator.suffix = "x";

  int number = -1;
  std::string path = "unset";
  std::atomic<bool> done(false);
  std::thread waiter([&] {
    number = iterator.rewind();
    path = iterator.getCurrentChildPath("p");
    done = true;
  });
  // The waiter blocks twice; keep interrupting until both waits ended.
  interruptUntil(waiter.native_handle(), done);
  waiter.join();
  sigaction(SIGUSR1, &previous, nullptr);

  EXPECT_EQ(0, number);
  EXPECT_EQ("", path);
  EXPECT_EQ(2u, neverRun.size());
}

}  // namespace
