// Times Hyper-Drive in stretches of kRollsPerRun rolls, counting only the
// runs themselves, and reports nanoseconds and heap allocations per roll.
// Seated players' bankrolls are topped up between stretches so that no run
// stops at a table limit. Include once per benchmark program, after the
// allocation counter.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>

#include "cycle/hyperdrive.h"
#include "core/game.h"
#include "tests/support/count_allocations.h"

constexpr int kRollsPerRun = 10'000;
constexpr Currency kBenchBankroll = 5'000'000_usd;

inline void RunStretches(benchmark::State& state, Game& g) {
  g.hyper.RunRollLimit = kRollsPerRun;
  long allocations = 0;
  double seconds = 0;
  for (auto _ : state) {
    if (g.RollTally(kTableSession, kEventRolls) > kSessionRollLimit - 2 * kRollsPerRun) g.RollTally(kTableSession, kEventRolls) = 0;
    for (int p = 1; p <= 8; ++p)  // keep the bankrolls far from the table limits
      if (!g.PlayerName[p].empty()) g.Bet(p, 0) = kBenchBankroll + g.TotalBets(p);
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
