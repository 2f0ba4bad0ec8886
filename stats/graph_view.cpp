#include "stats/graph_view.h"

#include <vector>

#include "core/game.h"
#include "core/graph_rows.h"
#include "core/money.h"

void RebuildGraphTrend(Game& g) {
  const int p = g.graph.GraphPlayer;
  if (p < 1 || p > 8) return;
  const std::vector<Currency> trend = GraphTrendColumns(g, p, g.graph.GraphAverageSpan);
  for (int x = 1; x < static_cast<int>(trend.size()); ++x)
    GraphTrendAt(g, p, x) = trend[static_cast<std::size_t>(x)];
  FigureGraphRange(g, p);
}

void FigureGraphScale(Game& g, bool recentre) {
  RollState& r = g.roll;
  const GraphViewState& v = g.graph;
  const int p = v.GraphPlayer;
  if (p < 1 || p > 8) return;
  if (v.GraphAdjustType == 3 && (r.GraphPlotType == 1 || g.GraphRollCount == 0))
    r.GraphScale = r.GraphBaseScale;
  // Both read the scale as it stands: expansion may climb it below.
  auto block = [&r] { return CurMulInt(r.GraphScale, kGraphBlockRows); };
  auto bottom = [&r] { return r.GraphTop - CurMulInt(r.GraphScale, kGraphBottomRow); };
  if (recentre) {
    Currency c = CurInt(g.Bet(p, bet::kBankroll));
    if (v.GraphShowRefLines) {
      const bool in1 = v.RefLine1 < g.GraphRollCount, in2 = v.RefLine2 < g.GraphRollCount;
      if (in1) c = GraphPage(g, p, v.RefLine1 + 1);
      if (in2 && !in1) c = GraphPage(g, p, v.RefLine2 + 1);
      if (in1 && in2)
        c = CurFromDouble((GraphPage(g, p, v.RefLine1 + 1).ToDouble() +
                           GraphPage(g, p, v.RefLine2 + 1).ToDouble()) /
                          2);
    }
    r.GraphTop = GraphTopAbove(r.GraphScale, c);
  }
  if (v.GraphAdjustType == 1) {
    if (g.Bet(p, bet::kBankroll) > r.GraphTop) r.GraphTop += block();
    if (g.Bet(p, bet::kBankroll) < bottom()) r.GraphTop -= block();
  } else if (v.GraphAdjustType >= 2) {
    bool climbed = false;
    while (g.GraphHigh(p) - g.GraphLow(p) > CurMulInt(r.GraphScale, kGraphFitRows)) {
      const Currency next = NextGraphScale(r.GraphScale, 1);
      if (next == r.GraphScale) break;
      r.GraphScale = next;
      climbed = true;
    }
    if (climbed) r.GraphTop = GraphTopAbove(r.GraphScale, g.GraphHigh(p));
    if (g.GraphHigh(p) > r.GraphTop) r.GraphTop += block();
    if (g.GraphLow(p) < bottom()) r.GraphTop -= block();
  }
}
