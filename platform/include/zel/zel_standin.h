// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Controls of the platform stand-in, for host clients and tests: the trace
// threshold of each module, and a capture of the trace lines. Only the
// stand-in library has these (package libzel-standin-dev; link
// -lzel-standin, or the CMake target ma-common::zel-standin); a device build
// links the real platform library instead, whose debug configuration sets
// the levels. libma-common itself reads no configuration: what it writes is
// decided here, by the program that links it.
//
// Trace gate: every module has a threshold; a line passes when its level is
// at most the threshold. The default threshold is 3000, so failure lines
// (level 3000) and the query lines of level 1 are written, call tracing
// (level 4000) is not. Passing lines go to stderr, or into the capture.
// libma-common's modules: 375 (the VFS and the item records), 126 (selection
// URIs). A host client that wants no failure lines on its stderr quiets them:
//
//   zel_standin::setThreshold(375, 0);  // VFS and records: nothing
//   zel_standin::setThreshold(126, 0);  // selection URIs: nothing
//
// and one that wants call tracing raises the VFS module to 4000.
//
// Thread-safety: every function may be called from any thread.
#ifndef ZEL_ZEL_STANDIN_H_
#define ZEL_ZEL_STANDIN_H_

#include <string>
#include <vector>

namespace zel_standin {

constexpr unsigned int kDefaultThreshold = 3000;

// One formatted trace line and the category word it was checked against.
struct TraceLine {
  unsigned int category;
  std::string text;
};

// Sets the threshold of `module` (the category word divided by 65536): from
// now on its lines of a level up to `level` pass, others are dropped. 0
// silences the module; a level above 65535 lets every line through. Takes
// effect at once, for every thread.
void setThreshold(unsigned int module, unsigned int level);

// Gives every module the default threshold again.
void resetThresholds();

// From now on every line passes, whatever its level, and is collected
// instead of being written to stderr. Clears earlier captured lines.
void startCapture();

// Ends the capture: thresholds gate again and lines go to stderr.
void stopCapture();

// The lines collected since startCapture() or clearCapture(), in order.
std::vector<TraceLine> capturedLines();

// Forgets the lines collected so far; the capture goes on.
void clearCapture();

}  // namespace zel_standin

#endif  // ZEL_ZEL_STANDIN_H_
