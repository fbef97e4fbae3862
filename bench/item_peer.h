// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The protobuf peer of the item message: a video item's fields in a
// protobuf message (item_peer.proto), and the conversions both ways.
#ifndef MA_BENCH_ITEM_PEER_H_
#define MA_BENCH_ITEM_PEER_H_

#include <boost/shared_ptr.hpp>

#include "item_peer.pb.h"
#include "ma/mdc_item.h"

namespace bench {

// Every field of `item` into `peer`.
void toPeer(ma::VideoItemInfo const& item, ma_bench::VideoItem& peer);

// A new video item with every field of `peer`.
boost::shared_ptr<ma::VideoItemInfo> fromPeer(ma_bench::VideoItem const& peer);

}  // namespace bench

#endif  // MA_BENCH_ITEM_PEER_H_
