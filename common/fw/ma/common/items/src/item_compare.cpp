// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Comparison of item records: identity, kind, display texts, locator, tuner
// and channel numbers and recording data, read through the facade getters in
// a fixed order and stopping at the first difference. Sizes, positions, file
// times, protection data and flags take no part.
#include "ma/mdc_item.h"

namespace ma {

bool ItemInfo::operator==(ItemInfo const& other) {
  return getUUID() == other.getUUID() &&
         getItemType() == other.getItemType() &&
         getPlaytime() == other.getPlaytime() &&
         getThumbURL() == other.getThumbURL() &&
         getItemLocator() == other.getItemLocator() &&
         getCaption() == other.getCaption() &&
         getStationName() == other.getStationName() &&
         getStationDescription() == other.getStationDescription() &&
         getLongStationDescription() == other.getLongStationDescription() &&
         getTitle() == other.getTitle() &&
         getArtist() == other.getArtist() &&
         getAlbum() == other.getAlbum() &&
         getAlbumUUID() == other.getAlbumUUID() &&
         getTrackNum() == other.getTrackNum() &&
         getUserIndex() == other.getUserIndex() &&
         getGenre() == other.getGenre() &&
         getYear() == other.getYear() &&
         getBitrate() == other.getBitrate() &&
         getActor() == other.getActor() &&
         getDirector() == other.getDirector() &&
         getDescription() == other.getDescription() &&
         getComment() == other.getComment() &&
         getDate() == other.getDate() &&
         getTunerUUID() == other.getTunerUUID() &&
         getLcn() == other.getLcn() &&
         getEpgTheme() == other.getEpgTheme() &&
         getNetworkID() == other.getNetworkID() &&
         getRecStartTime() == other.getRecStartTime() &&
         getRecEndTime() == other.getRecEndTime() &&
         getRecDuration() == other.getRecDuration() &&
         getRecTsId() == other.getRecTsId() &&
         getRecServiceId() == other.getRecServiceId() &&
         getRecOnId() == other.getRecOnId() &&
         getRecEventType() == other.getRecEventType() &&
         getRecFailType() == other.getRecFailType() &&
         getRecChnum() == other.getRecChnum() &&
         getOriginalAncestor() == other.getOriginalAncestor() &&
         getCreator() == other.getCreator();
}

bool ItemInfo::operator!=(ItemInfo const& other) { return !(*this == other); }

}  // namespace ma
