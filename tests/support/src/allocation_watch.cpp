// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors

#include "ma_test/allocation_watch.h"

#include <cstdlib>
#include <cstring>
#include <new>

extern "C" void* __real_malloc(std::size_t size);
extern "C" void __real_free(void* pointer);

namespace {

constexpr std::size_t kRecordCapacity = 16384;

// Plain data only: the hooks run inside malloc() and must not allocate.
struct WatchState {
  bool watching;
  bool failAnySize;
  std::size_t failSize;
  int failMallocCountdown;  // 0: no failure armed
  int failNewCountdown;     // 0: no failure armed
  int failAnyCountdown;     // 0: no failure armed; counts malloc() and new
  bool fill;
  unsigned char fillByte;
  bool holdFrees;
  int failures;
  std::size_t mallocCount;
  std::size_t mallocSizes[kRecordCapacity];
  std::size_t freeCount;
  const void* frees[kRecordCapacity];
};

WatchState state;

// Counts one allocation; whether it is the one armed by failAllocation().
bool countAllocationAndFail() {
  if (state.failAnyCountdown > 0 && --state.failAnyCountdown == 0) {
    ++state.failures;
    return true;
  }
  return false;
}

}  // namespace

extern "C" void* __wrap_malloc(std::size_t size) {
  if (!state.watching) return __real_malloc(size);
  if (state.mallocCount < kRecordCapacity) state.mallocSizes[state.mallocCount] = size;
  ++state.mallocCount;
  if (countAllocationAndFail()) return nullptr;
  if (state.failMallocCountdown > 0 && (state.failAnySize || size == state.failSize) &&
      --state.failMallocCountdown == 0) {
    ++state.failures;
    return nullptr;
  }
  void* block = __real_malloc(size);
  if (block != nullptr && state.fill) std::memset(block, state.fillByte, size);
  return block;
}

extern "C" void __wrap_free(void* pointer) {
  if (state.watching && pointer != nullptr) {
    if (state.freeCount < kRecordCapacity) state.frees[state.freeCount] = pointer;
    ++state.freeCount;
    if (state.holdFrees) return;
  }
  __real_free(pointer);
}

void* operator new(std::size_t size) {
  if (state.watching && countAllocationAndFail()) throw std::bad_alloc();
  if (state.watching && state.failNewCountdown > 0 && --state.failNewCountdown == 0) {
    ++state.failures;
    throw std::bad_alloc();
  }
  void* block = __real_malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void* operator new[](std::size_t size) { return ::operator new(size); }

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return ::operator new(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
  return ::operator new(size, tag);
}

// The over-aligned forms: the same failures, blocks from aligned_alloc().
void* operator new(std::size_t size, std::align_val_t alignment) {
  if (state.watching && countAllocationAndFail()) throw std::bad_alloc();
  const auto align = static_cast<std::size_t>(alignment);
  const std::size_t rounded = (size + align - 1) / align * align;
  void* block = std::aligned_alloc(align, rounded == 0 ? align : rounded);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void* operator new[](std::size_t size, std::align_val_t alignment) {
  return ::operator new(size, alignment);
}

void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
  try {
    return ::operator new(size, alignment);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void* operator new[](std::size_t size, std::align_val_t alignment,
                     const std::nothrow_t& tag) noexcept {
  return ::operator new(size, alignment, tag);
}

void operator delete(void* block, std::align_val_t) noexcept { __real_free(block); }
void operator delete[](void* block, std::align_val_t) noexcept { __real_free(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept { __real_free(block); }
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept { __real_free(block); }
void operator delete(void* block, std::align_val_t, const std::nothrow_t&) noexcept {
  __real_free(block);
}
void operator delete[](void* block, std::align_val_t, const std::nothrow_t&) noexcept {
  __real_free(block);
}

void operator delete(void* block) noexcept { __real_free(block); }
void operator delete[](void* block) noexcept { __real_free(block); }
void operator delete(void* block, std::size_t) noexcept { __real_free(block); }
void operator delete[](void* block, std::size_t) noexcept { __real_free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { __real_free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { __real_free(block); }

namespace ma_test {

AllocationWatch::AllocationWatch() {
  state.failMallocCountdown = 0;
  state.failNewCountdown = 0;
  state.failAnyCountdown = 0;
  state.fill = false;
  state.holdFrees = false;
  state.failures = 0;
  clearRecords();
  state.watching = true;
}

AllocationWatch::~AllocationWatch() { state.watching = false; }

void AllocationWatch::failMalloc(std::size_t size, int nth) {
  state.failAnySize = false;
  state.failSize = size;
  state.failMallocCountdown = nth;
}

void AllocationWatch::failMallocCall(int nth) {
  state.failAnySize = true;
  state.failMallocCountdown = nth;
}

void AllocationWatch::failNew(int nth) { state.failNewCountdown = nth; }

void AllocationWatch::failAllocation(int nth) { state.failAnyCountdown = nth; }

void AllocationWatch::fillMallocWith(unsigned char byte) {
  state.fill = true;
  state.fillByte = byte;
}

void AllocationWatch::holdFrees() { state.holdFrees = true; }

void AllocationWatch::clearRecords() {
  state.mallocCount = 0;
  state.freeCount = 0;
}

// The copies allocate through operator new, which the watch does not record.
std::vector<std::size_t> AllocationWatch::mallocSizes() const {
  const std::size_t count = state.mallocCount < kRecordCapacity ? state.mallocCount : kRecordCapacity;
  return std::vector<std::size_t>(state.mallocSizes, state.mallocSizes + count);
}

std::vector<const void*> AllocationWatch::frees() const {
  const std::size_t count = state.freeCount < kRecordCapacity ? state.freeCount : kRecordCapacity;
  return std::vector<const void*>(state.frees, state.frees + count);
}

int AllocationWatch::failures() const { return state.failures; }

}  // namespace ma_test
