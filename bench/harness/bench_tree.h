// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Trees the VFS benchmarks walk: folders of leaves with video records whose
// captions, identifiers and dates come from a fixed seed.
#ifndef MA_BENCH_BENCH_TREE_H_
#define MA_BENCH_BENCH_TREE_H_

#include <boost/shared_ptr.hpp>
#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "ma/mdc_item.h"
#include "ma/mdc_vfs_fixed.h"

namespace bench {

typedef boost::shared_ptr<ma::VfsEntry> EntryPtr;
typedef boost::shared_ptr<ma::VfsFixedFolder> FolderPtr;
typedef boost::shared_ptr<ma::ItemInfo> ItemPtr;

// A fixed folder whose criteria iterator walks its children, as a browsing
// service's folder does; a plain fixed folder's criteria iterator is empty,
// which would leave findUuid() nothing to search.
class BrowsableFolder : public ma::VfsFixedFolder {
 public:
  BrowsableFolder() : ma::VfsFixedFolder(ItemPtr(new ma::FolderItemInfo("folder", "folder"))) {}

  using ma::VfsFixedFolder::getIterator;
  boost::shared_ptr<ma::VfsIterator> getIterator(ma::VfsSearchCriteria const&,
                                                 ma::VfsOrderCriteria const&,
                                                 ma::VfsFilterCriteria const&) override {
    return getIterator();
  }
};

// A leaf with a video record: caption, identifier "uuid-<i>" style text,
// date.
inline EntryPtr makeLeaf(std::string const& caption, std::string const& uuid, long long date) {
  ItemPtr item(new ma::VideoItemInfo(caption, uuid));
  item->setDateNumeric(date);
  return EntryPtr(new ma::VfsFixedEntry(item, boost::shared_ptr<ma::VfsUserData>()));
}

// The identifier of leaf `i`: long enough (36 characters, like a UUID) that
// it lives on the heap, as real identifiers do.
inline std::string uuidOf(long i) {
  std::string uuid = "00000000-0000-4000-8000-000000000000";
  std::string digits = std::to_string(i);
  uuid.replace(uuid.size() - digits.size(), digits.size(), digits);
  return uuid;
}

// The caption head of a series: most captions of a recordings folder begin
// with the same eight bytes or more ("Tatort: Borowski und ...").
constexpr char kSeriesHead[] = "Tatort: ";

// Fills `folder` with `count` leaves: captions of `captionHead` followed by
// 12 random letters, identifiers uuidOf(i), dates that are distinct when
// `distinctDates` (recording times in seconds, shuffled) or drawn from 64
// values otherwise (many ties).
inline void fillFolder(ma::VfsFixedFolder& folder, long count, bool distinctDates = true,
                       std::string const& captionHead = std::string()) {
  std::mt19937 random(42);
  std::uniform_int_distribution<int> letter('a', 'z');
  std::vector<long long> dates(static_cast<std::size_t>(count));
  for (long i = 0; i < count; ++i) {
    dates[static_cast<std::size_t>(i)] =
        distinctDates ? 1700000000LL + 7 * i : 1700000000LL + 3600 * (i % 64);
  }
  std::shuffle(dates.begin(), dates.end(), random);
  for (long i = 0; i < count; ++i) {
    std::string caption = captionHead + std::string(12, ' ');
    for (std::size_t c = captionHead.size(); c < caption.size(); ++c) {
      caption[c] = static_cast<char>(letter(random));
    }
    folder.addEntry(makeLeaf(caption, uuidOf(i), dates[static_cast<std::size_t>(i)]));
  }
}

inline FolderPtr makeFolder(long count, bool distinctDates = true,
                            std::string const& captionHead = std::string()) {
  FolderPtr folder(new BrowsableFolder());
  fillFolder(*folder, count, distinctDates, captionHead);
  return folder;
}

}  // namespace bench

#endif  // MA_BENCH_BENCH_TREE_H_
