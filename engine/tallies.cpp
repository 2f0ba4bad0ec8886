// The dice tallies of a roll: hands, rolls, the 90 event categories and
// the gaps between their showings.
#include "core/game.h"
#include "engine/roll_steps.h"

namespace {

// The three live frames of slot p: current hand, current session, all sessions.
constexpr int kLive[3] = {0, 18, 36};

inline void RaiseRecord(Table1<Long, 0, 44>& record, int i, Long value) {
  if (value > record(i)) record(i) = value;
}

}  // namespace

void TallyHandAndRoll(Game& g) {
  const int hs = g.HandShooter;
  if (g.RollTally(0, 0) == 0) {
    g.HandsTally(0) = 1;
    g.HandsTally(18) += 1;
    g.HandsTally(36) += 1;
    if (hs > 0) {
      g.HandsTally(hs) = 1;
      g.HandsTally(hs + 18) += 1;
      g.HandsTally(hs + 36) += 1;
    }
  }
  for (int f : kLive) g.RollTally(f, 0) += 1;
  RaiseRecord(g.MostRollsHand, 18, g.RollTally(0, 0));
  RaiseRecord(g.MostRollsHand, 36, g.RollTally(0, 0));
  if (hs > 0) {
    for (int f : kLive) g.RollTally(hs + f, 0) += 1;
    RaiseRecord(g.MostRollsHand, hs + 18, g.RollTally(hs, 0));
    RaiseRecord(g.MostRollsHand, hs + 36, g.RollTally(hs, 0));
  }
  for (int p = 0; p < kPlayerSlots; ++p)
    for (int f : kLive) g.RollsAtTable(p + f) += 1;
}

void TallyRollEvent(Game& g, int k) {
  for (int f : kLive) g.RollTally(f, k) += 1;
  if (g.HandShooter > 0)
    for (int f : kLive) g.RollTally(g.HandShooter + f, k) += 1;
  const Long since = g.RollsSince(k);
  if (since < kLongGap) {
    g.GapTally(k, since) += 1;
  } else {
    g.GapTally(k, kLongGap) += 1;
    g.GapTally(k, 0) += since;
  }
  g.RollsSince(k) = 0;
}

namespace {

// Event of the ordered pair (d1, d2), 1-based faces: the pairs' categories.
constexpr std::int8_t kPairEvent[6][6] = {
    // d2:  1   2   3   4   5   6
    {2, 22, 24, 27, 33, 39},   // d1 = 1
    {23, 13, 29, 35, 41, 48},  // d1 = 2
    {25, 30, 14, 43, 50, 54},  // d1 = 3
    {28, 36, 44, 15, 56, 60},  // d1 = 4
    {34, 42, 51, 57, 16, 63},  // d1 = 5
    {40, 49, 55, 61, 64, 12},  // d1 = 6
};

}  // namespace

void TallyRollEvents(Game& g) {
  const int d1 = g.Die1, d2 = g.Die2;
  assert(d1 >= 1 && d1 <= 6 && d2 >= 1 && d2 <= 6);
  const bool pair = d1 == d2;
  auto hasFace = [&](int face) { return d1 == face || d2 == face; };
  TallyRollEvent(g, d1 + 77);
  TallyRollEvent(g, d2 + 83);
  TallyRollEvent(g, kPairEvent[d1 - 1][d2 - 1]);
  switch (d1 + d2) {
    case 2:
      for (int k : {21, 65, 66, 20, 69, 74}) TallyRollEvent(g, k);
      break;
    case 3:
      for (int k : {3, 21, 65, 66, 20, 70, 74, 75}) TallyRollEvent(g, k);
      break;
    case 4:
      TallyRollEvent(g, 4);
      if (!pair) TallyRollEvent(g, 26);
      for (int k : {21, 17, 19, 67, 71}) TallyRollEvent(g, k);
      break;
    case 5:
      TallyRollEvent(g, 5);
      TallyRollEvent(g, hasFace(1) ? 31 : 32);
      for (int k : {17, 18, 19, 67, 72}) TallyRollEvent(g, k);
      break;
    case 6:
      TallyRollEvent(g, 6);
      if (!pair) TallyRollEvent(g, hasFace(1) ? 37 : 38);
      for (int k : {17, 18, 67, 73}) TallyRollEvent(g, k);
      break;
    case 7:
      TallyRollEvent(g, 7);
      TallyRollEvent(g, hasFace(1) ? 45 : hasFace(2) ? 46 : 47);
      for (int k : {65, 76}) TallyRollEvent(g, k);
      break;
    case 8:
      TallyRollEvent(g, 8);
      if (!pair) TallyRollEvent(g, hasFace(2) ? 52 : 53);
      for (int k : {17, 18, 68, 73}) TallyRollEvent(g, k);
      break;
    case 9:
      TallyRollEvent(g, 9);
      TallyRollEvent(g, hasFace(3) ? 58 : 59);
      for (int k : {21, 17, 18, 19, 68, 72}) TallyRollEvent(g, k);
      break;
    case 10:
      TallyRollEvent(g, 10);
      if (!pair) TallyRollEvent(g, 62);
      for (int k : {21, 17, 19, 68, 71}) TallyRollEvent(g, k);
      break;
    case 11:
      for (int k : {11, 21, 65, 66, 70, 76, 77}) TallyRollEvent(g, k);
      break;
    case 12:
      for (int k : {21, 65, 66, 20, 69, 75, 77}) TallyRollEvent(g, k);
      break;
  }
}
