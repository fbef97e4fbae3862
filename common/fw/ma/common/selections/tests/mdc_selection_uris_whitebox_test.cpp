// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The selection parser's internal steps: the empty-text check, the volume
// check and everything behind the volume, which the public parse never
// reaches because its volume string throws first.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>

#include "ma/mdc_selection_uris.h"
#include "ma_test/trace_capture.h"
#include "mdc_selection_uris_internal.h"
#include "selection_trace_lines.h"

namespace {

using ma::selection_uris::findVolumeEnd;
using ma::selection_uris::kInvalidArgument;
using ma::selection_uris::parsePathAndParameters;
using ma::selection_uris::parseSelectionText;
using selection_test::failureLine;
using selection_test::maskedLines;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Parameters = std::map<std::string, std::string>;

ma::SelectionStrings previousParts() {
  return {"oldt", "oldvolume", "old/path", {{"old", "value"}}};
}

// Runs the steps behind the volume on `text`, starting from previousParts().
// Checks that they succeed, write no trace and leave the fields before the
// path alone.
ma::SelectionStrings parsedPathAndParameters(std::string const& text) {
  ma_test::TraceCapture capture;
  ma::SelectionStrings result = previousParts();
  EXPECT_EQ(0, parsePathAndParameters(result, text.c_str()));
  EXPECT_EQ("oldt", result.sourceType);
  EXPECT_EQ("oldvolume", result.volume);
  EXPECT_THAT(maskedLines(capture), IsEmpty());
  return result;
}

// The parameters that parsing `text` adds to the previous ones.
Parameters withPrevious(Parameters added) {
  added.insert({"old", "value"});
  return added;
}

// --- the text as a whole ---

TEST(SelectionParseText, OfNullPointerReportsEmptyUri) {
  ma_test::TraceCapture capture;
  ma::SelectionStrings result = previousParts();
  EXPECT_EQ(kInvalidArgument, parseSelectionText(result, nullptr));
  EXPECT_EQ(previousParts().sourceType, result.sourceType);
  EXPECT_EQ(previousParts().volume, result.volume);
  EXPECT_EQ(previousParts().path, result.path);
  EXPECT_EQ(previousParts().parameters, result.parameters);
  EXPECT_THAT(maskedLines(capture),
              ElementsAre(failureLine("mdcSelectionParse", "Received empty URI.\n")));
}

TEST(SelectionParseText, OfEmptyTextReportsMissingSourceType) {
  ma_test::TraceCapture capture;
  ma::SelectionStrings result = previousParts();
  EXPECT_EQ(kInvalidArgument, parseSelectionText(result, ""));
  EXPECT_THAT(maskedLines(capture),
              ElementsAre(failureLine("mdcSelectionParse", "No source type specifier found.\n")));
}

TEST(SelectionParseText, ReplacesSourceTypeThenThrowsLengthError) {
  ma::SelectionStrings result = previousParts();
  EXPECT_THROW(parseSelectionText(result, "file://usb1/music"), std::length_error);
  EXPECT_EQ("file", result.sourceType);
  EXPECT_EQ("oldvolume", result.volume);
}

// --- end of the volume ---

TEST(SelectionFindVolumeEnd, FromTheColonFindsTheFirstSlashOfTheDoubleSlash) {
  ma_test::TraceCapture capture;
  char const text[] = "file://usb1/music";
  char const* colon = text + 4;
  EXPECT_EQ(colon + 1, findVolumeEnd(colon, colon + 3));
  EXPECT_THAT(maskedLines(capture), IsEmpty());
}

TEST(SelectionFindVolumeEnd, FromTheVolumeFindsTheSlashBehindIt) {
  char const text[] = "file://usb1/music/a";
  EXPECT_EQ(text + 11, findVolumeEnd(text + 7, text + 7));
}

TEST(SelectionFindVolumeEnd, ReportsVolumeWithoutSlashBehindIt) {
  ma_test::TraceCapture capture;
  char const text[] = "file://usb1";
  EXPECT_EQ(nullptr, findVolumeEnd(text + 7, text + 7));
  EXPECT_THAT(maskedLines(capture),
              ElementsAre(failureLine("mdcSelectionParse", "No volume specifier found.\n")));
}

TEST(SelectionFindVolumeEnd, ReportsEmptyVolume) {
  ma_test::TraceCapture capture;
  char const text[] = "file:///music";
  EXPECT_EQ(nullptr, findVolumeEnd(text + 7, text + 7));
  EXPECT_THAT(maskedLines(capture),
              ElementsAre(failureLine("mdcSelectionParse", "No volume specifier found.\n")));
}

TEST(SelectionFindVolumeEnd, StopsAtTheFirstNulByte) {
  ma_test::TraceCapture capture;
  std::string const text("file://usb1\0/music", 18);
  EXPECT_EQ(nullptr, findVolumeEnd(text.c_str() + 7, text.c_str() + 7));
  EXPECT_EQ(1u, capture.lines().size());
}

// --- path ---

TEST(SelectionParsePath, StoresWholeTextWithoutQuestionMarkAsPath) {
  ma::SelectionStrings const result = parsedPathAndParameters("music/a.mp3");
  EXPECT_EQ("music/a.mp3", result.path);
  EXPECT_EQ(previousParts().parameters, result.parameters);
}

TEST(SelectionParsePath, StoresEmptyPath) {
  EXPECT_EQ("", parsedPathAndParameters("").path);
  ma::SelectionStrings const result = parsedPathAndParameters("?a=1");
  EXPECT_EQ("", result.path);
  EXPECT_EQ(withPrevious({{"a=", "1"}}), result.parameters);
}

TEST(SelectionParsePath, EndsAtFirstQuestionMark) {
  ma::SelectionStrings const result = parsedPathAndParameters("a/b?x=1?y");
  EXPECT_EQ("a/b", result.path);
  EXPECT_EQ(withPrevious({{"x=", "1?y"}}), result.parameters);
}

TEST(SelectionParsePath, KeepsSlashesEqualsAndAmpersands) {
  EXPECT_EQ("a//b=c&d/", parsedPathAndParameters("a//b=c&d/").path);
}

TEST(SelectionParsePath, WithQuestionMarkAtTheEndAddsNoParameter) {
  ma::SelectionStrings const result = parsedPathAndParameters("music?");
  EXPECT_EQ("music", result.path);
  EXPECT_EQ(previousParts().parameters, result.parameters);
}

TEST(SelectionParsePath, EndsAtFirstNulByte) {
  ma::SelectionStrings const result =
      parsedPathAndParameters(std::string("music\0?a=1", 10));
  EXPECT_EQ("music", result.path);
  EXPECT_EQ(previousParts().parameters, result.parameters);
}

TEST(SelectionParsePath, StoresVeryLongPath) {
  std::string const path(300000, 'p');
  EXPECT_EQ(path, parsedPathAndParameters(path).path);
}

// --- parameters ---

TEST(SelectionParseParameters, KeyOfParameterWithValueKeepsItsEquals) {
  EXPECT_EQ(withPrevious({{"a=", "1"}}), parsedPathAndParameters("p?a=1").parameters);
}

TEST(SelectionParseParameters, SplitsParametersAtAmpersand) {
  EXPECT_EQ(withPrevious({{"a=", "1"}, {"b=", "2"}, {"c=", "3"}}),
            parsedPathAndParameters("p?a=1&b=2&c=3").parameters);
}

TEST(SelectionParseParameters, KeyWithEqualsAtTheEndLosesItAndGetsEmptyValue) {
  EXPECT_EQ(withPrevious({{"a", ""}}), parsedPathAndParameters("p?a=").parameters);
  EXPECT_EQ(withPrevious({{"a=", "1"}, {"b", ""}}),
            parsedPathAndParameters("p?a=1&b=").parameters);
}

TEST(SelectionParseParameters, TextWithoutEqualsIsOneKeyWithEmptyValue) {
  EXPECT_EQ(withPrevious({{"abc", ""}}), parsedPathAndParameters("p?abc").parameters);
  EXPECT_EQ(withPrevious({{"a&b", ""}}), parsedPathAndParameters("p?a&b").parameters);
  EXPECT_EQ(withPrevious({{"a=", "1"}, {"b", ""}}),
            parsedPathAndParameters("p?a=1&b").parameters);
}

TEST(SelectionParseParameters, KeyRunsToTheNextEqualsAcrossAmpersands) {
  EXPECT_EQ(withPrevious({{"a&b=", "1"}}), parsedPathAndParameters("p?a&b=1").parameters);
  EXPECT_EQ(withPrevious({{"a=", "1"}, {"b&c=", "3"}}),
            parsedPathAndParameters("p?a=1&b&c=3").parameters);
}

TEST(SelectionParseParameters, ValueRunsToTheNextAmpersandAndMayHoldEqualsAndQuestionMarks) {
  EXPECT_EQ(withPrevious({{"a=", "=b?c/d"}, {"e=", "f"}}),
            parsedPathAndParameters("p?a==b?c/d&e=f").parameters);
}

TEST(SelectionParseParameters, EqualsFollowedByAmpersandGivesEmptyValue) {
  EXPECT_EQ(withPrevious({{"a=", ""}, {"b=", "2"}}),
            parsedPathAndParameters("p?a=&b=2").parameters);
}

TEST(SelectionParseParameters, EmptyKeys) {
  EXPECT_EQ(withPrevious({{"=", "x"}}), parsedPathAndParameters("p?=x").parameters);
  EXPECT_EQ(withPrevious({{"", ""}}), parsedPathAndParameters("p?=").parameters);
}

TEST(SelectionParseParameters, AmpersandAtTheEndEndsTheParameters) {
  EXPECT_EQ(withPrevious({{"a=", "1"}}), parsedPathAndParameters("p?a=1&").parameters);
}

TEST(SelectionParseParameters, KeyBeforeEqualsAtTheEndMayHoldAmpersands) {
  EXPECT_EQ(withPrevious({{"a&b", ""}}), parsedPathAndParameters("p?a&b=").parameters);
}

TEST(SelectionParseParameters, LoneAmpersandIsAKeyWithEmptyValue) {
  EXPECT_EQ(withPrevious({{"&", ""}}), parsedPathAndParameters("p?&").parameters);
}

TEST(SelectionParseParameters, DoubleAmpersandStartsKeyWithAmpersand) {
  EXPECT_EQ(withPrevious({{"a=", "1"}, {"&b=", "2"}}),
            parsedPathAndParameters("p?a=1&&b=2").parameters);
}

TEST(SelectionParseParameters, LaterValueOfSameKeyWins) {
  EXPECT_EQ(withPrevious({{"a=", "2"}}), parsedPathAndParameters("p?a=1&a=2").parameters);
}

TEST(SelectionParseParameters, ParametersAlreadyInPartsAreKeptOrReplaced) {
  ma::SelectionStrings result = previousParts();
  result.parameters = {{"a=", "old"}, {"z", "kept"}};
  EXPECT_EQ(0, parsePathAndParameters(result, "p?a=1&b=2"));
  EXPECT_EQ((Parameters{{"a=", "1"}, {"b=", "2"}, {"z", "kept"}}), result.parameters);
}

TEST(SelectionParseParameters, ValueThatWasSetIsEmptiedByKeyWithoutValue) {
  ma::SelectionStrings result = previousParts();
  result.parameters = {{"a", "old"}};
  EXPECT_EQ(0, parsePathAndParameters(result, "p?a="));
  EXPECT_EQ((Parameters{{"a", ""}}), result.parameters);
}

TEST(SelectionParseParameters, EndAtFirstNulByte) {
  EXPECT_EQ(withPrevious({{"a=", "1"}}),
            parsedPathAndParameters(std::string("p?a=1\0&b=2", 10)).parameters);
  EXPECT_EQ(withPrevious({{"a", ""}}),
            parsedPathAndParameters(std::string("p?a\0=1", 6)).parameters);
}

TEST(SelectionParseParameters, ReadsVeryLongKeysAndValues) {
  std::string const key(100000, 'k');
  std::string const value(150000, 'v');
  EXPECT_EQ(withPrevious({{key + "=", value}, {key, ""}}),
            parsedPathAndParameters("p?" + key + "=" + value + "&" + key).parameters);
}

TEST(SelectionParseParameters, ReadBackParametersWrittenBackToBackAsOne) {
  std::string uri;
  ASSERT_EQ(0, mdcSelectionCreate(uri, {"file", "v", "p", {{"a", "1"}, {"b", "2"}}}));
  std::string::size_type const pathBegin = std::string("file://v/").size();
  ma::SelectionStrings const result = parsedPathAndParameters(uri.substr(pathBegin));
  EXPECT_EQ("p", result.path);
  EXPECT_EQ(withPrevious({{"a=", "1b=2"}}), result.parameters);
}

}  // namespace
