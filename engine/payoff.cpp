// FigurePayoff: the money of one decision, from the payoff rows.
#include <cassert>
#include <cstdint>

#include "config/payoffs.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"
#include "engine/resolve.h"

namespace {

template <class Tbl>
void LoadRowZero(Game& g, const Tbl& table, int row) {
  g.PayoffTbl(1, 0) = table(1, row);
  g.PayoffTbl(2, 0) = table(2, row);
  g.PayoffTbl(3, 0) = table(3, row);
}

// x / d in doubles, back to an amount. With d exactly 1 and x under 2^50
// ten-thousandths the two roundings of the doubles stay far below half a
// ten-thousandth, so they give back x itself: every loss and every even-money
// win takes that path without the doubles.
Currency QuotientInDoubles(Currency x, Currency d) {
  constexpr std::int64_t kExact = std::int64_t{1} << 50;
  if (d.raw == Currency::kScale && x.raw < kExact && x.raw > -kExact) return x;
  return CurFromDouble(x.ToDouble() / d.ToDouble());
}

// amount x a / d with the product on amounts and the quotient in doubles.
Currency Scaled(const Game& g, Currency amount) {
  const Currency d = g.PayoffTbl(3, 0);
  assert(d.raw > 0);
  if (!(d.raw > 0)) return Currency{};  // a corrupt row pays nothing rather than infinity
  return QuotientInDoubles(CurMul(amount, g.PayoffTbl(1, 0)), d);
}

// A split bet of `parts` sub-bets, one of which the roll pays: the winning
// part's payoff less the parts that lose, in doubles from start to end.
Currency SplitGross(const Game& g, Currency amount, int parts) {
  const double x = amount.ToDouble();
  const double a = g.PayoffTbl(1, 0).ToDouble(), d = g.PayoffTbl(3, 0).ToDouble();
  if (!(d > 0)) return Currency{};
  return CurFromDouble((x / parts) * a / d - (parts - 1) * x / parts);
}

// Midway row of the dice: 1 hard 6, 2 easy 6, 3 seven, 4 easy 8, 5 hard 8.
int MidwayRow(const Game& g) {
  const bool pair = g.Die1 == g.Die2;
  switch (g.DiceTotal) {
    case 6:
      return pair ? 1 : 2;
    case 7:
      return 3;
    case 8:
      return pair ? 5 : 4;
    default:
      return 0;
  }
}

// The row a winning bet is paid from when it is not its own row, else 0.
int WinningRow(const Game& g, int b) {
  const int pt = IsBoxNumber(g.PointAtRoll) ? g.PointAtRoll : 0, t = g.DiceTotal;
  switch (b) {
    case bet::kPassLine:
      return pt == 0 ? bet::kCome : ComeId(pt);
    case bet::kPassLineOdds:
      return pt == 0 ? 0 : ComeId(pt) + 6;
    case bet::kDontPass:
      return pt == 0 ? bet::kDontCome : DontComeId(pt);
    case bet::kDontPassOdds:
      return pt == 0 ? 0 : DontComeId(pt) + 6;
    case bet::kCandE:
      return t == 11 ? bet::kEleven : bet::kCraps;
    case bet::kHorn:
      return t == 2 ? bet::kTwo : t == 3 ? bet::kThree : t == 11 ? bet::kEleven : bet::kTwelve;
    case bet::kWorld:
      return t == 2    ? bet::kTwo
             : t == 3  ? bet::kThree
             : t == 7  ? bet::kSeven
             : t == 11 ? bet::kEleven
                       : bet::kTwelve;
    default:
      return 0;
  }
}

}  // namespace

int FireRow(const Game& g) { return g.PointsMade < 0 ? 0 : g.PointsMade > 6 ? 6 : g.PointsMade; }

void FigurePayoff(Game& g, int p, int b, int sign, Currency amount) {
  if (sign <= 0) {
    g.PayoffTbl(1, 0) = Currency::FromWhole(-1);
    g.PayoffTbl(2, 0) = g.PayoffTbl(2, b);
    g.PayoffTbl(3, 0) = Currency::FromWhole(1);
  } else {
    LoadRowZero(g, g.PayoffTbl, b);
  }
  g.GrossPayoff = Scaled(g, amount);

  // Vig: up front it is lost either way; on a win only, only from a win.
  g.autoplay.VigCharged = Currency{};
  if (IsLay(b) && (g.GrossPayoff > Currency{} || g.rules.LayVigUpFront)) {
    g.autoplay.VigCharged = g.LayVig(p, b - bet::kLayFirst);
  } else if (IsBuy(b) && (g.GrossPayoff > Currency{} || g.rules.BuyVigUpFront)) {
    g.autoplay.VigCharged = g.BuyVig(p, b - bet::kBuyFirst);
  }
  g.GrossPayoff -= g.autoplay.VigCharged;

  if (sign > 0) {
    if (const int row = WinningRow(g, b); row != 0) {
      LoadRowZero(g, g.PayoffTbl, row);
      if (b == bet::kCandE)
        g.GrossPayoff = SplitGross(g, amount, 2);
      else if (b == bet::kHorn)
        g.GrossPayoff = SplitGross(g, amount, 4);
      else if (b == bet::kWorld)
        g.GrossPayoff = SplitGross(g, amount, 5);
      else
        g.GrossPayoff = Scaled(g, amount);
    } else if (b == bet::kMidway && MidwayRow(g) != 0) {
      LoadRowZero(g, g.MidwayPayoff, MidwayRow(g));
      g.GrossPayoff = Scaled(g, amount);
    } else if (b == bet::kFire) {
      LoadRowZero(g, g.FirePayoff, FireRow(g));
      g.GrossPayoff = Scaled(g, amount);
    }
  }

  if (b == bet::kField) {
    LoadRowZero(g, g.FieldPayoff, FieldRow(g.Die1, g.Die2));
    g.GrossPayoff = Scaled(g, amount);
  }

  // The net is cut to whole smallest checks: a win rounds down, a loss up.
  const Currency unit = g.CheckValue(1);
  const Currency q = QuotientInDoubles(g.GrossPayoff, unit);
  g.NetPayoff = CurMulInt(unit, CurInt(q).raw / Currency::kScale);
}
