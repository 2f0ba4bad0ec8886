// FigurePayoff: the money of one decision, from the payoff rows.
#include <array>
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

// The Field row of each pair of dice, looked up rather than searched.
const auto kFieldRowOfDice = [] {
  std::array<std::array<std::uint8_t, 7>, 7> row{};
  for (int d1 = 1; d1 <= 6; ++d1)
    for (int d2 = 1; d2 <= 6; ++d2) row[d1][d2] = static_cast<std::uint8_t>(FieldRow(d1, d2));
  return row;
}();

// amount x a, as CurMul has it. When a is a whole number of units the
// product is amount x (a / 10,000) exactly, and CurMul's rounding has
// nothing to round: one whole multiplication gives its result.
Currency Times(Currency amount, Currency a) {
  return IsWhole(a) ? CurMulInt(amount, a.raw / Currency::kScale) : CurMul(amount, a);
}

// x / d in doubles, back to an amount: x / 10,000 over d / 10,000, times
// 10,000, rounded to nearest. With d exactly 1 and x under 2^50
// ten-thousandths that gives back x itself. Otherwise each of the five
// steps (with d's own conversion) is off by at most half an ulp, 2^-53 of
// the value, so the doubles land within 6 x 2^-53 of the true quotient
// x x 10,000 / d; below 2^49 ten-thousandths that is under 0.4 of one. So
// when the true quotient is a whole count of ten-thousandths (odds paid in
// whole checks, most Place and Buy wins) rounding to nearest gives exactly
// it, and integer division gives the same amount without the doubles.
constexpr std::int64_t kUnitExact = std::int64_t{1} << 50;
// True when x lies strictly within kUnitExact of 0.
constexpr bool BelowUnitExact(Currency x) { return x.raw < kUnitExact && x.raw > -kUnitExact; }
Currency QuotientInDoubles(Currency x, Currency d) {
  constexpr std::int64_t kExact = std::int64_t{1} << 49;
  if (d.raw == Currency::kScale && BelowUnitExact(x)) return x;
  if (d.raw > 0 && x.raw < kExact && x.raw > -kExact) {
    const std::int64_t scaled = x.raw * Currency::kScale;  // below 2^63 for x under 2^49
    if (scaled % d.raw == 0) {
      const std::int64_t q = scaled / d.raw;
      if (q < kExact && q > -kExact) return Currency::FromRaw(q);
    }
  }
  return CurFromDouble(x.ToDouble() / d.ToDouble());
}

// amount x a / d with the product on amounts and the quotient in doubles.
inline Currency Scaled(const Game& g, Currency amount) {
  const Currency d = g.PayoffTbl(3, 0);
  assert(d.raw > 0);
  if (!(d.raw > 0)) return Currency{};  // a corrupt row pays nothing rather than infinity
  return QuotientInDoubles(Times(amount, g.PayoffTbl(1, 0)), d);
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

// The gross of a bet paid from a row of its own kind (not its own id's row):
// the Field's row of the dice, a winner's WinningRow, Midway's and Fire's
// rows. False when the bet is paid from its own row.
bool GrossFromOtherRow(Game& g, int b, int sign, Currency amount) {
  if (b == bet::kField) {
    LoadRowZero(
        g, g.FieldPayoff,
        kFieldRowOfDice[static_cast<std::size_t>(g.Die1)][static_cast<std::size_t>(g.Die2)]);
    g.GrossPayoff = Scaled(g, amount);
    return true;
  }
  if (sign <= 0) return false;
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
    return true;
  }
  if (b == bet::kMidway && MidwayRow(g) != 0) {
    LoadRowZero(g, g.MidwayPayoff, MidwayRow(g));
    g.GrossPayoff = Scaled(g, amount);
    return true;
  }
  if (b == bet::kFire) {
    LoadRowZero(g, g.FirePayoff, FireRow(g));
    g.GrossPayoff = Scaled(g, amount);
    return true;
  }
  return false;
}

}  // namespace

int FireRow(const Game& g) { return g.PointsMade < 0 ? 0 : g.PointsMade > 6 ? 6 : g.PointsMade; }

