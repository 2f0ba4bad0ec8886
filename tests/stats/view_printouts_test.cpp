// The views' figures and printouts on a few fixed rolls whose figures are
// worked out by hand: bet results, trends, summary, hands and comps; then the
// printouts: the headings, the selection lines, the rows as the views show
// them, the loss colour and the refusal of a bet results printout without a
// bet. (Each bet's expected value itself is the advantage tests'.)
#include "stats/view_printouts.h"

#include <gtest/gtest.h>

#include <tuple>

#include "analysis/advantage.h"
#include "core/money.h"
#include "printout_fixture.h"
#include "stats/bet_results.h"
#include "stats/summary.h"
#include "stats/summary_printouts.h"

namespace {

using namespace bet;

class Views : public PrintoutFixture {
 protected:
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
};

TEST_F(Views, ThreeLineDecisionsTheirPrintoutAndTheSelectionsLastRoll) {
  ThreeComeOuts();
  const BetResultsFigures f = FigureBetResults(g, 2, kP1, {kPassLine});
  auto cell = [&](int row, int col) {
    return f.rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)].text;
  };
  EXPECT_EQ(f.betsLabel, "1 bet selected");
  EXPECT_TRUE(f.onTable[0].text == "1" && f.onTable[1].text == "10");
  // Wagers: 30 in decisions of 10 (high and low 10), the last roll's 1, and
  // per hour; the counts and the expected value are the printout's below.
  const std::tuple<int, int, const char*> cells[] = {
      {2, kWagersCol, "30"},     {4, kWagersCol, "10"}, {7, kWagersCol, "1"},
      {10, kWagersCol, "1,200"}, {2, kLossesCol, "10"}, {2, kNetCol, "10"}};
  for (auto [row, col, text] : cells)
    EXPECT_EQ(cell(row, col), text) << "row " << row << ", column " << col;

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
  // E = -0.014141 x 30 = -0.42423, taken to Currency; per cent of the 30
  // wagered; no wagers cell.
  const PrintLine* e = Row(one, std::string(ResultRowLabel(11)));
  ASSERT_NE(e, nullptr);
  EXPECT_EQ(LineText(*e), std::string(ResultRowLabel(11)) + "|-0.4242|-1.414");
  EXPECT_EQ(e->cells[1].colour, 12);
  g.views.BetResultsSelection[kField - 1] = 'S';
  ASSERT_TRUE(PrintBetResults(g));
  EXPECT_TRUE(Has(platform.printed[1], " Data for the following 2 bets:"));
  EXPECT_TRUE(Has(platform.printed[1],
                  std::string(BetName(kPassLine)) + ", " + std::string(BetName(kField))));

  // Two players: 6 rolls at the table between them, decisions on roll 3.
  const BetResultsFigures both = FigureBetResults(g, 2, kP1 | kP2, {kPassLine});
  EXPECT_EQ(both.rows[7][kWagersCol].text, "0");
  EXPECT_EQ(both.rows[1][kWagersCol].text, "3");
  // Nobody or no bet selected: every figure 0, the percents "0".
  for (const BetResultsFigures& none :
       {FigureBetResults(g, 2, 0, {kPassLine}), FigureBetResults(g, 2, kP1, {})}) {
    EXPECT_EQ(none.rows[2][kWagersCol].text, "0");
    EXPECT_EQ(none.rows[1][kNetPctCol].text, "0");
    EXPECT_EQ(none.rows[11][kNetPctCol].text, "0");
  }
  // Each player's rolls fit a Long; the two players' sum does not.
  g.RollsAtTable(FrameIndex(1, kFrameCurrentSession)) =
      g.RollsAtTable(FrameIndex(2, kFrameCurrentSession)) = 2'000'000'000;
  EXPECT_DOUBLE_EQ(FigureBetResults(g, 2, kP1 | kP2, {kPassLine}).hours,
                   4e9 / g.rules.RollsPerHour.ToDouble());
  g.rules.RollsPerHour = {};
  EXPECT_EQ(FigureBetResults(g, 2, kP1, {kPassLine}).rows[9][kWagersCol].text, "0");
  EXPECT_EQ(BetsWithDecisions(g, 2, kP1), std::vector<int>{kPassLine});
  EXPECT_EQ(SelectedBetsLabel(85), "All bets selected");
}

