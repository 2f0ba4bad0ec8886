// The whole-script passes that finish a translated record file: the marks
// the table left ("= dice total", "*1 " to "*6 "), output lines, rounding,
// prompts joined to their messages, merged Highest/Lowest/Average lines and
// the colon before EndIf and Else.
#include <string>
#include <vector>

#include "script/translate.h"

namespace {

std::size_t Indent(const std::string& line) {
  std::size_t n = line.find_first_not_of(' ');
  return n == std::string::npos ? line.size() : n;
}

bool IsCommentLine(const std::string& line) {
  std::size_t n = Indent(line);
  return n < line.size() && line[n] == '\'';
}

// Whether the line's text at its indent starts with `word` (lower case).
bool StartsWithWord(const std::string& line, std::string_view word) {
  return FindNoCase(std::string_view(line).substr(Indent(line)).substr(0, word.size()), word) == 0;
}

bool EndsWithNoCase(const std::string& line, std::string_view tail) {
  return line.size() >= tail.size() &&
         FindNoCase(std::string_view(line).substr(line.size() - tail.size()), tail) == 0;
}

std::string Trimmed(std::string_view s) {
  std::size_t a = s.find_first_not_of(' ');
  if (a == std::string_view::npos) return {};
  return std::string(s.substr(a, s.find_last_not_of(' ') - a + 1));
}

void DropTrailingColon(std::string& line) {
  TrimRight(line);
  if (!line.empty() && line.back() == ':') {
    line.pop_back();
    TrimRight(line);
  }
}

// Overwrites the text at `at` in place, as far as the line goes.
void Overwrite(std::string& line, std::size_t at, std::string_view with) {
  for (std::size_t i = 0; i < with.size() && at + i < line.size(); ++i) line[at + i] = with[i];
}

// Passes 1 and 2: "X = dice total" becomes "dice total = X" (or Die1, Die2,
// dice combo); `op` is "=" or "<>".
void DiceTotalPass(std::string& line, std::string_view mark, std::string_view op) {
  std::size_t m = FindNoCase(line, mark);
  if (m == std::string::npos) return;
  std::size_t ind = Indent(line);
  std::string spaces(ind, ' ');
  std::string subject = line.substr(ind, m - ind);
  std::string rest = line.substr(m + mark.size());
  std::string head = LowerCase(std::string_view(line).substr(ind, 4));
  std::string out;
  if (head == "die1" || head == "die2") {
    std::string face = ind + 9 < line.size() ? line.substr(ind + 9, 1) : std::string();
    out = spaces + (head == "die1" ? "Die1 " : "Die2 ") + std::string(op) + " " + face + rest;
  } else if (line.find('.') != std::string::npos) {
    out = spaces + "dice combo " + std::string(op) + " " + subject + rest;
  } else {
    out = spaces + "dice total " + std::string(op) + " " + subject + rest;
  }
  line = std::move(out);
  if (op == "<>") {
    std::size_t a = FindNoCase(line, "any");
    if (a != std::string::npos) Overwrite(line, a, "all");
  }
}

// Passes 3 to 8: a roll-count mark. The mark is overwritten with the
// comparison, which then leads the text behind the subject.
void RollMarkPass(std::string& line, std::string_view mark, std::string_view comparison,
                  std::string_view prefix, std::string_view anyBecomes) {
  std::size_t m = line.find(mark);
  if (m == std::string::npos) return;
  Overwrite(line, m, comparison);
  std::size_t a = FindNoCase(line, "any(");
  if (a != std::string::npos) {
    if (!anyBecomes.empty()) Overwrite(line, a, anyBecomes);
    std::string out = line.substr(0, a + 4);
    out += prefix;
    for (std::size_t i = a + 4; i < line.size(); ++i) {
      out += line[i];
      if (line[i] == ',') out += prefix;
    }
    line = std::move(out);
    return;
  }
  std::size_t ind = Indent(line);
  std::string subject = line.substr(ind, m - ind);
  line = std::string(ind, ' ') + std::string(prefix) + subject + line.substr(m);
}

void OutputToFilePass(std::string& line) {
  if (!StartsWithWord(line, "output to file")) return;
  TrimRight(line);
  if (EndsWithNoCase(line, "new line") || EndsWithNoCase(line, "new line :")) return;
  if (!line.empty() && line.back() == ':') {
    DropTrailingColon(line);
    line += " & tab :";
  } else {
    line += " & tab";
  }
}

void RoundPass(std::string& line) {
  if (!StartsWithWord(line, "round")) return;
  std::size_t ind = Indent(line);
  std::size_t from = ind + 5;
  std::size_t at = FindNoCase(line, "down to the nearest", from);
  if (at == std::string::npos) at = FindNoCase(line, "up to the nearest", from);
  if (at == std::string::npos) at = FindNoCase(line, "to the nearest", from);
  if (at == std::string::npos) return;
  std::string operand = Trimmed(std::string_view(line).substr(from, at - from));
  std::string phrase = line.substr(at);
  TrimRight(phrase);
  bool colon = !phrase.empty() && phrase.back() == ':';
  if (colon) DropTrailingColon(phrase);
  line = std::string(ind, ' ') + "Round " + phrase + " on " + operand;
  if (colon) line += " :";
}

void BlankKeyword(std::string& line, std::size_t length) {
  std::size_t ind = Indent(line);
  for (std::size_t i = ind; i < ind + length && i < line.size(); ++i) line[i] = ' ';
}

// Pass 11: a message line followed by a bet input line becomes its prompt.
void PromptPass(std::vector<std::string>& lines) {
  for (std::size_t i = lines.size(); i-- > 1;) {
    std::string& cur = lines[i];
    std::string& msg = lines[i - 1];
    if (!StartsWithWord(cur, "bet input(") || !StartsWithWord(msg, "show message")) continue;
    DropTrailingColon(msg);
    if (!msg.empty() && msg.back() == ';')
      msg.pop_back();
    else
      msg += " & cr";
    if (FindNoCase(cur, "bet input()") == std::string::npos) msg += " &";
    msg.replace(Indent(msg), 12, "Bet input(");
    BlankKeyword(cur, 10);
  }
}

// Passes 12 and 13: consecutive lines of one keyword become one statement.
void JoinPass(std::vector<std::string>& lines, std::string_view keyword) {
  for (std::size_t i = lines.size(); i-- > 1;) {
    std::string& cur = lines[i];
    std::string& earlier = lines[i - 1];
    if (!StartsWithWord(cur, keyword) || !StartsWithWord(earlier, keyword)) continue;
    DropTrailingColon(earlier);
    if (!earlier.empty() && earlier.back() == ';') {
      earlier.pop_back();
      earlier += " &";
    } else {
      earlier += " & cr &";
    }
    BlankKeyword(cur, keyword.size());
  }
}

// Passes 14 to 16: two neighbouring lines that differ only in the arguments
// of the function become one line with the arguments joined.
void MergePass(std::vector<std::string>& lines, std::string_view name) {
  for (std::size_t i = lines.size(); i-- > 1;) {
    const std::string& cur = lines[i];
    std::string& earlier = lines[i - 1];
    std::size_t a = FindNoCase(cur, name), b = FindNoCase(earlier, name);
    if (a == std::string::npos || b == std::string::npos) continue;
    std::size_t ca = cur.find(')', a + name.size());
    std::size_t cb = earlier.find(')', b + name.size());
    if (ca == std::string::npos || cb == std::string::npos) continue;
    if (LowerCase(Trimmed(std::string_view(cur).substr(ca + 1))) !=
        LowerCase(Trimmed(std::string_view(earlier).substr(cb + 1))))
      continue;
    if (LowerCase(Trimmed(std::string_view(cur).substr(0, 3))) !=
        LowerCase(Trimmed(std::string_view(earlier).substr(0, 3))))
      continue;
    std::string args = cur.substr(a + name.size(), ca - a - name.size());
    earlier.insert(cb, "," + args);
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(i));
  }
}

