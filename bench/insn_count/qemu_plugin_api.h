// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The few functions of QEMU's TCG plugin interface that the instruction
// counter uses, declared as QEMU 7.2 defines them (include/qemu/qemu-plugin.h
// of QEMU 7.2, plugin API version 1). Debian's qemu-user 7.2 loads plugins
// (-plugin) but ships no header for them; the functions below are resolved
// in the qemu binary when it loads the plugin.
//
// Only declarations: the types are opaque or plain integers, the signatures
// those of QEMU 7.2 (unchanged from plugin API version 1 up to QEMU 8.2).
#ifndef MA_BENCH_QEMU_PLUGIN_API_H_
#define MA_BENCH_QEMU_PLUGIN_API_H_

#include <stddef.h>
#include <stdint.h>

#define QEMU_PLUGIN_EXPORT __attribute__((visibility("default")))

// The API version this plugin is built against (QEMU 7.2 accepts 1).
#define QEMU_PLUGIN_VERSION 1

typedef uint64_t qemu_plugin_id_t;

// What QEMU tells the plugin about itself when installing it.
typedef struct qemu_info_t {
  const char* target_name;
  struct {
    int min;
    int cur;
  } version;
  _Bool system_emulation;
  union {
    struct {
      int smp_vcpus;
      int max_vcpus;
    } system;
  };
} qemu_info_t;

// A block of guest code being translated (opaque).
struct qemu_plugin_tb;

typedef void (*qemu_plugin_udata_cb_t)(qemu_plugin_id_t id, void* userdata);
typedef void (*qemu_plugin_vcpu_tb_trans_cb_t)(qemu_plugin_id_t id, struct qemu_plugin_tb* tb);
typedef void (*qemu_plugin_vcpu_syscall_cb_t)(qemu_plugin_id_t id, unsigned int vcpu_index,
                                              int64_t num, uint64_t a1, uint64_t a2, uint64_t a3,
                                              uint64_t a4, uint64_t a5, uint64_t a6, uint64_t a7,
                                              uint64_t a8);

// The one inline operation of API version 1: *ptr += imm, not atomic.
enum qemu_plugin_op {
  QEMU_PLUGIN_INLINE_ADD_U64,
};

// Exported by the plugin: the API version it was built against, and its
// entry point (0: installed).
extern QEMU_PLUGIN_EXPORT int qemu_plugin_version;
QEMU_PLUGIN_EXPORT int qemu_plugin_install(qemu_plugin_id_t id, const qemu_info_t* info, int argc,
                                           char** argv);

// Provided by QEMU.
void qemu_plugin_register_vcpu_tb_trans_cb(qemu_plugin_id_t id, qemu_plugin_vcpu_tb_trans_cb_t cb);
void qemu_plugin_register_vcpu_tb_exec_inline(struct qemu_plugin_tb* tb, enum qemu_plugin_op op,
                                              void* ptr, uint64_t imm);
size_t qemu_plugin_tb_n_insns(const struct qemu_plugin_tb* tb);
uint64_t qemu_plugin_tb_vaddr(const struct qemu_plugin_tb* tb);
void qemu_plugin_register_vcpu_syscall_cb(qemu_plugin_id_t id, qemu_plugin_vcpu_syscall_cb_t cb);
void qemu_plugin_register_atexit_cb(qemu_plugin_id_t id, qemu_plugin_udata_cb_t cb, void* userdata);
void qemu_plugin_outs(const char* string);

#endif  // MA_BENCH_QEMU_PLUGIN_API_H_
