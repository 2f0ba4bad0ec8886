// The Advantage tab's own settings, kept with the game.
//
// Nothing else of the analysis persists: FigureAdvantage works every figure
// afresh from the payoffs, the settings and the dice on each call.
#pragma once

#include <cstdint>

struct AdvantageState {
  // mnuIncludeZeroOutcomes ("Count &zero outcomes as decisions"): every roll
  // counts as a decision.
  bool CountZeroOutcomes = false;
  // mnuShowMiscData ("Show misc. roll, dec, and time data"): the table shows
  // rolls, decisions and time instead of values and deviations.
  bool ShowMiscData = false;
  // vsbAdvantage: the bet id of the table's first visible row.
  std::int32_t AdvantageTopRow = 1;
  friend bool operator==(const AdvantageState&, const AdvantageState&) = default;
};
