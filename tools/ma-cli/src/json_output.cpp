// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// JSON documents printed with nlohmann-json, made safe for a terminal.
#include "json_output.h"

#include <algorithm>
#include <cstdio>

namespace ma_cli {

std::string jsonText(Json const& document, int indent) {
  std::string const text = document.dump(indent, ' ', false, Json::error_handler_t::replace);
  std::string safe;
  safe.reserve(text.size());
  unsigned char const* const bytes = reinterpret_cast<unsigned char const*>(text.data());
  // The text is well-formed UTF-8 (the writer replaced whatever was not);
  // DEL, C1, bidirectional controls and line and paragraph separators, which
  // JSON lets through, are escaped (they appear only inside strings).
  for (std::size_t at = 0; at < text.size();) {
    unsigned long code = bytes[at];
    std::size_t length = 1;
    if (code >= 0x80) length = utf8Sequence(bytes + at, text.size() - at, &code);
    if (length == 0 || (code != 0x7f && !isUnsafeCodePoint(code))) {
      length = std::max<std::size_t>(length, 1);
      safe.append(text, at, length);
      at += length;
      continue;
    }
    char escape[16];
    std::snprintf(escape, sizeof escape, "\\u%04lx", code);
    safe += escape;
    at += length;
  }
  return safe;
}

void appendJsonString(std::string& out, std::string const& text) {
  unsigned char const* const bytes = reinterpret_cast<unsigned char const*>(text.data());
  std::size_t const size = text.size();
  char escape[16];
  out += '"';
  for (std::size_t at = 0; at < size;) {
    unsigned char const byte = bytes[at];
    if (byte >= 0x20 && byte < 0x7f) {
      if (byte == '"' || byte == '\\') out += '\\';
      out += static_cast<char>(byte);
      ++at;
      continue;
    }
    unsigned long code = byte;
    std::size_t length = 1;
    if (byte >= 0x80) {
      length = utf8Sequence(bytes + at, size - at, &code);
      if (length == 0) {  // not UTF-8: the replacement character, as the JSON writer does
        out += "\xef\xbf\xbd";
        ++at;
        continue;
      }
      if (!isUnsafeCodePoint(code)) {
        out.append(text, at, length);
        at += length;
        continue;
      }
    }
    std::snprintf(escape, sizeof escape, "\\u%04lx", code);  // C0, DEL, C1, bidi
    out += escape;
    at += length;
  }
  out += '"';
}

void printJson(TextWriter& out, Json const& document) { out << jsonText(document, 2) << '\n'; }

}  // namespace ma_cli
