// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
/// @file
/// Selection URIs: one string that names a place in a media source.
///
/// A selection is written
///
///   sourceType "://" volume "/" path ["?" parameters]
///
/// where sourceType is exactly four characters and the parameters follow one
/// another in ascending key order, each as the key, then "=" and the value when
/// the value is not empty. Consecutive parameters carry no separator: {a:1, b:2}
/// is written "a=1b=2".
///
/// No character of any field is escaped when writing or unescaped when
/// reading: a "/", "?", "=" or "&" inside a field is written as it is, and a
/// reader cannot always tell the fields apart again.
///
/// Failures are written to the debug trace and answered with -22 (-EINVAL).
///
/// Thread-safety: the functions keep no state; calls on distinct objects may
/// run concurrently.
#ifndef MA_MDC_SELECTION_URIS_H_
#define MA_MDC_SELECTION_URIS_H_

#include <map>
#include <string>

#include "ma/export.h"

namespace ma {

/// The parts of a selection URI. A plain record with value semantics.
struct MA_COMMON_EXPORT SelectionStrings {
  std::string sourceType;  ///< the scheme; written only when 4 characters long
  std::string volume;      ///< the volume (authority)
  std::string path;        ///< the path within the volume, without leading "/"
  std::map<std::string, std::string> parameters;  ///< by key, one value each
};

}  // namespace ma

/// Writes the URI of `parts` into `uri`, replacing its content.
/// Returns 0, or -22 when parts.sourceType is not exactly 4 characters long
/// (only the length is checked); `uri` is then empty.
MA_COMMON_EXPORT int mdcSelectionCreate(std::string& uri,
                                        ma::SelectionStrings const& parts);

/// Splits `uri`, read up to its first NUL byte, into `parts`.
/// Returns -22 when the text has no ":" or no "//" right behind it; the
/// fields of `parts` are then left as they were.
/// Every URI that gets past those checks has parts.sourceType replaced and
/// then ends in std::length_error, thrown by the string that should have
/// held the volume (its length comes out negative); parts.volume, parts.path
/// and parts.parameters stay untouched. Existing callers depend on this.
MA_COMMON_EXPORT int mdcSelectionParse(ma::SelectionStrings& parts,
                                       std::string uri);

#endif  // MA_MDC_SELECTION_URIS_H_
