// The driver of a compile: tokenizer and passes in order.
//
// CompileScript turns a script's lines into game.scriptCode.CompiledScript
// and StringPool. The passes run in a fixed order, each on the whole stream,
// and the first failure stops the compile with game.msg holding the message
// and errLine..errEndCol the span of source to highlight (errLine > 0 is the
// only sign of failure). On success the stream and pool are also kept as the
// slot's compiled script.
#pragma once

#include <string>
#include <vector>

struct Game;

// Compiles `lines` (1-based, element 0 unused) as the script of slot p
// (0: a Hot-Key script). errLine > 0 on failure.
void CompileScript(Game& game, int p, const std::vector<std::string>& lines, int& errLine,
                   int& errCol, int& errEndLine, int& errEndCol);
// Compiles the slot's own stored script, ScriptLines(p).
void CompileScript(Game& game, int p, int& errLine, int& errCol, int& errEndLine, int& errEndCol);
