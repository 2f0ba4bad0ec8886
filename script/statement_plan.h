// Plans: a precompiled form of plain statements, so that a run reads their
// operands and combines them without copying them into the work table and
// sweeping it.
//
// A plain statement is one operand, or operands joined by binary operators
// (arithmetic, comparisons, And, Or, Xor). Its operands are numbers,
// variables that read as a number and change nothing when read, and list
// functions (Highest, Lowest, Average, StdDev, Sum, Count) whose bracket
// group holds only such operands and filters. On such a statement every
// sweep of the interpreter finds the same kinds in the same places whatever
// the values, so the order in which the sweeps combine the operands is
// fixed. PlanStatements works it out once, by sweeping the slots of the
// operands and operators as the interpreter sweeps elements; a run then
// reads the operands and combines them in that order.
//
// What must stay true:
// - A plan gives what the sweeps give: the same value, the same notes and
//   the same failures in the same order. Its operands read nothing that
//   changes the game or the run (rnd, the clock, notes), so reading them all
//   before combining any, as the sweeps do, gives the same values.
// - A plan's comparisons are swept only in a condition: outside one, a
//   statement with a comparison runs through the sweeps.
// - Plans, PlanOperands and PlanSteps describe AllCompiled as it stands;
//   they are remade with Shapes.
// - No keyword statement (If, Then, GoTo, a label ...) has a plan, so the
//   interpreter tries a statement's plan before it reads the statement.
#pragma once

#include <cstdint>

#include "script/code_state.h"
#include "script/interpreter.h"
#include "script/run_state.h"

struct Game;

// Most operands a plan takes; a longer statement runs through the sweeps.
inline constexpr int kPlanOperandLimit = 16;

// Remakes the plans of every plain statement of AllCompiled, and the Plan
// of each statement's shape (Shapes must have their counts).
void PlanStatements(ScriptRunState& run);

// Two numbers combined by a binary operator other than &: what the sweeps'
// Combine and Compare give for two numbers. One switch, so that a plan's
// step jumps straight to its operator.
inline double CombineNumbers(Game& game, double left, std::int32_t op, double right) {
  // Whole numbers (truth values) need no rounding for And, Or and Xor.
  constexpr double kLongLow = -2147483648.5, kLongHigh = 2147483647.5;
  switch (op) {
    case kTimes: return left * right;  // as AutoBetMath
    case kPlus: return left + right;
    case kMinus: return left - right;
    case kEqual:
    case kNotEqual:
    case kLess:
    case kGreater:
    case kLessEqual:
    case kGreaterEqual:
      return CompareNumbers(left, op, right);
    case kAnd:
    case kOr:
    case kXor:
      if (left > kLongLow && left < kLongHigh && right > kLongLow && right < kLongHigh) {
        const auto a = static_cast<std::int32_t>(left), b = static_cast<std::int32_t>(right);
        if (a == left && b == right) return op == kAnd ? a & b : op == kOr ? a | b : a ^ b;
      }
      return AutoBetCompare(game, left, op, right);
    default: break;
  }
  if (op >= kPower && op <= kMinus) return AutoBetMath(game, left, op, right);
  return AutoBetCompare(game, left, op, right);
}
