#include "engine/payoff_math.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "config/payoffs.h"
#include "config/settings.h"
#include "engine/catalogue.h"
#include "engine/game.h"
#include "engine/money.h"

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

TEST_F(PayoffMath, AutoSelectWithFractionalMultipleIsThePlainLimit) {
  EXPECT_EQ(ComeOddsMax(6, 10_usd), 25_usd);
  // 2.5 x 5 = 12.50 is cut to the smallest check.
  EXPECT_EQ(ComeOddsMax(8, 5_usd), 12_usd);
}

TEST_F(PayoffMath, AutoSelectSingleOddsPaysInWholeChecks) {
  g.rules.OddsAllowed59 = 1_usd;
  EXPECT_EQ(ComeOddsMax(5, 5_usd), 6_usd);  // 6 at 3 to 2 pays 9
  EXPECT_EQ(ComeOddsMax(5, 6_usd), 6_usd);
}

TEST_F(PayoffMath, AutoSelectTripleOddsGoesByTheFlatBet) {
  g.rules.OddsAllowed59 = 3_usd;
  EXPECT_EQ(ComeOddsMax(5, 5_usd), 18_usd);  // 3 x RoundUp(5, 2) = 18
  g.rules.OddsAllowed410 = 3_usd;
  EXPECT_EQ(ComeOddsMax(4, 5_usd), 15_usd);
}

TEST_F(PayoffMath, ColorPushRisesToAWholeCheckWin) {
  // Double odds, the auto choice is the color push: two red checks move the
  // red candidate, so 25 on a 6 pays 30, six red checks.
  g.rules.OddsAllowed68 = 2_usd;
  EXPECT_EQ(ComeOddsMax(6, 10_usd), 25_usd);
  // One red check and four whites: the red candidate stays, the white one is used.
  EXPECT_EQ(ComeOddsMax(6, 9_usd), 20_usd);
  // A flat 3: only the smallest check's candidate moves, and it is not held
  // under the ceiling (X + 1) x base.
  EXPECT_EQ(ComeOddsMax(6, 3_usd), 10_usd);
  // Line numbers paying whole already stay at the plain limit.
  EXPECT_EQ(ComeOddsMax(4, 10_usd), 20_usd);
}

TEST_F(PayoffMath, ColorPushPrefersLargerColorsOnRoundFlats) {
  g.rules.OddsAllowed68 = 2_usd;
  // Flat 100 on a 6: one black check doesn't move the black candidate; the
  // green one rises to 250, which wins 300 in green checks, below the ceiling.
  EXPECT_EQ(ComeOddsMax(6, 100_usd), 250_usd);
  // Flat 104 isn't a multiple of 5: the green candidate is passed over for
  // the red one, 225, which wins 270 in red checks.
  EXPECT_EQ(ComeOddsMax(6, 104_usd), 225_usd);
}

