#include "dice/dice_file_edit.h"

#include <algorithm>
#include <filesystem>
#include <random>
#include <system_error>

#include "core/file_io.h"
#include "core/game.h"
#include "core/message_dialog.h"
#include "dice/dice_file.h"
#include "dice/dice_file_text.h"

namespace {

using Buffer = std::vector<unsigned char>;

// Rolls to insert: a file, or a few bytes in memory.
struct RollSource {
  const std::string* path = nullptr;
  const unsigned char* bytes = nullptr;
  std::int64_t length = 0;
};

bool HasFile(const Game& g) { return !g.diceFile.DiceFilePath.empty(); }

bool SameFile(const std::string& a, const std::string& b) {
  std::error_code ec;
  const bool same = std::filesystem::equivalent(a, b, ec);
  return ec ? a == b : same;
}

// Keeps the caret and the selection's second end within 1..total + 1.
void ClampPositions(DiceFileState& f, std::int64_t total) {
  const auto last = static_cast<std::int32_t>(std::min<std::int64_t>(total + 1, INT32_MAX));
  f.DiceFilePos = std::clamp(f.DiceFilePos, 1, last);
  f.DiceSelEnd = std::clamp(f.DiceSelEnd, 1, last);
  f.DiceSelStart = std::clamp(f.DiceSelStart, 1, std::max(last - 1, 1));
}

// Prepares an edit: the roll's window written out, the positions in range.
std::int64_t BeginEdit(Game& g) {
  const std::int64_t total = DiceRollTotal(g);
  ClampPositions(g.diceFile, total);
  return total;
}

bool Fail(Game& g, const std::string& error) {
  g.diceFile.Error = error;
  ShowNotice(g, error, "Dice Roll Files", 0, kMsgOk);
  return false;
}

// Appends bytes [from, from + n) of src to dst through the buffer. A short
// read ends the copy: the source was shorter than its length said.
bool CopyBytes(const FileHandle& src, std::int64_t from, std::int64_t n, const FileHandle& dst,
               Buffer& buffer) {
  while (n > 0) {
    const auto want = static_cast<std::size_t>(
        std::min<std::int64_t>(n, static_cast<std::int64_t>(buffer.size())));
    const std::int64_t got = ReadAt(src, from, buffer.data(), want);
    if (got < 0) return false;
    if (got == 0) return true;
    if (!WriteAll(dst, buffer.data(), static_cast<std::size_t>(got))) return false;
    from += got;
    n -= got;
  }
  return true;
}

bool CopySource(const RollSource& source, const FileHandle& dst, Buffer& buffer) {
  if (source.bytes) return WriteAll(dst, source.bytes, static_cast<std::size_t>(source.length));
  FileHandle in = OpenForReading(*source.path);
  return in.IsOpen() && CopyBytes(in, 0, source.length, dst, buffer);
}

// Inserts the source's rolls before roll `at` (from 1, at most total + 1).
// At the end they are appended; inside the file the new file is written
// beside the old one and renamed over it. The source may be the open file
// itself: it is read as it was before the insert.
bool InsertRolls(Game& g, std::int64_t at, const RollSource& source) {
  const std::string& path = g.diceFile.DiceFilePath;
  const std::int64_t total = std::max<std::int64_t>(FileLength(path), 0);
  Buffer buffer(kDiceFileBlock);
  if (at > total) {
    FileHandle file = OpenForAppend(path);
    if (!file.IsOpen() || !CopySource(source, file, buffer) || !file.Close())
      return Fail(g, "Cannot write " + path + ": " + SystemErrorText());
    return true;
  }
  TempFileBeside temp(path);
  FileHandle old = OpenForReading(path);
  std::string error;
  if (!temp.IsOpen() || !old.IsOpen() || !CopyBytes(old, 0, at - 1, temp.File(), buffer) ||
      !CopySource(source, temp.File(), buffer) ||
      !CopyBytes(old, at - 1, total - at + 1, temp.File(), buffer))
    return Fail(g, "Cannot write " + path + ": " + SystemErrorText());
  if (!temp.Commit(error)) return Fail(g, error);
  return true;
}

// Removes rolls first..last (from 1) through a new file renamed over the old.
bool RemoveRolls(Game& g, std::int64_t first, std::int64_t last) {
  const std::string& path = g.diceFile.DiceFilePath;
  const std::int64_t total = std::max<std::int64_t>(FileLength(path), 0);
  Buffer buffer(kDiceFileBlock);
  TempFileBeside temp(path);
  FileHandle old = OpenForReading(path);
  std::string error;
  if (!temp.IsOpen() || !old.IsOpen() || !CopyBytes(old, 0, first - 1, temp.File(), buffer) ||
      !CopyBytes(old, last, total - last, temp.File(), buffer))
    return Fail(g, "Cannot write " + path + ": " + SystemErrorText());
  if (!temp.Commit(error)) return Fail(g, error);
  return true;
}

// Inserts the rolls of a file at the caret and selects them (MakeRoom and CopyFileIn).
bool InsertFileAtCaret(Game& g, const std::string& path) {
  BeginEdit(g);
  const std::int64_t n = std::max<std::int64_t>(FileLength(path), 0);
  if (n == 0) return true;
  DiceFileState& f = g.diceFile;
  if (!InsertRolls(g, f.DiceFilePos, RollSource{&path, nullptr, n})) return false;
  f.DiceSelEnd =
      static_cast<std::int32_t>(std::min<std::int64_t>(f.DiceFilePos + n - 1, INT32_MAX));
  return true;
}

std::string OpenFileRefusal(std::string_view command) {
  return "Can't use the \"" + std::string(command) +
         "\" command to copy rolls to a file that's open and in use.\r\r"
         "Please select another file name or use the \"Copy\" and \"Paste\" commands to modify "
         "the open file.";
}

}  // namespace

