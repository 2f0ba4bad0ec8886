// ravelton-cli report VIEW: the figures of a statistics view of a game.
// With --load the figures are those of a saved game; without, of a fresh
// one (the sessions report reads a player's log all the same).
#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "app/cli/commands.h"
#include "app/cli/game_file_options.h"
#include "app/cli/report.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/startup.h"

namespace {

int RunReport(const ReportOptions& o) {
  HeadlessPlatform platform;
  platform.minimized = true;
  std::unique_ptr<Game> game = MakeGame(platform);
  StartUp(*game);
  GameFileOptions files;
  files.load = o.load;
  if (!LoadGameOption(*game, platform, files)) return 1;
  Report report;
  std::string error;
  if (!BuildReport(*game, o, report, error)) {
    std::cerr << "ravelton-cli report: " << error << '\n';
    return 1;
  }
  PrintReport(std::cout, report, o);
  return 0;
}

}  // namespace

void AddReportOptions(CLI::App& cmd, ReportOptions& o, bool inRun) {
  if (inRun) {
    cmd.add_option("--report", o.view, "At the end, report a statistics view (see `report`)");
    cmd.add_option(
        "--report-player", o.player,
        "The player of the trends, bankroll and sessions reports (default: the one player seated)");
  } else {
    cmd.add_option("view", o.view,
                   "totals, freqs, results, trends, summary, hands, comps, bankroll or sessions")
        ->required();
    cmd.add_option(
        "--player", o.player,
        "The player of the trends, bankroll and sessions reports (default: the one player seated)");
    cmd.add_option("--load", o.load, "Report on a saved game file");
    cmd.add_flag("--json", o.json, "Print the report as one JSON object");
  }
  cmd.add_option("--players", o.players,
                 "Selected players: comma-separated names, or none (default: the view's selection, "
                 "else every seated player)");
  cmd.add_option("--frame", o.frame,
                 "current-hand, last-hand, current-session, last-session or all-sessions");
  cmd.add_option("--kind", o.kind, "totals: basic, distinguishable, unique or faces");
  cmd.add_flag("--skewed", o.skewed, "totals, freqs: against the skewed probabilities");
  cmd.add_option("--category", o.category, "freqs: the category, 1 to 90");
  cmd.add_option("--bets", o.bets, "results: comma-separated bet ids");
  cmd.add_flag("--percent", o.percent, "hands: percents of the come-out rolls");
  cmd.add_option("--value", o.value, "sessions: the value sampled, 0 to 31");
  cmd.add_option("--break-point", o.breakPoint, "sessions: X or LOW:HIGH");
  cmd.add_option("--file", o.file, "sessions: read this log instead of the player's");
  cmd.add_flag("--csv", o.csv, "Print the report as CSV");
}

void AddReportCommand(CLI::App& app) {
  auto options = std::make_shared<ReportOptions>();
  CLI::App* cmd = app.add_subcommand("report", "Report a statistics view of a game");
  AddReportOptions(*cmd, *options, false);
  cmd->callback([options] {
    if (const int rc = RunReport(*options); rc != 0) throw CLI::RuntimeError(rc);
  });
}
