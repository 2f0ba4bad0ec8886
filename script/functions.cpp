// EvaluateFunction: the language's functions, each reading its arguments
// from the elements behind it in WorkStatement.
#include <algorithm>
#include <cmath>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/platform.h"
#include "script/compile_common.h"
#include "script/interpreter.h"
#include "script/list_tally.h"
#include "script/script_text.h"
#include "script/variables.h"
#include "stats/bankroll_graph.h"

namespace {

constexpr int kInputNumberStyle = kMsgOk | kMsgPicQmark | kMsgInput1 | kMsgSignedInput;  // 0x461
constexpr int kInputTextStyle = kMsgOk | kMsgPicQmark | kMsgInput1;                      // 0x441
constexpr int kScriptHelpId = kHelpScriptMessages;
constexpr int kBetFamilyElements = 5;  // a bet family's number and its four qualifiers

struct Call {
  Game& g;
  ScriptRunState& r;
  int at;  // the function's position
  ScriptElement& At(int k) { return r.WorkStatement[static_cast<std::size_t>(at + k)]; }
  double Num(int k) { return At(k).Value; }
  // The k-th element behind the function as text, into `out`.
  void Text(int k, std::string& out) { ElementText(g, At(k), out); }
  void SetNumber(double v) { At(0) = {kNumber, v}; }
  void SetText(std::string_view text) {
    At(0) = MakeRunString(g, text);
  }
  void SetEmptyText() { At(0) = {kString, 0}; }
};

// A bet family's number to its bet id, 0 when the number has no bet.
int FamilyBet(int family, double number) {
  const int n = Code(number);
  if (n != number) return 0;
  switch (family) {
    case 1:
      return IsBoxNumber(n) ? LayId(n) : 0;
    case 2:
      return IsBoxNumber(n) ? DontComeId(n) : 0;
    case 3:
      return IsBoxNumber(n) ? DontComeId(n) + 6 : 0;
    case 4:
      return IsBoxNumber(n) ? ComeId(n) : 0;
    case 5:
      return IsBoxNumber(n) ? ComeId(n) + 6 : 0;
    case 6:
      return IsBoxNumber(n) ? PlaceId(n) : 0;
    case 7:
      return IsBoxNumber(n) ? BuyId(n) : 0;
    case 8:
      return n == 6 ? bet::kBig6 : n == 8 ? bet::kBig8 : 0;
    case 9:
      return n == 4 || n == 6 || n == 8 || n == 10 ? bet::kHard4 + (n - 4) / 2 : 0;
    case 10: {  // the two dice as one number, the smaller first: 13 is 1-3
      const int lo = n / 10, hi = n % 10;
      return n >= 11 && n <= 66 && lo <= hi ? HopId(lo, hi) : 0;
    }
    default:
      return 0;
  }
}

const char* FamilyNote(int family) {
  static constexpr const char* kNotes[] = {"",
                                           "Reference to Lay bet out of limits.",
                                           "Reference to Don't Come bet out of limits.",
                                           "Reference to Don't Come Odds bet out of limits.",
                                           "Reference to Come bet out of limits.",
                                           "Reference to Come Odds bet out of limits.",
                                           "Reference to Place bet out of limits.",
                                           "Reference to Buy bet out of limits.",
                                           "Reference to Big bet out of limits.",
                                           "Reference to Hard bet out of limits.",
                                           "Reference to Hop bet out of limits."};
  return kNotes[family];
}

// A moving average's span in rolls: 0 (all rolls) to a page of the graph.
int GraphSpan(double span) {
  if (!(span >= 1)) return 0;
  return static_cast<int>(std::min(span, static_cast<double>(kGraphColumns)));
}

// A whole number 0..99, else -1.
int StackNumber(double v) {
  const int n = Code(v);
  return n == v && n >= 0 && n <= 99 ? n : -1;
}

// A text function's number: rounded, a negative is 0, above the length the length.
int Clamp(double v, std::size_t length) {
  std::int32_t n = 0;
  if (!RoundToLong(v, n)) n = v < 0 ? 0 : static_cast<std::int32_t>(kMaxRunText);
  return std::clamp(n, 0, static_cast<int>(length));
}

// Highest, Lowest, Average, StdDev, Sum, Count over the items up to the
// empty element; a comparison among them filters the items behind it. The
// items are read through one pointer: nothing here moves the work table.
int Aggregate(Call& c, int n) {
  const ScriptElement* items = &c.At(0);
  int term = 1;
  while (items[term].Kind != kEmpty) ++term;
  ListTally tally(n);
  for (int k = 1; k < term; ++k) {
    const ScriptElement& e = items[k];
    if (IsComparison(e.Kind)) {
      tally.Filter(e.Kind, items[++k].Value);
      continue;
    }
    if (e.Kind == kNumber) tally.Item(e.Value);
  }
  if (n != kStdDevFunction) {
    c.SetNumber(tally.Result(c.g));
    return term;
  }
  if (tally.Count() == 0) {
    AddStepNote(c.g, "Division by zero.");
    c.SetNumber(0);
    return term;
  }
  // The second walk: the squared distances of the same items from the mean.
  const double mean = tally.Mean();
  ListTally again(n);
  double squares = 0;
  for (int k = 1; k < term; ++k) {
    const ScriptElement& e = items[k];
    if (IsComparison(e.Kind))
      again.Filter(e.Kind, items[++k].Value);
    else if (e.Kind == kNumber && again.Passes(e.Value))
      squares += (e.Value - mean) * (e.Value - mean);
  }
  c.SetNumber(std::sqrt(squares / tally.Count()));
  return term;
}

// Input and Input$: the message dialog with one answer box.
void Input(Call& c, bool text, bool hasPrompt) {
  Game& g = c.g;
  if (hasPrompt)
    c.Text(1, g.msg.MsgText);
  else
    g.msg.MsgText.clear();
  const int p = g.scriptRun.ScriptBettor;
  g.msg.MsgTitle = "Auto-Bet (" + (p >= 0 && p <= 8 ? g.PlayerName[static_cast<std::size_t>(p)] : std::string()) + ")";
  g.msg.MsgHelpId = kScriptHelpId;
  g.msg.MsgStyle = text ? kInputTextStyle : kInputNumberStyle;
  g.msg.MsgInput1.clear();
  ShowMessage(g, true);
  if (!g.HyperDrive && g.platform)
    g.scriptRun.RunStartSeconds = g.platform->TimeGetTime() / 1000.0 - 0.6;
  if (text)
    c.SetText(g.msg.MsgInput1);
  else
    c.SetNumber(g.BetRequest.ToDouble());
}

// The text functions 801 to 812; returns the elements consumed.
int TextFunction(Call& c, int n) {
  std::string& text = c.r.TextA;
  std::string& other = c.r.TextB;
  c.Text(1, text);
  const std::size_t len = text.size();
  auto fail = [&](int consumed) {
    AddStepNote(c.g, "Function error.");
    c.SetEmptyText();
    return consumed;
  };
  switch (n) {
    case 801:
      c.SetText(std::string_view(text).substr(0, static_cast<std::size_t>(Clamp(c.Num(3), len))));
      return 3;
    case 802:
      c.SetText(std::string_view(text).substr(len - static_cast<std::size_t>(Clamp(c.Num(3), len))));
      return 3;
    case 803:
      c.SetText(std::string_view(text).substr(static_cast<std::size_t>(Clamp(c.Num(3), len))));
      return 3;
    case 804:
      c.SetText(std::string_view(text).substr(0, len - static_cast<std::size_t>(Clamp(c.Num(3), len))));
      return 3;
    case 805: {
      const int start = Clamp(c.Num(3), len), count = Clamp(c.Num(5), len);
      if (start == 0) return fail(5);
      c.SetText(std::string_view(text).substr(static_cast<std::size_t>(start - 1),
                                              static_cast<std::size_t>(count)));
      return 5;
    }
    case 806: {
      const int a = Clamp(c.Num(3), len), b = Clamp(c.Num(5), len);
      if (a == 0 || b == static_cast<int>(len)) return fail(5);
      other.assign(text, 0, static_cast<std::size_t>(a - 1));
      const std::size_t keep = len - static_cast<std::size_t>(b) - 1;
      other.append(text, len - keep, keep);
      c.SetText(other);
      return 5;
    }
    case 809: {
      std::int32_t a = 0;
      if (!RoundToLong(c.Num(3), a) || a < 1) return fail(5);
      if (static_cast<std::size_t>(a) > len) {
        c.SetText(text);
        return 5;
      }
      c.Text(5, other);
      other.insert(0, text, 0, static_cast<std::size_t>(a - 1));
      other.append(text, static_cast<std::size_t>(a - 1));
      c.SetText(other);
      return 5;
    }
    case 810:
      c.SetText(text);
      return 1;
    case 811: {
      std::int32_t code = 0;
      if (c.At(1).Kind != kNumber || !RoundToLong(c.Num(1), code) || code < 0 || code > 255)
        return fail(1);
      const char ch = static_cast<char>(code);
      c.SetText(std::string_view(&ch, 1));
      return 1;
    }
    case 812: {
      std::int32_t count = 0;
      if (!RoundToLong(c.Num(1), count)) count = c.Num(1) < 0 ? 0 : static_cast<std::int32_t>(kMaxRunText);
      other.assign(static_cast<std::size_t>(std::clamp<std::int32_t>(count, 0, kMaxRunText)), ' ');
      c.SetText(other);
      return 1;
    }
    default:
      return fail(1);
  }
}

}  // namespace

