// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Delivery systems: selection from a bit set, table look-ups, predicates.
#include "zu/domain/tv/delivery_system.h"

#include <cstddef>
#include <iterator>

namespace zu {
namespace domain {
namespace tv {

namespace {

constexpr char kUndefinedName[] = "UNDEFINED DELIVERY SYSTEM";

constexpr char const* kNames[] = {
    "DELIVERY_SYSTEM_UNKNOWN", "DELIVERY_SYSTEM_ATV",     "DELIVERY_SYSTEM_DVB_T",
    "DELIVERY_SYSTEM_DVB_C",   "DELIVERY_SYSTEM_DVB_S",   "DELIVERY_SYSTEM_DVB_IP",
    "DELIVERY_SYSTEM_DVB_T2",  "DELIVERY_SYSTEM_DVB_C2",  "DELIVERY_SYSTEM_DVB_S2",
    "DELIVERY_SYSTEM_ATSC_T",  "DELIVERY_SYSTEM_ATSC_C",  "DELIVERY_SYSTEM_ATSC_ATV",
    "DELIVERY_SYSTEM_ISDB_T",  "DELIVERY_SYSTEM_ISDB_S",
};

// Bit masks of the families, over getBitmask().
constexpr unsigned int kTunerBits = 0x1F7F;     // every known system but DVB over IP
constexpr unsigned int kDvbBits = 0xFE;         // DVB-T, T2, C, C2, S, S2, IP
constexpr unsigned int kDvbTBits = 0x6;         // DVB-T, T2
constexpr unsigned int kDvbCBits = 0x18;        // DVB-C, C2
constexpr unsigned int kDvbSBits = 0x60;        // DVB-S, S2
constexpr unsigned int kDvbTunerBits = 0x7E;    // DVB-T, T2, C, C2, S, S2
constexpr unsigned int kAtscBits = 0x300;       // ATSC-T, ATSC-C

// Whether `bitmask` has any bit of `family`.
bool hasAnyOf(int bitmask, unsigned int family) {
  return (static_cast<unsigned int>(bitmask) & family) != 0;
}

// The entry of `table` for `value`, or `outside` when `value`, taken as
// unsigned (so negative values too), lies beyond the table.
template <std::size_t N>
int lookUp(int const (&table)[N], DeliverySystem_t value, int outside) {
  unsigned int const index = static_cast<unsigned int>(value);
  return index < N ? table[index] : outside;
}

}  // namespace

const int DeliverySystem::indexMap[12] = {-1, -1, 0, 1, 2, -1, 0, 1, 2, 0, 1, 2};
const int DeliverySystem::frontendMap[14] = {0, 1, 2, 3, 4, 5, 2, 3, 4, 6, 7, 8, 6, 9};
const int DeliverySystem::bitmaskMap[14] = {0,  1,   2,   8,    32,   128,  4,
                                            16, 64, 256, 512, 1024, 2048, 4096};

static_assert(std::size(kNames) == std::size(DeliverySystem::bitmaskMap),
              "one name per delivery system");

DeliverySystem::DeliverySystem(unsigned int bits)
    : DeliverySystem(static_cast<DeliverySystemBitmask_t>(bits)) {}

DeliverySystem::DeliverySystem(DeliverySystemBitmask_t bits) : value_(DELIVERY_SYSTEM_UNKNOWN) {
  // Each set bit overwrites the value, in increasing value order: the
  // greatest value wins.
  for (int value = DELIVERY_SYSTEM_ATV; value <= DELIVERY_SYSTEM_ISDB_S; ++value) {
    if ((bits & static_cast<unsigned int>(bitmaskMap[value])) != 0) {
      value_ = static_cast<DeliverySystem_t>(value);
    }
  }
}

DeliverySystem_t DeliverySystem::getValue() const { return value_; }

char const* DeliverySystem::getName() const { return getDeliverySystemName(value_); }

int DeliverySystem::getBitmask() const { return lookUp(bitmaskMap, value_, 0); }

int DeliverySystem::getFrontend() const { return lookUp(frontendMap, value_, 0); }

int DeliverySystem::getDvbIndex() const { return lookUp(indexMap, value_, -1); }

bool DeliverySystem::isSameFrontend(DeliverySystem const& other) const {
  return getFrontend() == other.getFrontend();
}

bool DeliverySystem::isUnknownFrontend() const { return value_ == DELIVERY_SYSTEM_UNKNOWN; }

bool DeliverySystem::isTunerFrontend() const {
  return hasAnyOf(getBitmask(), kTunerBits);
}

bool DeliverySystem::isATV() const { return value_ == DELIVERY_SYSTEM_ATV; }

bool DeliverySystem::isDVB() const {
  return hasAnyOf(getBitmask(), kDvbBits);
}

bool DeliverySystem::isDvbT() const {
  return hasAnyOf(getBitmask(), kDvbTBits);
}

bool DeliverySystem::isDvbC() const {
  return hasAnyOf(getBitmask(), kDvbCBits);
}

bool DeliverySystem::isDvbS() const {
  return hasAnyOf(getBitmask(), kDvbSBits);
}

bool DeliverySystem::isDvbTuner() const {
  return hasAnyOf(getBitmask(), kDvbTunerBits);
}

bool DeliverySystem::isDvbIP() const { return value_ == DELIVERY_SYSTEM_DVB_IP; }

bool DeliverySystem::isAtsc() const {
  return hasAnyOf(getBitmask(), kAtscBits);
}

bool DeliverySystem::isAtscAtv() const { return value_ == DELIVERY_SYSTEM_ATSC_ATV; }

bool DeliverySystem::isIsdb() const {
  // Unsigned arithmetic: values below ISDB-T wrap around to large numbers.
  return static_cast<unsigned int>(value_) - static_cast<unsigned int>(DELIVERY_SYSTEM_ISDB_T) < 2u;
}

char const* getDeliverySystemName(DeliverySystem_t value) {
  unsigned int const index = static_cast<unsigned int>(value);
  return index < std::size(kNames) ? kNames[index] : kUndefinedName;
}

}  // namespace tv
}  // namespace domain
}  // namespace zu
