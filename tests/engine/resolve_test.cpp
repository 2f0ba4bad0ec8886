// The money of every group of bets on fixed dice, the order of decisions,
// the Bar, the working rules and the decision statistics.
#include <string>
#include <vector>

#include "config/payoffs.h"
#include "core/money.h"
#include "engine/settle.h"
#include "table_fixture.h"

namespace {

using namespace bet;

class Resolve : public TableFixture {};

TEST_F(Resolve, SingleBetsOnFixedDice) {
  struct Case {
    int bet;
    long amount;
    int d1, d2, point;
    long won;
  };
  const Case cases[] = {
      // Hard 6 the easy way; Hard 10 on a seven; the Field's doubled 2.
      {kHard6, 5, 4, 2, 8, -5},   {kHard10, 5, 4, 3, 8, -5},   {kField, 5, 1, 1, 0, 10},
      {68, 2, 4, 1, 6, 30},       {72, 2, 1, 4, 6, -2},  // Hop 14 either order, Hop 23 missed
      {76, 1, 3, 3, 6, 30},                              // Hop 33
      {kMidway, 10, 3, 3, 0, 20}, {kMidway, 10, 2, 4, 0, 10},  {kCraps, 5, 6, 6, 0, 35},
      {kUnder7, 10, 1, 2, 0, 10}, {kUnder7, 10, 6, 6, 0, -10},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << BetName(c.bet) << " on " << c.d1 << c.d2);
    Put(1, c.bet, c.amount);
    const Currency bank = g.Bet(1, 0);
    Decide(c.d1, c.d2, c.point);
    EXPECT_EQ(g.Bet(1, 0) - bank, Currency::FromWhole(c.won));
    g.TotalBets(1) -= g.Bet(1, c.bet);
    g.Bet(1, c.bet) = Currency{};
  }
}

TEST_F(Resolve, LineBetsAndOddsArePaidAtTheirRows) {
  g.PayoffTbl(1, kCome) = 2_usd;  // the come-out row of Pass Line and Come
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

  // On the come-out, from the come-out row.
  Decide(5, 6, 0);
  EXPECT_EQ(Won(3), 30_usd);  // 10 lost to the seven-out, 20 won
  EXPECT_EQ(Won(4), 10_usd);
  Decide(1, 2, 0);
  EXPECT_EQ(Won(3), 20_usd);
  EXPECT_EQ(Won(4), 20_usd);
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
  g.rules.BarNumber = 2;
  PointOn(8);
  Put(2, kDontCome, 10);
  Decide(1, 1, 8);
  EXPECT_EQ(Won(2), 0_usd);
  Decide(6, 6, 0);
  EXPECT_EQ(Won(2), 10_usd);
  EXPECT_EQ(Won(1), 20_usd);
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
  g.rules.BuyVigUpFront = g.rules.LayVigUpFront = false;
  PointOn(5);
  Put(1, BuyId(10), 20);
  Put(2, LayId(10), 40);
  Decide(3, 4, 5);
  EXPECT_EQ(Won(1), -20_usd);  // a loss costs the bet only
  EXPECT_EQ(Won(2), 19_usd);   // a win pays less the vig
}

