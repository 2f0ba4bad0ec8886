// TallyBetResult: the decision statistics of the live frames.
#include "core/catalogue.h"
#include "core/game.h"
#include "engine/resolve.h"

namespace {

using StatTable = decltype(Game::StatAction);

// One decision of `amount` in the six columns of a statistics row (the
// row's columns are contiguous, so one address serves them all).
void CountDecision(StatTable& t, int i, int b, Currency amount, Currency rollNumber) {
  Currency* row = &t(i, b, 0);
  row[kStatCount] += Currency::FromWhole(1);
  row[kStatTotal] += amount;
  if (amount > row[kStatLargest]) row[kStatLargest] = amount;
  Currency& smallest = row[kStatSmallest];
  if ((smallest.IsZero() || smallest > amount) && amount > Currency{}) smallest = amount;
  row[kStatRollOfLast] = rollNumber;
  row[kStatAmountOfLast] = amount;
}

}  // namespace

void TallyBetResult(Game& g, int p, int b, Currency amount, Currency net) {
  if (net.IsZero()) return;  // a push is no decision
  if (IsLay(b) && g.rules.LayVigUpFront) amount += g.LayVig(p, b - bet::kLayFirst);
  if (IsBuy(b) && g.rules.BuyVigUpFront) amount += g.BuyVig(p, b - bet::kBuyFirst);
  const Currency rollNumber = Currency::FromWhole(g.RollTally(kTableSession, kEventRolls));
  g.StatRowsThisHand[static_cast<std::size_t>(p)][b >> 6] |= std::uint64_t{1} << (b & 63);
  for (Frame t : kLiveFrames) {
    const int i = FrameIndex(p, t);
    CountDecision(g.StatAction, i, b, amount, rollNumber);
    if (net > Currency{})
      CountDecision(g.StatWins, i, b, net, rollNumber);
    else
      CountDecision(g.StatLosses, i, b, -net, rollNumber);
    if (IsComePoint(b))
      g.ComeTravelTotal(i, b - bet::kComePointFirst) +=
          g.ComeFlatAtSet(p, b - bet::kComePointFirst);
  }
}
