// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Reading selection URIs back with mdcSelectionSplit(): fixed cases, the
// failures with their trace lines, the documented readings of ambiguous
// texts, and seeded randomized round trips through mdcSelectionCreate().
#include "ma/mdc_selection_uris.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <map>
#include <random>
#include <string>

#include "ma_test/run_length.h"
#include "ma_test/trace_capture.h"
#include "selection_parts.h"
#include "selection_trace_lines.h"

namespace {

using selection_test::expectRefused;
using selection_test::expectSameParts;
using selection_test::kInvalidArgument;
using selection_test::maskedLines;
using selection_test::parts;
using selection_test::previousParts;
using ::testing::IsEmpty;

using Parameters = std::map<std::string, std::string>;

bool sameParts(ma::SelectionStrings const& a, ma::SelectionStrings const& b) {
  return a.sourceType == b.sourceType && a.volume == b.volume && a.path == b.path &&
         a.parameters == b.parameters;
}

// The parts that mdcSelectionSplit() reads from `uri`; fails the test when
// it refuses the text.
ma::SelectionStrings split(std::string const& uri) {
  ma::SelectionStrings result = previousParts();
  EXPECT_EQ(0, mdcSelectionSplit(result, uri)) << uri;
  return result;
}

std::string create(ma::SelectionStrings const& x) {
  std::string uri;
  EXPECT_EQ(0, mdcSelectionCreate(uri, x));
  return uri;
}

// --- fixed cases ---

TEST(SelectionSplit, ReadsSourceTypeVolumeAndPath) {
  ma_test::TraceCapture capture;
  expectSameParts(parts("file", "usb1", "music/a.mp3"), split("file://usb1/music/a.mp3"));
  EXPECT_THAT(maskedLines(capture), IsEmpty());
}

TEST(SelectionSplit, ReplacesEveryFieldAndClearsEarlierParameters) {
  ma::SelectionStrings result = previousParts();
  ASSERT_EQ(0, mdcSelectionSplit(result, "dvbt://tuner0/ch?lcn=1"));
  expectSameParts(parts("dvbt", "tuner0", "ch", {{"lcn", "1"}}), result);
}

TEST(SelectionSplit, ReadsEmptyVolumeAndPath) {
  expectSameParts(parts("file", "", ""), split("file:///"));
  expectSameParts(parts("file", "", "x"), split("file:///x"));
  expectSameParts(parts("file", "v", ""), split("file://v/"));
}

TEST(SelectionSplit, ReadsParametersWrittenBackToBack) {
  expectSameParts(parts("file", "v", "p", {{"a", "1"}, {"b", "2"}}), split("file://v/p?a=1b=2"));
  expectSameParts(parts("dvbt", "tuner0", "ch", {{"lcn", "7"}, {"start", "120"}}),
                  split("dvbt://tuner0/ch?lcn=7start=120"));
}

TEST(SelectionSplit, ReadsLettersOfTheLastValue) {
  expectSameParts(parts("file", "v", "p", {{"lang", "deu"}}), split("file://v/p?lang=deu"));
  expectSameParts(parts("file", "v", "p", {{"a", "12"}, {"mode", "hd 1080p"}}),
                  split("file://v/p?a=12mode=hd 1080p"));
}

TEST(SelectionSplit, ReadsOneKeyWithoutValue) {
  expectSameParts(parts("file", "v", "p", {{"hd", ""}}), split("file://v/p?hd"));
}

TEST(SelectionSplit, ReadsAQuestionMarkAloneAsTheEmptyKey) {
  // What mdcSelectionCreate() writes for {"": ""}.
  expectSameParts(parts("file", "v", "p", {{"", ""}}), split("file://v/p?"));
}

TEST(SelectionSplit, ReadsAnEmptyFirstKey) {
  expectSameParts(parts("file", "v", "p", {{"", "x"}}), split("file://v/p?=x"));
  expectSameParts(parts("file", "v", "p", {{"", "1"}, {"b", "2"}}), split("file://v/p?=1b=2"));
}

TEST(SelectionSplit, TakesExactlyFourBytesAsSourceType) {
  expectSameParts(parts(":/?&", "v", "p"), split(":/?&://v/p"));
  expectSameParts(parts("a://", "v", "p"), split("a://://v/p"));
}

TEST(SelectionSplit, ReadsNulBytesAsOrdinaryBytes) {
  std::string const nul(1, '\0');
  ma::SelectionStrings const x =
      parts("fi" + nul + "e", "u" + nul, nul + "p", {{"k" + nul, nul}});
  expectSameParts(x, split("fi" + nul + "e://u" + nul + "/" + nul + "p?k" + nul + "=" + nul));
}

TEST(SelectionSplit, KeepsQuestionMarksAndEqualsOfTheVolume) {
  expectSameParts(parts("file", "v?x=1", "p"), split("file://v?x=1/p"));
}

TEST(SelectionSplit, KeepsAmpersandsInKeysAndValues) {
  expectSameParts(parts("file", "v", "p", {{"a", "1&"}, {"b&c", "2"}}), split("file://v/p?a=1&b&c=2"));
}

// --- failures ---

struct Refused {
  std::string uri;
  char const* message;
};

TEST(SelectionSplit, RefusesTextsThatAreNotSelectionUris) {
  std::string const nul(1, '\0');
  char const* const noSourceType = "No four-character source type followed by \"://\" found.\n";
  char const* const noSlash = "No \"/\" found behind the volume.\n";
  Refused const cases[] = {
      {"", noSourceType},
      {"file", noSourceType},
      {"file:/", noSourceType},
      {"file:/x/y", noSourceType},
      {"fil://v/p", noSourceType},        // three-byte source type
      {"files://v/p", noSourceType},      // five-byte source type
      {"file:x//v/p", noSourceType},
      {nul + "file://v/p", noSourceType},
      {"file://", noSlash},
      {"file://usb1", noSlash},
      {"file://usb1?a=1", noSlash},
      {"file://" + nul, noSlash},
  };
  for (Refused const& c : cases) {
    SCOPED_TRACE(c.uri);
    expectRefused(mdcSelectionSplit, "mdcSelectionSplit", c.uri, c.message);
  }
}

TEST(SelectionSplit, ReadsWhatTheLegacyParserThrowsOn) {
  // mdcSelectionParse() throws std::length_error for this URI.
  ma::SelectionStrings result;
  EXPECT_EQ(0, mdcSelectionSplit(result, "file://usb1/music"));
  expectSameParts(parts("file", "usb1", "music"), result);
}

// --- ambiguous texts: the documented reading ---

TEST(SelectionSplit, MovesASlashOfTheVolumeIntoThePath) {
  ma::SelectionStrings const x = parts("file", "usb1/a", "b");
  expectSameParts(parts("file", "usb1", "a/b"), split(create(x)));
}

TEST(SelectionSplit, StartsTheParametersAtAQuestionMarkOfThePath) {
  ma::SelectionStrings const x = parts("file", "v", "a?b=1");
  expectSameParts(parts("file", "v", "a", {{"b", "1"}}), split(create(x)));
}

TEST(SelectionSplit, JoinsAParameterWithEmptyValueToItsNeighbour) {
  ma::SelectionStrings const x = parts("dvbt", "t", "c", {{"hd", ""}, {"lcn", "7"}});
  EXPECT_EQ("dvbt://t/c?hdlcn=7", create(x));
  expectSameParts(parts("dvbt", "t", "c", {{"hdlcn", "7"}}), split(create(x)));

  ma::SelectionStrings const last = parts("dvbt", "t", "c", {{"a", "1"}, {"hd", ""}});
  expectSameParts(parts("dvbt", "t", "c", {{"a", "1hd"}}), split(create(last)));

  ma::SelectionStrings const twoKeys = parts("dvbt", "t", "c", {{"a", ""}, {"b", ""}});
  expectSameParts(parts("dvbt", "t", "c", {{"ab", ""}}), split(create(twoKeys)));
}

TEST(SelectionSplit, StartsTheNextKeyAtTheFirstLetterOfAValueBeforeTheLast) {
  ma::SelectionStrings const x = parts("file", "v", "p", {{"a", "1x"}, {"b", "2"}});
  expectSameParts(parts("file", "v", "p", {{"a", "1"}, {"xb", "2"}}), split(create(x)));
}

TEST(SelectionSplit, KeepsAnEqualsSignInTheValueWhenTheNextKeyWouldNotSortAfter) {
  // "b=1a=2": the key "a" would not follow "b" in the writer's order.
  expectSameParts(parts("file", "v", "p", {{"b", "1a=2"}}), split("file://v/p?b=1a=2"));
  // No letter, so no key, behind the "=".
  expectSameParts(parts("file", "v", "p", {{"a", "1=2"}}), split("file://v/p?a=1=2"));
  // An empty value is never read: the "=" joins the value behind it.
  expectSameParts(parts("file", "v", "p", {{"a", "=b"}}), split("file://v/p?a==b"));
  expectSameParts(parts("file", "v", "p", {{"a", "x=2"}}), split("file://v/p?a=x=2"));
}

TEST(SelectionSplit, GivesATrailingEqualsSignToTheLastKey) {
  expectSameParts(parts("file", "v", "p", {{"a=", ""}}), split("file://v/p?a="));
  expectSameParts(parts("file", "v", "p", {{"a", "1"}, {"b=", ""}}), split("file://v/p?a=1b="));
  expectSameParts(parts("file", "v", "p", {{"a", "1="}}), split("file://v/p?a=1="));
  expectSameParts(parts("file", "v", "p", {{"=", ""}}), split("file://v/p?="));
}

// --- seeded randomized round trips ---

// Random parts. Bytes are drawn from all 256 values; `unambiguous()` keeps
// to the parts that mdcSelectionSplit() documents as read back unchanged.
class RandomParts {
 public:
  explicit RandomParts(std::uint32_t seed) : engine_(seed) {}

