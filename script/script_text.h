// Texts of a running script: the general format of numbers, the text of a
// number or string element, and the strings a run makes in its pool.
//
// A string element's Value says where its text is: above 0 an entry of
// AllStrings, 0 empty, -1 today's date, -2 the time, -15 empty (the "from
// roll" word), -800 - n the name of CheckStack n of ScriptBettor, -900 - n
// the name of player n.
//
// What must stay true: nothing here allocates once the texts and the pool
// entries it writes into have grown to the sizes a script needs, so a run
// in Hyper-Drive builds strings without touching the heap.
#pragma once

#include <string>
#include <string_view>

#include "script/code_state.h"

struct Game;

// Appends the general-format text of a number: up to 15 significant digits,
// no trailing zeros, an exponent ("1E+15", "1E-05") outside 0.0001 to 1E15.
void AppendGeneralNumber(std::string& out, double value);
// The general-format text of a number.
std::string GeneralNumberText(double value);

// The text of a number or string element, written to `out`. A string value
// that names nothing gives "" and the step note "Error building string.".
void ElementText(Game& game, const ScriptElement& element, std::string& out);

// A new entry at the end of AllStrings, its text emptied; returns its index,
// the Value of a string element that stands for it.
int NewRunString(Game& game);
// The longest text a run makes; a longer one is cut there, so that a
// script that doubles a text in a loop cannot exhaust the memory.
inline constexpr std::size_t kMaxRunText = 65'535;

// A string element for a new pool entry holding `text`, cut to kMaxRunText.
ScriptElement MakeRunString(Game& game, std::string_view text);

// Val: the number a text starts with.
double TextValue(std::string_view text);

// Adds a line to CurStepNote when step notes are gathered (ShowSteps on
// outside Hyper-Drive); lines are joined by CR.
void AddStepNote(Game& game, std::string_view line);
// True when a run gathers step notes.
bool StepNotesWanted(const Game& game);
