// End-to-end tests of ravelton-cli run, bench and batch: the summary, seated
// players with bets, rules and scripts, the pinned bench checksum, batches on
// one or two threads, refusals and bad usage. Then with files: run
// --load/--save/--data, seats by --player, info; run --record/--playback/--log
// and the rolls command. A run split by a save and a load ends as the
// straight run; a recorded run played back is the same game and stops at the
// end of its file.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <numeric>
#include <sstream>
#include <string>
#include <vector>

#include "cli_util.h"
#include "core/file_io.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/startup.h"
#include "dice/dice_file.h"
#include "store/game_file.h"
#include "tests/support/file_text.h"
#include "tests/support/temp_folder.h"

using cli_test::Cli;
using cli_test::Json;
using cli_test::Result;

namespace {

TEST(CliRun, SameOptionsGiveTheSameSummaryButTheTimeAndStopsAreTold) {
  EXPECT_NE(Cli("run --rolls 5 --json").out.find("\"seconds\":"), std::string::npos);
  const nlohmann::json a = Json("run --rolls 20000 --rng 3 --seed 4242 --json");
  EXPECT_EQ(a, Json("run --rolls 20000 --rng 3 --seed 4242 --json"));
  EXPECT_NE(a, Json("run --rolls 20000 --rng 3 --seed 4243 --json"));
  EXPECT_TRUE(a["rolls"] == 20000 && a["rng"] == 3 && a["seed"] == 4242 && a["stop"] == "") << a;
  // The totals are held against the report's rows (ReportCli.RunThenTotalsAsOneObject).
  // Every hand ends in a miss, so passes and misses split the decided come-outs.
  EXPECT_GT(a["hands"].get<long>(), 0);
  EXPECT_LE(a["passes"].get<long>() + a["misses"].get<long>(), a["comeouts"].get<long>());
  // A clock-seeded run reports the seed that reproduces it.
  const nlohmann::json c = Json("run --rolls 3000 --rng 5 --json");
  EXPECT_EQ(c,
            Json("run --rolls 3000 --rng 5 --json --seed " + std::to_string(c.value("seed", 0L))));
  // Auto-Stop and the bet requirement end the run with their message.
  const nlohmann::json stopped = Json("run --rolls 5000 --auto-stop 1234 --json");
  EXPECT_TRUE(stopped["rolls"] == 1234 && stopped["stop"] == "Stopped by Auto-Stop.") << stopped;
  const nlohmann::json idle = Json("run --require line --json");
  EXPECT_TRUE(idle["rolls"] == 0 && idle["stop"] == "No players are available to bet.") << idle;
}

TEST(CliRun, TraceListsEveryRollBeforeTheSummary) {
  const Result r = Cli("run --rolls 5 --seed 9 --trace");
  ASSERT_EQ(r.exitCode, 0);
  std::istringstream in(r.out);
  for (int i = 1; i <= 5; ++i) {
    int n = 0, d1 = 0, d2 = 0;
    ASSERT_TRUE(in >> n >> d1 >> d2);
    EXPECT_TRUE(n == i && d1 >= 1 && d1 <= 6 && d2 >= 1 && d2 <= 6) << n << d1 << d2;
  }
  EXPECT_NE(r.out.find("Rolls: 5"), std::string::npos);
}

TEST(CliBench, ChecksumIsPinned) {
  // The fixed seeded workloads' tables. A change here means the roll's
  // behaviour changed: dice, tallies, state machine, hand bookkeeping, or
  // (eight players) payoffs, settling, vig, placing and bankroll records.
  const Result r = Cli("bench --rolls 50000");
  ASSERT_EQ(r.exitCode, 0);
  EXPECT_NE(r.out.find("rolls: 50000\n"), std::string::npos);
  EXPECT_EQ(r.out.find("stopped:"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("\nchecksum: 44127676a462e79e\n"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("\nempty table checksum: 10c502c9d418797d\n"), std::string::npos) << r.out;
  const nlohmann::json j = Json("bench --rolls 50000 --json");
  EXPECT_EQ(j["eight_players"]["rolls"], 50000);
  EXPECT_EQ(j["eight_players"]["checksum"], "44127676a462e79e");
  EXPECT_EQ(j["empty_table"]["checksum"], "10c502c9d418797d");
}

const std::string kTable =
    "run --rolls 5000 --rng 3 --seed 99 --json --player Ann=500 --player Bob --player Cy=-20 "
    "--allow-negative Cy --bet ann:pass\\ line=10 --bet Bob:6=30 --bet Bob:place\\ 8=12 "
    "--bet Cy:49=5 --win-rule Ann:2 --lose-rule Ann:2 --win-rule Bob:2 --lose-rule Bob:2 "
    "--win-rule Cy:2 --lose-rule Cy:2 --take-odds Ann";
const std::string kAnn =
    "batch --player Ann=300 --bet 'Ann:Pass Line=10' --win-rule Ann:2 --lose-rule Ann:2 ";

TEST(CliPlayers, EveryDollarOfABankrollIsAccountedForByItsBets) {
  const nlohmann::json j = Json(kTable);
  ASSERT_EQ(j["players"].size(), 3u);
  const nlohmann::json& ann = j["players"][0];
  EXPECT_TRUE(ann["name"] == "Ann" && ann["seat"] == 1 && ann["invested"] == 500.0) << ann;
  EXPECT_TRUE(ann["bets"].contains("44")) << "the odds were taken";
  EXPECT_TRUE(j["players"][1]["invested"] == 1000.0 && j["players"][2]["invested"] == -20.0);
  for (const auto& p : j["players"]) {
    double net = 0;
    for (const auto& [id, b] : p["bets"].items()) {
      EXPECT_GT(b["decisions"].get<long>(), 0) << id;
      EXPECT_DOUBLE_EQ(b["net"].get<double>(), b["won"].get<double>() - b["lost"].get<double>());
      net += b["net"].get<double>();
    }
    EXPECT_NEAR(p["bankroll"].get<double>() - p["invested"].get<double>(), net, 1e-9) << p["name"];
  }
}

TEST(CliPlayers, ARefusedBetIsReportedAndTheRunGoesOn) {
  const Result r = Cli("run --rolls 10 --player Ann --bet Ann:come=5 --bet Ann:Field=2000", true);
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_NE(r.out.find("--bet Ann:come=5: 0 placed: Ann, You may not make a Come bet until a point "
                       "is established."),
            std::string::npos)
      << r.out;
  EXPECT_NE(r.out.find("--bet Ann:Field=2000: 1,000 placed"), std::string::npos) << r.out;
}

// Runs with files of their own in a data folder of their own.
class CliTest : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) const { return dir / name; }
  std::string Write(const std::string& name, const std::string& text) {
    WriteWholeFile(dir / name, text);
    return dir / name;
  }
  // A run in this test's data folder.
  Result Run(const std::string& args, bool stderrOnly = false) const {
    return Cli("run --data '" + dir.Path() + "' " + args, stderrOnly);
  }
  nlohmann::json Json(const std::string& args) {
    return cli_test::Json(args + " --json --data " + dir.Path());
  }
  // The exit code of a run that saves its game as `name` in this folder.
  int Saved(const std::string& args, const std::string& name) const {
    return Run(args + " --save '" + Path(name) + "'").exitCode;
  }
  // What info says of a game file of this test, as JSON.
  nlohmann::json Info(const std::string& name) const {
    return cli_test::Json("info --json --data '" + dir.Path() + "' '" + Path(name) + "'");
  }
  TempFolder dir;
};
using CliFiles = CliTest;

TEST_F(CliTest, BadUsageExitsWithOne) {
  std::string nine = "run --rolls 10";
  for (char c = 'a'; c <= 'i'; ++c) nine += std::string(" --player P") + c;
  for (const std::string& args :
       {std::string("run --rng 9"), std::string("run --rolls -1"),
        std::string("run --require some"), std::string("run --seed 5000000000"),
        std::string("run --seed 0"), std::string("run --seed nan"), std::string("run --rolls x"),
        std::string("run --nope"), std::string("nosuchcommand"), nine})
    EXPECT_EQ(Cli(args).exitCode, 1) << args;
  const std::string ok = Write("ok.bet", "cs1 = 1");
  for (const std::string& players : std::vector<std::string>{
           "--player Ann --player ANN", "--player Ann=lots", "--player Ann=10000000",
           "--player Ann --bet Bob:field=5", "--player Ann --bet Ann:nowhere=5",
           "--player Ann --bet Ann:field=-5", "--player Ann --bet Ann:field=0.00001",
           "--player Ann --win-rule Ann:8", "--player 'Bet Smith'",
           "--player Ann --script Bob=" + ok, "--player Ann --script Ann=" + (dir / "no.bet"),
           "--player Ann --script Ann", "--player Ann --dice 34,70", "--player Ann --dice 34,",
           "--player Ann --allow Ann:everything", "--player Ann --allow Bob:files",
           "--player Ann --data " + ok + "/below-a-file"})
    EXPECT_EQ(Cli("run --rolls 10 " + players).exitCode, 1) << players;
  EXPECT_EQ(Cli("run --rolls 10 --player Ann --take-odds Ann").exitCode, 0);
}

TEST_F(CliTest, KnownDiceAnswersAndThePlayersTableInTheSummary) {
  const std::string bet =
      Write("a.bet",
            "If initializing script Then cs1 = input(\"Units?\") : "
            "csn2 = input$(\"Name?\") EndIf\n"
            "If next roll is a comeout roll Then bet cs1 on passline EndIf\n"
            "cs3 = dice total : add 1 to cs4 :\n"
            "open/append file for output \"rolls.txt\" : output to file die1 & die2 & \",\"\n");
  const nlohmann::json j = Json("run --rolls 3 --seed 5 --player Ann=100 --script Ann=" + bet +
                                " --dice 34,22,61 --answer 15 --answer Zed --win-rule Ann:2");
  ASSERT_EQ(j["players"].size(), 1u);
  const nlohmann::json& ann = j["players"][0];
  // 3-4 wins 15, 2-2 sets the point, 6-1 loses the 15 on the Pass Line,
  // and the script bets the 15 again for the come-out.
  EXPECT_EQ(ann["bankroll"], 100.0);
  EXPECT_EQ(ann["rail"], 85.0);
  EXPECT_EQ(ann["on_table"], nlohmann::json({{"43", 15.0}}));
  EXPECT_EQ(ann["checkstacks"], nlohmann::json({{"1", 15.0}, {"3", 7.0}, {"4", 4.0}}));
  EXPECT_EQ(ann["checkstack_names"], nlohmann::json({{"2", "Zed"}}));
  EXPECT_TRUE(ann["win_rule"] == 2 && ann["lose_rule"] == 1 && ann["take_odds"] == false &&
              ann["script_active"] == true)
      << ann;
  EXPECT_EQ(j["messages"], nlohmann::json::parse(R"j([{"title":"Auto-Bet (Ann)","text":"Units?"},
                                      {"title":"Auto-Bet (Ann)","text":"Name?"}])j"));
  EXPECT_EQ(ReadWholeFile(dir / "rolls.txt"), "34,34,22,61,");
}

TEST_F(CliTest, AScriptThatDoesNotCompileStopsTheRunBeforeItStarts) {
  const std::string bet = Write("bad.bet", "cs1 = 1 :\ncs2 = \n");
  const Result r = Cli("run --rolls 10 --player Ann --script Ann=" + bet, true);
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_NE(r.out.find("Ann's auto-bet script contains an error which must be corrected"),
            std::string::npos)
      << r.out;
  EXPECT_NE(r.out.find(bet + ":2:0: Improper assignment or expression."), std::string::npos)
      << r.out;
}

TEST_F(CliTest, NewSessionsAndStopsAScriptMakesWithinTheCountedRolls) {
  const std::string bet =
      Write("s.bet",
            "If # rolls = 25 Then start new session (preserve checkstacks) EndIf\n"
            "If # rolls = 0 Then add 1 to cs1 EndIf");
  const nlohmann::json j = Json("run --rolls 100 --seed 1 --player Ann --script Ann=" + bet);
  EXPECT_EQ(j["rolls"], 0);  // the session just begun
  EXPECT_EQ(j["players"][0]["checkstacks"], nlohmann::json({{"1", 5.0}}));
  // A script named without a folder is found in the data folder too.
  Write("t.bet", "If # rolls = 4 Then stop autoroll/hyperdrive EndIf");
  const nlohmann::json k = Json("run --rolls 100 --seed 1 --player Ann --script Ann=t.bet");
  EXPECT_EQ(k["rolls"], 4);
  EXPECT_EQ(k["stop"], "Stopped by Auto-Bet command.");
  EXPECT_EQ(k["messages"],
            nlohmann::json::parse(
                R"j([{"title":"Hyper-Drive Stopped","text":"Stopped by Auto-Bet command."}])j"));

  // In a batch, such a session ends as a game stop with the game's stop text.
  const std::string path =
      Write("batch_stop.bet", "If dice total = 7 Then\n   Stop AutoRolling/HyperDrive\nEndIf\n");
  const auto r =
      Cli(kAnn + "--sessions 4 --rolls 500 --seed 5 --csv --per-session --script Ann=" + path);
  ASSERT_EQ(r.exitCode, 0);
  std::istringstream lines(r.out);
  std::string line;
  std::getline(lines, line);
  EXPECT_TRUE(line.ends_with(",stop")) << line;
  int stopped = 0;
  while (std::getline(lines, line)) {
    if (line.find(",game stop,") == std::string::npos) continue;
    ++stopped;
    EXPECT_TRUE(line.ends_with(",Stopped by Auto-Bet command.")) << line;
  }
  EXPECT_EQ(stopped, 4);
}

TEST_F(CliTest, BadBatchOptionsExitOneBeforeAnySession) {
  const std::string bad = Write("batch_bad.bet", "this is not a script\n");
  const struct {
    std::string args, message;
  } cases[] = {
      {kAnn + "--rolls 10 --stop-loss Bo:50", "--stop-loss Bo:50: no player named 'Bo' is seated"},
      {kAnn + "--rolls 10 --stop-win Ann:-5",
       "--stop-win Ann:-5: the amount must be a number above 0"},
      {kAnn + "--sessions -3 --rolls 10", "--sessions must be at least 1"},
      {kAnn + "--sessions 100000000000 --rolls 1", "--sessions must be at most 10,000,000"},
      {kAnn + "--rolls -1", "--rolls must not be negative"},
      {kAnn + "--hands -2", "--hands must not be negative"},
      {kAnn, "a session needs an end"},
      {"batch --rolls 10", "no player is seated"},
      {kAnn + "--rolls 10 --rng 9", "--rng must be 1 to 8"},
      {kAnn + "--rolls 10 --per-session", "--per-session goes with --csv"},
      {kAnn + "--rolls 10 --histogram --json", "--histogram goes with the text report"},
      {kAnn + "--rolls 10 --compare Ann:Bo", "--compare Ann:Bo: no player named 'Bo' is seated"},
      {kAnn + "--rolls 10 --compare Ann", "--compare Ann: name two seated players"},
      {kAnn + "--rolls 10 --compare Ann:Ann", "compared with another player"},
      {kAnn + "--player Bo --rolls 10 --compare Ann:Bo --csv", "--compare goes with the text"},
      {kAnn + "--rolls 10 --script Ann=/nonexistent/x.bet", "x.bet"},
      {kAnn + "--rolls 10 --script Ann=" + bad, "must be corrected"},
  };
  for (const auto& c : cases) {
    const auto err = Cli(c.args, true);
    EXPECT_EQ(err.exitCode, 1) << c.args;
    EXPECT_NE(err.out.find(c.message), std::string::npos) << c.args << "\n" << err.out;
    EXPECT_EQ(Cli(c.args).out, "") << "nothing is reported: " << c.args;
  }
}

// Threads are the batch library's (whose tests hold one against two); here
// the option reaches it and every session gets its line.
TEST(CliBatch, OneAndTwoThreadsReportTheSameAndJsonHasEveryFigure) {
  const std::string args =
      kAnn +
      "--player Bo=200 --bet Bo:field=5 --win-rule Bo:2 --lose-rule Bo:2 "
      "--sessions 300 --rolls 120 --stop-win Ann:100 --seed 42 --csv --per-session";
  const auto two = Cli(args + " --threads 2");
  ASSERT_EQ(two.exitCode, 0);
  EXPECT_EQ(two.out, Cli(args + " --threads 1").out);
  EXPECT_EQ(std::count(two.out.begin(), two.out.end(), '\n'), 301);

  // The JSON form has every figure.
  const auto r = Cli(kAnn + "--sessions 50 --rolls 100 --seed 3 --json");
  ASSERT_EQ(r.exitCode, 0);
  const auto j = nlohmann::json::parse(r.out);
  ASSERT_TRUE(j["sessions"] == 50 && j["players"].size() == 1u) << j;
  const auto& p = j["players"][0];
  EXPECT_EQ(p["name"], "Ann");
  for (const char* key :
       {"sessions", "mean_net", "sd_net", "min", "max", "won_share", "broke_share",
        "stop_win_share", "stop_loss_share", "mean_rolls", "mean_hands", "wagered", "edge"})
    EXPECT_TRUE(p[key].is_number()) << key;
  for (const char* q : {"1", "5", "25", "50", "75", "95", "99"})
    EXPECT_TRUE(p["percentiles"][q].is_number());
  EXPECT_EQ(p["mean_rolls"], 100);
  EXPECT_EQ(p["edge_ci95"].size(), 2u);
  EXPECT_NEAR(p["exact_edge"].get<double>(), -7.0 / 495.0, 1e-12);
  // The histogram's bins hold every session, the first edge within a bin of
  // the smallest net.
  const auto& h = p["histogram"];
  EXPECT_LE(h["low"].get<double>(), p["min"].get<double>());
  EXPECT_GT(h["low"].get<double>() + h["width"].get<double>(), p["min"].get<double>());
  const auto counts = h["counts"].get<std::vector<int>>();
  EXPECT_EQ(std::accumulate(counts.begin(), counts.end(), 0), 50);
  // The text report's histogram has a line for each bin, with its count.
  const auto text = Cli(kAnn + "--sessions 50 --rolls 100 --seed 3 --histogram");
  const std::size_t at = text.out.find("  session nets:\n");
  ASSERT_NE(at, std::string::npos) << text.out;
  std::istringstream lines(text.out.substr(at + 17));
  int sum = 0;
  std::size_t bins = 0;
  for (std::string line; std::getline(lines, line); ++bins) {
    const std::size_t bar = line.find_last_of("0123456789");
    sum += std::stoi(line.substr(line.find_last_of(' ', bar) + 1));
  }
  EXPECT_EQ(bins, counts.size());
  EXPECT_EQ(sum, 50);
  // Ann against Bo, as asked both ways: the mean difference is that of their
  // means, and every session has Ann ahead, Bo ahead or the two level.
  const std::string pair = kAnn + "--player Bo=200 --bet Bo:field=5 --sessions 80 --rolls 50 ";
  const auto both =
      nlohmann::json::parse(Cli(pair + "--json --compare Ann:Bo --compare Bo:Ann").out);
  ASSERT_EQ(both["comparisons"].size(), 2u) << both;
  const auto& annBo = both["comparisons"][0];
  EXPECT_TRUE(annBo["player"] == "Ann" && annBo["against"] == "Bo" && annBo["sessions"] == 80);
  EXPECT_NEAR(
      annBo["mean_difference"].get<double>(),
      both["players"][0]["mean_net"].get<double>() - both["players"][1]["mean_net"].get<double>(),
      1e-9);
  EXPECT_NEAR(annBo["ahead_share"].get<double>() + annBo["level_share"].get<double>() +
                  both["comparisons"][1]["ahead_share"].get<double>(),
              1.0, 1e-12);
  EXPECT_NE(Cli(pair + "--compare Ann:Bo").out.find("Ann against Bo: mean difference "),
            std::string::npos);
  // The summary CSV gives the figures whole: the JSON's mean, not six digits of it.
  const std::string big =
      "batch --player Jo=9000000 --bet 'Jo:Pass Line=1000' --take-odds Jo "
      "--win-rule Jo:2 --lose-rule Jo:2 --sessions 7 --rolls 33 ";
  const auto csv = Cli(big + "--csv");
  std::vector<std::string> fields;  // name, sessions, mean_net, ...
  std::istringstream row(csv.out.substr(csv.out.find('\n') + 1));
  for (std::string field; std::getline(row, field, ',');) fields.push_back(field);
  ASSERT_GT(fields.size(), 2u) << csv.out;
  const double mean =
      nlohmann::json::parse(Cli(big + "--json").out)["players"][0]["mean_net"].get<double>();
  EXPECT_EQ(std::stod(fields[2]), mean) << fields[2];
}

const std::string kPlayers =
    "--player Ann=500@3 --player Bo=300 --bet Ann:43=10 --bet Bo:Field=5 --win-rule Ann:2 "
    "--lose-rule Ann:2 --win-rule Bo:2 --lose-rule Bo:2 --take-odds Ann --rng 3 --seed 42 ";

// A loaded and saved game keeps every byte (the store's own tests hold
// that); here the options on the way keep it too.
TEST_F(CliFiles, ARunSplitBySaveAndLoadEndsAsTheStraightRun) {
  const auto straight = Run(kPlayers + "--rolls 1000 --json --save '" + Path("full.rvg") + "'");
  ASSERT_EQ(straight.exitCode, 0);
  ASSERT_EQ(Saved(kPlayers + "--rolls 377", "half.rvg"), 0);
  const auto rest =
      Run("--load '" + Path("half.rvg") + "' --rolls 623 --json --save '" + Path("rest.rvg") + "'");
  ASSERT_EQ(rest.exitCode, 0);
  // The same game, byte for byte, and the same summary: rolls go on counting.
  EXPECT_TRUE(ReadWholeFile(Path("full.rvg")) == ReadWholeFile(Path("rest.rvg")));
  auto a = nlohmann::json::parse(straight.out), b = nlohmann::json::parse(rest.out);
  a.erase("seconds"), b.erase("seconds");
  EXPECT_EQ(a, b);
  EXPECT_EQ(b["rolls"], 1000);
}

// A game a few rolls short of the session's limit: the run stops there with
// the limit's message, whose line breaks are blanks on one output line.
TEST_F(CliFiles, TheRollLimitStopsARunWithItsMessageOnOneLine) {
  ASSERT_EQ(Saved("--rolls 0", "near.rvg"), 0);
  {
    HeadlessPlatform platform;
    auto g = MakeGame(platform);
    StartUp(*g, dir.Path());
    ASSERT_TRUE(OpenGame(*g, Path("near.rvg")));
    g->RollTally(kTableSession, kEventRolls) = kSessionRollLimit - 3;
    ASSERT_TRUE(SaveGame(*g, Path("near.rvg")));
  }
  const std::string stop =
      "Stopped due to reaching the maximum limit of 100,000,000 rolls. "
      "Select \"New\" from the \"Game\" menu to reset the table.";
  const auto text = Run("--load '" + Path("near.rvg") + "' --rolls 10");
  EXPECT_NE(text.out.find("Stopped: " + stop + "\n"), std::string::npos) << text.out;
  EXPECT_EQ(Json("run --load '" + Path("near.rvg") + "' --rolls 10")["stop"], stop);
  // Come-outs at the count limit on every total add up beyond a Long.
  {
    HeadlessPlatform platform;
    auto g = MakeGame(platform);
    StartUp(*g, dir.Path());
    ASSERT_TRUE(OpenGame(*g, Path("near.rvg")));
    for (int t = 2; t <= 12; ++t)
      g->TotalsTally(kTableSession, t, kTotalsComeOut) = kAllSessionsRollLimit;
    ASSERT_TRUE(SaveGame(*g, Path("far.rvg")));
  }
  EXPECT_EQ(Json("run --load '" + Path("far.rvg") + "' --rolls 0")["comeouts"],
            11 * std::int64_t{kAllSessionsRollLimit});
}

TEST_F(CliFiles, ALoadedGameKeepsItsSettingsUnlessAnOptionIsGiven) {
  ASSERT_EQ(Saved("--rolls 0 --require any --auto-stop 50 --rng 5", "g.rvg"), 0);
  auto info = Info("g.rvg");
  EXPECT_EQ(info["settings"]["bet_requirement"], "Any bet required to shoot");
  EXPECT_EQ(info["settings"]["rng"], 5);
  ASSERT_EQ(Saved("--load '" + Path("g.rvg") + "' --rolls 0 --require line", "h.rvg"), 0);
  info = Info("h.rvg");
  EXPECT_EQ(info["settings"]["bet_requirement"], "Line bet required to shoot");
  EXPECT_EQ(info["settings"]["rng"], 5);
}

// What the messages say and that no temporary is left are the store's tests;
// here the program stops with them.
TEST_F(CliFiles, AGameThatDoesNotOpenOrSaveStopsTheProgram) {
  WriteWholeFile(Path("junk.rvg"), "not a game");
  const auto r = Run("--load '" + Path("junk.rvg") + "' --rolls 10", true);
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.out, "Unable to Open Ravelton Game File: " + Path("junk.rvg") +
                       ": This is not a Ravelton game file.\n");
  EXPECT_EQ(Run("--load '" + Path("junk.rvg") + "' --rolls 10").out, "");
  const auto missing = Cli("info '" + Path("none.rvg") + "'", true);
  EXPECT_EQ(missing.exitCode, 1);
  EXPECT_NE(missing.out.find("Game File Not Found: " + Path("none.rvg")), std::string::npos);
  std::filesystem::create_directories(Path("taken.rvg/inside"));
  const auto save = Run("--rolls 5 --save '" + Path("taken.rvg") + "'", true);
  EXPECT_EQ(save.exitCode, 1);
  EXPECT_NE(save.out.find("Unable to Save Ravelton Game File"), std::string::npos) << save.out;
  EXPECT_NE(save.out.find(Path("taken.rvg")), std::string::npos);
}

