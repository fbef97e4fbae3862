// Stand-in of the receiver's debug trace: a threshold per module, lines to
// stderr, and a capture that tests read back.
#include "zel/zel_debug.h"
#include "zel/zel_standin.h"

#include <cstdarg>
#include <cstdio>
#include <map>
#include <mutex>
#include <utility>

namespace {

constexpr unsigned int kModuleShift = 16;

struct TraceState {
  std::mutex mutex;
  std::map<unsigned int, unsigned int> thresholds;  // module -> level
  bool capturing = false;
  std::vector<zel_standin::TraceLine> captured;
};

TraceState& state() {
  static TraceState* s = new TraceState;  // never destroyed: usable at exit
  return *s;
}

// The category of the last level check on this thread: zelDebugOutput0()
// does not receive it, and a caller checks right before it writes.
thread_local unsigned int lastCheckedCategory = 0;

}  // namespace

extern "C" int zelDebugCheckLevelGetFrameAndChunk(unsigned int category) {
  lastCheckedCategory = category;
  TraceState& s = state();
  std::lock_guard<std::mutex> lock(s.mutex);
  if (s.capturing) return 1;
  const unsigned int module = category >> kModuleShift;
  const unsigned int level = category & 0xFFFFu;
  auto it = s.thresholds.find(module);
  const unsigned int threshold =
      it == s.thresholds.end() ? zel_standin::kDefaultThreshold : it->second;
  return level <= threshold ? 1 : 0;
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

  TraceState& s = state();
  std::lock_guard<std::mutex> lock(s.mutex);
  if (s.capturing) {
    s.captured.push_back({lastCheckedCategory, std::move(text)});
  } else {
    std::fputs(text.c_str(), stderr);
  }
}

namespace zel_standin {

void setThreshold(unsigned int module, unsigned int level) {
  TraceState& s = state();
  std::lock_guard<std::mutex> lock(s.mutex);
  s.thresholds[module] = level;
}

void resetThresholds() {
  TraceState& s = state();
  std::lock_guard<std::mutex> lock(s.mutex);
  s.thresholds.clear();
}

void startCapture() {
  TraceState& s = state();
  std::lock_guard<std::mutex> lock(s.mutex);
  s.capturing = true;
  s.captured.clear();
}

void stopCapture() {
  TraceState& s = state();
  std::lock_guard<std::mutex> lock(s.mutex);
  s.capturing = false;
  s.captured.clear();
}

std::vector<TraceLine> capturedLines() {
  TraceState& s = state();
  std::lock_guard<std::mutex> lock(s.mutex);
  return s.captured;
}

void clearCapture() {
  TraceState& s = state();
  std::lock_guard<std::mutex> lock(s.mutex);
  s.captured.clear();
}

}  // namespace zel_standin
