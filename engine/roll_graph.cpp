// The bankroll graph's history, kept by the roll: one column per roll for
// each player, a page of 525 columns, and the previous page in columns
// 526..1050. A full page either starts a new page or scrolls by one column.
#include "core/game.h"
#include "core/platform.h"
#include "engine/roll_steps.h"

namespace {

void RestartRange(Game& g, int p) {
  g.GraphHigh(p) = g.Bet(p, 0);
  g.GraphLow(p) = g.Bet(p, 0);
}

void Widen(Game& g, int p, Currency v) {
  if (v > g.GraphHigh(p)) g.GraphHigh(p) = v;
  if (v < g.GraphLow(p)) g.GraphLow(p) = v;
}

void StartNewPage(Game& g) {
  const Currency rolls = Currency::FromWhole(g.RollTally(kTableSession, kEventRolls));
  for (int p = 1; p <= 8; ++p) {
    g.GraphBankroll(p, 0) = rolls;
    RestartRange(g, p);
    for (int k = 1; k <= kGraphColumns; ++k)
      g.GraphBankroll(p, k + kGraphColumns) = g.GraphBankroll(p, k);
  }
  g.GraphRollCount = 0;
  g.platform->RequestRedraw(Redraw::Graph);
}

void ScrollByOne(Game& g) {
  const Currency first = Currency::FromWhole(g.RollTally(kTableSession, kEventRolls) - (kGraphColumns - 1));
  for (int p = 1; p <= 8; ++p) {
    RestartRange(g, p);
    const Currency leaving = g.GraphBankroll(p, 1);
    for (int k = 1; k < kGraphColumns; ++k) {
      g.GraphBankroll(p, k) = g.GraphBankroll(p, k + 1);
      g.GraphTrend(p, k) = g.GraphTrend(p, k + 1);
      Widen(g, p, g.GraphBankroll(p, k));
    }
    for (int k = kGraphColumns + 1; k < 2 * kGraphColumns; ++k)
      g.GraphBankroll(p, k) = g.GraphBankroll(p, k + 1);
    g.GraphBankroll(p, 2 * kGraphColumns) = leaving;
    g.GraphBankroll(p, 0) = first;
  }
  g.platform->RequestRedraw(Redraw::Graph);
  g.GraphRollCount = kGraphColumns - 1;
}

}  // namespace

void ShiftGraphHistory(Game& g) {
  if (g.GraphRollCount < kGraphColumns) {
    // The page has room: widen the range and add the column in one sweep.
    const int count = ++g.GraphRollCount;
    for (int p = 1; p <= 8; ++p) {
      const Currency bank = g.Bet(p, 0);
      Widen(g, p, bank);
      g.GraphBankroll(p, count) = bank;
    }
  } else {
    for (int p = 1; p <= 8; ++p) Widen(g, p, g.Bet(p, 0));
    if (g.roll.GraphPlotType == 0)
      StartNewPage(g);
    else
      ScrollByOne(g);
    const int count = ++g.GraphRollCount;
    for (int p = 1; p <= 8; ++p) g.GraphBankroll(p, count) = g.Bet(p, 0);
  }
  const int count = g.GraphRollCount;
  // With the graph on screen and its average shown, the view's moving
  // average fills GraphTrend(p, count) here.
  if (count == kGraphColumns && g.roll.GraphAutoPrint) g.roll.GraphPrintDue = true;
}
