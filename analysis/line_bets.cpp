// The line bets over a whole decision: the come-out roll, then, on a point,
// the rolls until the point or a seven. Each outcome x of a unit comes with
// its probability f: a come-out total's p, or a point's share of a win or a
// loss. The odds bets count only the decisions on a point, each point
// weighted by its share of the points.
#include <array>
#include <cmath>

#include "analysis/advantage_internal.h"
#include "core/catalogue.h"
#include "core/game.h"

namespace {

using namespace bet;

constexpr int kSevenTotal = 7;
constexpr int kPoints[] = {4, 5, 6, 8, 9, 10};

struct Outcome {
  double x = 0, f = 0;
  bool barred = false;  // Don't Pass's push on the bar number
};

// The sums of one line bet: win and loss chances, expected value, expected
// rolls, and every outcome with its probability (at most 5 come-out totals
// and 12 point shares).
struct LineSums {
  double win = 0, lose = 0, value = 0, rolls = 0;
  std::array<Outcome, 20> outcomes{};
  int count = 0;
  void Add(double x, double f, bool barred = false) {
    outcomes[static_cast<std::size_t>(count++)] = {x, f, barred};
  }
  void Win(double x, double f) {
    win += f;
    value += x * f;
    Add(x, f);
  }
  void Lose(double f) {
    lose += f;
    value -= f;
    Add(-1, f);
  }
};

// Chances that a point n is made (m) or sevened out (l), or false when
// neither can happen.
bool PointShares(const DiceOdds& odds, int n, double& m, double& l) {
  const double den = odds.Total(n) + odds.Total(kSevenTotal);
  if (den == 0) return false;
  m = odds.Total(n) / den;
  l = odds.Total(kSevenTotal) / den;
  return true;
}

void ComeOutRolls(const Game& game, const DiceOdds& odds, bool dont, LineSums& s) {
  const double w = PayoffRatio(game, dont ? kDontCome : kCome);
  for (int t : {2, 3, 12}) {
    const double p = odds.Total(t);
    s.rolls += p;
    if (!dont)
      s.Lose(p);
    else if (t == game.rules.BarNumber && t != 3)
      s.Add(0, p, true);  // no decision
    else
      s.Win(w, p);
  }
  for (int t : {kSevenTotal, 11}) {
    const double p = odds.Total(t);
    s.rolls += p;
    if (dont)
      s.Lose(p);
    else
      s.Win(w, p);
  }
}

void PointRolls(const Game& game, const DiceOdds& odds, bool dont, LineSums& s) {
  for (int n : kPoints) {
    double m = 0, l = 0;
    if (!PointShares(odds, n, m, l)) continue;
    const double p = odds.Total(n);
    const double w = PayoffRatio(game, dont ? DontComeId(n) : ComeId(n));
    if (dont) {
      s.Win(w, p * l);
      s.Lose(p * m);
    } else {
      s.Win(w, p * m);
      s.Lose(p * l);
    }
    s.rolls += (1 + 1 / (odds.Total(n) + odds.Total(kSevenTotal))) * p;
  }
}

void OddsRolls(const Game& game, const DiceOdds& odds, bool dont, LineSums& s) {
  double points = 0;
  for (int n : kPoints) points += odds.Total(n);
  if (points == 0) return;
  for (int n : kPoints) {
    double m = 0, l = 0;
    if (!PointShares(odds, n, m, l)) continue;
    const double q = odds.Total(n) / points;
    const int row = (dont ? DontComeId(n) : ComeId(n)) + 6;  // the odds on n
    const double w = PayoffRatio(game, row);
    if (dont) {
      s.Win(w, q * l);
      s.Lose(q * m);
    } else {
      s.Win(w, q * m);
      s.Lose(q * l);
    }
    s.rolls += q / (odds.Total(n) + odds.Total(kSevenTotal));
  }
}

}  // namespace

Advantage FigureLineBet(const Game& game, const DiceOdds& odds, int b) {
  const bool dont = b == kDontPass || b == kDontPassOdds;
  LineSums s;
  if (b == kPassLine || b == kDontPass) {
    ComeOutRolls(game, odds, dont, s);
    PointRolls(game, odds, dont, s);
  } else {
    OddsRolls(game, odds, dont, s);
  }
  const bool countZero = game.advantage.CountZeroOutcomes;
  const double decided = s.win + s.lose;
  if (s.rolls <= 0 || (!countZero && decided == 0)) return {};

  Advantage r;
  r.evPerDec = countZero ? s.value : s.value / decided;
  r.rollsPerDec = countZero ? s.rolls : s.rolls / decided;
  r.evPerRoll = s.value / s.rolls;
  // Don't Pass without zero outcomes: the shares are of the decided
  // come-outs, and the barred number is no outcome.
  const bool perDecided = b == kDontPass && !countZero;
  double varDec = 0, varRoll = 0;
  for (int i = 0; i < s.count; ++i) {
    Outcome o = s.outcomes[static_cast<std::size_t>(i)];
    if (o.barred && perDecided) continue;
    if (perDecided) o.f /= decided;
    varDec += (o.x - r.evPerDec) * (o.x - r.evPerDec) * o.f;
    varRoll += (o.x - r.evPerRoll) * (o.x - r.evPerRoll) * o.f / s.rolls;
  }
  r.stDevPerDec = std::sqrt(varDec);
  r.stDevPerRoll = std::sqrt(varRoll);
  return r;
}
