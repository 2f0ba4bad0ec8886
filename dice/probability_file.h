// Probability files (.prb): the whole probability table, values and flags.
//
// The file is five records of 256 bytes. Record 1 holds 200 bytes of text,
// blank-padded: the header "Ravelton Probability File, Data Format 4.6".
// Records 2 to 5 hold the 224 entries of ProbabilityTable as little-endian
// 32-bit integers, 64 a record: k outermost (the flags, then the values),
// then a = 0..7, then b = 0..13 fastest. Record 5 holds the last 32; the
// rest of it is zeros when written and ignored when read.
//
// What must stay true:
// - A file is read whole into a fresh table and put in use only when every
//   check passed: a missing, short, foreign or corrupt file leaves the table
//   in use, its path and its dirty mark untouched.
// - Saving writes a temporary file beside the target and renames it into
//   place, so an interrupted save never leaves half a table under the name.
// - A bare file name (no folder) is taken in the data folder.
// - Loading never touches ProbabilityDiceOn.
#pragma once

#include <string>
#include <string_view>

struct Game;

constexpr std::string_view kProbabilityFileHeader = "Ravelton Probability File, Data Format 4.6";

enum class ProbFileStatus {
  Ok,
  NotFound,            // no such file
  Unreadable,          // a folder, no permission, a read error
  NotProbabilityFile,  // short, another header, or values no table can hold
};

// The path a probability file name stands for: a bare name in the data folder.
std::string ProbabilityFilePath(const Game& game, const std::string& name);
// Reads the file into the table; on success sets ProbFilePath, clears
// ProbDirty. With `pickedByHand` (the user chose it in the file chooser) a
// file that is not a probability file is told with a notice first.
ProbFileStatus ReadProbabilityFile(Game& game, const std::string& name, bool pickedByHand = false);
// LoadProbabilityFile: true when the file was read.
bool LoadProbabilityFile(Game& game, const std::string& name, bool pickedByHand = false);
// Writes the table; on success sets ProbFilePath and clears ProbDirty.
bool SaveProbabilityFile(Game& game, const std::string& name);
// The file's bytes for the table in use (exactly five records).
std::string ProbabilityFileBytes(const Game& game);

// mnuSave: true when the table must be saved through "Save Probability File
// As" (no file yet, or the file is default.prb).
bool ProbabilitySaveNeedsName(const Game& game);

// What the tab's New and Open do after asking about unsaved numbers.
enum class ProbSaveChoice {
  Go,      // nothing unsaved, No, or Yes and saved under ProbFilePath
  SaveAs,  // Yes, but the table needs a name: the caller asks for one first
  Cancel,  // Cancel, or Yes and the save failed: the command stops
};
// With ProbDirty, asks "These numbers have not been saved." (Yes, No,
// Cancel) and on Yes saves; without ProbDirty, Go at once.
ProbSaveChoice AskToSaveProbabilities(Game& game);
