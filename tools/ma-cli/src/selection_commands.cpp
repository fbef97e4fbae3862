// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// uri create and uri parse.
#include "selection_commands.h"

#include <stdexcept>

#include "errors.h"
#include "library_trace.h"

namespace ma_cli {

std::string createSelection(ma::SelectionStrings const& parts) {
  std::string uri;
  TraceRecording recording;
  int const result = mdcSelectionCreate(uri, parts);
  if (result != 0) {
    throw InputError("source type " + quoted(parts.sourceType) +
                     " must be exactly 4 characters (result " + std::to_string(result) + ")");
  }
  return uri;
}

SelectionParse parseSelection(std::string const& uri) {
  SelectionParse parse;
  parse.uri = uri;
  TraceRecording recording;
  try {
    parse.result = mdcSelectionParse(parse.parts, uri);
  } catch (std::length_error const& error) {
    parse.lengthError = true;
    parse.error = error.what();
  }
  parse.trace = recording.lines();
  return parse;
}

SelectionSplit splitSelection(std::string const& uri) {
  SelectionSplit split;
  TraceRecording recording;
  split.result = mdcSelectionSplit(split.parts, uri);
  split.trace = recording.lines();
  return split;
}

namespace {

void printSelectionParts(TextWriter& out, ma::SelectionStrings const& parts) {
  out << "  sourceType  \"" << escaped(parts.sourceType) << "\"\n"
      << "  volume      \"" << escaped(parts.volume) << "\"\n"
      << "  path        \"" << escaped(parts.path) << "\"\n";
  for (auto const& parameter : parts.parameters) {
    out << "  parameter   \"" << escaped(parameter.first) << "\" = \"" << escaped(parameter.second) << "\"\n";
  }
}

void printSplitText(TextWriter& out, std::string const& uri, SelectionSplit const& split) {
  out << "mdcSelectionSplit(\"" << escaped(uri) << "\") = " << split.result << '\n';
  printSelectionParts(out, split.parts);
}

// The trace lines a reader left, as a suffix of a one-line error.
std::string traceSuffix(std::vector<std::string> const& trace) {
  std::string suffix;
  for (std::string const& line : trace) suffix += ": " + clipped(line, 300);
  return suffix;
}

}  // namespace

void printSelectionParseText(TextWriter& out, SelectionParse const& parse) {
  out << "mdcSelectionParse(\"" << escaped(parse.uri) << "\")";
  if (parse.lengthError) {
    out << "\n  threw std::length_error (\"" << escaped(parse.error) << "\"), as documented\n"
        << "  for every URI that passes the parser's first checks\n"
        << "  sourceType  \"" << escaped(parse.parts.sourceType) << "\"  (read before the throw)\n"
        << "  volume, path and parameters: not reached\n";
    return;
  }
  out << " = " << parse.result << '\n';
  if (parse.result == 0) printSelectionParts(out, parse.parts);
  for (std::string const& line : parse.trace) {
    std::vector<std::string> const parts = wrapped("trace: " + escaped(line), 76);
    for (std::size_t i = 0; i < parts.size(); ++i) out << (i == 0 ? "  " : "    ") << parts[i] << '\n';
  }
}

Json selectionJson(ma::SelectionStrings const& parts) {
  Json json;
  json["sourceType"] = parts.sourceType;
  json["volume"] = parts.volume;
  json["path"] = parts.path;
  json["parameters"] = Json::object();
  for (auto const& parameter : parts.parameters) json["parameters"][parameter.first] = parameter.second;
  return json;
}

Json selectionParseJson(SelectionParse const& parse) {
  Json json;
  json["uri"] = parse.uri;
  if (parse.lengthError) {
    json["outcome"] = "length_error";
    json["error"] = parse.error;
    json["sourceType"] = parse.parts.sourceType;
  } else {
    json["outcome"] = parse.result == 0 ? "parsed" : "rejected";
    json["result"] = parse.result;
    if (parse.result == 0) json["parts"] = selectionJson(parse.parts);
  }
  json["trace"] = parse.trace;
  return json;
}

void runUriCreate(Output& output, std::string const& type, std::string const& volume,
                  std::string const& path, std::vector<std::string> const& parameters) {
  ma::SelectionStrings parts;
  parts.sourceType = type;
  parts.volume = volume;
  parts.path = path;
  for (std::string const& parameter : parameters) {
    std::size_t const equals = parameter.find('=');
    if (equals == std::string::npos || equals == 0) {
      throw InputError("parameter " + quoted(parameter) + " is not KEY=VALUE");
    }
    parts.parameters[parameter.substr(0, equals)] = parameter.substr(equals + 1);
  }
  std::string const uri = createSelection(parts);
  if (output.json) {
    Json json = selectionJson(parts);
    json["uri"] = uri;
    printJson(output.text, json);
  } else {
    output.text << escaped(uri) << '\n';
  }
}

void runUriParse(Output& output, std::string const& uri) {
  SelectionParse const parse = parseSelection(uri);
  if (!parse.lengthError && parse.result < 0) {
    throw InputError(quoted(uri) + " is not a selection URI (result " +
                     std::to_string(parse.result) + ")" + traceSuffix(parse.trace));
  }
  SelectionSplit const split = splitSelection(uri);
  if (split.result < 0) {
    throw InputError(quoted(uri) + " is not a selection URI (mdcSelectionSplit result " +
                     std::to_string(split.result) + ")" + traceSuffix(split.trace));
  }
  if (output.json) {
    Json json = selectionParseJson(parse);
    json["split"] = {{"result", split.result}, {"parts", selectionJson(split.parts)}};
    printJson(output.text, json);
  } else {
    printSelectionParseText(output.text, parse);
    printSplitText(output.text, uri, split);
  }
}

}  // namespace ma_cli
