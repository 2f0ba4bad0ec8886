// The dice roll file editor's operations (frmDiceRollFiles), on the open
// file on disk: keying rolls, the selection, cut, copy, paste (through the
// clipboard file "copyfile.rll" in the data folder), delete, copying to and
// pasting from other roll files and text files, the output template and the
// highlighted pairs.
//
// Every operation works through a buffer of kDiceFileBlock bytes, so a file
// of a hundred million rolls is edited without being read whole. An
// operation that inserts or removes rolls inside the file writes the whole
// new file beside the old one and renames it into place, so a failure at
// any point leaves the old file as it was; typing over a roll or adding one
// at the end writes that byte in place.
//
// What must stay true:
// - The selection is the rolls between DiceFilePos and DiceSelEnd, in
//   either order, its upper end cut back to the number of rolls.
// - DiceFilePos stays within 1..rolls + 1 after every operation.
// - Before touching the file every operation writes out and drops the
//   roll's window on it (FinishDiceFileCall).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct Game;

// The clipboard of the editor, in the data folder; deleted when the program ends.
std::string DiceClipboardPath(const Game& game);
// The temporary file of a text import, in the data folder.
std::string DiceConversionPath(const Game& game);

// The selection as first..last (from 1); empty when last < first.
struct DiceSelection {
  std::int64_t first = 1, last = 0;
  std::int64_t Count() const { return last >= first ? last - first + 1 : 0; }
};
DiceSelection SelectedDiceRolls(Game& game);
// lblNumRollsSelected: the number of rolls selected.
std::int64_t CountSelectedDiceRolls(Game& game);

// cmdRollNumbers(k), k = 0..35: die 1 = k / 6 + 1, die 2 = k mod 6 + 1,
// inserted or typed over at DiceFilePos by optInsertRolls.
bool KeyDiceRoll(Game& game, int k);
// cmdRandomNum: a roll drawn by the system's own random generator, keyed.
bool KeyRandomDiceRoll(Game& game);
// A click on row `row` (from 0) of the list; keepOtherEnd with Shift or
// the right button.
void ClickDiceRow(Game& game, int row, bool keepOtherEnd);
// txtNextRollNum: a typed roll number becomes DiceFilePos.
void SetNextRollNumber(Game& game, std::int64_t n);
// mnuSelectAll: rolls 1 to the last.
void SelectAllDiceRolls(Game& game);
// Rolls first..first + count - 1 of the open file, for the visible rows.
std::vector<unsigned char> ReadDiceRolls(Game& game, std::int64_t first, int count);

// Writes the selected rolls to a new file at path (through a temporary file).
bool CopyRollsToFile(Game& game, const std::string& path);
// mnuCopy: the selection to the clipboard.
bool CopyDiceRolls(Game& game);
// mnuDelete: removes the selection; the caret stays where it began.
bool DeleteDiceRolls(Game& game);
// mnuCut: mnuCopy, then mnuDelete.
bool CutDiceRolls(Game& game);
// mnuPaste: inserts the clipboard at DiceFilePos and selects what came in.
bool PasteDiceRolls(Game& game);
// mnuCopyToRollFile with the chosen path (the open file refused; an existing
// file replaced only when the user says so).
bool CopyToRollFile(Game& game, const std::string& path);
// mnuPasteFromRollFile: inserts the rolls of another dice roll file.
bool PasteFromRollFile(Game& game, const std::string& path);
// mnuPasteFromTextFile: inserts the rolls converted from a text file.
bool PasteFromTextFile(Game& game, const std::string& path);
// mnuCopyToTextFile: the template checked, the open file refused, then CopyRollsToText.
bool CopyToTextFile(Game& game, const std::string& path);
// Writes the selected rolls to a text file by the output template, offering
// to number them from 1 when they do not begin at roll 1.
bool CopyRollsToText(Game& game, const std::string& path);
// mnuFormatOutput: asks for the output template (256 characters at most).
bool AskDiceOutputFormat(Game& game);

// mnuPip: toggles the highlight of one (die 1, die 2) pair.
void ToggleHighlightPair(Game& game, int die1, int die2);
// mnuAll2..mnuAll12: sets every pair of the total, or clears them all when
// all are set already.
void ToggleHighlightTotal(Game& game, int total);
// mnuClearAll.
void ClearHighlights(Game& game);
// The check mark of a total's menu item: all its pairs set.
bool TotalHighlighted(const Game& game, int total);
