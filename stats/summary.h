// The figures of the Session Summary and Hands views, and the comps
// arithmetic that the summary and the script language share.
//
// Both views read the frame tallies for a selection of players; with nobody
// selected they read the table's own index (frame x 9), which holds every
// roll and hand. The comps take each rated bet's action in the frame at its
// own house edge (no line-bet mapping of Come points here).
//
// What must stay true:
// - FigureComps adds one frame index into running figures; a summary starts
//   them at zero and calls it for each selected player in slot order.
// - With CompsUseTrueProbs the comps ignore skewed dice for the time of the
//   call and leave ProbabilityDiceOn as they found it.
// - FigureBetTotals writes bet slot 0 of the statistics tables: working
//   storage of the views and the sessions log, never a bet's figures.
// - Counts of several players or totals are added in 64 bits: each count
//   fits a Long, their sum need not.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/currency.h"
#include "stats/selection.h"

struct Game;

// FigureBetTotals(i, t, from, to, clear): the totals of StatAction, StatWins
// and StatLosses (columns 1..6) over bets from..to at index i + 9 t, into
// bet slot 0 of that index; without clear they add to what is there.
void FigureBetTotals(Game& game, int i, int t, int from, int to, bool clear);

// The four running figures of the comps and the value they are worth.
struct CompFigures {
  double value = 0, vig = 0;
  Currency action, actionTime;
  std::int64_t decisions = 0, rolls = 0;
};
// FigureComps: adds frame index i into the running figures and works out value.
void FigureComps(Game& game, CompFigures& comps, int i);

struct SummaryFigures {
  int frame = 0;
  std::string selectionLabel;
  Shown totalRolls, totalHands, rollsShooting, rollsPerHour, simHours, simHoursShooting;
  std::string bankrollCaption;  // "Current bankroll", "Ending bankroll" or "Sum bankrolls"
  Shown bankrollCurrent, bankrollHigh, bankrollLow, bankrollAverage;
  std::array<std::string, 7> compLabels;  // the base in use carries a star
  std::array<Shown, 7> comps;
  // Decisions: Total # and Total $ rows by Wagers, Wins, Losses, Net $, Net %.
  std::array<std::array<Shown, 5>, 2> decisions;
};
// RefreshSummary for frame 0..4 and a selection.
SummaryFigures FigureSummary(Game& game, int frame, std::int32_t players);

constexpr int kHandRows = 15;  // totals 2..12, then Total, Naturals, Points
struct HandsFigures {
  int frame = 0;
  bool percent = false;
  std::string selectionLabel, explanation;
  // Rows 2..15 (0 and 1 unused): come-outs, passes, misses; a cell the view
  // leaves empty (a 2 can't pass, a 7 can't miss) has `none` set.
  std::array<std::array<Shown, 3>, kHandRows + 1> cells;
  Shown handTotal;  // hands for the session frames, rolls for the hand frames
  Shown totalRolls, mostRolls, mostComeouts, mostPasses, mostMisses;
  Shown avgRolls, avgComeouts, avgPasses, avgMisses;
};
// The label of hands row 2..15: the total, "Total", "Naturals", "Points".
std::string HandRowLabel(int row);
// RefreshHands for frame 0..4, a selection and the percent mode.
HandsFigures FigureHands(const Game& game, int frame, std::int32_t players, bool percent);
