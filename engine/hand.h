// EndHand: the end of a hand at a seven-out. The decision passes call it
// inside the winners pass, right after the seven's one-roll bets are paid,
// so that the scripts that run later in the roll see frame 0 empty and
// frame 1 holding the hand just ended.
//
// What must stay true: only slots with a name are copied and cleared; the
// records (MostRollsHand and the others) are never touched here.
#pragma once

struct Game;

// Ends the hand: frame copies, the Fire bets, CloseHand, the dice's next holder.
void EndHand(Game& game);
// Copies the hand statistics of the slots in `named` (bit p for slot p, the
// slots with a name) to the last-hand frame and clears the current one.
void CloseHand(Game& game, unsigned named);
