#include "engine/hand.h"

#include "engine/catalogue.h"
#include "engine/game.h"
#include "engine/players.h"
#include "engine/resolve.h"

namespace {

bool Named(const Game& g, int p) { return !g.PlayerName[static_cast<std::size_t>(p)].empty(); }

template <class T, int L2, int H2, int L3, int H3>
void MoveToLastHand(Table3<T, 0, 44, L2, H2, L3, H3>& t, int p, int lo2, int hi2, int lo3,
                    int hi3) {
  for (int j = lo2; j <= hi2; ++j)
    for (int k = lo3; k <= hi3; ++k) {
      t(p + 9, j, k) = t(p, j, k);
      t(p, j, k) = T{};
    }
}

template <class T, int L2, int H2>
void MoveToLastHand(Table2<T, 0, 44, L2, H2>& t, int p) {
  for (int j = L2; j <= H2; ++j) {
    t(p + 9, j) = t(p, j);
    t(p, j) = T{};
  }
}

template <class T>
void MoveToLastHand(Table1<T, 0, 44>& t, int p) {
  t(p + 9) = t(p);
  t(p) = T{};
}

}  // namespace

void CloseHand(Game& g) {
  for (int p = 0; p < kPlayerSlots; ++p) {
    if (!Named(g, p)) continue;
    // The House never bets, so its money tallies are zero in both frames;
    // skipping them keeps a hand's end cheap in a run without players.
    if (p > 0) {
      MoveToLastHand(g.StatAction, p, 1, kLastRealBet, 1, 6);
      MoveToLastHand(g.StatWins, p, 1, kLastRealBet, 1, 6);
      MoveToLastHand(g.StatLosses, p, 1, kLastRealBet, 1, 6);
      MoveToLastHand(g.ComeTravelTotal, p);
    }
    MoveToLastHand(g.TotalsTally, p, 2, 12, 1, 3);
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
