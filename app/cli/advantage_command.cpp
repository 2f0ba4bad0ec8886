// ravelton-cli advantage: the Advantage tab's table for all 85 bets under
// the default payoffs and rules, with --prb a probability file's dice, then
// the Fire odds. The text rounds as the tab does; --json gives every figure
// as a fraction of a unit in full double precision.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "analysis/advantage.h"
#include "analysis/advantage_table.h"
#include "app/cli/commands.h"
#include "app/cli/game_file_options.h"
#include "app/cli/json_text.h"
#include "app/cli/probability_options.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/startup.h"

namespace {

struct AdvantageOptions {
  std::string load;
  std::string prb;
  bool zeroOutcomes = false;
  bool json = false;
};

constexpr int kFirePoints = 7;  // 0..6 points made

nlohmann::json AdvantageJson(const Game& game) {
  nlohmann::json bets = nlohmann::json::object();
  const double perHour = game.rules.RollsPerHour.ToDouble();
  for (int b = 1; b <= kLastRealBet; ++b) {
    const Advantage a = FigureAdvantage(game, b);
    bets[std::to_string(b)] = {
        {"name", AdvantageRowLabel(b)},         {"ev_per_roll", a.evPerRoll},
        {"ev_per_decision", a.evPerDec},        {"rolls_per_decision", a.rollsPerDec},
        {"sd_per_roll", a.stDevPerRoll},        {"sd_per_decision", a.stDevPerDec},
        {"ev_per_hour", perHour * a.evPerRoll},
    };
  }
  const FireOdds fire = FigureFireOdds(game);
  nlohmann::json points = nlohmann::json::array();
  for (int k = 0; k < kFirePoints; ++k) points.push_back(fire.FireProb[k]);
  return {{"bets", bets}, {"fire", {{"points", points}, {"rolls_per_hand", fire.FireRolls}}}};
}

void PrintAdvantage(std::ostream& out, const Game& game) {
  if (game.dice.ProbabilityDiceOn) {
    const std::string& file = game.probability.ProbFilePath;
    out << "Probability File:  " << (file.empty() ? "untitled" : file) << '\n';
  } else {
    out << "Figured using true probabilities\n";
  }
  if (game.advantage.CountZeroOutcomes) out << "Zero outcomes counted as decisions\n";
  out << "All figures shown in percentage\n";
  char line[160];
  std::snprintf(line, sizeof line, "%-24s", "Bet");
  out << line;
  for (std::string_view title : kAdvantageTitles) {
    std::snprintf(line, sizeof line, "%11.*s", static_cast<int>(title.size()), title.data());
    out << line;
  }
  out << "  Rolls/Dec\n";
  for (int b = 1; b <= kLastRealBet; ++b) {
    const AdvantageRow row = FigureAdvantageRow(game, b);
    std::snprintf(line, sizeof line, "%-24s", row.label.c_str());
    out << line;
    for (const AdvantageCell& cell : row.normal) {
      std::snprintf(line, sizeof line, "%11s", cell.text.c_str());
      out << line;
    }
    std::snprintf(line, sizeof line, "%11s\n", row.misc[0].text.c_str());
    out << line;
  }
  const FireOdds fire = FigureFireOdds(game);
  out << "\nFire: chance of the points made in a hand\n";
  for (int k = 0; k < kFirePoints; ++k) {
    std::snprintf(line, sizeof line, "  %d point%s %10.6f\n", k, k == 1 ? " " : "s",
                  fire.FireProb[k]);
    out << line;
  }
  std::snprintf(line, sizeof line, "Rolls per hand: %.6f\n", fire.FireRolls);
  out << line;
}

int RunAdvantage(const AdvantageOptions& options) {
  HeadlessPlatform platform;
  std::unique_ptr<Game> game = MakeGame(platform);
  StartUp(*game);
  // A saved game's payoffs, vig, bar number and skewed dice figure as stored.
  GameFileOptions files;
  files.load = options.load;
  if (!LoadGameOption(*game, platform, files)) return 1;
  std::string error;
  if (!UseProbabilityFileOption(*game, options.prb, error)) {
    std::cerr << "ravelton-cli advantage: " << error << '\n';
    return 1;
  }
  game->advantage.CountZeroOutcomes = options.zeroOutcomes;
  if (options.json)
    std::cout << JsonText(AdvantageJson(*game)) << '\n';
  else
    PrintAdvantage(std::cout, *game);
  return 0;
}

}  // namespace

void AddAdvantageCommand(CLI::App& app) {
  auto options = std::make_shared<AdvantageOptions>();
  CLI::App* cmd = app.add_subcommand("advantage", "What every bet is worth: the Advantage table");
  cmd->add_option("--load", options->load, "Figure under the payoffs and rules of a game file");
  AddProbabilityFileOption(*cmd, options->prb, "Figure with the dice of this probability file");
  cmd->add_flag("--zero-outcomes", options->zeroOutcomes, "Count zero outcomes as decisions");
  cmd->add_flag("--json", options->json, "Print every figure as one JSON object");
  cmd->callback([options] {
    if (const int rc = RunAdvantage(*options); rc != 0) throw CLI::RuntimeError(rc);
  });
}
