#include "script/compile_brackets.h"

#include "core/game.h"
#include "script/compile_common.h"

namespace {

bool CheckBalance(Game& game) {
  auto& s = game.scriptCode.CompiledScript;
  int depth = 0;
  bool broken = false;
  std::size_t first = 0;
  for (std::size_t i = 1; i < s.size(); ++i) {
    if (IsMark(s[i])) {
      if (depth != 0 || broken) {
        SetCompileMessage(game, "Missing or improperly placed parenthesis.");
        SetSpanBetween(game.scriptCode, first, i - 1);
        return false;
      }
      first = 0;
      continue;
    }
    if (s[i].Kind != kOpen && s[i].Kind != kClose) continue;
    if (first == 0) first = i;
    depth += s[i].Kind == kOpen ? 1 : -1;
    if (depth < 0) broken = true;
  }
  return true;
}

// Puts an empty element before the bracket that closes the group at `open`.
void InsertTerminator(std::vector<ScriptElement>& s, std::size_t open) {
  const std::size_t close = MatchingClose(s, open, s.size());
  if (close < s.size()) s.insert(s.begin() + static_cast<std::ptrdiff_t>(close), ScriptElement{});
}

bool CheckGroups(Game& game) {
  auto& s = game.scriptCode.CompiledScript;
  for (std::size_t i = 1; i < s.size(); ++i) {
    if (s[i].Kind != kFunction) continue;
    const int n = Code(s[i].Value);
    if (i + 1 >= s.size() || s[i + 1].Kind != kOpen) {
      std::string text = "Missing or inappropriate reference to ";
      text += Quote(FunctionName(n));
      text += n < 20 ? " bet.\r" : "\r";
      return FailAt(game, i, std::move(text));
    }
    if (n >= 126 && n <= 131) InsertTerminator(s, i + 1);
  }
  for (std::size_t i = 1; i < s.size(); ++i) {
    if (s[i].Kind != kList) continue;
    if (i + 1 >= s.size() || s[i + 1].Kind != kOpen)
      return FailAt(game, i,
                    std::string("Lists defined by \"") + (s[i].Value == 2 ? "Any" : "All") +
                        "\" must be enclosed in brackets.\r\rFor example:\r      All(inside place "
                        "bets)\r      All[Field, PassLine, Hard4]\r      Any(Big6, Field, "
                        "Checkstacks)\r      Any(4,5,6,8,9,10)");
    InsertTerminator(s, i + 1);
  }
  return true;
}

void FindLabels(ScriptCode& code) {
  auto& s = code.CompiledScript;
  auto& pool = code.StringPool;
  for (std::size_t i = 2; i + 1 < s.size(); ++i) {
    if (!IsMark(s[i - 1]) || !IsMark(s[i + 1])) continue;
    if (s[i].Kind == kString && s[i].Value > 0 && s[i].Value < static_cast<double>(pool.size())) {
      s[i].Kind = kLabel;
      pool[static_cast<std::size_t>(Code(s[i].Value))].Value = static_cast<double>(i);
    } else if (s[i].Kind == kNumber) {
      pool.push_back({FormatGeneral(s[i].Value), static_cast<double>(i)});
      s[i] = {kLabel, static_cast<double>(pool.size() - 1)};
    }
  }
}

int LineBefore(const std::vector<ScriptElement>& s, std::size_t at) {
  while (at > 0 && !IsMark(s[at])) --at;
  return at > 0 && s[at].Kind > kMark ? s[at].Kind - kMark : 1;
}

bool CheckDuplicates(Game& game) {
  ScriptCode& code = game.scriptCode;
  const auto& pool = code.StringPool;
  std::vector<std::pair<std::string, std::size_t>> labels;  // (name, pool index)
  for (std::size_t k = 1; k < pool.size(); ++k)
    if (pool[k].Value > 0) labels.emplace_back(LowerCase(Trim(pool[k].Text)), k);
  for (std::size_t a = 0; a + 1 < labels.size(); ++a) {
    for (std::size_t b = a + 1; b < labels.size(); ++b) {
      if (labels[a].first != labels[b].first) continue;
      const auto first = static_cast<std::size_t>(Code(pool[labels[a].second].Value));
      const auto second = static_cast<std::size_t>(Code(pool[labels[b].second].Value));
      const bool numeric = ParseNumberWord(labels[a].first).has_value();
      SetCompileMessage(
          game,
          std::string(numeric ? "A duplicate line number exists " : "A duplicate label exists ") +
              "in line " + std::to_string(LineBefore(code.CompiledScript, first)));
      SetSpanBetween(code, std::min(first, second), std::max(first, second));
      return false;
    }
  }
  return true;
}

}  // namespace

std::size_t MatchingClose(const std::vector<ScriptElement>& s, std::size_t open, std::size_t end) {
  int depth = 0;
  for (std::size_t j = open; j < end && j < s.size(); ++j) {
    if (s[j].Kind == kOpen)
      ++depth;
    else if (s[j].Kind == kClose && --depth == 0)
      return j;
  }
  return end;
}

bool CompileBrackets(Game& game) {
  if (!CheckBalance(game) || !CheckGroups(game)) return false;
  FindLabels(game.scriptCode);
  return CheckDuplicates(game);
}
