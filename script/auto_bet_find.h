// Find and replace in the editor's script (EdLines), line by line from the
// caret, wrapping at either end of the script; lower-cased unless the case
// is to match.
#pragma once

#include <optional>
#include <string>
#include <string_view>

struct Game;

// A match: its line (from 1) and its columns.
struct ScriptMatch {
  int line = 0;
  int column = 0;
  int endColumn = 0;
};

// The next match of `what` from (line, column) going down, or the one
// before it going up; the search wraps once round the script and finds
// nothing when it comes back to its start.
std::optional<ScriptMatch> FindInScript(const Game& game, std::string_view what, bool matchCase,
                                        bool down, int line, int column);
// Replaces every match in the script; the count. A change sets
// ScriptDirty and clears ScriptsOK.
int ReplaceAllInScript(Game& game, std::string_view what, std::string_view with, bool matchCase);
// "1 replacement was made." or N + " replacements were made."
std::string ReplacementsMadeText(int count);
