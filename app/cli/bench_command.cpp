// ravelton-cli bench: the fixed, seeded workloads of cycle/bench_workload.h
// in Hyper-Drive. It prints the speed of eight players with money on every
// kind of bet and of an empty table, and a checksum of each game's final
// tables; the checksums are pinned by a test, so a change of behaviour
// anywhere on the roll path, payoffs and settling included, shows at once.
// --json gives the same as one object, for a machine that tracks them.
#include <CLI/CLI.hpp>
#include <chrono>
#include <cinttypes>
#include <cstdio>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "app/cli/commands.h"
#include "app/cli/json_text.h"
#include "core/checksum.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/bench_workload.h"
#include "cycle/hyperdrive.h"
#include "cycle/startup.h"
#include "dice/rng.h"

namespace {

struct BenchRun {
  std::int64_t rolls = 0;
  double perSecond = 0;
  std::uint64_t checksum = 0;
  std::string stop;
};

BenchRun RunWorkload(BenchWorkload workload, std::int64_t rolls) {
  HeadlessPlatform platform;
  platform.minimized = true;
  std::unique_ptr<Game> game = MakeGame(platform);
  StartUp(*game);
  SetUpBenchWorkload(*game, workload);
  game->hyper.RunRollLimit = rolls;
  const auto start = std::chrono::steady_clock::now();
  RunHyperDrive(*game);
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  BenchRun r;
  r.rolls = game->hyper.RollsThisRun;
  r.perSecond = seconds > 0 ? static_cast<double>(r.rolls) / seconds : 0;
  r.checksum = TablesChecksum(*game);
  r.stop = game->hyper.LastStopMessage;
  return r;
}

void PrintSpeed(const char* label, const BenchRun& r) {
  std::printf("%s: %.0f rolls/second, %.1f ns/roll\n", label, r.perSecond,
              r.perSecond > 0 ? 1e9 / r.perSecond : 0.0);
}

// A checksum as the text prints it: 16 hexadecimal digits.
std::string ChecksumText(std::uint64_t checksum) {
  char text[17];
  std::snprintf(text, sizeof text, "%016" PRIx64, checksum);
  return text;
}

nlohmann::json RunJson(const BenchRun& r) {
  return {{"rolls", r.rolls},
          {"rolls_per_second", r.perSecond},
          {"ns_per_roll", r.perSecond > 0 ? 1e9 / r.perSecond : 0.0},
          {"checksum", ChecksumText(r.checksum)},
          {"stop", r.stop}};
}

int Bench(std::int64_t rolls, bool json) {
  if (rolls < 1) {
    std::cerr << "ravelton-cli bench: --rolls must be at least 1\n";
    return 1;
  }
  const BenchRun players = RunWorkload(BenchWorkload::EightPlayers, rolls);
  const BenchRun empty = RunWorkload(BenchWorkload::EmptyTable, rolls);
  if (json) {
    std::cout << JsonText(nlohmann::json{{"eight_players", RunJson(players)},
                                         {"empty_table", RunJson(empty)}})
              << '\n';
    return 0;
  }
  std::printf("rolls: %" PRId64 "\n", players.rolls);
  if (!players.stop.empty()) std::printf("stopped: %s\n", players.stop.c_str());
  PrintSpeed("eight players", players);
  PrintSpeed("empty table", empty);
  std::printf("checksum: %s\n", ChecksumText(players.checksum).c_str());
  std::printf("empty table checksum: %s\n", ChecksumText(empty.checksum).c_str());
  return 0;
}

}  // namespace

void AddBenchCommand(CLI::App& app) {
  auto rolls = std::make_shared<std::int64_t>(1'000'000);
  auto json = std::make_shared<bool>(false);
  CLI::App* cmd =
      app.add_subcommand("bench", "Fixed seeded Hyper-Drive workloads (eight players, empty table): speed and checksums");
  cmd->add_option("--rolls", *rolls, "Rolls to run (default 1,000,000)");
  cmd->add_flag("--json", *json, "Print the speeds and checksums as one JSON object");
  cmd->callback([rolls, json] {
    if (const int rc = Bench(*rolls, *json); rc != 0) throw CLI::RuntimeError(rc);
  });
}
