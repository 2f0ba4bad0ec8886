#include "script/auto_bet_editor.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

#include "core/data_folder.h"
#include "core/game.h"
#include "core/text.h"
#include "script/compile_logic.h"
#include "script/files.h"

namespace {

// The structure words in the capitals the editor writes them with.
constexpr std::array<std::string_view, 14> kStructureWords = {
    "If", "Then", "ElseIf", "Else", "GoTo", "GoSub", "EndIf",
    "Return", "And", "Xor", "Or", "Do", "Loop", "ExitDo"};

bool WordChar(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '$'; }

int Clamp(int v, int lo, int hi) { return std::max(lo, std::min(v, hi)); }

// EdIndent and EdBandMark follow EdLines' size; the slot gets the lot.
void FitEditorArrays(ScriptSource& ss) {
  ss.EdIndent.resize(ss.EdLines.size(), 0);
  ss.EdBandMark.resize(ss.EdLines.size(), 0);
}

}  // namespace

void SetEditorText(Game& game, const std::vector<std::string>& lines, bool typed) {
  ScriptSource& ss = game.scriptSource;
  ss.EdLines.assign(1, std::string());
  ss.EdLines.insert(ss.EdLines.end(), lines.begin(), lines.end());
  if (ss.EdLines.size() < 2) ss.EdLines.emplace_back();
  ss.EdLineCount = static_cast<std::int32_t>(ss.EdLines.size() - 1);
  FitEditorArrays(ss);
  const int p = ss.EdPlayer;
  if (typed && p >= 1 && p < kScriptSlots) {
    ss.ScriptDirty[static_cast<std::size_t>(p)] = true;
    game.roll.ScriptsOK = false;
  }
  StoreEdLines(game);
}

std::vector<std::string> EditorText(const Game& game) {
  const ScriptSource& ss = game.scriptSource;
  const int last = static_cast<int>(ss.EdLines.size()) - 1;
  const int count = Clamp(ss.EdLineCount, 0, last);
  return {ss.EdLines.begin() + 1, ss.EdLines.begin() + 1 + count};
}

void SetEditorSelection(Game& game, const EditorSelection& s) {
  ScriptSource& ss = game.scriptSource;
  ss.EdSelStartLine = s.startLine;
  ss.EdSelStartColumn = s.startColumn;
  ss.EdSelEndLine = s.endLine;
  ss.EdSelEndColumn = s.endColumn;
  ss.EdCaretLine = s.caretLine;
  ss.EdCaretColumn = s.caretColumn;
  ss.EdTopLine = s.topLine;
  ss.EdLeftColumn = s.leftColumn;
}

EditorSelection EditorSelectionOf(const Game& game) {
  const ScriptSource& ss = game.scriptSource;
  return {ss.EdSelStartLine, ss.EdSelStartColumn, ss.EdSelEndLine, ss.EdSelEndColumn,
          ss.EdCaretLine,    ss.EdCaretColumn,    ss.EdTopLine,    ss.EdLeftColumn};
}

void OpenAutoBetEditor(Game& game) {
  ScriptSource& ss = game.scriptSource;
  if (ss.EdPlayer < 1 || ss.EdPlayer > 8) ss.EdPlayer = 1;
  const int p = ss.EdPlayer;
  ss.EditorOpen = false;  // no store of the editor's old copy over the slot
  ChangeEditorPlayer(game, p);
  ss.EditorOpen = true;
}

void CloseAutoBetEditor(Game& game) {
  StoreEdLines(game);
  game.scriptSource.EditorOpen = false;
}

void ChangeEditorPlayer(Game& game, int p) {
  ScriptSource& ss = game.scriptSource;
  if (p < 1 || p > 8) return;
  if (ss.EditorOpen) StoreEdLines(game);
  ss.EdPlayer = p;
  RefreshEditor(ss, p);
  FitEditorArrays(ss);  // a slot's indents and marks may be shorter than its lines
  const auto u = static_cast<std::size_t>(p);
  ss.EdTopLine = ss.ScriptTopLine[u];
  ss.EdLeftColumn = ss.ScriptLeftColumn[u];
  ss.EdSelStartColumn = ss.ScriptSelStartColumn[u];
  ss.EdSelEndColumn = ss.ScriptSelEndColumn[u];
  ss.EdSelStartLine = ss.ScriptSelStartLine[u];
  ss.EdSelEndLine = ss.ScriptSelEndLine[u];
  ss.EdCaretLine = ss.EdSelEndLine;
  ss.EdCaretColumn = ss.EdSelEndColumn;
  ss.EditorCaption = AutoBetCaption(game, p);
}

std::string AutoBetCaption(const Game& game, int p) {
  if (p < 0 || p >= kScriptSlots) return "Auto-Bet";
  const std::string& file = game.scriptSource.ScriptFile[static_cast<std::size_t>(p)];
  if (file.empty()) return "Auto-Bet";
  return "Auto-Bet (" + std::string(FileNameOf(file)) + ")";
}

std::vector<std::string> SelectedEditorLines(const Game& game) {
  const ScriptSource& ss = game.scriptSource;
  const int last = Clamp(ss.EdLineCount, 1, static_cast<int>(ss.EdLines.size()) - 1);
  int l1 = Clamp(ss.EdSelStartLine, 1, last), c1 = ss.EdSelStartColumn;
  int l2 = Clamp(ss.EdSelEndLine, 1, last), c2 = ss.EdSelEndColumn;
  if (l2 < l1 || (l2 == l1 && c2 < c1)) std::swap(l1, l2), std::swap(c1, c2);
  std::vector<std::string> out;
  for (int l = l1; l <= l2; ++l) {
    const std::string& text = ss.EdLines[static_cast<std::size_t>(l)];
    const int size = static_cast<int>(text.size());
    const int from = l == l1 ? Clamp(c1, 0, size) : 0;
    const int to = l == l2 ? Clamp(c2, from, size) : size;
    out.push_back(text.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from)));
  }
  if (l1 == l2 && out.front().empty()) out.clear();
  return out;
}

