// Dice roll files in play: the one-byte format, the check on opening,
// recording and playback through the roll cycle with their stop reasons,
// the rewind question, the recorder's buttons and a new session's choice.
// Then the editor on files larger than its 30,000-byte buffer: every
// operation is checked byte for byte against a plain in-memory copy of the
// file that the test edits the simple way. Last, the printout.
#include "dice/dice_file.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include <filesystem>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "core/file_io.h"
#include "core/message_dialog.h"
#include "cycle/hyperdrive.h"
#include "cycle/session.h"
#include "dice/dice_file_edit.h"
#include "dice/dice_file_print.h"
#include "dice/dice_file_text.h"
#include "tests/engine/roll_fixture.h"

namespace {

using Bytes = std::vector<unsigned char>;

void WriteBytes(const std::string& path, const Bytes& bytes) {
  WriteWholeFile(path, std::string(bytes.begin(), bytes.end()));
}
Bytes ReadBytes(const std::string& path) {
  const std::string s = ReadWholeFile(path);
  return {s.begin(), s.end()};
}
Bytes RandomRolls(std::size_t n, std::uint32_t seed) {
  std::mt19937 rng(seed);
  Bytes b(n);
  for (auto& x : b)
    x = DiceRollByte(static_cast<int>(rng() % 6) + 1, static_cast<int>(rng() % 6) + 1);
  return b;
}

// The file and the selection as the editor should leave them.
struct Model {
  Bytes file, clipboard;
  std::int64_t pos = 1, selEnd = 1;
  std::int64_t Size() const { return static_cast<std::int64_t>(file.size()); }
  std::int64_t First() const { return std::min(pos, selEnd); }
  std::int64_t Last() const { return std::min(std::max(pos, selEnd), Size()); }
  void Insert(std::int64_t at, const Bytes& bytes) {
    file.insert(file.begin() + (at - 1), bytes.begin(), bytes.end());
  }
  Bytes Selected() const {
    if (Last() < First()) return {};
    return Bytes(file.begin() + (First() - 1), file.begin() + Last());
  }
};

class DiceFile : public RollFixture {
 protected:
  static constexpr std::int64_t kBlock = kDiceFileBlock;
  std::string Path() const { return folder / "rolls.rol"; }
  std::string LastMessage() const {
    return platform.messages.empty() ? "" : platform.messages.back().text;
  }
  void Reply(int answer) { platform.queuedReplies.push_back({answer, "", "", false}); }

  void Start(const Bytes& bytes) {
    m.file = bytes;
    WriteBytes(Path(), bytes);
    ASSERT_TRUE(OpenDiceRollFile(g, Path()));
  }
  void Select(std::int64_t pos, std::int64_t selEnd) {
    g.diceFile.DiceFilePos = static_cast<std::int32_t>(pos);
    g.diceFile.DiceSelEnd = static_cast<std::int32_t>(selEnd);
    m.pos = pos;
    m.selEnd = selEnd;
  }
  void Check(const std::string& what) {
    EXPECT_EQ(ReadBytes(Path()), m.file) << what;
    EXPECT_EQ(g.diceFile.DiceFilePos, m.pos) << what;
    EXPECT_EQ(g.diceFile.DiceSelEnd, m.selEnd) << what;
    EXPECT_EQ(CountSelectedDiceRolls(g), static_cast<std::int64_t>(m.Selected().size())) << what;
  }

