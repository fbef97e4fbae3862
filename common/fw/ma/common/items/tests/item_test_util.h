// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Shared helpers of the item record tests.
#ifndef MA_ITEMS_TESTS_ITEM_TEST_UTIL_H_
#define MA_ITEMS_TESTS_ITEM_TEST_UTIL_H_

#include <regex>
#include <string>

#include "ma/mdc_item.h"

namespace ma_item_test {

// The category word of the item record's failure lines: level 3000 of the
// media-access module 375.
constexpr unsigned int kItemFailureCategory = 24579000u;

// A facade without field store.
inline ma::VideoItemInfo storeless() {
  return ma::VideoItemInfo(static_cast<ma::ItemInfo::ItemImpl*>(nullptr));
}

// The line a facade accessor writes when its record has no store.
inline std::string missingStoreLine(const std::string& accessor) {
  return accessor + "(): impl is NULL\n";
}

// Whether `line` is the located line of a sub-type accessor without store.
inline bool isSubTypeMissingStoreLine(const std::string& line, const std::string& accessor) {
  return std::regex_match(line, std::regex("mdc_item\\.cpp:[0-9]+:" + accessor +
                                           "\\(\\): Impl is NULL\\.\n"));
}

}  // namespace ma_item_test

#endif  // MA_ITEMS_TESTS_ITEM_TEST_UTIL_H_
