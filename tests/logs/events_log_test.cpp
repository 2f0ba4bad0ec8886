// The events log file and its index: the writer keeps one record per line,
// a reader rebuilds any index that does not fit its log, pages come from the
// middle of a large log by the index alone, Find wraps, and the viewer's
// scroll bar reaches every line. The printout: every line of the file in
// order under the heading, an empty log refused. And with the log on for
// every kind and a dice roll file recording, a Hyper-Drive roll allocates
// nothing once the log's buffers exist. Last, every format of its lines.
#include "logs/events_log.h"

#include <gtest/gtest.h>

#include <fstream>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "automation/autoplay_state.h"
#include "core/catalogue.h"
#include "core/file_io.h"
#include "core/message_dialog.h"
#include "cycle/hyperdrive.h"
#include "cycle/player_names.h"
#include "cycle/session.h"
#include "dice/dice_file.h"
#include "dice/rng.h"
#include "engine/place.h"
#include "engine/players.h"
#include "logs/events_log_index.h"
#include "logs/events_log_print.h"
#include "logs/events_log_view.h"
#include "tests/engine/roll_fixture.h"
#include "tests/support/count_allocations.h"

namespace {

// The index a log must have: the 1-based start of every line, 4 bytes each.
std::string ModelIndex(const std::string& log) {
  std::string index;
  for (std::size_t i = 0; i < log.size(); ++i) {
    if (i != 0 && log[i - 1] != '\n') continue;
    unsigned char r[4];
    PutLong32(r, static_cast<std::uint32_t>(i + 1));
    index.append(reinterpret_cast<char*>(r), 4);
  }
  return index;
}

// The lines of a log as a reader shows them: split at LF, CR LF removed.
std::vector<std::string> ModelLines(const std::string& log) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < log.size()) {
    auto end = log.find('\n', start);
    if (end == std::string::npos) end = log.size();
    std::string line = log.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
    start = end + 1;
  }
  return lines;
}

class EventsLog : public RollFixture {
 protected:
  EventsLog() { g.roll.LogOn = true; }
  std::string LogPath() const { return g.roll.EventsLogPath; }
  std::string IndexPath() const { return g.eventsLog.IndexPath; }
  std::string Log() { return ReadWholeFile(LogPath()); }
  std::string Index() { return ReadWholeFile(IndexPath()); }
  // Writes n numbered lines as a roll does: held back, then flushed.
  void WriteInRoll(int n, const std::string& stem = "line ") {
    g.RollBusy = true;
    for (int i = 1; i <= n; ++i) {
      std::string& l = StartEventLine(g);
      l += stem;
      AppendWhole(l, i);
      WriteEventLine(g, l);
    }
    g.RollBusy = false;
    ASSERT_TRUE(FlushEventsLog(g));
  }
  // Puts `index` beside the log with the log's time stamp, where the check
  // of a few records takes it.
  void PlantSoundLookingIndex(const std::string& index) {
    WriteWholeFile(IndexPath(), index);
    ASSERT_TRUE(CopyModificationTime(LogPath(), IndexPath()));
    ASSERT_TRUE(EventsLogIndexMatches(LogPath(), IndexPath()));
  }
  // Every line as the printout's pass visits it; no error.
  std::vector<std::string> PrintedLines() {
    std::vector<std::string> printed;
    std::string error;
    ForEachEventLine(
        g, [&](std::string& line) { printed.push_back(line); }, error);
    EXPECT_TRUE(error.empty()) << error;
    return printed;
  }
};

