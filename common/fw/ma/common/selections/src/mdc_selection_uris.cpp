// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Selection URIs: writing and splitting "type://volume/path?parameters".
//
// mdcSelectionParse() keeps the delivered behaviour that its clients were
// built against (std::length_error for every well-formed URI);
// mdcSelectionSplit() is the working reader for new code.
#include "ma/mdc_selection_uris.h"

#include <cerrno>
#include <cstring>
#include <map>
#include <sstream>
#include <utility>
#include <vector>

#include "ma_internal/trace.h"
#include "mdc_selection_uris_internal.h"

namespace ma {
namespace selection_uris {

static_assert(kInvalidArgument == -EINVAL, "selection failures answer -EINVAL");

namespace {

// The name that the parse's trace lines carry, whichever step writes them.
constexpr char kParseName[] = "mdcSelectionParse";

constexpr std::string::size_type kSourceTypeLength = 4;

// The text of [begin, end). A reversed range has a negative length, which the
// string refuses like any length beyond max_size(): with std::length_error.
std::string textBetween(char const* begin, char const* end) {
  std::string text;
  text.reserve(static_cast<std::string::size_type>(end - begin));
  text.assign(begin, end);
  return text;
}

// The first `c` at or after `from`, or the text's terminating NUL.
char const* findOrEnd(char const* from, char c) {
  char const* found = std::strchr(from, c);
  return found != nullptr ? found : from + std::strlen(from);
}

// One parameter read from the front of the remaining query text.
struct Parameter {
  std::string key;
  std::string value;
  char const* rest;  // where the search for the next "&" starts
};

// Reads the parameter at `cursor`. The "=" is searched in the whole remaining
// text, so a key may contain "&". A key that has a value keeps its "=" ("a="
// for "a=1"); a key whose "=" ends the text loses it; without "=" the whole
// remaining text is the key. The value ends at the next "&" or the end.
Parameter readParameter(char const* cursor) {
  char const* equals = std::strchr(cursor, '=');
  if (equals == nullptr) {
    char const* end = cursor + std::strlen(cursor);
    return {textBetween(cursor, end), std::string(), end};
  }
  char const* valueBegin = equals + 1;
  if (*valueBegin == '\0') {
    return {textBetween(cursor, equals), std::string(), equals};
  }
  char const* valueEnd = findOrEnd(valueBegin, '&');
  return {textBetween(cursor, valueBegin), textBetween(valueBegin, valueEnd), valueEnd};
}

}  // namespace

int parseSelectionText(SelectionStrings& parts, char const* text) {
  if (text == nullptr) {
    MA_TRACE_AT(trace::kSelectionFailures, __LINE__, kParseName, "Received empty URI.\n");
    return kInvalidArgument;
  }
  char const* colon = std::strchr(text, ':');
  if (colon == nullptr) {
    MA_TRACE_AT(trace::kSelectionFailures, __LINE__, kParseName,
                "No source type specifier found.\n");
    return kInvalidArgument;
  }
  if (colon[1] != '/' || colon[2] != '/') {
    MA_TRACE_AT(trace::kSelectionFailures, __LINE__, kParseName,
                "Invalid syntax, missing \"//\" after colon.\n");
    return kInvalidArgument;
  }
  char const* volumeBegin = colon + 3;
  // Searched from the colon itself: this finds the first "/" of the "//".
  char const* volumeEnd = findVolumeEnd(colon, volumeBegin);
  if (volumeEnd == nullptr) {
    return kInvalidArgument;
  }
  parts.sourceType = textBetween(text, colon);
  // volumeEnd lies two characters before volumeBegin: this throws
  // std::length_error for every URI, the parser's delivered behaviour.
  parts.volume = textBetween(volumeBegin, volumeEnd);
  return parsePathAndParameters(parts, volumeEnd + 1);
}

char const* findVolumeEnd(char const* searchFrom, char const* volumeBegin) {
  char const* slash = std::strchr(searchFrom, '/');
  if (slash == nullptr || slash == volumeBegin) {
    MA_TRACE_AT(trace::kSelectionFailures, __LINE__, kParseName,
                "No volume specifier found.\n");
    return nullptr;
  }
  return slash;
}

int parsePathAndParameters(SelectionStrings& parts, char const* pathBegin) {
  char const* pathEnd = findOrEnd(pathBegin, '?');
  parts.path = textBetween(pathBegin, pathEnd);
  if (*pathEnd == '\0' || pathEnd[1] == '\0') {
    return 0;
  }
  char const* cursor = pathEnd + 1;
  for (;;) {
    Parameter parameter = readParameter(cursor);
    parts.parameters[std::move(parameter.key)] = std::move(parameter.value);
    char const* ampersand = std::strchr(parameter.rest, '&');
    if (ampersand == nullptr || ampersand[1] == '\0') {
      return 0;
    }
    cursor = ampersand + 1;
  }
}

namespace {

// Every written URI begins with four bytes of source type and "://"; the
// volume follows.
constexpr char kSchemeSeparator[] = "://";
constexpr std::string::size_type kSchemeSeparatorLength = sizeof kSchemeSeparator - 1;
constexpr std::string::size_type kVolumeBegin = kSourceTypeLength + kSchemeSeparatorLength;

bool isAsciiLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

// Splits the text between two "=" into the end of one value and the next
// key: the key begins at the first ASCII letter.
std::pair<std::string, std::string> splitValueAndKey(std::string const& segment) {
  std::string::size_type letter = 0;
  while (letter < segment.size() && !isAsciiLetter(segment[letter])) {
    ++letter;
  }
  return {segment.substr(0, letter), segment.substr(letter)};
}

}  // namespace

std::map<std::string, std::string> splitParameters(std::string const& text) {
  std::map<std::string, std::string> parameters;
  std::vector<std::string> segments;  // the text between the "="
  std::string::size_type begin = 0;
  for (std::string::size_type equals = text.find('='); equals != std::string::npos;
       equals = text.find('=', begin)) {
    segments.push_back(text.substr(begin, equals - begin));
    begin = equals + 1;
  }
  segments.push_back(text.substr(begin));

  std::string key = std::move(segments.front());
  if (segments.size() == 1) {  // no "=": one key without value
    parameters.emplace(std::move(key), std::string());
    return parameters;
  }
  std::string value;
  for (std::size_t i = 1; i + 1 < segments.size(); ++i) {
    auto [valueEnd, nextKey] = splitValueAndKey(segments[i]);
    // A new parameter needs a non-empty value before it and a key that sorts
    // after the current one, as the writer orders them; otherwise the "="
    // belongs to the current value.
    std::string completeValue = value + valueEnd;
    if (!completeValue.empty() && key < nextKey) {
      parameters.emplace_hint(parameters.end(), std::move(key), std::move(completeValue));
      key = std::move(nextKey);
      value.clear();
    } else {
      value += segments[i];
      value += '=';
    }
  }
  value += segments.back();
  if (value.empty()) {
    key += '=';  // the text ends with "=": it belongs to the key
  }
  parameters.emplace_hint(parameters.end(), std::move(key), std::move(value));
  return parameters;
}

}  // namespace selection_uris
}  // namespace ma

