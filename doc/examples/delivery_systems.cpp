// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Delivery systems: from a tuner's bit set to one system, its value, name
// and class.
//
// Each guide snippet is a function with the #include lines it needs.
#include "example_tree.h"

using example::check;

// [guide:delivery]
#include <string>

#include "zu/domain/tv/delivery_system.h"

// Picks the system of a tuner that receives DVB-T and DVB-T2.
void classifyTuner() {
  using namespace zu::domain::tv;
  unsigned int tunerBits = DELIVERY_SYSTEM_BITMASK_DVB_T | DELIVERY_SYSTEM_BITMASK_DVB_T2;
  DeliverySystem system(tunerBits);  // the set's greatest DeliverySystem_t: DVB-T2
  check(system.getValue() == DELIVERY_SYSTEM_DVB_T2, "DVB-T2 wins");
  check(std::string(system.getName()) == "DELIVERY_SYSTEM_DVB_T2", "its name");
  check(system.getBitmask() == DELIVERY_SYSTEM_BITMASK_DVB_T2, "its bit");
  check(system.isDvbT() && system.isDvbTuner() && !system.isDvbIP(), "terrestrial DVB");
  check(system.getFrontend() == 2 && system.getDvbIndex() == 0, "frontend class, family index");
  check(system.isSameFrontend(DeliverySystem(DELIVERY_SYSTEM_BITMASK_DVB_T)), "one frontend for T and T2");
}
// [guide:end]

// [guide:delivery-legacy]
#include <string>

#include "zu/domain/tv/delivery_system.h"

// For code that must run with a library without getValue() and getName():
// the value is found by its bit in bitmaskMap, and named by value.
void nameTunerWithoutAccessors() {
  using namespace zu::domain::tv;
  DeliverySystem system(DELIVERY_SYSTEM_BITMASK_DVB_S | DELIVERY_SYSTEM_BITMASK_DVB_S2);
  int value = DELIVERY_SYSTEM_UNKNOWN;
  for (int candidate = DELIVERY_SYSTEM_ATV; candidate <= DELIVERY_SYSTEM_ISDB_S; ++candidate) {
    if (DeliverySystem::bitmaskMap[candidate] == system.getBitmask()) value = candidate;
  }
  char const* name = getDeliverySystemName(static_cast<DeliverySystem_t>(value));
  check(std::string(name) == "DELIVERY_SYSTEM_DVB_S2", "named through the table");
  check(std::string(getDeliverySystemName(static_cast<DeliverySystem_t>(42))) ==
            "UNDEFINED DELIVERY SYSTEM",
        "out of range");
}
// [guide:end]

int main() {
  classifyTuner();
  nameTunerWithoutAccessors();
  return 0;
}
