// The dice roll file in use: its path, the recorder's mode, the positions
// the editor and the roll share, the editor's options, and the roll path's
// window on the file.
//
// What must stay true:
// - DiceFilePos is the record (from 1) that the next roll reads or writes
//   and the editor's caret; DiceFilePos and DiceSelEnd are the two ends of
//   the selection, in either order.
// - The window holds bytes WindowStart .. WindowStart + WindowLength - 1
//   (from 0) of the file. When WindowDirty they are recorded rolls not yet
//   written; otherwise they are a copy read ahead for playback. The roll
//   writes it out and empties it when its call ends, and every editing
//   operation does so before touching the file, so the file on disk is
//   the only copy between two calls.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/tables.h"

// DiceFileMode values.
constexpr std::int32_t kDiceFileInactive = 0;
constexpr std::int32_t kDiceFileRecording = 1;
constexpr std::int32_t kDiceFilePlayback = 2;

// Bytes of the roll path's window on the file.
constexpr std::int32_t kDiceFileWindow = 32 * 1024;

struct DiceFileState {
  std::string DiceFilePath;  // empty: no file open
  std::int32_t DiceFileMode = kDiceFileInactive;
  std::int32_t DiceFilePos = 0;   // "Next roll is roll #"
  std::int32_t DiceFileLast = 0;  // "Last roll was roll #"
  std::int32_t DiceSelEnd = 0;    // the selection's second end
  std::int32_t DiceSelStart = 1;  // first row shown in the editor's list
  bool optInsertRolls = false;    // keyed rolls: " Insert" (true) or " Type over"
  std::string DiceOutputFormat = "Roll# (Die1.Die2) Total";
  Table2<bool, 1, 6, 1, 6> HighlightCombo;  // (die 1, die 2) pairs marked in the list

  std::array<unsigned char, kDiceFileWindow> Window{};
  std::int64_t WindowStart = 0;
  std::int32_t WindowLength = 0;
  bool WindowDirty = false;
  // The last failure to read or write the file, naming it; empty when fine.
  std::string Error;

  friend bool operator==(const DiceFileState&, const DiceFileState&) = default;
};
