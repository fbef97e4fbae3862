// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
/// @file
/// MA_COMMON_EXPORT marks the library's public interface. The library is built
/// with hidden visibility, so everything not marked stays internal.
#ifndef MA_EXPORT_H_
#define MA_EXPORT_H_

/// Marks a class, function or object as part of the library's interface.
#define MA_COMMON_EXPORT __attribute__((visibility("default")))

#endif  // MA_EXPORT_H_
