// The summary, hands and roll frequency printouts after a short hand of
// known rolls: the figures must be the game's (decisions, come-outs,
// passes, misses, gaps), coloured by sign, under each view's heading.
#include "stats/summary_printouts.h"

#include <gtest/gtest.h>

#include "../engine/table_fixture.h"

namespace {

using namespace bet;

class SummaryPrintouts : public TableFixture {
 protected:
  SummaryPrintouts() {
    g.rules.BetRequirement = kNoBetRequired;
    g.Shooter = g.HandShooter = 1;
    platform.fixedDate = CalendarDate{2026, 11, 23};
    g.rules.PrintColors = {9, 12, 13};  // blue gains, red losses
  }
  void Roll(int d1, int d2) {
    ASSERT_TRUE(QueueDice(g, d1, d2));
    RollDice(g);
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
  static const PrintLine* Line(const PrintDocument& doc, const std::string& label) {
    for (const PrintLine& line : doc.lines)
      if (!line.cells.empty() && line.cells[0].text == label) return &line;
    return nullptr;
  }
  using Texts = std::vector<std::string>;
};

TEST_F(SummaryPrintouts, SummaryPrintsTheSessionsDecisionsInColour) {
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
  const PrintLine* amounts = Line(doc, "Total $");
  ASSERT_NE(amounts, nullptr);
  ASSERT_EQ(amounts->cells.size(), 6u);
  EXPECT_EQ(amounts->cells[1].text, "30");
  EXPECT_EQ(amounts->cells[4].text, "10");
  EXPECT_EQ(amounts->cells[4].colour, 9);
  EXPECT_EQ(amounts->cells[1].colour, kPrintBlack);
}

TEST_F(SummaryPrintouts, HandsPrintComeoutsPassesAndMissesByNumber) {
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

TEST_F(SummaryPrintouts, RollFrequenciesPrintTheGapsOfTheCategory) {
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
