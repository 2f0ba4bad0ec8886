// The pieces of the advantage analysis shared by its files: the dice's
// probabilities as the analysis reads them, a payoff as a ratio, and the
// figures of the single-roll, line and Fire bets.
#pragma once

#include <array>

#include "analysis/advantage.h"

// CellProb: for a = 2..7 the probability of the cell (a, b); for a = 1 the
// probability of the total b + 1, read from the totals row of the table.
struct DiceOdds {
  std::array<std::array<double, 14>, 8> cell{};
  double Total(int t) const { return cell[1][static_cast<std::size_t>(t - 1)]; }
};
// The dice in force: the probability table with ProbabilityDiceOn, else true.
DiceOdds ReadDiceOdds(const Game& game);

// CellOutcome: the result of one unit on each cell, 0 where nothing is decided.
using CellOutcomes = std::array<std::array<double, 14>, 8>;
// The outcomes of a single-roll bet (every bet but 43, 44, 46, 47 and 85).
CellOutcomes FigureCellOutcomes(const Game& game, int bet);

// w(r): a / d of PayoffTbl row r.
double PayoffRatio(const Game& game, int row);

// Pass Line, Don't Pass and their odds, over a whole decision.
Advantage FigureLineBet(const Game& game, const DiceOdds& odds, int bet);
// Fire, over a hand.
Advantage FigureFireBet(const Game& game);
