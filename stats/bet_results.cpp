#include "stats/bet_results.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "analysis/advantage.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/money.h"
#include "stats/number_format.h"

namespace {

using StatTable = decltype(Game::StatAction);

constexpr std::string_view kRowLabels[kResultRows + 1] = {
    "",           "Total #",     "Total $",      "High $",       "Low $",         "Average $",
    "Last $",     "Last roll #", "Last roll $", "Avg # / hour", "Avg $ / hour", "Expctd value $"};
constexpr std::string_view kColumnTitles[kResultColumns] = {"Wagers", "Wins", "Losses", "Net",
                                                            "Net %"};

constexpr double kBeyondInt64 = 0x1p63;

// The rows of the view's three sides (row 0 unused, row kResultRows the
// expected value).
enum ResultRow : int {
  kRowCount = 1,
  kRowTotal,
  kRowHigh,
  kRowLow,
  kRowAverage,
  kRowLast,
  kRowLastRollCount,
  kRowLastRollAmount,
  kRowCountPerHour,
  kRowAmountPerHour,
};
static_assert(kRowAmountPerHour + 1 == kResultRows);

// A sum of amounts in ten-thousandths as dollars, rounded as a 64-bit one is.
double Dollars(WideRaw raw) { return static_cast<double>(raw) / Currency::kScale; }

// Every number of the view: whole as "#,#", otherwise up to four decimals.
Shown Figure(double x) {
  Shown s = ShowValue(x, FormatWholeOr(x, fmt_pattern::kWhole, fmt_pattern::kFraction4));
  // Whole and within 64 bits, tested in doubles: a figure over all players
  // may lie beyond them, and a reader takes a whole figure as a 64-bit one.
  s.integer = std::fabs(x) < kBeyondInt64 && std::trunc(x) == x;
  return s;
}

// The expected result of the action W on bet b for frame index i, as a
// wide count: at a million to one the expectation of a large action is
// beyond an amount, and the view's total sums it over every bet and player.
WideRaw ExpectedOn(const Game& g, int i, int b, Currency w) {
  auto times = [](double ev, Currency amount) -> WideRaw {
    return CurFromDouble(ev * amount.ToDouble()).raw;
  };
  if (b == bet::kCome) return times(ExpectedValuePerDecision(g, bet::kPassLine), w);
  if (b == bet::kDontCome || IsDontComePoint(b))
    return times(ExpectedValuePerDecision(g, bet::kDontPass), w);
  if (IsComePoint(b)) {
    const Currency travelled = g.ComeTravelTotal(i, b - bet::kComePointFirst);
    return times(ExpectedValuePerDecision(g, bet::kPassLine), travelled) +
           times(ExpectedValuePerDecision(g, b), w - travelled);
  }
  return times(ExpectedValuePerDecision(g, b), w);
}

}  // namespace

std::string_view ResultRowLabel(int row) {
  return row >= 1 && row <= kResultRows ? kRowLabels[row] : "";
}

std::string_view ResultColumnTitle(int column) {
  return column >= 0 && column < kResultColumns ? kColumnTitles[column] : "";
}

std::string SelectedBetsLabel(int count) {
  if (count == 0) return "No bets selected";
  if (count == 1) return "1 bet selected";
  if (count == kLastRealBet) return "All bets selected";
  return std::to_string(count) + " bets selected";
}

std::vector<int> SelectedBets(const std::string& selection) {
  std::vector<int> bets;
  for (int b = 1; b <= kLastRealBet && b <= static_cast<int>(selection.size()); ++b)
    if (selection[static_cast<std::size_t>(b - 1)] == 'S') bets.push_back(b);
  return bets;
}

std::vector<int> BetsWithDecisions(const Game& game, int frame, std::int32_t players) {
  std::vector<int> bets;
  const std::vector<int> slots = SelectedSlots(game, players);
  for (int b = 1; b <= kLastRealBet; ++b)
    for (int p : slots)
      if (game.StatAction(FrameIndex(p, frame), b, kStatCount) > Currency{}) {
        bets.push_back(b);
        break;
      }
  return bets;
}

