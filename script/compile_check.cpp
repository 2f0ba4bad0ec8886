#include "script/compile_check.h"

#include "core/game.h"
#include "script/compile_common.h"

namespace {

using Work = std::vector<ScriptElement>;
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

bool IsNum(const ScriptElement& e) { return e.Kind == kNumber; }
bool IsStr(const ScriptElement& e) { return e.Kind == kString; }
bool IsFunc(const ScriptElement& e) { return e.Kind == kFunction || e.Kind == kFunctionTarget; }
bool IsQualifier(const ScriptElement& e) { return e.Kind <= kPlayerRef && e.Kind >= kStatField; }
bool IsAggregate(int n) { return n >= 126 && n <= 131; }

const ScriptElement kNumberResult{kNumber, 0};
const ScriptElement kStringResult{kString, 0};

// Replaces w[from, from + count) by one element; `end` follows.
void Collapse(Work& w, std::size_t from, std::size_t count, ScriptElement r, std::size_t& end) {
  w[from] = r;
  w.erase(w.begin() + static_cast<std::ptrdiff_t>(from + 1),
          w.begin() + static_cast<std::ptrdiff_t>(from + count));
  end -= count - 1;
}

// Index of the empty element that ends the list starting at `start`.
std::size_t ListEnd(const Work& w, std::size_t start, std::size_t end) {
  int depth = 0;
  for (std::size_t j = start + 1; j < end; ++j) {
    if (w[j].Kind == kList)
      ++depth;
    else if (w[j].Kind == kEmpty && depth-- == 0)
      return j;
  }
  return kNone;
}

// Index of the list keyword whose list ends at the empty element `term`.
std::size_t ListStart(const Work& w, std::size_t from, std::size_t term) {
  int depth = 0;
  for (std::size_t j = term; j-- > from;) {
    if (w[j].Kind == kEmpty)
      ++depth;
    else if (w[j].Kind == kList && depth-- == 0)
      return j;
  }
  return kNone;
}

struct Checker {
  Game& game;
  std::size_t at = 0;  // an element of the statement in the stream, for the span

  // Messages end with a CR unless they end in a format line (see Exact).
  bool Fail(std::string text) {
    if (text.empty() || text.back() != '\r') text += '\r';
    return FailAt(game, at, std::move(text));
  }
  bool Exact(std::string text) { return FailAt(game, at, std::move(text)); }

