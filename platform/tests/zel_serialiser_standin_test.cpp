// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The serialiser stand-in: description check, flatten, rebuild, swap, free.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "zel/zel_deser.h"
#include "zel/zel_standin_serialiser.h"

namespace {

using Bytes = std::vector<unsigned char>;
using zel_standin::ByteOrder;

struct __attribute__((packed)) Inner {
  std::uint8_t flag;
  std::uint32_t word;
  std::uint64_t wide;
};

struct __attribute__((packed)) Outer {
  std::uint32_t count;
  zelDeserString_t name;
  Inner inner;
  std::uint32_t present;
  Inner* extra;
};

const void* const kEndLink = reinterpret_cast<const void*>(std::uintptr_t{ZEL_ENDIAN_END_LINK});

zelEndianEntry_t entry(std::uint32_t code, std::size_t offset, const void* link = nullptr) {
  return {static_cast<std::uint32_t>(ZEL_ENDIAN_DESCRIPTOR(code, offset)), link};
}

zelEndianEntry_t end() { return {ZEL_ENDIAN_END_DESCRIPTOR, kEndLink}; }

// A description built at run time, so that tests can break it.
struct Description {
  std::vector<zelEndianEntry_t> entries;
  zelEndianTable_t table;

  Description(std::size_t size, std::vector<zelEndianEntry_t> list)
      : entries(std::move(list)), table{static_cast<std::uint32_t>(size), nullptr} {
    table.entries = entries.data();
  }
  Description(const Description&) = delete;
  Description& operator=(const Description&) = delete;
};

// Inner is described out of offset order: the wide word first.
Description& innerDescription() {
  static Description d(sizeof(Inner), {entry(ZEL_ENDIAN_SCALAR_8, offsetof(Inner, wide)),
                                       entry(ZEL_ENDIAN_SCALAR_1, offsetof(Inner, flag)),
                                       entry(ZEL_ENDIAN_SCALAR_4, offsetof(Inner, word)), end()});
  return d;
}

Description& outerDescription() {
  static Description d(
      sizeof(Outer),
      {entry(ZEL_ENDIAN_SCALAR_4, offsetof(Outer, count)),
       entry(ZEL_ENDIAN_STRUCT, offsetof(Outer, name), &__zel_EndianTable_zelDeserString_t),
       entry(ZEL_ENDIAN_STRUCT, offsetof(Outer, inner), &innerDescription().table),
       entry(ZEL_ENDIAN_OPTIONAL_REF, offsetof(Outer, present), &innerDescription().table), end()});
  return d;
}

template <typename T>
Bytes nativeBytes(T value) {
  Bytes bytes(sizeof value);
  std::memcpy(bytes.data(), &value, sizeof value);
  return bytes;
}

template <typename T>
Bytes swappedBytes(T value) {
  Bytes bytes = nativeBytes(value);
  return Bytes(bytes.rbegin(), bytes.rend());
}

Bytes concat(std::initializer_list<Bytes> parts) {
  Bytes all;
  for (const Bytes& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

Inner sampleInner() {
  Inner inner;
  inner.flag = 0x5A;
  inner.word = 0x01020304u;
  inner.wide = 0x1112131415161718ull;
  return inner;
}

char* copyOf(const char* text) {
  char* copy = static_cast<char*>(std::malloc(std::strlen(text) + 1));
  std::strcpy(copy, text);
  return copy;
}

// An Outer with a three-character name and an extra Inner, all from malloc.
Outer sampleOuter() {
  Outer outer;
  outer.count = 0xA0B0C0D0u;
  outer.name.length = 3;
  outer.name.data = copyOf("abc");
  outer.inner = sampleInner();
  outer.present = 1;
  outer.extra = static_cast<Inner*>(std::malloc(sizeof(Inner)));
  Inner extra = sampleInner();
  extra.flag = 0x77;
  extra.word = 0x0A0B0C0Du;
  std::memcpy(outer.extra, &extra, sizeof extra);
  return outer;
}

void expectSameOuter(const Outer& expected, const Outer& actual) {
  EXPECT_EQ(expected.count, actual.count);
  EXPECT_EQ(expected.name.length, actual.name.length);
  ASSERT_NE(nullptr, actual.name.data);
  EXPECT_EQ(std::string(expected.name.data, expected.name.length),
            std::string(actual.name.data, actual.name.length));
  EXPECT_EQ('\0', actual.name.data[actual.name.length]);
  EXPECT_EQ(0, std::memcmp(&expected.inner, &actual.inner, sizeof(Inner)));
  EXPECT_EQ(expected.present, actual.present);
  ASSERT_NE(nullptr, actual.extra);
  EXPECT_NE(expected.extra, actual.extra);
  EXPECT_EQ(0, std::memcmp(expected.extra, actual.extra, sizeof(Inner)));
}

// ---------------------------------------------------------------------------
// Description check

TEST(ZelSerialiserDescription, WellFormedDescriptionsHaveNoFaults) {
  EXPECT_TRUE(zel_standin::descriptionFaults(__zel_EndianTable_zelDeserString_t).empty());
  EXPECT_TRUE(zel_standin::descriptionFaults(innerDescription().table).empty());
  EXPECT_TRUE(zel_standin::descriptionFaults(outerDescription().table).empty());
}

void expectOneFault(const Description& d, const std::string& part) {
  const std::vector<std::string> faults = zel_standin::descriptionFaults(d.table);
  ASSERT_EQ(1u, faults.size()) << (faults.empty() ? "" : faults[0]);
  EXPECT_NE(std::string::npos, faults[0].find(part)) << faults[0];
}

TEST(ZelSerialiserDescription, UnknownMemberCodeIsAFault) {
  Description d(4, {entry(ZEL_ENDIAN_SCALAR_4, 0), end()});
  d.entries[0].descriptor = ZEL_ENDIAN_DESCRIPTOR(2, 0);
  const std::vector<std::string> faults = zel_standin::descriptionFaults(d.table);
  ASSERT_EQ(2u, faults.size());
  EXPECT_NE(std::string::npos, faults[0].find("entry 0 (code 2, offset 0) has an unknown member code"))
      << faults[0];
  EXPECT_NE(std::string::npos, faults[1].find("leaves bytes 0 to 3 undescribed")) << faults[1];
}

TEST(ZelSerialiserDescription, OverlappingMembersAreAFault) {
  Description d(8, {entry(ZEL_ENDIAN_SCALAR_8, 0), entry(ZEL_ENDIAN_SCALAR_4, 4), end()});
  expectOneFault(d, "describes bytes from 4 twice");
}

TEST(ZelSerialiserDescription, UndescribedBytesAreAFault) {
  Description d(9, {entry(ZEL_ENDIAN_SCALAR_4, 0), entry(ZEL_ENDIAN_SCALAR_4, 5), end()});
  expectOneFault(d, "leaves bytes 4 to 4 undescribed");
  Description tail(6, {entry(ZEL_ENDIAN_SCALAR_4, 0), end()});
  expectOneFault(tail, "leaves bytes 4 to 5 undescribed");
}

TEST(ZelSerialiserDescription, MemberBeyondTheStructureIsAFault) {
  Description d(4, {entry(ZEL_ENDIAN_SCALAR_1, 0), entry(ZEL_ENDIAN_SCALAR_4, 1), end()});
  expectOneFault(d, "entry 1 (code 4, offset 1) reaches beyond the structure's 4 bytes");
}

TEST(ZelSerialiserDescription, StructureWithoutLinkIsAFault) {
  Description d(sizeof(zelDeserString_t), {entry(ZEL_ENDIAN_STRUCT, 0), end()});
  const std::vector<std::string> faults = zel_standin::descriptionFaults(d.table);
  ASSERT_FALSE(faults.empty());
  EXPECT_NE(std::string::npos, faults[0].find("has no linked description")) << faults[0];
}

TEST(ZelSerialiserDescription, ScalarWithLinkIsAFault) {
  Description d(4, {entry(ZEL_ENDIAN_SCALAR_4, 0, &innerDescription().table), end()});
  expectOneFault(d, "has a link but is no structure");
}

TEST(ZelSerialiserDescription, TerminatorNeedsItsLinkWord) {
  Description d(4, {entry(ZEL_ENDIAN_SCALAR_4, 0), {ZEL_ENDIAN_END_DESCRIPTOR, nullptr}});
  expectOneFault(d, "is a terminator without link word 0xFFFFFFFF");
}

TEST(ZelSerialiserDescription, CountedCharactersNeedALengthAtOffsetZero) {
  Description d(4 + sizeof(char*),
                {entry(ZEL_ENDIAN_SCALAR_1, 0), entry(ZEL_ENDIAN_SCALAR_1, 1),
                 entry(ZEL_ENDIAN_SCALAR_1, 2), entry(ZEL_ENDIAN_SCALAR_1, 3),
                 entry(ZEL_ENDIAN_COUNTED_CHARS, 4), end()});
  expectOneFault(d, "has counted characters without a 4-byte length at offset 0");
}

TEST(ZelSerialiserDescription, FaultsOfLinkedDescriptionsAreReported) {
  Description broken(4, {entry(ZEL_ENDIAN_SCALAR_8, 0), end()});
  Description d(sizeof(std::uint32_t) + sizeof(void*),
                {entry(ZEL_ENDIAN_OPTIONAL_REF, 0, &broken.table), end()});
  expectOneFault(d, "entry 0 (code 16457, offset 0) -> entry 0 (code 8, offset 0) reaches beyond");
}

TEST(ZelSerialiserDescription, StructureSizeComesFromTheLinkedDescription) {
  Description d(sizeof(zelDeserString_t) + 1,
                {entry(ZEL_ENDIAN_STRUCT, 0, &__zel_EndianTable_zelDeserString_t),
                 entry(ZEL_ENDIAN_SCALAR_1, sizeof(zelDeserString_t) - 1), end()});
  const std::vector<std::string> faults = zel_standin::descriptionFaults(d.table);
  ASSERT_EQ(2u, faults.size());
  EXPECT_NE(std::string::npos, faults[0].find("twice")) << faults[0];
  EXPECT_NE(std::string::npos, faults[1].find("undescribed")) << faults[1];
}

// ---------------------------------------------------------------------------
// Flattening

TEST(ZelSerialiserFlatten, ScalarsFollowTheDescriptionOrderInNativeOrder) {
  const Inner inner = sampleInner();
  Bytes buffer;
  ASSERT_TRUE(zel_standin::flatten(innerDescription().table, &inner, ByteOrder::kNative, &buffer));
  EXPECT_EQ(concat({nativeBytes(inner.wide), {0x5A}, nativeBytes(std::uint32_t{inner.word})}), buffer);
}

TEST(ZelSerialiserFlatten, SwappedOrderReversesEveryScalar) {
  const Inner inner = sampleInner();
  Bytes buffer;
  ASSERT_TRUE(zel_standin::flatten(innerDescription().table, &inner, ByteOrder::kSwapped, &buffer));
  EXPECT_EQ(concat({swappedBytes(std::uint64_t{inner.wide}), {0x5A},
                    swappedBytes(std::uint32_t{inner.word})}),
            buffer);
}

TEST(ZelSerialiserFlatten, AppendsToTheBuffer) {
  const Inner inner = sampleInner();
  Bytes buffer = {9, 9};
  ASSERT_TRUE(zel_standin::flatten(innerDescription().table, &inner, ByteOrder::kNative, &buffer));
  ASSERT_EQ(2u + sizeof(Inner), buffer.size());
  EXPECT_EQ(9, buffer[0]);
  EXPECT_EQ(9, buffer[1]);
}

TEST(ZelSerialiserFlatten, StringsTravelAsLengthPlusCharacters) {
  zelDeserString_t text = {3, static_cast<char*>(std::malloc(4))};
  std::memcpy(text.data, "a\0c", 4);
  Bytes buffer;
  ASSERT_TRUE(zel_standin::flatten(__zel_EndianTable_zelDeserString_t, &text, ByteOrder::kSwapped,
                                   &buffer));
  EXPECT_EQ(concat({swappedBytes(std::uint32_t{3}), {1}, swappedBytes(std::uint32_t{3}),
                    {'a', '\0', 'c'}}),
            buffer);
  std::free(text.data);
}

TEST(ZelSerialiserFlatten, NullCharactersTravelAsAbsent) {
  const zelDeserString_t text = {5, nullptr};
  Bytes buffer;
  ASSERT_TRUE(zel_standin::flatten(__zel_EndianTable_zelDeserString_t, &text, ByteOrder::kNative,
                                   &buffer));
  EXPECT_EQ(concat({nativeBytes(std::uint32_t{5}), {0}}), buffer);
}

TEST(ZelSerialiserFlatten, OptionalReferenceCarriesPresenceWordAndTarget) {
  Outer outer = sampleOuter();
  Bytes buffer;
  ASSERT_TRUE(zel_standin::flatten(outerDescription().table, &outer, ByteOrder::kNative, &buffer));
  Bytes innerBytes, extraBytes;
  ASSERT_TRUE(zel_standin::flatten(innerDescription().table, &outer.inner, ByteOrder::kNative,
                                   &innerBytes));
  ASSERT_TRUE(zel_standin::flatten(innerDescription().table, outer.extra, ByteOrder::kNative,
                                   &extraBytes));
  EXPECT_EQ(concat({nativeBytes(std::uint32_t{outer.count}), nativeBytes(std::uint32_t{3}), {1},
                    nativeBytes(std::uint32_t{3}), {'a', 'b', 'c'}, innerBytes,
                    nativeBytes(std::uint32_t{1}), {1}, extraBytes}),
            buffer);
  zel_standin::freeReferences(outerDescription().table, &outer);
}

TEST(ZelSerialiserFlatten, NullReferenceCarriesOnlyThePresenceWord) {
  Outer outer = sampleOuter();
  std::free(outer.extra);
  outer.extra = nullptr;
  outer.present = 7;
  Bytes buffer;
  ASSERT_TRUE(zel_standin::flatten(outerDescription().table, &outer, ByteOrder::kNative, &buffer));
  const Bytes tail = concat({nativeBytes(std::uint32_t{7}), {0}});
  ASSERT_GE(buffer.size(), tail.size());
  EXPECT_EQ(tail, Bytes(buffer.end() - static_cast<std::ptrdiff_t>(tail.size()), buffer.end()));
  zel_standin::freeReferences(outerDescription().table, &outer);
}

TEST(ZelSerialiserFlatten, RefusesADescriptionWithFaults) {
  Description d(8, {entry(ZEL_ENDIAN_SCALAR_4, 0), end()});
  const unsigned char object[8] = {};
  Bytes buffer = {1};
  EXPECT_FALSE(zel_standin::flatten(d.table, object, ByteOrder::kNative, &buffer));
  EXPECT_EQ(Bytes{1}, buffer);
}

// ---------------------------------------------------------------------------
// Rebuilding

TEST(ZelSerialiserUnflatten, RebuildsTheStructureInBothOrders) {
  for (ByteOrder order : {ByteOrder::kNative, ByteOrder::kSwapped}) {
    Outer outer = sampleOuter();
    Bytes buffer;
    ASSERT_TRUE(zel_standin::flatten(outerDescription().table, &outer, order, &buffer));
    Outer rebuilt;
    std::memset(&rebuilt, 0xEE, sizeof rebuilt);
    ASSERT_TRUE(zel_standin::unflatten(outerDescription().table, buffer.data(), buffer.size(), order,
                                       &rebuilt));
    expectSameOuter(outer, rebuilt);
    zel_standin::freeReferences(outerDescription().table, &outer);
    zel_standin::freeReferences(outerDescription().table, &rebuilt);
    EXPECT_EQ(nullptr, rebuilt.extra);
    EXPECT_EQ(nullptr, rebuilt.name.data);
  }
}

TEST(ZelSerialiserUnflatten, ReadingInTheOtherOrderGivesSwappedScalars) {
  const Inner inner = sampleInner();
  Bytes buffer;
  ASSERT_TRUE(zel_standin::flatten(innerDescription().table, &inner, ByteOrder::kNative, &buffer));
  Inner rebuilt;
  ASSERT_TRUE(zel_standin::unflatten(innerDescription().table, buffer.data(), buffer.size(),
                                     ByteOrder::kSwapped, &rebuilt));
  EXPECT_EQ(0x5A, rebuilt.flag);
  EXPECT_EQ(0x04030201u, rebuilt.word);
  EXPECT_EQ(0x1817161514131211ull, rebuilt.wide);
}

TEST(ZelSerialiserUnflatten, AbsentCharactersAndReferencesStayNull) {
  Outer outer = sampleOuter();
  std::free(outer.name.data);
  outer.name.data = nullptr;
  std::free(outer.extra);
  outer.extra = nullptr;
  Bytes buffer;
  ASSERT_TRUE(zel_standin::flatten(outerDescription().table, &outer, ByteOrder::kNative, &buffer));
  Outer rebuilt;
  ASSERT_TRUE(zel_standin::unflatten(outerDescription().table, buffer.data(), buffer.size(),
                                     ByteOrder::kNative, &rebuilt));
  EXPECT_EQ(3u, rebuilt.name.length);
  EXPECT_EQ(nullptr, rebuilt.name.data);
  EXPECT_EQ(1u, rebuilt.present);
  EXPECT_EQ(nullptr, rebuilt.extra);
}

TEST(ZelSerialiserUnflatten, EveryShortBufferIsRefusedWithoutLeaks) {
  Outer outer = sampleOuter();
  Bytes buffer;
  ASSERT_TRUE(zel_standin::flatten(outerDescription().table, &outer, ByteOrder::kNative, &buffer));
  const Outer zero = {};
  for (std::size_t size = 0; size < buffer.size(); ++size) {
    Outer rebuilt;
    EXPECT_FALSE(zel_standin::unflatten(outerDescription().table, buffer.data(), size,
                                        ByteOrder::kNative, &rebuilt))
        << size;
    EXPECT_EQ(0, std::memcmp(&zero, &rebuilt, sizeof rebuilt)) << size;
  }
  zel_standin::freeReferences(outerDescription().table, &outer);
}

TEST(ZelSerialiserUnflatten, LeftoverBytesAreRefused) {
  const Inner inner = sampleInner();
  Bytes buffer;
  ASSERT_TRUE(zel_standin::flatten(innerDescription().table, &inner, ByteOrder::kNative, &buffer));
  buffer.push_back(0);
  Inner rebuilt;
  EXPECT_FALSE(zel_standin::unflatten(innerDescription().table, buffer.data(), buffer.size(),
                                      ByteOrder::kNative, &rebuilt));
}

TEST(ZelSerialiserUnflatten, MarkerOtherThanZeroOrOneIsRefused) {
  const zelDeserString_t text = {0, nullptr};
  Bytes buffer;
  ASSERT_TRUE(zel_standin::flatten(__zel_EndianTable_zelDeserString_t, &text, ByteOrder::kNative,
                                   &buffer));
  buffer.back() = 2;
  zelDeserString_t rebuilt;
  EXPECT_FALSE(zel_standin::unflatten(__zel_EndianTable_zelDeserString_t, buffer.data(),
                                      buffer.size(), ByteOrder::kNative, &rebuilt));
}

TEST(ZelSerialiserUnflatten, LengthBeyondTheBufferIsRefused) {
  const Bytes buffer = concat({nativeBytes(std::uint32_t{0}), {1}, nativeBytes(std::uint32_t{0xFFFFFFF0u}), {'x'}});
  zelDeserString_t rebuilt;
  EXPECT_FALSE(zel_standin::unflatten(__zel_EndianTable_zelDeserString_t, buffer.data(),
                                      buffer.size(), ByteOrder::kNative, &rebuilt));
}

// ---------------------------------------------------------------------------
// Byte-order swap and release

TEST(ZelSerialiserSwap, SwapsScalarsPresenceWordsAndLengthsButNotPointersOrCharacters) {
  Outer outer = sampleOuter();
  char* const name = outer.name.data;
  Inner* const extra = outer.extra;
  ASSERT_TRUE(zel_standin::swapInPlace(outerDescription().table, &outer));
  EXPECT_EQ(0xD0C0B0A0u, outer.count);
  EXPECT_EQ(0x03000000u, outer.name.length);
  EXPECT_EQ(name, outer.name.data);
  EXPECT_EQ("abc", std::string(outer.name.data));
  EXPECT_EQ(0x5A, outer.inner.flag);
  EXPECT_EQ(0x04030201u, outer.inner.word);
  EXPECT_EQ(0x1817161514131211ull, outer.inner.wide);
  EXPECT_EQ(0x01000000u, outer.present);
  EXPECT_EQ(extra, outer.extra);
  EXPECT_EQ(0x0D0C0B0Au, outer.extra->word);
  zel_standin::freeReferences(outerDescription().table, &outer);
}

TEST(ZelSerialiserSwap, SwappingTwiceRestoresTheStructure) {
  Outer outer = sampleOuter();
  Outer before;
  std::memcpy(&before, &outer, sizeof outer);
  const Inner extraBefore = *outer.extra;
  ASSERT_TRUE(zel_standin::swapInPlace(outerDescription().table, &outer));
  ASSERT_TRUE(zel_standin::swapInPlace(outerDescription().table, &outer));
  EXPECT_EQ(0, std::memcmp(&before, &outer, sizeof outer));
  EXPECT_EQ(0, std::memcmp(&extraBefore, outer.extra, sizeof(Inner)));
  zel_standin::freeReferences(outerDescription().table, &outer);
}

TEST(ZelSerialiserSwap, RefusesADescriptionWithFaults) {
  Description d(4, {entry(ZEL_ENDIAN_SCALAR_4, 0), entry(ZEL_ENDIAN_SCALAR_1, 3), end()});
  unsigned char object[4] = {1, 2, 3, 4};
  EXPECT_FALSE(zel_standin::swapInPlace(d.table, object));
  EXPECT_EQ(1, object[0]);
  EXPECT_EQ(4, object[3]);
}

TEST(ZelSerialiserFree, FreesTargetsAndCharactersAndNullsThePointers) {
  Outer outer = sampleOuter();
  zel_standin::freeReferences(outerDescription().table, &outer);
  EXPECT_EQ(nullptr, outer.extra);
  EXPECT_EQ(nullptr, outer.name.data);
  EXPECT_EQ(3u, outer.name.length);
  EXPECT_EQ(1u, outer.present);
}

}  // namespace
