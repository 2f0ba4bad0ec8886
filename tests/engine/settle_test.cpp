// What stands on a bet after its decision: each winning and losing rule,
// the bets that must come down, odds that were off, the notices of the
// actions and the travel of Come and Don't Come bets; then the settle
// dialog's content (caption, lines, buttons, rows, default button) and what
// a press of a button keeps for the next time.
#include "engine/settle.h"

#include <string>
#include <vector>

#include "automation/autoplay.h"
#include "table_fixture.h"

namespace {

using namespace bet;
using Lines = std::vector<std::pair<std::string, std::string>>;
using Texts = std::vector<std::string>;

using Settle = TableFixture;

TEST_F(Settle, WinningAndLosingRulesOnAPlaceSix) {
  // A Place 6 of 12 wins 14 on a six and loses on a seven; the rule leaves `want` up.
  struct Case {
    bool win;
    int rule, op, units;
    long amount, want;
  };
  const Case cases[] = {
      {true, 1, 0, 0, 0, 0},   {true, 3, 0, 0, 0, 18},  // press one unit of 6
      {true, 4, 0, 0, 0, 24},  {true, 5, 0, 0, 0, 26},  // parlay adds the 14 won
      {true, 6, 2, 0, 3, 36},  {true, 6, 3, 0, 0, 12},  // "/" by 0 leaves it
      {true, 6, 0, 1, 50, 18}, {true, 6, 1, 0, 6, 6},  {true, 6, 3, 0, 2, 6},
      {true, 7, 0, 0, 30, 30}, {true, 7, 0, 2, 3, 18},  // three proper units of 6
      {false, 1, 0, 0, 0, 0},  {false, 2, 0, 0, 0, 12}, {false, 3, 0, 0, 0, 0},  // no remainder
      {false, 4, 0, 0, 0, 18}, {false, 5, 0, 0, 0, 24}, {false, 6, 1, 0, 2, 10},
      {false, 7, 0, 0, 6, 6},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << (c.win ? "win" : "loss") << " rule " << c.rule << " op "
                                    << c.op << " n " << c.amount);
    (c.win ? g.autoplay.HandleWinningBets(1) : g.autoplay.HandleLosingBets(1)) = c.rule;
    const int k = c.win ? (c.rule == 6 ? kAdjustAutoWinSame : kAdjustAutoWinBet)
                        : (c.rule == 6 ? kAdjustAutoLoseSame : kAdjustAutoLoseBet);
    g.autoplay.AdjustOperator(1, k) = c.op;
    g.autoplay.AdjustUnits(1, k) = Currency::FromWhole(c.units);
    g.autoplay.AdjustAmount(1, k) = Currency::FromWhole(c.amount);
    const Currency bank = g.Bet(1, bet::kBankroll);
    PointOn(4);
    Put(1, PlaceId(6), 12);
    Decide(3, c.win ? 3 : 4, 4);
    EXPECT_EQ(g.Bet(1, bet::kBankroll) - bank, c.win ? 14_usd : -12_usd);
    EXPECT_EQ(g.TotalBets(1), Currency::FromWhole(c.want));
    Put(1, PlaceId(6), -g.Bet(1, PlaceId(6)));
  }

  // Half the Field lost: the remainder is bet again.
  g.autoplay.HandleLosingBets(2) = 3;
  g.FieldPayoff(1, 10) = Currency::FromWhole(-1);
  g.FieldPayoff(3, 10) = 2_usd;
  Put(2, kField, 10);
  Decide(6, 1, 0);
  EXPECT_EQ(Won(2), -5_usd);
  EXPECT_EQ(g.Bet(2, kField), 5_usd);
}

TEST_F(Settle, BetsThatMayNotStayComeDownWhateverTheRule) {
  g.rules.AllowPutBets = false;
  g.autoplay.HandleWinningBets(1) = 4;  // Press Double
  g.autoplay.HandleWinningBets(2) = 5;  // Parlay
  g.autoplay.HandleLosingBets(3) = 2;   // Same Bet
  PointOn(8);
  Put({{1, ComeId(8), 10}, {1, DontComeId(9), 10}, {1, DontComeId(9) + 6, 30}});
  Put({{3, kPassLine, 10}, {3, kPassLineOdds, 25}});
  Decide(4, 4, 8);
  EXPECT_TRUE(g.Bet(1, ComeId(8)).IsZero());  // a Come point without Put bets
  EXPECT_EQ(Won(1), 10_usd);
  EXPECT_EQ(g.Bet(3, kPassLine), 10_usd);         // the line stays under Same Bet...
  EXPECT_TRUE(g.Bet(3, kPassLineOdds).IsZero());  // ...its odds never do

  Put(2, kCome, 10);
  Decide(3, 4, 8);
  EXPECT_EQ(Won(1), 40_usd);
  EXPECT_TRUE(g.Bet(2, kCome).IsZero());  // a Come bet on the seven
  EXPECT_EQ(Won(2), 10_usd);
  // The Don't Come point and its odds came down; the line is lost, and up again.
  for (int p = 1; p <= 3; ++p) EXPECT_EQ(g.TotalBets(p), g.Bet(p, kPassLine)) << p;
}

