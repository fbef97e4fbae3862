// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The receiver's debug trace, as the library calls it.
//
// A trace line belongs to a category word, module * 65536 + level. A caller
// first asks zelDebugCheckLevelGetFrameAndChunk() whether the category is
// enabled and, only if it is, formats the line with zelDebugOutput0().
//
// Thread-safety: both functions may be called from any thread.
#ifndef ZEL_ZEL_DEBUG_H_
#define ZEL_ZEL_DEBUG_H_

#ifdef __cplusplus
extern "C" {
#endif

// Returns non-zero when lines of `category` (module * 65536 + level) are to
// be written.
int zelDebugCheckLevelGetFrameAndChunk(unsigned int category);

// Writes one printf-style line. `format` normally ends in a line feed.
void zelDebugOutput0(const char* format, ...) __attribute__((format(printf, 1, 2)));

#ifdef __cplusplus
}  // extern "C"
#endif

#endif  // ZEL_ZEL_DEBUG_H_
