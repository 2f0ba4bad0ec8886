// Skewed dice in the large: a long Hyper-Drive run with probability dice on
// shows each of the 36 pairs as often as its cell says (Pearson's chi-square
// over the pairs), for Percentage dice and for Free Form dice.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <string>

#include "cycle/hyperdrive.h"
#include "dice/probability.h"
#include "dice/rng.h"
#include "logs/events_log.h"
#include "tests/engine/roll_fixture.h"

namespace {

#ifdef NDEBUG
constexpr std::int64_t kRolls = 10'000'000;
#else
constexpr std::int64_t kRolls = 300'000;  // a smoke run; the check proper needs Release
#endif
// The 0.999 quantiles of chi-square with 34 and 35 degrees of freedom: a fit
// fails by chance once in a thousand runs.
constexpr double kChiSquare999With34 = 65.247;
constexpr double kChiSquare999With35 = 66.619;

using Counts = std::array<std::array<std::int64_t, 6>, 6>;

void CountPair(void* context, const Game& game) {
  (*static_cast<Counts*>(context))[game.Die1 - 1][game.Die2 - 1]++;
}

class ProbabilityDraw : public RollFixture {
 protected:
  ProbabilityDraw() {
    g.dice.RngIndex = 0;
    SeedRngWith(g, 20261123);
  }

  void Set(ProbEntry e, double units) { SetProbabilityCell(g, e.a, e.b, units, true); }

  // Each pair's chance under the draw: k is uniform on 1..100000 and picks
  // the first cell (in row order) whose running sum reaches it; a k beyond
  // the cells' sum is drawn again, so only the first 100000 units count.
  std::array<std::array<double, 6>, 6> Expected() const {
    std::array<std::array<double, 6>, 6> p{};
    std::int64_t sum = 0;
    double reachable = 0;
    for (int a = 2; a <= 7; ++a)
      for (int b = a - 1; b <= 13 - a; ++b) {
        const std::int64_t lo = std::min<std::int64_t>(sum, kProbCertain);
        sum += ProbValue(g, a, b);
        const std::int64_t hi = std::min<std::int64_t>(sum, kProbCertain);
        const DicePair d = CellDice(a, b);
        p[d.die1 - 1][d.die2 - 1] = static_cast<double>(hi - lo);
        reachable += static_cast<double>(hi - lo);
      }
    for (auto& row : p)
      for (double& x : row) x /= reachable;
    return p;
  }

  // Runs Hyper-Drive and returns Pearson's statistic over the pairs that can come.
  double RunAndFit(int& degrees) {
    Counts counts{};
    g.dice.ProbabilityDiceOn = true;
    g.hyper.RunRollLimit = kRolls;
    g.hyper.RollObserver = &CountPair;
    g.hyper.RollObserverContext = &counts;
    RunHyperDrive(g);
    EXPECT_EQ(g.hyper.RollsThisRun, kRolls) << g.StopMessage;
    const auto p = Expected();
    double chi = 0;
    degrees = -1;
    for (int i = 0; i < 6; ++i)
      for (int j = 0; j < 6; ++j) {
        if (p[i][j] == 0) {
          EXPECT_EQ(counts[i][j], 0) << i + 1 << "-" << j + 1;
          continue;
        }
        const double expected = p[i][j] * static_cast<double>(kRolls);
        const double d = static_cast<double>(counts[i][j]) - expected;
        chi += d * d / expected;
        ++degrees;
      }
    std::printf("chi-square %.2f with %d degrees of freedom over %lld rolls\n", chi, degrees,
                static_cast<long long>(kRolls));
    return chi;
  }
};

TEST_F(ProbabilityDraw, PercentageDiceFitTheirTable) {
  Set(FaceEntry(1, 6), 25000);
  Set(FaceEntry(2, 1), 8000);
  ASSERT_FALSE(IsFreeFormDice(g));
  int degrees = 0;
  const double chi = RunAndFit(degrees);
  EXPECT_EQ(degrees, 35);
  EXPECT_LT(chi, kChiSquare999With35);
}

TEST_F(ProbabilityDraw, FreeFormDiceFitTheirTable) {
  Set(TotalEntry(7), 25000);
  Set(CellOfDice(3, 3), 6000);
  Set(CellOfDice(1, 2), 0);  // a pair that never comes
  ASSERT_TRUE(IsFreeFormDice(g));
  int degrees = 0;
  const double chi = RunAndFit(degrees);
  EXPECT_EQ(degrees, 34);
  EXPECT_LT(chi, kChiSquare999With34);
}

TEST_F(ProbabilityDraw, TheEventsLogNamesTheTableInUse) {
  Set(TotalEntry(12), 100000);  // every roll 6-6
  g.dice.ProbabilityDiceOn = true;
  g.roll.LogOn = true;
  ClearEventsLog(g);
  g.hyper.RunRollLimit = 2;
  RunHyperDrive(g);
  g.probability.ProbFilePath = "/data/boxcars.prb";
  g.hyper.RunRollLimit = 1;
  RunHyperDrive(g);
  ASSERT_TRUE(FlushEventsLog(g));
  const std::string log = ReadWholeFile(g.roll.EventsLogPath);
  EXPECT_NE(log.find(" Roll #2:  12 (6.6) from RNG #1 using untitled probability matrix\r\n"),
            std::string::npos)
      << log;
  EXPECT_NE(
      log.find(" Roll #3:  12 (6.6) from RNG #1 using probability matrix: /data/boxcars.prb\r\n"),
      std::string::npos)
      << log;
}

}  // namespace
