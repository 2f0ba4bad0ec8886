// Reading the events log back in tests: the whole log as text with each
// CR LF turned into '\n', after the lines a roll still holds are written.
#pragma once

#include <string>

#include "core/game.h"
#include "logs/events_log.h"
#include "tests/support/file_text.h"

inline std::string EventsLogText(Game& g) {
  FlushEventsLog(g);
  std::string raw = ReadWholeFile(g.roll.EventsLogPath), text;
  for (std::size_t i = 0; i < raw.size(); ++i)
    if (!(raw[i] == '\r' && i + 1 < raw.size() && raw[i + 1] == '\n')) text += raw[i];
  return text;
}

// Empties the log, so a test can look at what comes next on its own.
inline void ClearEventsLogText(Game& g) { ClearEventsLog(g); }
