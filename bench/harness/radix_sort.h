// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The lower limit of sorting by a 64-bit key: a least-significant-digit
// radix sort, byte by byte, skipping the bytes in which all keys agree.
// Stable: elements with equal keys keep their order.
#ifndef MA_BENCH_RADIX_SORT_H_
#define MA_BENCH_RADIX_SORT_H_

#include <cstddef>
#include <cstdint>
#include <vector>

namespace bench {

struct KeyIndex {
  std::uint64_t key;
  std::uint32_t index;
};

// Sorts `items` by ascending key; `scratch` is working memory.
inline void radixSort(std::vector<KeyIndex>& items, std::vector<KeyIndex>& scratch) {
  std::size_t counts[8][256] = {};
  for (KeyIndex const& item : items) {
    for (int byte = 0; byte < 8; ++byte) ++counts[byte][(item.key >> (8 * byte)) & 0xFF];
  }
  scratch.resize(items.size());
  for (int byte = 0; byte < 8; ++byte) {
    std::size_t* count = counts[byte];
    if (count[(items.empty() ? 0 : items[0].key >> (8 * byte)) & 0xFF] == items.size()) continue;
    std::size_t offset = 0;
    for (int digit = 0; digit < 256; ++digit) {
      const std::size_t n = count[digit];
      count[digit] = offset;
      offset += n;
    }
    for (KeyIndex const& item : items) scratch[count[(item.key >> (8 * byte)) & 0xFF]++] = item;
    items.swap(scratch);
  }
}

}  // namespace bench

#endif  // MA_BENCH_RADIX_SORT_H_
