// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// vtableSlot(&Class::method): the position of a virtual member function in
// its class's virtual table, counted from 0 (the complete and deleting
// destructors of a class with a virtual destructor take slots 0 and 1).
//
// Client binaries call virtual functions by slot, so the order of the
// virtual declarations is part of the binary interface. This reads the slot
// out of a pointer to member, whose layout the Itanium C++ ABI fixes (and
// the ARM C++ ABI varies: there the virtual flag sits in the adjustment).
#ifndef MA_TEST_VTABLE_SLOT_H_
#define MA_TEST_VTABLE_SLOT_H_

#include <cstddef>
#include <cstring>

namespace ma_test {

template <class MemberFunction>
std::ptrdiff_t vtableSlot(MemberFunction method) {
  struct Representation {
    std::ptrdiff_t pointer;     // function address, or vtable offset (+1)
    std::ptrdiff_t adjustment;  // this-adjustment (on ARM: * 2 + virtual)
  } representation;
  static_assert(sizeof(method) == sizeof(representation), "unexpected member pointer size");
  std::memcpy(&representation, &method, sizeof representation);
#if defined(__arm__) || defined(__aarch64__)
  if ((representation.adjustment & 1) == 0) return -1;  // not virtual
  return representation.pointer / static_cast<std::ptrdiff_t>(sizeof(void*));
#else
  if ((representation.pointer & 1) == 0) return -1;  // not virtual
  return (representation.pointer - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
#endif
}

}  // namespace ma_test

#endif  // MA_TEST_VTABLE_SLOT_H_
