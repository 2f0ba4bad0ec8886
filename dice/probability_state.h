// The probability table of the skewed dice and the Probability tab's options.
//
// ProbabilityTable(k, a, b) holds values in row k = 1 and flags in row k = 0,
// all in units of 1/100,000 (100,000 is certainty):
//   a = 2..7, b = 1..11, a <= 7 - |6 - b|   the 36 cells, one ordered pair
//                                           each; column b holds total b + 1
//   a = 1, b = 1..11                        the eleven totals
//   a = 2..7, b = 12 / b = 13               face a - 1 of the first / second die
//   a = 0: flags only: b = 0 the kind of dice (0 Percentage, -1 Free Form),
//          b = 1 and 2 the row and column of the selected entry.
// dice/probability.h maps cells to dice and back.
//
// What must stay true:
// - Between operations every flag of rows 1..7, columns 1..13 is 0 or
//   kProbLocked; the other bits are marks that live for one set only.
// - Nothing relies on the cells summing to exactly 100,000 (the defaults sum
//   to 100,008); the draw copes with any sum, also 0.
// - The memory order of the table is not the file's: the .prb reader and
//   writer walk the subscripts in the file's own order.
#pragma once

#include <cstdint>
#include <string>

#include "core/tables.h"

using Long = std::int32_t;

// A flag of a locked entry; the only flag value that stands between operations.
constexpr Long kProbLocked = 128;
// The kind of dice, flag (0, 0): each pair the product of its faces, or any pair free.
constexpr Long kPercentageDice = 0;
constexpr Long kFreeFormDice = -1;
// One in table units.
constexpr Long kProbCertain = 100'000;

// ProbDisplayMode: how the tab shows and reads entries.
enum ProbDisplay : Long {
  kShowPercentage = 0,       // " Show as percentage"
  kShowPercentFromTrue = 1,  // " Show as +/- from true %"
  kShowRollsOutOf = 2,       // " Show as # rolls out of:"
  kShowRollsFromTrue = 3,    // " Show as +/- from true rolls out of:"
  kProbDisplayCount
};

struct ProbabilityState {
  Table3<Long, 0, 1, 0, 7, 0, 13> ProbabilityTable;
  Long ProbDisplayMode = kShowPercentage;
  double RollsOutOf = 36;    // N of the "rolls out of" modes (txtRollsOutOf)
  std::string ProbFilePath;  // the file in use, empty for "untitled"
  bool ProbDirty = false;    // unsaved changes
  // The plain generator that redraws k when it falls beyond the cells' sum:
  // a 32-bit linear congruential state, apart from the selectable generators.
  std::uint32_t RedrawState = 1;
  friend bool operator==(const ProbabilityState&, const ProbabilityState&) = default;
};
