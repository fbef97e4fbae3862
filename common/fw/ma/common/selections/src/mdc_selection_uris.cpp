// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Selection URIs: writing and splitting "type://volume/path?parameters".
#include "ma/mdc_selection_uris.h"

#include <cerrno>
#include <cstring>
#include <sstream>
#include <utility>

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
