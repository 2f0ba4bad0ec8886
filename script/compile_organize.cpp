#include "script/compile_organize.h"

#include <cmath>
#include <optional>

#include "core/game.h"
#include "script/compile_brackets.h"
#include "script/compile_common.h"

namespace {

using Elements = std::vector<ScriptElement>;

struct Run {
  std::size_t begin = 0, end = 0;  // [begin, end) of the stream
  bool Empty() const { return begin == end; }
};

struct Reference {
  std::size_t start = 0;
  bool any = false;
  Run player, variable;
  int varNumber = 0, varClass = 0;
  std::optional<double> frame, statClass, field, number;
  bool onlyNumber() const {
    return number && player.Empty() && variable.Empty() && !frame && !statClass;
  }
};

bool IsInteger(double v) { return std::floor(v) == v; }

bool IsDiceCombination(double v) {
  const double d = std::floor(v);
  const double e = std::round((v - d) * 10);
  return d >= 1 && d <= 6 && e >= 1 && e <= 6 && std::fabs(v - (d + e / 10)) < 1e-9;
}

bool Ambiguous(Game& game, std::size_t at, std::string text = "Ambiguous variable references") {
  return FailAt(game, at, text + "\r");
}

// Checks a resolved reference and fills in the defaults of its qualifiers.
bool Resolve(Game& game, Reference& r) {
  const std::size_t at = r.start;
  const int v = r.varNumber;
  const int cls = r.varClass;
  const bool rollsVar = v >= 2500 && v <= 2502;
  const bool pointsVar = v == 4606 || v == 4607;
  switch (cls) {
    case 0:
      if (!r.player.Empty() || r.frame || r.statClass || r.field || r.number)
        return Ambiguous(game, at);
      return true;
    case 1:
      if (r.frame || r.statClass || r.field || r.number) return Ambiguous(game, at);
      return true;
    case 2:
      if (r.statClass || r.field || r.number || (v == 1200 && !r.player.Empty()))
        return Ambiguous(game, at);
      return true;
    case 3:
      if (r.statClass) return Ambiguous(game, at);
      if (rollsVar) {
        if (v == 2501 && r.frame && *r.frame != 3)
          return Ambiguous(game, at,
                           "Ambiguous variable references\r\"# of rolls since\" applies to current "
                           "session only");
        if (r.number) {
          const double n = *r.number;
          if (!((IsInteger(n) && n >= 2 && n <= 12) || IsDiceCombination(n)))
            return Ambiguous(game, at,
                             "Ambiguous variable references\rReference to rolls out of limits.");
          r.field = n;
        } else if (r.field) {
          const double f = *r.field;
          if (!(f == 0 || (f >= 2 && f <= 12) || (f >= 78 && f <= 89))) return Ambiguous(game, at);
        }
      } else if (r.number) {
        const double n = *r.number;
        if (!(IsInteger(n) && n >= 2 && n <= 12)) return Ambiguous(game, at);
        r.field = n;
      } else if (r.field && !(*r.field == 0 || *r.field == 14 || *r.field == 15)) {
        return Ambiguous(game, at);
      }
      r.number.reset();
      return true;
    default:
      break;
  }
  if (pointsVar) {
    if (r.number) {
      const double n = *r.number;
      if (!(IsInteger(n) && n >= 4 && n <= 10 && n != 7)) return Ambiguous(game, at);
      r.field = n;
      r.number.reset();
    } else if (r.field && *r.field != 0) {
      return Ambiguous(game, at, "Ambiguous variable references.");
    }
    if (r.statClass && !(*r.statClass >= 6 && *r.statClass <= 8)) return Ambiguous(game, at);
    return true;
  }
  if (r.field) {
    const double f = *r.field;
    const bool currentHandOrSession = !r.frame || *r.frame == 1 || *r.frame == 3;
    if (f == 32 || f == 33) {
      if (r.statClass && *r.statClass != 1)
        return Ambiguous(game, at,
                         "Ambiguous variable references\rCurrent # and current $ only apply to "
                         "wagers.");
      if (!currentHandOrSession)
        return Ambiguous(game, at,
                         "Ambiguous variable references\rCurrent # and current $ only apply to "
                         "current hand or session.");
    } else if (f == 34 || f == 35 || f == 36) {
      if (r.statClass && *r.statClass != 1) return Ambiguous(game, at);
      static const char* const kWhat[] = {"'Working'", "'Called on'", "'Called off'"};
      if (!currentHandOrSession)
        return Ambiguous(game, at,
                         std::string("Ambiguous variable references.\r") +
                             kWhat[static_cast<int>(f) - 34] +
                             " only applies to current hand or session.");
    } else if (f == 31) {
      if (!r.statClass || !(*r.statClass == 4 || *r.statClass == 5))
        return Ambiguous(game, at,
                         "Ambiguous variable references\rPlease designate either net or net %");
    } else if (!(f >= 21 && f <= 33)) {
      if (f == 0)
        return Ambiguous(game, at,
                         "Ambiguous variable references.\rPlease designate either total # or "
                         "total $.");
      return Ambiguous(game, at, "Ambiguous variable references.");
    }
  }
  if (r.statClass && !(*r.statClass >= 1 && *r.statClass <= 5)) return Ambiguous(game, at);
  if (r.number) return Ambiguous(game, at);
  return true;
}

// Appends the canonical run of a resolved reference to `out`.
// The player code of "autobettor": whoever the script bets for when it runs.
constexpr double kAutobettorCode = 14;

void WriteBack(const Elements& s, const Reference& r, Elements& out, int p) {
  auto copy = [&](const Run& run) {
    out.insert(out.end(), s.begin() + static_cast<std::ptrdiff_t>(run.begin),
               s.begin() + static_cast<std::ptrdiff_t>(run.end));
  };
  const int v = r.varNumber;
  const int cls = r.varClass;
  const bool pointsVar = v == 4606 || v == 4607;
  copy(r.variable);
  if (cls >= 1) {
    if (!r.player.Empty())
      copy(r.player);
    else
      // A Hot-Key's script (slot 0) bets for the player current when it runs.
      out.push_back({kPlayerRef, (cls == 3 || pointsVar) ? 0.0
                                 : p == 0                  ? kAutobettorCode
                                                           : static_cast<double>(p)});
  }
  if (cls >= 2) out.push_back({kFrame, r.frame.value_or(3)});
  if (cls == 3) out.push_back({kStatField, r.field.value_or(0)});
  if (cls == 4) {
    const double x = r.statClass.value_or(pointsVar ? 6 : 1);
    out.push_back({kStatClass, x});
    out.push_back({kStatField, r.field.value_or(pointsVar ? 0 : (x == 1 ? 33 : 28))});
  }
}

// Ends the reference that stops before `end` and appends its written form to
// `out`. False on failure.
bool Finish(Game& game, Reference& r, std::size_t end, Elements& out, int p) {
  if (!r.any) return true;
  const Elements& s = game.scriptCode.CompiledScript;
  const Reference done = r;
  r = Reference{};
  const bool onlyPlayer = !done.player.Empty() && done.variable.Empty() && !done.frame &&
                          !done.statClass && !done.field && !done.number;
  if (done.onlyNumber() || onlyPlayer) {
    const std::size_t first = out.size();
    out.insert(out.end(), s.begin() + static_cast<std::ptrdiff_t>(done.start),
               s.begin() + static_cast<std::ptrdiff_t>(end));
    if (onlyPlayer && done.player.end - done.player.begin == 1) {
      ScriptElement& e = out[first + (done.player.begin - done.start)];
      const double n = e.Value;
      if (n >= 10 && n <= 14)
        e = {kVariable, 3200 + (n - 10)};
      else if (n >= 1 && n <= 8)
        e = {kNumber, n};
    }
    return true;
  }
  if (done.variable.Empty()) return Ambiguous(game, done.start);
  Reference resolved = done;
  if (!Resolve(game, resolved)) return false;
  WriteBack(s, resolved, out, p);
  return true;
}

// Organises [from, rangeEnd) of the stream; rangeEnd follows the change of
// length. The range is written to a new run and put back once, so that a
// long stream is not moved for every reference.
bool OrganizeRange(Game& game, std::size_t from, std::size_t& rangeEnd, int p) {
  Elements& s = game.scriptCode.CompiledScript;
  Elements out;
  out.reserve(rangeEnd - from + 16);
  Reference r;
  std::size_t i = from;
  while (i < rangeEnd) {
    const ScriptElement e = s[i];
    const int n = Code(e.Value);
    auto take = [&](Run& run, std::size_t len, const char* clash) -> bool {
      if (!run.Empty()) return Ambiguous(game, i, clash);
      if (!r.any) r.start = i;
      r.any = true;
      run = {i, i + len};
      i += len;
      return true;
    };
    auto value = [&](std::optional<double>& slot, double v, const char* clash, bool clashes) {
      if (slot || clashes) return Ambiguous(game, i, clash);
      if (!r.any) r.start = i;
      r.any = true;
      slot = v;
      ++i;
      return true;
    };
    bool ok = true;
    if (e.Kind == kFunction && i + 1 < rangeEnd && s[i + 1].Kind == kOpen &&
        (n <= 50 || n == 800)) {
      const std::size_t len = MatchingClose(s, i + 1, rangeEnd) + 1 - i;
      if (n == 50) {
        ok = take(r.player, len, "Ambiguous player references");
      } else {
        ok = take(r.variable, len, "Ambiguous variable references");
        r.varNumber = n;
        r.varClass = FunctionClass(n);
      }
    } else {
      switch (e.Kind) {
        case kVariable:
          ok = take(r.variable, 1, "Ambiguous variable references");
          r.varNumber = n;
          r.varClass = VariableClass(n);
          break;
        case kPlayerRef:
          ok = take(r.player, 1, "Ambiguous player references");
          break;
        case kFrame:
          ok = value(r.frame, e.Value, "Ambiguous hand references", false);
          break;
        case kStatClass:
          ok = value(r.statClass, e.Value, "Ambiguous variable references", false);
          break;
        case kStatField:
          ok = value(r.field, e.Value, "Ambiguous variable references", r.number.has_value());
          break;
        case kNumber:
          ok = value(r.number, e.Value, "Ambiguous variable references", r.field.has_value());
          if (ok) r.field = e.Value;
          break;
        default: {
          if (!Finish(game, r, i, out, p)) return false;
          // A nested bracket group was organised already: pass over it.
          const std::size_t next = e.Kind == kOpen ? MatchingClose(s, i, rangeEnd) + 1 : i + 1;
          out.insert(out.end(), s.begin() + static_cast<std::ptrdiff_t>(i),
                     s.begin() + static_cast<std::ptrdiff_t>(std::min(next, rangeEnd)));
          i = next;
        }
      }
    }
    if (!ok) return false;
  }
  if (!Finish(game, r, rangeEnd, out, p)) return false;
  s.erase(s.begin() + static_cast<std::ptrdiff_t>(from),
          s.begin() + static_cast<std::ptrdiff_t>(rangeEnd));
  s.insert(s.begin() + static_cast<std::ptrdiff_t>(from), out.begin(), out.end());
  rangeEnd = from + out.size();
  return true;
}

}  // namespace

bool CompileVariablesOrganize(Game& game, int p) {
  Elements& s = game.scriptCode.CompiledScript;
  std::vector<std::size_t> opens;
  for (std::size_t i = 1; i < s.size(); ++i) {
    if (s[i].Kind == kOpen) {
      opens.push_back(i);
    } else if (s[i].Kind == kClose && !opens.empty()) {
      const std::size_t open = opens.back();
      opens.pop_back();
      std::size_t close = i;
      if (!OrganizeRange(game, open + 1, close, p)) return false;
      i = close;
    }
  }
  std::size_t end = s.size();
  return OrganizeRange(game, 1, end, p);
}
