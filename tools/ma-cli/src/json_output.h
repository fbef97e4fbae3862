// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The --json form of the output: every command builds one JSON document
// with the same information as its text and prints it here.
#ifndef MA_CLI_JSON_OUTPUT_H_
#define MA_CLI_JSON_OUTPUT_H_

#include <nlohmann/json.hpp>

#include "text_output.h"

namespace ma_cli {

// Keys keep the order in which a command adds them.
typedef nlohmann::ordered_json Json;

// `document` as text, indented by `indent` blanks per level (-1: on one
// line). Bytes that are not UTF-8 (file names may hold any byte) become
// U+FFFD; DEL, C1 controls, bidirectional controls and the line and paragraph
// separators are written as \uNNNN escapes, so that no string can steer
// the terminal that shows it.
std::string jsonText(Json const& document, int indent);

// Appends `text` to `out` as a JSON string, with the same replacements and
// escapes as jsonText() (for documents written piece by piece).
void appendJsonString(std::string& out, std::string const& text);

// Writes jsonText(document, 2) with a final line feed.
void printJson(TextWriter& out, Json const& document);

}  // namespace ma_cli

#endif  // MA_CLI_JSON_OUTPUT_H_
