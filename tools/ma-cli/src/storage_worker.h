// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The storage worker: one background thread that runs the jobs of the
// directory VFS (reading a directory), as a receiver's storage service
// answers its clients from a thread of its own.
//
// Jobs run one after another in the order they were posted. The worker
// starts with the first job and stops (joining its thread) when the
// process ends.
//
// Thread-safety: post() may be called from any thread.
#ifndef MA_CLI_STORAGE_WORKER_H_
#define MA_CLI_STORAGE_WORKER_H_

#include <functional>

namespace ma_cli {

// Runs `job` on the storage worker's thread, after the jobs posted before
// it. A job must not throw.
void postToStorageWorker(std::function<void()> job);

}  // namespace ma_cli

#endif  // MA_CLI_STORAGE_WORKER_H_