TEST_F(CliFiles, PlayersSitWhereTheyAskOrInTheLowestOpenSeats) {
  const auto r = Run("--rolls 0 --json --player Ann@5 --player Bo --player Cy=20@1 --player Di");
  ASSERT_EQ(r.exitCode, 0);
  std::map<std::string, int> seats;
  const auto summary = nlohmann::json::parse(r.out);
  for (const auto& p : summary["players"]) seats[p["name"]] = p["seat"];
  EXPECT_EQ(seats, (std::map<std::string, int>{{"Ann", 5}, {"Bo", 2}, {"Cy", 1}, {"Di", 3}}));
  for (const char* bad :
       {"--player Ann@9", "--player Ann@0", "--player Ann@5 --player Bo@5", "--player Ann@x"})
    EXPECT_EQ(Run(std::string("--rolls 0 ") + bad).exitCode, 1) << bad;
  // Seats a loaded game holds are taken.
  ASSERT_EQ(Saved("--rolls 0 --player Ann@2", "a.rvg"), 0);
  EXPECT_EQ(Run("--load '" + Path("a.rvg") + "' --rolls 0 --player Bo@2").exitCode, 1);
  const auto more = Run("--load '" + Path("a.rvg") + "' --rolls 0 --json --player Bo");
  ASSERT_EQ(more.exitCode, 0);
  EXPECT_EQ(nlohmann::json::parse(more.out)["players"][0]["name"], "Bo");
  EXPECT_EQ(nlohmann::json::parse(more.out)["players"][0]["seat"], 1);
}

