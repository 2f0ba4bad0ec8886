// The index of the events log: building it from the log in one pass, and
// telling whether an index on disk belongs to its log.
//
// What must stay true:
// - Record n (from 1) is the 1-based position of the first byte of line n;
//   a line ends at LF (the log writes CR LF), and a last line without one
//   still counts. An empty log has an empty index.
// - A rebuilt index replaces the old one only when it is complete (through
//   a temporary file), and then carries the log's modification time.
// - The check reads a few records and the log's last line, whatever the
//   log's size; an index it accepts has its first, middle and last records
//   on line starts, increasing, the last line ending the file, one record
//   per 4 bytes, and the log's time stamp.
#pragma once

#include <cstdint>
#include <string>

// Positions in the index are unsigned 32-bit numbers, so a log is indexed
// up to this many bytes.
constexpr std::int64_t kEventsLogMaxIndexed = 0xFFFFFFFFLL;

// Rebuilds the index of the log at logPath (an empty index for a missing or
// empty log); false with an error naming the file.
bool BuildEventsLogRef(const std::string& logPath, const std::string& indexPath,
                       std::string& error);
// True when the index at indexPath belongs to the log at logPath as it is now.
bool EventsLogIndexMatches(const std::string& logPath, const std::string& indexPath);
