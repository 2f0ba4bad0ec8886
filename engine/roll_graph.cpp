// The bankroll graph's history, kept by the roll: one column per roll for
// each player, a page of 525 columns, and the previous page in columns
// 526..1050. A full page either starts a new page or scrolls by one column.
#include <algorithm>

#include "core/game.h"
#include "core/platform.h"
#include "core/seat_set.h"
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
    // By reference: a copy of each cell keeps the loop from running two
    // cells at a time.
    for (const Currency& c : g.GraphBankroll.Span(p, 1, kGraphColumns)) any |= c.raw;
    if (any == 0) idle |= 1u << p;
  });
  return idle;
}

void StartNewPage(Game& g) {
  const Currency rolls = Currency::FromWhole(g.RollTally(kTableSession, kEventRolls));
  for (int p = 1; p <= 8; ++p) {
    g.GraphBankroll(p, 0) = rolls;
    RestartRange(g, p);
    // The page becomes the previous page, columns 1.. to kGraphColumns + 1..
    const auto page = g.GraphBankroll.Span(p, 1, kGraphColumns);
    std::copy(page.begin(), page.end(), &g.GraphBankroll(p, kGraphColumns + 1));
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

// A full page (GraphRollCount at kGraphColumns) is due for the auto-print.
void NoteFullPage(Game& g) {
  if (g.GraphRollCount == kGraphColumns && g.roll.GraphAutoPrint) g.roll.GraphPrintDue = true;
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
  NoteFullPage(g);
}

// The roll's column for every seat but the idle ones among `open`.
inline void AddRollColumn(Game& g, unsigned open) {
  RollState& r = g.roll;
  r.GraphIdleSeats &= open;
  if (g.GraphRollCount >= kGraphColumns) {
    TurnPage(g);
    return;
  }
  // The page has room: widen the range and add the column in one sweep,
  // passing over the idle seats.
  const int count = ++g.GraphRollCount;
  if (r.GraphIdleSeats == 0) {
    for (int p = 1; p <= 8; ++p) AddColumn(g, p, count);
  } else {
    ForEachSeatIn(kEverySeat & ~r.GraphIdleSeats, [&g, count](int p) { AddColumn(g, p, count); });
  }
  // With the graph on screen and its average shown, the view's moving
  // average fills GraphTrend(p, count) here.
  NoteFullPage(g);
}

// The same after looking the open seats over for idle ones. Out of line,
// so that the usual step needs no frame.
[[gnu::noinline]] void FindIdleSeatsThenAddColumn(Game& g, unsigned open) {
  g.roll.GraphIdleSeats = FindIdleSeats(g, open);
  g.roll.GraphIdleFound = true;
  AddRollColumn(g, open);
}

}  // namespace

void ShiftGraphHistory(Game& g) {
  // Outside a roll anything may have written the rows: every seat is
  // treated as seated, which is the plain step.
  ShiftGraphHistory(g, kEverySeat);
}

void ShiftGraphHistory(Game& g, unsigned seated) {
  const unsigned open = kEverySeat & ~seated;
  if (!g.roll.GraphIdleFound && g.HyperDrive) [[unlikely]] {
    FindIdleSeatsThenAddColumn(g, open);
    return;
  }
  AddRollColumn(g, open);
}
