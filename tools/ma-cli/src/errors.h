// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The tool's error classes: what main() turns into one line on stderr and
// an exit code.
#ifndef MA_CLI_ERRORS_H_
#define MA_CLI_ERRORS_H_

#include <stdexcept>
#include <string>

namespace ma_cli {

// Exit codes of the tool.
constexpr int kExitSuccess = 0;
constexpr int kExitBadInput = 1;   // a path, mask, URI, file or directory that does not work
constexpr int kExitUsage = 2;      // the command line itself is wrong
constexpr int kExitInternal = 3;   // anything unexpected
constexpr int kExitSkipped = 4;    // done, but entries of a directory were skipped (each reported)

// Input that the tool cannot work with. The message names what was wrong,
// in one line.
class InputError : public std::runtime_error {
 public:
  explicit InputError(std::string const& message) : std::runtime_error(message) {}
};

}  // namespace ma_cli

#endif  // MA_CLI_ERRORS_H_
