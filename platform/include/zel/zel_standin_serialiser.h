// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Stand-in of the platform's table-walking serialiser.
//
// The platform moves a message between processes by walking the message's
// endian description (zel_deser.h): it writes every described member into
// one contiguous buffer in the receiver's byte order, follows optional
// references into the structures they point to, carries counted strings as
// length plus characters, and rebuilds the message from the buffer on the
// other side. This stand-in does the same inside one process, so that tests
// can hold a description against the structure it claims to describe.
//
// Buffer format of the stand-in (its own; the platform's is not reproduced):
//   scalar of width n    n bytes in the buffer's byte order
//   embedded structure   its members, in its description's order
//   optional reference   the presence word (4 bytes), then the byte 1 and
//                        the referenced structure, or the byte 0 when the
//                        pointer is null
//   counted characters   the byte 1, the 32-bit length and `length` bytes,
//                        or the byte 0 when the pointer is null; the length
//                        is the enclosing structure's first member
//
// Every walk first checks the description (see descriptionFaults()) and
// refuses one with faults instead of touching memory it does not describe.
//
// Thread-safety: the functions keep no state; concurrent walks of one object
// need outside synchronisation when one of them writes to it.
#ifndef ZEL_ZEL_STANDIN_SERIALISER_H_
#define ZEL_ZEL_STANDIN_SERIALISER_H_

#include <cstddef>
#include <string>
#include <vector>

#include "zel/zel_deser.h"

namespace zel_standin {

enum class ByteOrder {
  kNative,   // as the structure holds its scalars
  kSwapped,  // every scalar with its bytes reversed
};

// The faults of `table` and of every description it links to, one text per
// fault; empty when the description is usable. A usable description has
// only the member codes of zel_deser.h, a link to a description for every
// embedded structure and optional reference, no link for scalars and counted
// characters, members that lie inside the structure without overlapping,
// every byte of the structure described (message structures are packed), and
// a terminator whose link word is ZEL_ENDIAN_END_LINK.
std::vector<std::string> descriptionFaults(const zelEndianTable_t& table);

// Appends the described members of `object` (table.size bytes) to `buffer`
// in byte order `order`. Returns false, leaving `buffer` unchanged, when the
// description has faults.
bool flatten(const zelEndianTable_t& table, const void* object, ByteOrder order,
             std::vector<unsigned char>* buffer);

// Rebuilds into `object` (table.size bytes provided by the caller) the
// structure that flatten() wrote into buffer[0, size) in byte order `order`.
// `object` is zeroed first; referenced structures are zeroed blocks from
// calloc(), characters come from malloc() with length + 1 bytes ending in a
// NUL, and the caller owns all of them (see freeReferences()). Returns false
// when the description has faults or the buffer is short, malformed or
// longer than what it describes; everything rebuilt so far is then freed
// and `object` is left zeroed.
bool unflatten(const zelEndianTable_t& table, const unsigned char* buffer, std::size_t size,
               ByteOrder order, void* object);

// Reverses the bytes of every scalar of `object` in place, presence words
// and string lengths included, and does the same in every structure that a
// non-null optional reference points to. Pointers and characters are left
// alone. Returns false, changing nothing, when the description has faults.
bool swapInPlace(const zelEndianTable_t& table, void* object);

// Frees every referenced structure and character buffer under `object`,
// innermost first, and nulls the pointers. Does nothing when the
// description has faults.
void freeReferences(const zelEndianTable_t& table, void* object);

}  // namespace zel_standin

#endif  // ZEL_ZEL_STANDIN_SERIALISER_H_
