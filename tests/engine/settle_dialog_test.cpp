// The settle dialog's content (caption, lines, buttons, rows, default
// button) for winners, losers and odds that were off, and what a press of a
// button keeps for the next time.
#include <string>
#include <vector>

#include "engine/settle.h"
#include "table_fixture.h"

namespace {

using namespace bet;
using Lines = std::vector<std::pair<std::string, std::string>>;
using Texts = std::vector<std::string>;

class SettleDialogs : public TableFixture {
 protected:
  SettleDialogs() {
    g.HyperDrive = false;
    g.rules.NoticeFlags = 0;  // no action notices in the way
    for (int p = 1; p <= 3; ++p)
      g.autoplay.HandleWinningBets(p) = g.autoplay.HandleLosingBets(p) = 0;
  }

  const SettleDialog& Shown(size_t i) {
    EXPECT_GT(platform.settleDialogs.size(), i);
    return platform.settleDialogs.at(i);
  }
  static Lines LinesOf(const SettleDialog& d) {
    Lines out;
    for (int i = 0; i < d.lineCount; ++i) out.emplace_back(d.lines[i].label, d.lines[i].amount);
    return out;
  }
  static Texts Captions(const SettleDialog& d) {
    Texts out;
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
  const SettleDialog& d = Shown(0);
  EXPECT_EQ(d.caption, "P1 wins!");
  EXPECT_EQ(LinesOf(d), (Lines{{"Place 8 bet:", "$5"},
                               {"Payoff at 7 to 6:", "$5.8333"},
                               {"Net payoff (rounded): ", "$5"}}));
  // A bet below its proper unit of 6 is pressed by that unit.
  EXPECT_EQ(Captions(d),
            (Texts{"&Take Bet and Winnings", "&Same Bet - Take Winnings",
                   "Press &1 Unit - Add $6 to Bet", "Press - Add Winnings to &Double Bet",
                   "Parlay - Add &All Winnings to Bet", "Sa&me Bet:", "&Bet:"}));
  EXPECT_EQ(EnabledMask(d), 0x7F);
  EXPECT_EQ(d.defaultButton, 0);

  // The button pressed is the next default; the bet stayed (Same Bet).
  EXPECT_EQ(g.Bet(1, PlaceId(8)), 5_usd);
  Decide(6, 2, 4);
  EXPECT_EQ(Shown(1).defaultButton, 1);
}

TEST_F(SettleDialogs, LosersPushesAndTheirLines) {
  PointOn(6);
  Put(1, LayId(4), 40);
  Decide(3, 1, 6);
  const SettleDialog& d = Shown(0);
  EXPECT_EQ(d.caption, "P1 lost");
  EXPECT_EQ(LinesOf(d), (Lines{{"Lay 4 bet:", "$40"},
                               {"Loss at -1 to 1:", "$-40"},
                               {"-5% vig:", "$-1"},
                               {"Net loss: ", "$-41"},
                               {"Remainder: ", "$0"}}));

  Put(2, kWorld, 5);
  Decide(3, 4, 0);
  EXPECT_EQ(Shown(1).caption, "P2 pushes");
}

TEST_F(SettleDialogs, OddsThatWerentWorking) {
  Put(1, ComeId(5), 10);
  Put(1, ComeId(5) + 6, 20);
  // The lost flat and the returned odds both stay up (Same Bet).
  platform.queuedSettleButtons = {1, 1};
  Decide(3, 4, 0);
  const SettleDialog& d = Shown(1);
  EXPECT_EQ(d.caption, "P1");
  EXPECT_EQ(LinesOf(d), (Lines{{"Come 5 Odds bet:", "$20"}, {"wasn't working!", ""}}));
  EXPECT_EQ(Won(1), -10_usd);  // the odds cost nothing

  // Without Put bets the odds can only come back.
  g.rules.AllowPutBets = false;
  g.autoplay.LastWinButton(1) = 3;
  platform.queuedSettleButtons.push_back(1);
  Decide(3, 4, 0);
  const SettleDialog& down = Shown(3);
  EXPECT_EQ(EnabledMask(down), 0x01);
  EXPECT_FALSE(down.rows[0].enabled);
  EXPECT_EQ(down.defaultButton, 0);
}

TEST_F(SettleDialogs, BetsThatMustComeDownOfferOnlyTheFirstButton) {
  PointOn(6);
  g.autoplay.LastWinButton(1) = 4;
  Put(1, DontComeId(9), 10);
  Put(1, DontComeId(9) + 6, 15);
  Decide(3, 4, 6);
  ASSERT_EQ(platform.settleDialogs.size(), 2u);
  for (const SettleDialog& d : platform.settleDialogs) {
    EXPECT_EQ(EnabledMask(d), 0x01);
    EXPECT_EQ(d.defaultButton, 0);
  }
  EXPECT_EQ(Won(1), 20_usd);
  EXPECT_EQ(g.autoplay.LastWinButton(1), 0);
}

TEST_F(SettleDialogs, RowControlsAndWhatAPressKeeps) {
  PointOn(6);
  Put(1, PlaceId(6), 30);
  g.CurBet = PlaceId(6);
  g.NetPayoff = 35_usd;
  SettleDialog& d = g.autoplay.Dialog;
  d.kind = SettleKind::Winner;
  BuildSettleDialog(g, 1);
  Texts units;
  for (int i = 0; i < 7; ++i) {
    units.push_back(d.rows[0].unitsCaption);
    StepSettleUnits(g, 0);
  }
  EXPECT_EQ(units,
            (Texts{"$", "%", "$6 Units", "$30 Units", "$150 Units", "$600 Units", "$3000 Units"}));
  StepSettleUnits(g, 1);
  EXPECT_EQ(d.rows[1].unitsCaption, "$6 Units");  // the "&Bet:" row has no "%"
  d.rows[0].amount1 = 3_usd;
  StepSettleOperator(g, 0);
  StepSettleOperator(g, 0);

  d.rows[0].units = 3;
  d.rows[1].units = 2;
  PressSettleButton(g, 1, 1);
  EXPECT_EQ(g.autoplay.AdjustOperator(1, 5), 2);
  EXPECT_EQ(g.autoplay.AdjustAmount(1, 5), 3_usd);
  EXPECT_EQ(g.autoplay.AdjustUnits(1, 6), 2_usd);

  // Rebuilt, the rows show what was kept, the units counted in checks.
  BuildSettleDialog(g, 1);
  EXPECT_EQ(d.rows[0].operatorCaption, "x");
  EXPECT_EQ(d.rows[0].unitsCaption, "$30 Units");
  EXPECT_EQ(d.defaultButton, 1);

  // A loser's press keeps its rows apart from the winner's.
  g.NetPayoff = -30_usd;
  d.rows[0].amount1 = 9_usd;
  PressSettleButton(g, 1, 1);
  EXPECT_EQ(g.autoplay.AdjustAmount(1, 7), 9_usd);
  EXPECT_EQ(g.autoplay.AdjustAmount(1, 5), 3_usd);
  EXPECT_EQ(g.autoplay.LastLoseButton(1), 1);
}

TEST_F(SettleDialogs, PressUnitIsTheLargestProperUnitThatDividesTheBet) {
  const std::pair<long, long> cases[] = {{30, 6}, {60, 30}};
  for (auto [bet, unit] : cases) {
    g.Bet(1, PlaceId(6)) = Currency::FromWhole(bet);
    FigurePressUnit(g, 1, PlaceId(6));
    EXPECT_EQ(g.autoplay.PressUnit, Currency::FromWhole(unit)) << bet;
  }
  Put(2, PlaceId(5), 3);  // below every unit: the smallest
  FigurePressUnit(g, 2, PlaceId(5));
  EXPECT_EQ(g.autoplay.PressUnit, 5_usd);
}

}  // namespace