TEST_F(CliFiles, InfoTellsPlayersFramesFilesAndSettings) {
  ASSERT_EQ(Saved(kPlayers + "--rolls 200", "g.rvg"), 0);
  const auto info = Info("g.rvg");
  ASSERT_EQ(info["players"].size(), 2u);
  const auto& ann = info["players"][1];
  EXPECT_TRUE(ann["slot"] == 3 && ann["name"] == "Ann" && ann["win_rule"] == 2) << ann;
  EXPECT_DOUBLE_EQ(ann["rail"].get<double>(),
                   ann["bankroll"].get<double>() - ann["total_bets"].get<double>());
  ASSERT_EQ(info["frames"].size(), 5u);
  EXPECT_EQ(info["frames"][2]["frame"], "Current session");
  EXPECT_EQ(info["frames"][4]["rolls"], 200);
  EXPECT_EQ(info["files"][0]["path"], Path("Events Log.txt"));
  // The text form names the same things.
  const auto text = Cli("info --data '" + dir.Path() + "' '" + Path("g.rvg") + "'").out;
  EXPECT_NE(text.find("Seat 3: Ann, bankroll $"), std::string::npos) << text;
  EXPECT_NE(text.find("Current session: 200 rolls"), std::string::npos) << text;
  // Money past what a double holds in ten-thousandths reads exactly.
  ASSERT_EQ(Saved("--rolls 0 --player Ann --allow-negative Ann --bet Ann:101=99999999999999 "
                  "--bet Ann:102=0.0001",
                  "s.rvg"),
            0);
  const auto stacks = Cli("info --data '" + dir.Path() + "' '" + Path("s.rvg") + "'").out;
  EXPECT_NE(stacks.find("CheckStack 1 (): $99,999,999,999,999\n"), std::string::npos) << stacks;
  EXPECT_NE(stacks.find("CheckStack 2 (): $.0001\n"), std::string::npos) << stacks;
  // A name whose bytes are not UTF-8 (a damaged file can hold one) comes out
  // of the JSON with U+FFFD in their place.
  ASSERT_EQ(Saved("--rolls 5 --player 'Ann\xff'", "u.rvg"), 0);
  const std::string replaced = "Ann\xEF\xBF\xBD";
  EXPECT_EQ(Info("u.rvg")["players"][0]["name"], replaced);
  EXPECT_EQ(Json("run --load '" + Path("u.rvg") + "' --rolls 1")["players"][0]["name"], replaced);
}

