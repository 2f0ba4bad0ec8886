// ravelton-cli bench: a fixed, seeded Hyper-Drive workload. It prints the
// speed and a checksum of the final tables; the checksum is pinned by a
// test, so a change of behaviour anywhere on the roll path shows at once.
#include <CLI/CLI.hpp>
#include <chrono>
#include <cinttypes>
#include <cstdio>
#include <iostream>
#include <memory>

#include "app/cli/commands.h"
#include "core/checksum.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/hyperdrive.h"
#include "cycle/startup.h"
#include "dice/rng.h"

namespace {

constexpr double kBenchSeed = 20261122;

int Bench(std::int64_t rolls) {
  if (rolls < 1) {
    std::cerr << "ravelton-cli bench: --rolls must be at least 1\n";
    return 1;
  }
  HeadlessPlatform platform;
  platform.minimized = true;
  std::unique_ptr<Game> game = MakeGame(platform);
  StartUp(*game);
  game->rules.BetRequirement = kNoBetRequired;
  game->dice.RngIndex = 0;
  SeedRngWith(*game, kBenchSeed);
  game->hyper.RunRollLimit = rolls;
  const auto start = std::chrono::steady_clock::now();
  RunHyperDrive(*game);
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  const double perSecond =
      seconds > 0 ? static_cast<double>(game->hyper.RollsThisRun) / seconds : 0;
  std::printf("rolls: %" PRId64 "\n", static_cast<std::int64_t>(game->hyper.RollsThisRun));
  std::printf("rolls/second: %.0f\n", perSecond);
  std::printf("ns/roll: %.1f\n", perSecond > 0 ? 1e9 / perSecond : 0.0);
  std::printf("checksum: %016" PRIx64 "\n", TablesChecksum(*game));
  return 0;
}

}  // namespace

void AddBenchCommand(CLI::App& app) {
  auto rolls = std::make_shared<std::int64_t>(1'000'000);
  CLI::App* cmd =
      app.add_subcommand("bench", "Fixed seeded Hyper-Drive workload: speed and checksum");
  cmd->add_option("--rolls", *rolls, "Rolls to run (default 1,000,000)");
  cmd->callback([rolls] {
    if (const int rc = Bench(*rolls); rc != 0) throw CLI::RuntimeError(rc);
  });
}
