// Scripts in Hyper-Drive: the cost per roll of one player whose script bets
// for him, against the bare loop of the same run (Hyper-Drive rolling two
// dice with nobody at the table), and the heap allocations per roll of a
// script of a thousand statements that all run every roll.
//
// Counters: ns_per_roll and allocs_per_roll of the measured run; for the
// script runs also bare_ns_per_roll (the bare loop timed in the same run)
// and ratio_to_bare, and dice_ns_per_roll (DrawDice alone) with
// ratio_to_dice.
#include <benchmark/benchmark.h>

#include <chrono>
#include <fstream>
#include <memory>
#include <string>

#include "cycle/hyperdrive.h"
#include "bench/hyperdrive_stretches.h"
#include "dice/rng.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "engine/players.h"
#include "cycle/startup.h"
#include "script/activation.h"
#include "script/files.h"

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

// Nanoseconds per roll of Hyper-Drive with no players.
double BareNsPerRoll() {
  BenchGame b;
  Game& g = *b.game;
  constexpr int kRolls = 200'000;
  g.hyper.RunRollLimit = kRolls;
  const auto start = std::chrono::steady_clock::now();
  RunHyperDrive(g);
  return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count() /
         kRolls;
}

// Nanoseconds per roll of the dice alone.
double DiceNsPerRoll() {
  BenchGame b;
  Game& g = *b.game;
  constexpr int kRolls = 2'000'000;
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < kRolls; ++i) {
    DrawDice(g);
    benchmark::DoNotOptimize(g.Die1);
  }
  return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count() /
         kRolls;
}

void Compare(benchmark::State& state) {
  const double bare = BareNsPerRoll(), dice = DiceNsPerRoll();
  state.counters["bare_ns_per_roll"] = bare;
  state.counters["ratio_to_bare"] = state.counters["ns_per_roll"] / bare;
  state.counters["dice_ns_per_roll"] = dice;
  state.counters["ratio_to_dice"] = state.counters["ns_per_roll"] / dice;
}

void PlayScript(benchmark::State& state, const std::string& path, const std::string& text) {
  BenchGame b;
  Game& g = *b.game;
  SeatPlayer(g, 1, "Ann", kBenchBankroll);
  if (path.empty())
    g.scriptSource.ScriptLines[1] = SplitTextLines(text);
  else
    OpenAutoBets(g, 1, path);
  if (g.scriptSource.ScriptLines[1].empty() || !g.scriptSource.ScriptLines[1][0].empty())
    g.scriptSource.ScriptLines[1].insert(g.scriptSource.ScriptLines[1].begin(), std::string());
  SetScriptActive(g, 1, true);
  g.HyperDrive = true;
  if (!InitializeScripts(g)) {
    state.SkipWithError("the script does not compile");
    return;
  }
  g.HyperDrive = false;
  RunStretches(state, g);
  Compare(state);
}

void BM_ThreePointMolly(benchmark::State& state) {
  PlayScript(state, std::string(RAVELTON_SOURCE_DIR) + "/examples/three_point_molly.bet", "");
}
BENCHMARK(BM_ThreePointMolly)->Unit(benchmark::kMillisecond);

void BM_ThousandStatements(benchmark::State& state) {
  std::string text;
  for (int i = 0; i < 1000; ++i)
    text += "cs" + std::to_string(i % 90) + " = cs" + std::to_string((i + 1) % 90) +
            " + place6 * 2 - 1 :\n";
  text += "If place6 = 0 Then place6 = 12 EndIf\n";
  PlayScript(state, "", text);
}
BENCHMARK(BM_ThousandStatements)->Unit(benchmark::kMillisecond);

}  // namespace
