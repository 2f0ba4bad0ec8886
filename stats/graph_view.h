// The bankroll graph's arithmetic: rows of amounts, the scale ladder, the
// range of a page, the moving average, and the scale and top the view
// settles on before it draws. None of it draws, so it runs (and is tested)
// without a window; the desktop view only paints what these figures say.
//
// What must stay true:
// - GraphScale only ever takes a rung of the ladder 0.02 .. 100,000.
// - FigureGraphScale moves GraphTop by at most one block of 50 rows up and
//   one down per call under Auto-Shift, and never under Manual.
#pragma once

#include <cstdint>

#include "core/currency.h"

struct Game;

// The window's own graph arithmetic, kept apart from the report figures
// (stats/bankroll_graph.h) until the two are one.
namespace graph_view {

constexpr int kGraphRows = 301;      // rows 0..300
constexpr int kGraphBlockRows = 50;  // a grid block
constexpr int kGraphFitRows = 250;   // expansion keeps a range within this many rows

// The row of amount a under GraphTop and GraphScale (may lie outside 0..300).
std::int64_t GraphRow(const Game& game, Currency a);
// One rung up (dir 1) or down (-1) the scale ladder; stays at either end.
Currency NextGraphScale(Currency scale, int dir);
// GraphHigh(p) and GraphLow(p) from the bankroll and columns 1..GraphRollCount.
void FigureGraphRange(Game& game, int p);
// The moving average of p's bankroll ending at `column` over `span` rolls (0 all).
Currency MovingBankrollAverage(const Game& game, int p, int column, int span);
// GraphTrend of GraphPlayer for every column; returns the label of the average.
const char* RebuildGraphTrend(Game& game);
// Steps 1 to 4 of drawing: snap-back, recentring, auto-shift and expansion.
void FigureGraphScale(Game& game, bool recentre);

}  // namespace graph_view
