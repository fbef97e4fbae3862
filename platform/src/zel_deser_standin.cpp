// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Stand-in of the serialiser's description of its counted string.
#include "zel/zel_deser.h"

#include <cstddef>

namespace {

const zelEndianEntry_t kStringEntries[] = {
    {ZEL_ENDIAN_DESCRIPTOR(ZEL_ENDIAN_SCALAR_4, offsetof(zelDeserString_t, length)), nullptr},
    {ZEL_ENDIAN_DESCRIPTOR(ZEL_ENDIAN_COUNTED_CHARS, offsetof(zelDeserString_t, data)), nullptr},
    {ZEL_ENDIAN_END_DESCRIPTOR, reinterpret_cast<const void*>(ZEL_ENDIAN_END_LINK)},
};

}  // namespace

extern "C" const zelEndianTable_t __zel_EndianTable_zelDeserString_t = {
    sizeof(zelDeserString_t), kStringEntries};
