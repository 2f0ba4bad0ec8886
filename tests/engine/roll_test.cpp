#include <gtest/gtest.h>

#include <set>

#include "core/money.h"
#include "tests/engine/roll_fixture.h"

namespace {

using RollTallies = RollFixture;

TEST_F(RollTallies, FourOneCountsItsTenEventsInEveryLiveFrame) {
  Roll(4, 1);
  const std::set<int> expected = {81, 84, 28, 5, 31, 17, 18, 19, 67, 72};
  for (int k = 1; k <= 90; ++k)
    for (int frame : {0, 18, 36}) EXPECT_EQ(g.RollTally(frame, k), expected.count(k)) << k;
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 1);
}

TEST_F(RollTallies, GapsAreMeasuredFromTheLastShowing) {
  Roll(3, 4);  // a seven after one roll: gap 1
  Roll(2, 2);
  Roll(1, 1);
  Roll(6, 1);  // three rolls later
  EXPECT_EQ(g.GapTally(7, 1), 1);
  EXPECT_EQ(g.GapTally(7, 3), 1);
  EXPECT_EQ(g.RollsSince(4), 2);
  EXPECT_EQ(g.RollsSince(0), 4);  // category 0 counts every roll

  g.RollsSince(7) = 199;  // the next seven comes back after 200 rolls: a long gap
  Roll(5, 2);
  EXPECT_EQ(g.GapTally(7, 200), 1);
  EXPECT_EQ(g.GapTally(7, 0), 200);
  g.RollsSince(7) = 198;  // after 199 rolls: an ordinary gap
  Roll(5, 2);
  EXPECT_EQ(g.GapTally(7, 199), 1);
  EXPECT_EQ(g.GapTally(7, 200), 1);
}

using StateMachine = RollFixture;

TEST_F(StateMachine, PointMadeAndSevenOutMoveTheHandToTheLastHandFrame) {
  Roll(2, 2);  // point 4
  EXPECT_EQ(g.Point, 4);
  Roll(1, 3);  // point made
  EXPECT_EQ(g.Point, 0);
  EXPECT_EQ(g.TotalsTally(18, 4, 2), 1);
  Roll(6, 5);  // come-out eleven: pass
  Roll(5, 1);  // point 6
  Roll(2, 3);
  Roll(4, 3);  // seven-out
  EXPECT_EQ(g.Point, 0);
  EXPECT_EQ(g.LastPoint, 6);
  EXPECT_EQ(g.PointAtRoll, 6);

  // The hand is over: frame 0 empty, frame 9 the hand, frames 18 and 36 kept.
  EXPECT_EQ(g.RollTally(kTableHand, kEventRolls), 0);
  EXPECT_EQ(g.RollTally(9, 0), 6);
  EXPECT_EQ(g.TotalsTally(9, 6, 3), 1);  // the miss counts at the point
  EXPECT_EQ(g.HandsTally(0), 0);
  EXPECT_EQ(g.ComeoutsThisHand + g.PassesThisHand + g.MissesThisHand, 0);
  EXPECT_EQ(g.MostComeoutHand(18), 3);
  EXPECT_EQ(g.MostPassesHand(36), 2);

  Roll(1, 2);  // first roll of the next hand: the hand count rises now
  EXPECT_EQ(g.HandsTally(0), 1);
  EXPECT_EQ(g.HandsTally(kTableSession), 2);
  EXPECT_EQ(g.MostRollsHand(18), 6);
}

TEST_F(StateMachine, BarNumberDecidesWhichComeOutCrapsIsMissedAtTheBar) {
  g.rules.StickCallSet = 1;
  for (int n = 1; n <= 18; ++n)
    g.roll.StickCallFile[static_cast<std::size_t>(n)] = "call" + std::to_string(n);
  auto lastCall = [&] {
    for (auto it = platform.sounds.rbegin(); it != platform.sounds.rend(); ++it)
      if (it->path == "call13" || it->path == "call14" || it->path == "call15") return it->path;
    return std::string();
  };
  Roll(6, 6);
  EXPECT_EQ(lastCall(), "call15");
  Roll(1, 1);
  EXPECT_EQ(lastCall(), "call14");
  g.rules.BarNumber = 2;
  Roll(1, 1);
  EXPECT_EQ(lastCall(), "call15");
  Roll(6, 6);
  EXPECT_EQ(lastCall(), "call14");
  EXPECT_EQ(g.MissesThisHand, 4);
  EXPECT_EQ(g.TotalsTally(0, 12, 3), 2);
}

