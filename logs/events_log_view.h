// What the events log viewer (frmEventsLog) does with the log, without a
// window: a page of lines from any line by the index, the top line and its
// scroll bar, the colour class of a line, Find, and the file commands.
//
// The viewer never reads the log from its start to show a page: it checks
// that the index belongs to the log (rebuilding it in one pass when it does
// not: a crash between the two appends, an edit by hand), seeks to the
// index record of the first line wanted and reads from there.
//
// What must stay true:
// - Reading first writes out the lines a roll still holds, so the viewer
//   and the writer never disagree about where the log ends.
// - A page holds at most the lines asked for, each cut at
//   kEventsLogShownLine bytes, whatever the log holds: a hostile log
//   cannot make a read allocate without bound.
// - LogTopLine stays within 1..lines (1 for an empty or missing log).
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

struct Game;

// Longest part of a line that a read returns.
constexpr std::size_t kEventsLogShownLine = 4096;
// The viewer's scroll bar never goes beyond this value.
constexpr std::int64_t kEventsLogScrollRange = 30000;

struct EventsLogPage {
  std::int64_t lineCount = 0;  // lines in the log
  std::int64_t first = 0;      // number of lines[0]
  std::vector<std::string> lines;
  std::string error;  // a log or index that could not be read or rebuilt
};

// The number of lines of the log, after making its index fit it; 0 when the
// log is missing. error names the file when the index cannot be rebuilt.
std::int64_t PrepareEventsLogIndex(Game& game, std::string& error);
// Lines first .. first + count - 1 (fewer at the end), read by the index.
EventsLogPage ReadEventLines(Game& game, std::int64_t first, int count);
// Every line of the log in order, each cut as ReadEventLines cuts them, in
// one pass through the log and its index; `visit` may take the line's text.
// error is set when the files cannot be read.
void ForEachEventLine(Game& game, const std::function<void(std::string&)>& visit, std::string& error);
// The viewer's paint: LogTopLine clamped to the log, then `rows` lines from it.
EventsLogPage PaintEventsLog(Game& game, int rows);

// The scroll bar's maximum for a log of `lines` lines.
std::int64_t EventsLogScrollMax(std::int64_t lines);
// The top line after a change event of the bar from oldValue to newValue.
std::int64_t TopLineAfterScroll(std::int64_t top, std::int64_t lines, std::int64_t oldValue,
                                std::int64_t newValue);
// The bar's value that shows `top` (the thumb follows the top line).
std::int64_t ScrollValueOfTopLine(std::int64_t top, std::int64_t lines);
// The top line for the bar's value when the thumb is dragged.
std::int64_t TopLineOfThumb(std::int64_t value, std::int64_t lines);

// How the viewer draws a line.
enum class EventLineKind { Plain, Session, Roll };
struct EventLineLook {
  EventLineKind kind = EventLineKind::Plain;
  // For a roll line, the number behind the first ':' (drawn on a box).
  std::size_t numberStart = 0, numberLength = 0;
};
EventLineLook LookOfEventLine(std::string_view line);

// mnuFind: asks for the text and stores it lower-cased; false on Cancel.
bool AskFindText(Game& game);
// Find(direction): from LogTopLine, one line at a time in direction +1 or
// -1, wrapping, once round at most; a hit becomes LogTopLine, a miss shows
// "Text not found.". True on a hit.
bool FindInEventsLog(Game& game, int direction);

// The viewer's title: "Events Log", or "Events Log (" + file name + ")".
std::string EventsLogTitle(const Game& game);
// mnuNew's question for the default log; the answer (Yes: save it as first).
// kAnswerOk when the log has a name of its own and nothing is asked.
int AskSaveEventsLog(Game& game);
// mnuNew after the question: a fresh default log in the data folder.
void StartNewEventsLog(Game& game);
// mnuOpen: the chosen file becomes the log; its index is rebuilt on reading.
void OpenEventsLog(Game& game, const std::string& path);
// mnuSaveAs: renames the log to target (asking before replacing a file
// there); false with the message shown when it cannot.
bool SaveEventsLogAs(Game& game, const std::string& target);
