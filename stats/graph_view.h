// The desktop's bankroll graph view: its trend and the scale and top it
// settles on before it draws, from the view's own settings (Game::graph).
// The arithmetic is graph_math's, shared with the report figures; none of
// this draws, so it runs (and is tested) without a window.
//
// What must stay true:
// - FigureGraphScale moves GraphTop by at most one block of 50 rows up and
//   one down per call under Auto-Shift, and never under Manual.
#pragma once

#include "stats/graph_math.h"

struct Game;

// GraphTrend of GraphPlayer for every column, then FigureGraphRange.
void RebuildGraphTrend(Game& game);
// Steps 1 to 4 of drawing: snap-back, recentring, auto-shift and expansion.
void FigureGraphScale(Game& game, bool recentre);
