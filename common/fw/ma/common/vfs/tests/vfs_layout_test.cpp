// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The interface of the VFS classes as client code sees it: the order of the
// virtual functions (client binaries call them by slot), which constructors
// convert implicitly and which classes copy.
#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>
#include <type_traits>

#include "ma/mdc_vfs_base.h"
#include "ma/mdc_vfs_fixed.h"
#include "ma/mdc_vfs_user_data_dr.h"
#include "ma_test/vtable_slot.h"
#include "vfs_test_support.h"

namespace {

using ma_test::vtableSlot;
using vfs_test::captionOf;
using vfs_test::EntryPtr;
using vfs_test::FolderPtr;
using vfs_test::ItemPtr;
using vfs_test::makeFolderOf;

typedef ma::VfsFixedFolder::ChildrenIterator ChildrenIterator;
typedef ma::VfsFixedFolder::SharedVectorIterator SharedVectorIterator;
typedef boost::shared_ptr<ma::VfsIterator> IteratorPtr;
typedef ma::VfsIterator::IntCallback IntCallback;
typedef ma::VfsIterator::EntryCallback EntryCallback;
typedef ma::VfsIterator::PathCallback PathCallback;

// The types that pick one overload of a member of class C.
template <class C>
using PlainFactory = IteratorPtr (C::*)();
template <class C>
using CriteriaFactory = IteratorPtr (C::*)(ma::VfsSearchCriteria const&,
                                           ma::VfsOrderCriteria const&,
                                           ma::VfsFilterCriteria const&);
template <class C>
using IntOperation = void (C::*)(IntCallback);
template <class C>
using SeekOperation = void (C::*)(int, IntCallback);
template <class C>
using ChildOperation = void (C::*)(EntryCallback);
template <class C>
using PathOperation = void (C::*)(std::string, PathCallback);

// An iterator that takes over the base's constructor as it is, explicit or
// not.
class InheritingIterator : public ma::VfsIterator {
 public:
  using ma::VfsIterator::VfsIterator;
  ~InheritingIterator() override {}

