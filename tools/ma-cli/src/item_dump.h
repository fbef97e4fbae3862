// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// An item's text dump (ma::ItemInfo::toString) made safe to print.
//
// The dump is one "label: value" line per field, and a value may hold any
// byte, a line feed included, so the dump cannot be split into lines and
// escaped afterwards: a value could forge a line. Every text field is
// escaped first (in a copy of the record), and only then is the dump made
// and split.
//
// Thread-safety: stateless.
#ifndef MA_CLI_ITEM_DUMP_H_
#define MA_CLI_ITEM_DUMP_H_

#include <string>
#include <vector>

#include "ma/mdc_item.h"

namespace ma_cli {

// The lines of the text dump of `item`, each field's value escaped
// (escaped()), without line feeds.
std::vector<std::string> safeDumpLines(ma::ItemInfo const& item);

}  // namespace ma_cli

#endif  // MA_CLI_ITEM_DUMP_H_
