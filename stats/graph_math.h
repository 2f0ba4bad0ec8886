// The bankroll graph's arithmetic, shared by the desktop's graph view
// (stats/graph_view.h) and the report figures (stats/bankroll_graph.h): the
// row of an amount, the scale ladder, the moving average over the history
// the roll keeps, the trend of a page and the page's range. None of it
// draws or holds state of its own; it reads and writes the game's tables.
//
// What must stay true:
// - NextGraphScale only ever returns a rung of the ladder 0.02, 0.04, 0.1,
//   0.2, 0.4, 1, 2, 4, 10 ... 40,000, 100,000.
// - The row of an amount is (GraphTop - amount) / GraphScale rounded to
//   nearest, half a row away from zero; rows 0..300 lie inside the picture.
// - MovingBankrollAverage never reads a column that was not filled: in the
//   first page it stops at column 1, and a span is at most a page (525).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/currency.h"

struct Game;

constexpr int kGraphRows = 301;                  // rows 0..300
constexpr int kGraphBottomRow = kGraphRows - 1;  // 300
constexpr int kGraphBlockRows = 50;              // a grid block, and one press of a shift button
constexpr int kGraphFitRows = 250;               // expansion keeps the page's range within this

// The row of amount a under GraphTop and GraphScale (may lie outside 0..300;
// 0 when the scale is not above 0).
std::int64_t GraphRow(const Game& game, Currency a);
// One rung up (dir 1) or down (-1) the scale ladder; stays at either end.
Currency NextGraphScale(Currency scale, int dir);
// 50 x scale x (Int(c / (50 x scale)) + 3): the top that puts c two to three
// blocks below it.
Currency GraphTopAbove(Currency scale, Currency c);
// The moving average of p's bankroll ending at `column` over `span` rolls;
// span 0 averages all rolls of the session with the beginning bankroll.
Currency MovingBankrollAverage(const Game& game, int p, int column, int span);
// p's trend for columns 1..GraphRollCount (index 0 unused): the moving
// average of `span` rolls, or with span 0 the average of all rolls up to
// each column, walked back from BankrollSum.
std::vector<Currency> GraphTrendColumns(const Game& game, int p, int span);
// The trend's label: n + " roll moving average", or "All rolls average".
std::string GraphTrendLabel(int span);
// GraphHigh(p) and GraphLow(p) from the bankroll and columns 1..GraphRollCount.
void FigureGraphRange(Game& game, int p);
