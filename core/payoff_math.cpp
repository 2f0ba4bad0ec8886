#include "core/payoff_math.h"

#include <cassert>
#include <cstdlib>

#include "config/settings_state.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"

namespace {

__extension__ typedef __int128 i128;

i128 Abs(i128 v) { return v < 0 ? -v : v; }

i128 Gcd(i128 a, i128 b) {
  a = Abs(a);
  b = Abs(b);
  while (b != 0) {
    i128 t = a % b;
    a = b;
    b = t;
  }
  return a;
}

i128 Mod(i128 a, i128 m) {
  i128 r = a % m;
  return r < 0 ? r + m : r;
}

// Greatest common divisor and the inverse of a modulo m (a and m coprime,
// m above 1) on 64-bit values for operands from 0 to 2^62, where no step
// can overflow: the color candidates' arithmetic runs on these.
std::int64_t Gcd64(std::int64_t a, std::int64_t b) {
  while (b != 0) {
    const std::int64_t t = a % b;
    a = b;
    b = t;
  }
  return a;
}

std::int64_t Inverse64(std::int64_t a, std::int64_t m) {
  std::int64_t r0 = m, r1 = a % m, t0 = 0, t1 = 1;
  while (r1 != 0) {
    const std::int64_t q = r0 / r1;
    const std::int64_t r2 = r0 - q * r1;
    r0 = r1;
    r1 = r2;
    const std::int64_t t2 = t0 - q * t1;
    t0 = t1;
    t1 = t2;
  }
  return t0 < 0 ? t0 + m : t0;
}

// (x * y) mod m in 0..m-1 (m above 0), in 64 bits when the product fits.
std::int64_t ModProduct(std::int64_t x, std::int64_t y, std::int64_t m) {
  std::int64_t product = 0;
  if (__builtin_mul_overflow(x, y, &product))
    return static_cast<std::int64_t>(Mod(static_cast<i128>(x) * y, m));
  const std::int64_t r = product % m;
  return r < 0 ? r + m : r;
}

// x / y whole, exactly (y not 0).
bool WholeQuotient(Currency x, Currency y) { return y.raw != 0 && x.raw % y.raw == 0; }

Currency Max(Currency a, Currency b) { return a < b ? b : a; }

std::int64_t FloorDiv(std::int64_t a, std::int64_t b) {
  std::int64_t q = a / b;
  if ((a % b != 0) && ((a < 0) != (b < 0))) --q;
  return q;
}

// Color push candidate for check d: the first amount from m upward in steps of
// one whole unit whose odds win (amount / s) x p is paid in whole checks of d.
// An amount that can never get there (odd settings) stays at m.
Currency ColorCandidate(Currency m, Currency p, Currency s, Currency d) {
  const i128 mod = static_cast<i128>(s.raw) * d.raw;
  if (mod <= 0 || mod > (static_cast<i128>(1) << 62)) return m;
  // (m + k x unit) x p divisible by s x d, on the raw counts.
  // Every value below is at least 0 and below mod (at most 2^62), so the
  // loops run on 64-bit integers; only the products need 128 bits.
  const auto mod64 = static_cast<std::int64_t>(mod);
  const std::int64_t a = ModProduct(Currency::kScale, p.raw, mod64);
  // -(m x p) mod mod, without negating a raw count that may be the lowest.
  const std::int64_t mp = ModProduct(m.raw, p.raw, mod64);
  const std::int64_t b = mp == 0 ? 0 : mod64 - mp;
  const std::int64_t g = Gcd64(a, mod64);
  if (g == 0 || b % g != 0) return m;  // a is 0 and b is not: never whole
  const std::int64_t mr = mod64 / g;
  const i128 k = mr == 1 ? 0 : ModProduct(b / g, Inverse64(a / g, mr), mr);
  const i128 v = m.raw + k * Currency::kScale;
  if (v > INT64_MAX) return m;
  return Currency::FromRaw(static_cast<std::int64_t>(v));
}

bool IsComeLike(int bet) { return bet == bet::kPassLine || IsComePoint(bet); }
bool IsDontLike(int bet) { return bet == bet::kDontPass || IsDontComePoint(bet); }

}  // namespace