std::string DiceClipboardPath(const Game& g) { return g.roll.DataFolder + "copyfile.rll"; }

std::string DiceConversionPath(const Game& g) { return g.roll.DataFolder + "cnvrtasc.xx~"; }

DiceSelection SelectedDiceRolls(Game& g) {
  const std::int64_t total = DiceRollTotal(g);
  const DiceFileState& f = g.diceFile;
  DiceSelection s;
  s.first = std::max<std::int64_t>(std::min(f.DiceFilePos, f.DiceSelEnd), 1);
  s.last = std::min<std::int64_t>(std::max(f.DiceFilePos, f.DiceSelEnd), total);
  return s;
}

std::int64_t CountSelectedDiceRolls(Game& g) { return SelectedDiceRolls(g).Count(); }

bool KeyDiceRoll(Game& g, int k) {
  if (!HasFile(g)) {
    ShowNotice(g, "You need to open a file first.", "Record Dice Rolls", 0, kMsgOk);
    return false;
  }
  if (k < 0 || k > 35) return false;
  const std::int64_t total = BeginEdit(g);
  DiceFileState& f = g.diceFile;
  const unsigned char roll = DiceRollByte(k / 6 + 1, k % 6 + 1);
  if (f.optInsertRolls && f.DiceFilePos <= total) {
    if (!InsertRolls(g, f.DiceFilePos, RollSource{nullptr, &roll, 1})) return false;
  } else {
    FileHandle file = OpenForUpdate(f.DiceFilePath);
    if (!file.IsOpen() || !WriteAt(file, f.DiceFilePos - 1, &roll, 1) || !file.Close())
      return Fail(g, "Cannot write " + f.DiceFilePath + ": " + SystemErrorText());
  }
  ++f.DiceFilePos;
  f.DiceSelEnd = f.DiceFilePos;
  return true;
}

bool KeyRandomDiceRoll(Game& g) {
  // The system's generator, freshly seeded, not the game's selected one.
  std::mt19937 engine{std::random_device{}()};
  std::uniform_real_distribution<double> uniform(0.0, 1.0);
  const int die1 = static_cast<int>(6 * uniform(engine)) + 1;
  const int die2 = static_cast<int>(6 * uniform(engine)) + 1;
  return KeyDiceRoll(g, (std::min(die1, 6) - 1) * 6 + std::min(die2, 6) - 1);
}

