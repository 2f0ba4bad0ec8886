// Payoff arithmetic: the highest odds bet under each odds method, the
// proper unit of every bet, the adjustment of a bet to a proper total, and
// the Buy and Lay vig.
//
// All of it turns on the check denominations: CheckValue(1) is the grain of
// every amount on the table, and the color pushes and color corrections look
// at the other four checks. What must stay true:
// - Every result is a multiple of CheckValue(1), never below 0 (the vig is
//   never below one smallest check for a bet above 0).
// - Nothing here allocates on the roll path; the adjustment only builds its
//   message text when it is given one (never in Hyper-Drive).
// - Divisibility tests are done exactly on the ten-thousandths counts, so a
//   payoff such as 6 to 5 never fails a whole test through float error.
#pragma once

#include <cstdint>
#include <string>

#include "core/catalogue.h"
#include "core/currency.h"
#include "core/game.h"

// Odds multiple X allowed on box number n (4..10, not 7); 0 for another n.
inline Currency OddsMultiple(const Game& game, int number) {
  switch (number) {
    case 4:
    case 10:
      return game.rules.OddsAllowed410;
    case 5:
    case 9:
      return game.rules.OddsAllowed59;
    case 6:
    case 8:
      return game.rules.OddsAllowed68;
    default:
      return Currency{};
  }
}
// X of odds bet `bet`: by its number, the point for the line odds; 0 for another bet.
inline Currency OddsMultipleOf(const Game& game, int bet) {
  int number = 0;
  if (IsComeOdds(bet))
    number = BoxNumber(bet - bet::kComeOddsFirst);
  else if (IsDontComeOdds(bet))
    number = BoxNumber(bet - bet::kDontComeOddsFirst);
  else if (IsLineOdds(bet))
    number = game.Point;
  return OddsMultiple(game, number);
}
// The highest odds bet on a flat bet of `base` under the table's odds method
// and caps. payNumber/payStake are the odds payoff pair (reversed by the
// caller for Don't odds). The caller stores it in BetMaximum.
Currency FigureOddsMaximum(const Game& game, int bet, Currency base, Currency payNumber,
                           Currency payStake);
// The same with X, the method and the checks given: the rule itself.
Currency OddsMaximumFor(Currency x, int method, Currency base, Currency payNumber,
                        Currency payStake, const Currency (&checks)[6], Currency maxOddsBet);

// Smallest bet of `unit` steps paid in whole units: k x unit with P1 x k / P3 whole.
Currency ProperUnit(Currency payNumber, Currency payStake, Currency unit);
// Fills PayoffTbl(0, bet) for bets 1 to 85.
void FigureProperUnits(Game& game);

