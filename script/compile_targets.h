// Marks the variables and functions that a statement writes to.
//
// In an action statement the first variable of each comma group is a target
// (kind -12, functions -2); a statement that starts with a variable is an
// assignment. Conditions (If/ElseIf .. Then) have no targets. Only the
// current wager of a bet in the current hand or session, CheckStacks and a
// few settings may be written.
#pragma once

struct Game;

// The target pass; false with game.msg and span set on failure.
bool MarkTargets(Game& game);
