#include "app/cli/table_options.h"

#include <CLI/CLI.hpp>

#include "app/cli/probability_options.h"
#include "core/game.h"
#include "dice/rng.h"

void AddTableOptions(CLI::App& cmd, TableOptions& o, bool withSeed) {
  cmd.add_option_function<int>(
      "--rng", [&o](const int& n) { o.rng = n; }, "Random number generator 1..8 (default 1)");
  if (withSeed)
    cmd.add_option_function<double>(
        "--seed", [&o](const double& s) { o.seed = s; },
        "Seed the generator with S, 1 or more (default: from the clock)");
  cmd.add_option_function<std::string>(
      "--require", [&o](const std::string& r) { o.require = r; },
      "Bet required to shoot: none, line or any");
  cmd.add_option_function<std::int64_t>(
      "--auto-stop", [&o](const std::int64_t& n) { o.autoStop = n; },
      "Auto-Stop every N session rolls (0 never)");
  AddProbabilityFileOption(cmd, o.prb, "Play with the dice of this probability file");
}

bool ApplyTableOptions(Game& game, const TableOptions& o, bool loaded, std::string& error) {
  const int rng = o.rng.value_or(loaded ? game.dice.RngIndex + 1 : 1);
  if (rng < 1 || rng > kRngCount) {
    error = "--rng must be 1 to 8";
    return false;
  }
  if (o.autoStop && *o.autoStop < 0) {
    error = "--auto-stop must not be negative";
    return false;
  }
  const std::string require = o.require.value_or(loaded ? "" : "none");
  if (require == "none")
    game.rules.BetRequirement = kNoBetRequired;
  else if (require == "line")
    game.rules.BetRequirement = kLineBetRequired;
  else if (require == "any")
    game.rules.BetRequirement = kAnyBetRequired;
  else if (!require.empty()) {
    error = "--require must be none, line or any";
    return false;
  }
  game.dice.RngIndex = rng - 1;
  if (!UseProbabilityFileOption(game, o.prb, error)) return false;
  // The generators take a seed below 1 (or no number) as a call for the
  // clock's; a seed given on the command line is meant to repeat a run.
  if (o.seed && !(*o.seed >= 1)) {
    error = "--seed must be 1 or more (without --seed the clock seeds the generator)";
    return false;
  }
  if (o.seed && !SeedRngWith(game, *o.seed)) {
    error = "--seed is out of range for RNG #" + std::to_string(rng);
    return false;
  }
  // Without a seed a fresh table's generator is seeded from the clock, so
  // the seed reported is the one that reproduces the run; a loaded game's
  // generator goes on from where it was saved.
  if (!o.seed && !loaded) SeedRng(game);
  if (o.autoStop || !loaded) game.hyper.AutoStopRolls = Currency::FromWhole(o.autoStop.value_or(0));
  return true;
}
