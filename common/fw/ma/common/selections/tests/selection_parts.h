// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Selection parts for the tests: built in one call, the parts a reader must
// leave alone when it fails, a field-by-field comparison, and the check of a
// refused text.
#ifndef MA_SELECTIONS_TESTS_SELECTION_PARTS_H_
#define MA_SELECTIONS_TESTS_SELECTION_PARTS_H_

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>

#include "ma/mdc_selection_uris.h"
#include "ma_test/trace_capture.h"
#include "selection_trace_lines.h"

namespace selection_test {

// The result of a text that is not a selection URI.
constexpr int kInvalidArgument = -22;

inline ma::SelectionStrings parts(std::string sourceType, std::string volume, std::string path,
                                  std::map<std::string, std::string> parameters = {}) {
  return {std::move(sourceType), std::move(volume), std::move(path), std::move(parameters)};
}

// Fields that a failed or interrupted read must leave as they were.
inline ma::SelectionStrings previousParts() {
  return parts("oldt", "oldvolume", "old/path", {{"old", "value"}});
}

inline void expectSameParts(ma::SelectionStrings const& expected, ma::SelectionStrings const& actual) {
  EXPECT_EQ(expected.sourceType, actual.sourceType);
  EXPECT_EQ(expected.volume, actual.volume);
  EXPECT_EQ(expected.path, actual.path);
  EXPECT_EQ(expected.parameters, actual.parameters);
}

// Checks that `read` (a reader called as read(parts, uri)) refuses `uri`
// with -22, leaves previousParts() as they were and writes exactly one
// failure line of `function` with `message`.
template <typename Reader>
void expectRefused(Reader read, char const* function, std::string const& uri,
                   std::string const& message) {
  ma_test::TraceCapture capture;
  ma::SelectionStrings result = previousParts();
  EXPECT_EQ(kInvalidArgument, read(result, uri));
  expectSameParts(previousParts(), result);
  EXPECT_THAT(maskedLines(capture), ::testing::ElementsAre(failureLine(function, message)));
}

}  // namespace selection_test

#endif  // MA_SELECTIONS_TESTS_SELECTION_PARTS_H_