TEST_F(Resolve, FieldPresetsAndHalfLosses) {
  // The Field as a Place 6: a 6 pays 7 to 6, a 7 loses, all else pushes and
  // the bet stands untouched.
  SetFieldPreset(g, kSFPlace6);
  Put(2, kField, 6);
  Decide(5, 1, 4);
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

TEST_F(Resolve, SplitBetsAreCutToWholeChecks) {
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

TEST_F(Resolve, FireIsPaidByPointsMadeAtTheSevenOut) {
  Put(1, kFire, 5);
  const int points[4][3] = {{4, 2, 2}, {5, 1, 4}, {6, 3, 3}, {8, 2, 6}};
  for (auto [n, d1, d2] : points) Decide(d1, d2, n);
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

TEST_F(Resolve, WorkingFlagsDecideWhatActs) {
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

  // A reset follows the phase but keeps the calls a player made.
  g.BetWorking(3, PlaceId(8)) = 2;
  g.BetWorking(3, PlaceId(9)) = -1;
  PointOn(8);
  EXPECT_EQ(g.BetWorking(3, PlaceId(6)), 1);
  PointOn(0);
  EXPECT_EQ(g.BetWorking(3, PlaceId(6)), 0);
  EXPECT_EQ(g.BetWorking(3, PlaceId(8)), 2);
  EXPECT_EQ(g.BetWorking(3, PlaceId(9)), -1);
}

TEST_F(Resolve, DecisionsAreCountedInTheLiveFramesOnly) {
  g.RollTally(kTableSession, kEventRolls) = 77;
  Put(1, kField, 5);
  Decide(1, 1, 0);  // +10
  Put(1, kField, 2);
  Decide(3, 4, 0);  // -7: the bet of 7 loses
  for (int t = 0; t < 5; ++t) {
    const int i = FrameIndex(1, t);
    const int live = t % 2 == 0;
    EXPECT_EQ(g.StatAction(i, kField, 1), Currency::FromWhole(2 * live)) << t;
    EXPECT_EQ(g.StatAction(i, kField, 2), Currency::FromWhole(12 * live)) << t;
    EXPECT_EQ(g.StatAction(i, kField, 5), Currency::FromWhole(77 * live)) << t;
    EXPECT_EQ(g.StatWins(i, kField, 2), Currency::FromWhole(10 * live)) << t;
    EXPECT_EQ(g.StatLosses(i, kField, 2), Currency::FromWhole(7 * live)) << t;
  }
  for (int b = 0; b <= 100; ++b)
    for (int k = 0; k <= 6; ++k) ASSERT_EQ(g.StatAction(0, b, k), 0_usd);

  // Up-front vig counts in the amount wagered.
  PointOn(6);
  Put(2, LayId(4), 40);
  Decide(3, 4, 6);
  EXPECT_EQ(g.StatAction(2 + 18, LayId(4), 2), 41_usd);
  EXPECT_EQ(g.StatWins(2 + 18, LayId(4), 2), 19_usd);
}

TEST_F(Resolve, WinsAndLossesInARowMakeATrend) {
  Put(2, kField, 1);
  const int dice[5][2] = {{1, 1}, {1, 1}, {3, 4}, {3, 4}, {1, 1}};
  const int trend[5] = {1, 2, -1, -2, 1};
  for (int i = 0; i < 5; ++i) {
    Decide(dice[i][0], dice[i][1], 6);
    EXPECT_EQ(g.BetTrend(2, kField, 1), trend[i]) << i;
  }
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
  const std::string want =
      "    Wins/losses:\n"
      "      P1 lost $10 on Pass Line\n"
      "      P8 lost $10 on Pass Line\n"
      "      P8 lost $20 on Pass Line Odds\n"
      "      P2 lost $10 on Pass Line\n"
      "      P7 lost $10 on Pass Line\n"
      "      P3 lost $10 on Pass Line\n"
      "      P6 lost $10 on Pass Line\n"
      "      P4 lost $10 on Pass Line\n"
      "      P5 lost $10 on Pass Line\n"
      "      P2 lost $1 on Field\n"
      "      P7 won $10 on Don't Pass\n"
      "      P5 won $19 on Lay 4\n"
      "      P2 won $4 on Seven\n";
  EXPECT_EQ(EventsLogText(g).substr(0, want.size()), want);
}

}  // namespace

namespace {

// A hand's end moves each decided row to the last-hand frame and clears the
// rows of the hand before, including rows with no decision this hand.
TEST_F(Resolve, HandEndMovesDecidedRowsAndClearsOlderOnes) {
  Put(1, kField, 5);
  Put(1, kPassLine, 10);
  Decide(3, 4, 6);  // seven-out: both lose
  const int now = FrameIndex(1, 0), last = FrameIndex(1, 1);
  EXPECT_EQ(g.StatAction(last, kField, 1), 1_usd);
  EXPECT_EQ(g.StatLosses(last, kPassLine, 2), 10_usd);
  EXPECT_EQ(g.StatAction(now, kField, 1), 0_usd);

  g.TotalBets(1) -= g.Bet(1, kField);  // the Field comes down before the next hand
  g.Bet(1, kField) = Currency{};
  Decide(4, 3, 8);  // another seven-out: only the Pass Line is decided
  EXPECT_EQ(g.StatAction(last, kField, 1), 0_usd);
  EXPECT_EQ(g.StatAction(last, kField, 2), 0_usd);
  EXPECT_EQ(g.StatAction(last, kPassLine, 1), 1_usd);
  EXPECT_EQ(g.StatAction(FrameIndex(1, 2), kField, 1), 1_usd);  // the session keeps it
}

}  // namespace
