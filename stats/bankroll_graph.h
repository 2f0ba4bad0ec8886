// The bankroll graph's figures for a report: everything a window needs to
// draw one player's graph, from the history the roll keeps and the graph
// settings the statistics views save (Game::views): every column's bankroll
// and line with their rows, the scale labels, the reference line
// differences and the figures beside the graph. The arithmetic (rows, the
// ladder, the moving average) is graph_math's, shared with the desktop view.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/currency.h"
#include "stats/graph_math.h"  // the shared arithmetic, for this header's users too
#include "stats/selection.h"

struct Game;

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
// Everything the window draws for player p (GraphPlayer by default); for a
// seat with no player, only the scale and the session's rolls.
BankrollGraphFigures FigureBankrollGraph(const Game& game, int p);
