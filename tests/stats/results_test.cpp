// Bet results, summary, hands and comps on a few fixed rolls whose figures
// are worked out by hand.
#include <gtest/gtest.h>

#include "../engine/table_fixture.h"
#include "stats/bet_results.h"
#include "stats/summary.h"

namespace {

using namespace bet;

class Results : public TableFixture {
 protected:
  Results() {
    g.rules.BetRequirement = kNoBetRequired;
    g.Shooter = g.HandShooter = 1;
  }
  void Roll(int d1, int d2) {
    ASSERT_TRUE(QueueDice(g, d1, d2));
    RollDice(g);
  }
  // P1 bets 10 on the Pass Line: a natural 7 wins, craps 2 loses, 11 wins.
  void ThreeComeOuts() {
    Put(1, kPassLine, 10);
    Roll(3, 4);
    Roll(1, 1);
    Roll(5, 6);
  }
  static constexpr std::int32_t kP1 = 1 << 1, kP2 = 1 << 2;
};

TEST_F(Results, ThreeLineDecisions) {
  ThreeComeOuts();
  const BetResultsFigures f = FigureBetResults(g, 2, kP1, {kPassLine});
  auto cell = [&](int row, int col) { return f.rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)].text; };
  EXPECT_EQ(f.selectionLabel, "1 Player selected");
  EXPECT_EQ(f.betsLabel, "1 bet selected");
  EXPECT_EQ(f.onTable[0].text, "1");
  EXPECT_EQ(f.onTable[1].text, "10");
  // Wagers: 3 decisions of 10; wins 2 of 10, losses 1 of 10.
  const char* wagers[] = {"", "3", "30", "10", "10", "10", "10", "1", "10", "120", "1,200"};
  for (int row = 1; row <= 10; ++row) EXPECT_EQ(cell(row, kWagersCol), wagers[row]) << ResultRowLabel(row);
  EXPECT_EQ(cell(1, kWinsCol), "2");
  EXPECT_EQ(cell(2, kLossesCol), "10");
  EXPECT_EQ(cell(1, kNetCol), "1");
  EXPECT_EQ(cell(2, kNetCol), "10");
  EXPECT_EQ(cell(1, kNetPctCol), "33.3333");
  // E = -0.014141 x 30 = -0.42423, taken to Currency; per cent of the 30 wagered.
  EXPECT_EQ(cell(11, kNetCol), "-0.4242");
  EXPECT_EQ(cell(11, kNetPctCol), "-1.414");
  EXPECT_TRUE(f.rows[11][kNetCol].negative);
  EXPECT_TRUE(f.rows[11][kWagersCol].none);
}

TEST_F(Results, LastRollCountsOnlyWhenTheSelectionsRollsMatch) {
  ThreeComeOuts();
  // Two players: 6 rolls at the table between them, decisions on roll 3.
  const BetResultsFigures both = FigureBetResults(g, 2, kP1 | kP2, {kPassLine});
  EXPECT_EQ(both.rows[7][kWagersCol].text, "0");
  EXPECT_EQ(both.rows[8][kWagersCol].text, "0");
  EXPECT_EQ(both.rows[1][kWagersCol].text, "3");
  // Nobody or no bet selected: every figure 0, the percents "0".
  for (const BetResultsFigures& f : {FigureBetResults(g, 2, 0, {kPassLine}), FigureBetResults(g, 2, kP1, {})}) {
    EXPECT_EQ(f.rows[2][kWagersCol].text, "0");
    EXPECT_EQ(f.rows[1][kNetPctCol].text, "0");
    EXPECT_EQ(f.rows[11][kNetPctCol].text, "0");
  }
  g.rules.RollsPerHour = {};
  EXPECT_EQ(FigureBetResults(g, 2, kP1, {kPassLine}).rows[9][kWagersCol].text, "0");
  EXPECT_EQ(BetsWithDecisions(g, 2, kP1), std::vector<int>{kPassLine});
  EXPECT_EQ(SelectedBetsLabel(85), "All bets selected");
  EXPECT_EQ(SelectedBetsLabel(4), "4 bets selected");
}

TEST_F(Results, ComePointSplitsItsActionBetweenTheComeAndItsOwnEdge) {
  const int i = FrameIndex(1, 2);
  g.StatAction(i, ComeId(4), 1) = 2_usd;
  g.StatAction(i, ComeId(4), 2) = 30_usd;
  g.ComeTravelTotal(i, 0) = 10_usd;
  // -0.014141 x 10 -> -0.1414; -0.333333 x 20 -> -6.6667.
  EXPECT_EQ(FigureBetResults(g, 2, kP1, {ComeId(4)}).expected, Usd(-6.8081));
  // Low $ is the smallest amount among bets that have a decision.
  g.StatAction(i, kField, 4) = 5_usd;
  g.StatAction(i, PlaceId(6), 4) = 12_usd;
  EXPECT_EQ(FigureBetResults(g, 2, kP1, {kField, PlaceId(6), kHard4}).rows[4][kWagersCol].text, "5");
}

TEST_F(Results, TrendsListEveryBetWithItsStreak) {
  ThreeComeOuts();
  const std::vector<BetTrendRow> rows = FigureBetTrends(g, 1);
  ASSERT_EQ(rows.size(), 85u);
  EXPECT_EQ(rows[kPassLine - 1].name, "Pass Line");
  EXPECT_EQ(rows[kPassLine - 1].trend.text, " 1");  // the last decision, a win, starts a run
  EXPECT_EQ(rows[kField - 1].trend.text, " ");     // no streak: an empty number field
  EXPECT_TRUE(FigureBetTrends(g, 7).empty());
}

