// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The walk through the sample catalogue that ma-cli prints when started
// without arguments: the tree, one folder in each sort order, path
// resolution (a positional path, an identifier query, a failure), one item
// as its message and back, a selection URI built and parsed, and delivery-
// system bit sets classified. Deterministic and at most 80 columns wide.
#ifndef MA_CLI_DEFAULT_WALK_H_
#define MA_CLI_DEFAULT_WALK_H_

#include "catalogue_commands.h"

namespace ma_cli {

void runDefaultWalk(Output& output);

}  // namespace ma_cli

#endif  // MA_CLI_DEFAULT_WALK_H_
