// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Search, order and filter criteria: value lists kept in insertion order.
#include <gtest/gtest.h>

#include <string>

#include "ma/mdc_vfs_criteria.h"

namespace {

TEST(VfsSearchCriteriaTest, StartsEmpty) {
  ma::VfsSearchCriteria criteria;
  EXPECT_TRUE(criteria.getCriteria().empty());
}

TEST(VfsSearchCriteriaTest, SingleCriteriumKeepsItsThreeTextsInOrder) {
  ma::VfsSearchCriteria::SingleCriterium criterium("dc:title", "contains", "news");
  EXPECT_EQ("dc:title", criterium.getProperty());
  EXPECT_EQ("contains", criterium.getRelation());
  EXPECT_EQ("news", criterium.getValue());
}

TEST(VfsSearchCriteriaTest, AddingTheSameCriteriumTwiceKeepsTwoEqualElementsInOrder) {
  ma::VfsSearchCriteria criteria;
  criteria.add(ma::VfsSearchCriteria::SingleCriterium("a", "=", "1"));
  criteria.add(ma::VfsSearchCriteria::SingleCriterium("b", "=", "2"));
  criteria.add(ma::VfsSearchCriteria::SingleCriterium("a", "=", "1"));
  ASSERT_EQ(3u, criteria.getCriteria().size());
  EXPECT_EQ("a", criteria.getCriteria()[0].getProperty());
  EXPECT_EQ("b", criteria.getCriteria()[1].getProperty());
  EXPECT_EQ("a", criteria.getCriteria()[2].getProperty());
  EXPECT_EQ("1", criteria.getCriteria()[2].getValue());
}

TEST(VfsSearchCriteriaTest, CriteriumOfThreeEmptyTextsIsStoredAndCounted) {
  ma::VfsSearchCriteria criteria;
  criteria.add(ma::VfsSearchCriteria::SingleCriterium("", "", ""));
  ASSERT_EQ(1u, criteria.getCriteria().size());
  EXPECT_EQ("", criteria.getCriteria()[0].getProperty());
  EXPECT_EQ("", criteria.getCriteria()[0].getRelation());
  EXPECT_EQ("", criteria.getCriteria()[0].getValue());
}

TEST(VfsSearchCriteriaTest, AddingToACopyLeavesTheOriginalUnchanged) {
  ma::VfsSearchCriteria original;
  original.add(ma::VfsSearchCriteria::SingleCriterium("a", "b", "c"));
  ma::VfsSearchCriteria copy = original;
  copy.add(ma::VfsSearchCriteria::SingleCriterium("d", "e", "f"));
  EXPECT_EQ(1u, original.getCriteria().size());
  EXPECT_EQ(2u, copy.getCriteria().size());
}

TEST(VfsSearchCriteriaTest, TextsAreStoredUnchecked) {
  const std::string bytes("\0\xff \t", 4);
  ma::VfsSearchCriteria criteria;
  criteria.add(ma::VfsSearchCriteria::SingleCriterium(bytes, bytes, bytes));
  EXPECT_EQ(bytes, criteria.getCriteria()[0].getRelation());
}

TEST(VfsFilterCriteriaTest, KeepsFiltersInInsertionOrderWithDuplicates) {
  ma::VfsFilterCriteria criteria;
  EXPECT_TRUE(criteria.getCriteria().empty());
  criteria.add(ma::VfsFilterCriteria::SingleCriterium("x"));
  criteria.add(ma::VfsFilterCriteria::SingleCriterium(""));
  criteria.add(ma::VfsFilterCriteria::SingleCriterium("x"));
  ASSERT_EQ(3u, criteria.getCriteria().size());
  EXPECT_EQ("x", criteria.getCriteria()[0].getFilter());
  EXPECT_EQ("", criteria.getCriteria()[1].getFilter());
  EXPECT_EQ("x", criteria.getCriteria()[2].getFilter());
}

TEST(VfsFilterCriteriaTest, AddingToACopyLeavesTheOriginalUnchanged) {
  ma::VfsFilterCriteria original;
  original.add(std::string("x"));  // a filter text converts to a criterium
  ma::VfsFilterCriteria copy = original;
  copy.add(std::string("y"));
  EXPECT_EQ(1u, original.getCriteria().size());
  ASSERT_EQ(2u, copy.getCriteria().size());
  EXPECT_EQ("y", copy.getCriteria()[1].getFilter());
}

TEST(VfsOrderCriteriaTest, StartsEmptyAndKeepsPairsInOrder) {
  ma::VfsOrderCriteria criteria;
  EXPECT_TRUE(criteria.getCriteria().empty());
  criteria.add({"dc:date", "-"});
  criteria.add({"dc:title", "+"});
  ASSERT_EQ(2u, criteria.getCriteria().size());
  EXPECT_EQ("dc:date", criteria.getCriteria()[0].property);
  EXPECT_EQ("+", criteria.getCriteria()[1].direction);
  ma::VfsOrderCriteria copy = criteria;
  copy.add({"x", "y"});
  EXPECT_EQ(2u, criteria.getCriteria().size());
}

}  // namespace
