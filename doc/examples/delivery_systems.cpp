// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Delivery systems: from a tuner's bit set to one system and its class.
#include <string>

#include "example_tree.h"
#include "zu/domain/tv/delivery_system.h"

using example::check;

int main() {
  // [guide:delivery]
  using namespace zu::domain::tv;
  unsigned int tunerBits = DELIVERY_SYSTEM_BITMASK_DVB_T | DELIVERY_SYSTEM_BITMASK_DVB_T2;
  DeliverySystem system(tunerBits);  // the set's greatest DeliverySystem_t: DVB-T2
  check(system.getBitmask() == DELIVERY_SYSTEM_BITMASK_DVB_T2, "DVB-T2 wins");
  check(system.isDvbT() && system.isDvbTuner() && !system.isDvbIP(), "terrestrial DVB");
  check(system.getFrontend() == 2 && system.getDvbIndex() == 0, "frontend class, family index");
  check(system.isSameFrontend(DeliverySystem(DELIVERY_SYSTEM_BITMASK_DVB_T)), "one frontend for T and T2");
  check(std::string(getDeliverySystemName(DELIVERY_SYSTEM_DVB_T2)) == "DELIVERY_SYSTEM_DVB_T2", "name");
  check(std::string(getDeliverySystemName(static_cast<DeliverySystem_t>(42))) ==
            "UNDEFINED DELIVERY SYSTEM",
        "out of range");
  // [guide:end]
  return 0;
}
