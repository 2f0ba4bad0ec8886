// The roll's cost as a multiple of a bare loop that draws two dice with
// std::mt19937 and counts passes: the empty table, one Pass Line player
// with full odds and Same Bet both ways, and the eight-player workload of
// `ravelton-cli bench`. All four are timed in the same iterations,
// interleaved, in the thread's CPU time, so the ratios hold on a busy
// machine. Counters: ns per roll of each, and the three ratios.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>

#include "bench/hyperdrive_stretches.h"

namespace {

// Rolls per stretch: each stretch takes a few milliseconds.
constexpr int kBareRolls = 1'000'000;
constexpr int kEmptyRolls = 100'000;
constexpr int kPassLineRolls = 50'000;
constexpr int kEightPlayerRolls = 5'000;

void BM_RollCostRatios(benchmark::State& state) {
  BenchGame empty(BenchWorkload::EmptyTable);
  BenchGame passLine(BenchWorkload::PassLine);
  BenchGame eight(BenchWorkload::EightPlayers);
  std::mt19937 rng(static_cast<std::uint32_t>(kBenchSeed));
  double bare = 0, emptyS = 0, passS = 0, eightS = 0;
  long allocations = 0;
  for (auto _ : state) {
    bare += TimeBareLoop(rng, kBareRolls);
    emptyS += TimedStretch(*empty.game, kEmptyRolls, allocations);
    passS += TimedStretch(*passLine.game, kPassLineRolls, allocations);
    eightS += TimedStretch(*eight.game, kEightPlayerRolls, allocations);
  }
  const double n = static_cast<double>(state.iterations());
  const double bareNs = bare * 1e9 / (n * kBareRolls);
  const double emptyNs = emptyS * 1e9 / (n * kEmptyRolls);
  const double passNs = passS * 1e9 / (n * kPassLineRolls);
  const double eightNs = eightS * 1e9 / (n * kEightPlayerRolls);
  state.counters["bare_ns"] = bareNs;
  state.counters["empty_ns"] = emptyNs;
  state.counters["passline_ns"] = passNs;
  state.counters["eight_ns"] = eightNs;
  state.counters["empty_x"] = emptyNs / bareNs;
  state.counters["passline_x"] = passNs / bareNs;
  state.counters["eight_x"] = eightNs / bareNs;
  state.counters["allocs"] = static_cast<double>(allocations);
}
BENCHMARK(BM_RollCostRatios)->Unit(benchmark::kMillisecond)->MinTime(3.0);

}  // namespace
