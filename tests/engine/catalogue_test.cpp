#include "core/catalogue.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr int kBoxNumbers[6] = {4, 5, 6, 8, 9, 10};

TEST(Catalogue, BoxFormulasAgreeWithTheNames) {
  static_assert(BoxIndex(8) == 3 && ComeId(8) == 22 && PlaceId(8) == 34 && DontComeId(8) == 10);
  for (int i = 0; i < 6; ++i) {
    const int n = kBoxNumbers[i];
    const std::string num = std::to_string(n);
    EXPECT_EQ(BoxIndex(n), i);
    EXPECT_EQ(BoxNumber(i), n);
    EXPECT_EQ(BetName(LayId(n)), "Lay " + num);
    EXPECT_EQ(BetName(DontComeId(n) + 6), "Don't Come " + num + " Odds");
    EXPECT_EQ(BetName(ComeId(n) + 6), "Come " + num + " Odds");
    EXPECT_EQ(BetName(PlaceId(n)), "Place " + num);
    EXPECT_EQ(BetName(BuyId(n)), "Buy " + num);
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

}  // namespace