TEST_F(Settle, OddsThatWerentWorkingComeBack) {
  // Player 1: the flat's remainder of a whole loss is nothing, so the odds
  // come back. Player 2: Same Bet keeps the flat, and the odds stay under the
  // same rule. Player 3: rule 4 presses the flat by a unit and doubles the
  // idle odds, up to their maximum of twice the flat.
  g.autoplay.HandleLosingBets(1) = 3;
  g.autoplay.HandleLosingBets(2) = 2;
  g.autoplay.HandleLosingBets(3) = 4;
  Put({{1, ComeId(5), 10}, {1, ComeId(5) + 6, 20}, {2, ComeId(6), 10}, {2, ComeId(6) + 6, 25}});
  Put({{3, ComeId(9), 10}, {3, ComeId(9) + 6, 20}});
  Decide(4, 3, 0);
  EXPECT_EQ(Won(1), -10_usd);
  EXPECT_TRUE(g.TotalBets(1).IsZero());
  EXPECT_EQ(g.Bet(2, ComeId(6) + 6), 25_usd);
  EXPECT_EQ(Won(2), -10_usd);
  EXPECT_EQ(g.Bet(3, ComeId(9)), 15_usd);
  EXPECT_EQ(g.Bet(3, ComeId(9) + 6), 30_usd);
  EXPECT_EQ(g.StatAction(18 + 3, ComeId(9) + 6, 1), 0_usd);  // no decision
}

TEST_F(Settle, ParlayOfALayAndManualRulesInHyperDrive) {
  // A parlay adds the win before vig.
  g.autoplay.HandleWinningBets(1) = 5;
  // Manual winners and losers come down in Hyper-Drive, without a dialog.
  g.autoplay.HandleWinningBets(2) = 0;
  g.autoplay.HandleLosingBets(3) = 0;
  PointOn(6);
  Put({{1, LayId(4), 40}, {2, PlaceId(8), 12}, {3, PlaceId(8), 12}, {3, kPassLine, 10}});
  Decide(4, 4, 6);
  EXPECT_TRUE(g.Bet(2, PlaceId(8)).IsZero());
  Decide(3, 4, 6);
  EXPECT_EQ(Won(1), 19_usd);
  EXPECT_EQ(g.Bet(1, LayId(4)), 60_usd);
  EXPECT_TRUE(g.TotalBets(3).IsZero());
  EXPECT_TRUE(platform.settleDialogs.empty());
}

TEST_F(Settle, ActionNoticesTellWhatBecameOfTheBet) {
  g.HyperDrive = false;
  g.rules.NoticeFlags = kNoticeCharges;
  g.autoplay.HandleWinningBets(1) = 4;
  PointOn(4);
  Put(1, PlaceId(6), 12);
  Decide(3, 3, 4);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text, "P1,\r\rPlace 6 bet increased by: $12");

  g.autoplay.HandleLosingBets(1) = 6;
  g.autoplay.AdjustOperator(1, kAdjustAutoLoseSame) = 1;
  g.autoplay.AdjustAmount(1, kAdjustAutoLoseSame) = 1_usd;
  g.autoplay.AdjustUnits(1, kAdjustAutoLoseSame) = 2_usd;  // units of 6 in checks of 1
  Decide(3, 4, 4);
  EXPECT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(g.Bet(1, PlaceId(6)), 18_usd);
}

