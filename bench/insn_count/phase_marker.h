// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The phase markers between a benchmark program and the instruction-counting
// QEMU plugin (insn_count.c): system calls with a number no kernel defines,
// so that natively they only fail with ENOSYS and under QEMU the plugin sees
// them (its system-call callback runs before QEMU answers ENOSYS). The
// harness makes them only when asked to (--phase-markers), never while a
// benchmark is timed.
//
//   syscall(MA_PHASE_MARKER, MA_PHASE_WATCH, address)  count the calls of
//                                                      the function at address
//   syscall(MA_PHASE_MARKER, MA_PHASE_BEGIN, n)        a measured phase begins
//   syscall(MA_PHASE_MARKER, MA_PHASE_END, n)          phase n ends: the plugin
//                                                      writes "n instructions calls"
//
// C and C++; no state.
#ifndef MA_BENCH_PHASE_MARKER_H_
#define MA_BENCH_PHASE_MARKER_H_

#define MA_PHASE_MARKER 0x4d41 /* "MA": far above every Linux system call number */

#define MA_PHASE_WATCH 1
#define MA_PHASE_BEGIN 2
#define MA_PHASE_END 3

/* Entry points whose calls the plugin counts at most (malloc, calloc, ...). */
#define MA_PHASE_MAX_WATCHED 8

#endif /* MA_BENCH_PHASE_MARKER_H_ */
