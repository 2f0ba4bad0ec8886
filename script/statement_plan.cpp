#include "script/statement_plan.h"

#include <cstddef>
#include <vector>

#include "core/game.h"
#include "script/compile_common.h"

namespace {

constexpr int kFirstListFunction = 126;  // Highest
constexpr int kLastListFunction = 131;   // Count
constexpr int kBetQualifiers = 4;
constexpr int kFieldAmount = 33;  // the statistic field of a bet's present amount
constexpr int kClassWagers = 1;

bool IsQualifier(std::int32_t kind) { return kind <= kPlayerRef && kind >= kStatField; }

bool IsBinary(std::int32_t kind) {
  return IsComparison(kind) || IsMath(kind) || kind == kAnd || kind == kOr || kind == kXor;
}

// Variables read as a number with nothing else happening: not the texts,
// the random number, the clocks, the dice file's (a note) nor the points'
// (a note when out of limits).
bool ReadsPlainNumber(int v) {
  if (v >= 1 && v <= 85) return true;
  if (v >= 86 && v <= 999) return v < 800 || v > 899;
  if (v >= 3000 && v <= 3999)
    return !(v >= 3005 && v <= 3007) && v != 3693 && v != 3696 && v != 3698;
  return false;
}

struct Builder {
  const std::vector<ScriptElement>& s;
  std::size_t end;  // one behind the statement
  std::vector<PlanOperand>& out;

  const ScriptElement* At(std::size_t k) const { return k < end ? &s[k] : nullptr; }

  // The operand at `k`, appended to `out`; the index behind it, or 0 when
  // it is not one a plan takes.
  std::size_t Operand(std::size_t k, bool inGroup) {
    const ScriptElement* e = At(k);
    if (e == nullptr) return 0;
    if (e->Kind == kNumber) {
      out.push_back({.Source = kPlanNumber, .At = static_cast<std::int32_t>(k), .Value = e->Value});
      return k + 1;
    }
    if (e->Kind == kVariable) return Variable(k);
    if (e->Kind == kFunction && !inGroup) return ListFunction(k);
    return 0;
  }

  // A variable with as many qualifiers as the run's read takes.
  std::size_t Variable(std::size_t k) {
    const int v = Code(s[k].Value);
    if (!ReadsPlainNumber(v)) return 0;
    int q = 0;
    if (v <= kLastRealBet) {
      while (q < kBetQualifiers && At(k + 1 + q) != nullptr && IsQualifier(s[k + 1 + q].Kind)) ++q;
      if (q == kBetQualifiers && Code(s[k + 4].Value) == kFieldAmount &&
          Code(s[k + 3].Value) == kClassWagers) {
        const int seat = Code(s[k + 1].Value);
        out.push_back({.Source = kPlanBetAmount,
                       .At = static_cast<std::int32_t>(k),
                       .Bet = v,
                       .Seat = seat >= 0 && seat <= 8 ? seat : -1,
                       .Value = s[k + 1].Value});
        return k + 1 + q;
      }
    }
    if (q != kBetQualifiers) {
      const int cls = VariableClass(v);
      q = 0;
      while (q < cls && At(k + 1 + q) != nullptr && IsQualifier(s[k + 1 + q].Kind)) ++q;
    }
    out.push_back({.Source = kPlanVariable, .At = static_cast<std::int32_t>(k)});
    return k + 1 + q;
  }

