// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// Browsing through the synchronous twins of the iterator: lookup by
// identifier, a full walk and paging, each beside its floor.
//
// The floor of one synchronous call is what its rendezvous needs at the
// least: one allocation, sem_init/sem_post/sem_wait/sem_destroy and the
// trace gate's checks (Init, Post, Destroy and the iterator's own "Called."
// line: four checks with the gate closed).
#include <semaphore.h>

#include <cstdlib>
#include <new>

#include "harness/bench_case.h"
#include "harness/bench_tree.h"
#include "zel/zel_debug.h"

namespace {

constexpr unsigned int kVfsCalls = 375u * 65536u + 4000u;
constexpr long kChildren = 10000;

// The rendezvous floor of one synchronous call.
struct RendezvousFloor {
  void* value;
  sem_t semaphore;
};

__attribute__((noinline)) void rendezvousFloor() {
  zelDebugCheckLevelGetFrameAndChunk(kVfsCalls);  // "Called." of the operation
  RendezvousFloor* data = new RendezvousFloor();
  zelDebugCheckLevelGetFrameAndChunk(kVfsCalls);  // Init
  sem_init(&data->semaphore, 0, 0);
  zelDebugCheckLevelGetFrameAndChunk(kVfsCalls);  // Post
  sem_post(&data->semaphore);
  sem_wait(&data->semaphore);
  zelDebugCheckLevelGetFrameAndChunk(kVfsCalls);  // Destroy
  sem_destroy(&data->semaphore);
  bench::keep(data->value);
  delete data;
}

long perChild(long children) { return children; }

const bench::Registration kBrowse([] {
  // findUuid() walks the children through getCurrentChild() and advance()
  // until the last one matches; findEntrybyUUID() is the folder's direct loop.
  bench::addCase("browse.find_uuid", "ours", {kChildren}, [](long n) -> bench::Operation {
    bench::FolderPtr folder = bench::makeFolder(n);
    const std::string last = bench::uuidOf(n - 1);
    return [folder, last] { bench::keep(folder->findUuid(last).get()); };
  }, perChild);
  bench::addCase("browse.find_uuid", "direct_loop", {kChildren}, [](long n) -> bench::Operation {
    bench::FolderPtr folder = bench::makeFolder(n);
    const std::string last = bench::uuidOf(n - 1);
    return [folder, last] { bench::keep(folder->findEntrybyUUID(last).get()); };
  }, perChild);
  // The floor of findUuid: two synchronous calls and one identifier
  // comparison per child.
  bench::addCase("browse.find_uuid", "floor", {kChildren}, [](long n) -> bench::Operation {
    bench::FolderPtr folder = bench::makeFolder(n);
    const std::string last = bench::uuidOf(n - 1);
    return [folder, last] { bench::keep(folder->findEntrybyUUID(last).get());
      for (long i = 0; i < kChildren; ++i) { rendezvousFloor(); rendezvousFloor(); } };
  }, perChild);

  // A full walk: getCurrentChild() and advance() per child. The same walk is
  // the "ours" side of the trace gate's cost (trace_bench has the other).
  for (char const* scenario : {"browse.walk", "trace.walk"}) {
    bench::addCase(scenario, "ours", {kChildren}, [](long n) -> bench::Operation {
      bench::FolderPtr folder = bench::makeFolder(n);
      return [folder] {
        boost::shared_ptr<ma::VfsIterator> iterator = folder->getIterator();
        for (bench::EntryPtr child = iterator->getCurrentChild(); child;
             child = iterator->getCurrentChild()) {
          iterator->advance();
        }
      };
    }, perChild);
  }
  bench::addCase("browse.walk", "floor", {kChildren}, [](long n) -> bench::Operation {
    bench::FolderPtr folder = bench::makeFolder(n);
    return [folder] {
      boost::shared_ptr<ma::VfsIterator> iterator = folder->getIterator();
      for (long i = 0; i < kChildren; ++i) {
        rendezvousFloor();
        rendezvousFloor();
      }
      rendezvousFloor();  // the last getCurrentChild() that ends the walk
    };
  }, perChild);
  bench::addCase("browse.walk", "vector", {kChildren}, [](long n) -> bench::Operation {
    bench::FolderPtr folder = bench::makeFolder(n);
    auto children = std::make_shared<ma::VfsFixedFolder::Children>();
    boost::shared_ptr<ma::VfsIterator> iterator = folder->getIterator();
    for (bench::EntryPtr child = iterator->getCurrentChild(); child;
         child = iterator->getCurrentChild()) {
      children->push_back(child);
      iterator->advance();
    }
    return [children] {
      for (bench::EntryPtr const& stored : *children) {
        bench::EntryPtr child = stored;
        bench::keep(child.get());
      }
    };
  }, perChild);

  // Paging: seekTo() and getCurrentChild() per page of 20.
  constexpr long kPage = 20;
  bench::addCase("browse.page", "ours", {kChildren}, [](long n) -> bench::Operation {
    bench::FolderPtr folder = bench::makeFolder(n);
    boost::shared_ptr<ma::VfsIterator> iterator = folder->getIterator();
    return [folder, iterator, n] {
      for (long position = 0; position < n; position += kPage) {
        iterator->seekTo(static_cast<int>(position));
        bench::keep(iterator->getCurrentChild().get());
      }
    };
  }, [](long n) { return n / kPage; });
  bench::addCase("browse.page", "floor", {kChildren}, [](long n) -> bench::Operation {
    return [n] {
      for (long position = 0; position < n; position += kPage) {
        rendezvousFloor();
        rendezvousFloor();
      }
    };
  }, [](long n) { return n / kPage; });
});

}  // namespace
