#include "stats/bankroll_graph.h"

#include <algorithm>
#include <cmath>

#include "core/game.h"
#include "core/money.h"
#include "core/platform.h"
#include "stats/number_format.h"

namespace {

constexpr int kPageColumns = kGraphColumns;           // 525
constexpr int kHistoryColumns = 2 * kGraphColumns;    // 1050: this page and the one before
constexpr Long kRollsForTwoPages = kGraphColumns + 1;  // a wrap needs a full page before

// The ladder, in ten-thousandths: 0.02, 0.04, 0.1, 0.2, 0.4, 1, 2, 4, 10, ... 40,000, 100,000.
constexpr std::array<std::int64_t, 20> kLadder = {
    200,        400,         1'000,        2'000,        4'000,        10'000,       20'000,
    40'000,     100'000,     200'000,      400'000,      1'000'000,    2'000'000,    4'000'000,
    10'000'000, 20'000'000,  40'000'000,   100'000'000,  200'000'000,  400'000'000};
static_assert(kLadder.back() == 40'000 * Currency::kScale);
constexpr std::int64_t kLadderTop = 100'000 * Currency::kScale;

Currency Block(Currency scale) { return CurMulInt(scale, kGraphBlock); }

// 50 x scale x (Int(c / (50 x scale)) + 3): the value lands 2 to 3 blocks below the top.
Currency TopAbove(double c, Currency scale) {
  const double block = Block(scale).ToDouble();
  return CurMulInt(Block(scale), static_cast<std::int64_t>(std::floor(c / block)) + 3);
}

Currency AverageOf(Currency sum, double n) { return n > 0 ? CurFromDouble(sum.ToDouble() / n) : Currency{}; }

}  // namespace

Currency MovingBankrollAverage(const Game& g, int p, int column, int span) {
  span = std::min(span, kPageColumns);
  if (span < 1) {
    const Long n = g.RollsAtTable(p + 18);
    return n == 0 ? g.BankrollSum(p) : AverageOf(g.BankrollSum(p), n + 1.0);
  }
  const bool twoPages = g.RollTally(18, 0) >= kRollsForTwoPages;
  int index = column;
  if (index <= 0) {
    if (!twoPages) return {};
    index = kHistoryColumns;
  }
  Currency sum;
  int read = 0;
  while (read < span) {
    sum += g.GraphBankroll(p, index);
    ++read;
    if (--index < 1) {
      if (!twoPages) break;
      index = kHistoryColumns;
    }
  }
  return AverageOf(sum, read);
}

std::vector<Currency> GraphTrendColumns(const Game& g, int p, int span) {
  const int count = std::clamp(static_cast<int>(g.GraphRollCount), 0, kPageColumns);
  std::vector<Currency> trend(static_cast<std::size_t>(count) + 1);
  if (span > 0) {
    for (int x = 1; x <= count; ++x) trend[static_cast<std::size_t>(x)] = MovingBankrollAverage(g, p, x, span);
    return trend;
  }
  // The average of all rolls up to each column, walking back from the
  // newest; the sum holds the beginning bankroll as one value more. A player
  // who joined after column 1 runs out of rolls first: those columns stay 0.
  Currency s = g.BankrollSum(p);
  double n = g.RollsAtTable(p + 18);
  for (int x = count; x >= 1 && n >= 0; --x) {
    trend[static_cast<std::size_t>(x)] = AverageOf(s, n + 1);
    s -= g.GraphBankroll(p, x);
    n -= 1;
  }
  return trend;
}

void FigureGraphRange(Game& g, int p) {
  if (p < 1 || p > 8) return;
  g.GraphHigh(p) = g.GraphLow(p) = g.Bet(p, 0);
  for (int x = 1; x <= std::min<int>(g.GraphRollCount, kPageColumns); ++x) {
    g.GraphHigh(p) = std::max(g.GraphHigh(p), g.GraphBankroll(p, x));
    g.GraphLow(p) = std::min(g.GraphLow(p), g.GraphBankroll(p, x));
  }
}

std::string RebuildGraphTrend(Game& g) {
  const int p = g.views.GraphPlayer;
  const int span = std::clamp(g.views.GraphAverageSpan, 0, kPageColumns);
  if (SeatTaken(g, p)) {
    const std::vector<Currency> trend = GraphTrendColumns(g, p, span);
    for (int x = 1; x < static_cast<int>(trend.size()); ++x) g.GraphTrend(p, x) = trend[static_cast<std::size_t>(x)];
    FigureGraphRange(g, p);
  }
  return span > 0 ? std::to_string(span) + " roll moving average" : "All rolls average";
}

Currency LargerGraphScale(Currency scale) {
  for (std::int64_t rung : kLadder)
    if (rung > scale.raw) return Currency::FromRaw(rung);
  return Currency::FromRaw(kLadderTop);
}

Currency SmallerGraphScale(Currency scale) {
  if (scale.raw > kLadderTop) return Currency::FromRaw(kLadderTop);
  if (scale.raw == kLadderTop) return Currency::FromRaw(kLadder.back());
  for (auto it = kLadder.rbegin(); it != kLadder.rend(); ++it)
    if (*it < scale.raw) return Currency::FromRaw(*it);
  return Currency::FromRaw(kLadder.front());
}

long GraphRow(const Game& g, Currency amount) {
  const double scale = g.roll.GraphScale.ToDouble();
  if (scale <= 0) return 0;
  return static_cast<long>(std::nearbyint((g.roll.GraphTop - amount).ToDouble() / scale));
}

void DrawBankrollGraph(Game& g, bool recentre) {
  RollState& r = g.roll;
  const ViewsState& v = g.views;
  const int p = v.GraphPlayer;
  if (v.GraphAdjustType == 3 && (r.GraphPlotType == 1 || g.GraphRollCount == 0))
    r.GraphScale = r.GraphBaseScale;
  if (SeatTaken(g, p)) {
    if (recentre) {
      double c = std::nearbyint(g.Bet(p, 0).ToDouble());
      if (v.GraphShowRefLines) {
        const bool first = v.RefLine1 < g.GraphRollCount, second = v.RefLine2 < g.GraphRollCount;
        const double a = first ? g.GraphBankroll(p, v.RefLine1 + 1).ToDouble() : 0;
        const double b = second ? g.GraphBankroll(p, v.RefLine2 + 1).ToDouble() : 0;
        if (first) c = a;
        if (second) c = first ? (a + b) / 2 : b;
      }
      r.GraphTop = TopAbove(c, r.GraphScale);
    }
    const Currency bank = g.Bet(p, 0);
    if (v.GraphAdjustType == 1) {
      if (bank > r.GraphTop) r.GraphTop += Block(r.GraphScale);
      if (bank < r.GraphTop - CurMulInt(r.GraphScale, kGraphRows)) r.GraphTop -= Block(r.GraphScale);
    }
    if (v.GraphAdjustType >= 2) {
      bool climbed = false;
      while (g.GraphHigh(p) - g.GraphLow(p) > CurMulInt(r.GraphScale, 250) &&
             r.GraphScale.raw < kLadderTop) {
        r.GraphScale = LargerGraphScale(r.GraphScale);
        climbed = true;
      }
      if (climbed) r.GraphTop = TopAbove(g.GraphHigh(p).ToDouble(), r.GraphScale);
      if (g.GraphHigh(p) > r.GraphTop) r.GraphTop += Block(r.GraphScale);
      if (g.GraphLow(p) < r.GraphTop - CurMulInt(r.GraphScale, kGraphRows))
        r.GraphTop -= Block(r.GraphScale);
    }
  }
  if (g.platform && !g.HyperDrive) g.platform->RequestRedraw(Redraw::Graph);
}

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
  if (!SeatTaken(g, p)) return f;
  const RollState& r = g.roll;
  const ViewsState& v = g.views;
  f.playerName = g.PlayerName[static_cast<std::size_t>(p)];
  f.scale = r.GraphScale;
  f.top = r.GraphTop;
  for (int n = 0; n < 7; ++n) {
    const Currency at = r.GraphTop - CurMulInt(r.GraphScale, kGraphBlock * n);
    f.scaleLabels[static_cast<std::size_t>(n)] = ShowValue(at.ToDouble(), FormatNumber(at, fmt_pattern::kWhole));
  }
  const double left = g.GraphBankroll(p, 0).ToDouble();
  f.rollsLeft = ShowCount(left, fmt_pattern::kWhole);
  f.rollsRight = ShowCount(left + kPageColumns - 1, fmt_pattern::kWhole);

