// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
/// @file
/// Delivery systems: the ways a broadcast reaches the receiver's tuners.
///
/// Other components describe the delivery systems that a tuner or a source
/// supports as a bit set (DeliverySystemBitmask_t). A DeliverySystem picks one
/// system out of such a set and answers questions about it: its bit, the
/// tuner frontend class that receives it, its index within its family, and
/// whether it belongs to a family (DVB, ATSC, ISDB, ...).
///
/// A DeliverySystem names itself: getValue() gives its DeliverySystem_t and
/// getName() its name. Clients built before those accessors mapped the bit
/// back through bitmaskMap; the tables stay for them.
///
/// Values outside DeliverySystem_t (negative ones included) are answered
/// neutrally: no bit, frontend class 0, index -1, "UNDEFINED DELIVERY SYSTEM".
///
/// Thread-safety: a DeliverySystem is an immutable value; the tables are
/// constant. Everything may be used from any thread.
#ifndef ZU_DOMAIN_TV_DELIVERY_SYSTEM_H_
#define ZU_DOMAIN_TV_DELIVERY_SYSTEM_H_

#include "ma/export.h"

namespace zu {
namespace domain {
namespace tv {

/// The delivery systems. The second-generation DVB systems come after DVB
/// over IP here, but right above their first-generation siblings in the bit
/// set. Other values may be passed around and count as undefined.
enum DeliverySystem_t : int {
  DELIVERY_SYSTEM_UNKNOWN = 0,
  DELIVERY_SYSTEM_ATV = 1,
  DELIVERY_SYSTEM_DVB_T = 2,
  DELIVERY_SYSTEM_DVB_C = 3,
  DELIVERY_SYSTEM_DVB_S = 4,
  DELIVERY_SYSTEM_DVB_IP = 5,
  DELIVERY_SYSTEM_DVB_T2 = 6,
  DELIVERY_SYSTEM_DVB_C2 = 7,
  DELIVERY_SYSTEM_DVB_S2 = 8,
  DELIVERY_SYSTEM_ATSC_T = 9,
  DELIVERY_SYSTEM_ATSC_C = 10,
  DELIVERY_SYSTEM_ATSC_ATV = 11,
  DELIVERY_SYSTEM_ISDB_T = 12,
  DELIVERY_SYSTEM_ISDB_S = 13
};

/// The bits of a set of delivery systems, an unsigned 32-bit word. Any
/// combination of bits is a valid set; bits above 0x1000 have no meaning.
enum DeliverySystemBitmask_t : unsigned int {
  DELIVERY_SYSTEM_BITMASK_NONE = 0x0,
  DELIVERY_SYSTEM_BITMASK_ATV = 0x1,
  DELIVERY_SYSTEM_BITMASK_DVB_T = 0x2,
  DELIVERY_SYSTEM_BITMASK_DVB_T2 = 0x4,
  DELIVERY_SYSTEM_BITMASK_DVB_C = 0x8,
  DELIVERY_SYSTEM_BITMASK_DVB_C2 = 0x10,
  DELIVERY_SYSTEM_BITMASK_DVB_S = 0x20,
  DELIVERY_SYSTEM_BITMASK_DVB_S2 = 0x40,
  DELIVERY_SYSTEM_BITMASK_DVB_IP = 0x80,
  DELIVERY_SYSTEM_BITMASK_ATSC_T = 0x100,
  DELIVERY_SYSTEM_BITMASK_ATSC_C = 0x200,
  DELIVERY_SYSTEM_BITMASK_ATSC_ATV = 0x400,
  DELIVERY_SYSTEM_BITMASK_ISDB_T = 0x800,
  DELIVERY_SYSTEM_BITMASK_ISDB_S = 0x1000
};

/// One delivery system, a value that is copied freely.
class MA_COMMON_EXPORT DeliverySystem {
 public:
  /// The system of `bits` with the greatest DeliverySystem_t value, so DVB-T2
  /// wins over DVB-S and DVB over IP; DELIVERY_SYSTEM_UNKNOWN when none of the
  /// thirteen bits is set. Not explicit: clients convert bit sets implicitly.
  /// Throws nothing.
  /// @param bits a set of DeliverySystemBitmask_t bits; bits above 0x1000
  ///   are ignored
  DeliverySystem(DeliverySystemBitmask_t bits);
  /// The same for a bit set held in a plain unsigned word: clients pass bit
  /// sets both ways, and each form has its own exported constructor.
  /// Throws nothing.
  /// @param bits a set of DeliverySystemBitmask_t bits; bits above 0x1000
  ///   are ignored
  DeliverySystem(unsigned int bits);

