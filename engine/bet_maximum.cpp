// The highest total of each bet: the table maximum, the odds maxima by the
// odds method, and the payoff bounds of Lay bets and the propositions.
#include <algorithm>
#include <array>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"
#include "core/payoff_math.h"
#include "engine/place.h"

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

// The bets whose maximum is the table maximum alone: every id that none of
// the branches of FigureSpecialMaximum takes.
constexpr bool OnlyTableMaximum(int b) {
  return !(b == bet::kPassLineOdds || IsComeOdds(b) || b == bet::kDontPassOdds ||
           IsDontComeOdds(b) || IsLay(b) || b == bet::kCandE || b == bet::kHorn ||
           b == bet::kWorld || (b >= bet::kHard4 && b <= bet::kHopLast) || b == bet::kFire);
}

constexpr auto kOnlyTableMaximum = [] {
  std::array<bool, kLastBetId + 1> only{};
  for (int b = 0; b <= kLastBetId; ++b) only[static_cast<std::size_t>(b)] = OnlyTableMaximum(b);
  return only;
}();

// The table maximum, a multiple of the unit when there is one.
Currency TableMaximum(const Game& g, Currency unit) {
  return unit.raw > 0 ? RoundDownToMultiple(g.rules.MaxPlacardBet, unit) : g.rules.MaxPlacardBet;
}

// FigureBetMaximum for the odds, Lay bets, propositions and Fire.
void FigureSpecialMaximum(Game& g, int p, int b) {
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
    for (int x : {bet::kTwo, bet::kThree, bet::kEleven, bet::kTwelve}) r = std::max(r, Ratio(g, x));
    m = PayoffBound(g, r / 4 - 0.75, tableMax);
  } else if (b == bet::kWorld) {
    double r = 0.0;
    for (int x : {bet::kTwo, bet::kThree, bet::kEleven, bet::kTwelve, bet::kSeven})
      r = std::max(r, Ratio(g, x));
    m = PayoffBound(g, r / 5 - 0.8, tableMax);
  } else if (b >= bet::kHard4 && b <= bet::kHopLast) {
    m = PayoffBound(g, Ratio(g, b), tableMax);
  } else if (b == bet::kFire) {
    m = g.rules.MaxFireBet;
  }
  if (m < Currency{}) m = Currency{};
  // The table maximum is a multiple of the unit already (most bets end here).
  g.betting.BetMaximum = unit.raw > 0 && m != tableMax ? RoundDownToMultiple(m, unit) : m;
}

}  // namespace

void FigureBetMaximum(Game& g, int p, int b) {
  // Most bets end at the table maximum: they skip the search of the rest.
  if (b >= 0 && b <= kLastBetId && kOnlyTableMaximum[static_cast<std::size_t>(b)]) {
    const Currency tableMax = TableMaximum(g, g.CheckValue(1));
    // As in FigureSpecialMaximum: a negative maximum is 0, a multiple of any unit.
    g.betting.BetMaximum = tableMax < Currency{} ? Currency{} : tableMax;
    return;
  }
  FigureSpecialMaximum(g, p, b);
}
