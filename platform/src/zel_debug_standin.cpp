// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Stand-in of the receiver's debug trace: a threshold per module, lines to
// stderr, and a capture that tests read back.
//
// The level check runs before every trace line the library might write, so
// it takes no lock: the thresholds live in a table of atomics indexed by
// module, and the capture switch is an atomic flag. Setting a threshold and
// switching the capture are single atomic stores; a check running at the
// same time sees the value before or after. The mutex guards only the
// captured lines and the writes to stderr.
#include "zel/zel_debug.h"
#include "zel/zel_standin.h"

#include <atomic>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <mutex>
#include <utility>
#include <vector>

namespace {

constexpr unsigned int kModuleShift = 16;
constexpr unsigned int kModuleCount = 1u << (32 - kModuleShift);  // every module a category names
constexpr unsigned int kLevelMask = 0xFFFFu;

// A module's threshold as stored in the table: XOR-ed with the default, so
// that the zero-initialised table gives every module the default and the
// check decodes it with one instruction. A threshold above the highest level
// passes every level, so it is stored as the highest level.
std::uint32_t encodeThreshold(unsigned int level) {
  return (level > kLevelMask ? kLevelMask : level) ^ zel_standin::kDefaultThreshold;
}

// The gate, read by every check: plain zero-initialised statics (no
// initialisation guard to test), written by single atomic stores.
std::atomic<std::uint32_t> thresholds[kModuleCount];  // encoded, see above
std::atomic<bool> capturing{false};

// The capture, used only when lines are written.
struct Capture {
  std::mutex mutex;  // guards `lines` and the writes to stderr
  std::vector<zel_standin::TraceLine> lines;
};

Capture& capture() {
  static Capture* c = new Capture();  // never destroyed: usable at exit
  return *c;
}

// The category of the last level check on this thread: zelDebugOutput0()
// does not receive it, and a caller checks right before it writes. The
// stand-in is linked, not loaded later, so the cheap TLS model applies.
__attribute__((tls_model("initial-exec"))) thread_local unsigned int lastCheckedCategory = 0;

}  // namespace

extern "C" int zelDebugCheckLevelGetFrameAndChunk(unsigned int category) {
  lastCheckedCategory = category;
  if (capturing.load(std::memory_order_acquire)) return 1;
  const unsigned int threshold =
      thresholds[category >> kModuleShift].load(std::memory_order_relaxed) ^
      zel_standin::kDefaultThreshold;
  return (category & kLevelMask) <= threshold ? 1 : 0;
}

extern "C" void zelDebugOutput0(const char* format, ...) {
  va_list args;
  va_start(args, format);
  va_list measure;
  va_copy(measure, args);
  const int size = std::vsnprintf(nullptr, 0, format, measure);
  va_end(measure);
  std::string text(size > 0 ? static_cast<std::size_t>(size) : 0, '\0');
  if (size > 0) std::vsnprintf(&text[0], text.size() + 1, format, args);
  va_end(args);

  Capture& c = capture();
  std::lock_guard<std::mutex> lock(c.mutex);
  if (capturing.load(std::memory_order_relaxed)) {
    c.lines.push_back({lastCheckedCategory, std::move(text)});
  } else {
    std::fputs(text.c_str(), stderr);
  }
}

namespace zel_standin {

void setThreshold(unsigned int module, unsigned int level) {
  // No category word names a module beyond the table: its threshold could
  // never be consulted.
  if (module >= kModuleCount) return;
  thresholds[module].store(encodeThreshold(level), std::memory_order_relaxed);
}

void resetThresholds() {
  for (std::atomic<std::uint32_t>& threshold : thresholds) {
    threshold.store(0, std::memory_order_relaxed);
  }
}

void startCapture() {
  Capture& c = capture();
  std::lock_guard<std::mutex> lock(c.mutex);
  c.lines.clear();
  capturing.store(true, std::memory_order_release);
}

void stopCapture() {
  Capture& c = capture();
  std::lock_guard<std::mutex> lock(c.mutex);
  capturing.store(false, std::memory_order_release);
  c.lines.clear();
}

std::vector<TraceLine> capturedLines() {
  Capture& c = capture();
  std::lock_guard<std::mutex> lock(c.mutex);
  return c.lines;
}

void clearCapture() {
  Capture& c = capture();
  std::lock_guard<std::mutex> lock(c.mutex);
  c.lines.clear();
}

}  // namespace zel_standin
