// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
/// @file
/// The receiver's debug trace, as the library calls it (a platform
/// interface: on the device the platform library supplies it, on the host
/// the stand-in, see zel/zel_standin.h).
///
/// A trace line belongs to a category word, module * 65536 + level. A caller
/// first asks zelDebugCheckLevelGetFrameAndChunk() whether the category is
/// enabled and, only if it is, formats the line with zelDebugOutput0(). The
/// library's modules are 375 (VFS and item records) and 126 (selection
/// URIs); its levels are 1 (path queries), 3000 (failures) and 4000 (call
/// tracing).
///
/// Thread-safety: both functions may be called from any thread.
#ifndef ZEL_ZEL_DEBUG_H_
#define ZEL_ZEL_DEBUG_H_

#ifdef __cplusplus
extern "C" {
#endif

/// Whether lines of a category are to be written. The host stand-in lets a
/// line through when its level is at most its module's threshold
/// (zel_standin::setThreshold(), default 3000); on the device the
/// platform's debug configuration decides. Throws nothing.
/// @param category module * 65536 + level
/// @return non-zero when the line is to be written, 0 otherwise
int zelDebugCheckLevelGetFrameAndChunk(unsigned int category);

/// Writes one formatted line, as printf() formats it. Callers ask
/// zelDebugCheckLevelGetFrameAndChunk() first. The host stand-in writes the
/// line to stderr, or into its capture (zel_standin::startCapture()).
/// @param format a printf() format; it normally ends in a line feed
/// @param ... the values the format names
void zelDebugOutput0(const char* format, ...) __attribute__((format(printf, 1, 2)));

#ifdef __cplusplus
}  // extern "C"
#endif

#endif  // ZEL_ZEL_DEBUG_H_
