// The script store: each slot's source lines, indents and editor positions.
//
// Slot 0 is a Hot-Key's scratch script, slots 1 to 8 belong to the players.
// What must stay true:
// - ScriptLines(p) always has an element 0 that is never written to a file;
//   its real lines are 1 to size()-1. An empty script is exactly { "" }.
// - ScriptIndent(p) and ScriptBandMark(p) have the same size as
//   ScriptLines(p), one element a line.
// - EdLines is the editor's copy of ScriptLines(EdPlayer) with EdLineCount
//   lines; an emptied editor holds bounds 0 to 1 and EdLineCount = 1.
// - ScriptFile(p) keeps each '&' of the path doubled, so it can stand in a
//   caption as it is.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "script/hot_key_state.h"

constexpr int kScriptSlots = 9;

struct ScriptSource {
  std::array<std::vector<std::string>, kScriptSlots> ScriptLines{};
  std::array<std::vector<std::int32_t>, kScriptSlots> ScriptIndent{};
  std::array<std::vector<std::int32_t>, kScriptSlots> ScriptBandMark{};

  std::array<std::string, kScriptSlots> ScriptFile{};        // '&' doubled
  std::array<std::string, kScriptSlots> ScriptOutputFile{};  // "Output to file" target
  std::array<bool, kScriptSlots> ScriptDirty{};

  // Editor position of each player, restored when the editor changes player.
  std::array<std::int32_t, kScriptSlots> ScriptTopLine{};
  std::array<std::int32_t, kScriptSlots> ScriptLeftColumn{};
  std::array<std::int32_t, kScriptSlots> ScriptSelStartColumn{};
  std::array<std::int32_t, kScriptSlots> ScriptSelEndColumn{};
  std::array<std::int32_t, kScriptSlots> ScriptSelStartLine{};
  std::array<std::int32_t, kScriptSlots> ScriptSelEndLine{};

  // The editor's copy of the script of EdPlayer.
  std::vector<std::string> EdLines{"", ""};
  std::vector<std::int32_t> EdIndent{0, 0};
  std::vector<std::int32_t> EdBandMark{0, 0};
  std::int32_t EdLineCount = 1;
  std::int32_t EdPlayer = 1;

  // What the editor window reports of itself (written by the editor, read
  // by StoreEdLines and by a paste): whether it is open, its scroll and
  // selection positions, and its caret (line from 1, column from 0).
  bool EditorOpen = false;
  std::string EditorCaption = "Auto-Bet";
  std::int32_t EdTopLine = 1;
  std::int32_t EdLeftColumn = 0;
  std::int32_t EdSelStartColumn = 0;
  std::int32_t EdSelEndColumn = 0;
  std::int32_t EdSelStartLine = 1;
  std::int32_t EdSelEndLine = 1;
  std::int32_t EdCaretLine = 1;
  std::int32_t EdCaretColumn = 0;

  // The Hot-Keys, in the order they are searched (HotKeyCount = size()).
  std::vector<HotKeyRow> HotKeyTable;

  bool PastingScript = false;  // the editor pastes a file at its caret
  bool HotKeyRunning = false;  // a Hot-Key is prepared or run: ScriptFile untouched

  // The diagnostic text of the last failure in the script files.
  std::string ErrorText;

  ScriptSource() {
    for (int p = 0; p < kScriptSlots; ++p) {
      ScriptLines[p].assign(1, std::string());
      ScriptIndent[p].assign(1, 0);
      ScriptBandMark[p].assign(1, 0);
      ScriptTopLine[p] = 1;
      ScriptSelStartLine[p] = 1;
      ScriptSelEndLine[p] = 1;
    }
  }

  friend bool operator==(const ScriptSource&, const ScriptSource&) = default;
};
