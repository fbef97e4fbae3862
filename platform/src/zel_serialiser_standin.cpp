// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Stand-in of the platform's table-walking serialiser: description check,
// flattening, rebuilding, byte-order swap and release.
#include "zel/zel_standin_serialiser.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <set>
#include <utility>

namespace zel_standin {
namespace {

constexpr std::size_t kPresenceWordSize = 4;
constexpr std::size_t kLengthSize = 4;

const void* const kEndLink = reinterpret_cast<const void*>(std::uintptr_t{ZEL_ENDIAN_END_LINK});

std::uint32_t codeOf(const zelEndianEntry_t& entry) { return entry.descriptor >> 16; }
std::size_t offsetOf(const zelEndianEntry_t& entry) { return entry.descriptor & 0xFFFFu; }
const zelEndianTable_t& linkOf(const zelEndianEntry_t& entry) {
  return *static_cast<const zelEndianTable_t*>(entry.link);
}
bool isEnd(const zelEndianEntry_t& entry) { return entry.descriptor == ZEL_ENDIAN_END_DESCRIPTOR; }
bool isScalar(std::uint32_t code) {
  return code == ZEL_ENDIAN_SCALAR_1 || code == ZEL_ENDIAN_SCALAR_4 || code == ZEL_ENDIAN_SCALAR_8;
}

void* loadPointer(const unsigned char* at) {
  void* pointer;
  std::memcpy(&pointer, at, sizeof pointer);
  return pointer;
}

void storePointer(unsigned char* at, const void* pointer) {
  std::memcpy(at, &pointer, sizeof pointer);
}

std::uint32_t loadLength(const unsigned char* structure) {
  std::uint32_t length;
  std::memcpy(&length, structure, sizeof length);
  return length;
}

// ---------------------------------------------------------------------------
// Description check

class DescriptionChecker {
 public:
  std::vector<std::string> faults;

  void check(const zelEndianTable_t& table, const std::string& where) {
    if (!visited_.insert(&table).second) return;  // cyclic descriptions are fine
    if (table.entries == nullptr) {
      fault(where, "has no member list");
      return;
    }
    std::vector<std::pair<std::size_t, std::size_t>> spans;  // [begin, end)
    bool hasLength = false;
    bool hasCountedChars = false;
    for (std::size_t index = 0;; ++index) {
      // Members do not overlap and take at least one byte each, so a list
      // longer than the structure's size has lost its terminator.
      if (index > table.size) {
        fault(where, "has no terminator within " + std::to_string(index) + " entries");
        return;
      }
      const zelEndianEntry_t& entry = table.entries[index];
      const std::string at = where + " entry " + std::to_string(index) + " (code " +
                             std::to_string(codeOf(entry)) + ", offset " +
                             std::to_string(offsetOf(entry)) + ")";
      if (isEnd(entry)) {
        if (entry.link != kEndLink) fault(at, "is a terminator without link word 0xFFFFFFFF");
        break;
      }
      const std::size_t extent = extentOf(entry, at);
      if (extent == 0) continue;
      if (codeOf(entry) == ZEL_ENDIAN_SCALAR_4 && offsetOf(entry) == 0) hasLength = true;
      if (codeOf(entry) == ZEL_ENDIAN_COUNTED_CHARS) hasCountedChars = true;
      if (offsetOf(entry) + extent > table.size) {
        fault(at, "reaches beyond the structure's " + std::to_string(table.size) + " bytes");
      }
      spans.emplace_back(offsetOf(entry), offsetOf(entry) + extent);
    }
    if (hasCountedChars && !hasLength) {
      fault(where, "has counted characters without a 4-byte length at offset 0");
    }
    checkCoverage(table.size, std::move(spans), where);
  }

 private:
  // Bytes taken by the member in its structure; 0 for a member in fault.
  std::size_t extentOf(const zelEndianEntry_t& entry, const std::string& at) {
    const std::uint32_t code = codeOf(entry);
    if (isScalar(code) || code == ZEL_ENDIAN_COUNTED_CHARS) {
      if (entry.link != nullptr) fault(at, "has a link but is no structure");
      return isScalar(code) ? code : sizeof(void*);
    }
    if (code != ZEL_ENDIAN_STRUCT && code != ZEL_ENDIAN_OPTIONAL_REF) {
      fault(at, "has an unknown member code");
      return 0;
    }
    if (entry.link == nullptr || entry.link == kEndLink) {
      fault(at, "has no linked description");
      return 0;
    }
    check(linkOf(entry), at + " ->");
    return code == ZEL_ENDIAN_STRUCT ? linkOf(entry).size : kPresenceWordSize + sizeof(void*);
  }