void ClickDiceRow(Game& g, int row, bool keepOtherEnd) {
  const std::int64_t total = DiceRollTotal(g);
  DiceFileState& f = g.diceFile;
  const std::int32_t old = f.DiceFilePos;
  f.DiceFilePos = static_cast<std::int32_t>(
      std::min<std::int64_t>(static_cast<std::int64_t>(f.DiceSelStart) + row, total + 1));
  f.DiceSelEnd = keepOtherEnd ? old : f.DiceFilePos;
  ClampPositions(f, total);
}

void SetNextRollNumber(Game& g, std::int64_t n) {
  const std::int64_t total = DiceRollTotal(g);
  DiceFileState& f = g.diceFile;
  f.DiceFilePos = f.DiceSelEnd = static_cast<std::int32_t>(
      std::clamp<std::int64_t>(n, 1, std::min<std::int64_t>(total + 1, INT32_MAX)));
}

void SelectAllDiceRolls(Game& g) {
  const std::int64_t total = DiceRollTotal(g);
  g.diceFile.DiceFilePos = 1;
  g.diceFile.DiceSelEnd = static_cast<std::int32_t>(std::clamp<std::int64_t>(total, 1, INT32_MAX));
}

std::vector<unsigned char> ReadDiceRolls(Game& g, std::int64_t first, int count) {
  std::vector<unsigned char> rolls;
  if (!HasFile(g) || first < 1 || count <= 0) return rolls;
  FinishDiceFileCall(g);
  FileHandle file = OpenForReading(g.diceFile.DiceFilePath);
  rolls.resize(static_cast<std::size_t>(std::min<int>(count, static_cast<int>(kDiceFileBlock))));
  const std::int64_t got = file.IsOpen() ? ReadAt(file, first - 1, rolls.data(), rolls.size()) : 0;
  rolls.resize(static_cast<std::size_t>(std::max<std::int64_t>(got, 0)));
  return rolls;
}

bool CopyRollsToFile(Game& g, const std::string& path) {
  if (!HasFile(g)) return false;
  const DiceSelection s = SelectedDiceRolls(g);
  Buffer buffer(kDiceFileBlock);
  TempFileBeside temp(path);
  FileHandle open = OpenForReading(g.diceFile.DiceFilePath);
  std::string error;
  if (!temp.IsOpen() || !open.IsOpen() ||
      !CopyBytes(open, s.first - 1, s.Count(), temp.File(), buffer))
    return Fail(g, "Cannot write " + path + ": " + SystemErrorText());
  if (!temp.Commit(error)) return Fail(g, error);
  return true;
}

bool CopyDiceRolls(Game& g) { return CopyRollsToFile(g, DiceClipboardPath(g)); }

bool DeleteDiceRolls(Game& g) {
  if (!HasFile(g)) return false;
  BeginEdit(g);
  const DiceSelection s = SelectedDiceRolls(g);
  if (s.Count() == 0) return true;
  if (!RemoveRolls(g, s.first, s.last)) return false;
  DiceFileState& f = g.diceFile;
  f.DiceFilePos = f.DiceSelEnd = static_cast<std::int32_t>(s.first);
  ClampPositions(f, DiceRollTotal(g));
  return true;
}

bool CutDiceRolls(Game& g) { return CopyDiceRolls(g) && DeleteDiceRolls(g); }

bool PasteDiceRolls(Game& g) {
  if (!HasFile(g)) return false;
  return InsertFileAtCaret(g, DiceClipboardPath(g));
}

bool CopyToRollFile(Game& g, const std::string& path) {
  if (!HasFile(g)) return false;
  if (SameFile(path, g.diceFile.DiceFilePath)) {
    ShowNotice(g, OpenFileRefusal("Copy To Dice Roll File"), "Copy to Dice Roll File", 0, kMsgOk);
    return false;
  }
  if (FileExists(path) && ShowNotice(g, "Do you want to copy over it?", "Copy to Dice Roll File", 0,
                                     kMsgYes | kMsgNo) != kAnswerYes)
    return false;
  return CopyRollsToFile(g, path);
}

bool PasteFromRollFile(Game& g, const std::string& path) {
  if (!HasFile(g)) return false;
  if (!IsDiceRollFile(path)) {
    ShowNotice(g, NotADiceRollFileText(path), "Unable to Open Dice Roll File", 0, kMsgOk);
    return false;
  }
  return InsertFileAtCaret(g, path);
}

