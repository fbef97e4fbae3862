// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The built-in sample: a small receiver catalogue that the tool walks when
// it is started without arguments, and that every subcommand uses when no
// directory is given.
//
//   (root) Receiver
//   $0 TV           channels: caption, LCN, network, tuner, station texts
//   $1 Recordings   recordings with recorder user data (VfsUserDataDR):
//                   finished, in progress (circular buffer), encrypted
//   $2 USB          a volume: Music (an album of tracks, a playlist),
//                   Videos, Pictures, a document, an interactive service,
//                   an "other" and an unknown item
//
// Every kind occurs at least once and the tree is four levels deep. Every
// value is fixed (identifiers, dates, sizes), so the output is the same on
// every run and every machine.
#ifndef MA_CLI_SAMPLE_CATALOGUE_H_
#define MA_CLI_SAMPLE_CATALOGUE_H_

#include "catalogue.h"

namespace ma_cli {

Catalogue makeSampleCatalogue();

}  // namespace ma_cli

#endif  // MA_CLI_SAMPLE_CATALOGUE_H_
