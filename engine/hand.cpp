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

// Moves row j (whole depth) of slot p's current-hand frame to its last-hand
// frame and clears it.
template <class T, int L2, int H2, int L3, int H3>
void MoveToLastHand(Table3<T, 0, kLastFrameIndex, L2, H2, L3, H3>& t, int p, int j) {
  MoveCells<H3 - L3 + 1>(&t(p, j, L3), &t(FrameIndex(p, kFrameLastHand), j, L3));
}

// Clears row j (whole depth) of slot p's last-hand frame.
template <class T, int L2, int H2, int L3, int H3>
void ClearLastHand(Table3<T, 0, kLastFrameIndex, L2, H2, L3, H3>& t, int p, int j) {
  std::fill_n(&t(FrameIndex(p, kFrameLastHand), j, L3), H3 - L3 + 1, T{});
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

}  // namespace

void CloseHand(Game& g) {
  auto& rollsAtTable = g.RollsAtTable.Settled();
  for (int p = 0; p < kPlayerSlots; ++p) {
    if (!SeatNamed(g, p)) continue;
    // The House never bets, so its money tallies are zero in both frames;
    // skipping them keeps a hand's end cheap in a run without players.
    if (p > 0) {
      // Only the rows that may hold figures in either frame move; a row
      // that is zero in both would move zeros onto zeros.
      auto& thisHand = g.StatRowsThisHand[static_cast<std::size_t>(p)];
      auto& lastHand = g.StatRowsLastHand[static_cast<std::size_t>(p)];
      for (int w = 0; w < 2; ++w) {
        for (std::uint64_t rows = thisHand[w]; rows != 0; rows &= rows - 1) {
          const int b = 64 * w + std::countr_zero(rows);
          if (b < 1 || b > kLastRealBet) continue;
          // Depth 0 of these rows holds nothing, so whole rows move.
          MoveToLastHand(g.StatAction, p, b);
          MoveToLastHand(g.StatWins, p, b);
          MoveToLastHand(g.StatLosses, p, b);
        }
        // A row outside this hand's set is zero in the current hand: its
        // move only clears the last-hand row.
        for (std::uint64_t rows = lastHand[w] & ~thisHand[w]; rows != 0; rows &= rows - 1) {
          const int b = 64 * w + std::countr_zero(rows);
          if (b < 1 || b > kLastRealBet) continue;
          ClearLastHand(g.StatAction, p, b);
          ClearLastHand(g.StatWins, p, b);
          ClearLastHand(g.StatLosses, p, b);
        }
      }
      lastHand = thisHand;
      thisHand = {0, 0};
      MoveToLastHand(g.ComeTravelTotal, p);
    }
    MoveToLastHand(g.TotalsTally, p);
    MoveToLastHand(rollsAtTable, p);
    MoveToLastHand(g.HandsTally, p);
  }
  g.ComeoutsThisHand = 0;
  g.PassesThisHand = 0;
  g.MissesThisHand = 0;
}

void EndHand(Game& g) {
  for (int p = 0; p < kPlayerSlots; ++p)
    if (SeatNamed(g, p)) g.RollTally.MoveToLastHand(p);

  if (g.FirePayoff(1, FireRow(g)).raw > 0)
    for (int seat = 1; seat <= 8; ++seat) ResolveBet(g, seat, kWins, bet::kFire);
  g.PointsMadeMask = 0;
  g.PointsMade = 0;

  CloseHand(g);

  g.PrevHandShooter = g.HandShooter;
  if (g.Shooter != g.HandShooter)
    g.HandShooter = g.Shooter;
  else
    PassDice(g, false);
}
