// RollsAtTable: for each frame index (slot + 9 * frame), the rolls the slot
// has been at the table for, as the statistics views, the scripts, the game
// file and the checksum read it.
//
// Every roll adds one to the live frames of all nine slots, 27 counts that
// are read only when a view, a script or a file asks. So a roll counts
// itself once (CountRoll) and the count is added to those cells when they
// are read or written.
//
// What must stay true:
// - (*this)(i) is the count the plain table would hold: the stored cell,
//   plus the pending rolls when i is a live frame.
// - Every write, and every walk of the whole table, goes through a
//   non-const accessor, which adds the pending rolls to the cells first;
//   only a hand's end (MoveToLastHand) writes the stored cells of one slot
//   with the pending rolls taken into account instead.
// - A const read never changes anything, so threads may share a game for
//   reading.
#pragma once

#include <cstdint>

#include "core/frames.h"
#include "core/tables.h"

class RollsAtTableTable {
 public:
  using Cells = Table1<Long, 0, kLastFrameIndex>;

  Long& operator()(int i) { return Settled()(i); }
  Long operator()(int i) const {
    const Long stored = cells_(i);
    return IsLive(i) ? Plus(stored, pending_) : stored;
  }
  // Every cell as the plain table would hold it: for code that walks,
  // copies or overwrites the whole table or whole rows.
  Cells& Settled() {
    if (pending_ != 0) SettlePending();
    return cells_;
  }
  // A copy, so that a const reader changes nothing. Const, so that a
  // visitor's `auto&` binds to it.
  const Cells Settled() const {
    Cells all = cells_;
    for (int i = Cells::kLow; i <= Cells::kHigh; ++i) all(i) = (*this)(i);
    return all;
  }
  // A roll: one more for every slot's live frames.
  void CountRoll() { ++pending_; }
  // Slot p's hand ends: its current-hand count moves to its last-hand cell
  // and starts again from 0. The stored cell takes minus the pending rolls,
  // which they bring back to 0, so nothing else is settled.
  void MoveToLastHand(int p) {
    Long& hand = cells_(FrameIndex(p, kFrameCurrentHand));
    cells_(FrameIndex(p, kFrameLastHand)) = Plus(hand, pending_);
    hand = Plus(0, 0u - pending_);
  }

  friend bool operator==(const RollsAtTableTable& a, const RollsAtTableTable& b) {
    for (int i = Cells::kLow; i <= Cells::kHigh; ++i)
      if (a(i) != b(i)) return false;
    return true;
  }

 private:
  static constexpr bool IsLive(int i) {
    const int frame = i / kPlayerSlots;
    for (Frame t : kLiveFrames)
      if (frame == t) return true;
    return false;
  }
  // n more rolls on a count, wrapping as the plain count stepped n times would.
  static Long Plus(Long count, std::uint32_t n) {
    return static_cast<Long>(static_cast<std::uint32_t>(count) + n);
  }
  void SettlePending() {
    for (Frame t : kLiveFrames)
      for (int p = 0; p < kPlayerSlots; ++p) {
        Long& c = cells_(FrameIndex(p, t));
        c = Plus(c, pending_);
      }
    pending_ = 0;
  }

  Cells cells_;
  std::uint32_t pending_ = 0;
};
