#include "script/interpreter.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>

#include "core/game.h"
#include "core/platform.h"
#include "script/actions.h"
#include "script/compile_common.h"
#include "script/list_tally.h"
#include "script/script_text.h"
#include "script/statement_plan.h"
#include "script/variables.h"

namespace {

constexpr double kTrue = -1;
constexpr double kFalse = 0;
constexpr double kNoItemYet = -2;        // a list result before any item counted
constexpr int kAnyList = 2;              // list keyword Value: Any (3 is All)
constexpr std::uint32_t kRunFloorMs = 300;  // a run outside Hyper-Drive takes this long at least
constexpr int kHyperDriveEventEvery = 1024;  // statements between event pumps in Hyper-Drive

// A bit for each kind the sweeps look for: operators 50 to 75, then
// functions, variables, list keywords and brackets.
constexpr std::uint64_t KindBit(std::int32_t kind) {
  if (kind >= kEqual && kind <= kComma) return std::uint64_t{1} << (kind - kEqual);
  if (kind == kFunction || kind == kFunctionTarget) return std::uint64_t{1} << 40;
  if (kind == kVariable) return std::uint64_t{1} << 41;
  if (kind == kList) return std::uint64_t{1} << 42;
  if (kind == kOpen || kind == kClose) return std::uint64_t{1} << 43;
  return 0;
}
constexpr std::uint64_t kComparisonBits = std::uint64_t{0x3F};  // kinds 50 to 55

bool IsNumber(const ScriptElement& e) { return e.Kind == kNumber; }
ScriptElement Number(double v) { return {kNumber, v}; }

// The operand side of a list walk that has an outer comparison.
struct Outer {
  int op = 0;
  ScriptElement operand;      // the other side, when it is one value
  bool operandLeft = false;   // operand op item, else item op operand
  int list = 0, term = 0;     // the other side, when it is a list
};

class Runner {
 public:
  explicit Runner(Game& game) : g_(game), r_(game.scriptRun) {}
  void Run();

 private:
  Game& g_;
  ScriptRunState& r_;
  ScriptElement* w_ = nullptr;  // WorkStatement's elements
  int hi_ = 0;                  // closing bound of the range being reduced
  bool inCondition_ = false;
  bool conditionTrue_ = false;
  bool notes_ = false;
  // The kinds the statement holds, a bit each (see KindBit): sweeps for
  // kinds it lacks are skipped. Reductions only remove operators, so the
  // set taken when the statement is copied stays a superset.
  std::uint64_t present_ = 0;
  bool Has(std::int32_t kind) const { return (present_ & KindBit(kind)) != 0; }
  // Every binary operator of kinds a or b in the range, when it has any.
  void Binary(int lo, std::int32_t a, std::int32_t b) {
    if (present_ & (KindBit(a) | KindBit(b))) BinarySweep(lo, a, b);
  }

  void Fill(int at, int n);
  void Execute(int at, const StatementShape& shape);
  bool RunPlan(int at, const StatementShape& shape);
  // The value of the plan operand at `o`, which then moves past it; the
  // common operands are read here, in the plan's loop.
  double ReadOperand(const PlanOperand*& o, int count) {
    const PlanOperand& x = *o++;
    if (x.Source == kPlanBetAmount) return BetAmount(x);
    if (x.Source == kPlanNumber) return x.Value;
    return ReadOtherOperand(x, o, count);
  }
  double ReadOtherOperand(const PlanOperand& x, const PlanOperand*& o, int count);
  double ListFunction(const PlanOperand* o, int n);
  double ListFunctionInTable(const PlanOperand* o, int n);
  // The amount on a plan's bet: a seat's own code needs no resolving.
  double BetAmount(const PlanOperand& o) const {
    const int p = o.Seat >= 0 ? o.Seat : ResolvePlayer(g_, o.Value);
    return p >= 1 && p <= 8 ? AmountValue(g_.Bet(p, o.Bet)) : 0;
  }
  void Note(const char* text) {
    if (notes_) AddStepNote(g_, text);
  }
  void ShowStep();

