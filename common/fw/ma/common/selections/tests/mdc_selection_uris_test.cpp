// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Writing and splitting selection URIs through the library's interface.
#include "ma/mdc_selection_uris.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>

#include "ma_test/trace_capture.h"
#include "selection_parts.h"
#include "selection_trace_lines.h"
#include "zel/zel_standin.h"

namespace {

using selection_test::expectRefused;
using selection_test::expectSameParts;
using selection_test::failureLine;
using selection_test::kInvalidArgument;
using selection_test::maskedLines;
using selection_test::parts;
using selection_test::previousParts;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- create ---

TEST(SelectionCreate, WritesSourceTypeVolumeAndPath) {
  ma_test::TraceCapture capture;
  std::string uri;
  EXPECT_EQ(0, mdcSelectionCreate(uri, parts("file", "usb1", "music/a.mp3")));
  EXPECT_EQ("file://usb1/music/a.mp3", uri);
  EXPECT_THAT(maskedLines(capture), IsEmpty());
}

TEST(SelectionCreate, WritesParametersInKeyOrderAndEmptyValueAsKeyAlone) {
  std::string uri;
  EXPECT_EQ(0, mdcSelectionCreate(uri, parts("file", "usb1", "music/a.mp3", {{"b", ""}, {"a", "1"}})));
  EXPECT_EQ("file://usb1/music/a.mp3?a=1b", uri);
}

TEST(SelectionCreate, WritesParametersBackToBackWithoutSeparator) {
  std::string uri;
  EXPECT_EQ(0, mdcSelectionCreate(uri, parts("file", "v", "p", {{"a", "1"}, {"b", "2"}})));
  EXPECT_EQ("file://v/p?a=1b=2", uri);
}

TEST(SelectionCreate, OrdersKeysByteWise) {
  std::string uri;
  EXPECT_EQ(0, mdcSelectionCreate(
                   uri, parts("file", "v", "p", {{"a", "1"}, {"B", "2"}, {"\xC3\xA9", "3"}, {"_", "4"}})));
  EXPECT_EQ("file://v/p?B=2_=4a=1\xC3\xA9=3", uri);
}

TEST(SelectionCreate, RejectsThreeCharacterSourceTypeAndLeavesUriEmpty) {
  ma_test::TraceCapture capture;
  std::string uri = "previous content";
  EXPECT_EQ(kInvalidArgument, mdcSelectionCreate(uri, parts("fil", "usb1", "music")));
  EXPECT_EQ("", uri);
  EXPECT_THAT(maskedLines(capture),
              ElementsAre(failureLine("mdcSelectionCreate", "Invalid source type \"fil\".\n")));
}

TEST(SelectionCreate, RejectsFiveCharacterSourceTypeAndLeavesUriEmpty) {
  ma_test::TraceCapture capture;
  std::string uri = "previous content";
  EXPECT_EQ(kInvalidArgument, mdcSelectionCreate(uri, parts("files", "usb1", "music")));
  EXPECT_EQ("", uri);
  EXPECT_THAT(maskedLines(capture),
              ElementsAre(failureLine("mdcSelectionCreate", "Invalid source type \"files\".\n")));
}

TEST(SelectionCreate, RejectsEmptySourceType) {
  ma_test::TraceCapture capture;
  std::string uri = "x";
  EXPECT_EQ(kInvalidArgument, mdcSelectionCreate(uri, parts("", "usb1", "music")));
  EXPECT_EQ("", uri);
  EXPECT_THAT(maskedLines(capture),
              ElementsAre(failureLine("mdcSelectionCreate", "Invalid source type \"\".\n")));
}

TEST(SelectionCreate, WritesSourceTypeIntoFailureLineAsTextNotFormat) {
  ma_test::TraceCapture capture;
  std::string uri;
  EXPECT_EQ(kInvalidArgument, mdcSelectionCreate(uri, parts("%s%", "v", "p")));
  EXPECT_THAT(maskedLines(capture),
              ElementsAre(failureLine("mdcSelectionCreate", "Invalid source type \"%s%\".\n")));
}

TEST(SelectionCreate, ChecksOnlyTheLengthOfTheSourceType) {
  std::string uri;
  EXPECT_EQ(0, mdcSelectionCreate(uri, parts(":/?&", "v", "p")));
  EXPECT_EQ(":/?&://v/p", uri);
}

TEST(SelectionCreate, CountsSourceTypeLengthInBytes) {
  ma_test::TraceCapture capture;
  std::string uri;
  // "\xC3\xA9" is one character to a reader but two bytes.
  EXPECT_EQ(0, mdcSelectionCreate(uri, parts("\xC3\xA9\xC3\xA9", "v", "p")));
  EXPECT_EQ("\xC3\xA9\xC3\xA9://v/p", uri);
  EXPECT_EQ(kInvalidArgument, mdcSelectionCreate(uri, parts("\xC3\xA9\xC3\xA9\xC3\xA9", "v", "p")));
  EXPECT_THAT(maskedLines(capture),
              ElementsAre(failureLine("mdcSelectionCreate",
                                      "Invalid source type \"\xC3\xA9\xC3\xA9\xC3\xA9\".\n")));
}

TEST(SelectionCreate, WithEmptyVolumeAndPathWritesTypeAndSlashes) {
  std::string uri;
  EXPECT_EQ(0, mdcSelectionCreate(uri, parts("file", "", "")));
  EXPECT_EQ("file:///", uri);
}

TEST(SelectionCreate, WritesEmptyKeysAndValues) {
  std::string uri;
  EXPECT_EQ(0, mdcSelectionCreate(uri, parts("file", "v", "p", {{"", ""}})));
  EXPECT_EQ("file://v/p?", uri);
  EXPECT_EQ(0, mdcSelectionCreate(uri, parts("file", "v", "p", {{"", "x"}, {"k", ""}})));
  EXPECT_EQ("file://v/p?=xk", uri);
}

TEST(SelectionCreate, WritesSlashQuestionMarkEqualsAndAmpersandUnescaped) {
  std::string uri;
  EXPECT_EQ(0, mdcSelectionCreate(
                   uri, parts("a/?=", "vol/?=&", "pa/th?x=1&y", {{"k&=/?", "v&=/?"}, {"&", "="}})));
  EXPECT_EQ("a/?=://vol/?=&/pa/th?x=1&y?&==k&=/?=v&=/?", uri);
}

TEST(SelectionCreate, WritesNulBytesOfFieldsAsTheyAre) {
  std::string uri;
  std::string const nul(1, '\0');
  EXPECT_EQ(0, mdcSelectionCreate(uri, parts("fi" + nul + "e", "u" + nul, nul + "p",
                                             {{"k" + nul, nul}})));
  EXPECT_EQ("fi" + nul + "e://u" + nul + "/" + nul + "p?k" + nul + "=" + nul, uri);
  EXPECT_EQ(17u, uri.size());
}

TEST(SelectionCreate, WritesVeryLongFields) {
  std::string const volume(100000, 'v');
  std::string const path(200000, 'p');
  std::string const key(50000, 'k');
  std::string const value(70000, 'x');
  std::string uri;
  EXPECT_EQ(0, mdcSelectionCreate(uri, parts("file", volume, path, {{key, value}})));
  EXPECT_EQ("file://" + volume + "/" + path + "?" + key + "=" + value, uri);
}

TEST(SelectionCreate, ReplacesEarlierContentOfUri) {
  std::string uri = "something that was here before and is longer than the result";
  EXPECT_EQ(0, mdcSelectionCreate(uri, parts("file", "v", "p")));
  EXPECT_EQ("file://v/p", uri);
}

// --- parse: failures ---

TEST(SelectionTraceGate, FailureLinesFollowTheLevelOfTheSelectionModule) {
  ma::SelectionStrings result = previousParts();
  std::string uri;

  zel_standin::setThreshold(126, 2999);  // failures (level 3000) off
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(kInvalidArgument, mdcSelectionCreate(uri, parts("abc", "v", "p")));
  EXPECT_EQ(kInvalidArgument, mdcSelectionParse(result, "file"));
  const std::string silenced = ::testing::internal::GetCapturedStderr();
  zel_standin::resetThresholds();
  EXPECT_EQ("", silenced);

  ::testing::internal::CaptureStderr();  // default threshold: failures on
  EXPECT_EQ(kInvalidArgument, mdcSelectionParse(result, "file"));
  const std::string written = ::testing::internal::GetCapturedStderr();
  EXPECT_NE(std::string::npos, written.find("mdcSelectionParse(): No source type specifier found.\n"))
      << written;
}

TEST(SelectionParse, OfEmptyTextFailsWithoutSourceType) {
  ma_test::TraceCapture capture;
  ma::SelectionStrings result = previousParts();
  EXPECT_EQ(kInvalidArgument, mdcSelectionParse(result, ""));
  expectSameParts(previousParts(), result);
  EXPECT_THAT(maskedLines(capture),
              ElementsAre(failureLine("mdcSelectionParse", "No source type specifier found.\n")));
}

TEST(SelectionParse, OfTextWithoutColonFailsWithoutSourceType) {
  ma_test::TraceCapture capture;
  ma::SelectionStrings result = previousParts();
  EXPECT_EQ(kInvalidArgument, mdcSelectionParse(result, "file"));
  expectSameParts(previousParts(), result);
  EXPECT_THAT(maskedLines(capture),
              ElementsAre(failureLine("mdcSelectionParse", "No source type specifier found.\n")));
}

TEST(SelectionParse, WithSingleSlashAfterColonFailsForMissingDoubleSlash) {
  ma_test::TraceCapture capture;
  ma::SelectionStrings result = previousParts();
  EXPECT_EQ(kInvalidArgument, mdcSelectionParse(result, "file:/x"));
  expectSameParts(previousParts(), result);
  EXPECT_THAT(maskedLines(capture),
              ElementsAre(failureLine("mdcSelectionParse",
                                      "Invalid syntax, missing \"//\" after colon.\n")));
}

TEST(SelectionParse, WithTextEndingAtOrRightAfterColonFailsForMissingDoubleSlash) {
  for (char const* uri : {"file:", "file:/", ":", "file:x//"}) {
    SCOPED_TRACE(uri);
    ma_test::TraceCapture capture;
    ma::SelectionStrings result = previousParts();
    EXPECT_EQ(kInvalidArgument, mdcSelectionParse(result, uri));
    expectSameParts(previousParts(), result);
    EXPECT_THAT(maskedLines(capture),
                ElementsAre(failureLine("mdcSelectionParse",
                                        "Invalid syntax, missing \"//\" after colon.\n")));
  }
}

TEST(SelectionParse, ChecksDoubleSlashBehindTheFirstColon) {
  ma_test::TraceCapture capture;
  ma::SelectionStrings result = previousParts();
  EXPECT_EQ(kInvalidArgument, mdcSelectionParse(result, "a:b://usb1/x"));
  EXPECT_THAT(maskedLines(capture),
              ElementsAre(failureLine("mdcSelectionParse",
                                      "Invalid syntax, missing \"//\" after colon.\n")));
}

TEST(SelectionParse, ReadsTextOnlyUpToFirstNulByte) {
  std::string const nul(1, '\0');
  struct Case {
    std::string uri;
    char const* message;
  } const cases[] = {
      {nul + "file://usb1/x", "No source type specifier found.\n"},
      {"file" + nul + "://usb1/x", "No source type specifier found.\n"},
      {"file:" + nul + "//usb1/x", "Invalid syntax, missing \"//\" after colon.\n"},
      {"file:/" + nul + "/usb1/x", "Invalid syntax, missing \"//\" after colon.\n"},
  };
  for (Case const& c : cases) {
    SCOPED_TRACE(c.uri.size());
    expectRefused(mdcSelectionParse, "mdcSelectionParse", c.uri, c.message);
  }
}

// --- parse: every URI with "://" ---

TEST(SelectionParse, ReplacesSourceTypeThenThrowsLengthError) {
  ma_test::TraceCapture capture;
  ma::SelectionStrings result = previousParts();
  EXPECT_THROW(mdcSelectionParse(result, "file://usb1/music"), std::length_error);
  EXPECT_EQ("file", result.sourceType);
  EXPECT_THAT(maskedLines(capture), IsEmpty());
}

TEST(SelectionParse, LengthErrorLeavesVolumePathAndParametersUntouched) {
  ma::SelectionStrings result = previousParts();
  EXPECT_THROW(mdcSelectionParse(result, "dvbt://tuner0/channels/1?lcn=1&hd"), std::length_error);
  ma::SelectionStrings expected = previousParts();
  expected.sourceType = "dvbt";
  expectSameParts(expected, result);
}

TEST(SelectionParse, ThrowsLengthErrorForEveryUriWithDoubleSlash) {
  std::string const nul(1, '\0');
  struct Case {
    std::string uri;
    std::string sourceType;
  } const cases[] = {
      {"file://", "file"},
      {"file:///", "file"},  // empty volume: the volume check never fires
      {"file:///x", "file"},
      {"file://usb1", "file"},  // no "/" behind the volume
      {"://usb1/x", ""},
      {"f://v/p", "f"},
      {"fi/le?a=b&c://v/p", "fi/le?a=b&c"},
      {"file://v" + nul + "/p", "file"},
      {"file://" + nul, "file"},
  };
  for (Case const& c : cases) {
    SCOPED_TRACE(c.sourceType);
    ma_test::TraceCapture capture;
    ma::SelectionStrings result = previousParts();
    EXPECT_THROW(mdcSelectionParse(result, c.uri), std::length_error);
    EXPECT_EQ(c.sourceType, result.sourceType);
    EXPECT_EQ("oldvolume", result.volume);
    EXPECT_EQ("old/path", result.path);
    EXPECT_THAT(maskedLines(capture), IsEmpty());
  }
}

TEST(SelectionParse, ThrowsLengthErrorAfterVeryLongSourceType) {
  std::string const sourceType(100000, 's');
  ma::SelectionStrings result = previousParts();
  EXPECT_THROW(mdcSelectionParse(result, sourceType + "://" + std::string(100000, 'v') + "/p"),
               std::length_error);
  EXPECT_EQ(sourceType, result.sourceType);
  EXPECT_EQ("oldvolume", result.volume);
}

TEST(SelectionParse, OfCreatedUriReplacesSourceTypeThenThrows) {
  std::string uri;
  ASSERT_EQ(0, mdcSelectionCreate(uri, parts("dvbs", "sat1", "ch/7", {{"a", "1"}})));
  ma::SelectionStrings result = previousParts();
  EXPECT_THROW(mdcSelectionParse(result, uri), std::length_error);
  EXPECT_EQ("dvbs", result.sourceType);
  EXPECT_EQ(previousParts().parameters, result.parameters);
}

}  // namespace
