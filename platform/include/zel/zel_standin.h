// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
/// @file
/// Controls of the platform stand-in (libzel-standin), the host's
/// replacement for the receiver's platform library: a host client quiets or
/// widens the debug trace with them, a test captures it. Only the stand-in
/// library has these; a device build links the real platform library
/// instead, whose debug configuration sets the levels. libma-common itself
/// reads no configuration: the program that links it decides what is written.
///
/// A host client gets this header from the package libzel-standin-dev and
/// links the stand-in by name: with `-lzel-standin`, or through CMake's
/// `find_package(ma-common)` and its imported target for the stand-in,
/// `zel-standin` in the namespace `ma-common`.
///
/// Trace gate: every module has a threshold; a line passes when its level is
/// at most the threshold. The default threshold is 3000, so failure lines
/// (level 3000) and the query lines of level 1 are written, call tracing
/// (level 4000) is not. Passing lines go to stderr, or into the capture.
/// To keep a module quiet, set its threshold to 0:
/// `zel_standin::setThreshold(375, 0)` silences the VFS and item records.
///
/// Thread-safety: every function may be called from any thread.
#ifndef ZEL_ZEL_STANDIN_H_
#define ZEL_ZEL_STANDIN_H_

#include <string>
#include <vector>

namespace zel_standin {

/// The threshold every module starts with: failures and path queries pass,
/// call tracing does not.
constexpr unsigned int kDefaultThreshold = 3000;

/// One formatted trace line and the category word it was checked against.
struct TraceLine {
  unsigned int category;  ///< module * 65536 + level of the check before the line
  std::string text;       ///< the formatted line, its line feed included
};

/// Sets the threshold of one module: its lines pass when their level is at
/// most `level`. Throws nothing.
/// @param module the module number, the category word divided by 65536
///        (375: VFS and item records, 126: selection URIs); 65536 and above
///        are ignored
/// @param level the highest level that passes: 0 silences the module's
///        failures and queries, 4000 lets its call tracing through, a level
///        above 65535 lets every line through
///
/// The new threshold holds at once, for every thread, until the next call
/// or resetThresholds().
void setThreshold(unsigned int module, unsigned int level);

/// Gives every module kDefaultThreshold again. Throws nothing.
void resetThresholds();

/// Starts the capture: from now on every line passes, whatever its level,
/// and is collected instead of being written to stderr. Clears earlier
/// captured lines.
void startCapture();

/// Ends the capture and forgets its lines: thresholds gate again and lines
/// go to stderr.
void stopCapture();

/// The lines collected so far.
/// @return the lines since startCapture() or clearCapture(), in order
/// @throws std::bad_alloc if the copy cannot be made
std::vector<TraceLine> capturedLines();

/// Forgets the lines collected so far; the capture goes on.
void clearCapture();

}  // namespace zel_standin

#endif  // ZEL_ZEL_STANDIN_H_
