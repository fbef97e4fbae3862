// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The benchmark programs' main(): registers the cases with Google Benchmark,
// or runs them between callgrind's client requests and the instruction
// counter's phase markers, or once each (smoke).
#include "bench_case.h"

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "insn_count/phase_marker.h"

#ifdef MA_BENCH_GOOGLE_BENCHMARK
#include <benchmark/benchmark.h>
#endif
#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else  // the target's sysroot has no valgrind headers; callgrind does not run there
#define CALLGRIND_TOGGLE_COLLECT
#define CALLGRIND_DUMP_STATS_AT(name) static_cast<void>(name)
#endif

namespace bench {
namespace {

struct Case {
  std::string name;  // scenario/variant/arg
  long arg;
  Setup setup;
  long elements;  // per operation
};

std::vector<Case>& cases() {
  static std::vector<Case> all;
  return all;
}

#ifdef MA_BENCH_GOOGLE_BENCHMARK
// The fixture of the case Google Benchmark is running: it calls a
// benchmark's function several times while it settles the iteration count,
// and a fixture (a folder of a million children) is built only once.
struct CurrentFixture {
  std::string name;
  Operation operation;
};

Operation& fixtureFor(Case const& c) {
  static CurrentFixture current;
  if (current.name != c.name) {
    current.operation = nullptr;  // the previous fixture goes first
    current.operation = c.setup(c.arg);
    current.name = c.name;
    current.operation();  // warm: the first run pays for memory the allocator must map again

  }
  return current.operation;
}

void registerWithGoogleBenchmark() {
  for (Case const& c : cases()) {
    benchmark::RegisterBenchmark(c.name.c_str(), [c](benchmark::State& state) {
      Operation& operation = fixtureFor(c);
      for (auto _ : state) operation();
      state.SetItemsProcessed(state.iterations() * c.elements);
      state.counters["elements"] = static_cast<double>(c.elements);
    });
  }
}
#endif

// A phase marker for the instruction-counting plugin (a system call that
// fails with ENOSYS when no plugin is listening).
void phaseMarker(long what, std::uintptr_t value) { syscall(MA_PHASE_MARKER, what, value); }

// The allocator's entry point `function` as the plugin sees it: the first
// instruction's address (on ARM without the Thumb bit).
template <typename Function>
std::uintptr_t entryOf(Function* function) {
  std::uintptr_t address = reinterpret_cast<std::uintptr_t>(function);
#ifdef __arm__
  address &= ~static_cast<std::uintptr_t>(1);
#endif
  return address;
}

// Under callgrind (started with --collect-atstart=no) only the measured
// operations are collected; each case's cost is dumped under its name.
// With `markers`, each case's operations are also a phase for the
// instruction-counting plugin, numbered from 0 in the order printed, and the
// plugin counts the calls of malloc, calloc, realloc and aligned_alloc.
// Prints "<name> <operations> <elements per operation>" per case.
int runForInstructions(long maxArg, std::string const& filter, bool markers) {
  if (markers) {
    phaseMarker(MA_PHASE_WATCH, entryOf(&std::malloc));
    phaseMarker(MA_PHASE_WATCH, entryOf(&std::calloc));
    phaseMarker(MA_PHASE_WATCH, entryOf(&std::realloc));
    phaseMarker(MA_PHASE_WATCH, entryOf(&std::aligned_alloc));
  }
  std::uintptr_t phase = 0;
  for (Case const& c : cases()) {
    if (c.arg > maxArg) continue;
    if (!filter.empty() && c.name.find(filter) == std::string::npos) continue;
    Operation operation = c.setup(c.arg);
    operation();  // warm: first-use allocations and lazy binding stay out
    const long operations = std::max(1L, std::min(1000L, 50000L / std::max(1L, c.elements)));
    if (markers) phaseMarker(MA_PHASE_BEGIN, phase);
    CALLGRIND_TOGGLE_COLLECT;
    for (long i = 0; i < operations; ++i) operation();
    CALLGRIND_TOGGLE_COLLECT;
    if (markers) phaseMarker(MA_PHASE_END, phase++);
    CALLGRIND_DUMP_STATS_AT(c.name.c_str());
    std::printf("%s %ld %ld\n", c.name.c_str(), operations, c.elements);
    std::fflush(stdout);
  }
  return 0;
}

// Each case once, at the smallest argument of its scenario and variant.
int runSmoke() {
  for (Case const& c : cases()) {
    bool smallest = true;
    for (Case const& other : cases()) {
      const std::string prefix = c.name.substr(0, c.name.rfind('/'));
      if (other.name.compare(0, prefix.size() + 1, prefix + "/") == 0 && other.arg < c.arg) {
        smallest = false;
      }
    }
    if (!smallest) continue;
    Operation operation = c.setup(c.arg);
    operation();
    std::printf("smoke: %s ran\n", c.name.c_str());
  }
  return 0;
}

}  // namespace

void addCase(std::string const& scenario, std::string const& variant, std::vector<long> const& args,
             Setup setup, std::function<long(long)> elementsPerOperation) {
  for (long arg : args) {
    const long elements = elementsPerOperation ? elementsPerOperation(arg) : 1;
    cases().push_back({scenario + "/" + variant + "/" + std::to_string(arg), arg, setup, elements});
  }
}

}  // namespace bench

int main(int argc, char** argv) {
  bool instructions = false;
  bool smoke = false;
  bool markers = false;
  long maxArg = 100000;
  std::string filter;
  std::vector<char*> rest;
  for (int i = 0; i < argc; ++i) {
    if (std::strcmp(argv[i], "--instructions") == 0) {
      instructions = true;
    } else if (std::strcmp(argv[i], "--phase-markers") == 0) {
      markers = true;
    } else if (std::strcmp(argv[i], "--smoke") == 0) {
      smoke = true;
    } else if (std::strncmp(argv[i], "--max-arg=", 10) == 0) {
      maxArg = std::atol(argv[i] + 10);
    } else if (std::strncmp(argv[i], "--filter=", 9) == 0) {
      filter = argv[i] + 9;
    } else {
      rest.push_back(argv[i]);
    }
  }
  if (smoke) return bench::runSmoke();
  if (instructions) return bench::runForInstructions(maxArg, filter, markers);
#ifdef MA_BENCH_GOOGLE_BENCHMARK
  bench::registerWithGoogleBenchmark();
  int restCount = static_cast<int>(rest.size());
  benchmark::Initialize(&restCount, rest.data());
  if (benchmark::ReportUnrecognizedArguments(restCount, rest.data())) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
#else
  std::fprintf(stderr, "%s: built without Google Benchmark: use --instructions or --smoke\n",
               argv[0]);
  return 2;
#endif
}
