// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// TraceCapture: collects every trace line written while it lives.
//
// While a capture is alive every category passes the level check, and the
// formatted lines are kept instead of going to stderr. Only one capture may
// be alive at a time.
#ifndef MA_TEST_TRACE_CAPTURE_H_
#define MA_TEST_TRACE_CAPTURE_H_

#include <string>
#include <vector>

#include "zel/zel_standin.h"

namespace ma_test {

class TraceCapture {
 public:
  TraceCapture();
  ~TraceCapture();
  TraceCapture(const TraceCapture&) = delete;
  TraceCapture& operator=(const TraceCapture&) = delete;

  // The formatted lines so far, in the order they were written.
  std::vector<std::string> texts() const;

  // The lines with the category word each was checked against.
  std::vector<zel_standin::TraceLine> lines() const;

  // Forgets the lines collected so far.
  void clear();
};

}  // namespace ma_test

#endif  // MA_TEST_TRACE_CAPTURE_H_
