// The house figure of a bet: the expected result of one unit wagered on it,
// per decision, under the payoffs and vig now set, with true dice.
//
// The script variable "expected value" and the comps read it here. The
// table's advantage analysis (with skewed dice, zero-outcome counting and
// the deviations) is to take its place: this unit is the one function it
// replaces, so that no other code changes when it does.
//
// What must stay true: the result is a fraction of a unit, rounded to six
// decimals; a bet whose probabilities decide nothing gives 0.
#pragma once

struct Game;

// Expected result per decision of one unit on bet b (1..85), e.g. -0.014141
// for the Pass Line at default payoffs.
double HouseExpectedValue(const Game& game, int b);
