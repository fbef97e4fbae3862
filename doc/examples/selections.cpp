// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Selection URIs: writing one, and what reading one does.
#include <map>
#include <stdexcept>
#include <string>

#include "example_tree.h"
#include "ma/mdc_selection_uris.h"

using example::check;

int main() {
  // [guide:selection-create]
  ma::SelectionStrings parts;
  parts.sourceType = "file";  // exactly four characters, or -22
  parts.volume = "usb1";
  parts.path = "music/a.mp3";
  parts.parameters["a"] = "1";
  parts.parameters["b"] = "2";
  std::string uri;
  int result = mdcSelectionCreate(uri, parts);
  check(result == 0 && uri == "file://usb1/music/a.mp3?a=1b=2", "no separator between parameters");

  parts.sourceType = "dvb";
  check(mdcSelectionCreate(uri, parts) == -22 && uri.empty(), "-22: bad source type");
  // [guide:end]

  // [guide:selection-parse]
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
  // [guide:end]
  return 0;
}
