// BetIdSet: a set of bet ids 0..127 in two words (bit id % 64 of word
// id / 64), so that the bets a seat holds or changed are marked, met and
// walked without a loop over every id.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

struct BetIdSet {
  std::array<std::uint64_t, 2> words{};

  constexpr void Add(int b) { words[b >> 6] |= std::uint64_t{1} << (b & 63); }
  // Adds ids first + i for each bit i of `bits`; the bits stay within the
  // word of `first`.
  constexpr void AddBlock(int first, unsigned bits) {
    words[first >> 6] |= std::uint64_t{bits} << (first & 63);
  }
  // True when the two sets share an id.
  constexpr bool Meets(const BetIdSet& o) const {
    return ((words[0] & o.words[0]) | (words[1] & o.words[1])) != 0;
  }
  constexpr bool Empty() const { return (words[0] | words[1]) == 0; }
  // Calls f(b) for every id b of the set, lowest first. The two words are
  // written out: the compiler keeps a loop over them, which a set of few
  // ids pays for more than for its ids.
  template <class F>
  void ForEach(F&& f) const {
    for (std::uint64_t bits = words[0]; bits != 0; bits &= bits - 1) f(std::countr_zero(bits));
    for (std::uint64_t bits = words[1]; bits != 0; bits &= bits - 1) f(64 + std::countr_zero(bits));
  }

  friend constexpr BetIdSet operator|(const BetIdSet& a, const BetIdSet& b) {
    return {{a.words[0] | b.words[0], a.words[1] | b.words[1]}};
  }
  friend constexpr BetIdSet operator&(const BetIdSet& a, const BetIdSet& b) {
    return {{a.words[0] & b.words[0], a.words[1] & b.words[1]}};
  }
  friend constexpr bool operator==(const BetIdSet&, const BetIdSet&) = default;
};

// The ids first..last.
constexpr BetIdSet BetIdRange(int first, int last) {
  BetIdSet s;
  for (int b = first; b <= last; ++b) s.Add(b);
  return s;
}
