#include "stats/sessions_stats.h"

#include <algorithm>
#include <cmath>

#include "core/money.h"
#include "stats/number_format.h"
#include "stats/sessions_log.h"

namespace {

// Products of a column and a range of amounts need more than 64 bits.
using Wide = WideRaw;

constexpr int kLastColumn = kHistogramColumns - 1;  // 524
constexpr int kMiddleColumn = 262;
constexpr int kMaxMedianRounds = 40;  // each round narrows the range 525 times
constexpr int kWon = 0, kEven = 1, kLost = 2;

constexpr std::string_view kValuePattern = "#,##0.0###;-#,##0.0###;0";
constexpr std::string_view kMomentPattern = "#,##0.0#;-#,##0.0#;0";

// The column of x in low..high, on exact amounts.
int Column(Currency x, Currency low, Currency high) {
  if (high == low) return kMiddleColumn;
  if (x == low) return 0;
  if (x == high) return kLastColumn;
  const Wide num = static_cast<Wide>(kLastColumn) * (x.raw - low.raw);
  return static_cast<int>(num / (high.raw - low.raw));
}

void Count(HistogramColumn& col, Currency x) {
  if (col.count == 0 || x < col.low) col.low = x;
  if (col.count == 0 || x > col.high) col.high = x;
  ++col.count;
}

struct MedianWalk {
  bool found = false, between = false;
  Currency median, low, high;  // low..high: the column to refine
  double target = 0;
};

// Walks the columns up to the target rank (k, or k + 0.5 for an even count).
MedianWalk WalkToMedian(const std::array<HistogramColumn, kHistogramColumns>& cols, double target) {
  MedianWalk w;
  double c = 0;
  const HistogramColumn* previous = nullptr;
  for (const HistogramColumn& col : cols) {
    if (col.count == 0) continue;
    const double before = c;
    c += static_cast<double>(col.count);
    if (c >= target) {
      if (before + 1 > target && previous) {
        w.found = w.between = true;
        w.median = CurFromDouble((previous->high.ToDouble() + col.low.ToDouble()) / 2);
      } else if (col.low == col.high) {
        w.found = true;
        w.median = col.low;
      } else {
        w.low = col.low;
        w.high = col.high;
        w.target = target - before;
      }
      return w;
    }
    previous = &col;
  }
  return w;
}

Shown Value(double x, std::string_view pattern) { return ShowValue(x, FormatNumber(x, pattern)); }

std::string BreakText(Currency a) { return FormatMoney(a); }

// The class of a session by its net: won, broke-even or lost by the request's break-even band.
int ClassOf(const SessionsRequest& rq, Currency net) {
  return net < rq.breakLow ? kLost : net > rq.breakHigh ? kWon : kEven;
}

bool Includes(const SessionsRequest& rq, int cls) { return (rq.filter >> cls) & 1; }

}  // namespace

