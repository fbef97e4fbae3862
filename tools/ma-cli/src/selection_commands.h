// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// uri create and uri parse: selection URIs built and split by the library.
//
// Parsing keeps the library's documented behaviour: a text without ":" and
// "//" is rejected with -22 (bad input for the tool), and every other text
// ends in std::length_error after the source type was read. The tool
// reports that exception as what it is, with the source type it got.
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

void printSelectionParseText(TextWriter& out, SelectionParse const& parse);
Json selectionParseJson(SelectionParse const& parse);
Json selectionJson(ma::SelectionStrings const& parts);

// `parameters` holds "KEY=VALUE" texts (an empty VALUE is allowed).
void runUriCreate(Output& output, std::string const& type, std::string const& volume,
                  std::string const& path, std::vector<std::string> const& parameters);
// A text the library rejects (-22) is bad input.
void runUriParse(Output& output, std::string const& uri);

}  // namespace ma_cli

#endif  // MA_CLI_SELECTION_COMMANDS_H_