TEST_F(Views, ComePointsSplitTheirActionAndTotalsAtTheirLimitAddUp) {
  const int i = FrameIndex(1, kFrameCurrentSession);
  g.StatAction(i, ComeId(4), kStatCount) = 2_usd;
  g.StatAction(i, ComeId(4), kStatTotal) = 30_usd;
  g.ComeTravelTotal(i, 0) = 10_usd;
  // -0.014141 x 10 -> -0.1414; -0.333333 x 20 -> -6.6667.
  EXPECT_EQ(FigureBetResults(g, 2, kP1, {ComeId(4)}).expected, Usd(-6.8081));
  // Low $ is the smallest amount among bets that have a decision.
  g.StatAction(i, kField, kStatSmallest) = 5_usd;
  g.StatAction(i, PlaceId(6), kStatSmallest) = 12_usd;
  EXPECT_EQ(FigureBetResults(g, 2, kP1, {kField, PlaceId(6), kHard4}).rows[4][kWagersCol].text,
            "5");
  // At a million to one the expectation of the largest action is beyond an
  // amount: the total of two such bets stands at the bound, not wrapped.
  for (int b : {kTwo, kTwelve}) {
    g.PayoffTbl(1, b) = 1'000'000_usd;
    g.PayoffTbl(3, b) = 1_usd;
    g.StatAction(i, b, kStatTotal) = kMoneyLimit;
  }
  EXPECT_EQ(FigureBetResults(g, 2, kP1, {kTwo, kTwelve}).expected, kCurrencyMax);
  // Ids outside the bets have no expected value.
  EXPECT_EQ(ExpectedValuePerDecision(g, 0), 0);
  EXPECT_EQ(ExpectedValuePerDecision(g, 93), 0);

  // Years of play leave every total of the longer frames near its limit: the
  // views add hundreds of them without wrapping.
  for (int p = 4; p <= 8; ++p) Seat(p, "P" + std::to_string(p));
  const Currency nearLimit = Currency::FromWhole(99'999'999'999'999);
  ASSERT_LE(nearLimit, kStatTotalLimit);
  std::vector<int> every;
  for (int b = 1; b <= kLastRealBet; ++b) every.push_back(b);
  for (int p = 1; p <= 8; ++p)
    for (int b : every) {
      const int k = FrameIndex(p, kFrameAllSessions);
      g.StatAction(k, b, kStatCount) = g.StatWins(k, b, kStatCount) = 1_usd;
      g.StatAction(k, b, kStatTotal) = g.StatWins(k, b, kStatTotal) = nearLimit;
    }
  constexpr std::int32_t kAll = 0x1fe;
  const double sum = 8.0 * kLastRealBet * nearLimit.ToDouble();
  const BetResultsFigures f = FigureBetResults(g, kFrameAllSessions, kAll, every);
  EXPECT_DOUBLE_EQ(f.rows[2][kWagersCol].value, sum);
  EXPECT_DOUBLE_EQ(f.rows[2][kNetCol].value, sum);
  EXPECT_EQ(f.rows[2][kNetPctCol].text, "100");
  EXPECT_DOUBLE_EQ(f.rows[5][kWagersCol].value, nearLimit.ToDouble());  // the average
  // A player's sum over every bet stands at a total's limit.
  const SummaryFigures summary = FigureSummary(g, kFrameAllSessions, kAll);
  EXPECT_DOUBLE_EQ(summary.decisions[1][0].value, 8 * kStatTotalLimit.ToDouble());
  EXPECT_DOUBLE_EQ(summary.decisions[1][3].value, 8 * kStatTotalLimit.ToDouble());
}

