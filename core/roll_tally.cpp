#include "core/roll_tally.h"

#include <bit>

namespace {

// Adds n rolls to a count, wrapping as the plain count stepped n times would.
inline void AddRolls(Long& count, std::uint32_t n) {
  count = static_cast<Long>(static_cast<std::uint32_t>(count) + n);
}

}  // namespace

void RollTallyTable::SettleAll() const {
  for (int p = 0; p < kPlayerSlots; ++p) {
    Pending& s = pending_[static_cast<std::size_t>(p)];
    if (s.pairs == 0) continue;
    Long* const hand = &cells_(FrameIndex(p, kFrameCurrentHand), 0);
    Long* const last = &cells_(FrameIndex(p, kFrameLastHand), 0);
    Long* const session = &cells_(FrameIndex(p, kFrameCurrentSession), 0);
    Long* const all = &cells_(FrameIndex(p, kFrameAllSessions), 0);
    for (std::uint64_t pairs = s.pairs; pairs != 0; pairs &= pairs - 1) {
      const auto q = static_cast<std::size_t>(std::countr_zero(pairs));
      const std::uint32_t h = s.hand[q], l = s.lastHand[q], n = s.sessions[q];
      s.hand[q] = s.lastHand[q] = s.sessions[q] = 0;
      const PairEvents& e = kEventsOfPair[q];
      for (int j = 0; j < e.count; ++j) {
        const int k = e.events[static_cast<std::size_t>(j)];
        AddRolls(hand[k], h);
        AddRolls(last[k], l);
        AddRolls(session[k], n);
        AddRolls(all[k], n);
      }
    }
    s.pairs = 0;
  }
  anyPending_ = false;
  // The categories now stand in the stored rows.
  bareHand_ = bareLastHand_ = 0;
  pendingHand_ = pendingLastHand_ = 0;
}
