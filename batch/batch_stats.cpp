#include "batch/batch_stats.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "analysis/advantage.h"
#include "core/game.h"

double Percentile(const std::vector<double>& sorted, double q) {
  if (sorted.empty()) return 0;
  const double rank = q / 100.0 * static_cast<double>(sorted.size() - 1);
  const auto lo = static_cast<std::size_t>(std::floor(rank));
  const std::size_t hi = std::min(lo + 1, sorted.size() - 1);
  const double frac = rank - static_cast<double>(lo);
  return sorted[lo] + frac * (sorted[hi] - sorted[lo]);
}

std::array<double, 2> EdgeInterval(const std::vector<double>& nets,
                                   const std::vector<double>& wagers) {
  const auto n = static_cast<double>(nets.size());
  double sumNet = 0, sumWager = 0;
  for (std::size_t i = 0; i < nets.size(); ++i) {
    sumNet += nets[i];
    sumWager += wagers[i];
  }
  if (sumWager <= 0 || nets.size() < 2) return {0, 0};
  const double edge = sumNet / sumWager;
  const double meanWager = sumWager / n;
  // Residuals of the ratio: the variance of their mean, over the mean wager squared.
  double ss = 0;
  for (std::size_t i = 0; i < nets.size(); ++i) {
    const double d = nets[i] - edge * wagers[i];
    ss += d * d;
  }
  const double se = std::sqrt(ss / (n - 1) / n) / meanWager;
  return {edge - kZ95 * se, edge + kZ95 * se};
}

PlayerSummary SummarizePlayer(const Game& start, int seat,
                              const std::vector<SessionResult>& results, int onlyBet) {
  PlayerSummary s;
  s.name = start.PlayerName[seat];
  s.seat = seat;
  s.sessions = static_cast<std::int64_t>(results.size());
  if (results.empty()) return s;
  std::vector<double> nets, wagers;
  nets.reserve(results.size());
  wagers.reserve(results.size());
  double sumRolls = 0, sumHands = 0;
  std::int64_t broke = 0, win = 0, loss = 0;
  for (const SessionResult& r : results) {
    nets.push_back(r.net[seat].ToDouble());
    wagers.push_back(r.wagered[seat].ToDouble());
    sumRolls += r.rolls;
    sumHands += r.hands;
    broke += r.outcome[seat] == PlayerOutcome::kBroke;
    win += r.outcome[seat] == PlayerOutcome::kStopWin;
    loss += r.outcome[seat] == PlayerOutcome::kStopLoss;
  }
  const auto n = static_cast<double>(results.size());
  double sum = 0;
  for (double v : nets) sum += v;
  s.meanNet = sum / n;
  double ss = 0;
  for (double v : nets) ss += (v - s.meanNet) * (v - s.meanNet);
  s.sdNet = results.size() > 1 ? std::sqrt(ss / (n - 1)) : 0;
  for (double w : wagers) s.wagered += w;
  s.edge = s.wagered > 0 ? sum / s.wagered : 0;
  s.edgeCi95 = EdgeInterval(nets, wagers);
  std::vector<double> sorted = nets;
  std::sort(sorted.begin(), sorted.end());
  for (std::size_t i = 0; i < kBatchPercentiles.size(); ++i)
    s.percentiles[i] = Percentile(sorted, kBatchPercentiles[i]);
  s.min = sorted.front();
  s.max = sorted.back();
  s.wonShare = static_cast<double>(
                   std::count_if(nets.begin(), nets.end(), [](double net) { return net > 0; })) /
               n;
  s.brokeShare = static_cast<double>(broke) / n;
  s.stopWinShare = static_cast<double>(win) / n;
  s.stopLossShare = static_cast<double>(loss) / n;
  s.meanRolls = sumRolls / n;
  s.meanHands = sumHands / n;
  if (onlyBet > 0) s.exactEdge = FigureAdvantage(start, onlyBet).evPerDec;
  return s;
}

