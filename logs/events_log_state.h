// The events log writer's working state: the index file beside the log,
// the line shown at the top of the viewer, the reused line buffer, and the
// lines a roll has written that are not yet on disk. The log's switches
// (LogOn and the kinds) and its path stay with the roll's state
// (RollState), which is where the game reads and saves them.
//
// What must stay true:
// - PendingText holds whole lines, each ended by CR LF, and PendingIndex
//   one 4-byte record per line: the 1-based position in the log at which
//   that line starts, counting from BaseLength.
// - BaseLength is -1 whenever nothing is pending; the writer reads the
//   files' lengths afresh for every batch, so a log changed between two
//   batches is appended to where it really ends.
// - The buffers only grow at their first use; on the roll path a line is
//   built in LogLine and copied once into PendingText, with no allocation.
#pragma once

#include <cstdint>
#include <string>

struct EventsLogState {
  std::string IndexPath;        // DataFolder & "Events Log.ref"
  std::int32_t LogTopLine = 1;  // the viewer's top line, 1-based
  std::string FindText;         // the viewer's search text, lower case

  std::string LogLine;           // the line under construction
  std::string PendingText;       // lines held back during a roll
  std::string PendingIndex;      // their index records
  std::int64_t BaseLength = -1;  // log length before PendingText; -1 when nothing pends
  std::int64_t BaseLines = 0;    // index records before PendingIndex

  // The last failure to write the log or its index, naming the file; empty
  // while all is well. The roll goes on without its log lines.
  std::string WriteError;

  friend bool operator==(const EventsLogState&, const EventsLogState&) = default;
};
