// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// dsys: a tuner's delivery-system bit set, classified by the library.
#ifndef MA_CLI_DELIVERY_COMMANDS_H_
#define MA_CLI_DELIVERY_COMMANDS_H_

#include <string>

#include "catalogue_commands.h"

namespace ma_cli {

// The bit set that `text` names: a decimal number, a hexadecimal one
// ("0x6"), or system names joined by commas ("DVB-T,DVB-T2"; letter case
// and "-" versus "_" do not matter, "DELIVERY_SYSTEM_" may lead, "NONE" is
// the empty set). Anything else, or a number beyond 32 bits, is
// InputError.
unsigned int parseDeliveryMask(std::string const& text);

// The short name of each bit set in `mask`, joined by ",": "DVB-T,DVB-T2";
// "none" for 0. Bits without meaning are added in hexadecimal.
std::string maskNames(unsigned int mask);

// The system that zu::domain::tv::DeliverySystem picks from `mask`, with
// its name, bit, frontend, DVB index and every predicate.
Json classificationJson(unsigned int mask);
void printClassificationText(TextWriter& out, unsigned int mask);

// One line of the default walk's table: mask, bits, system, frontend,
// index and the predicates that hold.
std::string classificationLine(unsigned int mask);

void runDsys(Output& output, std::string const& mask);

}  // namespace ma_cli

#endif  // MA_CLI_DELIVERY_COMMANDS_H_
