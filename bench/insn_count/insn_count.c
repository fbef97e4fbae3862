// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// A QEMU TCG plugin that counts the guest instructions a program executes
// between its phase markers (phase_marker.h), and the calls of the functions
// it is told to watch (the allocator's entry points), for qemu-arm and
// qemu-x86_64 in user mode:
//
//   qemu-arm -L /usr/arm-linux-gnueabihf
//            -plugin build/host-release/bench/libinsn_count.so,out=counts.txt
//            build/arm-release-bench/bench/path_bench --instructions --phase-markers
//
// Each translated block adds its instruction count to one counter, and one
// to its own execution count, inline (no call out of the generated code), so
// the counts are exact whatever the block's length. At the end of each phase
// the plugin writes "<phase> <instructions> <calls of watched functions>" to
// the file named by out= (or to QEMU's log without it).
//
// Single-threaded guests only: the inline additions are not atomic.
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "phase_marker.h"
#include "qemu_plugin_api.h"

QEMU_PLUGIN_EXPORT int qemu_plugin_version = QEMU_PLUGIN_VERSION;

// Guest instructions executed so far.
static uint64_t executed;

// Execution counts of translated blocks by their first address, in an
// open-addressing table (blocks translated again share their slot).
struct BlockCount {
  uint64_t vaddr;
  uint64_t executions;
};
enum { kBlockSlots = 1 << 20 };
static struct BlockCount* blocks;
static size_t blocksUsed;

static uint64_t watched[MA_PHASE_MAX_WATCHED];
static int watchedCount;

static uint64_t phaseInstructions;  // at the phase's beginning
static uint64_t phaseCalls;
static FILE* out;

// The slot of the block at `vaddr`, made when `make` (NULL when absent).
static struct BlockCount* blockAt(uint64_t vaddr, int make) {
  size_t slot = (size_t)((vaddr * 0x9E3779B97F4A7C15ull) >> 44) & (kBlockSlots - 1);
  while (blocks[slot].vaddr != vaddr) {
    if (blocks[slot].vaddr == 0) {
      if (!make) return NULL;
      if (++blocksUsed > kBlockSlots / 2) {
        fprintf(stderr, "insn_count: more than %d translated blocks\n", kBlockSlots / 2);
        abort();
      }
      blocks[slot].vaddr = vaddr;
      break;
    }
    slot = (slot + 1) & (kBlockSlots - 1);
  }
  return &blocks[slot];
}

// Calls of the watched functions so far: executions of the blocks that
// begin at their entry points.
static uint64_t watchedCalls(void) {
  uint64_t calls = 0;
  for (int i = 0; i < watchedCount; ++i) {
    struct BlockCount const* block = blockAt(watched[i], 0);
    if (block != NULL) calls += block->executions;
  }
  return calls;
}

static void onTranslation(qemu_plugin_id_t id, struct qemu_plugin_tb* tb) {
  (void)id;
  qemu_plugin_register_vcpu_tb_exec_inline(tb, QEMU_PLUGIN_INLINE_ADD_U64, &executed,
                                           qemu_plugin_tb_n_insns(tb));
  qemu_plugin_register_vcpu_tb_exec_inline(tb, QEMU_PLUGIN_INLINE_ADD_U64,
                                           &blockAt(qemu_plugin_tb_vaddr(tb), 1)->executions, 1);
}

static void onSyscall(qemu_plugin_id_t id, unsigned int vcpu, int64_t number, uint64_t what,
                      uint64_t value, uint64_t a3, uint64_t a4, uint64_t a5, uint64_t a6,
                      uint64_t a7, uint64_t a8) {
  (void)id, (void)vcpu, (void)a3, (void)a4, (void)a5, (void)a6, (void)a7, (void)a8;
  if (number != MA_PHASE_MARKER) return;
  if (what == MA_PHASE_WATCH && watchedCount < MA_PHASE_MAX_WATCHED) {
    watched[watchedCount++] = value;
  } else if (what == MA_PHASE_BEGIN) {
    phaseInstructions = executed;
    phaseCalls = watchedCalls();
  } else if (what == MA_PHASE_END) {
    char line[96];
    snprintf(line, sizeof line, "%llu %llu %llu\n", (unsigned long long)value,
             (unsigned long long)(executed - phaseInstructions),
             (unsigned long long)(watchedCalls() - phaseCalls));
    if (out != NULL) {
      fputs(line, out);
      fflush(out);
    } else {
      qemu_plugin_outs(line);
    }
  }
}

static void onExit(qemu_plugin_id_t id, void* userdata) {
  (void)id, (void)userdata;
  if (out != NULL) fclose(out);
  out = NULL;
}

QEMU_PLUGIN_EXPORT int qemu_plugin_install(qemu_plugin_id_t id, const qemu_info_t* info, int argc,
                                           char** argv) {
  (void)info;
  for (int i = 0; i < argc; ++i) {
    if (strncmp(argv[i], "out=", 4) == 0) {
      out = fopen(argv[i] + 4, "w");
      if (out == NULL) {
        fprintf(stderr, "insn_count: cannot write %s\n", argv[i] + 4);
        return 1;
      }
    } else {
      fprintf(stderr, "insn_count: unknown argument %s (only out=FILE)\n", argv[i]);
      return 1;
    }
  }
  blocks = calloc(kBlockSlots, sizeof *blocks);
  if (blocks == NULL) return 1;
  qemu_plugin_register_vcpu_tb_trans_cb(id, onTranslation);
  qemu_plugin_register_vcpu_syscall_cb(id, onSyscall);
  qemu_plugin_register_atexit_cb(id, onExit, NULL);
  return 0;
}