// The trace lines of an output and its last line (the JSON summary) apart.
struct Traced {
  std::string trace;
  nlohmann::json summary;
};
Traced Split(const Result& r) {
  Traced t;
  const auto last = r.out.rfind('\n', r.out.size() - 2);
  t.trace = r.out.substr(0, last + 1);
  t.summary = nlohmann::json::parse(r.out.substr(last + 1), nullptr, false);
  if (t.summary.is_object()) t.summary.erase("seconds");
  return t;
}

const std::string kTracedTable =
    " --trace --json --player Ann=1000 --bet Ann:pass\\ line=10 --take-odds Ann --win-rule "
    "Ann:2 --lose-rule Ann:2 --bet Ann:field=5";

TEST_F(CliFiles, ARecordedRunPlayedBackIsTheSameGameAndEndsWithItsFile) {
  const std::string file = Path("run.rol");
  const Traced recorded =
      Split(Run("--rolls 100000 --record '" + file + "' --rng 2 --seed 31337" + kTracedTable));
  ASSERT_TRUE(recorded.summary.is_object());
  EXPECT_EQ(FileLength(file), 100'000);

  // Other seed, other generator: only the file's dice count.
  const Traced played =
      Split(Run("--rolls 300000 --playback '" + file + "' --rng 5 --seed 1" + kTracedTable));
  ASSERT_TRUE(played.summary.is_object());
  EXPECT_EQ(played.trace, recorded.trace);
  EXPECT_EQ(played.summary["stop"], std::string(kEndOfDiceFileStop));
  for (const char* key : {"players", "totals", "hands"})
    EXPECT_EQ(played.summary[key], recorded.summary[key]) << key;
  EXPECT_EQ(played.summary["rolls"], 100'000);

  // From roll 99,991: the file's last ten rolls.
  const Result tail = Run("--playback '" + file + "' --from-roll 99991 --trace");
  ASSERT_EQ(tail.exitCode, 0);
  std::string lastTen;
  std::istringstream lines(recorded.trace);
  for (std::string line; std::getline(lines, line);)
    if (std::stol(line) > 99'990)
      lastTen += std::to_string(std::stol(line) - 99'990) + line.substr(line.find(' ')) + '\n';
  EXPECT_EQ(tail.out.substr(0, lastTen.size()), lastTen);
  EXPECT_NE(tail.out.find("Stopped: " + std::string(kEndOfDiceFileStop)), std::string::npos);
}

TEST_F(CliFiles, ADiceFileThatIsNotOneIsRefusedAndABadValueStopsTheRun) {
  const std::string odd = Path("odd.rol");
  std::ofstream(odd, std::ios::binary) << "\x24\x25";
  const Result r = Run("--rolls 10 --playback '" + odd + "'", true);
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.out, "ravelton-cli run: " + odd +
                       " is either from an earlier version, has been corrupted, or is not a true "
                       "Ravelton dice roll file.\n");
  for (const std::string& bad :
       {"--playback '" + Path("none.rol") + "'", std::string("--record a.rol --playback b.rol"),
        std::string("--from-roll 3"), std::string("--rolls 3 --log dice"),
        std::string("--rolls 3 --log-file x.txt")})
    EXPECT_EQ(Run(bad).exitCode, 1) << bad;

  const std::string bad = Path("bad.rol");
  std::ofstream(bad, std::ios::binary) << '\x24' << '\x44' << '\0' << '\x24';
  const Result stopped = Run("--rolls 10 --playback '" + bad + "' --json");
  EXPECT_EQ(stopped.exitCode, 0);
  const auto j = nlohmann::json::parse(stopped.out, nullptr, false);
  EXPECT_EQ(j["stop"], std::string(kDiceFileValueStop));
  EXPECT_EQ(j["rolls"], 2);
}

// The lines' own forms are the events log's tests; here the kinds asked
// for, and the one index in the data folder.
TEST_F(CliFiles, TheLogHoldsTheKindsAskedAndItsIndexStaysInTheDataFolder) {
  ASSERT_EQ(Run("--rolls 40 --seed 5 --log rolls,passes").exitCode, 0);
  const std::string log = ReadWholeFile(Path("Events Log.txt"));
  const auto lineCount = [](const std::string& text) {
    return static_cast<std::int64_t>(std::count(text.begin(), text.end(), '\n'));
  };
  EXPECT_EQ(log.find(" New session started "), 0u) << log;
  // Every line is a session line, a roll line from the generator, or a pass line.
  int rolls = 0;
  std::istringstream lines(log);
  for (std::string line; std::getline(lines, line);) {
    ASSERT_TRUE(!line.empty() && line.back() == '\r') << "lines end in CR LF";
    line.pop_back();
    if (line.starts_with(" Roll #")) {
      EXPECT_TRUE(line.starts_with(" Roll #" + std::to_string(++rolls) + ":  ")) << line;
      EXPECT_TRUE(line.ends_with(" from RNG #1")) << line;
      continue;
    }
    EXPECT_TRUE(line.starts_with(" New session started ") || line.starts_with("----New hand") ||
                line.starts_with("    Pass (") || line.starts_with("    Miss (") ||
                line == "    Point established")
        << line;
  }
  EXPECT_EQ(rolls, 40);
  EXPECT_EQ(FileLength(Path("Events Log.ref")), 4 * lineCount(log));

  const std::string own = Path("mine.txt");
  ASSERT_EQ(Run("--rolls 3 --log --log-file '" + own + "'").exitCode, 0);
  EXPECT_NE(ReadWholeFile(own).find(" Roll #3:  "), std::string::npos);
  EXPECT_EQ(FileLength(Path("Events Log.ref")), 4 * lineCount(ReadWholeFile(own)))
      << "the one index belongs to the log just written";
  // A log in a folder whose name the system refuses (too long) ends the run
  // with the reason, not with an abort.
  const std::string refused = Path(std::string(300, 'a') + "/log.txt");
  const auto far = Run("--rolls 3 --log --log-file '" + refused + "'", true);
  EXPECT_EQ(far.exitCode, 1);
  EXPECT_NE(far.out.find("Unable to create the folder"), std::string::npos) << far.out;
}

TEST_F(CliFiles, RollsPrintAsTextAndTextBecomesRolls) {
  const std::string text = Path("in.txt");
  std::ofstream(text, std::ios::binary) << "3-4, 1 6x2 and 5,5 then 2 (the last 2 is dropped)";
  const std::string file = Path("in.rol");
  const Result imported = Cli("rolls --import '" + text + "' --output '" + file + "'");
  EXPECT_EQ(imported.exitCode, 0);
  EXPECT_EQ(imported.out, "4 rolls written to " + file + "\n");
  EXPECT_EQ(Cli("rolls '" + file + "'").out, "1 (3.4) 7\n2 (1.6) 7\n3 (2.5) 7\n4 (5.2) 7\n");
  EXPECT_EQ(Cli("rolls '" + file + "' --from 2 --count 2 --format 'Roll#: Die1+Die2=Total'").out,
            "2: 1+6=7\n3: 2+5=7\n");
  EXPECT_EQ(Cli("rolls '" + file + "' --from 9").out, "");
  for (const std::string& bad : {"rolls '" + file + "' --format 'Roll#'",
                                 "rolls '" + text + "'",  // not a dice roll file
                                 std::string("rolls"), "rolls --import '" + text + "'"})
    EXPECT_EQ(Cli(bad).exitCode, 1) << bad;
}

}  // namespace
