// End-to-end tests of ravelton-cli run, bench and batch: the summary, seated
// players with bets, rules and scripts, the pinned bench checksum, batches on
// one or two threads, refusals and bad usage.
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "cli_util.h"
#include "tests/support/file_text.h"
#include "tests/support/temp_folder.h"

using cli_test::Cli;
using cli_test::Json;
using cli_test::Result;

namespace {

TEST(CliRun, SameOptionsGiveTheSameSummaryButTheTime) {
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
}

TEST(CliRun, AutoStopAndRequirementEndTheRunWithTheirMessage) {
  nlohmann::json a = Json("run --rolls 5000 --auto-stop 1234 --json");
  EXPECT_TRUE(a["rolls"] == 1234 && a["stop"] == "Stopped by Auto-Stop.") << a;
  nlohmann::json b = Json("run --require line --json");
  EXPECT_TRUE(b["rolls"] == 0 && b["stop"] == "No players are available to bet.") << b;
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

// Runs with script files of their own in a data folder of their own.
class CliTest : public ::testing::Test {
 protected:
  std::string Write(const std::string& name, const std::string& text) {
    WriteWholeFile(dir_ / name, text);
    return dir_ / name;
  }
  nlohmann::json Json(const std::string& args) {
    return cli_test::Json(args + " --json --data " + dir_.Path());
  }

  TempFolder dir_;
};

TEST_F(CliTest, BadUsageExitsWithOne) {
  std::string nine = "run --rolls 10";
  for (char c = 'a'; c <= 'i'; ++c) nine += std::string(" --player P") + c;
  for (const std::string& args :
       {std::string("run --rng 9"), std::string("run --rng 0"), std::string("run --rolls -1"),
        std::string("run --require some"), std::string("run --auto-stop -1"),
        std::string("run --seed 5000000000"), std::string("run --rolls x"),
        std::string("run --nope"), std::string("nosuchcommand"), nine})
    EXPECT_EQ(Cli(args).exitCode, 1) << args;
  const std::string ok = Write("ok.bet", "cs1 = 1");
  for (const std::string& players : std::vector<std::string>{
           "--player Ann --player ANN", "--player Ann=lots", "--player Ann=10000000",
           "--player Ann --bet Bob:field=5", "--player Ann --bet Ann:nowhere=5",
           "--player Ann --win-rule Ann:8", "--player 'Bet Smith'",
           "--player Ann --script Bob=" + ok, "--player Ann --script Ann=" + (dir_ / "no.bet"),
           "--player Ann --script Ann", "--player Ann --dice 34,70", "--player Ann --dice 3",
           "--player Ann --dice 34,", "--player Ann --allow Ann:everything",
           "--player Ann --allow Bob:files", "--player Ann --data " + ok + "/below-a-file"})
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
  EXPECT_EQ(ReadWholeFile(dir_ / "rolls.txt"), "34,34,22,61,");
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

  const std::string bet2 = Write("m.bet", "If # rolls = 4 Then show message \"Four\" EndIf");
  const nlohmann::json m =
      Json("run --rolls 100 --seed 1 --player Ann --script Ann=" + bet2 + " --allow Ann:no-files");
  EXPECT_EQ(m["rolls"], 100);  // Auto-Bet messages are off in Hyper-Drive by default
  const std::string stop = Write("t.bet", "If # rolls = 4 Then stop autoroll/hyperdrive EndIf");
  const nlohmann::json k = Json("run --rolls 100 --seed 1 --player Ann --script Ann=" + stop);
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
      {kAnn + "--rolls -1", "--rolls must not be negative"},
      {kAnn + "--hands -2", "--hands must not be negative"},
      {kAnn, "a session needs an end"},
      {"batch --rolls 10", "no player is seated"},
      {kAnn + "--rolls 10 --rng 9", "--rng must be 1 to 8"},
      {kAnn + "--rolls 10 --per-session", "--per-session goes with --csv"},
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
TEST(CliBatch, OneAndTwoThreadsReportTheSame) {
  const std::string args =
      kAnn +
      "--player Bo=200 --bet Bo:field=5 --win-rule Bo:2 --lose-rule Bo:2 "
      "--sessions 300 --rolls 120 --stop-win Ann:100 --seed 42 --csv --per-session";
  const auto two = Cli(args + " --threads 2");
  ASSERT_EQ(two.exitCode, 0);
  EXPECT_EQ(two.out, Cli(args + " --threads 1").out);
  EXPECT_EQ(std::count(two.out.begin(), two.out.end(), '\n'), 301);
}

TEST(CliBatch, JsonHasEveryFigure) {
  const auto r = Cli(kAnn + "--sessions 50 --rolls 100 --seed 3 --json");
  ASSERT_EQ(r.exitCode, 0);
  const auto j = nlohmann::json::parse(r.out);
  EXPECT_EQ(j["sessions"], 50);
  ASSERT_EQ(j["players"].size(), 1u);
  const auto& p = j["players"][0];
  EXPECT_EQ(p["name"], "Ann");
  for (const char* key :
       {"sessions", "mean_net", "sd_net", "min", "max", "broke_share", "stop_win_share",
        "stop_loss_share", "mean_rolls", "mean_hands", "wagered", "edge"})
    EXPECT_TRUE(p[key].is_number()) << key;
  for (const char* q : {"1", "5", "25", "50", "75", "95", "99"})
    EXPECT_TRUE(p["percentiles"][q].is_number());
  EXPECT_EQ(p["mean_rolls"], 100);
  EXPECT_EQ(p["edge_ci95"].size(), 2u);
  EXPECT_NEAR(p["exact_edge"].get<double>(), -7.0 / 495.0, 1e-12);
}

}  // namespace