  void checkCoverage(std::size_t size, std::vector<std::pair<std::size_t, std::size_t>> spans,
                     const std::string& where) {
    std::sort(spans.begin(), spans.end());
    std::size_t covered = 0;
    for (const auto& span : spans) {
      if (span.first < covered) {
        fault(where, "describes bytes from " + std::to_string(span.first) + " twice");
      } else if (span.first > covered) {
        fault(where, "leaves bytes " + std::to_string(covered) + " to " +
                         std::to_string(span.first - 1) + " undescribed");
      }
      covered = std::max(covered, span.second);
    }
    if (covered < size) {
      fault(where, "leaves bytes " + std::to_string(covered) + " to " + std::to_string(size - 1) +
                       " undescribed");
    }
  }

  void fault(const std::string& at, const std::string& what) { faults.push_back(at + " " + what); }

  std::set<const zelEndianTable_t*> visited_;
};

bool isUsable(const zelEndianTable_t& table) { return descriptionFaults(table).empty(); }

// ---------------------------------------------------------------------------
// Flattening

class Flattener {
 public:
  Flattener(ByteOrder order, std::vector<unsigned char>* buffer) : order_(order), buffer_(buffer) {}

  void structure(const zelEndianTable_t& table, const unsigned char* object) {
    for (const zelEndianEntry_t* entry = table.entries; !isEnd(*entry); ++entry) {
      const unsigned char* member = object + offsetOf(*entry);
      switch (codeOf(*entry)) {
        case ZEL_ENDIAN_STRUCT:
          structure(linkOf(*entry), member);
          break;
        case ZEL_ENDIAN_OPTIONAL_REF: {
          scalar(member, kPresenceWordSize);
          const void* target = loadPointer(member + kPresenceWordSize);
          marker(target != nullptr);
          if (target != nullptr) structure(linkOf(*entry), static_cast<const unsigned char*>(target));
          break;
        }
        case ZEL_ENDIAN_COUNTED_CHARS: {
          const void* characters = loadPointer(member);
          marker(characters != nullptr);
          if (characters == nullptr) break;
          const std::uint32_t length = loadLength(object);
          scalar(reinterpret_cast<const unsigned char*>(&length), kLengthSize);
          const unsigned char* bytes = static_cast<const unsigned char*>(characters);
          buffer_->insert(buffer_->end(), bytes, bytes + length);
          break;
        }
        default:  // a scalar: the code is its width
          scalar(member, codeOf(*entry));
          break;
      }
    }
  }

 private:
  void scalar(const unsigned char* bytes, std::size_t width) {
    if (order_ == ByteOrder::kNative) {
      buffer_->insert(buffer_->end(), bytes, bytes + width);
    } else {
      buffer_->insert(buffer_->end(), std::reverse_iterator<const unsigned char*>(bytes + width),
                      std::reverse_iterator<const unsigned char*>(bytes));
    }
  }

  void marker(bool present) { buffer_->push_back(present ? 1 : 0); }

  const ByteOrder order_;
  std::vector<unsigned char>* const buffer_;
};

// ---------------------------------------------------------------------------
// Rebuilding

class Unflattener {
 public:
  Unflattener(const unsigned char* buffer, std::size_t size, ByteOrder order)
      : next_(buffer), end_(buffer + size), order_(order) {}

  bool exhausted() const { return next_ == end_; }

  // Rebuilds `object`, which is zeroed. Pointers are stored as soon as their
  // block exists, so that a failure can free everything reachable.
  bool structure(const zelEndianTable_t& table, unsigned char* object) {
    for (const zelEndianEntry_t* entry = table.entries; !isEnd(*entry); ++entry) {
      unsigned char* member = object + offsetOf(*entry);
      switch (codeOf(*entry)) {
        case ZEL_ENDIAN_STRUCT:
          if (!structure(linkOf(*entry), member)) return false;
          break;
        case ZEL_ENDIAN_OPTIONAL_REF: {
          bool present = false;
          if (!scalar(member, kPresenceWordSize) || !marker(&present)) return false;
          if (!present) break;
          const zelEndianTable_t& target = linkOf(*entry);
          void* block = std::calloc(1, target.size);
          if (block == nullptr) return false;
          storePointer(member + kPresenceWordSize, block);
          if (!structure(target, static_cast<unsigned char*>(block))) return false;
          break;
        }
        case ZEL_ENDIAN_COUNTED_CHARS: {
          bool present = false;
          std::uint32_t length = 0;
          if (!marker(&present)) return false;
          if (!present) break;
          if (!scalar(reinterpret_cast<unsigned char*>(&length), kLengthSize)) return false;
          if (static_cast<std::size_t>(end_ - next_) < length) return false;
          char* characters = static_cast<char*>(std::malloc(std::size_t{length} + 1));
          if (characters == nullptr) return false;
          std::memcpy(characters, next_, length);
          characters[length] = '\0';
          next_ += length;
          storePointer(member, characters);
          break;
        }
        default:
          if (!scalar(member, codeOf(*entry))) return false;
          break;
      }
    }
    return true;
  }

