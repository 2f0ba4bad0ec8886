// Number texts of the statistics views: one formatter for every pattern the
// views use, so that a view names its pattern and never builds digits itself.
//
// A pattern has up to three sections, "positive;negative;zero". Each section
// is literal text around one number made of '#' (a digit if there is one),
// '0' (a digit always), ',' (thousands groups) and '.' (the decimal point);
// a '%' in the literal text multiplies the value by 100. "Standard" is
// "#,##0.00". The section is chosen by the sign of the value; a value that
// rounds to zero in its section takes the zero section when there is one.
// A negative value without a negative section is the positive section with a
// leading '-'.
//
// What must stay true:
// - The negative section shows the magnitude: its '-' is literal text.
// - A number with no whole digits to show and no '0' before the point reads
//   ".50", as "#,#.00" does; a point with no decimals after it is dropped.
// - NaN and infinities format as zero: a view never prints "nan".
#pragma once

#include <string>
#include <string_view>

#include "core/currency.h"

// The text of x in the pattern.
std::string FormatNumber(double x, std::string_view pattern);
inline std::string FormatNumber(Currency x, std::string_view pattern) {
  return FormatNumber(x.ToDouble(), pattern);
}
// The first pattern when x is whole, else the second: the views' habit of
// showing counts without decimals and amounts with them.
std::string FormatWholeOr(double x, std::string_view whole, std::string_view other);

// The patterns the views share.
namespace fmt_pattern {
constexpr std::string_view kWhole = "#,#;-#,#;0";
constexpr std::string_view kPercent2 = "#,#.00;-#,#;0";
constexpr std::string_view kFraction4 = "#,0.####;-#,0.####;0";
constexpr std::string_view kStandard = "Standard";
}  // namespace fmt_pattern
