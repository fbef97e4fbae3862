// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The benchmark harness: every measured operation is written once, as a
// case, and measured three ways by the same program:
//
//   <program> [Google Benchmark flags]   wall-clock time per operation;
//   <program> --instructions [--max-arg=N] [--filter=TEXT] [--phase-markers]
//                                        under valgrind --tool=callgrind
//                                        --collect-atstart=no: each case's
//                                        operations are collected alone and
//                                        dumped under the case's name, so the
//                                        instruction count per operation can
//                                        be read from the dumps; with
//                                        --phase-markers, under QEMU with the
//                                        insn_count plugin, which counts the
//                                        instructions and allocations of each
//                                        case between its phase markers
//                                        (insn_count/phase_marker.h);
//   <program> --smoke                    each case once at its smallest
//                                        argument (the test command's check
//                                        that the benchmarks still run).
//
// A build without Google Benchmark (the ARM target's) has the last two
// forms only.
//
// A case is named "<scenario>/<variant>/<arg>". Within a scenario the
// variant "ours" is the library's code path; every other variant ("floor",
// "peer", "radix", ...) is what it is compared with, in the same process.
//
// Thread-safety: cases are registered from static initialisers and run on
// the main thread.
#ifndef MA_BENCH_BENCH_CASE_H_
#define MA_BENCH_BENCH_CASE_H_

#include <functional>
#include <string>
#include <vector>

namespace bench {

// One operation of a case; called once per iteration.
using Operation = std::function<void()>;

// Builds a case's fixture for `arg` (not measured) and returns the operation
// to measure, which owns the fixture.
using Setup = std::function<Operation(long arg)>;

// Registers one case per element of `args`. `elementsPerOperation(arg)`
// says how many elements (children, leaves, levels, ...) one operation
// handles, for the per-element figures; by default 1.
void addCase(std::string const& scenario, std::string const& variant, std::vector<long> const& args,
             Setup setup, std::function<long(long)> elementsPerOperation = nullptr);

// Helper for registration from a static initialiser:
//   const bench::Registration kSort([] { bench::addCase(...); });
struct Registration {
  explicit Registration(std::function<void()> const& registerCases) { registerCases(); }
};

// Keeps `value` from being optimised away.
template <typename T>
inline void keep(T const& value) {
  asm volatile("" : : "r,m"(value) : "memory");
}

}  // namespace bench

#endif  // MA_BENCH_BENCH_CASE_H_
