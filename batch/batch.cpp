#include "batch/batch.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <exception>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>

#include "core/frames.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "core/money.h"
#include "cycle/hyperdrive.h"
#include "dice/rng.h"
#include "engine/players.h"

namespace {

constexpr auto kProgressEvery = std::chrono::milliseconds(100);

std::uint64_t SplitMix64(std::uint64_t x) {
  x += 0x9E3779B97F4A7C15ULL;
  x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ULL;
  x = (x ^ (x >> 27)) * 0x94D049BB133111EBULL;
  return x ^ (x >> 31);
}

// What the observer of one session needs: its limits and its result.
struct SessionWatch {
  Game* game = nullptr;
  const BatchConfig* config = nullptr;
  SessionResult* result = nullptr;
  Long rollsBefore = 0, handsBefore = 0;              // a loaded game's tallies go on from these
  std::array<Currency, kBatchSeats + 1> netBefore{};  // and its players' nets and wagers
  std::array<Currency, kBatchSeats + 1> wageredBefore{};
  bool endedByUs = false;
};

// The net of this session: a loaded game's players may have won or lost before.
Currency SessionNet(const SessionWatch& w, int p) { return PlayerNet(*w.game, p) - w.netBefore[p]; }

bool InPlay(const SessionResult& r, const Game& game, int p) {
  return Seated(game, p) && r.outcome[p] == PlayerOutcome::kInPlay;
}

// Cashes out a player who reached a stop, as Players > Remove does; the
// contract bets that can't come down are lost with the seat.
void StopPlayer(const SessionWatch& w, Game& game, SessionResult& r, int p, PlayerOutcome why) {
  r.net[p] = SessionNet(w, p) - AbandonedAmount(game, p);
  r.wagered[p] = PlayerWagered(game, p) - w.wageredBefore[p];
  r.onlyBet[p] = OnlyBetWagered(game, p);
  r.outcome[p] = why;
  game.betting.CurPlayer = p;
  CashOutPlayer(game);  // the headless platform answers Yes
}

// A player is broke when the bankroll (rail and bets) is below the table
// minimum, unless allowed a negative bankroll.
void WatchRoll(void* context, const Game&) {
  auto& w = *static_cast<SessionWatch*>(context);
  Game& game = *w.game;
  SessionResult& r = *w.result;
  const BatchConfig& c = *w.config;
  bool anyInPlay = false;
  for (int p = 1; p <= kBatchSeats; ++p) {
    if (!InPlay(r, game, p)) continue;
    const Currency net = SessionNet(w, p);
    if (c.stopWin[p] && net >= *c.stopWin[p]) {
      StopPlayer(w, game, r, p, PlayerOutcome::kStopWin);
    } else if (c.stopLoss[p] && net <= -*c.stopLoss[p]) {
      StopPlayer(w, game, r, p, PlayerOutcome::kStopLoss);
    } else if (!game.betting.AllowNegBankroll(p) &&
               game.Bet(p, bet::kBankroll) < game.rules.MinPlacardBet) {
      r.outcome[p] = PlayerOutcome::kBroke;
    } else {
      anyInPlay = true;
    }
  }
  const Long rolls = game.RollTally(kTableSession, kEventRolls) - w.rollsBefore;
  const Long hands = game.HandsTally(kTableSession) - w.handsBefore;
  if (!anyInPlay) {
    r.end = SessionEnd::kNoPlayerLeft;
  } else if (c.hands > 0 && hands >= c.hands) {
    r.end = SessionEnd::kHands;
  } else if (c.rolls > 0 && rolls >= c.rolls) {
    r.end = SessionEnd::kRolls;
  } else {
    return;
  }
  w.endedByUs = true;
  game.KeepRolling = false;
}

}  // namespace

Long SessionSeed(std::uint64_t batchSeed, std::int64_t k, Long limit) {
  const std::uint64_t mixed = SplitMix64(SplitMix64(batchSeed) ^ static_cast<std::uint64_t>(k));
  return static_cast<Long>(mixed % static_cast<std::uint64_t>(limit)) + 1;
}

Currency PlayerNet(const Game& game, int seat) {
  return game.Bet(seat, bet::kBankroll) - game.InvestedBankroll(seat);
}

Currency PlayerWagered(const Game& game, int seat) {
  const int f = FrameIndex(seat, kFrameCurrentSession);
  // Summed in 128 bits, each total holding up to a total's limit, and held
  // to that limit too, so that the difference of two sums stays in 64 bits.
  WideRaw sum = 0;
  for (int b = 1; b <= kLastRealBet; ++b) sum += game.StatAction(f, b, kStatTotal).raw;
  return HeldWithin(CurFromWide(sum), kStatTotalLimit);
}

int OnlyBetWagered(const Game& game, int seat) {
  const int f = FrameIndex(seat, kFrameCurrentSession);
  int only = 0;
  for (int b = 1; b <= kLastRealBet; ++b) {
    if (game.StatAction(f, b, kStatTotal) <= Currency{}) continue;
    if (only != 0) return 0;
    only = b;
  }
  return only;
}

