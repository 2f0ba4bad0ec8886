// TallyBetResult: the decision statistics of the live frames.
#include "core/catalogue.h"
#include "core/game.h"
#include "engine/resolve.h"

namespace {

using StatTable = Table3<Currency, 0, 44, 0, 100, 0, 6>;

// One decision of `amount` in the six columns of a statistics row.
void CountDecision(StatTable& t, int i, int b, Currency amount, Currency rollNumber) {
  t(i, b, 1) += Currency::FromWhole(1);
  t(i, b, 2) += amount;
  if (amount > t(i, b, 3)) t(i, b, 3) = amount;
  Currency& smallest = t(i, b, 4);
  if ((smallest.IsZero() || smallest > amount) && amount > Currency{}) smallest = amount;
  t(i, b, 5) = rollNumber;
  t(i, b, 6) = amount;
}

}  // namespace

void TallyBetResult(Game& g, int p, int b, Currency amount, Currency net) {
  if (net.IsZero()) return;  // a push is no decision
  if (IsLay(b) && g.rules.LayVigUpFront) amount += g.LayVig(p, b - bet::kLayFirst);
  if (IsBuy(b) && g.rules.BuyVigUpFront) amount += g.BuyVig(p, b - bet::kBuyFirst);
  const Currency rollNumber = Currency::FromWhole(g.RollTally(18, 0));
  g.StatRowsThisHand[static_cast<std::size_t>(p)][b >> 6] |= std::uint64_t{1} << (b & 63);
  for (int t : {0, 2, 4}) {
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