  // The operations, on the game and on the model.
  void Key(int k, bool insert) {
    g.diceFile.optInsertRolls = insert;
    ASSERT_TRUE(KeyDiceRoll(g, k));
    const unsigned char b = DiceRollByte(k / 6 + 1, k % 6 + 1);
    if (m.pos > m.Size())
      m.file.push_back(b);
    else if (insert)
      m.Insert(m.pos, {b});
    else
      m.file[static_cast<std::size_t>(m.pos - 1)] = b;
    m.selEnd = ++m.pos;
  }
  void Copy() {
    ASSERT_TRUE(CopyDiceRolls(g));
    m.clipboard = m.Selected();
    EXPECT_EQ(ReadBytes(DiceClipboardPath(g)), m.clipboard);
  }
  void Delete() {
    ASSERT_TRUE(DeleteDiceRolls(g));
    if (m.Last() < m.First()) return;
    const auto first = m.First();
    m.file.erase(m.file.begin() + (first - 1), m.file.begin() + m.Last());
    m.pos = m.selEnd = std::min(first, m.Size() + 1);
  }
  void Paste() {
    ASSERT_TRUE(PasteDiceRolls(g));
    if (m.clipboard.empty()) return;
    m.Insert(m.pos, m.clipboard);
    m.selEnd = m.pos + static_cast<std::int64_t>(m.clipboard.size()) - 1;
  }
  // n rolls cycling through the 36 pairs from 1-1.
  static Bytes Cycling(int n) {
    Bytes b;
    for (int i = 0; i < n; ++i) b.push_back(DiceRollByte(i % 36 / 6 + 1, i % 6 + 1));
    return b;
  }
  // The texts of a printed line's cells, joined by '|'.
  static std::string Cells(const PrintLine& line) {
    std::string s;
    for (const PrintCell& c : line.cells) s += (s.empty() ? "" : "|") + c.text;
    return s;
  }
  // c copy, x cut, v paste, d delete.
  void Do(char op) {
    if (op == 'c' || op == 'x') Copy();
    if (op == 'x' || op == 'd') Delete();
    if (op == 'v') Paste();
  }

