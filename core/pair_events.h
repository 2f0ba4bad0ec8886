// The roll-event categories one pair of dice shows, besides the rolls
// themselves: the two faces, the ordered pair, the number and the groups its
// total belongs to. Every category of RollTally but the rolls is a sum of
// these over the pairs rolled, which lets the tally count pairs and work the
// categories out later (core/roll_tally.h).
#pragma once

#include <array>
#include <cstdint>

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

// The groups each total 2..12 belongs to, in the order the roll tallies them.
struct TotalGroups {
  int count = 0;
  std::array<RollEvent, 7> events{};
};
inline constexpr std::array<TotalGroups, 13> kGroupsOfTotal = {{
    {}, {},  // no totals 0 and 1
    {6, {kEventField, kEventNumbers2371112, kEventNumbers231112, kEventCraps, kEventNumbers212,
         kEventNumbers23}},
    {7, {kEventField, kEventNumbers2371112, kEventNumbers231112, kEventCraps, kEventNumbers311,
         kEventNumbers23, kEventNumbers312}},
    {5, {kEventField, kEventBoxNumbers, kEventNumbers45910, kEventNumbers456, kEventNumbers410}},
    {5, {kEventBoxNumbers, kEventNumbers5689, kEventNumbers45910, kEventNumbers456,
         kEventNumbers59}},
    {4, {kEventBoxNumbers, kEventNumbers5689, kEventNumbers456, kEventNumbers68}},
    {2, {kEventNumbers2371112, kEventNumbers711}},
    {4, {kEventBoxNumbers, kEventNumbers5689, kEventNumbers8910, kEventNumbers68}},
    {6, {kEventField, kEventBoxNumbers, kEventNumbers5689, kEventNumbers45910, kEventNumbers8910,
         kEventNumbers59}},
    {5, {kEventField, kEventBoxNumbers, kEventNumbers45910, kEventNumbers8910, kEventNumbers410}},
    {6, {kEventField, kEventNumbers2371112, kEventNumbers231112, kEventNumbers311,
         kEventNumbers711, kEventNumbers1112}},
    {7, {kEventField, kEventNumbers2371112, kEventNumbers231112, kEventCraps, kEventNumbers212,
         kEventNumbers312, kEventNumbers1112}},
}};

constexpr PairEvents EventsOfPair(int d1, int d2) {
  PairEvents e;
  const int t = d1 + d2;
  e.Add(Die1FaceEvent(d1));
  e.Add(Die2FaceEvent(d2));
  e.Add(PairEvent(d1, d2));
  // The number itself, but for 2 and 12, whose pair is the number.
  if (t != 2 && t != 12) e.Add(TotalEvent(t));
  if (const int eitherWay = EitherWayEvent(d1, d2); eitherWay != 0) e.Add(eitherWay);
  const TotalGroups& groups = kGroupsOfTotal[static_cast<std::size_t>(t)];
  for (int i = 0; i < groups.count; ++i) e.Add(groups.events[static_cast<std::size_t>(i)]);
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
