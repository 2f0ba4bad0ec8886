// ravelton-cli batch end to end: options checked before any session, the
// same report on one or two threads, and the JSON's shape.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "tests/cli/cli_util.h"

namespace {

using cli_test::Cli;

const std::string kAnn =
    "batch --player Ann=300 --bet 'Ann:Pass Line=10' --win-rule Ann:2 --lose-rule Ann:2 ";

TEST(BatchCli, BadOptionsExitOneBeforeAnySession) {
  struct Case {
    std::string args, message;
  };
  const Case cases[] = {
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
  };
  for (const Case& c : cases) {
    const auto err = Cli(c.args, true);
    EXPECT_EQ(err.exitCode, 1) << c.args;
    EXPECT_NE(err.out.find(c.message), std::string::npos) << c.args << "\n" << err.out;
    EXPECT_EQ(Cli(c.args).out, "") << "nothing is reported: " << c.args;
  }
}

TEST(BatchCli, AScriptThatDoesNotCompileStopsTheBatch) {
  const std::string path = ::testing::TempDir() + "batch_bad.bet";
  ASSERT_EQ(std::system(("printf 'this is not a script\\n' > " + path).c_str()), 0);
  const auto r = Cli(kAnn + "--rolls 10 --script Ann=" + path);
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.out, "");
}

TEST(BatchCli, OneAndTwoThreadsReportTheSame) {
  const std::string args = kAnn +
                           "--player Bo=200 --bet Bo:field=5 --win-rule Bo:2 --lose-rule Bo:2 "
                           "--sessions 300 --rolls 120 --stop-win Ann:100 --seed 42 --csv";
  const auto one = Cli(args + " --threads 1");
  const auto two = Cli(args + " --threads 2");
  ASSERT_EQ(one.exitCode, 0);
  EXPECT_EQ(one.out, two.out);
  const auto perSession = Cli(args + " --per-session --threads 2");
  EXPECT_EQ(perSession.out, Cli(args + " --per-session --threads 1").out);
  EXPECT_EQ(std::count(perSession.out.begin(), perSession.out.end(), '\n'), 301);
}

// A session that a script stops ends as a game stop, and the per-session
// line carries the game's own stop text.
TEST(BatchCli, PerSessionLinesCarryTheStopText) {
  const std::string path = ::testing::TempDir() + "batch_stop.bet";
  ASSERT_EQ(std::system(("printf 'If dice total = 7 Then\\n   Stop AutoRolling/HyperDrive\\nEndIf\\n' > " + path)
                            .c_str()),
            0);
  const auto r = Cli(kAnn + "--sessions 4 --rolls 500 --seed 5 --csv --per-session --script Ann=" +
                     path);
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

TEST(BatchCli, JsonHasEveryFigure) {
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
