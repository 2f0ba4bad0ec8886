// RollDice: the routine behind every roll. It checks that the roll may
// happen, logs what the players changed, takes two dice, tallies them, moves
// the come-out/point state machine, decides all bets, runs the scripts and
// takes the snapshots. In Hyper-Drive the same call loops by itself until
// KeepRolling falls; a run stops only between two rolls.
//
// What must stay true:
// - The order: dice before tallies, tallies before the state machine,
//   decisions before Auto-Play's point actions, scripts last.
// - Every decision of a roll tests PointAtRoll; the state machine alone
//   moves Point.
// - Nothing on the roll path draws, sounds or asks while HyperDrive is set,
//   and nothing allocates unless LogOn asks for log lines or a full page
//   of the bankroll graph is due for its auto-print.
#pragma once

#include <cstdint>

struct Game;

// One roll (or, in Hyper-Drive, a run of rolls until KeepRolling falls).
void RollDice(Game& game);
// Stops play for a bankroll beyond the limit: message, or StopMessage in Hyper-Drive.
void LimitExceeded(Game& game, int p);
// True when the bankroll of player p is beyond the limit in either sign.
bool BankrollBeyondLimit(const Game& game, int p);
// Marks every bet cell, working flag and graph row of every seat as
// changed, so that the roll's next snapshots copy them whole and its graph
// step passes no seat over: at the start of a RollDice call, after the
// scripts and after Hyper-Drive's event pumps, where the window, a file or
// a script may have written them.
void MarkSeatRowsChanged(Game& game);
// Queues a known pair for the next roll (roll pad, tests); false when full.
bool QueueDice(Game& game, int die1, int die2);
