// The raw random number generators, each on its own state record.
//
// - init_genrand / genrand_int32 / genrand_real2 / init_by_array: MT19937 as
//   its published reference defines it, word for word, so that a seed gives
//   the reference sequence.
// - srandMT / randomMT: the second Mersenne Twister. Same recurrence and
//   tempering, but its own seeding (Knuth's multiplier 69069 run over the
//   odd number 2 x seed + 1, so every 31-bit seed gives its own state and no
//   seed gives the all-zero one), so the same seed gives a different
//   sequence from the first. Output: the 32-bit word / 2^32, in [0, 1).
// - Ran1: three linear congruential sequences (259200, 134456, 243000) with
//   a 97-entry shuffle table of single-precision values. A stored value can
//   round to exactly 1.0f; callers that make dice must cap it.
// - Ran2: one linear congruential sequence (714025) with a 97-entry shuffle
//   table. Its state lives in the record; idum is read only for its sign
//   (negative reseeds) and as the seed.
// - Rng3Step / Rng3: a bare linear congruential sequence, 714025 again.
//
// The hot ones (genrand_int32, genrand_real2, randomMT) are inline; only the
// regeneration of the 624 words, once per 624 draws, is a call.
#pragma once

#include <cstdint>

#include "dice/dice_state.h"

// Regenerates all 624 words of a Mersenne Twister state (the "twist").
void RegenerateMt(MtState& s);
// The published reference seeding by one 32-bit word.
void init_genrand(MtState& s, std::uint32_t seed);
// The published reference seeding by an array of words.
void init_by_array(MtState& s, const std::uint32_t* key, int keyLength);
// The second Mersenne Twister's seeding.
void srandMT(MtState& s, std::uint32_t seed);

// The twister's tempering of one state word into an output word.
constexpr std::uint32_t kMtTemperB = 0x9d2c5680u, kMtTemperC = 0xefc60000u;
inline std::uint32_t TemperMt(std::uint32_t y) {
  y ^= y >> 11;
  y ^= (y << 7) & kMtTemperB;
  y ^= (y << 15) & kMtTemperC;
  y ^= y >> 18;
  return y;
}

// Next tempered 32-bit word; a never-seeded first twister seeds with 5489.
inline std::uint32_t genrand_int32(MtState& s) {
  if (s.mti >= kMtWords) [[unlikely]] {
    if (s.mti == kMtWords + 1) init_genrand(s, 5489u);
    RegenerateMt(s);
  }
  return TemperMt(s.mt[s.mti++]);
}

// A double in [0, 1) with 32-bit resolution.
inline double genrand_real2(MtState& s) { return genrand_int32(s) * (1.0 / 4294967296.0); }

// The second twister's next tempered 32-bit word; never seeded, it seeds with 4357.
inline std::uint32_t randomMTWord(MtState& s) {
  if (s.mti == kMtWords + 1) [[unlikely]]
    srandMT(s, 4357u);
  return genrand_int32(s);
}

// The second twister's next value in [0, 1).
inline double randomMT(MtState& s) { return randomMTWord(s) * (1.0 / 4294967296.0); }

// Ran1's next value in [0, 1]; idum negative (or a first call) reseeds from
// it and sets it to 1. Sets *error on an impossible shuffle index.
float Ran1(Ran1State& s, std::int32_t& idum, const char** error);
// Ran2's next value in [0, 1); idum negative (or a first call) reseeds.
float Ran2(Ran2State& s, std::int32_t& idum, const char** error);

// Advances Rng3State and returns a whole number from 1 to range.
inline Long Rng3(Long& state, Long range) {
  state = static_cast<Long>((static_cast<std::int64_t>(state) * 1366 + 150889) % 714025);
  return static_cast<Long>(static_cast<double>(range) * state / 714025.0) + 1;
}
