// The bankroll graph: the arithmetic both graphs share (the ladder, rows,
// the moving average across a page turn, the all-rolls trend), then what
// each graph does with it: the desktop view settles its scale and top, the
// report lays out the figures beside the graph. Histories are laid straight
// into the tables.
#include <gtest/gtest.h>

#include "../engine/roll_fixture.h"
#include "core/money.h"
#include "stats/bankroll_graph.h"
#include "stats/graph_view.h"

namespace {

class Graph : public RollFixture {
 protected:
  Graph() {
    Seat(1, "Ann");
    g.graph.GraphPlayer = g.views.GraphPlayer = 1;
  }
  // Columns 1..n of player 1 hold `values` one after the other.
  void History(std::initializer_list<long> values) {
    int x = 0;
    for (long v : values) g.GraphBankroll(1, ++x) = Currency::FromWhole(v);
    g.GraphRollCount = x;
  }
  // Column x of this page holds x, column 525 + x of the page before 1000 + x.
  void TwoPages(int columns) {
    for (int x = 1; x <= 525; ++x) g.GraphBankroll(1, 525 + x) = Currency::FromWhole(1000 + x);
    for (int x = 1; x <= columns; ++x) g.GraphBankroll(1, x) = Currency::FromWhole(x);
    g.GraphRollCount = columns;
    g.RollTally(18, 0) = 525 + columns;
  }
};

TEST_F(Graph, ScaleClimbsTheLadderAndStaysAtItsEnds) {
  const struct {
    double from;
    int dir;
    double to;
  } cases[] = {{1, 1, 2},          {2, 1, 4},           {4, 1, 10},
               {0.4, 1, 1},        {0.1, -1, 0.04},     {0.02, -1, 0.02},
               {40000, 1, 100000}, {100000, 1, 100000}, {100000, -1, 40000}};
  for (const auto& c : cases) {
    const Currency from = Currency::FromRaw(static_cast<std::int64_t>(c.from * 10000));
    EXPECT_EQ(NextGraphScale(from, c.dir).ToDouble(), c.to) << c.from << " " << c.dir;
  }
  Currency s = Currency::FromRaw(200);
  int rungs = 0;
  for (Currency up = NextGraphScale(s, 1); up != s; up = NextGraphScale(s, 1)) {
    s = up;
    ++rungs;
  }
  EXPECT_EQ(s, 100'000_usd);
  EXPECT_EQ(rungs, 20);
}

TEST_F(Graph, RowsCountDownFromTheTopAndHalfRowsRoundAway) {
  g.roll.GraphTop = 1200_usd;
  g.roll.GraphScale = 2_usd;
  EXPECT_EQ(GraphRow(g, 1200_usd), 0);
  EXPECT_EQ(GraphRow(g, 600_usd), 300);
  EXPECT_EQ(GraphRow(g, 1300_usd), -50);
  EXPECT_EQ(GraphRow(g, 1199_usd), 1);   // 0.5
  EXPECT_EQ(GraphRow(g, 1201_usd), -1);  // -0.5
  EXPECT_EQ(GraphRow(g, 1195_usd), 3);   // 2.5
  g.roll.GraphScale = Currency{};
  EXPECT_EQ(GraphRow(g, 600_usd), 0);
}

TEST_F(Graph, MovingAverageWrapsIntoThePageBefore) {
  TwoPages(3);
  // Columns 3, 2, 1, then 1050 .. 1044: (3 + 2 + 1 + 1525 + ... + 1519) / 10.
  EXPECT_EQ(MovingBankrollAverage(g, 1, 3, 10), 1066_usd);
  EXPECT_EQ(MovingBankrollAverage(g, 1, 3, 526), MovingBankrollAverage(g, 1, 3, 525));
  EXPECT_EQ(MovingBankrollAverage(g, 1, 0, 2),
            Currency::FromRaw(1524'5000));  // column 0 begins at 1050
  // In the first page a span beyond the rolls averages what exists.
  g.RollTally(18, 0) = 3;
  EXPECT_EQ(MovingBankrollAverage(g, 1, 3, 10), 2_usd);
  EXPECT_EQ(MovingBankrollAverage(g, 1, 0, 10), Currency{});
  // Span 0: the sum over the rolls and the beginning bankroll.
  g.BankrollSum(1) = 400_usd;
  g.RollsAtTable(19) = 3;
  EXPECT_EQ(MovingBankrollAverage(g, 1, 3, 0), 100_usd);
}

TEST_F(Graph, TrendColumnsAndTheirLabel) {
  History({1010, 990, 1030});
  g.RollsAtTable(19) = 3;
  g.BankrollSum(1) = Currency::FromWhole(1000 + 1010 + 990 + 1030);
  // All rolls: s / n walking back from the newest column.
  const std::vector<Currency> all = GraphTrendColumns(g, 1, 0);
  ASSERT_EQ(all.size(), 4u);
  EXPECT_EQ(all[3], Currency::FromRaw(1343'3333));
  EXPECT_EQ(all[2], 1500_usd);  // (1000 + 1010 + 990) / 2
  EXPECT_EQ(all[1], 2010_usd);  // (1000 + 1010) / 1
  // A player with no rolls yet divides by nothing.
  g.RollsAtTable(19) = 0;
  EXPECT_EQ(GraphTrendColumns(g, 1, 0)[3], g.BankrollSum(1));
  EXPECT_EQ(GraphTrendColumns(g, 1, 2)[3], 1010_usd);  // (990 + 1030) / 2
  EXPECT_EQ(GraphTrendLabel(0), "All rolls average");
  EXPECT_EQ(GraphTrendLabel(2), "2 roll moving average");
}

// The desktop view: its trend goes into the game, and its scale and top
// follow the adjust type.
TEST_F(Graph, ViewRebuildsTheTrendAndTheRange) {
  History({1010, 990, 1030});
  g.Bet(1, 0) = 1030_usd;
  g.graph.GraphAverageSpan = 2;
  RebuildGraphTrend(g);
  EXPECT_EQ(g.GraphTrend(1, 3), 1010_usd);
  EXPECT_EQ(g.GraphTrend(1, 2), 1000_usd);
  EXPECT_EQ(g.GraphHigh(1), 1030_usd);
  EXPECT_EQ(g.GraphLow(1), 990_usd);
}

TEST_F(Graph, AutoShiftMovesOneBlockAtATimeAndManualNever) {
  g.roll.GraphScale = 1_usd;
  g.roll.GraphTop = 150_usd;
  g.Bet(1, 0) = 1000_usd;
  g.graph.GraphAdjustType = 0;
  FigureGraphScale(g, false);
  EXPECT_EQ(g.roll.GraphTop, 150_usd);
  g.graph.GraphAdjustType = 1;
  FigureGraphScale(g, false);
  EXPECT_EQ(g.roll.GraphTop, 200_usd);
  FigureGraphScale(g, true);  // recentred: 50 x (Int(1000 / 50) + 3)
  EXPECT_EQ(g.roll.GraphTop, 1150_usd);
}

TEST_F(Graph, ExpansionClimbsUntilTheRangeFitsAndSnapBackReturns) {
  g.graph.GraphAdjustType = 2;
  g.roll.GraphScale = 1_usd;
  g.Bet(1, 0) = 1000_usd;
  History({1000, 1600, 700});
  FigureGraphRange(g, 1);
  FigureGraphScale(g, false);
  EXPECT_EQ(g.roll.GraphScale, 4_usd);  // a range of 900 needs 4 a row for 250 rows
  // Placed above the high (200 x (Int(1600 / 200) + 3) = 2200), then one
  // block down because the low lies below the bottom row.
  EXPECT_EQ(g.roll.GraphTop, 2000_usd);
  // A range of 250 rows keeps its scale; 251 climbs one rung.
  g.GraphHigh(1) = 1250_usd;
  g.GraphLow(1) = 1000_usd;
  g.roll.GraphScale = 1_usd;
  FigureGraphScale(g, false);
  EXPECT_EQ(g.roll.GraphScale, 1_usd);
  g.GraphLow(1) = 999_usd;
  FigureGraphScale(g, false);
  EXPECT_EQ(g.roll.GraphScale, 2_usd);
  EXPECT_EQ(g.roll.GraphTop, 1500_usd);  // 100 x (Int(1250 / 100) + 3)
  // Snap-back returns to the chosen scale on an empty page.
  g.graph.GraphAdjustType = 3;
  g.roll.GraphBaseScale = 1_usd;
  g.GraphHigh(1) = g.GraphLow(1) = 1000_usd;
  g.GraphRollCount = 0;
  FigureGraphScale(g, false);
  EXPECT_EQ(g.roll.GraphScale, 1_usd);
}

// The report: the figures beside the graph, from the views' settings.
TEST_F(Graph, ReportFiguresBesideTheGraph) {
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
