// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The item message round trip of a fully populated video item, and each
// direction alone, beside the floor of what the message needs at the least
// (one malloc + copy + free per string, an item built with the same setters)
// and beside the same fields through protobuf (on the host; the target's
// build has no protobuf).
//
// The round trip is measured in batches of 1 and of 100 items (argument):
// a batch converts each item to a message, each message back to an item,
// and only then releases them all, as a service answering a page of a
// folder does; the allocator's work differs between the two.
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "harness/bench_case.h"
#ifdef MA_BENCH_PROTOBUF_PEER
#include "item_peer.h"
#endif
#include "ma/mdc_item.h"
#include "ma/rpc/mdc_item_msg.h"

namespace {

typedef boost::shared_ptr<ma::VideoItemInfo> VideoPtr;

// Values for every field, strings of 20 to 40 characters (past the
// short-string buffer, as real titles and locators are).
VideoPtr populatedVideo() {
  VideoPtr item(new ma::VideoItemInfo("Tagesschau 20:00 with weather", "0f8c2d3e-4b5a-4c6d-8e7f-9a0b1c2d3e4f"));
  item->setItemSubType("itemSubType of the evening news");
  item->setOriginalAncestor("originalAncestor of the evening news");
  item->setCreator("creator of the evening news");
  item->setOriginalUuid("originalUuid of the evening news");
  item->setOriginalVolume("originalVolume of the evening news");
  item->setItemLocator("locator of the evening news");
  item->setPlaytime("playtime of the evening news");
  item->setThumbURL("thumbURL of the evening news");
  item->setStationName("stationName of the evening news");
  item->setStationDescription("stationDescription of the evening news");
  item->setLongStationDescription("longStationDescription of the evening news");
  item->setTitle("title of the evening news");
  item->setGenre("genre of the evening news");
  item->setDescription("description of the evening news");
  item->setComment("comment of the evening news");
  item->setDate("date of the evening news");
  item->setUserIndex("userIndex of the evening news");
  item->setParentalRating("parentalRating of the evening news");
  item->setCreationTime("creationTime of the evening news");
  item->setModificationTime("modificationTime of the evening news");
  item->setEncryptionScheme("encryptionScheme of the evening news");
  item->setEncryptionInfo("encryptionInfo of the evening news");
  item->setDisplayRules("displayRules of the evening news");
  item->setPreviewPage(static_cast<int>(sizeof "previewPage"));
  item->setSubtitlePage(static_cast<int>(sizeof "subtitlePage"));
  item->setEncoding(static_cast<int>(sizeof "encoding"));
  item->setReceivable(false);
  item->setFileSize(1234567890ULL);
  item->setDateNumeric(1795000000LL);
  item->setAttributes(static_cast<int>(sizeof "attributes"));
  item->setMaxPosition(static_cast<unsigned int>(sizeof "maxPosition"));
  item->setResumePosition(static_cast<unsigned int>(sizeof "resumePosition"));
  item->setVolumeCorrection(static_cast<int>(sizeof "volumeCorrection"));
  item->setVisible(false);
  item->setSelectable(false);
  item->setSoundSelection(static_cast<unsigned int>(sizeof "soundSelection"));
  item->setTunerUUID("tunerUUID of the evening news");
  item->setLcn(static_cast<unsigned int>(sizeof "lcn"));
  item->setEpgTheme(static_cast<int>(sizeof "epgTheme"));
  item->setNetworkID(static_cast<int>(sizeof "networkID"));
  item->setArtist("artist of the evening news");
  item->setAlbum("album of the evening news");
  item->setAlbumUUID("albumUUID of the evening news");
  item->setTrackNum("trackNum of the evening news");
  item->setYear("year of the evening news");
  item->setBitrate("bitrate of the evening news");
  item->setRecStartTime("recStartTime of the evening news");
  item->setRecEndTime("recEndTime of the evening news");
  item->setRecDuration("recDuration of the evening news");
  item->setRecTsId("recTsId of the evening news");
  item->setRecServiceId("recServiceId of the evening news");
  item->setRecOnId("recOnId of the evening news");
  item->setRecEventType("recEventType of the evening news");
  item->setRecFailType("recFailType of the evening news");
  item->setRecChnum(static_cast<int>(sizeof "recChnum"));
  item->setActor("actor of the evening news");
  item->setDirector("director of the evening news");
  item->setStartTime("2026-11-23T20:00:00+01:00");
  item->setEndTime("2026-11-23T20:15:00+01:00");
  return item;
}

// Every text the message carries.
std::vector<std::string> textsOf(ma::VideoItemInfo const& item) {
  std::vector<std::string> texts;
  texts.push_back(item.getUUID());
  texts.push_back(item.getItemSubType());
  texts.push_back(item.getCaption());
  texts.push_back(item.getOriginalAncestor());
  texts.push_back(item.getCreator());
  texts.push_back(item.getOriginalUuid());
  texts.push_back(item.getOriginalVolume());
  texts.push_back(item.getItemLocator());
  texts.push_back(item.getPlaytime());
  texts.push_back(item.getThumbURL());
  texts.push_back(item.getStationName());
  texts.push_back(item.getStationDescription());
  texts.push_back(item.getLongStationDescription());
  texts.push_back(item.getTitle());
  texts.push_back(item.getGenre());
  texts.push_back(item.getDescription());
  texts.push_back(item.getComment());
  texts.push_back(item.getDate());
  texts.push_back(item.getUserIndex());
  texts.push_back(item.getParentalRating());
  texts.push_back(item.getCreationTime());
  texts.push_back(item.getModificationTime());
  texts.push_back(item.getEncryptionScheme());
  texts.push_back(item.getEncryptionInfo());
  texts.push_back(item.getDisplayRules());
  texts.push_back(item.getTunerUUID());
  texts.push_back(item.getArtist());
  texts.push_back(item.getAlbum());
  texts.push_back(item.getAlbumUUID());
  texts.push_back(item.getTrackNum());
  texts.push_back(item.getYear());
  texts.push_back(item.getBitrate());
  texts.push_back(item.getRecStartTime());
  texts.push_back(item.getRecEndTime());
  texts.push_back(item.getRecDuration());
  texts.push_back(item.getRecTsId());
  texts.push_back(item.getRecServiceId());
  texts.push_back(item.getRecOnId());
  texts.push_back(item.getRecEventType());
  texts.push_back(item.getRecFailType());
  texts.push_back(item.getActor());
  texts.push_back(item.getDirector());
  texts.push_back(item.getStartTime());
  texts.push_back(item.getEndTime());
  return texts;
}

// The blocks of one message at its floor: the video payload block and one
// buffer per text.
constexpr std::size_t kMaxTexts = 64;
struct MessageBlocks {
  void* payload;
  char* texts[kMaxTexts];
};

// The floor of writing a message: the video payload block and each text in
// a new malloc() buffer, held as the message holds them.
__attribute__((noinline)) void writeMessageFloor(std::vector<std::string> const& texts,
                                                 MessageBlocks& blocks) {
  blocks.payload = std::malloc(sizeof(itemMsgMaItemVideo_t));
  bench::keep(blocks.payload);
  const std::size_t count = texts.size() < kMaxTexts ? texts.size() : kMaxTexts;
  for (std::size_t i = 0; i < count; ++i) {
    blocks.texts[i] = static_cast<char*>(std::malloc(texts[i].size() + 1));
    std::memcpy(blocks.texts[i], texts[i].data(), texts[i].size() + 1);
  }
  bench::keep(blocks.texts[0]);
}

// The floor of releasing a message: its blocks freed from the last to the
// first, as releasing the message does.
__attribute__((noinline)) void releaseMessageFloor(std::size_t count, MessageBlocks& blocks) {
  for (std::size_t i = count < kMaxTexts ? count : kMaxTexts; i > 0; --i) {
    std::free(blocks.texts[i - 1]);
  }
  std::free(blocks.payload);
}

// A message written at its floor and released at once.
__attribute__((noinline)) void copyTextsFloor(std::vector<std::string> const& texts) {
  MessageBlocks blocks;
  writeMessageFloor(texts, blocks);
  releaseMessageFloor(texts.size(), blocks);
}

// The floor of reading a message: the item built with the same setters from
// values that are already strings.
__attribute__((noinline)) VideoPtr buildItemFloor(ma::VideoItemInfo const& source) {
  VideoPtr item(new ma::VideoItemInfo(source.getCaption(), source.getUUID()));
  item->setItemSubType(source.getItemSubType());
  item->setOriginalAncestor(source.getOriginalAncestor());
  item->setCreator(source.getCreator());
  item->setOriginalUuid(source.getOriginalUuid());
  item->setOriginalVolume(source.getOriginalVolume());
  item->setItemLocator(source.getItemLocator());
  item->setPlaytime(source.getPlaytime());
  item->setThumbURL(source.getThumbURL());
  item->setStationName(source.getStationName());
  item->setStationDescription(source.getStationDescription());
  item->setLongStationDescription(source.getLongStationDescription());
  item->setTitle(source.getTitle());
  item->setGenre(source.getGenre());
  item->setDescription(source.getDescription());
  item->setComment(source.getComment());
  item->setDate(source.getDate());
  item->setUserIndex(source.getUserIndex());
  item->setParentalRating(source.getParentalRating());
  item->setCreationTime(source.getCreationTime());
  item->setModificationTime(source.getModificationTime());
  item->setEncryptionScheme(source.getEncryptionScheme());
  item->setEncryptionInfo(source.getEncryptionInfo());
  item->setDisplayRules(source.getDisplayRules());
  item->setPreviewPage(source.getPreviewPage());
  item->setSubtitlePage(source.getSubtitlePage());
  item->setEncoding(source.getEncoding());
  item->setReceivable(source.isReceivable());
  item->setFileSize(source.getFileSize());
  item->setDateNumeric(source.getDateNumeric());
  item->setAttributes(source.getAttributes());
  item->setMaxPosition(source.getMaxPosition());
  item->setResumePosition(source.getResumePosition());
  item->setVolumeCorrection(source.getVolumeCorrection());
  item->setVisible(source.isVisible());
  item->setSelectable(source.isSelectable());
  item->setSoundSelection(source.getSoundSelection());
  item->setTunerUUID(source.getTunerUUID());
  item->setLcn(source.getLcn());
  item->setEpgTheme(source.getEpgTheme());
  item->setNetworkID(source.getNetworkID());
  item->setArtist(source.getArtist());
  item->setAlbum(source.getAlbum());
  item->setAlbumUUID(source.getAlbumUUID());
  item->setTrackNum(source.getTrackNum());
  item->setYear(source.getYear());
  item->setBitrate(source.getBitrate());
  item->setRecStartTime(source.getRecStartTime());
  item->setRecEndTime(source.getRecEndTime());
  item->setRecDuration(source.getRecDuration());
  item->setRecTsId(source.getRecTsId());
  item->setRecServiceId(source.getRecServiceId());
  item->setRecOnId(source.getRecOnId());
  item->setRecEventType(source.getRecEventType());
  item->setRecFailType(source.getRecFailType());
  item->setRecChnum(source.getRecChnum());
  item->setActor(source.getActor());
  item->setDirector(source.getDirector());
  item->setStartTime(source.getStartTime());
  item->setEndTime(source.getEndTime());
  bench::keep(item.get());
  return item;
}

// A batch of messages made in place (a message is neither copyable nor
// movable), in storage made once.
class MessageBatch {
 public:
  explicit MessageBatch(long size)
      : size_(static_cast<std::size_t>(size)),
        storage_(new unsigned char[size_ * sizeof(_itemMsgMaItem_struct)]) {}

