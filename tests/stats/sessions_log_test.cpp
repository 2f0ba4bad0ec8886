// Sessions logs: the file's bytes, records written by a new session and a
// cash-out, damaged files refused with their message, deletions, merges, the view's
// statistics over logs of one, two and many sessions, Find in the data list;
// then the printouts: the histogram with its picture, the raw data streamed
// down three columns a page, and the range lines' values.
#include "stats/sessions_log.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <tuple>

#include "../engine/roll_fixture.h"
#include "core/message_dialog.h"
#include "cycle/session.h"
#include "engine/players.h"
#include "stats/sessions_find.h"
#include "stats/sessions_printouts.h"
#include "stats/sessions_stats.h"

namespace {

namespace fs = std::filesystem;

class SessionsLog : public RollFixture {
 protected:
  std::string Path(const std::string& name) const { return folder / name; }

  // A log whose sessions have these nets (value 8) and handles of 100 each.
  std::string Log(const std::vector<double>& nets, const std::string& name = "log.slg") {
    const std::string path = Path(name);
    for (double x : nets) {
      SessionRecord r{};
      r[kNetValue] = Currency::FromRaw(static_cast<std::int64_t>(x * 10000));
      r[kHandleValue] = 100_usd;
      EXPECT_FALSE(AppendSessionRecord(path, r).has_value());
    }
    return path;
  }

