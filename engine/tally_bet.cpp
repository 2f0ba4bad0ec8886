// TallyBetResult: the decision statistics of the live frames.
#include <cstddef>

#include "core/catalogue.h"
#include "core/game.h"
#include "engine/resolve.h"

namespace {

using StatTable = decltype(Game::StatAction);
// The cells of one frame index of a statistics table (its rows of every bet).
constexpr std::ptrdiff_t kCellsPerFrameIndex = StatTable::kCols * StatTable::kDepth;
static_assert(StatTable::Index(1, 0, 0) - StatTable::Index(0, 0, 0) == kCellsPerFrameIndex);

// One decision of `amount` (above 0 when `positive`) in the six columns of
// a statistics row (the row's columns are contiguous, so one address serves
// them all).
void CountDecision(Currency* row, Currency amount, bool positive, Currency rollNumber) {
  row[kStatCount] += Currency::FromWhole(1);
  row[kStatTotal] += amount;
  if (amount > row[kStatLargest]) row[kStatLargest] = amount;
  Currency& smallest = row[kStatSmallest];
  if (positive && (smallest.IsZero() || smallest > amount)) smallest = amount;
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
  // The amount wagered goes to the action rows, the net won or lost to the
  // wins or the losses.
  const bool won = net > Currency{};
  StatTable& side = won ? g.StatWins : g.StatLosses;
  const Currency sideAmount = won ? net : -net;
  const bool positive = amount > Currency{}, sidePositive = sideAmount > Currency{};
  // The live frames' rows of (p, b) lie a fixed number of cells apart, so
  // two addresses serve all six rows.
  Currency* const action = &g.StatAction(p, b, 0);
  Currency* const sideRow = &side(p, b, 0);
  for (Frame t : kLiveFrames) {
    const std::ptrdiff_t offset = (FrameIndex(p, t) - p) * kCellsPerFrameIndex;
    CountDecision(action + offset, amount, positive, rollNumber);
    CountDecision(sideRow + offset, sideAmount, sidePositive, rollNumber);
  }
  if (IsComePoint(b)) {
    const Currency flat = g.ComeFlatAtSet(p, b - bet::kComePointFirst);
    for (Frame t : kLiveFrames)
      g.ComeTravelTotal(FrameIndex(p, t), b - bet::kComePointFirst) += flat;
  }
}
