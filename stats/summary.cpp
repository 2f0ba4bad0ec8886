#include "stats/summary.h"

#include <algorithm>
#include <cmath>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"
#include "stats/bankroll_graph.h"
#include "analysis/advantage.h"
#include "stats/number_format.h"

namespace {

using StatTable = decltype(Game::StatAction);

Shown Money(Currency a, std::string_view other) {
  return ShowValue(a.ToDouble(), FormatWholeOr(a.ToDouble(), fmt_pattern::kWhole, other));
}

bool CompRatedBet(const Game& g, int b) {
  const auto& m = g.rules.CompBets;
  return CompRated(b, static_cast<std::uint32_t>(m[1]), static_cast<std::uint32_t>(m[2]),
                   static_cast<std::uint32_t>(m[3]));
}

}  // namespace

void FigureBetTotals(Game& g, int i, int t, int from, int to, bool clear) {
  const int index = FrameIndex(i, t);
  StatTable* tables[3] = {&g.StatAction, &g.StatWins, &g.StatLosses};
  for (StatTable* s : tables)
    for (int k = kStatCount; k <= kStatAmountOfLast; ++k) {
      // In 128 bits and held to a total's limit: a total may itself hold
      // up to that limit.
      WideRaw sum = clear ? 0 : (*s)(index, 0, k).raw;
      for (int b = std::max(from, 1); b <= std::min(to, kLastRealBet); ++b)
        sum += (*s)(index, b, k).raw;
      (*s)(index, 0, k) = HeldWithin(CurFromWide(sum), kStatTotalLimit);
    }
}

void FigureComps(Game& g, CompFigures& c, int i) {
  const bool skewed = g.dice.ProbabilityDiceOn;
  if (g.rules.CompsUseTrueProbs) g.dice.ProbabilityDiceOn = false;
  double house = 0;
  for (int b = 1; b <= kLastRealBet; ++b) {
    const Currency wagered = g.StatAction(i, b, kStatTotal);
    if (wagered <= Currency{} || !CompRatedBet(g, b)) continue;
    c.action = CurFromWide(static_cast<WideRaw>(c.action.raw) + wagered.raw);  // stops at 64 bits' end
    c.decisions += CurInt(g.StatAction(i, b, kStatCount)).raw / Currency::kScale;
    house += wagered.ToDouble() * ExpectedValuePerDecision(g, b);
  }
  c.vig -= house;
  c.rolls += g.RollsAtTable(i);
  const double perHour = g.rules.RollsPerHour.ToDouble();
  c.actionTime = c.decisions > 0 && perHour != 0
                     ? CurFromDouble(c.rolls / perHour * c.action.ToDouble() / c.decisions)
                     : Currency{};
  const double rate = g.rules.CompRate.ToDouble() * 0.01;
  switch (g.rules.CompBase) {
    case kCompTotalAction: c.value = c.action.ToDouble() * rate; break;
    case kCompAverageAction: c.value = c.actionTime.ToDouble() * rate; break;
    default: c.value = c.vig * rate; break;
  }
  g.dice.ProbabilityDiceOn = skewed;
}