  void Remove(int at, int n);
  void CloseUp(int to, int from);
  void ReadVariables(int lo);
  ScriptElement Combine(const ScriptElement& left, std::int32_t op, const ScriptElement& right);
  void Reduce();
  void ReduceRange(int lo);
  void BinarySweep(int lo, std::int32_t a, std::int32_t b);
  void Comparisons(int lo);
  void ComparisonSweep(int lo);
  double Compare(const ScriptElement& left, int op, const ScriptElement& right);
  bool Passes(const ScriptElement& item, int op, const ScriptElement& qualifier);
  int ListEnd(int list) const;
  double WalkList(int list, int term, const Outer* outer);
  void ResolveList(int list);

  void Expression();
  void ExpressionEnd();
  void WalkTargets(int from, int to, int action, const ScriptElement& value);
  bool TargetPasses(int at, int op, const ScriptElement& qualifier);
};

void Runner::Remove(int at, int n) {
  n = std::min(n, r_.WorkCount + 1 - at);  // never the closing bound
  if (n <= 0) return;
  // The bound behind the statement moves too.
  const int end = r_.WorkCount + 1 - n;
  for (int k = at; k <= end; ++k) w_[k] = w_[k + n];
  r_.WorkCount -= n;
  hi_ -= n;
}

// Moves the elements from `from` to the statement's closing bound down to
// `to`, as Remove(to, from - to) does.
void Runner::CloseUp(int to, int from) {
  const int n = from - to;
  if (n <= 0) return;
  const int end = r_.WorkCount + 1;
  for (int k = from; k <= end; ++k) w_[k - n] = w_[k];
  r_.WorkCount -= n;
  hi_ -= n;
}

// Every variable of the range read in place, its qualifiers dropped; the
// range is closed up once, behind the last.
void Runner::ReadVariables(int lo) {
  int to = lo + 1, from = lo + 1;
  while (from < hi_) {
    if (w_[from].Kind == kVariable) {
      const int q = ReadVariable(g_, from);
      w_[to++] = w_[from];
      from += 1 + q;
    } else {
      w_[to++] = w_[from++];
    }
  }
  CloseUp(to, from);
}

// Copies the `n` elements of the statement at `at` into WorkStatement,
// between empty bounds.
void Runner::Fill(int at, int n) {
  auto& work = r_.WorkStatement;
  // A statement longer than the table grows it.
  while (work.size() < static_cast<std::size_t>(n + 2)) work.resize(work.size() + kWorkStatementGrowth);
  w_ = work.data();
  const auto& s = r_.AllCompiled;
  std::copy_n(&s[static_cast<std::size_t>(at)], n, w_ + 1);
  present_ = r_.Shapes[static_cast<std::size_t>(at)].Kinds;
  w_[0] = ScriptElement{};
  w_[n + 1] = ScriptElement{};
  r_.WorkCount = n;
}

// Bracket groups innermost first, then the whole statement as one range.
void Runner::Reduce() {
  for (; Has(kOpen);) {
    int open = 0, close = 0;
    for (int i = 1; i <= r_.WorkCount; ++i) {
      if (w_[i].Kind == kOpen) {
        open = i;
      } else if (w_[i].Kind == kClose) {
        close = i;
        break;
      }
    }
    if (close == 0 || r_.RunFailed) break;
    hi_ = close;
    ReduceRange(open);
    Remove(hi_, 1);
    Remove(open, 1);
  }
  if (r_.RunFailed) return;
  hi_ = r_.WorkCount + 1;
  ReduceRange(0);
}

// Two operands of a binary operator other than a comparison, combined.
ScriptElement Runner::Combine(const ScriptElement& left, std::int32_t op, const ScriptElement& right) {
  if (op == kConcat) {
    std::string& text = r_.TextA;
    ElementText(g_, left, text);
    ElementText(g_, right, r_.TextB);
    text += r_.TextB;
    return MakeRunString(g_, text);
  }
  return Number(CombineNumbers(g_, left.Value, op, right.Value));
}

// Every binary operator of kinds a or b, left to right, from the range's
// second element to the one before its last; each result takes its left
// operand's place and the range is closed up once, at the end.
void Runner::BinarySweep(int lo, std::int32_t a, std::int32_t b) {
  const int last = hi_ - 2;  // the last element that can be an operator
  int to = lo + 1;           // the element written last: the next left operand
  int from = lo + 2;
  while (from <= last) {
    const std::int32_t k = w_[from].Kind;
    if (k != a && k != b) {
      w_[++to] = w_[from++];
      continue;
    }
    w_[to] = Combine(w_[to], k, w_[from + 1]);
    from += 2;
  }
  CloseUp(to + 1, from);
}

void Runner::ReduceRange(int lo) {
  // Functions and variables: every element of the range.
  if (Has(kFunction)) {
    for (int i = lo + 1; i < hi_; ++i) {
      const std::int32_t k = w_[i].Kind;
      if (k == kFunction || k == kFunctionTarget) Remove(i + 1, EvaluateFunction(g_, i));
    }
  }
  if (Has(kVariable)) ReadVariables(lo);
  Binary(lo, kPower, kPower);
  // The sign: from the first element to the one before the last.
  for (int i = lo + 1; Has(kMinus) && i <= hi_ - 2; ++i) {
    if (w_[i].Kind == kMinus && !IsNumber(w_[i - 1]) && IsNumber(w_[i + 1])) {
      w_[i] = Number(-w_[i + 1].Value);
      Remove(i + 1, 1);
    }
  }
  Binary(lo, kTimes, kDivide);
  Binary(lo, kIntDivide, kIntDivide);
  Binary(lo, kMod, kMod);
  Binary(lo, kPlus, kMinus);
  Binary(lo, kConcat, kConcat);
  if (inCondition_ && (present_ & (kComparisonBits | KindBit(kList)))) Comparisons(lo);
  for (int i = lo + 1; Has(kNot) && i <= hi_ - 2; ++i) {
    if (w_[i].Kind == kNot && IsNumber(w_[i + 1])) {
      w_[i] = Number(AutoBetCompare(g_, w_[i + 1].Value, kNot, 0));
      Remove(i + 1, 1);
    }
  }
  Binary(lo, kAnd, kAnd);
  Binary(lo, kOr, kOr);
  Binary(lo, kXor, kXor);
}

double Runner::Compare(const ScriptElement& left, int op, const ScriptElement& right) {
  if (IsNumber(left) && IsNumber(right)) {
    const double a = left.Value, b = right.Value;
    return op >= kEqual && op <= kGreaterEqual ? CompareNumbers(a, op, b)
                                               : AutoBetCompare(g_, a, op, b);
  }
  return AutoBetCompareStrings(g_, left, op, right);
}

// An item against a list qualifier: numbers as doubles, strings by their
// exact texts (case counts).
bool Runner::Passes(const ScriptElement& item, int op, const ScriptElement& qualifier) {
  if (IsNumber(item) && IsNumber(qualifier))
    return AutoBetCompare(g_, item.Value, op, qualifier.Value) != 0;
  ElementText(g_, item, r_.TextB);
  ElementText(g_, qualifier, r_.TextC);
  const int c = r_.TextB.compare(r_.TextC);
  switch (op) {
    case kEqual:
      return c == 0;
    case kNotEqual:
      return c != 0;
    case kLess:
      return c < 0;
    case kGreater:
      return c > 0;
    case kLessEqual:
      return c <= 0;
    default:
      return c >= 0;
  }
}

int Runner::ListEnd(int list) const {
  int j = list + 1;
  while (j <= r_.WorkCount && w_[j].Kind != kEmpty) ++j;
  return j;
}

// Walks the items of the list keyword at `list` (terminator `term`) and
// gives its truth: All And-s the counted items, Any Or-s them.
double Runner::WalkList(int list, int term, const Outer* outer) {
  const bool any = Code(w_[list].Value) == kAnyList;
  double result = kNoItemYet;
  bool qualified = false;
  int qualifierOp = 0;
  int qualifierAt = 0;
  for (int j = list + 1; j < term && !r_.RunFailed; ++j) {
    const ScriptElement& item = w_[j];
    if (IsComparison(item.Kind)) {
      qualified = true;
      qualifierOp = item.Kind;
      qualifierAt = ++j;
      continue;
    }
    if (item.Kind == kComma) continue;
    if (qualified && !Passes(item, qualifierOp, w_[qualifierAt])) continue;
    double value = item.Value;
    if (outer != nullptr) {
      if (outer->list > 0) {
        Outer inner;
        inner.op = outer->op;
        inner.operand = item;
        inner.operandLeft = true;
        value = WalkList(outer->list, outer->term, &inner);
      } else {
        value = outer->operandLeft ? Compare(outer->operand, outer->op, item)
                                   : Compare(item, outer->op, outer->operand);
      }
    } else if (!IsNumber(item)) {
      value = kFalse;
    }
    const double start = result == kNoItemYet ? (any ? kFalse : kTrue) : result;
    result = AutoBetCompare(g_, start, any ? kOr : kAnd, value);
    if (any ? result == kTrue : result == kFalse) break;
  }
  return result == kNoItemYet ? kFalse : result;
}

// A list keyword left after the comparisons: with an outer comparison behind
// its terminator, the items are compared; otherwise they are their own
// values. The keyword, its items and the outer comparison become a number.
void Runner::ResolveList(int list) {
  const int term = ListEnd(list);
  int end = term;
  double result;
  if (term + 2 < hi_ && IsComparison(w_[term + 1].Kind)) {
    Outer outer;
    outer.op = w_[term + 1].Kind;
    if (w_[term + 2].Kind == kList) {
      outer.list = term + 2;
      outer.term = ListEnd(term + 2);
      end = outer.term;
    } else {
      outer.operand = w_[term + 2];
      end = term + 2;
    }
    result = WalkList(list, term, &outer);
  } else {
    result = WalkList(list, term, nullptr);
  }
  w_[list] = Number(result);
  Remove(list + 1, end - list);
}

// The comparisons of a range that holds no list keyword, left to right,
// closed up once at the end (as the general walk below does them).
void Runner::ComparisonSweep(int lo) {
  const int last = hi_ - 2;
  int to = lo + 1, from = lo + 2;
  while (from <= last && !r_.RunFailed) {
    const std::int32_t k = w_[from].Kind;
    const std::int32_t left = w_[to].Kind;
    if (!IsComparison(k) || left == kEmpty || left == kList || left == kComma) {
      w_[++to] = w_[from++];
      continue;
    }
    w_[to] = Number(Compare(w_[to], k, w_[from + 1]));
    from += 2;
  }
  CloseUp(to + 1, from);
}

void Runner::Comparisons(int lo) {
  if (!Has(kList)) {
    ComparisonSweep(lo);
    return;
  }
  for (int i = lo + 2; i <= hi_ - 2 && !r_.RunFailed;) {
    const std::int32_t k = w_[i].Kind;
    const std::int32_t left = w_[i - 1].Kind;
    // Behind the empty element, a list keyword or a comma a comparison is a
    // list's outer comparison or an item qualifier, resolved with its list.
    if (!IsComparison(k) || left == kEmpty || left == kList || left == kComma) {
      ++i;
      continue;
    }
    if (w_[i + 1].Kind == kList) {
      Outer outer;
      outer.op = k;
      outer.operand = w_[i - 1];
      outer.operandLeft = true;
      const int term = ListEnd(i + 1);
      w_[i - 1] = Number(WalkList(i + 1, term, &outer));
      Remove(i, term - i + 1);
      continue;
    }
    w_[i - 1] = Number(Compare(w_[i - 1], k, w_[i + 1]));
    Remove(i, 2);
  }
  for (int i = lo + 1; Has(kList) && i < hi_ && !r_.RunFailed; ++i)
    if (w_[i].Kind == kList) ResolveList(i);
}

// A target with a qualifier is acted on only when it passes: a bet or
// CheckStack by the bettor's amount on it, a name by its exact text.
bool Runner::TargetPasses(int at, int op, const ScriptElement& qualifier) {
  const int v = Code(w_[at].Value);
  ScriptElement present;
  if ((v >= 1 && v <= 199) && r_.ScriptBettor >= 1 && r_.ScriptBettor <= 8)
    present = Number(g_.Bet(r_.ScriptBettor, v).ToDouble());
  else
    present = ReadTargetValue(g_, at);
  return Passes(present, op, qualifier);
}

void Runner::WalkTargets(int from, int to, int action, const ScriptElement& value) {
  bool qualified = false;
  int op = 0;
  ScriptElement qualifier;
  for (int j = from; j <= to && r_.ScriptRunning && !r_.RunFailed; ++j) {
    const ScriptElement& e = w_[j];
    if (IsComparison(e.Kind)) {
      qualified = true;
      op = e.Kind;
      qualifier = w_[++j];
      continue;
    }
    if (e.Kind != kVariableTarget) continue;
    if (qualified && !TargetPasses(j, op, qualifier)) continue;
    ActOnTarget(g_, action, j, value);
  }
}

// An expression statement: a condition, an action or an assignment.
void Runner::Expression() {
  Reduce();
  if (r_.RunFailed) return;
  ExpressionEnd();
}

// What is left of an expression statement after its reduction: a truth
// value, an action, or targets and a value.
void Runner::ExpressionEnd() {
  if (inCondition_) {
    conditionTrue_ = r_.WorkCount >= 1 && w_[1].Value != 0;
    Note(conditionTrue_ ? "Condition is true" : "Condition is false");
    return;
  }
  const int n = r_.WorkCount;
  if (n == 0) return;
  if (w_[1].Kind == kAction) {
    const int action = Code(w_[1].Value);
    if (action >= 100 && action <= 399)
      TakeAction(g_, action);
    else if (action >= 481 && action <= 489 && n >= 4)
      WalkTargets(4, n, action, w_[2]);
    else if (action >= 450 && action <= 480)
      WalkTargets(2, n, action, ScriptElement{});
  } else if (n >= 3) {
    WalkTargets(w_[1].Kind == kList ? 2 : 1, n - 2, 0, w_[n]);
  }
  if (!notes_) return;
  std::string& note = r_.CurStepNote;
  if (!note.starts_with("Unable")) AddStepNote(g_, "Action taken.");
}

// The list function of a plan at `o` with its group: its items and filters
// read in order and tallied as the function in the work table tallies them.
double Runner::ListFunction(const PlanOperand* o, int n) {
  const ScriptElement* s = r_.AllCompiled.data();
  const int function = Code(s[o->At].Value);
  if (function == kStdDevFunction) return ListFunctionInTable(o, n);
  ListTally tally(function);
  const PlanOperand* end = o + 1 + o->Bet;
  for (++o; o < end;) {
    if (o->Source != kPlanElement) {
      tally.Item(ReadOperand(o, n));
      continue;
    }
    const std::int32_t kind = s[o->At].Kind;
    ++o;
    if (IsComparison(kind)) tally.Filter(kind, ReadOperand(o, n));  // else a comma
  }
  return tally.Result(g_);
}

// StdDev, which walks its items twice: the group's operands read into the
// work table behind the function, then the function on them.
double Runner::ListFunctionInTable(const PlanOperand* o, int n) {
  auto& work = r_.WorkStatement;
  while (work.size() < static_cast<std::size_t>(n + 2)) work.resize(work.size() + kWorkStatementGrowth);
  w_ = work.data();
  const ScriptElement* s = r_.AllCompiled.data();
  w_[0] = ScriptElement{};
  w_[1] = s[o->At];
  int k = 2;
  const PlanOperand* end = o + 1 + o->Bet;
  for (++o; o < end;) {
    if (o->Source == kPlanElement)
      w_[k++] = s[(o++)->At];
    else
      w_[k++] = Number(ReadOperand(o, n));
  }
  w_[k] = ScriptElement{};
  r_.WorkCount = k;
  EvaluateFunction(g_, 1);
  return w_[1].Value;
}

// Runs the statement by its plan; false when the plan does not
// apply (a comparison outside a condition).
// A plan operand that is neither a number nor a bet amount: a variable, or
// a list function with its group (behind which `o` is moved).
double Runner::ReadOtherOperand(const PlanOperand& x, const PlanOperand*& o, int count) {
  if (x.Source == kPlanAggregate) {
    o += x.Bet;
    return ListFunction(&x, count);
  }
  int q = 0;  // the qualifiers the read takes: fixed by the plan
  return VariableAt(g_, r_.AllCompiled.data() + x.At, q).Value;
}

bool Runner::RunPlan(int at, const StatementShape& shape) {
  const StatementPlan& plan = r_.Plans[static_cast<std::size_t>(shape.Plan - 1)];
  if (plan.Targets ? inCondition_ : plan.Compares && !inCondition_) return false;
  const PlanOperand* o = r_.PlanOperands.data() + plan.FirstOperand;
  if (plan.Comparisons > 0) {
    // Comparisons joined by And: true when all hold, so the first that does
    // not decides it and the rest are not read.
    const PlanStep* step = r_.PlanSteps.data() + plan.FirstStep;
    bool holds = true;
    for (int k = 0; k < plan.Comparisons && holds; ++k, ++step) {
      const double left = ReadOperand(o, shape.Count);
      holds = CompareNumbers(left, step->Op, ReadOperand(o, shape.Count)) != 0;
    }
    if (r_.RunFailed) return true;
    conditionTrue_ = holds;
    Note(conditionTrue_ ? "Condition is true" : "Condition is false");
    return true;
  }
  double value[kPlanOperandLimit];
  const ScriptElement* s = r_.AllCompiled.data();
  const PlanOperand* end = o + plan.Operands;
  for (double* v = value; o < end; ++v) *v = ReadOperand(o, shape.Count);
  const PlanStep* step = r_.PlanSteps.data() + plan.FirstStep;
  for (const PlanStep* last = step + plan.Steps; step < last; ++step)
    value[step->Left] = CombineNumbers(g_, value[step->Left], step->Op, value[step->Right]);
  if (r_.RunFailed) return true;
  if (inCondition_) {
    conditionTrue_ = value[0] != 0;
    Note(conditionTrue_ ? "Condition is true" : "Condition is false");
    return true;
  }
  // What the sweeps leave: the value in the place of its expression, the
  // rest of the statement as it stands but for its brackets.
  auto& work = r_.WorkStatement;
  while (work.size() < static_cast<std::size_t>(shape.Count + 2))
    work.resize(work.size() + kWorkStatementGrowth);
  w_ = work.data();
  w_[0] = ScriptElement{};
  ScriptElement* out = w_ + 1;
  auto keep = [&out](const ScriptElement* from, const ScriptElement* to) {
    for (; from < to; ++from)
      if (from->Kind != kOpen && from->Kind != kClose) *out++ = *from;
  };
  const ScriptElement* statement = s + at;
  if (plan.Targets) keep(statement, statement + plan.ValueFrom);
  *out++ = Number(value[0]);
  if (plan.Targets) keep(statement + plan.ValueTo, statement + shape.Count);
  *out = ScriptElement{};
  r_.WorkCount = static_cast<int>(out - (w_ + 1));
  ExpressionEnd();
  return true;
}

void Runner::ShowStep() {
  const ScriptSource& src = g_.scriptSource;
  if (!src.EditorOpen || src.EdPlayer != r_.ScriptBettor) return;
  ScriptStep step;
  step.player = r_.ScriptBettor;
  step.caption = "Auto-Bet Steps";
  if (r_.ScriptBettor > 0)
    step.caption += " (" + g_.PlayerName[static_cast<std::size_t>(r_.ScriptBettor)] + ")";
  step.note = r_.CurStepNote;
  // The span: from the mark before the statement to the mark that ends it.
  const auto& s = r_.AllCompiled;
  const int size = static_cast<int>(s.size());
  int end = std::clamp(r_.RunPos, 0, size - 1);
  while (end < size - 1 && !IsMark(s[static_cast<std::size_t>(end)])) ++end;
  int start = std::min(r_.RunPos, size) - 1;
  while (start > 0 && !IsMark(s[static_cast<std::size_t>(start)])) --start;
  if (IsMark(s[static_cast<std::size_t>(end)])) {
    step.endLine = MarkLine(s[static_cast<std::size_t>(end)]);
    step.endCol = Code(s[static_cast<std::size_t>(end)].Value);
  }
  if (start > 0) {
    step.startLine = MarkLine(s[static_cast<std::size_t>(start)]);
    step.startCol = Code(s[static_cast<std::size_t>(start)].Value);
  }
  r_.StepWaiting = true;
  if (!g_.platform->ShowScriptStep(step)) {
    r_.ScriptRunning = false;
    g_.KeepRolling = false;
  }
  r_.StepWaiting = false;
}

void Runner::Execute(int at, const StatementShape& shape) {
  // A statement with a plan is no keyword: its head need not be read.
  if (shape.Plan > 0 && RunPlan(at, shape)) return;
  // Keywords jump to the code their shape keeps (see IndexStatements).
  auto jump = [&] { r_.RunPos = shape.Target; };
  switch (shape.Head) {
    case kIf:
      inCondition_ = true;
      Note("Beginning of condition block.");
      break;
    case kThen:
      inCondition_ = false;
      if (conditionTrue_) {
        Note("Conditions were true, so next action block will be performed.\r"
             "End of condition block and beginning of action block.");
        break;
      }
      Note("Conditions were false, so next action block will be skipped.\r"
           "End of condition block and beginning of action block.");
      jump();
      if (r_.RunPos > 0 && r_.RunPos < static_cast<int>(r_.AllCompiled.size())) {
        switch (r_.AllCompiled[static_cast<std::size_t>(r_.RunPos)].Kind) {
          case kElse:
            Note("Beginning of last action block.");
            break;
          case kElseIf:
            inCondition_ = true;
            Note("Beginning of condition block.");
            break;
          default:
            Note("End of If/Then structure.");
            break;
        }
      }
      break;
    case kElse:
    case kElseIf:
      jump();
      Note("End of action block.");
      Note("End of If/Then structure.");
      break;
    case kEndIf:
      Note("End of If/Then structure.");
      break;
    case kGoTo:
      jump();
      Note("A jump will be made to the designated label.");
      Note("Label.");
      break;
    case kDo:
      Note("Beginning of DO/LOOP structure.");
      break;
    case kLoop:
      jump();
      Note("End of DO/LOOP structure.\rA jump will be made back to the associated DO statement.");
      break;
    case kExitDo:
      jump();
      Note("Exit from DO/LOOP structure.");
      break;
    case kGoSub: {
      auto& stack = r_.GosubStack;
      const int depth = stack[0] + 1;
      if (depth > kGosubDepthLimit) {
        ScriptRunFailure(g_, "Out of stack space", 28);
        break;
      }
      if (static_cast<std::size_t>(depth) >= stack.size()) stack.resize(stack.size() + kGosubStackGrowth);
      stack[0] = depth;
      stack[static_cast<std::size_t>(depth)] = r_.RunPos;
      jump();
      Note("A jump will be made to the designated subroutine.");
      Note("Label.");
      break;
    }
    case kReturn: {
      auto& stack = r_.GosubStack;
      if (stack[0] > 0) r_.RunPos = stack[static_cast<std::size_t>(stack[0]--)];
      Note("Return to place where subroutine was initiated.");
      break;
    }
    case kLabel:
      Note("Label.");
      break;
    case kHead:
      r_.ScriptBettor = shape.Target;
      if (r_.ScriptBettor == 0) r_.ScriptBettor = g_.betting.CurPlayer;
      break;
    default:
      Fill(at, shape.Count);
      Expression();
      break;
  }
}

void Runner::Run() {
  Platform& platform = *g_.platform;
  r_.GosubStack[0] = 0;
  r_.ScriptRunning = true;
  r_.RunFailed = false;
  r_.StatementsThisRun = 0;
  // The statement limit is counted here and written back when the run ends.
  const std::int64_t limit = r_.RunStatementLimit;
  std::int64_t statements = 0;
  const bool hyper = g_.HyperDrive;
  // Outside Hyper-Drive the status line reads "Hot-Key" or "Auto-Betting"
  // while the run lasts; the window shows it when it redraws the table.
  const std::uint32_t startMs = hyper ? 0 : platform.TimeGetTime();
  r_.RunStartSeconds = startMs / 1000.0;
  g_.msg.MsgAnswer = 1;
  const int poolSize = r_.AllStringsCount;
  r_.CurStepNote.clear();
  r_.RunPos = 1;
  inCondition_ = false;
  int untilEvents = kHyperDriveEventEvery;
  const int last = static_cast<int>(r_.AllCompiled.size()) - 1;
  if (r_.Shapes.size() != r_.AllCompiled.size()) IndexStatements(r_);

  static constexpr StatementShape kNone;
  while (true) {
    const int at = r_.RunPos;
    // Shapes match AllCompiled: they are remade whenever the scripts are
    // joined, even by an action in the middle of this run.
    const auto& shapes = r_.Shapes;
    const StatementShape& shape =
        static_cast<std::size_t>(at) < shapes.size() ? shapes[static_cast<std::size_t>(at)] : kNone;
    if (shape.Count > 0) {
      r_.RunPos = at + shape.Count;
      notes_ = r_.ShowSteps && !g_.HyperDrive;  // as StepNotesWanted
      Execute(at, shape);
      if (notes_ && r_.ScriptRunning && !r_.RunFailed) ShowStep();
      // Only a note makes the text longer than nothing.
      if (!r_.CurStepNote.empty()) r_.CurStepNote.clear();
      // The strings a statement made end with it (a name keeps its own
      // copy), so a loop that makes texts reuses the same pool entries
      // instead of growing the pool by one text a statement.
      r_.AllStringsCount = std::min(poolSize, r_.AllStringsCount);
      if (r_.RunFailed || !r_.ScriptRunning) break;
      if (limit > 0 && ++statements >= limit) {
        // The headless stand-in for the user who interrupts a run.
        r_.ScriptRunning = false;
        g_.KeepRolling = false;
        if (hyper) g_.StopMessage = "Auto-betting interrupted.";
        break;
      }
    }
    // Pending window events run between statements; in Hyper-Drive every
    // so many, as the roll loop's pacing does.
    if (!hyper || --untilEvents <= 0) {
      untilEvents = kHyperDriveEventEvery;
      platform.DoEvents();
      if (!r_.ScriptRunning) break;
    }
    if (r_.RunPos >= last) break;
    ++r_.RunPos;
  }

  r_.StatementsThisRun = statements;
  // Strings made during the run do not survive it; the entries keep their
  // buffers for the next run.
  r_.AllStringsCount = std::min(poolSize, r_.AllStringsCount);
  r_.ScriptRunning = false;
  if (hyper) return;
  if (r_.ShowSteps) {
    // The editor's selection goes back to the script's first line.
    platform.RequestRedraw(Redraw::Table);
  }
  // A run outside Hyper-Drive lasts at least 0.3 seconds from its start (a
  // dialog that closed moved the start back, before the clock's 0 when the
  // clock is young), or until the clock wraps. In doubles, which hold both.
  const double from = std::floor(r_.RunStartSeconds * 1000.0);
  for (;;) {
    const double now = platform.TimeGetTime();
    if (now < from || now - from >= kRunFloorMs) break;
    platform.DoEvents();
  }
  platform.RequestRedraw(Redraw::Table);
}

}  // namespace

void IndexStatements(ScriptRunState& run) {
  const auto& s = run.AllCompiled;
  run.Shapes.assign(s.size(), StatementShape{});
  // Back to front: a statement starting at k is element k and the one
  // starting behind it, up to a mark.
  StatementShape next;
  for (std::size_t k = s.size(); k-- > 0;) {
    StatementShape shape;
    if (!IsMark(s[k])) {
      shape.Count = next.Count + 1;
      shape.Kinds = next.Kinds | KindBit(s[k].Kind);
    }
    next = shape;
    // A function may become a variable.
    if (shape.Kinds & KindBit(kFunction)) shape.Kinds |= KindBit(kVariable);
    shape.Head = s[k].Kind;
    const bool jumpBehind = shape.Head == kGoTo || shape.Head == kGoSub;
    shape.Target = Code(!jumpBehind ? s[k].Value : shape.Count >= 2 ? s[k + 1].Value : 0.0);
    run.Shapes[k] = shape;
  }
  PlanStatements(run);
}

void RunAutoBets(Game& game) {
  if (game.scriptRun.AllCompiled.size() < 2) return;
  Runner(game).Run();
}
