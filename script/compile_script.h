// The driver of a compile: tokenizer and passes in order.
//
// CompileScript turns a script's lines into game.scriptCode.CompiledScript
// and StringPool. The passes run in a fixed order, each on the whole stream,
// and the first failure stops the compile: the result holds the message
// (game.msg holds it too, for the message dialog) and the span of source to
// highlight. On success the stream and pool are also kept as the slot's
// compiled script.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "script/compile_error.h"

struct Game;

// Compiles `lines` (1-based, element 0 unused) as the script of slot p
// (0: a Hot-Key script); the first fault, or nothing when it compiled.
std::optional<CompileError> CompileScript(Game& game, int p, const std::vector<std::string>& lines);
// Compiles the slot's own stored script, ScriptLines(p).
std::optional<CompileError> CompileScript(Game& game, int p);
