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
  FILE* pipe = popen((std::string(RAVELTON_CLI) + " " + args + " 2>/dev/null").c_str(), "r");
  if (!pipe) return r;
  std::array<char, 4096> buffer{};
  for (std::size_t n; (n = fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
    r.out.append(buffer.data(), n);
  const int status = pclose(pipe);
  r.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return r;
}

// The summary of a run without the time it took.
nlohmann::json Json(const std::string& args) {
  const Result r = Cli(args);
  EXPECT_EQ(r.exitCode, 0) << args;
  nlohmann::json j = nlohmann::json::parse(r.out, nullptr, false);
  EXPECT_TRUE(!j.is_discarded() && j.contains("seconds")) << r.out;
  if (j.is_object()) j.erase("seconds");
  return j;
}

TEST(CliRun, SameOptionsGiveTheSameSummaryButTheTime) {
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
