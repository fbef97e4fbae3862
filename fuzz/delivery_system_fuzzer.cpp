// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Delivery systems from any 32-bit bit set and any 32-bit value.
//
// The first four input bytes are a bit set, the next four a value (any
// 32-bit number, negative ones included), the next four a second bit set.
// Both constructors must pick from the bit set the system with the greatest
// value; every look-up, predicate and name must match the table written out
// below, both for the systems built from bit sets and for a system that
// holds the raw value (undefined values answer neutrally). The tables are
// read only within their bounds: AddressSanitizer checks every read.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <type_traits>

#include "zu/domain/tv/delivery_system.h"

namespace {

using zu::domain::tv::DeliverySystem;
using zu::domain::tv::DeliverySystem_t;

void check(bool condition) {
  if (!condition) std::abort();
}

// One row of the delivery system table.
struct Row {
  const char* name;
  unsigned int bit;
  int frontend;
  int index;
};

const Row kRows[] = {
    {"DELIVERY_SYSTEM_UNKNOWN", 0x0, 0, -1},     {"DELIVERY_SYSTEM_ATV", 0x1, 1, -1},
    {"DELIVERY_SYSTEM_DVB_T", 0x2, 2, 0},        {"DELIVERY_SYSTEM_DVB_C", 0x8, 3, 1},
    {"DELIVERY_SYSTEM_DVB_S", 0x20, 4, 2},       {"DELIVERY_SYSTEM_DVB_IP", 0x80, 5, -1},
    {"DELIVERY_SYSTEM_DVB_T2", 0x4, 2, 0},       {"DELIVERY_SYSTEM_DVB_C2", 0x10, 3, 1},
    {"DELIVERY_SYSTEM_DVB_S2", 0x40, 4, 2},      {"DELIVERY_SYSTEM_ATSC_T", 0x100, 6, 0},
    {"DELIVERY_SYSTEM_ATSC_C", 0x200, 7, 1},     {"DELIVERY_SYSTEM_ATSC_ATV", 0x400, 8, 2},
    {"DELIVERY_SYSTEM_ISDB_T", 0x800, 6, -1},    {"DELIVERY_SYSTEM_ISDB_S", 0x1000, 9, -1},
};
const Row kUndefined = {"UNDEFINED DELIVERY SYSTEM", 0, 0, -1};
constexpr std::int32_t kRowCount = sizeof kRows / sizeof kRows[0];

const Row& rowOf(std::int32_t value) {
  return value >= 0 && value < kRowCount ? kRows[value] : kUndefined;
}

// The value the bit set selects: the greatest value whose bit is set.
std::int32_t valueOf(std::uint32_t bits) {
  std::int32_t chosen = 0;
  for (std::int32_t value = 1; value < kRowCount; ++value) {
    if ((bits & kRows[value].bit) != 0) chosen = value;
  }
  return chosen;
}

// A system that holds `value` as it is. DeliverySystem is a trivially
// copyable wrapper of one 32-bit value, which clients also receive through
// messages as raw bytes; copying the bytes in is how such a value arrives.
DeliverySystem holding(std::int32_t value) {
  static_assert(std::is_trivially_copyable<DeliverySystem>::value, "copied as bytes");
  static_assert(sizeof(DeliverySystem) == sizeof value, "one 32-bit value");
  DeliverySystem system(0u);
  std::memcpy(static_cast<void*>(&system), &value, sizeof value);
  return system;
}

void checkSystem(const DeliverySystem& system, std::int32_t value) {
  const Row& row = rowOf(value);
  check(system.getBitmask() == static_cast<int>(row.bit));
  check(system.getFrontend() == row.frontend);
  check(system.getDvbIndex() == row.index);
  check(std::string(zu::domain::tv::getDeliverySystemName(static_cast<DeliverySystem_t>(value))) ==
        row.name);
  const unsigned int bit = row.bit;
  check(system.isUnknownFrontend() == (value == 0));
  check(system.isTunerFrontend() == ((bit & 0x1F7Fu) != 0));
  check(system.isATV() == (value == 1));
  check(system.isDVB() == ((bit & 0xFEu) != 0));
  check(system.isDvbT() == (value == 2 || value == 6));
  check(system.isDvbC() == (value == 3 || value == 7));
  check(system.isDvbS() == (value == 4 || value == 8));
  check(system.isDvbTuner() == (system.isDVB() && value != 5));
  check(system.isDvbIP() == (value == 5));
  check(system.isAtsc() == (value == 9 || value == 10));
  check(system.isAtscAtv() == (value == 11));
  check(system.isIsdb() == (value == 12 || value == 13));
  check(system.isSameFrontend(system));
}

std::uint32_t word(const std::uint8_t* data, std::size_t size, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = at; i < at + 4; ++i) value = value << 8 | (i < size ? data[i] : 0u);
  return value;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::uint32_t bits = word(data, size, 0);
  const auto value = static_cast<std::int32_t>(word(data, size, 4));
  const std::uint32_t otherBits = word(data, size, 8);

  const std::int32_t selected = valueOf(bits);
  const DeliverySystem fromWord(bits);
  const DeliverySystem fromMask(static_cast<zu::domain::tv::DeliverySystemBitmask_t>(bits));
  checkSystem(fromWord, selected);
  checkSystem(fromMask, selected);
  check((selected == 0) == ((bits & 0x1FFFu) == 0));

  const DeliverySystem raw = holding(value);
  checkSystem(raw, value);

  const std::int32_t otherSelected = valueOf(otherBits);
  const DeliverySystem other(otherBits);
  check(fromWord.isSameFrontend(other) == (rowOf(selected).frontend == rowOf(otherSelected).frontend));
  check(raw.isSameFrontend(other) == (rowOf(value).frontend == rowOf(otherSelected).frontend));

  // The exported columns agree with the table wherever they reach.
  if (value >= 0 && value < 14) {
    check(DeliverySystem::bitmaskMap[value] == static_cast<int>(kRows[value].bit));
    check(DeliverySystem::frontendMap[value] == kRows[value].frontend);
    if (value < 12) check(DeliverySystem::indexMap[value] == kRows[value].index);
  }
  return 0;
}
