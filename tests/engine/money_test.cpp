#include "engine/money.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

Currency Raw(std::int64_t r) { return Currency::FromRaw(r); }

TEST(Money, ConversionFromDoubleRoundsTiesToEven) {
  EXPECT_EQ(CurFromDouble(0.00125), Raw(12));  // 12.5 ten-thousandths -> 12
  EXPECT_EQ(CurFromDouble(0.00135), Raw(14));  // 13.5 -> 14
  EXPECT_EQ(CurFromDouble(-0.00125), Raw(-12));
  EXPECT_EQ(CurFromDouble(-0.00135), Raw(-14));
  EXPECT_EQ(CurFromDouble(2.71828), Raw(27183));
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
  EXPECT_EQ(CurMul(Raw(25000), 10_usd), 25_usd);         // 2.5 x 10
  EXPECT_EQ(CurMul(kCurrencyMax, 2_usd), kCurrencyMax);  // saturates, no wrap
}

TEST(Money, IntIsTheFloorAlsoForNegatives) {
  EXPECT_EQ(CurInt(Raw(-25000)), -3_usd);
  EXPECT_EQ(CurInt(Raw(25000)), 2_usd);
  EXPECT_EQ(CurInt(-3_usd), -3_usd);
  EXPECT_EQ(CurInt(Raw(-1)), -1_usd);
  EXPECT_DOUBLE_EQ(CurInt(-2.5), -3.0);
  EXPECT_TRUE(IsWhole(4.0));
  EXPECT_FALSE(IsWhole(4.5));
  EXPECT_TRUE(IsWhole(5_usd));
  EXPECT_FALSE(IsWhole(Raw(50001)));
}

TEST(Money, RoundUpToMultipleLeavesHalfOrLessAtZero) {
  EXPECT_EQ(RoundUpToMultiple(1_usd, 2_usd), 0_usd);
  EXPECT_EQ(RoundUpToMultiple(2_usd, 2_usd), 2_usd);
  EXPECT_EQ(RoundUpToMultiple(3_usd, 2_usd), 4_usd);
  EXPECT_EQ(RoundUpToMultiple(5_usd, 2_usd), 6_usd);
  EXPECT_EQ(RoundUpToMultiple(Raw(10001), 2_usd), 2_usd);  // q just above one half
  EXPECT_EQ(RoundUpToMultiple(-5_usd, 2_usd), 0_usd);
  EXPECT_EQ(RoundDownToMultiple(Raw(125000), 1_usd), 12_usd);
  EXPECT_EQ(RoundDownToMultiple(-Raw(125000), 5_usd), -15_usd);
}

TEST(Money, FormatMoneyFollowsTheTwoFormats) {
  EXPECT_EQ(FormatMoney(0_usd), "0");
  EXPECT_EQ(FormatMoney(7_usd), "7");
  EXPECT_EQ(FormatMoney(999_usd), "999");
  EXPECT_EQ(FormatMoney(1000_usd), "1,000");
  EXPECT_EQ(FormatMoney(-1234567_usd), "-1,234,567");
  EXPECT_EQ(FormatMoney(Raw(12345000)), "1,234.50");
  EXPECT_EQ(FormatMoney(Raw(123450)), "12.345");
  EXPECT_EQ(FormatMoney(Raw(1234)), ".1234");  // "#" shows no leading zero
  EXPECT_EQ(FormatMoney(Raw(-5000)), "-.50");
  EXPECT_EQ(FormatMoney(Raw(-9999995000)), "-999,999.50");
  EXPECT_EQ(FormatMoney(kCurrencyMax), "922,337,203,685,477.5807");
  EXPECT_EQ(FormatMoney(kCurrencyMin), "-922,337,203,685,477.5808");
  std::string s = "Vig $";
  AppendMoney(s, Raw(15000));
  EXPECT_EQ(s, "Vig $1.50");
}

TEST(Money, LeadingValueReadsLikeVal) {
  EXPECT_DOUBLE_EQ(LeadingValue("  -12.5e1xyz"), -125.0);
  EXPECT_DOUBLE_EQ(LeadingValue("1 000"), 1000.0);
  EXPECT_DOUBLE_EQ(LeadingValue("1,000"), 1.0);
  EXPECT_DOUBLE_EQ(LeadingValue("$5"), 0.0);
  EXPECT_DOUBLE_EQ(LeadingValue(".5"), 0.5);
  EXPECT_DOUBLE_EQ(LeadingValue("3.2.1"), 3.2);
  EXPECT_DOUBLE_EQ(LeadingValue(""), 0.0);
  EXPECT_DOUBLE_EQ(LeadingValue("-"), 0.0);
  EXPECT_GT(LeadingValue(std::string(500, '9')), 1e300);
}

TEST(Money, ParseAmountOnOddInput) {
  EXPECT_EQ(ParseAmount(""), 0_usd);
  EXPECT_EQ(ParseAmount("abc"), 0_usd);
  EXPECT_EQ(ParseAmount("0.00"), 0_usd);
  EXPECT_EQ(ParseAmount("$5"), 0_usd);  // leading value 0
  EXPECT_EQ(ParseAmount("12.34"), Raw(123400));
  EXPECT_EQ(ParseAmount("  7 "), 7_usd);
  EXPECT_EQ(ParseAmount("1,234.5"), Raw(12345000));
  EXPECT_EQ(ParseAmount("-3.25"), -Raw(32500));
  EXPECT_EQ(ParseAmount(".5"), Raw(5000));
  EXPECT_EQ(ParseAmount("1.23455"), Raw(12346));   // tie, to even
  EXPECT_EQ(ParseAmount("1.23445"), Raw(12344));   // tie, to even
  EXPECT_EQ(ParseAmount("1.234451"), Raw(12345));  // above the tie
  EXPECT_EQ(ParseAmount("5abc"), 5_usd);           // not an amount: its leading value
  EXPECT_EQ(ParseAmount("1e3"), 1000_usd);
  EXPECT_EQ(ParseAmount("99999999999999999999999"), kCurrencyMax);
  EXPECT_EQ(ParseAmount("-99999999999999999999999"), kCurrencyMin);
}

}  // namespace