  Model m;
};

TEST_F(DiceFile, OpeningChecksEveryByteAndTheRecorderNeedsAFile) {
  WriteBytes(Path(), {36, 68, 0, 216});  // 0 has its low bits clear
  EXPECT_TRUE(IsDiceRollFile(Path()));
  WriteBytes(folder / "empty.rol", {});
  EXPECT_TRUE(IsDiceRollFile(folder / "empty.rol"));
  EXPECT_FALSE(IsDiceRollFile(folder / "missing.rol"));
  for (int odd : {1, 2, 3, 217}) {
    Bytes bytes(70'000, 36);  // the bad byte in the third block
    bytes[65'432] = static_cast<unsigned char>(odd);
    WriteBytes(Path(), bytes);
    EXPECT_FALSE(OpenDiceRollFile(g, Path())) << odd;
    EXPECT_EQ(LastMessage(), Path() +
                                 "\ris either from an earlier version, has been corrupted, or is "
                                 "not a true Ravelton dice roll file.");
    EXPECT_EQ(platform.messages.back().title, "Unable to Open Dice Roll File");
    EXPECT_EQ(g.diceFile.DiceFilePath, "");
  }
  ASSERT_TRUE(OpenDiceRollFile(g, folder / "new.rol"));
  EXPECT_TRUE(FileExists(folder / "new.rol"));
  EXPECT_EQ(g.diceFile.DiceFilePos, 0);  // an empty file: nothing to point at
  EXPECT_EQ(DiceRollFilesTitle(g), "Dice Roll Files (new.rol)");
  CloseDiceRollFile(g);
  EXPECT_EQ(DiceRollFilesTitle(g), "Dice Roll Files");
  // The recorder needs an open file.
  EXPECT_FALSE(SetDiceFileMode(g, kDiceFilePlayback));
  EXPECT_EQ(platform.messages.back().title, "Playback Dice Rolls During Game Play");
  EXPECT_EQ(LastMessage(), "You need to open a file first.");

  // A new session that does not keep the file closes it.
  Start({DiceRollByte(5, 6), DiceRollByte(2, 2)});
  ASSERT_TRUE(SetDiceFileMode(g, kDiceFilePlayback));
  NewSession(g, false, false, true, 0);
  EXPECT_EQ(g.diceFile.DiceFilePath, "");
}

TEST_F(DiceFile, RecordingOverwritesAndGrowsAndPlaybackRepeatsAHyperDriveRun) {
  Start({36, 36, 36});
  ASSERT_TRUE(SetDiceFileMode(g, kDiceFileRecording));
  g.diceFile.DiceFilePos = 2;
  for (const auto& [a, b] : {std::pair{3, 4}, {6, 5}, {1, 2}}) Roll(a, b);
  EXPECT_EQ(ReadBytes(Path()),
            (Bytes{36, DiceRollByte(3, 4), DiceRollByte(6, 5), DiceRollByte(1, 2)}));
  EXPECT_EQ(g.diceFile.DiceFileLast, 4);
  EXPECT_EQ(g.diceFile.DiceFilePos, 5);
  EXPECT_EQ(g.diceFile.DiceSelEnd, 5);

  constexpr int kRolls = 100'000;  // several windows of the roll's buffer
  ASSERT_TRUE(OpenDiceRollFile(g, Path()));
  ASSERT_TRUE(SetDiceFileMode(g, kDiceFileRecording));
  Bytes rolled;
  g.hyper.RunRollLimit = kRolls;
  g.hyper.RollObserverContext = &rolled;
  g.hyper.RollObserver = [](void* c, const Game& game) {
    static_cast<Bytes*>(c)->push_back(DiceRollByte(game.Die1, game.Die2));
  };
  RunHyperDrive(g);
  ASSERT_EQ(rolled.size(), static_cast<std::size_t>(kRolls));
  EXPECT_EQ(ReadBytes(Path()), rolled);

  // Playback from roll 1: the same dice, then the end of the file stops the run.
  ASSERT_TRUE(SetDiceFileMode(g, kDiceFilePlayback));
  g.diceFile.DiceFilePos = 1;
  Bytes played;
  g.hyper.RollObserverContext = &played;
  g.hyper.RunRollLimit = 0;
  platform.minimized = true;  // no rewind question
  RunHyperDrive(g);
  EXPECT_EQ(played, rolled);
  EXPECT_EQ(g.hyper.LastStopMessage, kEndOfDiceFileStop);
  EXPECT_EQ(g.diceFile.DiceFilePos, kRolls + 1);
  EXPECT_EQ(g.diceFile.DiceFileLast, kRolls);
}

TEST_F(DiceFile, PlaybackStopsAtAValueOutOfLimitsAndAtTheEndAsksToRewind) {
  for (unsigned char bad : {static_cast<unsigned char>(0), DiceRollByte(7, 1), DiceRollByte(3, 0),
                            DiceRollByte(2, 7)}) {
    Start({DiceRollByte(2, 3), bad, DiceRollByte(4, 4)});
    ASSERT_TRUE(SetDiceFileMode(g, kDiceFilePlayback));
    Roll(6, 6);  // a pad roll comes before the file
    RollDice(g);
    EXPECT_EQ(g.Die1 * 10 + g.Die2, 23);
    const Long rolls = g.RollTally(kTableSession, kEventRolls);
    platform.messages.clear();
    RollDice(g);
    EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), rolls) << "no roll is taken";
    EXPECT_EQ(g.diceFile.DiceFileMode, kDiceFileInactive);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].title, "Dice Roll File Error");
    EXPECT_EQ(LastMessage(),
              "A dice roll value has been found to be out of limits. \r\rPlayback of this Dice "
              "Roll File has ceased so that you can check the file or continue without it.");
    EXPECT_EQ(g.diceFile.DiceFilePath, Path()) << "the file stays open";
  }
  // In Hyper-Drive the run stops with the reason instead of the message.
  Start({DiceRollByte(2, 3), 0});
  ASSERT_TRUE(SetDiceFileMode(g, kDiceFilePlayback));
  platform.minimized = true;
  platform.messages.clear();
  RunHyperDrive(g);
  EXPECT_EQ(g.hyper.LastStopMessage, kDiceFileValueStop);
  EXPECT_TRUE(platform.messages.empty());

  // The end of the file asks to rewind, when not minimized.
  platform.minimized = false;
  Start({DiceRollByte(1, 3)});
  // The answer, then the mode and the position it leaves.
  for (const auto& [answer, mode, pos] : {std::tuple{kAnswerCancel, kDiceFilePlayback, 2},
                                          {kAnswerNo, kDiceFileInactive, 2},
                                          {kAnswerYes, kDiceFilePlayback, 1}}) {
    g.diceFile.DiceFileMode = kDiceFilePlayback;
    g.diceFile.DiceFilePos = 2;
    Reply(answer);
    platform.messages.clear();
    RollDice(g);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(LastMessage(), "Playback stopped.\rRewind for playback?");
    EXPECT_EQ(platform.messages[0].title, "Dice Roll File");
    EXPECT_EQ(g.diceFile.DiceFileMode, mode) << answer;
    EXPECT_EQ(g.diceFile.DiceFilePos, pos) << answer;
    EXPECT_TRUE(g.StopMessage.empty());
  }
  g.diceFile.DiceFileMode = kDiceFileRecording;
  AskRewindDiceFile(g);
  EXPECT_EQ(LastMessage(), "Recording stopped.\rRewind for playback?");
}

