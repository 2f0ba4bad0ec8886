// The highest total of each bet: the table maximum, the odds maxima by the
// odds method, and the payoff bounds of Lay bets and the propositions.
#include <algorithm>
#include <array>
#include <cstdint>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"
#include "core/payoff_math.h"
#include "engine/place.h"
#include "engine/place_internal.h"

namespace {

double Ratio(const Game& g, int b) {
  const double d = g.PayoffTbl(3, b).ToDouble();
  return d == 0.0 ? 0.0 : g.PayoffTbl(1, b).ToDouble() / d;
}

// MaxPropBetPayoff divided by what one unit of the bet wins at most. A
// divisor that is not above 0 (a payoff table that pays nothing) leaves the
// table maximum in place.
Currency PayoffBound(const Game& g, double perUnit, Currency tableMax) {
  if (!(perUnit > 0.0)) return tableMax;
  return CurFromDouble(g.rules.MaxPropBetPayoff.ToDouble() / perUnit);
}

// Don't odds: the limit is figured on the win with the pair reversed, and the
// lay amount follows from it.
Currency DontOddsMaximum(const Game& g, int b, Currency base) {
  const Currency p1 = g.PayoffTbl(1, b), p3 = g.PayoffTbl(3, b);
  const Currency onWin = FigureOddsMaximum(g, b, base, p3, p1);
  if (p1.raw <= 0) return Currency{};
  return CurFromDouble(onWin.ToDouble() * p3.ToDouble() / p1.ToDouble());
}

constexpr int kHornBets[] = {bet::kTwo, bet::kThree, bet::kEleven, bet::kTwelve};
constexpr int kWorldBets[] = {bet::kTwo, bet::kThree, bet::kEleven, bet::kTwelve, bet::kSeven};

// Every bet with a fixed bound has a slot among the remembered ones.
static_assert([] {
  for (int b = 0; b <= kLastBetId; ++b) {
    const MaxKind kind = KindOf(b);
    if (kind != MaxKind::Table && kind != MaxKind::Odds &&
        b >= static_cast<int>(std::tuple_size_v<decltype(RememberedMaxima::fixed)>))
      return false;
  }
  return true;
}());

// The maximum of the odds, Lay bets, propositions and Fire, figured in full.
Currency SpecialMaximum(const Game& g, int p, int b) {
  const Currency unit = g.CheckValue(1);
  const Currency tableMax = TableMaximum(g, unit);
  Currency m = tableMax;
  if (b == bet::kPassLineOdds) {
    m = FigureOddsMaximum(g, b, g.Bet(p, bet::kPassLine), g.PayoffTbl(1, b), g.PayoffTbl(3, b));
  } else if (IsComeOdds(b)) {
    m = FigureOddsMaximum(g, b, g.Bet(p, b - 6), g.PayoffTbl(1, b), g.PayoffTbl(3, b));
  } else if (b == bet::kDontPassOdds) {
    m = DontOddsMaximum(g, b, g.Bet(p, bet::kDontPass));
  } else if (IsDontComeOdds(b)) {
    m = DontOddsMaximum(g, b, g.Bet(p, b - 6));
  } else if (IsLay(b)) {
    const double r = Ratio(g, b);
    m = r > 0.0 ? CurFromDouble(tableMax.ToDouble() / r) : tableMax;
  } else if (b == bet::kCandE) {
    const double r = std::max(Ratio(g, bet::kCraps), Ratio(g, bet::kEleven));
    m = PayoffBound(g, r / 2 - 0.5, tableMax);
  } else if (b == bet::kHorn) {
    double r = 0.0;
    for (int x : kHornBets) r = std::max(r, Ratio(g, x));
    m = PayoffBound(g, r / 4 - 0.75, tableMax);
  } else if (b == bet::kWorld) {
    double r = 0.0;
    for (int x : kWorldBets) r = std::max(r, Ratio(g, x));
    m = PayoffBound(g, r / 5 - 0.8, tableMax);
  } else if (b >= bet::kHard4 && b <= bet::kHopLast) {
    m = PayoffBound(g, Ratio(g, b), tableMax);
  } else if (b == bet::kFire) {
    m = g.rules.MaxFireBet;
  }
  if (m < Currency{}) m = Currency{};
  // A table maximum near the money limit figures a lay's maximum (and, at
  // odd payoffs, an odds or proposition maximum) beyond it; no bet goes
  // past the limit, which every amount of the game and its file keep.
  if (m > kMoneyLimit) m = kMoneyLimit;
  // The table maximum is a multiple of the unit already (most bets end here).
  return unit.raw > 0 && m != tableMax ? RoundDownToMultiple(m, unit) : m;
}

// Compares the inputs of a figure, as they are read, with the key remembered
// for it. A slot always holds figures of one kind, read in one fixed order,
// so the i-th input is always compared with the i-th key.
struct SameKey {
  const RememberedFigure::Key& key;
  std::size_t n = 0;
  bool same = true;
  void operator()(Currency c) { same = same && key[n++] == c.raw; }
};

// Writes the inputs of a figure, as they are read, into its key.
struct StoreKey {
  RememberedFigure::Key& key;
  std::size_t n = 0;
  void operator()(Currency c) { key[n++] = c.raw; }
};

// The slot of an odds bet among the remembered odds maxima (-1 for another
// bet, or for line odds without a point).
constexpr int OddsSlot(int b, int point) {
  if (IsDontComeOdds(b)) return b - bet::kDontComeOddsFirst;
  if (IsComeOdds(b)) return 6 + b - bet::kComeOddsFirst;
  if (!IsLineOdds(b) || !IsBoxNumber(point)) return -1;
  return (b == bet::kPassLineOdds ? 12 : 18) + BoxIndex(point);
}
static_assert(OddsSlot(bet::kDontPassOdds, 10) == kOddsSlots - 1);

// What the remembered maximum of an odds bet hangs on, looked up by its id
// once rather than worked out from the id at each step: its flat bet, its
// number (0 for the line odds, which take the point) and its slot (for the
// line odds, the slot of the point 4).
struct OddsShape {
  std::int8_t flat = 0, number = 0, slot = -1;
};
inline constexpr auto kOddsShape = [] {
  std::array<OddsShape, kLastBetId + 1> shape{};
  for (int b = 0; b <= kLastBetId; ++b) {
    if (!IsOddsBet(b)) continue;
    OddsShape& o = shape[static_cast<std::size_t>(b)];
    o.flat = static_cast<std::int8_t>(FlatOf(b));
    o.number = static_cast<std::int8_t>(IsLineOdds(b) ? 0 : BoxNumber(OddsSlot(b, 0) % 6));
    o.slot = static_cast<std::int8_t>(IsLineOdds(b) ? OddsSlot(b, 4) : OddsSlot(b, 0));
  }
  return shape;
}();

// The box index of a point 0..10 (-1 for none), without the division BoxIndex makes.
inline constexpr auto kPointIndex = [] {
  std::array<std::int8_t, 11> index{};
  for (int n = 0; n <= 10; ++n)
    index[static_cast<std::size_t>(n)] =
        static_cast<std::int8_t>(IsBoxNumber(n) ? BoxIndex(n) : -1);
  return index;
}();

// OddsSlot through the shape of the bet (-1 for a bet that is no odds bet).
constexpr int OddsSlotOf(const OddsShape& o, int point) {
  if (o.slot < 0 || o.number != 0) return o.slot;
  if (point < 0 || point > 10) return -1;
  const int index = kPointIndex[static_cast<std::size_t>(point)];
  return index < 0 ? -1 : o.slot + index;
}

// Everything SpecialMaximum reads for an odds bet of seat p: X, the method,
// the flat bet, the payoff pair, the checks and both caps.
template <class Add>
void OddsInputs(const Game& g, int p, int b, Add& add) {
  const OddsShape& o = kOddsShape[static_cast<std::size_t>(b)];
  add(OddsMultiple(g, o.number != 0 ? o.number : g.Point));  // OddsMultipleOf(g, b)
  add(Currency::FromRaw(g.rules.OddsCalcMethod));
  add(g.Bet(p, o.flat));
  add(g.PayoffTbl(1, b));
  add(g.PayoffTbl(3, b));
  for (int i = 1; i <= 5; ++i) add(g.CheckValue(i));
  add(g.rules.MaxOddsBet);
  add(g.rules.MaxPlacardBet);
}

// The shapes agree with the rules they stand for.
static_assert([] {
  for (int b = 0; b <= kLastBetId; ++b) {
    const OddsShape& o = kOddsShape[static_cast<std::size_t>(b)];
    for (int point = -1; point <= 12; ++point)
      if (OddsSlotOf(o, point) != OddsSlot(b, point)) return false;
    if (!IsOddsBet(b)) continue;
    if (o.flat != FlatOf(b)) return false;
    if (!IsLineOdds(b) && o.number != (IsComeOdds(b) ? BoxNumber(b - bet::kComeOddsFirst)
                                                     : BoxNumber(b - bet::kDontComeOddsFirst)))
      return false;
  }
  return true;
}());

// Everything SpecialMaximum reads for a bet of kind K whose maximum hangs on
// no other bet: the table maximum and unit, and the payoffs and caps of its
// kind. K is known when compiled, so each kind reads its inputs straight.
template <MaxKind K, class Add>
void FixedInputs(const Game& g, int b, Add& add) {
  auto payoff = [&](int x) {
    add(g.PayoffTbl(1, x));
    add(g.PayoffTbl(3, x));
  };
  add(g.rules.MaxPlacardBet);
  add(g.CheckValue(1));
  if constexpr (K == MaxKind::Lay) {
    payoff(b);
  } else if constexpr (K == MaxKind::Fire) {
    add(g.rules.MaxFireBet);
  } else {
    add(g.rules.MaxPropBetPayoff);
    if constexpr (K == MaxKind::CandE) {
      payoff(bet::kCraps);
      payoff(bet::kEleven);
    } else if constexpr (K == MaxKind::Horn) {
      for (int x : kHornBets) payoff(x);
    } else if constexpr (K == MaxKind::World) {
      for (int x : kWorldBets) payoff(x);
    } else {
      static_assert(K == MaxKind::Payoff);
      payoff(b);
    }
  }
}

// The inputs of a figure of kind K (an odds bet's, or those of a fixed
// kind) passed one by one to `add`.
template <MaxKind K, class Add>
void InputsOf(const Game& g, int p, int b, Add& add) {
  if constexpr (K == MaxKind::Odds)
    OddsInputs(g, p, b, add);
  else
    FixedInputs<K>(g, b, add);
}

// A figure of kind K not remembered under its inputs: they become its key
// and the figure is made in full. Out of line, so that the remembered path
// has no more to save and restore than its comparisons need.
template <MaxKind K>
[[gnu::noinline]] Currency Refigure(const Game& g, int p, int b, RememberedFigure& memo) {
  StoreKey store{memo.key};
  InputsOf<K>(g, p, b, store);
  memo.value = SpecialMaximum(g, p, b);
  memo.valid = true;
  return memo.value;
}

// The figure of kind K for bet b of seat p remembered in `memo` under the
// inputs it reads now, or made and remembered under them. The inputs are
// compared where they lie, one by one, without gathering them first.
template <MaxKind K>
Currency Remember(const Game& g, int p, int b, RememberedFigure& memo) {
  if (memo.valid) {
    SameKey check{memo.key};
    InputsOf<K>(g, p, b, check);
    if (check.same) return memo.value;
  }
  return Refigure<K>(g, p, b, memo);
}

// BetMaximum from the remembered maximum of bet b of fixed kind K. Each kind
// has a function of its own, called straight through kSpecialMaximum, so
// a bet pays only for the comparisons of its own kind.
template <MaxKind K>
[[gnu::noinline]] void FixedMaximum(Game& g, int p, int b) {
  g.betting.BetMaximum = Remember<K>(g, p, b, g.betting.maxima.fixed[static_cast<std::size_t>(b)]);
}

// BetMaximum of an odds bet: remembered by seat and slot, or figured in full
// for line odds without a point or for no seat.
[[gnu::noinline]] void OddsMaximum(Game& g, int p, int b) {
  const int slot = OddsSlotOf(kOddsShape[static_cast<std::size_t>(b)], g.Point);
  if (slot >= 0 && p >= 1 && p <= 8)
    g.betting.BetMaximum = Remember<MaxKind::Odds>(g, p, b, g.betting.maxima.odds(p, slot));
  else
    g.betting.BetMaximum = SpecialMaximum(g, p, b);
}

}  // namespace

