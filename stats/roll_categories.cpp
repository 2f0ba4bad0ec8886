#include "stats/roll_categories.h"

#include <algorithm>

#include "core/frames.h"

namespace {

constexpr int kKind0[] = {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
constexpr int kKind1[] = {2, 3, 26, 13, 31, 32, 37, 38, 14, 45, 46, 47, 52, 53, 15, 58, 59, 62, 16, 11, 12};
constexpr int kKind2[] = {2,  22, 23, 24, 25, 13, 27, 28, 29, 30, 33, 34, 35, 36, 14, 39, 40, 41,
                          42, 43, 44, 48, 49, 50, 51, 15, 54, 55, 56, 57, 60, 61, 16, 63, 64, 12};
constexpr int kKind3[] = {78, 79, 80, 81, 82, 83, 84, 85, 86, 87, 88, 89};
static_assert(std::size(kKind0) == 11 && std::size(kKind1) == 21 && std::size(kKind2) == 36);

constexpr std::string_view kKindCaptions[kRollTotalsKinds] = {
    "11 Basic Numbers", "21 Distinguishable Combos", "36 Unique Combos", "Dice Faces"};

constexpr unsigned T(int total) { return 1u << total; }

struct Group {
  int c;
  const char* text;
  unsigned totals;  // bit t for each total t the group holds
};
constexpr Group kGroups[] = {
    {17, "Numbers 4,5,6,8,9,10", T(4)|T(5)|T(6)|T(8)|T(9)|T(10)},
    {18, "Numbers 5,6,8,9", T(5)|T(6)|T(8)|T(9)},
    {19, "Numbers 4,5,9,10", T(4)|T(5)|T(9)|T(10)},
    {20, "Numbers 2,3,12", T(2)|T(3)|T(12)},
    {21, "Numbers 2,3,4,9,10,11,12", T(2)|T(3)|T(4)|T(9)|T(10)|T(11)|T(12)},
    {65, "Numbers 2,3,7,11,12", T(2)|T(3)|T(7)|T(11)|T(12)},
    {66, "Numbers 2,3,11,12", T(2)|T(3)|T(11)|T(12)},
    {67, "Numbers 4,5,6", T(4)|T(5)|T(6)},
    {68, "Numbers 8,9,10", T(8)|T(9)|T(10)},
    {69, "Numbers 2,12", T(2)|T(12)},
    {70, "Numbers 3,11", T(3)|T(11)},
    {71, "Numbers 4,10", T(4)|T(10)},
    {72, "Numbers 5,9", T(5)|T(9)},
    {73, "Numbers 6,8", T(6)|T(8)},
    {74, "Numbers 2,3", T(2)|T(3)},
    {75, "Numbers 3,12", T(3)|T(12)},
    {76, "Numbers 7,11", T(7)|T(11)},
    {77, "Numbers 11,12", T(11)|T(12)},
};

// The unordered pair categories (both orders of two different faces).
constexpr int UnorderedCategory(int lo, int hi) {
  constexpr int table[6][6] = {
      {0, 0, 26, 31, 37, 45}, {0, 0, 32, 38, 46, 52}, {0, 0, 0, 47, 53, 58},
      {0, 0, 0, 0, 59, 62},   {0, 0, 0, 0, 0, 0},     {0, 0, 0, 0, 0, 0},
  };
  return table[lo - 1][hi - 1];
}

// The true probable percentages by pairs held, as the view shows them.
double TruePercent(int pairs) {
  switch (pairs) {
    case 1: return 2.78;
    case 2: return 5.56;
    case 3: return 8.33;
    case 4: return 11.11;
    case 5: return 13.89;
    case 6: return 16.67;
    case 8: return 22.22;
    case 10: return 27.78;
    case 12: return 33.33;
    case 14: return 38.89;
    case 16: return 44.44;
    case 18: return 50.0;
    case 24: return 66.67;
    default: return pairs * 100.0 / 36;
  }
}

}  // namespace

std::string CategoryText(int c) { return std::string(RollEventText(c)); }

std::span<const int> CategoriesOfKind(int kind) {
  switch (kind) {
    case 1: return kKind1;
    case 2: return kKind2;
    case 3: return kKind3;
    default: return kKind0;
  }
}

std::string_view KindCaption(int kind) {
  return kKindCaptions[static_cast<std::size_t>(std::clamp(kind, 0, kRollTotalsKinds - 1))];
}

int RollCategories(int d1, int d2, std::array<int, 12>& out) {
  int n = 0;
  auto add = [&](int c) { out[static_cast<std::size_t>(n++)] = c; };
  add(d1 + 77);
  add(d2 + 83);
  add(PairEvent(d1, d2));
  const int total = d1 + d2;
  if (total >= 3 && total <= 10) add(total);
  if (d1 != d2 && total != 3 && total != 11) add(UnorderedCategory(std::min(d1, d2), std::max(d1, d2)));
  for (const Group& g : kGroups)
    if (g.totals & T(total)) add(g.c);
  if (total == 11) add(11);
  return n;
}

int PairsInCategory(int c) {
  int pairs = 0;
  std::array<int, 12> cats{};
  for (int a = 1; a <= 6; ++a)
    for (int b = 1; b <= 6; ++b) {
      const int n = RollCategories(a, b, cats);
      pairs += std::count(cats.begin(), cats.begin() + n, c) > 0 ? 1 : 0;
    }
  return pairs;
}

double ProbablePercent(int c, const SkewedDice* skewed) {
  if (c < kFirstCategory || c > kLastCategory) return 0;
  if (!skewed) return c >= 78 ? 16.67 : TruePercent(PairsInCategory(c));
  if (c >= 78 && c <= 83) return skewed->face1[static_cast<std::size_t>(c - 78)] / 1000.0;
  if (c >= 84) return skewed->face2[static_cast<std::size_t>(c - 84)] / 1000.0;
  if (c >= 4 && c <= 10) return skewed->total[static_cast<std::size_t>(c - 2)] / 1000.0;
  std::int64_t sum = 0;
  std::array<int, 12> cats{};
  for (int a = 1; a <= 6; ++a)
    for (int b = 1; b <= 6; ++b) {
      const int n = RollCategories(a, b, cats);
      if (std::count(cats.begin(), cats.begin() + n, c) > 0)
        sum += skewed->pair[static_cast<std::size_t>(6 * (a - 1) + b - 1)];
    }
  return sum / 1000.0;
}
