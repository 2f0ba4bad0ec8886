// The roll pad's two ways to roll: a click on a cell (PadClick) rolls the
// dice of that cell through the ordinary roll cycle; "&Random Roll"
// (PadRandomRoll) rolls from the usual source. Both first offer to stop a
// Hyper-Drive run, or to interrupt a script run, instead of rolling, and do
// nothing while a roll is busy.
#pragma once

struct Game;

// What a click asks of the window.
enum class PadClickOutcome { Nothing, ShowMenu, Picked, Rolled };

// The pad's mouse-down: the right button opens the display menu; otherwise
// the cell under (x, y) on a form of width x height gives the dice and the
// roll goes off. rnd is a uniform value in [0, 1) for a picked total.
PadClickOutcome PadClick(Game& game, bool rightButton, int x, int y, int width, int height,
                         double rnd);
// cmdRandomRoll: an ordinary roll, no pad dice.
bool PadRandomRoll(Game& game);
