// Scripts in Hyper-Drive: the cost per roll of one player whose script bets
// for him, as a multiple of the bare two-dice loop (bench/bare_loop.h), and
// the heap allocations per roll of a script of a thousand statements that
// all run every roll. The bare loop and the script's stretches are timed in
// the same iterations, interleaved, in the thread's CPU time, so the ratio
// holds on a busy machine.
//
// Counters: bare_ns (the bare loop per roll), ns_per_roll and
// allocs_per_roll of the script's runs, and ratio_to_bare.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <random>
#include <string>

#include "bench/hyperdrive_stretches.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/hyperdrive.h"
#include "cycle/startup.h"
#include "dice/rng.h"
#include "engine/players.h"
#include "script/activation.h"
#include "script/files.h"

namespace {

constexpr std::uint32_t kScriptSeed = 12345;
// Rolls of the bare loop per iteration: a few milliseconds.
constexpr int kBareRolls = 1'000'000;

// One seated player, Ann, whose script (a file, or text when `path` is
// empty) is compiled, switched on and given its initializing cycle.
struct ScriptGame {
  HeadlessPlatform platform;
  std::unique_ptr<Game> game;
  bool compiled = false;
  ScriptGame(const std::string& path, const std::string& text) {
    platform.minimized = true;
    platform.soundsKept = 0;
    game = MakeGame(platform);
    Game& g = *game;
    StartUp(g);
    g.rules.BetRequirement = kNoBetRequired;
    g.dice.RngIndex = 0;
    SeedRngWith(g, kScriptSeed);
    SeatPlayer(g, 1, "Ann", kBenchBankroll);
    auto& lines = g.scriptSource.ScriptLines[1];
    if (path.empty())
      lines = SplitTextLines(text);
    else
      OpenAutoBets(g, 1, path);
    if (lines.empty() || !lines[0].empty()) lines.insert(lines.begin(), std::string());
    SetScriptActive(g, 1, true);
    g.HyperDrive = true;
    compiled = InitializeScripts(g);
    g.HyperDrive = false;
  }
};

void PlayScript(benchmark::State& state, const std::string& path, const std::string& text) {
  ScriptGame s(path, text);
  if (!s.compiled) {
    state.SkipWithError("the script does not compile");
    return;
  }
  std::mt19937 rng(static_cast<std::uint32_t>(kBenchSeed));
  long allocations = 0;
  double bare = 0, script = 0;
  for (auto _ : state) {
    bare += TimeBareLoop(rng, kBareRolls);
    script += TimedStretch(*s.game, kRollsPerRun, allocations);
  }
  const double n = static_cast<double>(state.iterations());
  const double bareNs = bare * 1e9 / (n * kBareRolls);
  const double scriptNs = script * 1e9 / (n * kRollsPerRun);
  state.SetItemsProcessed(static_cast<std::int64_t>(n * kRollsPerRun));
  state.counters["bare_ns"] = bareNs;
  state.counters["ns_per_roll"] = scriptNs;
  state.counters["ratio_to_bare"] = scriptNs / bareNs;
  state.counters["allocs_per_roll"] = static_cast<double>(allocations) / (n * kRollsPerRun);
}

void BM_ThreePointMolly(benchmark::State& state) {
  PlayScript(state, std::string(RAVELTON_SOURCE_DIR) + "/examples/three_point_molly.bet", "");
}
BENCHMARK(BM_ThreePointMolly)->Unit(benchmark::kMillisecond)->MinTime(2.0);

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
