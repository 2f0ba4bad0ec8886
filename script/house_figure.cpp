#include "script/house_figure.h"

#include <array>
#include <bit>
#include <cmath>

#include "config/payoffs.h"
#include "core/catalogue.h"
#include "core/game.h"

namespace {

constexpr int kPoints[6] = {4, 5, 6, 8, 9, 10};

// Probability of a total with true dice.
double P(int total) { return total < 2 || total > 12 ? 0 : (6 - std::abs(total - 7)) / 36.0; }

double Ratio(const Currency& a, const Currency& d) {
  return d.raw == 0 ? 0 : a.ToDouble() / d.ToDouble();
}
double W(const Game& g, int row) { return Ratio(g.PayoffTbl(1, row), g.PayoffTbl(3, row)); }

double LayOutcome(const Game& g, int b) {
  const double a = g.PayoffTbl(1, b).ToDouble();
  const double w = W(g, b);
  if (a <= 0) return w;
  const double v = g.rules.LayVigRate.ToDouble() * w;
  if (!g.rules.LayVigUpFront) return w - v;
  const double s = 1 / (1 + v);
  return s * w - (1 - s);
}

double BuyOutcome(const Game& g, int b) {
  const double a = g.PayoffTbl(1, b).ToDouble();
  const double w = W(g, b);
  if (a <= 0) return w;
  const double rate = g.rules.BuyVigRate.ToDouble();
  if (!g.rules.BuyVigUpFront) return w - rate;
  const double s = 1 / (1 + rate);
  return s * w - (1 - s);
}

// The result of bet b on the cell (d1, d2), per unit wagered.
double CellOutcome(const Game& g, int b, int d1, int d2) {
  const int t = d1 + d2;
  const bool pair = d1 == d2;
  if (b <= bet::kBuyLast) {
    const int n = BoxNumber((b - 1) % 6);
    const bool lose7 = b >= bet::kComePointFirst;  // Come, Come Odds, Place, Buy lose on 7
    if (t == n) {
      if (b <= bet::kDontComeOddsLast) return -1;
      return IsBuy(b) ? BuyOutcome(g, b) : W(g, b);
    }
    if (t == 7) return lose7 ? -1 : (IsLay(b) ? LayOutcome(g, b) : W(g, b));
    return 0;
  }
  switch (b) {
    case bet::kCome:
      return t == 7 || t == 11 ? W(g, b) : (t == 2 || t == 3 || t == 12) ? -1 : 0;
    case bet::kDontCome:
      if (t == 7 || t == 11) return -1;
      return t == 3 || t == (g.rules.BarNumber == 2 ? 12 : 2) ? W(g, b) : 0;
    case bet::kField: {
      const int row = FieldRow(d1, d2);
      return Ratio(g.FieldPayoff(1, row), g.FieldPayoff(3, row));
    }
    case bet::kBig6:
    case bet::kBig8:
      return t == (b == bet::kBig6 ? 6 : 8) ? W(g, b) : t == 7 ? -1 : 0;
    case bet::kHard4:
    case bet::kHard6:
    case bet::kHard8:
    case bet::kHard10: {
      const int n = 4 + 2 * (b - bet::kHard4);
      if (t == n) return pair ? W(g, b) : -1;
      return t == 7 ? -1 : 0;
    }
    default:
      break;
  }
  // The one-roll bets: every cell a row does not name loses.
  switch (b) {
    case bet::kTwo:
      return t == 2 ? W(g, b) : -1;
    case bet::kThree:
      return t == 3 ? W(g, b) : -1;
    case bet::kSeven:
      return t == 7 ? W(g, b) : -1;
    case bet::kEleven:
      return t == 11 ? W(g, b) : -1;
    case bet::kTwelve:
      return t == 12 ? W(g, b) : -1;
    case bet::kCraps:
      return t == 2 || t == 3 || t == 12 ? W(g, bet::kCraps) : -1;
    case bet::kCandE:
      if (t == 2 || t == 3 || t == 12) return W(g, bet::kCraps) * 0.5 - 0.5;
      return t == 11 ? W(g, bet::kEleven) * 0.5 - 0.5 : -1;
    case bet::kHorn:
    case bet::kWorld: {
      const double share = b == bet::kHorn ? 0.25 : 0.2;
      int row = 0;
      if (t == 2) row = bet::kTwo;
      if (t == 3) row = bet::kThree;
      if (t == 11) row = bet::kEleven;
      if (t == 12) row = bet::kTwelve;
      if (t == 7 && b == bet::kWorld) row = bet::kSeven;
      return row == 0 ? -1 : W(g, row) * share - (1 - share);
    }
    case bet::kOver7:
      return t >= 8 ? W(g, b) : -1;
    case bet::kUnder7:
      return t <= 6 ? W(g, b) : -1;
    case bet::kMidway: {
      int row = 0;
      if (t == 6) row = pair ? 1 : 2;
      if (t == 7) row = 3;
      if (t == 8) row = pair ? 5 : 4;
      return row == 0 ? -1 : Ratio(g.MidwayPayoff(1, row), g.MidwayPayoff(3, row));
    }
    default:
      return IsHop(b) && HopId(d1, d2) == b ? W(g, b) : -1;
  }
}

double CellBased(const Game& g, int b) {
  double ev = 0, decided = 0;
  for (int d1 = 1; d1 <= 6; ++d1) {
    for (int d2 = 1; d2 <= 6; ++d2) {
      const double x = CellOutcome(g, b, d1, d2);
      ev += x / 36;
      if (x != 0) decided += 1.0 / 36;
    }
  }
  return decided == 0 ? 0 : ev / decided;
}

// The line bets and their odds, over a whole decision.
double LineBet(const Game& g, int b) {
  double win = 0, lose = 0, v = 0;
  const double p7 = P(7);
  const bool pass = b == bet::kPassLine || b == bet::kPassLineOdds;
  const bool odds = b == bet::kPassLineOdds || b == bet::kDontPassOdds;
  if (!odds) {
    for (int t : {2, 3, 12}) {
      if (pass) {
        lose += P(t);
        v -= P(t);
      } else if (t != g.rules.BarNumber) {
        win += P(t);
        v += W(g, bet::kDontCome) * P(t);
      }
    }
    for (int t : {7, 11}) {
      if (pass) {
        win += P(t);
        v += W(g, bet::kCome) * P(t);
      } else {
        lose += P(t);
        v -= P(t);
      }
    }
  }
  double pointSum = 0;
  for (int n : kPoints) pointSum += P(n);
  for (int n : kPoints) {
    const double pn = P(n);
    if (pn + p7 == 0) continue;
    const double m = pn / (pn + p7), l = p7 / (pn + p7);
    const double weight = odds ? pn / pointSum : pn;
    const int row = pass ? (odds ? ComeId(n) + 6 : ComeId(n)) : (odds ? DontComeId(n) + 6 : DontComeId(n));
    const double winShare = pass ? m : l, loseShare = pass ? l : m;
    win += weight * winShare;
    lose += weight * loseShare;
    v += W(g, row) * weight * winShare - weight * loseShare;
  }
  const double decided = win + lose;
  return decided == 0 ? 0 : v / decided;
}

// Fire: the chance of making exactly k different points in a hand, by
// inclusion and exclusion over the sets of points made.
double Fire(const Game& g) {
  double c[6], a = 0, cSum = 0;
  for (int n : kPoints) a += P(n);
  for (int i = 0; i < 6; ++i) {
    const double pi = P(kPoints[i]);
    c[i] = (pi / a) * (pi / (pi + P(7)));
    cSum += c[i];
  }
  const double s = 1 - cSum;
  if (a == 0 || s == 0) return 0;
  std::array<double, 7> prob{};
  prob[0] = s;
  std::array<double, 64> within{};  // chance that all points made lie in the set
  for (unsigned set = 0; set < 64; ++set) {
    double cs = 0;
    for (int i = 0; i < 6; ++i)
      if (set & (1u << i)) cs += c[i];
    within[set] = s / (1 - cs);
  }
  for (unsigned set = 1; set < 63; ++set) {
    double exact = 0;
    for (unsigned sub = set;; sub = (sub - 1) & set) {
      const int sign = (std::popcount(set) - std::popcount(sub)) % 2 == 0 ? 1 : -1;
      exact += sign * within[sub];
      if (sub == 0) break;
    }
    prob[static_cast<std::size_t>(std::popcount(set))] += exact;
  }
  double rest = 0;
  for (int k = 0; k < 6; ++k) rest += prob[static_cast<std::size_t>(k)];
  prob[6] = 1 - rest;
  double ev = 0;
  for (int k = 0; k <= 6; ++k) ev += Ratio(g.FirePayoff(1, k), g.FirePayoff(3, k)) * prob[static_cast<std::size_t>(k)];
  return ev;
}

}  // namespace

double HouseExpectedValue(const Game& g, int b) {
  if (!IsRealBet(b)) return 0;
  double ev;
  if (b == bet::kPassLine || b == bet::kPassLineOdds || b == bet::kDontPass ||
      b == bet::kDontPassOdds)
    ev = LineBet(g, b);
  else if (b == bet::kFire)
    ev = Fire(g);
  else
    ev = CellBased(g, b);
  return std::round(ev * 1e6) / 1e6;
}
