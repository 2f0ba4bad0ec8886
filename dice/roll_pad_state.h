// The roll pad: the two dice the user picked by hand for the next roll, and
// the pad's saved look.
//
// What must stay true: PadRollPending is set only with PadDie1 and PadDie2
// in 1..6, and the roll that takes them clears it. PadFacePick1/2 are 0 or
// a face 1..6 and live only while the pad is open.
#pragma once

#include <cstdint>

struct RollPadState {
  std::int32_t PadDie1 = 0, PadDie2 = 0;
  bool PadRollPending = false;
  // Saved with the game. Bits 1, 2, 4, 8: display kind 0..3; 16 the roll
  // counter; 32 the Hyper-Drive button; 64 the random-roll button.
  std::int32_t PadOptions = 4;
  std::int32_t PadColor = 0;  // 0 multi-colour, 1 red and cyan, 2 gray
  std::int32_t PadFacePick1 = 0, PadFacePick2 = 0;

  friend bool operator==(const RollPadState&, const RollPadState&) = default;
};
