// The roll-event categories one pair of dice shows, besides the rolls
// themselves: the two faces, the ordered pair, the number and the groups its
// total belongs to. Every category of RollTally but the rolls is a sum of
// these over the pairs rolled, which lets the tally count pairs and work the
// categories out later (core/roll_tally.h).
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>

#include "core/frames.h"

// The 36 ordered pairs: pair index (d1 - 1) * 6 + (d2 - 1).
constexpr int kDicePairs = 36;
constexpr int PairIndex(int d1, int d2) { return (d1 - 1) * 6 + (d2 - 1); }

// The categories of one pair, in the order the roll tallies them.
struct PairEvents {
  int count = 0;
  std::array<std::int8_t, 12> events{};
  constexpr void Add(int c) { events[static_cast<std::size_t>(count++)] = static_cast<std::int8_t>(c); }
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

// The categories of every pair, by pair index.
inline constexpr std::array<PairEvents, kDicePairs> kEventsOfPair = [] {
  std::array<PairEvents, kDicePairs> all{};
  for (int d1 = 1; d1 <= 6; ++d1)
    for (int d2 = 1; d2 <= 6; ++d2)
      all[static_cast<std::size_t>(PairIndex(d1, d2))] = EventsOfPair(d1, d2);
  return all;
}();
