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
/// New code writes with mdcSelectionCreate() and reads with
/// mdcSelectionSplit(). mdcSelectionParse() is kept, unchanged, for the
/// clients already built against it: it throws std::length_error for every
/// well-formed URI.
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

/// Writes the URI of `parts` into `uri`, replacing its content. No field is
/// checked beyond the length of the source type, and no character is
/// escaped.
/// @param uri receives the URI; emptied first, and left empty on failure
/// @param parts the source type (exactly 4 bytes), volume, path and parameters
/// @return 0, or -22 when parts.sourceType is not exactly 4 bytes long (a
///   trace line names it)
/// @throws std::bad_alloc when memory runs out; `uri` is then empty
MA_COMMON_EXPORT int mdcSelectionCreate(std::string& uri,
                                        ma::SelectionStrings const& parts);

/// Kept for the clients already built against it; new code calls
/// mdcSelectionSplit(), which answers instead of throwing.
///
/// Checks the syntax of `uri`, read up to its first NUL byte: a text without
/// ":" or without "//" right behind the first ":" is refused with -22 and a
/// trace line, and the fields of `parts` are left as they were. Every URI
/// that gets past those checks has parts.sourceType replaced by the text
/// before the ":" and then ends in std::length_error, thrown by the string
/// that should have held the volume (its length comes out negative);
/// parts.volume, parts.path and parts.parameters stay untouched.
/// @param parts receives the source type of a well-formed URI
/// @param uri the text to read, up to its first NUL byte
/// @return -22 for a text that is not a URI; it never returns 0
/// @throws std::length_error for every text with "//" behind its first ":"
/// @throws std::bad_alloc when memory runs out
MA_COMMON_EXPORT int mdcSelectionParse(ma::SelectionStrings& parts,
                                       std::string uri);

/// Splits `uri` into its source type, volume, path and parameters: the
/// reader for every URI that mdcSelectionCreate() writes. All of `uri` is
/// read, NUL bytes included.
///
/// The source type is the first four bytes, which "://" must follow. The
/// volume runs to the first "/" behind them (it may be empty), the path from
/// there to the first "?" or the end. Without "?" there are no parameters.
///
/// Parameters, the text behind the "?", are written without separator, so
/// they are read by these rules:
/// - a text without "=" is one key with an empty value (the empty text too:
///   the one parameter {"", ""});
/// - otherwise the text up to the first "=" is the first key, and the text
///   between two "=" holds the end of a value and the next key, which begins
///   at its first ASCII letter (A-Z, a-z); the text behind the last "=" is
///   the last value;
/// - where that would give an empty value or a key that does not sort after
///   the key before it (the writer orders keys byte-wise), the "=" is taken
///   as part of the current value instead; a text that ends with "=" gives
///   its last key that "=" and an empty value.
///
/// So reading never fails on a written URI, and writing the parts read gives
/// the URI back byte for byte. The parts themselves come back unchanged when
/// the volume holds no "/", the path no "?", and the parameters are none,
/// one key without "=" with an empty value, or a list whose keys and values
/// hold no "=", whose values are not empty, whose keys after the first begin
/// with an ASCII letter, and whose values before the last hold no ASCII
/// letter ({"lcn": "7", "start": "120"} or {"lang": "deu"}). Anything else
/// is ambiguous and comes back as another reading of the same text: a "/"
/// of the volume moves into the path, a "?" of the path starts the
/// parameters, a parameter with an empty value joins a neighbour
/// ({"hd": "", "lcn": "7"} is written "hdlcn=7" and read {"hdlcn": "7"}),
/// and so do values with letters before the last one ({"a": "1x", "b": "2"}
/// is read {"a": "1", "xb": "2"}).
/// @param parts receives the four fields, each replaced (the parameters
///   cleared first); left as it was on failure
/// @param uri the URI to read
/// @return 0, or -22 with a trace line when `uri` does not begin with four
///   bytes and "://" or has no "/" behind the volume
/// @throws std::bad_alloc when memory runs out; `parts` is then unchanged
MA_COMMON_EXPORT int mdcSelectionSplit(ma::SelectionStrings& parts,
                                       std::string const& uri);

#endif  // MA_MDC_SELECTION_URIS_H_
