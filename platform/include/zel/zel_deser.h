// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The receiver's serialiser: the counted string that messages carry, and the
// endian description objects through which the serialiser walks a message to
// swap its byte order and to follow its references.
//
// Thread-safety: the description objects are constant data.
#ifndef ZEL_ZEL_DESER_H_
#define ZEL_ZEL_DESER_H_

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

// A counted string: `length` characters (terminator not counted) at `data`,
// which holds length + 1 bytes from malloc() ending in a NUL. An unset string
// is length 0 with data NULL.
typedef struct __attribute__((packed)) zelDeserString_t {
  uint32_t length;
  char* data;
} zelDeserString_t;

// Member codes of a description entry (the high 16 bits of its descriptor).
enum {
  ZEL_ENDIAN_SCALAR_1 = 1,         // 1-byte scalar
  ZEL_ENDIAN_SCALAR_4 = 4,         // 4-byte scalar
  ZEL_ENDIAN_SCALAR_8 = 8,         // 8-byte scalar
  ZEL_ENDIAN_STRUCT = 3,           // embedded structure, described by `link`
  ZEL_ENDIAN_OPTIONAL_REF = 0x4049, // presence word + pointer to a separately
                                    // allocated structure described by `link`
  ZEL_ENDIAN_COUNTED_CHARS = 0x0100 // pointer to the characters of a counted
                                    // string whose 32-bit length is the
                                    // structure's first member
};

// One member of a described structure. The list of a description ends with
// ZEL_ENDIAN_END_DESCRIPTOR and a link word of ZEL_ENDIAN_END_LINK.
typedef struct zelEndianEntry_t {
  uint32_t descriptor;  // member code << 16 | byte offset of the member
  const void* link;     // nested description, NULL for scalars
} zelEndianEntry_t;

// The description of one structure.
typedef struct zelEndianTable_t {
  uint32_t size;                    // sizeof the described structure
  const zelEndianEntry_t* entries;  // member list, terminated as above
} zelEndianTable_t;

#define ZEL_ENDIAN_END_DESCRIPTOR 0u
#define ZEL_ENDIAN_END_LINK 0xFFFFFFFFu

// Builds a descriptor from a member code and a byte offset.
#define ZEL_ENDIAN_DESCRIPTOR(code, offset) \
  ((0u + (code)) << 16 | ((0u + (offset)) & 0xFFFFu))

// The serialiser's own description of zelDeserString_t.
extern const zelEndianTable_t __zel_EndianTable_zelDeserString_t;

#ifdef __cplusplus
}  // extern "C"
#endif

#endif  // ZEL_ZEL_DESER_H_
