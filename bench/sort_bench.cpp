// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Sorted iteration of a fixed folder (getSortedIterator() and a walk of the
// result) by "+dc:title", "-dc:title" and date, beside its floor: the keys
// already extracted as (key, position) pairs, sorted, the child pointers
// permuted and walked; and beside the lower limit of a radix sort of the
// same keys. The caption orders are measured on random captions and, by
// "+dc:title", on a series whose captions all share their first eight bytes
// (the worst case of a sort by 8-byte caption heads).
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "harness/bench_case.h"
#include "harness/bench_tree.h"
#include "harness/radix_sort.h"

namespace {

const std::vector<long> kSizes = {1000, 10000, 100000, 1000000};
const std::vector<long> kSeriesSizes = {1000, 10000, 100000};

long perChild(long children) { return children; }

// Walks `iterator` with the asynchronous operations (the fixed tree calls
// back at once).
void walk(ma::VfsIterator& iterator) {
  for (;;) {
    bench::EntryPtr child;
    iterator.getCurrentChild([&child](bench::EntryPtr delivered) { child = std::move(delivered); });
    if (!child) return;
    iterator.advance([](int) {});
  }
}

// The children, permuted by sorted positions, and walked.
template <typename Pairs>
void permuteAndWalk(ma::VfsFixedFolder::Children const& children, Pairs const& sorted) {
  ma::VfsFixedFolder::Children permuted;
  permuted.reserve(children.size());
  for (auto const& pair : sorted) permuted.push_back(children[pair.index]);
  for (bench::EntryPtr const& child : permuted) bench::keep(child.get());
}

// What a sorted folder starts from: its children and their keys.
struct Keys {
  bench::FolderPtr folder;
  ma::VfsFixedFolder::Children children;
  std::vector<ma::ItemInfo const*> items;  // kept alive by the children
};

std::shared_ptr<Keys> keysOf(long n, std::string const& captionHead) {
  auto keys = std::make_shared<Keys>();
  keys->folder = bench::makeFolder(n, true, captionHead);
  boost::shared_ptr<ma::VfsIterator> iterator = keys->folder->getIterator();
  for (bench::EntryPtr child = iterator->getCurrentChild(); child;
       child = iterator->getCurrentChild()) {
    keys->children.push_back(child);
    keys->items.push_back(child->getItemInfo().get());
    iterator->advance();
  }
  return keys;
}

// The first eight bytes of a caption as a big-endian number.
std::uint64_t headOf(std::string const& caption) {
  std::uint64_t head = 0;
  for (std::size_t i = 0; i < 8; ++i) {
    head = head << 8 | (i < caption.size() ? static_cast<unsigned char>(caption[i]) : 0);
  }
  return head;
}

struct CaptionPair {
  std::uint64_t head;
  std::string const* caption;
  std::uint32_t index;
};

struct DatePair {
  long long date;
  std::uint32_t index;
};

// The cases of one order at `sizes` children; every caption begins with
// `captionHead`.
void addOrder(std::string const& scenario, std::string const& criteria, bool byDate,
              bool descending, std::vector<long> const& sizes = kSizes,
              std::string const& captionHead = std::string()) {
  bench::addCase(scenario, "ours", sizes, [criteria, captionHead](long n) -> bench::Operation {
    bench::FolderPtr folder = bench::makeFolder(n, true, captionHead);
    return [folder, criteria] { walk(*folder->getSortedIterator(criteria)); };
  }, perChild);
  // The same without the walk: what the sort itself costs, keys extracted
  // through the children's items included.
  bench::addCase(scenario, "ours_sort_only", sizes,
                 [criteria, captionHead](long n) -> bench::Operation {
    bench::FolderPtr folder = bench::makeFolder(n, true, captionHead);
    return [folder, criteria] { bench::keep(folder->getSortedIterator(criteria).get()); };
  }, perChild);

  if (byDate) {
    bench::addCase(scenario, "floor", sizes, [](long n) -> bench::Operation {
      std::shared_ptr<Keys> keys = keysOf(n, std::string());
      auto pairs = std::make_shared<std::vector<DatePair>>();
      for (std::size_t i = 0; i < keys->items.size(); ++i) {
        pairs->push_back({keys->items[i]->getDateNumeric(), static_cast<std::uint32_t>(i)});
      }
      return [keys, pairs] {
        std::vector<DatePair> sorted = *pairs;
        std::sort(sorted.begin(), sorted.end(), [](DatePair const& a, DatePair const& b) {
          return a.date != b.date ? a.date > b.date : a.index < b.index;
        });
        permuteAndWalk(keys->children, sorted);
      };
    }, perChild);
  } else {
    bench::addCase(scenario, "floor", sizes,
                   [descending, captionHead](long n) -> bench::Operation {
      std::shared_ptr<Keys> keys = keysOf(n, captionHead);
      auto pairs = std::make_shared<std::vector<CaptionPair>>();
      for (std::size_t i = 0; i < keys->items.size(); ++i) {
        std::string const& caption = keys->items[i]->getCaption();
        pairs->push_back({headOf(caption), &caption, static_cast<std::uint32_t>(i)});
      }
      return [keys, pairs, descending] {
        std::vector<CaptionPair> sorted = *pairs;
        std::sort(sorted.begin(), sorted.end(),
                  [descending](CaptionPair const& a, CaptionPair const& b) {
                    int order = a.head != b.head ? (a.head < b.head ? -1 : 1)
                                                 : a.caption->compare(*b.caption);
                    if (order == 0) return a.index < b.index;
                    return descending ? order > 0 : order < 0;
                  });
        permuteAndWalk(keys->children, sorted);
      };
    }, perChild);
  }

  // The radix limit: dates (flipped for newest first) or caption heads.
  bench::addCase(scenario, "radix", sizes,
                 [byDate, descending, captionHead](long n) -> bench::Operation {
    std::shared_ptr<Keys> keys = keysOf(n, captionHead);
    auto pairs = std::make_shared<std::vector<bench::KeyIndex>>();
    for (std::size_t i = 0; i < keys->items.size(); ++i) {
      std::uint64_t key = byDate ? static_cast<std::uint64_t>(keys->items[i]->getDateNumeric()) ^
                                       (1ULL << 63)
                                 : headOf(keys->items[i]->getCaption());
      if (descending) key = ~key;
      pairs->push_back({key, static_cast<std::uint32_t>(i)});
    }
    auto scratch = std::make_shared<std::vector<bench::KeyIndex>>();
    return [keys, pairs, scratch] {
      std::vector<bench::KeyIndex> sorted = *pairs;
      bench::radixSort(sorted, *scratch);
      permuteAndWalk(keys->children, sorted);
    };
  }, perChild);
}

const bench::Registration kSort([] {
  addOrder("sort.title_ascending", "+dc:title", false, false);
  addOrder("sort.title_descending", "-dc:title", false, true);
  addOrder("sort.date", "", true, true);
  addOrder("sort.title_series", "+dc:title", false, false, kSeriesSizes, bench::kSeriesHead);
});

}  // namespace
