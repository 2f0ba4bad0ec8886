// Dice roll files: a plain sequence of rolls, one byte each, no header. Roll
// n (from 1) is byte n; its value is die 2 x 32 + die 1 x 4, so bits 0-1 are
// clear, bits 2-4 hold die 1 and bits 5-7 die 2. The game records every roll
// into the open file or plays the file back instead of the generators.
//
// Who calls what: the roll cycle calls PlaybackRoll (after a pending pad
// roll, before the generators) or RecordRoll once per roll, and
// FinishDiceFileCall when its call ends; the recorder buttons call
// SetDiceFileMode; the editor (dice_file_edit.h) and the game's open and
// close commands call the rest.
//
// What must stay true:
// - A file whose bytes have bit 0 or 1 set is never opened; a byte whose
//   die is 0 or 7 stops playback where it stands, and the file stays open.
// - Reaching the end of the file in playback is not an error: no roll is
//   taken and the run stops with its reason.
// - The roll reads and writes the file through a window of kDiceFileWindow
//   bytes, so a Hyper-Drive run pays for one read or write per window, not
//   per roll, and allocates nothing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct Game;

constexpr std::string_view kEndOfDiceFileStop = "Stopped due to end of Dice Roll File reached.";
constexpr std::string_view kDiceFileValueStop =
    "Stopped due to Dice Roll File value out of limits.";

// The byte of a roll.
constexpr unsigned char DiceRollByte(int die1, int die2) {
  return static_cast<unsigned char>(die2 * 32 + die1 * 4);
}
constexpr int DieOneOf(unsigned char b) { return (b & 28) / 4; }
constexpr int DieTwoOf(unsigned char b) { return (b & 224) / 32; }
// True when both dice of a byte lie in 1..6.
constexpr bool DiceWithinLimits(unsigned char b) {
  return DieOneOf(b) >= 1 && DieOneOf(b) <= 6 && DieTwoOf(b) >= 1 && DieTwoOf(b) <= 6;
}

// True when the file exists and no byte of it has bit 0 or bit 1 set (an
// empty file passes).
bool IsDiceRollFile(const std::string& path);
// The message that refuses a file that is not a dice roll file.
std::string NotADiceRollFileText(const std::string& path);

// What playback gave the roll.
enum class PlaybackResult { Rolled, EndOfFile, OutOfLimits };
// Reads record DiceFilePos into Die1 and Die2 and moves on. A bad value
// ends playback (mode 0) with the error message outside Hyper-Drive.
PlaybackResult PlaybackRoll(Game& game);
// Writes the roll's byte at DiceFilePos (the file grows past its end) and moves on.
void RecordRoll(Game& game);
// Writes out recorded rolls still in the window and empties it.
bool FinishDiceFileCall(Game& game);
// The number of rolls in the open file (its length), recorded rolls included.
std::int64_t DiceRollTotal(Game& game);

// mnuNewOpen with a chosen path: an existing file must be a dice roll file
// (else the refusal message, false); a new name creates the file.
bool OpenDiceRollFile(Game& game, const std::string& path);
// mnuClose: no file, all positions and the mode back to 0.
void CloseDiceRollFile(Game& game);
// The recorder's buttons: mode 0, 1 or 2; modes 1 and 2 need an open file.
bool SetDiceFileMode(Game& game, std::int32_t mode);
// "Rewind for playback?" after a run reached the end of the file, or on the
// table's key: Yes plays back from roll 1, No stops the recorder, Cancel
// changes nothing. Returns the answer.
int AskRewindDiceFile(Game& game);
// A new session's dice roll file: 0 closes it, 1 rewinds for playback, 2
// leaves it as it is.
void ApplyNewSessionDiceMode(Game& game, int diceMode);
// The editor's title: "Dice Roll Files" or "Dice Roll Files (" + file name + ")".
std::string DiceRollFilesTitle(const Game& game);
