// Tokenizer: one script's text to a flat stream of elements and a string pool.
//
// The language is not parsed by a grammar. Each line is tidied, its quoted
// strings moved to the pool, and then rewritten by the ordered phrase table of
// script/vocabulary.h into internal codes ("V3500", "L050", "A481" ...), which
// are finally cut at blanks into elements. A shadow copy of each line keeps the
// source columns so that statement marks can point back into the text.
//
// What must stay true:
// - Text between double quotes and text behind a comment apostrophe is never
//   rewritten, lower-cased or searched.
// - Element 0 of the stream is empty, element 1 the head (-3, slot), and every
//   statement is the run between two marks (kind >= 100); the stream ends in a
//   mark.
// - The reserved-word check uses the static rows only, never player names.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "script/compile_error.h"

struct Game;

// Marker that a refused name is replaced by.
inline constexpr std::string_view kReservedNameMarker = ">>>reserved word<<<";

// The normaliser shared with the editor: spacing of operators, numbers in
// double format, joined signs and compound words. Changes `line` in place.
void TidyScriptLine(std::string& line);

// True when a table phrase or symbol occurs in the lower-cased name put
// between two blanks; such a name cannot be a player's.
bool IsReservedWord(std::string_view name);

// The message shown when `name` is refused as a player's name.
std::string ReservedWordMessage(std::string_view name);

// Tokenizes `lines` (1-based; element 0 unused) as the script of slot p into
// game.scriptCode.CompiledScript and StringPool; the fault, with game.msg
// holding its message, or nothing.
std::optional<CompileError> TokenizeScript(Game& game, int p,
                                           const std::vector<std::string>& lines);
// The reserved-word check of a player's name: on a hit MsgText is set, the
// name becomes the marker and the answer is true.
bool RefuseReservedName(Game& game, std::string& name);
