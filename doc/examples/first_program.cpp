// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors

// [guide:first-program]
// A first program: a small tree of records, walked; a path resolved; one
// item through its inter-process message and back.
#include <boost/shared_ptr.hpp>
#include <iostream>
#include <string>

#include "ma/mdc_item.h"          // ma::ItemInfo and its kinds
#include "ma/mdc_vfs_base.h"      // ma::VfsEntry, ma::VfsIterator
#include "ma/mdc_vfs_fixed.h"     // ma::VfsFixedFolder, ma::VfsFixedEntry
#include "ma/rpc/mdc_item_msg.h"  // itemMsgMaItem_t, ma::rpc::convertMaItem

// A leaf entry for `record`, without user data. Entries are always owned by
// a boost::shared_ptr.
boost::shared_ptr<ma::VfsEntry> makeLeaf(boost::shared_ptr<ma::ItemInfo> record) {
  return boost::shared_ptr<ma::VfsEntry>(
      new ma::VfsFixedEntry(record, boost::shared_ptr<ma::VfsUserData>()));
}

int main() {
  // The tree: a folder with a film and a piece of music.
  boost::shared_ptr<ma::ItemInfo> folder(new ma::FolderItemInfo("Receiver", "UUID-root"));
  boost::shared_ptr<ma::VfsFixedFolder> root(new ma::VfsFixedFolder(folder));
  boost::shared_ptr<ma::VideoItemInfo> film(new ma::VideoItemInfo("Metropolis", "UUID-film"));
  film->setTitle(" Metropolis (1927) ");  // stored trimmed
  film->setStationName("arte HD");
  boost::shared_ptr<ma::ItemInfo> song(new ma::MusicItemInfo("So What", "UUID-song"));
  root->addEntry(makeLeaf(film));  // "$0"
  root->addEntry(makeLeaf(song));  // "$1"

  // The walk, with the iterator's blocking calls.
  boost::shared_ptr<ma::VfsIterator> it = root->getIterator();
  std::cout << "Receiver has " << it->getNTotal() << " children:\n";
  for (boost::shared_ptr<ma::VfsEntry> child = it->getCurrentChild(); child;
       it->advance(), child = it->getCurrentChild()) {
    std::cout << "  " << it->getCurrentChildPath("") << "  "
              << child->getItemInfo()->getCaption() << "\n";
  }

  // A path: "$0" is the first child. A path that names nothing answers an
  // empty pointer (and the library writes the reason on the debug trace).
  boost::shared_ptr<ma::VfsEntry> found = root->resolvePath("$0");
  if (!found || found->getItemInfo() != film) {
    std::cerr << "first_program: $0 is not the film\n";
    return 1;
  }
  std::cout << "$0 is " << found->getItemInfo()->getTitle() << "\n";

  // The message another process receives, and the record rebuilt from it.
  // The message owns its content and frees it when it is destroyed.
  itemMsgMaItem_t message(found->getItemInfo());
  boost::shared_ptr<ma::ItemInfo> copy = ma::rpc::convertMaItem(message);
  if (!copy || !(*copy == *film)) {
    std::cerr << "first_program: the record did not survive its message\n";
    return 1;
  }
  std::cout << "message kind " << message.kind << ", back: " << copy->getTitle() << " on "
            << copy->getStationName() << "\n";
  return 0;
}
// [guide:end]
