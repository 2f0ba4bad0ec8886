// The money of every group of bets on fixed dice, the order of decisions,
// the Bar, the working rules and the decision statistics.
#include <string>
#include <vector>

#include "config/payoffs.h"
#include "engine/money.h"
#include "engine/settle.h"
#include "table_fixture.h"

namespace {

using namespace bet;

class Resolve : public TableFixture {};

TEST_F(Resolve, LineBetsAndOddsArePaidAtThePointsRows) {
  PointOn(6);
  Put(1, kPassLine, 10);
  Put(1, kPassLineOdds, 25);
  Put(2, kDontPass, 10);
  Put(2, kDontPassOdds, 12);
  Decide(4, 2, 6);
  EXPECT_EQ(Won(1), 40_usd);  // 10 even money + 25 at 6 to 5
  EXPECT_EQ(Won(2), -22_usd);

  // The Pass Line is paid from the Come row of the point.
  g.PayoffTbl(1, ComeId(6)) = 2_usd;
  Put(3, kPassLine, 10);
  Decide(5, 1, 6);
  EXPECT_EQ(Won(3), 20_usd);

  // A seven-out: Don't Pass and its odds win 10 + 12 x 5/6.
  Seat(4, "P4");
  Put(4, kDontPass, 10);
  Put(4, kDontPassOdds, 12);
  Decide(3, 4, 6);
  EXPECT_EQ(Won(4), 20_usd);
}

TEST_F(Resolve, ComeOutNaturalsAndCraps) {
  Put(1, kPassLine, 10);
  Put(2, kDontPass, 10);
  g.PayoffTbl(1, kCome) = 2_usd;  // the come-out row of Pass Line and Come
  Decide(5, 6, 0);
  EXPECT_EQ(Won(1), 20_usd);
  EXPECT_EQ(Won(2), -10_usd);

  Decide(1, 2, 0);
  EXPECT_EQ(Won(1), 10_usd);
  EXPECT_EQ(Won(2), 0_usd);
}

TEST_F(Resolve, TheBarPushesTheDontBetsByOmission) {
  ASSERT_EQ(g.rules.BarNumber, 12);
  Put(1, kDontPass, 10);
  Decide(6, 6, 0);
  EXPECT_EQ(Won(1), 0_usd);
  EXPECT_EQ(g.Bet(1, kDontPass), 10_usd);
  EXPECT_EQ(g.StatAction(1, kDontPass, 1), 0_usd);  // a push is no decision
  Decide(1, 1, 0);
  EXPECT_EQ(Won(1), 10_usd);

  // A Don't Come bet follows the same bar on any roll.
  PointOn(8);
  Put(2, kDontCome, 10);
  Decide(6, 6, 8);
  EXPECT_EQ(Won(2), 0_usd);

  g.rules.BarNumber = 2;
  Put(3, kDontPass, 10);
  Decide(1, 1, 0);
  EXPECT_EQ(Won(3), 0_usd);
  EXPECT_EQ(Won(2), 0_usd);
  Decide(6, 6, 0);
  EXPECT_EQ(Won(3), 10_usd);
  EXPECT_EQ(Won(2), 10_usd);
  Decide(1, 1, 5);
  EXPECT_EQ(Won(2), 10_usd);
  Decide(6, 6, 5);
  EXPECT_EQ(Won(2), 20_usd);
}

TEST_F(Resolve, PlaceBuyAndLayWithVigUpFront) {
  PointOn(4);
  g.autoplay.HandleWinningBets(2) = 1;  // the Buy and the Lay come down
  g.autoplay.HandleLosingBets(3) = 1;
  Put(1, PlaceId(6), 12);
  Put(1, PlaceId(5), 5);
  Put(1, PlaceId(8), 5);  // 5 x 7/6 = 5.8333 is cut to 5
  Put(2, BuyId(4), 20);   // vig 1, paid up front
  Put(3, LayId(4), 40);   // wins 20, vig 1
  EXPECT_EQ(g.TotalBets(2), 21_usd);

  Decide(3, 3, 4);
  EXPECT_EQ(Won(1), 14_usd);
  Decide(2, 3, 4);
  EXPECT_EQ(Won(1), 21_usd);
  Decide(4, 4, 4);
  EXPECT_EQ(Won(1), 26_usd);

  Decide(2, 2, 4);
  EXPECT_EQ(Won(2), 39_usd);   // 40 less the vig
  EXPECT_EQ(Won(3), -41_usd);  // the bet and the vig paid up front
  // The vig has left TotalBets with the settled bets.
  EXPECT_EQ(g.TotalBets(2) - g.Bet(2, BuyId(4)), 0_usd);
  EXPECT_EQ(g.TotalBets(3) - g.Bet(3, LayId(4)), 0_usd);
}

TEST_F(Resolve, VigChargedOnWinsOnly) {
  g.rules.BuyVigUpFront = false;
  g.rules.LayVigUpFront = false;
  PointOn(5);
  Put(1, BuyId(10), 20);
  Put(2, LayId(10), 40);
  Put(3, LayId(9), 30);  // wins 20, vig 1
  EXPECT_EQ(g.TotalBets(1), 20_usd);
  Decide(3, 4, 5);
  EXPECT_EQ(Won(1), -20_usd);  // a loss costs the bet only
  EXPECT_EQ(Won(2), 19_usd);   // a win pays less the vig
  EXPECT_EQ(Won(3), 19_usd);
}

TEST_F(Resolve, HardwaysAndBigSixAndEight) {
  Put(1, kHard6, 5);
  Put(1, kHard4, 5);
  Put(2, kBig6, 10);
  Decide(3, 3, 8);
  EXPECT_EQ(Won(1), 45_usd);
  EXPECT_EQ(Won(2), 10_usd);
  Decide(4, 2, 8);  // easy six
  EXPECT_EQ(Won(1), 40_usd);
  EXPECT_EQ(Won(2), 20_usd);
  Decide(2, 2, 8);
  EXPECT_EQ(Won(1), 75_usd);  // 7 to 1
  Put(1, kHard10, 5);
  Decide(4, 3, 8);
  EXPECT_EQ(Won(1), 60_usd);  // all three lose to the seven
  EXPECT_EQ(Won(2), 10_usd);
}

TEST_F(Resolve, FieldByTheDiceAndItsPresets) {
  Put(1, kField, 5);
  Decide(1, 1, 0);
  EXPECT_EQ(g.GrossPayoff, 10_usd);
  EXPECT_EQ(Won(1), 10_usd);
  Decide(4, 5, 0);
  EXPECT_EQ(Won(1), 15_usd);
  Decide(3, 4, 0);
  EXPECT_EQ(Won(1), 10_usd);

  // The Field as a Place 6: a 6 pays 7 to 6, a 7 loses, all else pushes and
  // the bet stands untouched.
  SetFieldPreset(g, kSFPlace6);
  Put(2, kField, 6);
  Decide(5, 1, 4);
  EXPECT_EQ(Won(2), 7_usd);
  Decide(2, 3, 4);
  EXPECT_EQ(Won(2), 7_usd);
  EXPECT_EQ(g.Bet(2, kField), 6_usd);
  EXPECT_EQ(g.StatAction(2, kField, 1), Currency::FromWhole(1));

  // Half the bet lost: a loss is cut up to the next whole check.
  g.FieldPayoff(1, 10) = Currency::FromWhole(-1);
  g.FieldPayoff(3, 10) = 2_usd;
  Put(3, kField, 5);
  Decide(1, 6, 4);
  EXPECT_EQ(g.GrossPayoff, Usd(-2.5));
  EXPECT_EQ(Won(3), -3_usd);
}

TEST_F(Resolve, SplitBetsAreWorkedInDoublesAndCutToWholeChecks) {
  Put(1, kCandE, 3);
  Put(2, kHorn, 4);
  Put(3, kWorld, 5);
  Decide(5, 6, 6);
  EXPECT_EQ(Won(1), 21_usd);  // 1.5 x 15 - 1.5
  EXPECT_EQ(Won(2), 12_usd);  // 1 x 15 - 3
  EXPECT_EQ(Won(3), 11_usd);  // 1 x 15 - 4

  Decide(1, 1, 6);
  EXPECT_EQ(Won(1), 30_usd);  // 1.5 x 7 - 1.5 on craps
  EXPECT_EQ(Won(2), 39_usd);  // 1 x 30 - 3
  EXPECT_EQ(Won(3), 37_usd);  // 1 x 30 - 4

  // A World on the seven at 4 to 1 pushes: 1 x 4 - 4.
  Decide(3, 4, 6);
  EXPECT_EQ(Won(1), 27_usd);
  EXPECT_EQ(Won(2), 35_usd);
  EXPECT_EQ(Won(3), 37_usd);
  // The seven-out closed the hand: the session frame holds both wins only.
  EXPECT_EQ(g.StatAction(3 + 18, kWorld, 1), 2_usd);

  // A Horn of 6 on twelve: 1.5 x 30 - 4.5 = 40.5, paid 40 in whole checks.
  g.Die1 = g.Die2 = 6;
  g.DiceTotal = 12;
  FigurePayoff(g, 1, kHorn, 1, 6_usd);
  EXPECT_EQ(g.GrossPayoff, Usd(40.5));
  EXPECT_EQ(g.NetPayoff, 40_usd);
  g.CheckValue(1) = Usd(0.25);
  FigurePayoff(g, 1, kHorn, 1, 6_usd);
  EXPECT_EQ(g.NetPayoff, Usd(40.5));
}

TEST_F(Resolve, HopBetsWinOnEitherDieOrder) {
  Put(1, 68, 2);  // Hop 14
  Put(2, 72, 2);  // Hop 23
  Put(3, 76, 1);  // Hop 33
  Decide(1, 4, 6);
  EXPECT_EQ(Won(1), 30_usd);
  EXPECT_EQ(Won(2), -2_usd);
  EXPECT_EQ(Won(3), -1_usd);
  Decide(4, 1, 6);
  EXPECT_EQ(Won(1), 60_usd);
  Decide(3, 2, 6);
  EXPECT_EQ(Won(2), 26_usd);
  Decide(3, 3, 6);
  EXPECT_EQ(Won(3), 27_usd);  // 30 to 1 after three losses of 1
}

TEST_F(Resolve, MidwayPaysByItsRowsAndLosesOutsideSixToEight) {
  Put(1, kMidway, 10);
  Decide(3, 3, 0);
  EXPECT_EQ(Won(1), 20_usd);
  Decide(2, 4, 0);
  EXPECT_EQ(Won(1), 30_usd);
  Decide(4, 4, 0);
  EXPECT_EQ(Won(1), 50_usd);
  g.MidwayPayoff(1, 3) = 3_usd;  // seven
  Decide(2, 5, 0);
  EXPECT_EQ(Won(1), 80_usd);
  Decide(4, 5, 0);
  EXPECT_EQ(Won(1), 70_usd);
}

TEST_F(Resolve, OneRollPropositions) {
  Put(1, kSeven, 5);
  Put(1, kCraps, 5);
  Put(2, kOver7, 10);
  Put(3, kUnder7, 10);
  Decide(3, 4, 0);
  EXPECT_EQ(Won(1), 15_usd);  // 20 on the seven, 5 lost on craps
  EXPECT_EQ(Won(2), -10_usd);
  EXPECT_EQ(Won(3), -10_usd);
  Decide(6, 6, 0);
  EXPECT_EQ(Won(1), 45_usd);  // 35 on craps, 5 lost on the seven
  EXPECT_EQ(Won(2), 0_usd);
  EXPECT_EQ(Won(3), -20_usd);
  Decide(1, 2, 0);
  EXPECT_EQ(Won(3), -10_usd);
}

TEST_F(Resolve, FireIsPaidByPointsMadeAtTheSevenOut) {
  Put(1, kFire, 5);
  Put(2, kFire, 5);
  const int points[4][3] = {{4, 2, 2}, {5, 1, 4}, {6, 3, 3}, {8, 2, 6}};
  for (auto [n, d1, d2] : points) Decide(d1, d2, n);
  EXPECT_EQ(g.PointsMade, 4);
  Decide(4, 4, 8);  // the same point again counts once
  EXPECT_EQ(g.PointsMade, 4);
  Decide(3, 4, 9);
  EXPECT_EQ(Won(1), 120_usd);  // 24 to 1
  EXPECT_EQ(g.PointsMade, 0);

  // Three points lose; a row of 0 leaves the bet up for the next hand.
  Put(3, kFire, 5);
  for (int i = 0; i < 3; ++i) Decide(points[i][1], points[i][2], points[i][0]);
  Decide(3, 4, 9);
  EXPECT_EQ(Won(3), -5_usd);
  g.FirePayoff(1, 0) = Currency{};
  Put(3, kFire, 5);
  Decide(3, 4, 9);
  EXPECT_EQ(Won(3), -5_usd);
  EXPECT_EQ(g.Bet(3, kFire), 10_usd);
}

TEST_F(Resolve, OffBetsStandAndOffOddsComeBack) {
  // At the come-out Place bets and Come odds are off by default.
  Put(1, PlaceId(6), 12);
  Put(1, ComeId(5), 10);
  Put(1, ComeId(5) + 6, 20);
  Put(2, kHard8, 5);
  Decide(3, 4, 0);
  EXPECT_EQ(Won(1), -10_usd);  // the Come flat only
  EXPECT_EQ(g.Bet(1, PlaceId(6)), 12_usd);
  EXPECT_EQ(Won(2), -5_usd);  // hardways work
  EXPECT_EQ(g.StatAction(1, ComeId(5) + 6, 1), 0_usd);

  // Called OFF with a point on: a seven changes nothing.
  g.BetWorking(2, kHard8) = -1;
  Decide(3, 4, 6);
  EXPECT_EQ(Won(2), -5_usd);
}

TEST_F(Resolve, ResetWorkingFlagsFollowsThePoint) {
  g.BetWorking(1, PlaceId(6)) = 0;
  g.BetWorking(1, PlaceId(8)) = 2;
  g.BetWorking(1, PlaceId(9)) = -1;
  g.BetWorkingDefault(1, kHard4) = 0;
  g.Point = 8;
  ResetWorkingFlags(g);
  EXPECT_EQ(g.BetWorking(1, PlaceId(6)), 1);
  EXPECT_EQ(g.BetWorking(1, PlaceId(8)), 2);
  EXPECT_EQ(g.BetWorking(1, PlaceId(9)), -1);
  g.Point = 0;
  ResetWorkingFlags(g);
  EXPECT_EQ(g.BetWorking(1, PlaceId(6)), 0);
  EXPECT_EQ(g.BetWorking(1, PlaceId(8)), 2);
  EXPECT_EQ(g.BetWorking(1, PlaceId(9)), -1);
  EXPECT_EQ(g.BetWorking(1, kHard4), 0);
  EXPECT_EQ(g.BetWorking(1, kField), 1);
}

TEST_F(Resolve, DecisionsAreCountedInTheLiveFramesOnly) {
  g.RollTally(18, 0) = 77;
  Put(1, kField, 5);
  Decide(1, 1, 0);  // +10
  Put(1, kField, 2);
  Decide(3, 4, 0);  // -7: the bet of 7 loses
  for (int t = 0; t < 5; ++t) {
    const int i = FrameIndex(1, t);
    const bool live = t % 2 == 0;
    EXPECT_EQ(g.StatAction(i, kField, 1), live ? 2_usd : 0_usd) << t;
    EXPECT_EQ(g.StatAction(i, kField, 2), live ? 12_usd : 0_usd) << t;
    EXPECT_EQ(g.StatAction(i, kField, 3), live ? 7_usd : 0_usd) << t;
    EXPECT_EQ(g.StatAction(i, kField, 4), live ? 5_usd : 0_usd) << t;
    EXPECT_EQ(g.StatAction(i, kField, 5), live ? 77_usd : 0_usd) << t;
    EXPECT_EQ(g.StatAction(i, kField, 6), live ? 7_usd : 0_usd) << t;
    EXPECT_EQ(g.StatWins(i, kField, 2), live ? 10_usd : 0_usd) << t;
    EXPECT_EQ(g.StatLosses(i, kField, 2), live ? 7_usd : 0_usd) << t;
    EXPECT_EQ(g.StatLosses(i, kField, 1), live ? 1_usd : 0_usd) << t;
  }
  for (int b = 0; b <= 100; ++b)
    for (int k = 0; k <= 6; ++k) ASSERT_EQ(g.StatAction(0, b, k), 0_usd);
  EXPECT_EQ(g.BetTrend(1, kField, 1), -1);

  // Up-front vig counts in the amount wagered.
  PointOn(6);
  Put(2, LayId(4), 40);
  Decide(3, 4, 6);
  EXPECT_EQ(g.StatAction(2 + 18, LayId(4), 2), 41_usd);
  EXPECT_EQ(g.StatWins(2 + 18, LayId(4), 2), 19_usd);
}

TEST_F(Resolve, StreaksAndComeTravelTotals) {
  g.ComeFlatAtSet(1, BoxIndex(9)) = 10_usd;
  Put(1, ComeId(9), 10);
  Decide(4, 5, 6);
  EXPECT_EQ(g.ComeTravelTotal(1, BoxIndex(9)), 10_usd);
  EXPECT_EQ(g.ComeTravelTotal(19, BoxIndex(9)), 10_usd);
  EXPECT_EQ(g.ComeTravelTotal(37, BoxIndex(9)), 10_usd);
  EXPECT_EQ(g.ComeTravelTotal(10, BoxIndex(9)), 0_usd);
  EXPECT_TRUE(g.ComeFlatAtSet(1, BoxIndex(9)).IsZero());

  Put(2, kField, 1);
  Decide(1, 1, 6);
  Decide(1, 1, 6);
  EXPECT_EQ(g.BetTrend(2, kField, 1), 2);
  Decide(3, 4, 6);
  EXPECT_EQ(g.BetTrend(2, kField, 1), -1);
  Decide(3, 4, 6);
  EXPECT_EQ(g.BetTrend(2, kField, 1), -2);
  Decide(1, 1, 6);
  EXPECT_EQ(g.BetTrend(2, kField, 1), 1);
}

// The log's win and loss lines give the order in which the bets were decided.
std::vector<std::string> LogLines(const std::string& text) {
  std::vector<std::string> lines;
  std::string line;
  for (char c : text) {
    if (c == '\n') {
      lines.push_back(line);
      line.clear();
    } else {
      line.push_back(c);
    }
  }
  return lines;
}

TEST_F(Resolve, DecisionsFollowThePassesAndTheStickOrder) {
  for (int p = 4; p <= 8; ++p) Seat(p, "P" + std::to_string(p));
  g.roll.LogOn = true;
  PointOn(4);
  for (int p = 1; p <= 8; ++p) Put(p, kPassLine, 10);
  Put(8, kPassLineOdds, 20);
  Put(7, kDontPass, 10);
  Put(2, kSeven, 1);
  Put(2, kField, 1);
  Put(5, LayId(4), 40);
  Decide(3, 4, 4);
  const std::vector<std::string> want = {
      "    Wins/losses:",
      "      P1 lost $10 on Pass Line",
      "      P8 lost $10 on Pass Line",
      "      P8 lost $20 on Pass Line Odds",
      "      P2 lost $10 on Pass Line",
      "      P7 lost $10 on Pass Line",
      "      P3 lost $10 on Pass Line",
      "      P6 lost $10 on Pass Line",
      "      P4 lost $10 on Pass Line",
      "      P5 lost $10 on Pass Line",
      "      P2 lost $1 on Field",
      "      P7 won $10 on Don't Pass",
      "      P5 won $19 on Lay 4",
      "      P2 won $4 on Seven",
  };
  std::vector<std::string> got = LogLines(g.roll.LogText);
  ASSERT_GE(got.size(), want.size());
  got.resize(want.size());
  EXPECT_EQ(got, want);
}

}  // namespace
