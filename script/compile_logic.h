// Links the control structures of a compiled stream.
//
// If/Then/ElseIf/Else/EndIf, Do/Loop/ExitDo and GoTo/GoSub get the element
// indexes they jump to (Then -> its Else/ElseIf/EndIf, Else -> EndIf, Do <->
// Loop, ExitDo -> Loop, the reference behind GoTo/GoSub -> the label). The
// pass also works out the nesting level of each source line for the editor.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct Game;

// The logic pass over the stream of a script of lineCount lines; fills
// scriptCode.LineIndent; false with game.msg and span set on failure.
bool CompileLogic(Game& game, int lineCount);

// Rewrites lines (1-based) with 3 blanks a level, the structure words one
// level out, as the editor's automatic indenting shows them.
void IndentScriptLines(std::vector<std::string>& lines, const std::vector<std::int32_t>& indent);