TEST_F(Settle, ComeAndDontComeTravelToTheirNumber) {
  g.autoplay.AutoDownPlaceBets(1) = true;
  PointOn(6);
  Put({{1, kCome, 10}, {1, PlaceId(5), 10}, {1, BuyId(5), 20}});
  Put({{2, kDontCome, 15}, {2, PlaceId(5), 10}});
  Decide(1, 4, 6);
  EXPECT_TRUE(g.Bet(1, kCome).IsZero());
  EXPECT_EQ(g.BetContract(1, ComeId(5)), 10_usd);
  EXPECT_TRUE(g.Bet(1, PlaceId(5)).IsZero());
  EXPECT_TRUE(g.Bet(1, BuyId(5)).IsZero());
  EXPECT_EQ(g.Bet(2, DontComeId(5)), 15_usd);
  EXPECT_EQ(g.Bet(2, PlaceId(5)), 10_usd);  // only a Come bet takes Place bets down
  EXPECT_EQ(Won(1), 43_usd);  // the Place and Buy 5 won before they came down
  EXPECT_EQ(Won(2), 14_usd);

  // Its next decision counts the flat it travelled with.
  Decide(3, 2, 6);
  EXPECT_EQ(Won(1), 53_usd);
  EXPECT_EQ(Won(2), 13_usd);
  EXPECT_EQ(g.ComeTravelTotal(18 + 1, BoxIndex(5)), 10_usd);
}

TEST_F(Settle, PointActionsTakeThePlaceBetOnThePointDown) {
  g.rules.BetRequirement = 0;
  g.autoplay.AutoDownPlaceBets(1) = g.autoplay.AutoDownPlaceBets(2) = true;
  Put({{1, kPassLine, 10}, {1, PlaceId(8), 12}, {2, kDontPass, 10}, {2, PlaceId(8), 12}});
  ASSERT_TRUE(QueueDice(g, 5, 3));
  RollDice(g);
  EXPECT_TRUE(g.Bet(1, PlaceId(8)).IsZero());
  EXPECT_EQ(g.Bet(2, PlaceId(8)), 12_usd);  // a Don't player keeps it
}

TEST_F(Settle, PressUnitIsTheLargestProperUnitThatDividesTheBet) {
  for (auto [bet, unit] : {std::pair{30L, 6L}, {60L, 30L}}) {
    g.Bet(1, PlaceId(6)) = Currency::FromWhole(bet);
    FigurePressUnit(g, 1, PlaceId(6));
    EXPECT_EQ(g.autoplay.PressUnit, Currency::FromWhole(unit)) << bet;
  }
  Put(2, PlaceId(5), 3);  // below every unit: the smallest
  FigurePressUnit(g, 2, PlaceId(5));
  EXPECT_EQ(g.autoplay.PressUnit, 5_usd);
}

// The dialogs: outside Hyper-Drive, every player settling by hand.
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
  EXPECT_EQ(d.buttons[0].caption, "&Take Bet and Winnings");
  EXPECT_EQ(d.buttons[2].caption, "Press &1 Unit - Add $6 to Bet");
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
  Put({{1, ComeId(5), 10}, {1, ComeId(5) + 6, 20}});
  // The lost flat and the returned odds both stay up (Same Bet).
  platform.queuedSettleButtons = {1, 1};
  Decide(3, 4, 0);
  const SettleDialog& d = Shown(1);
  EXPECT_EQ(d.caption, "P1");
  EXPECT_EQ(LinesOf(d), (Lines{{"Come 5 Odds bet:", "$20"}, {"wasn't working!", ""}}));
  EXPECT_EQ(Won(1), -10_usd);  // the odds cost nothing
}

TEST_F(SettleDialogs, BetsThatMustComeDownOfferOnlyTheFirstButton) {
  PointOn(6);
  g.autoplay.LastWinButton(1) = 4;
  Put({{1, DontComeId(9), 10}, {1, DontComeId(9) + 6, 15}});
  Decide(3, 4, 6);
  ASSERT_EQ(platform.settleDialogs.size(), 2u);
  for (const SettleDialog& d : platform.settleDialogs) {
    EXPECT_EQ(EnabledMask(d), 0x01);
    EXPECT_FALSE(d.rows[0].enabled);
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
  for (int i = 0; i < 7; ++i, StepSettleUnits(g, 0)) units.push_back(d.rows[0].unitsCaption);
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
  EXPECT_EQ(g.autoplay.AdjustUnits(1, 6), 2_usd);

  // Rebuilt, the rows show what was kept, the units counted in checks.
  BuildSettleDialog(g, 1);
  EXPECT_EQ(d.rows[0].operatorCaption, "x");
  EXPECT_EQ(d.rows[0].unitsCaption, "$30 Units");

  // A loser's press keeps its rows apart from the winner's.
  g.NetPayoff = -30_usd;
  d.rows[0].amount1 = 9_usd;
  PressSettleButton(g, 1, 1);
  EXPECT_EQ(g.autoplay.AdjustAmount(1, 7), 9_usd);
  EXPECT_EQ(g.autoplay.AdjustAmount(1, 5), 3_usd);
  EXPECT_EQ(g.autoplay.LastLoseButton(1), 1);
}

}  // namespace
