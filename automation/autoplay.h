// Auto-Play: the per-player standing orders that act on their own during a
// roll. The settling rules live in engine/settle.cpp; this unit holds the
// point actions of a roll that has just set a point, and a new player's
// defaults.
#pragma once

struct Game;

// For players 1..8 in order: full odds on Pass Line and Don't Pass, the Place bet on the point down.
void AutoPlayPointActions(Game& game);
// Gives player p the Auto-Play defaults, the working defaults copied from slot 0.
void SetAutoPlayDefaults(Game& game, int p);
