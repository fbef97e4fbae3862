// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Captured trace lines of the selection module in a comparable form.
#ifndef MA_SELECTIONS_TESTS_SELECTION_TRACE_LINES_H_
#define MA_SELECTIONS_TESTS_SELECTION_TRACE_LINES_H_

#include <cctype>
#include <cstddef>
#include <string>
#include <vector>

#include "ma_test/trace_capture.h"

namespace selection_test {

// The category word of every failure line of the selection module.
constexpr unsigned int kSelectionFailures = 126u * 65536u + 3000u;  // 8260536

// Each captured line as "<category> <text>", with the source line number of
// a located line ("file:123:function(): ...") replaced by "#", so that tests
// do not depend on where in the source a line is written. A line without a
// number in that place is kept as it is and so fails the comparison.
inline std::vector<std::string> maskedLines(ma_test::TraceCapture const& capture) {
  std::vector<std::string> result;
  for (zel_standin::TraceLine const& line : capture.lines()) {
    std::string text = line.text;
    std::size_t const numberBegin = text.find(':') + 1;
    std::size_t numberEnd = numberBegin;
    while (numberBegin != 0 && numberEnd < text.size() &&
           std::isdigit(static_cast<unsigned char>(text[numberEnd])) != 0) {
      ++numberEnd;
    }
    if (numberEnd > numberBegin && numberEnd < text.size() && text[numberEnd] == ':') {
      text.replace(numberBegin, numberEnd - numberBegin, "#");
    }
    result.push_back(std::to_string(line.category) + " " + text);
  }
  return result;
}

// The expected masked form of a failure line of `function`.
inline std::string failureLine(char const* function, std::string const& message) {
  return std::to_string(kSelectionFailures) + " mdc_selection_uris.cpp:#:" + function +
         "(): " + message;
}

}  // namespace selection_test

#endif  // MA_SELECTIONS_TESTS_SELECTION_TRACE_LINES_H_
