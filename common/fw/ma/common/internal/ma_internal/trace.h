// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The library's debug trace, over the platform's zelDebugOutput0().
//
// Every line belongs to a category word, module * 65536 + level, and is
// formatted only when the platform's level check lets that category through.
// Located lines start with "<source file>:<line>:<function>(): ", where the
// source file is the base name of the file that writes the line.
#ifndef MA_INTERNAL_TRACE_H_
#define MA_INTERNAL_TRACE_H_

#include "zel/zel_debug.h"

namespace ma {
namespace trace {

constexpr unsigned int category(unsigned int module, unsigned int level) {
  return module * 65536u + level;
}

// Modules. The item record reports under the media-access module, the
// VFS's.
constexpr unsigned int kSelectionModule = 126;
constexpr unsigned int kVfsModule = 375;
constexpr unsigned int kItemModule = kVfsModule;

// Levels.
constexpr unsigned int kLevelQuery = 1;        // path queries
constexpr unsigned int kLevelFailure = 3000;   // failures and misuse
constexpr unsigned int kLevelCall = 4000;      // call tracing

constexpr unsigned int kVfsCalls = category(kVfsModule, kLevelCall);          // 24580000
constexpr unsigned int kVfsFailures = category(kVfsModule, kLevelFailure);    // 24579000
constexpr unsigned int kVfsQueries = category(kVfsModule, kLevelQuery);       // 24576001
constexpr unsigned int kSelectionFailures =
    category(kSelectionModule, kLevelFailure);                                // 8260536
constexpr unsigned int kItemFailures = category(kItemModule, kLevelFailure);

}  // namespace trace
}  // namespace ma

// MA_TRACE(category, format, ...): one printf-style line, if enabled.
#define MA_TRACE(category, ...)                             \
  do {                                                      \
    if (zelDebugCheckLevelGetFrameAndChunk(category) != 0) { \
      zelDebugOutput0(__VA_ARGS__);                         \
    }                                                       \
  } while (0)

// MA_TRACE_AT(category, line, function, format, ...): a located line,
// "<file>:<line>:<function>(): " followed by `format`. `line` is the line
// number the trace text carries; callers pass __LINE__ unless the text is
// fixed by the system's trace contract.
#define MA_TRACE_AT(category, line, function, format, ...)                 \
  MA_TRACE(category, "%s:%d:%s(): " format, __FILE_NAME__, static_cast<int>(line), \
           function, ##__VA_ARGS__)

#endif  // MA_INTERNAL_TRACE_H_