void ColonBeforeEndIfPass(std::vector<std::string>& lines) {
  for (std::size_t i = 1; i < lines.size(); ++i) {
    std::string t = LowerCase(Trimmed(lines[i]));
    if (t.rfind("endif", 0) != 0 && t.rfind("else", 0) != 0) continue;
    std::string& before = lines[i - 1];
    std::size_t last = before.find_last_not_of(' ');
    if (last != std::string::npos && before[last] == ':') before.erase(last, 1);
  }
}

}  // namespace

void TranslatePasses(std::vector<std::string>& lines) {
  for (std::string& line : lines) {
    if (IsCommentLine(line)) continue;
    DiceTotalPass(line, "= dice total", "=");
  }
  for (std::string& line : lines) {
    if (IsCommentLine(line)) continue;
    DiceTotalPass(line, "<> dice total", "<>");
  }
  struct MarkPass {
    std::string_view mark, comparison, prefix, anyBecomes;
  };
  static constexpr MarkPass kMarks[] = {
      {"*1 ", "<=", "# of rolls since ", ""}, {"*2 ", "> ", "# of rolls since ", "all("},
      {"*3 ", "> ", "# of rolls ", "sum("},   {"*4 ", "< ", "# of rolls ", "sum("},
      {"*5 ", "<>", "# of rolls ", "sum("},   {"*6 ", "= ", "# of rolls ", "sum("},
  };
  for (const MarkPass& pass : kMarks)
    for (std::string& line : lines)
      if (!IsCommentLine(line))
        RollMarkPass(line, pass.mark, pass.comparison, pass.prefix, pass.anyBecomes);
  for (std::string& line : lines) OutputToFilePass(line);
  for (std::string& line : lines) RoundPass(line);
  PromptPass(lines);
  JoinPass(lines, "show message");
  JoinPass(lines, "yes/no question");
  MergePass(lines, "highest(");
  MergePass(lines, "lowest(");
  MergePass(lines, "average(");
  ColonBeforeEndIfPass(lines);
}