SessionsFigures FigureSessionsLog(const SessionsRequest& rq) {
  SessionsFigures f;
  const int value = std::clamp(rq.value, 0, kSessionValues - 1);
  f.valueName = SessionValueName(value);
  if (rq.breakLow.IsZero() && rq.breakHigh.IsZero()) {
    f.classLabels = {"Won", "Broke-even", "Lost", "Total"};
  } else {
    f.classLabels = {"> " + BreakText(rq.breakHigh),
                     rq.breakLow == rq.breakHigh
                         ? BreakText(rq.breakLow)
                         : BreakText(rq.breakLow) + " - " + BreakText(rq.breakHigh),
                     "< " + BreakText(rq.breakLow), "Total"};
  }
  SessionsLogReader log(rq.path);
  f.error = log.error();
  f.sessions = log.count();

  // Pass 1: classes, totals, high and low.
  std::array<std::int64_t, 3> classes{};
  std::int64_t m = 0;
  Wide handle = 0, net = 0, sum = 0;
  SessionRecord r{};
  for (std::int32_t s = 1; s <= f.sessions && log.ok(); ++s) {
    if (!log.Read(s, r)) break;
    const int cls = ClassOf(rq, r[kNetValue]);
    ++classes[static_cast<std::size_t>(cls)];
    if (!Includes(rq, cls)) continue;
    const Currency x = r[static_cast<std::size_t>(value)];
    handle += r[kHandleValue].raw;
    net += r[kNetValue].raw;
    sum += x.raw;
    if (m == 0 || x > f.high) f.high = x;
    if (m == 0 || x < f.low) f.low = x;
    ++m;
  }
  f.included = m;
  f.handle = CurFromWide(handle);
  f.net = CurFromWide(net);
  f.sum = CurFromWide(sum);
  if (!log.ok()) f.error = log.error();  // a damaged record stopped the pass
  const std::int64_t total = classes[0] + classes[1] + classes[2];
  for (int k = 0; k < 3; ++k) {
    const auto n = static_cast<double>(classes[static_cast<std::size_t>(k)]);
    f.classCounts[static_cast<std::size_t>(k)] = ShowCount(n, fmt_pattern::kWhole);
    f.classPercents[static_cast<std::size_t>(k)] =
        Value(total > 0 ? n * 100 / static_cast<double>(total) : 0, "0.0#;-0.0#;0");
  }
  f.classCounts[3] = ShowCount(static_cast<double>(total), fmt_pattern::kWhole);
  f.classPercents[3] = total > 0 ? ShowValue(100, "100") : ShowValue(0, "0");

  auto forIncluded = [&](auto&& visit) {
    for (std::int32_t s = 1; s <= f.sessions && log.ok(); ++s) {
      if (!log.Read(s, r)) break;
      if (IncludedSession(rq, r[kNetValue])) visit(s, r[static_cast<std::size_t>(value)]);
    }
  };

  double deviation = 0;
  if (m > 0) {
    f.mean = static_cast<double>(sum) / Currency::kScale / static_cast<double>(m);
    f.range = f.high - f.low;
    // Pass 2: the square sum and the histogram.
    double squares = 0;
    forIncluded([&](std::int32_t, Currency x) {
      squares += (x.ToDouble() - f.mean) * (x.ToDouble() - f.mean);
      Count(f.columns[static_cast<std::size_t>(Column(x, f.low, f.high))], x);
    });
    f.variance = squares / static_cast<double>(m);
    f.stdDev = CurFromDouble(std::sqrt(f.variance));
    deviation = f.stdDev.ToDouble();
  }

  // The range boxes.
  for (int j = 0; j < 2; ++j) {
    std::optional<double> v = rq.rangeValue[static_cast<std::size_t>(j)];
    std::optional<double> sd = rq.rangeSd[static_cast<std::size_t>(j)];
    if (!v && !sd) v = (j == 0 ? f.low : f.high).ToDouble();
    if (!v) v = f.mean + deviation * *sd;
    if (!sd) sd = deviation != 0 ? (*v - f.mean) / deviation : 0;
    const double clamped = std::clamp(*v, f.low.ToDouble(), std::max(f.low, f.high).ToDouble());
    if (clamped != *v) {
      v = clamped;
      sd = deviation != 0 ? (*v - f.mean) / deviation : 0;
    }
    f.rangeValue[static_cast<std::size_t>(j)] = *v;
    f.rangeSd[static_cast<std::size_t>(j)] = *sd;
  }

  // The exact median: walk the columns, and while the target lies inside a
  // column of several values, spread that column over a fresh histogram.
  if (m > 0) {
    MedianWalk w = WalkToMedian(f.columns, (static_cast<double>(m) + 1) / 2);
    for (int round = 0; !w.found && round < kMaxMedianRounds && w.high > w.low; ++round) {
      std::array<HistogramColumn, kHistogramColumns> narrow{};
      forIncluded([&](std::int32_t, Currency x) {
        if (x >= w.low && x <= w.high) Count(narrow[static_cast<std::size_t>(Column(x, w.low, w.high))], x);
      });
      w = WalkToMedian(narrow, w.target);
    }
    f.median = w.median;
    f.medianBetween = w.between;
  }

  // Pass 3: skew, kurtosis and the sessions inside the range boxes.
  std::int64_t inRange = 0;
  double third = 0, fourth = 0;
  const double v0 = f.rangeValue[0], v1 = f.rangeValue[1];
  forIncluded([&](std::int32_t s, Currency x) {
    const double xv = x.ToDouble();
    if (deviation > 0) {
      const double z = (xv - f.mean) / deviation;
      third += z * z * z;
      fourth += z * z * z * z;
    }
    const bool inside = v1 >= v0 ? xv >= v0 && xv <= v1 : xv >= v0 || xv <= v1;
    inRange += inside ? 1 : 0;
    if (s >= rq.rawTop && static_cast<int>(f.dataList.size()) < kDataListRows) f.dataList.emplace_back(s, x);
  });
  if (m > 0) {
    f.skew = third / static_cast<double>(m);
    f.kurtosis = fourth / static_cast<double>(m) - 3;
  }

  // The mode: the fullest bar of BarWidth columns, ties to the lowest.
  const int width = std::max(1, rq.barWidth);
  std::int64_t best = -1;
  for (int first = 0; first < kHistogramColumns; first += width) {
    std::int64_t n = 0;
    Currency lo, hi;
    for (int c = first; c < std::min(first + width, kHistogramColumns); ++c) {
      const HistogramColumn& col = f.columns[static_cast<std::size_t>(c)];
      if (col.count == 0) continue;
      if (n == 0 || col.low < lo) lo = col.low;
      if (n == 0 || col.high > hi) hi = col.high;
      n += col.count;
    }
    f.bars.emplace_back(first, 0);
    f.tallest = std::max(f.tallest, n);
    if (n > best) {
      best = n;
      f.modeLow = lo;
      f.modeHigh = hi;
    }
    f.bars.back().second = static_cast<int>(n);  // the count until the heights are known
  }
  for (auto& bar : f.bars)
    bar.second = f.tallest > 0 ? static_cast<int>(kHistogramHeight * static_cast<std::int64_t>(bar.second) / f.tallest) : 0;

  f.mid = f.low + CurFromDouble(f.range.ToDouble() / 2);
  f.advantage = f.handle.IsZero() ? 0 : f.net.ToDouble() / f.handle.ToDouble();
  if (m > 0) {
    const double span = f.range.ToDouble();
    auto columnOf = [&](double x) { return span == 0 ? kMiddleColumn : static_cast<int>(std::floor(kLastColumn * (x - f.low.ToDouble()) / span)); };
    f.meanColumn = columnOf(f.mean);
    for (int k = 1; deviation > 0 && k <= kHistogramColumns; ++k) {
      bool any = false;
      for (double at : {f.mean - k * deviation, f.mean + k * deviation})
        if (at >= f.low.ToDouble() && at <= f.high.ToDouble()) {
          f.deviationColumns.push_back(columnOf(at));
          any = true;
        }
      if (!any) break;
    }
    f.rangeLineColumns = {span == 0 ? 0 : columnOf(v0), span == 0 ? kLastColumn : columnOf(v1)};
  }

  const std::string modeText =
      f.modeLow == f.modeHigh ? FormatNumber(f.modeLow, kValuePattern)
                              : FormatNumber(f.modeLow, kValuePattern) + " to " + FormatNumber(f.modeHigh, kValuePattern);
  Shown mode = ShowValue(f.modeLow.ToDouble(), modeText);
  f.results = {
      {"Sum", Value(f.sum.ToDouble(), kValuePattern)},
      {"Mean", Value(f.mean, kMomentPattern)},
      {f.medianBetween ? "   Median *" : "Median", Value(f.median.ToDouble(), kValuePattern)},
      {"Mode", mode},
      {"High", Value(f.high.ToDouble(), kValuePattern)},
      {"Mid", Value(f.mid.ToDouble(), kValuePattern)},
      {"Low", Value(f.low.ToDouble(), kValuePattern)},
      {"Range", Value(f.range.ToDouble(), kValuePattern)},
      {"Variance", Value(f.variance, kMomentPattern)},
      {"Std Dev", Value(f.stdDev.ToDouble(), kMomentPattern)},
      {"Skew", Value(f.skew, kMomentPattern)},
      {"Kurtosis", Value(f.kurtosis, kMomentPattern)},
      {"Net $", Value(f.net.ToDouble(), kMomentPattern)},
      {"Handle $", Value(f.handle.ToDouble(), kMomentPattern)},
      {"Advantage", Value(f.advantage, "#,##0.0# %;-#,##0.0# %;0 %")},
  };
  f.rangeCount = ShowValue(static_cast<double>(inRange),
                           FormatNumber(static_cast<double>(inRange), "#,###;-#,###;0") +
                               (inRange == 1 ? " session" : " sessions"));
  f.rangeCount.integer = true;
  const double share = m > 0 ? 100.0 * static_cast<double>(inRange) / static_cast<double>(m) : 0;
  f.rangeShare = m > 0 ? ShowValue(share, FormatNumber(share, kMomentPattern) + "%") : ShowValue(0, "0%");

  for (double x : {f.mean, f.variance, f.skew, f.kurtosis, f.advantage})
    if (!std::isfinite(x) && f.error.empty())
      f.error = "An error has occurred in calculating the statistics for " + f.valueName +
                ". \rThis may have been due to excessive variance or corruption in your data.\r"
                "You should be able to view the actual data by selecting \"Display Data\"";
  return f;
}

bool IncludedSession(const SessionsRequest& rq, Currency net) {
  return Includes(rq, ClassOf(rq, net));
}

double ValueAtColumn(const SessionsFigures& f, int column) {
  const int c = std::clamp(column, 0, kLastColumn);
  return f.low.ToDouble() + f.range.ToDouble() * c / kLastColumn;
}

int RangeLineNear(const SessionsFigures& f, int x, int reach) {
  if (f.included <= 0) return -1;
  const int d0 = std::abs(x - f.rangeLineColumns[0]), d1 = std::abs(x - f.rangeLineColumns[1]);
  if (std::min(d0, d1) > reach) return -1;
  return d1 < d0 ? 1 : 0;
}
