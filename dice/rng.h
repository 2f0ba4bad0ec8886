// The dice from the random number generators: seeding, the fallback for a
// missing generator, and the two dice of a roll.
//
// Eight generators are selectable by RngIndex (see dice/generators.h for the
// algorithms):
//   0 "RNG #1"  genrand_real2              4 "RNG #5"  Ran1
//   1 "RNG #2"  randomMT                   5 "RNG #6 (#1 and #5)"  Ran1 / genrand_real2
//   2 "RNG #3"  Rng3                       6 "RNG #7 (#2 and #4)"  Ran2 / randomMT
//   3 "RNG #4"  Ran2                       7 "RNG #8 (#1 single call)"  one genrand_real2
// Generators 5 and 6 alternate by the session's roll count before this roll
// (RollTally(kTableSession, kEventRolls)): even draws from Ran1 / Ran2, odd from the Mersenne
// Twister. Both dice of one roll always come from the same source.
//
// What must stay true:
// - DrawDice leaves Die1 and Die2 in 1..6 whatever the draw: a
//   single-precision Ran1 value can round up to exactly 1.0, and that draw
//   makes a 6, never a 7.
// - DrawDice allocates nothing, builds no text and makes no indirect call:
//   Hyper-Drive calls it up to 100 million times a session.
// - Seeding touches only the selected generator (and Rng3State and LastSeed,
//   which every seeding sets).
#pragma once

#include <cstddef>

#include "core/game.h"

// Forces RngIndex off a generator whose library MissingDllMask marks as
// missing: 0, 5, 7 go to 3 without the first Mersenne Twister, 1 and 6 go to
// 3 without the second. Called at the very start of RollDice.
void ApplyGeneratorFallback(Game& game);

// DrawDice for every case but the first generator's dice made ahead: the
// other generators, the probability dice, a regeneration due.
void DrawDiceOtherwise(Game& game);

// Sets game.Die1 and game.Die2 from the generator RngIndex selects. With
// ProbabilityDiceOn one draw makes the probability table's k instead, kept in
// ProbabilityPick, and PickProbabilityDice (dice/probability.h) turns it into
// the pair. Inline: the roll's usual case is two reads.
inline void DrawDice(Game& game) {
  DiceState& s = game.dice;
  MtState& mt = s.mt19937;
  // The first generator is the one selected at start-up. While two words
  // are left before the next regeneration (always, but for one roll in
  // 312), its dice are the dice the regeneration made of the next two
  // words (MtState::die).
  if (s.RngIndex == 0 && !s.ProbabilityDiceOn && mt.mti <= kMtWords - 2) [[likely]] {
    const auto i = static_cast<std::size_t>(mt.mti);
    mt.mti += 2;
    game.Die1 = mt.die[i];
    game.Die2 = mt.die[i + 1];
    return;
  }
  DrawDiceOtherwise(game);
}

// One draw of the selected generator as the probability table's k: 1..100000
// (Ran1 and Ran2 may give 100001). Used by DrawDice with ProbabilityDiceOn.
Long DrawProbabilityNumber(Game& game);

// Seeds the selected generator as the system does: from the user's typed
// seed in UserSeedMode (Cancel seeds nothing), else from the millisecond
// clock (tenths of a second for RngIndex 2), a reading beyond the limit
// wrapping into it and a repeat of LastSeed taking LastSeed + 1. False when
// nothing was seeded. With the events log on, writes "    RNG #n seeded: s".
bool SeedRng(Game& game);

// Seeds the selected generator with a given seed, as a script's "Seed RNG
// with S": a seed below 1 seeds from the clock; a seed above the limit
// (2,147,483,647, or 999,999 for RngIndex 2) is refused and false returned.
bool SeedRngWith(Game& game, double seed);

// The start-up seeding: RngIndex 2, 4, 3, then 1 and 0 unless
// MissingDllMask marks their library missing; the last seeded stays selected.
void SeedGeneratorsAtStartUp(Game& game);

// The caption of generator `rngIndex` in the list of generators ("RNG #1"
// to "RNG #8 (#1 single call)"); "" outside 0..7.
const char* RngCaption(Long rngIndex);

// A choice from the list of generators: the selection changes, a generator
// whose library is missing falls back as at a roll (the list then shows
// "RNG #4"), and no sequence is seeded or disturbed.
void SelectGenerator(Game& game, Long rngIndex);

// "Seed RNG now": seeds the selected generator (asking for the seed in
// UserSeedMode) and reports "The random number generator has now been
// seeded.". False, with no report, when nothing was seeded.
bool SeedRngNow(Game& game);

// The largest seed the generator `rngIndex` accepts.
constexpr Long SeedLimit(Long rngIndex) { return rngIndex == 2 ? 999'999 : 2'147'483'647; }