  // A list function whose group is items and filters (a comparison and an
  // operand) between commas, closed by the empty element. The group's
  // elements follow the function in `out`, as many as its Bet says.
  std::size_t ListFunction(std::size_t k) {
    const int n = Code(s[k].Value);
    if (n < kFirstListFunction || n > kLastListFunction) return 0;
    const ScriptElement* open = At(k + 1);
    if (open == nullptr || open->Kind != kOpen) return 0;
    const std::size_t head = out.size();
    out.push_back({.Source = kPlanAggregate, .At = static_cast<std::int32_t>(k)});
    std::size_t j = k + 2;
    for (;;) {
      const ScriptElement* e = At(j);
      if (e == nullptr) return 0;
      if (IsComparison(e->Kind))
        out.push_back({.Source = kPlanElement, .At = static_cast<std::int32_t>(j++)});
      j = Operand(j, true);
      if (j == 0 || At(j) == nullptr) return 0;
      if (s[j].Kind == kEmpty) break;
      if (s[j].Kind != kComma) return 0;
      out.push_back({.Source = kPlanElement, .At = static_cast<std::int32_t>(j++)});
    }
    const ScriptElement* close = At(j + 1);
    if (close == nullptr || close->Kind != kClose) return 0;
    out[head].Bet = static_cast<std::int32_t>(out.size() - head - 1);
    return j + 2;
  }
};

// The binary operators of a level, as one sweep takes them.
struct Level {
  std::int32_t a, b;
  bool Holds(std::int32_t op) const { return a == kEqual ? IsComparison(op) : op == a || op == b; }
};
constexpr Level kLevels[] = {{kPower, kPower}, {kTimes, kDivide}, {kIntDivide, kIntDivide},
                             {kMod, kMod},     {kPlus, kMinus},   {kEqual, kEqual},
                             {kAnd, kAnd},     {kOr, kOr},        {kXor, kXor}};

// The kinds that head a keyword statement, which the interpreter's switch
// runs and a plan never does.
bool IsKeyword(std::int32_t kind) {
  return (kind >= kIf && kind <= kExitDo) || kind == kHead || kind == kLabel;
}

// How many comparisons the expression of `count` operands joined by `ops`
// is when it is comparisons joined by And, else 0. Its value is then true
// exactly when every comparison holds, and a run stops at the first that
// does not: only a list function can leave a note (Average of nothing), so
// one may stand in the first comparison alone, which is always figured.
int AllOf(const std::int32_t* ops, const bool* aggregates, int count) {
  if (count % 2 != 0) return 0;
  for (int i = 0; i + 1 < count; ++i)
    if (i % 2 == 0 ? !IsComparison(ops[i]) : ops[i] != kAnd) return 0;
  for (int i = 2; i < count; ++i)
    if (aggregates[i]) return 0;
  return count / 2;
}

// The plan of the expression [start, end): its operands and the steps that
// combine them, added to the plan tables; false when it is not plain. The
// element at `end` must end a variable's qualifiers (a mark or a
// comparison), as it does in the work table.
bool PlanExpression(ScriptRunState& run, std::size_t start, std::size_t end, StatementPlan& plan) {
  if (end >= run.AllCompiled.size()) return false;
  const ScriptElement& behind = run.AllCompiled[end];
  if (!IsMark(behind) && !IsComparison(behind.Kind)) return false;
  const std::size_t firstOperand = run.PlanOperands.size();
  Builder b{run.AllCompiled, end, run.PlanOperands};
  std::int32_t ops[kPlanOperandLimit];
  std::int32_t slots[kPlanOperandLimit];
  bool aggregates[kPlanOperandLimit];
  int count = 0;
  bool compares = false;
  std::size_t k = start;
  for (;;) {
    if (count == kPlanOperandLimit) return false;
    const std::size_t first = run.PlanOperands.size();
    k = b.Operand(k, false);
    if (k == 0) return false;
    aggregates[count] = run.PlanOperands[first].Source == kPlanAggregate;
    slots[count] = count;
    ++count;
    if (k == end) break;
    const std::int32_t op = run.AllCompiled[k++].Kind;
    if (!IsBinary(op)) return false;
    compares = compares || IsComparison(op);
    ops[count - 1] = op;
  }
  // The sweeps, level by level, left to right: each operator combines the
  // operands on either side into the left one.
  plan.FirstOperand = static_cast<std::int32_t>(firstOperand);
  plan.Operands = static_cast<std::int32_t>(run.PlanOperands.size() - firstOperand);
  plan.FirstStep = static_cast<std::int32_t>(run.PlanSteps.size());
  plan.Compares = compares;
  plan.Comparisons = AllOf(ops, aggregates, count);
  for (const Level& level : kLevels) {
    for (int i = 0; i + 1 < count;) {
      if (!level.Holds(ops[i])) {
        ++i;
        continue;
      }
      run.PlanSteps.push_back({slots[i], ops[i], slots[i + 1]});
      for (int j = i + 1; j + 1 < count; ++j) {
        slots[j] = slots[j + 1];
        ops[j - 1] = ops[j];
      }
      --count;
    }
  }
  plan.Steps = static_cast<std::int32_t>(run.PlanSteps.size()) - plan.FirstStep;
  return true;
}

// Elements no sweep outside a condition changes: targets and their
// qualifiers, commas, list keywords and their terminators, comparisons
// (swept only in a condition), written numbers and texts, and brackets
// around such elements (which the sweeps only drop).
bool Untouched(const ScriptElement& e) {
  const std::int32_t k = e.Kind;
  return k == kVariableTarget || IsQualifier(k) || k == kComma || k == kList || k == kEmpty ||
         IsComparison(k) || k == kNumber || k == kString || k == kOpen || k == kClose;
}

// The plan of an action or assignment [start, end) whose one expression is
// plain and holds no comparison, everything around it untouched: an action
// with its value right behind it and up to the first comparison, or targets
// and the value behind the last comparison. Outside a condition the sweeps
// leave the statement as it is with the value in the expression's place.
bool PlanTargets(ScriptRunState& run, std::size_t start, std::size_t end, StatementPlan& plan) {
  const auto& s = run.AllCompiled;
  // The comparison that parts value and targets stands outside brackets (a
  // list function's filter or a target list's qualifier is inside them).
  int depth = 0;
  auto parts = [&](std::size_t k) {
    depth += s[k].Kind == kOpen ? 1 : s[k].Kind == kClose ? -1 : 0;
    return depth == 0 && IsComparison(s[k].Kind);
  };
  std::size_t from = start + 1, to = start + 1;
  if (s[start].Kind == kAction) {
    while (to < end && !parts(to)) ++to;
  } else {
    from = to = end;
    while (from > start && !parts(from - 1)) --from;
    if (from == start) return false;  // no comparison: not an assignment
  }
  if (from == to) return false;  // no value
  for (std::size_t k = start; k < end; ++k) {
    const bool action = k == start && s[k].Kind == kAction;
    if ((k < from || k >= to) && !action && !Untouched(s[k])) return false;
  }
  if (!PlanExpression(run, from, to, plan) || plan.Compares) return false;
  plan.Targets = true;
  plan.ValueFrom = static_cast<std::int32_t>(from - start);
  plan.ValueTo = static_cast<std::int32_t>(to - start);
  return true;
}

}  // namespace

void PlanStatements(ScriptRunState& run) {
  run.Plans.clear();
  run.PlanOperands.clear();
  run.PlanSteps.clear();
  const auto& s = run.AllCompiled;
  for (std::size_t k = 0; k < s.size(); ++k) {
    StatementShape& shape = run.Shapes[k];
    if (shape.Count == 0 || (k > 0 && run.Shapes[k - 1].Count == shape.Count + 1)) continue;
    if (IsKeyword(s[k].Kind)) continue;
    const std::size_t operands = run.PlanOperands.size(), steps = run.PlanSteps.size();
    const std::size_t end = k + static_cast<std::size_t>(shape.Count);
    StatementPlan plan;
    bool planned = PlanExpression(run, k, end, plan);
    if (!planned) {
      run.PlanOperands.resize(operands);
      run.PlanSteps.resize(steps);
      plan = StatementPlan{};
      planned = PlanTargets(run, k, end, plan);
    }
    if (planned) {
      run.Plans.push_back(plan);
      shape.Plan = static_cast<std::int32_t>(run.Plans.size());
    } else {
      run.PlanOperands.resize(operands);
      run.PlanSteps.resize(steps);
    }
  }
}
