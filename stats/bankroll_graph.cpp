#include "stats/bankroll_graph.h"

#include <algorithm>
#include <cmath>

#include "core/game.h"
#include "core/graph_rows.h"
#include "core/money.h"
#include "stats/number_format.h"

std::string FormatSimHours(double h) {
  if (std::floor(h) == h) return FormatNumber(h, fmt_pattern::kWhole);
  const char* pattern = h > 999 ? "#,0.0;-#,#;0"
                        : h > 99 ? "#,0.0#;-#,#;0"
                        : h > 9  ? "#,0.0##;-#,#;0"
                                 : "#,0.0###;-#,#;0";
  std::string text = FormatNumber(h, pattern);
  return text == "0" ? "< 0.0001" : text;
}

BankrollGraphFigures FigureBankrollGraph(const Game& g, int p) {
  BankrollGraphFigures f;
  f.player = p;
  // The scale and the session's rolls stand beside the graph with or
  // without a player.
  const RollState& r = g.roll;
  f.scale = r.GraphScale;
  f.top = r.GraphTop;
  for (int n = 0; n < 7; ++n) {
    const Currency at = r.GraphTop - CurMulInt(r.GraphScale, kGraphBlockRows * n);
    f.scaleLabels[static_cast<std::size_t>(n)] = ShowValue(at.ToDouble(), FormatNumber(at, fmt_pattern::kWhole));
  }
  const Long rolls = g.RollTally(kTableSession, kEventRolls);
  const double perHour = g.rules.RollsPerHour.ToDouble();
  f.totalRolls = ShowCount(rolls, "#,#;0;0");
  f.rollsPerHour = ShowValue(perHour, FormatWholeOr(perHour, fmt_pattern::kWhole, "#,0.0###;-#,#;0"));
  const double hours = perHour != 0 ? rolls / perHour : 0;
  f.simHours = ShowValue(hours, FormatSimHours(hours));
  if (!SeatTaken(g, p)) return f;

  const GraphViewState& v = g.graph;
  f.playerName = g.PlayerName[static_cast<std::size_t>(p)];
  const double left = g.GraphBankroll(p, 0).ToDouble();
  f.rollsLeft = ShowCount(left, fmt_pattern::kWhole);
  f.rollsRight = ShowCount(left + kGraphColumns - 1, fmt_pattern::kWhole);

  const int span = std::clamp(v.GraphAverageSpan, 0, kGraphColumns);
  const std::vector<Currency> trend = r.GraphShowAverage ? GraphTrendColumns(g, p, span)
                                                         : std::vector<Currency>();
  if (r.GraphShowAverage) f.averageLabel = GraphTrendLabel(span);
  const int count = std::clamp(static_cast<int>(g.GraphRollCount), 0, kGraphColumns);
  for (int x = 1; x <= count; ++x) {
    GraphColumn c;
    c.x = x;
    c.bankroll = GraphPage(g, p, x);
    c.line = r.GraphShowAverage ? trend[static_cast<std::size_t>(x)] : g.InvestedBankroll(p);
    c.row = GraphRow(g, c.bankroll);
    c.lineRow = GraphRow(g, c.line);
    c.bandBelow = c.lineRow <= c.row;
    f.columns.push_back(c);
  }
  f.currentRow = GraphRow(g, g.Bet(p, bet::kBankroll));

  const Currency high = g.BankrollHigh(p), low = g.BankrollLow(p), now = g.Bet(p, bet::kBankroll);
  // All three whole (to the smallest check when that is whole): no decimals.
  const bool whole = IsWhole(high) && IsWhole(low) && IsWhole(now);
  const char* pattern = whole ? "#,#;-#,#;0" : "#,#.00;-#,#.00;0.00";
  f.high = ShowValue(high.ToDouble(), FormatNumber(high, pattern));
  f.low = ShowValue(low.ToDouble(), FormatNumber(low, pattern));
  f.current = ShowValue(now.ToDouble(), FormatNumber(now, pattern));

  if (v.GraphShowRefLines) {
    const int c1 = std::clamp(v.RefLine1, 0, kGraphColumns - 1);
    const int c2 = std::clamp(v.RefLine2, 0, kGraphColumns - 1);
    f.refRolls = "Rolls:  " + FormatNumber(std::abs(c1 - c2), fmt_pattern::kWhole);
    if (c1 < g.GraphRollCount && c2 < g.GraphRollCount) {
      auto value = [&](int column, bool onAverage) {
        if (!onAverage) return GraphPage(g, p, column + 1);
        return r.GraphShowAverage ? trend[static_cast<std::size_t>(column + 1)] : g.InvestedBankroll(p);
      };
      const Currency a = value(c1, v.RefLine1OnAverage), b = value(c2, v.RefLine2OnAverage);
      const Currency diff = a > b ? a - b : b - a;
      f.refBankroll = "Bankroll:  " + FormatNumber(CurInt(diff), fmt_pattern::kWhole);
    }
  }
  return f;
}