namespace {

// Plays session k in `copy`, a copy of `start`.
SessionResult PlayCopy(Game& copy, const Game& start, const BatchConfig& config, std::int64_t k) {
  HeadlessPlatform platform;
  platform.minimized = true;  // no stop message shown at the end
  Game* game = &copy;
  game->platform = &platform;
  // Sessions played at once from one game would all share its files: none
  // of them records into the sessions logs or the events log (nor clears
  // it at a script's new session), or records or plays back the dice roll
  // file (each draws its own dice).
  game->roll.SessionLogsOn = false;
  game->roll.LogOn = game->roll.LogClearOnNew = false;
  game->diceFile.DiceFileMode = kDiceFileInactive;
  SessionResult r;
  r.index = k;
  r.seed = SessionSeed(config.seed, k, SeedLimit(game->dice.RngIndex));
  SeedRngWith(*game, r.seed);
  SessionWatch watch{game, &config, &r, start.RollTally(kTableSession, kEventRolls),
                     start.HandsTally(kTableSession)};
  for (int p = 1; p <= kBatchSeats; ++p)
    if (Seated(start, p)) {
      watch.netBefore[p] = PlayerNet(start, p);
      watch.wageredBefore[p] = PlayerWagered(start, p);
    }
  game->hyper.RollObserver = WatchRoll;
  game->hyper.RollObserverContext = &watch;
  game->hyper.RunRollLimit = 0;  // the watch applies the limits
  game->HyperDrive = game->KeepRolling = false;
  RunHyperDrive(*game);
  if (!watch.endedByUs) {
    r.end = SessionEnd::kGameStop;
    r.stop = game->hyper.LastStopMessage.empty() ? game->StopMessage : game->hyper.LastStopMessage;
  }
  r.rolls = game->RollTally(kTableSession, kEventRolls) - watch.rollsBefore;
  r.hands = game->HandsTally(kTableSession) - watch.handsBefore;
  for (int p = 1; p <= kBatchSeats; ++p) {
    if (r.outcome[p] == PlayerOutcome::kStopWin || r.outcome[p] == PlayerOutcome::kStopLoss)
      continue;
    if (!Seated(*game, p)) continue;
    r.net[p] = SessionNet(watch, p);
    r.wagered[p] = PlayerWagered(*game, p) - watch.wageredBefore[p];
    r.onlyBet[p] = OnlyBetWagered(*game, p);
  }
  return r;
}

}  // namespace

SessionResult PlaySession(const Game& start, const BatchConfig& config, std::int64_t k) {
  auto game = std::make_unique<Game>(start);
  return PlayCopy(*game, start, config, k);
}

SessionResult PlaySessionIn(Game& game, const Game& start, const BatchConfig& config,
                            std::int64_t k) {
  game = start;
  return PlayCopy(game, start, config, k);
}

std::vector<SessionResult> PlaySessions(const Game& start, const BatchConfig& config,
                                        const std::vector<std::int64_t>& indices, int threads,
                                        const std::function<void(std::int64_t)>& progress) {
  std::vector<SessionResult> results(indices.size());
  // Reading a roll tally may settle it (core/roll_tally.h): done once here,
  // the threads share `start` for reading only.
  (void)start.RollTally.Settled();
  std::atomic<std::size_t> next{0};
  std::atomic<std::int64_t> done{0};
  std::atomic<bool> failed{false};
  std::mutex failureLock;
  std::exception_ptr failure;  // the first thing that went wrong in any thread
  // An exception must not leave a thread: it would end the program. The
  // first is kept for the caller, and no thread takes a new session after it.
  auto work = [&]() noexcept {
    try {
      auto game = std::make_unique<Game>(start);
      for (std::size_t i = next++; i < indices.size(); i = next++) {
        results[i] = PlaySessionIn(*game, start, config, indices[i]);
        ++done;
      }
    } catch (...) {
      const std::lock_guard hold(failureLock);
      if (!failure) failure = std::current_exception();
      next = indices.size();
      failed = true;
    }
  };
  {
    std::vector<std::thread> pool;
    // Leaving this block, even by a throwing progress call, gives up the
    // sessions still to come and joins every thread.
    struct Joiner {
      std::vector<std::thread>& pool;
      std::atomic<std::size_t>& next;
      std::size_t end;
      ~Joiner() {
        next = end;
        for (auto& t : pool) t.join();
      }
    } joiner{pool, next, indices.size()};
    // With a progress report the calling thread reports and the others play.
    const int n = std::max(1, threads);
    const int helpers = progress ? n : n - 1;
    for (int t = 0; t < helpers; ++t) {
      try {
        pool.emplace_back(work);
      } catch (const std::system_error&) {
        break;  // the system has no more threads to give: play on with those there are
      }
    }
    if (progress && !pool.empty()) {
      while (!failed && done.load() < static_cast<std::int64_t>(indices.size())) {
        std::this_thread::sleep_for(kProgressEvery);
        progress(done.load());
      }
    } else {
      work();
    }
  }
  if (failure) std::rethrow_exception(failure);
  return results;
}
