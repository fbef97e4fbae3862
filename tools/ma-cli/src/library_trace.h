// SPDX-License-Identifier: Apache-2.0
// Copyright 2026 The libma-common Authors
//
// The library's debug trace, as the tool handles it.
//
// The library writes failure lines (a path step that fails, a URI it
// rejects) through the platform's debug trace, which the stand-in prints on
// stderr. The tool's stderr carries one line per error of its own, so it
// silences the trace for the whole run (silenceLibraryTrace()) and shows
// the lines that explain a failure itself: a TraceRecording collects the
// lines of one operation.
//
// Thread-safety: the tool uses the trace from its one thread.
#ifndef MA_CLI_LIBRARY_TRACE_H_
#define MA_CLI_LIBRARY_TRACE_H_

#include <string>
#include <vector>

namespace ma_cli {

// Lets no line of the library's modules through from now on.
void silenceLibraryTrace();

// Collects, while it lives, the lines that the trace would write with its
// default levels (failures and path queries; call tracing is left out).
// Recordings do not nest.
class TraceRecording {
 public:
  TraceRecording();
  TraceRecording(TraceRecording const&) = delete;
  TraceRecording& operator=(TraceRecording const&) = delete;
  // Ends the recording; the trace is silent again.
  ~TraceRecording();

  // The lines so far, each without its line feed and with the source line
  // number taken out of its "file:line:function(): " prefix (the number
  // changes with every edit of the library's source, the text does not):
  // "mdc_vfs_fixed:resolvePathPart(): Invalid path: ...".
  std::vector<std::string> lines() const;

  // lines() joined with "; ", or "" without lines.
  std::string joined() const;
};

}  // namespace ma_cli

#endif  // MA_CLI_LIBRARY_TRACE_H_
