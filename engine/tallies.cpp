// The dice tallies of a roll: hands, rolls, the 90 event categories and
// the gaps between their showings.
#include <cassert>
#include <cstddef>
#include <cstdint>

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

// The categories one pair of dice counts, in the order they are tallied:
// the two faces, the pair, the number and the groups the total belongs to.
// With each, the start of its row in GapTally, so that the roll does not
// work it out.
struct PairEvents {
  int count = 0;
  std::array<std::int8_t, 12> events{};
  std::array<std::int16_t, 12> gapRows{};
  constexpr void Add(int c) {
    const auto n = static_cast<std::size_t>(count++);
    events[n] = static_cast<std::int8_t>(c);
    gapRows[n] = static_cast<std::int16_t>(c * static_cast<int>(GapTallyTable::kCols));
  }
};

constexpr PairEvents EventsOfPair(int d1, int d2) {
  PairEvents e;
  const bool pair = d1 == d2;
  e.Add(Die1FaceEvent(d1));
  e.Add(Die2FaceEvent(d2));
  e.Add(PairEvent(d1, d2));
  auto addAll = [&](std::initializer_list<int> cs) {
    for (int c : cs) e.Add(c);
  };
  switch (d1 + d2) {
    case 2:
      addAll({kEventField, kEventNumbers2371112, kEventNumbers231112, kEventCraps, kEventNumbers212,
              kEventNumbers23});
      break;
    case 3:
      addAll({kEventNumber3, kEventField, kEventNumbers2371112, kEventNumbers231112, kEventCraps,
              kEventNumbers311, kEventNumbers23, kEventNumbers312});
      break;
    case 4:
      e.Add(kEventAny4);
      if (!pair) e.Add(EitherWayEvent(d1, d2));  // 1.3 or 3.1
      addAll(
          {kEventField, kEventBoxNumbers, kEventNumbers45910, kEventNumbers456, kEventNumbers410});
      break;
    case 5:
      e.Add(kEventAny5);
      e.Add(EitherWayEvent(d1, d2));  // 1.4 or 4.1; 2.3 or 3.2
      addAll({kEventBoxNumbers, kEventNumbers5689, kEventNumbers45910, kEventNumbers456,
              kEventNumbers59});
      break;
    case 6:
      e.Add(kEventAny6);
      if (!pair) e.Add(EitherWayEvent(d1, d2));  // 1.5 or 5.1; 2.4 or 4.2
      addAll({kEventBoxNumbers, kEventNumbers5689, kEventNumbers456, kEventNumbers68});
      break;
    case 7:
      e.Add(kEventAny7);
      e.Add(EitherWayEvent(d1, d2));  // 1.6, 2.5 or 3.4 either way
      addAll({kEventNumbers2371112, kEventNumbers711});
      break;
    case 8:
      e.Add(kEventAny8);
      if (!pair) e.Add(EitherWayEvent(d1, d2));  // 2.6 or 6.2; 3.5 or 5.3
      addAll({kEventBoxNumbers, kEventNumbers5689, kEventNumbers8910, kEventNumbers68});
      break;
    case 9:
      e.Add(kEventAny9);
      e.Add(EitherWayEvent(d1, d2));  // 3.6 or 6.3; 4.5 or 5.4
      addAll({kEventField, kEventBoxNumbers, kEventNumbers5689, kEventNumbers45910,
              kEventNumbers8910, kEventNumbers59});
      break;
    case 10:
      e.Add(kEventAny10);
      if (!pair) e.Add(EitherWayEvent(d1, d2));  // 4.6 or 6.4
      addAll(
          {kEventField, kEventBoxNumbers, kEventNumbers45910, kEventNumbers8910, kEventNumbers410});
      break;
    case 11:
      addAll({kEventNumber11, kEventField, kEventNumbers2371112, kEventNumbers231112,
              kEventNumbers311, kEventNumbers711, kEventNumbers1112});
      break;
    case 12:
      addAll({kEventField, kEventNumbers2371112, kEventNumbers231112, kEventCraps, kEventNumbers212,
              kEventNumbers312, kEventNumbers1112});
      break;
  }
  return e;
}

constexpr std::array<std::array<PairEvents, 6>, 6> kEventsOfPair = [] {
  std::array<std::array<PairEvents, 6>, 6> all{};
  for (int d1 = 1; d1 <= 6; ++d1)
    for (int d2 = 1; d2 <= 6; ++d2) all[d1 - 1][d2 - 1] = EventsOfPair(d1, d2);
  return all;
}();

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
  for (int p = 0; p < kPlayerSlots; ++p)
    for (int n = 0; n < 3; ++n) g.RollsAtTable(LiveIndex(p, n)) += 1;
}

namespace {

// The three live frames of a slot (frame indices p, p + 18 and p + 36) lie
// at one fixed distance from each other in RollTally, whatever the slot: a
// slot's three rows are reached from the first with constant offsets.
using RollTallyTable = decltype(Game::RollTally);
constexpr std::ptrdiff_t kLiveRowStep =
    (FrameIndex(0, kFrameCurrentSession) - FrameIndex(0, kFrameCurrentHand)) *
    static_cast<std::ptrdiff_t>(RollTallyTable::kCols);
static_assert(kLiveFrames[0] == kFrameCurrentHand && kLiveFrames[1] == kFrameCurrentSession &&
              kLiveFrames[2] == kFrameAllSessions);
static_assert((FrameIndex(0, kFrameAllSessions) - FrameIndex(0, kFrameCurrentSession)) *
                  static_cast<std::ptrdiff_t>(RollTallyTable::kCols) ==
              kLiveRowStep);

inline void CountInLiveRows(Long* firstRow, int k) {
  firstRow[k] += 1;
  firstRow[k + kLiveRowStep] += 1;
  firstRow[k + 2 * kLiveRowStep] += 1;
}

// Counts the events of one pair in the live rows of the House and, when
// kShooter, of the hand's shooter (each row 0..kLastEvent), and in the gap
// tables.
template <bool kShooter>
void TallyPairEvents(Game& g, const PairEvents& e, Long* house, Long* shooter) {
  Long* const gapTally = g.GapTally.cells.data();
  const int count = e.count;  // held: the counts' stores could alias it
  for (int n = 0; n < count; ++n) {
    const auto i = static_cast<std::size_t>(n);
    const int k = e.events[i];
    CountInLiveRows(house, k);
    if constexpr (kShooter) CountInLiveRows(shooter, k);
    Long* const gaps = gapTally + e.gapRows[i];  // GapTally(k, 0..kLongGap)
    const Long since = g.RollsSince.Show(k);
    if (since < kLongGap) {
      gaps[since] += 1;
    } else {
      gaps[kLongGap] += 1;
      gaps[0] += since;
    }
  }
}

}  // namespace

void TallyRollEvents(Game& g) {
  const int d1 = g.Die1, d2 = g.Die2;
  assert(d1 >= 1 && d1 <= 6 && d2 >= 1 && d2 <= 6);
  const PairEvents& e = kEventsOfPair[d1 - 1][d2 - 1];
  // Every count moves on by this roll before the events read their gaps.
  g.RollsSince.NextRoll();
  // The rows of the live frames are looked up once per roll.
  auto firstRow = [&g](int p) { return &g.RollTally(FrameIndex(p, kFrameCurrentHand), 0); };
  const int hs = g.HandShooter;
  if (hs > 0)
    TallyPairEvents<true>(g, e, firstRow(kHouse), firstRow(hs));
  else
    TallyPairEvents<false>(g, e, firstRow(kHouse), nullptr);
}
