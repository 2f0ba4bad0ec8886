#include <cassert>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "dice/generators.h"
#include "dice/probability.h"
#include "dice/rng.h"

namespace {

// A die from a value in [0, 1]: Int(u x 6) + 1, a value of 1.0 (which a
// single-precision Ran1 can return) counting as the top of the range.
inline Long DieFrom(double u) {
  const Long d = static_cast<Long>(u * 6.0);
  return (d < 5 ? d : 5) + 1;
}

// A die from a Mersenne Twister word w, the same as DieFrom(w / 2^32) in
// integers: w / 2^32 is exact in a double and so is its product with 6 (35
// significant bits at most), so Int(u x 6) is floor(6w / 2^32), which is
// below 6 and needs no cap.
inline Long DieFromWord(std::uint32_t w) {
  return static_cast<Long>((std::uint64_t{w} * 6) >> 32) + 1;
}

// k for the probability table from a 32-bit draw: Int(u x 100000) + 1.
inline Long PickFromMt(double u) { return static_cast<Long>(u * 100000.0) + 1; }

// k from a single-precision draw: u x 100000 rounded to nearest, ties to
// even, plus 1; so 100001 is possible.
inline Long PickFromShuffled(float u) {
  return static_cast<Long>(std::nearbyint(static_cast<double>(u) * 100000.0)) + 1;
}

// Generators 5 and 6 use the shuffled generator on an even session roll
// count (before this roll is counted), the Mersenne Twister on an odd one.
inline bool EvenSessionRoll(const Game& game) { return (game.RollTally(kTableSession, kEventRolls) & 1) == 0; }

inline float DrawRan1(DiceState& s) {
  std::int32_t idum = 1;
  return Ran1(s.ran1, idum, &s.RngError);
}

inline float DrawRan2(DiceState& s) {
  std::int32_t idum = 1;
  return Ran2(s.ran2, idum, &s.RngError);
}

// Sets the dice by two draws of one source, Die1 first.
template <class Draw>
inline void TwoDice(Game& game, Draw draw) {
  game.Die1 = DieFrom(draw());
  game.Die2 = DieFrom(draw());
}

// The same from two Mersenne Twister words.
template <class Draw>
inline void TwoDiceFromWords(Game& game, Draw draw) {
  game.Die1 = DieFromWord(draw());
  game.Die2 = DieFromWord(draw());
}

// With probability dice one draw makes k, and the table turns it into the pair.
void DrawProbabilityDice(Game& game) {
  game.dice.ProbabilityPick = DrawProbabilityNumber(game);
  PickProbabilityDice(game, game.dice.ProbabilityPick);
}

}  // namespace

void ApplyGeneratorFallback(Game& game) {
  DiceState& s = game.dice;
  if ((s.MissingDllMask & kMissingFirstMt) &&
      (s.RngIndex == 0 || s.RngIndex == 5 || s.RngIndex == 7)) {
    s.RngIndex = 3;
  }
  if ((s.MissingDllMask & kMissingSecondMt) && (s.RngIndex == 1 || s.RngIndex == 6)) {
    s.RngIndex = 3;
  }
}

void DrawDiceOtherwise(Game& game) {
  DiceState& s = game.dice;
  if (s.ProbabilityDiceOn) {
    DrawProbabilityDice(game);
    return;
  }
  switch (s.RngIndex) {
    case 0:
      TwoDiceFromWords(game, [&] { return genrand_int32(s.mt19937); });
      break;
    case 1:
      TwoDiceFromWords(game, [&] { return randomMTWord(s.mtSecond); });
      break;
    case 2:
      game.Die1 = Rng3(s.Rng3State, 6);
      game.Die2 = Rng3(s.Rng3State, 6);
      break;
    case 3:
      TwoDice(game, [&] { return DrawRan2(s); });
      break;
    case 4:
      TwoDice(game, [&] { return DrawRan1(s); });
      break;
    case 5:
      if (EvenSessionRoll(game)) {
        TwoDice(game, [&] { return DrawRan1(s); });
      } else {
        TwoDiceFromWords(game, [&] { return genrand_int32(s.mt19937); });
      }
      break;
    case 6:
      if (EvenSessionRoll(game)) {
        TwoDice(game, [&] { return DrawRan2(s); });
      } else {
        TwoDiceFromWords(game, [&] { return randomMTWord(s.mtSecond); });
      }
      break;
    default: {
      assert(s.RngIndex == 7);
      // Int(u x 36) of u = w / 2^32, exact in integers as in DieFromWord.
      const Long n = static_cast<Long>((std::uint64_t{genrand_int32(s.mt19937)} * 36) >> 32);
      game.Die2 = n / 6 + 1;
      game.Die1 = n % 6 + 1;
      break;
    }
  }
}

Long DrawProbabilityNumber(Game& game) {
  DiceState& s = game.dice;
  switch (s.RngIndex) {
    case 1:
      return PickFromMt(randomMT(s.mtSecond));
    case 2:
      return Rng3(s.Rng3State, 100000);
    case 3:
      return PickFromShuffled(DrawRan2(s));
    case 4:
      return PickFromShuffled(DrawRan1(s));
    case 5:
      return EvenSessionRoll(game) ? PickFromShuffled(DrawRan1(s))
                                   : PickFromMt(genrand_real2(s.mt19937));
    case 6:
      return EvenSessionRoll(game) ? PickFromShuffled(DrawRan2(s))
                                   : PickFromMt(randomMT(s.mtSecond));
    default:  // 0 and 7
      return PickFromMt(genrand_real2(s.mt19937));
  }
}
