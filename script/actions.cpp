// SetTarget and the actions on targets (assignments and actions 450 to 489).
#include "script/actions.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <string>

#include "automation/autoplay.h"
#include "dice/rng.h"
#include "core/game.h"
#include "core/text.h"
#include "core/money.h"
#include "engine/place.h"
#include "script/compile_common.h"
#include "script/interpreter.h"
#include "script/script_text.h"
#include "script/variables.h"

namespace {

constexpr int kFirstTableTarget = 3000;  // targets from here on have no player
constexpr double kMinRollsPerHour = 0.0001;
constexpr double kMaxRollsPerHour = 36'000'000;
// The largest count of units a rounding works on: an amount, less a margin.
constexpr double kMaxRoundedUnits = 9e14;

ScriptElement& Work(Game& g, int position) {
  return g.scriptRun.WorkStatement[static_cast<std::size_t>(position)];
}

// A value as a number: a string through Val.
double NumberOf(Game& g, const ScriptElement& value) {
  if (value.Kind != kString) return value.Value;
  ElementText(g, value, g.scriptRun.TextC);
  return TextValue(g.scriptRun.TextC);
}

// The winning- or losing-bet rule a value names (1..8), or its number.
double HandlingRule(Game& g, const ScriptElement& value, bool winning) {
  if (value.Kind != kString) return value.Value;
  ElementText(g, value, g.scriptRun.TextC);
  const std::string name = LowerCase(g.scriptRun.TextC);
  if (winning) {
    if (name == "manual") return 1;
    if (name == "take bet and winnings") return 2;
    if (name == "same bet/take winnings" || name == "same bet / take winnings" ||
        name == "same bet")
      return 3;
    if (name == "press 1 unit") return 4;
    if (name == "press double") return 5;
    if (name == "parlay") return 6;
  } else {
    if (name == "manual") return 1;
    if (name == "no bet/take remainder (if any)" || name == "no bet / take remainder (if any)" ||
        name == "no bet" || name == "no bet/take remainder" || name == "no bet / take remainder")
      return 2;
    if (name == "same bet") return 3;
    if (name == "bet remainder (if any)" || name == "bet remainder") return 4;
    if (name == "same bet plus 1 unit") return 5;
    if (name == "double bet") return 6;
  }
  return TextValue(g.scriptRun.TextC);
}

void SetHandling(Game& g, int p, const ScriptElement& value, bool winning) {
  const double rule = HandlingRule(g, value, winning);
  std::int32_t n = 0;
  if (!(rule >= 1 && rule <= 8) || !RoundToLong(rule, n)) {
    AddStepNote(g, winning ? "Value out of limits for AutoHandle Winning Bets."
                           : "Value out of limits for AutoHandle Losing Bets.");
    return;
  }
  (winning ? g.autoplay.HandleWinningBets : g.autoplay.HandleLosingBets)(p) = n - 1;
}

}  // namespace

void SetTarget(Game& g, int position, const ScriptElement& value, bool absolute) {
  ScriptRunState& r = g.scriptRun;
  const int target = Code(Work(g, position).Value);
  const int bettor = r.ScriptBettor;
  int p = bettor;
  if (target < kFirstTableTarget) {
    const ScriptElement& q = Work(g, position + 1);
    if (q.Kind == kPlayerRef) p = ResolvePlayer(g, q.Value);
    if (p < 1 || p > 8 || g.PlayerName[static_cast<std::size_t>(p)].empty()) {
      AddStepNote(g, "There's not a player at position " + std::to_string(p) + ".");
      return;
    }
    if (p != bettor && !(bettor >= 1 && bettor <= 8 && r.AllowActForOthers(bettor))) {
      const std::string name =
          bettor >= 0 && bettor <= 8 ? g.PlayerName[static_cast<std::size_t>(bettor)] : "";
      AddStepNote(g, name + " is not allowed to perform actions for other players.\r"
                            "See Options - Permissions.");
      return;
    }
  }
  if ((target >= 1 && target <= 99) || (target >= 100 && target <= 199)) {
    // Setting a bet asks for the whole amount: the gate sees the new total,
    // as if the bet had been taken off and placed again.
    const Currency amount =
        std::clamp(CurFromDouble(NumberOf(g, value)), -kCheckStackLimit, kCheckStackLimit);
    g.BetRequest = absolute ? amount - g.Bet(p, target) : amount;
    PlaceBet(g, p, target);
    return;
  }
  if (target >= 800 && target <= 899) {
    ElementText(g, value, r.TextC);
    g.CheckStackName(p, target - 800) = r.TextC;
    return;
  }
  const double v = NumberOf(g, value);
  switch (target) {
    case 670:
    case 671:
      SetHandling(g, p, value, target == 670);
      break;
    case 700:
      ChangeAutoTakeFullOdds(g, p, v != 0);
      break;
    case 701:
      ChangeAutoLayFullOdds(g, p, v != 0);
      break;
    case 702:
      ChangeAutoDownPlaceBets(g, p, v != 0);
      break;
    case 703:
      g.autoplay.AutoPassDice(p) = v != 0;
      break;
    case 3603:
      if (v >= kMinRollsPerHour && v <= kMaxRollsPerHour)
        g.rules.RollsPerHour = CurFromDouble(v);
      else
        AddStepNote(g, "Rolls per hour value out of limits.");
      break;
    case 3655:
      g.BetRequest = CurFromDouble(v);
      if (!SeedRngWith(g, v)) AddStepNote(g, "Seed value out of limits.");
      break;
    case 3672: {
      std::int32_t n = 0;
      if (v >= 1 && v <= kRngCount && RoundToLong(v, n))
        g.dice.RngIndex = n - 1;
      else
        AddStepNote(g, "Reference to RNG out of limits.");
      break;
    }
    case 3691:
      // Held to the money any setting may hold, so that the game still saves and opens.
      g.rules.CompRate = std::clamp(CurFromDouble(v * 100), -kMoneyLimit, kMoneyLimit);
      break;
    default:
      break;
  }
}

