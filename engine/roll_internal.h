// Helpers shared by the files of the roll (roll.cpp, state_machine.cpp,
// roll_log.cpp, roll_graph.cpp, hand.cpp). Not for use outside the roll.
#pragma once

#include <string>
#include <string_view>

#include "core/currency.h"
#include "logs/events_log.h"

#include "config/sound.h"

struct Game;

// Where the dice of a roll came from, for its log line.
enum class DiceSource { Queued, Pad, File, Generator };

// The come-out call before a come-out roll (calls 18 and 17).
void PlayComeOutCall(Game& game);

// The events-log lines of a roll, each written only under LogOn.
// What the players changed since the last roll (scripts, ATM, bets, stacks).
void LogChangesSinceLastRoll(Game& game);
// The roll line: number, total, dice and where they came from.
void LogRollLine(Game& game, DiceSource source);
// The bankroll results of the roll and, after a seven-out, the next shooter.
void LogRollResults(Game& game);

// The sentence that ends the limit messages.
inline constexpr std::string_view kResetSentence =
    "Select \"New\" from the \"Game\" menu to reset the table.";
