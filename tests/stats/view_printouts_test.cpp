// The views' figures and printouts on a few fixed rolls whose figures are
// worked out by hand: bet results, trends, summary, hands and comps; then the
// printouts: the headings, the selection lines, the rows as the views show
// them, the loss colour and the refusal of a bet results printout without a
// bet. (Each bet's expected value itself is the advantage tests'.)
#include "stats/view_printouts.h"

#include <gtest/gtest.h>

#include "../engine/table_fixture.h"
#include "analysis/advantage.h"
#include "stats/bet_results.h"
#include "stats/summary.h"
#include "stats/summary_printouts.h"

namespace {

using namespace bet;

class Views : public TableFixture {
 protected:
  Views() {
    g.rules.BetRequirement = kNoBetRequired;
    g.Shooter = g.HandShooter = 1;
    platform.fixedDate = CalendarDate{2026, 11, 23};
    g.rules.PrintColors = {9, 12, 13};  // blue gains, red losses
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

  // The text of every cell of a line, joined by '|'.
  static std::string LineText(const PrintLine& line) {
    std::string s;
    for (const PrintCell& c : line.cells) s += (s.empty() ? "" : "|") + c.text;
    return s;
  }
  static bool Has(const PrintDocument& doc, const std::string& text) {
    for (const PrintLine& line : doc.lines)
      if (LineText(line) == text) return true;
    return false;
  }
  // The first line whose first cell is `label`, or none.
  static const PrintLine* Row(const PrintDocument& doc, const std::string& label) {
    for (const PrintLine& line : doc.lines)
      if (!line.cells.empty() && line.cells[0].text == label) return &line;
    return nullptr;
  }
  using Texts = std::vector<std::string>;
  static Texts Cells(const PrintDocument& doc, const std::string& label) {
    Texts cells;
    if (const PrintLine* line = Row(doc, label))
      for (const PrintCell& c : line->cells) cells.push_back(c.text);
    return cells;
  }
};

TEST_F(Views, ThreeLineDecisionsAndTheirPrintout) {
  ThreeComeOuts();
  const BetResultsFigures f = FigureBetResults(g, 2, kP1, {kPassLine});
  auto cell = [&](int row, int col) {
    return f.rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)].text;
  };
  EXPECT_EQ(f.selectionLabel, "1 Player selected");
  EXPECT_EQ(f.betsLabel, "1 bet selected");
  EXPECT_EQ(f.onTable[0].text, "1");
  EXPECT_EQ(f.onTable[1].text, "10");
  // Wagers: 3 decisions of 10; wins 2 of 10, losses 1 of 10.
  const char* wagers[] = {"", "3", "30", "10", "10", "10", "10", "1", "10", "120", "1,200"};
  for (int row = 1; row <= 10; ++row)
    EXPECT_EQ(cell(row, kWagersCol), wagers[row]) << ResultRowLabel(row);
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

  // The printout: refused without a bet, then the bets named and the nets coloured.
  g.views.BetResultsPlayers = kP1;
  g.views.BetResultsFrame = 2;
  g.views.BetResultsSelection = std::string(85, '0');
  ASSERT_FALSE(PrintBetResults(g));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Print Bet Results");
  EXPECT_EQ(platform.messages[0].text, "You need to select one or more bets to print.");
  EXPECT_TRUE(platform.printed.empty());
  g.views.BetResultsSelection[kPassLine - 1] = 'S';
  ASSERT_TRUE(PrintBetResults(g));
  const PrintDocument& one = platform.printed[0];
  EXPECT_EQ(LineText(one.lines[0]), "Ravelton Bet Results");
  EXPECT_TRUE(Has(one, " Data for the following bet:"));
  EXPECT_TRUE(Has(one, std::string(BetName(kPassLine))));
  const PrintLine* count = Row(one, "Total #");
  ASSERT_NE(count, nullptr);
  EXPECT_EQ(LineText(*count), "Total #|3|2|1|1|33.3333");
  EXPECT_EQ(count->cells[4].colour, 9);
  EXPECT_EQ(count->cells[1].colour, kPrintBlack);
  const PrintLine* e = Row(one, std::string(ResultRowLabel(11)));  // no wagers cell
  ASSERT_NE(e, nullptr);
  EXPECT_EQ(LineText(*e), std::string(ResultRowLabel(11)) + "|-0.4242|-1.414");
  EXPECT_EQ(e->cells[1].colour, 12);
  g.views.BetResultsSelection[kField - 1] = 'S';
  ASSERT_TRUE(PrintBetResults(g));
  EXPECT_TRUE(Has(platform.printed[1], " Data for the following 2 bets:"));
  EXPECT_TRUE(Has(platform.printed[1],
                  std::string(BetName(kPassLine)) + ", " + std::string(BetName(kField))));
}