 private:
  bool scalar(unsigned char* to, std::size_t width) {
    if (static_cast<std::size_t>(end_ - next_) < width) return false;
    if (order_ == ByteOrder::kNative) {
      std::memcpy(to, next_, width);
    } else {
      std::reverse_copy(next_, next_ + width, to);
    }
    next_ += width;
    return true;
  }

  bool marker(bool* present) {
    if (next_ == end_ || *next_ > 1) return false;
    *present = *next_++ == 1;
    return true;
  }

  const unsigned char* next_;
  const unsigned char* const end_;
  const ByteOrder order_;
};

// ---------------------------------------------------------------------------
// Byte-order swap and release

void swapStructure(const zelEndianTable_t& table, unsigned char* object) {
  for (const zelEndianEntry_t* entry = table.entries; !isEnd(*entry); ++entry) {
    unsigned char* member = object + offsetOf(*entry);
    switch (codeOf(*entry)) {
      case ZEL_ENDIAN_STRUCT:
        swapStructure(linkOf(*entry), member);
        break;
      case ZEL_ENDIAN_OPTIONAL_REF: {
        std::reverse(member, member + kPresenceWordSize);
        void* target = loadPointer(member + kPresenceWordSize);
        if (target != nullptr) swapStructure(linkOf(*entry), static_cast<unsigned char*>(target));
        break;
      }
      case ZEL_ENDIAN_COUNTED_CHARS:
        break;  // characters have no byte order; the length is its own member
      default:
        std::reverse(member, member + codeOf(*entry));
        break;
    }
  }
}

void freeStructure(const zelEndianTable_t& table, unsigned char* object) {
  for (const zelEndianEntry_t* entry = table.entries; !isEnd(*entry); ++entry) {
    unsigned char* member = object + offsetOf(*entry);
    switch (codeOf(*entry)) {
      case ZEL_ENDIAN_STRUCT:
        freeStructure(linkOf(*entry), member);
        break;
      case ZEL_ENDIAN_OPTIONAL_REF: {
        void* target = loadPointer(member + kPresenceWordSize);
        if (target == nullptr) break;
        freeStructure(linkOf(*entry), static_cast<unsigned char*>(target));
        std::free(target);
        storePointer(member + kPresenceWordSize, nullptr);
        break;
      }
      case ZEL_ENDIAN_COUNTED_CHARS:
        std::free(loadPointer(member));
        storePointer(member, nullptr);
        break;
      default:
        break;
    }
  }
}

}  // namespace

std::vector<std::string> descriptionFaults(const zelEndianTable_t& table) {
  DescriptionChecker checker;
  checker.check(table, "description of " + std::to_string(table.size) + " bytes:");
  return checker.faults;
}

bool flatten(const zelEndianTable_t& table, const void* object, ByteOrder order,
             std::vector<unsigned char>* buffer) {
  if (!isUsable(table)) return false;
  Flattener(order, buffer).structure(table, static_cast<const unsigned char*>(object));
  return true;
}

bool unflatten(const zelEndianTable_t& table, const unsigned char* buffer, std::size_t size,
               ByteOrder order, void* object) {
  if (!isUsable(table)) return false;
  unsigned char* target = static_cast<unsigned char*>(object);
  std::memset(target, 0, table.size);
  Unflattener reader(buffer, size, order);
  if (reader.structure(table, target) && reader.exhausted()) return true;
  freeStructure(table, target);
  std::memset(target, 0, table.size);
  return false;
}

bool swapInPlace(const zelEndianTable_t& table, void* object) {
  if (!isUsable(table)) return false;
  swapStructure(table, static_cast<unsigned char*>(object));
  return true;
}

void freeReferences(const zelEndianTable_t& table, void* object) {
  if (!isUsable(table)) return;
  freeStructure(table, static_cast<unsigned char*>(object));
}

}  // namespace zel_standin
