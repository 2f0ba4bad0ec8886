// The settle dialog's content (caption, lines, buttons, rows, default
// button) for winners, losers and odds that were off, and what a press of a
// button keeps for the next time.
#include <string>
#include <vector>

#include "engine/settle.h"
#include "table_fixture.h"

namespace {

using namespace bet;

class SettleDialogs : public TableFixture {
 protected:
  SettleDialogs() {
    g.HyperDrive = false;
    g.rules.NoticeFlags = 0;  // no action notices in the way
    g.autoplay.HandleWinningBets(1) = 0;
    g.autoplay.HandleLosingBets(1) = 0;
  }

  using Lines = std::vector<std::pair<std::string, std::string>>;
  static Lines LinesOf(const SettleDialog& d) {
    Lines out;
    for (int i = 0; i < d.lineCount; ++i) out.emplace_back(d.lines[i].label, d.lines[i].amount);
    return out;
  }
  static std::vector<std::string> Captions(const SettleDialog& d) {
    std::vector<std::string> out;
    for (const auto& b : d.buttons) out.push_back(b.caption);
    return out;
  }
  static int EnabledMask(const SettleDialog& d) {
    int mask = 0;
    for (int i = 0; i < 7; ++i) mask |= d.buttons[i].enabled ? 1 << i : 0;
    return mask;
  }
};

TEST_F(SettleDialogs, WinnerWithARoundedPayoff) {
  PointOn(4);
  Put(1, PlaceId(8), 5);
  platform.queuedSettleButtons.push_back(1);
  Decide(4, 4, 4);
  ASSERT_EQ(platform.settleDialogs.size(), 1u);
  const SettleDialog& d = platform.settleDialogs[0];
  EXPECT_EQ(d.caption, "P1 wins!");
  EXPECT_EQ(LinesOf(d), (Lines{{"Place 8 bet:", "$5"},
                               {"Payoff at 7 to 6:", "$5.8333"},
                               {"Net payoff (rounded): ", "$5"}}));
  // A bet below its proper unit of 6 is pressed by that unit.
  EXPECT_EQ(Captions(d), (std::vector<std::string>{
                             "&Take Bet and Winnings", "&Same Bet - Take Winnings",
                             "Press &1 Unit - Add $6 to Bet", "Press - Add Winnings to &Double Bet",
                             "Parlay - Add &All Winnings to Bet", "Sa&me Bet:", "&Bet:"}));
  EXPECT_EQ(EnabledMask(d), 0x7F);
  EXPECT_EQ(d.defaultButton, 0);
  EXPECT_EQ(d.rows[0].operatorCaption, "+");
  EXPECT_EQ(d.rows[0].unitsCaption, "$");

  // The button pressed is the next default; the bet stayed (Same Bet).
  EXPECT_EQ(g.autoplay.LastWinButton(1), 1);
  EXPECT_EQ(g.Bet(1, PlaceId(8)), 5_usd);
  Decide(6, 2, 4);
  ASSERT_EQ(platform.settleDialogs.size(), 2u);
  EXPECT_EQ(platform.settleDialogs[1].defaultButton, 1);
}

TEST_F(SettleDialogs, LayLoserShowsTheVigAndTheRemainder) {
  PointOn(6);
  Put(1, LayId(4), 40);
  Decide(3, 1, 6);
  ASSERT_EQ(platform.settleDialogs.size(), 1u);
  const SettleDialog& d = platform.settleDialogs[0];
  EXPECT_EQ(d.caption, "P1 lost");
  EXPECT_EQ(LinesOf(d), (Lines{{"Lay 4 bet:", "$40"},
                               {"Loss at -1 to 1:", "$-40"},
                               {"-5% vig:", "$-1"},
                               {"Net loss: ", "$-41"},
                               {"Remainder: ", "$0"}}));
  EXPECT_EQ(Captions(d),
            (std::vector<std::string>{"&No Bet/Take Remainder", "&Same Bet", "Bet &Remainder",
                                      "Press &1 Unit - Add $10 to Bet", "&Double Bet",
                                      "Sa&me Bet:", "&Bet:"}));
  EXPECT_EQ(Won(1), -41_usd);
  // The vig left TotalBets with the settled bet.
  EXPECT_EQ(g.TotalBets(1) - g.Bet(1, LayId(4)), 0_usd);
}

TEST_F(SettleDialogs, SplitAndFireLinesAndAPush) {
  Put(1, kCandE, 3);
  Decide(5, 6, 0);
  ASSERT_EQ(platform.settleDialogs.size(), 1u);
  EXPECT_EQ(LinesOf(platform.settleDialogs[0]), (Lines{{"C and E bet:", "$3"},
                                                       {"1/2 of bet:", "$1.50"},
                                                       {"Payoff at 15 to 1:", "$22.50"},
                                                       {"Less 1/2 of bet:", "$-1.50"},
                                                       {"Net payoff: ", "$21"}}));
  g.autoplay.HandleWinningBets(1) = 1;
  g.autoplay.HandleLosingBets(1) = 1;
  g.autoplay.HandleWinningBets(2) = 0;
  Put(2, kWorld, 5);
  Decide(3, 4, 0);
  ASSERT_EQ(platform.settleDialogs.size(), 2u);
  EXPECT_EQ(platform.settleDialogs[1].caption, "P2 pushes");
  EXPECT_EQ(LinesOf(platform.settleDialogs[1]), (Lines{{"World bet:", "$5"},
                                                       {"1/5 of bet:", "$1"},
                                                       {"Payoff at 4 to 1:", "$4"},
                                                       {"Less 4/5 of bet:", "$-4"},
                                                       {"Net payoff: ", "$0"}}));
  g.autoplay.HandleWinningBets(2) = 1;

  g.autoplay.HandleWinningBets(3) = 0;
  Put(3, kFire, 5);
  g.PointsMade = 4;
  g.PointsMadeMask = 15;
  Decide(3, 4, 9);
  ASSERT_EQ(platform.settleDialogs.size(), 3u);
  EXPECT_EQ(LinesOf(platform.settleDialogs[2]),
            (Lines{{"Fire bet (4 points made):", "$5"}, {"Payoff at 24 to 1:", "$120"}}));
}

TEST_F(SettleDialogs, OddsThatWerentWorking) {
  Put(1, ComeId(5), 10);
  Put(1, ComeId(5) + 6, 20);
  // The lost flat and the returned odds both stay up (Same Bet).
  platform.queuedSettleButtons = {1, 1};
  Decide(3, 4, 0);
  ASSERT_EQ(platform.settleDialogs.size(), 2u);
  const SettleDialog& d = platform.settleDialogs[1];
  EXPECT_EQ(d.caption, "P1");
  EXPECT_EQ(LinesOf(d), (Lines{{"Come 5 Odds bet:", "$20"}, {"wasn't working!", ""}}));
  EXPECT_EQ(Captions(d), (std::vector<std::string>{
                             "&No Bet/Take Back", "&Same Bet", "Press &1 Unit - Add $10 to Bet",
                             "Press - &Double Bet", "Take M&ax Odds", "Sa&me Bet:", "&Bet:"}));
  EXPECT_EQ(EnabledMask(d), 0x7F);
  EXPECT_EQ(Won(1), -10_usd);  // the odds cost nothing
  EXPECT_EQ(g.autoplay.LastWinButton(1), 1);

  // Without Put bets the odds can only come back.
  g.rules.AllowPutBets = false;
  g.autoplay.LastWinButton(1) = 3;
  platform.queuedSettleButtons.push_back(1);
  Decide(3, 4, 0);
  ASSERT_EQ(platform.settleDialogs.size(), 4u);
  const SettleDialog& down = platform.settleDialogs[3];
  EXPECT_EQ(down.buttons[0].caption, "&Take Returned Bet");
  EXPECT_EQ(EnabledMask(down), 0x01);
  EXPECT_FALSE(down.rows[0].enabled);
  EXPECT_FALSE(down.rows[1].enabled);
  EXPECT_EQ(down.defaultButton, 0);
  EXPECT_FALSE(g.BetComesDown);
}

TEST_F(SettleDialogs, BetsThatMustComeDown) {
  PointOn(6);
  g.autoplay.LastWinButton(1) = 4;
  Put(1, DontComeId(9), 10);
  Put(1, DontComeId(9) + 6, 15);
  Decide(3, 4, 6);
  ASSERT_EQ(platform.settleDialogs.size(), 2u);
  // The Don't Come point and its odds may not stay up.
  for (const SettleDialog& d : platform.settleDialogs) {
    EXPECT_EQ(EnabledMask(d), 0x01);
    EXPECT_EQ(d.defaultButton, 0);
  }
  EXPECT_EQ(Won(1), 20_usd);
  EXPECT_EQ(g.autoplay.LastWinButton(1), 0);
}

TEST_F(SettleDialogs, HyperDriveActsOnRuleOneWithoutAsking) {
  g.HyperDrive = true;
  Put(1, kField, 5);
  Put(1, kSeven, 5);
  Decide(1, 1, 0);
  EXPECT_TRUE(platform.settleDialogs.empty());
  EXPECT_EQ(Won(1), 5_usd);
}

TEST_F(SettleDialogs, APressKeepsTheRowsAndTheButton) {
  PointOn(6);
  Put(1, PlaceId(6), 30);
  g.CurBet = PlaceId(6);
  g.NetPayoff = 35_usd;
  SettleDialog& d = g.autoplay.Dialog;
  d.kind = SettleKind::Winner;
  BuildSettleDialog(g, 1);
  d.rows[0].mathOperator = 2;
  d.rows[0].amount1 = 3_usd;
  d.rows[0].units = 3;
  d.rows[1].amount1 = 4_usd;
  d.rows[1].units = 2;
  PressSettleButton(g, 1, 1);
  EXPECT_EQ(g.autoplay.AdjustOperator(1, 5), 2);
  EXPECT_EQ(g.autoplay.AdjustAmount(1, 5), 3_usd);
  EXPECT_EQ(g.autoplay.AdjustUnits(1, 5), 3_usd);
  EXPECT_EQ(g.autoplay.AdjustAmount(1, 6), 4_usd);
  EXPECT_EQ(g.autoplay.AdjustUnits(1, 6), 2_usd);
  EXPECT_EQ(g.autoplay.LastWinButton(1), 1);

  // Rebuilt, the rows show what was kept, the units counted in checks.
  BuildSettleDialog(g, 1);
  EXPECT_EQ(d.rows[0].operatorCaption, "x");
  EXPECT_EQ(d.rows[0].unitsCaption, "$30 Units");
  EXPECT_EQ(d.rows[1].unitsCaption, "$6 Units");
  EXPECT_EQ(d.defaultButton, 1);

  // A loser's press keeps its rows apart from the winner's.
  g.NetPayoff = -30_usd;
  d.rows[0].amount1 = 9_usd;
  PressSettleButton(g, 1, 1);
  EXPECT_EQ(g.autoplay.AdjustAmount(1, 7), 9_usd);
  EXPECT_EQ(g.autoplay.AdjustAmount(1, 5), 3_usd);
  EXPECT_EQ(g.autoplay.LastLoseButton(1), 1);
}

TEST_F(SettleDialogs, RowControlsStepAndColour) {
  Put(1, PlaceId(6), 12);
  g.CurBet = PlaceId(6);
  g.NetPayoff = 14_usd;
  SettleDialog& d = g.autoplay.Dialog;
  d.kind = SettleKind::Winner;
  BuildSettleDialog(g, 1);
  std::vector<std::string> units;
  for (int i = 0; i < 7; ++i) {
    units.push_back(d.rows[0].unitsCaption);
    StepSettleUnits(g, 0);
  }
  EXPECT_EQ(units, (std::vector<std::string>{"$", "%", "$6 Units", "$30 Units", "$150 Units",
                                             "$600 Units", "$3000 Units"}));
  EXPECT_EQ(d.rows[0].unitsCaption, "$");
  StepSettleUnits(g, 1);
  EXPECT_EQ(d.rows[1].unitsCaption, "$6 Units");  // the "&Bet:" row has no "%"
  EXPECT_EQ(NextSettleUnits(6, 1), 0);

  EXPECT_EQ(SettleAmountColor(d.rows[0], 0), AmountColor::Black);
  d.rows[0].amount1 = 2_usd;
  EXPECT_EQ(SettleAmountColor(d.rows[0], 0), AmountColor::Blue);
  StepSettleOperator(g, 0);
  EXPECT_EQ(d.rows[0].operatorCaption, "-");
  EXPECT_EQ(SettleAmountColor(d.rows[0], 0), AmountColor::Red);
  for (int i = 0; i < 3; ++i) StepSettleOperator(g, 0);
  EXPECT_EQ(d.rows[0].operatorCaption, "+");
}

TEST_F(SettleDialogs, PressUnitIsTheLargestProperUnitThatDividesTheBet) {
  Put(1, PlaceId(6), 30);
  FigurePressUnit(g, 1, PlaceId(6));
  EXPECT_EQ(g.autoplay.PressUnit, 6_usd);
  Put(1, PlaceId(6), 30);
  FigurePressUnit(g, 1, PlaceId(6));
  EXPECT_EQ(g.autoplay.PressUnit, 30_usd);
  Put(2, PlaceId(5), 3);  // below every unit: the smallest
  FigurePressUnit(g, 2, PlaceId(5));
  EXPECT_EQ(g.autoplay.PressUnit, 5_usd);
}

}  // namespace
