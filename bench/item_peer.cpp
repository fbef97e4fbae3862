// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The peer's two conversions: a video item into the protobuf message and
// back, field by field through the same accessors the library uses.
// Generated once from the item field list; keep it in step with it.
#include "item_peer.h"

namespace bench {

void toPeer(ma::VideoItemInfo const& item, ma_bench::VideoItem& peer) {
  peer.set_itemsubtype(item.getItemSubType());
  peer.set_caption(item.getCaption());
  peer.set_uuid(item.getUUID());
  peer.set_originalancestor(item.getOriginalAncestor());
  peer.set_creator(item.getCreator());
  peer.set_originaluuid(item.getOriginalUuid());
  peer.set_originalvolume(item.getOriginalVolume());
  peer.set_locator(item.getItemLocator());
  peer.set_playtime(item.getPlaytime());
  peer.set_thumburl(item.getThumbURL());
  peer.set_stationname(item.getStationName());
  peer.set_stationdescription(item.getStationDescription());
  peer.set_longstationdescription(item.getLongStationDescription());
  peer.set_title(item.getTitle());
  peer.set_genre(item.getGenre());
  peer.set_description(item.getDescription());
  peer.set_comment(item.getComment());
  peer.set_date(item.getDate());
  peer.set_userindex(item.getUserIndex());
  peer.set_parentalrating(item.getParentalRating());
  peer.set_creationtime(item.getCreationTime());
  peer.set_modificationtime(item.getModificationTime());
  peer.set_encryptionscheme(item.getEncryptionScheme());
  peer.set_encryptioninfo(item.getEncryptionInfo());
  peer.set_displayrules(item.getDisplayRules());
  peer.set_previewpage(item.getPreviewPage());
  peer.set_subtitlepage(item.getSubtitlePage());
  peer.set_encoding(item.getEncoding());
  peer.set_receivable(item.isReceivable());
  peer.set_filesize(item.getFileSize());
  peer.set_datenumeric(item.getDateNumeric());
  peer.set_attributes(item.getAttributes());
  peer.set_maxposition(item.getMaxPosition());
  peer.set_resumeposition(item.getResumePosition());
  peer.set_volumecorrection(item.getVolumeCorrection());
  peer.set_visible(item.isVisible());
  peer.set_selectable(item.isSelectable());
  peer.set_soundselection(item.getSoundSelection());
  peer.set_tuneruuid(item.getTunerUUID());
  peer.set_lcn(item.getLcn());
  peer.set_epgtheme(item.getEpgTheme());
  peer.set_networkid(item.getNetworkID());
  peer.set_artist(item.getArtist());
  peer.set_album(item.getAlbum());
  peer.set_albumuuid(item.getAlbumUUID());
  peer.set_tracknum(item.getTrackNum());
  peer.set_year(item.getYear());
  peer.set_bitrate(item.getBitrate());
  peer.set_recstarttime(item.getRecStartTime());
  peer.set_recendtime(item.getRecEndTime());
  peer.set_recduration(item.getRecDuration());
  peer.set_rectsid(item.getRecTsId());
  peer.set_recserviceid(item.getRecServiceId());
  peer.set_reconid(item.getRecOnId());
  peer.set_receventtype(item.getRecEventType());
  peer.set_recfailtype(item.getRecFailType());
  peer.set_recchnum(item.getRecChnum());
  peer.set_actor(item.getActor());
  peer.set_director(item.getDirector());
  peer.set_starttime(item.getStartTime());
  peer.set_endtime(item.getEndTime());
}

boost::shared_ptr<ma::VideoItemInfo> fromPeer(ma_bench::VideoItem const& peer) {
  boost::shared_ptr<ma::VideoItemInfo> item(new ma::VideoItemInfo(peer.caption(), peer.uuid()));
  item->setItemSubType(peer.itemsubtype());
  item->setOriginalAncestor(peer.originalancestor());
  item->setCreator(peer.creator());
  item->setOriginalUuid(peer.originaluuid());
  item->setOriginalVolume(peer.originalvolume());
  item->setItemLocator(peer.locator());
  item->setPlaytime(peer.playtime());
  item->setThumbURL(peer.thumburl());
  item->setStationName(peer.stationname());
  item->setStationDescription(peer.stationdescription());
  item->setLongStationDescription(peer.longstationdescription());
  item->setTitle(peer.title());
  item->setGenre(peer.genre());
  item->setDescription(peer.description());
  item->setComment(peer.comment());
  item->setDate(peer.date());
  item->setUserIndex(peer.userindex());
  item->setParentalRating(peer.parentalrating());
  item->setCreationTime(peer.creationtime());
  item->setModificationTime(peer.modificationtime());
  item->setEncryptionScheme(peer.encryptionscheme());
  item->setEncryptionInfo(peer.encryptioninfo());
  item->setDisplayRules(peer.displayrules());
  item->setPreviewPage(peer.previewpage());
  item->setSubtitlePage(peer.subtitlepage());
  item->setEncoding(peer.encoding());
  item->setReceivable(peer.receivable());
  item->setFileSize(peer.filesize());
  item->setDateNumeric(peer.datenumeric());
  item->setAttributes(peer.attributes());
  item->setMaxPosition(peer.maxposition());
  item->setResumePosition(peer.resumeposition());
  item->setVolumeCorrection(peer.volumecorrection());
  item->setVisible(peer.visible());
  item->setSelectable(peer.selectable());
  item->setSoundSelection(peer.soundselection());
  item->setTunerUUID(peer.tuneruuid());
  item->setLcn(peer.lcn());
  item->setEpgTheme(peer.epgtheme());
  item->setNetworkID(peer.networkid());
  item->setArtist(peer.artist());
  item->setAlbum(peer.album());
  item->setAlbumUUID(peer.albumuuid());
  item->setTrackNum(peer.tracknum());
  item->setYear(peer.year());
  item->setBitrate(peer.bitrate());
  item->setRecStartTime(peer.recstarttime());
  item->setRecEndTime(peer.recendtime());
  item->setRecDuration(peer.recduration());
  item->setRecTsId(peer.rectsid());
  item->setRecServiceId(peer.recserviceid());
  item->setRecOnId(peer.reconid());
  item->setRecEventType(peer.receventtype());
  item->setRecFailType(peer.recfailtype());
  item->setRecChnum(peer.recchnum());
  item->setActor(peer.actor());
  item->setDirector(peer.director());
  item->setStartTime(peer.starttime());
  item->setEndTime(peer.endtime());
  return item;
}

}  // namespace bench
