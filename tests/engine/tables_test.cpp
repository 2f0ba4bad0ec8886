#include "engine/tables.h"

#include <gtest/gtest.h>

#include "engine/currency.h"

TEST(Tables, FirstSubscriptIsFastestAndBoundsAreInclusive) {
  Table3<int, 0, 44, 2, 12, 1, 3> t;
  EXPECT_EQ(t.kSize, 45u * 11u * 3u);
  EXPECT_EQ(t.Index(0, 2, 1), 0u);
  EXPECT_EQ(t.Index(1, 2, 1), 1u);
  EXPECT_EQ(t.Index(0, 3, 1), 45u);
  EXPECT_EQ(t.Index(44, 12, 3), t.kSize - 1);
  t(44, 12, 3) = 7;
  EXPECT_EQ(t.cells.back(), 7);
}

TEST(Currency, SumsAreExactInTenThousandths) {
  Currency a = Currency::FromRaw(1);  // 0.0001
  Currency sum;
  for (int i = 0; i < 10000; ++i) sum += a;
  EXPECT_EQ(sum, 1_usd);
  EXPECT_EQ((5_usd - 7_usd).raw, -20000);
  EXPECT_LT(-1_usd, Currency{});
}
