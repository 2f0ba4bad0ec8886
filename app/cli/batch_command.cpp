// ravelton-cli batch: many independent sessions from one starting game,
// set up by the same options as run, played on threads (and MPI ranks), and
// reported per player. The engine and the figures live in batch/; this file
// parses, checks everything before the first session, and prints.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <iomanip>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <thread>

#include "app/cli/batch_ranks.h"
#include "app/cli/commands.h"
#include "app/cli/game_file_options.h"
#include "app/cli/json_text.h"
#include "app/cli/player_options.h"
#include "app/cli/script_options.h"
#include "app/cli/table_options.h"
#include "batch/batch.h"
#include "batch/batch_csv.h"
#include "batch/batch_stats.h"
#include "core/game.h"
#include "core/money.h"
#include "cycle/startup.h"

namespace {

PlayerOptions BatchPlayerOptions() {
  PlayerOptions o;
  o.command = "batch";
  return o;
}

struct BatchOptions {
  std::int64_t sessions = 1000;
  std::int64_t rolls = 0;
  std::int64_t hands = 0;
  std::uint64_t seed = 1;
  int threads = 0;                      // 0: every core
  std::vector<std::string> stopWins;    // NAME:X
  std::vector<std::string> stopLosses;  // NAME:X
  std::vector<std::string> compares;    // NAME:NAME
  bool json = false;
  bool csv = false;
  bool perSession = false;
  bool histogram = false;
  TableOptions table;
  PlayerOptions players = BatchPlayerOptions();
  GameFileOptions files;
  ScriptOptions scripts;
};

// Fills a stop of each NAME:X; false with `error` for an unknown player or a bad amount.
bool ParseStops(const Game& game, const std::vector<std::string>& args, const char* option,
                std::array<std::optional<Currency>, kBatchSeats + 1>& stops, std::string& error) {
  for (const std::string& arg : args) {
    const auto colon = arg.rfind(':');
    const int p = colon == std::string::npos ? 0 : SeatOfPlayer(game, arg.substr(0, colon));
    if (p == 0) {
      error = std::string(option) + " " + arg + ": no player named '" + arg.substr(0, colon) +
              "' is seated";
      return false;
    }
    const auto amount = CommandLineAmount(arg.substr(colon + 1));
    if (!amount || *amount <= Currency{}) {
      error = std::string(option) + " " + arg + ": the amount must be a number above 0";
      return false;
    }
    stops[p] = *amount;
  }
  return true;
}

// A player compared with another, by seats.
struct Comparison {
  int seat = 0, other = 0;
};

// The seats of each NAME:NAME; false with `error` for a name not seated or a
// player compared with themselves.
bool ParseComparisons(const Game& game, const std::vector<std::string>& args,
                      std::vector<Comparison>& comparisons, std::string& error) {
  for (const std::string& arg : args) {
    const auto colon = arg.find(':');
    if (colon == std::string::npos || colon == 0 || colon + 1 == arg.size()) {
      error = "--compare " + arg + ": name two seated players, NAME:OTHER";
      return false;
    }
    const std::string first = arg.substr(0, colon), second = arg.substr(colon + 1);
    const Comparison c{SeatOfPlayer(game, first), SeatOfPlayer(game, second)};
    for (const auto& [seat, name] : {std::pair{c.seat, first}, std::pair{c.other, second}}) {
      if (seat != 0) continue;
      error = "--compare " + arg + ": no player named '" + name + "' is seated";
      return false;
    }
    if (c.seat == c.other) {
      error = "--compare " + arg + ": a player can only be compared with another player";
      return false;
    }
    comparisons.push_back(c);
  }
  return true;
}

bool CheckCounts(const BatchOptions& o, std::string& error) {
  if (o.sessions < 1)
    error = "--sessions must be at least 1";
  else if (o.sessions > kMostBatchSessions)
    error = "--sessions must be at most " + FormatCount(kMostBatchSessions) +
            ": every session's result is held in memory";
  else if (o.rolls < 0)
    error = "--rolls must not be negative";
  else if (o.hands < 0)
    error = "--hands must not be negative";
  else if (o.threads < 0)
    error = "--threads must not be negative";
  else if (o.rolls == 0 && o.hands == 0 && o.stopWins.empty() && o.stopLosses.empty())
    error = "a session needs an end: --rolls, --hands, --stop-win or --stop-loss";
  else if (o.perSession && !o.csv)
    error = "--per-session goes with --csv";
  else if (o.json && o.csv)
    error = "--json and --csv exclude each other";
  else if (o.histogram && (o.json || o.csv))
    error = "--histogram goes with the text report (--json has the bins)";
  else if (!o.compares.empty() && o.csv)
    error = "--compare goes with the text report or --json";
  else if (!o.scripts.dice.empty())
    error = "--dice is refused by batch: each session draws its own dice";
  return error.empty();
}

// The starting game, set up exactly as run sets up its game; null after a
// message (on rank 0) when an option is bad or a script does not compile.
std::unique_ptr<Game> StartingGame(BatchOptions& o, RunPlatform& platform, BatchConfig& config,
                                   std::vector<Comparison>& comparisons, bool speak) {
  std::string error;
  auto fail = [&](const std::string& message) {
    if (speak && !message.empty()) std::cerr << "ravelton-cli batch: " << message << '\n';
    return nullptr;
  };
  if (!CheckCounts(o, error)) return fail(error);
  std::unique_ptr<Game> game = MakeGame(platform);
  StartUp(*game);
  if (!o.files.load.empty() && !LoadGameOption(*game, platform, o.files)) return fail("");
  if (!ApplyTableOptions(*game, o.table, !o.files.load.empty(), error) ||
      !SetUpPlayerOptions(*game, o.players, error) ||
      !SetUpScriptOptions(*game, platform, o.scripts, error))
    return fail(error);
  if (game->PlayerCount == 0) return fail("no player is seated: add --player NAME[=BANKROLL]");
  if (!ParseStops(*game, o.stopWins, "--stop-win", config.stopWin, error) ||
      !ParseStops(*game, o.stopLosses, "--stop-loss", config.stopLoss, error) ||
      !ParseComparisons(*game, o.compares, comparisons, error))
    return fail(error);
  if (StartScripts(*game, o.scripts) != 0) return fail("");
  game->HyperDrive = game->KeepRolling = false;
  game->hyper.AutoStopRolls = o.table.autoStop ? game->hyper.AutoStopRolls : Currency{};
  config.sessions = o.sessions;
  config.rolls = o.rolls;
  config.hands = o.hands;
  config.seed = o.seed;
  return game;
}

nlohmann::json SummaryJson(const PlayerSummary& s) {
  nlohmann::json pct = nlohmann::json::object();
  for (std::size_t i = 0; i < kBatchPercentiles.size(); ++i)
    pct[std::to_string(kBatchPercentiles[i])] = s.percentiles[i];
  return {{"name", s.name},
          {"sessions", s.sessions},
          {"mean_net", s.meanNet},
          {"sd_net", s.sdNet},
          {"percentiles", pct},
          {"min", s.min},
          {"max", s.max},
          {"won_share", s.wonShare},
          {"broke_share", s.brokeShare},
          {"stop_win_share", s.stopWinShare},
          {"stop_loss_share", s.stopLossShare},
          {"mean_rolls", s.meanRolls},
          {"mean_hands", s.meanHands},
          {"wagered", s.wagered},
          {"edge", s.edge},
          {"edge_ci95", {s.edgeCi95[0], s.edgeCi95[1]}},
          {"exact_edge", s.exactEdge ? nlohmann::json(*s.exactEdge) : nlohmann::json(nullptr)}};
}

// The player's nets binned as the window's histogram bins them.
nlohmann::json HistogramJson(const NetHistogram& h) {
  return {{"low", h.low.ToDouble()},
          {"width", h.width.ToDouble()},
          {"step", h.step.ToDouble()},
          {"counts", h.counts}};
}

nlohmann::json ComparisonJson(const Game& start, const Comparison& c, const PairedNets& n) {
  return {{"player", start.PlayerName[c.seat]},
          {"against", start.PlayerName[c.other]},
          {"sessions", n.sessions},
          {"mean_difference", n.meanDifference},
          {"ci95", {n.ci95[0], n.ci95[1]}},
          {"ahead_share", n.aheadShare},
          {"level_share", n.levelShare}};
}

void PrintComparison(std::ostream& out, const Game& start, const Comparison& c,
                     const PairedNets& n) {
  const std::string& name = start.PlayerName[c.seat];
  out << std::fixed << std::setprecision(2) << name << " against " << start.PlayerName[c.other]
      << ": mean difference " << n.meanDifference << " (95% CI " << n.ci95[0] << " to " << n.ci95[1]
      << ")" << std::setprecision(4) << ", " << name << " ahead " << n.aheadShare << ", level "
      << n.levelShare << '\n'
      << std::defaultfloat;
}

constexpr int kHistogramBarWidth = 50;  // characters of the fullest bin's bar

// A player's nets as lines of a text histogram: each bin's range, its
// sessions and a bar of '#' scaled to the fullest bin.
void PrintHistogram(std::ostream& out, const NetHistogram& h) {
  if (h.counts.empty()) return;
  const std::int64_t fullest = *std::max_element(h.counts.begin(), h.counts.end());
  Currency from = h.low;
  for (const std::int64_t count : h.counts) {
    const Currency last = from + h.width - h.step;  // the last net the bin can hold
    const auto bar = static_cast<std::size_t>((count * kHistogramBarWidth + fullest - 1) / fullest);
    const std::string range =
        last == from ? FormatMoney(from) : FormatMoney(from) + " to " + FormatMoney(last);
    out << "  " << std::setw(24) << range << std::setw(9) << count;
    if (bar > 0) out << ' ' << std::string(bar, '#');
    out << '\n';
    from = from + h.width;
  }
}

void PrintText(std::ostream& out, const std::vector<PlayerSummary>& all, std::int64_t sessions,
               double seconds, const std::vector<NetHistogram>& histograms) {
  out << sessions << " sessions in " << std::fixed << std::setprecision(2) << seconds << " s\n";
  for (const PlayerSummary& s : all) {
    out << s.name << " (seat " << s.seat << "): mean net " << s.meanNet << ", sd " << s.sdNet
        << ", min " << s.min << ", max " << s.max << '\n';
    out << "  percentiles:";
    for (std::size_t i = 0; i < kBatchPercentiles.size(); ++i)
      out << ' ' << kBatchPercentiles[i] << "%=" << s.percentiles[i];
    out << '\n' << std::setprecision(4);
    out << "  won " << s.wonShare << ", broke " << s.brokeShare << ", stop-win " << s.stopWinShare
        << ", stop-loss " << s.stopLossShare << "; mean rolls " << std::setprecision(1)
        << s.meanRolls << ", hands " << s.meanHands << '\n';
    out << std::setprecision(2) << "  wagered " << s.wagered << ", edge " << std::setprecision(3)
        << 100 * s.edge << "% (95% CI " << 100 * s.edgeCi95[0] << "% to " << 100 * s.edgeCi95[1]
        << "%)";
    if (s.exactEdge) out << ", exact " << 100 * *s.exactEdge << '%';
    out << '\n' << std::setprecision(2);
    if (!histograms.empty()) {
      out << "  session nets:\n";
      PrintHistogram(out, histograms[static_cast<std::size_t>(&s - all.data())]);
    }
  }
  out << std::defaultfloat;
}

void PrintCsv(std::ostream& out, const std::vector<SessionResult>& results,
              const std::vector<PlayerSummary>& all, bool perSession) {
  if (perSession) {
    out << SessionsCsvHeading(all);
    std::string line;
    for (const SessionResult& r : results) {
      line.clear();
      AppendSessionCsvLine(line, r, all);
      out << line;
    }
    return;
  }
  out << "name,sessions,mean_net,sd_net";
  for (int q : kBatchPercentiles) out << ",p" << q;
  out << ",min,max,won_share,broke_share,stop_win_share,stop_loss_share,mean_rolls,mean_hands,"
         "wagered,edge,"
         "edge_ci95_low,edge_ci95_high,exact_edge\n";
  // Figures in their shortest exact text: a spreadsheet reads back the doubles.
  for (const PlayerSummary& s : all) {
    out << CsvField(s.name) << ',' << s.sessions;
    for (double v : {s.meanNet, s.sdNet}) out << ',' << ShortestText(v);
    for (double v : s.percentiles) out << ',' << ShortestText(v);
    for (double v : {s.min, s.max, s.wonShare, s.brokeShare, s.stopWinShare, s.stopLossShare,
                     s.meanRolls, s.meanHands, s.wagered, s.edge, s.edgeCi95[0], s.edgeCi95[1]})
      out << ',' << ShortestText(v);
    out << ',';
    if (s.exactEdge) out << ShortestText(*s.exactEdge);
    out << '\n';
  }
}

class ProgressLine {
 public:
  ProgressLine(std::int64_t total, bool on) : total_(total), on_(on), start_(Clock::now()) {}
  void operator()(std::int64_t done) const {
    if (!on_) return;
    const double s = std::chrono::duration<double>(Clock::now() - start_).count();
    const double rate = s > 0 ? static_cast<double>(done) / s : 0;
    const double left = rate > 0 ? static_cast<double>(total_ - done) / rate : 0;
    std::fprintf(stderr, "\r%lld/%lld sessions, %.0f/s, %.0f s left   ",
                 static_cast<long long>(done), static_cast<long long>(total_), rate, left);
    if (done == total_) std::fputc('\n', stderr);
  }

