// The views' number texts: each pattern the views use, on values a person
// can read off, including the sections for negatives and zero.
#include <gtest/gtest.h>

#include <limits>

#include "stats/number_format.h"

namespace {

struct Case {
  double x;
  const char* pattern;
  const char* text;
};

TEST(FormatNumber, ThePatternsOfTheViews) {
  const Case cases[] = {
      {1234567, "#,#;-#,#;0", "1,234,567"},
      {-1234, "#,#;-#,#;0", "-1,234"},
      {0, "#,#;-#,#;0", "0"},
      {0.4, "#,#;-#,#;0", "0"},  // rounds to nothing: the zero section
      {16.6667, "#,#.00;-#,#;0", "16.67"},
      {0.5, "#,#.00;-#,#;0", ".50"},
      {-3.7, "#,#.00;-#,#;0", "-4"},
      {2.5, "#,0.####;-#,0.####;0", "2.5"},
      {-0.42426, "#,0.####;-#,0.####;0", "-0.4243"},
      {100.5, "Standard", "100.50"},
      {-1234.5, "Standard", "-1,234.50"},
      {0, "Standard", "0.00"},
      {12.25, "#,##0.0###;-#,##0.0###;0", "12.25"},
      {12, "#,##0.0###;-#,##0.0###;0", "12.0"},
      {-0.01414, "#,##0.0# %;-#,##0.0# %;0 %", "-1.41 %"},
      {0, "#,##0.0# %;-#,##0.0# %;0 %", "0 %"},
      {33.3333, "0.0#;-0.0#;0", "33.33"},
      {-5, " #,#;-#,#", "-5"},
      {0, " #,#;-#,#", " "},
      {7, " #,#;-#,#", " 7"},
      {0.00001, "#,0.0###;-#,#;0", "0"},
      {std::numeric_limits<double>::quiet_NaN(), "#,#;-#,#;0", "0"},
  };
  for (const Case& c : cases) EXPECT_EQ(FormatNumber(c.x, c.pattern), c.text) << c.x << " in " << c.pattern;
}

TEST(FormatNumber, WholeValuesTakeTheFirstPattern) {
  EXPECT_EQ(FormatWholeOr(30, "#,#;-#,#;0", "#,0.####;-#,0.####;0"), "30");
  EXPECT_EQ(FormatWholeOr(33.33333, "#,#;-#,#;0", "#,0.####;-#,0.####;0"), "33.3333");
}

}  // namespace