  bool ReduceFunctions(Work& w, std::size_t a, std::size_t& b);
  bool ReduceVariables(Work& w, std::size_t a, std::size_t& b);
  bool ReduceMath(Work& w, std::size_t a, std::size_t& b);
  bool ReduceComparisons(Work& w, std::size_t a, std::size_t& b);
  bool ReduceLogic(Work& w, std::size_t a, std::size_t& b);
  bool CheckList(const Work& w, std::size_t list, std::size_t term, bool compared,
                 std::int32_t other);
  bool CheckArguments(const Work& w, std::size_t a, std::size_t b, int n);
  bool CheckAggregate(const Work& w, std::size_t a, std::size_t b, int n);
  bool ReduceRange(Work& w, std::size_t a, std::size_t& b, bool inCondition, bool qualifiers);
  bool Reduce(Work& w, bool inCondition);
  bool CheckAction(const Work& w);
  bool CheckTargets(const Work& w, std::size_t from, std::size_t to);
};

bool Checker::ReduceFunctions(Work& w, std::size_t a, std::size_t& b) {
  for (std::size_t i = a; i < b; ++i) {
    if (!IsFunc(w[i])) continue;
    const int n = Code(w[i].Value);
    const bool target = w[i].Kind == kFunctionTarget;
    std::size_t count = 2;
    if (IsAggregate(n)) {
      const std::size_t term = ListEnd(w, i, b);
      if (term == kNone) return Fail("Unable to resolve elements.");
      count = term - i + 1;
    } else if (n == 203 || n == 805 || n == 806 || n == 809) {
      count = 6;
    } else if (n >= 801 && n <= 804) {
      count = 4;
    }
    if (i + count > b) return Fail("Unable to resolve elements.");
    ScriptElement r = kNumberResult;
    const std::int32_t varKind = target ? kVariableTarget : kVariable;
    if (n == 21)
      r = {varKind, 100};
    else if (n == 50)
      r = {kPlayerRef, 0};
    else if (n < 100)
      r = {varKind, static_cast<double>(n)};
    else if (n >= 800 && n <= 899)
      r = target ? ScriptElement{kVariableTarget, static_cast<double>(n)} : kStringResult;
    Collapse(w, i, count, r, b);
  }
  return true;
}

bool Checker::ReduceVariables(Work& w, std::size_t a, std::size_t& b) {
  for (std::size_t i = a; i < b; ++i) {
    if (w[i].Kind != kVariable && w[i].Kind != kVariableTarget) continue;
    const int n = Code(w[i].Value);
    const int cls = VariableClass(n);
    std::size_t q = 0;
    while (q < static_cast<std::size_t>(cls) && i + 1 + q < b && IsQualifier(w[i + 1 + q])) ++q;
    ScriptElement r = w[i];
    if (w[i].Kind == kVariable) r = n >= 800 && n <= 999 ? kStringResult : kNumberResult;
    Collapse(w, i, 1 + q, r, b);
  }
  return true;
}

bool Checker::ReduceMath(Work& w, std::size_t a, std::size_t& b) {
  for (std::size_t i = a; i < b; ++i) {
    if (w[i].Kind == kMinus && i + 1 < b && IsNum(w[i + 1]) && !(i > a && IsNum(w[i - 1])))
      Collapse(w, i, 2, kNumberResult, b);
  }
  for (std::size_t i = a; i < b; ++i) {
    if (!IsMath(w[i].Kind)) continue;
    if (i + 1 == b) return Fail("Improper use of math operators.");
    const bool hasLeft = i > a;
    const ScriptElement& right = w[i + 1];
    if ((hasLeft && IsOperator(w[i - 1].Kind)) || IsOperator(right.Kind))
      return Fail("Improper use of math operators.");
    if ((hasLeft && w[i - 1].Kind == kVariableTarget) || right.Kind == kVariableTarget)
      return Fail("Cannot do math with a variable that's being assigned.");
    if (!hasLeft || !IsNum(w[i - 1]) || !IsNum(right))
      return Fail("Math error. Use of non-mathematical terms.");
    Collapse(w, i - 1, 3, kNumberResult, b);
    --i;
  }
  for (std::size_t i = a; i < b; ++i) {
    if (w[i].Kind != kConcat) continue;
    if (i == a || i + 1 == b || !IsValue(w[i - 1].Kind) || !IsValue(w[i + 1].Kind))
      return Fail("Unable to concatenate elements.");
    Collapse(w, i - 1, 3, kStringResult, b);
    --i;
  }
  return true;
}

bool Checker::CheckList(const Work& w, std::size_t list, std::size_t term, bool compared,
                        std::int32_t other) {
  const ScriptElement* qualifier = nullptr;
  for (std::size_t j = list + 1; j < term; ++j) {
    const ScriptElement& e = w[j];
    const bool first = j == list + 1;
    if (IsComparison(e.Kind)) {
      if (!first && w[j - 1].Kind != kComma)
        return Fail("Improper placement of comparison operator in list.");
      if (j + 1 >= term || !IsValue(w[j + 1].Kind))
        return Fail("Improper or missing comparison element in list.");
      qualifier = &w[++j];
      continue;
    }
    if (e.Kind == kComma) continue;
    if (!IsValue(e.Kind)) return Fail("Inappropriate element in list.");
    if (!first && w[j - 1].Kind != kComma)
      return Fail("Missing separation character (, or ;) in list.");
    if (IsNum(e)) {
      if (compared && other != kNumber && other != kList)
        return Fail("Improper comparison with item in list.");
      if (qualifier && !IsNum(*qualifier)) return Fail("List item not comparable with qualifier.");
    } else {
      if (!compared) return Fail("Missing list comparison.");
      if (other != kNumber && other != kString && other != kList)
        return Fail("Improper comparison with item in list.");
      if (qualifier && !IsValue(qualifier->Kind))
        return Fail("List item not comparable with qualifier.");
    }
  }
  return true;
}

bool Checker::ReduceComparisons(Work& w, std::size_t a, std::size_t& b) {
  for (std::size_t i = a; i < b; ++i) {
    if (w[i].Kind == kList) {
      // The comparisons inside a list are qualifiers of its items.
      const std::size_t term = ListEnd(w, i, b);
      if (term != kNone) i = term;
      continue;
    }
    if (!IsComparison(w[i].Kind)) continue;
    const bool hasLeft = i > a, hasRight = i + 1 < b;
    if (hasLeft && w[i - 1].Kind == kEmpty) {
      const std::size_t list = ListStart(w, a, i - 1);
      if (list == kNone) return Fail("Inappropriate element in list.");
      if (!hasRight) return Fail("Missing list comparison.");
      std::size_t rightEnd = i + 2;
      const std::int32_t other = w[i + 1].Kind;
      if (other == kList) {
        const std::size_t term = ListEnd(w, i + 1, b);
        if (term == kNone) return Fail("Improper or missing list comparison.");
        if (!CheckList(w, i + 1, term, true, kList)) return false;
        rightEnd = term + 1;
      } else if (!IsValue(other)) {
        return Fail("Improper or missing list comparison.");
      }
      if (!CheckList(w, list, i - 1, true, other)) return false;
      Collapse(w, list, rightEnd - list, kNumberResult, b);
      i = list;
    } else if (hasRight && w[i + 1].Kind == kList) {
      const std::size_t term = ListEnd(w, i + 1, b);
      if (term == kNone) return Fail("Improper or missing list comparison.");
      if (!hasLeft) return Fail("Missing list comparison.");
      if (!IsValue(w[i - 1].Kind)) return Fail("Improper or missing list comparison.");
      if (!CheckList(w, i + 1, term, true, w[i - 1].Kind)) return false;
      Collapse(w, i - 1, term - i + 2, kNumberResult, b);
      --i;
    } else if (hasLeft && hasRight &&
               ((IsNum(w[i - 1]) && IsNum(w[i + 1])) || (IsStr(w[i - 1]) && IsStr(w[i + 1])))) {
      Collapse(w, i - 1, 3, kNumberResult, b);
      --i;
    } else if (!hasLeft || !hasRight || IsOperator(w[i - 1].Kind) || IsOperator(w[i + 1].Kind)) {
      return Fail("Improper use of comparison operator.");
    } else {
      return Fail("Relational error. Terms not comparable.");
    }
  }
  // A list standing alone in a condition is true when any (or all) of its
  // items are.
  for (std::size_t i = a; i < b; ++i) {
    if (w[i].Kind != kList) continue;
    const std::size_t term = ListEnd(w, i, b);
    if (term == kNone) return Fail("Inappropriate element in list.");
    if (!CheckList(w, i, term, false, 0)) return false;
    Collapse(w, i, term - i + 1, kNumberResult, b);
  }
  return true;
}

bool Checker::ReduceLogic(Work& w, std::size_t a, std::size_t& b) {
  for (std::size_t i = a; i < b; ++i) {
    if (w[i].Kind != kNot) continue;
    if (i + 1 >= b || !IsNum(w[i + 1])) return Fail("Improper argument for NOT operation.");
    Collapse(w, i, 2, kNumberResult, b);
  }
  static constexpr std::pair<std::int32_t, const char*> kOps[] = {
      {kAnd, "\"AND\""}, {kOr, "\"OR\""}, {kXor, "\"XOR\""}};
  for (const auto& [op, name] : kOps) {
    for (std::size_t i = a; i < b; ++i) {
      if (w[i].Kind != op) continue;
      if (i == a) return Fail(std::string("Missing expression before logical ") + name);
      if (i + 1 == b) return Fail(std::string("Missing expression after logical ") + name);
      if (!IsNum(w[i - 1]))
        return Fail(std::string("Missing or inappropriate expression before logical ") + name);
      if (!IsNum(w[i + 1]))
        return Fail(std::string("Missing or inappropriate expression after logical ") + name);
      Collapse(w, i - 1, 3, kNumberResult, b);
      --i;
    }
  }
  return true;
}

bool Checker::CheckAggregate(const Work& w, std::size_t a, std::size_t b, int n) {
  if (b > a && w[b - 1].Kind == kEmpty) --b;
  const std::string name = Quote(FunctionName(n));
  std::size_t item = a;
  for (std::size_t j = a; j <= b; ++j) {
    if (j < b && w[j].Kind != kComma) continue;
    std::size_t x = item;
    if (x < j && IsComparison(w[x].Kind)) {
      if (x + 2 != j || !IsNum(w[x + 1]))
        return Fail("Missing or improper qualifier in " + name +
                    " function.\r\rExpected qualifier format:\r>, <, or = followed by number or "
                    "non-string variable\r");
      ++x;
    }
    for (std::size_t k = x; k < j; ++k)
      if (IsComparison(w[k].Kind))
        return Fail("Missing or improper qualifier in " + name +
                    " function.\r\rExpected qualifier format:\r>, <, or = followed by number or "
                    "non-string variable\r");
    if (j - x != 1 || !IsNum(w[x])) return Fail("Improper expression in " + name + " function.");
    item = j + 1;
  }
  return true;
}

bool Checker::CheckArguments(const Work& w, std::size_t a, std::size_t b, int n) {
  if (IsAggregate(n)) return CheckAggregate(w, a, b, n);
  // Split at commas; each argument must have reduced to one element.
  std::vector<std::int32_t> args;
  bool malformed = false;
  if (b > a) {
    std::size_t start = a;
    for (std::size_t j = a; j <= b; ++j) {
      if (j < b && w[j].Kind != kComma) continue;
      if (j - start != 1) malformed = true;
      args.push_back(j - start == 1 ? w[start].Kind : kEmpty);
      start = j + 1;
    }
  }
  auto typed = [&](std::initializer_list<int> wanted) {  // 1 number, 2 string, 3 either
    std::size_t k = 0;
    for (int want : wanted) {
      const std::int32_t kind = args[k++];
      const bool ok = (kind == kNumber && (want & 1)) || (kind == kString && (want & 2));
      if (!ok) return false;
    }
    return !malformed;
  };
  const std::string name = Quote(FunctionName(n));
  auto counted = [&](std::size_t want, std::initializer_list<int> types, const std::string& tail) {
    if (args.size() < want) return Fail("Missing expression in " + name + " function." + tail);
    if (args.size() > want) return Fail("Too many expressions in " + name + " function." + tail);
    if (!typed(types)) return Fail("Inappropriate expression in " + name + " function." + tail);
    return true;
  };
  switch (n) {
    case 203:
      return counted(3, {1, 3, 3}, "\r\rExpected format:  Instr(number, string, string)\r");
    case 801:
      return counted(2, {3, 1}, "\r\rExpected format:  Left$(string, number)\r");
    case 802:
      return counted(2, {3, 1}, "\r\rExpected format:  Right$(string, number)\r");
    case 803:
      return counted(2, {3, 1}, "\r\rExpected format:  RemoveLeft$(string, number)\r");
    case 804:
      return counted(2, {3, 1}, "\r\rExpected format:  RemoveRight$(string, number)\r");
    case 805:
    case 806:
      if (args.size() != 3 || !typed({3, 1, 1}))
        return Exact(
            std::string("Missing or inappropriate expression in function.\r\rExpected format:  ") +
            (n == 805 ? "Mid$" : "RemoveMid$") + "(string, number, number)");
      return true;
    case 809: {
      const char* tail = "\r\rExpected format:  Insert$(string, number, string)";
      if (args.size() < 3)
        return Exact(std::string("Missing expression in Insert$ function.") + tail);
      if (args.size() > 3)
        return Exact(std::string("Too many expressions in Insert$ function.") + tail);
      if (!typed({3, 1, 3}))
        return Exact(std::string("Missing or inappropriate expression in function.") + tail);
      return true;
    }
    case 104:
    case 117:
    case 118:
      return counted(1, {2}, "");
    case 125:
    case 825:
      if (args.size() != 1 || !typed({3}))
        return Fail("Inappropriate expression in Input function.");
      return true;
    default:
      if (args.size() != 1 || !typed({1}))
        return Fail("Inappropriate expression in " + name + " function.");
      return true;
  }
}

bool Checker::ReduceRange(Work& w, std::size_t a, std::size_t& b, bool inCondition,
                          bool qualifiers) {
  if (!ReduceFunctions(w, a, b) || !ReduceVariables(w, a, b) || !ReduceMath(w, a, b)) return false;
  if (inCondition && !qualifiers && !ReduceComparisons(w, a, b)) return false;
  return ReduceLogic(w, a, b);
}

bool Checker::Reduce(Work& w, bool inCondition) {
  for (;;) {
    std::size_t close = 0;
    while (close < w.size() && w[close].Kind != kClose) ++close;
    if (close == w.size()) break;
    std::size_t open = close;
    while (open > 0 && w[open - 1].Kind != kOpen) --open;
    if (open == 0) return Fail("Unable to resolve elements.");
    --open;
    const bool ownedByFunction = open > 0 && IsFunc(w[open - 1]);
    const int n = ownedByFunction ? Code(w[open - 1].Value) : 0;
    const bool qualifiers =
        open > 0 && (w[open - 1].Kind == kList || (ownedByFunction && IsAggregate(n)));
    std::size_t b = close;
    if (!ReduceRange(w, open + 1, b, inCondition, qualifiers)) return false;
    if (ownedByFunction && !CheckArguments(w, open + 1, b, n)) return false;
    w.erase(w.begin() + static_cast<std::ptrdiff_t>(b));
    w.erase(w.begin() + static_cast<std::ptrdiff_t>(open));
  }
  std::size_t b = w.size();
  return ReduceRange(w, 0, b, inCondition, false);
}

bool Checker::CheckTargets(const Work& w, std::size_t from, std::size_t to) {
  const char* bad = "Improper assignment or expression.";
  std::size_t targets = 0;
  for (std::size_t j = from; j < to; ++j) {
    const std::int32_t k = w[j].Kind;
    if (k == kVariableTarget) {
      ++targets;
      while (j + 1 < to && IsQualifier(w[j + 1])) ++j;
    } else if (IsComparison(k)) {
      if (j == from || (w[j - 1].Kind != kList && w[j - 1].Kind != kComma)) return Fail(bad);
      if (j + 1 >= to || !IsValue(w[j + 1].Kind)) return Fail(bad);
      ++j;
    } else if (k != kList && k != kEmpty && k != kComma) {
      return Fail(bad);
    }
  }
  return targets > 0 || Fail(bad);
}

bool Checker::CheckAction(const Work& w) {
  const char* bad = "Improper assignment or expression.";
  const bool action = w[0].Kind == kAction;
  const int n = action ? Code(w[0].Value) : 0;
  if (!action) {
    if (w.size() < 3 || w[w.size() - 2].Kind != kEqual || !IsValue(w.back().Kind)) return Fail(bad);
    return CheckTargets(w, 0, w.size() - 2);
  }
  if (n >= 100 && n <= 199) return w.size() == 1 || Fail("Unable to resolve elements.");
  if (n >= 200 && n <= 299) {
    if (w.size() == 1) return n == 213 || Fail("Missing argument.");
    if (w.size() > 2) return Fail("Unable to resolve elements.");
    const bool stringOnly = n == 212 || n == 213 || n == 220 || n == 221;
    const bool ok = stringOnly ? IsStr(w[1]) : IsValue(w[1].Kind);
    return ok || Fail("Improper argument.");
  }
  if (n == 300) {
    std::size_t targets = 0;
    for (std::size_t j = 1; j < w.size(); ++j) {
      if (w[j].Kind == kAction) return Fail("Unable to resolve elements.");
      if (w[j].Kind == kVariableTarget)
        ++targets;
      else if (w[j].Kind != kComma)
        return Fail("Missing or improper arguments.");
    }
    return targets == 2 || Fail("Missing or improper arguments.");
  }
  if (n == 310) {
    const auto fromRoll = [](const ScriptElement& e) {
      return e.Kind == kString && e.Value == -15;
    };
    const std::size_t size = w.size();
    const bool ok = size == 1 || (size == 2 && IsStr(w[1]) && !fromRoll(w[1])) ||
                    (size == 3 && fromRoll(w[1]) && IsNum(w[2])) ||
                    (size == 4 && IsStr(w[1]) && !fromRoll(w[1]) && fromRoll(w[2]) && IsNum(w[3]));
    if (ok) return true;
    return Fail(size > 4 ? "Unable to resolve elements." : "Improper argument.");
  }
  if (n >= 481 && n <= 489) {
    if (w.size() < 4 || !IsValue(w[1].Kind) || w[2].Kind != kEqual) return Fail(bad);
    return CheckTargets(w, 3, w.size());
  }
  if (n >= 450 && n <= 480) return CheckTargets(w, 1, w.size());
  return Fail("Unable to resolve elements.");
}

}  // namespace

