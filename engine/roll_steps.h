// The engine's steps of a roll, in the order RollDice (cycle/roll.h) calls
// them: the tallies of the dice, the come-out/point state machine and the
// bankroll graph's history. Each works on the dice now on the table.
#pragma once

struct Game;

// The hand and roll tallies of the dice now on the table.
void TallyHandAndRoll(Game& game);
// Counts every event of the dice now on the table, in their fixed order,
// and moves every RollsSince count on by the roll (0 for the events shown).
void TallyRollEvents(Game& game);
// Moves the come-out/point state machine on DiceTotal.
void AdvanceStateMachine(Game& game);
// Shifts and extends the bankroll graph history by one roll.
void ShiftGraphHistory(Game& game);
// The same within a roll, with the seated players 1..8 as a bit set: open
// seats idle since the roll's own earlier columns are passed over.
void ShiftGraphHistory(Game& game, unsigned seated);
