// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// ma-cli: looks at the media-access library's data the way the receiver's
// services see it. Without arguments it walks a built-in sample catalogue;
// the subcommands do the same jobs on the user's input.
//
// Exit codes: 0 success, 1 bad input, 2 bad command line, 3 internal
// error, 4 done but a directory's entries were skipped. Every error is one
// escaped line on stderr; with --json also a JSON document on stdout.
#include <CLI/CLI.hpp>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <exception>
#include <string>
#include <vector>

#include "catalogue_commands.h"
#include "default_walk.h"
#include "delivery_commands.h"
#include "directory_vfs.h"
#include "errors.h"
#include "json_output.h"
#include "library_trace.h"
#include "message_commands.h"
#include "selection_commands.h"

#ifndef MA_CLI_VERSION
#define MA_CLI_VERSION "unknown"
#endif

namespace {

constexpr char kDirectoryHelp[] =
    "A directory to read instead of the built-in sample (kinds from file extensions)";
constexpr char kPathHelp[] =
    "Positional path such as $2$0$1 (\"\" is the root). On a\n"
    "directory a path may end in an identifier query for a child\n"
    "of the folder reached: UUID-<device>-<inode> (of the root),\n"
    "$2$UUID-<device>-<inode> (of $2). The built-in sample is a\n"
    "fixed tree, where identifier queries find nothing: a fixed\n"
    "folder offers findUuid no iterator";

// "--depth": a whole number from 0 that fits an int.
CLI::Validator wholeNumber() {
  return CLI::Validator(
      [](std::string& text) -> std::string {
        bool digits = !text.empty() && text.size() <= 10;
        for (char const character : text) digits = digits && character >= '0' && character <= '9';
        if (digits && std::stoll(text) <= INT_MAX) return std::string();
        return "a whole number from 0 to " + std::to_string(INT_MAX) + " (not " + ma_cli::quoted(text) + ")";
      },
      "N");
}

// A word of the command line that the command does not take.
class UnexpectedWord : public CLI::ParseError {
 public:
  explicit UnexpectedWord(std::string const& message)
      : CLI::ParseError("UnexpectedWord", message, CLI::ExitCodes::ExtrasError) {}
};

// The options that choose how a directory is walked.
void addScanOptions(CLI::App* command, ma_cli::ScanSettings& settings) {
  command->add_flag("--follow", settings.follow,
                    "Follow symbolic links (a link back to one of its own ancestors is reported, not followed)");
  command->add_flag("--one-file-system", settings.oneFileSystem,
                    "Do not read directories on another file system than DIR's");
}

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
  ma_cli::ScanSettings scan;
  CLI::Option* msgPath = nullptr;
  CLI::Option* msgDirectory = nullptr;
  CLI::Option* msgOut = nullptr;

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
    app.add_flag("--json", json, "Print one JSON document instead of text (also for an error)");
    app.fallthrough();  // --json is accepted after any subcommand too
    app.require_subcommand(0, 1);
    app.footer("--json and --help work with every command. Exit codes: 0 success, 1 bad input,\n"
               "2 a wrong command line, 3 an internal error, 4 done, but entries of the directory\n"
               "were skipped (each named on stderr). Errors are one line on stderr (with --json also\n"
               "a JSON document on stdout).");

    tree = app.add_subcommand("tree", "Print the tree with each entry's path and kind");
    tree->add_option("DIR", treeOptions.directory, kDirectoryHelp);
    tree->add_option("--sort", treeOptions.sort,
                     "Sort each folder: +dc:title, -dc:title, or anything else for newest first");
    tree->add_option("--depth", treeOptions.maxDepth, "Show (and read) this many levels below the root")
        ->check(wholeNumber());
    addScanOptions(tree, treeOptions.scan);

    resolve = app.add_subcommand("resolve", "Resolve a path with VfsEntry::resolvePath");
    resolve->add_option("PATH", path, kPathHelp)->required();
    resolve->add_option("DIR", directory, kDirectoryHelp);
    addScanOptions(resolve, scan);

    dump = app.add_subcommand("dump", "Print the text dump of the item at a path");
    dump->add_option("PATH", path, kPathHelp)->required();
    dump->add_option("DIR", directory, kDirectoryHelp);
    addScanOptions(dump, scan);

    msg = app.add_subcommand("msg", "Print the message of the item at a path, field by field");
    msgPath = msg->add_option("PATH", path, kPathHelp);
    msgDirectory = msg->add_option("DIR", directory, kDirectoryHelp);
    msgOut = msg->add_option("--out", outFile, "Also write the message, flattened little-endian, to this file");
    addScanOptions(msg, scan);
    msg->require_subcommand(0, 1);
    decode = msg->add_subcommand("decode", "Read a message file written by msg --out and print its item");
    decode->add_option("FILE", file, "The message file; - reads standard input")->required();

