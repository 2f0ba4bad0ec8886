#include "core/money.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace {

Currency Raw(std::int64_t r) { return Currency::FromRaw(r); }

TEST(Money, ConversionFromDoubleRoundsTiesToEven) {
  EXPECT_EQ(CurFromDouble(0.00125), Raw(12));  // 12.5 ten-thousandths -> 12
  EXPECT_EQ(CurFromDouble(0.00135), Raw(14));  // 13.5 -> 14
  EXPECT_EQ(CurFromDouble(-0.00125), Raw(-12));
  EXPECT_EQ(CurFromDouble(-2.71828), Raw(-27183));
  EXPECT_EQ(CurFromDouble(1e300), kCurrencyMax);
  EXPECT_EQ(CurFromDouble(-1e300), kCurrencyMin);
  EXPECT_EQ(CurFromDouble(std::nan("")), Currency{});
}

TEST(Money, ProductsRoundToNearestTiesToEven) {
  EXPECT_EQ(CurMul(10_usd, Raw(500)), Raw(5000));  // 10 x 0.05 = 0.50
  EXPECT_EQ(CurMul(Raw(1), Raw(5000)), Raw(0));    // 0.00005 -> 0
  EXPECT_EQ(CurMul(Raw(3), Raw(5000)), Raw(2));    // 0.00015 -> 0.0002
  EXPECT_EQ(CurMul(Raw(-3), Raw(5000)), Raw(-2));
  EXPECT_EQ(CurMul(Raw(7), Raw(7000)), Raw(5));          // 0.00049 -> 0.0005
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
      {Raw(-9999995000), "-999,999.50"},
      {kCurrencyMax, "922,337,203,685,477.5807"},
      {kCurrencyMin, "-922,337,203,685,477.5808"}};
  for (const auto& [amount, text] : cases) EXPECT_EQ(FormatMoney(amount), text);
  std::string s = "Vig $";
  AppendMoney(s, Raw(15000));
  EXPECT_EQ(s, "Vig $1.50");
}

TEST(Money, LeadingValueReadsLikeVal) {
  EXPECT_DOUBLE_EQ(LeadingValue("  -12.5e1xyz"), -125.0);
  EXPECT_DOUBLE_EQ(LeadingValue("1 000"), 1000.0);
  EXPECT_DOUBLE_EQ(LeadingValue("1,000"), 1.0);
  EXPECT_DOUBLE_EQ(LeadingValue("$5"), 0.0);
  EXPECT_DOUBLE_EQ(LeadingValue("3.2.1"), 3.2);
  EXPECT_DOUBLE_EQ(LeadingValue("-"), 0.0);
  EXPECT_GT(LeadingValue(std::string(500, '9')), 1e300);
}

TEST(Money, ParseAmountOnOddInput) {
  const std::pair<const char*, Currency> cases[] = {
      {"", 0_usd},
      {"$5", 0_usd},  // leading value 0
      {"  7 ", 7_usd},
      {"1,234.5", Raw(12345000)},
      {"-3.25", -Raw(32500)},
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

}  // namespace
