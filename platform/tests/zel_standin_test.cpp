// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The platform stand-in: level gate, capture, and the string description.
#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

#include "ma_test/trace_capture.h"
#include "zel/zel_debug.h"
#include "zel/zel_deser.h"
#include "zel/zel_standin.h"

namespace {

constexpr unsigned int kModule = 375;
constexpr unsigned int category(unsigned int level) { return kModule * 65536u + level; }

TEST(ZelDebugStandin, FailuresPassByDefaultAndCallTracingDoesNot) {
  zel_standin::resetThresholds();
  EXPECT_NE(0, zelDebugCheckLevelGetFrameAndChunk(category(3000)));
  EXPECT_NE(0, zelDebugCheckLevelGetFrameAndChunk(category(1)));
  EXPECT_EQ(0, zelDebugCheckLevelGetFrameAndChunk(category(4000)));
}

TEST(ZelDebugStandin, ThresholdIsKeptPerModule) {
  zel_standin::setThreshold(kModule, 4000);
  EXPECT_NE(0, zelDebugCheckLevelGetFrameAndChunk(category(4000)));
  EXPECT_EQ(0, zelDebugCheckLevelGetFrameAndChunk(126u * 65536u + 4000u));
  zel_standin::setThreshold(kModule, 0);
  EXPECT_EQ(0, zelDebugCheckLevelGetFrameAndChunk(category(1)));
  zel_standin::resetThresholds();
  EXPECT_NE(0, zelDebugCheckLevelGetFrameAndChunk(category(3000)));
}

TEST(ZelDebugStandin, ThresholdAboveTheHighestLevelPassesEveryLevel) {
  zel_standin::setThreshold(kModule, 70000);
  EXPECT_NE(0, zelDebugCheckLevelGetFrameAndChunk(category(0xFFFF)));
  zel_standin::setThreshold(kModule, 0xFFFE);
  EXPECT_EQ(0, zelDebugCheckLevelGetFrameAndChunk(category(0xFFFF)));
  zel_standin::resetThresholds();
}

TEST(ZelDebugStandin, HighestModuleHasItsOwnThreshold) {
  zel_standin::setThreshold(0xFFFF, 0);
  EXPECT_EQ(0, zelDebugCheckLevelGetFrameAndChunk(0xFFFFu * 65536u + 1u));
  EXPECT_NE(0, zelDebugCheckLevelGetFrameAndChunk(0xFFFEu * 65536u + 1u));
  zel_standin::resetThresholds();
  EXPECT_NE(0, zelDebugCheckLevelGetFrameAndChunk(0xFFFFu * 65536u + 1u));
}

// Checks on other threads run while thresholds change and the capture is
// switched: each check sees a whole threshold, old or new (ThreadSanitizer
// watches the rest).
TEST(ZelDebugStandin, ChecksRunWhileThresholdsAndCaptureChange) {
  std::atomic<bool> stop{false};
  std::vector<std::thread> checkers;
  for (int t = 0; t < 2; ++t) {
    checkers.emplace_back([&] {
      while (!stop.load()) zelDebugCheckLevelGetFrameAndChunk(category(3500));
    });
  }
  for (int round = 0; round < 200; ++round) {
    zel_standin::setThreshold(kModule, round % 2 == 0 ? 4000 : 1000);
    if (round % 50 == 0) {
      zel_standin::startCapture();
      zel_standin::stopCapture();
    }
  }
  stop = true;
  for (std::thread& checker : checkers) checker.join();
  zel_standin::resetThresholds();
  EXPECT_EQ(0, zelDebugCheckLevelGetFrameAndChunk(category(3500)));
}

TEST(ZelDebugStandin, CaptureEnablesEverythingAndKeepsFormattedLines) {
  ma_test::TraceCapture capture;
  ASSERT_NE(0, zelDebugCheckLevelGetFrameAndChunk(category(4000)));
  zelDebugOutput0("%s:%d:%s(): Called.\n", "f.cpp", 85, "getNTotal");
  ASSERT_NE(0, zelDebugCheckLevelGetFrameAndChunk(category(3000)));
  zelDebugOutput0("plain\n");
  const auto lines = capture.lines();
  ASSERT_EQ(2u, lines.size());
  EXPECT_EQ("f.cpp:85:getNTotal(): Called.\n", lines[0].text);
  EXPECT_EQ(category(4000), lines[0].category);
  EXPECT_EQ("plain\n", lines[1].text);
  EXPECT_EQ(category(3000), lines[1].category);
  capture.clear();
  EXPECT_TRUE(capture.texts().empty());
}

TEST(ZelDebugStandin, LongLinesAreNotTruncated) {
  ma_test::TraceCapture capture;
  const std::string big(5000, 'x');
  zelDebugOutput0("%s\n", big.c_str());
  ASSERT_EQ(1u, capture.texts().size());
  EXPECT_EQ(big + "\n", capture.texts()[0]);
}

TEST(ZelDeserStandin, StringDescriptionNamesLengthThenCharacters) {
  const zelEndianTable_t& table = __zel_EndianTable_zelDeserString_t;
  EXPECT_EQ(sizeof(zelDeserString_t), table.size);
  EXPECT_EQ(ZEL_ENDIAN_DESCRIPTOR(ZEL_ENDIAN_SCALAR_4, 0), table.entries[0].descriptor);
  EXPECT_EQ(ZEL_ENDIAN_DESCRIPTOR(ZEL_ENDIAN_COUNTED_CHARS, offsetof(zelDeserString_t, data)),
            table.entries[1].descriptor);
  EXPECT_EQ(ZEL_ENDIAN_END_DESCRIPTOR, table.entries[2].descriptor);
  EXPECT_EQ(reinterpret_cast<const void*>(ZEL_ENDIAN_END_LINK), table.entries[2].link);
}

TEST(ZelDeserStandin, StringIsPackedLengthThenPointer) {
  EXPECT_EQ(0u, offsetof(zelDeserString_t, length));
  EXPECT_EQ(4u, offsetof(zelDeserString_t, data));
  EXPECT_EQ(4u + sizeof(char*), sizeof(zelDeserString_t));
}

}  // namespace
