// The guide's client: builds a folder with one recording and finds it again
// by path. Exits 1 when the installed library answers otherwise.
#include <boost/shared_ptr.hpp>
#include <iostream>

#include "ma/mdc_item.h"
#include "ma/mdc_vfs_fixed.h"

int main() {
  boost::shared_ptr<ma::VfsFixedFolder> folder(new ma::VfsFixedFolder(
      boost::shared_ptr<ma::ItemInfo>(new ma::FolderItemInfo("Recordings", "UUID-recordings"))));
  boost::shared_ptr<ma::ItemInfo> recording(new ma::VideoItemInfo("Tatort", "UUID-rec-1"));
  folder->addEntry(boost::shared_ptr<ma::VfsEntry>(
      new ma::VfsFixedEntry(recording, boost::shared_ptr<ma::VfsUserData>())));

  boost::shared_ptr<ma::VfsEntry> found = folder->resolvePath("$0");
  if (!found || found->getItemInfo() != recording) {
    std::cerr << "client: $0 is not the recording\n";
    return 1;
  }
  std::cout << "client: " << found->getItemInfo()->getCaption() << "\n";
  return 0;
}
