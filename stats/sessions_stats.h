// The Sessions Log view's statistics: any one of the 32 values of a log
// taken as a sample over the sessions a break-point classes as won, broke
// even or lost: sum, mean, exact median, mode, range, variance, standard
// deviation, skew, kurtosis, handle, net and advantage, the histogram of 525
// columns and the sessions inside two range boxes.
//
// The log is never loaded: every pass streams the file through one record,
// and the exact median comes from histograms that narrow the range 525
// times per pass, so memory stays constant whatever the count of sessions.
//
// What must stay true:
// - Sessions are classed by their net (value 8): below BreakLow lost, above
//   BreakHigh won, else broke even; counted whether included or not.
// - Column of x: 262 when High = Low, 0 at Low, 524 at High, else
//   Int(524 x (x - Low) / (High - Low)), worked on exact amounts.
// - Variance is the population form (square sum / m).
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/currency.h"
#include "stats/selection.h"

constexpr int kHistogramColumns = 525;
constexpr int kHistogramHeight = 223;
constexpr int kDataListRows = 16;

// Filter bits of SessionsFilter.
constexpr std::int32_t kIncludeWon = 1, kIncludeEven = 2, kIncludeLost = 4, kShowDataList = 8;

struct SessionsRequest {
  std::string path;
  int value = 8;  // the sampled value, 0..31
  std::int32_t filter = kIncludeWon | kIncludeEven | kIncludeLost;
  Currency breakLow, breakHigh;
  int barWidth = 5;
  // The range boxes: two values and the same two as standard deviations;
  // a blank box is none.
  std::array<std::optional<double>, 2> rangeValue, rangeSd;
  std::int32_t rawTop = 1;
};

struct HistogramColumn {
  std::int64_t count = 0;
  Currency low, high;
};

struct SessionsFigures {
  std::string error;  // the file's message, or the trap's; figures as far as they got
  std::string valueName;
  std::int32_t sessions = 0;  // in the file
  std::array<std::string, 4> classLabels;  // won, broke-even, lost, "Total"
  std::array<Shown, 4> classCounts, classPercents;
  std::int64_t included = 0;  // m
  // The results in the view's order: Sum, Mean, Median, Mode, High, Mid,
  // Low, Range, Variance, Std Dev, Skew, Kurtosis, Net $, Handle $, Advantage.
  std::vector<std::pair<std::string, Shown>> results;
  Currency sum, median, high, low, range, mid, net, handle, stdDev;
  double mean = 0, variance = 0, skew = 0, kurtosis = 0, advantage = 0;
  bool medianBetween = false;  // the median lies between two columns ("   Median *")
  Currency modeLow, modeHigh;
  std::array<double, 2> rangeValue{}, rangeSd{};
  Shown rangeCount, rangeShare;
  std::array<HistogramColumn, kHistogramColumns> columns{};
  std::vector<std::pair<int, int>> bars;  // first column, height 0..223
  std::int64_t tallest = 0;
  int meanColumn = -1;
  std::vector<int> deviationColumns;
  std::array<int, 2> rangeLineColumns{};
  std::vector<std::pair<std::int32_t, Currency>> dataList;  // session number, value
};

// UpdateSessionsLog: reads the log of the request and figures the view.
SessionsFigures FigureSessionsLog(const SessionsRequest& request);
// Whether the request's filter includes a session of this net (value 8).
bool IncludedSession(const SessionsRequest& request, Currency net);
// The value at a column of the histogram, as a range line dragged there
// gives its box: Low + Range x column / 524, Low when Range is 0.
double ValueAtColumn(const SessionsFigures& f, int column);
// The range line (0 or 1) within `reach` columns of x, the nearer one
// first; -1 when none is, or when nothing is included.
int RangeLineNear(const SessionsFigures& f, int x, int reach);
