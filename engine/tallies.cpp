// The dice tallies of a roll: hands, rolls, the 90 event categories and
// the gaps between their showings.
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "core/game.h"
#include "engine/roll_steps.h"

namespace {

// The live frame indices of slot p.
constexpr int LiveIndex(int p, int n) {
  return FrameIndex(p, kLiveFrames[static_cast<std::size_t>(n)]);
}

inline void RaiseRecord(Table1<Long, 0, kLastFrameIndex>& record, int i, Long value) {
  if (value > record(i)) record(i) = value;
}

using GapTallyTable = decltype(Game::GapTally);
static_assert(GapTallyTable::kLow1 == 0 && GapTallyTable::kLow2 == 0 &&
              kLastEvent * GapTallyTable::kCols <= INT16_MAX);

// The categories of each pair (core/pair_events.h), each with the start of
// its row in GapTally, so that the roll does not work it out.
struct PairGapRows {
  int count = 0;
  std::array<std::int8_t, 12> events{};
  std::array<std::int16_t, 12> gapRows{};
};

constexpr std::array<PairGapRows, kDicePairs> kGapRowsOfPair = [] {
  std::array<PairGapRows, kDicePairs> all{};
  for (std::size_t q = 0; q < all.size(); ++q) {
    const PairEvents& e = kEventsOfPair[q];
    all[q].count = e.count;
    for (std::size_t n = 0; n < static_cast<std::size_t>(e.count); ++n) {
      all[q].events[n] = e.events[n];
      all[q].gapRows[n] =
          static_cast<std::int16_t>(e.events[n] * static_cast<int>(GapTallyTable::kCols));
    }
  }
  return all;
}();

// The fewest categories a pair shows: every roll tallies that many gaps.
constexpr int kFewestPairEvents = [] {
  int fewest = kGapRowsOfPair[0].count;
  for (const PairGapRows& e : kGapRowsOfPair) fewest = e.count < fewest ? e.count : fewest;
  return fewest;
}();

// The gap `since` of an event that this roll shows, in its row `gaps` of
// GapTally: counted in its column, or, when long, in the last column with
// its length added to column kLongGapRolls (no gap is 0).
inline void TallyGap(Long* gaps, std::uint32_t since) {
  if (since < kLongGap) {
    gaps[since] += 1;
  } else {
    gaps[kLongGap] += 1;
    gaps[kLongGapRolls] += static_cast<Long>(since);
  }
}

}  // namespace

void TallyHandAndRoll(Game& g) {
  const int hs = g.HandShooter;
  if (g.RollTally(kTableHand, kEventRolls) == 0) {
    g.HandsTally(kTableHand) = 1;
    g.HandsTally(kTableSession) += 1;
    g.HandsTally(kTableAllSessions) += 1;
    if (hs > 0) {
      g.HandsTally(FrameIndex(hs, kFrameCurrentHand)) = 1;
      g.HandsTally(FrameIndex(hs, kFrameCurrentSession)) += 1;
      g.HandsTally(FrameIndex(hs, kFrameAllSessions)) += 1;
    }
  }
  for (int n = 0; n < 3; ++n) g.RollTally(LiveIndex(kHouse, n), kEventRolls) += 1;
  const Long handRolls = g.RollTally(kTableHand, kEventRolls);
  RaiseRecord(g.MostRollsHand, kTableSession, handRolls);
  RaiseRecord(g.MostRollsHand, kTableAllSessions, handRolls);
  if (hs > 0) {
    for (int n = 0; n < 3; ++n) g.RollTally(LiveIndex(hs, n), kEventRolls) += 1;
    const Long shooterRolls = g.RollTally(FrameIndex(hs, kFrameCurrentHand), kEventRolls);
    RaiseRecord(g.MostRollsHand, FrameIndex(hs, kFrameCurrentSession), shooterRolls);
    RaiseRecord(g.MostRollsHand, FrameIndex(hs, kFrameAllSessions), shooterRolls);
  }
  g.RollsAtTable.CountRoll();  // every slot's live frames, added when read
}

void TallyRollEvents(Game& g) {
  const int d1 = g.Die1, d2 = g.Die2;
  assert(d1 >= 1 && d1 <= 6 && d2 >= 1 && d2 <= 6);
  const int q = PairIndex(d1, d2);
  // RollTally counts the pair alone and works its categories out when read.
  g.RollTally.CountPair(g.HandShooter, q);
  // The gaps depend on the order of showings, so they are tallied now.
  // Every count moves on by this roll before the events read their gaps.
  g.RollsSince.NextRoll();
  const PairGapRows& e = kGapRowsOfPair[static_cast<std::size_t>(q)];
  Long* const gapTally = g.GapTally.cells.data();
  // Unsigned, as the clock counts: a gap is never negative.
  auto tally = [&g, &e, gapTally](std::size_t i) {
    TallyGap(gapTally + e.gapRows[i], static_cast<std::uint32_t>(g.RollsSince.Show(e.events[i])));
  };
  // Each event has its own count and row, so the order is free: the events
  // every pair has come without a loop, the rest in one.
  [&tally]<std::size_t... N>(std::index_sequence<N...>) {
    (tally(N), ...);
  }(std::make_index_sequence<static_cast<std::size_t>(kFewestPairEvents)>{});
  for (int n = e.count - 1; n >= kFewestPairEvents; --n) tally(static_cast<std::size_t>(n));
}
