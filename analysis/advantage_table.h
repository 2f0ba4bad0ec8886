// The Advantage tab's table as data: each bet's row label, the texts of its
// columns in the normal view and in the "misc. data" view, and the colour
// of each figure, so the window only lays out and paints what it is given.
//
// What must stay true:
// - Rows are bet ids 1..85; labels are BetName but for the line, Come and
//   Don't Come rows, which the tab names by what they stand for.
// - Texts are those of the figures as shown (FigureAdvantage AsShown), in
//   percent for the normal view, with "0.00;-0.00;0.00".
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "analysis/advantage.h"

struct Game;

constexpr int kAdvantageVisibleRows = 21;  // rows picAdvantage draws from vsbAdvantage
constexpr int kAdvantageColumns = 5;

// Column titles of the normal view, and of the view with ShowMiscData.
extern const std::array<std::string_view, kAdvantageColumns> kAdvantageTitles;
extern const std::array<std::string_view, kAdvantageColumns> kAdvantageMiscTitles;

// Colour of a figure: blue above 0, red below, black at 0.
enum class FigureColour { Black, Blue, Red };

struct AdvantageCell {
  std::string text;
  FigureColour colour = FigureColour::Black;
};

struct AdvantageRow {
  int bet = 0;
  std::string label;
  Advantage figures;                                    // as shown
  std::array<AdvantageCell, kAdvantageColumns> normal;  // EV/Roll .. EV/Hour
  std::array<AdvantageCell, kAdvantageColumns> misc;    // Rolls/Dec .. Time/Dec
};

// The row label of bet id 1..85.
std::string AdvantageRowLabel(int bet);
// The whole row of bet id 1..85 under the game's payoffs, dice and RollsPerHour.
AdvantageRow FigureAdvantageRow(const Game& game, int bet);
// The Time/Dec text of R rolls at a rate per hour: hours, ":", minutes
// "00", ":", seconds "00.0".
std::string TimePerDecisionText(double rollsPerDec, double rollsPerHour);
