// The per-decision expected value under fair dice and the default payoffs,
// against figures worked by hand (the classic house edges), and its answer
// to a changed payoff.
#include <gtest/gtest.h>

#include "../engine/roll_fixture.h"
#include "core/catalogue.h"
#include "analysis/advantage.h"

namespace {

using namespace bet;

class ExpectedValue : public RollFixture {};

TEST_F(ExpectedValue, DefaultPayoffsGiveTheKnownEdges) {
  const std::pair<int, double> cases[] = {
      {kPassLine, -0.014141},       {kDontPass, -0.014026},   {kPassLineOdds, 0},
      {kDontPassOdds, 0},           {PlaceId(6), -0.015152},  {PlaceId(5), -0.04},
      {BuyId(4), -0.047619},        {LayId(10), -0.02439},    {kField, -0.055556},
      {kSeven, -0.166667},          {kCraps, -0.111111},      {kHard6, -0.090909},
      {kHard4, -0.111111},          {kBig6, -0.090909},       {kOver7, -0.166667},
      {68, -0.111111},              {71, -0.138889},          {kHorn, -0.125},
      {kCandE, -0.111111},          {kWorld, -0.16},      {kMidway, -0.055556},
      {kCome, 0.333333},  // the come-out roll alone: 8 ways to win, 4 to lose
      {ComeId(4), -0.333333},       {kFire, -0.207628},
  };
  for (auto [b, ev] : cases) EXPECT_NEAR(ExpectedValuePerDecision(g, b), ev, 1e-6) << BetName(b);
}

TEST_F(ExpectedValue, FollowsThePayoffsInForce) {
  g.PayoffTbl(1, kSeven) = Currency::FromWhole(5);  // Any 7 at 5 to 1 is a fair bet
  EXPECT_DOUBLE_EQ(ExpectedValuePerDecision(g, kSeven), 0);
  g.rules.BarNumber = 2;  // the Don't Pass pushes on 2 instead of 12: the same figure
  EXPECT_NEAR(ExpectedValuePerDecision(g, kDontPass), -0.014026, 1e-6);
  EXPECT_EQ(ExpectedValuePerDecision(g, 0), 0);
  EXPECT_EQ(ExpectedValuePerDecision(g, 93), 0);
}

}  // namespace