TEST_F(PayoffMath, EachMethodByItself) {
  Currency checks[6] = {{}, 1_usd, 5_usd, 25_usd, 100_usd, 500_usd};
  const Currency cap = 2000_usd;
  const Currency p = 6_usd, s = 5_usd;  // odds on a 6
  EXPECT_EQ(OddsMaximumFor(2_usd, kOddsFlatNoPush, 6_usd, p, s, checks, cap), 12_usd);
  EXPECT_EQ(OddsMaximumFor(2_usd, kOddsMinorPush, 6_usd, p, s, checks, cap), 15_usd);
  EXPECT_EQ(OddsMaximumFor(2_usd, kOddsMinorPush, 10_usd, p, s, checks, cap), 20_usd);
  // Minor push never reaches the ceiling: 2 x 7 = 14, 15 < 21.
  EXPECT_EQ(OddsMaximumFor(2_usd, kOddsMinorPush, 7_usd, p, s, checks, cap), 15_usd);
  // On a 5 (3 to 2) with X = 1 and a flat 2: t = 2, nothing to push.
  EXPECT_EQ(OddsMaximumFor(1_usd, kOddsMinorPush, 2_usd, 3_usd, 2_usd, checks, cap), 2_usd);
  EXPECT_EQ(OddsMaximumFor(2_usd, kOddsSingleOdds, 7_usd, 3_usd, 2_usd, checks, cap), 14_usd);
  EXPECT_EQ(OddsMaximumFor(1_usd, kOddsSingleOdds, 7_usd, 3_usd, 2_usd, checks, cap), 8_usd);
  EXPECT_EQ(OddsMaximumFor(3_usd, kOddsFlatSingleX, 5_usd, 3_usd, 2_usd, checks, cap), 18_usd);
  EXPECT_EQ(OddsMaximumFor(2_usd, kOddsFlatSingleX, 5_usd, 3_usd, 2_usd, checks, cap), 12_usd);
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

TEST_F(PayoffMath, CapsWinOverEveryPush) {
  g.rules.MaxOddsBet = 15_usd;
  for (int method = 0; method < kOddsMethodCount; ++method) {
    g.rules.OddsCalcMethod = method;
    EXPECT_EQ(ComeOddsMax(6, 10_usd), 15_usd) << "method " << method;
  }
  g.rules.MaxOddsBet = Raw(157500);  // 15.75 is cut to the smallest check
  EXPECT_EQ(ComeOddsMax(6, 10_usd), 15_usd);
}

TEST_F(PayoffMath, LineOddsUseThePoint) {
  const int odds = bet::kPassLineOdds;
  EXPECT_EQ(FigureOddsMaximum(g, odds, 10_usd, 2_usd, 1_usd), 0_usd) << "no point, no odds";
  g.Point = 4;
  EXPECT_EQ(FigureOddsMaximum(g, odds, 10_usd, 2_usd, 1_usd), 20_usd);
  g.Point = 8;
  EXPECT_EQ(FigureOddsMaximum(g, odds, 10_usd, 6_usd, 5_usd), 25_usd);
  // Don't odds: the caller reverses the pair; the result is the win's limit.
  EXPECT_EQ(FigureOddsMaximum(g, DontComeId(4) + 6, 10_usd, 2_usd, 1_usd), 20_usd);
}

TEST_F(PayoffMath, ProperUnitsPayInWholeSmallestChecks) {
  EXPECT_EQ(g.PayoffTbl(0, PlaceId(6)), 6_usd);
  EXPECT_EQ(g.PayoffTbl(0, PlaceId(5)), 5_usd);
  EXPECT_EQ(g.PayoffTbl(0, PlaceId(4)), 5_usd);
  EXPECT_EQ(g.PayoffTbl(0, LayId(6)), 6_usd);
  EXPECT_EQ(g.PayoffTbl(0, LayId(4)), 2_usd);
  EXPECT_EQ(g.PayoffTbl(0, LayId(9)), 3_usd);
  EXPECT_EQ(g.PayoffTbl(0, BuyId(5)), 2_usd);
  EXPECT_EQ(g.PayoffTbl(0, ComeId(8) + 6), 5_usd);
  EXPECT_EQ(g.PayoffTbl(0, bet::kHard8), 1_usd);
  EXPECT_EQ(g.PayoffTbl(0, bet::kHorn), 4_usd);
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
  EXPECT_EQ(FigureBuyVig(g, buy4, 20_usd), 1_usd);
  EXPECT_EQ(FigureBuyVig(g, buy4, 10_usd), 1_usd);  // 0.50 rounds to 0, the floor gives 1
  EXPECT_EQ(FigureBuyVig(g, buy4, 0_usd), 0_usd);
  EXPECT_EQ(FigureBuyVig(g, buy4, 30_usd), 1_usd);  // 1.50: an exact half goes down
  EXPECT_EQ(FigureBuyVig(g, buy4, 72_usd), 4_usd);  // 3.60 goes up
  EXPECT_EQ(FigureLayVig(g, lay4, 40_usd), 1_usd);  // figured on the win of 20
  EXPECT_EQ(FigureLayVig(g, lay6, 60_usd), 2_usd);  // win 50, 2.50 down
  EXPECT_EQ(FigureLayVig(g, lay6, 72_usd), 3_usd);  // win 60
  g.rules.BuyVigRound = kVigRoundUp;
  EXPECT_EQ(FigureBuyVig(g, buy4, 30_usd), 2_usd);
  EXPECT_EQ(FigureBuyVig(g, buy4, 40_usd), 2_usd);
  g.rules.BuyVigRound = kVigRoundDown;
  EXPECT_EQ(FigureBuyVig(g, buy4, 78_usd), 3_usd);
  g.CheckValue(1) = Raw(2500);
  g.rules.BuyVigRound = kVigRoundNormal;
  EXPECT_EQ(FigureBuyVig(g, buy4, 10_usd), Raw(5000));
  EXPECT_EQ(FigureBuyVig(g, buy4, 1_usd), Raw(2500));
  g.rules.BuyVigRate = 0_usd;
  EXPECT_EQ(FigureBuyVig(g, buy4, 100_usd), 0_usd);
  EXPECT_EQ(FigureBuyVig(g, PlaceId(4), 100_usd), 0_usd);
  EXPECT_EQ(FigureLayVig(g, buy4, 100_usd), 0_usd);
  EXPECT_EQ(FigureLayVig(g, lay4, -40_usd), 0_usd);
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

TEST(ProperOdds, NearestAndBiases) {
  std::string text;
  EXPECT_EQ(AdjustProperOdds(Place6(0_usd, 7_usd), &text), 6_usd);
  EXPECT_EQ(AdjustProperOdds(Place6(0_usd, 10_usd), &text), 12_usd);
  EXPECT_EQ(AdjustProperOdds(Place6(6_usd, 1_usd, 1, 1), &text), 6_usd) << "increase: to 12";
  EXPECT_EQ(AdjustProperOdds(Place6(12_usd, -1_usd, 1, 1), &text), -6_usd) << "increase downward";
  EXPECT_EQ(AdjustProperOdds(Place6(0_usd, 13_usd, 1, 2), &text), 12_usd) << "decrease";
  EXPECT_EQ(AdjustProperOdds(Place6(6_usd, 5_usd, 1, 2), &text), 6_usd)
      << "decrease never vanishes";
  EXPECT_EQ(AdjustProperOdds(Place6(12_usd, -2_usd, 1, 2), &text), -6_usd);
  EXPECT_EQ(AdjustProperOdds(Place6(0_usd, 12_usd), &text), 12_usd) << "already proper";
  EXPECT_EQ(AdjustProperOdds(Place6(12_usd, -12_usd), &text), -12_usd) << "taken down";
  // A total that is a whole number of the clicked step wins: 6 + 4 -> 12 = 3 x 4.
  EXPECT_EQ(AdjustProperOdds(Place6(6_usd, 4_usd), &text), 6_usd);
  EXPECT_TRUE(text.empty());
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

TEST(ProperOdds, ColorCorrectionWidensTheUnit) {
  std::string text;
  EXPECT_EQ(AdjustProperOdds(Place6(0_usd, 175_usd, 2), &text), 150_usd);
  EXPECT_EQ(AdjustProperOdds(Place6(0_usd, 175_usd, 1), &text), 174_usd);
  // A green check too small to carry the unit: no widening.
  EXPECT_EQ(AdjustProperOdds(Place6(0_usd, 25_usd, 2), &text), 24_usd);
  // A zero change looks at the bet: 160 standing carries green x 6.
  EXPECT_EQ(AdjustProperOdds(Place6(160_usd, 0_usd, 2), &text), -10_usd);
}

TEST(ProperOdds, LimitsAndTheirMessages) {
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
  text.assign("leftover");
  in.current = 8_usd;
  in.change = -1_usd;
  EXPECT_EQ(AdjustProperOdds(in, &text), -8_usd);
  EXPECT_TRUE(text.empty());
  // In Hyper-Drive no text is built, the result is the same.
  in.current = 0_usd;
  in.change = 8_usd;
  EXPECT_EQ(AdjustProperOdds(in, nullptr), 10_usd);
}

TEST(ProperOdds, ContractBoundsTheLineBets) {
  ProperOddsInput in = Place6(10_usd, -3_usd);
  in.bet = bet::kPassLine;
  in.unit = 5_usd;
  in.contract = 10_usd;
  std::string text;
  EXPECT_EQ(AdjustProperOdds(in, &text), 0_usd);
  EXPECT_EQ(text, "Minimum bet for proper odds payoff is: $10");
  in.bet = bet::kDontPass;
  in.current = 5_usd;
  in.change = 2_usd;  // 7 -> Hi 10 would pass the contract of 8
  in.contract = 8_usd;
  text.clear();
  EXPECT_EQ(AdjustProperOdds(in, &text), 0_usd);
}

TEST_F(PayoffMath, AdjustForProperOddsReadsThePlayersRules) {
  BettingState& s = g.betting;
  auto adjust = [&](int b, Currency change) {
    s.BetChange = change;
    s.BetMaximum = 1000_usd;
    s.BetMinimum = 1_usd;
    AdjustForProperOdds(g, 1, b);
    return s.BetChange;
  };
  g.autoplay.AutoAdjustMode(1) = 1;
  g.autoplay.PlaceBias(1) = 0;
  EXPECT_EQ(adjust(PlaceId(6), 7_usd), 6_usd);
  g.autoplay.PlaceBias(1) = 1;
  EXPECT_EQ(adjust(PlaceId(6), 7_usd), 12_usd);
  g.autoplay.LayBias(1) = 2;
  EXPECT_EQ(adjust(LayId(4), 5_usd), 4_usd);
  g.autoplay.AutoAdjustMode(1) = 0;
  EXPECT_EQ(adjust(PlaceId(6), 7_usd), 7_usd) << "manual: no adjustment";
  g.autoplay.AutoAdjustMode(1) = 1;
  // Pass Line takes the unit of the Come bet on the point.
  g.PayoffTbl(1, ComeId(6)) = 3_usd;
  g.PayoffTbl(3, ComeId(6)) = 2_usd;
  FigureProperUnits(g);
  EXPECT_EQ(adjust(bet::kPassLine, 3_usd), 3_usd) << "no point: the Come box's unit of 1";
  g.Point = 6;
  EXPECT_EQ(adjust(bet::kPassLine, 3_usd), 4_usd);
  // The limit text grows outside Hyper-Drive only.
  s.LimitText.clear();
  s.BetChange = 11_usd;
  s.BetMaximum = 10_usd;
  AdjustForProperOdds(g, 1, PlaceId(6));
  EXPECT_EQ(s.BetChange, 6_usd);
  EXPECT_EQ(s.LimitText, "Maximum bet for proper odds payoff is: $6");
  s.LimitText.clear();
  g.HyperDrive = true;
  s.BetChange = 11_usd;
  AdjustForProperOdds(g, 1, PlaceId(6));
  EXPECT_EQ(s.BetChange, 6_usd);
  EXPECT_TRUE(s.LimitText.empty());
}

TEST_F(PayoffMath, ProperOddsUnitSwapsForLineBets) {
  EXPECT_EQ(ProperOddsUnit(g, bet::kPassLine), g.PayoffTbl(0, bet::kCome));
  g.Point = 6;
  SetLineOddsPayoffs(g);
  EXPECT_EQ(ProperOddsUnit(g, bet::kPassLineOdds), 5_usd);
  EXPECT_EQ(ProperOddsUnit(g, bet::kDontPassOdds), 6_usd);
  EXPECT_EQ(ProperOddsUnit(g, PlaceId(6)), 6_usd);
}

}  // namespace
