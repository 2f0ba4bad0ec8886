// Sessions logs: the file's bytes, records written by a new session and a
// cash-out, damaged files refused with their message, deletions, the view's
// statistics over logs of one, two and many sessions, and Find in the data
// list.
#include "stats/sessions_log.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "../engine/roll_fixture.h"
#include "core/message_dialog.h"
#include "cycle/session.h"
#include "engine/players.h"
#include "stats/sessions_find.h"
#include "stats/sessions_stats.h"

namespace {

namespace fs = std::filesystem;

class SessionsLog : public RollFixture {
 protected:
  std::string Path(const std::string& name) const { return folder / name; }

  // A log whose sessions have these nets (value 8) and handles of 100 each.
  std::string Log(std::initializer_list<double> nets, const std::string& name = "log.slg") {
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

TEST_F(SessionsLog, HeaderAndRecordBytes) {
  const std::string path = Log({12.5, -3});
  const std::string b = ReadWholeFile(path);
  ASSERT_EQ(b.size(), 3u * 256);
  EXPECT_EQ(b.substr(0, 38), "Ravelton Sessions Log, Data Format 5.0");
  EXPECT_EQ(b.substr(38, 92 - 38), std::string(92 - 38, ' '));
  EXPECT_EQ(b.substr(92, 4), std::string("\x02\0\0\0", 4));
  EXPECT_EQ(b.substr(96), b.substr(96, 160) + b.substr(256));
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
}

TEST_F(SessionsLog, NewSessionAndCashOutWriteTheClosingRecord) {
  SeatPlayer(g, 1, "Ann", 500_usd);
  NewSession(g, true, false, true, 2);  // no rolls yet: nothing written
  EXPECT_FALSE(fs::exists(Path("ann.slg")));
  Roll(3, 4);
  Roll(2, 2);
  NewSession(g, true, false, true, 2);
  Roll(5, 6);
  g.betting.CurPlayer = 1;
  MessageReply yes;
  yes.answer = kAnswerYes;
  platform.queuedReplies.push_back(yes);
  ASSERT_TRUE(CashOutPlayer(g));
  SessionsLogReader log(Path("ann.slg"));
  ASSERT_TRUE(log.ok()) << log.error();
  ASSERT_EQ(log.count(), 2);
  SessionRecord r{};
  ASSERT_TRUE(log.Read(1, r));
  EXPECT_EQ(r[0], 2_usd);  // two rolls at the table
  EXPECT_EQ(r[10], 500_usd);
  EXPECT_EQ(r[11], 500_usd);
  ASSERT_TRUE(log.Read(2, r));
  EXPECT_EQ(r[0], 1_usd);
}

TEST_F(SessionsLog, DamagedFilesGiveTheirMessage) {
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
  // A missing log is an empty one.
  SessionsLogReader missing(Path("none.slg"));
  EXPECT_TRUE(missing.ok());
  EXPECT_EQ(missing.count(), 0);
  EXPECT_EQ(Figures(Path("none.slg")).rangeShare.text, "0%");
}

TEST_F(SessionsLog, DeletionsKeepTheFileLength) {
  const std::string path = Log({1, 2, 3, 4});
  const std::uintmax_t length = fs::file_size(path);
  EXPECT_EQ(DeleteSessions(path, 3, 2), "");  // read as 2 to 3
  EXPECT_EQ(fs::file_size(path), length);
  SessionsLogReader log(path);
  ASSERT_EQ(log.count(), 2);
  SessionRecord r{};
  ASSERT_TRUE(log.Read(2, r));
  EXPECT_EQ(r[kNetValue], 4_usd);
  EXPECT_EQ(DeleteSessions(path, 1, 3), "No sessions deleted.  Entry out of range.");
  EXPECT_EQ(DeleteSessions(path, 2, 2), "");
  EXPECT_EQ(SessionsLogReader(path).count(), 1);
  // The header count rules: a new record goes right after it.
  SessionRecord extra{};
  extra[kNetValue] = 9_usd;
  ASSERT_FALSE(AppendSessionRecord(path, extra).has_value());
  EXPECT_EQ(Figures(path).sum, 10_usd);
}

TEST_F(SessionsLog, OneSession) {
  const SessionsFigures f = Figures(Log({25}));
  EXPECT_EQ(f.range, Currency{});
  EXPECT_EQ(f.columns[262].count, 1);
  EXPECT_EQ(f.variance, 0);
  EXPECT_EQ(f.skew, 0);
  EXPECT_EQ(f.kurtosis, 0);
  EXPECT_EQ(f.results[2].first, "Median");
  EXPECT_EQ(Result(f, "Median"), "25.0");
  EXPECT_EQ(Result(f, "Advantage"), "25.0 %");
  EXPECT_EQ(f.classCounts[0].text, "1");
  EXPECT_EQ(f.classPercents[3].text, "100");
}

TEST_F(SessionsLog, TwoSessions) {
  const SessionsFigures apart = Figures(Log({10, 30}));
  EXPECT_EQ(apart.results[2].first, "   Median *");
  EXPECT_EQ(apart.median, 20_usd);
  EXPECT_EQ(Result(apart, "Variance"), "100.0");
  EXPECT_EQ(Result(apart, "Std Dev"), "10.0");
  const SessionsFigures same = Figures(Log({7, 7}, "same.slg"));
  EXPECT_EQ(same.results[2].first, "Median");
  EXPECT_EQ(same.median, 7_usd);
}

TEST_F(SessionsLog, ManySessions) {
  // Classes by net against 0: won 3, broke even 1, lost 2.
  const std::string path = Log({10, 10, 20, 20, 0, -5, -30});
  const SessionsFigures f = Figures(path);
  EXPECT_EQ(f.classCounts[0].text, "4");
  EXPECT_EQ(f.classCounts[1].text, "1");
  EXPECT_EQ(f.classCounts[2].text, "2");
  EXPECT_EQ(f.classPercents[0].text, "57.14");
  EXPECT_EQ(f.sum, 25_usd);
  EXPECT_EQ(f.median, 10_usd);
  // Mode ties (10 and 20 twice each) go to the lowest bar.
  EXPECT_EQ(Result(f, "Mode"), "10.0");
  EXPECT_EQ(Result(f, "Range"), "50.0");
  EXPECT_EQ(Result(f, "Mid"), "-5.0");
  // Won sessions alone: an even count, the median between 10 and 20.
  const SessionsFigures won = Figures(path, kIncludeWon);
  EXPECT_EQ(won.included, 4);
  EXPECT_EQ(won.median, 15_usd);
  EXPECT_EQ(won.results[2].first, "   Median *");
  EXPECT_EQ(Result(won, "Mode"), "10.0");
  EXPECT_EQ(Result(Figures(path, kIncludeWon, 525), "Mode"), "10.0 to 20.0");
  // Nothing ticked: no sample, the classes still counted.
  const SessionsFigures none = Figures(path, 0);
  EXPECT_EQ(none.included, 0);
  EXPECT_EQ(none.classCounts[3].text, "7");
  EXPECT_EQ(none.rangeShare.text, "0%");
  EXPECT_EQ(Result(none, "Mean"), "0");
}

TEST_F(SessionsLog, TheMedianIsExactInsideOneColumn) {
  // 0 to 1,000,000 puts 100..103 into column 0 with 0: the median needs a narrower pass.
  const SessionsFigures f = Figures(Log({0, 100, 101, 102, 103, 1'000'000}));
  EXPECT_EQ(f.columns[0].count, 5);
  EXPECT_EQ(f.median, Currency::FromRaw(1'015'000));
  EXPECT_TRUE(f.medianBetween);
  EXPECT_EQ(Figures(Log({0, 100, 101, 102, 103, 104, 1'000'000}, "odd.slg")).median, 102_usd);
}

TEST_F(SessionsLog, BreakPointsAndRangeBoxes) {
  const std::string path = Log({10, 10, 20, 20, 0, -5, -30});
  SessionsRequest rq;
  rq.path = path;
  rq.breakLow = -5_usd;
  rq.breakHigh = 10_usd;
  rq.rangeValue = {0.0, 20.0};
  SessionsFigures f = FigureSessionsLog(rq);
  EXPECT_EQ(f.classLabels[0], "> 10");
  EXPECT_EQ(f.classLabels[1], "-5 - 10");
  EXPECT_EQ(f.classLabels[2], "< -5");
  EXPECT_EQ(f.classCounts[0].text, "2");  // 20, 20
  EXPECT_EQ(f.classCounts[1].text, "4");  // 10, 10, 0, -5
  EXPECT_EQ(f.rangeCount.text, "5 sessions");
  EXPECT_EQ(f.rangeShare.text, "71.43%");
  // Boxes beyond the sample are pulled to its ends.
  rq.rangeValue = {std::nullopt, 500.0};
  f = FigureSessionsLog(rq);
  EXPECT_EQ(f.rangeValue[0], -30);
  EXPECT_EQ(f.rangeValue[1], 20);
}

// Find, forward and backward from the top session with wrapping: the top
// session itself tested last, sessions outside the included classes skipped.
TEST_F(SessionsLog, FindWalksFromTheTopWrappingAndSkipsClassesLeftOut) {
  SessionsRequest rq;
  rq.path = Log({10, -5, 10, 0, 7});
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

}  // namespace
