// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Item records: the kinds, setters that trim and setters that do not, a
// record without field store, copies.
// [guide:records-includes]
#include <iostream>
#include <memory>

#include "ma/mdc_item.h"  // ma::ItemInfo, its nine kinds, ma::itemType
// [guide:end]

#include "example_tree.h"

using example::check;

int main() {
  // [guide:records]
  ma::VideoItemInfo film("  Metropolis", "UUID-film-1");  // stored as given
  film.setTitle("\tMetropolis (1927) ");                   // trims " \t\n\r": "Metropolis (1927)"
  film.setStationName(" arte ");                            // stored as given: " arte "
  film.setLcn(8);
  film.setStartTime(" 20:15 ");                             // video only, trimmed: "20:15"
  film.setDirector("Fritz Lang");                           // video only, as given

  check(film.getItemType() == ma::ITEM_TYPE_VIDEO, "kind");
  check(film.getCaption() == "  Metropolis", "caption untrimmed by the constructor");
  check(film.getTitle() == "Metropolis (1927)", "title trimmed");
  check(film.getStationName() == " arte ", "station name as given");
  check(film.getNetworkID() == -1 && film.isVisible(), "initial values");
  std::cout << film.toString();  // the diagnostic dump of the fields that are set
  // [guide:end]

  // [guide:copies]
  // A copy of the same kind copies the store; duplicate() does so on the heap.
  ma::VideoItemInfo copy(film);
  std::unique_ptr<ma::ItemInfo> duplicate(film.duplicate());  // the caller owns it
  check(copy == film && *duplicate == film, "copies compare equal");
  // [guide:end]

  // [guide:storeless]
  // VideoItemInfo adopts any store; its video accessors need a video store.
  ma::VideoItemInfo adopted(new ma::MusicItemInfo::MusicItemImpl("Song", "UUID-song"));
  check(adopted.getCaption() == "Song", "the base fields are there");
  check(adopted.getImpl() == nullptr, "no video store: getImpl() traces and answers null");

  // A copy of a facade whose store is of another kind has no store at all:
  // every accessor traces "<accessor>(): impl is NULL" and answers a neutral value.
  ma::VideoItemInfo storeless(adopted);
  check(storeless.getCaption().empty(), "neutral text");
  check(storeless.getItemType() == ma::ITEM_TYPE_UNKNOWN, "neutral kind");
  check(storeless.getNetworkID() == 0 && !storeless.isVisible(), "neutral number and flag");
  // [guide:end]
  return 0;
}
