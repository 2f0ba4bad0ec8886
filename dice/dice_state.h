// The state of the dice sources: the selected generator, the generators' own
// state, the seeds.
//
// Every generator keeps its whole state here in fixed arrays, so a Game can
// be copied, a test can build as many as it likes, and drawing dice never
// touches the heap. Each generator's state is independent of the others:
// changing RngIndex neither reseeds nor disturbs any sequence, and a return
// to a generator goes on where it left off.
//
// What must stay true:
// - RngIndex is 0..7 (kRngCount generators).
// - MtState::mti is 0..kMtWords, or kMtWords + 1 for "never seeded" (the
//   first draw then seeds as the published reference does).
// - Ran1State::ix1/ix2/ix3 lie below their moduli once initialised; they
//   are whole numbers below 2^24, so holding them as integers is exactly
//   what holding them as single-precision reals would be.
// - Rng3State is not negative; after a seeding it may be as large as the
//   seed (up to 2,147,483,647), after one step it is below 714,025.
// The generators' states are not saved with the game; RngIndex, LastSeed,
// UserSeedMode, ReseedEachSession and ProbabilityDiceOn are.
#pragma once

#include "core/frames.h"

#include <array>
#include <cstdint>


constexpr int kRngCount = 8;   // RngIndex 0..7, shown as "RNG #" index + 1
constexpr int kMtWords = 624;  // words of a Mersenne Twister state

// Bits of MissingDllMask: a Mersenne Twister library is not available.
constexpr Long kMissingFirstMt = 1;   // generators 0, 5, 7 fall back to 3
constexpr Long kMissingSecondMt = 2;  // generators 1, 6 fall back to 3

// One Mersenne Twister: 624 words and the index of the next to temper.
struct MtState {
  std::array<std::uint32_t, kMtWords> mt{};
  int mti = kMtWords + 1;
  // The die of each word, Int(u x 6) + 1 of its tempered output as u in
  // [0, 1), made by the regeneration that made the words, so that the first
  // generator's dice are two reads. Only the regeneration writes words that
  // are drawn: a seeding leaves mti at kMtWords or beyond, so no word is
  // drawn before the next regeneration has made its die.
  std::array<std::uint8_t, kMtWords> die{};

  friend bool operator==(const MtState&, const MtState&) = default;
};

// The three-sequence shuffled generator Ran1.
struct Ran1State {
  std::int32_t ix1 = 0, ix2 = 0, ix3 = 0;
  std::array<float, 98> r{};  // r(1..97); element 0 unused
  bool initialised = false;

  friend bool operator==(const Ran1State&, const Ran1State&) = default;
};

// The one-sequence shuffled generator Ran2.
struct Ran2State {
  std::int32_t idum = 0;  // the sequence's state
  std::int32_t iy = 0;
  std::array<std::int32_t, 98> ir{};  // ir(1..97); element 0 unused
  bool initialised = false;

  friend bool operator==(const Ran2State&, const Ran2State&) = default;
};

struct DiceState {
  Long RngIndex = 0;              // the selected generator
  Long MissingDllMask = 0;        // kMissingFirstMt | kMissingSecondMt
  Long LastSeed = 0;              // the seed last used (lblLastSeed)
  Long Rng3State = 0;             // state of generator 3
  bool UserSeedMode = false;      // " User seed" rather than " Seed normally"
  bool ReseedEachSession = true;  // " Re-seed new sessions"
  bool ProbabilityDiceOn = false;
  Long ProbabilityPick = 0;  // the last k drawn for the probability table

  MtState mt19937;   // the first Mersenne Twister (init_genrand, genrand_real2)
  MtState mtSecond;  // the second Mersenne Twister (srandMT, randomMT)
  Ran1State ran1;
  Ran2State ran2;

  // Static text of the last internal generator fault ("An error occurred in
  // function Ran1"), or null. Never allocated.
  const char* RngError = nullptr;

  friend bool operator==(const DiceState&, const DiceState&) = default;
};
