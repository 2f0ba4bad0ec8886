// Times Hyper-Drive in stretches of rolls, counting only the runs
// themselves in the thread's CPU time (so that other work on a busy machine
// does not count), and reports nanoseconds and heap allocations per roll.
// Seated players' bankrolls are topped up between stretches so that no run
// stops at a table limit. Include once per benchmark program, after the
// allocation counter.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <ctime>
#include <memory>

#include "bench/bare_loop.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/bench_workload.h"
#include "cycle/hyperdrive.h"
#include "cycle/startup.h"
#include "tests/support/count_allocations.h"

constexpr int kRollsPerRun = 10'000;
constexpr Currency kBenchBankroll = 5'000'000_usd;

// CPU seconds of this thread so far.
inline double ThreadSeconds() {
  timespec ts{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ts);
  return static_cast<double>(ts.tv_sec) + static_cast<double>(ts.tv_nsec) * 1e-9;
}

// Thread seconds that `rolls` rolls of the bare loop take.
inline double TimeBareLoop(std::mt19937& rng, std::int64_t rolls) {
  const double start = ThreadSeconds();
  benchmark::DoNotOptimize(BareLoop(rng, rolls));
  return ThreadSeconds() - start;
}

// A started-up game with one of the bench workloads, on a headless platform.
struct BenchGame {
  HeadlessPlatform platform;
  std::unique_ptr<Game> game;
  explicit BenchGame(BenchWorkload workload) {
    platform.minimized = true;
    platform.soundsKept = 0;
    game = MakeGame(platform);
    StartUp(*game);
    SetUpBenchWorkload(*game, workload);
  }
};

// One Hyper-Drive run of `rolls` rolls; returns its CPU seconds and adds its
// allocations to `allocations`.
inline double TimedStretch(Game& g, int rolls, long& allocations) {
  if (g.RollTally(kTableSession, kEventRolls) > kSessionRollLimit - 2 * rolls)
    g.RollTally(kTableSession, kEventRolls) = 0;
  for (int p = 1; p <= 8; ++p)  // keep the bankrolls far from the table limits
    if (!g.PlayerName[p].empty()) g.Bet(p, bet::kBankroll) = kBenchBankroll + g.TotalBets(p);
  g.hyper.RunRollLimit = rolls;
  const long before = gAllocations.load();
  const double start = ThreadSeconds();
  RunHyperDrive(g);
  const double seconds = ThreadSeconds() - start;
  allocations += gAllocations.load() - before;
  return seconds;
}

inline void RunStretches(benchmark::State& state, Game& g) {
  long allocations = 0;
  double seconds = 0;
  for (auto _ : state) seconds += TimedStretch(g, kRollsPerRun, allocations);
  const double rolls = static_cast<double>(state.iterations()) * kRollsPerRun;
  state.SetItemsProcessed(static_cast<std::int64_t>(rolls));
  state.counters["ns_per_roll"] = seconds * 1e9 / rolls;
  state.counters["allocs_per_roll"] = static_cast<double>(allocations) / rolls;
}
