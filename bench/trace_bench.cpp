// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The cost of the closed trace gate, its "stubbed" side: a synchronous walk
// of a folder with the platform's level check answering 0 at once. The
// "ours" side, the same walk with the platform's level check as it is
// (every call-tracing line checked and refused), is "trace.walk/ours" in
// browse_bench, a program that does not interpose the check, so that it
// measures the library's calls into the platform and nothing else.
//
// This program defines zelDebugCheckLevelGetFrameAndChunk(): the library
// calls this definition instead of the platform's.
#include "harness/bench_case.h"
#include "harness/bench_tree.h"
#include "zel/zel_debug.h"

namespace {

void walk(ma::VfsIterator& iterator) {
  for (bench::EntryPtr child = iterator.getCurrentChild(); child;
       child = iterator.getCurrentChild()) {
    iterator.advance();
  }
}

const bench::Registration kTrace([] {
  bench::addCase("trace.walk", "stubbed", {10000}, [](long n) -> bench::Operation {
    bench::FolderPtr folder = bench::makeFolder(n);
    return [folder] { walk(*folder->getIterator()); };
  }, [](long n) { return n; });
});

}  // namespace

extern "C" int zelDebugCheckLevelGetFrameAndChunk(unsigned int) { return 0; }
