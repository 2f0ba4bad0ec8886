// The printouts the engine composes: the CheckStacks range prompt and rows,
// the advantage table with both views, the payoff list, and their heads
// and colours.
#include "analysis/advantage_print.h"
#include "engine/bankroll.h"
#include "engine/check_stacks_print.h"
#include "tests/engine/table_fixture.h"

namespace {

class Printouts : public TableFixture {
 protected:
  Printouts() {
    platform.fixedDate = CalendarDate{2026, 11, 3};
    g.HyperDrive = false;
  }

  void AnswerRange(int answer, const std::string& first, const std::string& last) {
    MessageReply reply;
    reply.answer = answer;
    reply.input1 = first;
    reply.input2 = last;
    platform.queuedReplies.push_back(reply);
  }

  // The text of every cell of line i, joined by '|'.
  static std::string Cells(const PrintDocument& doc, std::size_t i) {
    std::string joined;
    for (const PrintCell& c : doc.lines.at(i).cells) joined += (joined.empty() ? "" : "|") + c.text;
    return joined;
  }
};

TEST_F(Printouts, CheckStacksPrintTheAskedRangeInItsOrderAndColours) {
  SetCheckStackValue(g, 1, 3, "25");
  SetCheckStackName(g, 1, 3, "press");
  SetCheckStackValue(g, 1, 7, "-10.5");
  SetCheckStackName(g, 1, 50, "later");
  SetCheckStackValue(g, 1, 90, "5");
  SetCheckStackValue(g, 2, 4, "1");  // another player's stack never prints
  AnswerRange(kAnswerOk, "60", "2");  // given backwards
  ASSERT_TRUE(PrintCheckStacks(g, 1, "/home/ann/games/Tuesday.rvg"));
  ASSERT_EQ(platform.messages.back().title, "Print Range");
  EXPECT_EQ(platform.messages.back().input1, "0");
  EXPECT_EQ(platform.messages.back().input2, "99");
  ASSERT_EQ(platform.printed.size(), 1u);
  const PrintDocument& doc = platform.printed[0];
  EXPECT_EQ(Cells(doc, 0), "Ravelton CheckStack values and names for P1");
  EXPECT_EQ(Cells(doc, 1), "03-Nov-26");
  EXPECT_EQ(Cells(doc, 2), "Game File:  Tuesday.rvg");
  ASSERT_EQ(doc.lines.size(), 8u);  // head, blank, titles, stacks 3, 7 and 50
  EXPECT_EQ(Cells(doc, 5), "3|25|press");
  EXPECT_EQ(Cells(doc, 6), "7|-10.50|");
  EXPECT_EQ(Cells(doc, 7), "50|0|later");
  EXPECT_EQ(doc.lines[5].cells[1].colour, 9);
  EXPECT_EQ(doc.lines[6].cells[1].colour, 12);
  EXPECT_EQ(doc.lines[7].cells[1].colour, kPrintBlack);
}

TEST_F(Printouts, CheckStacksRangeBoundsCancelAndNoPrinter) {
  SetCheckStackValue(g, 1, 0, "1");
  SetCheckStackValue(g, 1, 99, "2");
  g.rules.PrintColors = {0, 0, 0};  // a printer without colour
  AnswerRange(kAnswerOk, "not a number", "400");
  ASSERT_TRUE(PrintCheckStacks(g, 1, ""));
  const PrintDocument& doc = platform.printed.back();
  EXPECT_EQ(Cells(doc, 2), "Game File:  untitled");
  ASSERT_EQ(doc.lines.size(), 7u);
  EXPECT_EQ(Cells(doc, 5), "0|1|");
  EXPECT_EQ(Cells(doc, 6), "99|2|");
  EXPECT_EQ(doc.lines[5].cells[1].colour, kPrintBlack);

  AnswerRange(kAnswerCancel, "0", "99");
  EXPECT_FALSE(PrintCheckStacks(g, 1, ""));
  platform.printerAvailable = false;
  AnswerRange(kAnswerOk, "0", "99");
  EXPECT_FALSE(PrintCheckStacks(g, 1, ""));
  EXPECT_EQ(platform.printed.size(), 1u);
}

TEST_F(Printouts, AdvantagePrintsEveryBetWithBothViews) {
  const PrintDocument doc = AdvantagePrintout(g, *platform.fixedDate, "");
  EXPECT_EQ(Cells(doc, 0), "Game File:  untitled");
  EXPECT_EQ(Cells(doc, 2), "Figured using true probabilities");
  ASSERT_EQ(doc.lines.size(), 5u + kLastRealBet);
  EXPECT_EQ(Cells(doc, 4),
            "Bet|EV/Roll|StDev/Roll|EV/Dec|StDev/Dec|EV/Hour|Rolls/Dec|Dec/Roll|Dec/Hour|Dec/Min|"
            "Time/Dec");
  // The figures and their colours are the Advantage table's; here the row
  // of the Pass Line stands at its place with every column.
  const PrintLine& passLine = doc.lines[4 + bet::kPassLine];
  ASSERT_EQ(passLine.cells.size(), 11u);
  EXPECT_EQ(passLine.cells[3].text, "-1.41");
  // Columns stand in order, each right of the one before.
  for (std::size_t c = 2; c < passLine.cells.size(); ++c)
    EXPECT_LT(passLine.cells[c - 1].column, passLine.cells[c].column);
}

TEST_F(Printouts, PayoffsPrintTheListWithTheFieldBesideIt) {
  SetFieldPreset(g, static_cast<FieldPreset>(0));  // 2x on Two and Twelve
  const PrintDocument doc = PayoffsPrintout(g, *platform.fixedDate, "x/Weekend.rvg");
  EXPECT_EQ(Cells(doc, 0), "Game File:  Weekend.rvg");
  ASSERT_EQ(doc.lines.size(), 4u + kPayoffListRows);
  int headings = 0;
  for (int i = 0; i < kPayoffListRows; ++i) {
    const PrintLine& line = doc.lines[4 + i];
    const std::size_t own = IsPayoffHeading(PayoffRowCode(i)) ? 1 : 2;
    headings += own == 1;
    EXPECT_EQ(line.cells.size(), own + (i < kFieldRows ? 2 : 0)) << line.cells[0].text;
  }
  EXPECT_EQ(headings, 2);
  EXPECT_EQ(doc.lines[4].cells.back().text, "2 to 1");   // the Field's Two
  EXPECT_EQ(doc.lines[5].cells.back().text, "1 to 1");   // the Field's Three
  EXPECT_EQ(doc.lines[8].cells.back().text, "loses");    // the Field's Five
}

TEST(MediumDate, DayMonthAndTwoDigitYear) {
  EXPECT_EQ(MediumDate({2007, 1, 5}), "05-Jan-07");
  EXPECT_EQ(MediumDate({2026, 12, 31}), "31-Dec-26");
  EXPECT_EQ(MediumDate({2000, 13, 1}), "01-Jan-00");  // an impossible month reads as January
}

}  // namespace
