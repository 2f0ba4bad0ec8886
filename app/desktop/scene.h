// A full table for screenshots: eight players who have made every kind of
// bet through the game's own procedures (PlaceBet, RollDice with known dice),
// so that what is drawn is a state of play the game really reached.
#pragma once

struct Game;

// Seats eight players, sets the point at 6 and a Come point at 5, and
// leaves line bets with odds, Come and Don't Come points with odds, Place,
// Buy, Lay, Field, Big 6/8, hard ways, propositions, Horn, World, C and E,
// hops, Midway and Fire on the table, spread over the players.
void SeatFullTable(Game& game);

// Gives the first player a few named CheckStacks, one of them below zero,
// and chooses that player for frmCheckStacks.
void ShowSomeCheckStacks(Game& game);
