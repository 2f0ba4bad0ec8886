#include "script/compile_common.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"

std::string FormatGeneral(double value) {
  if (value == 0) return "0";
  char buf[400];
  const auto fmt = std::isfinite(value) && std::fabs(value) < 1e15 && std::fabs(value) >= 1e-6
                       ? std::chars_format::fixed
                       : std::chars_format::general;
  const auto r = std::to_chars(buf, buf + sizeof buf, value, fmt);
  return std::string(buf, r.ptr);
}

std::optional<double> ParseNumberWord(std::string_view w) {
  std::size_t i = 0;
  if (i < w.size() && (w[i] == '-' || w[i] == '+')) ++i;
  std::size_t digits = 0, points = 0;
  for (; i < w.size(); ++i) {
    if (w[i] >= '0' && w[i] <= '9')
      ++digits;
    else if (w[i] == '.' && ++points == 1)
      continue;
    else
      break;
  }
  if (digits == 0) return std::nullopt;
  if (i < w.size() && (w[i] == 'e' || w[i] == 'E')) {
    std::size_t j = i + 1;
    if (j < w.size() && (w[j] == '-' || w[j] == '+')) ++j;
    const std::size_t start = j;
    while (j < w.size() && w[j] >= '0' && w[j] <= '9') ++j;
    if (j == start) return std::nullopt;
    i = j;
  }
  if (i != w.size()) return std::nullopt;
  const std::string text(w);
  const double v = std::strtod(text.c_str(), nullptr);
  if (!std::isfinite(v)) return std::nullopt;
  return v;
}

std::string Quote(std::string_view text) {
  std::string out;
  out.reserve(text.size() + 2);
  out += '"';
  out.append(text);
  out += '"';
  return out;
}

void SetCompileMessage(Game& game, std::string text) {
  game.msg.MsgText = std::move(text);
  game.msg.MsgHelpId = kHelpNone;
  game.msg.MsgStyle = kMsgOk;
}

namespace {
int LineOf(const ScriptElement& e) { return e.Kind > kMark ? e.Kind - kMark : 1; }
int ColOf(const ScriptElement& e) { return Code(e.Value); }
}  // namespace

void SetSpanBetween(ScriptCode& code, std::size_t from, std::size_t to) {
  const auto& s = code.CompiledScript;
  if (s.empty()) {
    code.errLine = code.errEndLine = 1;
    code.errCol = code.errEndCol = 0;
    return;
  }
  if (from >= s.size()) from = s.size() - 1;
  if (to >= s.size()) to = s.size() - 1;
  std::size_t a = from;
  while (a > 0 && !IsMark(s[a])) --a;
  std::size_t b = to + 1;
  while (b < s.size() && !IsMark(s[b])) ++b;
  code.errLine = IsMark(s[a]) ? LineOf(s[a]) : 1;
  code.errCol = IsMark(s[a]) ? ColOf(s[a]) : 0;
  if (b < s.size()) {
    code.errEndLine = LineOf(s[b]);
    code.errEndCol = ColOf(s[b]);
  } else {
    code.errEndLine = code.errLine;
    code.errEndCol = code.errCol;
  }
}

void SetSpanAround(ScriptCode& code, std::size_t at) { SetSpanBetween(code, at, at); }

bool FailAt(Game& game, std::size_t at, std::string text) {
  SetCompileMessage(game, std::move(text));
  SetSpanAround(game.scriptCode, at);
  return false;
}

