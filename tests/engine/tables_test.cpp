#include "core/tables.h"

#include <gtest/gtest.h>

#include <vector>

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