  // Any parts that mdcSelectionCreate() writes.
  ma::SelectionStrings any() {
    ma::SelectionStrings x;
    x.sourceType = text(4, 4, kAnyByte);
    x.volume = text(0, 12, kAnyByte);
    x.path = text(0, 20, kAnyByte);
    std::size_t const count = number(0, 5);
    for (std::size_t i = 0; i < count; ++i) {
      x.parameters[text(0, 6, kAnyByte)] = number(0, 3) == 0 ? std::string() : text(0, 6, kAnyByte);
    }
    return x;
  }

  // Parts read back unchanged: no "/" in the volume, no "?" in the path,
  // and none, one key alone, or a list of the documented form.
  ma::SelectionStrings unambiguous() {
    ma::SelectionStrings x;
    x.sourceType = text(4, 4, kAnyByte);
    x.volume = text(0, 12, [](char c) { return c != '/'; });
    x.path = text(0, 20, [](char c) { return c != '?'; });
    switch (number(0, 2)) {
      case 0:
        break;
      case 1:
        x.parameters[text(0, 8, kNoEquals)] = std::string();
        break;
      default:
        x.parameters = parameterList();
        break;
    }
    return x;
  }

 private:
  static bool kAnyByte(char) { return true; }
  static bool kNoEquals(char c) { return c != '='; }
  static bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