TEST_F(Results, SummaryBankrollsDecisionsAndComps) {
  ThreeComeOuts();
  const SummaryFigures f = FigureSummary(g, 2, kP1);
  EXPECT_EQ(f.totalRolls.text, "3");
  EXPECT_EQ(f.simHours.text, "0.025");
  EXPECT_EQ(f.bankrollCaption, "Current bankroll");
  EXPECT_EQ(f.bankrollCurrent.text, "1,010");
  EXPECT_EQ(f.bankrollHigh.text, "1,010");
  EXPECT_EQ(f.decisions[0][0].text, "3");
  EXPECT_EQ(f.decisions[1][3].text, "10");
  EXPECT_EQ(f.decisions[0][4].text, "33.3333");
  // Comps on the Pass Line: vig 30 x 0.014141, at 30 per cent.
  EXPECT_EQ(f.compLabels[4], "* Theoretical vig $");
  EXPECT_EQ(f.comps[0].text, "30");
  EXPECT_EQ(f.comps[1].text, "3");
  EXPECT_EQ(f.comps[3].text, "0.25");  // 3 rolls / 120 an hour x 30 / 3
  EXPECT_DOUBLE_EQ(f.comps[4].value, 30 * 0.014141);
  EXPECT_EQ(f.comps[6].text, "0.13");
  // Two players: the sum, and the largest and smallest present bankrolls.
  const SummaryFigures two = FigureSummary(g, 2, kP1 | kP2);
  EXPECT_EQ(two.bankrollCaption, "Sum bankrolls");
  EXPECT_EQ(two.bankrollCurrent.text, "2,010");
  EXPECT_EQ(two.bankrollHigh.text, "1,010");
  EXPECT_EQ(two.bankrollLow.text, "1,000");
  EXPECT_EQ(two.bankrollAverage.text, "1,005");
  // Nobody selected: the bankroll block stays empty.
  EXPECT_EQ(FigureSummary(g, 2, 0).bankrollCurrent.text, "0");
  EXPECT_EQ(FigureSummary(g, 3, 0).bankrollCaption, "Ending bankroll");
}

TEST_F(Results, CompsAddUpOverPlayersAndFollowTheirBase) {
  const int i1 = FrameIndex(1, 4), i2 = FrameIndex(2, 4);
  g.StatAction(i1, kField, 1) = 4_usd;
  g.StatAction(i1, kField, 2) = 40_usd;
  g.StatAction(i2, kPassLineOdds, 2) = 100_usd;  // odds are not rated
  g.RollsAtTable(i1) = g.RollsAtTable(i2) = 60;
  CompFigures c;
  FigureComps(g, c, i1);
  FigureComps(g, c, i2);
  EXPECT_EQ(c.action, 40_usd);
  EXPECT_EQ(c.decisions, 4);
  EXPECT_EQ(c.rolls, 120);
  EXPECT_NEAR(c.vig, 40 * 0.055556, 1e-9);
  EXPECT_EQ(c.actionTime, 10_usd);  // one hour x 40 / 4
  g.rules.CompBase = kCompTotalAction;
  FigureComps(g, c = {}, i1);
  EXPECT_DOUBLE_EQ(c.value, 40 * 0.3);
  g.dice.ProbabilityDiceOn = true;
  FigureComps(g, c = {}, i1);
  EXPECT_TRUE(g.dice.ProbabilityDiceOn);  // left as it was found
}

TEST_F(Results, HandsByNumber) {
  for (int p = 1; p <= 3; ++p) g.Bet(p, kPassLine) = {};
  // 7 passes, 2 misses, point 4 made, point 6 missed by a seven-out.
  const int dice[][2] = {{3, 4}, {1, 1}, {2, 2}, {1, 3}, {3, 3}, {3, 4}};
  for (auto& d : dice) Roll(d[0], d[1]);
  const HandsFigures f = FigureHands(g, 2, 0, false);
  auto cell = [&](int row, int k) { return f.cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(k)].text; };
  EXPECT_EQ(cell(7, 0), "1");
  EXPECT_EQ(cell(7, 1), "1");
  EXPECT_TRUE(f.cells[7][2].none);  // a 7 can't miss
  EXPECT_TRUE(f.cells[2][1].none);  // a 2 can't pass
  EXPECT_EQ(cell(2, 2), "1");
  EXPECT_EQ(cell(4, 1), "1");
  EXPECT_EQ(cell(6, 2), "1");
  EXPECT_EQ(cell(13, 0), "4");
  EXPECT_EQ(cell(14, 1), "1");
  EXPECT_EQ(cell(15, 2), "1");
  EXPECT_EQ(f.handTotal.text, "1");
  EXPECT_EQ(f.totalRolls.text, "6");
  EXPECT_EQ(f.mostRolls.text, "6");
  EXPECT_EQ(f.avgComeouts.text, "4");
  EXPECT_EQ(HandRowLabel(14), "Naturals");
  const HandsFigures pct = FigureHands(g, 2, 0, true);
  EXPECT_EQ(pct.cells[13][0].text, "100.00");
  EXPECT_EQ(pct.cells[7][0].text, "25.00");
  EXPECT_EQ(pct.cells[13][1].text, "50.00");
  // The last hand shows its rolls; an empty frame shows "0" everywhere in percent.
  EXPECT_EQ(FigureHands(g, 1, 0, false).handTotal.text, "6");
  EXPECT_EQ(FigureHands(g, 0, 0, true).cells[13][0].text, "0");
}

}  // namespace
