// The bankroll graph's rows of seats 1..8 in logical order. The page
// (columns 1..kGraphColumns), the previous page and the trend are rings
// with one start, Game::GraphStart, shared by every seat (so that moving a
// player's rows moves them whole); column 0, the roll label, is not part of
// a ring. Every reader goes through these, so it sees the columns in the
// order of the rolls however far the page has scrolled.
#pragma once

#include "core/game.h"

// The stored column of the page's logical column k (1..kGraphColumns).
inline int GraphSlot(const Game& g, int k) {
  const int slot = k + g.GraphStart;
  return slot > kGraphColumns ? slot - kGraphColumns : slot;
}

// The stored column of history column n: 0 the roll label, 1..kGraphColumns
// the page, kGraphColumns + 1..2 * kGraphColumns the previous page.
inline int GraphHistorySlot(const Game& g, int n) {
  if (n == 0) return 0;
  return n > kGraphColumns ? kGraphColumns + GraphSlot(g, n - kGraphColumns) : GraphSlot(g, n);
}

// p's bankroll at history column n (see GraphHistorySlot).
inline Currency& GraphHistory(Game& g, int p, int n) { return g.GraphBankroll(p, GraphHistorySlot(g, n)); }
inline const Currency& GraphHistory(const Game& g, int p, int n) {
  return g.GraphBankroll(p, GraphHistorySlot(g, n));
}

// p's bankroll at the page's column k (1..kGraphColumns).
inline Currency& GraphPage(Game& g, int p, int k) { return g.GraphBankroll(p, GraphSlot(g, k)); }
inline const Currency& GraphPage(const Game& g, int p, int k) { return g.GraphBankroll(p, GraphSlot(g, k)); }

// p's bankroll at the previous page's column k (1..kGraphColumns).
inline Currency& GraphPrevious(Game& g, int p, int k) {
  return g.GraphBankroll(p, kGraphColumns + GraphSlot(g, k));
}
inline const Currency& GraphPrevious(const Game& g, int p, int k) {
  return g.GraphBankroll(p, kGraphColumns + GraphSlot(g, k));
}

// p's trend at the page's column k (1..kGraphColumns).
inline Currency& GraphTrendAt(Game& g, int p, int k) { return g.GraphTrend(p, GraphSlot(g, k)); }
inline const Currency& GraphTrendAt(const Game& g, int p, int k) { return g.GraphTrend(p, GraphSlot(g, k)); }

// Stores the rings of seats 1..8 in logical order and sets the start to 0
// (what a new page, a new session and a loaded game begin from); forgets
// the scroll's window.
void StraightenGraphRows(Game& game);
