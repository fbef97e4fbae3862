// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Silencing and recording the library's debug trace through the platform
// stand-in's controls.
#include "library_trace.h"

#include <cctype>

#include "zel/zel_standin.h"

namespace ma_cli {

namespace {

// The library's trace modules: selections and the VFS (the item record
// reports under the VFS's module).
constexpr unsigned int kSelectionModule = 126;
constexpr unsigned int kVfsModule = 375;

// Lines above this level are call tracing, which the default gate hides.
constexpr unsigned int kShownLevel = zel_standin::kDefaultThreshold;

// "file:123:function(): text" becomes "file:function(): text".
std::string withoutLineNumber(std::string line) {
  std::size_t const first = line.find(':');
  if (first == std::string::npos) return line;
  std::size_t end = first + 1;
  while (end < line.size() && std::isdigit(static_cast<unsigned char>(line[end]))) ++end;
  if (end > first + 1 && end < line.size() && line[end] == ':') line.erase(first, end - first);
  return line;
}

}  // namespace

void silenceLibraryTrace() {
  zel_standin::setThreshold(kSelectionModule, 0);
  zel_standin::setThreshold(kVfsModule, 0);
}

TraceRecording::TraceRecording() { zel_standin::startCapture(); }

TraceRecording::~TraceRecording() { zel_standin::stopCapture(); }

std::vector<std::string> TraceRecording::lines() const {
  std::vector<std::string> result;
  for (zel_standin::TraceLine const& line : zel_standin::capturedLines()) {
    if ((line.category & 0xFFFFu) > kShownLevel) continue;
    std::string text = line.text;
    while (!text.empty() && text.back() == '\n') text.pop_back();
    result.push_back(withoutLineNumber(text));
  }
  return result;
}

std::string TraceRecording::joined() const {
  std::string result;
  for (std::string const& line : lines()) {
    if (!result.empty()) result += "; ";
    result += line;
  }
  return result;
}

}  // namespace ma_cli
