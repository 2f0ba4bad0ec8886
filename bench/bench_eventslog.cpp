// What the events log and dice roll file recording cost in Hyper-Drive: the
// Pass Line workload (one player, full odds, Same Bet both ways) timed with
// everything off, with the events log on for every kind, and recording
// every roll into a dice roll file. The three run interleaved in the same
// iterations, in the thread's CPU time (which counts the writes' system
// time too). Counters: ns per roll of each, log_x and record_x as
// multiples of the roll with both off (targets: at most 3 and 1.1).
#include <benchmark/benchmark.h>

#include "bench/hyperdrive_stretches.h"
#include "dice/dice_file.h"
#include "logs/events_log.h"
#include "tests/support/temp_folder.h"

namespace {

constexpr int kStretchRolls = 20'000;

void BM_LogAndRecordingCost(benchmark::State& state) {
  TempFolder folder;
  BenchGame off(BenchWorkload::PassLine), logged(BenchWorkload::PassLine),
      recorded(BenchWorkload::PassLine);
  Game& log = *logged.game;
  log.roll.EventsLogPath = folder / "Events Log.txt";
  log.eventsLog.IndexPath = folder / "Events Log.ref";
  log.roll.LogOn = true;  // every kind is on by default
  Game& rec = *recorded.game;
  if (!OpenDiceRollFile(rec, folder / "bench.rol") || !SetDiceFileMode(rec, kDiceFileRecording)) {
    state.SkipWithError("cannot record into the temporary folder");
    return;
  }
  double offS = 0, logS = 0, recS = 0;
  long allocations = 0;
  for (auto _ : state) {
    offS += TimedStretch(*off.game, kStretchRolls, allocations);
    logS += TimedStretch(log, kStretchRolls, allocations);
    recS += TimedStretch(rec, kStretchRolls, allocations);
    // Untimed: the files start again so that they stay small.
    ClearEventsLog(log);
    rec.diceFile.DiceFilePos = 1;
  }
  const double rolls = static_cast<double>(state.iterations()) * kStretchRolls;
  const double offNs = offS * 1e9 / rolls, logNs = logS * 1e9 / rolls, recNs = recS * 1e9 / rolls;
  state.counters["off_ns"] = offNs;
  state.counters["log_ns"] = logNs;
  state.counters["record_ns"] = recNs;
  state.counters["log_x"] = logNs / offNs;
  state.counters["record_x"] = recNs / offNs;
  state.counters["allocs"] = static_cast<double>(allocations);
  if (!log.eventsLog.WriteError.empty()) state.SkipWithError(log.eventsLog.WriteError.c_str());
}
BENCHMARK(BM_LogAndRecordingCost)->Unit(benchmark::kMillisecond)->MinTime(3.0);

}  // namespace
