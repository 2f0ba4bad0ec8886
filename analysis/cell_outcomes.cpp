// CellOutcome of every single-roll bet: what one unit wins or loses on each
// of the 36 cells. A cell a bet doesn't name decides nothing (0) for the bets
// below Two, and loses (-1) for the one-roll bets from Two on.
#include "analysis/advantage_internal.h"
#include "config/payoffs.h"
#include "dice/probability.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"

namespace {

using namespace bet;

constexpr int kFirstOneRollLoser = kTwo;  // unnamed cells lose from here on
constexpr int kSevenTotal = 7;

// The row of the single-number bet on a total (2, 3, 7, 11, 12), for the
// split bets, and the total of a single-number bet.
int SingleNumberRow(int total) {
  switch (total) {
    case 2:
      return kTwo;
    case 3:
      return kThree;
    case 11:
      return kEleven;
    case 12:
      return kTwelve;
    default:
      return kSeven;
  }
}
int SingleNumberTotal(int b) {
  constexpr int kTotals[] = {2, 3, 7, 11, 12};  // Two, Three, Seven, Eleven, Twelve
  return kTotals[b - kTwo];
}

double TableRatio(Currency a, Currency d) { return d.raw == 0 ? 0 : a.ToDouble() / d.ToDouble(); }

// What a winning Lay bet returns per unit of stake and vig: the vig is a rate
// on the win; charged up front it is part of the unit, so a loss takes all.
double LayOutcome(const Game& game, int b) {
  const double w = PayoffRatio(game, b);
  if (game.PayoffTbl(1, b).raw <= 0) return w;
  const double vig = game.rules.LayVigRate.ToDouble() * w;
  if (game.rules.LayVigUpFront) {
    const double s = 1 / (1 + vig);
    return s * w - (1 - s);
  }
  return w - vig;
}

// A winning Buy bet: the vig is a rate on the stake.
double BuyOutcome(const Game& game, int b) {
  const double w = PayoffRatio(game, b);
  if (game.PayoffTbl(1, b).raw <= 0) return w;
  if (game.rules.BuyVigUpFront) {
    const double s = 1 / (1 + game.rules.BuyVigRate.ToDouble());
    return s * w - (1 - s);
  }
  return (CurFromDouble(w) - game.rules.BuyVigRate).ToDouble();
}

// The outcome of bet b on a cell showing die1 and die2, or `none` when the
// bet's row doesn't name the cell.
double CellOutcome(const Game& game, int b, int die1, int die2, double none) {
  const int total = die1 + die2;
  const bool hard = die1 == die2;
  if (IsLay(b)) {
    if (total == BoxNumber(b - kLayFirst)) return -1;
    return total == kSevenTotal ? LayOutcome(game, b) : none;
  }
  if (IsDontComePoint(b) || IsDontComeOdds(b)) {
    const int n = BoxNumber((b - kDontComePointFirst) % 6);
    if (total == n) return -1;
    return total == kSevenTotal ? PayoffRatio(game, b) : none;
  }
  if (IsComePoint(b) || IsComeOdds(b) || IsPlace(b) || IsBig(b) || IsBuy(b)) {
    int n = 0;
    if (IsComePoint(b) || IsComeOdds(b))
      n = BoxNumber((b - kComePointFirst) % 6);
    else if (IsPlace(b))
      n = BoxNumber(b - kPlaceFirst);
    else if (IsBuy(b))
      n = BoxNumber(b - kBuyFirst);
    else
      n = b == kBig6 ? 6 : 8;
    if (total == n) return IsBuy(b) ? BuyOutcome(game, b) : PayoffRatio(game, b);
    return total == kSevenTotal ? -1 : none;
  }
  switch (b) {
    case kCome:
      if (total == kSevenTotal || total == 11) return PayoffRatio(game, kCome);
      return total == 2 || total == 3 || total == 12 ? -1 : none;
    case kDontCome: {
      if (total == kSevenTotal || total == 11) return -1;
      const int craps = game.rules.BarNumber == 2 ? 12 : 2;
      return total == 3 || total == craps ? PayoffRatio(game, kDontCome) : none;
    }
    case kField: {
      const int row = FieldRow(die1, die2);
      return TableRatio(game.FieldPayoff(1, row), game.FieldPayoff(3, row));
    }
    case kHard4:
    case kHard6:
    case kHard8:
    case kHard10: {
      const int n = 4 + 2 * (b - kHard4);
      if (total == n) return hard ? PayoffRatio(game, b) : -1;
      return total == kSevenTotal ? -1 : none;
    }
    case kTwo:
    case kThree:
    case kSeven:
    case kEleven:
    case kTwelve:
      return total == SingleNumberTotal(b) ? PayoffRatio(game, b) : none;
    case kCraps:
      return total == 2 || total == 3 || total == 12 ? PayoffRatio(game, kCraps) : none;
    case kCandE:
      if (total == 2 || total == 3 || total == 12) return PayoffRatio(game, kCraps) * 0.5 - 0.5;
      return total == 11 ? PayoffRatio(game, kEleven) * 0.5 - 0.5 : none;
    case kHorn:
      if (total == 2 || total == 3 || total == 11 || total == 12)
        return PayoffRatio(game, SingleNumberRow(total)) * 0.25 - 0.75;
      return none;
    case kWorld:
      if (total == 2 || total == 3 || total == 11 || total == 12 || total == kSevenTotal)
        return PayoffRatio(game, SingleNumberRow(total)) * 0.2 - 0.8;
      return none;
    case kOver7:
      return total > kSevenTotal ? PayoffRatio(game, kOver7) : none;
    case kUnder7:
      return total < kSevenTotal ? PayoffRatio(game, kUnder7) : none;
    case kMidway: {
      int row = 0;
      if (total == 6) row = hard ? 1 : 2;
      if (total == kSevenTotal) row = 3;
      if (total == 8) row = hard ? 5 : 4;
      return row == 0 ? none : TableRatio(game.MidwayPayoff(1, row), game.MidwayPayoff(3, row));
    }
    default:
      return IsHop(b) && HopId(die1, die2) == b ? PayoffRatio(game, b) : none;
  }
}

}  // namespace

CellOutcomes FigureCellOutcomes(const Game& game, int b) {
  CellOutcomes outcome{};
  const double none = b >= kFirstOneRollLoser ? -1 : 0;
  for (int a = kFirstCellRow; a <= kLastCellRow; ++a)
    for (int c = a - 1; c <= 13 - a; ++c) {
      const DicePair d = CellDice(a, c);
      outcome[a][c] = CellOutcome(game, b, d.die1, d.die2, none);
    }
  return outcome;
}
