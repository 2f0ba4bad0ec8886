// Two figures of the statistics that scripts read: the moving average of a
// player's bankroll over the graph's history, and a frame's comps.
//
// The bankroll graph and the summary view show the same figures; they are
// kept here, beside their first reader, and read only the game's tables.
//
// What must stay true: both only read the game (the comps may figure with
// true dice for the time of the call); neither allocates.
#pragma once

struct Game;

// The average bankroll of player p over `span` columns of the graph history
// ending at `column` (1..1050, 0 the page's last column); a span below 1
// averages all rolls of the session, above 525 counts as 525.
double MovingBankrollAverage(const Game& game, int p, int column, double span);

// The comp value of frame index i under the comp rate and base now set.
double FigureComps(Game& game, int i);
