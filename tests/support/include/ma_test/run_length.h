// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// How long the long-running tests (stress, soak) run where they run.
//
// Each such test names a short and a long length. The short one runs in the
// test command natively, and a fraction of it where everything is many times
// slower: under valgrind, ThreadSanitizer, AddressSanitizer or the ARM
// emulator (the build defines MA_TEST_EMULATED). The environment variable
// MA_TEST_LONG=1 asks for the long length, whatever the tool: the
// documented long runs set it.
//
// Thread-safety: the functions read the environment only; call them before
// starting threads.
#ifndef MA_TEST_RUN_LENGTH_H_
#define MA_TEST_RUN_LENGTH_H_

#include <cstdlib>
#include <cstring>

#if defined(__has_include)
#if __has_include(<valgrind/valgrind.h>)
#include <valgrind/valgrind.h>
#endif
#endif

namespace ma_test {

// Whether MA_TEST_LONG=1 asks for the full length.
inline bool longRunRequested() {
  const char* value = std::getenv("MA_TEST_LONG");
  return value != nullptr && std::strcmp(value, "1") == 0;
}

// By how much a short loop is divided here (1: natively).
inline long runLengthDivisor() {
#ifdef RUNNING_ON_VALGRIND
  if (RUNNING_ON_VALGRIND) return 100;
#endif
#if defined(MA_TEST_EMULATED)
  return 50;
#elif defined(__SANITIZE_THREAD__)
  return 10;
#elif defined(__SANITIZE_ADDRESS__)
  return 10;
#else
  return 1;
#endif
}

// How many iterations to run: `longCount` when MA_TEST_LONG=1 asks for the
// long run, else `shortCount` divided as above, at least `least`.
inline long runLength(long shortCount, long longCount, long least = 1) {
  if (longRunRequested()) return longCount;
  const long count = shortCount / runLengthDivisor();
  return count < least ? least : count;
}

}  // namespace ma_test

#endif  // MA_TEST_RUN_LENGTH_H_
