// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// mdcSelectionSplit() on arbitrary input, in two ways.
//
// As a text: it is read precisely when it begins with four bytes and "://"
// and has a "/" behind the volume; then the source type, volume and path are
// the slices the rules name, and writing the parts with mdcSelectionCreate()
// gives the text back byte for byte. Any other text is refused with -22 and
// leaves the parts as they were. Nothing is thrown.
//
// As parts: the first byte is a separator, the next four the source type,
// and the rest, split at the separator, volume, path and then keys and
// values in turn (so every byte but the separator can appear in a field).
// The URI written from them is read, and writing again gives the same URI;
// where the parts are of the form read back unchanged (documented in
// ma/mdc_selection_uris.h), they come back equal.
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "ma/mdc_selection_uris.h"
#include "zel/zel_standin.h"

namespace {

void check(bool condition) {
  if (!condition) std::abort();
}

bool sameParts(const ma::SelectionStrings& a, const ma::SelectionStrings& b) {
  return a.sourceType == b.sourceType && a.volume == b.volume && a.path == b.path &&
         a.parameters == b.parameters;
}

ma::SelectionStrings previousParts() {
  ma::SelectionStrings parts;
  parts.sourceType = "old-type";
  parts.volume = "old-volume";
  parts.path = "old/path";
  parts.parameters["old"] = "value";
  return parts;
}

void fuzzText(const std::string& text) {
  ma::SelectionStrings parts = previousParts();
  const int result = mdcSelectionSplit(parts, text);
  const bool framed =
      text.size() >= 7 && text.compare(4, 3, "://") == 0 && text.find('/', 7) != std::string::npos;
  if (!framed) {
    check(result == -22);
    check(sameParts(parts, previousParts()));
    return;
  }
  check(result == 0);
  const std::size_t slash = text.find('/', 7);
  const std::size_t question = text.find('?', slash + 1);
  check(parts.sourceType == text.substr(0, 4));
  check(parts.volume == text.substr(7, slash - 7));
  check(parts.path == text.substr(slash + 1, question == std::string::npos
                                                 ? std::string::npos
                                                 : question - slash - 1));
  check(parts.parameters.empty() == (question == std::string::npos));
  std::string written;
  check(mdcSelectionCreate(written, parts) == 0);
  check(written == text);
}

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool holds(const std::string& text, char c) { return text.find(c) != std::string::npos; }

bool holdsLetter(const std::string& text) {
  for (char c : text) {
    if (isLetter(c)) return true;
  }
  return false;
}

// The parameter lists read back unchanged, as the header states them.
bool readBackUnchanged(const std::map<std::string, std::string>& parameters) {
  if (parameters.empty()) return true;
  if (parameters.size() == 1 && parameters.begin()->second.empty()) {
    return !holds(parameters.begin()->first, '=');
  }
  for (auto it = parameters.begin(); it != parameters.end(); ++it) {
    const bool first = it == parameters.begin();
    const bool last = std::next(it) == parameters.end();
    if (holds(it->first, '=') || holds(it->second, '=') || it->second.empty()) return false;
    if (!first && (it->first.empty() || !isLetter(it->first[0]))) return false;
    if (!last && holdsLetter(it->second)) return false;
  }
  return true;
}

void fuzzParts(const std::string& data) {
  if (data.size() < 5) return;
  const char separator = data[0];
  ma::SelectionStrings x;
  x.sourceType = data.substr(1, 4);
  std::vector<std::string> fields(1);
  for (std::size_t i = 5; i < data.size(); ++i) {
    if (data[i] == separator) {
      fields.emplace_back();
    } else {
      fields.back() += data[i];
    }
  }
  x.volume = fields[0];
  if (fields.size() > 1) x.path = fields[1];
  for (std::size_t i = 2; i < fields.size(); i += 2) {
    x.parameters[fields[i]] = i + 1 < fields.size() ? fields[i + 1] : std::string();
  }

  std::string uri;
  check(mdcSelectionCreate(uri, x) == 0);
  ma::SelectionStrings read = previousParts();
  check(mdcSelectionSplit(read, uri) == 0);
  std::string again;
  check(mdcSelectionCreate(again, read) == 0);
  check(again == uri);
  if (!holds(x.volume, '/') && !holds(x.path, '?') && readBackUnchanged(x.parameters)) {
    check(sameParts(read, x));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The refusals' trace lines (selection module 126) are not formatted.
  static const bool quiet = (zel_standin::setThreshold(126, 0), true);
  (void)quiet;
  const std::string text(reinterpret_cast<const char*>(data), size);
  fuzzText(text);
  fuzzParts(text);
  return 0;
}
