// Probability dice: the 36-cell table that can replace the uniform draw, the
// rebalancing that keeps it a distribution when the user sets one entry, and
// the pick of a pair from a drawn number.
//
// The user sets a cell (one ordered pair), a total or one face of one die;
// SetProbabilityCell locks that entry and spreads the rest of certainty over
// every entry that is neither locked nor held by a locked line. A face set
// while no total and no cell is locked keeps the dice independent
// ("Percentage Dice": each cell the product of its faces); anything else
// leaves "Free Form Dice". The table's layout is told in
// dice/probability_state.h; the file in dice/probability_file.h.
//
// What must stay true:
// - Every rounding of an entry is to the nearest whole unit, ties to even.
// - A set that cannot be balanced (every free cell of a line locked) is
//   undone: the entry gets its old value back but stays locked, and
//   ProbDirty is left as it was. Any other set marks the table dirty.
// - After any operation the flags of rows 1..7, columns 1..13 are 0 or
//   kProbLocked.
// - PickProbabilityDice allocates nothing and always ends, whatever the
//   table holds (a table whose cells can't be hit gives fair dice).
#pragma once

#include <string>

#include "core/game.h"
#include "dice/probability_state.h"

// Rows and columns of the table.
constexpr int kTotalRow = 1;      // a = 1: the totals
constexpr int kFirstCellRow = 2;  // a = 2..7: cells and faces
constexpr int kLastCellRow = 7;
constexpr int kFirstDieColumn = 12;   // b = 12: faces of the first die
constexpr int kSecondDieColumn = 13;  // b = 13: faces of the second die
constexpr int kLastTotalColumn = 11;  // b = 1..11: totals 2..12

// n(b): the number of cells in column b (of total b + 1), 1..6.
constexpr int CellCount(int b) { return 6 - (b > 6 ? b - 6 : 6 - b); }
// True for the 36 cell entries.
constexpr bool IsProbabilityCell(int a, int b) {
  return b >= 1 && b <= kLastTotalColumn && a >= kFirstCellRow && a <= CellCount(b) + 1;
}

struct ProbEntry {
  int a = 0, b = 0;
  friend bool operator==(const ProbEntry&, const ProbEntry&) = default;
};
struct DicePair {
  int die1 = 0, die2 = 0;
  friend bool operator==(const DicePair&, const DicePair&) = default;
};

// The pair of cell (a, b).
constexpr DicePair CellDice(int a, int b) {
  return b < 7 ? DicePair{a - 1, b - a + 2} : DicePair{a + b - 7, 8 - a};
}
// The cell of a pair of dice (each 1..6).
constexpr ProbEntry CellOfDice(int die1, int die2) {
  const int b = die1 + die2 - 1;
  return {b < 7 ? die1 + 1 : 8 - die2, b};
}
// The entry of total 2..12, and of face 1..6 of die 1 or 2.
constexpr ProbEntry TotalEntry(int total) { return {kTotalRow, total - 1}; }
constexpr ProbEntry FaceEntry(int die, int face) {
  return {face + 1, die == 1 ? kFirstDieColumn : kSecondDieColumn};
}

enum class ProbEntryKind { None, Cell, Total, Face };
// What entry (a, b) is; None for the flag-only row 0 and unused places.
ProbEntryKind ProbabilityEntryKind(int a, int b);
// The true value of an entry in table units: n(b) x 100000 / 36 for a
// total, 600000 / 36 for a face, 100000 / 36 for a cell.
double TrueProbability(int a, int b);

// Value and flag of an entry.
inline Long& ProbValue(Game& game, int a, int b) {
  return game.probability.ProbabilityTable(1, a, b);
}
inline Long& ProbFlag(Game& game, int a, int b) {
  return game.probability.ProbabilityTable(0, a, b);
}
inline Long ProbValue(const Game& game, int a, int b) {
  return game.probability.ProbabilityTable(1, a, b);
}
inline Long ProbFlag(const Game& game, int a, int b) {
  return game.probability.ProbabilityTable(0, a, b);
}

// The defaults: cells 2778, totals 2778 x their cell count (rounded), faces
// 16667; flags untouched.
void SetTrueProbabilities(Game& game);
// Sets entry (a, b) and rebalances the table. With `absolute` the value is in
// table units; else it is what the user typed times 1000, read in
// ProbDisplayMode (percent, +/- from true percent, rolls out of RollsOutOf,
// +/- from the true rolls out of it).
void SetProbabilityCell(Game& game, int a, int b, double value, bool absolute);
// True when no total and no cell is locked (faces may be).
bool NoCellLocked(const Game& game);
// "L" on the tab: flips the lock of an entry, no rebalancing.
void FlipProbabilityLock(Game& game, int a, int b);
// cmdUnLock ("Unlock All Cells"): clears the flags of rows 1..7, columns 1..13.
void UnlockAllProbabilities(Game& game);
// mnuNew after its prompt: every flag of rows 0..7 cleared, the defaults,
// Percentage, no file, not dirty.
void NewProbabilities(Game& game);
// The kind of dice from flag (0, 0).
inline bool IsFreeFormDice(const Game& game) { return ProbFlag(game, 0, 0) != kPercentageDice; }
// Turns the table into Percentage dice: each cell the product of its faces.
void MakePercentageDice(Game& game);
// Marks the table Free Form: cells keep their values and faces follow them.
void MakeFreeFormDice(Game& game);

// The axis dialog (cmdAxisOK): for each die an axis 0 "1-6", 1 "2-5",
// 2 "3-4" and the shooter's effectiveness in percent (kept to 0..100): the
// axis's two faces each fall to (1 - e) / 6, the four others share the rest.
void SetAxisProbabilities(Game& game, int axis1, double effect1, int axis2, double effect2);

// The entry's text on the tab in ProbDisplayMode: "#,0.000" for the plain
// modes, "+#,0.000;-#,0.000;#,0.000" for the "+/- from true" modes. Empty
// for places that are not entries.
std::string ProbabilityCellText(const Game& game, int a, int b);
// In the signed modes -1, 0 or +1 as the shown value is below, at or above
// true (red, black, blue); 0 in the plain modes.
int ProbabilityCellSign(const Game& game, int a, int b);
// The printout's line for the display mode: "Shown as percentages", or as
// +/- from true percentages, or as (+/- from true) number of rolls out of N.
std::string ProbabilityModeCaption(const Game& game);
// Caption of the kind of dice: "Percentage Dice" or "Free Form Dice".
const char* ProbabilityKindCaption(const Game& game);

// Sets Die1 and Die2 from k (1..100000, 100001 possible): the first cell in
// row order whose running sum reaches k. A k beyond the cells' sum is drawn
// anew as Int(r x 100000) + 1 from a plain generator of its own.
void PickProbabilityDice(Game& game, Long k);
