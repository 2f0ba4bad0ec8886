// The table's rules, limits and options, with their defaults: the data.
// The procedures that check and change them are in config/settings.h.
//
// Every rule of the house is a plain field here, read by the game at the
// moment it needs it; there is no settings object with behaviour. The
// defaults below are the built-in ones that SetDefaultSettings (config/
// settings.cpp) restores; the game file overwrites them at start-up.
// What must stay true (held by CheckConfigValues, config/settings.h):
// - MinPlacardBet is at least CheckValue(1); MaxPlacardBet at least MinPlacardBet.
// - MaxFireBet is not 0 while UseFireBet is on.
// - RollsPerHour is above 0.
// Booleans are bool in memory; the game file writes True as -1.
#pragma once

#include "core/frames.h"

#include <array>
#include <cstdint>

#include "core/currency.h"


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

  friend bool operator==(const TableSettings&, const TableSettings&) = default;
};
