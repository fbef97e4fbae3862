// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Buffered standard output and text helpers.
#include "text_output.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "errors.h"

namespace ma_cli {

namespace {

// Text is handed to the system in blocks of about this size.
constexpr std::size_t kBlockSize = 64 * 1024;

}  // namespace

TextWriter::TextWriter(int fd) : fd_(fd) { buffer_.reserve(kBlockSize + 4096); }

TextWriter::~TextWriter() {
  try {
    flush();
  } catch (...) {  // the error was reported by an earlier flush() or is moot
  }
}

TextWriter& TextWriter::operator<<(std::string const& text) {
  buffer_ += text;
  if (buffer_.size() >= kBlockSize) flush();
  return *this;
}

TextWriter& TextWriter::operator<<(char const* text) {
  buffer_ += text;
  if (buffer_.size() >= kBlockSize) flush();
  return *this;
}

TextWriter& TextWriter::operator<<(char character) {
  buffer_ += character;
  return *this;
}

TextWriter& TextWriter::operator<<(long long number) { return *this << std::to_string(number); }

TextWriter& TextWriter::operator<<(unsigned long long number) {
  return *this << std::to_string(number);
}

void TextWriter::flush() {
  std::size_t written = 0;
  while (written < buffer_.size()) {
    ssize_t const result = ::write(fd_, buffer_.data() + written, buffer_.size() - written);
    if (result < 0) {
      if (errno == EINTR) continue;
      int const error = errno;
      buffer_.clear();
      throw InputError(std::string("cannot write the output: ") + std::strerror(error));
    }
    written += static_cast<std::size_t>(result);
  }
  buffer_.clear();
}

// Whether code point `code` must not reach a terminal as it is.
bool isUnsafeCodePoint(unsigned long code) {
  return (code >= 0x80 && code <= 0x9f) || code == 0x061c || code == 0x200e || code == 0x200f ||
         (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069) || code == 0x2028 ||
         code == 0x2029;
}

// The length of the well-formed UTF-8 sequence at `at` (with `left` bytes
// from there) and its code point, or 0 when the bytes are not one.
std::size_t utf8Sequence(unsigned char const* at, std::size_t left, unsigned long* code) {
  unsigned char const lead = at[0];
  std::size_t length;
  unsigned long value;
  unsigned long minimum;
  if (lead >= 0xc2 && lead <= 0xdf) {
    length = 2, value = lead & 0x1fu, minimum = 0x80;
  } else if (lead >= 0xe0 && lead <= 0xef) {
    length = 3, value = lead & 0x0fu, minimum = 0x800;
  } else if (lead >= 0xf0 && lead <= 0xf4) {
    length = 4, value = lead & 0x07u, minimum = 0x10000;
  } else {
    return 0;
  }
  if (left < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((at[i] & 0xc0u) != 0x80u) return 0;
    value = (value << 6) | (at[i] & 0x3fu);
  }
  if (value < minimum || value > 0x10ffff || (value >= 0xd800 && value <= 0xdfff)) return 0;
  *code = value;
  return length;
}

std::string escaped(std::string const& text) {
  std::string result;
  result.reserve(text.size());
  unsigned char const* const bytes = reinterpret_cast<unsigned char const*>(text.data());
  std::size_t const size = text.size();
  char code[12];
  for (std::size_t at = 0; at < size;) {
    unsigned char const byte = bytes[at];
    if (byte >= 0x20 && byte < 0x7f) {
      if (byte == '\\') result += '\\';
      result += static_cast<char>(byte);
      ++at;
      continue;
    }
    unsigned long point = 0;
    std::size_t const length = byte < 0x80 ? 0 : utf8Sequence(bytes + at, size - at, &point);
    if (length == 0 || (point >= 0x80 && point <= 0x9f)) {
      std::snprintf(code, sizeof code, "\\x%02x", byte);  // a control or a byte that is no UTF-8
      result += code;
      ++at;
      if (length != 0) {  // U+0080-U+009F: both bytes shown
        std::snprintf(code, sizeof code, "\\x%02x", bytes[at]);
        result += code;
        ++at;
      }
    } else if (isUnsafeCodePoint(point)) {
      std::snprintf(code, sizeof code, "\\u%04lx", point);
      result += code;
      at += length;
    } else {
      result.append(text, at, length);
      at += length;
    }
  }
  return result;
}

std::string quoted(std::string const& text) {
  constexpr std::size_t kShown = 200;
  if (text.size() <= kShown) return "\"" + text + "\"";
  std::size_t cut = kShown;
  while (cut > 0 && (static_cast<unsigned char>(text[cut]) & 0xC0) == 0x80) --cut;
  return "\"" + text.substr(0, cut) + "...\" (" + std::to_string(text.size()) + " bytes)";
}

std::string padRight(std::string const& text, std::size_t width) {
  return text.size() >= width ? text : text + std::string(width - text.size(), ' ');
}

std::string padLeft(std::string const& text, std::size_t width) {
  return text.size() >= width ? text : std::string(width - text.size(), ' ') + text;
}

std::string clipped(std::string const& text, std::size_t width) {
  if (text.size() <= width) return text;
  if (width <= 3) return std::string(width, '.');
  std::size_t cut = width - 3;
  // Back off over UTF-8 continuation bytes (10xxxxxx) to a sequence start.
  while (cut > 0 && (static_cast<unsigned char>(text[cut]) & 0xC0) == 0x80) --cut;
  return text.substr(0, cut) + "...";
}

std::vector<std::string> wrapped(std::string const& text, std::size_t width) {
  std::vector<std::string> lines(1);
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find(' ', start);
    if (end == std::string::npos) end = text.size();
    std::string const word = text.substr(start, end - start);
    if (!lines.back().empty() && lines.back().size() + 1 + word.size() > width) {
      lines.emplace_back();
    }
    if (!lines.back().empty()) lines.back() += ' ';
    lines.back() += word;
    start = end + 1;
  }
  return lines;
}

std::string hex(unsigned long long value, int digits) {
  char text[24];
  std::snprintf(text, sizeof text, "0x%0*llx", digits, value);
  return text;
}

}  // namespace ma_cli
