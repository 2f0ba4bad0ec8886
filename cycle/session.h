// NewSession: the start of a session. Tallies start again (the session just
// played going to the last-session frame when asked), bets and their copies
// are cleared, bankrolls come from each player's start rule, and the game in
// hand returns to a come-out with the shooter holding the dice.
//
// What must stay true: the all-sessions frame is cleared only when previous
// sessions are not preserved; the last-session frame changes only when the
// session being closed had a roll.
#pragma once

struct Game;

// diceMode: 0 drop the dice roll file, 1 rewind and play back, 2 continue as is.
void NewSession(Game& game, bool preserveGames, bool preserveCheckstacks, bool preserveSessionsLogs,
                int diceMode);
// The events log's lines of a session's start (the rule, the date, the
// players, the dice roll file in play, the shooter), when LogOn: what
// NewSession writes, for a session that starts without it (a command-line run).
void LogSessionStart(Game& game);
