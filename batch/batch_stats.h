// The figures of a batch, per player: the spread of the session nets, how
// sessions ended, and the measured edge with its 95% confidence interval.
//
// What must stay true: the figures depend only on the session results and
// not on their order, so a batch played on any number of threads or ranks
// reports the same; percentiles interpolate linearly between the order
// statistics (rank q/100 * (n - 1)).
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "batch/batch.h"

struct Game;

constexpr std::array<int, 7> kBatchPercentiles = {1, 5, 25, 50, 75, 95, 99};
constexpr double kZ95 = 1.959963984540054;  // two-sided 95% normal quantile

struct PlayerSummary {
  std::string name;
  int seat = 0;
  std::int64_t sessions = 0;
  double meanNet = 0, sdNet = 0;
  std::array<double, kBatchPercentiles.size()> percentiles{};
  double min = 0, max = 0;
  double wonShare = 0;  // sessions that ended with the player ahead (a net above 0)
  double brokeShare = 0, stopWinShare = 0, stopLossShare = 0;
  double meanRolls = 0, meanHands = 0;
  double wagered = 0;
  double edge = 0;  // net / wagered over all sessions
  std::array<double, 2> edgeCi95{};
  std::optional<double> exactEdge;  // where the player made one kind of bet
};

// The q-th percentile (0..100) of sorted values, linearly interpolated.
double Percentile(const std::vector<double>& sorted, double q);

// The ratio estimate net/wagered and its 95% interval, from per-session
// nets and wagers (the delta method over sessions).
std::array<double, 2> EdgeInterval(const std::vector<double>& nets,
                                   const std::vector<double>& wagers);

// The summary of the player at `seat` of the starting game. `onlyBet` is the
// one bet id the player made in every session (0 for none or several):
// its exact edge then comes from the advantage analysis of `start`.
PlayerSummary SummarizePlayer(const Game& start, int seat,
                              const std::vector<SessionResult>& results, int onlyBet);
// The one bet id each seat made in every session that saw a bet (index
// 1..8); 0 where it made none or several.
std::vector<int> OnlyBets(const std::vector<SessionResult>& results);
// The summary of every seated player of the starting game, in seat order.
std::vector<PlayerSummary> SummarizePlayers(const Game& start,
                                            const std::vector<SessionResult>& results);

// Two players of one batch side by side. They faced the same dice in every
// session, so the difference of their nets spreads far less than either net
// where their bets share the rolls: a real difference between two
// strategies shows after fewer sessions than their own intervals suggest.
struct PairedNets {
  std::int64_t sessions = 0;
  double meanDifference = 0;     // the player's net less the other's, a session
  std::array<double, 2> ci95{};  // of the mean difference
  double aheadShare = 0;         // sessions the player ended above the other
  double levelShare = 0;         // sessions the two ended level
};
// The session nets of the player at `seat` against those at `other`.
PairedNets ComparePlayers(const std::vector<SessionResult>& results, int seat, int other);

constexpr int kMostHistogramBins = 40;

// A player's session nets in bins of equal width: bin i holds the nets from
// low + i x width up to, not including, the next edge. The width is 1, 2 or
// 5 times a power of ten of the step the nets move by (their greatest
// common divisor above the smallest), so every bin spans as many of the
// nets the bets allow and none looks fuller for holding more of them; the
// first edge is at or below the smallest net, on a multiple of the width
// where the step allows, so that the edges read well.
struct NetHistogram {
  Currency low;
  Currency width;
  Currency step;  // the nets move by: a bin's last net is its edge + width - step
  std::vector<std::int64_t> counts;  // empty when there are no sessions
};
// The histogram of the nets of `seat`, in at most `mostBins` bins (at least 1).
NetHistogram BinNets(const std::vector<SessionResult>& results, int seat,
                     int mostBins = kMostHistogramBins);