// Selections across and on the buffer's edges, in both orders; cut and
// paste, copy and paste at the end, deletes of the head and the tail.
TEST_F(DiceFile, EditsMatchTheModelAcrossBlockEdges) {
  Start(RandomRolls(3 * kBlock + 17, 1));
  const std::int64_t b = kBlock;
  // What the step does, the selection's ends, the operation.
  const std::tuple<const char*, std::int64_t, std::int64_t, char> steps[] = {
      {"copy two blocks and a bit", 5, 2 * b + 9, 'c'},
      {"paste at a block's edge", b, b, 'v'},
      {"cut reversed across an edge", 2 * b + 3, b - 2, 'x'},
      {"paste one past the edge", b + 1, b + 1, 'v'},
      {"paste at the very end", 4 * b + 100, 4 * b + 100, 'v'},
      {"delete the first roll", 1, 1, 'd'},
      {"delete a block exactly", b + 1, 2 * b, 'd'},
      {"copy the tail past the end", 3 * b, 9 * b, 'c'},
      {"paste at the start", 1, 1, 'v'},
      {"delete the tail", 2 * b, 99 * b, 'd'},
      {"delete at the end: nothing", 99 * b, 99 * b, 'd'},
  };
  for (const auto& [what, pos, selEnd, op] : steps) {
    const auto end = m.Size() + 1;
    Select(std::min(pos, end), std::min(selEnd, end));
    Do(op);
    Check(what);
    if (HasFailure()) return;
  }
  ASSERT_TRUE(IsDiceRollFile(Path()));

  // Then a random run of every operation, keys included.
  std::mt19937 rng(77);
  for (int i = 0; i < 120 && !HasFailure(); ++i) {
    const auto end = m.Size() + 1;
    Select(static_cast<std::int64_t>(rng() % end) + 1, static_cast<std::int64_t>(rng() % end) + 1);
    const char op = "cdvkx"[rng() % 5];
    if (op == 'k')
      Key(static_cast<int>(rng() % 36), rng() % 2 == 0);
    else
      Do(op);
    Check("step " + std::to_string(i));
  }

  Start(RandomRolls(kBlock + 2, 2));
  for (const auto& [pos, insert] : {std::pair<std::int64_t, bool>{kBlock, true},
                                    {kBlock, false},
                                    {1, true},
                                    {kBlock + 3, true},
                                    {kBlock + 3, false}}) {
    Select(pos, pos);
    for (int k : {0, 35, 13}) Key(k, insert);
    Check("keying at " + std::to_string(pos) + (insert ? " insert" : " type over"));
  }
  // A random roll is a valid roll at the caret.
  Select(7, 7);
  ASSERT_TRUE(KeyRandomDiceRoll(g));
  EXPECT_TRUE(DiceWithinLimits(ReadBytes(Path()).at(6)));
  EXPECT_EQ(g.diceFile.DiceFilePos, 8);

  Start(RandomRolls(kBlock + 40, 4));
  const Bytes other = RandomRolls(kBlock + 1, 5);
  WriteBytes(folder / "other.rol", other);
  WriteBytes(folder / "bad.rol", {36, 37});
  // Another roll file, the open file itself, and a file that is not a dice
  // roll file (refused, nothing changed).
  for (const std::string& from : {folder / "other.rol", Path(), folder / "bad.rol"}) {
    const std::int64_t at = from == Path() ? 3 : kBlock - 1;
    Select(at, at);
    if (from == folder / "bad.rol") {
      EXPECT_FALSE(PasteFromRollFile(g, from));
    } else {
      const Bytes in = from == Path() ? m.file : other;
      ASSERT_TRUE(PasteFromRollFile(g, from));
      m.Insert(at, in);
      m.selEnd = at + static_cast<std::int64_t>(in.size()) - 1;
    }
    Check("paste from " + from);
  }

  // Text: the digits 1..6 in pairs, everything else ignored, a last odd digit dropped.
  WriteWholeFile(folder / "rolls.txt", "3-4, 1 6x2");
  Select(1, 1);
  ASSERT_TRUE(PasteFromTextFile(g, folder / "rolls.txt"));
  m.Insert(1, {DiceRollByte(3, 4), DiceRollByte(1, 6)});
  m.selEnd = 2;
  Check("the two rolls of a short text");
  EXPECT_FALSE(FileExists(DiceConversionPath(g))) << "the temporary conversion is deleted";

  // A long text of random bytes, digits and garbage alike, across many blocks.
  rng.seed(9);
  std::string text(5 * kDiceFileBlock + 3, '\0');
  for (char& c : text) c = static_cast<char>(rng() % 4 == 0 ? '0' + rng() % 10 : rng() % 256);
  Bytes model;
  int pending = 0;
  for (const char c : text) {
    if (c < '1' || c > '6') continue;
    if (pending == 0) {
      pending = c - '0';
    } else {
      model.push_back(DiceRollByte(pending, c - '0'));
      pending = 0;
    }
  }
  WriteWholeFile(folder / "long.txt", text);
  std::string error;
  EXPECT_EQ(ConvertTextToDiceRolls(folder / "long.txt", folder / "long.rol", error),
            static_cast<std::int64_t>(model.size()))
      << error;
  EXPECT_EQ(ReadBytes(folder / "long.rol"), model);
  EXPECT_LT(ConvertTextToDiceRolls(folder / "missing.txt", folder / "x.rol", error), 0);
  EXPECT_NE(error.find("missing.txt"), std::string::npos);
  EXPECT_FALSE(FileExists(folder / "x.rol"));
}

