// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
/// @file
/// Stand-in of the platform's table-walking serialiser (libzel-standin, host
/// only).
///
/// The platform moves a message between processes by walking the message's
/// endian description (zel/zel_deser.h): it writes every described member
/// into one contiguous buffer in the receiver's byte order, follows optional
/// references into the structures they point to, carries counted strings as
/// length plus characters, and rebuilds the message from the buffer on the
/// other side. This stand-in does the same inside one process, so that tests
/// (and host programs) can hold a description against the structure it
/// claims to describe.
///
/// Buffer format of the stand-in (its own; the platform's is not reproduced):
///
/// | Member | In the buffer |
/// |---|---|
/// | scalar of width n | n bytes in the buffer's byte order |
/// | embedded structure | its members, in its description's order |
/// | optional reference | the presence word (4 bytes), then the byte 1 and the referenced structure, or the byte 0 when the pointer is null |
/// | counted characters | the byte 1, the 32-bit length and `length` bytes, or the byte 0 when the pointer is null; the length is the enclosing structure's first member |
///
/// Every walk first checks the description (see descriptionFaults()) and
/// refuses one with faults instead of touching memory it does not describe.
/// Checking builds texts, so every function lets std::bad_alloc through
/// when memory runs out.
///
/// Thread-safety: the functions keep no state; concurrent walks of one object
/// need outside synchronisation when one of them writes to it.
#ifndef ZEL_ZEL_STANDIN_SERIALISER_H_
#define ZEL_ZEL_STANDIN_SERIALISER_H_

#include <cstddef>
#include <string>
#include <vector>

#include "zel/zel_deser.h"

namespace zel_standin {

/// The byte order of the scalars in a buffer.
enum class ByteOrder {
  kNative,   ///< as the structure holds its scalars
  kSwapped,  ///< every scalar with its bytes reversed
};

/// The faults of a description and of every description it links to. A
/// usable description has only the member codes of zel/zel_deser.h, a link
/// to a description for every embedded structure and optional reference, no
/// link for scalars and counted characters, members that lie inside the
/// structure without overlapping, every byte of the structure described
/// (message structures are packed), and a terminator whose link word is
/// ZEL_ENDIAN_END_LINK.
/// @param table the description to check
/// @return one text per fault; empty when the description is usable
/// @throws std::bad_alloc when memory runs out
std::vector<std::string> descriptionFaults(const zelEndianTable_t& table);

/// Writes the described members of an object into a buffer.
/// @param table the object's description
/// @param object the object, table.size bytes
/// @param order the byte order the buffer gets
/// @param buffer gains the members at its end
/// @return true when written; false, leaving `buffer` unchanged, when the
///         description has faults
/// @throws std::bad_alloc when memory runs out
bool flatten(const zelEndianTable_t& table, const void* object, ByteOrder order,
             std::vector<unsigned char>* buffer);

/// Rebuilds an object from what flatten() wrote. `object` is zeroed first;
/// referenced structures are zeroed blocks from calloc(), characters come
/// from malloc() with length + 1 bytes ending in a NUL, and the caller owns
/// all of them (see freeReferences()).
/// @param table the object's description
/// @param buffer the bytes flatten() wrote
/// @param size the number of bytes at `buffer`, all of which must be used
/// @param order the byte order of the buffer
/// @param object receives the object; table.size bytes provided by the
///        caller
/// @return true when rebuilt; false when the description has faults, the
///         buffer is short, malformed or longer than what it describes, or
///         calloc() or malloc() fail. Everything rebuilt so far is then
///         freed and `object` is left zeroed.
/// @throws std::bad_alloc when memory for the description check runs out
bool unflatten(const zelEndianTable_t& table, const unsigned char* buffer, std::size_t size,
               ByteOrder order, void* object);

/// Reverses the bytes of every scalar of an object in place, presence words
/// and string lengths included, and does the same in every structure that a
/// non-null optional reference points to. Pointers and characters are left
/// alone.
/// @param table the object's description
/// @param object the object, table.size bytes
/// @return true when swapped; false, changing nothing, when the
///         description has faults
/// @throws std::bad_alloc when memory for the description check runs out
bool swapInPlace(const zelEndianTable_t& table, void* object);

/// Frees every referenced structure and character buffer of an object,
/// innermost first, and nulls the pointers. Does nothing when the
/// description has faults.
/// @param table the object's description
/// @param object the object, table.size bytes
/// @throws std::bad_alloc when memory for the description check runs out
void freeReferences(const zelEndianTable_t& table, void* object);

}  // namespace zel_standin

#endif  // ZEL_ZEL_STANDIN_SERIALISER_H_
