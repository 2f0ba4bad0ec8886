// The dice roll file editor on files larger than its 30,000-byte buffer:
// every operation is checked byte for byte against a plain in-memory copy
// of the file that the test edits the simple way.
#include "dice/dice_file_edit.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "core/file_io.h"
#include "core/message_dialog.h"
#include "dice/dice_file.h"
#include "dice/dice_file_text.h"
#include "tests/engine/roll_fixture.h"

namespace {

using Bytes = std::vector<unsigned char>;

void WriteBytes(const std::string& path, const Bytes& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::streamsize>(bytes.size()));
}

Bytes ReadBytes(const std::string& path) {
  const std::string s = ReadWholeFile(path);
  return {s.begin(), s.end()};
}

// The file and the selection as the editor should leave them.
struct Model {
  Bytes file, clipboard;
  std::int64_t pos = 1, selEnd = 1;
  std::int64_t First() const { return std::min(pos, selEnd); }
  std::int64_t Last() const { return std::min<std::int64_t>(std::max(pos, selEnd), file.size()); }
  void Insert(std::int64_t at, const Bytes& bytes) {
    file.insert(file.begin() + (at - 1), bytes.begin(), bytes.end());
  }
  Bytes Selected() const {
    if (Last() < First()) return {};
    return Bytes(file.begin() + (First() - 1), file.begin() + Last());
  }
};

Bytes RandomRolls(std::size_t n, std::uint32_t seed) {
  std::mt19937 rng(seed);
  Bytes b(n);
  for (auto& x : b)
    x = DiceRollByte(static_cast<int>(rng() % 6) + 1, static_cast<int>(rng() % 6) + 1);
  return b;
}

class DiceEditor : public RollFixture {
 protected:
  static constexpr std::int64_t kBlock = kDiceFileBlock;
  std::string Path() const { return folder / "edit.rol"; }

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
    if (insert && m.pos <= static_cast<std::int64_t>(m.file.size()))
      m.Insert(m.pos, {b});
    else if (m.pos <= static_cast<std::int64_t>(m.file.size()))
      m.file[static_cast<std::size_t>(m.pos - 1)] = b;
    else
      m.file.push_back(b);
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
    m.pos = m.selEnd = std::min<std::int64_t>(first, m.file.size() + 1);
  }
  void Paste() {
    ASSERT_TRUE(PasteDiceRolls(g));
    if (m.clipboard.empty()) return;
    m.Insert(m.pos, m.clipboard);
    m.selEnd = m.pos + static_cast<std::int64_t>(m.clipboard.size()) - 1;
  }

  Model m;
};