SummaryFigures FigureSummary(Game& g, int frame, std::int32_t players) {
  SummaryFigures f;
  f.frame = std::clamp(frame, 0, kFrameCount - 1);
  const int base = FrameIndex(0, f.frame);
  f.selectionLabel = SelectedPlayersLabel(g, players);
  const std::vector<int> slots = SelectedSlots(g, players);

  f.totalRolls = ShowCount(g.RollsAtTable(base), fmt_pattern::kWhole);
  std::int64_t hands = 0, shooting = 0;
  if (slots.empty()) {
    hands = g.HandsTally(base);
    shooting = g.RollTally(base, kEventRolls);
  }
  for (int p : slots) {
    hands += g.HandsTally(base + p);
    shooting += g.RollTally(base + p, kEventRolls);
  }
  f.totalHands = ShowCount(hands, fmt_pattern::kWhole);
  f.rollsShooting = ShowCount(shooting, fmt_pattern::kWhole);
  const double perHour = g.rules.RollsPerHour.ToDouble();
  f.rollsPerHour = ShowValue(perHour, FormatWholeOr(perHour, fmt_pattern::kWhole, "#,0.0###;-#,#;0"));
  const double hours = perHour != 0 ? g.RollsAtTable(base) / perHour : 0;
  const double hoursShooting = perHour != 0 ? shooting / perHour : 0;
  f.simHours = ShowValue(hours, FormatSimHours(hours));
  f.simHoursShooting = ShowValue(hoursShooting, FormatSimHours(hoursShooting));

  // The bankroll block: the players' own figures, the same in every frame.
  Currency high, low, sum, average, currentMax, currentMin;
  bool first = true;
  for (int p : slots) {
    const Currency now = g.Bet(p, bet::kBankroll);
    const Currency whole = CurFromDouble(std::nearbyint(now.ToDouble()));
    if (first || g.BankrollHigh(p) > high) high = g.BankrollHigh(p);
    if (first || g.BankrollLow(p) < low) low = g.BankrollLow(p);
    if (first || whole > currentMax) currentMax = whole;
    if (first || whole < currentMin) currentMin = whole;
    first = false;
    sum += now;
    average += CurFromDouble(g.BankrollSum(p).ToDouble() / (g.RollsAtTable(FrameIndex(p, kFrameCurrentSession)) + 1.0));
  }
  const char* cents = "#,0.##;-#,0.##;0";
  const int n = static_cast<int>(slots.size());
  if (n < 2) {
    f.bankrollCaption = f.frame == kFrameLastHand || f.frame == kFrameLastSession
                            ? "Ending bankroll"
                            : "Current bankroll";
    f.bankrollCurrent = Money(sum, cents);
    f.bankrollHigh = Money(high, cents);
    f.bankrollLow = Money(low, cents);
    f.bankrollAverage = Money(average, cents);
  } else {
    f.bankrollCaption = "Sum bankrolls";
    f.bankrollCurrent = Money(sum, cents);
    f.bankrollAverage = Money(CurFromDouble(sum.ToDouble() / n), cents);
    f.bankrollHigh = Money(currentMax, cents);
    f.bankrollLow = Money(currentMin, cents);
  }

  CompFigures comps;
  for (int p : slots) FigureComps(g, comps, base + p);
  const double perDecision = comps.decisions > 0 ? comps.action.ToDouble() / comps.decisions : 0;
  const char* two = "#,0.00;-#,0.00;0";
  f.compLabels = {"Total comp action $", "Total # comp bets", "Avg comp action $",
                  "Avg action x time $", "Theoretical vig $", "Comp rate %", "Total comp value $"};
  const int starred = g.rules.CompBase == kCompTotalAction    ? 0
                      : g.rules.CompBase == kCompAverageAction ? 3
                                                               : 4;
  f.compLabels[static_cast<std::size_t>(starred)].insert(0, "* ");
  f.comps = {Money(comps.action, two),
             ShowCount(comps.decisions, fmt_pattern::kWhole),
             ShowValue(perDecision, FormatWholeOr(perDecision, fmt_pattern::kWhole, "#,0.0#;-#,0.0#;0")),
             Money(comps.actionTime, two),
             ShowValue(comps.vig, FormatWholeOr(comps.vig, fmt_pattern::kWhole, two)),
             Money(g.rules.CompRate, two),
             ShowValue(comps.value, FormatWholeOr(comps.value, fmt_pattern::kWhole, two))};

  // Decisions: the totals of bets 1..85 for each selected player.
  // [Total #, Total $][made, won, lost], in 128 bits: the players' totals
  // may each hold up to a total's limit.
  std::array<std::array<WideRaw, 3>, 2> totals{};
  constexpr StatColumn kTotalsRows[2] = {kStatCount, kStatTotal};
  for (int p : slots) {
    FigureBetTotals(g, p, f.frame, 1, kLastRealBet, true);
    const int i = base + p;
    const StatTable* tables[3] = {&g.StatAction, &g.StatWins, &g.StatLosses};
    for (int k = 0; k < 3; ++k)
      for (int row = 0; row < 2; ++row)
        totals[static_cast<std::size_t>(row)][static_cast<std::size_t>(k)] +=
            (*tables[k])(i, 0, kTotalsRows[row]).raw;
  }
  for (int row = 0; row < 2; ++row) {
    const auto& t = totals[static_cast<std::size_t>(row)];
    auto& out = f.decisions[static_cast<std::size_t>(row)];
    for (int k = 0; k < 3; ++k)
      out[static_cast<std::size_t>(k)] =
          Money(CurFromWide(t[static_cast<std::size_t>(k)]), fmt_pattern::kFraction4);
    const WideRaw net = t[1] - t[2];
    out[3] = Money(CurFromWide(net), fmt_pattern::kFraction4);
    const double pct = t[0] > 0 ? static_cast<double>(net) * 100 / static_cast<double>(t[0]) : 0;
    out[4] = ShowValue(pct, FormatWholeOr(pct, fmt_pattern::kWhole, fmt_pattern::kFraction4));
  }
  return f;
}

