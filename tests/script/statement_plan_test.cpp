// Plain conditions run by their precompiled plans must give what the sweeps
// give. The same random condition is run bare (by its plan) and inside
// brackets (which no plan takes, so the sweeps reduce it): the branch taken,
// every step note (divisions by zero, "Condition is true") and the run-time
// failure must agree.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "core/catalogue.h"
#include "engine/players.h"
#include "script/activation.h"
#include "script/interpreter.h"
#include "script_test_util.h"
#include "tests/engine/roll_fixture.h"

namespace {

constexpr int kCases = 400;
constexpr int kMostOperands = 6;

struct Outcome {
  double branch = 0;
  std::vector<std::string> notes;
  std::string error;
  int plans = 0;
};

class StatementPlan : public RollFixture {
 protected:
  StatementPlan() {
    SeatPlayer(g, 1, "Ann", 1000_usd);
    ScriptSource& src = g.scriptSource;
    g.scriptRun.ShowSteps = true;
    src.EditorOpen = true;
    src.EdPlayer = 1;
    g.Point = 6;
  }

  // Runs `If condition Then cs9 = 1 Else cs9 = 2 EndIf` from fixed stacks.
  Outcome Run(const std::string& condition) {
    const std::string text = "If " + condition + " Then cs9 = 1 Else cs9 = 2 EndIf";
    g.scriptSource.ScriptLines[1] = script_test::Lines(text);
    g.scriptSource.EdLines = g.scriptSource.ScriptLines[1];
    g.Bet(1, 101) = 3_usd;
    g.Bet(1, 102) = 0_usd;
    g.Bet(1, 103) = Currency::FromRaw(75'000);  // 7.5
    g.Bet(1, 109) = 0_usd;
    g.Bet(1, PlaceId(6)) = 12_usd;
    platform.steps.clear();
    SetScriptActive(g, 1, true);
    Outcome out;
    if (!InitializeScripts(g)) {
      ADD_FAILURE() << condition << ": " << g.scriptRun.FailedMessage;
      return out;
    }
    out.branch = g.Bet(1, 109).ToDouble();
    for (const ScriptStep& step : platform.steps) out.notes.push_back(step.note);
    out.error = g.scriptRun.ErrorText;
    out.plans = static_cast<int>(g.scriptRun.Plans.size());
    g.scriptRun.ErrorText.clear();
    SetScriptActive(g, 1, false);
    return out;
  }
};

TEST_F(StatementPlan, RandomConditionsGiveWhatTheSweepsGive) {
  const std::vector<std::string> operands = {
      "0", "1", "2", "3", "2.5", "7", "3000000000", "cs1", "cs2", "cs3", "place6", "point",
      "count(> 0, cs1, cs2, cs3)", "sum(cs1, cs3)", "average(> 5, cs1, cs2)", "highest(cs2, cs3)"};
  const std::vector<std::string> operators = {"^",  "*", "/",  "\\", "mod", "+",   "-",  "=", "<>",
                                              "<",  ">", "<=", ">=", "and", "or",  "xor"};
  std::mt19937 rng(2024);
  auto pick = [&](const std::vector<std::string>& from) {
    return from[std::uniform_int_distribution<std::size_t>(0, from.size() - 1)(rng)];
  };
  int failures = 0, divisions = 0, taken = 0;
  for (int c = 0; c < kCases; ++c) {
    std::string condition = pick(operands);
    // A lone number after If reads as a label: two operands at least.
    const int n = std::uniform_int_distribution<int>(2, kMostOperands)(rng);
    for (int k = 1; k < n; ++k) condition += " " + pick(operators) + " " + pick(operands);
    const Outcome planned = Run(condition);
    const Outcome swept = Run("(" + condition + ")");
    ASSERT_GT(planned.plans, 0) << condition;  // the bare condition has a plan
    ASSERT_EQ(swept.plans, 0) << condition;    // and the bracketed one none
    EXPECT_EQ(planned.branch, swept.branch) << condition;
    EXPECT_EQ(planned.notes, swept.notes) << condition;
    EXPECT_EQ(planned.error, swept.error) << condition;
    failures += !swept.error.empty();
    taken += swept.branch == 1;
    for (const std::string& note : swept.notes) divisions += note.find("Division by zero.") != std::string::npos;
  }
  // The cases reach both branches, the overflow and division by zero.
  EXPECT_GT(failures, 0);
  EXPECT_GT(divisions, 0);
  EXPECT_GT(taken, 0);
  EXPECT_LT(taken, kCases - failures);
}

}  // namespace
