#include "stats/graph_view.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/game.h"
#include "core/money.h"

namespace graph_view {

namespace {

// The scale ladder in ten-thousandths: 0.02, 0.04, 0.1, 0.2, 0.4, 1, 2, 4, 10 ... 40,000, 100,000.
constexpr std::array<std::int64_t, 21> kLadderRaw = {
    200,       400,       1000,      2000,      4000,       10000,      20000,
    40000,     100000,    200000,    400000,    1000000,    2000000,    4000000,
    10000000,  20000000,  40000000,  100000000, 200000000,  400000000,  1000000000};

int Rung(Currency scale) {
  int best = 0;
  for (int i = 0; i < static_cast<int>(kLadderRaw.size()); ++i)
    if (kLadderRaw[static_cast<std::size_t>(i)] <= scale.raw) best = i;
  return best;
}

Currency Block(const Game& g) { return CurMulInt(g.roll.GraphScale, kGraphBlockRows); }

// 50 x scale x (Int(c / (50 x scale)) + 3): c lands two to three blocks below the top.
Currency TopAbove(const Game& g, Currency c) {
  const Currency block = Block(g);
  const double blocks = std::floor(CurDiv(c, block));
  return CurMulInt(block, static_cast<std::int64_t>(blocks) + 3);
}

}  // namespace

std::int64_t GraphRow(const Game& g, Currency a) {
  return std::llround(CurDiv(g.roll.GraphTop - a, g.roll.GraphScale));
}

Currency NextGraphScale(Currency scale, int dir) {
  const int r = std::clamp(Rung(scale) + dir, 0, static_cast<int>(kLadderRaw.size()) - 1);
  return Currency::FromRaw(kLadderRaw[static_cast<std::size_t>(r)]);
}

void FigureGraphRange(Game& g, int p) {
  g.GraphHigh(p) = g.GraphLow(p) = g.Bet(p, 0);
  for (int x = 1; x <= g.GraphRollCount; ++x) {
    const Currency v = g.GraphBankroll(p, x);
    if (v > g.GraphHigh(p)) g.GraphHigh(p) = v;
    if (v < g.GraphLow(p)) g.GraphLow(p) = v;
  }
}

Currency MovingBankrollAverage(const Game& g, int p, int column, int span) {
  if (span > kGraphColumns) span = kGraphColumns;
  if (span < 1) {
    const long n = g.RollsAtTable(FrameIndex(p, 2));
    if (n == 0) return g.BankrollSum(p);
    return CurFromDouble(g.BankrollSum(p).ToDouble() / static_cast<double>(n + 1));
  }
  const long sessionRolls = g.RollTally(18, 0);
  int index = column;
  if (index == 0) {
    if (sessionRolls < kGraphColumns + 1) return {};
    index = 2 * kGraphColumns;
  }
  double sum = 0;
  int read = 0;
  while (read < span) {
    sum += g.GraphBankroll(p, index).ToDouble();
    ++read;
    if (--index < 1) {
      if (sessionRolls < kGraphColumns + 1) break;
      index = 2 * kGraphColumns;
    }
  }
  return read ? CurFromDouble(sum / read) : Currency{};
}

const char* RebuildGraphTrend(Game& g) {
  const int p = g.graph.GraphPlayer;
  if (p < 1 || p > 8) return "";
  const int span = g.graph.GraphAverageSpan;
  if (span > 0) {
    for (int x = 1; x <= g.GraphRollCount; ++x)
      g.GraphTrend(p, x) = MovingBankrollAverage(g, p, x, span);
  } else {
    double s = g.BankrollSum(p).ToDouble();
    long n = g.RollsAtTable(FrameIndex(p, 2));
    for (int x = g.GraphRollCount; x >= 1; --x) {
      // A player who joined after column 1 runs out of rolls before the
      // walk does: those columns keep the last average, never divide by 0.
      g.GraphTrend(p, x) = CurFromDouble(n > 0 ? s / static_cast<double>(n) : s);
      s -= g.GraphBankroll(p, x).ToDouble();
      if (n > 1) --n;
    }
  }
  FigureGraphRange(g, p);
  return span > 0 ? "roll moving average" : "All rolls average";
}

void FigureGraphScale(Game& g, bool recentre) {
  RollState& r = g.roll;
  const GraphViewState& v = g.graph;
  const int p = v.GraphPlayer;
  if (p < 1 || p > 8) return;
  if (v.GraphAdjustType == 3 && (r.GraphPlotType == 1 || g.GraphRollCount == 0))
    r.GraphScale = r.GraphBaseScale;
  if (recentre) {
    Currency c = CurInt(g.Bet(p, 0));
    if (v.GraphShowRefLines) {
      const bool in1 = v.RefLine1 < g.GraphRollCount, in2 = v.RefLine2 < g.GraphRollCount;
      if (in1) c = g.GraphBankroll(p, v.RefLine1 + 1);
      if (in2 && !in1) c = g.GraphBankroll(p, v.RefLine2 + 1);
      if (in1 && in2)
        c = CurFromDouble((g.GraphBankroll(p, v.RefLine1 + 1).ToDouble() +
                           g.GraphBankroll(p, v.RefLine2 + 1).ToDouble()) / 2);
    }
    r.GraphTop = TopAbove(g, c);
  }
  if (v.GraphAdjustType == 1) {
    if (g.Bet(p, 0) > r.GraphTop) r.GraphTop += Block(g);
    if (g.Bet(p, 0) < r.GraphTop - CurMulInt(r.GraphScale, kGraphRows - 1)) r.GraphTop -= Block(g);
  } else if (v.GraphAdjustType >= 2) {
    bool climbed = false;
    while (g.GraphHigh(p) - g.GraphLow(p) > CurMulInt(r.GraphScale, kGraphFitRows)) {
      const Currency next = NextGraphScale(r.GraphScale, 1);
      if (next == r.GraphScale) break;
      r.GraphScale = next;
      climbed = true;
    }
    if (climbed) r.GraphTop = TopAbove(g, g.GraphHigh(p));
    if (g.GraphHigh(p) > r.GraphTop) r.GraphTop += Block(g);
    if (g.GraphLow(p) < r.GraphTop - CurMulInt(r.GraphScale, kGraphRows - 1)) r.GraphTop -= Block(g);
  }
}

}  // namespace graph_view
