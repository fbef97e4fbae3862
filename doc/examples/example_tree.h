// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// What the guide's example programs share: a check that ends the program on
// a wrong answer, the caption of an entry, and the sample tree that most of
// them browse.
//
// The tree, built by buildMediaTree():
//
//   Media                      folder, UUID "UUID-media"
//   $0 Music                   folder, UUID "UUID-music"
//   $0$0 Yesterday             music track, UUID "UUID-track-1"
//   $1 Pictures                folder, UUID "UUID-pictures" (no children)
//   $2 Recordings              folder, UUID "UUID-recordings"
//   $2$0 Tatort                recording of 10 March 2024, UUID "UUID-rec-1"
//   $2$1 Abendschau            recording of 11 March 2024, UUID "UUID-rec-2"
//   $2$2 Bergdoktor            recording of 7 March 2024, UUID "UUID-rec-3"
#ifndef MA_EXAMPLES_EXAMPLE_TREE_H_
#define MA_EXAMPLES_EXAMPLE_TREE_H_

// [guide:helpers]
#include <cstdlib>
#include <iostream>
#include <string>

#include <boost/shared_ptr.hpp>

#include "ma/mdc_item.h"      // ma::ItemInfo
#include "ma/mdc_vfs_base.h"  // ma::VfsEntry

namespace example {

// Ends the program with status 1 when `ok` is false, naming what failed.
inline void check(bool ok, const char* what) {
  if (!ok) {
    std::cerr << "example failed: " << what << "\n";
    std::exit(1);
  }
}

// The caption of `entry`'s record, or "" without entry or record.
inline std::string captionOf(boost::shared_ptr<ma::VfsEntry> const& entry) {
  if (!entry) return "";
  boost::shared_ptr<ma::ItemInfo> record = entry->getItemInfo();
  return record ? record->getCaption() : "";
}

}  // namespace example
// [guide:end]

// [guide:tree-includes]
#include <string>

#include <boost/shared_ptr.hpp>

#include "ma/mdc_item.h"              // ma::FolderItemInfo, ma::MusicItemInfo, ma::VideoItemInfo
#include "ma/mdc_vfs_fixed.h"         // ma::VfsFixedFolder, ma::VfsFixedEntry
#include "ma/mdc_vfs_user_data_dr.h"  // VfsUserDataDR, in the global namespace
// [guide:end]

namespace example {

// [guide:make-entries]
// A folder: its record, shared, inside a folder entry, shared as well.
inline boost::shared_ptr<ma::VfsFixedFolder> makeFolder(std::string const& caption,
                                                         std::string const& uuid) {
  boost::shared_ptr<ma::ItemInfo> record(new ma::FolderItemInfo(caption, uuid));
  return boost::shared_ptr<ma::VfsFixedFolder>(new ma::VfsFixedFolder(record));
}

// A recording: a video record and the recorder's data, in a leaf entry.
inline boost::shared_ptr<ma::VfsFixedEntry> makeRecording(std::string const& title,
                                                          std::string const& uuid,
                                                          long long startSeconds) {
  boost::shared_ptr<ma::VideoItemInfo> record(new ma::VideoItemInfo(title, uuid));
  record->setStationName("Das Erste HD");
  record->setDateNumeric(startSeconds);  // the sort key of "newest first"
  record->setGenre("  Krimi\n");         // trimmed: "Krimi"
  // Finished recording, stream bounds 0..5400, no circular buffer, unencrypted.
  boost::shared_ptr<ma::VfsUserData> recorderData(
      new VfsUserDataDR(false, 0, 5400, 0, 0, 0, nullptr));
  return boost::shared_ptr<ma::VfsFixedEntry>(new ma::VfsFixedEntry(record, recorderData));
}
// [guide:end]

// [guide:build-tree]
inline boost::shared_ptr<ma::VfsFixedFolder> buildMediaTree() {
  boost::shared_ptr<ma::VfsFixedFolder> root = makeFolder("Media", "UUID-media");
  boost::shared_ptr<ma::VfsFixedFolder> music = makeFolder("Music", "UUID-music");
  boost::shared_ptr<ma::VfsFixedFolder> recordings = makeFolder("Recordings", "UUID-recordings");

  boost::shared_ptr<ma::ItemInfo> track(new ma::MusicItemInfo("Yesterday", "UUID-track-1"));
  track->setArtist("The Beatles");
  music->addEntry(boost::shared_ptr<ma::VfsEntry>(
      new ma::VfsFixedEntry(track, boost::shared_ptr<ma::VfsUserData>())));

  recordings->addEntry(makeRecording("Tatort", "UUID-rec-1", 1710098100));
  recordings->addEntry(makeRecording("Abendschau", "UUID-rec-2", 1710185400));
  recordings->addEntry(makeRecording("Bergdoktor", "UUID-rec-3", 1709838900));

  root->addEntry(music);                                    // $0
  root->addEntry(makeFolder("Pictures", "UUID-pictures"));  // $1
  root->addEntry(recordings);                               // $2
  return root;
}
// [guide:end]

}  // namespace example

#endif  // MA_EXAMPLES_EXAMPLE_TREE_H_
