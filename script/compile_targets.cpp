#include "script/compile_targets.h"

#include "core/game.h"
#include "script/compile_common.h"

namespace {

bool WritableVariable(int n) {
  if (n < 200 || (n >= 800 && n <= 999)) return true;
  switch (n) {
    case 3603:
    case 3691:
    case 3655:
    case 670:
    case 671:
    case 3672:
    case 700:
    case 701:
    case 702:
    case 703:
      return true;
    default:
      return false;
  }
}

double At(const std::vector<ScriptElement>& s, std::size_t i) {
  return i < s.size() ? s[i].Value : -1;
}

// Checks a variable target at i; false with the message set.
bool CheckVariableTarget(Game& game, std::size_t i, int actionCode, int targetCount) {
  const auto& s = game.scriptCode.CompiledScript;
  const int n = Code(s[i].Value);
  if (actionCode == 300 && targetCount == 3)
    return FailAt(game, i, "The swap command only works with two variables at a time.");
  if (n >= 1 && n <= 85) {
    const std::size_t h = SkipQualifiers(s, i + 1, 1);
    const double frame = At(s, h), cls = At(s, h + 1), field = At(s, h + 2);
    if (frame != 1 && frame != 3)
      return FailAt(game, i,
                    "Unable to set the value of a bet that is not in the current hand or session.");
    if (cls != 1) return FailAt(game, i, "Only able to set the 'wager' value of a bet.");
    if (field != 33) return FailAt(game, i, "Only able to set the current $ value of a bet.");
    return true;
  }
  if (WritableVariable(n)) return true;
  std::string text = Quote(VariableName(n));
  text += " is a read-only variable and cannot be assigned a value.";
  if (n == 654)
    text +=
        "\r\rInitial bankroll is set on the Configuration screen.  However, you can make \r"
        "adjustments to your bankroll, utilizing these commands:\r\r     - ATM withdraw X\r"
        "     - ATM deposit X";
  return FailAt(game, i, text);
}

}  // namespace

bool MarkTargets(Game& game) {
  auto& s = game.scriptCode.CompiledScript;
  bool inAction = true;
  bool targetDone = false, skipStatement = false, skipToAssign = false;
  int targetCount = 0, actionCode = 0;
  for (std::size_t i = 1; i < s.size(); ++i) {
    ScriptElement& e = s[i];
    if (IsMark(e)) {
      targetDone = skipStatement = skipToAssign = false;
      targetCount = actionCode = 0;
      continue;
    }
    if (e.Kind == kHead) continue;
    if (skipToAssign) {
      if (e.Kind == kEqual) skipToAssign = false;
      continue;
    }
    if (e.Kind == kEqual && s[i - 1].Kind != kOpen && s[i - 1].Kind != kComma) {
      skipStatement = true;
      continue;
    }
    if (e.Kind == kLabel && !inAction)
      return FailAt(game, i,
                    "Improper placement of label.\rLabels cannot appear with condition lines.");
    if (e.Kind == kList) {
      if (e.Value == 2 && inAction)
        return FailAt(
            game, i,
            "Improper use of list.\r\rLists defined by the keyword \"Any\"\rcannot be used "
            "with action commands.");
      continue;
    }
    if (skipStatement) continue;
    if (e.Kind == kIf || e.Kind == kElseIf) {
      inAction = false;
      continue;
    }
    if (e.Kind == kThen) {
      inAction = true;
      continue;
    }
    if (e.Kind == kAction) {
      actionCode = Code(e.Value);
      if (actionCode >= 481 && actionCode <= 489)
        skipToAssign = true;
      else if (!((actionCode >= 450 && actionCode <= 480) || actionCode == 300))
        skipStatement = true;
      continue;
    }
    if (IsLogicWord(e.Kind) || !inAction) continue;
    if (e.Kind == kComma) {
      targetDone = false;
      continue;
    }
    if (IsComparison(e.Kind)) {
      targetDone = true;
      continue;
    }
    if (targetDone) continue;
    if (e.Kind == kFunction) {
      targetDone = true;
      ++targetCount;
      const int n = Code(e.Value);
      if (n >= 100 && n != 700 && n != 800) {
        std::string text = Quote(FunctionName(n));
        text += " is a read-only function and cannot be assigned a value.";
        return FailAt(game, i, std::move(text));
      }
      e.Kind = kFunctionTarget;
    } else if (e.Kind == kVariable) {
      targetDone = true;
      ++targetCount;
      if (!CheckVariableTarget(game, i, actionCode, targetCount)) return false;
      e.Kind = kVariableTarget;
    }
  }
  return true;
}
