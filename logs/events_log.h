// The events log: a plain-text diary of the game, one event per line ended
// by CR LF, and its index ("Events Log.ref", in the data folder), whose
// record n is the 1-based byte position in the log of the start of line n,
// a 4-byte number stored low byte first.
//
// Every part of the game that logs calls WriteEventLine after testing LogOn
// and its kind's flag. Outside a roll each line reaches the disk at once.
// While a roll is busy (RollBusy) the lines are kept in memory and appended
// in one write by FlushEventsLog, which the roll calls when it ends and the
// writer calls itself whenever a batch grows past kEventsLogBatch bytes, so
// a Hyper-Drive run with logging on writes in large blocks.
//
// What must stay true:
// - After a flush the index has exactly one record per line of the log, and
//   its modification time equals the log's; a reader that finds otherwise
//   rebuilds it (events_log_index.h), never trusting it blindly.
// - With LogOn off nothing here runs; with it on a line costs a copy into
//   a buffer that does not grow after its first use.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/currency.h"

struct Game;

// A batch is written out when it holds this many bytes of text.
constexpr std::size_t kEventsLogBatch = 64 * 1024;

// The log a game keeps when none other is chosen: the data folder's
// "Events Log.txt".
std::string DefaultEventsLogPath(const Game& game);
// Sets the index path and the default log path from the data folder and
// reserves the writer's buffers (start-up).
void InitEventsLog(Game& game);
// Empties the reused line buffer and returns it, to build a line in.
std::string& StartEventLine(Game& game);
// Appends one line (without its CR LF) to the log and its index record.
void WriteEventLine(Game& game, std::string_view text);
// Writes the lines held back during a roll; false (and WriteError) on failure.
bool FlushEventsLog(Game& game);
// Deletes the log and its index and puts the viewer back at line 1.
void ClearEventsLog(Game& game);

// Appends a whole number in decimal, without separators or allocation.
void AppendWhole(std::string& out, std::int64_t n);
// Appends an amount as a plain number: no thousands separator, no trailing zeros.
void AppendPlainAmount(std::string& out, Currency amount);
