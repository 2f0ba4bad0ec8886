// End-to-end tests of ravelton-cli run with scripts: known dice, answers,
// the JSON of a player's table, a script that does not compile, new
// sessions within the counted rolls, and bad usage.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli_util.h"
#include "tests/support/file_text.h"
#include "tests/support/temp_folder.h"

using cli_test::Cli;
using cli_test::Result;

namespace {

class CliScripts : public ::testing::Test {
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

TEST_F(CliScripts, KnownDiceAnswersAndThePlayersTableInTheSummary) {
  const std::string bet = Write("a.bet",
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
  EXPECT_EQ(j["messages"],
            nlohmann::json::parse(R"j([{"title":"Auto-Bet (Ann)","text":"Units?"},
                                      {"title":"Auto-Bet (Ann)","text":"Name?"}])j"));
  EXPECT_EQ(ReadWholeFile(dir_ / "rolls.txt"), "34,34,22,61,");
}

TEST_F(CliScripts, AScriptThatDoesNotCompileStopsTheRunBeforeItStarts) {
  const std::string bet = Write("bad.bet", "cs1 = 1 :\ncs2 = \n");
  const Result r = Cli("run --rolls 10 --player Ann --script Ann=" + bet, true);
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_NE(r.out.find("Ann's auto-bet script contains an error which must be corrected"),
            std::string::npos)
      << r.out;
  EXPECT_NE(r.out.find(bet + ":2:0: Improper assignment or expression."), std::string::npos)
      << r.out;
}

TEST_F(CliScripts, RollsAreCountedAcrossTheNewSessionsAScriptStarts) {
  const std::string bet = Write("s.bet",
                                "If # rolls = 25 Then start new session (preserve checkstacks) EndIf\n"
                                "If # rolls = 0 Then add 1 to cs1 EndIf");
  const nlohmann::json j = Json("run --rolls 100 --seed 1 --player Ann --script Ann=" + bet);
  EXPECT_EQ(j["rolls"], 0);  // the session just begun
  EXPECT_EQ(j["players"][0]["checkstacks"], nlohmann::json({{"1", 5.0}}));
}

TEST_F(CliScripts, AScriptsStopEndsTheRunWithItsReason) {
  const std::string bet = Write("m.bet", "If # rolls = 4 Then show message \"Four\" EndIf");
  const nlohmann::json j =
      Json("run --rolls 100 --seed 1 --player Ann --script Ann=" + bet + " --allow Ann:no-files");
  EXPECT_EQ(j["rolls"], 100);  // Auto-Bet messages are off in Hyper-Drive by default
  const std::string stop = Write("t.bet", "If # rolls = 4 Then stop autoroll/hyperdrive EndIf");
  const nlohmann::json k = Json("run --rolls 100 --seed 1 --player Ann --script Ann=" + stop);
  EXPECT_EQ(k["rolls"], 4);
  EXPECT_EQ(k["stop"], "Stopped by Auto-Bet command.");
  EXPECT_EQ(k["messages"], nlohmann::json::parse(
                               R"j([{"title":"Hyper-Drive Stopped","text":"Stopped by Auto-Bet command."}])j"));
}

TEST_F(CliScripts, BadScriptOptionsExitWithOne) {
  const std::string ok = Write("ok.bet", "cs1 = 1");
  for (const std::string& args : std::vector<std::string>{
           "--player Ann --script Bob=" + ok, "--player Ann --script Ann=" + (dir_ / "no.bet"),
        "--player Ann --script Ann", "--player Ann --dice 34,70", "--player Ann --dice 3",
        "--player Ann --dice 34,", "--player Ann --allow Ann:everything",
        "--player Ann --allow Bob:files", "--player Ann --data " + ok + "/below-a-file"})
    EXPECT_EQ(Cli("run --rolls 5 " + args).exitCode, 1) << args;
}

}  // namespace
