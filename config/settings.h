// The procedures of the table's rules: defaults, checks and conversions for
// the settings form. The fields themselves are in config/settings_state.h.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "config/settings_state.h"
#include "core/message_dialog.h"

struct Game;

// Built-in values of every table rule and option, and the default checks 1, 5,
// 25, 100, 500. The payoffs are SetDefaultPayoffs' (config/payoffs.h).
void SetDefaultSettings(Game& game);

// Captions of the choice lists, by value.
extern const std::string_view kOddsMethodCaption[kOddsMethodCount];
extern const std::string_view kBetRequirementCaption[3];
extern const std::string_view kVigRoundCaption[3];

// Comps: whether bet b (1..85) counts, its built-in default, and a change.
bool CompBetCounted(const TableSettings& rules, int bet);
bool CompBetDefault(int bet);
void SetCompBet(TableSettings& rules, int bet, bool counted);
// The row of lstCompBets: BetName & " - Yes" or " - No".
std::string CompBetRowText(const TableSettings& rules, int bet);
// NoticeFlags from the five "Notices" check boxes (bit 2^i for box i).
Long NoticeFlagsFromChecks(const bool (&checked)[5]);
// Vig rate from the percentage shown in the Vigorish panel, and back.
Currency VigRateFromPercent(Currency percent);
Currency VigPercentFromRate(Currency rate);

// The simulated roll rate box and its row of cmbRollsPerTime.
struct RollRateRow {
  std::string_view caption;
  int factor;
  long largest;
  std::string_view largestText;
};
constexpr int kRollRateRows = 6;
extern const RollRateRow kRollRateRow[kRollRateRows];
// RollsPerHour from the box's value in a row; a result of 0 becomes 0.0001.
Currency RollsPerHourFromBox(Currency value, int row);
// The box's text for RollsPerHour in a row: up to four decimals, "<.0001"
// when it would read 0.
std::string RollRateBoxText(Currency rollsPerHour, int row);

// A fault found by the configuration checks: where it is and what to say.
struct ConfigFault {
  int tab = 0;       // the frmConfigure tab to bring up
  int row = 0;       // the payoff list's row code or the check index, 0 when none
  int fieldRow = 0;  // the Field row to bring into view, 0 when none
  std::string title;
  std::string text;   // pieces joined by CR
  int style = kMsgOk | kMsgPicStop;
};
constexpr int kTabChecksDice = 0, kTabColors = 1, kTabComps = 2, kTabSound = 3, kTabMisc = 4,
              kTabBankroll = 5, kTabBets = 6, kTabPayoffs = 7, kTabProbability = 8,
              kTabAdvantage = 9;

// txtRollsPerHour as CheckConfigValues sees it.
struct RollRateBox {
  std::string text;
  int row = 0;
  bool changed = false;  // a key was pressed since the last check
};
// CheckRollRate: refuses 0 and values above the row's largest; otherwise
// stores RollsPerHour and clears the mark.
std::optional<ConfigFault> CheckRollRate(Game& game, RollRateBox& box);
// All checks of frmConfigure in order; the first fault, or none. The roll
// rate is checked (and stored) only when its box bears the mark.
std::optional<ConfigFault> FindConfigFault(Game& game, RollRateBox* rateBox);
// FindConfigFault with the notice shown (help 130); false on a fault.
bool CheckConfigValues(Game& game, RollRateBox* rateBox);
// What closing frmConfigure does to the game after the checks passed: the
// bankroll records widened, the Field's denominator, the proper units, and
// the table redrawn. (The layout of the checks, NoticeFlags from its boxes
// and the stick calls are the form's part.)
void ApplyConfigureClose(Game& game);
