#include "script/auto_bet_find.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/game.h"
#include "core/text.h"
#include "script/auto_bet_editor.h"

namespace {

std::string Folded(std::string_view text, bool matchCase) {
  return matchCase ? std::string(text) : LowerCase(text);
}

}  // namespace

std::optional<ScriptMatch> FindInScript(const Game& game, std::string_view what, bool matchCase,
                                        bool down, int line, int column) {
  const std::vector<std::string> lines = EditorText(game);
  const int count = static_cast<int>(lines.size());
  if (what.empty() || count == 0) return std::nullopt;
  const std::string key = Folded(what, matchCase);
  const int start = std::clamp(line, 1, count);
  const int width = static_cast<int>(key.size());
  // count + 1 visits: the start line twice, its other side on the way back.
  for (int step = 0; step <= count; ++step) {
    const int l = down ? (start - 1 + step) % count + 1 : (start - 1 - step + count * 2) % count + 1;
    const std::string text = Folded(lines[static_cast<std::size_t>(l - 1)], matchCase);
    const int size = static_cast<int>(text.size());
    const int col = std::clamp(column, 0, size);
    std::size_t at = std::string::npos;
    if (down) {
      // First visit: right of the caret; last visit: left of it.
      const std::size_t from = step == 0 ? static_cast<std::size_t>(col) : 0;
      at = text.find(key, from);
      if (step == count && at != std::string::npos && static_cast<int>(at) + width > col)
        at = std::string::npos;
    } else {
      if (step == 0) {
        at = col >= width ? text.rfind(key, static_cast<std::size_t>(col - width)) : std::string::npos;
      } else {
        at = text.rfind(key);
        if (step == count && at != std::string::npos && static_cast<int>(at) < col)
          at = std::string::npos;
      }
    }
    if (at != std::string::npos)
      return ScriptMatch{l, static_cast<int>(at), static_cast<int>(at) + width};
  }
  return std::nullopt;
}

int ReplaceAllInScript(Game& game, std::string_view what, std::string_view with, bool matchCase) {
  if (what.empty()) return 0;
  std::vector<std::string> lines = EditorText(game);
  const std::string key = Folded(what, matchCase);
  int made = 0;
  for (std::string& line : lines) {
    // Matches are found in the line as it was: text put in by a replacement
    // is never searched again.
    const std::string folded = Folded(line, matchCase);
    std::size_t from = 0, at = folded.find(key);
    if (at == std::string::npos) continue;
    std::string replaced;
    for (; at != std::string::npos; at = folded.find(key, from)) {
      replaced.append(line, from, at - from);
      replaced += with;
      from = at + key.size();
      ++made;
    }
    replaced.append(line, from);
    line = std::move(replaced);
  }
  if (made > 0) SetEditorText(game, lines, true);
  return made;
}

std::string ReplacementsMadeText(int count) {
  return std::to_string(count) + (count == 1 ? " replacement was made." : " replacements were made.");
}
