// Hyper-Drive rolls without players: the cost of one roll of the engine
// (dice, tallies, state machine, decision passes, graph, pacing), and the
// number of heap allocations per roll, which must be zero. Also the eight
// players with the bankroll graph scrolling, against the bare loop.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>

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

// The eight-player workload with the bankroll graph in scroll mode and its
// page already full, so that every roll scrolls the graph by one column;
// timed interleaved with the bare loop for the ratio.
void BM_EightPlayersScrolling(benchmark::State& state) {
  constexpr int kRolls = 5'000;
  constexpr int kBareRolls = 1'000'000;
  BenchGame eight(BenchWorkload::EightPlayers);
  Game& g = *eight.game;
  g.roll.GraphPlotType = 1;
  long allocations = 0;
  TimedStretch(g, kGraphColumns + 1, allocations);  // fills the page
  std::mt19937 rng(static_cast<std::uint32_t>(kBenchSeed));
  double bare = 0, scrolling = 0;
  for (auto _ : state) {
    bare += TimeBareLoop(rng, kBareRolls);
    scrolling += TimedStretch(g, kRolls, allocations);
  }
  const double n = static_cast<double>(state.iterations());
  const double bareNs = bare * 1e9 / (n * kBareRolls);
  const double scrollNs = scrolling * 1e9 / (n * kRolls);
  state.counters["bare_ns"] = bareNs;
  state.counters["scroll_ns"] = scrollNs;
  state.counters["scroll_x"] = scrollNs / bareNs;
  state.counters["allocs"] = static_cast<double>(allocations);
}
BENCHMARK(BM_EightPlayersScrolling)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// The graph's step alone in scroll mode: eight seated players whose
// bankrolls walk, the page full.
void BM_GraphScrollStep(benchmark::State& state) {
  BenchGame b(BenchWorkload::EmptyTable);
  Game& g = *b.game;
  g.roll.GraphPlotType = 1;
  std::mt19937 rng(static_cast<std::uint32_t>(kBenchSeed));
  std::uniform_int_distribution<int> step(-5, 5);
  auto walk = [&] {
    for (int p = 1; p <= 8; ++p) g.Bet(p, bet::kBankroll) += Currency::FromWhole(step(rng));
  };
  for (int k = 0; k <= kGraphColumns; ++k) {
    walk();
    ShiftGraphHistory(g);
  }
  for (auto _ : state) {
    walk();
    ShiftGraphHistory(g);
    benchmark::DoNotOptimize(g.GraphHigh(1));
  }
}
BENCHMARK(BM_GraphScrollStep);

}  // namespace
