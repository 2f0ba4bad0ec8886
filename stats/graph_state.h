// The bankroll graph view's own settings (the history itself is the roll's,
// in Game). Data only; the game file stores them.
#pragma once

#include <cstdint>

struct GraphViewState {
  std::int32_t GraphPlayer = 0;       // the player shown; 0 none
  std::int32_t GraphAdjustType = 1;   // 0 manual, 1 auto-shift, 2 expanding, 3 snap-back
  std::int32_t GraphStyle = 0;        // 0 plain, 1 striped, 2 solid
  std::int32_t GraphColor = 0;        // colour scheme 0..9
  bool GraphShowGrid = true;
  bool GraphShowRefLines = false;
  std::int32_t GraphAverageSpan = 0;  // 0..525 rolls; 0 all rolls of the session
  std::int32_t RefLine1 = 0;          // columns 0..524
  std::int32_t RefLine2 = 0;
  bool RefLine1OnAverage = false;
  bool RefLine2OnAverage = false;
  friend bool operator==(const GraphViewState&, const GraphViewState&) = default;
};
