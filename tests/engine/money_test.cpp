// The core's arithmetic and catalogue: money conversion, products,
// rounding, formatting and parsing; the bet id formulas and groups; and the
// file order of the fixed tables.
#include "core/money.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "core/catalogue.h"
#include "core/tables.h"

namespace {

Currency Raw(std::int64_t r) { return Currency::FromRaw(r); }

TEST(Money, ConversionsAndProductsRoundTiesToEvenAndSaturate) {
  EXPECT_EQ(CurFromDouble(0.00125), Raw(12));  // 12.5 ten-thousandths -> 12
  EXPECT_EQ(CurFromDouble(0.00135), Raw(14));  // 13.5 -> 14
  EXPECT_EQ(CurFromDouble(-2.71828), Raw(-27183));
  EXPECT_EQ(CurFromDouble(1e300), kCurrencyMax);
  EXPECT_EQ(CurFromDouble(-1e300), kCurrencyMin);
  EXPECT_EQ(CurFromDouble(std::nan("")), Currency{});
  // Products round the same way.
  EXPECT_EQ(CurMul(10_usd, Raw(500)), Raw(5000));  // 10 x 0.05 = 0.50
  EXPECT_EQ(CurMul(Raw(1), Raw(5000)), Raw(0));    // 0.00005 -> 0
  EXPECT_EQ(CurMul(Raw(3), Raw(5000)), Raw(2));    // 0.00015 -> 0.0002
  EXPECT_EQ(CurMul(Raw(-3), Raw(5000)), Raw(-2));
  EXPECT_EQ(CurMul(kCurrencyMax, 2_usd), kCurrencyMax);  // saturates, no wrap
}

TEST(Money, IntIsTheFloorAndMultiplesRound) {
  EXPECT_EQ(CurInt(Raw(-25000)), -3_usd);
  EXPECT_EQ(CurInt(Raw(25000)), 2_usd);
  EXPECT_EQ(CurInt(Raw(-1)), -1_usd);
  EXPECT_DOUBLE_EQ(CurInt(-2.5), -3.0);
  EXPECT_FALSE(IsWhole(4.5));
  EXPECT_FALSE(IsWhole(Raw(50001)));

  // Rounding up to a multiple leaves half or less at zero.
  EXPECT_EQ(RoundUpToMultiple(1_usd, 2_usd), 0_usd);
  EXPECT_EQ(RoundUpToMultiple(3_usd, 2_usd), 4_usd);
  EXPECT_EQ(RoundUpToMultiple(Raw(10001), 2_usd), 2_usd);  // q just above one half
  EXPECT_EQ(RoundUpToMultiple(-5_usd, 2_usd), 0_usd);
  EXPECT_EQ(RoundDownToMultiple(Raw(125000), 1_usd), 12_usd);
  EXPECT_EQ(RoundDownToMultiple(-Raw(125000), 5_usd), -15_usd);
}

TEST(Money, FormatMoneyFollowsTheTwoFormats) {
  const std::pair<Currency, const char*> cases[] = {
      {0_usd, "0"},
      {1000_usd, "1,000"},
      {-1234567_usd, "-1,234,567"},
      {Raw(12345000), "1,234.50"},
      {Raw(123450), "12.345"},
      {Raw(1234), ".1234"},  // "#" shows no leading zero
      {Raw(-5000), "-.50"},
      {kCurrencyMax, "922,337,203,685,477.5807"},
      {kCurrencyMin, "-922,337,203,685,477.5808"}};
  for (const auto& [amount, text] : cases) EXPECT_EQ(FormatMoney(amount), text);
  std::string s = "Vig $";
  AppendMoney(s, Raw(15000));
  EXPECT_EQ(s, "Vig $1.50");
  // Counts group the same way and reach the ends of the 64-bit range.
  const std::pair<std::int64_t, const char*> counts[] = {
      {0, "0"}, {999, "999"}, {-1000, "-1,000"}, {INT64_MIN, "-9,223,372,036,854,775,808"}};
  for (const auto& [count, text] : counts) EXPECT_EQ(FormatCount(count), text) << count;
}

TEST(Money, LeadingValueReadsLikeVal) {
  const std::pair<const char*, double> cases[] = {{"  -12.5e1xyz", -125.0}, {"1 000", 1000.0},
                                                  {"1,000", 1.0},           {"$5", 0.0},
                                                  {"3.2.1", 3.2},           {"-", 0.0}};
  for (const auto& [text, value] : cases) EXPECT_DOUBLE_EQ(LeadingValue(text), value) << text;
  EXPECT_GT(LeadingValue(std::string(500, '9')), 1e300);
}

TEST(Money, ParseAmountOnOddInput) {
  const std::pair<const char*, Currency> cases[] = {
      {"", 0_usd},
      {"$5", 0_usd},  // leading value 0
      {"  7 ", 7_usd},
      {"1,234.5", Raw(12345000)},
      {".5", Raw(5000)},
      {"1.23455", Raw(12346)},   // tie, to even
      {"1.23445", Raw(12344)},   // tie, to even
      {"1.234451", Raw(12345)},  // above the tie
      {"5abc", 5_usd},           // not an amount: its leading value
      {"1e3", 1000_usd},
      {"99999999999999999999999", kCurrencyMax},
      {"-99999999999999999999999", kCurrencyMin}};
  for (const auto& [text, amount] : cases) EXPECT_EQ(ParseAmount(text), amount) << text;
}

constexpr int kBoxNumbers[6] = {4, 5, 6, 8, 9, 10};

TEST(Catalogue, BoxFormulasAgreeWithTheNames) {
  static_assert(BoxIndex(8) == 3 && ComeId(8) == 22 && PlaceId(8) == 34 && DontComeId(8) == 10);
  for (int i = 0; i < 6; ++i) {
    const int n = kBoxNumbers[i];
    const std::string num = std::to_string(n);
    EXPECT_EQ(BoxIndex(n), i);
    EXPECT_EQ(BoxNumber(i), n);
    EXPECT_EQ(BetName(LayId(n)), "Lay " + num);
    EXPECT_EQ(BetName(ComeId(n) + 6), "Come " + num + " Odds");
    EXPECT_EQ(BetName(PlaceId(n)), "Place " + num);
    EXPECT_EQ(BetName(OddsOf(ComeId(n))), "Come " + num + " Odds");
    EXPECT_EQ(FlatOf(OddsOf(DontComeId(n))), DontComeId(n));
  }
}

TEST(Catalogue, HopsTakeEitherDieOrderAndLeaveOutTheSingleNumbers) {
  int hops = 0;
  for (int a = 1; a <= 6; ++a)
    for (int b = a; b <= 6; ++b) {
      const int id = HopId(a, b);
      EXPECT_EQ(id, HopId(b, a));
      const bool single = (a == 1 && b <= 2) || (a >= 5 && b == 6);
      if (single) {
        EXPECT_EQ(id, 0) << a << b;
        continue;
      }
      ASSERT_TRUE(IsHop(id)) << a << b;
      EXPECT_EQ(BetName(id), "Hop " + std::to_string(a) + std::to_string(b));
      ++hops;
    }
  EXPECT_EQ(hops, kHopCount);
}

TEST(Catalogue, GroupsPartitionTheRealBets) {
  for (int b = 1; b <= 85; ++b) {
    const int groups = IsLay(b) + IsDontComePoint(b) + IsDontComeOdds(b) + IsComePoint(b) +
                       IsComeOdds(b) + IsPlace(b) + IsBuy(b) + IsLineBet(b) + IsLineOdds(b) +
                       IsContract(b) + IsBig(b) + IsHard(b) + IsHop(b) + (b == bet::kField) +
                       IsSingleNumber(b) + (b == bet::kCraps) + IsSplit(b) +
                       (b == bet::kOver7 || b == bet::kUnder7) + (b == bet::kMidway) +
                       (b == bet::kFire);
    EXPECT_EQ(groups, 1) << b;
  }
}

TEST(Tables, FileOrderWalksTheFirstSubscriptFastest) {
  Table2<int, 0, 2, 5, 6> t;
  for (int i = 0; i <= 2; ++i)
    for (int j = 5; j <= 6; ++j) t(i, j) = 10 * i + j;
  std::vector<int> seen;
  ForEachCellFirstFastest(t, [&](int v) { seen.push_back(v); });
  EXPECT_EQ(seen, (std::vector<int>{5, 15, 25, 6, 16, 26}));

  Table3<int, 1, 2, 0, 1, 0, 1> u;
  for (int i = 1; i <= 2; ++i)
    for (int j = 0; j <= 1; ++j)
      for (int k = 0; k <= 1; ++k) u(i, j, k) = 100 * i + 10 * j + k;
  seen.clear();
  ForEachCellFirstFastest(u, [&](int v) { seen.push_back(v); });
  EXPECT_EQ(seen, (std::vector<int>{100, 200, 110, 210, 101, 201, 111, 211}));
}

}  // namespace
