// Batch throughput and the per-session set-up. BM_BatchSessions plays the
// same 64 sessions of 1,000 rolls on 1 and 2 threads (wall-clock time, so
// the sessions per second compare directly: on two free cores 2 threads
// should give about twice the rate). BM_SessionSetUp copies the starting
// game into a worker's kept game and seeds it, as each session does before
// its first roll;
// BM_Session10000Rolls plays a whole 10,000-roll session and reports the
// set-up's share of it (counter setup_share_pct, measured in the same run).
#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>
#include <numeric>
#include <vector>

#include "automation/autoplay_state.h"
#include "batch/batch.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/startup.h"
#include "dice/rng.h"
#include "engine/place.h"
#include "engine/players.h"

namespace {

constexpr int kSessions = 64;
constexpr int kShortRolls = 1'000;
constexpr int kLongRolls = 10'000;
constexpr int kSetUpSamples = 200;

// Two players: Ann on the Pass Line, Bo on the Field, Same Bet both ways.
std::unique_ptr<Game> StartingGame(HeadlessPlatform& platform) {
  auto game = MakeGame(platform);
  StartUp(*game);
  SeedRngWith(*game, 1);
  game->rules.BetRequirement = kNoBetRequired;  // Bo shoots without a line bet
  const struct {
    int seat, bet;
    const char* name;
  } seats[] = {{1, bet::kPassLine, "Ann"}, {4, bet::kField, "Bo"}};
  for (const auto& s : seats) {
    SeatPlayer(*game, s.seat, s.name, 1000_usd);
    game->betting.AllowNegBankroll(s.seat) = true;
    game->autoplay.HandleWinningBets(s.seat) = kWinSameBet;
    game->autoplay.HandleLosingBets(s.seat) = kLoseSameBet;
    game->BetRequest = 10_usd;
    PlaceBet(*game, s.seat, s.bet);
  }
  return game;
}

void BM_BatchSessions(benchmark::State& state) {
  HeadlessPlatform platform;
  const auto start = StartingGame(platform);
  BatchConfig config;
  config.rolls = kShortRolls;
  std::vector<std::int64_t> indices(kSessions);
  std::iota(indices.begin(), indices.end(), 0);
  for (auto _ : state)
    benchmark::DoNotOptimize(
        PlaySessions(*start, config, indices, static_cast<int>(state.range(0))));
  state.SetItemsProcessed(state.iterations() * kSessions);
}
BENCHMARK(BM_BatchSessions)->Arg(1)->Arg(2)->UseRealTime()->Unit(benchmark::kMillisecond);

void BM_SessionSetUp(benchmark::State& state) {
  HeadlessPlatform platform;
  const auto start = StartingGame(platform);
  Long seed = 1;
  auto game = std::make_unique<Game>(*start);  // a worker's kept game
  for (auto _ : state) {
    *game = *start;
    SeedRngWith(*game, seed++);
    benchmark::DoNotOptimize(game->Die1);
  }
}
BENCHMARK(BM_SessionSetUp)->Unit(benchmark::kMicrosecond);

void BM_Session10000Rolls(benchmark::State& state) {
  HeadlessPlatform platform;
  const auto start = StartingGame(platform);
  BatchConfig config;
  config.rolls = kLongRolls;
  std::int64_t k = 0;
  auto game = std::make_unique<Game>(*start);  // a worker's kept game
  for (auto _ : state) benchmark::DoNotOptimize(PlaySessionIn(*game, *start, config, k++));
  const auto clock = [] { return std::chrono::steady_clock::now(); };
  const auto t0 = clock();
  for (int i = 0; i < kSetUpSamples; ++i) {
    *game = *start;
    SeedRngWith(*game, i + 1);
    benchmark::DoNotOptimize(game->Die1);
  }
  const double setUp = std::chrono::duration<double>(clock() - t0).count() / kSetUpSamples;
  const auto t1 = clock();
  benchmark::DoNotOptimize(PlaySessionIn(*game, *start, config, k));
  const double session = std::chrono::duration<double>(clock() - t1).count();
  state.counters["setup_share_pct"] = 100 * setUp / session;
}
BENCHMARK(BM_Session10000Rolls)->Unit(benchmark::kMillisecond);

}  // namespace
