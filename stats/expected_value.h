// The expected result of one unit wagered on a bet, per decision, under the
// payoffs, vig and bar number in force and fair dice: what the bet results'
// "Expctd value" row and the comps multiply the action by.
//
// This stands in for the advantage analysis' own per-decision figure (the
// same name and meaning), which also reads skewed dice; when that analysis
// is part of the build, this unit goes and its callers include the
// analysis' header instead.
//
// What must stay true:
// - A decision is a roll that wins or loses the bet: pushes and rolls that
//   decide nothing are not decisions, as the decision tally counts them.
// - Lay and Buy with the vig up front figure the unit as stake and vig
//   together, as their decisions are counted.
// - The figure is rounded to six decimals, as the views read it.
#pragma once

struct Game;

// The expected result of one unit on bet id 1..85 per decision; 0 otherwise.
double ExpectedValuePerDecision(const Game& game, int bet);
