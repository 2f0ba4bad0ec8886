#include "core/payoff_math.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "config/payoffs.h"
#include "config/settings.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"

namespace {

Currency Raw(std::int64_t r) { return Currency::FromRaw(r); }

class PayoffMath : public ::testing::Test {
 protected:
  void SetUp() override {
    SetDefaultSettings(g);
    SetDefaultPayoffs(g);
  }
  // Highest odds on a Come bet on `number` with flat `base`, as taken on a win.
  Currency ComeOddsMax(int number, Currency base) {
    const int odds = ComeId(number) + 6;
    return FigureOddsMaximum(g, odds, base, g.PayoffTbl(1, odds), g.PayoffTbl(3, odds));
  }
  std::unique_ptr<Game> owner = std::make_unique<Game>();
  Game& g = *owner;
};

TEST_F(PayoffMath, AutoSelectedOddsMaximum) {
  // Odds allowed on 4/10, 5/9 and 6/8 (0: the default), the number, the flat
  // and the highest odds.
  const long cases[][6] = {{0, 0, 0, 6, 10, 25},
                           {0, 0, 0, 8, 5, 12},  // 2.5 x, 12.50 cut to the check
                           {0, 1, 0, 5, 5, 6},
                           {0, 1, 0, 5, 6, 6},  // single odds: 6 at 3 to 2 pays 9
                           {0, 3, 0, 5, 5, 18},
                           {3, 0, 0, 4, 5, 15},  // triple: 3 x RoundUp(5, 2)
                           // Color push: 25 on a 6 pays 30 in red; a flat 9 leaves red for white;
                           // a flat 3 is not held under (X + 1) x base; a 4 pays whole already.
                           {0, 0, 2, 6, 10, 25},
                           {0, 0, 2, 6, 9, 20},
                           {0, 0, 2, 6, 3, 10},
                           {0, 0, 2, 4, 10, 20},
                           // Green rises to 250 (wins 300); 104 is no multiple of 5, so red: 225.
                           {0, 0, 2, 6, 100, 250},
                           {0, 0, 2, 6, 104, 225}};
  for (const auto& c : cases) {
    SetDefaultSettings(g);
    if (c[0]) g.rules.OddsAllowed410 = Currency::FromWhole(c[0]);
    if (c[1]) g.rules.OddsAllowed59 = Currency::FromWhole(c[1]);
    if (c[2]) g.rules.OddsAllowed68 = Currency::FromWhole(c[2]);
    EXPECT_EQ(ComeOddsMax(static_cast<int>(c[3]), Currency::FromWhole(c[4])),
              Currency::FromWhole(c[5]))
        << c[0] << c[1] << c[2] << " on " << c[3] << " flat " << c[4];
  }
}

TEST(OddsMaximum, EachMethodByItself) {
  const Currency checks[6] = {{}, 1_usd, 5_usd, 25_usd, 100_usd, 500_usd};
  struct Case {
    long x;
    int method;
    long flat, pays, to, want;
  };
  const Case cases[] = {
      {2, kOddsFlatNoPush, 6, 6, 5, 12},  {2, kOddsMinorPush, 6, 6, 5, 15},
      {2, kOddsMinorPush, 10, 6, 5, 20},  {2, kOddsMinorPush, 7, 6, 5, 15},  // 15 < 21
      {1, kOddsMinorPush, 2, 3, 2, 2},                                       // nothing to push
      {2, kOddsSingleOdds, 7, 3, 2, 14},  {1, kOddsSingleOdds, 7, 3, 2, 8},
      {3, kOddsFlatSingleX, 5, 3, 2, 18}, {2, kOddsFlatSingleX, 5, 3, 2, 12},
  };
  for (const Case& c : cases)
    EXPECT_EQ(
        OddsMaximumFor(Currency::FromWhole(c.x), c.method, Currency::FromWhole(c.flat),
                       Currency::FromWhole(c.pays), Currency::FromWhole(c.to), checks, 2000_usd),
        Currency::FromWhole(c.want))
        << "method " << c.method << " flat " << c.flat;
}

TEST(OddsMaximum, EveryMethodGivesWholeChecksWithinTheCap) {
  // Quarter checks and odd payoffs too: the result is always a multiple of the
  // smallest check, never negative, never above the cap, and the pushes but
  // the minor one never give less than the plain limit cut to the check.
  const Currency quarter[6] = {{}, Currency::FromRaw(2500), 1_usd, 5_usd, 25_usd, 100_usd};
  const Currency whole[6] = {{}, 1_usd, 5_usd, 25_usd, 100_usd, 500_usd};
  const std::pair<long, long> pays[] = {{2, 1}, {3, 2}, {6, 5}, {1, 2}, {5, 6}, {7, 3}, {9, 5}};
  const long multiples[] = {10000, 15000, 20000, 25000, 30000, 50000, 100000};
  for (const auto* checks : {&quarter, &whole})
    for (auto [p, s] : pays)
      for (long x : multiples)
        for (long base = 1; base <= 260; base += 7)
          for (int method = 0; method < kOddsMethodCount; ++method) {
            const Currency cap = 700_usd;
            const Currency flat = Currency::FromWhole(base);
            const Currency xx = Currency::FromRaw(x);
            const Currency r = OddsMaximumFor(xx, method, flat, Currency::FromWhole(p),
                                              Currency::FromWhole(s), *checks, cap);
            const Currency unit = (*checks)[1];
            SCOPED_TRACE(::testing::Message() << "method " << method << " x " << x << " base "
                                              << base << " pays " << p << "/" << s);
            ASSERT_GE(r.raw, 0);
            ASSERT_EQ(r.raw % unit.raw, 0);
            ASSERT_LE(r, cap);
            // The minor push may settle below the plain limit, on a whole-paying step.
            if (method == kOddsMinorPush) continue;
            const Currency plain = RoundDownToMultiple(CurMul(xx, flat), unit);
            ASSERT_GE(r, std::min(plain, cap));
          }
}

TEST_F(PayoffMath, CapsWinOverEveryPushAndLineOddsNeedAPoint) {
  g.rules.MaxOddsBet = 15_usd;
  for (int method = 0; method < kOddsMethodCount; ++method) {
    g.rules.OddsCalcMethod = method;
    EXPECT_EQ(ComeOddsMax(6, 10_usd), 15_usd) << "method " << method;
  }
  g.rules.MaxOddsBet = Raw(157500);  // 15.75 is cut to the smallest check
  EXPECT_EQ(ComeOddsMax(6, 10_usd), 15_usd);

  EXPECT_EQ(FigureOddsMaximum(g, bet::kPassLineOdds, 10_usd, 2_usd, 1_usd), 0_usd)
      << "no point, no odds";
}

TEST_F(PayoffMath, ProperUnitsPayInWholeSmallestChecks) {
  EXPECT_EQ(g.PayoffTbl(0, LayId(9)), 3_usd);
  EXPECT_EQ(g.PayoffTbl(0, bet::kHorn), 4_usd);
  g.Point = 6;
  SetLineOddsPayoffs(g);
  EXPECT_EQ(ProperOddsUnit(g, bet::kPassLineOdds), 5_usd);
  EXPECT_EQ(ProperOddsUnit(g, bet::kDontPassOdds), 6_usd);
  g.CheckValue(1) = Raw(2500);
  FigureProperUnits(g);
  EXPECT_EQ(g.PayoffTbl(0, PlaceId(6)), Raw(15000));
  EXPECT_EQ(g.PayoffTbl(0, bet::kField), Raw(2500));
  // A fractional payoff: 7.5 to 5 needs 2 units.
  EXPECT_EQ(ProperUnit(Raw(75000), 5_usd, 1_usd), 2_usd);
  EXPECT_EQ(ProperUnit(0_usd, 5_usd, 1_usd), 1_usd);
}

TEST_F(PayoffMath, VigRoundsToTheSmallestCheckWithAFloor) {
  const int buy4 = BuyId(4), lay4 = LayId(4), lay6 = LayId(6);
  EXPECT_EQ(FigureBuyVig(g, buy4, 10_usd), 1_usd);  // 0.50 rounds to 0, the floor gives 1
  EXPECT_EQ(FigureBuyVig(g, buy4, 30_usd), 1_usd);  // 1.50: an exact half goes down
  EXPECT_EQ(FigureBuyVig(g, buy4, 72_usd), 4_usd);  // 3.60 goes up
  EXPECT_EQ(FigureLayVig(g, lay4, 40_usd), 1_usd);  // figured on the win of 20
  EXPECT_EQ(FigureLayVig(g, lay6, 60_usd), 2_usd);  // win 50, 2.50 down
  EXPECT_EQ(FigureLayVig(g, buy4, 100_usd), 0_usd);
  EXPECT_EQ(FigureLayVig(g, lay4, -40_usd), 0_usd);
  g.rules.BuyVigRound = kVigRoundUp;
  EXPECT_EQ(FigureBuyVig(g, buy4, 30_usd), 2_usd);
  g.rules.BuyVigRound = kVigRoundDown;
  EXPECT_EQ(FigureBuyVig(g, buy4, 78_usd), 3_usd);
  g.CheckValue(1) = Raw(2500);
  g.rules.BuyVigRound = kVigRoundNormal;
  EXPECT_EQ(FigureBuyVig(g, buy4, 10_usd), Raw(5000));
  EXPECT_EQ(FigureBuyVig(g, buy4, 1_usd), Raw(2500));
}

// The adjustment rule itself.
ProperOddsInput Place6(Currency b, Currency a, int mode = 1, int bias = 0) {
  ProperOddsInput in;
  in.bet = PlaceId(6);
  in.current = b;
  in.change = a;
  in.unit = 6_usd;
  in.maximum = 1000_usd;
  in.minimum = 1_usd;
  in.mode = mode;
  in.bias = bias;
  const long c[6] = {0, 1, 5, 25, 100, 500};
  for (int i = 1; i <= 5; ++i) in.checks[i] = Currency::FromWhole(c[i]);
  return in;
}

TEST(ProperOdds, NearestBiasesAndColorCorrection) {
  // Bet standing, change asked, mode, bias, and the change made.
  const long cases[][5] = {
      {0, 7, 1, 0, 6},      {0, 10, 1, 0, 12},    // nearest
      {6, 1, 1, 1, 6},      {12, -1, 1, 1, -6},   // bias up, also downward
      {0, 13, 1, 2, 12},    {6, 5, 1, 2, 6},      // bias down, never to nothing
      {12, -12, 1, 0, -12},                       // taken down
      {6, 4, 1, 0, 6},                            // 12 = 3 x the clicked 4 wins
      {0, 175, 2, 0, 150},  {0, 175, 1, 0, 174},  // color correction: green x 6
      {0, 25, 2, 0, 24},                          // green too small to carry the unit
      {160, 0, 2, 0, -10}};                       // a zero change looks at the bet
  for (const auto& c : cases) {
    std::string text;
    EXPECT_EQ(AdjustProperOdds(Place6(Currency::FromWhole(c[0]), Currency::FromWhole(c[1]),
                                      static_cast<int>(c[2]), static_cast<int>(c[3])),
                               &text),
              Currency::FromWhole(c[4]))
        << c[0] << " + " << c[1] << " mode " << c[2] << " bias " << c[3];
    EXPECT_TRUE(text.empty());
  }
}

TEST(ProperOdds, TotalsStayProperAndWithinLimits) {
  // Requests already held to the limits, as the bet gate hands them over: the
  // adjusted total is 0, a multiple of the unit within the limits, or the
  // maximum when no proper total fits.
  for (long unit : {2, 5, 6})
    for (int mode = 1; mode <= 2; ++mode)
      for (int bias = 0; bias <= 2; ++bias)
        for (long b = 0; b <= 60; b += 3)
          for (long a = -b; b + a <= 50; ++a) {
            ProperOddsInput in = Place6(Currency::FromWhole(b), Currency::FromWhole(a), mode, bias);
            in.unit = Currency::FromWhole(unit);
            in.maximum = 50_usd;
            in.minimum = 5_usd;
            if (b + a > 0 && b + a < 5) continue;  // the gate has lifted these to the minimum
            std::string text;
            const Currency total = in.current + AdjustProperOdds(in, &text);
            SCOPED_TRACE(::testing::Message() << "unit " << unit << " mode " << mode << " bias "
                                              << bias << " B " << b << " A " << a);
            ASSERT_GE(total, 0_usd);
            ASSERT_LE(total, 50_usd);
            if (total.IsZero() || total == 50_usd) continue;
            ASSERT_GE(total, 5_usd);
            ASSERT_EQ(total.raw % in.unit.raw, 0);
          }
}

TEST(ProperOdds, LimitsContractsAndTheirMessages) {
  std::string text = "The maximum Place 6 bet is $1,000";
  EXPECT_EQ(AdjustProperOdds(Place6(0_usd, 1000_usd), &text), 996_usd);
  EXPECT_EQ(text,
            "The maximum Place 6 bet is $1,000\r\rMaximum bet for proper odds payoff is: $996");

  ProperOddsInput in = Place6(0_usd, 8_usd, 2);
  in.maximum = 10_usd;
  in.minimum = 7_usd;
  text.clear();
  EXPECT_EQ(AdjustProperOdds(in, &text), 10_usd);
  EXPECT_EQ(text, "Unable to auto-adjust bet for proper odds payoff.");
  EXPECT_EQ(AdjustProperOdds(in, nullptr), 10_usd);  // Hyper-Drive: no text, same result
  text.assign("leftover");
  in.current = 8_usd;
  in.change = -1_usd;
  EXPECT_EQ(AdjustProperOdds(in, &text), -8_usd);
  EXPECT_TRUE(text.empty());

  // The contract bounds the line bets.
  in = Place6(10_usd, -3_usd);
  in.bet = bet::kPassLine;
  in.unit = 5_usd;
  in.contract = 10_usd;
  EXPECT_EQ(AdjustProperOdds(in, &text), 0_usd);
  EXPECT_EQ(text, "Minimum bet for proper odds payoff is: $10");
  in.bet = bet::kDontPass;
  in.current = 5_usd;
  in.change = 2_usd;  // 7 -> Hi 10 would pass the contract of 8
  in.contract = 8_usd;
  EXPECT_EQ(AdjustProperOdds(in, &text), 0_usd);
}

TEST_F(PayoffMath, AdjustForProperOddsReadsThePlayersRules) {
  BettingState& s = g.betting;
  auto adjust = [&](int b, Currency change, Currency maximum = 1000_usd) {
    s.BetChange = change;
    s.BetMaximum = maximum;
    s.BetMinimum = 1_usd;
    AdjustForProperOdds(g, 1, b);
    return s.BetChange;
  };
  g.autoplay.AutoAdjustMode(1) = 0;
  EXPECT_EQ(adjust(PlaceId(6), 7_usd), 7_usd) << "manual: no adjustment";
  g.autoplay.AutoAdjustMode(1) = 1;
  g.autoplay.LayBias(1) = 2;
  EXPECT_EQ(adjust(LayId(4), 5_usd), 4_usd);
  // Pass Line takes the unit of the Come bet on the point.
  g.PayoffTbl(1, ComeId(6)) = 3_usd;
  g.PayoffTbl(3, ComeId(6)) = 2_usd;
  FigureProperUnits(g);
  EXPECT_EQ(adjust(bet::kPassLine, 3_usd), 3_usd) << "no point: the Come box's unit of 1";
  g.Point = 6;
  EXPECT_EQ(adjust(bet::kPassLine, 3_usd), 4_usd);
  // The limit text grows outside Hyper-Drive only.
  s.LimitText.clear();
  EXPECT_EQ(adjust(PlaceId(6), 11_usd, 10_usd), 6_usd);
  EXPECT_FALSE(s.LimitText.empty());
  s.LimitText.clear();
  g.HyperDrive = true;
  adjust(PlaceId(6), 11_usd, 10_usd);
  EXPECT_TRUE(s.LimitText.empty());
}

}  // namespace
