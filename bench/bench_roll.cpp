// Hyper-Drive rolls without players: the cost of one roll of the engine
// (dice, tallies, state machine, decision passes, graph, pacing), and the
// number of heap allocations per roll, which must be zero.
#include <benchmark/benchmark.h>

#include "bench/hyperdrive_stretches.h"
#include "core/game.h"
#include "cycle/roll.h"
#include "dice/rng.h"
#include "engine/roll_steps.h"

namespace {

void BM_HyperDriveRolls(benchmark::State& state) {
  BenchGame b(BenchWorkload::EmptyTable);
  RunStretches(state, *b.game);
}
BENCHMARK(BM_HyperDriveRolls)->Unit(benchmark::kMillisecond);

// The roll's own bookkeeping without the decision passes: tallies, events,
// state machine and graph history of one roll.
void BM_RollBookkeeping(benchmark::State& state) {
  BenchGame b(BenchWorkload::EmptyTable);
  Game& g = *b.game;
  for (auto _ : state) {
    DrawDice(g);
    g.DiceTotal = g.Die1 + g.Die2;
    TallyHandAndRoll(g);
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
