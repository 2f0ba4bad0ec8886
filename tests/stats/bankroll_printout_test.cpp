// The bankroll graph printout: one graph's texts and picture for three
// rolls worked out by hand, graphs filling a sheet that is sent when full,
// the auto-print of a full page on the 525th roll of a seeded run (and in
// scroll mode once a page), and PromptGraphPrint's questions and answers.
#include "stats/bankroll_printout.h"

#include <gtest/gtest.h>

#include "core/message_dialog.h"
#include "cycle/game_commands.h"
#include "dice/rng.h"
#include "printout_fixture.h"

namespace {

using namespace bet;

class GraphPrint : public PrintoutFixture {
 protected:
  GraphPrint() {
    g.graph.GraphPlayer = 1;
    // The seats' records start at the stake, in the picture's rows; the
    // first column is the session's first roll from the start.
    for (int p = 1; p <= 3; ++p)
      g.InvestedBankroll(p) = g.BankrollHigh(p) = g.BankrollLow(p) = kStake;
    g.roll.GraphTop = Currency::FromWhole(1100);
  }
  void Rolls(int n) {
    for (int i = 0; i < n; ++i) RollDice(g);
  }
  static std::string LineText(const PrintLine& line) {
    std::string s;
    for (const PrintCell& c : line.cells) s += c.text;
    return s;
  }
  static int Count(const PrintDocument& doc, const std::string& text) {
    int n = 0;
    for (const PrintLine& line : doc.lines) n += LineText(line) == text;
    return n;
  }
  // The rule of colour `colour` in picture column `left`, or none.
  static const PrintRect* RuleAt(const PrintGraph& pic, int left, int colour) {
    for (const PrintRect& r : pic.rects)
      if (r.left == left && r.width == 1 && r.colour == colour) return &r;
    return nullptr;
  }
  const int perSheet = GraphsPerSheet(kLetterPrintableTwips);
};

// P1's 10 on the Pass Line wins, loses, wins: 1,010, 1,000, 1,010 against
// the beginning bankroll of 1,000, with the top at 1,100 on a scale of 1.
TEST_F(GraphPrint, OneGraphShowsTheWindowsFiguresAndPicture) {
  EXPECT_EQ(perSheet, 3);  // (15120 - 660) / 4700 on a letter sheet
  g.graph.GraphShowRefLines = true;
  g.graph.RefLine1 = 0, g.graph.RefLine2 = 1;
  Put(1, kPassLine, 10);
  Roll(3, 4);
  Roll(1, 1);
  Roll(5, 6);
  ASSERT_TRUE(PrintBankrollGraph(g, 1));
  EXPECT_TRUE(platform.printed.empty());  // the sheet waits for two more
  EXPECT_EQ(GraphPagesPending(g), 1);
  EXPECT_EQ(g.graph.GraphPrintedRoll, 3);

  const PrintDocument& doc = g.GraphSheet;
  ASSERT_GE(doc.lines.size(), 10u);
  EXPECT_EQ(doc.linesPerPage, perSheet * kGraphPrintLines);
  const char* heading[] = {"Bankroll Graph", "23-Nov-26", "Game file:  untitled", "Player:  P1",
                           "High:  1,010  Low:  1,000  Current:  1,010"};
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(LineText(doc.lines[i]), heading[i]) << i;
  EXPECT_EQ(doc.lines[4].cells[5].colour, 9);  // a gain in the printer's gain colour
  EXPECT_EQ(LineText(doc.lines[5]), "3 rolls @ " + FigureBankrollGraph(g, 1).rollsPerHour.text +
                                         " rolls/hr = " + FigureBankrollGraph(g, 1).simHours.text + " sim hrs");
  EXPECT_EQ(LineText(doc.lines[8]), "Reference line differences:  Rolls:  1   Bankroll:  10");
  // The block of one graph is the height the sheet gives it.
  int height = 0;
  for (const PrintLine& line : doc.lines) height += doc.HeightOf(line);
  EXPECT_EQ(height, kGraphPrintLines);

  ASSERT_EQ(doc.graphs.size(), 1u);
  const PrintGraph& pic = doc.graphs[0];
  EXPECT_EQ(doc.lines[7].graph, 0);
  // The bankroll line: rows 90, 100, 90, each column joined to the one before.
  for (int x = 0; x < 3; ++x) {
    const PrintRect* rule = RuleAt(pic, x, kPrintBlack);
    ASSERT_TRUE(rule != nullptr);
    EXPECT_TRUE(rule->top == 90 && rule->height == (x == 0 ? 1 : 11)) << x;
  }
  EXPECT_EQ(RuleAt(pic, 3, kPrintBlack), nullptr);
  // The plain style's line at 1,000 (row 100): in the gain colour where the
  // bankroll stands above it, the loss colour where it stands on it.
  ASSERT_TRUE(RuleAt(pic, 0, 9) && RuleAt(pic, 1, 12));
  EXPECT_EQ(RuleAt(pic, 0, 9)->top, 100);
  // The scale and the rolls as the window labels them, and reference line 2.
  ASSERT_EQ(pic.labels.size(), 10u);
  EXPECT_TRUE(pic.labels[2].text == "1,000" && pic.labels[2].at == 100);
  EXPECT_EQ(pic.labels[6].text, "800");
  EXPECT_EQ(pic.labels[7].text + pic.labels[8].text + pic.labels[9].text, "1ROLLS525");
  EXPECT_TRUE(RuleAt(pic, 1, 13) && RuleAt(pic, 1, 13)->height == kGraphRows);
}

// The sheet goes to the printer when its third graph joins it, and starts
// afresh; a printer that is not there loses the sheet, not the count.
TEST_F(GraphPrint, GraphsFillASheetThatIsSentWhenFull) {
  Roll(3, 4);
  for (int n = 1; n < perSheet; ++n) ASSERT_TRUE(PrintBankrollGraph(g, n));
  EXPECT_TRUE(platform.printed.empty());
  ASSERT_TRUE(PrintBankrollGraph(g, 1));
  ASSERT_EQ(platform.printed.size(), 1u);
  const PrintDocument& sent = platform.printed[0];
  EXPECT_FALSE(sent.unattended);  // sent by hand: the printer may be asked for
  EXPECT_EQ(sent.sendingNotice, "Sending output to printer.");
  // Each graph is prepared under its notice, taken down before the printer
  // may be asked for.
  ASSERT_EQ(platform.progressNotices.size(), 2u * perSheet);
  for (std::size_t i = 0; i < platform.progressNotices.size(); i += 2) {
    EXPECT_EQ(platform.progressNotices[i], "Preparing output for printer.");
    EXPECT_EQ(platform.progressNotices[i + 1], "");
  }
  EXPECT_EQ(Count(sent, "Bankroll Graph"), perSheet);
  EXPECT_EQ(Count(sent, "Player:  P2"), 1);
  EXPECT_EQ(sent.graphs.size(), static_cast<std::size_t>(perSheet));
  EXPECT_EQ(GraphPagesPending(g), 0);
  EXPECT_TRUE(g.GraphSheet.lines.empty());

  EXPECT_FALSE(PrintBankrollGraph(g, 5));  // an open seat has no graph
  EXPECT_EQ(GraphPagesPending(g), 0);
  platform.printerAvailable = false;
  for (int n = 0; n < perSheet; ++n) PrintBankrollGraph(g, 1);
  EXPECT_EQ(GraphPagesPending(g), 0);
  EXPECT_EQ(platform.printed.size(), 1u);
}

// A seeded run with auto-print: nothing is built before roll 525; each full
// page joins the sheet on its last roll, and the third sends the sheet.
TEST_F(GraphPrint, AFullPagePrintsByItself) {
  SeedRngWith(g, 20261124);
  g.roll.GraphAutoPrint = true;
  Rolls(kGraphColumns - 1);
  EXPECT_EQ(GraphPagesPending(g), 0);
  EXPECT_TRUE(g.GraphSheet.lines.empty());
  Rolls(1);
  EXPECT_EQ(GraphPagesPending(g), 1);
  EXPECT_EQ(g.graph.GraphPrintedRoll, kGraphColumns);
  EXPECT_FALSE(g.roll.GraphPrintDue);
  ASSERT_EQ(g.GraphSheet.graphs.size(), 1u);
  EXPECT_NE(RuleAt(g.GraphSheet.graphs[0], kGraphColumns - 1, kPrintBlack), nullptr);
  Rolls(2 * kGraphColumns);
  ASSERT_EQ(platform.printed.size(), 1u);
  const PrintDocument& sent = platform.printed[0];
  EXPECT_TRUE(sent.unattended);  // sent by itself: no printer is asked for
  ASSERT_EQ(sent.graphs.size(), 3u);
  EXPECT_EQ(sent.graphs[1].labels[7].text, "526");
  EXPECT_EQ(sent.graphs[2].labels[7].text, "1,051");
  EXPECT_EQ(Count(sent, "1,575 rolls @ " + FigureBankrollGraph(g, 1).rollsPerHour.text + " rolls/hr = " +
                            FigureBankrollGraph(g, 1).simHours.text + " sim hrs"), 1);

  // A scrolling graph is full at every roll, and prints once a page.
  g.roll.GraphPlotType = 1;
  Rolls(kGraphColumns - 1);
  EXPECT_EQ(GraphPagesPending(g), 0);
  Rolls(1);
  EXPECT_EQ(GraphPagesPending(g), 1);
  Rolls(1);
  EXPECT_EQ(GraphPagesPending(g), 1);
}

// The last graph is offered when it was not printed, then a part-filled
// sheet; the answers print, keep or send as asked, and auto-print turned
// off or the program closed asks the same.
TEST_F(GraphPrint, PromptOffersTheLastGraphAndTheWaitingSheet) {
  Roll(3, 4);
  PromptGraphPrint(g);  // headless: Yes to both
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[0].text, "Would you like to print the last graph now?");
  EXPECT_EQ(platform.messages[0].title, "Bankroll Graph Auto-Print Active");
  EXPECT_EQ(platform.messages[1].text,
            "So far you've sent 1 to the current page.\r3 graphs will fit on a page.\r\r"
            "Would you like to finish printing now?");
  EXPECT_EQ(platform.messages[1].title, "Bankroll Graph Auto-Print Active");
  ASSERT_EQ(platform.printed.size(), 1u);
  EXPECT_EQ(platform.printed[0].graphs.size(), 1u);
  EXPECT_EQ(GraphPagesPending(g), 0);