TEST_F(Views, LastRollCountsOnlyWhenTheSelectionsRollsMatch) {
  ThreeComeOuts();
  // Two players: 6 rolls at the table between them, decisions on roll 3.
  const BetResultsFigures both = FigureBetResults(g, 2, kP1 | kP2, {kPassLine});
  EXPECT_EQ(both.rows[7][kWagersCol].text, "0");
  EXPECT_EQ(both.rows[8][kWagersCol].text, "0");
  EXPECT_EQ(both.rows[1][kWagersCol].text, "3");
  // Nobody or no bet selected: every figure 0, the percents "0".
  for (const BetResultsFigures& f :
       {FigureBetResults(g, 2, 0, {kPassLine}), FigureBetResults(g, 2, kP1, {})}) {
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

TEST_F(Views, ComePointSplitsItsActionBetweenTheComeAndItsOwnEdge) {
  const int i = FrameIndex(1, 2);
  g.StatAction(i, ComeId(4), 1) = 2_usd;
  g.StatAction(i, ComeId(4), 2) = 30_usd;
  g.ComeTravelTotal(i, 0) = 10_usd;
  // -0.014141 x 10 -> -0.1414; -0.333333 x 20 -> -6.6667.
  EXPECT_EQ(FigureBetResults(g, 2, kP1, {ComeId(4)}).expected, Usd(-6.8081));
  // Low $ is the smallest amount among bets that have a decision.
  g.StatAction(i, kField, 4) = 5_usd;
  g.StatAction(i, PlaceId(6), 4) = 12_usd;
  EXPECT_EQ(FigureBetResults(g, 2, kP1, {kField, PlaceId(6), kHard4}).rows[4][kWagersCol].text,
            "5");
  // Ids outside the bets have no expected value.
  EXPECT_EQ(ExpectedValuePerDecision(g, 0), 0);
  EXPECT_EQ(ExpectedValuePerDecision(g, 93), 0);
}

TEST_F(Views, TrendsListEveryBetWithItsStreak) {
  ThreeComeOuts();
  const std::vector<BetTrendRow> rows = FigureBetTrends(g, 1);
  ASSERT_EQ(rows.size(), 85u);
  EXPECT_EQ(rows[kPassLine - 1].name, "Pass Line");
  EXPECT_EQ(rows[kPassLine - 1].trend.text, " 1");  // the last decision, a win, starts a run
  EXPECT_EQ(rows[kField - 1].trend.text, " ");      // no streak: an empty number field
  EXPECT_TRUE(FigureBetTrends(g, 7).empty());
}

TEST_F(Views, SummaryBankrollsDecisionsCompsAndTheirPrintout) {
  ThreeComeOuts();
  const SummaryFigures f = FigureSummary(g, 2, kP1);
  EXPECT_EQ(f.simHours.text, "0.025");
  EXPECT_EQ(f.bankrollCaption, "Current bankroll");
  EXPECT_EQ(f.bankrollCurrent.text, "1,010");
  EXPECT_EQ(f.bankrollHigh.text, "1,010");
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

  // The printout: the decisions in their columns, the net in the gain colour.
  g.views.SummaryFrame = 2;
  g.views.SummaryPlayers = kP1;
  ASSERT_TRUE(PrintSummary(g));
  ASSERT_EQ(platform.printed.size(), 1u);
  const PrintDocument& doc = platform.printed[0];
  EXPECT_EQ(doc.lines[0].cells[0].text, "Ravelton Session Summary");
  EXPECT_EQ(doc.lines[1].cells[0].text, "23-Nov-26");
  EXPECT_EQ(doc.lines[2].cells[0].text, "Game file:  untitled");
  EXPECT_EQ(Cells(doc, "Total rolls"), (Texts{"Total rolls", "3"}));
  EXPECT_EQ(Cells(doc, "Total #"), (Texts{"Total #", "3", "2", "1", "1", "33.3333"}));
  const PrintLine* amounts = Row(doc, "Total $");
  ASSERT_NE(amounts, nullptr);
  EXPECT_EQ(LineText(*amounts), "Total $|30|20|10|10|33.3333");
  EXPECT_EQ(amounts->cells[4].colour, 9);
  EXPECT_EQ(amounts->cells[1].colour, kPrintBlack);
}

TEST_F(Views, CompsAddUpOverPlayersAndFollowTheirBase) {
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

TEST_F(Views, HandsByNumberAndTheirPrintout) {
  for (int p = 1; p <= 3; ++p) g.Bet(p, kPassLine) = {};
  // 7 passes, 2 misses, point 4 made, point 6 missed by a seven-out.
  const int dice[][2] = {{3, 4}, {1, 1}, {2, 2}, {1, 3}, {3, 3}, {3, 4}};
  for (auto& d : dice) Roll(d[0], d[1]);
  const HandsFigures f = FigureHands(g, 2, 0, false);
  EXPECT_TRUE(f.cells[7][2].none);  // a 7 can't miss
  EXPECT_TRUE(f.cells[2][1].none);  // a 2 can't pass
  EXPECT_EQ(f.avgComeouts.text, "4");
  // The last hand shows its rolls; an empty frame shows "0" everywhere in percent.
  EXPECT_EQ(FigureHands(g, 1, 0, false).handTotal.text, "6");
  EXPECT_EQ(FigureHands(g, 0, 0, true).cells[13][0].text, "0");

  g.views.HandsFrame = 2;
  g.views.HandsPlayers = 0;
  g.views.HandsShowPercent = false;
  ASSERT_TRUE(PrintHands(g));
  const PrintDocument& doc = platform.printed[0];
  EXPECT_EQ(doc.lines[0].cells[0].text, "Ravelton Hands");
  const std::vector<Texts> rows = {
      {"7", "1", "1", ""},  // the cells that cannot be print empty
      {"2", "1", "", "1"},           {"4", "1", "1", "0"},
      {"6", "1", "0", "1"},          {"Total", "4", "2", "2"},
      {"Naturals", "2", "1", "1"},   {"Points", "2", "1", "1"},
      {"Total hands", "1"},          {"Total rolls", "6"},
      {"Most rolls in a hand", "6"}, {"Most c/o rolls in a hand", "4"},
  };
  for (const Texts& row : rows) EXPECT_EQ(Cells(doc, row[0]), row);
  g.views.HandsShowPercent = true;
  ASSERT_TRUE(PrintHands(g));
  EXPECT_EQ(Cells(platform.printed[1], "Total"), (Texts{"Total", "100.00", "50.00", "50.00"}));
  EXPECT_EQ(Cells(platform.printed[1], "7")[1], "25.00");
}

TEST_F(Views, RollTotalsPrintTheRowsOfTheView) {
  Roll(3, 4);
  Roll(1, 1);
  Roll(5, 6);
  g.views.RollTotalsPlayers = 0;
  ASSERT_TRUE(PrintRollTotals(g));
  ASSERT_EQ(platform.printed.size(), 1u);
  const PrintDocument& doc = platform.printed[0];
  EXPECT_EQ(LineText(doc.lines[0]), "Ravelton Roll Totals");
  EXPECT_EQ(LineText(doc.lines[1]), "23-Nov-26");
  EXPECT_EQ(LineText(doc.lines[2]), "Game file:  untitled");
  EXPECT_TRUE(Has(doc, "Data for all players"));
  // One 7 of three rolls, two rolls ago: 33.33 %; the 2 one roll ago; no 4 yet.
  EXPECT_TRUE(Has(doc, "Any 7|16.67|33.33|1|2"));
  EXPECT_TRUE(Has(doc, "Number 2 (1.1)|2.78|33.33|1|1"));
  EXPECT_TRUE(Has(doc, "Any 4|8.33|0|0|3"));
  EXPECT_TRUE(Has(doc, "Total rolls|3"));

  g.views.RollTotalsPlayers = 1 << 1;
  ASSERT_TRUE(PrintRollTotals(g));
  EXPECT_TRUE(Has(platform.printed[1], "Data for the following players:"));
  EXPECT_TRUE(Has(platform.printed[1], g.PlayerName[1]));
}

TEST_F(Views, BetTrendsListOnlyTheBetsWithAStreak) {
  g.BetTrend(2, kField, 1) = -3;
  g.BetTrend(2, kPassLine, 1) = 2;
  g.views.BetTrendsPlayer = 2;
  ASSERT_TRUE(PrintBetTrends(g));
  const PrintDocument& doc = platform.printed[0];
  EXPECT_EQ(LineText(doc.lines[0]), "Ravelton Bet Trends");
  EXPECT_TRUE(Has(doc, "Player:  " + g.PlayerName[2]));
  int listed = 0;
  for (const PrintLine& line : doc.lines)
    if (line.cells.size() == 2) ++listed;
  EXPECT_EQ(listed, 2);
  const PrintLine* field = Row(doc, std::string(BetName(kField)));
  ASSERT_NE(field, nullptr);
  EXPECT_EQ(field->cells[1].text, "-3");
  EXPECT_EQ(field->cells[1].colour, 12);
}

TEST_F(Views, RollFrequenciesPrintTheGapsOfTheCategory) {
  Put(1, kPassLine, 10);
  for (auto [d1, d2] : {std::pair{3, 4}, {1, 1}, {1, 3}, {2, 2}}) Roll(d1, d2);  // a 4 made
  g.views.RollFreqCategory = 4;
  ASSERT_TRUE(PrintRollFreqs(g));
  const PrintDocument& doc = platform.printed[0];
  EXPECT_EQ(doc.lines[0].cells[0].text, "Ravelton Roll Totals");
  EXPECT_EQ(Cells(doc, "Total session rolls:"), (Texts{"Total session rolls:", "4"}));
  EXPECT_EQ(Cells(doc, "# rolls since last rolled:"), (Texts{"# rolls since last rolled:", "0"}));
  EXPECT_EQ(Cells(doc, "Actual % rolled:"), (Texts{"Actual % rolled:", "50.00"}));
  // The 4 came on the third roll, then on the very next one.
  bool gapsFound = false;
  for (const PrintLine& line : doc.lines)
    if (line.cells.size() >= 4 && line.cells[0].text == "1" && line.cells[2].text == "3")
      gapsFound = line.cells[1].text == "1" && line.cells[3].text == "1";
  EXPECT_TRUE(gapsFound);
}

}  // namespace
