// Brackets, function and list argument groups, labels and duplicate labels.
//
// Runs on the tokenized stream: every statement's brackets balance, every
// function and list keyword is followed by a bracket group (aggregates and
// lists get an empty terminator before their closing bracket), a lone string
// or number between two marks becomes a label, and no two labels share a
// name (trimmed, case-insensitive).
#pragma once

#include <cstddef>
#include <vector>

#include "script/code_state.h"

struct Game;

// The bracket pass; false with game.msg and the span set on failure.
bool CompileBrackets(Game& game);

// Index of the bracket that closes the one at `open` within [open, end), or
// `end` when it is missing.
std::size_t MatchingClose(const std::vector<ScriptElement>& s, std::size_t open, std::size_t end);
