// The Sessions Log printouts and the histogram's range lines: the
// histogram prints the figures the view holds with its picture, the raw
// data streams only the included sessions down three columns a page under
// a heading on every page, and the page count asked about is the count
// laid out.
#include "stats/sessions_printouts.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "../engine/roll_fixture.h"
#include "core/message_dialog.h"
#include "engine/players.h"
#include "stats/sessions_log.h"

namespace {

class SessionsPrintouts : public RollFixture {
 protected:
  SessionsPrintouts() {
    SeatPlayer(g, 1, "Ann", 500_usd);
    g.views.SessionsPlayer = 1;
    g.views.SessionsView = kNetValue;
    path = folder / "ann.slg";
    g.roll.SessionLogPath[1] = path;
    platform.fixedDate = CalendarDate{2026, 11, 23};
  }
  // Sessions with these nets, in order.
  void Log(const std::vector<int>& nets) {
    for (int net : nets) {
      SessionRecord r{};
      r[kNetValue] = Currency::FromWhole(net);
      ASSERT_FALSE(AppendSessionRecord(path, r).has_value());
    }
  }
  SessionsFigures Figures() { return FigureSessionsLog(SessionsRequestOf(g, path)); }
  static std::string Text(const PrintLine& line, std::size_t cell = 0) {
    return cell < line.cells.size() ? line.cells[cell].text : std::string("(none)");
  }
  void Answer(int answer) {
    MessageReply r;
    r.answer = answer;
    platform.queuedReplies.push_back(r);
  }
  std::string path;
};

TEST_F(SessionsPrintouts, HistogramPrintsTheViewsFiguresAndItsPicture) {
  Log({30, -10, 0, 30});
  const SessionsFigures f = Figures();
  const PrintDocument doc = SessionsHistogramPrintout(g, f, "Ann", path, CalendarDate{2026, 11, 23});
  ASSERT_GE(doc.lines.size(), 4u);
  EXPECT_EQ(Text(doc.lines[0]), "Ravelton Sessions Log for Ann");
  EXPECT_EQ(Text(doc.lines[1]), "23-Nov-26");
  EXPECT_EQ(Text(doc.lines[2]), "Sessions Log File:  ann.slg");
  EXPECT_EQ(Text(SessionsHistogramPrintout(g, f, "Ann", "", {}).lines[2]), "Sessions Log File:  untitled");

  // One picture: a bar for every column with sessions, the mean's rule in
  // the gain colour and the two range lines at the view's columns.
  ASSERT_EQ(doc.graphs.size(), 1u);
  const PrintGraph& graph = doc.graphs[0];
  EXPECT_EQ(graph.width, kHistogramColumns);
  int bars = 0, rangeRules = 0, meanRules = 0;
  for (const PrintRect& r : graph.rects) {
    if (r.height < graph.height) {
      ++bars;
      EXPECT_EQ(r.top + r.height, graph.height);  // bars stand on the bottom
    } else if (r.colour == 2) {
      EXPECT_TRUE(r.left == f.rangeLineColumns[0] || r.left == f.rangeLineColumns[1]);
      ++rangeRules;
    } else if (r.left == f.meanColumn) {
      EXPECT_EQ(r.colour, g.rules.PrintColors[0]);
      ++meanRules;
    }
  }
  EXPECT_EQ(bars, 3);  // -10, 0 and the two sessions of 30 share a bar
  EXPECT_EQ(rangeRules, 2);
  EXPECT_EQ(meanRules, 1);

  // The results in two columns, coloured by sign; the classes above.
  bool sawMean = false, sawLost = false;
  for (const PrintLine& line : doc.lines)
    for (std::size_t i = 0; i + 1 < line.cells.size(); ++i) {
      if (line.cells[i].text == "Mean") {
        sawMean = true;
        EXPECT_EQ(line.cells[i + 1].text, "12.5");
        EXPECT_EQ(line.cells[i + 1].colour, g.rules.PrintColors[0]);
      }
      if (line.cells[i].text == "Lost") {
        sawLost = true;
        EXPECT_EQ(line.cells[i + 1].text, "1");
      }
    }
  EXPECT_TRUE(sawMean);
  EXPECT_TRUE(sawLost);
}

TEST_F(SessionsPrintouts, RawDataStreamsTheIncludedSessionsDownColumnsPageByPage) {
  // 131 sessions, every tenth lost: 118 won ones are left with lost ones out.
  std::vector<int> nets;
  for (int s = 1; s <= 131; ++s) nets.push_back(s % 10 == 0 ? -s : s);
  Log(nets);
  g.views.SessionsFilter = kIncludeWon | kIncludeEven;
  std::string error;
  const PrintDocument one = SessionsRawDataPrintout(g, SessionsRequestOf(g, path), "Ann", {}, error);
  EXPECT_EQ(error, "");
  // 118 fit one page of 3 x 40; the page's first row holds the sessions
  // that begin each column: 1, 45 (the 41st won session) and 89.
  EXPECT_EQ(RawDataPages(118), 1);
  ASSERT_EQ(one.linesPerPage, 46);
  const PrintLine& row = one.lines[6];
  ASSERT_EQ(row.cells.size(), 6u);
  EXPECT_EQ(Text(row, 0), "1");
  EXPECT_EQ(Text(row, 2), "45");
  EXPECT_EQ(Text(row, 3), "45.0");
  EXPECT_EQ(Text(row, 4), "89");
  EXPECT_EQ(row.cells[1].colour, g.rules.PrintColors[0]);
  for (const PrintLine& line : one.lines)
    for (const PrintCell& cell : line.cells) EXPECT_NE(cell.text, "10") << "a lost session printed";

  // All included: two pages, the second under its own heading.
  g.views.SessionsFilter = kIncludeWon | kIncludeEven | kIncludeLost;
  const PrintDocument two = SessionsRawDataPrintout(g, SessionsRequestOf(g, path), "Ann", {}, error);
  EXPECT_EQ(RawDataPages(131), 2);
  ASSERT_GT(two.lines.size(), 46u + 6u);
  EXPECT_EQ(Text(two.lines[46]), "Ravelton Sessions Log for Ann");
  EXPECT_EQ(Text(two.lines[46 + 6]), "121");
  EXPECT_EQ(Text(two.lines[46 + 6], 1), "121.0");
  EXPECT_EQ(two.lines.size(), 46u + 6u + 11u);  // the last page ends at its last row
  const PrintLine& lost = two.lines[6 + 9];  // session 10
  EXPECT_EQ(Text(lost, 1), "-10.0");
  EXPECT_EQ(lost.cells[1].colour, g.rules.PrintColors[1]);
}

TEST_F(SessionsPrintouts, TheRawDataConfirmationCountsTheIncludedSessionsAndPages) {
  // The refusals and the printing itself go through the form's test; here
  // the counts: the lost sessions left out, then all 123 over two pages.
  g.views.SessionsFilter = kIncludeWon | kIncludeEven;
  Log({-5, 7});
  Answer(kAnswerNo);
  EXPECT_FALSE(PrintSessionsRawData(g, SessionsRequestOf(g, path), Figures()));
  EXPECT_EQ(platform.messages.back().text,
            "Number of sessions to be printed: 1\r\rThis should result in 1 page.\r\r"
            "Are you ready to begin printing?");
  EXPECT_TRUE(platform.printed.empty());
  g.views.SessionsFilter = kIncludeWon | kIncludeEven | kIncludeLost;
  for (int i = 0; i < 121; ++i) Log({1});
  Answer(kAnswerNo);
  PrintSessionsRawData(g, SessionsRequestOf(g, path), Figures());
  EXPECT_NE(platform.messages.back().text.find("printed: 123\r\rThis should result in 2 pages."),
            std::string::npos);
}

TEST_F(SessionsPrintouts, ADroppedRangeLineGivesTheValueOfItsColumn) {
  Log({-100, 0, 424});
  const SessionsFigures f = Figures();
  EXPECT_DOUBLE_EQ(ValueAtColumn(f, 0), -100);
  EXPECT_DOUBLE_EQ(ValueAtColumn(f, 524), 424);
  EXPECT_DOUBLE_EQ(ValueAtColumn(f, 100), 0);
  EXPECT_DOUBLE_EQ(ValueAtColumn(f, 900), 424);  // past the last column
  // The lines stand at columns 0 and 524; a grab reaches three columns.
  EXPECT_EQ(RangeLineNear(f, 2, 3), 0);
  EXPECT_EQ(RangeLineNear(f, 521, 3), 1);
  EXPECT_EQ(RangeLineNear(f, 262, 3), -1);
  // A range of nothing: every column is the one value.
  std::remove(path.c_str());
  Log({5, 5});
  EXPECT_DOUBLE_EQ(ValueAtColumn(Figures(), 300), 5);
  EXPECT_EQ(RangeLineNear(SessionsFigures{}, 0, 3), -1);  // nothing included
}

}  // namespace
