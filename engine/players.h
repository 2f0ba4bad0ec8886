// Players at the rail: joining, renaming, moving, cashing out, and the dice
// passing from shooter to shooter.
//
// A seat (1..8) is open while its PlayerName is empty, else it belongs to one
// player, who owns everything indexed by that seat: bets, money, statistics,
// Auto-Play settings, script and CheckStacks. What must stay true:
// - PlayerCount is the number of named seats.
// - A move swaps the whole content of two seats, so nothing of a player is
//   left behind and a move to a taken seat trades places.
// - Shooter, HandShooter and PrevHandShooter name a taken seat or 0.
// - The dice travel downward (8 after 1), over open seats, players who don't
//   want to shoot, and players who can't for want of a line bet.
// The procedures with dialogs go through ShowMessage; SeatPlayer and
// RenamePlayerTo are the same operations for callers that already have the
// answers (the command line, the game file, tests).
#pragma once

#include <string>
#include <string_view>

#include "core/currency.h"

struct Game;

// The rail name of seat p: "4-left" for seat 1 ... "4-right" for seat 8.
std::string RailPositionName(int p);
// Seats a named player with a buy-in, without dialogs. The name must have
// passed PlayerNameProblem (cycle/player_names.h); the bankroll lies within +-9,999,999.
void SeatPlayer(Game& game, int position, std::string_view name, Currency bankroll);
// Swaps the whole content of seats a and b; the dice follow or pass.
void MovePlayer(Game& game, int from, int to);
// What the player at seat p leaves behind when cashing out: contract bets
// that can't come down. comeBets receives how many Come bets are among them.
Currency AbandonedAmount(const Game& game, int p, int* comeBets = nullptr);
// Cashes out CurPlayer after asking (mnuPlayerDelete); true when removed.
bool CashOutPlayer(Game& game);
// Passes the dice to the next player who can shoot; notices only when interactive.
void PassDice(Game& game, bool interactive);
// mnuPlayerAdd: tells the user to click an open rail position.
void PromptAddPlayer(Game& game);
// mnuPlayerMove: the next rail click moves CurPlayer there.
void StartMovePlayer(Game& game);
// Clears seat p's money, bets, CheckStacks, Auto-Play rules and working states.
void ResetPlayer(Game& game, int p);
// True when seat p (1..8) has a player.
bool Seated(const Game& game, int p);
// The seat taking the name that another seat has (case ignored), or 0.
int SeatNamed(const Game& game, std::string_view name, int exceptSeat = 0);
// A line of the events log, written only when the log is on.
void LogPlayerLine(Game& game, std::string_view line);
