// The house figure the expected-value variable reads, at the default
// payoffs with true dice, against the figures known for these bets.
#include <gtest/gtest.h>

#include "core/catalogue.h"
#include "script/house_figure.h"
#include "tests/engine/roll_fixture.h"

namespace {

TEST_F(RollFixture, HouseFiguresOfTheDefaultPayoffs) {
  const struct {
    int bet;
    double ev;
  } kKnown[] = {
      {bet::kPassLine, -0.014141}, {bet::kDontPass, -0.014026}, {PlaceId(6), -0.015152},
      {bet::kFire, -0.207628},     {bet::kPassLineOdds, 0},     {ComeId(4) + 6, 0},
      {bet::kField, -0.055556},    {bet::kSeven, -0.166667},    {bet::kHard8, -0.090909},
  };
  for (const auto& k : kKnown) EXPECT_DOUBLE_EQ(HouseExpectedValue(g, k.bet), k.ev) << k.bet;
  // A changed payoff moves the figure: Place 6 at 7.2 to 6 (6 to 5) is a fair bet.
  g.PayoffTbl(1, PlaceId(6)) = Currency::FromRaw(72000);
  EXPECT_DOUBLE_EQ(HouseExpectedValue(g, PlaceId(6)), 0);
}

}  // namespace