EditorSelection StepSpan(const Game& game, int startLine, int startColumn, int endLine,
                         int endColumn) {
  const ScriptSource& ss = game.scriptSource;
  const int last = Clamp(ss.EdLineCount, 1, static_cast<int>(ss.EdLines.size()) - 1);
  auto text = [&](int l) -> const std::string& { return ss.EdLines[static_cast<std::size_t>(l)]; };
  auto size = [&](int l) { return static_cast<int>(text(l).size()); };
  auto skipped = [](char c) { return c == ' ' || c == ':'; };
  int l1 = startLine > 0 ? Clamp(startLine, 1, last) : 1;
  int c1 = startLine > 0 ? Clamp(startColumn, 0, size(l1)) : 0;
  int l2 = Clamp(endLine, l1, last);
  // A mark behind the last line ends the script: the span runs to its end.
  int c2 = endLine > last ? size(l2) : Clamp(endColumn, 0, size(l2));
  if (l2 == l1) c2 = std::max(c1, c2);
  // Forward past blanks, colons and line ends to the statement's first character.
  while (l1 < l2 || (l1 == l2 && c1 < c2)) {
    if (c1 >= size(l1)) {
      ++l1, c1 = 0;
      continue;
    }
    if (!skipped(text(l1)[static_cast<std::size_t>(c1)])) break;
    ++c1;
  }
  // Back past them from the statement's end.
  while (l2 > l1 || (l2 == l1 && c2 > c1)) {
    if (c2 <= 0) {
      --l2, c2 = size(l2);
      continue;
    }
    if (!skipped(text(l2)[static_cast<std::size_t>(c2 - 1)])) break;
    --c2;
  }
  return {l1, c1, l2, c2, l2, c2, ss.EdTopLine, ss.EdLeftColumn};
}

bool CapitalizeStructureWords(std::string& line) {
  bool changed = false;
  bool quoted = false;
  std::size_t i = 0;
  while (i < line.size()) {
    const char c = line[i];
    if (c == '"') {
      quoted = !quoted;
      ++i;
      continue;
    }
    if (quoted) {
      ++i;
      continue;
    }
    if (c == '\'') break;  // a comment runs to the end of the line
    if (!WordChar(c)) {
      ++i;
      continue;
    }
    std::size_t end = i;
    while (end < line.size() && WordChar(line[end])) ++end;
    const std::string word = LowerCase(std::string_view(line).substr(i, end - i));
    for (std::string_view w : kStructureWords)
      if (LowerCase(w) == word && line.compare(i, end - i, w) != 0) {
        line.replace(i, end - i, w);
        changed = true;
      }
    i = end;
  }
  return changed;
}

std::vector<std::int32_t> BandMarks(const std::vector<std::string>& lines,
                                    const std::vector<std::int32_t>& indent) {
  std::vector<std::int32_t> marks(lines.size(), 0);
  auto level = [&](std::size_t i) { return i < indent.size() ? indent[i] : 0; };
  for (std::size_t i = 1; i < lines.size(); ++i) {
    if (i == 1) {
      marks[i] = 1;
      continue;
    }
    const std::string text = LowerCase(Trim(lines[i]));
    const int before = level(i - 1), now = level(i);
    bool flip = (before == 1 && now == 0) || (before == 0 && now == 1);
    if (!flip && now == 1) {
      auto opens = [&](std::string_view head, std::string_view closer) {
        if (!text.starts_with(head)) return false;
        const std::string close = LowerCase(closer);
        return text.find(close) == std::string::npos || text.ends_with(close);
      };
      flip = opens("if ", "then") || opens("do ", "loop");
    }
    marks[i] = flip ? 3 - marks[i - 1] : marks[i - 1];
  }
  return marks;
}

std::vector<std::int32_t> BlockLevels(const std::vector<std::string>& lines) {
  std::vector<std::int32_t> levels(lines.size(), 0);
  int depth = 0;
  for (std::size_t l = 1; l < lines.size(); ++l) {
    const std::string text = LowerCase(Trim(lines[l])) + " ";
    auto opens = [&](std::string_view head, std::string_view closer) {
      if (!text.starts_with(head)) return false;
      const std::string body(Trim(text));
      return body.find(closer) == std::string::npos || body.ends_with(closer);
    };
    if (opens("if ", "then") || opens("do ", "loop")) {
      levels[l] = ++depth;
    } else if (text.starts_with("if ")) {
      levels[l] = depth + 1;  // a one-line If stands at the level of its block
    } else if (text.starts_with("endif ") || text.starts_with("loop ")) {
      levels[l] = depth;
      depth = std::max(0, depth - 1);
    } else {
      levels[l] = depth;
    }
  }
  return levels;
}

void ApplyCompiledIndents(Game& game, bool reindent) {
  ScriptSource& ss = game.scriptSource;
  FitEditorArrays(ss);
  ss.EdIndent = BlockLevels(ss.EdLines);
  if (reindent) {
    std::vector<std::string> lines = ss.EdLines;
    IndentScriptLines(lines, ss.EdIndent);
    if (lines != ss.EdLines) {
      lines.erase(lines.begin());
      SetEditorText(game, lines, true);
    }
  }
  ss.EdBandMark = BandMarks(ss.EdLines, ss.EdIndent);
  StoreEdLines(game);
}
