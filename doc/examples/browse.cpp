// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Browsing the sample tree: the asynchronous iterator operations, their
// synchronous twins, and sorted iteration.
// [guide:browse-includes]
#include <iostream>
#include <string>
#include <vector>

#include <boost/shared_ptr.hpp>  // also boost::dynamic_pointer_cast

#include "ma/mdc_item.h"       // ma::OtherItemInfo
#include "ma/mdc_vfs_base.h"   // ma::VfsEntry, ma::VfsIterator
#include "ma/mdc_vfs_fixed.h"  // ma::VfsFixedFolder and its getSortedIterator()
// [guide:end]

#include "example_tree.h"

using example::captionOf;
using example::check;
using example::makeFolder;

namespace {

// [guide:async-callbacks]
// Collects what an iterator delivers. The fixed tree calls back before the
// operation returns; another VfsIterator may call back later, on another
// thread, so a real client keeps such state alive and synchronised itself.
struct Listing {
  int total = -1;
  std::vector<std::string> captions;

  void onTotal(int n) { total = n; }
  void onChild(boost::shared_ptr<ma::VfsEntry> child) { captions.push_back(captionOf(child)); }
  void onMoved(int /*position*/) {}
};
// [guide:end]

}  // namespace

int main() {
  boost::shared_ptr<ma::VfsFixedFolder> root = example::buildMediaTree();
  boost::shared_ptr<ma::VfsEntry> recordings = root->resolvePath("$2");
  check(captionOf(recordings) == "Recordings", "$2 is the recordings folder");

  {
    // [guide:async]
    Listing listing;
    boost::shared_ptr<ma::VfsIterator> it = recordings->getIterator();
    it->getNTotal([&listing](int n) { listing.onTotal(n); });
    for (int i = 0; i < listing.total; ++i) {
      it->getCurrentChild([&listing](boost::shared_ptr<ma::VfsEntry> child) { listing.onChild(child); });
      it->advance([&listing](int position) { listing.onMoved(position); });
    }
    // [guide:end]
    check(listing.total == 3, "three recordings");
    check(listing.captions == std::vector<std::string>({"Tatort", "Abendschau", "Bergdoktor"}),
          "list order");
  }

  {
    // [guide:sync]
    boost::shared_ptr<ma::VfsIterator> it = recordings->getIterator();
    std::vector<std::string> paths;
    for (boost::shared_ptr<ma::VfsEntry> child = it->getCurrentChild(); child;
         it->advance(), child = it->getCurrentChild()) {
      std::cout << it->getCurrentChildPath("$2") << "  " << captionOf(child) << "\n";
      paths.push_back(it->getCurrentChildPath("$2"));  // "$2$0", "$2$1", "$2$2"
    }
    // [guide:end]
    check(paths == std::vector<std::string>({"$2$0", "$2$1", "$2$2"}), "child paths");
  }

  {
    // [guide:sorted]
    // getSortedIterator() is a member of the fixed folder, not of VfsEntry:
    // cast first. The cast answers an empty pointer for a leaf or an entry
    // of another implementation.
    boost::shared_ptr<ma::VfsFixedFolder> folder =
        boost::dynamic_pointer_cast<ma::VfsFixedFolder>(recordings);
    check(folder != nullptr, "a fixed folder");
    check(!boost::dynamic_pointer_cast<ma::VfsFixedFolder>(root->resolvePath("$2$0")),
          "a leaf is no folder");
    boost::shared_ptr<ma::VfsIterator> byTitle = folder->getSortedIterator("+dc:title");
    boost::shared_ptr<ma::VfsIterator> newestFirst = folder->getSortedIterator("");  // by date
    check(captionOf(byTitle->getCurrentChild()) == "Abendschau", "caption ascending");
    check(captionOf(newestFirst->getCurrentChild()) == "Abendschau", "newest first");
    newestFirst->seekTo(2);
    check(captionOf(newestFirst->getCurrentChild()) == "Bergdoktor", "oldest last");
    // [guide:end]
    byTitle->advance();
    check(captionOf(byTitle->getCurrentChild()) == "Bergdoktor", "then Bergdoktor");
  }

  {
    // [guide:sorted-bytes]
    // "+dc:title" compares the captions byte by byte: not the titles, no
    // locale, no case folding. Upper case comes before lower case, and a
    // UTF-8 "Ä" (bytes 0xC3 0x84) after every ASCII letter.
    boost::shared_ptr<ma::VfsFixedFolder> shelf = makeFolder("Shelf", "UUID-shelf");
    for (char const* caption : {"zebra", "\xC3\x84rger", "Zoo", "apple"}) {
      boost::shared_ptr<ma::ItemInfo> record(new ma::OtherItemInfo(caption, caption));
      record->setTitle("Untitled");  // the title plays no part in the order
      shelf->addEntry(boost::shared_ptr<ma::VfsEntry>(
          new ma::VfsFixedEntry(record, boost::shared_ptr<ma::VfsUserData>())));
    }
    std::vector<std::string> order;
    boost::shared_ptr<ma::VfsIterator> it = shelf->getSortedIterator("+dc:title");
    for (boost::shared_ptr<ma::VfsEntry> child = it->getCurrentChild(); child;
         it->advance(), child = it->getCurrentChild()) {
      order.push_back(captionOf(child));
    }
    check(order == std::vector<std::string>({"Zoo", "apple", "zebra", "\xC3\x84rger"}),
          "byte order, captions only");
    // [guide:end]
  }
  return 0;
}