  const int span = std::clamp(v.GraphAverageSpan, 0, kPageColumns);
  const std::vector<Currency> trend = r.GraphShowAverage ? GraphTrendColumns(g, p, span)
                                                         : std::vector<Currency>();
  if (r.GraphShowAverage) f.averageLabel = span > 0 ? std::to_string(span) + " roll moving average" : "All rolls average";
  const int count = std::clamp(static_cast<int>(g.GraphRollCount), 0, kPageColumns);
  for (int x = 1; x <= count; ++x) {
    GraphColumn c;
    c.x = x;
    c.bankroll = g.GraphBankroll(p, x);
    c.line = r.GraphShowAverage ? trend[static_cast<std::size_t>(x)] : g.InvestedBankroll(p);
    c.row = GraphRow(g, c.bankroll);
    c.lineRow = GraphRow(g, c.line);
    c.bandBelow = c.lineRow <= c.row;
    f.columns.push_back(c);
  }
  f.currentRow = GraphRow(g, g.Bet(p, 0));

  const Long rolls = g.RollTally(18, 0);
  const double perHour = g.rules.RollsPerHour.ToDouble();
  f.totalRolls = ShowCount(rolls, "#,#;0;0");
  f.rollsPerHour = ShowValue(perHour, FormatWholeOr(perHour, fmt_pattern::kWhole, "#,0.0###;-#,#;0"));
  const double hours = perHour != 0 ? rolls / perHour : 0;
  f.simHours = ShowValue(hours, FormatSimHours(hours));
  const Currency high = g.BankrollHigh(p), low = g.BankrollLow(p), now = g.Bet(p, 0);
  // All three whole (to the smallest check when that is whole): no decimals.
  const bool whole = IsWhole(high) && IsWhole(low) && IsWhole(now);
  const char* pattern = whole ? "#,#;-#,#;0" : "#,#.00;-#,#.00;0.00";
  f.high = ShowValue(high.ToDouble(), FormatNumber(high, pattern));
  f.low = ShowValue(low.ToDouble(), FormatNumber(low, pattern));
  f.current = ShowValue(now.ToDouble(), FormatNumber(now, pattern));

  if (v.GraphShowRefLines) {
    const int c1 = std::clamp(v.RefLine1, 0, kPageColumns - 1);
    const int c2 = std::clamp(v.RefLine2, 0, kPageColumns - 1);
    f.refRolls = "Rolls:  " + FormatNumber(std::abs(c1 - c2), fmt_pattern::kWhole);
    if (c1 < g.GraphRollCount && c2 < g.GraphRollCount) {
      auto value = [&](int column, bool onAverage) {
        if (!onAverage) return g.GraphBankroll(p, column + 1);
        return r.GraphShowAverage ? trend[static_cast<std::size_t>(column + 1)] : g.InvestedBankroll(p);
      };
      const Currency a = value(c1, v.RefLine1OnAverage), b = value(c2, v.RefLine2OnAverage);
      const Currency diff = a > b ? a - b : b - a;
      f.refBankroll = "Bankroll:  " + FormatNumber(CurInt(diff), fmt_pattern::kWhole);
    }
  }
  return f;
}
