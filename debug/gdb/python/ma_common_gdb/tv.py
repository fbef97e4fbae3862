# SPDX-License-Identifier: Apache-2.0
# Copyright 2026 The libma-common Authors
"""Printer of zu::domain::tv::DeliverySystem: the name of its value."""
from . import reading

#: The names getDeliverySystemName gives, by DeliverySystem_t value.
DELIVERY_SYSTEM_NAMES = [
    "DELIVERY_SYSTEM_UNKNOWN", "DELIVERY_SYSTEM_ATV", "DELIVERY_SYSTEM_DVB_T",
    "DELIVERY_SYSTEM_DVB_C", "DELIVERY_SYSTEM_DVB_S", "DELIVERY_SYSTEM_DVB_IP",
    "DELIVERY_SYSTEM_DVB_T2", "DELIVERY_SYSTEM_DVB_C2", "DELIVERY_SYSTEM_DVB_S2",
    "DELIVERY_SYSTEM_ATSC_T", "DELIVERY_SYSTEM_ATSC_C", "DELIVERY_SYSTEM_ATSC_ATV",
    "DELIVERY_SYSTEM_ISDB_T", "DELIVERY_SYSTEM_ISDB_S",
]


class DeliverySystemPrinter:
    """The delivery system's name; a value outside the table shows as
    "UNDEFINED DELIVERY SYSTEM" with the number."""

    def __init__(self, system):
        self.system = system

    def to_string(self):
        try:
            value = int(self.system["value_"])
        except reading.READ_ERRORS:
            return "<unreadable delivery system at 0x%x>" % reading.address_of(self.system)
        if 0 <= value < len(DELIVERY_SYSTEM_NAMES):
            return DELIVERY_SYSTEM_NAMES[value]
        return "UNDEFINED DELIVERY SYSTEM (%d)" % value
