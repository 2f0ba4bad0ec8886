// TallyBetResult: the decision statistics of the live frames.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/seat_set.h"
#include "engine/resolve.h"

namespace {

using StatTable = decltype(Game::StatAction);
// The cells of one frame index of a statistics table (its rows of every bet).
constexpr std::ptrdiff_t kCellsPerFrameIndex = StatTable::kCols * StatTable::kDepth;
static_assert(StatTable::Index(1, 0, 0) - StatTable::Index(0, 0, 0) == kCellsPerFrameIndex);

// Cells from the first live frame's row of a bet to frame t's row.
constexpr std::ptrdiff_t FrameOffset(Frame t) {
  return (FrameIndex(0, t) - FrameIndex(0, kLiveFrames[0])) * kCellsPerFrameIndex;
}

// One decision of `amount` in the six columns of the rows of every live
// frame, `row` the first of them (a row's columns are contiguous and the
// live frames' rows a fixed number of cells apart). The hand's frame starts
// afresh every hand, so whether an amount is its largest or smallest yet is
// a coin toss: chosen by selects there, by jumps in the longer frames,
// whose extremes seldom move.
[[gnu::always_inline]] inline void CountDecision(Currency* row, Currency amount, Currency rollNumber) {
  static_assert(kLiveFrames[0] == kFrameCurrentHand);
  for (Frame t : kLiveFrames) {
    Currency* r = row + FrameOffset(t);
    r[kStatCount] += Currency::FromWhole(1);
    r[kStatTotal] += amount;
    r[kStatRollOfLast] = rollNumber;
    r[kStatAmountOfLast] = amount;
  }
  Currency* hand = row;
  hand[kStatLargest].raw = std::max(hand[kStatLargest].raw, amount.raw);
  for (Frame t : {kLiveFrames[1], kLiveFrames[2]}) {
    Currency& largest = row[FrameOffset(t) + kStatLargest];
    // On the raw amounts: the defaulted three-way comparison costs GCC an
    // extra jump for equality.
    if (amount.raw > largest.raw) [[unlikely]] largest = amount;
  }
  if (amount <= Currency{}) return;
  // A smallest of 0 holds no amount yet, so it compares as the largest
  // possible; a negative one (only a file could hold it) stays.
  const std::int64_t smallest = hand[kStatSmallest].raw;
  const std::int64_t held = smallest == 0 ? std::numeric_limits<std::int64_t>::max() : smallest;
  hand[kStatSmallest].raw = std::min(held, amount.raw);
  // In the longer frames one unsigned test that seldom passes finds both a
  // smallest above the amount and a 0, which wraps to the largest; a
  // negative smallest (only a file could hold one) passes it too and stays.
  const std::uint64_t belowAmount = static_cast<std::uint64_t>(amount.raw) - 1;
  for (Frame t : {kLiveFrames[1], kLiveFrames[2]}) {
    Currency& least = row[FrameOffset(t) + kStatSmallest];
    if (static_cast<std::uint64_t>(least.raw) - 1 > belowAmount) [[unlikely]]
      if (least.raw >= 0) least = amount;
  }
}

// A decision in the action rows (`amount` wagered) and in the rows of its
// side, the wins or the losses (`net`, the amount won or lost): one call
// for both.
[[gnu::noinline]] void CountDecision(Currency* action, Currency amount, Currency* side,
                                     Currency net, Currency rollNumber) {
  CountDecision(action, amount, rollNumber);
  CountDecision(side, net, rollNumber);
}

}  // namespace

void TallyBetResult(Game& g, int p, int b, Currency amount, Currency net) {
  if (net.IsZero()) return;  // a push is no decision
  // With its vig a bet near the money limit wagers past it: held there, as
  // every amount of the statistics is.
  if (IsLay(b) && g.rules.LayVigUpFront)
    amount = HeldWithin(amount + g.LayVig(p, b - bet::kLayFirst), kMoneyLimit);
  if (IsBuy(b) && g.rules.BuyVigUpFront)
    amount = HeldWithin(amount + g.BuyVig(p, b - bet::kBuyFirst), kMoneyLimit);
  const Currency rollNumber = Currency::FromWhole(g.RollTally(kTableSession, kEventRolls));
  g.StatRowsThisHand[static_cast<std::size_t>(p)][b >> 6] |= std::uint64_t{1} << (b & 63);
  // The amount wagered goes to the action rows, the net won or lost to the
  // wins or the losses.
  const bool won = net > Currency{};
  StatTable& side = won ? g.StatWins : g.StatLosses;
  const Currency sideAmount = won ? net : -net;
  // The live frames' rows of (p, b) lie a fixed number of cells apart, so
  // two addresses serve all six rows.
  CountDecision(&g.StatAction(FrameIndex(p, kLiveFrames[0]), b, 0), amount,
                &side(FrameIndex(p, kLiveFrames[0]), b, 0), sideAmount, rollNumber);
  if (IsComePoint(b)) {
    const Currency flat = g.ComeFlatAtSet(p, b - bet::kComePointFirst);
    for (Frame t : kLiveFrames)
      g.ComeTravelTotal(FrameIndex(p, t), b - bet::kComePointFirst) += flat;
  }
}

// Between two holds a total grows by at most two decisions a roll of at
// most kMoneyLimit each; four times that still leaves it inside 64 bits.
static_assert(std::int64_t{4 * 2 * kStatHoldRolls} * kMoneyLimit.raw <=
              std::numeric_limits<std::int64_t>::max() - kStatTotalLimit.raw);

void HoldStatTotals(Game& g) {
  using TravelTable = decltype(Game::ComeTravelTotal);
  // The House never bets, and an empty seat has no decisions to add.
  for (int p = 1; p < kPlayerSlots; ++p) {
    if (!SeatNamed(g, p)) continue;
    for (Frame f : {kFrameCurrentSession, kFrameAllSessions}) {
      const int i = FrameIndex(p, f);
      for (StatTable* t : {&g.StatAction, &g.StatWins, &g.StatLosses}) {
        const std::size_t row = StatTable::Index(i, 0, 0);
        const std::size_t end = row + static_cast<std::size_t>(kCellsPerFrameIndex);
        for (std::size_t at = row + kStatTotal; at < end; at += kStatColumnCount)
          t->cells[at] = HeldWithin(t->cells[at], kStatTotalLimit);
      }
      for (int n = TravelTable::kLow2; n <= TravelTable::kHigh2; ++n)
        g.ComeTravelTotal(i, n) = HeldWithin(g.ComeTravelTotal(i, n), kStatTotalLimit);
    }
  }
}