TEST_F(Views, TrendsAndSummaryOfThreeComeOutsAndTheirPrintouts) {
  ThreeComeOuts();
  const std::vector<BetTrendRow> rows = FigureBetTrends(g, 1);
  ASSERT_EQ(rows.size(), 85u);
  EXPECT_EQ(rows[kPassLine - 1].name, "Pass Line");
  EXPECT_EQ(rows[kPassLine - 1].trend.text, " 1");  // the last decision, a win, starts a run
  EXPECT_EQ(rows[kField - 1].trend.text, " ");      // no streak: an empty number field
  EXPECT_TRUE(FigureBetTrends(g, 7).empty());

  // The printout lists only the bets with a streak, losing ones in red.
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

  const SummaryFigures f = FigureSummary(g, 2, kP1);
  EXPECT_EQ(f.simHours.text, "0.025");
  EXPECT_EQ(f.bankrollCaption, "Current bankroll");
  EXPECT_EQ(f.bankrollCurrent.text, "1,010");
  EXPECT_EQ(f.bankrollHigh.text, "1,010");
  // Comps on the Pass Line (their sums are the next test's): 3 rolls / 120
  // an hour x 30 / 3, and the value at 30 per cent of the vig 30 x 0.014141.
  EXPECT_EQ(f.comps[3].text, "0.25");
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
  ASSERT_EQ(platform.printed.size(), 2u);
  const PrintDocument& sheet = platform.printed[1];
  EXPECT_EQ(sheet.lines[0].cells[0].text, "Ravelton Session Summary");
  EXPECT_TRUE(Has(sheet, "Total rolls|3"));
  const PrintLine* amounts = Row(sheet, "Total $");
  ASSERT_NE(amounts, nullptr);
  EXPECT_EQ(LineText(*amounts), "Total $|30|20|10|10|33.3333");
  EXPECT_EQ(amounts->cells[4].colour, 9);
  EXPECT_EQ(amounts->cells[1].colour, kPrintBlack);
}

