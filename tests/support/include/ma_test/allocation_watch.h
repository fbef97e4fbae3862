// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Test-only control over the allocations of a test program.
//
// Linking this helper wraps malloc() and free() (ld --wrap) in every object
// of the test program, the library's objects of a white-box test included,
// and replaces the global operator new and delete (which allocate through
// the unwrapped malloc). Code in shared libraries such as libstdc++ keeps
// calling the plain malloc(). While an AllocationWatch is alive it can make
// a chosen malloc() return null or a chosen operator new throw, fill fresh
// malloc() blocks with a byte, and record malloc() sizes and free() pointers.
// Without a watch every call goes straight through.
//
// Under the sanitizers and valgrind: the replaced operator new and the
// wrapped malloc() end in the C library's malloc(), which AddressSanitizer,
// ThreadSanitizer and valgrind intercept as usual, so their checks see every
// block. Valgrind replaces operator new only in its usual libraries, not in
// the program, so this operator new stays in charge under valgrind too.
//
// Thread-safety: none. At most one watch at a time, used on one thread, and
// no other thread allocates while it is alive.
#ifndef MA_TEST_ALLOCATION_WATCH_H_
#define MA_TEST_ALLOCATION_WATCH_H_

#include <cstddef>
#include <vector>

namespace ma_test {

class AllocationWatch {
 public:
  AllocationWatch();
  ~AllocationWatch();
  AllocationWatch(const AllocationWatch&) = delete;
  AllocationWatch& operator=(const AllocationWatch&) = delete;

  // The `nth` malloc() of exactly `size` bytes from now on returns null.
  void failMalloc(std::size_t size, int nth = 1);

  // The `nth` malloc() from now on returns null, whatever its size.
  void failMallocCall(int nth);

  // The `nth` operator new from now on throws std::bad_alloc.
  void failNew(int nth);

  // The `nth` allocation from now on fails, counting malloc() calls and
  // every form of operator new together: malloc() returns null, operator
  // new throws std::bad_alloc (the nothrow forms return null). Only that one
  // fails; the allocations after it succeed again.
  void failAllocation(int nth);

  // From now on fresh malloc() blocks start filled with `byte`.
  void fillMallocWith(unsigned char byte);

  // From now on free() records its pointer without freeing the block; the
  // test frees the blocks itself once the watch has ended.
  void holdFrees();

  // Forgets the sizes and pointers recorded so far.
  void clearRecords();

  // The sizes passed to malloc() and the non-null pointers passed to free(),
  // in call order, since the watch began or clearRecords().
  std::vector<std::size_t> mallocSizes() const;
  std::vector<const void*> frees() const;

  // How many allocations were made to fail.
  int failures() const;
};

}  // namespace ma_test

#endif  // MA_TEST_ALLOCATION_WATCH_H_
