// The table's rules, limits and options, with their defaults.
//
// Every rule of the house is a plain field here, read by the game at the
// moment it needs it; there is no settings object with behaviour. The
// defaults below are the built-in ones that SetDefaultSettings (config/
// settings.cpp) restores; the game file overwrites them at start-up.
// What must stay true (held by CheckConfigValues below):
// - MinPlacardBet is at least CheckValue(1); MaxPlacardBet at least MinPlacardBet.
// - MaxFireBet is not 0 while UseFireBet is on.
// - RollsPerHour is above 0.
// Booleans are bool in memory; the game file writes True as -1.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "engine/currency.h"

using Long = std::int32_t;

// Odds calculation methods (OddsCalcMethod).
enum OddsMethod : Long {
  kOddsAutoSelect = 0,   // "Auto select"
  kOddsFlatNoPush = 1,   // "X Flat - No Push"
  kOddsMinorPush = 2,    // "X Flat w/ Minor Push"
  kOddsColorPush = 3,    // "X Flat w/ Color Push"
  kOddsSingleOdds = 4,   // "X Flat - Single Odds"
  kOddsFlatSingleX = 5,  // "Flat - Single Odds X"
  kOddsMethodCount
};

// What it takes to shoot (BetRequirement).
enum BetRequirementKind : Long {
  kNoBetRequired = 0,    // "No bets required to shoot"
  kLineBetRequired = 1,  // "Line bet required to shoot"
  kAnyBetRequired = 2,   // "Any bet required to shoot"
};

// Rounding of the vig (BuyVigRound, LayVigRound).
enum VigRounding : Long {
  kVigRoundNormal = 0,  // "Rounded normally"
  kVigRoundDown = 1,    // "Rounded down"
  kVigRoundUp = 2,      // "Rounded up"
};

// Classes of notice the user wants to see (NoticeFlags).
constexpr Long kNoticeNotAllowed = 1;    // " Actions not allowed"
constexpr Long kNoticeLimits = 2;        // " Betting limits reached"
constexpr Long kNoticeCharges = 4;       // " Charges and/or change"
constexpr Long kNoticeScriptNormal = 8;  // " Auto-Bet messages normal play"
constexpr Long kNoticeScriptHyper = 16;  // " Auto-Bet messages Hyper-Drive"

// Comp base (CompBase).
enum CompBaseKind : Long {
  kCompTheoreticalVig = 0,  // " Theoretical house vig"
  kCompTotalAction = 1,     // " Total comp action"
  kCompAverageAction = 2,   // " Average comp action and time"
};

struct TableSettings {
  // Limits and odds.
  Currency MinPlacardBet = 1_usd;
  Currency MaxPlacardBet = 1000_usd;
  Currency MaxPropBetPayoff = 3000_usd;
  Currency MaxOddsBet = 2000_usd;
  Currency MaxFireBet = 5_usd;
  Currency OddsAllowed410 = 2_usd;
  Currency OddsAllowed59 = 2_usd;
  Currency OddsAllowed68 = Currency::FromRaw(25000);  // 2.5

  // Choices.
  Long OddsCalcMethod = kOddsAutoSelect;
  Long BetRequirement = kLineBetRequired;
  Long BarNumber = 12;  // 2 or 12: the come-out number on which a Don't bet pushes
  bool AllowPutBets = true;
  bool UseBig68 = true;
  bool UseMidwayBet = true;
  bool UseFireBet = true;

  // Vig.
  Currency BuyVigRate = Currency::FromRaw(500);  // 0.05
  Currency LayVigRate = Currency::FromRaw(500);
  bool BuyVigUpFront = true;  // "Charge all Buy bets"; false: winning bets only
  bool LayVigUpFront = true;
  Long BuyVigRound = kVigRoundNormal;
  Long LayVigRound = kVigRoundNormal;

  // Checks and dice.
  bool AutoArrangeChecks = true;
  bool UseCentsSymbol = true;
  Long DiceAction = 0;  // 0 Normal, 1 Stationary, 2 Stationary Ctr
  Currency RollsPerHour = 120_usd;
  Long RollsPerTimeRow = 0;  // row of cmbRollsPerTime the rate is shown in
  Long CheckStyle = 2;
  Long DiceStyle = 1;
  Long SelectedCheck = 1;  // check denomination selected for betting (1..5)

  // Comps.
  Currency CompRate = 30_usd;  // percent of the comp base
  Long CompBase = kCompTheoreticalVig;
  bool CompsUseTrueProbs = true;
  // Bit sets of the bets that count for comps: word 1 bit b-1 for b 1..31,
  // word 2 bit b-32 for b 32..62, word 3 bit b-63 for b 63 on. Index 0 unused.
  std::array<Long, 4> CompBets = {0, static_cast<Long>(0xC0FC0FFFu), static_cast<Long>(0xFFFF6FFFu),
                                  static_cast<Long>(0xFFFFFFFFu)};

  // Sound: selections of the sound sets (0 none, 1..n a file, above n random).
  Long DiceSoundSet = 0;
  Long ChipSoundSet = 0;
  Long WinSoundSet = 0;
  Long StickCallSet = 0;
  bool SoundMuted = false;
  bool AutoBetSoundsOff = false;  // chkAutoBetSounds: scripts play no sound
  Long VolumeLevel = 0xFFFF;      // wave output level 0..0xFFFF, both channels alike

  // Misc.
  bool SnapCursorToButton = true;
  bool ColorPrint = true;
  std::array<Long, 3> PrintColors = {9, 12, 13};
  Long NoticeFlags = kNoticeNotAllowed | kNoticeLimits | kNoticeCharges | kNoticeScriptNormal;

  // The tab frmConfigure opens on.
  Long ConfigureTab = 0;
};

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
  int style = 0x201;  // OK with picStop
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
