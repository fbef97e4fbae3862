// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Test controls of the platform stand-in. Only the stand-in library has
// these; a device build links the real platform library instead.
//
// Trace gate: every module has a threshold; a line passes when its level is
// at most the threshold. The default threshold is 3000, so failure lines
// (level 3000) and the query lines of level 1 are written, call tracing
// (level 4000) is not. Passing lines go to stderr, or into the capture.
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

// Sets the threshold of `module` (the category word divided by 65536).
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
