// The 90 roll categories as the statistics views see them: their texts, the
// lists each display kind shows, which categories a pair of dice falls in,
// and the probable percentage of each.
//
// What must stay true:
// - RollCategories(d1, d2) names exactly the categories the roll's tallies
//   count for those dice (a test holds the two together), so the probable
//   percentages and the counts describe the same events.
// - True probable percentages are the rounded constants by the number of
//   the 36 pairs a category holds; every die face is 16.67.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

constexpr int kFirstCategory = 2;
constexpr int kLastCategory = 89;  // 1 and 90 are never counted
constexpr int kRollTotalsKinds = 4;

// The text of category c in cmbFreqNum, "" for 0, 1 and 90.
std::string CategoryText(int c);
// The categories of display kind 0..3 in display order: 11, 21, 36, 12 rows.
std::span<const int> CategoriesOfKind(int kind);
// The caption of a display kind: "11 Basic Numbers", ...
std::string_view KindCaption(int kind);

// The categories that dice (d1, d2) count in, faces and pair first; returns
// how many were written (at most 12).
int RollCategories(int d1, int d2, std::array<int, 12>& out);
// How many of the 36 ordered pairs fall in category c.
int PairsInCategory(int c);

// Skewed dice in the probability table's units (1/100,000): each ordered
// pair (index 6 x (die1 - 1) + die2 - 1), each total 2..12 (index total - 2)
// and each face of either die (index face - 1).
struct SkewedDice {
  std::array<std::int32_t, 36> pair{};
  std::array<std::int32_t, 11> total{};
  std::array<std::int32_t, 6> face1{}, face2{};
};
// ProbablePercent(c, skewed): the probable percentage of category c; with
// skewed dice a single number or pair reads its own entry / 1000 and a group
// the sum of its members' / 1000.
double ProbablePercent(int c, const SkewedDice* skewed);
