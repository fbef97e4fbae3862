// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// ma-cli: looks at the media-access library's data the way the receiver's
// services see it. Without arguments it walks a built-in sample catalogue;
// the subcommands do the same jobs on the user's input.
//
// Exit codes: 0 success, 1 bad input, 2 bad command line, 3 internal
// error. Every error is one line on stderr.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "catalogue_commands.h"
#include "default_walk.h"
#include "delivery_commands.h"
#include "errors.h"
#include "library_trace.h"
#include "message_commands.h"
#include "selection_commands.h"

#ifndef MA_CLI_VERSION
#define MA_CLI_VERSION "unknown"
#endif

namespace {

constexpr char kDirectoryHelp[] =
    "A directory to scan instead of the built-in sample (kinds from file extensions)";
constexpr char kPathHelp[] =
    "Positional path such as $2$0$1 (\"\" is the root), or an identifier query UUID...";

// The command line: every subcommand and its arguments.
struct CommandLine {
  CLI::App app{"Inspects media-access data: item records, the VFS tree, item messages,\n"
               "selection URIs and delivery systems. Without a command it walks a\n"
               "built-in sample receiver catalogue.",
               "ma-cli"};
  bool json = false;

  CLI::App* tree = nullptr;
  ma_cli::TreeOptions treeOptions;

  CLI::App* resolve = nullptr;
  CLI::App* dump = nullptr;
  CLI::App* msg = nullptr;
  std::string path;
  std::string directory;
  std::string outFile;

  CLI::App* decode = nullptr;
  std::string file;

  CLI::App* uri = nullptr;
  CLI::App* uriCreate = nullptr;
  std::string type, volume, uriPath;
  std::vector<std::string> parameters;
  CLI::App* uriParse = nullptr;
  std::string uriText;

  CLI::App* dsys = nullptr;
  std::string mask;

  CommandLine() {
    app.set_version_flag("--version", std::string("ma-cli ") + MA_CLI_VERSION);
    app.add_flag("--json", json, "Print one JSON document instead of text");
    app.fallthrough();  // --json is accepted after any subcommand too
    app.require_subcommand(0, 1);
    app.footer("--json and --help work with every command. Exit codes: 0 success, 1 bad input,\n"
               "2 a wrong command line, 3 an internal error; errors are one line on stderr.");

    tree = app.add_subcommand("tree", "Print the tree with each entry's path and kind");
    tree->add_option("DIR", treeOptions.directory, kDirectoryHelp);
    tree->add_option("--sort", treeOptions.sort,
                     "Sort each folder: +dc:title, -dc:title, or anything else for newest first");
    tree->add_option("--depth", treeOptions.maxDepth, "Show (and scan) this many levels below the root")
        ->check(CLI::NonNegativeNumber);

    resolve = app.add_subcommand("resolve", "Resolve a path with VfsEntry::resolvePath");
    resolve->add_option("PATH", path, kPathHelp)->required();
    resolve->add_option("DIR", directory, kDirectoryHelp);

    dump = app.add_subcommand("dump", "Print the text dump of the item at a path");
    dump->add_option("PATH", path, kPathHelp)->required();
    dump->add_option("DIR", directory, kDirectoryHelp);

    msg = app.add_subcommand("msg", "Print the message of the item at a path, field by field");
    msg->add_option("PATH", path, kPathHelp);
    msg->add_option("DIR", directory, kDirectoryHelp);
    msg->add_option("--out", outFile, "Also write the message, flattened little-endian, to this file");
    msg->require_subcommand(0, 1);
    decode = msg->add_subcommand("decode", "Read a message file written by msg --out and print its item");
    decode->add_option("FILE", file, "The message file")->required();

    uri = app.add_subcommand("uri", "Build or parse a selection URI");
    uri->require_subcommand(1);
    uriCreate = uri->add_subcommand("create", "Build a URI with mdcSelectionCreate");
    uriCreate->add_option("--type", type, "Source type, exactly 4 characters")->required();
    uriCreate->add_option("--volume", volume, "Volume");
    uriCreate->add_option("--path", uriPath, "Path within the volume, without leading /");
    uriCreate->add_option("--param", parameters, "A parameter KEY=VALUE (repeatable)");
    uriParse = uri->add_subcommand("parse", "Parse a URI with mdcSelectionParse");
    uriParse->add_option("URI", uriText, "The URI")->required();

    dsys = app.add_subcommand("dsys", "Classify a delivery-system bit set");
    dsys->add_option("MASK", mask, "Decimal, hexadecimal (0x6) or names (DVB-T,DVB-T2)")->required();
  }

  // Runs what the command line asks for.
  void run(ma_cli::Output& output) {
    if (tree->parsed()) {
      ma_cli::runTree(output, treeOptions);
    } else if (resolve->parsed()) {
      ma_cli::runResolve(output, path, directory);
    } else if (dump->parsed()) {
      ma_cli::runDump(output, path, directory);
    } else if (decode->parsed()) {
      ma_cli::runMsgDecode(output, file);
    } else if (msg->parsed()) {
      if (path.empty()) throw CLI::RequiredError("msg: PATH");
      ma_cli::runMsg(output, path, directory, outFile);
    } else if (uriCreate->parsed()) {
      ma_cli::runUriCreate(output, type, volume, uriPath, parameters);
    } else if (uriParse->parsed()) {
      ma_cli::runUriParse(output, uriText);
    } else if (dsys->parsed()) {
      ma_cli::runDsys(output, mask);
    } else {
      ma_cli::runDefaultWalk(output);
    }
  }
};

void reportError(char const* what) { std::fprintf(stderr, "ma-cli: %s\n", what); }

}  // namespace

int main(int argc, char** argv) {
  try {
    ma_cli::silenceLibraryTrace();
    CommandLine commandLine;
    try {
      commandLine.app.parse(argc, argv);
    } catch (CLI::Success const& success) {  // --help, --version
      return commandLine.app.exit(success);
    } catch (CLI::ParseError const& error) {
      std::string message = error.what();
      for (char& character : message) character = character == '\n' ? ' ' : character;
      reportError((message + " (see ma-cli --help)").c_str());
      return ma_cli::kExitUsage;
    }
    ma_cli::TextWriter text;
    ma_cli::Output output{text, commandLine.json};
    try {
      commandLine.run(output);
    } catch (CLI::ParseError const& error) {
      reportError((std::string(error.what()) + " (see ma-cli --help)").c_str());
      return ma_cli::kExitUsage;
    }
    text.flush();
    return ma_cli::kExitSuccess;
  } catch (ma_cli::InputError const& error) {
    reportError(error.what());
    return ma_cli::kExitBadInput;
  } catch (std::exception const& error) {
    reportError((std::string("internal error: ") + error.what()).c_str());
    return ma_cli::kExitInternal;
  } catch (...) {
    reportError("internal error of unknown kind");
    return ma_cli::kExitInternal;
  }
}
