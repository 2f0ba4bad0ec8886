// The Auto-Play form works on a selection of players (bit p for player p):
// every control writes its value to each selected player through the change
// procedures of automation/autoplay.h, and the form shows a group as agreed
// only when every selected player has the value of the first one. The form
// itself keeps nothing: it asks these procedures what to show and calls them
// on every change.
//
// What must stay true:
// - A write reaches every selected player who sits at the table and no one
//   else; a selection bit of an empty seat is ignored.
// - Every write marks the game as changed (SessionDirty).
// - Switching an option on acts at once through the change procedures (full
//   odds taken, Place bets down, bets adjusted), player by player in slot order.
#pragma once

#include <cstdint>

#include "core/currency.h"

struct Game;

// The single-valued options of a player, one group of the form each.
enum class AutoPlayOption {
  kTakeFullOdds,   // AutoTakeFullOdds, 0/1
  kLayFullOdds,    // AutoLayFullOdds, 0/1
  kDownPlaceBets,  // AutoDownPlaceBets, 0/1
  kPassDice,       // AutoPassDice, 0/1
  kAdjustMode,     // AutoAdjustMode, 0..2
  kLayBias,        // 0..2 each
  kPlaceBias,
  kDoBias,
  kDontBias,
  kHandleWinning,  // WinRule 0..7
  kHandleLosing,   // LoseRule 0..7
};

// The parts of an adjustment slot (9..12) that the form edits.
enum class AdjustPart { kOperator, kAmount, kUnits };

// The selection as the form uses it: with exactly one player at the table,
// that player; otherwise the stored bits of the seated players.
std::int32_t EffectiveAutoPlaySelection(const Game& game);
// Stores the form's selection (bits of empty seats dropped) and marks the game changed.
void SetAutoPlaySelection(Game& game, std::int32_t players);
// The first seated player of a selection, 0 when there is none.
int FirstSelectedPlayer(const Game& game, std::int32_t players);

// The value of an option for player p.
int AutoPlayValue(const Game& game, int p, AutoPlayOption option);
// Writes `value` to every selected player through the change procedures.
void SetAutoPlayOption(Game& game, std::int32_t players, AutoPlayOption option, int value);
// True when every selected player has the option's value of the first one.
bool AutoPlayAgrees(const Game& game, std::int32_t players, AutoPlayOption option);

// True when every selected player has the first one's value of that part.
bool AdjustAgrees(const Game& game, std::int32_t players, int k, AdjustPart part);
// cmdMathOperator: the first player's operator stepped ("+", "-", "x", "/"
// and back), stored for every selected player; returns the new operator.
int StepAdjustOperator(Game& game, std::int32_t players, int k);
// cmdUnits: the first player's units stepped ("$", "%" and back), stored for
// every selected player; returns the new units.
int StepAdjustUnits(Game& game, std::int32_t players, int k);
// txtModifyAmount: stores the amount (never below 0) for every selected player.
void SetAdjustAmount(Game& game, std::int32_t players, int k, Currency amount);
// Caption of cmdUnits on the " Same Bet:" rows: "$" (0) or "%" (1).
const char* AutoPlayUnitsCaption(int units);