  void getNTotal(IntCallback done) override { done(0); }
  void rewind(IntCallback done) override { done(0); }
  void advance(IntCallback done) override { done(0); }
  void seekTo(int, IntCallback done) override { done(0); }
  void getCurrentChild(EntryCallback done) override { done(EntryPtr()); }
  void getCurrentChildPath(std::string path, PathCallback done) override { done(path); }
};

// --- virtual slots: the destructors take 0 and 1 ---------------------------

TEST(VfsVirtualSlots, EntrySlotsFollowTheDestructorsInDeclaredOrder) {
  typedef ma::VfsEntry E;
  EXPECT_EQ(2, vtableSlot(static_cast<PlainFactory<E> >(&E::getIterator)));
  EXPECT_EQ(3, vtableSlot(static_cast<CriteriaFactory<E> >(&E::getIterator)));
  EXPECT_EQ(4, vtableSlot(&E::getItemInfo));
  EXPECT_EQ(5, vtableSlot(&E::getUserData));
  EXPECT_EQ(6, vtableSlot(&E::hasIterator));
  EXPECT_EQ(7, vtableSlot(&E::hasAttribute));
  EXPECT_EQ(8, vtableSlot(&E::getAttribute));
  EXPECT_EQ(9, vtableSlot(&E::setAttribute));
  EXPECT_EQ(10, vtableSlot(&E::resolvePathPart));
}

TEST(VfsVirtualSlots, EntryPathAndLookupAreNotVirtual) {
  typedef ma::VfsEntry E;
  EXPECT_EQ(-1, vtableSlot(static_cast<EntryPtr (E::*)(std::string)>(&E::resolvePath)));
  typedef int (E::*DetailedResolve)(EntryPtr&, std::string&, EntryPtr&, std::string, std::string);
  EXPECT_EQ(-1, vtableSlot(static_cast<DetailedResolve>(&E::resolvePath)));
  EXPECT_EQ(-1, vtableSlot(&E::findUuid));
}

TEST(VfsVirtualSlots, FolderOverridesKeepTheEntrySlotsAndSortingComesNext) {
  typedef ma::VfsFixedFolder F;
  EXPECT_EQ(2, vtableSlot(static_cast<PlainFactory<F> >(&F::getIterator)));
  EXPECT_EQ(3, vtableSlot(static_cast<CriteriaFactory<F> >(&F::getIterator)));
  EXPECT_EQ(4, vtableSlot(&F::getItemInfo));
  EXPECT_EQ(5, vtableSlot(&F::getUserData));
  EXPECT_EQ(6, vtableSlot(&F::hasIterator));
  EXPECT_EQ(9, vtableSlot(&F::setAttribute));
  EXPECT_EQ(10, vtableSlot(&F::resolvePathPart));
  EXPECT_EQ(11, vtableSlot(&F::getSortedIterator));
  EXPECT_EQ(-1, vtableSlot(&F::addEntry));
  EXPECT_EQ(-1, vtableSlot(&F::findEntry));
  EXPECT_EQ(-1, vtableSlot(&F::removeAllEntries));
}

TEST(VfsVirtualSlots, LeafOverridesKeepTheEntrySlots) {
  typedef ma::VfsFixedEntry L;
  EXPECT_EQ(3, vtableSlot(static_cast<CriteriaFactory<L> >(&L::getIterator)));
  EXPECT_EQ(4, vtableSlot(&L::getItemInfo));
  EXPECT_EQ(5, vtableSlot(&L::getUserData));
}

TEST(VfsVirtualSlots, IteratorOperationsFollowTheDestructorsInDeclaredOrder) {
  typedef ma::VfsIterator I;
  EXPECT_EQ(2, vtableSlot(static_cast<IntOperation<I> >(&I::getNTotal)));
  EXPECT_EQ(3, vtableSlot(static_cast<IntOperation<I> >(&I::rewind)));
  EXPECT_EQ(4, vtableSlot(static_cast<IntOperation<I> >(&I::advance)));
  EXPECT_EQ(5, vtableSlot(static_cast<SeekOperation<I> >(&I::seekTo)));
  EXPECT_EQ(6, vtableSlot(static_cast<ChildOperation<I> >(&I::getCurrentChild)));
  EXPECT_EQ(7, vtableSlot(static_cast<PathOperation<I> >(&I::getCurrentChildPath)));
}

TEST(VfsVirtualSlots, SynchronousTwinsAreNotVirtual) {
  typedef ma::VfsIterator I;
  EXPECT_EQ(-1, vtableSlot(static_cast<int (I::*)()>(&I::getNTotal)));
  EXPECT_EQ(-1, vtableSlot(static_cast<int (I::*)()>(&I::rewind)));
  EXPECT_EQ(-1, vtableSlot(static_cast<int (I::*)()>(&I::advance)));
  EXPECT_EQ(-1, vtableSlot(static_cast<int (I::*)(int)>(&I::seekTo)));
  EXPECT_EQ(-1, vtableSlot(static_cast<EntryPtr (I::*)()>(&I::getCurrentChild)));
  EXPECT_EQ(-1, vtableSlot(static_cast<std::string (I::*)(std::string)>(&I::getCurrentChildPath)));
}

TEST(VfsVirtualSlots, ChildrenIteratorOverridesKeepTheIteratorSlots) {
  typedef ChildrenIterator C;
  EXPECT_EQ(2, vtableSlot(static_cast<IntOperation<C> >(&C::getNTotal)));
  EXPECT_EQ(3, vtableSlot(static_cast<IntOperation<C> >(&C::rewind)));
  EXPECT_EQ(4, vtableSlot(static_cast<IntOperation<C> >(&C::advance)));
  EXPECT_EQ(5, vtableSlot(static_cast<SeekOperation<C> >(&C::seekTo)));
  EXPECT_EQ(6, vtableSlot(static_cast<ChildOperation<C> >(&C::getCurrentChild)));
  EXPECT_EQ(7, vtableSlot(static_cast<PathOperation<C> >(&C::getCurrentChildPath)));
}

TEST(VfsVirtualSlots, RecorderUserDataAccessorsFollowTheDestructorsInDeclaredOrder) {
  typedef VfsUserDataDR D;
  EXPECT_EQ(2, vtableSlot(&D::getIsRecording));
  EXPECT_EQ(3, vtableSlot(&D::setIsRecording));
  EXPECT_EQ(4, vtableSlot(&D::getStreamBegin));
  EXPECT_EQ(5, vtableSlot(&D::setStreamBegin));
  EXPECT_EQ(6, vtableSlot(&D::getStreamEnd));
  EXPECT_EQ(7, vtableSlot(&D::setStreamEnd));
  EXPECT_EQ(8, vtableSlot(&D::getCircularBegin));
  EXPECT_EQ(9, vtableSlot(&D::setCircularBegin));
  EXPECT_EQ(10, vtableSlot(&D::getCircularEnd));
  EXPECT_EQ(11, vtableSlot(&D::setCircularEnd));
  EXPECT_EQ(12, vtableSlot(&D::getEncryption));
  EXPECT_EQ(-1, vtableSlot(&D::getKey));
}

// --- conversions and copies -------------------------------------------------

// Constructors that client code may call as conversions.
static_assert(std::is_convertible<EntryPtr, InheritingIterator>::value,
              "an iterator converts from an entry pointer");
static_assert(std::is_convertible<ItemPtr, ma::VfsFixedFolder>::value,
              "a folder converts from an item pointer");

// Iterators hold shared pointers and positions: they copy.
static_assert(std::is_copy_constructible<InheritingIterator>::value &&
                  std::is_copy_assignable<InheritingIterator>::value,
              "iterators copy");
static_assert(std::is_copy_constructible<ChildrenIterator>::value &&
                  std::is_copy_assignable<ChildrenIterator>::value,
              "children iterators copy");
static_assert(std::is_copy_constructible<SharedVectorIterator>::value &&
                  std::is_copy_assignable<SharedVectorIterator>::value,
              "shared vector iterators copy");

// Classes that own a mutex or a semaphore do not.
static_assert(!std::is_copy_constructible<ma::VfsFixedFolder>::value &&
                  !std::is_copy_assignable<ma::VfsFixedFolder>::value,
              "entries own a mutex");
static_assert(!std::is_copy_constructible<ma::VfsFixedEntry>::value &&
                  !std::is_copy_assignable<ma::VfsFixedEntry>::value,
              "entries own a mutex");
static_assert(!std::is_copy_constructible<VfsUserDataDR>::value &&
                  !std::is_copy_assignable<VfsUserDataDR>::value,
              "recorder user data owns a mutex");
static_assert(!std::is_copy_constructible<ma::TemplateSyncFunctorData<int> >::value &&
                  !std::is_copy_assignable<ma::TemplateSyncFunctorData<int> >::value,
              "a rendezvous owns a semaphore");

TEST(VfsIteratorCopyTest, CopyStartsWhereTheOriginalStandsAndMovesOnItsOwn) {
  FolderPtr folder = makeFolderOf({"a", "b", "c"});
  boost::shared_ptr<ma::VfsIterator> iterator = folder->getIterator();
  iterator->advance();
  ChildrenIterator copy(dynamic_cast<ChildrenIterator&>(*iterator));
  EXPECT_EQ("b", captionOf(copy.getCurrentChild()));
  copy.advance();
  EXPECT_EQ("c", captionOf(copy.getCurrentChild()));
  EXPECT_EQ("b", captionOf(iterator->getCurrentChild()));
  EXPECT_EQ(3, copy.getNTotal());
  EXPECT_EQ("$2", copy.getCurrentChildPath(""));
}

TEST(VfsIteratorCopyTest, CopyKeepsTheFolderAndTheSortedListAlive) {
  FolderPtr folder = makeFolderOf({"b", "a"});
  boost::weak_ptr<ma::VfsFixedFolder> watch(folder);
  boost::shared_ptr<ma::VfsIterator> sorted = folder->getSortedIterator("+dc:title");
  SharedVectorIterator copy(dynamic_cast<SharedVectorIterator&>(*sorted));
  sorted.reset();
  folder.reset();
  EXPECT_FALSE(watch.expired());
  EXPECT_EQ(2, copy.getNTotal());
  EXPECT_EQ("a", captionOf(copy.getCurrentChild()));
  copy.advance();
  EXPECT_EQ("b", captionOf(copy.getCurrentChild()));
}

TEST(VfsIteratorCopyTest, AssignedIteratorTakesTheOtherPosition) {
  FolderPtr folder = makeFolderOf({"a", "b", "c"});
  boost::shared_ptr<ma::VfsIterator> iterator = folder->getIterator();
  ChildrenIterator target(dynamic_cast<ChildrenIterator&>(*iterator));
  iterator->seekTo(2);
  target = dynamic_cast<ChildrenIterator&>(*iterator);
  EXPECT_EQ("c", captionOf(target.getCurrentChild()));
  EXPECT_EQ("$2", target.getCurrentChildPath(""));
}

}  // namespace
