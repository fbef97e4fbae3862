// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors

#include "ma_test/trace_capture.h"

namespace ma_test {

TraceCapture::TraceCapture() { zel_standin::startCapture(); }

TraceCapture::~TraceCapture() { zel_standin::stopCapture(); }

std::vector<std::string> TraceCapture::texts() const {
  std::vector<std::string> result;
  for (const zel_standin::TraceLine& line : zel_standin::capturedLines()) {
    result.push_back(line.text);
  }
  return result;
}

std::vector<zel_standin::TraceLine> TraceCapture::lines() const {
  return zel_standin::capturedLines();
}

void TraceCapture::clear() { zel_standin::clearCapture(); }

}  // namespace ma_test
