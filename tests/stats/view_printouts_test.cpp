// The views' printouts on a few fixed rolls: the headings, the selection
// lines, the rows as the views show them, the loss colour, the refusal of a
// bet results printout without a bet, and the summary, hands and roll
// frequency figures of a known hand (decisions, come-outs, passes, misses,
// gaps), which must be the game's.
#include "stats/summary_printouts.h"
#include "stats/view_printouts.h"

#include <gtest/gtest.h>

#include "../engine/table_fixture.h"

namespace {

using namespace bet;

class Printouts : public TableFixture {
 protected:
  Printouts() {
    g.rules.BetRequirement = kNoBetRequired;
    g.Shooter = g.HandShooter = 1;
    platform.fixedDate = CalendarDate{2026, 11, 23};
    g.rules.PrintColors = {9, 12, 13};  // blue gains, red losses
  }
  void Roll(int d1, int d2) {
    ASSERT_TRUE(QueueDice(g, d1, d2));
    RollDice(g);
  }
  // The text of every cell of a line, joined by '|'.
  static std::string LineText(const PrintLine& line) {
    std::string s;
    for (const PrintCell& c : line.cells) s += (s.empty() ? "" : "|") + c.text;
    return s;
  }
  bool Has(const PrintDocument& doc, const std::string& text) const {
    for (const PrintLine& line : doc.lines)
      if (LineText(line) == text) return true;
    return false;
  }
  const PrintLine* Row(const PrintDocument& doc, const std::string& label) const {
    for (const PrintLine& line : doc.lines)
      if (!line.cells.empty() && line.cells[0].text == label) return &line;
    return nullptr;
  }
  // A pass line bet through a natural 7, craps 2, then a point of 4 made.
  void PlayHand() {
    Put(1, kPassLine, 10);
    Roll(3, 4);
    Roll(1, 1);
    Roll(1, 3);
    Roll(2, 2);
  }
  // The cells of the first line whose first cell is `label`, or none.
  static std::vector<std::string> Cells(const PrintDocument& doc, const std::string& label) {
    for (const PrintLine& line : doc.lines)
      if (!line.cells.empty() && line.cells[0].text == label) {
        std::vector<std::string> cells;
        for (const PrintCell& c : line.cells) cells.push_back(c.text);
        return cells;
      }
    return {};
  }
  using Texts = std::vector<std::string>;
};

TEST_F(Printouts, RollTotalsPrintTheRowsOfTheView) {
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

TEST_F(Printouts, BetResultsNameTheBetsAndColourTheNet) {
  Put(1, kPassLine, 10);
  Roll(3, 4);  // wins
  Roll(1, 1);  // loses
  Roll(1, 2);  // loses
  g.views.BetResultsPlayers = 1 << 1;
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
  // Three decisions, one won and two lost: the net -1 prints in the loss colour.
  EXPECT_EQ(LineText(*count), "Total #|3|1|2|-1|-33.3333");
  EXPECT_EQ(count->cells[4].colour, 12);
  EXPECT_EQ(count->cells[1].colour, kPrintBlack);

  g.views.BetResultsSelection[kField - 1] = 'S';
  ASSERT_TRUE(PrintBetResults(g));
  EXPECT_TRUE(Has(platform.printed[1], " Data for the following 2 bets:"));
  EXPECT_TRUE(Has(platform.printed[1],
                  std::string(BetName(kPassLine)) + ", " + std::string(BetName(kField))));
}

TEST_F(Printouts, BetTrendsListOnlyTheBetsWithAStreak) {
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



TEST_F(Printouts, SummaryPrintsTheSessionsDecisionsInColour) {
  PlayHand();
  g.views.SummaryFrame = 2;
  g.views.SummaryPlayers = 1 << 1;
  ASSERT_TRUE(PrintSummary(g));
  ASSERT_EQ(platform.printed.size(), 1u);
  const PrintDocument& doc = platform.printed[0];
  EXPECT_EQ(doc.lines[0].cells[0].text, "Ravelton Session Summary");
  EXPECT_EQ(doc.lines[1].cells[0].text, "23-Nov-26");
  EXPECT_EQ(doc.lines[2].cells[0].text, "Game file:  untitled");
  EXPECT_EQ(Cells(doc, "Total rolls"), (Texts{"Total rolls", "4"}));
  // Three decisions on the pass line: won on the 7 and the point, lost on the 2.
  EXPECT_EQ(Cells(doc, "Total #"), (Texts{"Total #", "3", "2", "1", "1", "33.3333"}));
  const PrintLine* amounts = Row(doc, "Total $");
  ASSERT_NE(amounts, nullptr);
  ASSERT_EQ(amounts->cells.size(), 6u);
  EXPECT_EQ(amounts->cells[1].text, "30");
  EXPECT_EQ(amounts->cells[4].text, "10");
  EXPECT_EQ(amounts->cells[4].colour, 9);
  EXPECT_EQ(amounts->cells[1].colour, kPrintBlack);
}

TEST_F(Printouts, HandsPrintComeoutsPassesAndMissesByNumber) {
  PlayHand();
  g.views.HandsFrame = 2;
  g.views.HandsPlayers = 0;
  g.views.HandsShowPercent = false;
  ASSERT_TRUE(PrintHands(g));
  const PrintDocument& doc = platform.printed[0];
  EXPECT_EQ(doc.lines[0].cells[0].text, "Ravelton Hands");
  // The 7 can't miss and the 2 can't pass: those cells print empty.
  EXPECT_EQ(Cells(doc, "7"), (Texts{"7", "1", "1", ""}));
  EXPECT_EQ(Cells(doc, "2"), (Texts{"2", "1", "", "1"}));
  EXPECT_EQ(Cells(doc, "4"), (Texts{"4", "1", "1", "0"}));
  EXPECT_EQ(Cells(doc, "Total"), (Texts{"Total", "3", "2", "1"}));
  EXPECT_EQ(Cells(doc, "Naturals"), (Texts{"Naturals", "2", "1", "1"}));
  EXPECT_EQ(Cells(doc, "Points"), (Texts{"Points", "1", "1", "0"}));
  EXPECT_EQ(Cells(doc, "Total rolls"), (Texts{"Total rolls", "4"}));
  EXPECT_EQ(Cells(doc, "Most c/o rolls in a hand"), (Texts{"Most c/o rolls in a hand", "3"}));

  g.views.HandsShowPercent = true;
  ASSERT_TRUE(PrintHands(g));
  EXPECT_EQ(Cells(platform.printed[1], "Total")[1], "100.00");
}

TEST_F(Printouts, RollFrequenciesPrintTheGapsOfTheCategory) {
  PlayHand();
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
