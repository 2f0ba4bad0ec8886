// Hyper-Drive with bets: the workloads of cycle/bench_workload.h with
// players. One Pass Line player who takes full odds by Auto-Play and keeps
// the same bet after wins and losses, and the full table of eight players
// with money on every kind of bet. Reports nanoseconds per roll and heap
// allocations per roll (which must stay zero on the roll path).
#include <benchmark/benchmark.h>

#include "bench/hyperdrive_stretches.h"
#include "core/catalogue.h"
#include "core/game.h"

namespace {

void BM_PassLineFullOdds(benchmark::State& state) {
  BenchGame b(BenchWorkload::PassLine);
  RunStretches(state, *b.game);
  state.counters["decisions"] =
      b.game->StatAction(FrameIndex(1, kFrameCurrentSession), bet::kPassLine, kStatCount)
          .ToDouble();
}
BENCHMARK(BM_PassLineFullOdds)->Unit(benchmark::kMillisecond);

void BM_EightPlayers(benchmark::State& state) {
  BenchGame b(BenchWorkload::EightPlayers);
  RunStretches(state, *b.game);
}
BENCHMARK(BM_EightPlayers)->Unit(benchmark::kMillisecond);

}  // namespace
