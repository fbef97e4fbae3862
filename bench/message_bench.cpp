// The item message round trip of a fully populated video item, and each
// direction alone, beside the floor of what the message needs at the least
// (one malloc + copy + free per string, an item built with the same setters)
// and beside the same fields through protobuf.
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "harness/bench_case.h"
#include "item_peer.h"
#include "ma/mdc_item.h"
#include "ma/mdc_item_fields.h"
#include "ma/rpc/mdc_item_msg.h"

namespace {

typedef boost::shared_ptr<ma::VideoItemInfo> VideoPtr;

// Values for every field, strings of 20 to 40 characters (past the
// short-string buffer, as real titles and locators are).
#define MA_BENCH_FILL_STR(member, set) item->set(#member " of the evening news");
#define MA_BENCH_FILL_NUMBER(member, set) item->set(static_cast<int>(sizeof #member));
#define MA_BENCH_FILL_TYPE(member, set)
#define MA_BENCH_FILL_UUID(member, set)
#define MA_BENCH_FILL_WORD(member, set)
#define MA_BENCH_FILL_SUBTYPE MA_BENCH_FILL_STR
#define MA_BENCH_FILL_I32 MA_BENCH_FILL_NUMBER
#define MA_BENCH_FILL_U32(member, set) item->set(static_cast<unsigned int>(sizeof #member));
#define MA_BENCH_FILL_I64(member, set) item->set(1795000000LL);
#define MA_BENCH_FILL_U64(member, set) item->set(1234567890ULL);
#define MA_BENCH_FILL_BOOL(member, set) item->set(false);
#define MA_BENCH_FILL(kind, member, get, set, storeGet, storeSet, q, stores, initial) \
  MA_BENCH_FILL_##kind(member, set)

VideoPtr populatedVideo() {
  VideoPtr item(new ma::VideoItemInfo("Tagesschau 20:00 with weather", "0f8c2d3e-4b5a-4c6d-8e7f-9a0b1c2d3e4f"));
  MA_ITEM_FIELDS(MA_BENCH_FILL)
  item->setActor("actor of the evening news");
  item->setDirector("director of the evening news");
  item->setStartTime("2026-11-23T20:00:00+01:00");
  item->setEndTime("2026-11-23T20:15:00+01:00");
  return item;
}

// Every text the message carries, in the item's order.
#define MA_BENCH_TEXT_STR(get) texts.push_back(item.get());
#define MA_BENCH_TEXT_OTHER(get)
#define MA_BENCH_TEXT_SUBTYPE MA_BENCH_TEXT_STR
#define MA_BENCH_TEXT_UUID MA_BENCH_TEXT_STR
#define MA_BENCH_TEXT_TYPE MA_BENCH_TEXT_OTHER
#define MA_BENCH_TEXT_WORD MA_BENCH_TEXT_OTHER
#define MA_BENCH_TEXT_I32 MA_BENCH_TEXT_OTHER
#define MA_BENCH_TEXT_U32 MA_BENCH_TEXT_OTHER
#define MA_BENCH_TEXT_I64 MA_BENCH_TEXT_OTHER
#define MA_BENCH_TEXT_U64 MA_BENCH_TEXT_OTHER
#define MA_BENCH_TEXT_BOOL MA_BENCH_TEXT_OTHER
#define MA_BENCH_TEXT(kind, member, get, set, storeGet, storeSet, q, stores, initial) \
  MA_BENCH_TEXT_##kind(get)

std::vector<std::string> textsOf(ma::VideoItemInfo const& item) {
  std::vector<std::string> texts;
  MA_ITEM_FIELDS(MA_BENCH_TEXT)
  texts.push_back(item.getActor());
  texts.push_back(item.getDirector());
  texts.push_back(item.getStartTime());
  texts.push_back(item.getEndTime());
  return texts;
}

// The floor of writing a message: the video payload block and each text in
// a new malloc() buffer, all held at once as the message holds them, then
// freed from the last to the first, as releasing the message does.
__attribute__((noinline)) void copyTextsFloor(std::vector<std::string> const& texts) {
  void* payload = std::malloc(sizeof(itemMsgMaItemVideo_t));
  bench::keep(payload);
  char* buffers[64] = {};
  const std::size_t count = texts.size() < 64 ? texts.size() : 64;
  for (std::size_t i = 0; i < count; ++i) {
    buffers[i] = static_cast<char*>(std::malloc(texts[i].size() + 1));
    std::memcpy(buffers[i], texts[i].data(), texts[i].size() + 1);
  }
  bench::keep(buffers[0]);
  for (std::size_t i = count; i > 0; --i) std::free(buffers[i - 1]);
  std::free(payload);
}

// The floor of reading a message: the item built with the same setters from
// values that are already strings.
#define MA_BENCH_COPY_SET(get, set) item->set(source.get());
#define MA_BENCH_COPY_NONE(get, set)
#define MA_BENCH_COPY_STR MA_BENCH_COPY_SET
#define MA_BENCH_COPY_SUBTYPE MA_BENCH_COPY_SET
#define MA_BENCH_COPY_I32 MA_BENCH_COPY_SET
#define MA_BENCH_COPY_U32 MA_BENCH_COPY_SET
#define MA_BENCH_COPY_I64 MA_BENCH_COPY_SET
#define MA_BENCH_COPY_U64 MA_BENCH_COPY_SET
#define MA_BENCH_COPY_BOOL MA_BENCH_COPY_SET
#define MA_BENCH_COPY_TYPE MA_BENCH_COPY_NONE
#define MA_BENCH_COPY_UUID MA_BENCH_COPY_NONE
#define MA_BENCH_COPY_WORD MA_BENCH_COPY_NONE
#define MA_BENCH_COPY(kind, member, get, set, storeGet, storeSet, q, stores, initial) \
  MA_BENCH_COPY_##kind(get, set)

__attribute__((noinline)) void buildItemFloor(ma::VideoItemInfo const& source) {
  VideoPtr item(new ma::VideoItemInfo(source.getCaption(), source.getUUID()));
  MA_ITEM_FIELDS(MA_BENCH_COPY)
  item->setActor(source.getActor());
  item->setDirector(source.getDirector());
  item->setStartTime(source.getStartTime());
  item->setEndTime(source.getEndTime());
  bench::keep(item.get());
}

const bench::Registration kMessage([] {
  // item -> message -> item -> release
  bench::addCase("message.round_trip", "ours", {1}, [](long) -> bench::Operation {
    VideoPtr item = populatedVideo();
    return [item] {
      _itemMsgMaItem_struct msg(*item);
      boost::shared_ptr<ma::ItemInfo> back = msg;
      bench::keep(back.get());
    };
  });
  bench::addCase("message.round_trip", "floor", {1}, [](long) -> bench::Operation {
    VideoPtr item = populatedVideo();
    auto texts = std::make_shared<std::vector<std::string>>(textsOf(*item));
    return [item, texts] {
      copyTextsFloor(*texts);
      buildItemFloor(*item);
    };
  });
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
