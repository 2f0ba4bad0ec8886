// The script editor's operations on the game's tables, below any window.
//
// The editor window shows the script of EdPlayer and holds nothing of its
// own: every change of its text is put into EdLines at once and copied to
// the player's slot, so a roll, a save or a game file always sees the text
// the user sees. The window reports its selection and caret here too, so
// that a paste, a Check Script and a change of player work on the game's
// copy of them.
//
// What must stay true:
// - EdLines has EdLineCount + 1 elements (element 0 unused) and EdIndent
//   and EdBandMark have the same size.
// - A change the user typed sets ScriptDirty(EdPlayer) and clears
//   ScriptsOK; loading or showing text does neither.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct Game;

// The editor's text (line 1 first) to EdLines and the slot of EdPlayer;
// `typed`: the user changed it.
void SetEditorText(Game& game, const std::vector<std::string>& lines, bool typed);
// EdLines 1 to EdLineCount, line 1 first.
std::vector<std::string> EditorText(const Game& game);

// Where the editor's selection and caret stand (lines from 1, columns from 0).
struct EditorSelection {
  int startLine = 1, startColumn = 0, endLine = 1, endColumn = 0;
  int caretLine = 1, caretColumn = 0;
  int topLine = 1, leftColumn = 0;
};
// The window reports its selection, caret and scroll positions.
void SetEditorSelection(Game& game, const EditorSelection& selection);
// The selection as the game holds it.
EditorSelection EditorSelectionOf(const Game& game);

// The editor opened (EditorOpen set, its player's text loaded) or closed
// (the text stored to the slot, EditorOpen cleared).
void OpenAutoBetEditor(Game& game);
void CloseAutoBetEditor(Game& game);
// cmbPlayer: the text stored, EdPlayer = p, the editor's arrays and six
// positions from p's slot, the caption renewed.
void ChangeEditorPlayer(Game& game, int p);
// "Auto-Bet (" + the file's name without folders + ")", or "Auto-Bet".
std::string AutoBetCaption(const Game& game, int p);

// The selected text as lines, the first and last cut at the selection.
std::vector<std::string> SelectedEditorLines(const Game& game);

// The span a step of a run selects: from the end of the statement before
// (line 1 at the start) to the statement's end, with blanks and colons
// trimmed from both ends, held to the editor's lines.
EditorSelection StepSpan(const Game& game, int startLine, int startColumn, int endLine,
                         int endColumn);

// The structure words of a line in their capitals ("If", "EndIf", "GoSub"
// ...), outside quotes and comments; true when the line changed.
bool CapitalizeStructureWords(std::string& line);

// The two alternating bands of the highlight: 1 or 2 for each line
// (1-based, element 0 unused), flipping where a top-level block starts or
// ends, as the indents of the last compile say.
std::vector<std::int32_t> BandMarks(const std::vector<std::string>& lines,
                                    const std::vector<std::int32_t>& indent);
// The block level of each line of a script that compiled (1-based): a line
// inside n blocks is at level n, and the lines that open, divide or close a
// block (If ... Then, Else, EndIf, Do, Loop) at the level of its inside.
std::vector<std::int32_t> BlockLevels(const std::vector<std::string>& lines);
// After a successful compile: EdIndent from the block levels and EdBandMark
// from them; with `reindent` the lines are rewritten with 3 blanks a level,
// the structure words one level out (Auto-Indent), which counts as a change
// of the text when it changes one.
void ApplyCompiledIndents(Game& game, bool reindent);
