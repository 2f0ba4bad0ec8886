// The Advantage tab's table as data: the texts and colours
// of both views, and a row whose bet the dice never decide.
#include "analysis/advantage_table.h"

#include "core/catalogue.h"
#include "dice/probability.h"
#include "tests/engine/roll_fixture.h"

namespace {

using AdvantageTable = RollFixture;

TEST_F(AdvantageTable, BothViewsOfThePassLine) {
  const AdvantageRow row = FigureAdvantageRow(g, bet::kPassLine);
  // EV/roll -0.004189, x 120 rolls an hour; rolls per decision 557 / 165; the
  // deviation per roll sqrt((1 - 2 x 0.004189 x 0.014141 + 0.004189^2) / R).
  const char* normal[] = {"-0.42", "54.42", "-1.41", "99.99", "-50.27"};
  const char* misc[] = {"3.38", "0.30", "35.55", "0.59", "0:01:41.3"};
  for (int c = 0; c < kAdvantageColumns; ++c) {
    EXPECT_EQ(row.normal[c].text, normal[c]) << kAdvantageTitles[c];
    EXPECT_EQ(row.misc[c].text, misc[c]) << kAdvantageMiscTitles[c];
  }
  EXPECT_EQ(row.normal[0].colour, FigureColour::Red);
  EXPECT_EQ(row.normal[1].colour, FigureColour::Blue);  // a deviation is never red
  EXPECT_EQ(row.normal[4].colour, FigureColour::Red);
  EXPECT_EQ(FigureAdvantageRow(g, bet::kPassLineOdds).normal[2].colour, FigureColour::Black);
  EXPECT_EQ(FigureAdvantageRow(g, PlaceId(6)).misc[0].text, "3.27");
}

TEST_F(AdvantageTable, ABetTheDiceNeverDecideReadsZero) {
  for (int a = 2; a <= 7; ++a)
    for (int b = a - 1; b <= 13 - a; ++b) ProbValue(g, a, b) = 0;
  g.dice.ProbabilityDiceOn = true;
  const AdvantageRow row = FigureAdvantageRow(g, PlaceId(6));
  for (int c = 0; c < kAdvantageColumns - 1; ++c) {
    EXPECT_EQ(row.normal[c].text, "0.00");
    EXPECT_EQ(row.misc[c].text, "0.00");
    EXPECT_EQ(row.misc[c].colour, FigureColour::Black);
  }
  EXPECT_EQ(row.misc[4].text, "0:00:00.0");
}

}  // namespace
