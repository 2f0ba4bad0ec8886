#include "cycle/session.h"

#include <gtest/gtest.h>

#include "core/catalogue.h"
#include "tests/engine/roll_fixture.h"

namespace {

class Session : public RollFixture {
 protected:
  // A few hands of rolls: the session frame and the all-sessions frame fill.
  void PlaySomeRolls() {
    for (auto [a, b] : {std::pair{2, 2}, {1, 3}, {3, 3}, {6, 1}, {5, 6}, {1, 1}, {4, 4}, {2, 3}})
      Roll(a, b);
  }
};

TEST_F(Session, PreservedGamesMoveTheSessionToTheLastSessionFrame) {
  PlaySomeRolls();
  auto before = std::make_unique<Game>(g);
  ASSERT_GT(before->RollTally(kTableSession, kEventRolls), 0);
  NewSession(g, true, false, true, 0);
  for (int k = 0; k <= 90; ++k) {
    EXPECT_EQ(g.RollTally(27, k), before->RollTally(18, k)) << k;
    EXPECT_EQ(g.RollTally(36, k), before->RollTally(36, k)) << k;
    for (int i = 0; i <= 26; ++i) ASSERT_EQ(g.RollTally(i, k), 0) << i << ' ' << k;
  }
  for (int t = 2; t <= 12; ++t)
    for (int c = 1; c <= 3; ++c) EXPECT_EQ(g.TotalsTally(27, t, c), before->TotalsTally(18, t, c));
  EXPECT_EQ(g.HandsTally(27), before->HandsTally(kTableSession));
  EXPECT_EQ(g.MostRollsHand(27), before->MostRollsHand(18));
  EXPECT_EQ(g.MostRollsHand(18), 0);

  // A second new session with no roll in between leaves the last session alone.
  NewSession(g, true, false, true, 0);
  EXPECT_EQ(g.RollTally(27, 0), 8);
  EXPECT_EQ(g.RollTally(36, 0), 8);

  // Without preserving, every frame starts again.
  NewSession(g, false, false, true, 0);
  EXPECT_EQ(g.RollTally(27, 0), 0);
  EXPECT_EQ(g.RollTally(36, 0), 0);
}

TEST_F(Session, TheGameInHandAndTheGapTablesStartAgain) {
  Seat(2, "Bob");
  g.Shooter = 2;
  PlaySomeRolls();
  Roll(5, 5);  // a point stands
  ASSERT_GT(g.Point, 0);
  g.Bet(2, PlaceId(8)) = Currency::FromWhole(12);
  g.TotalBets(2) = Currency::FromWhole(12);
  g.BuyVig(2, 1) = Currency::FromWhole(1);
  g.Bet(2, 107) = Currency::FromWhole(9);
  g.CheckStackName(2, 7) = "rent";
  g.BetWorking(2, PlaceId(8)) = -1;
  g.PointsMade = 2;
  NewSession(g, true, true, true, 0);
  EXPECT_EQ(g.Point, 0);
  EXPECT_EQ(g.PointsMade, 0);
  EXPECT_EQ(g.RollsSince, decltype(g.RollsSince){});
  EXPECT_EQ(g.GapTally, decltype(g.GapTally){});
  EXPECT_EQ(g.BuyVig(2, 1), Currency());
  EXPECT_EQ(g.BetWorking(2, PlaceId(8)), 0);  // back to the come-out default
  // Kept CheckStacks keep their amounts and names.
  EXPECT_EQ(g.Bet(2, 107), Currency::FromWhole(9));
  EXPECT_EQ(g.CheckStackName(2, 7), "rent");
  NewSession(g, true, false, true, 0);
  EXPECT_EQ(g.Bet(2, 107), Currency());
  EXPECT_EQ(g.CheckStackName(2, 7), "");
}

// Each start rule itself is the bankroll tests' business; here a new session
// applies it after the session's bets are settled, and skips open seats.
TEST_F(Session, BankrollsComeFromEachPlayersStartRule) {
  Seat(5, "Eve");
  g.betting.StartBankrollMode(5) = kStartCarry;
  g.Bet(5, 0) = Currency::FromWhole(250);
  g.Bet(5, bet::kPassLine) = Currency::FromWhole(10);
  g.TotalBets(5) = Currency::FromWhole(10);
  g.HyperDrive = true;  // winners settle by rule
  PlaySomeRolls();
  const Currency carried = g.Bet(5, 0);  // the session's end, the Pass Line's results in it
  ASSERT_NE(carried, Currency::FromWhole(250));
  NewSession(g, false, false, true, 0);
  EXPECT_EQ(g.Bet(5, 0), carried);
  EXPECT_EQ(g.Bet(5, bet::kPassLine), Currency());
  EXPECT_EQ(g.GraphLow(5), carried);
  EXPECT_EQ(g.Bet(3, 0), Currency());  // an open seat stays empty
}

TEST_F(Session, TheGraphStartsAtItsFirstPage) {
  for (int i = 0; i < 600; ++i) Roll(1 + i % 6, 1 + (i / 6) % 6);
  g.roll.GraphScale = Currency::FromWhole(40);
  NewSession(g, false, false, true, 0);
  EXPECT_EQ(g.GraphRollCount, 0);
  EXPECT_EQ(g.roll.GraphScale, Currency::FromWhole(1));
  for (int p = 1; p <= 8; ++p) EXPECT_EQ(g.GraphBankroll(p, 600), Currency());
}

TEST_F(Session, TheLogOpensTheSessionWithTheShooterLine) {
  g.roll.LogOn = true;
  NewSession(g, false, false, true, 0);
  const std::string log = EventsLogText(g);
  EXPECT_EQ(log.find(" New session started "), 0u);
  EXPECT_NE(log.find("\n----New hand, come-out roll----------\n"), std::string::npos);
  EXPECT_EQ(log.find("===="), std::string::npos);  // nothing was logged before
  NewSession(g, false, false, true, 0);
  EXPECT_NE(
      EventsLogText(g).find("============================================\n New session started "),
      std::string::npos);
}

}  // namespace
