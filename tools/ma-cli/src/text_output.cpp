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

std::string escaped(std::string const& text) {
  std::string result;
  result.reserve(text.size());
  for (char const character : text) {
    unsigned char const byte = static_cast<unsigned char>(character);
    if (byte < 0x20 || byte == 0x7f) {
      char code[5];
      std::snprintf(code, sizeof code, "\\x%02x", byte);
      result += code;
    } else if (character == '\\') {
      result += "\\\\";
    } else {
      result += character;
    }
  }
  return result;
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