Currency OddsMaximumFor(Currency x, int method, Currency base, Currency p, Currency s,
                        const Currency (&d)[6], Currency maxOddsBet) {
  const Currency unit = d[1];
  if (unit.raw <= 0 || s.raw <= 0) return Currency{};
  const Currency m = CurMul(x, base);
  const Currency c = CurMul(x + 1_usd, base);

  if (method == kOddsAutoSelect) {
    if (!IsWhole(x))
      method = kOddsFlatNoPush;
    else if (x == 1_usd)
      method = kOddsSingleOdds;
    else if (x == 3_usd)
      method = kOddsFlatSingleX;
    else
      method = kOddsColorPush;
  }

  Currency r = m;
  switch (method) {
    case kOddsMinorPush: {
      const Currency u = CurMul(unit, s);
      if (u.raw <= 0) break;
      Currency t = RoundDownToMultiple(m, u);
      if (t < m && t + u < c) t += u;
      r = t.IsZero() ? m : t;
      break;
    }
    case kOddsColorPush: {
      // The candidate of check i; each is figured only when the choice
      // below comes to it (they are pure, and the search is costly).
      auto candidate = [&](int i) {
        return d[i].raw > 0 && base.raw / d[i].raw > 1 ? ColorCandidate(m, p, s, d[i]) : m;
      };
      auto between = [&](Currency v) { return m < v && v < c; };
      Currency v;
      if (WholeQuotient(base, 100_usd) && between(v = candidate(5)))
        r = v;
      else if (WholeQuotient(base, 25_usd) && between(v = candidate(4)))
        r = v;
      else if (WholeQuotient(base, 5_usd) && between(v = candidate(3)))
        r = v;
      else if (between(v = candidate(2)))
        r = v;
      else
        r = candidate(1);
      break;
    }
    case kOddsSingleOdds:
    case kOddsFlatSingleX:
      for (int i = 1; i <= 5; ++i) {
        if (d[i].raw <= 0) continue;
        const Currency from = method == kOddsSingleOdds ? m : base;
        const Currency y = Currency::FromWhole(FloorDiv(from.raw, d[i].raw));
        Currency v = CurMul(RoundUpToMultiple(y, s), d[i]);
        if (method == kOddsFlatSingleX) v = CurMul(v, x);
        r = Max(r, v);
      }
      break;
    default:  // kOddsFlatNoPush
      break;
  }

  const Currency cap = RoundDownToMultiple(maxOddsBet, unit);
  if (r > cap) r = cap;
  if (!WholeQuotient(r, unit)) r = RoundDownToMultiple(r, unit);
  return r;
}

Currency FigureOddsMaximum(const Game& game, int bet, Currency base, Currency payNumber,
                           Currency payStake) {
  const Currency x = OddsMultipleOf(game, bet);
  if (x.IsZero() || base.raw <= 0) return Currency{};
  Currency checks[6];
  for (int i = 1; i <= 5; ++i) checks[i] = game.CheckValue(i);
  return OddsMaximumFor(x, game.rules.OddsCalcMethod, base, payNumber, payStake, checks,
                        game.rules.MaxOddsBet);
}

Currency ProperUnit(Currency payNumber, Currency payStake, Currency unit) {
  // u = k x unit with P1 x k / P3 whole: k = P3 / gcd(P1, P3) on the raw counts.
  if (payStake.raw == 0) return unit;
  const i128 g = Gcd(payNumber.raw, payStake.raw);
  const i128 k = Abs(payStake.raw) / g;
  if (k > INT64_MAX) return kCurrencyMax;
  return CurMulInt(unit, static_cast<std::int64_t>(k));
}

void FigureProperUnits(Game& game) {
  const Currency unit = game.CheckValue(1);
  for (int b = 1; b <= kLastRealBet; ++b)
    game.PayoffTbl(0, b) = ProperUnit(game.PayoffTbl(1, b), game.PayoffTbl(3, b), unit);
}

namespace {

void AppendLine(std::string& text, const char* piece, Currency amount) {
  if (!text.empty()) text += "\r\r";
  text += piece;
  AppendMoney(text, amount);
}

}  // namespace

Currency AdjustProperOdds(const ProperOddsInput& in, std::string* text) {
  const Currency b = in.current, a = in.change;
  if (a <= -b) return a;
  const Currency* d = in.checks;
  if (in.unit.raw <= 0 || d[1].raw <= 0) return a;
  int mode = in.mode;

  for (;;) {  // a second pass only for a color correction that broke both limits
    Currency w = in.unit;
    if (IsOddsBet(in.bet) && b + a == in.maximum) mode = 1;
    const Currency total = b + a;
    if (WholeQuotient(total, w)) return a;
    Currency lo = CurMulInt(w, FloorDiv(total.raw, w.raw)) - b;
    Currency hi = lo + w;

    if (mode == 2) {
      w = ColorCorrectionUnit(w, a, b, [d](int i) { return d[i]; });
      if (w.raw > 0 && w != in.unit) {  // a wider unit was taken: its own pair
        lo = CurMulInt(w, FloorDiv(total.raw, w.raw)) - b;
        hi = lo + w;
      }
    }

    const bool hiTooHigh = b + hi > in.maximum;
    const bool loTooLow = b + lo < in.minimum;
    if (hiTooHigh && loTooLow) {
      if (a.raw < 0) {
        if (text) text->clear();
        return -b;
      }
      if (mode == 2) {
        mode = 1;
        continue;
      }
      Currency change = in.maximum - b;
      if (change.raw < 0) change = Currency{};
      if (text) {
        if (!text->empty()) *text += "\r\r";
        *text += "Unable to auto-adjust bet for proper odds payoff.";
      }
      return change;
    }

    const bool high = ProperPicksHigh(b, a, lo, hi, in.bias, IsComeLike(in.bet),
                                      IsDontLike(in.bet), in.contract);
    const Currency choice = HoldProperPick(high, b, a, lo, hi, in.minimum, in.maximum);

    if (text) {
      if (text->find("Maximum") != std::string::npos || hiTooHigh)
        AppendLine(*text, "Maximum bet for proper odds payoff is: $", b + choice);
      if (text->find("Minimum") != std::string::npos || (a.raw < 0 && choice.IsZero())) {
        if (choice != -b)
          AppendLine(*text, "Minimum bet for proper odds payoff is: $", b + choice);
        else
          text->clear();
      }
    }
    return choice;
  }
}

