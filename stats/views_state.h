// What the statistics views remember between openings: each view's player
// selection, time frame and options, saved with the game. The figures
// themselves are never stored; every view figures them afresh when asked.
//
// What must stay true:
// - A selection is a bit set of slots (bit p for slot p); 0 selects nobody,
//   which the roll totals, summary and hands views read as the whole table.
// - A frame is 0..4: current hand, last hand, current session, last
//   session, all sessions.
// - BetResultsSelection holds one character per bet id 1..85, "S" selected.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/currency.h"

struct ViewsState {
  // Roll totals and frequencies.
  std::int32_t RollTotalsKind = 0;  // 0 basic, 1 distinguishable, 2 unique, 3 faces
  std::int32_t RollTotalsFrame = 2;
  std::int32_t RollTotalsPlayers = 0;
  bool RollTotalsVsSkewed = false;
  std::int32_t RollFreqCategory = 7;
  bool RollFreqsSkewed = false;  // cmdProbable: skewed rather than true probable %

  // Bet results and trends.
  std::int32_t BetResultsPlayers = 0;
  std::int32_t BetResultsFrame = 2;
  std::string BetResultsSelection = std::string(85, 'S');
  std::int32_t BetTrendsPlayer = 0;

  // Summary and hands.
  std::int32_t SummaryPlayers = 0, SummaryFrame = 2;
  std::int32_t HandsPlayers = 0, HandsFrame = 2;
  bool HandsShowPercent = false;

  // Sessions log.
  std::int32_t SessionsPlayer = 0;
  std::int32_t SessionsView = 8;    // the sampled value, 0..31
  std::int32_t SessionsFilter = 7;  // bits: won, broke-even, lost, data list
  Currency BreakLow, BreakHigh;
  std::int32_t BarWidth = 5;
  std::int32_t RawTop = 1;

  friend bool operator==(const ViewsState&, const ViewsState&) = default;
};
