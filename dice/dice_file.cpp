#include "dice/dice_file.h"

#include <algorithm>
#include <vector>

#include "core/file_io.h"
#include "core/game.h"
#include "core/message_dialog.h"
#include "core/platform.h"
#include "logs/events_log.h"

namespace {

constexpr std::size_t kCheckBlock = 30000;

std::string FileNameOf(const std::string& path) {
  const auto slash = path.find_last_of('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

void NoteError(DiceFileState& f, const char* what) {
  f.Error = std::string("Cannot ") + what + " " + f.DiceFilePath + ": " + SystemErrorText();
}

// Writes recorded rolls held in the window; the window is empty afterwards.
bool WriteWindow(DiceFileState& f) {
  bool ok = true;
  if (f.WindowDirty && f.WindowLength > 0) {
    FileHandle file = OpenForUpdate(f.DiceFilePath);
    ok = file.IsOpen() &&
         WriteAt(file, f.WindowStart, f.Window.data(), static_cast<std::size_t>(f.WindowLength)) &&
         file.Close();
    if (!ok) NoteError(f, "write");
  }
  f.WindowDirty = false;
  f.WindowLength = 0;
  return ok;
}

// The byte at offset (from 0); false past the end of the file.
bool ByteAt(DiceFileState& f, std::int64_t offset, unsigned char& byte) {
  if (f.WindowDirty) WriteWindow(f);
  if (offset < f.WindowStart || offset >= f.WindowStart + f.WindowLength) {
    f.WindowLength = 0;
    FileHandle file = OpenForReading(f.DiceFilePath);
    if (!file.IsOpen()) return false;
    const std::int64_t got = ReadAt(file, offset, f.Window.data(), f.Window.size());
    if (got <= 0) return false;
    f.WindowStart = offset;
    f.WindowLength = static_cast<std::int32_t>(got);
  }
  byte = f.Window[static_cast<std::size_t>(offset - f.WindowStart)];
  return true;
}

// The roll at DiceFilePos is taken: the positions move on.
void Advance(DiceFileState& f) {
  f.DiceFileLast = f.DiceFilePos;
  ++f.DiceFilePos;
  f.DiceSelEnd = f.DiceFilePos;
}

void Refresh(Game& g, Redraw what) {
  if (g.platform && !g.HyperDrive) g.platform->RequestRedraw(what);
}

}  // namespace

bool IsDiceRollFile(const std::string& path) {
  FileHandle file = OpenForReading(path);
  if (!file.IsOpen() || FileLength(path) < 0) return false;
  std::vector<unsigned char> block(kCheckBlock);
  for (std::int64_t offset = 0;;) {
    const std::int64_t got = ReadAt(file, offset, block.data(), block.size());
    if (got < 0) return false;
    if (got == 0) return true;
    for (std::int64_t i = 0; i < got; ++i)
      if (block[static_cast<std::size_t>(i)] & 3) return false;
    offset += got;
  }
}

std::string NotADiceRollFileText(const std::string& path) {
  return path +
         "\ris either from an earlier version, has been corrupted, or is not a true Ravelton dice "
         "roll file.";
}

PlaybackResult PlaybackRoll(Game& g) {
  DiceFileState& f = g.diceFile;
  if (f.DiceFilePos < 1) f.DiceFilePos = 1;
  unsigned char byte = 0;
  if (!ByteAt(f, f.DiceFilePos - 1, byte)) return PlaybackResult::EndOfFile;
  if (!DiceWithinLimits(byte)) {
    f.DiceFileMode = kDiceFileInactive;
    if (!g.HyperDrive)
      ShowNotice(g,
                 "A dice roll value has been found to be out of limits. \r\r"
                 "Playback of this Dice Roll File has ceased so that you can check the file or "
                 "continue without it.",
                 "Dice Roll File Error", 0, kMsgOk);
    return PlaybackResult::OutOfLimits;
  }
  g.Die1 = DieOneOf(byte);
  g.Die2 = DieTwoOf(byte);
  Advance(f);
  return PlaybackResult::Rolled;
}

void RecordRoll(Game& g) {
  DiceFileState& f = g.diceFile;
  if (f.DiceFilePos < 1) f.DiceFilePos = 1;
  const std::int64_t offset = f.DiceFilePos - 1;
  if (!f.WindowDirty || offset != f.WindowStart + f.WindowLength ||
      f.WindowLength == kDiceFileWindow) {
    WriteWindow(f);
    f.WindowStart = offset;
    f.WindowDirty = true;
  }
  f.Window[static_cast<std::size_t>(f.WindowLength++)] =
      DiceRollByte(static_cast<int>(g.Die1), static_cast<int>(g.Die2));
  Advance(f);
}

bool FinishDiceFileCall(Game& g) { return WriteWindow(g.diceFile); }

std::int64_t DiceRollTotal(Game& g) {
  FinishDiceFileCall(g);
  if (g.diceFile.DiceFilePath.empty()) return 0;
  return std::max<std::int64_t>(FileLength(g.diceFile.DiceFilePath), 0);
}

bool OpenDiceRollFile(Game& g, const std::string& path) {
  FinishDiceFileCall(g);
  DiceFileState& f = g.diceFile;
  if (FileExists(path)) {
    if (!IsDiceRollFile(path)) {
      ShowNotice(g, NotADiceRollFileText(path), "Unable to Open Dice Roll File", 0, kMsgOk);
      return false;
    }
  } else {
    FileHandle created = OpenForUpdate(path);
    if (!created.IsOpen()) {
      ShowNotice(g, "Cannot create " + path + ": " + SystemErrorText(),
                 "Unable to Open Dice Roll File", 0, kMsgOk);
      return false;
    }
  }
  f.DiceFilePath = path;
  f.DiceFilePos = f.DiceSelEnd = FileLength(path) > 0 ? 1 : 0;
  f.DiceFileLast = 0;
  f.DiceSelStart = 1;
  f.Error.clear();
  Refresh(g, Redraw::Table);
  return true;
}

void CloseDiceRollFile(Game& g) {
  FinishDiceFileCall(g);
  DiceFileState& f = g.diceFile;
  f.DiceFilePath.clear();
  f.DiceFileMode = kDiceFileInactive;
  f.DiceFilePos = f.DiceFileLast = f.DiceSelEnd = f.DiceSelStart = 0;
  Refresh(g, Redraw::Table);
}

bool SetDiceFileMode(Game& g, std::int32_t mode) {
  DiceFileState& f = g.diceFile;
  if (mode != kDiceFileInactive && f.DiceFilePath.empty()) {
    ShowNotice(g, "You need to open a file first.",
               mode == kDiceFileRecording ? "Record Dice Rolls During Game Play"
                                          : "Playback Dice Rolls During Game Play",
               0, kMsgOk);
    return false;
  }
  FinishDiceFileCall(g);
  const bool toPlayback = mode == kDiceFilePlayback && f.DiceFileMode != kDiceFilePlayback;
  f.DiceFileMode = mode;
  if (toPlayback && g.roll.LogOn) {
    std::string& line = StartEventLine(g);
    line += "    Dice roll file playback activated (";
    line += f.DiceFilePath;
    line += ')';
    WriteEventLine(g, line);
  }
  Refresh(g, Redraw::Table);
  return true;
}

int AskRewindDiceFile(Game& g) {
  DiceFileState& f = g.diceFile;
  const int answer =
      ShowNotice(g,
                 f.DiceFileMode == kDiceFilePlayback ? "Playback stopped.\rRewind for playback?"
                                                     : "Recording stopped.\rRewind for playback?",
                 "Dice Roll File", 0, kMsgYes | kMsgNo | kMsgCancel);
  g.KeepRolling = false;
  if (answer == kAnswerYes) {
    FinishDiceFileCall(g);
    f.DiceFileMode = kDiceFilePlayback;
    f.DiceFilePos = f.DiceSelEnd = 1;
  } else if (answer == kAnswerNo) {
    FinishDiceFileCall(g);
    f.DiceFileMode = kDiceFileInactive;
  }
  return answer;
}

void ApplyNewSessionDiceMode(Game& g, int diceMode) {
  DiceFileState& f = g.diceFile;
  if (diceMode == 0) {
    CloseDiceRollFile(g);
  } else if (diceMode == 1 && !f.DiceFilePath.empty()) {
    FinishDiceFileCall(g);
    f.DiceFileMode = kDiceFilePlayback;
    f.DiceFilePos = f.DiceSelEnd = 1;
    f.DiceFileLast = 0;
  }
}

std::string DiceRollFilesTitle(const Game& g) {
  if (g.diceFile.DiceFilePath.empty()) return "Dice Roll Files";
  return "Dice Roll Files (" + FileNameOf(g.diceFile.DiceFilePath) + ")";
}
