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
  DeliverySystem(DeliverySystemBitmask_t bits);
  /// The same for a bit set held in a plain unsigned word: clients pass bit
  /// sets both ways, and each form has its own exported constructor.
  DeliverySystem(unsigned int bits);

  /// The system's bit in a bit set; 0 for unknown and undefined values.
  int getBitmask() const;

  /// The class of tuner frontend that receives the system: 0 none,
  /// 1 analogue, 2 DVB-T/T2, 3 DVB-C/C2, 4 DVB-S/S2, 5 IP, 6 ATSC-T and
  /// ISDB-T, 7 ATSC-C, 8 ATSC analogue, 9 ISDB-S. 0 for undefined values.
  int getFrontend() const;

  /// The index within the family: 0 terrestrial, 1 cable, 2 satellite (DVB)
  /// or analogue (ATSC). -1 for unknown, analogue, IP, ISDB and undefined.
  int getDvbIndex() const;

  /// Whether both systems are received by the same frontend class (DVB-T and
  /// DVB-T2 are, and so are ATSC-T and ISDB-T).
  bool isSameFrontend(DeliverySystem const& other) const;

  /// DELIVERY_SYSTEM_UNKNOWN.
  bool isUnknownFrontend() const;
  /// Any known system that a tuner receives: every one but DVB over IP.
  bool isTunerFrontend() const;
  /// Analogue TV (not ATSC analogue).
  bool isATV() const;
  /// DVB-T, T2, C, C2, S, S2 and DVB over IP.
  bool isDVB() const;
  /// DVB-T or DVB-T2.
  bool isDvbT() const;
  /// DVB-C or DVB-C2.
  bool isDvbC() const;
  /// DVB-S or DVB-S2.
  bool isDvbS() const;
  /// The six broadcast DVB systems, not DVB over IP.
  bool isDvbTuner() const;
  /// DVB over IP.
  bool isDvbIP() const;
  /// ATSC terrestrial or cable; ATSC analogue is not included, by design.
  bool isAtsc() const;
  /// ATSC analogue.
  bool isAtscAtv() const;
  /// ISDB-T or ISDB-S.
  bool isIsdb() const;

  /// Columns of the delivery system table, indexed by DeliverySystem_t.
  static const int indexMap[12];     ///< getDvbIndex() of values 0 to 11
  static const int frontendMap[14];  ///< getFrontend() of values 0 to 13
  static const int bitmaskMap[14];   ///< getBitmask() of values 0 to 13

 private:
  DeliverySystem_t value_;  ///< may lie outside the enumerators
};

/// The name of `value`, e.g. "DELIVERY_SYSTEM_DVB_T2", or "UNDEFINED DELIVERY
/// SYSTEM". The text is constant and lives as long as the library.
MA_COMMON_EXPORT char const* getDeliverySystemName(DeliverySystem_t value);

}  // namespace tv
}  // namespace domain
}  // namespace zu

#endif  // ZU_DOMAIN_TV_DELIVERY_SYSTEM_H_