int EvaluateFunction(Game& g, int position) {
  Call c{g, g.scriptRun, position};
  const ScriptElement f = c.At(0);
  const int n = Code(f.Value);
  const std::int32_t varKind = f.Kind == kFunctionTarget ? kVariableTarget : kVariable;
  if (n >= 1 && n <= 10) {
    const int b = FamilyBet(n, c.Num(1));
    if (b == 0) {
      AddStepNote(g, FamilyNote(n));
      c.SetNumber(0);
      return kBetFamilyElements;
    }
    c.At(0) = {varKind, static_cast<double>(b)};
    return 1;
  }
  switch (n) {
    case 21:
    case 800: {
      const int k = StackNumber(c.Num(1));
      if (k < 0) {
        AddStepNote(g, n == 21 ? "Reference to CheckStack out of limits."
                               : "Reference to CheckStack name out of limits.");
        if (n == 800 && varKind == kVariable)
          c.SetEmptyText();
        else
          c.SetNumber(0);
        return 2;
      }
      c.At(0) = {varKind, static_cast<double>((n == 21 ? 100 : 800) + k)};
      return 1;
    }
    case 50: {
      const int p = Code(c.Num(1));
      if (p != c.Num(1) || p < 1 || p > 8) {
        // A player that is none reads as the table and is refused as a target.
        AddStepNote(g, "Reference to Player out of limits.");
        c.At(0) = {kPlayerRef, 0};
        return 1;
      }
      c.At(0) = {kPlayerRef, static_cast<double>(p)};
      return 1;
    }
    case 100:
      if (c.Num(1) < 0) {
        AddStepNote(g, "Can't take square root of negative number.");
        c.SetNumber(0);
      } else {
        c.SetNumber(std::sqrt(c.Num(1)));
      }
      return 1;
    case 101:
      c.SetNumber(std::floor(c.Num(1)));
      return 1;
    case 102:
      c.SetNumber(std::fabs(c.Num(1)));
      return 1;
    case 104:
      c.Text(1, c.r.TextA);
      if (c.r.TextA.empty()) {
        AddStepNote(g, "Function error.");
        c.SetNumber(0);
      } else {
        c.SetNumber(static_cast<unsigned char>(c.r.TextA[0]));
      }
      return 1;
    case 110:
      // A span above the graph's page counts as the page, below 1 as all rolls.
      c.SetNumber(MovingBankrollAverage(g, g.scriptRun.ScriptBettor, g.GraphRollCount,
                                        GraphSpan(c.Num(1)))
                      .ToDouble());
      return 1;
    case 117:
      c.Text(1, c.r.TextA);
      c.SetNumber(TextValue(c.r.TextA));
      return 1;
    case 118:
      c.Text(1, c.r.TextA);
      c.SetNumber(static_cast<double>(c.r.TextA.size()));
      return 1;
    case 125:
    case 825: {
      const bool hasPrompt = IsValue(c.At(1).Kind);
      Input(c, n == 825, hasPrompt);
      return hasPrompt ? 1 : 0;
    }
    case 126:
    case 127:
    case 128:
    case 129:
    case 130:
    case 131:
      return Aggregate(c, n);
    case 190:
      if (c.Num(1) == 1 || c.Num(1) == 2) {
        c.SetNumber(c.Num(1) == 1 ? g.Die1 : g.Die2);
      } else {
        AddStepNote(g, "Reference to die out of limits.");
        c.SetNumber(0);
      }
      return 1;
    case 203: {
      std::string& text = c.r.TextA;
      std::string& search = c.r.TextB;
      c.Text(3, text);
      c.Text(5, search);
      std::int32_t start = 0;
      if (!RoundToLong(c.Num(1), start) || start < 1 ||
          static_cast<std::size_t>(start) > text.size()) {
        AddStepNote(g, "Starting point out of limits.");
        c.SetNumber(0);
        return 5;
      }
      const std::size_t at = text.find(search, static_cast<std::size_t>(start - 1));
      c.SetNumber(at == std::string::npos ? 0 : static_cast<double>(at + 1));
      return 5;
    }
    case 850: {
      const int p = Code(c.Num(1));
      if (p != c.Num(1) || p < 1 || p > 8) {
        AddStepNote(g, "Function error.");
        c.SetEmptyText();
        return 1;
      }
      c.At(0) = {kString, static_cast<double>(-(900 + p))};
      return 1;
    }
    default:
      if (n >= 801 && n <= 812) return TextFunction(c, n);
      AddStepNote(g, "Function error.");
      c.SetNumber(0);
      return 0;
  }
}
