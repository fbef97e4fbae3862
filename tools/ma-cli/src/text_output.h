// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Text output of ma-cli: a buffered writer for standard output and the
// small formatting helpers every command uses.
//
// The writer collects text in memory and hands it to the operating system
// in large blocks, so that printing a tree of 100,000 lines costs a few
// write calls instead of one per line. Call flush() before the program
// ends; the destructor flushes too, but cannot report a failure.
//
// Thread-safety: none; the tool prints from its one thread.
#ifndef MA_CLI_TEXT_OUTPUT_H_
#define MA_CLI_TEXT_OUTPUT_H_

#include <cstddef>
#include <string>
#include <vector>

namespace ma_cli {

class TextWriter {
 public:
  // A writer to file descriptor `fd` (1: standard output).
  explicit TextWriter(int fd = 1);
  TextWriter(TextWriter const&) = delete;
  TextWriter& operator=(TextWriter const&) = delete;
  ~TextWriter();

  TextWriter& operator<<(std::string const& text);
  TextWriter& operator<<(char const* text);
  TextWriter& operator<<(char character);
  TextWriter& operator<<(long long number);
  TextWriter& operator<<(unsigned long long number);
  TextWriter& operator<<(int number) { return *this << static_cast<long long>(number); }
  TextWriter& operator<<(unsigned int number) {
    return *this << static_cast<unsigned long long>(number);
  }
  TextWriter& operator<<(long number) { return *this << static_cast<long long>(number); }
  TextWriter& operator<<(unsigned long number) {
    return *this << static_cast<unsigned long long>(number);
  }

  // Writes out everything collected. Throws InputError when the descriptor
  // refuses the text (a full disk, a closed descriptor).
  void flush();

  // Drops what is collected and not yet written.
  void discard() { buffer_.clear(); }

 private:
  int fd_;
  std::string buffer_;
};

// `text` made safe for a terminal, one value on one line: control bytes
// (C0, DEL), C1 controls (raw bytes 0x80-0x9f as well as U+0080-U+009F)
// and bytes that are not UTF-8 become \xNN; the bidirectional controls
// (U+061C, U+200E, U+200F, U+202A-U+202E, U+2066-U+2069) and the line and
// paragraph separators (U+2028, U+2029) become \uNNNN; a backslash is
// doubled. Every other UTF-8 character is kept.
std::string escaped(std::string const& text);

// Whether code point `code` must not reach a terminal as it is: C1
// controls, bidirectional controls, line and paragraph separators.
bool isUnsafeCodePoint(unsigned long code);

// The length of the well-formed UTF-8 sequence at `at` (with `left` bytes
// from there) and its code point in `*code`, or 0 when the bytes are not
// one (a lone, overlong, surrogate or out-of-range sequence).
std::size_t utf8Sequence(unsigned char const* at, std::size_t left, unsigned long* code);

// `text` in double quotes, for an error message that echoes an input: cut
// to 200 bytes (never inside a UTF-8 sequence) and then followed by
// "... (N bytes)" when longer. Not escaped: the error line is escaped as a
// whole when it is printed.
std::string quoted(std::string const& text);

// `text` padded with blanks on the right to `width` bytes (never cut).
std::string padRight(std::string const& text, std::size_t width);

// `text` padded with blanks on the left to `width` bytes (never cut).
std::string padLeft(std::string const& text, std::size_t width);

// `text` cut to at most `width` bytes, ending in "..." when cut; the cut
// never splits a UTF-8 sequence.
std::string clipped(std::string const& text, std::size_t width);

// `text` broken at blanks into lines of at most `width` bytes; a word
// longer than `width` gets a line of its own. An empty text gives one empty
// line.
std::vector<std::string> wrapped(std::string const& text, std::size_t width);

// `value` as "0x" and at least `digits` lower-case hexadecimal digits.
std::string hex(unsigned long long value, int digits = 1);

}  // namespace ma_cli

#endif  // MA_CLI_TEXT_OUTPUT_H_
