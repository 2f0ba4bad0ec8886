// Hyper-Drive with bets: one Pass Line player who takes full odds by
// Auto-Play and keeps the same bet after wins and losses, and a full table
// of eight players with several bets each. Reports nanoseconds per roll and
// heap allocations per roll (which must stay zero on the roll path).
#include <benchmark/benchmark.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>

#include "automation/hyperdrive.h"
#include "dice/rng.h"
#include "engine/catalogue.h"
#include "engine/game.h"
#include "engine/headless_platform.h"
#include "engine/place.h"
#include "engine/players.h"
#include "engine/startup.h"
#include "tests/support/count_allocations.h"

namespace {

constexpr int kRollsPerRun = 10'000;
constexpr Currency kBankroll = 5'000'000_usd;

struct BenchTable {
  HeadlessPlatform platform;
  std::unique_ptr<Game> game;
  explicit BenchTable(int players) {
    platform.minimized = true;
    game = MakeGame(platform);
    Game& g = *game;
    StartUp(g);
    g.rules.BetRequirement = kNoBetRequired;
    g.rules.NoticeFlags = 0;
    g.dice.RngIndex = 0;
    SeedRngWith(g, 20261122);
    for (int p = 1; p <= players; ++p) {
      SeatPlayer(g, p, "Player" + std::to_string(p), kBankroll);
      g.autoplay.HandleWinningBets(p) = kWinSameBet;
      g.autoplay.HandleLosingBets(p) = kLoseSameBet;
      g.autoplay.AutoTakeFullOdds(p) = true;
      g.autoplay.AutoLayFullOdds(p) = true;
    }
  }
  void Bet(int p, int b, long amount) {
    game->BetRequest = Currency::FromWhole(amount);
    PlaceBet(*game, p, b);
  }
};

// Runs Hyper-Drive in stretches of kRollsPerRun rolls, timing only the runs.
void RunStretches(benchmark::State& state, Game& g) {
  g.hyper.RunRollLimit = kRollsPerRun;
  long allocations = 0;
  double seconds = 0;
  for (auto _ : state) {
    if (g.RollTally(18, 0) > kSessionRollLimit - 2 * kRollsPerRun) g.RollTally(18, 0) = 0;
    for (int p = 1; p <= 8; ++p)  // keep the bankrolls far from the table limits
      if (!g.PlayerName[p].empty()) g.Bet(p, 0) = kBankroll + g.TotalBets(p);
    const long before = gAllocations.load();
    const auto start = std::chrono::steady_clock::now();
    RunHyperDrive(g);
    seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    allocations += gAllocations.load() - before;
  }
  const double rolls = static_cast<double>(state.iterations()) * kRollsPerRun;
  state.SetItemsProcessed(static_cast<std::int64_t>(rolls));
  state.counters["ns_per_roll"] = seconds * 1e9 / rolls;
  state.counters["allocs_per_roll"] = static_cast<double>(allocations) / rolls;
}

void BM_PassLineFullOdds(benchmark::State& state) {
  BenchTable t(1);
  t.Bet(1, bet::kPassLine, 10);
  RunStretches(state, *t.game);
  state.counters["decisions"] = t.game->StatAction(18 + 1, bet::kPassLine, 1).ToDouble();
}
BENCHMARK(BM_PassLineFullOdds)->Unit(benchmark::kMillisecond);

void BM_EightPlayersSeveralBets(benchmark::State& state) {
  BenchTable t(8);
  for (int p = 1; p <= 8; ++p) {
    if (p % 2) {
      t.Bet(p, bet::kPassLine, 10);
    } else {
      t.Bet(p, bet::kDontPass, 10);
    }
    t.Bet(p, PlaceId(6), 12);
    t.Bet(p, PlaceId(8), 12);
    t.Bet(p, bet::kField, 5);
    t.Bet(p, bet::kHard6, 1);
  }
  RunStretches(state, *t.game);
}
BENCHMARK(BM_EightPlayersSeveralBets)->Unit(benchmark::kMillisecond);

}  // namespace