BetResultsFigures FigureBetResults(const Game& game, int frame, std::int32_t players,
                                   const std::vector<int>& bets) {
  BetResultsFigures f;
  f.frame = frame;
  f.bets = bets;
  f.selectionLabel = SelectedPlayersLabel(game, players);
  f.betsLabel = SelectedBetsLabel(static_cast<int>(bets.size()));
  const std::vector<int> slots = SelectedSlots(game, players);

  std::int64_t rolls = 0;  // several players' counts add up beyond a Long
  for (int p : slots) rolls += game.RollsAtTable(FrameIndex(p, frame));
  const double perHour = game.rules.RollsPerHour.ToDouble();
  f.hours = perHour != 0 ? rolls / perHour : 0;

  Currency nowCount, nowAmount, lastCount, lastAmount;
  WideRaw expected = 0;
  const StatTable* tables[3] = {&game.StatAction, &game.StatWins, &game.StatLosses};
  // The rows of each side summed over every selected bet and player in 128
  // bits: a total may hold up to kStatTotalLimit, and the view adds hundreds.
  std::array<std::array<WideRaw, kResultRows + 1>, 3> col{};
  const Currency rollNumber = Currency::FromWhole(rolls);
  for (int p : slots) {
    const int i = FrameIndex(p, frame);
    for (int b : bets) {
      if (!IsRealBet(b)) continue;
      if (game.Bet(p, b) > Currency{}) {
        nowCount += 1_usd;
        nowAmount += game.Bet(p, b);
      }
      if (game.BetAtRoll(p, b) > Currency{}) {
        lastCount += 1_usd;
        lastAmount += game.BetAtRoll(p, b);
      }
      expected += ExpectedOn(game, i, b, game.StatAction(i, b, kStatTotal));
      for (int k = 0; k < 3; ++k) {
        const StatTable& s = *tables[k];
        auto& c = col[static_cast<std::size_t>(k)];
        c[kRowCount] += s(i, b, kStatCount).raw;
        c[kRowTotal] += s(i, b, kStatTotal).raw;
        c[kRowHigh] = std::max<WideRaw>(c[kRowHigh], s(i, b, kStatLargest).raw);
        const std::int64_t low = s(i, b, kStatSmallest).raw;
        if (low > 0 && (c[kRowLow] == 0 || c[kRowLow] > low)) c[kRowLow] = low;
        c[kRowLast] += s(i, b, kStatAmountOfLast).raw;
        if (rolls > 0 && s(i, b, kStatRollOfLast) == rollNumber) {
          c[kRowLastRollCount] += (1_usd).raw;
          c[kRowLastRollAmount] += s(i, b, kStatAmountOfLast).raw;
        }
      }
    }
  }
  f.expected = CurFromWide(expected);  // the bound of its sign beyond an amount
  for (auto& c : col) {
    if (c[kRowCount] > 0)
      c[kRowAverage] = CurFromDouble(Dollars(c[kRowTotal]) / Dollars(c[kRowCount])).raw;
    if (f.hours > 0) {
      c[kRowCountPerHour] = CurFromDouble(Dollars(c[kRowCount]) / f.hours).raw;
      c[kRowAmountPerHour] = CurFromDouble(Dollars(c[kRowTotal]) / f.hours).raw;
    }
  }

  f.onTable = {ShowCount(nowCount.ToDouble(), fmt_pattern::kWhole), Figure(nowAmount.ToDouble()),
               ShowCount(lastCount.ToDouble(), fmt_pattern::kWhole), Figure(lastAmount.ToDouble())};
  for (int row = 1; row < kResultRows; ++row) {
    auto& out = f.rows[static_cast<std::size_t>(row)];
    for (int k = 0; k < 3; ++k)
      out[static_cast<std::size_t>(k)] = Figure(Dollars(col[static_cast<std::size_t>(k)][row]));
    const WideRaw wagers = col[0][row], net = col[1][row] - col[2][row];
    out[kNetCol] = Figure(Dollars(net));
    if (wagers > 0) {
      out[kNetPctCol] = Figure(Dollars(net) * 100 / Dollars(wagers));
      out[kNetPctCol].negative = net < 0;
    } else {
      out[kNetPctCol] = ShowValue(0, "0");
    }
  }
  auto& last = f.rows[kResultRows];
  for (int k = 0; k < 3; ++k) last[static_cast<std::size_t>(k)] = ShowNone("");
  last[kNetCol] = ShowValue(f.expected.ToDouble(), FormatNumber(f.expected, fmt_pattern::kFraction4));
  const WideRaw handle = col[0][kRowTotal];
  if (handle > 0)
    last[kNetPctCol] = Figure(f.expected.ToDouble() * 100 / Dollars(handle));
  else
    last[kNetPctCol] = ShowValue(0, "0");
  last[kNetPctCol].negative = f.expected < Currency{};
  return f;
}

std::vector<BetTrendRow> FigureBetTrends(const Game& game, int p) {
  std::vector<BetTrendRow> rows;
  if (!SeatTaken(game, p)) return rows;
  for (int b = 1; b <= kLastRealBet; ++b) {
    const Long trend = game.BetTrend(p, b, 1);
    Shown s = ShowCount(trend, " #,#;-#,#");
    rows.push_back({b, std::string(BetName(b)), s});
  }
  return rows;
}
