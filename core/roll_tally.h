// RollTally: for each frame index (slot + 9 * frame) and roll-event category
// 0..90, the rolls that showed it, as the statistics views, the scripts, the
// game file and the checksum read it.
//
// A roll shows about ten categories, each counted in the three live frames
// of the House and of the hand's shooter: some thirty to sixty counts a
// roll, nearly all of them read only when a view, a script or a file asks.
// Every category but the rolls (0) is a fixed sum over the 36 ordered pairs
// of dice (core/pair_events.h), and the live rows of a slot grow by the same
// sums. So a roll counts only its pair, per slot, and the categories are
// worked out ("settled") from the pending pairs when anything reads them.
// The rolls column is counted at once, so the roll path reads it freely.
//
// What must stay true:
// - (*this)(i, k) is the count the plain table would hold: the stored cell
//   plus what the pending pairs add to row i.
// - Every read or write of a category other than the rolls settles first,
//   and every walk of the whole table goes through Settled(): nothing reaches
//   a stored cell that pending pairs still owe something.
// - Slot p's pending pairs: hand to frame current hand, lastHand to last
//   hand, sessions to both current session and all sessions; pairs has a bit
//   set for every pair with a count in any of the three.
// - bareHand_, bareLastHand_, pendingHand_ and pendingLastHand_ only say
//   what is known to be 0; a clear bit knows nothing.
// - A const read may settle, so a game that threads share for reading is
//   settled before they start (batch/batch.cpp).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "core/frames.h"
#include "core/move_cells.h"
#include "core/pair_events.h"
#include "core/tables.h"

class RollTallyTable {
 public:
  using Cells = Table2<Long, 0, kLastFrameIndex, 0, kLastEvent>;
  static constexpr std::size_t kCols = Cells::kCols;

  Long& operator()(int i, int k) {
    if (k != kEventRolls) {
      Settle();
      bareHand_ = bareLastHand_ = 0;  // the cell may be written
    }
    return cells_(i, k);
  }
  const Long& operator()(int i, int k) const {
    if (k != kEventRolls) Settle();
    return cells_(i, k);
  }
  // Every cell as the plain table would hold it: for code that walks,
  // copies or overwrites the whole table or whole rows.
  Cells& Settled() {
    Settle();
    bareHand_ = bareLastHand_ = 0;  // any cell may be written
    return cells_;
  }
  const Cells& Settled() const {
    Settle();
    return cells_;
  }
  void Fill(Long v) {
    Settle();  // drops the pending pairs with what they owe
    bareHand_ = bareLastHand_ = 0;
    cells_.Fill(v);
  }

  // A roll of pair q (PairIndex) in the live frames of the House and of
  // the hand's shooter (none when 0), for every category of the pair but
  // the rolls.
  void CountPair(int shooter, int q) {
    const auto j = static_cast<std::size_t>(q);
    const std::uint64_t pair = std::uint64_t{1} << q;
    Count(pending_[kHouse], j, pair);
    std::uint16_t counted = SlotBit(kHouse);
    if (shooter > 0) {
      Count(pending_[static_cast<std::size_t>(shooter)], j, pair);
      counted |= SlotBit(shooter);
    }
    pendingHand_ |= counted;
    anyPending_ = true;
  }

  // Slot p's hand ends: its current-hand row becomes its last-hand row and
  // starts again from zero, pending pairs and all, without settling (what
  // the old last-hand row still owed goes with its stored cells).
  //
  // Between settlings the stored rows of the hand frames hold nothing but
  // the rolls, and only the slots that shot this hand or the last have
  // pending hand pairs: what is known to be zero in both rows stays as it is.
  void MoveToLastHand(int p) {
    const std::uint16_t bit = SlotBit(p);
    Long* const hand = &cells_(FrameIndex(p, kFrameCurrentHand), 0);
    Long* const last = &cells_(FrameIndex(p, kFrameLastHand), 0);
    if ((bareHand_ & bareLastHand_ & bit) != 0) {
      last[kEventRolls] = hand[kEventRolls];
      hand[kEventRolls] = 0;
    } else {
      MoveCells<kCols>(hand, last);
      bareLastHand_ = static_cast<std::uint16_t>((bareLastHand_ & ~bit) | (bareHand_ & bit));
      bareHand_ |= bit;
    }
    if (((pendingHand_ | pendingLastHand_) & bit) != 0) {
      Pending& s = pending_[static_cast<std::size_t>(p)];
      MoveCells<kDicePairs>(s.hand.data(), s.lastHand.data());
      pendingLastHand_ = static_cast<std::uint16_t>((pendingLastHand_ & ~bit) | (pendingHand_ & bit));
      pendingHand_ &= static_cast<std::uint16_t>(~bit);
    }
  }

  friend bool operator==(const RollTallyTable& a, const RollTallyTable& b) {
    return a.Settled() == b.Settled();
  }

 private:
  using PairCounts = std::array<std::uint32_t, kDicePairs>;
  struct Pending {
    PairCounts hand{}, lastHand{}, sessions{};
    std::uint64_t pairs = 0;
  };

  static void Count(Pending& s, std::size_t j, std::uint64_t pair) {
    ++s.hand[j];
    ++s.sessions[j];
    s.pairs |= pair;
  }
  static constexpr std::uint16_t SlotBit(int p) { return static_cast<std::uint16_t>(1u << p); }
  void Settle() const {
    if (anyPending_) SettleAll();
  }
  // Adds every pending pair's categories to the stored rows and clears it.
  void SettleAll() const;

  // Settling changes how the counts are held, never what they are: so a
  // const reader may settle.
  mutable Cells cells_;
  mutable std::array<Pending, kPlayerSlots> pending_{};
  mutable bool anyPending_ = false;
  // Per slot (bit p): its current-hand (last-hand) stored row is 0 in every
  // category but the rolls. Cleared by whatever may write a category.
  mutable std::uint16_t bareHand_ = 0, bareLastHand_ = 0;
  // Per slot: its pending hand (last-hand) pairs may hold counts; when the
  // bit is clear they are all 0.
  mutable std::uint16_t pendingHand_ = 0, pendingLastHand_ = 0;
};

// The cells in the order of files and checksums, settled.
template <class F>
void ForEachCellFirstFastest(const RollTallyTable& t, F&& visit) {
  ForEachCellFirstFastest(t.Settled(), visit);
}
