// The script interpreter: one run of every active script after a roll.
//
// The joined stream AllCompiled is walked statement by statement. Each
// statement is copied into WorkStatement and shrunk there in place, sweep by
// sweep in a fixed order (functions, variables, power, sign, * and /, \,
// mod, + and -, &, comparisons and lists in a condition, Not, And, Or, Xor),
// bracket groups innermost first, until what is left is a truth value (in a
// condition), an action, or targets and a value. The sweeps are the ones the
// compiler's final check makes on types, so a statement that compiled never
// meets an operand of the wrong type here. Keywords are read where they
// stand, without the copy, and so is a plain statement that has a plan
// (script/statement_plan.h): its operands are read and combined in the
// order the sweeps would take them.
//
// What must stay true:
// - Nothing in a run stops it but clearing ScriptRunning: a bad value gives
//   a neutral result and a step note; only a run-time failure (an overflow,
//   runaway GoSub depth) ends the run, with the standard error text.
// - Strings a run makes live in AllStrings only until the run ends.
// - One loop and one switch over element kinds; in Hyper-Drive a run builds
//   no note and allocates nothing once its tables have grown to size.
#pragma once

#include <cstdint>

#include "script/code_state.h"
#include "script/run_state.h"

struct Game;

// One run of the joined scripts (ScriptsOK must be true).
void RunAutoBets(Game& game);

// Remakes Shapes for AllCompiled as it stands.
void IndexStatements(ScriptRunState& run);

// The script language's truth values.
inline constexpr double kScriptTrue = -1.0, kScriptFalse = 0.0;

// Comparison `op` (50 to 55) of two numbers: -1 when it holds, else 0.
// Inline, as the interpreter's comparison sweep calls it for every pair.
inline double CompareNumbers(double a, std::int32_t op, double b) {
  bool holds = false;
  switch (op) {
    case kEqual: holds = a == b; break;
    case kNotEqual: holds = a != b; break;
    case kLess: holds = a < b; break;
    case kGreater: holds = a > b; break;
    case kLessEqual: holds = a <= b; break;
    default: holds = a >= b; break;  // kGreaterEqual
  }
  return holds ? kScriptTrue : kScriptFalse;
}

// Comparisons 50 to 55 (-1 or 0) and the logic operators 70 to 73 on numbers.
double AutoBetCompare(Game& game, double left, int op, double right);
// The arithmetic operators 60 to 66 on numbers.
double AutoBetMath(Game& game, double left, int op, double right);
// A comparison of two texts, case ignored (-1 or 0).
double AutoBetCompareStrings(Game& game, const ScriptElement& left, int op,
                             const ScriptElement& right);

// A double rounded to a 32-bit integer, ties to even; false when it does not
// fit (the run then ends with an overflow).
bool RoundToLong(double value, std::int32_t& out);

// Ends the run in progress with the standard error text ("Overflow, Error #6
// occurred, at: Auto-bet run").
void ScriptRunFailure(Game& game, const char* description, int number);
