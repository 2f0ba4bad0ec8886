// Roll totals and frequencies on fixed dice: counts, percents, gaps and the
// graph's scale worked out by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "../engine/roll_fixture.h"
#include "engine/players.h"
#include "dice/probability.h"
#include "stats/roll_totals.h"

namespace {

const RollTotalsRow& Row(const RollTotalsFigures& f, int c) {
  return *std::find_if(f.rows.begin(), f.rows.end(), [c](const RollTotalsRow& r) { return r.category == c; });
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

TEST_F(RollTotals, EachPairCountsTheCategoriesTheRollTallies) {
  for (int d1 = 1; d1 <= 6; ++d1)
    for (int d2 = 1; d2 <= 6; ++d2) {
      g.RollTally.Fill(0);
      g.Die1 = d1;
      g.Die2 = d2;
      TallyRollEvents(g);
      std::set<int> tallied, listed;
      for (int c = 1; c <= kLastEvent; ++c)
        if (g.RollTally(18, c) != 0) tallied.insert(c);
      std::array<int, 12> cats{};
      const int n = RollCategories(d1, d2, cats);
      listed.insert(cats.begin(), cats.begin() + n);
      EXPECT_EQ(tallied, listed) << d1 << "-" << d2;
    }
}

TEST_F(RollTotals, Hard4CountsItsNumberAndGroupsButNotTheEasyPair) {
  Roll(2, 2);
  std::array<int, 12> cats{};
  const int n = RollCategories(2, 2, cats);
  EXPECT_EQ(std::set<int>(cats.begin(), cats.begin() + n), (std::set<int>{4, 13, 21, 17, 19, 67, 71, 79, 85}));
  const RollTotalsFigures f = FigureRollTotals(g, 0, 2, 0, false);
  EXPECT_EQ(Row(f, 4).count.text, "1");
  EXPECT_EQ(Row(f, 4).actualPct.text, "100.00");
  EXPECT_EQ(Row(FigureRollTotals(g, 1, 2, 0, false), 26).count.text, "0");
}

TEST(ProbablePercent, TruePercentsByPairsAndSkewedBySums) {
  const std::pair<int, double> expected[] = {{2, 2.78},  {3, 5.56},  {7, 16.67}, {13, 2.78},
                                             {26, 5.56}, {22, 2.78}, {17, 66.67}, {21, 44.44},
                                             {18, 50.0}, {19, 38.89}, {73, 27.78}, {65, 33.33},
                                             {78, 16.67}, {89, 16.67}};
  for (auto [c, pct] : expected) EXPECT_DOUBLE_EQ(ProbablePercent(c, nullptr), pct) << c;
  SkewedDice dice;
  for (int i = 0; i < 36; ++i) dice.pair[static_cast<std::size_t>(i)] = 1000 + i;  // 1.000% + i/1000
  dice.total[5] = 20000;   // total 7
  dice.face1[0] = 25000;   // die 1 shows 1
  EXPECT_DOUBLE_EQ(ProbablePercent(7, &dice), 20.0);
  EXPECT_DOUBLE_EQ(ProbablePercent(78, &dice), 25.0);
  // Number 2 is pair 1-1 (index 0); Numbers 2,12 add pair 6-6 (index 35).
  EXPECT_DOUBLE_EQ(ProbablePercent(2, &dice), 1.0);
  EXPECT_DOUBLE_EQ(ProbablePercent(69, &dice), 1.0 + 1.035);
}

TEST_F(RollTotals, GapsOfExactly200AndFirstOccurrences) {
  RollGapRun();
  const RollFreqFigures two = FigureRollFreqs(g, 2, false);
  ASSERT_EQ(two.gaps.size(), 2u);
  EXPECT_EQ(two.gaps[0].gap, 1);  // the first showing: one roll into the session
  EXPECT_EQ(two.gaps[1].gapText, "200+");
  EXPECT_EQ(g.GapTally(2, 0), 200);
  EXPECT_EQ(two.average.text, "100.50");  // (1 + 200) / 2
  EXPECT_EQ(two.sessionRolls.text, "201");
  EXPECT_EQ(two.selectionRolls.text, "2");
  EXPECT_EQ(two.actualPct.text, "1.00");
  EXPECT_EQ(two.probableCaption, "True probable %:");

  // Numbers 2,12: gaps 1, 199 (roll 200) and 1; a gap of 199 stays a gap of 199.
  const RollFreqFigures ends = FigureRollFreqs(g, 69, false);
  ASSERT_EQ(ends.gaps.size(), 2u);
  EXPECT_EQ(ends.gaps[0].count, 2);
  EXPECT_EQ(ends.gaps[1].gap, 199);
  EXPECT_EQ(ends.average.text, "67.00");

  // Twelve first showed at roll 200: its first gap is long, the session's 200 rolls.
  EXPECT_EQ(FigureRollFreqs(g, 12, false).gaps[0].gapText, "200+");
  EXPECT_EQ(FigureRollFreqs(g, 7, false).rollsSince.text, "2");
  // Sevens at rolls 2..199: the first a gap of 2, then 197 gaps of 1.
  const RollFreqFigures seven = FigureRollFreqs(g, 7, false);
  ASSERT_EQ(seven.gaps.size(), 2u);
  EXPECT_EQ(seven.gaps[0].count, 197);
  EXPECT_EQ(seven.gaps[1].gap, 2);
  EXPECT_EQ(seven.gaps[1].count, 1);
}

TEST_F(RollTotals, PercentsGraphScaleAndRollsSinceByFrame) {
  RollGapRun();
  const RollTotalsFigures session = FigureRollTotals(g, 0, 2, 0, false);
  EXPECT_EQ(session.totalRolls.text, "201");
  EXPECT_EQ(Row(session, 7).actualPct.text, "98.51");  // 198 of 201
  EXPECT_EQ(Row(session, 7).rollsSince.text, "2");
  EXPECT_DOUBLE_EQ(session.graphTop, 100);
  EXPECT_DOUBLE_EQ(Row(session, 7).actualBar, 98.507462686567166 * 223 / 100);
  // The current hand started at roll 200 (after the last seven): no gaps column there.
  const RollTotalsFigures hand = FigureRollTotals(g, 0, 0, 0, false);
  EXPECT_TRUE(Row(hand, 7).rollsSince.none);
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
  EXPECT_EQ(FigureRollTotals(g, 3, 2, 1 << 1, false).graphTop, 20);
  // Faces alone: a top below 8 would round to a multiple of 4.
}

TEST_F(RollTotals, SelectionLabels) {
  EXPECT_EQ(SelectedPlayersLabel(g, 0), "No players present");
  Seat(1, "Ann");
  Seat(2, "Bob");
  EXPECT_EQ(SelectedPlayersLabel(g, 0), "No players selected");
  EXPECT_EQ(SelectedPlayersLabel(g, 1 << 2), "1 Player selected");
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
  EXPECT_EQ(HandCreditExplanation(g, 0),
            "The dice were passed during the current hand.\r\rAlthough Bob is presently shooting "
            "the dice, the current hand is being credited to another player who started the hand "
            "but is no longer at the table.");
  EXPECT_EQ(HandCreditExplanation(g, 2), "");
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
