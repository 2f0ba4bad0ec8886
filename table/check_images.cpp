#include "table/check_images.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/catalogue.h"
#include "core/game.h"
#include "table/layout.h"

namespace {

// Every (player, bet) pair, sorted back to front and left to right by base
// position: the fixed draw rank.
const std::vector<std::pair<int, int>>& DrawRank() {
  static const std::vector<std::pair<int, int>> rank = [] {
    std::vector<std::pair<int, int>> v;
    for (int p = 1; p <= 8; ++p)
      for (int b = 1; b <= kLastRealBet; ++b) v.emplace_back(p, b);
    std::stable_sort(v.begin(), v.end(), [](auto a, auto b) {
      const QPointF pa = BasePosition(a.first, a.second), pb = BasePosition(b.first, b.second);
      return pa.y() != pb.y() ? pa.y() < pb.y() : pa.x() < pb.x();
    });
    return v;
  }();
  return rank;
}

}  // namespace

void AppendStack(std::vector<DrawnCheck>& rows, const Game& g, int p, int b, Currency amount) {
  if (amount <= Currency{}) return;
  const QPointF base = BasePosition(p, b);
  const QPointF step = StackStep(p, b);
  Currency rest = amount;
  int count = 0;
  for (int k = 5; k >= 1 && count < kMaxStackChecks; --k) {
    const Currency value = g.CheckValue(k);
    if (value <= Currency{}) continue;
    while (rest >= value && count < kMaxStackChecks) {
      rows.push_back({p, b, k, base + step * count});
      rest -= value;
      ++count;
    }
  }
  if (count == kMaxStackChecks && rest > Currency{}) rows.push_back({p, b, kOverflowKind, base});
}

std::vector<DrawnCheck> BuildCheckImages(const Game& g) {
  std::vector<DrawnCheck> rows;
  for (const auto& [p, b] : DrawRank())
    if (!g.PlayerName[static_cast<std::size_t>(p)].empty()) AppendStack(rows, g, p, b, g.Bet(p, b));
  for (int p = 1; p <= 8; ++p) {
    if (g.PlayerName[static_cast<std::size_t>(p)].empty()) continue;
    for (int i = 1; i <= 4; ++i) {
      const int id = g.betting.CheckStackSlot(p, i);
      if (id >= bet::kCheckStackFirst && id <= bet::kCheckStackLast)
        AppendStack(rows, g, p, 100 + i, g.Bet(p, id));
    }
  }
  return rows;
}

bool CheckImageHidden(const Game& g, const DrawnCheck& row) {
  const int b = row.bet;
  if (!IsRealBet(b)) return false;
  if (g.table.HopBetsShown) return b >= bet::kHard4 && b <= bet::kHorn && b != bet::kCandE;
  return b >= bet::kWorld && b <= bet::kHopLast;
}