// Everything the proper-odds adjustment reads, taken out of the game so the
// rule can be tested and reasoned about by itself.
struct ProperOddsInput {
  int bet = 0;
  Currency current;    // B, the bet as it stands
  Currency change;     // A, the change asked for
  Currency unit;       // w, the proper unit of the bet (after the line-bet swap)
  Currency maximum;    // BetMaximum
  Currency minimum;    // BetMinimum
  Currency contract;   // BetContract of the bet
  int mode = 0;        // AutoAdjustMode: 1 minor, 2 color correction
  int bias = 0;        // 0 nearest, 1 increase, 2 decrease
  Currency checks[6];  // CheckValue(1..5) at 1..5
};
// The adjusted change. `text` is the pending message text (null in Hyper-Drive).
Currency AdjustProperOdds(const ProperOddsInput& in, std::string* text);
// w x d / d1, truncated, as 128-bit arithmetic gives it: in 64 bits when the
// product fits (the usual case: the 128-bit division is a library call).
inline std::int64_t ScaledByChecks(std::int64_t w, std::int64_t d, std::int64_t d1) {
  std::int64_t product = 0;
  if (!__builtin_mul_overflow(w, d, &product) && !(product == INT64_MIN && d1 == -1))
    return product / d1;
  __extension__ typedef __int128 Wide;
  return static_cast<std::int64_t>(static_cast<Wide>(w) * d / d1);
}
// The unit a color correction takes for a change a of bet b whose proper
// unit is w: w scaled by the first of checks 5 down to 2 that a is a whole
// number of, when a (for a change of 0, the bet) reaches that unit; w when
// none does. `check(i)` is check i, check(1) above 0.
template <class Check>
inline Currency ColorCorrectionUnit(Currency w, Currency a, Currency b, Check check) {
  // A change that is no multiple of check i can't take its unit; one below
  // the check (but not 0) is none, without a division.
  const Currency size = Currency::FromRaw(a.raw < 0 ? -a.raw : a.raw);
  for (int i = 5; i >= 2; --i) {
    const Currency d = check(i);
    if (d.raw <= 0) continue;
    if (!a.IsZero() && (size < d || a.raw % d.raw != 0)) continue;
    const Currency wide = Currency::FromRaw(ScaledByChecks(w.raw, d.raw, check(1).raw));
    if (a.IsZero() ? b >= wide : size >= wide) return wide;
  }
  return w;
}
// The adjustment's two steps after it has the whole-unit totals either side
// of b + a, as changes from b: lo and hi = lo + w. First the pick (true for
// hi): by the bias (1 increase, 2 decrease), else toward the contract of a
// line or Come bet (comeLike) or a Don't bet (dontLike), else toward a total
// that a divides, else away from 0, else the nearer.
inline bool ProperPicksHigh(Currency b, Currency a, Currency lo, Currency hi, int bias,
                            bool comeLike, bool dontLike, Currency contract) {
  if (bias == 1) return a.raw >= 0;
  if (bias == 2) return a.raw > 0 ? lo.raw <= 0 : a.raw < 0 && !hi.IsZero();
  if (comeLike && b + lo < contract) return true;
  if (dontLike && !contract.IsZero() && b + hi > contract) return false;
  if (!a.IsZero() && !hi.IsZero() && (b + hi).raw % a.raw == 0) return true;
  if (!a.IsZero() && !lo.IsZero() && (b + lo).raw % a.raw == 0) return false;
  if (a.raw > 0 && lo.raw <= 0) return true;
  if (a.raw < 0 && hi.raw >= 0) return false;
  return hi - a <= a - lo;
}
// Then the pick held to the limits, when they leave one of the two totals: a
// low total under the minimum goes up (or, for a decrease, the bet comes
// down), and the result stays within the maximum and the minimum.
inline Currency HoldProperPick(bool high, Currency b, Currency a, Currency lo, Currency hi,
                               Currency minimum, Currency maximum) {
  Currency choice = high ? hi : lo;
  if (!high && b + lo < minimum) choice = a.raw > 0 && b + hi <= maximum ? hi : -b;
  if (b + choice > maximum) choice = lo;
  if (b + choice < minimum && choice != -b) choice = hi;
  return choice;
}
// The unit the adjustment uses for a bet: Pass Line and Don't Pass take their
// Come or Don't Come unit, the line odds those of the odds on the point.
inline Currency ProperOddsUnit(const Game& game, int bet) {
  // The line bets and their odds lie together: one test passes every other bet.
  static_assert(bet::kPassLine < bet::kPassLineOdds && bet::kPassLineOdds < bet::kDontPass &&
                bet::kDontPass < bet::kDontPassOdds);
  if (bet < bet::kPassLine || bet > bet::kDontPassOdds) return game.PayoffTbl(0, bet);
  const int point = game.Point;
  int from = bet;
  if (bet == bet::kPassLine)
    from = IsBoxNumber(point) ? ComeId(point) : bet::kCome;
  else if (bet == bet::kDontPass)
    from = IsBoxNumber(point) ? DontComeId(point) : bet::kDontCome;
  else if (bet == bet::kPassLineOdds && IsBoxNumber(point))
    from = ComeId(point) + 6;
  else if (bet == bet::kDontPassOdds && IsBoxNumber(point))
    from = DontComeId(point) + 6;
  return game.PayoffTbl(0, from);
}
// True when AdjustForProperOdds leaves BetChange as it stands: a change that
// takes the bet down, no unit to adjust to, or a total already in whole units
// (most changes on the roll path). Inline so the gate asks it without a call.
inline bool ProperAsAsked(const Game& game, int player, int bet) {
  const Currency current = game.Bet(player, bet), change = game.betting.BetChange;
  if (change <= -current) return true;
  const Currency unit = ProperOddsUnit(game, bet);
  return unit.raw <= 0 || game.CheckValue(1).raw <= 0 || (current + change).raw % unit.raw == 0;
}
// ProperAsAsked for a bet standing at 0 and a positive change `amount`.
[[gnu::always_inline]] inline bool ProperFromZero(const Game& game, int bet, Currency amount) {
  const Currency unit = ProperOddsUnit(game, bet);
  return unit.raw <= 0 || game.CheckValue(1).raw <= 0 || amount.raw % unit.raw == 0;
}
// The bias list that governs a bet (0 for bets without one).
int ProperOddsBias(const Game& game, int player, int bet);
// Changes BetChange during SetBetChecked for a player with AutoAdjustMode
// above 0, reading BetMaximum/BetMinimum and extending the pending limit
// text (LimitText) outside Hyper-Drive.
void AdjustForProperOdds(Game& game, int player, int bet);
// The same for a change already found to need it (a real bet, AutoAdjustMode
// above 0 and ProperAsAsked false), without asking again.
void AdjustWhereNeeded(Game& game, int player, int bet);

// Rounds a raw vig figure to the smallest check by rule (VigRounding),
// applies the floor of one smallest check for a bet above 0, and holds it
// within the money limit.
Currency RoundVig(Currency figure, Currency amount, int rounding, Currency unit);
// Vig of a Buy bet total (bets 37..42); 0 for any other bet or a rate of 0.
Currency FigureBuyVig(const Game& game, int bet, Currency amount);
// Vig of a Lay bet total (bets 1..6), figured on the win; 0 otherwise.
Currency FigureLayVig(const Game& game, int bet, Currency amount);
