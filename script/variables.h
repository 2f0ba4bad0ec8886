// What the language's variables and functions read of the game.
//
// A script sees the game through doubles and strings only: statistics of a
// player and time frame, the table state, the dice, settings and a few
// values of its own. Money arrives as the double of its fixed-point amount;
// truth values are -1 and 0.
//
// What must stay true:
// - No read fails: a frame or bet outside the tables cannot reach these
//   procedures (the compiler limits the qualifiers); a value that makes no
//   sense at run time (a bet family's number, a text position) gives a
//   neutral result, 0 or empty, and a step note.
// - A read of an open seat gives 0, never an error.
#pragma once

#include <cstdint>

#include "core/currency.h"
#include "script/code_state.h"

struct Game;

// An amount of money as a script reads it: Currency::ToDouble, bit for bit.
// An amount of whole units (nearly every bet) is converted without the
// division, which gives the same double: its quotient is a whole number and
// the amount, below 2^53, converts exactly, so the division rounds nothing.
inline double AmountValue(Currency amount) {
  constexpr std::int64_t kExactLimit = std::int64_t{1} << 53;
  const std::int64_t raw = amount.raw;
  if (raw % Currency::kScale == 0 && raw <= kExactLimit && raw >= -kExactLimit)
    return static_cast<double>(raw / Currency::kScale);
  return amount.ToDouble();
}

// The slot a player qualifier stands for: 1..8 and 0 themselves, 10 the
// shooter, 11 the last shooter, 12 the original shooter, 13 the bettor
// (CurPlayer), 14 the script's own player.
int ResolvePlayer(const Game& game, double code);

// The value of variable v whose qualifiers (as many as its class has) stand
// at q[0..]: a number, or for 800..899 a string element.
ScriptElement VariableValue(Game& game, int v, const ScriptElement* q);

// The value of the variable at e[0] with the qualifiers the compiler put
// behind it; `qualifiers` is set to how many of them it took.
ScriptElement VariableAt(Game& game, const ScriptElement* e, int& qualifiers);

// The variable at WorkStatement(position) is read in place; returns the
// number of qualifier elements behind it, which the caller removes.
int ReadVariable(Game& game, int position);

// The function at WorkStatement(position) with its arguments behind it is
// evaluated in place; returns the number of elements behind it to remove.
int EvaluateFunction(Game& game, int position);
