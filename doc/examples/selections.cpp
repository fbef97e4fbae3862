// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Selection URIs: writing one, reading it back with mdcSelectionSplit(),
// the readings of ambiguous texts, and what the legacy mdcSelectionParse()
// does.
//
// Each guide snippet is a function with the #include lines it needs.
#include "example_tree.h"

using example::check;

// [guide:selection-create]
#include <string>

#include "ma/mdc_selection_uris.h"

// Writes the selection of a recording on a USB volume, with the channel it
// came from and the second to start playing at.
std::string writeSelection() {
  ma::SelectionStrings parts;
  parts.sourceType = "file";  // exactly four characters, or -22
  parts.volume = "usb1";
  parts.path = "rec/tatort.ts";
  parts.parameters["lcn"] = "7";
  parts.parameters["start"] = "120";
  std::string uri;
  int result = mdcSelectionCreate(uri, parts);
  check(result == 0 && uri == "file://usb1/rec/tatort.ts?lcn=7start=120",
        "no separator between parameters");

  ma::SelectionStrings bad = parts;
  bad.sourceType = "dvb";
  std::string none;
  check(mdcSelectionCreate(none, bad) == -22 && none.empty(), "-22: bad source type");
  return uri;
}
// [guide:end]

// [guide:selection-split]
#include <string>

#include "ma/mdc_selection_uris.h"

// Reads a selection back into its parts.
void readSelection(std::string const& uri) {
  ma::SelectionStrings parts;
  check(mdcSelectionSplit(parts, uri) == 0, "read");
  check(parts.sourceType == "file" && parts.volume == "usb1" && parts.path == "rec/tatort.ts",
        "source type, volume, path");
  check(parts.parameters.size() == 2 && parts.parameters["lcn"] == "7" &&
            parts.parameters["start"] == "120",
        "the parameters, split again");

  // Text that mdcSelectionCreate() cannot have written: -22, `parts` unchanged.
  check(mdcSelectionSplit(parts, "usb1/music") == -22, "-22: no \"://\"");
  check(mdcSelectionSplit(parts, "file://usb1") == -22, "-22: no \"/\" behind the volume");
  check(parts.volume == "usb1" && parts.parameters.size() == 2, "unchanged after a refusal");
}
// [guide:end]

// [guide:selection-ambiguous]
#include <string>

#include "ma/mdc_selection_uris.h"

// Parts that one text can stand for are read one way; writing them again
// always gives the same text.
void readAmbiguousSelection() {
  ma::SelectionStrings parts;
  parts.sourceType = "dvbt";
  parts.volume = "tuner0";
  parts.path = "channels";
  parts.parameters["hd"] = "";  // written as the key alone...
  parts.parameters["lcn"] = "7";
  std::string uri;
  check(mdcSelectionCreate(uri, parts) == 0 && uri == "dvbt://tuner0/channels?hdlcn=7",
        "...right before the next key");

  ma::SelectionStrings read;
  check(mdcSelectionSplit(read, uri) == 0, "read");
  check(read.parameters.size() == 1 && read.parameters["hdlcn"] == "7", "one parameter");
  std::string again;
  check(mdcSelectionCreate(again, read) == 0 && again == uri, "the same text again");
}
// [guide:end]

// [guide:selection-parse]
#include <stdexcept>

#include "ma/mdc_selection_uris.h"

// The legacy parser, for code that must run with a library without
// mdcSelectionSplit(): only its failures answer.
void parseWithLegacyParser() {
  ma::SelectionStrings parsed;
  check(mdcSelectionParse(parsed, "usb1/music") == -22, "-22: no \":\"");
  check(mdcSelectionParse(parsed, "file:/x") == -22, "-22: no \"//\" behind the \":\"");
  try {
    mdcSelectionParse(parsed, "file://usb1/music/a.mp3");
    check(false, "a well-formed URI always ends in std::length_error");
  } catch (std::length_error const&) {
    check(parsed.sourceType == "file", "the source type is set before the throw");
    check(parsed.volume.empty() && parsed.path.empty(), "the other fields are untouched");
  }
}
// [guide:end]

int main() {
  readSelection(writeSelection());
  readAmbiguousSelection();
  parseWithLegacyParser();
  return 0;
}
