// Auto-Play: a new player's defaults, the come-out working list, the form's
// heading, and the standing rules as they act on a settled bet.
#include "automation/autoplay.h"

#include <algorithm>
#include <string>

#include "engine/place.h"
#include "engine/settle.h"
#include "tests/engine/table_fixture.h"

namespace {

using namespace bet;

class AutoPlay : public TableFixture {};

TEST_F(AutoPlay, ANewPlayerTakesTheDefaultsAndTheTablesWorkingRow) {
  AutoPlayState& a = g.autoplay;
  a.HandleWinningBets(4) = 5;
  g.BetWorkingDefault(0, kHard6) = 0;
  g.BetWorkingDefault(0, PlaceId(6)) = 1;
  SetAutoPlayDefaults(g, 4);
  EXPECT_TRUE(a.HandleWinningBets(4) == 0 && a.HandleLosingBets(4) == 1);
  EXPECT_EQ(g.BetWorkingDefault(4, kHard6), 0);
  EXPECT_EQ(g.BetWorkingDefault(4, PlaceId(6)), 1);
}

TEST_F(AutoPlay, TheComeOutListLeavesOutTheLineAndPointBets) {
  const std::vector<int> ids = ComeOutListIds();
  EXPECT_EQ(ids.size(), 84u - 18u);
  for (int b : {7, 12, 19, 24, 43, 48, 85})
    EXPECT_EQ(std::count(ids.begin(), ids.end(), b), 0) << b;
  for (int b : {1, 13, 18, 25, 42, 84}) EXPECT_EQ(std::count(ids.begin(), ids.end(), b), 1) << b;

  // Yes for players 1 and 3: the flags follow at once on a come-out.
  SetComeOutWorking(g, 0b1010, {PlaceId(6), PlaceId(8)}, 1);
  EXPECT_TRUE(g.BetWorking(1, PlaceId(6)) == 1 && g.BetWorking(3, PlaceId(8)) == 1);
  EXPECT_EQ(g.BetWorking(2, PlaceId(6)), 0);
  Put(1, PlaceId(6), 12);
  Decide(3, 4, 0);
  EXPECT_EQ(Won(1), -12_usd);

  // A call stays through the change; the table's row puts the default back.
  g.BetWorking(3, PlaceId(6)) = -1;
  CopyComeOutDefaults(g, 0b1010, {PlaceId(6), PlaceId(8)});
  EXPECT_EQ(g.BetWorking(1, PlaceId(6)), 0);
  EXPECT_EQ(g.BetWorking(3, PlaceId(6)), -1);
  EXPECT_EQ(g.BetWorking(3, PlaceId(8)), 0);
}

TEST_F(AutoPlay, TheHeadingNamesTheSelection) {
  EXPECT_EQ(AutoPlayHeading(g, 1 << 2), "Settings for\rP2");
  EXPECT_EQ(AutoPlayHeading(g, 0b1110), "Settings for these 3\rselected players:");
  EXPECT_EQ(AutoPlayHeading(g, 1 << 6), "No players selected");  // an empty position
  g.PlayerCount = 0;
  EXPECT_EQ(AutoPlayHeading(g, 0b10), "No players present");
}

TEST_F(AutoPlay, FullOddsOnTheRollThatSetsThePoint) {
  g.rules.BetRequirement = 0;
  g.autoplay.AutoTakeFullOdds(1) = true;
  g.autoplay.AutoLayFullOdds(2) = true;
  g.autoplay.AutoLayFullOdds(3) = true;
  Put(1, kPassLine, 10);
  Put(2, kDontPass, 10);
  Put(3, kPassLine, 10);  // lays no odds without a Don't Pass bet
  ASSERT_TRUE(QueueDice(g, 4, 2));
  RollDice(g);
  ASSERT_EQ(g.Point, 6);
  EXPECT_EQ(g.Bet(1, kPassLineOdds), 25_usd);  // 2.5 times the flat on a 6
  EXPECT_EQ(g.Bet(2, kDontPassOdds), 30_usd);  // lay 30 to win 25
  EXPECT_TRUE(g.Bet(3, kPassLineOdds).IsZero() && g.Bet(3, kDontPassOdds).IsZero());

  // A Come bet that travels takes its odds along.
  g.autoplay.AutoTakeFullOdds(3) = true;
  g.BetRequest = 10_usd;
  PlaceBet(g, 3, kCome);
  ASSERT_TRUE(QueueDice(g, 2, 2));
  RollDice(g);
  EXPECT_EQ(g.Bet(3, ComeId(4)), 10_usd);
  EXPECT_EQ(g.Bet(3, ComeId(4) + 6), 20_usd);
}

TEST_F(AutoPlay, SwitchingAnOptionOnActsAtOnce) {
  PointOn(8);
  Put(1, kPassLine, 10);
  Put(1, ComeId(5), 10);
  Put(1, PlaceId(5), 10);
  Put(1, PlaceId(8), 12);
  Put(1, PlaceId(9), 10);
  ChangeAutoDownPlaceBets(g, 1, true);
  EXPECT_TRUE(g.Bet(1, PlaceId(5)).IsZero() && g.Bet(1, PlaceId(8)).IsZero());
  EXPECT_EQ(g.Bet(1, PlaceId(9)), 10_usd);

  ChangeAutoTakeFullOdds(g, 1, true);
  EXPECT_EQ(g.Bet(1, kPassLineOdds), 25_usd);
  EXPECT_EQ(g.Bet(1, ComeId(5) + 6), 20_usd);

  // A Place 6 of 7 comes to its proper 6 when minor correction is switched on.
  g.autoplay.PlaceBias(2) = 0;
  Put(2, PlaceId(6), 7);
  ChangeAutoAdjustMode(g, 2, 1);
  EXPECT_EQ(g.Bet(2, PlaceId(6)), 6_usd);
  EXPECT_EQ(g.TotalBets(2), 6_usd);
}

}  // namespace