    uri = app.add_subcommand("uri", "Build or parse a selection URI");
    uri->require_subcommand(1);
    uriCreate = uri->add_subcommand("create", "Build a URI with mdcSelectionCreate");
    uriCreate->add_option("--type", type, "Source type, exactly 4 characters")->required();
    uriCreate->add_option("--volume", volume, "Volume");
    uriCreate->add_option("--path", uriPath, "Path within the volume, without leading /");
    uriCreate->add_option("--param", parameters, "A parameter KEY=VALUE (repeatable)");
    uriParse = uri->add_subcommand("parse", "Parse a URI with mdcSelectionSplit, after the legacy mdcSelectionParse");
    uriParse->add_option("URI", uriText, "The URI")->required();

    dsys = app.add_subcommand("dsys", "Classify a delivery-system bit set");
    dsys->add_option("MASK", mask, "Decimal, hexadecimal (0x6) or names (DVB-T,DVB-T2)")->required();
  }

  // Refuses what the parser lets through but the command does not take:
  // msg's own words and options beside msg decode.
  void check() const {
    if (!decode->parsed()) {
      if (msg->parsed() && msgPath->count() == 0) throw CLI::RequiredError("msg: PATH");
      return;
    }
    if (msgPath->count() != 0) {
      throw UnexpectedWord("msg decode takes one FILE; unexpected argument " + ma_cli::quoted(path));
    }
    if (msgDirectory->count() != 0) {
      throw UnexpectedWord("msg decode takes one FILE; unexpected argument " + ma_cli::quoted(directory));
    }
    if (msgOut->count() != 0) throw UnexpectedWord("msg decode does not take --out");
    if (scan.follow || scan.oneFileSystem) {
      throw UnexpectedWord("msg decode does not take --follow or --one-file-system");
    }
  }

  // Runs what the command line asks for.
  void run(ma_cli::Output& output) {
    if (tree->parsed()) {
      ma_cli::runTree(output, treeOptions);
    } else if (resolve->parsed()) {
      ma_cli::runResolve(output, path, directory, scan);
    } else if (dump->parsed()) {
      ma_cli::runDump(output, path, directory, scan);
    } else if (decode->parsed()) {
      ma_cli::runMsgDecode(output, file);
    } else if (msg->parsed()) {
      ma_cli::runMsg(output, path, directory, scan, outFile);
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

// The longest error line printed, in bytes before escaping.
constexpr std::size_t kLongestError = 400;

// Whether the failure reports go to stdout as JSON too.
bool gJsonErrors = false;

// Reports a failure: one escaped line on stderr and, with --json, one JSON
// document on stdout. Returns `exitCode`.
int fail(int exitCode, std::string message) {
  if (message.size() > kLongestError) {
    std::size_t const length = message.size();
    message = ma_cli::clipped(message, kLongestError) + " (" + std::to_string(length) + " bytes)";
  }
  std::string const line = "ma-cli: " + ma_cli::escaped(message) + "\n";
  std::fputs(line.c_str(), stderr);
  if (gJsonErrors) {
    ma_cli::Json document;
    document["error"] = {{"message", message}, {"exitCode", exitCode}};
    std::string const text = ma_cli::jsonText(document, 2) + "\n";
    if (std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0) {
      std::fputs("ma-cli: cannot write the output\n", stderr);
    }
  }
  return exitCode;
}

// A command-line error: one line, and the hint to the help.
int failUsage(std::string message) {
  for (char& character : message) character = character == '\n' ? ' ' : character;
  return fail(ma_cli::kExitUsage, message + " (see ma-cli --help)");
}

// Whether the words ask for --json (before the parser could say so).
bool asksForJson(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--") == 0) return false;
    if (std::strcmp(argv[i], "--json") == 0) return true;
  }
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  gJsonErrors = asksForJson(argc, argv);
  try {
    ma_cli::silenceLibraryTrace();
    CommandLine commandLine;
    try {
      commandLine.app.parse(argc, argv);
      commandLine.check();
    } catch (CLI::Success const& success) {  // --help, --version
      commandLine.app.exit(success);
      std::cout.flush();
      if (!std::cout || std::fflush(stdout) != 0 || std::ferror(stdout)) {
        return fail(ma_cli::kExitBadInput, std::string("cannot write the output: ") + std::strerror(errno));
      }
      return ma_cli::kExitSuccess;
    } catch (CLI::ParseError const& error) {
      return failUsage(error.what());
    }
    gJsonErrors = commandLine.json;
    ma_cli::TextWriter text;
    ma_cli::Output output{text, commandLine.json};
    try {
      commandLine.run(output);
      text.flush();
    } catch (...) {
      text.discard();  // a failure prints no half document
      throw;
    }
    return ma_cli::entriesSkippedThisRun() > 0 ? ma_cli::kExitSkipped : ma_cli::kExitSuccess;
  } catch (ma_cli::InputError const& error) {
    return fail(ma_cli::kExitBadInput, error.what());
  } catch (std::exception const& error) {
    return fail(ma_cli::kExitInternal, std::string("internal error: ") + error.what());
  } catch (...) {
    return fail(ma_cli::kExitInternal, "internal error of unknown kind");
  }
}
