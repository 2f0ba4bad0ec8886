// The bankroll graph view's own settings (the history itself is the roll's,
// in Game; the plot type, scale and top are RollState's). Data only, and the
// one copy: the window, the reports and the game file all read these. The
// file keeps the player and the options; the reference lines' places are
// the window's for as long as the game runs.
#pragma once

#include <cstdint>

// The choices of the view's option menus.
constexpr std::int32_t kGraphAdjustTypes = 4;    // manual, auto-shift, expanding, snap-back
constexpr std::int32_t kGraphStyles = 3;         // plain, striped, solid
constexpr std::int32_t kGraphColorSchemes = 10;  // the colour schemes

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
  std::int64_t GraphPrintedRoll = 0;   // the session roll of the last graph printed
  friend bool operator==(const GraphViewState&, const GraphViewState&) = default;
};