  _itemMsgMaItem_struct* at(std::size_t i) {
    return reinterpret_cast<_itemMsgMaItem_struct*>(storage_.get()) + i;
  }
  std::size_t size() const { return size_; }

 private:
  std::size_t size_;
  std::unique_ptr<unsigned char[]> storage_;
};

const std::vector<long> kBatches = {1, 100};
long perItem(long batch) { return batch; }

const bench::Registration kMessage([] {
  // A batch: each item -> message, each message -> item, then all released.
  bench::addCase("message.round_trip", "ours", kBatches, [](long batch) -> bench::Operation {
    VideoPtr item = populatedVideo();
    auto messages = std::make_shared<MessageBatch>(batch);
    auto items = std::make_shared<std::vector<boost::shared_ptr<ma::ItemInfo>>>(messages->size());
    return [item, messages, items] {
      for (std::size_t i = 0; i < messages->size(); ++i) {
        new (messages->at(i)) _itemMsgMaItem_struct(*item);
      }
      for (std::size_t i = 0; i < messages->size(); ++i) (*items)[i] = *messages->at(i);
      for (std::size_t i = 0; i < messages->size(); ++i) {
        messages->at(i)->~_itemMsgMaItem_struct();
        (*items)[i].reset();
      }
    };
  }, perItem);
  bench::addCase("message.round_trip", "floor", kBatches, [](long batch) -> bench::Operation {
    VideoPtr item = populatedVideo();
    auto texts = std::make_shared<std::vector<std::string>>(textsOf(*item));
    auto messages = std::make_shared<std::vector<MessageBlocks>>(static_cast<std::size_t>(batch));
    auto items = std::make_shared<std::vector<VideoPtr>>(messages->size());
    return [item, texts, messages, items] {
      for (MessageBlocks& blocks : *messages) writeMessageFloor(*texts, blocks);
      for (VideoPtr& built : *items) built = buildItemFloor(*item);
      for (std::size_t i = 0; i < messages->size(); ++i) {
        releaseMessageFloor(texts->size(), (*messages)[i]);
        (*items)[i].reset();
      }
    };
  }, perItem);
#ifdef MA_BENCH_PROTOBUF_PEER
  bench::addCase("message.round_trip", "peer", {1}, [](long) -> bench::Operation {
    VideoPtr item = populatedVideo();
    return [item] {
      ma_bench::VideoItem out;
      bench::toPeer(*item, out);
      std::string wire;
      out.SerializeToString(&wire);
      ma_bench::VideoItem in;
      in.ParseFromString(wire);
      VideoPtr back = bench::fromPeer(in);
      bench::keep(back.get());
    };
  });
#endif

  // item -> message, released again
  bench::addCase("message.to_message", "ours", {1}, [](long) -> bench::Operation {
    VideoPtr item = populatedVideo();
    return [item] {
      _itemMsgMaItem_struct msg(*item);
      bench::keep(msg.kind);
    };
  });
  bench::addCase("message.to_message", "floor", {1}, [](long) -> bench::Operation {
    VideoPtr item = populatedVideo();
    auto texts = std::make_shared<std::vector<std::string>>(textsOf(*item));
    return [texts] { copyTextsFloor(*texts); };
  });

  // message -> item, the item released again
  bench::addCase("message.to_item", "ours", {1}, [](long) -> bench::Operation {
    auto msg = std::make_shared<_itemMsgMaItem_struct>(*populatedVideo());
    return [msg] {
      boost::shared_ptr<ma::ItemInfo> item = ma::rpc::convertMaItem(*msg);
      bench::keep(item.get());
    };
  });
  bench::addCase("message.to_item", "floor", {1}, [](long) -> bench::Operation {
    VideoPtr item = populatedVideo();
    return [item] { buildItemFloor(*item); };
  });
});

}  // namespace