namespace {

// Row 0 of a loss from the bet's own row: -1 to 1.
inline void LoadLossRow(Game& g, int b) {
  g.PayoffTbl(1, 0) = Currency::FromWhole(-1);
  g.PayoffTbl(2, 0) = g.PayoffTbl(2, b);
  g.PayoffTbl(3, 0) = Currency::FromWhole(1);
}

// Int(q) in whole units: the count of units at or below q.
inline std::int64_t WholeUnitsAtOrBelow(Currency q) {
  std::int64_t whole = q.raw / Currency::kScale;
  if (q.raw % Currency::kScale < 0) --whole;
  return whole;
}

// GrossPayoff and VigCharged of every decision but the plain loss
// FigurePayoff figures itself.
[[gnu::noinline]] void FigureGross(Game& g, int p, int b, int sign, Currency amount) {
  if (GrossFromOtherRow(g, b, sign, amount)) return;
  if (sign <= 0) {
    LoadLossRow(g, b);
    // -1 to 1: Scaled's product is minus the amount, which its quotient by
    // one unit gives back unchanged below kUnitExact.
    g.GrossPayoff = BelowUnitExact(amount) ? -amount : Scaled(g, amount);
  } else {
    LoadRowZero(g, g.PayoffTbl, b);
    g.GrossPayoff = Scaled(g, amount);
  }

  // Vig: up front it is lost either way; on a win only, only from a win.
  if (IsLay(b) && (g.GrossPayoff > Currency{} || g.rules.LayVigUpFront)) {
    g.autoplay.VigCharged = g.LayVig(p, b - bet::kLayFirst);
  } else if (IsBuy(b) && (g.GrossPayoff > Currency{} || g.rules.BuyVigUpFront)) {
    g.autoplay.VigCharged = g.BuyVig(p, b - bet::kBuyFirst);
  }
  g.GrossPayoff -= g.autoplay.VigCharged;
}

// NetPayoff: GrossPayoff cut to whole smallest checks, a win rounded down, a
// loss up.
[[gnu::noinline]] void CutNetToChecks(Game& g) {
  const Currency unit = g.CheckValue(1);
  const Currency q = QuotientInDoubles(g.GrossPayoff, unit);
  // Int(q) in whole units, then unit times that count (CurMulInt but for
  // the call).
  const std::int64_t whole = WholeUnitsAtOrBelow(q);
  std::int64_t net;
  g.NetPayoff = __builtin_mul_overflow(unit.raw, whole, &net) ? CurMulInt(unit, whole)
                                                              : Currency::FromRaw(net);
}

// The bets whose loss is minus the amount with no vig: all but the Field
// and the Lay and Buy bets.
constexpr auto kLosesFromOwnRow = [] {
  std::array<bool, kLastBetId + 1> plain{};
  for (int b = 0; b <= kLastBetId; ++b)
    plain[static_cast<std::size_t>(b)] = b != bet::kField && !IsLay(b) && !IsBuy(b);
  return plain;
}();

}  // namespace

void FigurePayoff(Game& g, int p, int b, int sign, Currency amount) {
  // Vig is charged only on Lay and Buy, which are always paid from their own
  // row; a bet paid from another row owes none.
  g.autoplay.VigCharged = Currency{};
  // A loss paid from its own row without vig (not the Field, whose row
  // says what the dice do, nor a Lay or Buy) is minus the amount, exactly
  // as FigureGross has it below kUnitExact.
  if (sign <= 0 && BelowUnitExact(amount) && kLosesFromOwnRow[static_cast<std::size_t>(b)]) {
    LoadLossRow(g, b);
    g.GrossPayoff = -amount;
  } else {
    FigureGross(g, p, b, sign, amount);
  }

  // With the smallest check one unit, QuotientInDoubles gives the gross
  // back below kUnitExact, and the cut is its floor in whole units, whose
  // product with the unit cannot overflow.
  const Currency gross = g.GrossPayoff;
  if (g.CheckValue(1).raw == Currency::kScale && BelowUnitExact(gross)) {
    g.NetPayoff = Currency::FromRaw(WholeUnitsAtOrBelow(gross) * Currency::kScale);
  } else {
    CutNetToChecks(g);
  }
  // A payoff of up to a million to one over a ten-thousandth can reach the
  // bounds of the type; what the decision pays or takes is held to the money
  // limit, so that the bankroll and the statistics it is added to cannot wrap.
  g.NetPayoff = HeldWithin(g.NetPayoff, kMoneyLimit);
}