TEST_F(EventsLog, LinesEndInCrLfAndTheIndexKeepsInStep) {
  WriteEventLine(g, "first");  // outside a roll: on disk at once
  EXPECT_EQ(Log(), "first\r\n");
  EXPECT_EQ(Index(), ModelIndex("first\r\n"));  // the first line sits at position 1

  g.RollBusy = true;
  WriteEventLine(g, "held");
  WriteEventLine(g, "");
  EXPECT_EQ(Log(), "first\r\n") << "a roll's lines wait for its end";
  g.RollBusy = false;
  FlushEventsLog(g);
  EXPECT_EQ(Log(), "first\r\nheld\r\n\r\n");
  EXPECT_EQ(Index(), ModelIndex(Log()));

  // A batch larger than the writer's buffer goes out in pieces, still in step.
  WriteInRoll(static_cast<int>(kEventsLogBatch / 8), "a somewhat longer line of the log #");
  EXPECT_EQ(Index(), ModelIndex(Log()));
  EXPECT_TRUE(EventsLogIndexMatches(LogPath(), IndexPath()));
  EXPECT_TRUE(g.eventsLog.WriteError.empty());
}

TEST_F(EventsLog, ANewSessionMayClearTheLogAndNothingIsWrittenWithItOff) {
  Roll(1, 1);
  g.roll.LogClearOnNew = true;
  g.eventsLog.LogTopLine = 9;
  NewSession(g, false, false, true, 0);
  EXPECT_EQ(Log().find(" New session started "), 0u) << "a cleared log starts afresh";
  EXPECT_EQ(Index(), ModelIndex(Log()));
  EXPECT_EQ(g.eventsLog.LogTopLine, 1);

  g.roll.LogOn = false;
  const std::string before = Log();
  Roll(6, 6);
  EXPECT_EQ(Log(), before) << "nothing is written with the log off";
}

TEST_F(EventsLog, TheTopLineFollowsRollLinesOnlyWhenAsked) {
  WriteInRoll(5);
  Roll(2, 3);
  EXPECT_EQ(g.eventsLog.LogTopLine, 1);
  g.roll.LogRollOnTop = true;
  Roll(2, 3);  // lines 7 ("Roll #2") and 8 (its pass line)
  EXPECT_EQ(g.eventsLog.LogTopLine, 8);
  EXPECT_EQ(ReadEventLines(g, 8, 1).lines.at(0), " Roll #2:  5 (2.3) from manual roll pad");
}

