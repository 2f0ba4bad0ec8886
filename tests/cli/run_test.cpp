// End-to-end tests of ravelton-cli run and bench: the summary, seated
// players with bets and rules, refusals and bad usage.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "cli_util.h"

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
  long sum = 0;
  for (int t = 2; t <= 12; ++t) sum += a["totals"][std::to_string(t)].get<long>();
  EXPECT_EQ(sum, 20000);
  // Every hand ends in a miss, so passes and misses split the decided come-outs.
  EXPECT_GT(a["hands"].get<long>(), 0);
  EXPECT_LE(a["passes"].get<long>() + a["misses"].get<long>(), a["comeouts"].get<long>());
}

TEST(CliRun, AClockSeededRunReportsTheSeedThatReproducesIt) {
  const nlohmann::json a = Json("run --rolls 3000 --rng 5 --json");
  EXPECT_EQ(a,
            Json("run --rolls 3000 --rng 5 --json --seed " + std::to_string(a.value("seed", 0L))));
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

TEST(Cli, BadUsageExitsWithOne) {
  std::string nine = "run --rolls 10";
  for (char c = 'a'; c <= 'i'; ++c) nine += std::string(" --player P") + c;
  for (const std::string& args :
       {std::string("run --rng 9"), std::string("run --rng 0"), std::string("run --rolls -1"),
        std::string("run --require some"), std::string("run --auto-stop -1"),
        std::string("run --seed 5000000000"), std::string("run --rolls x"),
        std::string("run --nope"), std::string("nosuchcommand"), nine})
    EXPECT_EQ(Cli(args).exitCode, 1) << args;
  for (const char* players :
       {"--player Ann --player ANN", "--player Ann=lots", "--player Ann=10000000",
        "--player Ann --bet Bob:field=5", "--player Ann --bet Ann:nowhere=5",
        "--player Ann --win-rule Ann:8", "--player 'Bet Smith'"})
    EXPECT_EQ(Cli(std::string("run --rolls 10 ") + players).exitCode, 1) << players;
  EXPECT_EQ(Cli("run --rolls 10 --player Ann --take-odds Ann").exitCode, 0);
}

}  // namespace
