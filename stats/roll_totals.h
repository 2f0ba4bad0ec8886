// The figures of the Roll Totals and Roll Frequencies views: actual against
// probable counts of the roll categories in a frame for a set of players,
// and for one category the gaps between its showings.
//
// Both only read the tallies the roll keeps (RollTally, RollsSince,
// GapTally); nothing here runs on the roll path.
//
// What must stay true:
// - With nobody selected the totals read the table's own index (frame x 9).
// - "# of rolls since last" exists only for the session-wide frames
//   (current session, all sessions); the others show "---".
// - A selection with no rolls shows 0 percent and takes the graph's top from
//   the probable values alone.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "stats/roll_categories.h"
#include "stats/selection.h"

struct Game;

struct RollTotalsRow {
  int category = 0;
  std::string text;
  Shown probablePct, actualPct, count, rollsSince;
  double probableBar = 0, actualBar = 0;  // bar lengths, 0..223
};

struct RollTotalsFigures {
  int kind = 0, frame = 0;
  bool skewed = false;  // the skewed probabilities are in effect
  std::string selectionLabel;
  Shown totalRolls;
  double graphTop = 0;
  std::array<double, 4> axisMarks{};  // a quarter, a half, three quarters, the top
  std::vector<RollTotalsRow> rows;
  std::string explanation;
};

struct RollFreqGap {
  int gap = 0;  // 1..200; 200 stands for "200+"
  std::string gapText;
  std::int32_t count = 0;
};

struct RollFreqFigures {
  int category = 0;
  std::string text;
  Shown sessionRolls, selectionRolls, actualPct, rollsSince, average, probablePct;
  std::string probableCaption;  // "True probable %:" or "Skewed probable %:"
  std::vector<RollFreqGap> gaps;
};

constexpr double kBarLength = 223;

// The skewed dice of the game's probability table when probability dice are
// on; none otherwise.
std::optional<SkewedDice> GameSkewedDice(const Game& game);

// RefreshRollTotals: kind 0..3, frame 0..4, the selection bit set, and the
// "vs. skewed probability" choice (in effect only with probability dice).
RollTotalsFigures FigureRollTotals(const Game& game, int kind, int frame, std::int32_t players,
                                   bool vsSkewed);
// RefreshRollFreqs for category c (2..89).
RollFreqFigures FigureRollFreqs(const Game& game, int c, bool skewed);
