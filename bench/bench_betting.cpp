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

#include "cycle/hyperdrive.h"
#include "bench/hyperdrive_stretches.h"
#include "dice/rng.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "engine/place.h"
#include "engine/players.h"
#include "cycle/startup.h"

namespace {

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
      SeatPlayer(g, p, "Player" + std::to_string(p), kBenchBankroll);
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