  static SessionsFigures Figures(const std::string& path, std::int32_t filter = 7,
                                 int barWidth = 1) {
    SessionsRequest rq;
    rq.path = path;
    rq.filter = filter;
    rq.barWidth = barWidth;
    return FigureSessionsLog(rq);
  }
  static std::string Result(const SessionsFigures& f, const std::string& label) {
    for (const auto& [l, s] : f.results)
      if (l == label) return s.text;
    return "(no " + label + ")";
  }
};

TEST_F(SessionsLog, HeaderAndRecordBytesAndTheClosingRecordsWritten) {
  const std::string path = Log({12.5, -3});
  const std::string b = ReadWholeFile(path);
  ASSERT_EQ(b.size(), 3u * 256);
  EXPECT_EQ(b.substr(0, 38), "Ravelton Sessions Log, Data Format 5.0");
  EXPECT_EQ(b.substr(38, 92 - 38), std::string(92 - 38, ' '));
  EXPECT_EQ(b.substr(92, 4), std::string("\x02\0\0\0", 4));
  EXPECT_EQ(b.substr(96, 160), std::string(160, ' '));
  // Session 1, value 8 at byte 256 + 64: 12.5 as 125,000 ten-thousandths.
  EXPECT_EQ(b.substr(256 + 64, 8), std::string("\x48\xe8\x01\0\0\0\0\0", 8));
  // Rewriting every record read gives the same bytes.
  SessionsLogReader in(path);
  ASSERT_EQ(in.count(), 2);
  SessionRecord r{};
  for (int s = 1; s <= 2; ++s) {
    ASSERT_TRUE(in.Read(s, r));
    ASSERT_FALSE(AppendSessionRecord(Path("copy.slg"), r).has_value());
  }
  EXPECT_EQ(ReadWholeFile(Path("copy.slg")), b);
  EXPECT_FALSE(fs::exists(path + ".~tmp"));

  // A new session and a cash-out write the closing record.
  SeatPlayer(g, 1, "Ann", 500_usd);
  NewSession(g, true, false, true, 2);  // no rolls yet: nothing written
  EXPECT_FALSE(fs::exists(Path("ann.slg")));
  Roll(3, 4);
  Roll(2, 2);
  NewSession(g, true, false, true, 2);
  Roll(5, 6);
  g.betting.CurPlayer = 1;
  platform.queuedReplies.push_back({kAnswerYes, "", "", false});
  ASSERT_TRUE(CashOutPlayer(g));
  SessionsLogReader log(Path("ann.slg"));
  ASSERT_TRUE(log.ok()) << log.error();
  ASSERT_EQ(log.count(), 2);
  ASSERT_TRUE(log.Read(1, r));
  EXPECT_EQ(r[0], 2_usd);  // two rolls at the table
  EXPECT_EQ(r[10], 500_usd);
  EXPECT_EQ(r[11], 500_usd);
  ASSERT_TRUE(log.Read(2, r));
  EXPECT_EQ(r[0], 1_usd);
  // A CheckStack at its own limit and a handle summed beyond the money
  // limit (each total at its own) are written at the money limit, so the log
  // reads them back.
  SeatPlayer(g, 2, "Bo", 500_usd);
  g.Bet(2, bet::kCheckStackFirst) = -kCheckStackLimit;
  for (int id : {bet::kPassLine, bet::kField})
    g.StatAction(FrameIndex(2, kFrameCurrentSession), id, kStatTotal) = kStatTotalLimit;
  ASSERT_FALSE(WriteSessionRecord(g, 2).has_value());
  SessionsLogReader bo(g.roll.SessionLogPath[2]);
  ASSERT_TRUE(bo.Read(1, r)) << bo.error();
  EXPECT_EQ(r[kHandleValue], kMoneyLimit);
  EXPECT_EQ(r[kFirstStackValue], -kMoneyLimit);
}

TEST_F(SessionsLog, DamagedFilesGiveTheirMessageAndDeletionsKeepTheFileLength) {
  const std::string good = ReadWholeFile(Log({1, 2}));
  std::string wrongText = good;
  wrongText.replace(0, 8, "Ravelto_");
  wrongText.replace(22, 15, "Data Format 4.0");
  std::string shortCount = good;
  shortCount[92] = 5;
  std::string negative = good;
  negative[95] = '\x80';
  const std::string cases[] = {"",       good.substr(0, 100),      wrongText, shortCount,
                               negative, good.substr(0, 256 + 100)};
  for (const std::string& bytes : cases) {
    const std::string path = Path("bad.slg");
    WriteWholeFile(path, bytes);
    SessionsLogReader log(path);
    EXPECT_FALSE(log.ok()) << bytes.size();
    EXPECT_EQ(log.error(), path +
                               "\ris either from an older version, has been corrupted, or is not a "
                               "true Ravelton Sessions Log.");
    EXPECT_EQ(Figures(path).error, log.error());
    // A damaged log is never written over.
    SessionRecord r{};
    EXPECT_TRUE(AppendSessionRecord(path, r).has_value());
    EXPECT_EQ(ReadWholeFile(path), bytes);
  }
  // An amount no session can hold is damage too, told when its record is
  // read: the figures never add it up.
  std::string huge = good;
  for (int s = 1; s <= 2; ++s) huge.replace(s * 256 + 8 * kNetValue, 8, "\xff\xff\xff\xff\xff\xff\xff\x7f");
  const std::string path = Path("huge.slg");
  WriteWholeFile(path, huge);
  const SessionsFigures figures = Figures(path);
  EXPECT_EQ(figures.error, DamagedLogMessage(path));
  EXPECT_EQ(figures.included, 0);
  std::string error;
  SessionsRequest rq;
  rq.path = path;
  SessionsRawDataPrintout(g, rq, "Ann", CalendarDate{}, error);
  EXPECT_EQ(error, DamagedLogMessage(path));
  EXPECT_EQ(FindSessionValue(rq, Currency::FromRaw(INT64_MAX), 1), 0);
  // A missing log is an empty one.
  SessionsLogReader missing(Path("none.slg"));
  EXPECT_TRUE(missing.ok());
  EXPECT_EQ(missing.count(), 0);
  EXPECT_EQ(Figures(Path("none.slg")).rangeShare.text, "0%");

  // Deletions keep the file length.
  const std::string four = Log({1, 2, 3, 4}, "four.slg");
  const std::uintmax_t length = fs::file_size(four);
  EXPECT_EQ(DeleteSessions(four, 3, 2), "");  // read as 2 to 3
  EXPECT_EQ(fs::file_size(four), length);
  SessionsLogReader log(four);
  ASSERT_EQ(log.count(), 2);
  SessionRecord r{};
  ASSERT_TRUE(log.Read(2, r));
  EXPECT_EQ(r[kNetValue], 4_usd);
  EXPECT_EQ(DeleteSessions(four, 1, 3), "No sessions deleted.  Entry out of range.");
  EXPECT_EQ(DeleteSessions(four, 2, 2), "");
  EXPECT_EQ(SessionsLogReader(four).count(), 1);
  // The header count rules: a new record goes right after it.
  SessionRecord extra{};
  extra[kNetValue] = 9_usd;
  ASSERT_FALSE(AppendSessionRecord(four, extra).has_value());
  EXPECT_EQ(Figures(four).sum, 10_usd);
}

TEST_F(SessionsLog, AMergeAddsTheOtherLogsSessionsAfterItsCountOrLeavesBothAsTheyWere) {
  const std::string into = Log({1, 2, 3}, "into.slg");
  ASSERT_EQ(DeleteSessions(into, 3, 3), "");  // a record left past the count
  const std::string from = Log({7, -8}, "from.slg");
  const std::string fromBytes = ReadWholeFile(from);
  ASSERT_FALSE(MergeSessionsLogs(into, from).has_value());
  SessionsLogReader merged(into);
  ASSERT_EQ(merged.count(), 4);
  std::vector<Currency> nets;
  SessionRecord r{};
  for (std::int32_t s = 1; s <= merged.count(); ++s) {
    ASSERT_TRUE(merged.Read(s, r));
    nets.push_back(r[kNetValue]);
  }
  EXPECT_EQ(nets, (std::vector<Currency>{1_usd, 2_usd, 7_usd, -8_usd}));
  EXPECT_EQ(ReadWholeFile(from), fromBytes);
  // A log not yet written becomes a copy of the other.
  ASSERT_FALSE(MergeSessionsLogs(Path("new.slg"), from).has_value());
  EXPECT_EQ(ReadWholeFile(Path("new.slg")), fromBytes);

  // A damaged record in the other log, or a damaged log, stops the merge
  // before anything is written.
  const std::string before = ReadWholeFile(into);
  std::string damaged = fromBytes;
  damaged.replace(2 * 256 + 8 * kNetValue, 8, "\xff\xff\xff\xff\xff\xff\xff\x7f");
  WriteWholeFile(from, damaged);
  EXPECT_EQ(MergeSessionsLogs(into, from), DamagedLogMessage(from));
  EXPECT_EQ(ReadWholeFile(into), before);
  WriteWholeFile(from, fromBytes);
  WriteWholeFile(into, before.substr(0, 100));
  EXPECT_EQ(MergeSessionsLogs(into, from), DamagedLogMessage(into));
  EXPECT_EQ(ReadWholeFile(into), before.substr(0, 100));
  for (const auto& entry : fs::directory_iterator(folder.Path()))  // no temporary file left behind
    EXPECT_NE(entry.path().filename().string().front(), '.') << entry.path();
}

TEST_F(SessionsLog, FiguresOfOneTwoAndManySessionsBreakPointsRangeBoxesAndFind) {
  const SessionsFigures f = Figures(Log({25}));
  EXPECT_EQ(f.range, Currency{});
  EXPECT_EQ(f.columns[262].count, 1);
  // No deviation adds no moment: the kurtosis is the bare excess, -3.
  EXPECT_EQ(std::tuple(f.variance, f.skew, f.kurtosis), std::tuple(0.0, 0.0, -3.0));
  EXPECT_EQ(Result(f, "Median"), "25.0");
  EXPECT_EQ(Result(f, "Advantage"), "25.0 %");
  EXPECT_EQ(f.classCounts[0].text, "1");
  EXPECT_EQ(f.classPercents[3].text, "100");
  // Two sessions: the median between them is marked.
  const SessionsFigures apart = Figures(Log({10, 30}, "two.slg"));
  EXPECT_EQ(apart.results[2].first, "   Median *");
  EXPECT_EQ(apart.median, 20_usd);
  EXPECT_EQ(Result(apart, "Variance"), "100.0");
  EXPECT_EQ(Result(apart, "Std Dev"), "10.0");
  const SessionsFigures same = Figures(Log({7, 7}, "same.slg"));
  EXPECT_EQ(same.results[2].first, "Median");
  EXPECT_EQ(same.median, 7_usd);

  // Classes by net against 0: won 3, broke even 1, lost 2.
  const std::string path = Log({10, 10, 20, 20, 0, -5, -30}, "many.slg");
  const SessionsFigures many = Figures(path);
  EXPECT_EQ(
      many.classCounts[0].text + " " + many.classCounts[1].text + " " + many.classCounts[2].text,
      "4 1 2");
  EXPECT_EQ(many.classPercents[0].text, "57.14");
  EXPECT_EQ(many.sum, 25_usd);
  EXPECT_EQ(many.median, 10_usd);
  // Mode ties (10 and 20 twice each) go to the lowest bar.
  for (auto [label, text] : {std::pair{"Mode", "10.0"}, {"Range", "50.0"}, {"Mid", "-5.0"}})
    EXPECT_EQ(Result(many, label), text);
  // Won sessions alone: an even count, the median between 10 and 20.
  const SessionsFigures won = Figures(path, kIncludeWon);
  EXPECT_EQ(won.included, 4);
  EXPECT_EQ(won.median, 15_usd);
  EXPECT_EQ(Result(Figures(path, kIncludeWon, 525), "Mode"), "10.0 to 20.0");
  // Nothing ticked: no sample, the classes still counted.
  const SessionsFigures none = Figures(path, 0);
  EXPECT_EQ(none.included, 0);
  EXPECT_EQ(none.classCounts[3].text, "7");
  EXPECT_EQ(Result(none, "Mean"), "0");

  // 0 to 1,000,000 puts 100..103 into column 0 with 0: the median needs a narrower pass.
  const SessionsFigures narrow = Figures(Log({0, 100, 101, 102, 103, 1'000'000}, "narrow.slg"));
  EXPECT_EQ(narrow.columns[0].count, 5);
  EXPECT_EQ(narrow.median, Currency::FromRaw(1'015'000));
  EXPECT_TRUE(narrow.medianBetween);
  EXPECT_EQ(Figures(Log({0, 100, 101, 102, 103, 104, 1'000'000}, "odd.slg")).median, 102_usd);

  // Break points and range boxes on the many sessions.
  SessionsRequest rq;
  rq.path = path;
  rq.breakLow = -5_usd;
  rq.breakHigh = 10_usd;
  rq.rangeValue = {0.0, 20.0};
  SessionsFigures split = FigureSessionsLog(rq);
  EXPECT_EQ(split.classLabels[0], "> 10");
  EXPECT_EQ(split.classLabels[1], "-5 - 10");
  EXPECT_EQ(split.classLabels[2], "< -5");
  EXPECT_EQ(split.classCounts[0].text, "2");  // 20, 20
  EXPECT_EQ(split.classCounts[1].text, "4");  // 10, 10, 0, -5
  EXPECT_EQ(split.rangeCount.text, "5 sessions");
  EXPECT_EQ(split.rangeShare.text, "71.43%");
  // Boxes beyond the sample are pulled to its ends.
  rq.rangeValue = {std::nullopt, 500.0};
  split = FigureSessionsLog(rq);
  EXPECT_EQ(split.rangeValue[0], -30);
  EXPECT_EQ(split.rangeValue[1], 20);

  // Find, forward and backward from the top session with wrapping: the top
  // session itself tested last, sessions outside the included classes skipped.
  rq = {};
  rq.path = Log({10, -5, 10, 0, 7}, "find.slg");
  rq.value = kNetValue;
  auto find = [&rq](int wanted, int direction, std::int32_t top) {
    rq.rawTop = top;
    return FindSessionValue(rq, Currency::FromWhole(wanted), direction);
  };
  EXPECT_EQ(find(10, 1, 1), 3);
  EXPECT_EQ(find(10, 1, 3), 1);  // past the end, round to the start
  EXPECT_EQ(find(10, -1, 3), 1);
  EXPECT_EQ(find(10, -1, 1), 3);  // before the start, round to the end
  EXPECT_EQ(find(7, 1, 5), 5);    // only the top itself holds it
  EXPECT_EQ(find(99, 1, 2), 0);
  rq.filter = kIncludeLost | kIncludeEven;  // the won sessions left out
  EXPECT_EQ(find(10, 1, 1), 0);
  EXPECT_EQ(find(-5, 1, 1), 2);
  rq.filter = kIncludeWon | kIncludeLost;
  EXPECT_EQ(find(0, 1, 1), 0);
  rq.path += ".missing";
  EXPECT_EQ(find(10, 1, 1), 0);
}

class SessionsPrintouts : public SessionsLog {
 protected:
  SessionsPrintouts() {
    SeatPlayer(g, 1, "Ann", 500_usd);
    g.views.SessionsPlayer = 1;
    g.views.SessionsView = kNetValue;
    g.roll.SessionLogPath[1] = path;
  }
  SessionsFigures ViewFigures() { return FigureSessionsLog(SessionsRequestOf(g, path)); }
  static std::string Text(const PrintLine& line, std::size_t cell = 0) {
    return cell < line.cells.size() ? line.cells[cell].text : std::string("(none)");
  }
  const std::string path = Path("ann.slg");
};

TEST_F(SessionsPrintouts, HistogramPrintsTheViewsFiguresAndItsPicture) {
  Log({30, -10, 0, 30}, "ann.slg");
  const SessionsFigures f = ViewFigures();
  const PrintDocument doc = SessionsHistogramPrintout(g, f, "Ann", path, CalendarDate{2026, 11, 23});
  ASSERT_GE(doc.lines.size(), 4u);
  EXPECT_EQ(Text(doc.lines[0]), "Ravelton Sessions Log for Ann");
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

  // The results beside their labels, coloured by sign.
  bool sawMean = false;
  for (const PrintLine& line : doc.lines)
    for (std::size_t i = 0; i + 1 < line.cells.size(); ++i)
      if (line.cells[i].text == "Mean") {
        sawMean = true;
        EXPECT_EQ(line.cells[i + 1].text, "12.5");
        EXPECT_EQ(line.cells[i + 1].colour, g.rules.PrintColors[0]);
      }
  EXPECT_TRUE(sawMean);
}

TEST_F(SessionsPrintouts, RawDataStreamsTheIncludedSessionsDownColumnsPageByPage) {
  // 131 sessions, every tenth lost: 118 won ones are left with lost ones out.
  std::vector<double> nets;
  for (int s = 1; s <= 131; ++s) nets.push_back(s % 10 == 0 ? -s : s);
  Log(nets, "ann.slg");
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
  EXPECT_EQ(Text(row, 0) + " " + Text(row, 2) + " " + Text(row, 3) + " " + Text(row, 4),
            "1 45 45.0 89");
  EXPECT_EQ(row.cells[1].colour, g.rules.PrintColors[0]);
  for (const PrintLine& line : one.lines)
    for (const PrintCell& cell : line.cells) EXPECT_NE(cell.text, "10") << "a lost session printed";

  // All included: two pages, the second under its own heading.
  g.views.SessionsFilter = kIncludeWon | kIncludeEven | kIncludeLost;
  const PrintDocument two = SessionsRawDataPrintout(g, SessionsRequestOf(g, path), "Ann", {}, error);
  ASSERT_EQ(two.lines.size(), 46u + 6u + 11u);  // the last page ends at its last row
  EXPECT_EQ(Text(two.lines[46]), "Ravelton Sessions Log for Ann");
  EXPECT_EQ(Text(two.lines[46 + 6]), "121");
  const PrintLine& lost = two.lines[6 + 9];  // session 10
  EXPECT_EQ(Text(lost, 1), "-10.0");
  EXPECT_EQ(lost.cells[1].colour, g.rules.PrintColors[1]);
}

TEST_F(SessionsPrintouts, TheRawDataConfirmationCountsTheIncludedSessionsAndPages) {
  // The refusals and the printing itself go through the form's test; here
  // the counts: the lost sessions left out, then all 123 over two pages.
  g.views.SessionsFilter = kIncludeWon | kIncludeEven;
  Log({-5, 7}, "ann.slg");
  platform.queuedReplies.push_back({kAnswerNo, "", "", false});
  EXPECT_FALSE(PrintSessionsRawData(g, SessionsRequestOf(g, path), ViewFigures()));
  EXPECT_EQ(platform.messages.back().text,
            "Number of sessions to be printed: 1\r\rThis should result in 1 page.\r\r"
            "Are you ready to begin printing?");
  EXPECT_TRUE(platform.printed.empty());
  g.views.SessionsFilter = kIncludeWon | kIncludeEven | kIncludeLost;
  Log(std::vector<double>(121, 1), "ann.slg");
  platform.queuedReplies.push_back({kAnswerNo, "", "", false});
  PrintSessionsRawData(g, SessionsRequestOf(g, path), ViewFigures());
  EXPECT_NE(platform.messages.back().text.find("printed: 123\r\rThis should result in 2 pages."),
            std::string::npos);
}

TEST_F(SessionsPrintouts, ADroppedRangeLineGivesTheValueOfItsColumn) {
  Log({-100, 0, 424}, "ann.slg");
  const SessionsFigures f = ViewFigures();
  // A column and its value; 900 is past the last column.
  for (auto [column, value] : {std::pair{100, 0.0}, {524, 424.0}, {900, 424.0}})
    EXPECT_DOUBLE_EQ(ValueAtColumn(f, column), value) << column;
  // The lines stand at columns 0 and 524; a grab reaches three columns.
  for (auto [column, line] : {std::pair{2, 0}, {521, 1}, {262, -1}})
    EXPECT_EQ(RangeLineNear(f, column, 3), line) << column;
  EXPECT_EQ(RangeLineNear(SessionsFigures{}, 0, 3), -1);  // nothing included
  // A range of nothing: every column is the one value.
  EXPECT_DOUBLE_EQ(ValueAtColumn(Figures(Log({5, 5}, "flat.slg")), 300), 5);
}

}  // namespace
