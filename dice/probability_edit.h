// Editing the probability table from a front end: the selected entry and
// its moves, a typed value read and set, the "rolls out of" number, and the
// caption of the file in use. The window keeps none of this: the selection
// lives in the table's own flag row, every value in the table.
//
// What must stay true:
// - The selected entry is always an entry (a total, a cell or a face), even
//   when a file brought in a selection that is not one.
// - A typed text that is not a number changes nothing; a number goes through
//   SetProbabilityCell in the display mode, with its rebalancing.
// - RollsOutOf is never 0, negative or not finite, since the "rolls out of"
//   modes divide by it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "dice/probability.h"

// Decimals the entry box takes, and those of the "rolls out of" box.
constexpr int kProbEntryDecimals = 3;
constexpr int kRollsOutOfDecimals = 4;

// The entry the box stands on: flags (0, 1) and (0, 2), or total 2 when
// they name no entry.
ProbEntry SelectedProbabilityEntry(const Game& game);
// Makes `entry` the selected one (nothing when it is not an entry).
void SelectProbabilityEntry(Game& game, ProbEntry entry);
// The entry an arrow key leads to from `from`: a row up or down within the
// column, or the next column left or right that has an entry in the row;
// `from` itself at the edge of the matrix.
ProbEntry MoveProbabilityEntry(ProbEntry from, int rows, int columns);

// A typed number: optional minus, digits, at most one point; nothing else.
std::optional<double> ParseProbabilityText(std::string_view text);
// Enter in the entry box: the text's value times 1000 set on the entry in
// the display mode. False (nothing changed) when the text is no number or
// the place is no entry.
bool EnterProbabilityText(Game& game, ProbEntry entry, std::string_view text);
// Enter in txtRollsOutOf: stores N; false (N kept) unless above 0.
bool EnterRollsOutOf(Game& game, std::string_view text);
// The text txtRollsOutOf shows: N with up to four decimals, no trailing zeros.
std::string RollsOutOfText(const Game& game);
// lblPrbFileName: the file name of ProbFilePath, or "untitled".
std::string ProbabilityFileCaption(const Game& game);
