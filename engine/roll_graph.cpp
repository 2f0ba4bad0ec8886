// The bankroll graph's history, kept by the roll: one column per roll for
// each player, a page of 525 columns, and the previous page in columns
// 526..1050. A full page either starts a new page or scrolls by one column.
#include "core/game.h"
#include "core/platform.h"
#include "core/seat_set.h"
#include "engine/roll_steps.h"

namespace {

constexpr unsigned kEverySeat = 0x1FEu;  // bits 1..8

void RestartRange(Game& g, int p) {
  g.GraphHigh(p) = g.Bet(p, 0);
  g.GraphLow(p) = g.Bet(p, 0);
}

void Widen(Game& g, int p, Currency v) {
  if (v > g.GraphHigh(p)) g.GraphHigh(p) = v;
  if (v < g.GraphLow(p)) g.GraphLow(p) = v;
}

// Widens p's range by the bankroll and writes it as column `count`.
void AddColumn(Game& g, int p, int count) {
  const Currency bank = g.Bet(p, 0);
  Widen(g, p, bank);
  g.GraphBankroll(p, count) = bank;
}

// The open seats whose graph rows a column of 0 leaves as they are: no
// money, the range around 0 and every column of the page 0.
[[gnu::noinline]] unsigned FindIdleSeats(const Game& g, unsigned open) {
  unsigned idle = 0;
  ForEachSeatIn(open, [&g, &idle](int p) {
    if (!g.Bet(p, 0).IsZero() || g.GraphHigh(p) < Currency{} || g.GraphLow(p) > Currency{}) return;
    std::int64_t any = 0;
    for (const Currency c : g.GraphBankroll.Span(p, 1, kGraphColumns)) any |= c.raw;
    if (any == 0) idle |= 1u << p;
  });
  return idle;
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

// A full page: a new page or a scroll moves every seat's columns (an idle
// seat's stay 0), then the roll's column. Out of line: once in a page.
[[gnu::noinline]] void TurnPage(Game& g) {
  for (int p = 1; p <= 8; ++p) Widen(g, p, g.Bet(p, 0));
  if (g.roll.GraphPlotType == 0)
    StartNewPage(g);
  else
    ScrollByOne(g);
  const int count = ++g.GraphRollCount;
  for (int p = 1; p <= 8; ++p) g.GraphBankroll(p, count) = g.Bet(p, 0);
}

}  // namespace

void ShiftGraphHistory(Game& g) {
  // Outside a roll anything may have written the rows: every seat is
  // treated as seated, which is the plain step.
  ShiftGraphHistory(g, kEverySeat);
}

void ShiftGraphHistory(Game& g, unsigned seated) {
  RollState& r = g.roll;
  seated &= kEverySeat;
  const unsigned open = kEverySeat & ~seated;
  if (!r.GraphIdleFound && g.HyperDrive) {
    r.GraphIdleSeats = FindIdleSeats(g, open);
    r.GraphIdleFound = true;
  }
  r.GraphIdleSeats &= open;
  if (g.GraphRollCount < kGraphColumns) {
    // The page has room: widen the range and add the column in one sweep,
    // passing over the idle seats.
    const int count = ++g.GraphRollCount;
    if (r.GraphIdleSeats == 0) {
      for (int p = 1; p <= 8; ++p) AddColumn(g, p, count);
    } else {
      ForEachSeatIn(kEverySeat & ~r.GraphIdleSeats, [&g, count](int p) { AddColumn(g, p, count); });
    }
  } else {
    TurnPage(g);
  }
  const int count = g.GraphRollCount;
  // With the graph on screen and its average shown, the view's moving
  // average fills GraphTrend(p, count) here.
  if (count == kGraphColumns && g.roll.GraphAutoPrint) g.roll.GraphPrintDue = true;
}
