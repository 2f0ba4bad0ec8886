// Each player's standing Auto-Play rules and the settling memory (press unit,
// last buttons, adjustment rows, the settle dialog being filled).
//
// Every rule is plain data per slot 1..8 (slot 0 unused but for the table's
// working defaults, which live in Game::BetWorkingDefault). The defaults of a
// new player are the member initialisers below; SetAutoPlayDefaults
// (automation/autoplay.h) gives them to a slot again.
//
// What must stay true:
// - HandleWinningBets and HandleLosingBets are 0..7; 0 is " Manual", which
//   acts as rule 1 whenever no dialog may be shown (Hyper-Drive).
// - AdjustOperator is 0..3 ("+", "-", "x", "/"); AdjustUnits 0 "$", 1 "%",
//   2..6 a proper unit counted in check 1..5 (settle dialog rows only).
// - Slots 5..8 of the adjustment tables belong to the settle dialog, 9..12
//   to the Auto-Play options (9/10 winning/losing " Same Bet:", 11/12
//   winning/losing " Bet:").
#pragma once

#include <cstdint>

#include "core/currency.h"
#include "core/settle_dialog.h"
#include "core/tables.h"

// Rules for a bet that won (HandleWinningBets).
enum WinRule : std::int32_t {
  kWinManual = 0,       // " Manual"
  kWinTakeDown = 1,     // " Take Bet and Winnings"
  kWinSameBet = 2,      // " Same Bet/Take Winnings"
  kWinPressUnit = 3,    // " Press 1 Unit"
  kWinPressDouble = 4,  // " Press Double"
  kWinParlay = 5,       // " Parlay"
  kWinAdjust = 6,       // " Same Bet:" with operator, amount, units
  kWinSetAmount = 7,    // " Bet:" with amount, units
};

// Rules for a bet that lost (HandleLosingBets).
enum LoseRule : std::int32_t {
  kLoseManual = 0,       // " Manual"
  kLoseTakeDown = 1,     // " No Bet/Take Remainder (if any)"
  kLoseSameBet = 2,      // " Same Bet"
  kLoseRemainder = 3,    // " Bet Remainder (if any)"
  kLosePressUnit = 4,    // " Same Bet Plus 1 Unit"
  kLosePressDouble = 5,  // " Double Bet:"
  kLoseAdjust = 6,       // " Same Bet:" with operator, amount, units
  kLoseSetAmount = 7,    // " Bet:" with amount, units
};

// Adjustment slots of AdjustAmount/AdjustOperator/AdjustUnits.
constexpr int kAdjustDialogWin = 5;   // dialog, winner, "Sa&me Bet:" row (6: "&Bet:" row)
constexpr int kAdjustDialogLose = 7;  // dialog, loser, "Sa&me Bet:" row (8: "&Bet:" row)
constexpr int kAdjustAutoWinSame = 9;
constexpr int kAdjustAutoLoseSame = 10;
constexpr int kAdjustAutoWinBet = 11;
constexpr int kAdjustAutoLoseBet = 12;

struct AutoPlayState {
  using Flags = Table1<bool, 0, 8>;
  using Longs = Table1<std::int32_t, 0, 8>;

  Flags AutoTakeFullOdds{};   // keep Pass Line and Come odds at their maximum
  Flags AutoLayFullOdds{};    // keep Don't Pass and Don't Come odds at their maximum
  Flags AutoDownPlaceBets{};  // Place bet down when its number gets a line point or a Come bet
  Flags AutoPassDice{};       // the player doesn't shoot
  Longs AutoAdjustMode{{2, 2, 2, 2, 2, 2, 2, 2, 2}};  // 0 manual, 1 minor, 2 color correction
  Longs LayBias{};                                    // 0 nearest, 1 increase, 2 decrease
  Longs PlaceBias{{1, 1, 1, 1, 1, 1, 1, 1, 1}};
  Longs DoBias{};
  Longs DontBias{};
  Longs HandleWinningBets{};                            // WinRule
  Longs HandleLosingBets{{1, 1, 1, 1, 1, 1, 1, 1, 1}};  // LoseRule

  Table2<Currency, 0, 8, 5, 12> AdjustAmount{};
  Table2<std::int32_t, 0, 8, 5, 12> AdjustOperator{};
  Table2<Currency, 0, 8, 5, 12> AdjustUnits{};

  Longs LastWinButton{};   // the settle dialog's default for a winner
  Longs LastLoseButton{};  // and for a loser

  // Settling of the bet in hand.
  Currency PressUnit;               // one unit of press, from FigurePressUnit
  Currency VigCharged;              // vig FigurePayoff took off GrossPayoff (Lay and Buy)
  SettleDialog Dialog;              // filled in stages, shown by ShowSettleDialog
  bool WinLossHeadWritten = false;  // the log's wins/losses head of this roll

  // Players selected on the Auto-Play form (bit p for player p).
  std::int32_t SelectedPlayers = 0;

  friend bool operator==(const AutoPlayState&, const AutoPlayState&) = default;
};