  // Printed already and nothing waits: nothing to ask.
  PromptGraphPrint(g);
  EXPECT_EQ(platform.messages.size(), 2u);

  // No to the last graph; No to finishing keeps the sheet waiting.
  Roll(3, 4);
  ASSERT_TRUE(PrintBankrollGraph(g, 2));
  Roll(3, 4);
  Reply(kAnswerNo);
  Reply(kAnswerNo);
  PromptGraphPrint(g);
  EXPECT_EQ(platform.messages.size(), 4u);
  EXPECT_EQ(GraphPagesPending(g), 1);
  EXPECT_EQ(platform.printed.size(), 1u);

  // Auto-print on asks nothing; turned off it asks, and Yes, Yes prints two.
  SetGraphAutoPrint(g, true);
  EXPECT_EQ(platform.messages.size(), 4u);
  SetGraphAutoPrint(g, false);
  EXPECT_FALSE(g.roll.GraphAutoPrint);
  ASSERT_EQ(platform.printed.size(), 2u);
  EXPECT_EQ(platform.printed[1].graphs.size(), 2u);

  // Closing the program with auto-print on asks before anything else.
  g.roll.GraphAutoPrint = true;
  g.roll.SessionDirty = false;
  g.HyperDrive = false;
  Roll(3, 4);
  g.roll.SessionDirty = false;
  const std::size_t before = platform.messages.size();
  Reply(kAnswerNo);
  ASSERT_TRUE(CloseProgram(g, false));
  ASSERT_GT(platform.messages.size(), before);
  EXPECT_EQ(platform.messages[before].text, "Would you like to print the last graph now?");
}

}  // namespace
