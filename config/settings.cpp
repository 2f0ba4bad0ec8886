#include "config/settings.h"

#include "config/payoffs.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/help_topics.h"
#include "core/message_dialog.h"
#include "core/money.h"
#include "core/payoff_math.h"
#include "core/platform.h"

const std::string_view kOddsMethodCaption[kOddsMethodCount] = {
    "Auto select",          "X Flat - No Push",     "X Flat w/ Minor Push",
    "X Flat w/ Color Push", "X Flat - Single Odds", "Flat - Single Odds X"};
const std::string_view kBetRequirementCaption[3] = {
    "No bets required to shoot", "Line bet required to shoot", "Any bet required to shoot"};
const std::string_view kVigRoundCaption[3] = {"Rounded normally", "Rounded down", "Rounded up"};

const RollRateRow kRollRateRow[kRollRateRows] = {
    {"Rolls / hr", 1, 36'000'000, " rate is 36,000,000."},
    {"Rolls / min", 60, 600'000, " rate is 600,000."},
    {"Rolls / sec", 3600, 10'000, " rate is 10,000."},
    {"Hrs / roll", 1, 10'000, " rate is 10,000."},
    {"Mins / roll", 60, 600'000, " rate is 600,000."},
    {"Secs / roll", 3600, 36'000'000, " rate is 36,000,000."},
};

void SetDefaultSettings(Game& game) {
  game.rules = TableSettings{};
  const long checks[5] = {1, 5, 25, 100, 500};
  for (int i = 1; i <= 5; ++i) game.CheckValue(i) = Currency::FromWhole(checks[i - 1]);
}

namespace {

// Word and bit of bet b in CompBets.
void CompBit(int bet, int& word, int& bit) {
  if (bet <= 31)
    word = 1, bit = bet - 1;
  else if (bet <= 62)
    word = 2, bit = bet - 32;
  else
    word = 3, bit = bet - 63;
}

}  // namespace

bool CompBetCounted(const TableSettings& rules, int bet) {
  if (!IsRealBet(bet)) return false;
  int word, bit;
  CompBit(bet, word, bit);
  return (static_cast<std::uint32_t>(rules.CompBets[word]) >> bit) & 1u;
}

bool CompBetDefault(int bet) {
  return IsRealBet(bet) && !IsDontComeOdds(bet) && !IsComeOdds(bet) && !IsLineOdds(bet);
}

void SetCompBet(TableSettings& rules, int bet, bool counted) {
  if (!IsRealBet(bet)) return;
  int word, bit;
  CompBit(bet, word, bit);
  std::uint32_t w = static_cast<std::uint32_t>(rules.CompBets[word]);
  w = counted ? (w | (1u << bit)) : (w & ~(1u << bit));
  rules.CompBets[word] = static_cast<Long>(w);
}

std::string CompBetRowText(const TableSettings& rules, int bet) {
  std::string s(BetName(bet));
  s += CompBetCounted(rules, bet) ? " - Yes" : " - No";
  return s;
}

Long NoticeFlagsFromChecks(const bool (&checked)[5]) {
  Long flags = 0;
  for (int i = 0; i < 5; ++i)
    if (checked[i]) flags |= 1 << i;
  return flags;
}

Currency VigRateFromPercent(Currency percent) { return CurFromDouble(percent.ToDouble() / 100.0); }

Currency VigPercentFromRate(Currency rate) { return CurMulInt(rate, 100); }

Currency RollsPerHourFromBox(Currency value, int row) {
  if (row < 0 || row >= kRollRateRows) row = 0;
  const int f = kRollRateRow[row].factor;
  Currency rph = row < 3 ? CurMulInt(value, f)
                         : (value.raw > 0 ? CurFromDouble(f / value.ToDouble()) : Currency{});
  if (rph.raw <= 0) rph = Currency::FromRaw(1);
  return rph;
}

std::string RollRateBoxText(Currency rollsPerHour, int row) {
  if (row < 0 || row >= kRollRateRows) row = 0;
  const int f = kRollRateRow[row].factor;
  const double shown = row < 3 ? rollsPerHour.ToDouble() / f
                               : (rollsPerHour.raw > 0 ? f / rollsPerHour.ToDouble() : 0.0);
  const Currency v = CurFromDouble(shown);
  if (v.raw <= 0) return "<.0001";
  std::string s = std::to_string(v.raw / Currency::kScale);
  std::int64_t frac = v.raw % Currency::kScale;
  if (frac != 0) {
    char d[5] = {0};
    for (int i = 3; i >= 0; --i, frac /= 10) d[i] = static_cast<char>('0' + frac % 10);
    int keep = 4;
    while (d[keep - 1] == '0') --keep;
    s += '.';
    s.append(d, static_cast<std::size_t>(keep));
  }
  return s;
}

std::optional<ConfigFault> CheckRollRate(Game& game, RollRateBox& box) {
  const int row = (box.row >= 0 && box.row < kRollRateRows) ? box.row : 0;
  const Currency value = ParseAmount(box.text);
  const int style = kMsgOk | kMsgHelp | kMsgPicStop;
  if (value.raw <= 0)
    return ConfigFault{kTabChecksDice,
                       0,
                       0,
                       "Sim Roll Rate Out Of Limits",
                       "The simulated roll rate must be greater than zero.",
                       style};
  if (value > Currency::FromWhole(kRollRateRow[row].largest))
    return ConfigFault{kTabChecksDice,
                       0,
                       0,
                       "Sim Roll Rate Out Of Limits",
                       std::string("The maximum simulated ") +
                           std::string(kRollRateRow[row].caption) +
                           std::string(kRollRateRow[row].largestText),
                       style};
  game.rules.RollsPerHour = RollsPerHourFromBox(value, row);
  game.rules.RollsPerTimeRow = row;
  box.changed = false;
  return std::nullopt;
}

std::optional<ConfigFault> FindConfigFault(Game& game, RollRateBox* rateBox) {
  const Currency smallest = game.CheckValue(1);
  for (int i = 1; i <= 5; ++i) {
    const Currency c = game.CheckValue(i);
    if (c.raw <= 0)
      return ConfigFault{kTabChecksDice, i, 0, "Check Values",
                         "Check values must be greater than zero."};
    if (i > 1 && c <= game.CheckValue(i - 1))
      return ConfigFault{kTabChecksDice, i, 0, "Check Values",
                         "Checks must be listed in ascending order with the "
                         "smallest valued check in the leftmost position."};
    if (c.raw % smallest.raw != 0)
      return ConfigFault{kTabChecksDice, i, 0, "Check Values",
                         "All checks must be wholly divisible by the smallest check."};
  }
  const TableSettings& r = game.rules;
  if (r.MinPlacardBet < smallest)
    return ConfigFault{kTabBets, 0, 0, "Configuration Limits",
                       "The minimum bet cannot be less than the smallest check denomination of " +
                           FormatMoney(smallest)};
  if (r.MaxPlacardBet < r.MinPlacardBet)
    return ConfigFault{kTabBets, 0, 0, "Configuration Limits",
                       "The maximum bet must be greater than or equal to the minimum bet."};
  if (rateBox != nullptr && rateBox->changed)
    if (auto fault = CheckRollRate(game, *rateBox)) return fault;
  return CheckPayoffs(game);
}

bool CheckConfigValues(Game& game, RollRateBox* rateBox) {
  const auto fault = FindConfigFault(game, rateBox);
  if (!fault) return true;
  ShowNotice(game, fault->text, fault->title, kHelpLimits, fault->style);
  return false;
}

void ApplyConfigureClose(Game& game) {
  // Money moved at the ATM while the form was open is caught in the records.
  const bool anyRoll = game.RollTally(kTableSession, kEventRolls) != 0;
  for (int p = 1; p <= 8; ++p) {
    const Currency bankroll = game.Bet(p, bet::kBankroll);
    if (!anyRoll) {
      game.BankrollHigh(p) = bankroll;
      game.BankrollLow(p) = bankroll;
    } else {
      if (bankroll > game.BankrollHigh(p)) game.BankrollHigh(p) = bankroll;
      if (bankroll < game.BankrollLow(p)) game.BankrollLow(p) = bankroll;
    }
  }
  game.PayoffTbl(3, bet::kField) = FieldDenominator(game);
  FigureProperUnits(game);
  if (game.platform != nullptr) game.platform->RequestRedraw(Redraw::Table);
}