TEST_F(DiceFile, CopyingOutToRollAndTextFiles) {
  Start(RandomRolls(kBlock * 2, 6));
  Select(kBlock + 5, 10);
  EXPECT_FALSE(CopyToRollFile(g, Path()));
  EXPECT_EQ(LastMessage(),
            "Can't use the \"Copy To Dice Roll File\" command to copy rolls to a file that's open "
            "and in use.\r\rPlease select another file name or use the \"Copy\" and \"Paste\" "
            "commands to modify the open file.");
  WriteBytes(folder / "out.rol", {36});
  Reply(kAnswerNo);
  EXPECT_FALSE(CopyToRollFile(g, folder / "out.rol"));
  EXPECT_EQ(LastMessage(), "Do you want to copy over it?");
  EXPECT_EQ(ReadBytes(folder / "out.rol"), Bytes{36});
  EXPECT_TRUE(CopyToRollFile(g, folder / "out.rol"));  // Yes by default
  EXPECT_EQ(ReadBytes(folder / "out.rol"), m.Selected());

  // Text output follows the template.
  Start({DiceRollByte(3, 4), DiceRollByte(6, 6), DiceRollByte(1, 2)});
  // The template, the roll's number and dice, the line.
  const std::tuple<const char*, std::int64_t, unsigned char, const char*> cases[] = {
      {"Roll# (Die1.Die2) Total", 1234, DiceRollByte(3, 4), "1,234 (3.4) 7"},
      {"  ", 5, DiceRollByte(6, 6), "5 (6.6) 12"},
      {"TOTAL=total, Die2", 1, DiceRollByte(1, 2), "3=3, 2"},
      {"roll#roll#die1", 1'000'000, DiceRollByte(5, 1), "1,000,0001,000,0005"},
      {"die", 1, DiceRollByte(5, 1), "die"}};
  for (const auto& [format, number, roll, line] : cases) {
    std::string out;
    AppendDiceRollText(out, PrepareDiceOutputFormat(format), number, roll);
    EXPECT_EQ(out, line) << format;
  }
  EXPECT_FALSE(HasDiceInformation("Roll# only"));
  EXPECT_TRUE(HasDiceInformation(""));  // the default has all three

  g.diceFile.DiceOutputFormat = "Roll#: Die1-Die2";
  Select(2, 3);
  Reply(kAnswerNo);
  ASSERT_TRUE(CopyToTextFile(g, folder / "out.txt"));
  EXPECT_EQ(ReadWholeFile(folder / "out.txt"), "2: 6-6\r\n3: 1-2\r\n");
  ASSERT_TRUE(CopyToTextFile(g, folder / "out.txt"));  // Yes renumbers from 1
  EXPECT_EQ(ReadWholeFile(folder / "out.txt"), "1: 6-6\r\n2: 1-2\r\n");

  platform.queuedReplies.push_back({kAnswerOk, std::string(300, 'x'), "", false});
  ASSERT_TRUE(AskDiceOutputFormat(g));
  EXPECT_EQ(g.diceFile.DiceOutputFormat.size(), kMaxDiceOutputFormat);
}