 private:
  using Clock = std::chrono::steady_clock;
  std::int64_t total_;
  bool on_;
  Clock::time_point start_;
};

int Batch(BatchOptions& o) {
  const BatchRanks ranks = StartRanks();
  const bool lead = ranks.rank == 0;
  RunPlatform platform;
  BatchConfig config;
  std::vector<Comparison> comparisons;
  std::unique_ptr<Game> start = StartingGame(o, platform, config, comparisons, lead);
  if (AnyRank(ranks, start == nullptr)) {
    EndRanks(ranks);
    return 1;
  }
  const int threads = o.threads > 0
                          ? o.threads
                          : std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
  const auto began = std::chrono::steady_clock::now();
  const std::vector<std::int64_t> mine = RankSessions(ranks, o.sessions);
  const ProgressLine progress(static_cast<std::int64_t>(mine.size()),
                              lead && isatty(STDERR_FILENO));
  std::vector<SessionResult> results =
      GatherResults(ranks, PlaySessions(*start, config, mine, threads,
                                        isatty(STDERR_FILENO) && lead
                                            ? std::function<void(std::int64_t)>(progress)
                                            : std::function<void(std::int64_t)>()));
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
  EndRanks(ranks);
  if (!lead) return 0;
  const std::vector<PlayerSummary> all = SummarizePlayers(*start, results);
  if (o.json) {
    nlohmann::json players = nlohmann::json::array();
    for (const PlayerSummary& s : all) {
      players.push_back(SummaryJson(s));
      players.back()["histogram"] = HistogramJson(BinNets(results, s.seat));
    }
    nlohmann::json report{{"sessions", o.sessions}, {"seconds", seconds}, {"players", players}};
    if (!comparisons.empty()) {
      nlohmann::json& list = report["comparisons"] = nlohmann::json::array();
      for (const Comparison& c : comparisons)
        list.push_back(ComparisonJson(*start, c, ComparePlayers(results, c.seat, c.other)));
    }
    std::cout << JsonText(report) << '\n';
  } else if (o.csv) {
    PrintCsv(std::cout, results, all, o.perSession);
  } else {
    std::vector<NetHistogram> histograms;
    if (o.histogram)
      for (const PlayerSummary& s : all) histograms.push_back(BinNets(results, s.seat));
    PrintText(std::cout, all, o.sessions, seconds, histograms);
    for (const Comparison& c : comparisons)
      PrintComparison(std::cout, *start, c, ComparePlayers(results, c.seat, c.other));
  }
  return 0;
}

}  // namespace