std::string FunctionName(int n) {
  switch (n) {
    case 1:
      return "Lay";
    case 2:
      return "DontCome";
    case 3:
      return "DontComeOdds";
    case 4:
      return "Come";
    case 5:
      return "ComeOdds";
    case 6:
      return "Place";
    case 7:
      return "Buy";
    case 8:
      return "Big";
    case 9:
      return "Hardway";
    case 10:
      return "Hop";
    case 21:
      return "Checkstack";
    case 50:
      return "Player";
    case 100:
      return "Sqr";
    case 101:
      return "Int";
    case 102:
      return "Abs";
    case 104:
      return "Asc";
    case 110:
      return "Average Bankroll";
    case 117:
      return "Val";
    case 118:
      return "Len";
    case 125:
      return "Input";
    case 126:
      return "Highest";
    case 127:
      return "Lowest";
    case 128:
      return "Average";
    case 129:
      return "StdDev";
    case 130:
      return "Sum";
    case 131:
      return "Count";
    case 190:
      return "Die";
    case 203:
      return "Instr";
    case 800:
      return "Checkstack Name";
    case 801:
      return "Left";
    case 802:
      return "Right";
    case 803:
      return "RemoveLeft";
    case 804:
      return "RemoveRight";
    case 805:
      return "Mid";
    case 806:
      return "RemoveMid";
    case 809:
      return "Insert";
    case 810:
      return "Str";
    case 811:
      return "Chr";
    case 812:
      return "Space";
    case 825:
      return "Input$";
    case 850:
      return "Playername";
    default:
      return "Function";
  }
}

std::string VariableName(int n) {
  if (n >= 100 && n <= 199) return "Checkstack " + std::to_string(n - 100);
  switch (n) {
    case 651:
      return "Available bankroll";
    case 652:
      return "High bankroll";
    case 653:
      return "Low bankroll";
    case 654:
      return "Bankroll";
    case 670:
      return "Autohandle winning bets";
    case 671:
      return "Autohandle losing bets";
    case 700:
      return "Autotake full odds";
    case 701:
      return "Autolay full odds";
    case 702:
      return "Autodown place bets";
    case 703:
      return "Autopass the dice";
    case 1100:
      return "Comps";
    case 1200:
      return "Simulated hours";
    case 2500:
      return "# of rolls";
    case 2501:
      return "# of rolls since";
    case 2502:
      return "% of rolls";
    case 2600:
      return "# of comeout rolls";
    case 2601:
      return "% of comeout rolls";
    case 2602:
      return "# of passes";
    case 2603:
      return "% of passes";
    case 2604:
      return "# of misses";
    case 2605:
      return "% of misses";
    case 3000:
      return "Initializing script";
    case 3001:
      return "Beginning new session";
    case 3002:
      return "Beginning new hand (new shooter)";
    case 3005:
      return "Dice roll file end reached";
    case 3006:
      return "Dice roll file next roll #";
    case 3007:
      return "Dice roll file length";
    case 3200:
      return "Shooter";
    case 3201:
      return "Last shooter";
    case 3203:
      return "Bettor";
    case 3300:
      return "Shooter passes";
    case 3301:
      return "Shooter misses";
    case 3500:
      return "Point";
    case 3501:
      return "Last point";
    case 3510:
      return "Dice total";
    case 3511:
      return "Dice combo";
    case 3512:
      return "Die1";
    case 3513:
      return "Die2";
    case 3603:
      return "Rolls per hour";
    case 3610:
      return "Minimum bet";
    case 3611:
      return "Maximum bet";
    case 3655:
      return "Seed";
    case 3672:
      return "RNG";
    case 3691:
      return "Comp rate";
    case 3693:
      return "Date/Time";
    case 3697:
      return "Answer";
    case 3698:
      return "Rnd";
    case 3704:
      return "Next roll is a comeout roll";
    case 3705:
      return "Next roll is not a comeout roll";
    case 3706:
      return "Last roll was a comeout roll";
    case 3707:
      return "Last roll was not a comeout roll";
    case 3708:
      return "Seven out";
    case 4606:
      return "# of points";
    case 4607:
      return "% of points";
    default:
      return "Variable";
  }
}

int FunctionClass(int n) {
  if (n >= 1 && n < 11) return 4;
  if (n == 21 || n == 800) return 1;
  return 0;
}

std::size_t SkipQualifiers(const std::vector<ScriptElement>& s, std::size_t first, int count) {
  std::size_t i = first;
  for (int q = 0; q < count && i < s.size(); ++q) {
    if (s[i].Kind == kFunction && s[i].Value == 50 && i + 1 < s.size() && s[i + 1].Kind == kOpen) {
      int depth = 0;
      std::size_t j = i + 1;
      for (; j < s.size(); ++j) {
        if (s[j].Kind == kOpen)
          ++depth;
        else if (s[j].Kind == kClose && --depth == 0)
          break;
      }
      i = j + 1;
    } else {
      ++i;
    }
  }
  return std::min(i, s.size());
}
