#include "analysis/advantage_table.h"

#include <cmath>
#include <cstdio>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/number_text.h"

namespace {

constexpr NumberFormat kFigureFormat{2, false, false};  // "0.00;-0.00;0.00"
constexpr double kPercent = 100;
constexpr double kSecondsPerHour = 3600, kMinutesPerHour = 60, kSecondsPerMinute = 60;

AdvantageCell Cell(double value, bool deviation) {
  AdvantageCell c{FormatNumber(value, kFigureFormat), FigureColour::Black};
  const bool zero = c.text.find_first_of("123456789") == std::string::npos;
  if (!zero)
    c.colour = value > 0 ? FigureColour::Blue : deviation ? FigureColour::Black : FigureColour::Red;
  return c;
}

}  // namespace

const std::array<std::string_view, kAdvantageColumns> kAdvantageTitles = {
    "EV/Roll", "StDev/Roll", "EV/Dec", "StDev/Dec", "EV/Hour"};
const std::array<std::string_view, kAdvantageColumns> kAdvantageMiscTitles = {
    "Rolls/Dec", "Decs/Roll", "Decs/Hour", "Decs/Min", "Time/Dec"};

std::string AdvantageRowLabel(int b) {
  const std::string n = std::to_string(BoxNumber((b - 1) % 6));  // of ids 7..30
  if (b >= 19 && b <= 24) return "Pass/Come " + n;
  if (b >= 25 && b <= 30) return "Pass/Come " + n + " Odds";
  if (b >= 7 && b <= 12) return "DP/DC " + n;
  if (b >= 13 && b <= 18) return "DP/DC " + n + " Odds";
  switch (b) {
    case bet::kPassLine:
      return "Passline/Come";
    case bet::kPassLineOdds:
      return "Passline/Come Odds";
    case bet::kDontPass:
      return "Don't Pass/Come";
    case bet::kDontPassOdds:
      return "Don't Pass/Come Odds";
    case bet::kCome:
      return "Passline/Come (c.o.)";
    case bet::kDontCome:
      return "Don't Pass/Come (c.o.)";
    default:
      return std::string(BetName(b));
  }
}

std::string TimePerDecisionText(double rollsPerDec, double rollsPerHour) {
  const double h = rollsPerHour > 0 ? rollsPerDec / rollsPerHour : 0;
  const double hours = std::floor(h);
  const double minutes = std::floor((h - hours) * kMinutesPerHour);
  const double seconds =
      h * kSecondsPerHour - hours * kSecondsPerHour - minutes * kSecondsPerMinute;
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.0f:%02.0f:%04.1f", hours, minutes, seconds < 0 ? 0.0 : seconds);
  return buf;
}

AdvantageRow FigureAdvantageRow(const Game& game, int b) {
  AdvantageRow row;
  row.bet = b;
  row.label = AdvantageRowLabel(b);
  const Advantage a = FigureAdvantage(game, b, AdvantagePrecision::AsShown);
  row.figures = a;
  const double perHour = game.rules.RollsPerHour.ToDouble();
  row.normal = {Cell(a.evPerRoll * kPercent, false), Cell(a.stDevPerRoll * kPercent, true),
                Cell(a.evPerDec * kPercent, false), Cell(a.stDevPerDec * kPercent, true),
                Cell(perHour * a.evPerRoll * kPercent, false)};
  const double r = a.rollsPerDec;
  auto perDec = [&](double x) { return Cell(r == 0 ? 0 : x, true); };
  row.misc = {perDec(r),
              perDec(1 / r),
              perDec(perHour / r),
              perDec(perHour / kMinutesPerHour / r),
              {TimePerDecisionText(r, perHour), FigureColour::Black}};
  return row;
}