void AddBatchCommand(CLI::App& app) {
  auto o = std::make_shared<BatchOptions>();
  CLI::App* cmd =
      app.add_subcommand("batch", "Play many independent sessions and report per player");
  cmd->add_option("--sessions", o->sessions, "Sessions to play (default 1000)");
  cmd->add_option("--rolls", o->rolls, "End a session after R rolls (0: no limit)");
  cmd->add_option("--hands", o->hands, "End a session after H hands (0: no limit)");
  cmd->add_option("--stop-win", o->stopWins,
                  "A player stops at a session net of at least X: NAME:X");
  cmd->add_option("--stop-loss", o->stopLosses,
                  "A player stops at a session loss of X or more: NAME:X");
  cmd->add_option("--seed", o->seed, "Seed S: session k is seeded from S and k alone (default 1)");
  cmd->add_option("--threads", o->threads, "Threads (default: every core)");
  cmd->add_flag("--json", o->json, "Print the report as one JSON object");
  cmd->add_flag("--csv", o->csv, "Print the report as CSV");
  cmd->add_flag("--per-session", o->perSession, "With --csv: one line per session");
  cmd->add_option("--compare", o->compares,
                  "Compare two players' session nets, which met the same dice: NAME:OTHER");
  cmd->add_flag("--histogram", o->histogram,
                "With the text report: each player's session nets as a histogram");
  AddTableOptions(*cmd, o->table, false);
  AddPlayerOptions(*cmd, o->players);
  cmd->add_option("--load", o->files.load, "Start from this saved game");
  AddDataOption(*cmd, o->files);
  AddScriptOptions(*cmd, o->scripts);
  cmd->callback([o] {
    ApplyDataOption(o->files);
    if (const int rc = Batch(*o); rc != 0) throw CLI::RuntimeError(rc);
  });
}
