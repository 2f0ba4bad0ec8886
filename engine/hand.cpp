#include "engine/hand.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "core/catalogue.h"
#include "core/game.h"
#include "engine/players.h"
#include "engine/resolve.h"

namespace {

bool Named(const Game& g, int p) { return !g.PlayerName[static_cast<std::size_t>(p)].empty(); }

// Moves rows j0..j1 (whole depth) of slot p's current-hand frame to its
// last-hand frame and clears them: one block copy, since rows are contiguous.
template <class T, int L2, int H2, int L3, int H3>
void MoveToLastHand(Table3<T, 0, kLastFrameIndex, L2, H2, L3, H3>& t, int p, int j0, int j1) {
  const auto from = t.Span(p, j0, j1);
  std::copy(from.begin(), from.end(), t.Span(FrameIndex(p, kFrameLastHand), j0, j1).begin());
  std::fill(from.begin(), from.end(), T{});
}

template <class T, int L2, int H2>
void MoveToLastHand(Table2<T, 0, kLastFrameIndex, L2, H2>& t, int p) {
  const auto from = t.Span(p, L2, H2);
  std::copy(from.begin(), from.end(), t.Span(FrameIndex(p, kFrameLastHand), L2, H2).begin());
  std::fill(from.begin(), from.end(), T{});
}

template <class T>
void MoveToLastHand(Table1<T, 0, kLastFrameIndex>& t, int p) {
  t(FrameIndex(p, kFrameLastHand)) = t(p);
  t(p) = T{};
}

}  // namespace

void CloseHand(Game& g) {
  for (int p = 0; p < kPlayerSlots; ++p) {
    if (!Named(g, p)) continue;
    // The House never bets, so its money tallies are zero in both frames;
    // skipping them keeps a hand's end cheap in a run without players.
    if (p > 0) {
      // Only the rows that may hold figures in either frame move; a row
      // that is zero in both would move zeros onto zeros.
      auto& thisHand = g.StatRowsThisHand[static_cast<std::size_t>(p)];
      auto& lastHand = g.StatRowsLastHand[static_cast<std::size_t>(p)];
      for (int w = 0; w < 2; ++w) {
        for (std::uint64_t rows = thisHand[w] | lastHand[w]; rows != 0; rows &= rows - 1) {
          const int b = 64 * w + std::countr_zero(rows);
          if (b < 1 || b > kLastRealBet) continue;
          // Depth 0 of these rows holds nothing, so whole rows move.
          MoveToLastHand(g.StatAction, p, b, b);
          MoveToLastHand(g.StatWins, p, b, b);
          MoveToLastHand(g.StatLosses, p, b, b);
        }
      }
      lastHand = thisHand;
      thisHand = {0, 0};
      MoveToLastHand(g.ComeTravelTotal, p);
    }
    MoveToLastHand(g.TotalsTally, p, 2, 12);
    MoveToLastHand(g.RollsAtTable, p);
    MoveToLastHand(g.HandsTally, p);
  }
  g.ComeoutsThisHand = 0;
  g.PassesThisHand = 0;
  g.MissesThisHand = 0;
}

void EndHand(Game& g) {
  for (int p = 0; p < kPlayerSlots; ++p)
    if (Named(g, p)) MoveToLastHand(g.RollTally, p);

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