// Every way an index can fail its log: the reader rebuilds it, and the page
// and the new index are those of the log as it is.
TEST_F(EventsLog, AnIndexThatDoesNotFitItsLogIsRebuilt) {
  const std::string good = "one\r\ntwo\r\n\r\nfour\r\nfive\r\n";
  std::string pastTheEnd = ModelIndex(good);
  PutLong32(reinterpret_cast<unsigned char*>(pastTheEnd.data()) + 16, 1000);
  struct Case {
    const char* what;
    std::string log;
    std::optional<std::string> index;  // none: no index file
    bool sameStamp = false;            // the index gets the log's time stamp
    const char* logTail = "";          // then appended to the log
  };
  const Case cases[] = {
      {"missing index", good, std::nullopt},
      {"part of a record", good, ModelIndex(good) + 'x'},
      {"one record short", good, ModelIndex(good).substr(4), true},
      {"garbage records, same length and stamp", good, std::string(20, '\x7f'), true},
      {"positions past the end", good, pastTheEnd, true},
      {"log appended by hand", good, ModelIndex(good), false, "six\r\n"},
      {"log without a last line end", "a\r\nb\r\nlast", std::nullopt},
      {"log emptied, same stamp", "", std::string(8, '\0'), true},
      {"bare LF lines and a lone CR", "x\ny\r\rz\n", "junk"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    WriteWholeFile(LogPath(), c.log);
    std::string error;
    ASSERT_TRUE(BuildEventsLogRef(LogPath(), IndexPath(), error));
    ASSERT_TRUE(EventsLogIndexMatches(LogPath(), IndexPath()));
    RemoveFileIfPresent(IndexPath());
    if (c.index) WriteWholeFile(IndexPath(), *c.index);
    if (c.sameStamp) CopyModificationTime(LogPath(), IndexPath());
    std::ofstream(LogPath(), std::ios::app | std::ios::binary) << c.logTail;
    const std::string log = Log();
    EXPECT_FALSE(EventsLogIndexMatches(LogPath(), IndexPath()));
    const auto want = ModelLines(log);
    const EventsLogPage page = ReadEventLines(g, 1, 100);
    EXPECT_TRUE(page.error.empty()) << page.error;
    EXPECT_EQ(page.lineCount, static_cast<std::int64_t>(want.size()));
    EXPECT_EQ(page.lines, want);
    EXPECT_EQ(Index(), ModelIndex(log));
    EXPECT_TRUE(EventsLogIndexMatches(LogPath(), IndexPath()));
  }
}

// An index whose first, middle and last records and time stamp are right
// but one of whose other records is off a line start: a page, the printout's
// pass and Find each meet it, build the index afresh and show the log as it
// is.
TEST_F(EventsLog, AWrongRecordInsideASoundLookingIndexIsRebuiltWhenReadingMeetsIt) {
  const std::string good = "one\r\ntwo\r\nthree\r\nfour\r\nfive\r\n";
  WriteWholeFile(LogPath(), good);
  auto spoil = [&](int record, std::uint32_t at) {
    std::string index = ModelIndex(good);
    PutLong32(reinterpret_cast<unsigned char*>(index.data()) + 4 * (record - 1), at);
    PlantSoundLookingIndex(index);
  };
  spoil(2, 7);  // inside "two"
  const EventsLogPage page = ReadEventLines(g, 2, 2);
  EXPECT_TRUE(page.error.empty()) << page.error;
  EXPECT_EQ(page.lines, (std::vector<std::string>{"two", "three"}));
  EXPECT_EQ(Index(), ModelIndex(good));

  spoil(4, 13);  // inside "three"
  EXPECT_EQ(PrintedLines(), ModelLines(good));
  EXPECT_EQ(Index(), ModelIndex(good));

  spoil(4, 30);  // past the end
  g.eventsLog.FindText = "four";
  g.eventsLog.LogTopLine = 1;
  EXPECT_TRUE(FindInEventsLog(g, +1));
  EXPECT_EQ(g.eventsLog.LogTopLine, 4);
}

// An index that skips a whole line has every record on a line start, so
// only the record over two lines shows it: a page, the printout's pass and
// Find each build the index afresh on meeting it, and show the skipped line.
TEST_F(EventsLog, AnIndexSkippingAWholeLineIsRebuiltByAPageOrAPassOverIt) {
  const std::string good = "one\r\ntwo\r\nthree\r\nfour\r\nfive\r\nsix\r\n";
  WriteWholeFile(LogPath(), good);
  const std::string whole = ModelIndex(good);
  auto skipTwo = [&] { PlantSoundLookingIndex(whole.substr(0, 4) + whole.substr(8)); };
  skipTwo();
  const EventsLogPage page = ReadEventLines(g, 1, 3);
  EXPECT_TRUE(page.error.empty()) << page.error;
  EXPECT_EQ(page.lineCount, 6);
  EXPECT_EQ(page.lines, (std::vector<std::string>{"one", "two", "three"}));
  EXPECT_EQ(Index(), whole);

  skipTwo();
  EXPECT_EQ(PrintedLines(), ModelLines(good));
  EXPECT_EQ(Index(), whole);

  // Find meets the record over two lines last, from the top line, and
  // searches again by the new index.
  skipTwo();
  g.eventsLog.FindText = "two";
  g.eventsLog.LogTopLine = 1;
  EXPECT_TRUE(FindInEventsLog(g, +1));
  EXPECT_EQ(g.eventsLog.LogTopLine, 2);
}

TEST_F(EventsLog, TheWriterRebuildsAnIndexThatCannotBelongBeforeAppending) {
  WriteWholeFile(LogPath(), "kept\r\nfrom before\r\n");
  RemoveFileIfPresent(IndexPath());
  WriteEventLine(g, "new");
  EXPECT_EQ(Index(), ModelIndex(Log()));
  EXPECT_EQ(ReadEventLines(g, 3, 1).lines, std::vector<std::string>{"new"});
}

TEST_F(EventsLog, AMillionLinesArePagedFromTheMiddleByTheIndexAlone) {
  constexpr int kLines = 1'000'000;
  WriteInRoll(kLines, "event number ");
  // Spoil the log's first bytes (no line ends among them) and put its time
  // stamp back: a reader that read from the start or rebuilt the index
  // would now number the lines differently.
  {
    FileHandle f = OpenForUpdate(LogPath());
    ASSERT_TRUE(WriteAt(f, 0, "XXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXX", 43));
  }
  ASSERT_TRUE(CopyModificationTime(IndexPath(), LogPath()));
  const EventsLogPage page = ReadEventLines(g, 500'000, 3);
  EXPECT_EQ(page.lineCount, kLines);
  EXPECT_EQ(page.lines, (std::vector<std::string>{"event number 500000", "event number 500001",
                                                  "event number 500002"}));
  EXPECT_EQ(ReadEventLines(g, kLines, 5).lines, std::vector<std::string>{"event number 1000000"});
  // Paint clamps the top line into the log.
  g.eventsLog.LogTopLine = kLines + 7;
  EXPECT_EQ(PaintEventsLog(g, 2).first, kLines);
}

TEST_F(EventsLog, AHostileLineIsCutAndAMissingLogIsEmpty) {
  EXPECT_EQ(ReadEventLines(g, 1, 10).lineCount, 0);
  WriteWholeFile(LogPath(), std::string(200'000, 'A') + "\r\nshort\r\n");
  const EventsLogPage page = ReadEventLines(g, 1, 10);
  ASSERT_EQ(page.lines.size(), 2u);
  EXPECT_EQ(page.lines[0], std::string(kEventsLogShownLine, 'A'));
  EXPECT_EQ(page.lines[1], "short");
}

TEST_F(EventsLog, FindWrapsBothWaysAndSaysWhenNothingIsThere) {
  WriteInRoll(10'000, "Entry ");  // more lines than one chunk of the search
  // Forward past the end, back round to the last "Entry 4...", and a text
  // that is not there leaving the top line where it was.
  for (auto [text, from, direction, found, top] : {std::tuple{"entry 5000", 9000, +1, true, 5000},
                                                   {"entry 4", 2, -1, true, 4999},
                                                   {"absent", 4999, +1, false, 4999}}) {
    g.eventsLog.FindText = text;
    g.eventsLog.LogTopLine = from;
    EXPECT_EQ(FindInEventsLog(g, direction), found) << text;
    EXPECT_EQ(g.eventsLog.LogTopLine, top) << text;
  }
  ASSERT_FALSE(platform.messages.empty());
  EXPECT_EQ(platform.messages.back().text, "Text not found.");
  EXPECT_EQ(platform.messages.back().title, "Search Results");

  platform.queuedReplies.push_back({kAnswerOk, "Roll #", "", false});
  EXPECT_TRUE(AskFindText(g));
  EXPECT_EQ(g.eventsLog.FindText, "roll #");
}

TEST(EventsLogView, TheScrollBarReachesEveryLine) {
  struct Case {
    std::int64_t lines, top, value;
  };
  // The bar's value for a top line, and back from a dragged thumb.
  for (const Case c : {Case{100, 37, 37}, Case{30'000, 30'000, 30'000}, Case{30'001, 1, 1},
                       Case{30'001, 30'001, 30'000}, Case{60'000, 30'000, 15'000},
                       Case{1'000'000, 500'000, 15'000}}) {
    EXPECT_EQ(ScrollValueOfTopLine(c.top, c.lines), c.value) << c.lines << ' ' << c.top;
    EXPECT_EQ(TopLineOfThumb(c.value, c.lines), c.top) << c.lines << ' ' << c.value;
  }
  EXPECT_EQ(EventsLogScrollMax(30'001), 30'000);
  EXPECT_EQ(EventsLogScrollMax(12), 12);
  // Beyond the bar's range one click moves one line, to the very last.
  EXPECT_EQ(TopLineAfterScroll(30'000, 30'001, 29'999, 30'000), 30'001);
  EXPECT_EQ(TopLineAfterScroll(30'001, 30'001, 29'999, 30'000), 30'001);
  EXPECT_EQ(TopLineAfterScroll(5, 30'001, 2, 1), 4);
  EXPECT_EQ(TopLineAfterScroll(5, 100, 5, 80), 80);
}

TEST_F(EventsLog, NewOpenAndSaveAsMoveTheOneLogAndItsIndex) {
  WriteEventLine(g, "a");
  platform.queuedReplies.push_back({kAnswerCancel, "", "", false});
  EXPECT_EQ(AskSaveEventsLog(g), kAnswerCancel);
  EXPECT_EQ(platform.messages.back().title, "Save Events Log?");

  ASSERT_TRUE(SaveEventsLogAs(g, folder / "kept.txt"));
  EXPECT_EQ(EventsLogTitle(g), "Events Log (kept.txt)");
  EXPECT_EQ(AskSaveEventsLog(g), kAnswerOk) << "a log with its own name is not asked about";
  WriteEventLine(g, "b");
  EXPECT_EQ(ReadWholeFile(folder / "kept.txt"), "a\r\nb\r\n");

  StartNewEventsLog(g);
  EXPECT_EQ(g.roll.EventsLogPath, folder / "Events Log.txt");
  EXPECT_FALSE(FileExists(g.roll.EventsLogPath));
  EXPECT_EQ(ReadWholeFile(folder / "kept.txt"), "a\r\nb\r\n") << "a named log stays on disk";

  WriteEventLine(g, "fresh");
  OpenEventsLog(g, folder / "kept.txt");
  EXPECT_EQ(ReadEventLines(g, 2, 1).lines, std::vector<std::string>{"b"});
  EXPECT_EQ(Index(), ModelIndex("a\r\nb\r\n"));
}

TEST_F(EventsLog, AnUnwritableLogIsReportedAndTheGameGoesOn) {
  g.roll.EventsLogPath = folder / "no-such-folder-file/sub/Events Log.txt";
  WriteWholeFile(folder / "no-such-folder-file", "a file where a folder should be");
  Roll(3, 4);
  EXPECT_NE(g.eventsLog.WriteError.find("no-such-folder-file"), std::string::npos)
      << g.eventsLog.WriteError;
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 1);
}

// A log of more lines than one chunk read through the index prints each
// line once, in order, under the heading.
TEST_F(EventsLog, ThePrintoutHasEveryLineInTheViewersColoursAndAnEmptyLogIsRefused) {
  platform.fixedDate = CalendarDate{2026, 11, 23};
  g.rules.PrintColors = {9, 12, 13};
  EXPECT_FALSE(PrintEventsLog(g));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text, "There are no logged events to print.");
  EXPECT_EQ(platform.messages[0].title, "Print Events Log");
  EXPECT_TRUE(platform.printed.empty());

  Roll(3, 4);
  NewSession(g, false, false, true, 0);
  WriteEventLine(g, "a note of the player's");
  WriteInRoll(10'000, "Entry ");
  ASSERT_TRUE(PrintEventsLog(g));
  ASSERT_EQ(platform.printed.size(), 1u);
  const PrintDocument& doc = platform.printed[0];
  constexpr std::size_t kHeadingLines = 4;  // title, date, file, blank
  EXPECT_EQ(doc.lines[0].cells[0].text, "Ravelton Events Log");
  EXPECT_EQ(doc.lines[1].cells[0].text, "23-Nov-26");
  EXPECT_EQ(doc.lines[2].cells[0].text, "Events Log File:  Events Log.txt");
  const std::vector<std::string> expected = ModelLines(Log());
  ASSERT_GT(expected.size(), 10'000u);
  ASSERT_EQ(doc.lines.size(), kHeadingLines + expected.size());
  std::size_t session = 0;
  for (std::size_t i = 0; i < expected.size(); ++i) {
    ASSERT_EQ(doc.lines[kHeadingLines + i].cells.at(0).text, expected[i]) << "line " << i + 1;
    if (expected[i].starts_with(" New session started ")) session = kHeadingLines + i;
  }
  ASSERT_NE(session, 0u);
  EXPECT_EQ(doc.lines[session].cells[0].colour, 9);
  EXPECT_EQ(doc.lines.back().cells[0].colour, kPrintBlack);
}

// Each line is built in the reused line buffer and appended to a batch that
// is written out in blocks.
TEST_F(EventsLog, LoggingAndRecordingInHyperDriveAllocateNothing) {
  g.dice.RngIndex = 0;
  SeedRngWith(g, 99);
  SeatPlayer(g, 1, "Ann", Currency::FromWhole(5000));
  SeatPlayer(g, 2, "Bob", Currency::FromWhole(5000));
  for (int p = 1; p <= 2; ++p) {
    g.autoplay.HandleWinningBets(p) = 2;
    g.autoplay.HandleLosingBets(p) = 2;
    g.autoplay.AutoTakeFullOdds(p) = true;
  }
  for (auto [p, b] : {std::pair{1, bet::kPassLine}, {2, bet::kField}, {2, PlaceId(6)}}) {
    g.BetRequest = Currency::FromWhole(12);
    PlaceBet(g, p, b);
  }
  ASSERT_TRUE(OpenDiceRollFile(g, folder / "run.rol"));
  ASSERT_TRUE(SetDiceFileMode(g, kDiceFileRecording));
  platform.minimized = true;
  g.hyper.RunRollLimit = 2000;
  RunHyperDrive(g);  // the buffers grow to their size here
  const long before = gAllocations.load();
  g.hyper.RunRollLimit = 20'000;
  RunHyperDrive(g);
  EXPECT_EQ(gAllocations.load() - before, 0);
  EXPECT_EQ(g.hyper.RollsThisRun, 20'000);
  EXPECT_TRUE(g.eventsLog.WriteError.empty()) << g.eventsLog.WriteError;
  EXPECT_GT(EventsLogText(g).size(), 20'000u * 40);
}

// Every line format of the events log, on a scripted game with fixed dice:
// players join, bet, change and call bets, move, rename, pass the dice and
// cash out; the dice come from the pad and from a dice roll file; sessions
// start over. The whole log is compared with the expected log kept in
// event_lines/ beside this file.
using namespace bet;

class EventLines : public RollFixture {
 protected:
  EventLines() {
    g.rules.NoticeFlags = 0;
    g.roll.LogOn = true;
    g.dice.ReseedEachSession = false;
  }
  void Lay(int p, int b, long amount) {
    g.BetRequest = Currency::FromWhole(amount);
    PlaceBet(g, p, b);
  }
  // The log without the date and time of the session lines.
  std::string Log() {
    std::string log = EventsLogText(g);
    for (auto at = log.find(" New session started "); at != std::string::npos;
         at = log.find(" New session started ", at + 1)) {
      const auto end = log.find('\n', at);
      log.replace(at, end - at, " New session started <when>");
    }
    for (auto at = log.find(folder.Path()); at != std::string::npos; at = log.find(folder.Path()))
      log.replace(at, folder.Path().size(), "<folder>/");
    return log;
  }
  void ExpectLog(const std::string& name) {
    EXPECT_EQ(Log(),
              ReadWholeFile(std::string(RAVELTON_SOURCE_DIR) + "/tests/logs/event_lines/" + name));
  }
};

TEST_F(EventLines, AScriptedGameWritesEveryFormat) {
  NewSession(g, false, false, true, 0);
  SeatPlayer(g, 1, "Ann", Currency::FromWhole(500));
  SeatPlayer(g, 6, "Bob", Currency::FromWhole(300));
  SeedRngWith(g, 4321);
  for (int p : {1, 6}) {
    g.autoplay.HandleWinningBets(p) = kWinSameBet;
    g.autoplay.HandleLosingBets(p) = kLoseSameBet;
  }
  Lay(1, kPassLine, 10);
  Lay(6, kDontPass, 10);
  Lay(6, kField, 5);
  g.roll.ScriptActive[1] = g.roll.ScriptActive[0] = true;
  g.scriptSource.ScriptFile[1] = "/s/R&&D.bet";
  g.roll.ScriptsOK = true;
  Roll(2, 2);  // point 4; the Field wins
  g.roll.ScriptActive[1] = g.roll.ScriptActive[0] = false;
  Lay(1, kPassLineOdds, 20);
  Lay(1, PlaceId(6), 12);
  g.BetWorking(1, PlaceId(6)) = -1;        // called off
  g.Bet(6, bet::kBankroll) += Currency::FromWhole(50);  // an ATM withdrawal
  g.Bet(6, 101) = Currency::FromRaw(25000);
  Roll(1, 2);  // the Field wins again
  Lay(1, PlaceId(6), 6);
  g.BetWorking(1, PlaceId(6)) = 1;  // working normally again
  Lay(1, kCome, 5);
  Roll(5, 3);  // the Come bet travels to 8
  Roll(3, 1);  // the point: Pass
  Roll(6, 1);  // natural
  Lay(1, kPassLine, -10);
  Roll(3, 3);  // point 6
  Roll(4, 3);  // seven-out
  MovePlayer(g, 6, 7);
  RenamePlayerTo(g, 1, "Anne");
  PassDice(g, true);
  g.betting.CurPlayer = 1;
  CashOutPlayer(g);

  std::ofstream(folder / "f.rol", std::ios::binary) << '\x84';  // 1-4
  ASSERT_TRUE(OpenDiceRollFile(g, folder / "f.rol"));
  SetDiceFileMode(g, kDiceFilePlayback);
  RollDice(g);
  NewSession(g, false, false, true, 1);

  ExpectLog("scripted_game.log");
}

TEST_F(EventLines, TheOtherFormsOfEachLine) {
  SeatPlayer(g, 4, "Cy", Currency::FromWhole(200));
  g.autoplay.HandleWinningBets(4) = kWinSameBet;
  g.autoplay.HandleLosingBets(4) = kLoseSameBet;
  g.roll.LogWins = false;  // the heading of losses alone
  g.dice.RngIndex = 2;
  g.dice.ProbabilityDiceOn = false;
  Lay(4, kPassLine, 10);
  Lay(4, PlaceId(8), 12);
  g.BetWorking(4, PlaceId(8)) = 2;  // called on for the come-out
  Lay(4, kHard6, 1);
  g.Bet(4, 110) = Currency::FromWhole(3);
  g.roll.ScriptActive[4] = g.roll.ScriptActive[0] = true;
  g.roll.ScriptsOK = true;
  Roll(1, 2);  // craps: the Pass Line loses
  g.roll.ScriptActive[4] = g.roll.ScriptActive[0] = false;
  g.roll.LogWins = true;
  g.roll.LogLosses = false;  // the heading of wins alone
  Lay(4, PlaceId(8), -6);
  Lay(4, kHard6, -1);
  g.Bet(4, bet::kBankroll) -= Currency::FromWhole(20);  // an ATM deposit
  g.Bet(4, 110) = Currency::FromWhole(1);
  Roll(4, 4);  // the Place 8, called on, wins on the come-out
  g.roll.LogLosses = true;
  for (auto [a, b] : {std::pair{2, 2}, {3, 4}}) Roll(a, b);  // point, seven-out: the same shooter
  Lay(4, kPassLine, 10);
  Roll(5, 5);  // point 10: the Pass Line stays behind at a cash-out
  g.betting.CurPlayer = 4;
  CashOutPlayer(g);
  ASSERT_TRUE(SeedRngWith(g, 777));
  RollDice(g);  // from the generator

  ExpectLog("other_forms.log");
}

}  // namespace
