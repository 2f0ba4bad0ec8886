// Walks over the probability table's cells and the rounding shared by the
// probability operations (dice/probability.cpp, dice/probability_balance.cpp).
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

#include "dice/probability.h"

// Round to the nearest whole unit, ties to even, kept within a Long (NaN 0).
inline Long RoundUnits(double x) {
  if (std::isnan(x)) return 0;
  const double r = std::nearbyint(x);
  if (r >= static_cast<double>(std::numeric_limits<Long>::max()))
    return std::numeric_limits<Long>::max();
  if (r <= static_cast<double>(std::numeric_limits<Long>::min()))
    return std::numeric_limits<Long>::min();
  return static_cast<Long>(r);
}

// The 36 cells (a, b) in row order: a = 2..7, b = a - 1..13 - a.
template <class F>
void ForEachProbabilityCell(F&& visit) {
  for (int a = kFirstCellRow; a <= kLastCellRow; ++a)
    for (int b = a - 1; b <= 13 - a; ++b) visit(a, b);
}
// The cells of column b (total b + 1).
template <class F>
void ForEachCellOfColumn(int b, F&& visit) {
  for (int a = kFirstCellRow; a <= CellCount(b) + 1; ++a) visit(a, b);
}
// The six cells that show `face` on die 1 or 2.
template <class F>
void ForEachCellOfFace(int die, int face, F&& visit) {
  for (int other = 1; other <= 6; ++other) {
    const ProbEntry c = die == 1 ? CellOfDice(face, other) : CellOfDice(other, face);
    visit(c.a, c.b);
  }
}

// Each cell the product of its two faces: Round(f1 x f2 x 0.00001).
void SetCellsFromFaces(Game& game);
// Each total without a lock becomes the sum of its column; in Free Form
// dice each face without a lock the sum of its cells too.
void SumUnlockedLines(Game& game);
