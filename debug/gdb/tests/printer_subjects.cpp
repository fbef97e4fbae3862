// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The objects the gdb printer tests look at. main() builds one of each kind
// the printers know (records, a store, a small tree with recorder data,
// iterators, criteria, item messages, counted strings, delivery systems)
// and a few damaged ones (a counted string whose length lies, a record whose
// store lies in unmapped memory, a pointer to a freed record), then calls
// inspectHere(). The tests stop gdb there and print main's locals.
#include <sys/mman.h>
#include <unistd.h>

#include <boost/shared_ptr.hpp>
#include <cstdio>
#include <cstring>

#include "ma/mdc_item.h"
#include "ma/mdc_vfs_criteria.h"
#include "ma/mdc_vfs_fixed.h"
#include "ma/mdc_vfs_user_data_dr.h"
#include "ma/rpc/mdc_item_msg.h"
#include "zu/domain/tv/delivery_system.h"

// Where the tests stop: main's objects are all built.
__attribute__((noinline)) void inspectHere() { asm volatile(""); }

namespace {

// A folder record whose store pointer can be pointed elsewhere for a while:
// the record of a store that is gone.
class RecordWithLostStore : public ma::FolderItemInfo {
 public:
  RecordWithLostStore() : ma::FolderItemInfo("Lost", "UUID-lost") {}
  ~RecordWithLostStore() override { impl = m_store; }
  void pointStoreAt(void* address) { impl = static_cast<ItemImpl*>(address); }

 private:
  ItemImpl* m_store = impl;  // the real store, deleted by the base
};

// A client's own entry: no printer of its own.
class ClientEntry : public ma::VfsEntry {
 public:
  using ma::VfsEntry::getIterator;
  boost::shared_ptr<ma::VfsIterator> getIterator(ma::VfsSearchCriteria const&,
                                                 ma::VfsOrderCriteria const&,
                                                 ma::VfsFilterCriteria const&) override {
    return boost::shared_ptr<ma::VfsIterator>();
  }
  boost::shared_ptr<ma::ItemInfo> getItemInfo() override { return boost::shared_ptr<ma::ItemInfo>(); }
  boost::shared_ptr<ma::VfsUserData> getUserData() override {
    return boost::shared_ptr<ma::VfsUserData>();
  }