  std::size_t number(std::size_t low, std::size_t high) {
    return std::uniform_int_distribution<std::size_t>(low, high)(engine_);
  }

  // A text of `low` to `high` bytes, each drawn from the 256 values that
  // `allowed` lets through.
  template <typename Allowed>
  std::string text(std::size_t low, std::size_t high, Allowed allowed) {
    std::string result;
    std::size_t const size = number(low, high);
    while (result.size() < size) {
      char const c = static_cast<char>(number(0, 255));
      if (allowed(c)) result += c;
    }
    return result;
  }

  char letter() {
    static char const kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    return kLetters[number(0, 51)];
  }

  // One to five parameters: keys and values without "=", values not empty,
  // keys after the first beginning with a letter, values before the last
  // without letters (the last one may hold any byte but "=").
  Parameters parameterList() {
    Parameters list;
    std::size_t const count = number(1, 5);
    while (list.size() + 1 < count) {
      list[letter() + text(0, 6, kNoEquals)];
    }
    // The first key in the writer's order may begin with any byte but "=".
    std::string first = text(0, 6, kNoEquals);
    while (!list.empty() && !(first < list.begin()->first)) {
      first = text(0, 6, kNoEquals);
    }
    list[first];
    for (auto it = list.begin(); it != list.end(); ++it) {
      bool const last = std::next(it) == list.end();
      it->second = last ? text(1, 8, kNoEquals)
                        : text(1, 6, [](char c) { return c != '=' && !isLetter(c); });
    }
    return list;
  }

