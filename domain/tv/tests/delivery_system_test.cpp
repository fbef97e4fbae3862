// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Delivery systems: selection from bit sets, look-ups, predicates and names,
// checked against the table of delivery systems written out below.
#include "zu/domain/tv/delivery_system.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <iterator>
#include <string>
#include <type_traits>

namespace {

using zu::domain::tv::DeliverySystem;
using zu::domain::tv::DeliverySystem_t;
using zu::domain::tv::DeliverySystemBitmask_t;
using zu::domain::tv::getDeliverySystemName;

// One row of the delivery system table: what every look-up and predicate
// answers for one value.
struct Row {
  int value;
  char const* name;
  unsigned int bit;
  int frontend;
  int index;
  bool unknown, tuner, atv, dvb, dvbT, dvbC, dvbS, dvbTuner, dvbIP, atsc, atscAtv, isdb;
};

// clang-format off
constexpr Row kRows[] = {
  // value name                        bit     fe  idx  unkn  tuner  atv    dvb    dvbT   dvbC   dvbS   dvbTu  dvbIP  atsc   atscA  isdb
  {0,  "DELIVERY_SYSTEM_UNKNOWN",  0x0,    0, -1, true,  false, false, false, false, false, false, false, false, false, false, false},
  {1,  "DELIVERY_SYSTEM_ATV",      0x1,    1, -1, false, true,  true,  false, false, false, false, false, false, false, false, false},
  {2,  "DELIVERY_SYSTEM_DVB_T",    0x2,    2,  0, false, true,  false, true,  true,  false, false, true,  false, false, false, false},
  {3,  "DELIVERY_SYSTEM_DVB_C",    0x8,    3,  1, false, true,  false, true,  false, true,  false, true,  false, false, false, false},
  {4,  "DELIVERY_SYSTEM_DVB_S",    0x20,   4,  2, false, true,  false, true,  false, false, true,  true,  false, false, false, false},
  {5,  "DELIVERY_SYSTEM_DVB_IP",   0x80,   5, -1, false, false, false, true,  false, false, false, false, true,  false, false, false},
  {6,  "DELIVERY_SYSTEM_DVB_T2",   0x4,    2,  0, false, true,  false, true,  true,  false, false, true,  false, false, false, false},
  {7,  "DELIVERY_SYSTEM_DVB_C2",   0x10,   3,  1, false, true,  false, true,  false, true,  false, true,  false, false, false, false},
  {8,  "DELIVERY_SYSTEM_DVB_S2",   0x40,   4,  2, false, true,  false, true,  false, false, true,  true,  false, false, false, false},
  {9,  "DELIVERY_SYSTEM_ATSC_T",   0x100,  6,  0, false, true,  false, false, false, false, false, false, false, true,  false, false},
  {10, "DELIVERY_SYSTEM_ATSC_C",   0x200,  7,  1, false, true,  false, false, false, false, false, false, false, true,  false, false},
  {11, "DELIVERY_SYSTEM_ATSC_ATV", 0x400,  8,  2, false, true,  false, false, false, false, false, false, false, false, true,  false},
  {12, "DELIVERY_SYSTEM_ISDB_T",   0x800,  6, -1, false, true,  false, false, false, false, false, false, false, false, false, true},
  {13, "DELIVERY_SYSTEM_ISDB_S",   0x1000, 9, -1, false, true,  false, false, false, false, false, false, false, false, false, true},
};
// clang-format on

constexpr int kFirstValue = 0;
constexpr int kLastValue = 13;
constexpr unsigned int kAllBits = 0x1FFF;

// Any value outside the enumerators.
Row undefinedRow(int value) {
  return {value, "UNDEFINED DELIVERY SYSTEM", 0, 0, -1,
          false, false, false, false, false, false, false, false, false, false, false, false};
}

Row rowOf(int value) {
  return value >= kFirstValue && value <= kLastValue ? kRows[value] : undefinedRow(value);
}

// The values every look-up is checked for: the enumerators and their
// neighbours on both sides.
constexpr int kCheckedValues[] = {-2, -1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};

// A DeliverySystem holds nothing but its value, and its accessors add no
// member: the layout is one int, as client binaries were compiled against.
// Values outside the enumerators only come from memory written elsewhere, so
// the tests place and read the value by copying its bytes.
static_assert(std::is_trivially_copyable_v<DeliverySystem>);
static_assert(std::is_standard_layout_v<DeliverySystem>);
static_assert(sizeof(DeliverySystem) == sizeof(int));
static_assert(alignof(DeliverySystem) == alignof(int));

DeliverySystem withValue(int value) {
  DeliverySystem system(zu::domain::tv::DELIVERY_SYSTEM_BITMASK_NONE);
  std::memcpy(static_cast<void*>(&system), &value, sizeof value);
  return system;
}

int valueOf(DeliverySystem const& system) {
  int value;
  std::memcpy(&value, static_cast<void const*>(&system), sizeof value);
  return value;
}

DeliverySystem fromBits(unsigned int bits) {
  return DeliverySystem(static_cast<DeliverySystemBitmask_t>(bits));
}

char const* nameOf(int value) {
  return getDeliverySystemName(static_cast<DeliverySystem_t>(value));
}

// The value a bit set selects, worked out from the table: the greatest value
// whose bit is in the set.
int expectedValueOf(unsigned int bits) {
  int selected = 0;
  for (Row const& row : kRows) {
    if ((bits & row.bit) != 0 && row.value > selected) {
      selected = row.value;
    }
  }
  return selected;
}

struct Predicate {
  char const* name;
  bool (DeliverySystem::*call)() const;
  bool Row::*expected;
};

constexpr Predicate kPredicates[] = {
    {"isUnknownFrontend", &DeliverySystem::isUnknownFrontend, &Row::unknown},
    {"isTunerFrontend", &DeliverySystem::isTunerFrontend, &Row::tuner},
    {"isATV", &DeliverySystem::isATV, &Row::atv},
    {"isDVB", &DeliverySystem::isDVB, &Row::dvb},
    {"isDvbT", &DeliverySystem::isDvbT, &Row::dvbT},
    {"isDvbC", &DeliverySystem::isDvbC, &Row::dvbC},
    {"isDvbS", &DeliverySystem::isDvbS, &Row::dvbS},
    {"isDvbTuner", &DeliverySystem::isDvbTuner, &Row::dvbTuner},
    {"isDvbIP", &DeliverySystem::isDvbIP, &Row::dvbIP},
    {"isAtsc", &DeliverySystem::isAtsc, &Row::atsc},
    {"isAtscAtv", &DeliverySystem::isAtscAtv, &Row::atscAtv},
    {"isIsdb", &DeliverySystem::isIsdb, &Row::isdb},
};

// --- construction from a bit set ---

TEST(DeliverySystem, ZeroOrOnlyBitsAboveIsdbSBuildUnknown) {
  for (unsigned int bits : {0x0u, 0x2000u, 0x80000000u, 0xFFFFE000u}) {
    SCOPED_TRACE(bits);
    DeliverySystem const system = fromBits(bits);
    EXPECT_EQ(0, valueOf(system));
    EXPECT_STREQ("DELIVERY_SYSTEM_UNKNOWN", nameOf(valueOf(system)));
    EXPECT_TRUE(system.isUnknownFrontend());
    EXPECT_FALSE(system.isTunerFrontend());
    EXPECT_EQ(-1, system.getDvbIndex());
  }
}

TEST(DeliverySystem, DvbTAndDvbT2BitsBuildDvbT2) {
  EXPECT_EQ(6, valueOf(fromBits(0x6)));
}

TEST(DeliverySystem, AllThirteenBitsBuildIsdbS) {
  EXPECT_EQ(13, valueOf(fromBits(0x1FFF)));
  EXPECT_EQ(13, valueOf(fromBits(0xFFFFFFFF)));
}

TEST(DeliverySystem, GreatestValueWinsNotGreatestBit) {
  EXPECT_EQ(6, valueOf(fromBits(0x20 | 0x4)));  // DVB-S and DVB-T2
  EXPECT_EQ(6, valueOf(fromBits(0x4 | 0x80)));  // DVB-T2 and DVB over IP
  EXPECT_EQ(5, valueOf(fromBits(0x2 | 0x8 | 0x20 | 0x80)));  // first generation and IP
}

TEST(DeliverySystem, EachBitAloneBuildsItsSystem) {
  for (Row const& row : kRows) {
    if (row.bit == 0) continue;
    SCOPED_TRACE(row.name);
    DeliverySystem const system = fromBits(row.bit);
    EXPECT_EQ(row.value, valueOf(system));
    EXPECT_EQ(static_cast<int>(row.bit), system.getBitmask());
  }
}

TEST(DeliverySystem, EveryCombinationOfTheThirteenBitsBuildsItsGreatestSystem) {
  int mismatches = 0;
  for (unsigned int bits = 0; bits <= kAllBits; ++bits) {
    int const expected = expectedValueOf(bits);
    DeliverySystem const system = fromBits(bits);
    if (valueOf(system) != expected ||
        system.getBitmask() != static_cast<int>(kRows[expected].bit)) {
      ADD_FAILURE() << "bits 0x" << std::hex << bits << " built " << std::dec
                    << valueOf(system) << ", expected " << expected;
      ++mismatches;
    }
  }
  EXPECT_EQ(0, mismatches);
}

TEST(DeliverySystem, BitsAboveIsdbSDoNotChangeAnyCombination) {
  int mismatches = 0;
  for (unsigned int high : {0x2000u, 0x10000u, 0x80000000u, 0xFFFFE000u}) {
    for (unsigned int bits = 0; bits <= kAllBits; ++bits) {
      int const built = valueOf(fromBits(bits | high));
      if (built != expectedValueOf(bits)) {
        ADD_FAILURE() << "bits 0x" << std::hex << (bits | high) << " built " << std::dec
                      << built << ", expected " << expectedValueOf(bits);
        ++mismatches;
      }
    }
  }
  EXPECT_EQ(0, mismatches);
}

TEST(DeliverySystem, PlainWordAndBitmaskConstructorsAgreeOnEveryCombination) {
  for (unsigned int high : {0x0u, 0xFFFFE000u}) {
    for (unsigned int bits = 0; bits <= kAllBits; ++bits) {
      DeliverySystem const fromWord(bits | high);
      ASSERT_EQ(valueOf(fromBits(bits | high)), valueOf(fromWord)) << std::hex << bits;
    }
  }
}

TEST(DeliverySystem, IsCopiedWithItsValue) {
  DeliverySystem const original = fromBits(0x200);
  DeliverySystem copy = fromBits(0x1);
  copy = original;
  DeliverySystem const constructed(original);
  EXPECT_EQ(10, valueOf(copy));
  EXPECT_EQ(10, valueOf(constructed));
}

// --- look-ups ---

TEST(DeliverySystem, TablesHoldTheColumnsOfTheTable) {
  ASSERT_EQ(12u, std::size(DeliverySystem::indexMap));
  ASSERT_EQ(14u, std::size(DeliverySystem::frontendMap));
  ASSERT_EQ(14u, std::size(DeliverySystem::bitmaskMap));
  for (Row const& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(static_cast<int>(row.bit), DeliverySystem::bitmaskMap[row.value]);
    EXPECT_EQ(row.frontend, DeliverySystem::frontendMap[row.value]);
    if (row.value < 12) {
      EXPECT_EQ(row.index, DeliverySystem::indexMap[row.value]);
    }
  }
}

TEST(DeliverySystem, LookUpsOfEveryValue) {
  for (int value : kCheckedValues) {
    SCOPED_TRACE(value);
    Row const row = rowOf(value);
    DeliverySystem const system = withValue(value);
    EXPECT_EQ(static_cast<int>(row.bit), system.getBitmask());
    EXPECT_EQ(row.frontend, system.getFrontend());
    EXPECT_EQ(row.index, system.getDvbIndex());
  }
}

TEST(DeliverySystem, LookUpsOfExtremeValuesAreNeutral) {
  for (int value : {INT_MIN, INT_MIN + 1, -13, 16, 0x2000, INT_MAX}) {
    SCOPED_TRACE(value);
    DeliverySystem const system = withValue(value);
    EXPECT_EQ(0, system.getBitmask());
    EXPECT_EQ(0, system.getFrontend());
    EXPECT_EQ(-1, system.getDvbIndex());
    EXPECT_FALSE(system.isIsdb());
    EXPECT_STREQ("UNDEFINED DELIVERY SYSTEM", nameOf(value));
  }
}

// --- predicates ---

TEST(DeliverySystem, PredicatesOfEveryValue) {
  for (int value : kCheckedValues) {
    Row const row = rowOf(value);
    DeliverySystem const system = withValue(value);
    for (Predicate const& predicate : kPredicates) {
      EXPECT_EQ(row.*predicate.expected, (system.*predicate.call)())
          << predicate.name << " of value " << value;
    }
  }
}

TEST(DeliverySystem, IsSameFrontendOfEveryPairOfValues) {
  for (int first : kCheckedValues) {
    for (int second : kCheckedValues) {
      EXPECT_EQ(rowOf(first).frontend == rowOf(second).frontend,
                withValue(first).isSameFrontend(withValue(second)))
          << first << " and " << second;
    }
  }
}

TEST(DeliverySystem, SecondGenerationSharesTheFrontendOfTheFirst) {
  EXPECT_TRUE(fromBits(0x2).isSameFrontend(fromBits(0x4)));
  EXPECT_TRUE(fromBits(0x8).isSameFrontend(fromBits(0x10)));
  EXPECT_TRUE(fromBits(0x20).isSameFrontend(fromBits(0x40)));
  EXPECT_FALSE(fromBits(0x2).isSameFrontend(fromBits(0x8)));
}

TEST(DeliverySystem, AtscAnalogueIsNotAtscNorAnalogueTv) {
  DeliverySystem const system = fromBits(0x400);
  ASSERT_EQ(11, valueOf(system));
  EXPECT_FALSE(system.isAtsc());
  EXPECT_TRUE(system.isAtscAtv());
  EXPECT_FALSE(system.isATV());
  EXPECT_EQ(2, system.getDvbIndex());
  EXPECT_EQ(8, system.getFrontend());
}

TEST(DeliverySystem, IsdbTHasNoIndexAndSharesFrontendWithAtscT) {
  DeliverySystem const system = fromBits(0x800);
  ASSERT_EQ(12, valueOf(system));
  EXPECT_EQ(-1, system.getDvbIndex());
  EXPECT_EQ(6, system.getFrontend());
  EXPECT_TRUE(system.isSameFrontend(fromBits(0x100)));
  EXPECT_TRUE(fromBits(0x100).isSameFrontend(system));
}

TEST(DeliverySystem, DvbOverIpIsDvbButNoTuner) {
  DeliverySystem const system = fromBits(0x80);
  ASSERT_EQ(5, valueOf(system));
  EXPECT_TRUE(system.isDVB());
  EXPECT_FALSE(system.isDvbTuner());
  EXPECT_FALSE(system.isTunerFrontend());
}

// --- names ---

TEST(DeliverySystemName, OfEveryValue) {
  for (int value : kCheckedValues) {
    SCOPED_TRACE(value);
    EXPECT_STREQ(rowOf(value).name, nameOf(value));
  }
}

TEST(DeliverySystemName, OfFourteenAndOfNegativeValuesIsUndefined) {
  EXPECT_STREQ("UNDEFINED DELIVERY SYSTEM", nameOf(14));
  EXPECT_STREQ("UNDEFINED DELIVERY SYSTEM", nameOf(-1));
  EXPECT_STREQ("UNDEFINED DELIVERY SYSTEM", nameOf(-2));
  EXPECT_STREQ("UNDEFINED DELIVERY SYSTEM", nameOf(INT_MIN));
}

// --- the system's own value and name ---

TEST(DeliverySystemValue, OfEveryCombinationOfBitsIsTheSystemSelected) {
  for (unsigned int high : {0x0u, 0xFFFFE000u}) {
    for (unsigned int bits = 0; bits <= kAllBits; ++bits) {
      DeliverySystem const system(bits | high);
      ASSERT_EQ(expectedValueOf(bits), static_cast<int>(system.getValue())) << std::hex << bits;
      ASSERT_EQ(valueOf(system), static_cast<int>(system.getValue())) << std::hex << bits;
    }
  }
}

TEST(DeliverySystemValue, IsTheHeldValueAlsoOutsideTheEnumerators) {
  for (int value : kCheckedValues) {
    EXPECT_EQ(value, static_cast<int>(withValue(value).getValue()));
  }
  for (int value : {INT_MIN, -13, 16, 0x2000, INT_MAX}) {
    EXPECT_EQ(value, static_cast<int>(withValue(value).getValue()));
  }
}

TEST(DeliverySystemValue, NamesTheSystemOfABitSet) {
  DeliverySystem const system(zu::domain::tv::DELIVERY_SYSTEM_BITMASK_DVB_T |
                              zu::domain::tv::DELIVERY_SYSTEM_BITMASK_DVB_T2);
  EXPECT_EQ(zu::domain::tv::DELIVERY_SYSTEM_DVB_T2, system.getValue());
  EXPECT_STREQ("DELIVERY_SYSTEM_DVB_T2", system.getName());
}

TEST(DeliverySystemName, OfTheSystemIsTheTextOfItsValue) {
  for (int value : kCheckedValues) {
    SCOPED_TRACE(value);
    EXPECT_STREQ(rowOf(value).name, withValue(value).getName());
    EXPECT_EQ(nameOf(value), withValue(value).getName());  // the same constant text
  }
  for (int value : {INT_MIN, -13, 16, INT_MAX}) {
    EXPECT_STREQ("UNDEFINED DELIVERY SYSTEM", withValue(value).getName());
  }
}

TEST(DeliverySystemName, IsTheSameConstantTextOnEveryCall) {
  EXPECT_EQ(nameOf(6), nameOf(6));
  EXPECT_EQ(nameOf(-1), nameOf(99));
}

}  // namespace
