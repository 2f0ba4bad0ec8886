// The Batch Run window's settings as last used, kept in "Batch Run.txt" of
// the data folder so that a researcher's batch comes back as it was set:
// the sessions, the roll and hand limits, the seed, the threads, and the
// stops typed for each player, by name (a player seated again finds them).
//
// The file holds one "Key=value" a line; a stop's line is
// "Stop=<name><TAB><stop-win><TAB><stop-loss>", amounts in ten-thousandths,
// blank for none.
//
// What must stay true:
// - The file is written through a temporary and a rename, and a file that
//   cannot be written costs nothing else: it is a convenience.
// - A file that is long, binary or hostile is read only as far as
//   kBatchSettingsReadLimit bytes; a line not understood, or a value outside
//   its box's range, is skipped and its default stands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "batch/batch.h"
#include "core/currency.h"

struct Game;

// The boxes' ranges, shared by the window and the reader (the sessions'
// is kMostBatchSessions of batch.h).
constexpr std::int64_t kMostBatchRollsOrHands = 1'000'000'000;
constexpr std::int64_t kMostBatchSeed = 2'147'483'647;
constexpr int kMostBatchThreads = 256;
constexpr std::int64_t kDefaultBatchSessions = 1000;
// Stops kept for at most this many names, and the bytes of the file read.
constexpr std::size_t kBatchStopsKept = 64;
constexpr std::size_t kBatchSettingsReadLimit = 64 * 1024;

struct BatchStops {
  std::optional<Currency> win;
  std::optional<Currency> loss;
  friend bool operator==(const BatchStops&, const BatchStops&) = default;
};

struct BatchSettings {
  std::int64_t sessions = kDefaultBatchSessions;
  std::int64_t rolls = 0;  // 0: no limit
  std::int64_t hands = 0;  // 0: no limit
  std::int64_t seed = 1;
  int threads = 0;                          // 0: every core
  std::map<std::string, BatchStops> stops;  // by player name as seated
  friend bool operator==(const BatchSettings&, const BatchSettings&) = default;
};

// The settings file of the data folder.
std::string BatchSettingsPath(const Game& game);
// The settings last written; the defaults where the file is missing or a
// line of it is not understood.
BatchSettings ReadBatchSettings(const Game& game);
// Writes the settings (no more than kBatchStopsKept stops); false with
// `error` naming the file when it cannot be written.
bool WriteBatchSettings(const Game& game, const BatchSettings& settings, std::string& error);
