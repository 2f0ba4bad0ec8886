// Every session of a batch as CSV, one line a session, for a spreadsheet or
// a statistics package: "session,seed,rolls,hands,end", then each player's
// net and how the player's session ended, then the game's stop message.
// ravelton-cli batch --csv --per-session prints it; the Batch Run window
// saves it to a file.
//
// What must stay true: amounts are exact (every ten-thousandth, no
// thousands separators), and a field holding a comma, a quote or a line
// break is quoted, so any CSV reader gets the values back.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "batch/batch.h"
#include "batch/batch_stats.h"

// A CSV field: quoted when it holds a comma, a quote or a line break, with
// quotes doubled and line breaks turned into blanks.
std::string CsvField(std::string_view text);
// A figure as the shortest text that reads back as the same double.
std::string ShortestText(double value);
// Why a session ended, and how a player's session ended, as the CSV says.
const char* SessionEndName(SessionEnd end);
const char* PlayerOutcomeName(PlayerOutcome outcome);

// The heading line of the players' columns, with its line end.
std::string SessionsCsvHeading(const std::vector<PlayerSummary>& players);
// Appends the line of one session, with its line end.
void AppendSessionCsvLine(std::string& out, const SessionResult& session,
                          const std::vector<PlayerSummary>& players);
// Writes the heading and every session's line to `path` through a temporary
// file beside it; false with `error` naming the file.
bool WriteSessionsCsv(const std::string& path, const std::vector<SessionResult>& sessions,
                      const std::vector<PlayerSummary>& players, std::string& error);