// The entries follow the order of MaxKind.
static_assert(static_cast<int>(MaxKind::Table) == 0 && static_cast<int>(MaxKind::Odds) == 1 &&
              static_cast<int>(MaxKind::Lay) == 2 && static_cast<int>(MaxKind::Fire) == 3 &&
              static_cast<int>(MaxKind::CandE) == 4 && static_cast<int>(MaxKind::Horn) == 5 &&
              static_cast<int>(MaxKind::World) == 6 && static_cast<int>(MaxKind::Payoff) == 7);
const std::array<SpecialMaximumFn, 8> kSpecialMaximum = {
    nullptr,
    &OddsMaximum,
    &FixedMaximum<MaxKind::Lay>,
    &FixedMaximum<MaxKind::Fire>,
    &FixedMaximum<MaxKind::CandE>,
    &FixedMaximum<MaxKind::Horn>,
    &FixedMaximum<MaxKind::World>,
    &FixedMaximum<MaxKind::Payoff>,
};

// The maxima are the same for every call with the same inputs (the rules,
// payoffs, checks and, for the odds, the flat bet), so each is remembered
// with its inputs and figured again only when one of them changed.
void FigureBetMaximum(Game& g, int p, int b) {
  if (b < 0 || b > kLastBetId) {
    g.betting.BetMaximum = SpecialMaximum(g, p, b);
    return;
  }
  FigureMaximumOfId(g, p, b);
}

Currency BetMaximumInFull(const Game& g, int p, int b) { return SpecialMaximum(g, p, b); }