int mdcSelectionCreate(std::string& uri, ma::SelectionStrings const& parts) {
  uri.clear();
  if (parts.sourceType.size() != ma::selection_uris::kSourceTypeLength) {
    MA_TRACE_AT(ma::trace::kSelectionFailures, __LINE__, __func__,
                "Invalid source type \"%s\".\n", parts.sourceType.c_str());
    return ma::selection_uris::kInvalidArgument;
  }
  std::ostringstream text;
  // Lets an exhausted allocator's std::bad_alloc pass instead of leaving a
  // cut URI behind (a stream otherwise only sets badbit).
  text.exceptions(std::ios::badbit);
  text << parts.sourceType << "://" << parts.volume << '/' << parts.path;
  if (!parts.parameters.empty()) {
    text << '?';
    for (auto const& [key, value] : parts.parameters) {
      text << key;
      if (!value.empty()) {
        text << '=' << value;
      }
    }
  }
  uri = text.str();
  return 0;
}

int mdcSelectionParse(ma::SelectionStrings& parts, std::string uri) {
  // A std::string always has a character pointer, so the "Received empty
  // URI." case cannot arise here; the check stays in parseSelectionText(),
  // which works on the raw text. The text ends at its first NUL byte.
  return ma::selection_uris::parseSelectionText(parts, uri.c_str());
}

int mdcSelectionSplit(ma::SelectionStrings& parts, std::string const& uri) {
  using ma::selection_uris::kInvalidArgument;
  using ma::selection_uris::kSchemeSeparator;
  using ma::selection_uris::kSchemeSeparatorLength;
  using ma::selection_uris::kSourceTypeLength;
  using ma::selection_uris::kVolumeBegin;
  if (uri.size() < kVolumeBegin ||
      uri.compare(kSourceTypeLength, kSchemeSeparatorLength, kSchemeSeparator) != 0) {
    MA_TRACE_AT(ma::trace::kSelectionFailures, __LINE__, __func__,
                "No four-character source type followed by \"://\" found.\n");
    return kInvalidArgument;
  }
  std::string::size_type const volumeEnd = uri.find('/', kVolumeBegin);
  if (volumeEnd == std::string::npos) {
    MA_TRACE_AT(ma::trace::kSelectionFailures, __LINE__, __func__,
                "No \"/\" found behind the volume.\n");
    return kInvalidArgument;
  }
  std::string::size_type const pathBegin = volumeEnd + 1;
  std::string::size_type const question = uri.find('?', pathBegin);

  // Built aside and moved in at the end: a failure leaves `parts` as it was.
  ma::SelectionStrings result;
  result.sourceType = uri.substr(0, kSourceTypeLength);
  result.volume = uri.substr(kVolumeBegin, volumeEnd - kVolumeBegin);
  result.path = uri.substr(pathBegin, question == std::string::npos ? std::string::npos
                                                                     : question - pathBegin);
  if (question != std::string::npos) {
    result.parameters = ma::selection_uris::splitParameters(uri.substr(question + 1));
  }
  parts = std::move(result);
  return 0;
}
