// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The catalogue commands: tree, resolve and dump, and the pieces of their
// output that the default walk shows too.
//
// Each command works on the sample catalogue, or on the tree of a directory
// when one is given (loadCatalogue()). Text output fits 80 columns for the
// sample; --json gives the same information as one JSON document.
#ifndef MA_CLI_CATALOGUE_COMMANDS_H_
#define MA_CLI_CATALOGUE_COMMANDS_H_

#include <string>
#include <vector>

#include "catalogue.h"
#include "json_output.h"
#include "text_output.h"

namespace ma_cli {

// Where a command prints, and in which form.
struct Output {
  TextWriter& text;
  bool json;
};

// The sample catalogue when `directory` is empty, else the directory's tree,
// read on demand (with a progress line while reading when stderr is a
// terminal). Skipped entries are reported on stderr, one line each, as they
// are found.
Catalogue loadCatalogue(std::string const& directory, ScanSettings settings = ScanSettings());

struct TreeOptions {
  std::string directory;  // empty: the sample
  ScanSettings scan;      // how a directory is walked
  std::string sort;       // empty: list order; else getSortedIterator's criteria
  int maxDepth = -1;      // levels below the root to show; -1: all
};

// One line per entry: positional path, kind, caption indented by depth (and
// " -> target" for a link left unfollowed). Written as the walk goes.
void printTreeText(TextWriter& out, boost::shared_ptr<ma::VfsEntry> const& root, TreeOptions const& options);

// The tree as nested objects (entryJson() plus "children" for folders), in
// the same order and depth as printTreeText(), built in memory (for the
// sample).
Json treeJson(boost::shared_ptr<ma::VfsEntry> const& root, TreeOptions const& options);

// An entry's record in brief: path, kind, caption, identifier, locator,
// size and date (the fields set).
Json entryJson(boost::shared_ptr<ma::VfsEntry> const& entry, std::string const& path);

// `path` resolved below `root`: the outcome and the library's trace lines.
void printResolutionText(TextWriter& out, boost::shared_ptr<ma::VfsEntry> const& root,
                         std::string const& path, Resolution const& resolution);
Json resolutionJson(boost::shared_ptr<ma::VfsEntry> const& root, std::string const& path,
                    Resolution const& resolution);

void runTree(Output& output, TreeOptions const& options);
// A path that does not resolve is bad input (InputError).
void runResolve(Output& output, std::string const& path, std::string const& directory,
                ScanSettings const& settings);
void runDump(Output& output, std::string const& path, std::string const& directory,
             ScanSettings const& settings);

}  // namespace ma_cli

#endif  // MA_CLI_CATALOGUE_COMMANDS_H_
