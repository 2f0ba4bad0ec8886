// The bankroll graph's data half: the moving average over the history the
// roll keeps, the page's range, the scale ladder, where the graph's top and
// scale go (the steps of a redraw that decide the stored scale and top), and
// the figures a window needs to draw one player's graph: every column's
// bankroll and line with their rows, the scale labels, the reference line
// differences and the figures beside the graph.
//
// What must stay true:
// - GraphScale only takes values of the ladder 0.02, 0.04, 0.1 ... 40,000,
//   100,000.
// - The row of an amount is (GraphTop - amount) / GraphScale rounded to
//   nearest (ties to even); rows 0..300 are inside the picture.
// - MovingBankrollAverage never reads a column that was not filled: in the
//   first page it stops at column 1, and a span is at most 525.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/currency.h"
#include "stats/selection.h"

struct Game;

constexpr int kGraphRows = 300;  // rows 0..300
constexpr int kGraphBlock = 50;  // rows per block of the grid and the shift buttons

// MovingBankrollAverage(p, column, span): span 0 averages all of the session.
Currency MovingBankrollAverage(const Game& game, int p, int column, int span);
// The trend line of player p for columns 1..GraphRollCount (index 0 unused):
// the moving average of `span` rolls, or with span 0 the average of all rolls
// up to each column.
std::vector<Currency> GraphTrendColumns(const Game& game, int p, int span);
// RebuildGraphTrend: writes GraphTrendColumns of GraphPlayer into GraphTrend,
// then FigureGraphRange. Returns the label: n & " roll moving average" or
// "All rolls average".
std::string RebuildGraphTrend(Game& game);
// FigureGraphRange(p): GraphHigh and GraphLow from the bankroll and the columns.
void FigureGraphRange(Game& game, int p);

// The scale one rung up or down the ladder; the same scale at either end.
Currency LargerGraphScale(Currency scale);
Currency SmallerGraphScale(Currency scale);
// DrawBankrollGraph's steps that place the graph: the snap-back scale, the
// recentred top, auto-shift and the expanding scale. The window draws the
// rest from FigureBankrollGraph.
void DrawBankrollGraph(Game& game, bool recentre);
// The row of an amount under the graph's top and scale.
long GraphRow(const Game& game, Currency amount);

struct GraphColumn {
  int x = 0;  // 1..525
  Currency bankroll, line;  // the line: the trend, or the invested bankroll
  long row = 0, lineRow = 0;
  bool bandBelow = false;  // the bankroll stands at or below the line
};

struct BankrollGraphFigures {
  int player = 0;
  std::string playerName;
  Currency scale, top;
  std::array<Shown, 7> scaleLabels;  // top, then every 50 rows down
  Shown rollsLeft, rollsRight;
  std::vector<GraphColumn> columns;
  long currentRow = 0;
  std::string averageLabel;  // "" when the average is not shown
  Shown totalRolls, rollsPerHour, simHours, high, low, current;
  std::string refRolls, refBankroll;  // picRefDif's two lines, "" when blank
};

// FormatSimHours(hours): "< 0.0001" for a sliver that rounds to nothing.
std::string FormatSimHours(double hours);
// Everything the window draws for player p (GraphPlayer by default).
BankrollGraphFigures FigureBankrollGraph(const Game& game, int p);
