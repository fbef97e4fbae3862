// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The cost of the closed trace gate: a synchronous walk of a folder with the
// platform's level check as it is (every call-tracing line checked and
// refused) against the same walk with the level check stubbed out.
//
// This program interposes zelDebugCheckLevelGetFrameAndChunk(): the library
// calls this definition, which answers 0 at once when stubbed and otherwise
// forwards to the platform's. The forwarding adds an indirect call to every
// check of the "gate closed" variant, so its figure is a slight overstatement.
#include <dlfcn.h>

#include "harness/bench_case.h"
#include "harness/bench_tree.h"
#include "zel/zel_debug.h"

namespace {

bool gStubbed = false;

int (*platformCheck())(unsigned int) {
  static auto* check = reinterpret_cast<int (*)(unsigned int)>(
      dlsym(RTLD_NEXT, "zelDebugCheckLevelGetFrameAndChunk"));
  return check;
}

void walk(ma::VfsIterator& iterator) {
  for (bench::EntryPtr child = iterator.getCurrentChild(); child;
       child = iterator.getCurrentChild()) {
    iterator.advance();
  }
}

void addVariant(std::string const& variant, bool stubbed) {
  bench::addCase("trace.walk", variant, {10000}, [stubbed](long n) -> bench::Operation {
    bench::FolderPtr folder = bench::makeFolder(n);
    platformCheck();
    return [folder, stubbed] {
      gStubbed = stubbed;
      walk(*folder->getIterator());
      gStubbed = false;
    };
  }, [](long n) { return n; });
}

const bench::Registration kTrace([] {
  addVariant("ours", false);
  addVariant("stubbed", true);
});

}  // namespace

extern "C" int zelDebugCheckLevelGetFrameAndChunk(unsigned int category) {
  if (gStubbed) return 0;
  return platformCheck()(category);
}
