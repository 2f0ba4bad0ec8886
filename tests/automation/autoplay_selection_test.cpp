// The Auto-Play form's writes: each reaches every selected seated player and
// nobody else, switching an option on acts on the table at once, and a group
// agrees only when every selected player has the first one's value.
#include "automation/autoplay_selection.h"

#include "automation/autoplay.h"
#include "engine/place.h"
#include "tests/engine/table_fixture.h"

namespace {

using namespace bet;

constexpr std::int32_t kOneAndThree = (1 << 1) | (1 << 3);

class AutoPlaySelection : public TableFixture {};

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

TEST_F(AutoPlaySelection, AnEmptySeatInTheSelectionIsLeftAlone) {
  SetAutoPlayOption(g, (1 << 2) | (1 << 6), AutoPlayOption::kPassDice, 1);
  EXPECT_TRUE(g.autoplay.AutoPassDice(2));
  EXPECT_FALSE(g.autoplay.AutoPassDice(6));
  SetAutoPlaySelection(g, (1 << 2) | (1 << 6));
  EXPECT_EQ(g.autoplay.SelectedPlayers, 1 << 2);
  EXPECT_EQ(FirstSelectedPlayer(g, (1 << 6) | (1 << 3)), 3);
  EXPECT_EQ(FirstSelectedPlayer(g, 1 << 6), 0);
}

TEST_F(AutoPlaySelection, ALonePlayerIsAlwaysSelected) {
  g.autoplay.SelectedPlayers = 0;
  EXPECT_EQ(EffectiveAutoPlaySelection(g), 0);
  g.autoplay.SelectedPlayers = 1 << 2;
  EXPECT_EQ(EffectiveAutoPlaySelection(g), 1 << 2);
  g.PlayerName[1].clear();
  g.PlayerName[2].clear();
  g.PlayerCount = 1;
  EXPECT_EQ(EffectiveAutoPlaySelection(g), 1 << 3);
}

TEST_F(AutoPlaySelection, SwitchingFullOddsOnTakesTheOddsOfEverySelectedPlayer) {
  PointOn(6);
  for (int p = 1; p <= 3; ++p) Put(p, kPassLine, 10);
  SetAutoPlayOption(g, kOneAndThree, AutoPlayOption::kTakeFullOdds, 1);
  EXPECT_GT(g.Bet(1, kPassLineOdds), Currency{});
  EXPECT_EQ(g.Bet(1, kPassLineOdds), g.Bet(3, kPassLineOdds));
  EXPECT_EQ(g.Bet(2, kPassLineOdds), Currency{});
  // Down Place Bets takes the Place bet on the point down for the selection only.
  for (int p = 1; p <= 3; ++p) Put(p, PlaceId(6), 12);
  SetAutoPlayOption(g, 1 << 3, AutoPlayOption::kDownPlaceBets, 1);
  EXPECT_EQ(g.Bet(3, PlaceId(6)), Currency{});
  EXPECT_EQ(g.Bet(1, PlaceId(6)), 12_usd);
}

TEST_F(AutoPlaySelection, TheSameBetRowsStepAndStoreForTheSelection) {
  g.autoplay.AdjustOperator(1, kAdjustAutoWinSame) = 3;
  // The first player's value is stepped and given to all.
  EXPECT_EQ(StepAdjustOperator(g, kOneAndThree, kAdjustAutoWinSame), 0);
  EXPECT_EQ(g.autoplay.AdjustOperator(3, kAdjustAutoWinSame), 0);
  EXPECT_EQ(StepAdjustOperator(g, kOneAndThree, kAdjustAutoWinSame), 1);
  EXPECT_TRUE(AdjustAgrees(g, kOneAndThree, kAdjustAutoWinSame, AdjustPart::kOperator));
  EXPECT_FALSE(AdjustAgrees(g, 0b1110, kAdjustAutoWinSame, AdjustPart::kOperator));

  EXPECT_EQ(StepAdjustUnits(g, kOneAndThree, kAdjustAutoLoseSame), 1);
  EXPECT_EQ(StepAdjustUnits(g, kOneAndThree, kAdjustAutoLoseSame), 0);
  EXPECT_EQ(StepAdjustUnits(g, 1 << 1, kAdjustAutoLoseSame), 1);
  EXPECT_EQ(g.autoplay.AdjustUnits(1, kAdjustAutoLoseSame), 1_usd);
  EXPECT_FALSE(AdjustAgrees(g, kOneAndThree, kAdjustAutoLoseSame, AdjustPart::kUnits));

  SetAdjustAmount(g, kOneAndThree, kAdjustAutoWinBet, 25_usd);
  EXPECT_EQ(g.autoplay.AdjustAmount(3, kAdjustAutoWinBet), 25_usd);
  EXPECT_EQ(g.autoplay.AdjustAmount(2, kAdjustAutoWinBet), Currency{});
  SetAdjustAmount(g, 1 << 2, kAdjustAutoWinBet, -5_usd);
  EXPECT_EQ(g.autoplay.AdjustAmount(2, kAdjustAutoWinBet), Currency{});
  EXPECT_FALSE(AdjustAgrees(g, 0b1110, kAdjustAutoWinBet, AdjustPart::kAmount));
}

}  // namespace
