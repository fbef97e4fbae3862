// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// dsys: parsing a bit set and classifying it.
#include "delivery_commands.h"

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <utility>
#include <vector>

#include "errors.h"
#include "zu/domain/tv/delivery_system.h"

namespace ma_cli {

namespace {

using zu::domain::tv::DeliverySystem;

struct SystemBit {
  char const* name;  // short name, as users write it
  unsigned int bit;
};

// In bit order.
constexpr SystemBit kSystemBits[] = {
    {"ATV", 0x1},       {"DVB-T", 0x2},     {"DVB-T2", 0x4},    {"DVB-C", 0x8},
    {"DVB-C2", 0x10},   {"DVB-S", 0x20},    {"DVB-S2", 0x40},   {"DVB-IP", 0x80},
    {"ATSC-T", 0x100},  {"ATSC-C", 0x200},  {"ATSC-ATV", 0x400}, {"ISDB-T", 0x800},
    {"ISDB-S", 0x1000},
};
constexpr unsigned int kMeaningfulBits = 0x1FFF;

char const* const kFrontendNames[] = {"none",   "analogue", "DVB-T/T2",     "DVB-C/C2", "DVB-S/S2",
                                      "IP",     "ATSC-T/ISDB-T", "ATSC-C",  "ATSC analogue",
                                      "ISDB-S"};

std::string frontendName(int frontend) {
  return frontend >= 0 && frontend < 10 ? kFrontendNames[frontend] : "?";
}

std::string indexName(int index) {
  switch (index) {
    case 0: return "terrestrial";
    case 1: return "cable";
    case 2: return "satellite or analogue";
  }
  return "none";
}

// The predicates, by name, in the order of the class's declaration.
std::vector<std::pair<char const*, bool> > predicatesOf(DeliverySystem const& system) {
  return {{"isUnknownFrontend", system.isUnknownFrontend()},
          {"isTunerFrontend", system.isTunerFrontend()},
          {"isATV", system.isATV()},
          {"isDVB", system.isDVB()},
          {"isDvbT", system.isDvbT()},
          {"isDvbC", system.isDvbC()},
          {"isDvbS", system.isDvbS()},
          {"isDvbTuner", system.isDvbTuner()},
          {"isDvbIP", system.isDvbIP()},
          {"isAtsc", system.isAtsc()},
          {"isAtscAtv", system.isAtscAtv()},
          {"isIsdb", system.isIsdb()}};
}

// "DELIVERY_SYSTEM_DVB_T2" without its prefix: "DVB_T2".
std::string shortSystemName(int value) {
  std::string name = zu::domain::tv::getDeliverySystemName(static_cast<zu::domain::tv::DeliverySystem_t>(value));
  std::string const prefix = "DELIVERY_SYSTEM_";
  return name.compare(0, prefix.size(), prefix) == 0 ? name.substr(prefix.size()) : name;
}

// The DeliverySystem_t value that the class picked, found through its bit.
int valueOf(DeliverySystem const& system) {
  int const bit = system.getBitmask();
  for (int value = 0; value < 14; ++value) {
    if (DeliverySystem::bitmaskMap[value] == bit) return value;
  }
  return 0;
}

std::string normalised(std::string name) {
  std::string result;
  for (char character : name) {
    if (character == ' ') continue;
    result += character == '_' ? '-' : static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
  }
  std::string const prefix = "DELIVERY-SYSTEM-";
  if (result.compare(0, prefix.size(), prefix) == 0) result.erase(0, prefix.size());
  return result;
}

}  // namespace

unsigned int parseDeliveryMask(std::string const& text) {
  if (text.empty()) throw InputError("empty delivery-system mask");
  if (std::isdigit(static_cast<unsigned char>(text[0]))) {
    bool const hexadecimal = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    char* end = nullptr;
    errno = 0;
    unsigned long long const value = std::strtoull(text.c_str() + (hexadecimal ? 2 : 0), &end, hexadecimal ? 16 : 10);
    if (*end != '\0' || errno == ERANGE || value > 0xFFFFFFFFull ||
        (hexadecimal && !std::isxdigit(static_cast<unsigned char>(text[2])))) {
      throw InputError("bad delivery-system mask " + quoted(text) + ": not a 32-bit number");
    }
    return static_cast<unsigned int>(value);
  }
  unsigned int mask = 0;
  std::size_t start = 0;
  for (;;) {
    std::size_t end = text.find(',', start);
    std::string const name = normalised(text.substr(start, end == std::string::npos ? std::string::npos : end - start));
    bool known = name == "NONE";
    for (SystemBit const& system : kSystemBits) {
      if (name == system.name) {
        mask |= system.bit;
        known = true;
      }
    }
    if (!known) {
      throw InputError("bad delivery-system mask " + quoted(text) + ": unknown system " + quoted(name));
    }
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return mask;
}

std::string maskNames(unsigned int mask) {
  std::string names;
  for (SystemBit const& system : kSystemBits) {
    if ((mask & system.bit) == 0) continue;
    if (!names.empty()) names += ',';
    names += system.name;
  }
  if ((mask & ~kMeaningfulBits) != 0) {
    if (!names.empty()) names += ',';
    names += hex(mask & ~kMeaningfulBits);
  }
  return names.empty() ? "none" : names;
}

Json classificationJson(unsigned int mask) {
  DeliverySystem const system(mask);
  int const value = valueOf(system);
  Json json;
  json["mask"] = mask;
  json["bits"] = maskNames(mask);
  json["value"] = value;
  json["name"] = zu::domain::tv::getDeliverySystemName(static_cast<zu::domain::tv::DeliverySystem_t>(value));
  json["bitmask"] = system.getBitmask();
  json["frontend"] = system.getFrontend();
  json["frontendName"] = frontendName(system.getFrontend());
  json["dvbIndex"] = system.getDvbIndex();
  json["predicates"] = Json::object();
  for (auto const& predicate : predicatesOf(system)) json["predicates"][predicate.first] = predicate.second;
  return json;
}

void printClassificationText(TextWriter& out, unsigned int mask) {
  DeliverySystem const system(mask);
  int const value = valueOf(system);
  out << "mask                " << hex(mask, 4) << " (" << mask << ")\n"
      << "bits                " << maskNames(mask) << '\n'
      << "system              " << value << " "
      << zu::domain::tv::getDeliverySystemName(static_cast<zu::domain::tv::DeliverySystem_t>(value)) << '\n'
      << "bitmask             " << hex(static_cast<unsigned int>(system.getBitmask())) << '\n'
      << "frontend            " << system.getFrontend() << " (" << frontendName(system.getFrontend()) << ")\n"
      << "DVB index           " << system.getDvbIndex() << " (" << indexName(system.getDvbIndex()) << ")\n";
  for (auto const& predicate : predicatesOf(system)) {
    out << padRight(predicate.first, 20) << (predicate.second ? "yes" : "no") << '\n';
  }
}

std::string classificationLine(unsigned int mask) {
  DeliverySystem const system(mask);
  std::string holds;
  for (auto const& predicate : predicatesOf(system)) {
    if (!predicate.second) continue;
    if (!holds.empty()) holds += ' ';
    holds += predicate.first + 2;  // without "is"
  }
  return padRight(hex(mask, 4), 7) + padRight(maskNames(mask), 16) + padRight(shortSystemName(valueOf(system)), 9) +
         padLeft(std::to_string(system.getFrontend()), 2) + padLeft(std::to_string(system.getDvbIndex()), 4) + "  " +
         holds;
}

void runDsys(Output& output, std::string const& mask) {
  unsigned int const bits = parseDeliveryMask(mask);
  if (output.json) {
    printJson(output.text, classificationJson(bits));
  } else {
    printClassificationText(output.text, bits);
  }
}

}  // namespace ma_cli