std::string HandRowLabel(int row) {
  if (row >= 2 && row <= 12) return std::to_string(row);
  if (row == 13) return "Total";
  if (row == 14) return "Naturals";
  if (row == 15) return "Points";
  return {};
}

HandsFigures FigureHands(const Game& g, int frame, std::int32_t players, bool percent) {
  HandsFigures f;
  f.frame = std::clamp(frame, 0, kFrameCount - 1);
  f.percent = percent;
  const int base = FrameIndex(0, f.frame);
  f.selectionLabel = SelectedPlayersLabel(g, players);
  if (f.frame <= kFrameLastHand) f.explanation = HandCreditExplanation(g, f.frame);
  std::vector<int> indices;
  for (int p : SelectedSlots(g, players)) indices.push_back(base + p);
  if (indices.empty()) indices.push_back(base);

  std::array<std::array<std::int64_t, 3>, kHandRows + 1> v{};
  for (int n = 2; n <= 12; ++n)
    for (int k = kTotalsComeOut; k <= kTotalsMiss; ++k) {
      std::int64_t sum = 0;
      for (int i : indices) sum += g.TotalsTally(i, n, k);
      const auto column = static_cast<std::size_t>(k - kTotalsComeOut);
      v[static_cast<std::size_t>(n)][column] = sum;
      v[13][column] += sum;
      const bool natural = n == 2 || n == 3 || n == 7 || n == 11 || n == 12;
      v[natural ? 14u : 15u][column] += sum;
    }
  const std::int64_t comeouts = v[13][0];
  for (int row = 2; row <= kHandRows; ++row)
    for (int k = 0; k < 3; ++k) {
      const bool shown = row > 12 || k == 0 || (k == 1 && row >= 4 && row <= 11) ||
                         (k == 2 && row != 7 && row != 11);
      Shown& cell = f.cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(k)];
      const std::int64_t value = v[static_cast<std::size_t>(row)][static_cast<std::size_t>(k)];
      if (!shown) {
        cell = ShowNone("");
      } else if (!percent) {
        cell = ShowCount(value, fmt_pattern::kWhole);
      } else if (comeouts == 0) {
        cell = ShowValue(0, "0");
      } else {
        const double pct = value * 100.0 / comeouts;
        cell = ShowValue(pct, FormatNumber(pct, row == 13 && k == 0 ? "#,#.00" : fmt_pattern::kPercent2));
      }
    }

  std::int64_t hands = 0, rolls = 0;
  Long most[4] = {};
  for (int i : indices) {
    hands += g.HandsTally(i);
    rolls += g.RollTally(i, kEventRolls);
    most[0] = std::max(most[0], g.MostRollsHand(i));
    most[1] = std::max(most[1], g.MostComeoutHand(i));
    most[2] = std::max(most[2], g.MostPassesHand(i));
    most[3] = std::max(most[3], g.MostMissesHand(i));
  }
  f.handTotal = ShowCount(f.frame > 1 ? hands : rolls, fmt_pattern::kWhole);
  f.totalRolls = ShowCount(rolls, fmt_pattern::kWhole);
  f.mostRolls = ShowCount(most[0], fmt_pattern::kWhole);
  f.mostComeouts = ShowCount(most[1], fmt_pattern::kWhole);
  f.mostPasses = ShowCount(most[2], fmt_pattern::kWhole);
  f.mostMisses = ShowCount(most[3], fmt_pattern::kWhole);
  auto average = [&](double total) {
    const double a = hands > 0 ? total / hands : 0;
    return ShowValue(a, FormatWholeOr(a, fmt_pattern::kWhole, "#,0.##;-#,0.##;0"));
  };
  f.avgRolls = average(rolls);
  f.avgComeouts = average(comeouts);
  f.avgPasses = average(v[13][1]);
  f.avgMisses = average(v[13][2]);
  return f;
}
