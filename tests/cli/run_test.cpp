// End-to-end tests of ravelton-cli run and bench.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

namespace {

struct Result {
  int exitCode = -1;
  std::string out;
};

// Runs ravelton-cli with the arguments; stdout is captured, stderr dropped.
Result Cli(const std::string& args) {
  Result r;
  const std::string command = std::string(RAVELTON_CLI) + " " + args + " 2>/dev/null";
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return r;
  std::array<char, 4096> buffer{};
  std::size_t n;
  while ((n = fread(buffer.data(), 1, buffer.size(), pipe)) > 0) r.out.append(buffer.data(), n);
  const int status = pclose(pipe);
  r.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return r;
}

nlohmann::json Json(const std::string& args) {
  const Result r = Cli(args);
  EXPECT_EQ(r.exitCode, 0) << args;
  return nlohmann::json::parse(r.out, nullptr, false);
}

TEST(CliRun, SameOptionsGiveTheSameSummaryButTheTime) {
  nlohmann::json a = Json("run --rolls 20000 --rng 3 --seed 4242 --json");
  nlohmann::json b = Json("run --rolls 20000 --rng 3 --seed 4242 --json");
  ASSERT_FALSE(a.is_discarded());
  ASSERT_TRUE(a.contains("seconds"));
  a.erase("seconds");
  b.erase("seconds");
  EXPECT_EQ(a, b);
  EXPECT_EQ(a["rolls"], 20000);
  EXPECT_EQ(a["rng"], 3);
  EXPECT_EQ(a["seed"], 4242);
  EXPECT_EQ(a["stop"], "");
  long sum = 0;
  for (int t = 2; t <= 12; ++t) sum += a["totals"][std::to_string(t)].get<long>();
  EXPECT_EQ(sum, 20000);
  // Every hand ends in a miss, so passes and misses split the decided come-outs.
  EXPECT_GT(a["hands"].get<long>(), 0);
  EXPECT_LE(a["passes"].get<long>() + a["misses"].get<long>(), a["comeouts"].get<long>());

  nlohmann::json c = Json("run --rolls 20000 --rng 3 --seed 4243 --json");
  c.erase("seconds");
  EXPECT_NE(a, c);
}

TEST(CliRun, AClockSeededRunReportsTheSeedThatReproducesIt) {
  nlohmann::json a = Json("run --rolls 3000 --rng 5 --json");
  ASSERT_FALSE(a.is_discarded());
  nlohmann::json b =
      Json("run --rolls 3000 --rng 5 --json --seed " + std::to_string(a["seed"].get<long>()));
  a.erase("seconds");
  b.erase("seconds");
  EXPECT_EQ(a, b);
}

TEST(CliRun, AutoStopAndRequirementEndTheRunWithTheirMessage) {
  nlohmann::json a = Json("run --rolls 5000 --auto-stop 1234 --json");
  EXPECT_EQ(a["rolls"], 1234);
  EXPECT_EQ(a["stop"], "Stopped by Auto-Stop.");
  nlohmann::json b = Json("run --require line --json");
  EXPECT_EQ(b["rolls"], 0);
  EXPECT_EQ(b["stop"], "No players are available to bet.");
}

TEST(CliRun, TraceListsEveryRollBeforeTheSummary) {
  const Result r = Cli("run --rolls 5 --seed 9 --trace");
  ASSERT_EQ(r.exitCode, 0);
  std::istringstream in(r.out);
  for (int i = 1; i <= 5; ++i) {
    int n = 0, d1 = 0, d2 = 0;
    ASSERT_TRUE(in >> n >> d1 >> d2);
    EXPECT_EQ(n, i);
    EXPECT_TRUE(d1 >= 1 && d1 <= 6 && d2 >= 1 && d2 <= 6);
  }
  EXPECT_NE(r.out.find("Rolls: 5"), std::string::npos);
}

TEST(CliRun, BadUsageExitsWithOne) {
  for (const char* args :
       {"run --rng 9", "run --rng 0", "run --rolls 0", "run --require some", "run --auto-stop -1",
        "run --seed 5000000000", "run --rolls x", "run --nope", "nosuchcommand"})
    EXPECT_EQ(Cli(args).exitCode, 1) << args;
  EXPECT_EQ(Cli("run --rolls 10").exitCode, 0);
}

TEST(CliBench, ChecksumIsPinned) {
  // The fixed seeded workload's tables. A change here means the roll's
  // behaviour changed: dice, tallies, state machine or hand bookkeeping.
  const Result r = Cli("bench --rolls 100000");
  ASSERT_EQ(r.exitCode, 0);
  EXPECT_NE(r.out.find("rolls: 100000\n"), std::string::npos);
  EXPECT_NE(r.out.find("checksum: f9c0f536e36dd9b4\n"), std::string::npos) << r.out;
}

}  // namespace