  int channel = 7;
};

// An address with nothing mapped at it.
void* unmappedAddress() {
  long const pageSize = sysconf(_SC_PAGESIZE);
  void* page = mmap(nullptr, pageSize, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (page == MAP_FAILED) return nullptr;
  munmap(page, pageSize);
  return page;
}

}  // namespace

int main() {
  // Records.
  auto* video = new ma::VideoItemInfo("Tatort: Borowski", "UUID-rec-001");
  boost::shared_ptr<ma::ItemInfo> recording(video);
  video->setItemLocator("file:///rec/001.ts");
  video->setTitle("Tatort");
  video->setFileSize(1234567890ULL);
  video->setDateNumeric(1764000000LL);
  video->setNetworkID(8468);
  video->setVisible(false);
  video->setRecChnum(1);
  video->setStartTime("20:15");
  video->setActor("Axel Milberg");

  ma::MusicItemInfo song("So What", "UUID-music-001");
  song.setArtist("Miles Davis");
  song.setAlbum("Kind of Blue");
  song.setTrackNum("1");
  ma::MusicItemInfo::MusicItemImpl* songStore = song.getImpl();

  ma::FolderItemInfo emptyFolder("Empty", "UUID-folder-empty");
  ma::VideoItemInfo storeless(static_cast<ma::ItemInfo::ItemImpl*>(nullptr));
  ma::PictureItemInfo oddText("tab\there \"quoted\" \xc3\xa4 \x01", "UUID-pic");

  // A tree: a folder of two entries (one with recorder data) and a folder.
  unsigned char key[VfsUserDataDR::kKeySize] = {0x5a};
  boost::shared_ptr<VfsUserDataDR> recorderData(
      new VfsUserDataDR(true, 0, 3600, 100, 200, 2, key));
  boost::shared_ptr<VfsUserDataDR> plainData(new VfsUserDataDR(false, -1, 7, 0, 0, 0, nullptr));
  boost::shared_ptr<ma::VfsFixedFolder> root(
      new ma::VfsFixedFolder(boost::shared_ptr<ma::ItemInfo>(
          new ma::FolderItemInfo("Recordings", "UUID-folder-rec"))));
  boost::shared_ptr<ma::VfsFixedEntry> recordingEntry(new ma::VfsFixedEntry(recording, recorderData));
  boost::shared_ptr<ma::VfsFixedEntry> songEntry(new ma::VfsFixedEntry(
      boost::shared_ptr<ma::ItemInfo>(song.duplicate()), boost::shared_ptr<ma::VfsUserData>()));
  boost::shared_ptr<ma::VfsFixedFolder> archive(
      new ma::VfsFixedFolder(boost::shared_ptr<ma::ItemInfo>(
          new ma::FolderItemInfo("Archive", "UUID-folder-archive"))));
  root->addEntry(recordingEntry);
  root->addEntry(songEntry);
  root->addEntry(archive);
  boost::shared_ptr<ma::VfsEntry> clientEntry(new ClientEntry);

  // Iterators: one moved to the second child, one sorted, one at its end.
  boost::shared_ptr<ma::VfsIterator> walk = root->getIterator();
  walk->advance();
  boost::shared_ptr<ma::VfsIterator> sorted = root->getSortedIterator("-dc:title");
  boost::shared_ptr<ma::VfsIterator> finished = archive->getIterator();

  // Criteria.
  ma::VfsSearchCriteria search;
  search.add(ma::VfsSearchCriteria::SingleCriterium("dc:title", "contains", "Tatort"));
  search.add(ma::VfsSearchCriteria::SingleCriterium("upnp:class", "=", "object.item.videoItem"));
  ma::VfsOrderCriteria order;
  order.add(ma::VfsOrderCriteria::SingleCriterium{"dc:date", "-"});
  ma::VfsFilterCriteria filter;
  filter.add(ma::VfsFilterCriteria::SingleCriterium("res@size"));
  ma::VfsSearchCriteria noSearch;

  // Item messages.
  itemMsgMaItem_t recordingMessage(*recording);
  itemMsgMaItem_t songMessage(song);
  itemMsgMaItem_t emptyMessage;
  itemMsgMaItem_t reservedKindMessage;
  reservedKindMessage.kind = 5;

  // Counted strings, good and damaged.
  char hello[] = "hello";
  char abc[] = "abc\0defghij";
  char unterminated[] = "abcdef";
  void* nowhere = unmappedAddress();
  zelDeserString_t countedText = {5, hello};
  zelDeserString_t countedUnset = {0, nullptr};
  zelDeserString_t countedTooLong = {10, abc};
  zelDeserString_t countedUnterminated = {3, unterminated};
  zelDeserString_t countedNowhere = {4, static_cast<char*>(nowhere)};
  zelDeserString_t countedHuge = {0xfffffff0u, hello};
  zelDeserString_t countedWithoutText = {7, nullptr};

  // Delivery systems: from bit sets, and a value outside the table.
  zu::domain::tv::DeliverySystem dvbT2(0x6u);
  zu::domain::tv::DeliverySystem isdbS(0x1fffu);
  zu::domain::tv::DeliverySystem undefined(0u);
  int const outside = 42;
  std::memcpy(static_cast<void*>(&undefined), &outside, sizeof outside);

  // Damage: a record whose store is unmapped, a shared pointer to unmapped
  // memory, a pointer to a freed record.
  RecordWithLostStore lostStore;
  lostStore.pointStoreAt(nowhere);
  boost::shared_ptr<ma::ItemInfo> danglingShared(static_cast<ma::ItemInfo*>(nowhere),
                                                 [](ma::ItemInfo*) {});
  ma::ItemInfo* freed = new ma::MusicItemInfo("Freed", "UUID-freed");
  delete freed;

  inspectHere();

  std::printf("%d children, %s\n", walk->getNTotal(),
              zu::domain::tv::getDeliverySystemName(zu::domain::tv::DELIVERY_SYSTEM_DVB_T2));
  (void)songStore, (void)countedText, (void)countedUnset, (void)countedTooLong;
  (void)countedUnterminated, (void)countedNowhere, (void)countedHuge, (void)countedWithoutText;
  (void)isdbS;
  return 0;
}