TEST_F(Views, CompsAddUpOverPlayersAndHandsByNumberPrint) {
  const int i1 = FrameIndex(1, kFrameAllSessions), i2 = FrameIndex(2, kFrameAllSessions);
  g.StatAction(i1, kField, kStatCount) = 4_usd;
  g.StatAction(i1, kField, kStatTotal) = 40_usd;
  g.StatAction(i2, kPassLineOdds, kStatTotal) = 100_usd;  // odds are not rated
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
  // Counts that each fit a Long add up beyond one.
  g.StatAction(i1, kField, kStatCount) = g.StatAction(i2, kField, kStatCount) =
      Currency::FromWhole(2'000'000'000);
  g.StatAction(i2, kField, kStatTotal) = 40_usd;
  g.RollsAtTable(i1) = g.RollsAtTable(i2) = 2'000'000'000;
  FigureComps(g, c = {}, i1);
  FigureComps(g, c, i2);
  EXPECT_EQ(c.decisions, 4'000'000'000);
  EXPECT_EQ(c.rolls, 4'000'000'000);

  // Hands by number and their printout.
  for (int p = 1; p <= 3; ++p) g.Bet(p, kPassLine) = {};
  // 7 passes, 2 misses, point 4 made, point 6 missed by a seven-out.
  const int dice[][2] = {{3, 4}, {1, 1}, {2, 2}, {1, 3}, {3, 3}, {3, 4}};
  for (auto& d : dice) Roll(d[0], d[1]);
  const HandsFigures f = FigureHands(g, 2, 0, false);
  EXPECT_EQ(f.avgComeouts.text, "4");
  // The last hand shows its rolls; an empty frame shows "0" everywhere in percent.
  EXPECT_EQ(FigureHands(g, 1, 0, false).handTotal.text, "6");
  EXPECT_EQ(FigureHands(g, 0, 0, true).cells[13][0].text, "0");
  // Each player's count fits a Long; their sum does not.
  for (int p = 1; p <= 2; ++p) {
    g.TotalsTally(FrameIndex(p, kFrameAllSessions), 7, kTotalsComeOut) = 2'000'000'000;
    g.HandsTally(FrameIndex(p, kFrameAllSessions)) = 2'000'000'000;
  }
  EXPECT_EQ(FigureHands(g, 4, kP1 | kP2, false).cells[7][0].text, "4,000,000,000");
  EXPECT_EQ(FigureHands(g, 4, kP1 | kP2, false).handTotal.text, "4,000,000,000");
  EXPECT_EQ(FigureSummary(g, 4, kP1 | kP2).totalHands.text, "4,000,000,000");

  g.views.HandsFrame = 2;
  g.views.HandsPlayers = 0;
  g.views.HandsShowPercent = false;
  ASSERT_TRUE(PrintHands(g));
  const PrintDocument& doc = platform.printed[0];
  EXPECT_EQ(doc.lines[0].cells[0].text, "Ravelton Hands");
  // The cells that cannot be (a 7 missing, a 2 passing) print empty.
  for (const char* row : {"7|1|1|", "2|1||1", "6|1|0|1", "Total|4|2|2", "Points|2|1|1",
                          "Most rolls in a hand|6", "Most c/o rolls in a hand|4"})
    EXPECT_TRUE(Has(doc, row)) << row;
  g.views.HandsShowPercent = true;
  ASSERT_TRUE(PrintHands(g));
  EXPECT_TRUE(Has(platform.printed[1], "Total|100.00|50.00|50.00"));
  const PrintLine* seven = Row(platform.printed[1], "7");
  ASSERT_NE(seven, nullptr);
  EXPECT_EQ(seven->cells.at(1).text, "25.00");
}

TEST_F(Views, RollTotalsPrintTheRowsOfTheView) {
  Roll(3, 4);
  Roll(1, 1);
  Roll(5, 6);
  g.views.RollTotalsPlayers = 0;
  ASSERT_TRUE(PrintRollTotals(g));
  ASSERT_EQ(platform.printed.size(), 1u);
  const PrintDocument& doc = platform.printed[0];
  const char* heading[] = {"Ravelton Roll Totals", "23-Nov-26", "Game file:  untitled"};
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(LineText(doc.lines[i]), heading[i]);
  // One 7 of three rolls, two rolls ago: 33.33 %; the 2 one roll ago; no 4 yet.
  for (const char* row :
       {"Data for all players", "Any 7|16.67|33.33|1|2", "Any 4|8.33|0|0|3", "Total rolls|3"})
    EXPECT_TRUE(Has(doc, row)) << row;

  g.views.RollTotalsPlayers = 1 << 1;
  ASSERT_TRUE(PrintRollTotals(g));
  EXPECT_TRUE(Has(platform.printed[1], "Data for the following players:"));
  EXPECT_TRUE(Has(platform.printed[1], g.PlayerName[1]));
}

TEST_F(Views, RollFrequenciesPrintTheGapsOfTheCategory) {
  Put(1, kPassLine, 10);
  for (auto [d1, d2] : {std::pair{3, 4}, {1, 1}, {1, 3}, {2, 2}}) Roll(d1, d2);  // a 4 made
  g.views.RollFreqCategory = 4;
  ASSERT_TRUE(PrintRollFreqs(g));
  const PrintDocument& doc = platform.printed[0];
  EXPECT_TRUE(Has(doc, "# rolls since last rolled:|0"));
  EXPECT_TRUE(Has(doc, "Actual % rolled:|50.00"));
  // The 4 came on the third roll, then on the very next one.
  bool gapsFound = false;
  for (const PrintLine& line : doc.lines)
    if (line.cells.size() >= 4 && line.cells[0].text == "1" && line.cells[2].text == "3")
      gapsFound = line.cells[1].text == "1" && line.cells[3].text == "1";
  EXPECT_TRUE(gapsFound);
}

}  // namespace