  /// The system's DeliverySystem_t value, e.g. DELIVERY_SYSTEM_DVB_T2.
  /// @return the value; DELIVERY_SYSTEM_UNKNOWN for a set without known bit
  DeliverySystem_t getValue() const;

  /// The system's name, the same text as getDeliverySystemName(getValue()).
  /// @return a constant, zero-terminated text that lives as long as the
  ///   library, e.g. "DELIVERY_SYSTEM_DVB_T2"
  char const* getName() const;

  /// The system's bit in a bit set (its bitmaskMap entry).
  /// @return the bit; 0 for unknown and undefined values
  int getBitmask() const;

  /// The class of tuner frontend that receives the system (its frontendMap
  /// entry).
  /// @return 0 none, 1 analogue, 2 DVB-T/T2, 3 DVB-C/C2, 4 DVB-S/S2, 5 IP,
  ///   6 ATSC-T and ISDB-T, 7 ATSC-C, 8 ATSC analogue, 9 ISDB-S; 0 for
  ///   undefined values
  int getFrontend() const;

  /// The index within the family (its indexMap entry).
  /// @return 0 terrestrial, 1 cable, 2 satellite (DVB) or analogue (ATSC);
  ///   -1 for unknown, analogue, IP, ISDB and undefined values
  int getDvbIndex() const;

  /// Whether both systems are received by the same frontend class (DVB-T and
  /// DVB-T2 are, and so are ATSC-T and ISDB-T).
  /// @param other the system to compare with
  /// @return true when getFrontend() of both is equal
  bool isSameFrontend(DeliverySystem const& other) const;

  /// Whether the system is DELIVERY_SYSTEM_UNKNOWN.
  /// @return true for DELIVERY_SYSTEM_UNKNOWN only
  bool isUnknownFrontend() const;
  /// Whether the system is one that a tuner receives.
  /// @return true for every known system but DVB over IP
  bool isTunerFrontend() const;
  /// Whether the system is analogue TV.
  /// @return true for DELIVERY_SYSTEM_ATV (not ATSC analogue)
  bool isATV() const;
  /// Whether the system is a DVB system.
  /// @return true for DVB-T, T2, C, C2, S, S2 and DVB over IP
  bool isDVB() const;
  /// Whether the system is terrestrial DVB.
  /// @return true for DVB-T and DVB-T2
  bool isDvbT() const;
  /// Whether the system is cable DVB.
  /// @return true for DVB-C and DVB-C2
  bool isDvbC() const;
  /// Whether the system is satellite DVB.
  /// @return true for DVB-S and DVB-S2
  bool isDvbS() const;
  /// Whether the system is DVB received by a tuner.
  /// @return true for the six broadcast DVB systems, not DVB over IP
  bool isDvbTuner() const;
  /// Whether the system is DVB over IP.
  /// @return true for DELIVERY_SYSTEM_DVB_IP only
  bool isDvbIP() const;
  /// Whether the system is digital ATSC.
  /// @return true for ATSC terrestrial and cable; ATSC analogue is not
  ///   included, by design
  bool isAtsc() const;
  /// Whether the system is ATSC analogue.
  /// @return true for DELIVERY_SYSTEM_ATSC_ATV only
  bool isAtscAtv() const;
  /// Whether the system is ISDB.
  /// @return true for ISDB-T and ISDB-S
  bool isIsdb() const;

  /// Columns of the delivery system table, indexed by DeliverySystem_t, kept
  /// for clients built against them; new code asks the accessors above.
  static const int indexMap[12];     ///< getDvbIndex() of values 0 to 11
  static const int frontendMap[14];  ///< getFrontend() of values 0 to 13
  static const int bitmaskMap[14];   ///< getBitmask() of values 0 to 13

 private:
  DeliverySystem_t value_;  ///< may lie outside the enumerators
};

/// The name of a delivery system value. New code holding a DeliverySystem
/// calls its getName().
/// @param value any value, also one outside the enumerators
/// @return a constant, zero-terminated text that lives as long as the
///   library: e.g. "DELIVERY_SYSTEM_DVB_T2", or "UNDEFINED DELIVERY SYSTEM"
///   for a value outside the enumerators
MA_COMMON_EXPORT char const* getDeliverySystemName(DeliverySystem_t value);

}  // namespace tv
}  // namespace domain
}  // namespace zu

#endif  // ZU_DOMAIN_TV_DELIVERY_SYSTEM_H_
