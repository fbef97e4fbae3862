// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// A client of the installed library, as a media service uses it: dumps a
// folder record, and finds a recording in a fixed folder by its path. Exits 1
// when the installed library answers otherwise.
#include <boost/shared_ptr.hpp>
#include <iostream>
#include <string>

#include "ma/mdc_item.h"
#include "ma/mdc_vfs_fixed.h"

int main() {
  boost::shared_ptr<ma::ItemInfo> record(new ma::FolderItemInfo("Recordings", "UUID-recordings"));
  const std::string dump =
      "ItemType        : 32\ncaption         : Recordings\nuuid            : UUID-recordings\n";
  if (record->toString() != dump) {
    std::cerr << "consumer: unexpected dump:\n" << record->toString();
    return 1;
  }

  boost::shared_ptr<ma::VfsFixedFolder> folder(new ma::VfsFixedFolder(record));
  boost::shared_ptr<ma::ItemInfo> recording(new ma::VideoItemInfo("Tatort", "UUID-rec-1"));
  folder->addEntry(boost::shared_ptr<ma::VfsEntry>(
      new ma::VfsFixedEntry(recording, boost::shared_ptr<ma::VfsUserData>())));
  boost::shared_ptr<ma::VfsEntry> found = folder->resolvePath("$0");
  if (!found || found->getItemInfo() != recording) {
    std::cerr << "consumer: $0 is not the recording\n";
    return 1;
  }
  std::cout << "consumer: ok, $0 is " << found->getItemInfo()->getCaption() << "\n";
  return 0;
}
