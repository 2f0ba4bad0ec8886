// End-to-end tests of the player options of ravelton-cli run: seated players
// with bets and rules, the players' JSON, refusals and bad usage.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <string>

namespace {

struct Result {
  int exitCode = -1;
  std::string out;
};

// Runs ravelton-cli; `err` chooses whether stderr joins stdout or is dropped.
Result Cli(const std::string& args, bool err = false) {
  Result r;
  const std::string redirect = err ? " 2>&1 >/dev/null" : " 2>/dev/null";
  FILE* pipe = popen((std::string(RAVELTON_CLI) + " " + args + redirect).c_str(), "r");
  if (!pipe) return r;
  std::array<char, 4096> buffer{};
  for (std::size_t n; (n = fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
    r.out.append(buffer.data(), n);
  const int status = pclose(pipe);
  r.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return r;
}

const std::string kTable =
    "run --rolls 5000 --rng 3 --seed 99 --json --player Ann=500 --player Bob --player Cy=-20 "
    "--allow-negative Cy --bet ann:pass\\ line=10 --bet Bob:6=30 --bet Bob:place\\ 8=12 "
    "--bet Cy:49=5 --win-rule Ann:2 --lose-rule Ann:2 --win-rule Bob:2 --lose-rule Bob:2 "
    "--win-rule Cy:2 --lose-rule Cy:2 --take-odds Ann";

TEST(CliPlayers, EveryDollarOfABankrollIsAccountedForByItsBets) {
  const Result r = Cli(kTable);
  ASSERT_EQ(r.exitCode, 0);
  nlohmann::json j = nlohmann::json::parse(r.out, nullptr, false);
  ASSERT_FALSE(j.is_discarded());
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
  // The same options give the same players.
  nlohmann::json again = nlohmann::json::parse(Cli(kTable).out, nullptr, false);
  EXPECT_EQ(j["players"], again["players"]);
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

TEST(CliPlayers, BadUsageExitsWithOne) {
  for (const char* args :
       {"--player Ann --player ANN", "--player Ann=lots", "--player Ann=10000000",
        "--player Ann --bet Bob:field=5", "--player Ann --bet Ann:nowhere=5",
        "--player Ann --win-rule Ann:8", "--player 'Bet Smith'"})
    EXPECT_EQ(Cli(std::string("run --rolls 10 ") + args).exitCode, 1) << args;
  std::string nine = "run --rolls 10";
  for (char c = 'a'; c <= 'i'; ++c) nine += std::string(" --player P") + c;
  EXPECT_EQ(Cli(nine).exitCode, 1);
  EXPECT_EQ(Cli("run --rolls 10 --player Ann --take-odds Ann").exitCode, 0);
}

}  // namespace
