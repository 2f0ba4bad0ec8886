#include "stats/graph_math.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/game.h"
#include "core/graph_rows.h"
#include "core/money.h"

namespace {

// The ladder in ten-thousandths: 0.02, 0.04, 0.1, 0.2, 0.4, 1, 2, 4, 10 ... 40,000, 100,000.
constexpr std::array<std::int64_t, 21> kLadder = {
    200,        400,        1'000,      2'000,       4'000,       10'000,      20'000,
    40'000,     100'000,    200'000,    400'000,     1'000'000,   2'000'000,   4'000'000,
    10'000'000, 20'000'000, 40'000'000, 100'000'000, 200'000'000, 400'000'000, 1'000'000'000};
static_assert(kLadder.back() == 100'000 * Currency::kScale);

constexpr int kHistoryColumns = 2 * kGraphColumns;     // this page and the one before
constexpr long kRollsForTwoPages = kGraphColumns + 1;  // a wrap needs a full page before

// The highest rung at or below the scale (the lowest for a scale below the ladder).
int Rung(Currency scale) {
  int best = 0;
  for (int i = 0; i < static_cast<int>(kLadder.size()); ++i)
    if (kLadder[static_cast<std::size_t>(i)] <= scale.raw) best = i;
  return best;
}

Currency AverageOf(Currency sum, double n) {
  return n > 0 ? CurFromDouble(sum.ToDouble() / n) : Currency{};
}

}  // namespace

std::int64_t GraphRow(const Game& g, Currency a) {
  if (g.roll.GraphScale <= Currency{}) return 0;
  // Half a row rounds away from zero.
  return std::llround(CurDiv(g.roll.GraphTop - a, g.roll.GraphScale));
}

Currency NextGraphScale(Currency scale, int dir) {
  const int r = std::clamp(Rung(scale) + dir, 0, static_cast<int>(kLadder.size()) - 1);
  return Currency::FromRaw(kLadder[static_cast<std::size_t>(r)]);
}

Currency GraphTopAbove(Currency scale, Currency c) {
  const Currency block = CurMulInt(scale, kGraphBlockRows);
  return CurMulInt(block, static_cast<std::int64_t>(std::floor(CurDiv(c, block))) + 3);
}

Currency MovingBankrollAverage(const Game& g, int p, int column, int span) {
  span = std::min(span, kGraphColumns);
  if (span < 1) {
    const long n = g.RollsAtTable(FrameIndex(p, kFrameCurrentSession));
    return n == 0 ? g.BankrollSum(p) : AverageOf(g.BankrollSum(p), n + 1.0);
  }
  const bool twoPages = g.RollTally(kTableSession, kEventRolls) >= kRollsForTwoPages;
  int index = column;
  if (index <= 0) {
    if (!twoPages) return {};
    index = kHistoryColumns;
  }
  Currency sum;
  int read = 0;
  while (read < span) {
    sum += GraphHistory(g, p, index);
    ++read;
    if (--index < 1) {
      if (!twoPages) break;
      index = kHistoryColumns;
    }
  }
  return AverageOf(sum, read);
}

std::vector<Currency> GraphTrendColumns(const Game& g, int p, int span) {
  const int count = std::clamp(static_cast<int>(g.GraphRollCount), 0, kGraphColumns);
  std::vector<Currency> trend(static_cast<std::size_t>(count) + 1);
  if (span > 0) {
    for (int x = 1; x <= count; ++x)
      trend[static_cast<std::size_t>(x)] = MovingBankrollAverage(g, p, x, span);
    return trend;
  }
  // Walking back from the newest column: s / n, then one roll less. A player
  // who joined after column 1 runs out of rolls before the walk does: those
  // columns divide by 1 rather than by 0.
  Currency s = g.BankrollSum(p);
  long n = g.RollsAtTable(FrameIndex(p, kFrameCurrentSession));
  for (int x = count; x >= 1; --x) {
    trend[static_cast<std::size_t>(x)] =
        n > 0 ? CurFromDouble(s.ToDouble() / static_cast<double>(n)) : s;
    s -= GraphPage(g, p, x);
    if (n > 1) --n;
  }
  return trend;
}

std::string GraphTrendLabel(int span) {
  return span > 0 ? std::to_string(span) + " roll moving average" : "All rolls average";
}

void FigureGraphRange(Game& g, int p) {
  if (p < 1 || p > 8) return;
  g.GraphHigh(p) = g.GraphLow(p) = g.Bet(p, bet::kBankroll);
  for (int x = 1; x <= std::min<int>(g.GraphRollCount, kGraphColumns); ++x) {
    g.GraphHigh(p) = std::max(g.GraphHigh(p), GraphPage(g, p, x));
    g.GraphLow(p) = std::min(g.GraphLow(p), GraphPage(g, p, x));
  }
}
