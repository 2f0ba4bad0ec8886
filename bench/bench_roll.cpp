// Hyper-Drive rolls without players: the cost of one roll of the engine
// (dice, tallies, state machine, decision passes, graph, pacing), and the
// number of heap allocations per roll, which must be zero.
#include <benchmark/benchmark.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <new>

#include "automation/hyperdrive.h"
#include "dice/rng.h"
#include "engine/game.h"
#include "engine/headless_platform.h"
#include "engine/roll.h"
#include "engine/startup.h"
#include "tests/support/count_allocations.h"

namespace {

constexpr int kRollsPerRun = 10'000;

struct BenchGame {
  HeadlessPlatform platform;
  std::unique_ptr<Game> game;
  BenchGame() {
    platform.minimized = true;
    game = MakeGame(platform);
    StartUp(*game);
    game->rules.BetRequirement = kNoBetRequired;
    game->dice.RngIndex = 0;
    SeedRngWith(*game, 12345);
  }
};

void BM_HyperDriveRolls(benchmark::State& state) {
  BenchGame b;
  Game& g = *b.game;
  g.hyper.RunRollLimit = kRollsPerRun;
  long allocations = 0;
  double seconds = 0;
  for (auto _ : state) {
    if (g.RollTally(18, 0) > kSessionRollLimit - 2 * kRollsPerRun) g.RollTally(18, 0) = 0;
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
BENCHMARK(BM_HyperDriveRolls)->Unit(benchmark::kMillisecond);

// The roll's own bookkeeping without the decision passes: tallies, events,
// state machine and graph history of one roll.
void BM_RollBookkeeping(benchmark::State& state) {
  BenchGame b;
  Game& g = *b.game;
  for (auto _ : state) {
    DrawDice(g);
    g.DiceTotal = g.Die1 + g.Die2;
    TallyHandAndRoll(g);
    for (auto& since : g.RollsSince.cells) since += 1;
    TallyRollEvents(g);
    g.PointAtRoll = g.Point;
    AdvanceStateMachine(g);
    if (g.DiceTotal == 7 && g.PointAtRoll > 0) g.RollTally(0, 0) = 0;
    ShiftGraphHistory(g);
    benchmark::DoNotOptimize(g.RollTally(0, 0));
  }
}
BENCHMARK(BM_RollBookkeeping);

}  // namespace