int ProperOddsBias(const Game& game, int player, int bet) {
  const AutoPlayState& a = game.autoplay;
  if (IsLay(bet)) return a.LayBias(player);
  if (IsPlace(bet)) return a.PlaceBias(player);
  if (bet == bet::kPassLineOdds || IsComeOdds(bet)) return a.DoBias(player);
  if (bet == bet::kDontPassOdds || IsDontComeOdds(bet)) return a.DontBias(player);
  return 0;
}

void AdjustForProperOdds(Game& game, int player, int bet) {
  if (!IsRealBet(bet) || game.autoplay.AutoAdjustMode(player) <= 0) return;
  // The rule's first answers, without gathering its input.
  if (ProperAsAsked(game, player, bet)) return;
  AdjustWhereNeeded(game, player, bet);
}

void AdjustWhereNeeded(Game& game, int player, int bet) {
  BettingState& s = game.betting;
  const Currency current = game.Bet(player, bet), unit = ProperOddsUnit(game, bet);
  ProperOddsInput in;
  in.bet = bet;
  in.current = current;
  in.change = s.BetChange;
  in.unit = unit;
  in.maximum = s.BetMaximum;
  in.minimum = s.BetMinimum;
  in.contract = game.BetContract(player, bet);
  in.mode = game.autoplay.AutoAdjustMode(player);
  in.bias = ProperOddsBias(game, player, bet);
  for (int i = 1; i <= 5; ++i) in.checks[i] = game.CheckValue(i);
  s.BetChange = AdjustProperOdds(in, game.HyperDrive ? nullptr : &s.LimitText);
  // A proper unit above a maximum near the money limit, taken when the one
  // below falls short of the minimum, would carry the bet past that limit:
  // it stops at the limit's last smallest check instead.
  if (current + s.BetChange > kMoneyLimit) [[unlikely]] {
    const Currency check = game.CheckValue(1);
    s.BetChange = (check.raw > 0 ? RoundDownToMultiple(kMoneyLimit, check) : kMoneyLimit) - current;
  }
}

Currency RoundVig(Currency figure, Currency amount, int rounding, Currency unit) {
  if (unit.raw <= 0) return figure;
  std::int64_t q = figure.raw / unit.raw, r = figure.raw % unit.raw;
  if (r < 0) {
    r += unit.raw;
    --q;
  }
  if (rounding == kVigRoundUp) {
    if (r != 0) ++q;
  } else if (rounding != kVigRoundDown) {
    if (2 * static_cast<i128>(r) > unit.raw) ++q;  // an exact half goes down
  }
  Currency vig = CurMulInt(unit, q);
  if (amount.raw > 0 && vig < unit) vig = unit;
  // A vig rate of many times the bet can figure a vig past the money limit,
  // within which every amount of the game stays.
  return HeldWithin(vig, kMoneyLimit);
}

// A bet of 0 has no vig: every step of either figure gives 0 for it (a
// product of 0, no remainder, and the one-check floor only above 0), so a
// bet taken down skips them.
Currency FigureBuyVig(const Game& game, int bet, Currency amount) {
  if (!IsBuy(bet) || game.rules.BuyVigRate.IsZero() || amount.IsZero()) return Currency{};
  const Currency figure = CurMul(amount, game.rules.BuyVigRate);
  return RoundVig(figure, amount, game.rules.BuyVigRound, game.CheckValue(1));
}

Currency FigureLayVig(const Game& game, int bet, Currency amount) {
  if (!IsLay(bet) || game.rules.LayVigRate.IsZero() || amount.IsZero()) return Currency{};
  const double p1 = game.PayoffTbl(1, bet).ToDouble(), p3 = game.PayoffTbl(3, bet).ToDouble();
  if (p3 == 0.0) return Currency{};
  const Currency figure =
      CurFromDouble(amount.ToDouble() * p1 / p3 * game.rules.LayVigRate.ToDouble());
  if (figure.raw < 0) return Currency{};
  return RoundVig(figure, amount, game.rules.LayVigRound, game.CheckValue(1));
}