bool CompileCheck(Game& game) {
  ScriptCode& code = game.scriptCode;
  const auto& s = code.CompiledScript;
  Checker check{game};
  bool inCondition = false, conditionSeen = false;
  Work w;
  for (std::size_t i = 1; i < s.size();) {
    std::size_t j = i;
    while (j < s.size() && !IsMark(s[j])) ++j;
    w.assign(s.begin() + static_cast<std::ptrdiff_t>(i),
             s.begin() + static_cast<std::ptrdiff_t>(j));
    code.WorkCount = static_cast<int>(w.size());
    check.at = i;
    const std::size_t next = j + 1;
    if (w.empty() || (w.size() == 1 && (w[0].Kind == kHead || w[0].Kind == kLabel))) {
      i = next;
      continue;
    }
    const std::int32_t k0 = w[0].Kind;
    if (k0 == kIf || k0 == kElseIf) {
      inCondition = true;
      conditionSeen = false;
    } else if (k0 == kThen) {
      if (!conditionSeen) return check.Fail("Missing expression between IF and THEN.");
      inCondition = false;
    } else if (k0 == kGoTo || k0 == kGoSub) {
      if (w.size() != 2 || !IsValue(w[1].Kind))
        return check.Fail(
            "Unable to resolve elements.\rGoTo command should be followed by name of a label");
    } else if (!IsLogicWord(k0)) {
      if (!check.Reduce(w, inCondition)) return false;
      if (inCondition) {
        conditionSeen = true;
        if (w.size() != 1) return check.Fail("Unable to resolve expression.");
        if (!IsNum(w[0])) return check.Fail("Result not true or false.");
      } else if (w.empty() || !check.CheckAction(w)) {
        return w.empty() ? check.Fail("Unable to resolve elements.") : false;
      }
    }
    i = next;
  }
  return true;
}
