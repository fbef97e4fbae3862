// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The debug trace: which lines are written, and turning a module up. On the
// device the platform's debug configuration sets the levels; on the host the
// stand-in platform library has a threshold per module (zel/zel_standin.h).
#include <boost/shared_ptr.hpp>

// [guide:trace-includes]
#include "zel/zel_debug.h"    // zelDebugCheckLevelGetFrameAndChunk(), the platform's
#include "zel/zel_standin.h"  // zel_standin::setThreshold(), the host stand-in's only
// [guide:end]

#include "example_tree.h"

using example::check;

int main() {
  boost::shared_ptr<ma::VfsFixedFolder> root = example::buildMediaTree();

  // [guide:trace]
  const unsigned int kVfs = 375;         // the VFS and the item record
  const unsigned int kSelections = 126;  // selection URIs
  // A line of module m at level l passes when the platform lets the
  // category word m * 65536 + l through. The stand-in's default threshold,
  // 3000, writes failures (3000) and path queries (1), not call tracing (4000).
  check(!zelDebugCheckLevelGetFrameAndChunk(kVfs * 65536 + 4000), "call tracing off");
  root->resolvePath("$9");  // "...: Path: "9" with path part "9" specifies child that is out of range."

  zel_standin::setThreshold(kVfs, 4000);  // the VFS module up to call tracing
  check(zelDebugCheckLevelGetFrameAndChunk(24580000) != 0, "call tracing on");
  root->getIterator()->getNTotal();  // "...getNTotal(): Called.", "Init", "Post", "Wait", ...

  zel_standin::setThreshold(kSelections, 0);  // selections silent
  zel_standin::resetThresholds();             // every module back to 3000
  // [guide:end]
  check(zelDebugCheckLevelGetFrameAndChunk(8260536) != 0, "selection failures on again");

  // [guide:quiet-trace]
  // A host program that expects some paths not to resolve, without the
  // failure lines on stderr: the VFS module's threshold at 0 lets nothing
  // of it through.
  zel_standin::setThreshold(375, 0);
  check(!root->resolvePath("$9"), "still not resolved, but nothing written");
  check(!zelDebugCheckLevelGetFrameAndChunk(375 * 65536 + 3000), "VFS failures silent");
  // [guide:end]
  zel_standin::resetThresholds();
  return 0;
}
