// Hyper-Drive rolls without players: the cost of one roll of the engine
// (dice, tallies, state machine, decision passes, graph, pacing), and the
// number of heap allocations per roll, which must be zero.
#include <benchmark/benchmark.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <new>

#include "cycle/hyperdrive.h"
#include "bench/hyperdrive_stretches.h"
#include "dice/rng.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/roll.h"
#include "engine/roll_steps.h"
#include "cycle/startup.h"

namespace {

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
  RunStretches(state, g);
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
    if (g.DiceTotal == 7 && g.PointAtRoll > 0) g.RollTally(kTableHand, kEventRolls) = 0;
    ShiftGraphHistory(g);
    benchmark::DoNotOptimize(g.RollTally(kTableHand, kEventRolls));
  }
}
BENCHMARK(BM_RollBookkeeping);

}  // namespace
