// Script actions: how a script changes the game.
//
// Two doors. SetTarget writes one variable: a bet, a CheckStack, a
// CheckStack's name or a setting. TakeAction carries out a command that is
// no assignment: a new session, a message, a question, an output file, a
// sound, the ATM, a swap. Both act with the rights of the script's player
// (ScriptBettor) and obey that player's permissions.
//
// What must stay true:
// - Nothing here stops a run: an action that can't be done leaves a step
//   note ("Unable to take action." and the reason) and the run goes on.
// - Every amount reaches a bet through PlaceBet, so the table's rules,
//   limits and the bankroll hold for a script exactly as for a click.
// - A file a script names is opened only inside the action and lies in the
//   data folder unless the player may use any folder.
#pragma once

#include "script/code_state.h"

struct Game;

// Writes the target at WorkStatement(position) (its qualifiers behind it):
// absolute sets the value, otherwise the value is added.
void SetTarget(Game& game, int position, const ScriptElement& value, bool absolute);

// The present value of the target at WorkStatement(position): an amount or
// a setting as a number, a CheckStack's name as a string.
ScriptElement ReadTargetValue(Game& game, int position);

// Acts on one target of an assignment (action 0) or of actions 450 to 489.
void ActOnTarget(Game& game, int action, int position, const ScriptElement& value);

// Carries out actions 100 to 399; the arguments stand behind the action in
// WorkStatement.
void TakeAction(Game& game, int action);
