#include "stats/roll_totals.h"

#include <algorithm>
#include <cmath>

#include "core/game.h"
#include "dice/probability.h"
#include "stats/number_format.h"

namespace {

constexpr int kSessionFrame = 2, kAllSessionsFrame = 4;

// The graph's top: below 8 up to a multiple of 4, from 8 up to a multiple of 5.
double GraphTop(double largest) {
  const double step = largest < 8 ? 4 : 5;
  return std::ceil(largest / step) * step;
}

}  // namespace

std::optional<SkewedDice> GameSkewedDice(const Game& game) {
  if (!game.dice.ProbabilityDiceOn) return std::nullopt;
  // The probability table's values (row k = 1), read by pair, total and face.
  constexpr int kValues = 1;
  const auto& t = game.probability.ProbabilityTable;
  SkewedDice d;
  for (int die1 = 1; die1 <= 6; ++die1)
    for (int die2 = 1; die2 <= 6; ++die2) {
      const ProbEntry cell = CellOfDice(die1, die2);
      d.pair[static_cast<std::size_t>(6 * (die1 - 1) + die2 - 1)] = t(kValues, cell.a, cell.b);
    }
  for (int b = 1; b <= kLastTotalColumn; ++b)
    d.total[static_cast<std::size_t>(b - 1)] = t(kValues, kTotalRow, b);
  for (int a = kFirstCellRow; a <= kLastCellRow; ++a) {
    d.face1[static_cast<std::size_t>(a - kFirstCellRow)] = t(kValues, a, kFirstDieColumn);
    d.face2[static_cast<std::size_t>(a - kFirstCellRow)] = t(kValues, a, kSecondDieColumn);
  }
  return d;
}

RollTotalsFigures FigureRollTotals(const Game& game, int kind, int frame, std::int32_t players,
                                   bool vsSkewed) {
  RollTotalsFigures f;
  f.kind = std::clamp(kind, 0, kRollTotalsKinds - 1);
  f.frame = std::clamp(frame, 0, kFrameCount - 1);
  f.selectionLabel = SelectedPlayersLabel(game, players);
  const std::optional<SkewedDice> dice = vsSkewed ? GameSkewedDice(game) : std::nullopt;
  f.skewed = dice.has_value();

  std::vector<int> indices;
  for (int p : SelectedSlots(game, players)) indices.push_back(FrameIndex(p, f.frame));
  if (indices.empty()) indices.push_back(FrameIndex(0, f.frame));
  // Several players' counts add up beyond a Long.
  auto sum = [&](int c) {
    std::int64_t n = 0;
    for (int i : indices) n += game.RollTally(i, c);
    return n;
  };
  const std::int64_t total = sum(0);
  f.totalRolls = ShowCount(total, fmt_pattern::kWhole);

  double largest = 0;
  for (int c : CategoriesOfKind(f.kind)) {
    RollTotalsRow row;
    row.category = c;
    row.text = CategoryText(c);
    const std::int64_t count = sum(c);
    const double actual = total > 0 ? count * 100.0 / total : 0;
    const double probable = ProbablePercent(c, dice ? &*dice : nullptr);
    row.probablePct = ShowValue(probable, FormatNumber(probable, fmt_pattern::kPercent2));
    row.actualPct = ShowValue(actual, FormatNumber(actual, fmt_pattern::kPercent2));
    row.count = ShowCount(count, fmt_pattern::kWhole);
    if (f.frame == kSessionFrame || f.frame == kAllSessionsFrame)
      row.rollsSince = ShowCount(game.RollsSince(c), fmt_pattern::kWhole);
    else
      row.rollsSince = ShowNone();
    largest = std::max({largest, actual, probable});
    f.rows.push_back(std::move(row));
  }
  f.graphTop = GraphTop(largest);
  for (int k = 0; k < 4; ++k) f.axisMarks[static_cast<std::size_t>(k)] = f.graphTop * (k + 1) / 4;
  for (RollTotalsRow& row : f.rows) {
    if (f.graphTop <= 0) break;
    row.probableBar = row.probablePct.value * kBarLength / f.graphTop;
    row.actualBar = row.actualPct.value * kBarLength / f.graphTop;
  }
  f.explanation = HandCreditExplanation(game, f.frame);
  return f;
}

RollFreqFigures FigureRollFreqs(const Game& game, int c, bool skewed) {
  RollFreqFigures f;
  f.category = std::clamp(c, kFirstCategory, kLastCategory);
  c = f.category;
  f.text = CategoryText(c);
  const Long sessionRolls = game.RollTally(kTableSession, kEventRolls);
  const Long count = game.RollTally(kTableSession, c);
  f.sessionRolls = ShowCount(sessionRolls, fmt_pattern::kWhole);
  f.selectionRolls = ShowCount(count, fmt_pattern::kWhole);
  const double actual = sessionRolls > 0 ? count * 100.0 / sessionRolls : 0;
  f.actualPct = ShowValue(actual, FormatNumber(actual, fmt_pattern::kStandard));
  f.rollsSince = ShowCount(game.RollsSince(c), fmt_pattern::kWhole);

  // The long gaps (kLongGap and more) are summed in their own column and
  // counted in kLongGap's.
  double rolls = game.GapTally(c, kLongGapRolls);
  double gaps = 0;
  for (int g = 1; g <= kLongGap; ++g) {
    const Long n = game.GapTally(c, g);
    if (g < kLongGap) rolls += static_cast<double>(g) * n;
    gaps += n;
    if (n != 0) f.gaps.push_back({g, g == kLongGap ? "200+" : std::to_string(g), n});
  }
  const double average = gaps > 0 ? rolls / gaps : 0;
  f.average = ShowValue(average, FormatNumber(average, fmt_pattern::kStandard));

  const std::optional<SkewedDice> dice = skewed ? GameSkewedDice(game) : std::nullopt;
  const double probable = ProbablePercent(c, dice ? &*dice : nullptr);
  f.probablePct = ShowValue(probable, FormatNumber(probable, fmt_pattern::kStandard));
  f.probableCaption = dice ? "Skewed probable %:" : "True probable %:";
  return f;
}
