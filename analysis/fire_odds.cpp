// The Fire bet over a hand. A hand is a chain of point cycles: each cycle
// that sets a point ends in making point i (chance c(i)) or in a seven-out
// (chance s), and the hand ends at the first seven-out. The chance that
// every point made lies in a set U is s / (1 - C(U)), C(U) the sum of c over
// U; the chance of exactly the set U follows by inclusion and exclusion.
#include <array>
#include <bit>
#include <cmath>

#include "analysis/advantage_internal.h"
#include "dice/probability.h"
#include "core/game.h"

namespace {

constexpr int kSevenTotal = 7;
constexpr int kPoints[] = {4, 5, 6, 8, 9, 10};
constexpr int kPointCount = 6;
constexpr unsigned kSets = 1u << kPointCount;  // subsets of the six points

// p(t) for Fire: with skewed dice the sum of the column's cells, else true.
std::array<double, 13> FireTotals(const Game& game) {
  std::array<double, 13> p{};
  for (int b = 1; b <= kLastTotalColumn; ++b) {
    double sum = 0;
    if (game.dice.ProbabilityDiceOn) {
      for (int a = kFirstCellRow; a <= CellCount(b) + 1; ++a) sum += ProbValue(game, a, b);
      sum /= kProbCertain;
    } else {
      sum = CellCount(b) / 36.0;
    }
    p[static_cast<std::size_t>(b + 1)] = sum;
  }
  return p;
}

}  // namespace

FireOdds FigureFireOdds(const Game& game) {
  FireOdds fire;
  const std::array<double, 13> p = FireTotals(game);
  const double p7 = p[kSevenTotal];
  double anyPoint = 0;
  for (int n : kPoints) anyPoint += p[static_cast<std::size_t>(n)];
  if (anyPoint == 0) return fire;

  std::array<double, kPointCount> c{};
  double made = 0;
  for (int i = 0; i < kPointCount; ++i) {
    const double pn = p[static_cast<std::size_t>(kPoints[i])];
    if (pn + p7 == 0) continue;
    c[static_cast<std::size_t>(i)] = (pn / anyPoint) * (pn / (pn + p7));
    made += c[static_cast<std::size_t>(i)];
  }
  const double sevenOut = 1 - made;
  if (sevenOut == 0) return fire;
  fire.FireProb[0] = sevenOut;

  // within[U]: every point made lies in U.
  std::array<double, kSets> within{};
  for (unsigned u = 0; u < kSets; ++u) {
    double cu = 0;
    for (int i = 0; i < kPointCount; ++i)
      if (u & (1u << i)) cu += c[static_cast<std::size_t>(i)];
    within[u] = sevenOut / (1 - cu);
  }
  for (unsigned u = 1; u < kSets; ++u) {
    const int size = std::popcount(u);
    if (size == kPointCount) continue;
    double exactly = 0;
    for (unsigned v = u;; v = (v - 1) & u) {  // every subset v of u
      const bool odd = (std::popcount(u) - std::popcount(v)) & 1;
      exactly += odd ? -within[v] : within[v];
      if (v == 0) break;
    }
    fire.FireProb[static_cast<std::size_t>(size)] += exactly;
  }
  double sum = 0;
  for (int k = 0; k < kPointCount; ++k) sum += fire.FireProb[static_cast<std::size_t>(k)];
  fire.FireProb[kPointCount] = 1 - sum;

  double rolls = p[2] + p[3] + p7 + p[11] + p[12], sevenOuts = 0;
  for (int n : kPoints) {
    const double pn = p[static_cast<std::size_t>(n)];
    if (pn + p7 == 0) continue;
    rolls += (1 + 1 / (pn + p7)) * pn;
    sevenOuts += p7 * pn / (p7 + pn);
  }
  fire.FireRolls = sevenOuts == 0 ? 0 : rolls / sevenOuts;
  return fire;
}

Advantage FigureFireBet(const Game& game) {
  const FireOdds fire = FigureFireOdds(game);
  if (!(fire.FireRolls > 0)) return {};
  Advantage r;
  r.rollsPerDec = fire.FireRolls;
  double x[kPointCount + 1];
  for (int k = 0; k <= kPointCount; ++k) {
    const double d = game.FirePayoff(3, k).ToDouble();
    x[k] = d == 0 ? 0 : game.FirePayoff(1, k).ToDouble() / d;
    r.evPerDec += x[k] * fire.FireProb[static_cast<std::size_t>(k)];
  }
  r.evPerRoll = r.evPerDec / fire.FireRolls;
  double varDec = 0;
  for (int k = 0; k <= kPointCount; ++k)
    varDec +=
        (x[k] - r.evPerDec) * (x[k] - r.evPerDec) * fire.FireProb[static_cast<std::size_t>(k)];
  double varRoll = varDec / fire.FireRolls;
  if (game.advantage.CountZeroOutcomes) {
    r.evPerDec = r.evPerRoll;
    varDec = varRoll;
  }
  r.stDevPerDec = std::sqrt(varDec);
  r.stDevPerRoll = std::sqrt(varRoll);
  return r;
}
