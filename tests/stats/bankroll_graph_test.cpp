// The bankroll graph's data: the moving average across pages, the scale
// ladder, the redraw's placing of the top and scale, and the figures beside
// the graph, on histories laid straight into the tables.
#include <gtest/gtest.h>

#include "../engine/roll_fixture.h"
#include "stats/bankroll_graph.h"

namespace {

class Graph : public RollFixture {
 protected:
  Graph() {
    Seat(1, "Ann");
    g.views.GraphPlayer = 1;
  }
  // Column x of this page holds x, column 525 + x of the page before 1000 + x.
  void TwoPages(int columns) {
    for (int x = 1; x <= 525; ++x) g.GraphBankroll(1, 525 + x) = Currency::FromWhole(1000 + x);
    for (int x = 1; x <= columns; ++x) g.GraphBankroll(1, x) = Currency::FromWhole(x);
    g.GraphRollCount = columns;
    g.RollTally(18, 0) = 525 + columns;
  }
};

TEST_F(Graph, MovingAverageWrapsIntoThePageBefore) {
  TwoPages(3);
  // Columns 3, 2, 1, then 1050 .. 1044: (3 + 2 + 1 + 1525 + ... + 1519) / 10.
  EXPECT_EQ(MovingBankrollAverage(g, 1, 3, 10), 1066_usd);
  EXPECT_EQ(MovingBankrollAverage(g, 1, 3, 526), MovingBankrollAverage(g, 1, 3, 525));
  // In the first page a span beyond the rolls averages what exists.
  g.RollTally(18, 0) = 3;
  EXPECT_EQ(MovingBankrollAverage(g, 1, 3, 10), 2_usd);
  EXPECT_EQ(MovingBankrollAverage(g, 1, 0, 10), Currency{});
  // Span 0: the sum over the rolls and the beginning bankroll.
  g.BankrollSum(1) = 400_usd;
  g.RollsAtTable(19) = 3;
  EXPECT_EQ(MovingBankrollAverage(g, 1, 3, 0), 100_usd);
}

TEST_F(Graph, AllRollsTrendAveragesUpToEachColumn) {
  // Began with 100, then 110, 90, 120: sums 210, 300, 420.
  const long bank[] = {110, 90, 120};
  for (int x = 1; x <= 3; ++x) g.GraphBankroll(1, x) = Currency::FromWhole(bank[x - 1]);
  g.GraphRollCount = 3;
  g.BankrollSum(1) = 420_usd;
  g.RollsAtTable(19) = 3;
  const std::vector<Currency> trend = GraphTrendColumns(g, 1, 0);
  EXPECT_EQ(trend[3], 105_usd);
  EXPECT_EQ(trend[2], 100_usd);
  EXPECT_EQ(trend[1], 105_usd);
  // A player who joined after column 1 runs out of rolls: the early columns stay 0.
  g.RollsAtTable(19) = 1;
  g.BankrollSum(1) = 230_usd;
  EXPECT_EQ(GraphTrendColumns(g, 1, 0)[1], Currency{});
  EXPECT_EQ(RebuildGraphTrend(g), "All rolls average");
  g.views.GraphAverageSpan = 2;
  EXPECT_EQ(RebuildGraphTrend(g), "2 roll moving average");
}

TEST_F(Graph, TheScaleLadder) {
  Currency s = Currency::FromRaw(200);
  int rungs = 0;
  while (LargerGraphScale(s) != s) {
    s = LargerGraphScale(s);
    ++rungs;
  }
  EXPECT_EQ(s, 100'000_usd);
  EXPECT_EQ(rungs, 20);
  EXPECT_EQ(LargerGraphScale(4_usd), 10_usd);
  EXPECT_EQ(SmallerGraphScale(1_usd), Currency::FromRaw(4000));
  EXPECT_EQ(SmallerGraphScale(Currency::FromRaw(200)), Currency::FromRaw(200));
  EXPECT_EQ(SmallerGraphScale(100'000_usd), 40'000_usd);
}

TEST_F(Graph, PlacingTheTop) {
  g.Bet(1, 0) = 1000_usd;
  DrawBankrollGraph(g, true);  // 50 x (Int(1000 / 50) + 3)
  EXPECT_EQ(g.roll.GraphTop, 1150_usd);
  EXPECT_EQ(GraphRow(g, 1000_usd), 150);
  // Manual: the line may leave the picture.
  g.Bet(1, 0) = 2000_usd;
  DrawBankrollGraph(g, false);
  EXPECT_EQ(g.roll.GraphTop, 1150_usd);
  // Auto-shift: one block at a time.
  g.views.GraphAdjustType = 1;
  DrawBankrollGraph(g, false);
  EXPECT_EQ(g.roll.GraphTop, 1200_usd);
  // Expanding: a range of 250 rows stays; 251 climbs to the next rung.
  g.views.GraphAdjustType = 2;
  g.GraphHigh(1) = 1250_usd;
  g.GraphLow(1) = 1000_usd;
  DrawBankrollGraph(g, false);
  EXPECT_EQ(g.roll.GraphScale, 1_usd);
  g.GraphLow(1) = 999_usd;
  DrawBankrollGraph(g, false);
  EXPECT_EQ(g.roll.GraphScale, 2_usd);
  EXPECT_EQ(g.roll.GraphTop, 1500_usd);  // 100 x (Int(1250 / 100) + 3)
  // Snap-back returns to the chosen scale on an empty page.
  g.views.GraphAdjustType = 3;
  g.roll.GraphBaseScale = 1_usd;
  g.GraphHigh(1) = g.GraphLow(1) = 1000_usd;
  DrawBankrollGraph(g, false);
  EXPECT_EQ(g.roll.GraphScale, 1_usd);
}

TEST_F(Graph, FiguresBesideTheGraph) {
  g.Bet(1, 0) = g.BankrollHigh(1) = 1010_usd;
  g.BankrollLow(1) = Currency::FromRaw(9'905'000);
  g.InvestedBankroll(1) = 1000_usd;
  g.GraphBankroll(1, 0) = 1_usd;
  g.GraphBankroll(1, 1) = 1010_usd;
  g.GraphRollCount = 1;
  g.RollTally(18, 0) = 1;
  g.roll.GraphTop = 1150_usd;
  BankrollGraphFigures f = FigureBankrollGraph(g, 1);
  EXPECT_EQ(f.high.text, "1,010.00");  // one figure not whole: all with cents
  EXPECT_EQ(f.low.text, "990.50");
  EXPECT_EQ(f.scaleLabels[6].text, "850");
  EXPECT_EQ(f.rollsRight.text, "525");
  EXPECT_EQ(f.simHours.text, "0.0083");  // 1 roll at 120 an hour
  ASSERT_EQ(f.columns.size(), 1u);
  EXPECT_EQ(f.columns[0].row, 140);
  EXPECT_EQ(f.columns[0].lineRow, 150);
  EXPECT_FALSE(f.columns[0].bandBelow);
  // Reference lines: both beyond the roll count leave the bankroll line blank.
  g.views.GraphShowRefLines = true;
  g.views.RefLine1 = 0;
  g.views.RefLine2 = 7;
  f = FigureBankrollGraph(g, 1);
  EXPECT_EQ(f.refRolls, "Rolls:  7");
  EXPECT_EQ(f.refBankroll, "");
  g.views.RefLine2 = 0;
  g.views.RefLine2OnAverage = true;  // bankroll against the beginning bankroll
  EXPECT_EQ(FigureBankrollGraph(g, 1).refBankroll, "Bankroll:  10");
  EXPECT_EQ(FormatSimHours(0.00001), "< 0.0001");
  EXPECT_EQ(FormatSimHours(1234.56), "1,234.6");
  EXPECT_EQ(FormatSimHours(3), "3");
}

}  // namespace
