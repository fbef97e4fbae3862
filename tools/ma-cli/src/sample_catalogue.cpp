// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The built-in sample receiver catalogue.
#include "sample_catalogue.h"

#include "item_kinds.h"
#include "ma/mdc_selection_uris.h"
#include "ma/mdc_vfs_user_data_dr.h"

namespace ma_cli {

namespace {

typedef boost::shared_ptr<ma::VfsFixedFolder> FolderPtr;
typedef boost::shared_ptr<ma::ItemInfo> ItemPtr;

// 2026-11-20 00:00:00 UTC, the day the sample's clock stands at.
constexpr long long kSampleDay = 1795132800LL;
constexpr long long kDay = 86400;
constexpr long long kHour = 3600;

FolderPtr addFolder(FolderPtr const& parent, std::string const& caption, std::string const& uuid) {
  FolderPtr folder(new ma::VfsFixedFolder(makeItem(ma::ITEM_TYPE_FOLDER, caption, uuid)));
  if (parent) parent->addEntry(folder);
  return folder;
}

void addLeaf(FolderPtr const& parent, ItemPtr const& item,
             boost::shared_ptr<ma::VfsUserData> const& userData = {}) {
  parent->addEntry(boost::shared_ptr<ma::VfsEntry>(new ma::VfsFixedEntry(item, userData)));
}

// The locator of a file on the sample's USB volume, as a selection URI.
std::string usbLocator(std::string const& path) {
  ma::SelectionStrings parts;
  parts.sourceType = "file";
  parts.volume = "usb0";
  parts.path = path;
  std::string uri;
  mdcSelectionCreate(uri, parts);
  return uri;
}

// A file on the USB volume: a record of `kind` with locator, size and
// date, added to `folder`. Returned for the caller's further fields.
ItemPtr addFile(FolderPtr const& folder, ma::itemType kind, std::string const& caption,
                std::string const& uuid, std::string const& path, unsigned long long size,
                long long date) {
  ItemPtr item = makeItem(kind, caption, uuid);
  item->setItemLocator(usbLocator(path));
  item->setFileSize(size);
  item->setDateNumeric(date);
  addLeaf(folder, item);
  return item;
}

void addChannel(FolderPtr const& tv, std::string const& caption, std::string const& uuid,
                unsigned int lcn, std::string const& description,
                std::string const& longDescription) {
  ItemPtr channel = makeItem(ma::ITEM_TYPE_VIDEO, caption, uuid);
  channel->setItemSubType("channel");
  channel->setLcn(lcn);
  channel->setNetworkID(8468);  // 0x2114, a terrestrial network
  channel->setTunerUUID("UUID-tuner-dvbt2-0");
  channel->setStationName(caption);
  channel->setStationDescription(description);
  channel->setLongStationDescription(longDescription);
  channel->setItemLocator("dvbt://8468.1025." + std::to_string(27 + lcn));
  addLeaf(tv, channel);
}

struct Recording {
  char const* caption;
  char const* uuid;
  char const* station;
  unsigned int channel;
  long long start;  // seconds since 1970
  int minutes;
};

ItemPtr makeRecording(Recording const& recording) {
  ItemPtr item = makeItem(ma::ITEM_TYPE_VIDEO, recording.caption, recording.uuid);
  auto& video = static_cast<ma::VideoItemInfo&>(*item);
  item->setItemSubType("recording");
  item->setItemLocator(std::string("pvr://hdd0/") + recording.uuid + ".ts");
  item->setStationName(recording.station);
  item->setDateNumeric(recording.start);
  item->setFileSize(static_cast<unsigned long long>(recording.minutes) * 60u * 1000000u);
  item->setRecStartTime(std::to_string(recording.start));
  item->setRecEndTime(std::to_string(recording.start + recording.minutes * 60LL));
  item->setRecDuration(std::to_string(recording.minutes * 60));
  item->setRecTsId("1025");
  item->setRecOnId("8468");
  item->setRecServiceId(std::to_string(27 + recording.channel));
  item->setRecChnum(static_cast<int>(recording.channel));
  video.setStartTime(std::to_string(recording.start));
  video.setEndTime(std::to_string(recording.start + recording.minutes * 60LL));
  return item;
}

void addTv(FolderPtr const& root) {
  FolderPtr tv = addFolder(root, "TV", "UUID-tv");
  addChannel(tv, "Das Erste HD", "UUID-tv-001", 1, "Das Erste", "Erstes Deutsches Fernsehen");
  addChannel(tv, "ZDF HD", "UUID-tv-002", 2, "ZDF", "Zweites Deutsches Fernsehen");
  addChannel(tv, "arte HD", "UUID-tv-003", 3, "arte", "Europaeischer Kulturkanal");
}

void addRecordings(FolderPtr const& root) {
  FolderPtr recordings = addFolder(root, "Recordings", "UUID-rec");

  // Finished, unencrypted.
  ItemPtr tatort =
      makeRecording({"Tatort: Borowski", "UUID-rec-001", "Das Erste HD", 1, kSampleDay - 5 * kDay + 20 * kHour, 90});
  addLeaf(recordings, tatort,
          boost::shared_ptr<ma::VfsUserData>(new VfsUserDataDR(false, 0, 5400000, 0, 0, 0, nullptr)));

  // Still recording into a circular buffer.
  ItemPtr news =
      makeRecording({"Tagesschau", "UUID-rec-002", "Das Erste HD", 1, kSampleDay + 20 * kHour, 15});
  news->setRecEventType("running");
  addLeaf(recordings, news,
          boost::shared_ptr<ma::VfsUserData>(new VfsUserDataDR(true, 120000, 480000, 0, 900000, 0, nullptr)));

  // Finished and encrypted with a content key.
  ItemPtr comedy =
      makeRecording({"Der Tatortreiniger", "UUID-rec-003", "arte HD", 3, kSampleDay - 2 * kDay + 22 * kHour, 30});
  comedy->setEncryptionScheme("aes-128-cbc");
  comedy->setEncryptionInfo("key slot 1");
  unsigned char key[VfsUserDataDR::kKeySize];
  for (int i = 0; i < VfsUserDataDR::kKeySize; ++i) key[i] = static_cast<unsigned char>(0xA0 + i);
  addLeaf(recordings, comedy,
          boost::shared_ptr<ma::VfsUserData>(new VfsUserDataDR(false, 0, 1800000, 0, 0, 1, key)));
}

void addMusic(FolderPtr const& usb) {
  FolderPtr music = addFolder(usb, "Music", "UUID-usb-music");
  FolderPtr album = addFolder(music, "Kind of Blue", "UUID-usb-album-1");
  struct Track {
    char const* caption;
    char const* number;
    unsigned long long size;
  };
  Track const tracks[] = {{"So What", "1", 8786124}, {"Freddie Freeloader", "2", 9354240},
                          {"Blue in Green", "3", 5267712}};
  int index = 1;
  for (Track const& track : tracks) {
    ItemPtr item = addFile(album, ma::ITEM_TYPE_MUSIC, track.caption, "UUID-usb-track-" + std::to_string(index),
                           std::string("Music/Kind of Blue/0") + track.number + ".flac", track.size,
                           kSampleDay - 30 * kDay + index * 60);
    item->setArtist("Miles Davis");
    item->setAlbum("Kind of Blue");
    item->setAlbumUUID("UUID-usb-album-1");
    item->setTrackNum(track.number);
    item->setYear("1959");
    item->setGenre("Jazz");
    item->setBitrate("1411");
    ++index;
  }
  addFile(music, ma::ITEM_TYPE_PLAYLIST, "Evening.m3u", "UUID-usb-playlist-1", "Music/Evening.m3u", 212,
          kSampleDay - 3 * kDay);
}

void addUsb(FolderPtr const& root) {
  FolderPtr usb = addFolder(root, "USB", "UUID-usb");
  addMusic(usb);

  FolderPtr videos = addFolder(usb, "Videos", "UUID-usb-videos");
  ItemPtr holiday = addFile(videos, ma::ITEM_TYPE_VIDEO, "Holiday 2026.mkv", "UUID-usb-video-1",
                            "Videos/Holiday 2026.mkv", 734003200, kSampleDay - 60 * kDay);
  auto& video = static_cast<ma::VideoItemInfo&>(*holiday);
  holiday->setActor("The family");
  holiday->setDirector("Grandpa");
  holiday->setPlaytime("00:42:17");
  video.setStartTime("00:00:00");
  video.setEndTime("00:42:17");

  FolderPtr pictures = addFolder(usb, "Pictures", "UUID-usb-pictures");
  addFile(pictures, ma::ITEM_TYPE_PICTURE, "Beach.jpg", "UUID-usb-picture-1", "Pictures/Beach.jpg", 2457600,
          kSampleDay - 61 * kDay);
  addFile(pictures, ma::ITEM_TYPE_PICTURE, "Sunset.jpg", "UUID-usb-picture-2", "Pictures/Sunset.jpg", 3145728,
          kSampleDay - 59 * kDay);

  addFile(usb, ma::ITEM_TYPE_DOCUMENT, "Manual.pdf", "UUID-usb-document-1", "Manual.pdf", 1048576,
          kSampleDay - 400 * kDay);
  ItemPtr app = addFile(usb, ma::ITEM_TYPE_INTERACTIVE, "Weather.html", "UUID-usb-app-1", "Weather.html", 18432,
                        kSampleDay - 10 * kDay);
  app->setDescription("Weather forecast service");
  addFile(usb, ma::ITEM_TYPE_OTHER, "Holiday 2026.srt", "UUID-usb-other-1", "Videos/Holiday 2026.srt", 4096,
          kSampleDay - 60 * kDay);
  addFile(usb, ma::ITEM_TYPE_UNKNOWN, "update.bin", "UUID-usb-unknown-1", "update.bin", 16777216,
          kSampleDay - 100 * kDay);
}

}  // namespace

Catalogue makeSampleCatalogue() {
  FolderPtr const root = addFolder(FolderPtr(), "Receiver", "UUID-root");
  addTv(root);
  addRecordings(root);
  addUsb(root);
  Catalogue catalogue;
  catalogue.root = root;
  return catalogue;
}

}  // namespace ma_cli
