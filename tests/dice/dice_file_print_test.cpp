// The dice roll file printout: rolls written by the output template down
// each column of a page, as many columns as the template's width allows,
// a heading on every page and as many pages as the confirmation said,
// highlighted pairs marked, and the questions before it.
#include "dice/dice_file_print.h"

#include <gtest/gtest.h>

#include <fstream>
#include <vector>

#include "core/message_dialog.h"
#include "dice/dice_file.h"
#include "tests/engine/roll_fixture.h"

namespace {

class DicePrint : public RollFixture {
 protected:
  DicePrint() { platform.fixedDate = CalendarDate{2026, 11, 23}; }
  // A file of n rolls cycling through the 36 pairs from 1-1, opened and all selected.
  void Open(int n) {
    const std::string path = folder / "game.rol";
    std::ofstream out(path, std::ios::binary);
    for (int i = 0; i < n; ++i) out.put(static_cast<char>(DiceRollByte(i % 36 / 6 + 1, i % 6 + 1)));
    out.close();
    ASSERT_TRUE(OpenDiceRollFile(g, path));
    Select(1, n);
  }
  void Select(int from, int to) {
    g.diceFile.DiceFilePos = from;
    g.diceFile.DiceSelEnd = to;
  }
  void Answer(int answer) {
    MessageReply r;
    r.answer = answer;
    platform.queuedReplies.push_back(r);
  }
  // The texts of a line's cells, joined by '|'.
  static std::string Cells(const PrintLine& line) {
    std::string s;
    for (const PrintCell& c : line.cells) s += (s.empty() ? "" : "|") + c.text;
    return s;
  }
};

TEST_F(DicePrint, TheTemplatesWidthSetsTheColumnsAndThePages) {
  // "1,000 (6.6) 12": 14 characters with room for wide digits, the mark
  // and a gap: 3 columns of 50 rolls.
  const DicePrintLayout layout = DicePrintLayoutFor("Roll# (Die1.Die2) Total", 1000);
  EXPECT_EQ(layout.columns, 3);
  EXPECT_EQ(DicePrintLayoutFor("Roll# (Die1.Die2) Total", 99).columns, 4);
  EXPECT_EQ(DicePrintLayoutFor("Total", 99).columns, 10);
  EXPECT_EQ(DicePrintLayoutFor(std::string(90, 'x') + "total", 1).columns, 1);
  EXPECT_EQ(DicePrintPages(0, layout), 0);
  EXPECT_EQ(DicePrintPages(150, layout), 1);
  EXPECT_EQ(DicePrintPages(151, layout), 2);
}

TEST_F(DicePrint, PagesRunDownTheColumnsUnderTheirHeadings) {
  Open(450);
  g.diceFile.HighlightCombo(1, 1) = true;
  std::string error;
  const PrintDocument doc = DiceRollsPrintout(g, 1, 450, 1, CalendarDate{2026, 11, 23}, error);
  EXPECT_EQ(error, "");
  ASSERT_EQ(doc.linesPerPage, kDicePageHeading + kDiceRowsPerPage);
  // 450 rolls numbered up to 450: 4 columns, 200 a page, 3 pages.
  const std::int64_t pages = DicePrintPages(450, DicePrintLayoutFor(g.diceFile.DiceOutputFormat, 450));
  ASSERT_EQ(pages, 3);
  const std::size_t perPage = static_cast<std::size_t>(doc.linesPerPage);
  ASSERT_EQ(doc.lines.size(), 2 * perPage + kDicePageHeading + 50);
  for (std::size_t page = 0; page < 3; ++page) {
    EXPECT_EQ(Cells(doc.lines[page * perPage]), "Ravelton Dice Roll File:  game.rol");
    EXPECT_EQ(Cells(doc.lines[page * perPage + 1]), "23-Nov-26");
    EXPECT_EQ(Cells(doc.lines[page * perPage + 2]), "* highlighted pair");
  }
  // Roll 1 is 1-1, highlighted: marked and in the marking colour. Rolls
  // 51, 101 and 151 begin the next columns; 37 (1-1 again) is marked too.
  const PrintLine& first = doc.lines[kDicePageHeading];
  EXPECT_EQ(Cells(first), "*|1 (1.1) 2|51 (3.3) 6|101 (5.5) 10|151 (2.1) 3");
  EXPECT_EQ(first.cells[1].colour, g.rules.PrintColors[0]);
  EXPECT_EQ(first.cells[2].colour, kPrintBlack);
  EXPECT_EQ(Cells(doc.lines[kDicePageHeading + 36]), "*|37 (1.1) 2|87 (3.3) 6|137 (5.5) 10|187 (2.1) 3");
  // The last page: rolls 401 to 450 in one column.
  EXPECT_EQ(Cells(doc.lines[2 * perPage + kDicePageHeading]), "401 (1.5) 6");
  EXPECT_EQ(Cells(doc.lines.back()), "450 (3.6) 9");
}

TEST_F(DicePrint, TheRenumberingQuestionAndTheConfirmation) {
  // The refusals without rolls or a selection go through the form's test.
  Open(300);
  // Rolls 240..201 (the selection's ends in either order), renumbered from 1.
  Select(240, 201);
  Answer(kAnswerYes);
  Answer(kAnswerNo);
  EXPECT_FALSE(PrintDiceRolls(g));
  ASSERT_GE(platform.messages.size(), 2u);
  const MessageRequest& renumber = platform.messages[platform.messages.size() - 2];
  EXPECT_EQ(renumber.title, "Print Dice Roll File");
  EXPECT_EQ(renumber.text.substr(0, 52), "The rolls you've selected do not begin with roll #1.");
  EXPECT_EQ(platform.messages.back().title, "Print Dice Roll File");
  EXPECT_EQ(platform.messages.back().text,
            "Number of rolls to be printed: 40\r\rBased on the options you've selected,\r"
            "this should result in 1 page.\r\rAre you ready to begin printing?");
  EXPECT_TRUE(platform.printed.empty());

  Answer(kAnswerYes);
  Answer(kAnswerYes);
  EXPECT_TRUE(PrintDiceRolls(g));
  ASSERT_EQ(platform.printed.size(), 1u);
  const PrintDocument& doc = platform.printed[0];
  EXPECT_EQ(Cells(doc.lines[kDicePageHeading]), "1 (4.3) 7");  // roll 201 numbered 1
  EXPECT_EQ(doc.lines.size(), std::size_t{kDicePageHeading + 40});

  // Without a number in the template nobody is asked; 300 rolls of "Total"
  // fill 10 columns, so they print on 1 page; all 300 of the default take 2.
  g.diceFile.DiceOutputFormat = "Total";
  Select(300, 1);
  Answer(kAnswerNo);
  const std::size_t before = platform.messages.size();
  PrintDiceRolls(g);
  EXPECT_EQ(platform.messages.size(), before + 1);
  EXPECT_NE(platform.messages.back().text.find("result in 1 page."), std::string::npos);
  g.diceFile.DiceOutputFormat = "Roll# (Die1.Die2) Total";
  Answer(kAnswerNo);
  PrintDiceRolls(g);
  EXPECT_NE(platform.messages.back().text.find("printed: 300\r"), std::string::npos);
  EXPECT_NE(platform.messages.back().text.find("result in 2 pages."), std::string::npos);
}

}  // namespace
