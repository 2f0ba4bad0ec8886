// Helpers shared by the tokenizer and the compiler passes: number text, the
// message of a failure, the error span, and the names used in messages.
//
// A pass that fails sets game.msg (MsgText, MsgHelpId 0, MsgStyle 1) and the
// four span values of game.scriptCode, and returns false; CompileScript stops
// at the first failure. Nothing here throws.
#pragma once

#include "core/text.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "script/code_state.h"

struct Game;

// An element's Value as a code or index; out-of-range values (a user's
// number can be anything) become -1 instead of overflowing.
constexpr int Code(double value) {
  return value > -1e9 && value < 1e9 ? static_cast<int>(value) : -1;
}

// Text of a number in general format: "7", "1.5", "0.01", "-1".
std::string FormatGeneral(double value);

// The value of a word that reads entirely as a number, else nothing.
std::optional<double> ParseNumberWord(std::string_view word);


// The text between double quotes, as messages name things.
std::string Quote(std::string_view text);


// Sets the failure message of a compile (MsgHelpId 0, MsgStyle 1).
void SetCompileMessage(Game& game, std::string text);

// Sets the span from the statement mark at or before element `at` to the
// mark after it; lines of marks without a line count as line 1.
void SetSpanAround(ScriptCode& code, std::size_t at);

// Sets the span from the mark at or before `from` to the mark after `to`.
void SetSpanBetween(ScriptCode& code, std::size_t from, std::size_t to);

// Fails the compile: message plus the span around element `at`; returns false.
bool FailAt(Game& game, std::size_t at, std::string text);

// Name of a function or variable as messages quote it ("Place", "Bankroll").
std::string FunctionName(int number);
std::string VariableName(int number);

// The class of a variable number: 0 .. 4 (how many qualifiers follow it).
constexpr int VariableClass(int n) {
  if (n >= 1 && n <= 85) return 4;
  if (n >= 86 && n <= 999) return 1;
  if (n >= 1000 && n <= 1999) return 2;
  if (n >= 2000 && n <= 2999) return 3;
  if (n >= 3000 && n <= 3999) return 0;
  if (n >= 4000) return 4;
  return 0;
}

// The class of a function number, counted as a variable (bets 4, CheckStacks 1).
int FunctionClass(int number);

// Index just behind `count` qualifiers that start at `first`; a player given
// as Player(...) is one qualifier with its bracket group.
std::size_t SkipQualifiers(const std::vector<ScriptElement>& s, std::size_t first, int count);

constexpr bool IsComparison(std::int32_t kind) { return kind >= kEqual && kind <= kGreaterEqual; }
constexpr bool IsMath(std::int32_t kind) { return kind >= kPower && kind <= kMinus; }
constexpr bool IsOperator(std::int32_t kind) { return kind >= kEqual && kind <= kConcat; }
constexpr bool IsLogicWord(std::int32_t kind) { return kind >= 1 && kind <= 19; }
constexpr bool IsValue(std::int32_t kind) { return kind == kNumber || kind == kString; }
