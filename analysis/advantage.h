// The advantage analysis: what one unit wagered on a bet is worth under the
// payoffs, the vig, the bar number and the dice now in force.
//
// FigureAdvantage works every figure from scratch for one bet, straight from
// PayoffTbl, FieldPayoff, MidwayPayoff, FirePayoff, the table's settings and
// the dice: the true odds, or the probability table with ProbabilityDiceOn.
// Nothing is remembered between calls, so each figure answers at once to any
// change of payoff, vig, bar number or skewed dice.
//
// Bets decided on a single roll are figured over the 36 cells: each cell has
// an outcome per unit (0 when the roll decides nothing). The line bets
// (Pass Line, Don't Pass and their odds) are figured over a whole decision,
// come-out to the end of the point. Fire is figured over a hand.
//
// What must stay true:
// - Exact: with AdvantagePrecision::Exact the figures are exact in double
//   precision (fair dice, default payoffs: within 1e-9 of the rationals).
//   AsShown passes evPerRoll, evPerDec and both deviations through six
//   decimals, and a single-roll bet's rollsPerDec through two, as the tab,
//   the bet results, the comps and the script variables read them.
// - A bet that its dice can never decide (a total of 0 probability, a dead
//   table) gives zeros, never a fault.
// - Allocation-free: the whole analysis runs on the stack.
#pragma once

#include <array>

struct Game;

struct Advantage {
  double evPerRoll = 0;     // expected result per roll, per unit wagered
  double evPerDec = 0;      // per decision
  double rollsPerDec = 0;   // rolls in a decision
  double stDevPerRoll = 0;  // standard deviation per roll
  double stDevPerDec = 0;   // per decision
};

enum class AdvantagePrecision { Exact, AsShown };

// The figures of bet id 1..85 (zeros for any other id).
Advantage FigureAdvantage(const Game& game, int bet,
                          AdvantagePrecision precision = AdvantagePrecision::Exact);

struct FireOdds {
  std::array<double, 7> FireProb{};  // a hand makes exactly k different points
  double FireRolls = 0;              // expected rolls in a hand
};
// The Fire analysis: the chance of 0 to 6 different points made in a hand,
// and the rolls a hand lasts. All zero when the dice can't make a point or
// can't seven out.
FireOdds FigureFireOdds(const Game& game);

// The expected result of one unit wagered on bet b per decision, as bet
// results, comps and the script's expected-value field read it.
double ExpectedValuePerDecision(const Game& game, int bet);