bool PasteFromTextFile(Game& g, const std::string& path) {
  if (!HasFile(g)) return false;
  const std::string converted = DiceConversionPath(g);
  std::string error;
  if (ConvertTextToDiceRolls(path, converted, error) < 0) return Fail(g, error);
  const bool ok = InsertFileAtCaret(g, converted);
  RemoveFileIfPresent(converted);
  return ok;
}

bool CopyToTextFile(Game& g, const std::string& path) {
  if (!HasFile(g)) return false;
  if (!HasDiceInformation(g.diceFile.DiceOutputFormat)) {
    ShowNotice(g,
               "You must include one or more pieces of dice roll information in your output "
               "format, such as Die1, Die2, or Total.",
               "Copy Dice Rolls To Text File", 0, kMsgOk);
    return false;
  }
  if (SameFile(path, g.diceFile.DiceFilePath)) {
    ShowNotice(g, OpenFileRefusal("Copy To Text File"), "Copy Dice Rolls To Text File", 0, kMsgOk);
    return false;
  }
  return CopyRollsToText(g, path);
}

bool CopyRollsToText(Game& g, const std::string& path) {
  if (!HasFile(g)) return false;
  const DiceSelection s = SelectedDiceRolls(g);
  std::int64_t firstNumber = s.first;
  if (HasRollNumber(g.diceFile.DiceOutputFormat) && s.first != 1) {
    const int answer = ShowNotice(g,
                                  "The rolls you've selected do not begin with roll #1.  Would "
                                  "you like to renumber them in the output starting with #1?",
                                  "Copy Dice Rolls To Text File", 0, kMsgYes | kMsgNo | kMsgCancel);
    if (answer == kAnswerCancel) return false;
    if (answer == kAnswerYes) firstNumber = 1;
  }
  TempFileBeside temp(path);
  std::string error;
  if (!temp.IsOpen()) {
    temp.Commit(error);
    return Fail(g, error);
  }
  const auto emit = [&](std::string_view text) {
    return WriteAll(temp.File(), text.data(), text.size());
  };
  if (!WriteDiceRollsAsText(g.diceFile.DiceFilePath, s.first, s.last, g.diceFile.DiceOutputFormat,
                            firstNumber, "\r\n", emit, error) ||
      !temp.Commit(error))
    return Fail(g, error);
  return true;
}

bool AskDiceOutputFormat(Game& g) {
  g.msg.MsgInput1 = g.diceFile.DiceOutputFormat;
  if (ShowNotice(g,
                 "Enter the format that you'd like to use to print rolls \r"
                 "and/or to output rolls to a text file. ",
                 "Format Dice Rolls Output", 0, kMsgOk | kMsgCancel | kMsgInput1) != kAnswerOk)
    return false;
  std::string format = g.msg.MsgInput1.substr(0, kMaxDiceOutputFormat);
  if (format.find_first_not_of(' ') == std::string::npos) format = kDefaultDiceOutputFormat;
  g.diceFile.DiceOutputFormat = format;
  return true;
}

void ToggleHighlightPair(Game& g, int die1, int die2) {
  if (die1 < 1 || die1 > 6 || die2 < 1 || die2 > 6) return;
  bool& cell = g.diceFile.HighlightCombo(die1, die2);
  cell = !cell;
}

void ToggleHighlightTotal(Game& g, int total) {
  if (total < 2 || total > 12) return;
  const bool set = !TotalHighlighted(g, total);
  for (int d1 = 1; d1 <= 6; ++d1) {
    const int d2 = total - d1;
    if (d2 >= 1 && d2 <= 6) g.diceFile.HighlightCombo(d1, d2) = set;
  }
}

void ClearHighlights(Game& g) { g.diceFile.HighlightCombo.Fill(false); }

bool TotalHighlighted(const Game& g, int total) {
  if (total < 2 || total > 12) return false;
  for (int d1 = 1; d1 <= 6; ++d1) {
    const int d2 = total - d1;
    if (d2 >= 1 && d2 <= 6 && !g.diceFile.HighlightCombo(d1, d2)) return false;
  }
  return true;
}
