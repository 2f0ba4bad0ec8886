#include "stats/expected_value.h"

#include <array>
#include <cmath>

#include "config/payoffs.h"
#include "core/catalogue.h"
#include "core/game.h"

namespace {

using namespace bet;

constexpr double kCell = 1.0 / 36;
constexpr int kPoints[6] = {4, 5, 6, 8, 9, 10};

// p(t): the chance of total t with fair dice.
double TotalChance(int t) { return t < 2 || t > 12 ? 0 : (6 - std::abs(t - 7)) * kCell; }

double Ratio(const Table2<Currency, 0, 3, 0, 100>& table, int row) {
  const double d = table(3, row).ToDouble();
  return d > 0 ? table(1, row).ToDouble() / d : 0;
}
template <class T>
double RowRatio(const T& table, int row) {
  const double d = table(3, row).ToDouble();
  return d > 0 ? table(1, row).ToDouble() / d : 0;
}

double W(const Game& g, int b) { return Ratio(g.PayoffTbl, b); }

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

// The outcome per unit of a bet decided cell by cell, for dice (d1, d2).
double CellOutcome(const Game& g, int b, int d1, int d2) {
  const int t = d1 + d2;
  const bool hard = d1 == d2;
  const double miss = b >= kTwo ? -1 : 0;  // cells a row doesn't name
  if (IsLay(b)) return t == BoxNumber(b - kLayFirst) ? -1 : t == 7 ? LayOutcome(g, b) : 0;
  if (IsDontComePoint(b) || IsDontComeOdds(b)) {
    const int n = BoxNumber((b - kDontComePointFirst) % 6);
    return t == n ? -1 : t == 7 ? W(g, b) : 0;
  }
  if (IsComePoint(b) || IsComeOdds(b) || IsPlace(b) || IsBig(b)) {
    const int n = IsBig(b) ? (b == kBig6 ? 6 : 8) : BoxNumber((b - kComePointFirst) % 6);
    return t == n ? W(g, b) : t == 7 ? -1 : 0;
  }
  if (IsBuy(b)) return t == BoxNumber(b - kBuyFirst) ? BuyOutcome(g, b) : t == 7 ? -1 : 0;
  switch (b) {
    case kCome: return t == 7 || t == 11 ? W(g, b) : t == 2 || t == 3 || t == 12 ? -1 : 0;
    case kDontCome: {
      const int won = g.rules.BarNumber == 2 ? 12 : 2;
      return t == 7 || t == 11 ? -1 : t == 3 || t == won ? W(g, b) : 0;
    }
    case kField: return RowRatio(g.FieldPayoff, FieldRow(d1, d2));
    case kHard4: case kHard6: case kHard8: case kHard10: {
      const int n = 2 * (b - kHard4) + 4;
      return t == n && hard ? W(g, b) : t == n || t == 7 ? -1 : 0;
    }
    case kTwo: return t == 2 ? W(g, b) : miss;
    case kThree: return t == 3 ? W(g, b) : miss;
    case kSeven: return t == 7 ? W(g, b) : miss;
    case kEleven: return t == 11 ? W(g, b) : miss;
    case kTwelve: return t == 12 ? W(g, b) : miss;
    case kCraps: return t == 2 || t == 3 || t == 12 ? W(g, kCraps) : miss;
    case kCandE:
      if (t == 2 || t == 3 || t == 12) return W(g, kCraps) * 0.5 - 0.5;
      return t == 11 ? W(g, kEleven) * 0.5 - 0.5 : miss;
    case kHorn: case kWorld: {
      const double share = b == kHorn ? 0.25 : 0.2;
      const int row = t == 2 ? kTwo : t == 3 ? kThree : t == 11 ? kEleven : t == 12 ? kTwelve
                      : b == kWorld && t == 7 ? kSeven : 0;
      return row ? W(g, row) * share - (1 - share) : miss;
    }
    case kOver7: return t > 7 ? W(g, b) : miss;
    case kUnder7: return t < 7 ? W(g, b) : miss;
    case kMidway: {
      int row = 0;
      if (t == 6) row = hard ? 1 : 2;
      if (t == 7) row = 3;
      if (t == 8) row = hard ? 5 : 4;
      return row ? RowRatio(g.MidwayPayoff, row) : miss;
    }
    default:
      if (IsHop(b)) return HopId(d1, d2) == b ? W(g, b) : miss;
      return 0;
  }
}

double CellBet(const Game& g, int b) {
  double ev = 0, decided = 0;
  for (int d1 = 1; d1 <= 6; ++d1)
    for (int d2 = 1; d2 <= 6; ++d2) {
      const double x = CellOutcome(g, b, d1, d2);
      ev += x * kCell;
      if (x != 0) decided += kCell;
    }
  return decided > 0 ? ev / decided : 0;
}

// The line bets over a whole decision, come-out to the end of the point.
double LineBet(const Game& g, int b) {
  double win = 0, lose = 0, v = 0;
  const double p7 = TotalChance(7);
  double pointSum = 0;
  for (int n : kPoints) pointSum += TotalChance(n);
  if (b == kPassLine || b == kDontPass) {
    for (int t : {2, 3, 12}) {
      const double p = TotalChance(t);
      if (b == kPassLine) {
        lose += p;
        v -= p;
      } else if (t != g.rules.BarNumber) {
        win += p;
        v += W(g, kDontCome) * p;
      }
    }
    for (int t : {7, 11}) {
      const double p = TotalChance(t);
      if (b == kPassLine) {
        win += p;
        v += W(g, kCome) * p;
      } else {
        lose += p;
        v -= p;
      }
    }
  }
  for (int n : kPoints) {
    const double pn = TotalChance(n);
    const double m = pn / (pn + p7), l = p7 / (pn + p7);
    const double weight = b == kPassLine || b == kDontPass ? pn : pn / pointSum;
    switch (b) {
      case kPassLine: win += weight * m; lose += weight * l; v += W(g, ComeId(n)) * weight * m - weight * l; break;
      case kDontPass: win += weight * l; lose += weight * m; v += W(g, DontComeId(n)) * weight * l - weight * m; break;
      case kPassLineOdds: win += weight * m; lose += weight * l; v += W(g, ComeId(n) + 6) * weight * m - weight * l; break;
      default: win += weight * l; lose += weight * m; v += W(g, DontComeId(n) + 6) * weight * l - weight * m; break;
    }
  }
  const double decided = win + lose;
  return decided > 0 ? v / decided : 0;
}

// Fire: the chance of making exactly k different points in a hand, by
// inclusion and exclusion over the sets of points, then the payoff rows.
double FireBet(const Game& g) {
  const double p7 = TotalChance(7);
  double a = 0;
  for (int n : kPoints) a += TotalChance(n);
  std::array<double, 6> c{};
  double made = 0;
  for (int i = 0; i < 6; ++i) {
    const double pn = TotalChance(kPoints[i]);
    c[static_cast<std::size_t>(i)] = (pn / a) * (pn / (pn + p7));
    made += c[static_cast<std::size_t>(i)];
  }
  const double s = 1 - made;
  if (s <= 0) return 0;
  // within[U]: the chance that every point made lies in U.
  std::array<double, 64> within{};
  for (unsigned u = 0; u < 64; ++u) {
    double cu = 0;
    for (int i = 0; i < 6; ++i)
      if (u >> i & 1) cu += c[static_cast<std::size_t>(i)];
    within[u] = s / (1 - cu);
  }
  std::array<double, 7> prob{};
  for (unsigned u = 0; u < 64; ++u) {
    double e = 0;
    for (unsigned sub = u;; sub = (sub - 1) & u) {
      const int dropped = __builtin_popcount(u ^ sub);
      e += (dropped % 2 ? -1 : 1) * within[sub];
      if (sub == 0) break;
    }
    const int k = __builtin_popcount(u);
    if (k <= 5) prob[static_cast<std::size_t>(k)] += e;
  }
  double rest = 1;
  for (int k = 0; k <= 5; ++k) rest -= prob[static_cast<std::size_t>(k)];
  prob[6] = rest;
  double ev = 0;
  for (int k = 0; k <= 6; ++k) ev += RowRatio(g.FirePayoff, k) * prob[static_cast<std::size_t>(k)];
  return ev;
}

double RoundToSix(double x) { return std::round(x * 1e6) / 1e6; }

}  // namespace

double ExpectedValuePerDecision(const Game& game, int b) {
  if (!IsRealBet(b)) return 0;
  if (b == kFire) return RoundToSix(FireBet(game));
  if (b == kPassLine || b == kDontPass || b == kPassLineOdds || b == kDontPassOdds)
    return RoundToSix(LineBet(game, b));
  return RoundToSix(CellBet(game, b));
}
