// ravelton-cli run: starts a game with the defaults, selects and seeds a
// generator, and runs Hyper-Drive until the roll count or another stop.
// The set-up of players is its own step before the first roll, and the
// JSON summary its own writer, so player and bet options can join later.
#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdint>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "app/cli/commands.h"
#include "app/cli/dice_file_options.h"
#include "app/cli/game_file_options.h"
#include "app/cli/json_text.h"
#include "app/cli/player_options.h"
#include "app/cli/report.h"
#include "app/cli/script_options.h"
#include "app/cli/table_options.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "core/text.h"
#include "cycle/hyperdrive.h"
#include "cycle/startup.h"
#include "dice/rng.h"

namespace {

// Options not given leave a loaded game's own settings; a fresh table takes
// the defaults in the comments.
struct RunOptions {
  std::int64_t rolls = 1'000'000;
  TableOptions table;  // --rng, --seed, --require, --auto-stop, --prb
  bool trace = false;
  bool json = false;
  PlayerOptions players;
  ReportOptions report;  // --report VIEW: a view's figures after the run
  GameFileOptions files;
  ScriptOptions scripts;
  DiceFileOptions diceFiles;  // --record, --playback, --log
};

struct RunResult {
  std::string stop;
  double seconds = 0;
};

// Seats the players of the run and places their bets before its first roll.
bool SetUpPlayers(Game& game, const RunOptions& options, std::string& error) {
  return SetUpPlayerOptions(game, options.players, error);
}

// Applies the options to a started game; false with a message on bad input.
bool ApplyOptions(Game& game, const RunOptions& o, bool loaded, std::string& error) {
  if (o.rolls < 0) {
    error = "--rolls must not be negative";
    return false;
  }
  if (!ApplyTableOptions(game, o.table, loaded, error)) return false;
  game.hyper.RunRollLimit = o.rolls;
  return true;
}

struct Observer {
  bool trace = false;
  ScriptOptions* scripts = nullptr;
  Game* game = nullptr;  // the game observed, which the dice are queued into
};

// After every roll: the trace line, and the next known dice queued.
void ObserveRoll(void* context, const Game& game) {
  auto& o = *static_cast<Observer*>(context);
  if (o.trace)
    std::cout << game.RollTally(kTableSession, kEventRolls) << ' ' << game.Die1 << ' ' << game.Die2
              << '\n';
  if (!o.scripts->pendingDice.empty()) FeedDice(*o.game, *o.scripts);
}

// Summed wide: each total's count may reach the count limit of a Long.
std::int64_t SessionTotals(const Game& game, TotalsColumn kind) {
  std::int64_t n = 0;
  for (int t = 2; t <= 12; ++t) n += game.TotalsTally(kTableSession, t, kind);
  return n;
}

nlohmann::json RunSummaryJson(const Game& game, const RunResult& result,
                              const RunPlatform& platform) {
  nlohmann::json totals = nlohmann::json::object();
  for (int t = 2; t <= 12; ++t)
    totals[std::to_string(t)] = game.RollTally(kTableSession, TotalEvent(t));
  nlohmann::json summary = {
      {"rolls", game.RollTally(kTableSession, kEventRolls)},
      {"stop", MessageLine(result.stop)},
      {"hands", game.HandsTally(kTableSession)},
      {"comeouts", SessionTotals(game, kTotalsComeOut)},
      {"passes", SessionTotals(game, kTotalsPass)},
      {"misses", SessionTotals(game, kTotalsMiss)},
      {"totals", totals},
      {"rng", game.dice.RngIndex + 1},
      {"seed", game.dice.LastSeed},
      {"seconds", result.seconds},
  };
  if (game.PlayerCount > 0) summary["players"] = PlayersJson(game);
  AddScriptJson(summary, game, platform);
  return summary;
}

void PrintSummary(std::ostream& out, const Game& game, const RunResult& result) {
  out << "Stopped: " << (result.stop.empty() ? "roll count reached" : MessageLine(result.stop))
      << '\n';
  out << "Rolls: " << game.RollTally(kTableSession, kEventRolls)
      << "  hands: " << game.HandsTally(kTableSession)
      << "  come-outs: " << SessionTotals(game, kTotalsComeOut)
      << "  passes: " << SessionTotals(game, kTotalsPass)
      << "  misses: " << SessionTotals(game, kTotalsMiss) << '\n';
  out << "Totals:";
  for (int t = 2; t <= 12; ++t)
    out << ' ' << t << '=' << game.RollTally(kTableSession, TotalEvent(t));
  out << '\n';
  out << "RNG #" << game.dice.RngIndex + 1 << " seed " << game.dice.LastSeed << ", "
      << result.seconds << " s\n";
  PrintPlayers(out, game);
}

// The run's summary and a view's report: one JSON object of both, the CSV
// of the report alone, or the two as text.
int PrintRunReport(Game& game, const RunResult& result, const RunOptions& options,
                   const RunPlatform& platform) {
  Report report;
  std::string error;
  if (!BuildReport(game, options.report, report, error)) {
    std::cerr << "ravelton-cli run: " << error << '\n';
    return 1;
  }
  if (options.json) {
    std::cout << JsonText(nlohmann::json{{"run", RunSummaryJson(game, result, platform)},
                                         {"report", ReportJson(report)}})
              << '\n';
  } else if (options.report.csv) {
    PrintReportCsv(std::cout, report);
  } else {
    PrintSummary(std::cout, game, result);
    std::cout << '\n';
    PrintReportText(std::cout, report);
  }
  return 0;
}

// --players becomes the selection of the statistics views, kept by the game
// through the run and saved with it: the desktop opens the views on the
// players the report showed.
bool StoreSelection(Game& game, const std::string& players, std::string& error) {
  if (players.empty()) return true;
  std::int32_t bits = 0;
  if (!NamedPlayerBits(game, players, bits, error)) return false;
  ViewsState& v = game.views;
  v.RollTotalsPlayers = v.BetResultsPlayers = v.SummaryPlayers = v.HandsPlayers = bits;
  return true;
}

int Run(RunOptions& options) {
  // The window is not minimised, so the stop message of the run is shown
  // (and recorded) at its end.
  RunPlatform platform;
  std::unique_ptr<Game> game = MakeGame(platform);
  StartUp(*game);
  std::string error;
  if (!LoadGameOption(*game, platform, options.files)) return 1;
  if (!ApplyOptions(*game, options, !options.files.load.empty(), error)) {
    std::cerr << "ravelton-cli run: " << error << '\n';
    return 1;
  }
  if (!SetUpPlayers(*game, options, error) ||
      !StoreSelection(*game, options.report.players, error) ||
      !ApplyDiceFileOptions(*game, options.diceFiles, error) ||
      !ApplyLogOptions(*game, options.diceFiles, error)) {
    std::cerr << "ravelton-cli run: " << error << '\n';
    return 1;
  }
  if (!SetUpScriptOptions(*game, platform, options.scripts, error)) {
    std::cerr << "ravelton-cli run: " << error << '\n';
    return 1;
  }
  Observer observer{options.trace, &options.scripts, game.get()};
  game->hyper.RollObserver = ObserveRoll;
  game->hyper.RollObserverContext = &observer;
  const auto start = std::chrono::steady_clock::now();
  if (const int rc = StartScripts(*game, options.scripts); rc != 0) return rc;
  // --rolls 0 runs nothing after the scripts' initializing cycle (a game re-saved).
  if (game->KeepRolling && options.rolls > 0) {
    game->HyperDrive = game->KeepRolling = false;
    RunHyperDrive(*game);
  } else if (game->HyperDrive) {
    EndHyperDrive(*game);  // the initializing cycle ended the run
  }
  RunResult result;
  result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  result.stop = game->hyper.LastStopMessage;
  if (!options.report.view.empty()) {
    if (const int rc = PrintRunReport(*game, result, options, platform); rc != 0) return rc;
  } else if (options.json) {
    std::cout << JsonText(RunSummaryJson(*game, result, platform)) << '\n';
  } else {
    PrintSummary(std::cout, *game, result);
  }
  // A log or dice roll file that could not be written fails the run after its summary.
  if (const std::string failed = DiceFileAndLogErrors(*game); !failed.empty()) {
    std::cerr << "ravelton-cli run: " << failed << '\n';
    return 1;
  }
  return SaveGameOption(*game, platform, options.files) ? 0 : 1;
}

}  // namespace

void AddRunCommand(CLI::App& app) {
  auto options = std::make_shared<RunOptions>();
  CLI::App* cmd = app.add_subcommand("run", "Run a seeded Hyper-Drive session");
  cmd->add_option("--rolls", options->rolls, "Rolls to run (default 1,000,000)");
  AddTableOptions(*cmd, options->table, true);
  cmd->add_flag("--trace", options->trace, "Print '<roll> <die1> <die2>' for every roll");
  cmd->add_flag("--json", options->json, "Print the summary as one JSON object");
  AddPlayerOptions(*cmd, options->players);
  AddReportOptions(*cmd, options->report, true);
  AddGameFileOptions(*cmd, options->files);
  AddScriptOptions(*cmd, options->scripts);
  AddDiceFileOptions(*cmd, options->diceFiles);
  cmd->callback([options] {
    ApplyDataOption(options->files);
    if (const int rc = Run(*options); rc != 0) throw CLI::RuntimeError(rc);
  });
}
