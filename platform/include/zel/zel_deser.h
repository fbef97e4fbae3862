// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
/// @file
/// The receiver's serialiser (a platform interface): the counted string that
/// messages carry, and the endian description objects through which the
/// serialiser walks a message to swap its byte order and to follow its
/// references.
///
/// Thread-safety: the description objects are constant data.
#ifndef ZEL_ZEL_DESER_H_
#define ZEL_ZEL_DESER_H_

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/// A counted string, the text of every field of an item message. `length`
/// characters (the terminator not counted) at `data`, which holds
/// length + 1 bytes from malloc() ending in a NUL; whoever owns the message
/// owns the bytes and frees them with free(). An unset string is length 0
/// with data NULL. Packed: 8 bytes on the 32-bit target (12 on a 64-bit
/// host).
typedef struct __attribute__((packed)) zelDeserString_t {
  uint32_t length;  ///< the number of characters, without the terminator
  char* data;       ///< length + 1 bytes from malloc() ending in a NUL, or NULL when unset
} zelDeserString_t;

/// Member codes of a description entry (the high 16 bits of its descriptor).
enum {
  ZEL_ENDIAN_SCALAR_1 = 1,         ///< 1-byte scalar
  ZEL_ENDIAN_SCALAR_4 = 4,         ///< 4-byte scalar
  ZEL_ENDIAN_SCALAR_8 = 8,         ///< 8-byte scalar
  ZEL_ENDIAN_STRUCT = 3,           ///< embedded structure, described by `link`
  ZEL_ENDIAN_OPTIONAL_REF = 0x4049, ///< presence word + pointer to a separately
                                    ///< allocated structure described by `link`
  ZEL_ENDIAN_COUNTED_CHARS = 0x0100 ///< pointer to the characters of a counted
                                    ///< string whose 32-bit length is the
                                    ///< structure's first member
};

/// One member of a described structure. The list of a description ends with
/// ZEL_ENDIAN_END_DESCRIPTOR and a link word of ZEL_ENDIAN_END_LINK.
typedef struct zelEndianEntry_t {
  uint32_t descriptor;  ///< member code << 16 | byte offset of the member (ZEL_ENDIAN_DESCRIPTOR())
  const void* link;     ///< nested description (a zelEndianTable_t), NULL for scalars
} zelEndianEntry_t;

/// The description of one structure.
typedef struct zelEndianTable_t {
  uint32_t size;                    ///< sizeof the described structure
  const zelEndianEntry_t* entries;  ///< member list, terminated as above
} zelEndianTable_t;

/// The descriptor of the entry that ends a member list.
#define ZEL_ENDIAN_END_DESCRIPTOR 0u
/// The link word of the entry that ends a member list.
#define ZEL_ENDIAN_END_LINK 0xFFFFFFFFu

/// Builds a descriptor from a member code and a byte offset.
/// @param code a member code (ZEL_ENDIAN_SCALAR_1 ...)
/// @param offset the member's byte offset in its structure, below 65536
/// @return code << 16 | offset, as an unsigned 32-bit word
#define ZEL_ENDIAN_DESCRIPTOR(code, offset) \
  ((0u + (code)) << 16 | ((0u + (offset)) & 0xFFFFu))

/// The serialiser's own description of zelDeserString_t: a 4-byte length
/// and counted characters.
extern const zelEndianTable_t __zel_EndianTable_zelDeserString_t;

#ifdef __cplusplus
}  // extern "C"
#endif

#endif  // ZEL_ZEL_DESER_H_
