// Auto-Play: a new player's defaults, the come-out working list, the form's
// heading, and the standing options as they act on the table; the form's
// writes reach every selected seated player and nobody else, and a group
// agrees only when every selected player has the first one's value.
#include "automation/autoplay.h"

#include <algorithm>
#include <string>

#include "automation/autoplay_selection.h"
#include "engine/place.h"
#include "engine/settle.h"
#include "tests/engine/table_fixture.h"

namespace {

using namespace bet;

constexpr std::int32_t kOneAndThree = (1 << 1) | (1 << 3);

using AutoPlay = TableFixture;

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
}

// The form's switches act on the table at once, for the selected players only.
TEST_F(AutoPlay, SwitchingAnOptionOnActsAtOnce) {
  PointOn(8);
  for (int p = 1; p <= 3; ++p)
    Put({{p, kPassLine, 10},
         {p, ComeId(5), 10},
         {p, PlaceId(5), 10},
         {p, PlaceId(8), 12},
         {p, PlaceId(9), 10}});
  SetAutoPlayOption(g, kOneAndThree, AutoPlayOption::kDownPlaceBets, 1);
  EXPECT_TRUE(g.Bet(1, PlaceId(5)).IsZero() && g.Bet(3, PlaceId(8)).IsZero());
  EXPECT_EQ(g.Bet(1, PlaceId(9)), 10_usd);
  EXPECT_EQ(g.Bet(2, PlaceId(8)), 12_usd);

  SetAutoPlayOption(g, kOneAndThree, AutoPlayOption::kTakeFullOdds, 1);
  EXPECT_EQ(g.Bet(1, kPassLineOdds), 25_usd);
  EXPECT_EQ(g.Bet(3, ComeId(5) + 6), 20_usd);
  EXPECT_TRUE(g.Bet(2, kPassLineOdds).IsZero());

  // A Place 6 of 7 comes to its proper 6 when minor correction is switched on.
  g.autoplay.PlaceBias(2) = 0;
  Put(2, PlaceId(6), 7);
  const Currency total = g.TotalBets(2);
  SetAutoPlayOption(g, 1 << 2, AutoPlayOption::kAdjustMode, 1);
  EXPECT_EQ(g.Bet(2, PlaceId(6)), 6_usd);
  EXPECT_EQ(g.TotalBets(2), total - 1_usd);
}

using AutoPlaySelection = TableFixture;

TEST_F(AutoPlaySelection, EveryOptionReachesTheSelectedPlayersOnly) {
  struct Case {
    AutoPlayOption option;
    int value;
  };
  const Case cases[] = {
      {AutoPlayOption::kTakeFullOdds, 1},  {AutoPlayOption::kLayFullOdds, 1},
      {AutoPlayOption::kDownPlaceBets, 1}, {AutoPlayOption::kPassDice, 1},
      {AutoPlayOption::kAdjustMode, 1},    {AutoPlayOption::kLayBias, 2},
      {AutoPlayOption::kPlaceBias, 0},     {AutoPlayOption::kDoBias, 1},
      {AutoPlayOption::kDontBias, 2},      {AutoPlayOption::kHandleWinning, 6},
      {AutoPlayOption::kHandleLosing, 7},
  };
  for (const Case& c : cases) {
    const int before = AutoPlayValue(g, 2, c.option);
    ASSERT_NE(before, c.value) << static_cast<int>(c.option);
    g.roll.SessionDirty = false;
    SetAutoPlayOption(g, kOneAndThree, c.option, c.value);
    EXPECT_EQ(AutoPlayValue(g, 1, c.option), c.value) << static_cast<int>(c.option);
    EXPECT_EQ(AutoPlayValue(g, 3, c.option), c.value) << static_cast<int>(c.option);
    EXPECT_EQ(AutoPlayValue(g, 2, c.option), before) << static_cast<int>(c.option);
    EXPECT_TRUE(g.roll.SessionDirty);
    EXPECT_TRUE(AutoPlayAgrees(g, kOneAndThree, c.option));
    EXPECT_FALSE(AutoPlayAgrees(g, kOneAndThree | (1 << 2), c.option));
  }
  // A value out of range is stored as 0, never as the stray number.
  SetAutoPlayOption(g, 1 << 2, AutoPlayOption::kHandleWinning, 9);
  EXPECT_EQ(g.autoplay.HandleWinningBets(2), 0);
}

// Empty seats are left out of the selection and of the heading that names it.
TEST_F(AutoPlaySelection, EmptySeatsAreLeftOutAndALonePlayerIsAlwaysSelected) {
  EXPECT_EQ(AutoPlayHeading(g, 1 << 2), "Settings for\rP2");
  EXPECT_EQ(AutoPlayHeading(g, 0b1110), "Settings for these 3\rselected players:");
  EXPECT_EQ(AutoPlayHeading(g, 1 << 6), "No players selected");  // an empty position
  SetAutoPlayOption(g, (1 << 2) | (1 << 6), AutoPlayOption::kPassDice, 1);
  EXPECT_TRUE(g.autoplay.AutoPassDice(2));
  EXPECT_FALSE(g.autoplay.AutoPassDice(6));
  SetAutoPlaySelection(g, (1 << 2) | (1 << 6));
  EXPECT_EQ(g.autoplay.SelectedPlayers, 1 << 2);
  EXPECT_EQ(FirstSelectedPlayer(g, (1 << 6) | (1 << 3)), 3);
  EXPECT_EQ(FirstSelectedPlayer(g, 1 << 6), 0);

  g.autoplay.SelectedPlayers = 0;
  g.PlayerName[1].clear();
  g.PlayerName[2].clear();
  g.PlayerCount = 1;
  EXPECT_EQ(EffectiveAutoPlaySelection(g), 1 << 3);
  g.PlayerCount = 0;
  EXPECT_EQ(AutoPlayHeading(g, 1 << 3), "No players present");
}

TEST_F(AutoPlaySelection, TheSameBetRowsStepAndStoreForTheSelection) {
  g.autoplay.AdjustOperator(1, kAdjustAutoWinSame) = 3;
  // The first player's value is stepped and given to all.
  EXPECT_EQ(StepAdjustOperator(g, kOneAndThree, kAdjustAutoWinSame), 0);
  EXPECT_EQ(StepAdjustOperator(g, kOneAndThree, kAdjustAutoWinSame), 1);
  EXPECT_TRUE(AdjustAgrees(g, kOneAndThree, kAdjustAutoWinSame, AdjustPart::kOperator));
  EXPECT_FALSE(AdjustAgrees(g, 0b1110, kAdjustAutoWinSame, AdjustPart::kOperator));

  EXPECT_EQ(StepAdjustUnits(g, kOneAndThree, kAdjustAutoLoseSame), 1);
  EXPECT_EQ(g.autoplay.AdjustUnits(2, kAdjustAutoLoseSame), Currency{});  // not selected
  EXPECT_EQ(StepAdjustUnits(g, kOneAndThree, kAdjustAutoLoseSame), 0);

  SetAdjustAmount(g, kOneAndThree, kAdjustAutoWinBet, 25_usd);
  EXPECT_EQ(g.autoplay.AdjustAmount(3, kAdjustAutoWinBet), 25_usd);
  EXPECT_EQ(g.autoplay.AdjustAmount(2, kAdjustAutoWinBet), Currency{});
  SetAdjustAmount(g, 1 << 2, kAdjustAutoWinBet, -5_usd);
  EXPECT_EQ(g.autoplay.AdjustAmount(2, kAdjustAutoWinBet), Currency{});
}

}  // namespace
