// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The item message wrapper: conversions on construction, assignment and
// destruction.
#include "ma/mdc_item.h"
#include "ma/rpc/mdc_item_msg.h"

#include "item_msg_codec.h"

_itemMsgMaItem_struct::_itemMsgMaItem_struct() { ma::rpc::codec::clearMessage(*this); }

_itemMsgMaItem_struct::_itemMsgMaItem_struct(boost::shared_ptr<ma::ItemInfo> item) {
  if (item) {
    ma::rpc::convertMaItem(*this, *item);
  } else {
    ma::rpc::codec::clearMessage(*this);
  }
}

_itemMsgMaItem_struct::_itemMsgMaItem_struct(ma::ItemInfo const& item) {
  ma::rpc::convertMaItem(*this, item);
}

// The release only frees memory and cannot throw.
_itemMsgMaItem_struct::~_itemMsgMaItem_struct() { ma::rpc::releaseMaItemMsgContent(*this); }

_itemMsgMaItem_struct& _itemMsgMaItem_struct::operator=(boost::shared_ptr<ma::ItemInfo> item) {
  if (item) ma::rpc::convertMaItem(*this, *item);
  return *this;
}

_itemMsgMaItem_struct& _itemMsgMaItem_struct::operator=(ma::ItemInfo const& item) {
  ma::rpc::convertMaItem(*this, item);
  return *this;
}

_itemMsgMaItem_struct::operator boost::shared_ptr<ma::ItemInfo>() const {
  return ma::rpc::convertMaItem(*this);
}