TEST_F(DiceFile, RowsClicksTheSelectionAndAFailedRewrite) {
  Start(RandomRolls(50, 7));
  g.diceFile.DiceSelStart = 41;
  ClickDiceRow(g, 3, false);
  EXPECT_EQ(g.diceFile.DiceSelEnd, 44);
  ClickDiceRow(g, 1, true);  // Shift: the old caret stays the other end
  EXPECT_EQ(g.diceFile.DiceFilePos, 42);
  EXPECT_EQ(g.diceFile.DiceSelEnd, 44);
  ClickDiceRow(g, 30, false);  // below the last roll: one past it
  EXPECT_EQ(g.diceFile.DiceFilePos, 51);
  SetNextRollNumber(g, -5);
  EXPECT_EQ(g.diceFile.DiceFilePos, 1);
  SetNextRollNumber(g, 1000);
  EXPECT_EQ(g.diceFile.DiceFilePos, 51);
  SelectAllDiceRolls(g);
  EXPECT_EQ(CountSelectedDiceRolls(g), 50);
  EXPECT_EQ(ReadDiceRolls(g, 49, 10), (Bytes{m.file[48], m.file[49]}));

  // A write that fails half-way (here: the process may not write files past
  // a size) leaves the old file whole and no temporary file behind.
  Start(RandomRolls(3 * kBlock, 8));
  Select(2, 2 * kBlock);
  Copy();
  rlimit old{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
  const auto oldHandler = signal(SIGXFSZ, SIG_IGN);
  rlimit small = old;
  small.rlim_cur = kBlock + 100;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  Select(kBlock, kBlock);
  const bool pasted = PasteDiceRolls(g);
  Select(1, 1);
  const bool deleted = DeleteDiceRolls(g);  // the rest is still larger than the limit
  setrlimit(RLIMIT_FSIZE, &old);
  signal(SIGXFSZ, oldHandler);
  EXPECT_FALSE(pasted);
  EXPECT_FALSE(deleted);
  EXPECT_NE(LastMessage().find(Path()), std::string::npos);
  EXPECT_EQ(ReadBytes(Path()), m.file);
  for (const auto& e : std::filesystem::directory_iterator(folder.Path()))
    EXPECT_FALSE(e.path().filename().string().starts_with(".rolls.rol")) << "a temporary is left";
}

// The printout: as many columns as the template's width allows, rolls down
// each column, a heading on every page, highlighted pairs marked, and the
// renumbering question and page count asked before it.
TEST_F(DiceFile, PrintPagesRunDownTheColumnsAndTheQuestionsComeFirst) {
  // "1,000 (6.6) 12": 14 characters with room for wide digits, the mark
  // and a gap: 3 columns of 50 rolls.
  const DicePrintLayout layout = DicePrintLayoutFor("Roll# (Die1.Die2) Total", 1000);
  EXPECT_EQ(layout.columns, 3);
  EXPECT_EQ(DicePrintLayoutFor("Total", 99).columns, 10);
  EXPECT_EQ(DicePrintLayoutFor(std::string(90, 'x') + "total", 1).columns, 1);
  EXPECT_EQ(DicePrintPages(150, layout), 1);
  EXPECT_EQ(DicePrintPages(151, layout), 2);
  // 450 rolls numbered up to 450: 4 columns, 200 a page, 3 pages.
  Start(Cycling(450));
  ToggleHighlightTotal(g, 2);  // 1-1
  std::string error;
  const PrintDocument doc = DiceRollsPrintout(g, 1, 450, 1, CalendarDate{2026, 11, 23}, error);
  EXPECT_EQ(error, "");
  const std::size_t perPage = kDicePageHeading + kDiceRowsPerPage;
  ASSERT_EQ(doc.linesPerPage, static_cast<int>(perPage));
  ASSERT_EQ(doc.lines.size(), 2 * perPage + kDicePageHeading + 50);
  for (std::size_t page = 0; page < 3; ++page) {
    EXPECT_EQ(Cells(doc.lines[page * perPage]), "Ravelton Dice Roll File:  rolls.rol");
    EXPECT_EQ(Cells(doc.lines[page * perPage + 1]), "23-Nov-26");
    EXPECT_EQ(Cells(doc.lines[page * perPage + 2]), "* highlighted pair");
  }
  // Roll 1 is 1-1, highlighted: marked and in the marking colour. Rolls
  // 51, 101 and 151 begin the next columns.
  const PrintLine& first = doc.lines[kDicePageHeading];
  EXPECT_EQ(Cells(first), "*|1 (1.1) 2|51 (3.3) 6|101 (5.5) 10|151 (2.1) 3");
  EXPECT_EQ(first.cells[1].colour, g.rules.PrintColors[0]);
  EXPECT_EQ(first.cells[2].colour, kPrintBlack);
  EXPECT_EQ(Cells(doc.lines[2 * perPage + kDicePageHeading]), "401 (1.5) 6");
  EXPECT_EQ(Cells(doc.lines.back()), "450 (3.6) 9");

  // Rolls 240..201 (the selection's ends in either order), renumbered from 1.
  Start(Cycling(300));
  Select(240, 201);
  Reply(kAnswerYes);
  Reply(kAnswerNo);
  EXPECT_FALSE(PrintDiceRolls(g));
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_TRUE(platform.messages[0].text.starts_with(
      "The rolls you've selected do not begin with roll #1."));
  EXPECT_EQ(platform.messages[1].title, "Print Dice Roll File");
  EXPECT_EQ(platform.messages[1].text,
            "Number of rolls to be printed: 40\r\rBased on the options you've selected,\r"
            "this should result in 1 page.\r\rAre you ready to begin printing?");
  EXPECT_TRUE(platform.printed.empty());
  Reply(kAnswerYes);
  Reply(kAnswerYes);
  EXPECT_TRUE(PrintDiceRolls(g));
  ASSERT_EQ(platform.printed.size(), 1u);
  EXPECT_EQ(Cells(platform.printed[0].lines[kDicePageHeading]), "1 (4.3) 7");  // roll 201

  // A selection from roll 1, or a template without a number: no question.
  for (const char* format : {"Roll# (Die1.Die2) Total", "Total"}) {
    g.diceFile.DiceOutputFormat = format;
    Select(format[0] == 'T' ? 240 : 1, 300);
    Reply(kAnswerNo);
    const std::size_t before = platform.messages.size();
    PrintDiceRolls(g);
    EXPECT_EQ(platform.messages.size(), before + 1) << format;
  }
  EXPECT_NE(platform.messages.end()[-2].text.find("printed: 300\r"), std::string::npos);
  EXPECT_NE(platform.messages.end()[-2].text.find("result in 2 pages."), std::string::npos);
}

}  // namespace