// Selections across and on the buffer's edges, in both orders; cut and
// paste, copy and paste at the end, deletes of the head and the tail.
TEST_F(DiceEditor, CutCopyPasteAndDeleteMatchTheModelAcrossBlockEdges) {
  Start(RandomRolls(3 * kBlock + 17, 1));
  struct Step {
    const char* what;
    std::int64_t pos, selEnd;
    char op;  // c copy, x cut, v paste, d delete
  };
  const std::int64_t b = kBlock;
  const Step steps[] = {
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
  for (const Step& s : steps) {
    const auto end = static_cast<std::int64_t>(m.file.size()) + 1;
    Select(std::min(s.pos, end), std::min(s.selEnd, end));
    switch (s.op) {
      case 'c':
        Copy();
        break;
      case 'x':
        Copy();
        Delete();
        break;
      case 'v':
        Paste();
        break;
      case 'd':
        Delete();
        break;
    }
    Check(s.what);
    if (HasFailure()) return;
  }
  ASSERT_TRUE(IsDiceRollFile(Path()));
}

TEST_F(DiceEditor, KeyedRollsInsertOrTypeOverAndRunPastTheEnd) {
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
  const Bytes after = ReadBytes(Path());
  EXPECT_TRUE(DiceWithinLimits(after.at(6)));
  EXPECT_EQ(g.diceFile.DiceFilePos, 8);
  // Without a file nothing is keyed.
  CloseDiceRollFile(g);
  EXPECT_FALSE(KeyDiceRoll(g, 3));
  EXPECT_EQ(platform.messages.back().title, "Record Dice Rolls");
}

TEST_F(DiceEditor, ARandomRunOfEditsMatchesTheModel) {
  Start(RandomRolls(2 * kBlock + 5, 3));
  std::mt19937 rng(77);
  for (int i = 0; i < 120 && !HasFailure(); ++i) {
    const auto end = static_cast<std::int64_t>(m.file.size()) + 1;
    Select(static_cast<std::int64_t>(rng() % end) + 1, static_cast<std::int64_t>(rng() % end) + 1);
    switch (rng() % 5) {
      case 0:
        Copy();
        break;
      case 1:
        Delete();
        break;
      case 2:
        Paste();
        break;
      case 3:
        Key(static_cast<int>(rng() % 36), rng() % 2 == 0);
        break;
      case 4:
        Copy();
        Delete();
        break;
    }
    Check("step " + std::to_string(i));
  }
}

TEST_F(DiceEditor, RollFilesAndTextFilesPasteIn) {
  Start(RandomRolls(kBlock + 40, 4));
  const Bytes other = RandomRolls(kBlock + 1, 5);
  WriteBytes(folder / "other.rol", other);
  Select(kBlock - 1, kBlock - 1);
  ASSERT_TRUE(PasteFromRollFile(g, folder / "other.rol"));
  m.Insert(kBlock - 1, other);
  m.selEnd = kBlock - 1 + static_cast<std::int64_t>(other.size()) - 1;
  Check("paste from a roll file");

  WriteBytes(folder / "bad.rol", {36, 37});
  EXPECT_FALSE(PasteFromRollFile(g, folder / "bad.rol"));
  Check("a file that is not a dice roll file is refused");

  // The open file pasted into itself.
  const Bytes self = m.file;
  Select(3, 3);
  ASSERT_TRUE(PasteFromRollFile(g, Path()));
  m.Insert(3, self);
  m.selEnd = 3 + static_cast<std::int64_t>(self.size()) - 1;
  Check("the open file pasted into itself");

  // Text: the digits 1..6 in pairs, everything else ignored, a last odd digit dropped.
  { std::ofstream(folder / "rolls.txt", std::ios::binary) << "3-4, 1 6x2"; }
  Select(1, 1);
  ASSERT_TRUE(PasteFromTextFile(g, folder / "rolls.txt"));
  m.Insert(1, {DiceRollByte(3, 4), DiceRollByte(1, 6)});
  m.selEnd = 2;
  Check("the two rolls of a short text");
  EXPECT_FALSE(FileExists(DiceConversionPath(g))) << "the temporary conversion is deleted";

  // A long text of random bytes, digits and garbage alike, across many blocks.
  std::mt19937 rng(9);
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
  std::ofstream(folder / "long.txt", std::ios::binary) << text;
  std::string error;
  EXPECT_EQ(ConvertTextToDiceRolls(folder / "long.txt", folder / "long.rol", error),
            static_cast<std::int64_t>(model.size()))
      << error;
  EXPECT_EQ(ReadBytes(folder / "long.rol"), model);
  EXPECT_LT(ConvertTextToDiceRolls(folder / "missing.txt", folder / "x.rol", error), 0);
  EXPECT_NE(error.find("missing.txt"), std::string::npos);
  EXPECT_FALSE(FileExists(folder / "x.rol"));
}

TEST_F(DiceEditor, CopyingOutRefusesTheOpenFileAndAsksBeforeReplacing) {
  Start(RandomRolls(kBlock * 2, 6));
  Select(kBlock + 5, 10);
  EXPECT_FALSE(CopyToRollFile(g, Path()));
  EXPECT_EQ(platform.messages.back().text,
            "Can't use the \"Copy To Dice Roll File\" command to copy rolls to a file that's open "
            "and in use.\r\rPlease select another file name or use the \"Copy\" and \"Paste\" "
            "commands to modify the open file.");
  WriteBytes(folder / "out.rol", {36});
  MessageReply no;
  no.answer = kAnswerNo;
  platform.queuedReplies.push_back(no);
  EXPECT_FALSE(CopyToRollFile(g, folder / "out.rol"));
  EXPECT_EQ(platform.messages.back().text, "Do you want to copy over it?");
  EXPECT_EQ(ReadBytes(folder / "out.rol"), Bytes{36});
  EXPECT_TRUE(CopyToRollFile(g, folder / "out.rol"));  // Yes by default
  EXPECT_EQ(ReadBytes(folder / "out.rol"), m.Selected());
}

TEST_F(DiceEditor, TextOutputFollowsTheTemplate) {
  Start({DiceRollByte(3, 4), DiceRollByte(6, 6), DiceRollByte(1, 2)});
  struct Case {
    const char* format;
    std::int64_t number;
    unsigned char roll;
    const char* line;
  };
  for (const Case c : {Case{"Roll# (Die1.Die2) Total", 1234, DiceRollByte(3, 4), "1,234 (3.4) 7"},
                       Case{"  ", 5, DiceRollByte(6, 6), "5 (6.6) 12"},
                       Case{"TOTAL=total, Die2", 1, DiceRollByte(1, 2), "3=3, 2"},
                       Case{"roll#roll#die1", 1'000'000, DiceRollByte(5, 1), "1,000,0001,000,0005"},
                       Case{"die", 1, DiceRollByte(5, 1), "die"}}) {
    std::string out;
    AppendDiceRollText(out, PrepareDiceOutputFormat(c.format), c.number, c.roll);
    EXPECT_EQ(out, c.line) << c.format;
  }
  EXPECT_FALSE(HasDiceInformation("Roll# only"));
  EXPECT_TRUE(HasDiceInformation(""));  // the default has all three

  g.diceFile.DiceOutputFormat = "roll#";
  EXPECT_FALSE(CopyToTextFile(g, folder / "out.txt"));
  EXPECT_EQ(platform.messages.back().title, "Copy Dice Rolls To Text File");
  g.diceFile.DiceOutputFormat = "Roll#: Die1-Die2";
  Select(2, 3);
  MessageReply no;
  no.answer = kAnswerNo;
  platform.queuedReplies.push_back(no);
  ASSERT_TRUE(CopyToTextFile(g, folder / "out.txt"));
  EXPECT_EQ(ReadWholeFile(folder / "out.txt"), "2: 6-6\r\n3: 1-2\r\n");
  ASSERT_TRUE(CopyToTextFile(g, folder / "out.txt"));  // Yes renumbers from 1
  EXPECT_EQ(ReadWholeFile(folder / "out.txt"), "1: 6-6\r\n2: 1-2\r\n");

  MessageReply typed;
  typed.input1 = std::string(300, 'x');
  platform.queuedReplies.push_back(typed);
  ASSERT_TRUE(AskDiceOutputFormat(g));
  EXPECT_EQ(g.diceFile.DiceOutputFormat.size(), kMaxDiceOutputFormat);
}

TEST_F(DiceEditor, RowsClicksAndTheSelection) {
  Start(RandomRolls(50, 7));
  g.diceFile.DiceSelStart = 41;
  ClickDiceRow(g, 3, false);
  EXPECT_EQ(g.diceFile.DiceFilePos, 44);
  EXPECT_EQ(g.diceFile.DiceSelEnd, 44);
  ClickDiceRow(g, 1, true);  // Shift: the old caret stays the other end
  EXPECT_EQ(g.diceFile.DiceFilePos, 42);
  EXPECT_EQ(g.diceFile.DiceSelEnd, 44);
  EXPECT_EQ(CountSelectedDiceRolls(g), 3);
  ClickDiceRow(g, 30, false);  // below the last roll: one past it
  EXPECT_EQ(g.diceFile.DiceFilePos, 51);
  EXPECT_EQ(CountSelectedDiceRolls(g), 0);
  SetNextRollNumber(g, -5);
  EXPECT_EQ(g.diceFile.DiceFilePos, 1);
  SetNextRollNumber(g, 1000);
  EXPECT_EQ(g.diceFile.DiceFilePos, 51);
  SelectAllDiceRolls(g);
  EXPECT_EQ(CountSelectedDiceRolls(g), 50);
  EXPECT_EQ(ReadDiceRolls(g, 49, 10), (Bytes{m.file[48], m.file[49]}));
}

// A write that fails half-way (here: the process may not write files past
// a size) leaves the old file whole and no temporary file behind.
TEST_F(DiceEditor, AFailedRewriteLeavesTheOldFileWhole) {
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
  EXPECT_NE(platform.messages.back().text.find(Path()), std::string::npos);
  EXPECT_EQ(ReadBytes(Path()), m.file);
  int entries = 0;
  for (const auto& e : std::filesystem::directory_iterator(folder.Path()))
    entries += e.path().filename().string().starts_with(".edit.rol") ? 1 : 0;
  EXPECT_EQ(entries, 0) << "no temporary file is left";
}

TEST_F(DiceEditor, HighlightsByPairAndByTotal) {
  ToggleHighlightPair(g, 3, 4);
  EXPECT_TRUE(g.diceFile.HighlightCombo(3, 4));
  EXPECT_FALSE(TotalHighlighted(g, 7));
  ToggleHighlightTotal(g, 7);  // not all set: all become set
  for (int d = 1; d <= 6; ++d) EXPECT_TRUE(g.diceFile.HighlightCombo(d, 7 - d));
  EXPECT_TRUE(TotalHighlighted(g, 7));
  ToggleHighlightTotal(g, 7);  // all set: all cleared
  EXPECT_FALSE(g.diceFile.HighlightCombo(3, 4));
  ToggleHighlightTotal(g, 12);
  ToggleHighlightPair(g, 0, 9);  // out of range: nothing
  ClearHighlights(g);
  EXPECT_FALSE(TotalHighlighted(g, 12));
}

}  // namespace