  std::mt19937 engine_;
};

// Round trips per property: 20,000 natively, 2,000 under the slow tools,
// 200,000 with MA_TEST_LONG=1.
int roundTrips() { return static_cast<int>(ma_test::runLength(20000, 200000, 2000)); }

TEST(SelectionSplitProperty, ReadsUnambiguousPartsBackUnchanged) {
  std::uint32_t const seed = 0x5EED0511u;
  SCOPED_TRACE("seed " + std::to_string(seed));
  RandomParts random(seed);
  int const rounds = roundTrips();
  int withParameters = 0;
  int severalParameters = 0;
  for (int i = 0; i < rounds; ++i) {
    ma::SelectionStrings const x = random.unambiguous();
    std::string const uri = create(x);
    ma::SelectionStrings read = previousParts();
    ASSERT_EQ(0, mdcSelectionSplit(read, uri)) << "round " << i;
    ASSERT_TRUE(sameParts(x, read)) << "round " << i << ": " << ::testing::PrintToString(uri);
    withParameters += x.parameters.empty() ? 0 : 1;
    severalParameters += x.parameters.size() > 1 ? 1 : 0;
  }
  // The draw reaches every form, so that the property is not vacuous.
  EXPECT_GT(withParameters, rounds / 2);
  EXPECT_GT(severalParameters, rounds / 5);
}

TEST(SelectionSplitProperty, ReadsEveryWrittenUriSoThatWritingAgainGivesItBack) {
  std::uint32_t const seed = 0x5EED0512u;
  SCOPED_TRACE("seed " + std::to_string(seed));
  RandomParts random(seed);
  int const rounds = roundTrips();
  int changed = 0;
  for (int i = 0; i < rounds; ++i) {
    ma::SelectionStrings const x = random.any();
    std::string const uri = create(x);
    ma::SelectionStrings read;
    ASSERT_EQ(0, mdcSelectionSplit(read, uri)) << "round " << i;
    ASSERT_EQ(uri, create(read)) << "round " << i;
    changed += sameParts(x, read) ? 0 : 1;
  }
  // Arbitrary parts are often ambiguous: the draw does reach them.
  EXPECT_GT(changed, rounds / 10);
}

TEST(SelectionSplitProperty, RefusesTextWithoutTheWrittenFrameAndReadsTheRest) {
  std::uint32_t const seed = 0x5EED0513u;
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 engine(seed);
  int const rounds = roundTrips();
  ma_test::TraceCapture capture;
  // Texts over a small alphabet rich in the separators.
  static char const kAlphabet[] = {':', '/', '?', '=', '&', 'a', 'Z', '1', '\0'};
  int accepted = 0;
  for (int i = 0; i < rounds; ++i) {
    std::string text;
    std::size_t const size = std::uniform_int_distribution<std::size_t>(0, 16)(engine);
    for (std::size_t n = 0; n < size; ++n) {
      text += kAlphabet[std::uniform_int_distribution<std::size_t>(0, sizeof kAlphabet - 1)(engine)];
    }
    if (i % 2 == 0 && text.size() >= 4) text.replace(4, 3, "://");
    bool const framed =
        text.size() >= 7 && text.compare(4, 3, "://") == 0 && text.find('/', 7) != std::string::npos;
    ma::SelectionStrings read = previousParts();
    capture.clear();
    int const result = mdcSelectionSplit(read, text);
    if (!framed) {
      ASSERT_EQ(kInvalidArgument, result) << "round " << i;
      ASSERT_TRUE(sameParts(previousParts(), read)) << "round " << i;
      ASSERT_EQ(1u, capture.lines().size()) << "round " << i;  // one line per refusal
      continue;
    }
    ++accepted;
    ASSERT_EQ(0, result) << "round " << i;
    ASSERT_EQ(text, create(read)) << "round " << i;
    ASSERT_TRUE(capture.lines().empty()) << "round " << i;
  }
  EXPECT_GT(accepted, rounds / 10);
}

}  // namespace
