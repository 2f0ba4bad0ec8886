// The bankroll graph's history, kept by the roll: one column per roll for
// each player, a page of 525 columns, and the previous page in columns
// 526..1050. A full page either starts a new page or scrolls by one column;
// a scroll moves the rings' start (core/graph_rows.h) rather than the
// columns, and keeps the page's range with a sliding window.
#include <algorithm>

#include "core/game.h"
#include "core/graph_rows.h"
#include "core/platform.h"
#include "core/seat_set.h"
#include "engine/roll_steps.h"

namespace {

void RestartRange(Game& g, int p) {
  g.GraphHigh(p) = g.Bet(p, bet::kBankroll);
  g.GraphLow(p) = g.Bet(p, bet::kBankroll);
}

void Widen(Game& g, int p, Currency v) {
  if (v > g.GraphHigh(p)) g.GraphHigh(p) = v;
  if (v < g.GraphLow(p)) g.GraphLow(p) = v;
}

// Widens p's range by the bankroll and writes it as column `count`.
void AddColumn(Game& g, int p, int count) {
  const Currency bank = g.Bet(p, bet::kBankroll);
  Widen(g, p, bank);
  g.GraphBankroll(p, count) = bank;
}

// The open seats whose graph rows a column of 0 leaves as they are: no
// money, the range around 0 and every column of the page 0.
[[gnu::noinline]] unsigned FindIdleSeats(const Game& g, unsigned open) {
  unsigned idle = 0;
  ForEachSeatIn(open, [&g, &idle](int p) {
    if (!g.Bet(p, bet::kBankroll).IsZero() || g.GraphHigh(p) < Currency{} ||
        g.GraphLow(p) > Currency{})
      return;
    std::int64_t any = 0;
    // By reference: a copy of each cell keeps the loop from running two
    // cells at a time.
    for (const Currency& c : g.GraphBankroll.Span(p, 1, kGraphColumns)) any |= c.raw;
    if (any == 0) idle |= 1u << p;
  });
  return idle;
}

void StartNewPage(Game& g) {
  StraightenGraphRows(g);
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

// The queue's stored columns, oldest first, in a ring of kGraphColumns.
using Queue = GraphScrollWindow::Queue;

// Position i of the queue's ring (i below 2 * kGraphColumns).
std::int16_t& At(Queue& q, int i) {
  return q.slot[static_cast<std::size_t>(i < kGraphColumns ? i : i - kGraphColumns)];
}

// Adds stored column `slot` as the newest, after dropping the columns it
// outdoes: `outdoes(a, b)` when a is at least as far out as b (ties keep
// the newest, which leaves the window last).
template <class Outdoes>
void Push(Queue& q, const Currency* row, int slot, Outdoes outdoes) {
  const Currency v = row[slot];
  while (q.size > 0 && outdoes(v, row[At(q, q.head + q.size - 1)])) --q.size;
  At(q, q.head + q.size) = static_cast<std::int16_t>(slot);
  ++q.size;
}

// Drops stored column `slot` if it is the oldest.
void DropOldest(Queue& q, int slot) {
  if (q.size > 0 && q.slot[static_cast<std::size_t>(q.head)] == slot) {
    q.head = q.head + 1 == kGraphColumns ? 0 : q.head + 1;
    --q.size;
  }
}

const auto kAtLeast = [](Currency a, Currency b) { return a >= b; };
const auto kAtMost = [](Currency a, Currency b) { return a <= b; };

// A scroll's range: the page's highest and lowest columns. The current
// bankroll, where the range restarts, is the page's last column, and a
// column leaves the window only by a scroll, so the queues' oldest columns
// are exactly what a rescan of the page would find.
void ScrolledRange(Game& g, int p) {
  const GraphScrollWindow& w = g.GraphWindow;
  const std::size_t i = static_cast<std::size_t>(p);
  g.GraphHigh(p) = g.GraphBankroll(p, w.high[i].slot[static_cast<std::size_t>(w.high[i].head)]);
  g.GraphLow(p) = g.GraphBankroll(p, w.low[i].slot[static_cast<std::size_t>(w.low[i].head)]);
}

// Fills the queues from the page, oldest column first.
void BuildWindow(Game& g) {
  for (int p = 1; p <= 8; ++p) {
    const std::size_t i = static_cast<std::size_t>(p);
    Queue& high = g.GraphWindow.high[i];
    Queue& low = g.GraphWindow.low[i];
    high = low = Queue{};
    const Currency* row = &g.GraphBankroll(p, 0);
    for (int k = 1; k <= kGraphColumns; ++k) {
      Push(high, row, GraphSlot(g, k), kAtLeast);
      Push(low, row, GraphSlot(g, k), kAtMost);
    }
  }
  g.GraphWindow.known = true;
}

// Scrolls the page by one column and adds the roll's: the rings' start
// moves on, so only the column that leaves and the one that comes are
// written. The page's first column becomes the previous page's last (in
// the stored column the previous page's first leaves), the roll's column
// takes its place as the page's last, and the trend's last column stays.
void ScrollByOne(Game& g) {
  const Currency first = Currency::FromWhole(g.RollTally(kTableSession, kEventRolls) - (kGraphColumns - 1));
  const int leavingSlot = GraphSlot(g, 1);
  const int lastSlot = GraphSlot(g, kGraphColumns);
  const bool known = g.GraphWindow.known;
  for (int p = 1; p <= 8; ++p) {
    const Currency leaving = g.GraphBankroll(p, leavingSlot);
    g.GraphBankroll(p, kGraphColumns + leavingSlot) = leaving;
    g.GraphTrend(p, leavingSlot) = g.GraphTrend(p, lastSlot);
    g.GraphBankroll(p, leavingSlot) = g.Bet(p, bet::kBankroll);
    g.GraphBankroll(p, 0) = first;
    if (known) {
      const std::size_t i = static_cast<std::size_t>(p);
      const Currency* row = &g.GraphBankroll(p, 0);
      DropOldest(g.GraphWindow.high[i], leavingSlot);
      DropOldest(g.GraphWindow.low[i], leavingSlot);
      Push(g.GraphWindow.high[i], row, leavingSlot, kAtLeast);
      Push(g.GraphWindow.low[i], row, leavingSlot, kAtMost);
    }
  }
  g.GraphStart = leavingSlot == kGraphColumns ? 0 : leavingSlot;
  if (!known) BuildWindow(g);
  for (int p = 1; p <= 8; ++p) ScrolledRange(g, p);
  g.platform->RequestRedraw(Redraw::Graph);
  g.GraphRollCount = kGraphColumns;
}

// A full page (GraphRollCount at kGraphColumns) is due for the auto-print.
void NoteFullPage(Game& g) {
  if (g.GraphRollCount == kGraphColumns && g.roll.GraphAutoPrint) g.roll.GraphPrintDue = true;
}

// A full page: a new page or a scroll moves every seat's columns (an idle
// seat's stay 0), then the roll's column. Out of line: once in a page.
[[gnu::noinline]] void TurnPage(Game& g) {
  if (g.roll.GraphPlotType == 0) {
    StartNewPage(g);
    g.GraphRollCount = 1;
    for (int p = 1; p <= 8; ++p) g.GraphBankroll(p, 1) = g.Bet(p, bet::kBankroll);
  } else {
    ScrollByOne(g);
  }
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
