// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Selection URIs on arbitrary input.
//
// Parse: a text (up to its first NUL) without "//" right behind its first
// ":" fails with -22 and leaves the parts as they were; any other text
// replaces the source type with the text before the first ":" and ends in
// std::length_error with the other parts untouched. It never succeeds.
// Create: the input, split at its first three NUL bytes into source type,
// volume, path and one parameter key (whose value is the volume text), is
// written exactly as composed; it fails with -22 and an empty URI precisely
// when the source type is not four characters long.
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "ma/mdc_selection_uris.h"

namespace {

void check(bool condition) {
  if (!condition) std::abort();
}

void fuzzParse(const std::string& text) {
  ma::SelectionStrings parts;
  parts.sourceType = "old-type";
  parts.volume = "old-volume";
  parts.path = "old/path";
  parts.parameters["old"] = "value";
  const ma::SelectionStrings before = parts;
  const std::string visible = text.substr(0, text.find('\0'));
  const std::size_t colon = visible.find(':');
  const bool slashesBehindColon =
      colon != std::string::npos && visible.compare(colon + 1, 2, "//") == 0;
  try {
    check(mdcSelectionParse(parts, text) == -22);
    check(!slashesBehindColon);
    check(parts.sourceType == before.sourceType);
  } catch (const std::length_error&) {
    check(slashesBehindColon);
    check(parts.sourceType == visible.substr(0, colon));
  }
  check(parts.volume == before.volume && parts.path == before.path &&
        parts.parameters == before.parameters);
}

void fuzzCreate(const std::string& text) {
  std::vector<std::string> fields(4);
  std::size_t field = 0;
  for (char c : text) {
    if (c == '\0' && field < 3) {
      ++field;
    } else {
      fields[field] += c;
    }
  }
  ma::SelectionStrings parts;
  parts.sourceType = fields[0];
  parts.volume = fields[1];
  parts.path = fields[2];
  if (!fields[3].empty()) parts.parameters[fields[3]] = fields[1];

  std::string uri = "previous";
  const int result = mdcSelectionCreate(uri, parts);
  if (parts.sourceType.size() != 4) {
    check(result == -22 && uri.empty());
    return;
  }
  std::string expected = parts.sourceType + "://" + parts.volume + "/" + parts.path;
  if (!fields[3].empty()) {
    expected += "?" + fields[3];
    if (!fields[1].empty()) expected += "=" + fields[1];
  }
  check(result == 0 && uri == expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  fuzzParse(text);
  fuzzCreate(text);
  return 0;
}
