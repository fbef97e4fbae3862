// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The fixed folder's path step behind its range check, reached through its
// internal routine: fetching a child from a list that has shrunk meanwhile.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "ma/mdc_vfs_fixed.h"
#include "ma_test/trace_capture.h"
#include "mdc_vfs_fixed_internal.h"
#include "vfs_test_support.h"

namespace {

using ma::vfs_internal::fetchIndexedChild;
using testing::ElementsAre;
using testing::IsEmpty;
using vfs_test::EntryPtr;
using vfs_test::IsLocated;
using vfs_test::makeLeaf;

constexpr unsigned int kVfsFailures = 24579000;

TEST(VfsFixedPathFetchTest, ChildWithinTheListIsFetchedWithoutTrace) {
  const ma::VfsFixedFolder::Children children = {makeLeaf("a"), makeLeaf("b")};
  EntryPtr child;
  ma_test::TraceCapture capture;
  EXPECT_EQ(0, fetchIndexedChild(children, 1, "1$x", "1", child));
  EXPECT_EQ(children[1], child);
  EXPECT_THAT(capture.texts(), IsEmpty());
}

TEST(VfsFixedPathFetchTest, ListThatShrankBelowTheIndexFailsByException) {
  const ma::VfsFixedFolder::Children children = {makeLeaf("a"), makeLeaf("b")};
  const EntryPtr untouched = makeLeaf("untouched");
  EntryPtr child = untouched;
  ma_test::TraceCapture capture;
  EXPECT_EQ(-2, fetchIndexedChild(children, 2, "2$x", "2", child));
  EXPECT_EQ(untouched, child);
  EXPECT_THAT(capture.texts(),
              ElementsAre(IsLocated("mdc_vfs_fixed.cpp", "resolvePathPart",
                                    "Path: \"2$x\" with path part \"2\" specifies child that is "
                                    "out of range by exception.\n")));
  EXPECT_EQ(kVfsFailures, capture.lines()[0].category);
}

TEST(VfsFixedPathFetchTest, ListThatShrankToNothingFailsByException) {
  const ma::VfsFixedFolder::Children children;
  EntryPtr child;
  ma_test::TraceCapture capture;
  EXPECT_EQ(-2, fetchIndexedChild(children, 0, " 0", " 0", child));
  EXPECT_FALSE(child);
  EXPECT_THAT(capture.texts(),
              ElementsAre(IsLocated("mdc_vfs_fixed.cpp", "resolvePathPart",
                                    "Path: \" 0\" with path part \" 0\" specifies child that is "
                                    "out of range by exception.\n")));
}

}  // namespace
