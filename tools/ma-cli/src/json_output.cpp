// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// JSON documents printed with nlohmann-json, made safe for a terminal.
#include "json_output.h"

#include <cstdio>

namespace ma_cli {

namespace {

// The code point of the UTF-8 sequence at `at` if it is one a terminal must
// not get as it is (C1 controls, bidirectional controls, line and paragraph
// separators), else 0; `*length` is its length. The text is well-formed
// UTF-8 (the writer replaced whatever was not).

unsigned int unsafeCodePoint(std::string const& text, std::size_t at, std::size_t* length) {
  auto byte = [&text](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
  unsigned int const lead = byte(at);
  if (lead == 0xc2 && byte(at + 1) >= 0x80 && byte(at + 1) <= 0x9f) {
    *length = 2;
    return byte(at + 1);
  }
  if (lead == 0xd8 && byte(at + 1) == 0x9c) {
    *length = 2;
    return 0x061c;
  }
  if (lead == 0xe2 && (byte(at + 1) == 0x80 || byte(at + 1) == 0x81)) {
    unsigned int const code = 0x2000u | ((byte(at + 1) & 0x3fu) << 6) | (byte(at + 2) & 0x3fu);
    if (code == 0x200e || code == 0x200f || (code >= 0x2028 && code <= 0x202e) ||
        (code >= 0x2066 && code <= 0x2069)) {
      *length = 3;
      return code;
    }
  }
  return 0;
}

}  // namespace

std::string jsonText(Json const& document, int indent) {
  std::string const text = document.dump(indent, ' ', false, Json::error_handler_t::replace);
  std::string safe;
  safe.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    std::size_t length = 0;
    unsigned char const byte = static_cast<unsigned char>(text[at]);
    unsigned int code = byte >= 0xc2 ? unsafeCodePoint(text, at, &length) : 0;
    if (byte == 0x7f) code = 0x7f, length = 1;  // DEL, which JSON lets through
    if (code == 0) {
      safe += text[at++];
      continue;
    }
    char escape[16];
    std::snprintf(escape, sizeof escape, "\\u%04x", code);  // only inside strings: valid JSON
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
