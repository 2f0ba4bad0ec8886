// The operators of the language on numbers and texts, and the run-time
// failure that ends a run.
#include <cmath>
#include <string>

#include "core/game.h"
#include "core/text.h"
#include "script/interpreter.h"
#include "script/script_text.h"

namespace {

constexpr double kTrue = -1;
constexpr double kFalse = 0;

}  // namespace

bool RoundToLong(double value, std::int32_t& out) {
  if (!(value > -2147483648.5 && value < 2147483647.5)) return false;
  // A whole number (a truth value, a count) needs no rounding.
  const auto whole = static_cast<std::int32_t>(value);
  if (whole == value) {
    out = whole;
    return true;
  }
  const double r = std::nearbyint(value);
  if (r < -2147483648.0 || r > 2147483647.0) return false;
  out = static_cast<std::int32_t>(r);
  return true;
}

void ScriptRunFailure(Game& game, const char* description, int number) {
  ScriptRunState& r = game.scriptRun;
  if (r.RunFailed) return;
  r.RunFailed = true;
  r.ErrorText = std::string(description) + ", Error #" + std::to_string(number) +
                " occurred, at: Auto-bet run";
  AddStepNote(game, description);
}

double AutoBetCompare(Game& game, double left, int op, double right) {
  if (op >= kEqual && op <= kGreaterEqual) return CompareNumbers(left, op, right);
  std::int32_t a = 0, b = 0;
  if (!RoundToLong(left, a) || (op != kNot && !RoundToLong(right, b))) {
    ScriptRunFailure(game, "Overflow", 6);
    return kFalse;
  }
  switch (op) {
    case kNot:
      return ~a;
    case kAnd:
      return a & b;
    case kOr:
      return a | b;
    case kXor:
      return a ^ b;
    default:
      return kFalse;
  }
}

double AutoBetMath(Game& game, double left, int op, double right) {
  switch (op) {
    case kPower:
      return std::pow(left, right);
    case kTimes:
      return left * right;
    case kDivide:
      if (right == 0) {
        AddStepNote(game, "Division by zero.");
        return 0;
      }
      return left / right;
    case kPlus:
      return left + right;
    case kMinus:
      return left - right;
    default:
      break;
  }
  std::int32_t a = 0, b = 0;
  if (!RoundToLong(left, a) || !RoundToLong(right, b)) {
    ScriptRunFailure(game, "Overflow", 6);
    return 0;
  }
  if (b == 0) {
    AddStepNote(game, "Division by zero.");
    return 0;
  }
  if (b == -1) return op == kIntDivide ? -static_cast<double>(a) : 0;  // INT_MIN \ -1 fits a double
  return op == kIntDivide ? a / b : a % b;
}

double AutoBetCompareStrings(Game& game, const ScriptElement& left, int op,
                             const ScriptElement& right) {
  ScriptRunState& r = game.scriptRun;
  ElementText(game, left, r.TextB);
  ElementText(game, right, r.TextC);
  for (char& c : r.TextB) c = LowerChar(c);
  for (char& c : r.TextC) c = LowerChar(c);
  const int c = r.TextB.compare(r.TextC);
  return AutoBetCompare(game, c, op, 0);
}