TEST_F(StateMachine, TheShooterIsCreditedAndTheDicePassAtTheHandsEnd) {
  Seat(1, "Ann");
  Seat(3, "Cleo");
  g.Shooter = g.HandShooter = 3;
  Roll(4, 4);     // point 8
  g.Shooter = 1;  // dice passed during the hand: the hand stays Cleo's
  Roll(4, 3);     // seven-out
  EXPECT_EQ(g.HandsTally(3 + 9), 1);
  EXPECT_EQ(g.RollTally(3 + 18, 15), 1);  // hard 8
  EXPECT_EQ(g.MostRollsHand(3 + 36), 2);
  EXPECT_EQ(g.RollsAtTable(5 + 18), 2);  // every slot saw the rolls, the House's too
  EXPECT_EQ(g.PrevHandShooter, 3);
  EXPECT_EQ(g.HandShooter, 1);

  Roll(3, 1);
  Roll(3, 4);  // at a seven-out the dice pass on
  EXPECT_EQ(g.Shooter, 3);
  EXPECT_EQ(g.HandShooter, 3);
  Roll(2, 1);
  EXPECT_EQ(g.HandsTally(3), 1);
  EXPECT_EQ(g.HandsTally(1 + 9), 1);
}

using GraphHistory = RollFixture;

// Fills player 1's page with distinct values, the count at the full page.
void FillPage(Game& g) {
  for (int k = 1; k <= 1050; ++k) g.GraphBankroll(1, k) = Currency::FromWhole(k);
  for (int k = 1; k <= 525; ++k) g.GraphTrend(1, k) = Currency::FromWhole(2 * k);
  g.GraphRollCount = 525;
  g.RollTally(kTableSession, kEventRolls) = 1000;
  g.Bet(1, 0) = Currency::FromWhole(-7);
}

TEST_F(GraphHistory, AFullPageStartsANewPageOrScrolls) {
  FillPage(g);
  g.roll.GraphPlotType = 0;
  ShiftGraphHistory(g);
  EXPECT_EQ(g.GraphBankroll(1, 0), Currency::FromWhole(1000));
  EXPECT_EQ(g.GraphRollCount, 1);
  EXPECT_EQ(g.GraphBankroll(1, 1), Currency::FromWhole(-7));
  for (int k = 1; k <= 525; ++k)
    ASSERT_EQ(g.GraphBankroll(1, 525 + k), Currency::FromWhole(k)) << k;
  EXPECT_EQ(g.GraphHigh(1), Currency::FromWhole(-7));
  EXPECT_EQ(platform.redraws[static_cast<int>(Redraw::Graph)], 1);

  FillPage(g);
  g.roll.GraphPlotType = 1;
  ShiftGraphHistory(g);
  EXPECT_EQ(g.GraphRollCount, 525);
  for (int k = 1; k <= 524; ++k) {
    ASSERT_EQ(g.GraphBankroll(1, k), Currency::FromWhole(k + 1)) << k;
    ASSERT_EQ(g.GraphTrend(1, k), Currency::FromWhole(2 * (k + 1))) << k;
  }
  EXPECT_EQ(g.GraphBankroll(1, 1050), Currency::FromWhole(1));
  EXPECT_EQ(g.GraphBankroll(1, 0), Currency::FromWhole(1000 - 524));
  EXPECT_EQ(g.GraphHigh(1), Currency::FromWhole(525));
}

TEST_F(GraphHistory, EveryRollAddsAColumnAndAutoPrintMarksAFullPage) {
  Seat(1, "Ann");
  g.roll.GraphAutoPrint = true;
  for (int i = 0; i < 524; ++i) ShiftGraphHistory(g);
  EXPECT_FALSE(g.roll.GraphPrintDue);
  g.Bet(1, 0) = Currency::FromWhole(320);
  Roll(2, 3);
  EXPECT_EQ(g.GraphBankroll(1, 525), Currency::FromWhole(320));
  EXPECT_EQ(g.GraphHigh(1), Currency::FromWhole(320));
  EXPECT_TRUE(g.roll.GraphPrintDue);
}

}  // namespace
