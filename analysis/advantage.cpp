#include "analysis/advantage.h"

#include <cmath>

#include "analysis/advantage_internal.h"
#include "dice/probability.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/number_text.h"

namespace {

constexpr int kShownDecimals = 6;       // "#.######;-#.######;0.000000"
constexpr int kRollsShownDecimals = 2;  // "#.##"

bool IsLineBetFigure(int b) {
  return b == bet::kPassLine || b == bet::kPassLineOdds || b == bet::kDontPass ||
         b == bet::kDontPassOdds;
}

// A single-roll bet over the 36 cells.
Advantage FigureCellBet(const Game& game, const DiceOdds& odds, int b, bool& roundRolls) {
  const CellOutcomes outcome = FigureCellOutcomes(game, b);
  const bool countZero = game.advantage.CountZeroOutcomes;
  double evRoll = 0, decided = 0;
  for (int a = kFirstCellRow; a <= kLastCellRow; ++a)
    for (int c = a - 1; c <= 13 - a; ++c) {
      const double x = outcome[a][c], p = odds.cell[a][c];
      evRoll += x * p;
      if (x != 0) decided += p;
    }
  if (countZero) decided = 1;

  Advantage r;
  r.evPerRoll = evRoll;
  if (decided != 0) {
    r.evPerDec = evRoll / decided;
    r.rollsPerDec = 1 / decided;
    roundRolls = true;
  }
  double varRoll = 0, varDec = 0;
  for (int a = kFirstCellRow; a <= kLastCellRow; ++a)
    for (int c = a - 1; c <= 13 - a; ++c) {
      const double x = outcome[a][c], p = odds.cell[a][c];
      varRoll += (x - evRoll) * (x - evRoll) * p;
      if (decided != 0 && (x != 0 || countZero))
        varDec += (x - r.evPerDec) * (x - r.evPerDec) * p / decided;
    }
  r.stDevPerRoll = std::sqrt(varRoll);
  r.stDevPerDec = std::sqrt(varDec);
  return r;
}

}  // namespace

DiceOdds ReadDiceOdds(const Game& game) {
  DiceOdds odds;
  if (game.dice.ProbabilityDiceOn) {
    for (int a = kTotalRow; a <= kLastCellRow; ++a)
      for (int b = 1; b <= kLastTotalColumn; ++b)
        odds.cell[a][b] = ProbValue(game, a, b) / static_cast<double>(kProbCertain);
  } else {
    for (int b = 1; b <= kLastTotalColumn; ++b) {
      odds.cell[kTotalRow][b] = CellCount(b) / 36.0;
      for (int a = kFirstCellRow; a <= CellCount(b) + 1; ++a) odds.cell[a][b] = 1 / 36.0;
    }
  }
  return odds;
}

double PayoffRatio(const Game& game, int row) {
  const double d = game.PayoffTbl(3, row).ToDouble();
  return d == 0 ? 0 : game.PayoffTbl(1, row).ToDouble() / d;
}

Advantage FigureAdvantage(const Game& game, int b, AdvantagePrecision precision) {
  if (!IsRealBet(b)) return {};
  Advantage r;
  bool roundRolls = false;
  if (b == bet::kFire)
    r = FigureFireBet(game);
  else if (IsLineBetFigure(b))
    r = FigureLineBet(game, ReadDiceOdds(game), b);
  else
    r = FigureCellBet(game, ReadDiceOdds(game), b, roundRolls);
  if (precision == AdvantagePrecision::AsShown) {
    r.evPerRoll = RoundThroughText(r.evPerRoll, kShownDecimals);
    r.evPerDec = RoundThroughText(r.evPerDec, kShownDecimals);
    r.stDevPerRoll = RoundThroughText(r.stDevPerRoll, kShownDecimals);
    r.stDevPerDec = RoundThroughText(r.stDevPerDec, kShownDecimals);
    if (roundRolls) r.rollsPerDec = RoundThroughText(r.rollsPerDec, kRollsShownDecimals);
  }
  return r;
}

double ExpectedValuePerDecision(const Game& game, int b) {
  return FigureAdvantage(game, b, AdvantagePrecision::AsShown).evPerDec;
}
