// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Printing a JSON document.
#include "json_output.h"

namespace ma_cli {

void printJson(TextWriter& out, Json const& document) {
  out << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace ma_cli
