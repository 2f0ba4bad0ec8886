// Auto-Play: the per-player standing orders that act on their own. The
// settling rules act in engine/settle.cpp; this unit holds the point actions
// of a roll that has just set a point, a new player's defaults, and what the
// Auto-Play form does to the game when an option changes (the form itself
// only shows these values and calls these procedures).
//
// What must stay true:
// - The point actions run for the seated players in slot order, after the
//   decisions of the roll and after the line odds rows follow the new point.
// - Switching an option on acts at once on what stands on the table;
//   switching it off, and the biases and handling rules, only store.
// - Every change of a bet goes through SetBetChecked (or the placing
//   procedures that wrap it); notices are silenced where the rule says so.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct Game;

// For the seated players (bit p for slot p) in slot order: full odds on Pass
// Line and Don't Pass, the Place bet on the point down. An open seat has no
// bets to act on.
void AutoPlayPointActions(Game& game, unsigned seated);
// Gives player p the Auto-Play defaults, the working defaults copied from slot 0.
void SetAutoPlayDefaults(Game& game, int p);

// Brings every bet of player p to the present adjustment mode, without notices.
void ApplyAutoAdjust(Game& game, int p);
// Stores AutoTakeFullOdds; switched on, the odds of p go to their maximum at once.
void ChangeAutoTakeFullOdds(Game& game, int p, bool on);
// Stores AutoLayFullOdds; switched on, the lay odds of p go to their maximum at once.
void ChangeAutoLayFullOdds(Game& game, int p, bool on);
// Stores AutoDownPlaceBets; switched on, Place bets on covered numbers come down at once.
void ChangeAutoDownPlaceBets(Game& game, int p, bool on);
// Stores AutoAdjustMode; above 0 the bets of p are adjusted at once.
void ChangeAutoAdjustMode(Game& game, int p, int mode);

// The next operator of a "Same Bet:" row: "+", "-", "x", "/" and back.
constexpr int NextOperator(int op) { return (op + 1) & 3; }
// Caption of an operator 0..3.
const char* OperatorCaption(int op);
// Colour value of an amount box: 192 for a non-zero amount under "-", else 9.
int AutoPlayAmountColor(double amount, int op);

// Bet ids of the working-on-the-come-out list: 1..84 but the Come and Don't
// Come points (7-12, 19-24) and the line and box bets (43-48).
std::vector<int> ComeOutListIds();
// Row text of the list for player p: the bet's name, " - Yes" or " - No".
std::string ComeOutRowText(const Game& game, int p, int b);
// Sets the working default of bets `ids` for the selected players (bit p), then the flags follow.
void SetComeOutWorking(Game& game, std::int32_t players, const std::vector<int>& ids, int value);
// Copies the working default of bets `ids` from the table's row (slot 0), then the flags follow.
void CopyComeOutDefaults(Game& game, std::int32_t players, const std::vector<int>& ids);
// The form's two-line heading (CR between) for a selection of players (bit p for player p).
std::string AutoPlayHeading(const Game& game, std::int32_t players);
