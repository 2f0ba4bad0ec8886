// The bankroll graph's arithmetic: the scale ladder, rows, the moving
// average across a page turn, and the scale and top the view settles on.
#include "stats/graph_view.h"

#include <gtest/gtest.h>

#include <memory>

#include "core/game.h"
#include "core/headless_platform.h"
#include "engine/players.h"
#include "cycle/startup.h"

using namespace graph_view;

namespace {

class GraphTest : public ::testing::Test {
 protected:
  GraphTest() : owner_(MakeGame(platform)), g(*owner_) {
    platform.fixedTime = 0;
    platform.clockStep = 1000;
    StartUp(g, "/tmp/ravelton-tests");
    SeatPlayer(g, 1, "Ann", 1000_usd);
    g.graph.GraphPlayer = 1;
  }
  // Columns 1..n of player 1 hold `values` one after the other.
  void History(std::initializer_list<long> values) {
    int x = 0;
    for (long v : values) g.GraphBankroll(1, ++x) = Currency::FromWhole(v);
    g.GraphRollCount = x;
  }
  HeadlessPlatform platform;
  std::unique_ptr<Game> owner_;
  Game& g;
};

TEST_F(GraphTest, ScaleClimbsTheLadderAndStaysAtItsEnds) {
  const struct {
    double from;
    int dir;
    double to;
  } cases[] = {{1, 1, 2},         {2, 1, 4},          {4, 1, 10},  {0.4, 1, 1},
               {0.1, -1, 0.04},   {0.02, -1, 0.02},   {40000, 1, 100000},
               {100000, 1, 100000}, {100000, -1, 40000}};
  for (const auto& c : cases) {
    const Currency from = Currency::FromRaw(static_cast<std::int64_t>(c.from * 10000));
    EXPECT_EQ(NextGraphScale(from, c.dir).ToDouble(), c.to) << c.from << " " << c.dir;
  }
}

TEST_F(GraphTest, RowsCountDownFromTheTop) {
  g.roll.GraphTop = 1200_usd;
  g.roll.GraphScale = 2_usd;
  EXPECT_EQ(GraphRow(g, 1200_usd), 0);
  EXPECT_EQ(GraphRow(g, 600_usd), 300);
  EXPECT_EQ(GraphRow(g, 1300_usd), -50);
}

TEST_F(GraphTest, MovingAverageReadsBackIntoThePreviousPage) {
  // Second page: columns 1..3 hold 10, 20, 30; the page before ends in 1050, 1049, ...
  g.RollTally(18, 0) = 528;
  History({10, 20, 30});
  for (int k = 526; k <= 1050; ++k) g.GraphBankroll(1, k) = Currency::FromWhole(k);
  // 30 + 20 + 10 + 1050 + 1049 + ... + 1044 over ten values.
  EXPECT_EQ(MovingBankrollAverage(g, 1, 3, 10), Currency::FromRaw((60 + 7329) * 1000));
  // On the first page a span beyond the rolls reads only what exists.
  g.RollTally(18, 0) = 3;
  EXPECT_EQ(MovingBankrollAverage(g, 1, 3, 10), 20_usd);
  EXPECT_EQ(MovingBankrollAverage(g, 1, 3, 600), 20_usd);  // a span above 525 is 525
}

TEST_F(GraphTest, AllRollsAverageWalksBackFromTheNewestColumn) {
  History({1010, 990, 1030});
  g.RollsAtTable(FrameIndex(1, 2)) = 3;
  g.BankrollSum(1) = Currency::FromWhole(1000 + 1010 + 990 + 1030);
  g.graph.GraphAverageSpan = 0;
  RebuildGraphTrend(g);
  EXPECT_EQ(g.GraphTrend(1, 3), Currency::FromRaw(1343'3333));
  EXPECT_EQ(g.GraphTrend(1, 2), 1500_usd);  // (1000 + 1010 + 990) / 2
  EXPECT_EQ(g.GraphTrend(1, 1), 2010_usd);  // (1000 + 1010) / 1
}

TEST_F(GraphTest, AutoShiftMovesOneBlockAtATimeAndManualNever) {
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

TEST_F(GraphTest, ExpansionClimbsUntilTheRangeFits) {
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
  History({1000, 1200});  // a range of 250 rows or less keeps its scale
  FigureGraphRange(g, 1);
  g.roll.GraphScale = 1_usd;
  FigureGraphScale(g, false);
  EXPECT_EQ(g.roll.GraphScale, 1_usd);
}

}  // namespace
