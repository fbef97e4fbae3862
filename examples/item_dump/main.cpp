// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Builds one item record of each of the nine kinds, fills the fields that
// describe it, and prints each record's text dump, a copy check and the
// comparison of the record with its duplicate.
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "ma/mdc_item.h"

namespace {

// Fills the fields a media service typically sets on a record of `kind`.
void describe(ma::ItemInfo& item, const std::string& kind, int number) {
  item.setTitle("  " + kind + " title  ");  // trimmed on the way in
  item.setItemLocator("/media/usb1/" + kind + "/" + std::to_string(number));
  item.setGenre("Documentary");
  item.setDate("2026-11-21");
  item.setDateNumeric(1795000000LL + number);
  item.setFileSize(1024ULL * 1024ULL * 1024ULL * 5ULL + static_cast<unsigned>(number));
  item.setResumePosition(static_cast<unsigned int>(number) * 60u);
  item.setStationName("Das Erste HD");
  item.setTunerUUID("tuner-0");
  item.setLcn(static_cast<unsigned int>(number));
  item.setYear("2026");
  item.setRecChnum(number);
}

}  // namespace

int main() {
  std::vector<std::unique_ptr<ma::ItemInfo>> items;
  items.emplace_back(new ma::UnknownItemInfo("Something", "uuid-unknown"));
  items.emplace_back(new ma::MusicItemInfo("A song", "uuid-music"));
  items.emplace_back(new ma::VideoItemInfo("A recording", "uuid-video"));
  items.emplace_back(new ma::PictureItemInfo("A picture", "uuid-picture"));
  items.emplace_back(new ma::PlaylistItemInfo("A playlist", "uuid-playlist"));
  items.emplace_back(new ma::FolderItemInfo("A folder", "uuid-folder"));
  items.emplace_back(new ma::DocumentItemInfo("A document", "uuid-document"));
  items.emplace_back(new ma::OtherItemInfo("Another thing", "uuid-other"));
  items.emplace_back(new ma::InteractiveItemInfo("A service", "uuid-interactive"));

  const char* kinds[] = {"unknown", "music",    "video", "picture",    "playlist",
                         "folder",  "document", "other", "interactive"};
  int number = 1;
  for (auto& item : items) describe(*item, kinds[number - 1], number), ++number;

  auto& video = static_cast<ma::VideoItemInfo&>(*items[2]);
  video.setStartTime(" 20:15 ");
  video.setEndTime(" 21:45 ");
  video.setActor("Jane Doe");
  video.setDirector("John Roe");

  for (const auto& item : items) {
    std::unique_ptr<ma::ItemInfo> twin(item->duplicate());
    std::cout << "--- item of type " << item->getItemType() << " ("
              << (*item == *twin ? "equals" : "differs from") << " its duplicate)\n"
              << item->toString();
  }
  return 0;
}
