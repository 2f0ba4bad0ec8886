// RollsSince: for each roll-event category 0..90, the rolls since it last
// showed (since the session began if it has not), as the statistics views,
// the scripts, the game file and the checksum read it.
//
// A roll moves every count on by one but sets only the counts of the events
// it shows back to 0. So that the roll does not step 91 counts, the table
// keeps a roll clock and, for each event, the clock at its last showing: a
// count is the difference. Only the values are the table's: two tables with
// the same counts are equal whatever their clocks, and files and checksums
// see the counts alone.
//
// What must stay true:
// - (*this)(k) is the count the plain table would hold: NextRoll moves every
//   count on by one, Show(k) sets one to 0, Set and Fill write counts.
// - The clock and the showings are unsigned and wrap together, so a
//   difference is exact for every count a Long holds.
#pragma once

#include <array>
#include <cassert>
#include <cstdint>

#include "core/frames.h"

class RollsSinceTable {
 public:
  static constexpr int kLow = 0, kHigh = kLastEvent;

  // The rolls since event k last showed.
  Long operator()(int k) const { return static_cast<Long>(Now() - shownAt_[Index(k)]); }
  // Makes the count of event k `rolls`.
  void Set(int k, Long rolls) { shownAt_[Index(k)] = Now() - static_cast<std::uint32_t>(rolls); }
  // Makes every count `rolls`.
  void Fill(Long rolls) { shownAt_.fill(Now() - static_cast<std::uint32_t>(rolls)); }

  // A roll: every count moves on by one.
  void NextRoll() { ++clock_; }
  // Event k shows: returns its count, then sets it to 0.
  Long Show(int k) {
    std::uint32_t& at = shownAt_[Index(k)];
    const std::uint32_t now = Now();
    const auto rolls = static_cast<Long>(now - at);
    at = now;
    return rolls;
  }

  friend bool operator==(const RollsSinceTable& a, const RollsSinceTable& b) {
    for (int k = kLow; k <= kHigh; ++k)
      if (a(k) != b(k)) return false;
    return true;
  }

 private:
  static constexpr std::size_t Index(int k) {
    assert(k >= kLow && k <= kHigh);
    return static_cast<std::size_t>(k);
  }
  std::uint32_t Now() const { return static_cast<std::uint32_t>(clock_); }
  // Wider than the showings only so that no store of a count or a showing
  // can alias it: a roll's loop over its events then keeps it in a register.
  std::uint64_t clock_ = 0;
  std::array<std::uint32_t, kHigh + 1> shownAt_{};
};

// The counts 0..90 in order, as a Table1 of them is visited.
template <class F>
void ForEachCellFirstFastest(const RollsSinceTable& t, F&& visit) {
  for (int k = RollsSinceTable::kLow; k <= RollsSinceTable::kHigh; ++k) visit(t(k));
}
