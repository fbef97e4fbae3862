// The interface of the VFS classes as client code sees it: which
// constructors convert implicitly and which classes copy.
#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>
#include <type_traits>

#include "ma/mdc_vfs_base.h"
#include "ma/mdc_vfs_fixed.h"
#include "ma/mdc_vfs_user_data_dr.h"
#include "vfs_test_support.h"

namespace {

using vfs_test::captionOf;
using vfs_test::EntryPtr;
using vfs_test::FolderPtr;
using vfs_test::ItemPtr;
using vfs_test::makeFolderOf;

typedef ma::VfsFixedFolder::ChildrenIterator ChildrenIterator;
typedef ma::VfsFixedFolder::SharedVectorIterator SharedVectorIterator;

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