ScriptElement ReadTargetValue(Game& g, int position) {
  const int target = Code(Work(g, position).Value);
  if (target >= 800 && target <= 899) {
    const ScriptElement& q = Work(g, position + 1);
    const int p = q.Kind == kPlayerRef ? ResolvePlayer(g, q.Value) : g.scriptRun.ScriptBettor;
    if (p < 0 || p > 8) return {kString, 0};
    return MakeRunString(g, g.CheckStackName(p, target - 800));
  }
  // A target's qualifiers are those of its present value.
  ScriptElement qualifiers[4] = {
      {kPlayerRef, static_cast<double>(g.scriptRun.ScriptBettor)}, {kFrame, 3}, {kStatClass, 1},
      {kStatField, 33}};
  const int cls = VariableClass(target);
  for (int k = 0; k < cls && k < 4; ++k) {
    const ScriptElement& q = Work(g, position + 1 + k);
    if (q.Kind > kPlayerRef || q.Kind < kStatField) break;
    qualifiers[k] = q;
  }
  return VariableValue(g, target, qualifiers);
}

void ActOnTarget(Game& g, int action, int position, const ScriptElement& value) {
  const int target = Code(Work(g, position).Value);
  const int bettor = g.scriptRun.ScriptBettor;
  switch (action) {
    case 0:
    case 481:
      SetTarget(g, position, value, true);
      return;
    case 482:
    case 483: {
      const double read = NumberOf(g, ReadTargetValue(g, position));
      const double by = NumberOf(g, value);
      const double result = action == 482 ? read * by : AutoBetMath(g, read, kDivide, by);
      SetTarget(g, position, {kNumber, result}, true);
      return;
    }
    case 484:
      SetTarget(g, position, value, false);
      return;
    case 485:
      SetTarget(g, position, {kNumber, -NumberOf(g, value)}, false);
      return;
    case 487:
    case 488:
    case 489: {
      const Currency unit = CurFromDouble(NumberOf(g, value));
      if (unit.IsZero()) return;
      const double read = NumberOf(g, ReadTargetValue(g, position));
      // The count of units is an amount, with room for the half and the one
      // unit the rounding adds; a count beyond that overflows, as an amount
      // out of range does anywhere in a run.
      const double units = read / unit.ToDouble();
      if (!(std::fabs(units) < kMaxRoundedUnits)) {
        ScriptRunFailure(g, "Overflow", 6);
        return;
      }
      const Currency q = CurFromDouble(units);
      if (IsWhole(q)) return;  // already on a multiple
      Currency whole = CurInt(q);
      if (action == 487) whole = CurInt(q + Currency::FromRaw(Currency::kScale / 2));
      if (action == 489) whole += Currency::FromWhole(1);
      SetTarget(g, position, {kNumber, whole.ToDouble() * unit.ToDouble()}, true);
      return;
    }
    case 460:
      SetTarget(g, position, target >= 800 ? ScriptElement{kString, 0} : ScriptElement{kNumber, 0},
                true);
      return;
    default:
      break;
  }
  if (bettor < 1 || bettor > 8 || target < 1 || target > kLastRealBet) return;
  switch (action) {
    case 450:
      BuyPlaceBet(g, bettor, target);
      break;
    case 451:
      CallBetOnOff(g, bettor, target, kToolCallOff, true);
      break;
    case 452:
      CallBetOnOff(g, bettor, target, kToolCallOn, true);
      break;
    case 453:
      ResetBetWorking(g, bettor, target);
      break;
    default:
      break;
  }
}