PairedNets ComparePlayers(const std::vector<SessionResult>& results, int seat, int other) {
  PairedNets c;
  c.sessions = static_cast<std::int64_t>(results.size());
  if (results.empty()) return c;
  // Two nets within the money limit differ by an amount a Currency holds.
  auto difference = [&](const SessionResult& r) { return (r.net[seat] - r.net[other]).ToDouble(); };
  double sum = 0;
  std::int64_t ahead = 0, level = 0;
  for (const SessionResult& r : results) {
    sum += difference(r);
    ahead += r.net[seat] > r.net[other];
    level += r.net[seat] == r.net[other];
  }
  const auto n = static_cast<double>(results.size());
  c.meanDifference = sum / n;
  double ss = 0;
  for (const SessionResult& r : results) {
    const double d = difference(r) - c.meanDifference;
    ss += d * d;
  }
  const double se = results.size() > 1 ? std::sqrt(ss / (n - 1) / n) : 0;
  c.ci95 = {c.meanDifference - kZ95 * se, c.meanDifference + kZ95 * se};
  c.aheadShare = static_cast<double>(ahead) / n;
  c.levelShare = static_cast<double>(level) / n;
  return c;
}

std::vector<int> OnlyBets(const std::vector<SessionResult>& results) {
  std::vector<int> only(kBatchSeats + 1, -1);
  for (const SessionResult& r : results)
    for (int p = 1; p <= kBatchSeats; ++p) {
      const int b = r.onlyBet[p];
      if (r.wagered[p] <= Currency{}) continue;  // no bet this session
      if (only[p] == -1)
        only[p] = b;
      else if (only[p] != b)
        only[p] = 0;
    }
  for (int& b : only) b = std::max(b, 0);
  return only;
}

std::vector<PlayerSummary> SummarizePlayers(const Game& start,
                                            const std::vector<SessionResult>& results) {
  const std::vector<int> onlyBets = OnlyBets(results);
  std::vector<PlayerSummary> out;
  for (int p = 1; p <= kBatchSeats; ++p)
    if (!start.PlayerName[static_cast<std::size_t>(p)].empty())
      out.push_back(SummarizePlayer(start, p, results, onlyBets[static_cast<std::size_t>(p)]));
  return out;
}

namespace {

// The least of 1, 2 and 5 times a power of ten that is at least `atLeast`:
// a bin of so many steps has edges that read well.
std::int64_t RoundCount(std::int64_t atLeast) {
  for (std::int64_t power = 1;; power *= 10)
    for (std::int64_t factor : {1, 2, 5})
      if (factor * power >= atLeast) return factor * power;
}

// a / b rounded down, for b above 0.
std::int64_t FloorDivide(std::int64_t a, std::int64_t b) { return a / b - (a % b < 0 ? 1 : 0); }

}  // namespace

NetHistogram BinNets(const std::vector<SessionResult>& results, int seat, int mostBins) {
  NetHistogram h;
  if (results.empty()) return h;
  mostBins = std::max(mostBins, 1);
  const auto seatNet = [seat](const SessionResult& r) {
    return r.net[static_cast<std::size_t>(seat)].raw;
  };
  std::int64_t low = seatNet(results.front()), high = low;
  for (const SessionResult& r : results) {
    low = std::min(low, seatNet(r));
    high = std::max(high, seatNet(r));
  }
  std::int64_t step = 0;
  for (const SessionResult& r : results) step = std::gcd(step, seatNet(r) - low);
  // Nets all the same: one bin of a dollar.
  if (step == 0) step = Currency::kScale;
  const std::int64_t amounts = (high - low) / step + 1;  // the nets the bins must cover
  std::int64_t steps = RoundCount((amounts + mostBins - 1) / mostBins);
  for (;; steps = RoundCount(steps + 1)) {
    const std::int64_t width = steps * step;
    // The first edge at or below the smallest net on a multiple of the
    // width, as near as the step allows.
    const std::int64_t below = low - FloorDivide(low, width) * width;
    const std::int64_t start = low - below / step * step;
    const std::int64_t bins = (high - start) / width + 1;
    if (bins > mostBins) continue;
    h.low = Currency{start};
    h.width = Currency{width};
    h.step = Currency{step};
    h.counts.assign(static_cast<std::size_t>(bins), 0);
    for (const SessionResult& r : results)
      ++h.counts[static_cast<std::size_t>((seatNet(r) - start) / width)];
    return h;
  }
}
