// The batch engine: many independent sessions played from one starting
// game, each in its own copy of it, with its own generator and platform.
//
// Why: one long run says little about a player who sits down with a
// bankroll for an evening; thousands of short sessions show how often that
// player goes broke or reaches a goal, and how the results spread.
//
// What must stay true:
// - Session k is seeded from the batch seed and k alone, so its result is
//   the same bit for bit whatever the threads or processes that play it.
// - Threads share nothing mutable but the index of the next session to
//   take, the count of sessions done and the first failure; each writes
//   only its own result slots.
// - The starting game is never changed, and a session touches no file:
//   no sessions-log record, no events log, no dice roll file.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/currency.h"
#include "core/frames.h"

struct Game;

constexpr int kBatchSeats = 8;
// The most sessions one batch plays: every session's result is held until
// the figures are made, a few hundred bytes each.
constexpr std::int64_t kMostBatchSessions = 10'000'000;

// How a player's session ended: still in play at the end, broke, or
// stopped by a stop-win or stop-loss.
enum class PlayerOutcome : std::uint8_t { kInPlay, kBroke, kStopWin, kStopLoss };

// Why the whole session ended.
enum class SessionEnd : std::uint8_t { kRolls, kHands, kNoPlayerLeft, kGameStop };

struct BatchConfig {
  std::int64_t sessions = 0;
  std::int64_t rolls = 0;  // 0: no roll limit
  std::int64_t hands = 0;  // 0: no hand limit
  std::uint64_t seed = 1;
  // By seat 1..8 (index 0 unused): a stop-win at a net of at least X, a
  // stop-loss at a net of X or worse (X given as a loss, positive).
  std::array<std::optional<Currency>, kBatchSeats + 1> stopWin{};
  std::array<std::optional<Currency>, kBatchSeats + 1> stopLoss{};
};

struct SessionResult {
  std::int64_t index = 0;
  Long seed = 0;
  Long rolls = 0;
  Long hands = 0;
  SessionEnd end = SessionEnd::kRolls;
  std::string stop;  // the game's own stop message, if any
  std::array<Currency, kBatchSeats + 1> net{};
  std::array<Currency, kBatchSeats + 1> wagered{};
  std::array<PlayerOutcome, kBatchSeats + 1> outcome{};
  std::array<int, kBatchSeats + 1> onlyBet{};  // OnlyBetWagered at the player's end

  friend bool operator==(const SessionResult&, const SessionResult&) = default;
};

// The generator seed of session k: a mix of the batch seed and k, within
// 1..limit (the selected generator's largest seed).
Long SessionSeed(std::uint64_t batchSeed, std::int64_t k, Long limit);

// A seated player's session net: the bankroll (the rail and the bets on the
// table) less the buy-in.
Currency PlayerNet(const Game& game, int seat);
// What a seated player wagered on decided bets this session.
Currency PlayerWagered(const Game& game, int seat);
// The one bet id the seat wagered on this session, 0 for none or several.
int OnlyBetWagered(const Game& game, int seat);

// Plays session k from a copy of `start` and returns what it came to.
SessionResult PlaySession(const Game& start, const BatchConfig& config, std::int64_t k);
// The same in `game`, which is overwritten with `start` first: a worker
// keeps one game for all its sessions, so a session allocates no new one
// and its copy reuses the memory the last session touched.
SessionResult PlaySessionIn(Game& game, const Game& start, const BatchConfig& config,
                            std::int64_t k);

// Plays the sessions named by `indices` on `threads` threads (at least 1);
// results in the order of `indices`. `progress`, when set, is called from
// the calling thread about every tenth of a second with the sessions done.
// An exception in any thread (memory for a game's copy) stops the rest and
// is thrown again here once every thread has ended; where the system gives
// fewer threads than asked, the sessions play on those it gives.
std::vector<SessionResult> PlaySessions(const Game& start, const BatchConfig& config,
                                        const std::vector<std::int64_t>& indices, int threads,
                                        const std::function<void(std::int64_t)>& progress = {});
