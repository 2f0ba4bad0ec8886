// The roll views on fixed dice: roll totals and frequencies (counts,
// percents, gaps and the graph's scale worked out by hand); the bankroll
// graph (the arithmetic both graphs share, then what the desktop view and the
// report each do with it, histories laid straight into the tables); and the
// number texts of every pattern the views use.
#include "stats/roll_totals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <set>
#include <tuple>

#include "../engine/roll_fixture.h"
#include "core/money.h"
#include "engine/players.h"
#include "dice/probability.h"
#include "stats/bankroll_graph.h"
#include "stats/graph_view.h"
#include "stats/number_format.h"

namespace {

const RollTotalsRow& Row(const RollTotalsFigures& f, int c) {
  return *std::find_if(f.rows.begin(), f.rows.end(),
                       [c](const RollTotalsRow& r) { return r.category == c; });
}

class RollTotals : public RollFixture {
 protected:
  // Roll 1: 1-1; rolls 2..199: 3-4; roll 200: 6-6; roll 201: 1-1.
  void RollGapRun() {
    Roll(1, 1);
    for (int n = 2; n <= 199; ++n) Roll(3, 4);
    Roll(6, 6);
    Roll(1, 1);
  }
};

TEST_F(RollTotals, EachPairCountsTheCategoriesTheRollTalliesAndHard4NotTheEasyPair) {
  for (int d1 = 1; d1 <= 6; ++d1)
    for (int d2 = 1; d2 <= 6; ++d2) {
      g.RollTally.Fill(0);
      g.Die1 = d1;
      g.Die2 = d2;
      TallyRollEvents(g);
      std::set<int> tallied, listed;
      for (int c = 1; c <= kLastEvent; ++c)
        if (g.RollTally(kTableSession, c) != 0) tallied.insert(c);
      std::array<int, 12> cats{};
      const int n = RollCategories(d1, d2, cats);
      listed.insert(cats.begin(), cats.begin() + n);
      EXPECT_EQ(tallied, listed) << d1 << "-" << d2;
    }

  // Hard 4 counts its number and groups but not the easy pair.
  g.RollTally.Fill(0);
  Roll(2, 2);
  std::array<int, 12> cats{};
  const int n = RollCategories(2, 2, cats);
  EXPECT_EQ(std::set<int>(cats.begin(), cats.begin() + n),
            (std::set<int>{4, 13, 21, 17, 19, 67, 71, 79, 85}));
  const RollTotalsFigures f = FigureRollTotals(g, 0, 2, 0, false);
  EXPECT_EQ(Row(f, 4).count.text, "1");
  EXPECT_EQ(Row(f, 4).actualPct.text, "100.00");
  EXPECT_EQ(Row(FigureRollTotals(g, 1, 2, 0, false), 26).count.text, "0");
}

TEST_F(RollTotals, ProbablePercentsGapsOfExactly200PercentsAndGraphScale) {
  const std::pair<int, double> expected[] = {
      {2, 2.78},   {3, 5.56},  {7, 16.67},  {13, 2.78},  {26, 5.56},  {22, 2.78},  {17, 66.67},
      {21, 44.44}, {18, 50.0}, {19, 38.89}, {73, 27.78}, {65, 33.33}, {78, 16.67}, {89, 16.67}};
  for (auto [c, pct] : expected) EXPECT_DOUBLE_EQ(ProbablePercent(c, nullptr), pct) << c;
  SkewedDice dice;
  for (int i = 0; i < 36; ++i)
    dice.pair[static_cast<std::size_t>(i)] = 1000 + i;  // 1.000% + i/1000
  dice.total[5] = 20000;                                // total 7
  dice.face1[0] = 25000;                                // die 1 shows 1
  EXPECT_DOUBLE_EQ(ProbablePercent(7, &dice), 20.0);
  EXPECT_DOUBLE_EQ(ProbablePercent(78, &dice), 25.0);
  // Number 2 is pair 1-1 (index 0); Numbers 2,12 add pair 6-6 (index 35).
  EXPECT_DOUBLE_EQ(ProbablePercent(2, &dice), 1.0);
  EXPECT_DOUBLE_EQ(ProbablePercent(69, &dice), 1.0 + 1.035);

  // Gaps of exactly 200 and first occurrences.
  RollGapRun();
  const RollFreqFigures two = FigureRollFreqs(g, 2, false);
  ASSERT_EQ(two.gaps.size(), 2u);
  EXPECT_EQ(two.gaps[0].gap, 1);  // the first showing: one roll into the session
  EXPECT_EQ(two.gaps[1].gapText, "200+");
  // The average (1 + 200) / 2, the session's rolls, the actual percent, the caption.
  EXPECT_EQ(two.average.text + " " + two.sessionRolls.text + " " + two.actualPct.text + " " +
                two.probableCaption,
            "100.50 201 1.00 True probable %:");

  // Numbers 2,12: gaps 1, 199 (roll 200) and 1; a gap of 199 stays a gap of 199.
  const RollFreqFigures ends = FigureRollFreqs(g, 69, false);
  ASSERT_EQ(ends.gaps.size(), 2u);
  EXPECT_EQ(ends.gaps[0].count, 2);
  EXPECT_EQ(ends.gaps[1].gap, 199);
  EXPECT_EQ(ends.average.text, "67.00");

  // Twelve first showed at roll 200: its first gap is long, the session's 200 rolls.
  EXPECT_EQ(FigureRollFreqs(g, 12, false).gaps[0].gapText, "200+");
  // Sevens at rolls 2..199: the first a gap of 2, then 197 gaps of 1.
  const RollFreqFigures seven = FigureRollFreqs(g, 7, false);
  EXPECT_EQ(seven.rollsSince.text, "2");
  ASSERT_EQ(seven.gaps.size(), 2u);
  EXPECT_EQ(seven.gaps[0].count, 197);
  EXPECT_EQ(seven.gaps[1].gap, 2);

  // The totals: percents, the graph's scale and the rolls since, by frame.
  const RollTotalsFigures session = FigureRollTotals(g, 0, 2, 0, false);
  EXPECT_EQ(session.totalRolls.text, "201");
  EXPECT_EQ(Row(session, 7).actualPct.text, "98.51");  // 198 of 201
  EXPECT_EQ(Row(session, 7).rollsSince.text, "2");
  EXPECT_DOUBLE_EQ(session.graphTop, 100);
  EXPECT_DOUBLE_EQ(Row(session, 7).actualBar, 98.507462686567166 * 223 / 100);
  // The current hand started at roll 200 (after the last seven): no gaps column there.
  const RollTotalsFigures hand = FigureRollTotals(g, 0, 0, 0, false);
  EXPECT_EQ(Row(hand, 7).rollsSince.text, "---");
}

TEST_F(RollTotals, ASelectionWithNoRollsShowsZeroAndTheProbableScale) {
  Seat(1, "Ann");
  RollGapRun();
  const RollTotalsFigures f = FigureRollTotals(g, 0, 2, 1 << 1, false);
  EXPECT_EQ(f.selectionLabel, "1 Player selected");
  EXPECT_EQ(f.totalRolls.text, "0");
  for (const RollTotalsRow& r : f.rows) EXPECT_EQ(r.actualPct.text, "0");
  EXPECT_DOUBLE_EQ(f.graphTop, 20);  // 16.67 rounded up to a multiple of 5
  EXPECT_EQ(f.axisMarks, (std::array<double, 4>{5, 10, 15, 20}));
  // Each player's count fits a Long; the selection's sum does not.
  Seat(2, "Bob");
  for (int p = 1; p <= 2; ++p)
    g.RollTally(FrameIndex(p, kFrameCurrentSession), kEventRolls) = 2'000'000'000;
  EXPECT_EQ(FigureRollTotals(g, 0, 2, (1 << 1) | (1 << 2), false).totalRolls.text, "4,000,000,000");
}

TEST_F(RollTotals, SelectionLabels) {
  EXPECT_EQ(SelectedPlayersLabel(g, 0), "No players present");
  Seat(1, "Ann");
  Seat(2, "Bob");
  EXPECT_EQ(SelectedPlayersLabel(g, 0), "No players selected");
  EXPECT_EQ(SelectedPlayersLabel(g, (1 << 1) | (1 << 2)), "Both players selected");
  Seat(5, "Cy");
  EXPECT_EQ(SelectedPlayersLabel(g, (1 << 1) | (1 << 2)), "2 players selected");
  EXPECT_EQ(SelectedPlayersLabel(g, (1 << 1) | (1 << 2) | (1 << 5)), "All players selected");
}

TEST_F(RollTotals, ADicePassWithinAHandIsExplained) {
  Seat(1, "Ann");
  Seat(2, "Bob");
  g.Shooter = g.HandShooter = 1;
  Roll(2, 2);  // Ann's point of 4
  PassDice(g, false);
  ASSERT_EQ(g.Shooter, 2);
  EXPECT_EQ(FigureRollTotals(g, 0, 0, 0, false).explanation,
            "The dice were passed during the current hand.\r\rAlthough Bob is presently shooting "
            "the dice, the current hand is being credited to Ann who started the hand.");
  g.HandShooter = 0;
  EXPECT_NE(HandCreditExplanation(g, 0).find("credited to another player who started the hand "
                                             "but is no longer at the table."),
            std::string::npos);
  EXPECT_EQ(HandCreditExplanation(g, 2), "");
}

class Graph : public RollFixture {
 protected:
  Graph() {
    Seat(1, "Ann");
    g.graph.GraphPlayer = 1;
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
    g.RollTally(kTableSession, kEventRolls) = 525 + columns;
  }
};

TEST_F(Graph, ScaleClimbsTheLadderAndRowsCountDownFromTheTop) {
  // Scale, direction, next scale.
  const std::tuple<double, int, double> cases[] = {
      {1, 1, 2},     {2, 1, 4},          {4, 1, 10},         {0.4, 1, 1},        {0.1, -1, 0.04},
      {0.02, -1, 0.02}, {40000, 1, 100000}, {100000, 1, 100000}, {100000, -1, 40000}};
  for (auto [from, dir, to] : cases) {
    const Currency scale = Currency::FromRaw(static_cast<std::int64_t>(from * 10000));
    EXPECT_EQ(NextGraphScale(scale, dir).ToDouble(), to) << from << " " << dir;
  }
  Currency s = Currency::FromRaw(200);
  int rungs = 0;
  for (Currency up = NextGraphScale(s, 1); up != s; up = NextGraphScale(s, 1)) {
    s = up;
    ++rungs;
  }
  EXPECT_EQ(s, 100'000_usd);
  EXPECT_EQ(rungs, 20);

  // Rows count down from the top; half rows round away.
  g.roll.GraphTop = 1200_usd;
  g.roll.GraphScale = 2_usd;
  // 1199 and 1201 are half a row from the top.
  for (auto [amount, row] : {std::pair{1200_usd, 0}, {1199_usd, 1}, {1201_usd, -1}})
    EXPECT_EQ(GraphRow(g, amount), row) << amount.ToDouble();
  g.roll.GraphScale = Currency{};
  EXPECT_EQ(GraphRow(g, 600_usd), 0);
}

TEST_F(Graph, MovingAverageWrapsIntoThePageBeforeAndTrendColumns) {
  TwoPages(3);
  // Columns 3, 2, 1, then 1050 .. 1044: (3 + 2 + 1 + 1525 + ... + 1519) / 10.
  EXPECT_EQ(MovingBankrollAverage(g, 1, 3, 10), 1066_usd);
  EXPECT_EQ(MovingBankrollAverage(g, 1, 3, 526), MovingBankrollAverage(g, 1, 3, 525));
  EXPECT_EQ(MovingBankrollAverage(g, 1, 0, 2),
            Currency::FromRaw(1524'5000));  // column 0 begins at 1050
  // In the first page a span beyond the rolls averages what exists.
  g.RollTally(kTableSession, kEventRolls) = 3;
  EXPECT_EQ(MovingBankrollAverage(g, 1, 3, 10), 2_usd);
  EXPECT_EQ(MovingBankrollAverage(g, 1, 0, 10), Currency{});
  // Span 0: the sum over the rolls and the beginning bankroll.
  g.BankrollSum(1) = 400_usd;
  g.RollsAtTable(FrameIndex(1, kFrameCurrentSession)) = 3;
  EXPECT_EQ(MovingBankrollAverage(g, 1, 3, 0), 100_usd);

  // Trend columns, their label and the view's range.
  History({1010, 990, 1030});
  g.RollsAtTable(FrameIndex(1, kFrameCurrentSession)) = 3;
  g.BankrollSum(1) = Currency::FromWhole(1000 + 1010 + 990 + 1030);
  // All rolls: s / n walking back from the newest column.
  const std::vector<Currency> all = GraphTrendColumns(g, 1, 0);
  ASSERT_EQ(all.size(), 4u);
  EXPECT_EQ(all[3], Currency::FromRaw(1343'3333));
  EXPECT_EQ(all[2], 1500_usd);  // (1000 + 1010 + 990) / 2
  // A player with no rolls yet divides by nothing.
  g.RollsAtTable(FrameIndex(1, kFrameCurrentSession)) = 0;
  EXPECT_EQ(GraphTrendColumns(g, 1, 0)[3], g.BankrollSum(1));
  EXPECT_EQ(GraphTrendColumns(g, 1, 2)[3], 1010_usd);  // (990 + 1030) / 2
  EXPECT_EQ(GraphTrendLabel(0), "All rolls average");
  EXPECT_EQ(GraphTrendLabel(2), "2 roll moving average");
  // The desktop view puts its trend and range into the game.
  g.Bet(1, bet::kBankroll) = 1030_usd;
  g.graph.GraphAverageSpan = 2;
  RebuildGraphTrend(g);
  EXPECT_EQ(g.GraphTrend(1, 3), 1010_usd);
  EXPECT_EQ(g.GraphTrend(1, 2), 1000_usd);
  EXPECT_EQ(g.GraphHigh(1), 1030_usd);
  EXPECT_EQ(g.GraphLow(1), 990_usd);
}

// The desktop view's scale and top follow the adjust type.
TEST_F(Graph, AutoShiftExpansionAndSnapBack) {
  g.roll.GraphScale = 1_usd;
  g.roll.GraphTop = 150_usd;
  g.Bet(1, bet::kBankroll) = 1000_usd;
  g.graph.GraphAdjustType = 0;
  FigureGraphScale(g, false);
  EXPECT_EQ(g.roll.GraphTop, 150_usd);
  g.graph.GraphAdjustType = 1;
  FigureGraphScale(g, false);
  EXPECT_EQ(g.roll.GraphTop, 200_usd);
  FigureGraphScale(g, true);  // recentred: 50 x (Int(1000 / 50) + 3)
  EXPECT_EQ(g.roll.GraphTop, 1150_usd);

  // Expansion climbs until the range fits; snap-back returns.
  g.graph.GraphAdjustType = 2;
  g.roll.GraphScale = 1_usd;
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
TEST_F(Graph, ReportFiguresBesideTheGraphAndTheViewsNumberPatterns) {
  g.Bet(1, bet::kBankroll) = g.BankrollHigh(1) = 1010_usd;
  g.BankrollLow(1) = Currency::FromRaw(9'905'000);
  g.InvestedBankroll(1) = 1000_usd;
  g.GraphBankroll(1, 0) = 1_usd;
  g.GraphBankroll(1, 1) = 1010_usd;
  g.GraphRollCount = 1;
  g.RollTally(kTableSession, kEventRolls) = 1;
  g.roll.GraphTop = 1150_usd;
  BankrollGraphFigures f = FigureBankrollGraph(g, 1);
  EXPECT_EQ(f.high.text, "1,010.00");  // one figure not whole: all with cents
  EXPECT_EQ(f.low.text, "990.50");
  EXPECT_EQ(f.scaleLabels[6].text, "850");
  EXPECT_EQ(f.simHours.text, "0.0083");  // 1 roll at 120 an hour
  ASSERT_EQ(f.columns.size(), 1u);
  EXPECT_EQ(f.columns[0].row, 140);
  EXPECT_EQ(f.columns[0].lineRow, 150);
  EXPECT_FALSE(f.columns[0].bandBelow);
  // Reference lines: both beyond the roll count leave the bankroll line blank.
  g.graph.GraphShowRefLines = true;
  g.graph.RefLine1 = 0;
  g.graph.RefLine2 = 7;
  f = FigureBankrollGraph(g, 1);
  EXPECT_EQ(f.refRolls, "Rolls:  7");
  EXPECT_EQ(f.refBankroll, "");
  g.graph.RefLine2 = 0;
  g.graph.RefLine2OnAverage = true;  // bankroll against the beginning bankroll
  EXPECT_EQ(FigureBankrollGraph(g, 1).refBankroll, "Bankroll:  10");
  for (auto [hours, text] : {std::pair{0.00001, "< 0.0001"}, {1234.56, "1,234.6"}, {3.0, "3"}})
    EXPECT_EQ(FormatSimHours(hours), text) << hours;

  // The number patterns of the views.
  const std::tuple<double, const char*, const char*> cases[] = {
      {1234567, "#,#;-#,#;0", "1,234,567"},
      {0, "#,#;-#,#;0", "0"},
      {0.4, "#,#;-#,#;0", "0"},  // rounds to nothing: the zero section
      {16.6667, "#,#.00;-#,#;0", "16.67"},
      {0.5, "#,#.00;-#,#;0", ".50"},
      {-3.7, "#,#.00;-#,#;0", "-4"},
      {2.5, "#,0.####;-#,0.####;0", "2.5"},
      {-0.42426, "#,0.####;-#,0.####;0", "-0.4243"},
      {100.5, "Standard", "100.50"},
      {0, "Standard", "0.00"},
      {12.25, "#,##0.0###;-#,##0.0###;0", "12.25"},
      {12, "#,##0.0###;-#,##0.0###;0", "12.0"},
      {-0.01414, "#,##0.0# %;-#,##0.0# %;0 %", "-1.41 %"},
      {33.3333, "0.0#;-0.0#;0", "33.33"},
      {0, " #,#;-#,#", " "},
      {7, " #,#;-#,#", " 7"},
      {0.00001, "#,0.0###;-#,#;0", "0"},
      {std::numeric_limits<double>::quiet_NaN(), "#,#;-#,#;0", "0"},
  };
  for (auto [x, pattern, text] : cases)
    EXPECT_EQ(FormatNumber(x, pattern), text) << x << " in " << pattern;
  // Whole values take the first pattern.
  EXPECT_EQ(FormatWholeOr(30, "#,#;-#,#;0", "#,0.####;-#,0.####;0"), "30");
  EXPECT_EQ(FormatWholeOr(33.33333, "#,#;-#,#;0", "#,0.####;-#,0.####;0"), "33.3333");
}

}  // namespace

// With probability dice on, "vs. skewed" reads the game's probability table:
// die 1 showing 6 a quarter of the time makes 12 a 1-in-24 roll.
TEST_F(RollTotals, SkewedProbabilitiesComeFromTheProbabilityTable) {
  constexpr int kSixOfDie1 = kLastCellRow;
  SetProbabilityCell(g, kSixOfDie1, kFirstDieColumn, 25'000, true);
  EXPECT_FALSE(FigureRollTotals(g, 0, 2, 0, true).skewed);  // dice still fair
  EXPECT_NEAR(Row(FigureRollTotals(g, 0, 2, 0, true), 12).probablePct.value, 2.78, 0.005);

  g.dice.ProbabilityDiceOn = true;
  const RollTotalsFigures vsSkewed = FigureRollTotals(g, 0, 2, 0, true);
  EXPECT_TRUE(vsSkewed.skewed);
  EXPECT_NEAR(Row(vsSkewed, 12).probablePct.value, 100.0 / 24, 0.001);
  EXPECT_NEAR(Row(FigureRollTotals(g, 0, 2, 0, false), 12).probablePct.value, 2.78, 0.005);
  const RollFreqFigures twelve = FigureRollFreqs(g, 12, true);
  EXPECT_EQ(twelve.probableCaption, "Skewed probable %:");
  EXPECT_NEAR(twelve.probablePct.value, 100.0 / 24, 0.001);
  EXPECT_NEAR(FigureRollFreqs(g, 83, true).probablePct.value, 25.0, 0.001);  // die 1 shows 6
}
