// What stands on a bet after its decision: each winning and losing rule,
// the bets that must come down, odds that were off, the notices of the
// actions, and the travel of Come and Don't Come bets.
#include "engine/settle.h"

#include <string>

#include "automation/autoplay.h"
#include "table_fixture.h"

namespace {

using namespace bet;

class Settle : public TableFixture {
 protected:
  // A Place 6 of 12 for player 1, decided by (d1, d2) with the point on 4.
  void PlaceSix(int d1, int d2) {
    PointOn(4);
    Put(1, PlaceId(6), 12);
    Decide(d1, d2, 4);
  }
};

TEST_F(Settle, WinningRules) {
  struct Case {
    int rule, op, units;
    long amount, want;
  };
  const Case cases[] = {
      {1, 0, 0, 0, 0},   {3, 0, 0, 0, 18},  // press one unit of 6
      {4, 0, 0, 0, 24},  {5, 0, 0, 0, 26},  // parlay adds the 14 won
      {6, 2, 0, 3, 36},  {6, 3, 0, 0, 12},  // "/" by 0 leaves it
      {6, 0, 1, 50, 18}, {6, 1, 0, 6, 6},  {6, 3, 0, 2, 6},
      {7, 0, 0, 30, 30}, {7, 0, 2, 3, 18},  // three proper units of 6
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "rule " << c.rule << " op " << c.op << " n " << c.amount);
    g.autoplay.HandleWinningBets(1) = c.rule;
    const int k = c.rule == 6 ? kAdjustAutoWinSame : kAdjustAutoWinBet;
    g.autoplay.AdjustOperator(1, k) = c.op;
    g.autoplay.AdjustUnits(1, k) = Currency::FromWhole(c.units);
    g.autoplay.AdjustAmount(1, k) = Currency::FromWhole(c.amount);
    const Currency bank = g.Bet(1, 0);
    PlaceSix(3, 3);
    EXPECT_EQ(g.Bet(1, 0) - bank, 14_usd);
    EXPECT_EQ(g.TotalBets(1), Currency::FromWhole(c.want));
    EXPECT_FALSE(g.BetComesDown);
    Put(1, PlaceId(6), -g.Bet(1, PlaceId(6)));
  }
}

TEST_F(Settle, LosingRules) {
  struct Case {
    int rule, op;
    long amount, want;
  };
  const Case cases[] = {
      {1, 0, 0, 0},  {2, 0, 0, 12}, {3, 0, 0, 0},  // nothing remains of a whole loss
      {4, 0, 0, 18}, {5, 0, 0, 24}, {6, 1, 2, 10}, {7, 0, 6, 6},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "rule " << c.rule);
    g.autoplay.HandleLosingBets(1) = c.rule;
    const int k = c.rule == 6 ? kAdjustAutoLoseSame : kAdjustAutoLoseBet;
    g.autoplay.AdjustOperator(1, k) = c.op;
    g.autoplay.AdjustAmount(1, k) = Currency::FromWhole(c.amount);
    const Currency bank = g.Bet(1, 0);
    PlaceSix(3, 4);
    EXPECT_EQ(g.Bet(1, 0) - bank, -12_usd);
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
  Put(1, ComeId(8), 10);
  Put(1, DontComeId(9), 10);
  Put(1, DontComeId(9) + 6, 30);
  Put(3, kPassLine, 10);
  Put(3, kPassLineOdds, 25);
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
  // The flat's remainder of a whole loss is nothing, so the odds come back.
  g.autoplay.HandleLosingBets(1) = 3;
  Put(1, ComeId(5), 10);
  Put(1, ComeId(5) + 6, 20);
  // Same Bet keeps the flat, and the odds stay under the same rule.
  g.autoplay.HandleLosingBets(2) = 2;
  Put(2, ComeId(6), 10);
  Put(2, ComeId(6) + 6, 25);
  // Rule 4 presses the flat by a unit and doubles the idle odds, up to
  // their maximum of twice the flat.
  g.autoplay.HandleLosingBets(3) = 4;
  Put(3, ComeId(9), 10);
  Put(3, ComeId(9) + 6, 20);
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
  Put(1, LayId(4), 40);
  Put(2, PlaceId(8), 12);
  Put(3, PlaceId(8), 12);
  Put(3, kPassLine, 10);
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
  PlaceSix(3, 3);
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
  g.roll.LogOn = true;
  g.roll.LogWins = g.roll.LogLosses = false;
  g.autoplay.AutoDownPlaceBets(1) = true;
  PointOn(6);
  Put(1, kCome, 10);
  Put(1, PlaceId(5), 10);
  Put(1, BuyId(5), 20);
  Put(2, kDontCome, 15);
  Put(2, PlaceId(5), 10);
  Decide(1, 4, 6);
  EXPECT_TRUE(g.Bet(1, kCome).IsZero());
  EXPECT_EQ(g.BetContract(1, ComeId(5)), 10_usd);
  EXPECT_TRUE(g.Bet(1, PlaceId(5)).IsZero());
  EXPECT_TRUE(g.Bet(1, BuyId(5)).IsZero());
  EXPECT_EQ(g.Bet(2, DontComeId(5)), 15_usd);
  EXPECT_EQ(g.Bet(2, PlaceId(5)), 10_usd);  // only a Come bet takes Place bets down
  EXPECT_EQ(
      EventsLogText(g),
      "    P1's Come bet moved to Come 5\n    P2's Don't Come bet moved to Don't Come 5\n");
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
  g.autoplay.AutoDownPlaceBets(1) = true;
  g.autoplay.AutoDownPlaceBets(2) = true;
  Put(1, kPassLine, 10);
  Put(1, PlaceId(8), 12);
  Put(2, kDontPass, 10);
  Put(2, PlaceId(8), 12);
  ASSERT_TRUE(QueueDice(g, 5, 3));
  RollDice(g);
  EXPECT_TRUE(g.Bet(1, PlaceId(8)).IsZero());
  EXPECT_EQ(g.Bet(2, PlaceId(8)), 12_usd);  // a Don't player keeps it
}

}  // namespace
