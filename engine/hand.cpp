#include "engine/hand.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/move_cells.h"
#include "core/seat_set.h"
#include "engine/players.h"
#include "engine/resolve.h"

namespace {

using StatTable = decltype(Game::StatAction);
// Cells from a current-hand row of a statistics table to the same row of
// the last-hand frame.
constexpr std::ptrdiff_t kToLastHand = static_cast<std::ptrdiff_t>(
    StatTable::Index(FrameIndex(0, kFrameLastHand), 0, 0) - StatTable::Index(0, 0, 0));

// The columns of a decision row that hold figures. Column 0 of the bet
// rows is never written (the tally, the file and the views use columns
// 1..6), so it stays 0 in every frame and a hand's end leaves it be.
constexpr std::size_t kStatFigures = kStatColumnCount - kStatCount;

// Moves the figures of the current-hand row at `at` (column 0) to the
// last-hand row and clears them.
inline void MoveRowToLastHand(StatTable& t, std::size_t at) {
  Currency* const hand = t.cells.data() + at + kStatCount;
  MoveCells<kStatFigures>(hand, hand + kToLastHand);
}

// Clears the figures of the last-hand row whose current-hand row is at `at`.
inline void ClearLastHandRow(StatTable& t, std::size_t at) {
  std::fill_n(t.cells.data() + at + kStatCount + kToLastHand, kStatFigures, Currency{});
}

// Calls rowStep(table, at) on each of the three statistics tables for each
// bet row of slot p in `rows`, word w of a row set; `at` is the row's
// current-hand index, which the tables share as they share one layout.
template <class RowStep>
void ForEachStatRow(Game& g, int p, int w, std::uint64_t rows, RowStep rowStep) {
  for (; rows != 0; rows &= rows - 1) {
    const int b = 64 * w + std::countr_zero(rows);
    if (b < 1 || b > kLastRealBet) continue;
    const std::size_t at = StatTable::Index(p, b, 0);
    rowStep(g.StatAction, at);
    rowStep(g.StatWins, at);
    rowStep(g.StatLosses, at);
  }
}

// Moves the whole row of slot p's current-hand frame, rows being contiguous.
template <class T, int L2, int H2, int L3, int H3>
void MoveToLastHand(Table3<T, 0, kLastFrameIndex, L2, H2, L3, H3>& t, int p) {
  MoveCells<(H2 - L2 + 1) * (H3 - L3 + 1)>(&t(p, L2, L3), &t(FrameIndex(p, kFrameLastHand), L2, L3));
}

template <class T, int L2, int H2>
void MoveToLastHand(Table2<T, 0, kLastFrameIndex, L2, H2>& t, int p) {
  MoveCells<H2 - L2 + 1>(&t(p, L2), &t(FrameIndex(p, kFrameLastHand), L2));
}

template <class T>
void MoveToLastHand(Table1<T, 0, kLastFrameIndex>& t, int p) {
  t(FrameIndex(p, kFrameLastHand)) = t(p);
  t(p) = T{};
}

// The slots 0..8 with a name, as bits: one pass without a jump per slot.
unsigned NamedSlots(const Game& g) {
  unsigned named = 0;
  for (int p = 0; p < kPlayerSlots; ++p)
    named |= static_cast<unsigned>(SeatNamed(g, p)) << p;
  return named;
}

// The same at a hand's end: within a roll, the seats the roll started with
// while it knows no one can have been seated since (RollState::SeatsAtRoll),
// and the House.
unsigned NamedSlotsAtHandsEnd(const Game& g) {
  if (!g.roll.SeatsKnown) return NamedSlots(g);
  return g.roll.SeatsAtRoll | static_cast<unsigned>(SeatNamed(g, kHouse));
}

}  // namespace

void CloseHand(Game& g, unsigned named) {
  ForEachSeatIn(named, [&g](int p) {
    // The House never bets, so its money tallies are zero in both frames;
    // skipping them keeps a hand's end cheap in a run without players.
    if (p > 0) {
      // Only the rows that may hold figures in either frame move; a row
      // that is zero in both would move zeros onto zeros.
      auto& thisHand = g.StatRowsThisHand[static_cast<std::size_t>(p)];
      auto& lastHand = g.StatRowsLastHand[static_cast<std::size_t>(p)];
      for (int w = 0; w < 2; ++w) {
        ForEachStatRow(g, p, w, thisHand[w],
                       [](StatTable& t, std::size_t at) { MoveRowToLastHand(t, at); });
        // A row outside this hand's set is zero in the current hand: its
        // move only clears the last-hand row.
        ForEachStatRow(g, p, w, lastHand[w] & ~thisHand[w],
                       [](StatTable& t, std::size_t at) { ClearLastHandRow(t, at); });
      }
      lastHand = thisHand;
      thisHand = {0, 0};
      MoveToLastHand(g.ComeTravelTotal, p);
    }
    MoveToLastHand(g.TotalsTally, p);
    g.RollsAtTable.MoveToLastHand(p);
    MoveToLastHand(g.HandsTally, p);
  });
  g.ComeoutsThisHand = 0;
  g.PassesThisHand = 0;
  g.MissesThisHand = 0;
}

void EndHand(Game& g) {
  unsigned named = NamedSlotsAtHandsEnd(g);
  ForEachSeatIn(named, [&g](int p) { g.RollTally.MoveToLastHand(p); });

  if (g.FirePayoff(1, FireRow(g)).raw > 0) {
    for (int seat = 1; seat <= 8; ++seat) ResolveBet(g, seat, kWins, bet::kFire);
    // Settling a bet may go through the platform, so the names are read
    // again after the Fire bets; without them nothing ran that seats anyone.
    named = NamedSlotsAtHandsEnd(g);
  }
  g.PointsMadeMask = 0;
  g.PointsMade = 0;

  CloseHand(g, named);

  g.PrevHandShooter = g.HandShooter;
  if (g.Shooter != g.HandShooter)
    g.HandShooter = g.Shooter;
  else
    PassDice(g, false);
}
