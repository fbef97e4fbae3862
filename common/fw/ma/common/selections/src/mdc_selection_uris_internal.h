// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Internal steps of the selection URI parser, visible to the white-box tests
// only (the library does not export them).
//
// mdcSelectionParse() runs parseSelectionText() on the URI's characters.
// For every URI that gets past the "//" check the volume string throws
// std::length_error (see mdc_selection_uris.h), so the path and parameter
// steps behind it are reached here through parsePathAndParameters().
#ifndef MA_SELECTIONS_MDC_SELECTION_URIS_INTERNAL_H_
#define MA_SELECTIONS_MDC_SELECTION_URIS_INTERNAL_H_

#include <map>
#include <string>

#include "ma/mdc_selection_uris.h"

namespace ma {
namespace selection_uris {

// The result of every reported failure: -EINVAL.
constexpr int kInvalidArgument = -22;

// The whole parse on NUL-terminated `text`, which may be null ("Received
// empty URI."). Returns 0 or kInvalidArgument, or throws std::length_error
// as mdcSelectionParse() does; fields set before a failure keep their values.
int parseSelectionText(SelectionStrings& parts, char const* text);

// The "/" that ends the volume: the first "/" at or after `searchFrom`.
// Writes "No volume specifier found." and returns null when there is none or
// it lies at `volumeBegin` (an empty volume). The parse searches from the
// colon, so it finds the first "/" of the "//" and this check never fires
// there.
// REQUIRES: searchFrom and volumeBegin point into the same NUL-terminated text.
char const* findVolumeEnd(char const* searchFrom, char const* volumeBegin);

// The steps behind the volume: `pathBegin` is the character after the "/"
// that ends the volume. Stores the path (up to the first "?") in parts.path
// and adds each parameter to parts.parameters, keeping the parameters that
// are already there. Always returns 0.
// REQUIRES: pathBegin points into a NUL-terminated text.
int parsePathAndParameters(SelectionStrings& parts, char const* pathBegin);

// The parameters of the text behind a URI's "?", as mdcSelectionSplit()
// reads them (the rules are in mdc_selection_uris.h). Never empty: a text
// without "=" is one key with an empty value. Writing the result with
// mdcSelectionCreate() gives `text` back.
std::map<std::string, std::string> splitParameters(std::string const& text);

}  // namespace selection_uris
}  // namespace ma

#endif  // MA_SELECTIONS_MDC_SELECTION_URIS_INTERNAL_H_
