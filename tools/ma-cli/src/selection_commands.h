// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// uri create and uri parse: selection URIs built and split by the library.
//
// `uri parse` shows both of the library's readers. mdcSelectionParse, kept
// for clients built against it, rejects a text without ":" and "//" with -22
// (bad input for the tool) and ends every other text in std::length_error
// after the source type was read: the tool reports that exception as what it
// is, with the source type it got. mdcSelectionSplit then gives the parts of
// every URI mdcSelectionCreate writes; a text it refuses is bad input too.
#ifndef MA_CLI_SELECTION_COMMANDS_H_
#define MA_CLI_SELECTION_COMMANDS_H_

#include <map>
#include <string>
#include <vector>

#include "catalogue_commands.h"
#include "ma/mdc_selection_uris.h"

namespace ma_cli {

// The URI of `parts`, or InputError when the library refuses them.
std::string createSelection(ma::SelectionStrings const& parts);

// What mdcSelectionParse made of a text.
struct SelectionParse {
  std::string uri;
  int result = 0;                // the return value, when it returned
  bool lengthError = false;      // it threw std::length_error instead
  std::string error;             // the exception's what()
  ma::SelectionStrings parts;    // as the parser left them
  std::vector<std::string> trace;
};

SelectionParse parseSelection(std::string const& uri);

// What mdcSelectionSplit made of a text.
struct SelectionSplit {
  int result = 0;                // 0, or -22 for a text that is not a selection URI
  ma::SelectionStrings parts;    // filled on success
  std::vector<std::string> trace;
};

SelectionSplit splitSelection(std::string const& uri);

void printSelectionParseText(TextWriter& out, SelectionParse const& parse);
Json selectionParseJson(SelectionParse const& parse);
Json selectionJson(ma::SelectionStrings const& parts);

// `parameters` holds "KEY=VALUE" texts (an empty VALUE is allowed).
void runUriCreate(Output& output, std::string const& type, std::string const& volume,
                  std::string const& path, std::vector<std::string> const& parameters);
// A text either reader rejects (-22) is bad input.
void runUriParse(Output& output, std::string const& uri);

}  // namespace ma_cli

#endif  // MA_CLI_SELECTION_COMMANDS_H_
