// The small named axes of the statistics tables: the five time frames, the
// frame index that combines a frame with a slot, the 90 roll-event
// categories with their texts, and the six columns of a decision row. The
// tables of Game are declared from the counts here, so a subscript is
// always a name.
//
// What must stay true:
// - Frame index i = slot + 9 * frame; the table's own figures are slot 0
//   (the House), so kTableSession == 18 is "the table, current session".
// - A roll updates the live frames only: current hand, current session,
//   all sessions.
// - Event 0 counts the rolls themselves; events 1 and 90 are never counted.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

// One integer type for the game's whole numbers: counts, flags, choices.
using Long = std::int32_t;

constexpr int kHouse = 0;        // slot 0: the table itself
constexpr int kPlayerSlots = 9;  // 0 the House, 1..8 table positions

enum Frame : int {
  kFrameCurrentHand = 0,
  kFrameLastHand = 1,
  kFrameCurrentSession = 2,
  kFrameLastSession = 3,
  kFrameAllSessions = 4,
  kFrameCount = 5
};

// Frame index of slot p in frame t.
constexpr int FrameIndex(int p, int t) { return p + kPlayerSlots * t; }
constexpr int kLastFrameIndex = FrameIndex(kPlayerSlots - 1, kFrameCount - 1);  // 44

// The table's own frame indices.
constexpr int kTableHand = FrameIndex(kHouse, kFrameCurrentHand);
constexpr int kTableLastHand = FrameIndex(kHouse, kFrameLastHand);
constexpr int kTableSession = FrameIndex(kHouse, kFrameCurrentSession);
constexpr int kTableLastSession = FrameIndex(kHouse, kFrameLastSession);
constexpr int kTableAllSessions = FrameIndex(kHouse, kFrameAllSessions);

// The frames a roll or a decision updates as it happens.
constexpr std::array<Frame, 3> kLiveFrames = {kFrameCurrentHand, kFrameCurrentSession,
                                              kFrameAllSessions};

// The roll-event categories of RollTally, RollsSince and GapTally.
enum RollEvent : int {
  kEventRolls = 0,  // the rolls themselves
  kEventNumber2 = 2,
  kEventNumber3 = 3,
  kEventAny4 = 4,  // kEventAny4 .. kEventAny10: the total, 4 to 10
  kEventAny5 = 5,
  kEventAny6 = 6,
  kEventAny7 = 7,
  kEventAny8 = 8,
  kEventAny9 = 9,
  kEventAny10 = 10,
  kEventNumber11 = 11,
  kEventNumber12 = 12,
  kEventHard4 = 13,
  kEventHard6 = 14,
  kEventHard8 = 15,
  kEventHard10 = 16,
  kEventBoxNumbers = 17,  // 4, 5, 6, 8, 9, 10
  kEventNumbers5689 = 18,
  kEventNumbers45910 = 19,
  kEventCraps = 20,  // 2, 3, 12
  kEventField = 21,  // 2, 3, 4, 9, 10, 11, 12
  kEventNumbers2371112 = 65,
  kEventNumbers231112 = 66,
  kEventNumbers456 = 67,
  kEventNumbers8910 = 68,
  kEventNumbers212 = 69,
  kEventNumbers311 = 70,
  kEventNumbers410 = 71,
  kEventNumbers59 = 72,
  kEventNumbers68 = 73,
  kEventNumbers23 = 74,
  kEventNumbers312 = 75,
  kEventNumbers711 = 76,
  kEventNumbers1112 = 77,
  kEventDie1Face1 = 78,  // .. 83: die 1 shows face 1 .. 6
  kEventDie2Face1 = 84,  // .. 89: die 2 shows face 1 .. 6
  kLastEvent = 90
};

// The category counted when die 1 shows d1 and die 2 shows d2, faces 1..6:
// the ordered pair, or the number itself for a double.
constexpr std::array<std::array<std::int8_t, 6>, 6> kPairEvent = {{
    // d2:  1   2   3   4   5   6
    {{2, 22, 24, 27, 33, 39}},   // d1 = 1
    {{23, 13, 29, 35, 41, 48}},  // d1 = 2
    {{25, 30, 14, 43, 50, 54}},  // d1 = 3
    {{28, 36, 44, 15, 56, 60}},  // d1 = 4
    {{34, 42, 51, 57, 16, 63}},  // d1 = 5
    {{40, 49, 55, 61, 64, 12}},  // d1 = 6
}};
constexpr int PairEvent(int d1, int d2) { return kPairEvent[d1 - 1][d2 - 1]; }
// The categories of an unordered pair of different faces whose total is 4
// to 10, "Number 4 (1.3) or (3.1)": the category and the two faces, low
// face first. (1.2 and 5.6 count as the numbers 3 and 11 themselves.)
struct EitherWayPair {
  std::int8_t event, low, high;
};
constexpr std::array<EitherWayPair, 13> kEitherWayPairs = {{
    {26, 1, 3}, {31, 1, 4}, {32, 2, 3}, {37, 1, 5}, {38, 2, 4}, {45, 1, 6}, {46, 2, 5},
    {47, 3, 4}, {52, 2, 6}, {53, 3, 5}, {58, 3, 6}, {59, 4, 5}, {62, 4, 6},
}};
// The category of faces d1 and d2 in either order; 0 when they are not one
// of kEitherWayPairs.
constexpr int EitherWayEvent(int d1, int d2) {
  const int low = d1 < d2 ? d1 : d2, high = d1 < d2 ? d2 : d1;
  for (const EitherWayPair& e : kEitherWayPairs)
    if (e.low == low && e.high == high) return e.event;
  return 0;
}
// The category of the total t (2..12) as a number: the same integer.
constexpr int TotalEvent(int t) { return t; }
constexpr int Die1FaceEvent(int face) { return kEventDie1Face1 + face - 1; }
constexpr int Die2FaceEvent(int face) { return kEventDie2Face1 + face - 1; }

// The text of category c (0..90) as the frequency view lists it.
std::string_view RollEventText(int c);

// The columns of TotalsTally's row of a total: what the total was rolled as.
enum TotalsColumn : int {
  kTotalsComeOut = 1,  // rolled on a come-out
  kTotalsPass = 2,     // a pass at it (the point, or the natural)
  kTotalsMiss = 3,     // a miss at it (the point, or the craps)
};

// The columns of a decision row of StatAction, StatWins and StatLosses.
enum StatColumn : int {
  kStatCount = 1,         // how many decisions
  kStatTotal = 2,         // the sum of their amounts
  kStatLargest = 3,       // the largest amount
  kStatSmallest = 4,      // the smallest amount above zero
  kStatRollOfLast = 5,    // the session roll of the last decision
  kStatAmountOfLast = 6,  // the amount of the last decision
  kStatColumnCount = 7    // columns 0..6; column 0 unused
};
