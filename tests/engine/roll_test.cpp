#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "engine/money.h"
#include "tests/engine/roll_fixture.h"

namespace {

using RollTallies = RollFixture;

// Which categories 17..21 and 65..77 a total belongs to, from their captions.
std::set<int> GroupsOfTotal(int t) {
  const std::vector<std::pair<int, std::set<int>>> groups = {{17, {4, 5, 6, 8, 9, 10}},
                                                             {18, {5, 6, 8, 9}},
                                                             {19, {4, 5, 9, 10}},
                                                             {20, {2, 3, 12}},
                                                             {21, {2, 3, 4, 9, 10, 11, 12}},
                                                             {65, {2, 3, 7, 11, 12}},
                                                             {66, {2, 3, 11, 12}},
                                                             {67, {4, 5, 6}},
                                                             {68, {8, 9, 10}},
                                                             {69, {2, 12}},
                                                             {70, {3, 11}},
                                                             {71, {4, 10}},
                                                             {72, {5, 9}},
                                                             {73, {6, 8}},
                                                             {74, {2, 3}},
                                                             {75, {3, 12}},
                                                             {76, {7, 11}},
                                                             {77, {11, 12}}};
  std::set<int> out;
  for (const auto& [k, totals] : groups)
    if (totals.count(t)) out.insert(k);
  return out;
}

// The categories whose count rose between two copies of the session frame.
std::set<int> Risen(const Game& before, const Game& after) {
  std::set<int> out;
  for (int k = 1; k <= 90; ++k) {
    const int d = after.RollTally(18, k) - before.RollTally(18, k);
    EXPECT_TRUE(d == 0 || d == 1) << k;
    if (d) out.insert(k);
  }
  return out;
}

TEST_F(RollTallies, FourOneCountsItsTenEvents) {
  Roll(4, 1);
  const std::set<int> expected = {81, 84, 28, 5, 31, 17, 18, 19, 67, 72};
  for (int k = 1; k <= 90; ++k) {
    const int want = expected.count(k) ? 1 : 0;
    EXPECT_EQ(g.RollTally(0, k), want) << k;
    EXPECT_EQ(g.RollTally(18, k), want) << k;
    EXPECT_EQ(g.RollTally(36, k), want) << k;
  }
  EXPECT_EQ(g.RollTally(18, 0), 1);
}

TEST_F(RollTallies, EveryPairCountsFacesPairTotalAndGroups) {
  auto before = std::make_unique<Game>();
  for (int d1 = 1; d1 <= 6; ++d1)
    for (int d2 = 1; d2 <= 6; ++d2) {
      *before = g;
      Roll(d1, d2);
      const std::set<int> got = Risen(*before, g);
      const int t = d1 + d2;
      const bool pair = d1 == d2;
      EXPECT_TRUE(got.count(77 + d1) && got.count(83 + d2)) << d1 << d2;
      // The total's own category: 2 and 12 only as their pairs, Any 4..10, 3 and 11.
      if (t >= 3 && t <= 11) {
        EXPECT_TRUE(got.count(t)) << d1 << d2;
      }
      // One ordered-pair category (the doubles have their own: 2, 13-16, 12),
      // and one unordered pair for every non-double from 4 to 10.
      const std::set<int> unorderedCats = {26, 31, 32, 37, 38, 45, 46, 47, 52, 53, 58, 59, 62};
      int pairCats = 0, unordered = 0;
      for (int k : got) {
        if (unorderedCats.count(k))
          ++unordered;
        else if (k == 2 || k == 12 || (k >= 13 && k <= 16) || (k >= 22 && k <= 64))
          ++pairCats;
      }
      EXPECT_EQ(pairCats, 1) << d1 << d2;
      EXPECT_EQ(unordered, (!pair && t >= 4 && t <= 10) ? 1 : 0) << d1 << d2;
      std::set<int> groups;
      for (int k : got)
        if ((k >= 17 && k <= 21) || (k >= 65 && k <= 77)) groups.insert(k);
      EXPECT_EQ(groups, GroupsOfTotal(t)) << d1 << d2;
      EXPECT_FALSE(got.count(1) || got.count(90));
    }
  EXPECT_EQ(g.RollTally(18, 0), 36);
}

TEST_F(RollTallies, GapsAreMeasuredFromTheLastShowing) {
  Roll(3, 4);  // a seven after one roll: gap 1
  Roll(2, 2);
  Roll(1, 1);
  Roll(6, 1);  // three rolls later
  EXPECT_EQ(g.GapTally(7, 1), 1);
  EXPECT_EQ(g.GapTally(7, 3), 1);
  EXPECT_EQ(g.RollsSince(7), 0);
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
  EXPECT_EQ(g.PointAtRoll, 0);
  EXPECT_EQ(g.TotalsTally(0, 4, 1), 1);
  Roll(1, 3);  // point made
  EXPECT_EQ(g.Point, 0);
  EXPECT_EQ(g.LastPoint, 4);
  EXPECT_EQ(g.PassesThisHand, 1);
  EXPECT_EQ(g.TotalsTally(18, 4, 2), 1);
  Roll(6, 5);  // come-out eleven: pass
  EXPECT_EQ(g.TotalsTally(18, 11, 2), 1);
  EXPECT_EQ(g.ComeoutsThisHand, 2);
  Roll(5, 1);  // point 6
  Roll(2, 3);
  Roll(4, 3);  // seven-out
  EXPECT_EQ(g.Point, 0);
  EXPECT_EQ(g.LastPoint, 6);
  EXPECT_EQ(g.PointAtRoll, 6);

  // The hand is over: frame 0 empty, frame 1 the hand, frames 2 and 4 kept.
  EXPECT_EQ(g.RollTally(0, 0), 0);
  EXPECT_EQ(g.RollTally(9, 0), 6);
  EXPECT_EQ(g.RollTally(9, 7), 1);
  EXPECT_EQ(g.RollTally(9, 11), 1);
  EXPECT_EQ(g.TotalsTally(9, 6, 3), 1);  // the miss counts at the point
  EXPECT_EQ(g.TotalsTally(0, 6, 3), 0);
  EXPECT_EQ(g.TotalsTally(18, 6, 3), 1);
  EXPECT_EQ(g.HandsTally(9), 1);
  EXPECT_EQ(g.HandsTally(0), 0);
  EXPECT_EQ(g.RollsAtTable(9), 6);
  EXPECT_EQ(g.ComeoutsThisHand + g.PassesThisHand + g.MissesThisHand, 0);
  // Records stay.
  EXPECT_EQ(g.MostRollsHand(18), 6);
  EXPECT_EQ(g.MostComeoutHand(18), 3);
  EXPECT_EQ(g.MostPassesHand(36), 2);
  EXPECT_EQ(g.MostMissesHand(18), 1);

  Roll(1, 2);  // first roll of the next hand: the hand count rises now
  EXPECT_EQ(g.HandsTally(0), 1);
  EXPECT_EQ(g.HandsTally(18), 2);
  EXPECT_EQ(g.RollTally(0, 0), 1);
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
  g.rules.BarNumber = 12;
  Roll(6, 6);
  EXPECT_EQ(lastCall(), "call15");
  Roll(1, 1);
  EXPECT_EQ(lastCall(), "call14");
  g.rules.BarNumber = 2;
  Roll(1, 1);
  EXPECT_EQ(lastCall(), "call15");
  Roll(6, 6);
  EXPECT_EQ(lastCall(), "call14");
  Roll(1, 2);
  EXPECT_EQ(lastCall(), "call14");
  EXPECT_EQ(g.MissesThisHand, 5);
  EXPECT_EQ(g.TotalsTally(0, 12, 3), 2);
  EXPECT_EQ(g.TotalsTally(0, 12, 1), 2);
  EXPECT_EQ(g.Point, 0);

  // In Hyper-Drive the roll makes no call; only the come-out call at the
  // end of the call (after the run) sounds.
  const auto sounds = platform.sounds.size();
  g.HyperDrive = true;
  Roll(1, 1);
  std::vector<std::string> calls;
  for (auto i = sounds; i < platform.sounds.size(); ++i)
    if (!platform.sounds[i].path.empty()) calls.push_back(platform.sounds[i].path);
  EXPECT_EQ(calls, std::vector<std::string>{"call17"});
}

TEST_F(StateMachine, TheShooterIsCreditedWithTheHandsDice) {
  Seat(3, "Cleo");
  g.Shooter = g.HandShooter = 3;
  Roll(4, 4);  // point 8
  Roll(4, 3);  // seven-out
  EXPECT_EQ(g.HandsTally(3 + 9), 1);
  EXPECT_EQ(g.HandsTally(3 + 18), 1);
  EXPECT_EQ(g.RollTally(3 + 9, 0), 2);
  EXPECT_EQ(g.RollTally(3 + 18, 15), 1);  // hard 8
  EXPECT_EQ(g.TotalsTally(3 + 18, 8, 3), 1);
  EXPECT_EQ(g.MostRollsHand(3 + 36), 2);
  EXPECT_EQ(g.PrevHandShooter, 3);
  // Every slot saw the rolls at the table, the House's too.
  EXPECT_EQ(g.RollsAtTable(18), 2);
  EXPECT_EQ(g.RollsAtTable(5 + 18), 2);
}

TEST_F(StateMachine, DicePassedDuringTheHandGoToTheNewShooterAtItsEnd) {
  Seat(1, "Ann");
  Seat(2, "Bob");
  g.Shooter = g.HandShooter = 1;
  Roll(5, 5);
  g.Shooter = 2;
  Roll(6, 1);
  EXPECT_EQ(g.PrevHandShooter, 1);
  EXPECT_EQ(g.HandShooter, 2);
}

TEST_F(StateMachine, AtASevenOutTheDicePassAndTheNextHandIsTheNewShooters) {
  Seat(1, "Ann");
  Seat(2, "Bob");
  g.Shooter = g.HandShooter = 1;
  Roll(3, 1);
  Roll(3, 4);
  EXPECT_EQ(g.PrevHandShooter, 1);
  EXPECT_EQ(g.Shooter, 2);
  EXPECT_EQ(g.HandShooter, 2);
  Roll(2, 1);
  EXPECT_EQ(g.HandsTally(2), 1);
  EXPECT_EQ(g.HandsTally(1 + 9), 1);
  EXPECT_EQ(g.RollTally(2 + 18, 0), 1);
}

using GraphHistory = RollFixture;

// Fills player 1's page with distinct values, the count at the full page.
void FillPage(Game& g) {
  for (int k = 1; k <= 1050; ++k) g.GraphBankroll(1, k) = Currency::FromWhole(k);
  for (int k = 1; k <= 525; ++k) g.GraphTrend(1, k) = Currency::FromWhole(2 * k);
  g.GraphRollCount = 525;
  g.RollTally(18, 0) = 1000;
  g.Bet(1, 0) = Currency::FromWhole(-7);
}

TEST_F(GraphHistory, AFullPageStartsANewPage) {
  FillPage(g);
  g.roll.GraphPlotType = 0;
  ShiftGraphHistory(g);
  EXPECT_EQ(g.GraphBankroll(1, 0), Currency::FromWhole(1000));
  EXPECT_EQ(g.GraphRollCount, 1);
  EXPECT_EQ(g.GraphBankroll(1, 1), Currency::FromWhole(-7));
  EXPECT_EQ(g.GraphBankroll(1, 2), Currency::FromWhole(2));  // the rest waits to be overwritten
  for (int k = 1; k <= 525; ++k)
    ASSERT_EQ(g.GraphBankroll(1, 525 + k), Currency::FromWhole(k)) << k;
  EXPECT_EQ(g.GraphHigh(1), Currency::FromWhole(-7));
  EXPECT_EQ(g.GraphLow(1), Currency::FromWhole(-7));
  EXPECT_EQ(platform.redraws[static_cast<int>(Redraw::Graph)], 1);
}

TEST_F(GraphHistory, AFullPageScrollsByOneColumn) {
  FillPage(g);
  g.roll.GraphPlotType = 1;
  ShiftGraphHistory(g);
  EXPECT_EQ(g.GraphRollCount, 525);
  for (int k = 1; k <= 524; ++k) {
    ASSERT_EQ(g.GraphBankroll(1, k), Currency::FromWhole(k + 1)) << k;
    ASSERT_EQ(g.GraphTrend(1, k), Currency::FromWhole(2 * (k + 1))) << k;
  }
  EXPECT_EQ(g.GraphBankroll(1, 525), Currency::FromWhole(-7));
  for (int k = 526; k <= 1049; ++k)
    ASSERT_EQ(g.GraphBankroll(1, k), Currency::FromWhole(k + 1)) << k;
  EXPECT_EQ(g.GraphBankroll(1, 1050), Currency::FromWhole(1));
  EXPECT_EQ(g.GraphBankroll(1, 0), Currency::FromWhole(1000 - 524));
  EXPECT_EQ(g.GraphHigh(1), Currency::FromWhole(525));
  EXPECT_EQ(g.GraphLow(1), Currency::FromWhole(-7));
}

TEST_F(GraphHistory, EveryRollAddsAColumnAndAutoPrintMarksAFullPage) {
  Seat(1, "Ann");
  g.Bet(1, 0) = Currency::FromWhole(300);
  g.roll.GraphAutoPrint = true;
  for (int i = 0; i < 524; ++i) ShiftGraphHistory(g);
  EXPECT_FALSE(g.roll.GraphPrintDue);
  g.Bet(1, 0) = Currency::FromWhole(320);
  Roll(2, 3);
  EXPECT_EQ(g.GraphRollCount, 525);
  EXPECT_EQ(g.GraphBankroll(1, 525), Currency::FromWhole(320));
  EXPECT_EQ(g.GraphHigh(1), Currency::FromWhole(320));
  EXPECT_TRUE(g.roll.GraphPrintDue);
}

}  // namespace
