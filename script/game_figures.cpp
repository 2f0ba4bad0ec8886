#include "script/game_figures.h"

#include <algorithm>

#include "core/game.h"
#include "analysis/advantage.h"

namespace {

constexpr int kHistoryColumns = 2 * kGraphColumns;  // two pages, 1..1050
constexpr int kFullPageRolls = kGraphColumns + 1;   // a session of this many rolls has wrapped

bool CompBet(const Game& g, int b) {
  // Word 1 holds bets 1..31, word 2 bets 32..62, word 3 bets 63 on.
  const int word = b <= 31 ? 1 : b <= 62 ? 2 : 3;
  const int bit = b - (word == 1 ? 1 : word == 2 ? 32 : 63);
  return (static_cast<std::uint32_t>(g.rules.CompBets[static_cast<std::size_t>(word)]) >> bit) & 1u;
}

}  // namespace

double MovingBankrollAverage(const Game& g, int p, int column, double span) {
  if (p < 1 || p > 8) return 0;
  if (span > kGraphColumns) span = kGraphColumns;
  if (span < 1) {
    const double n = g.RollsAtTable(FrameIndex(p, kFrameCurrentSession));
    const double sum = g.BankrollSum(p).ToDouble();
    return n == 0 ? sum : sum / (n + 1);
  }
  const bool wrapped = g.RollTally(kTableSession, kEventRolls) >= kFullPageRolls;
  int index = column;
  if (index <= 0) {
    if (!wrapped) return 0;
    index = kHistoryColumns;
  }
  index = std::min(index, kHistoryColumns);
  const int wanted = static_cast<int>(span);
  double sum = 0;
  int read = 0;
  while (read < wanted) {
    sum += g.GraphBankroll(p, index).ToDouble();
    ++read;
    if (--index < 1) {
      if (!wrapped) break;
      index = kHistoryColumns;
    }
  }
  return read == 0 ? 0 : sum / read;
}

double FigureComps(Game& g, int i) {
  // The comps are figured with true dice when the table says so.
  const bool skewed = g.dice.ProbabilityDiceOn;
  if (g.rules.CompsUseTrueProbs) g.dice.ProbabilityDiceOn = false;
  double action = 0, decisions = 0, vig = 0;
  for (int b = 1; b <= kLastRealBet; ++b) {
    const double wagered = g.StatAction(i, b, kStatTotal).ToDouble();
    if (wagered <= 0 || !CompBet(g, b)) continue;
    action += wagered;
    decisions += g.StatAction(i, b, kStatCount).ToDouble();
    vig -= wagered * ExpectedValuePerDecision(g, b);
  }
  g.dice.ProbabilityDiceOn = skewed;
  const double rolls = g.RollsAtTable(i);
  const double rph = g.rules.RollsPerHour.ToDouble();
  const double actionTime = decisions > 0 && rph > 0 ? (rolls / rph) * action / decisions : 0;
  const double rate = g.rules.CompRate.ToDouble() * 0.01;
  switch (g.rules.CompBase) {
    case kCompTotalAction:
      return action * rate;
    case kCompAverageAction:
      return actionTime * rate;
    default:
      return vig * rate;
  }
}
