// State of placing bets and of the players' money: the working fields of the
// one gate SetBetChecked, the ATM, the start rules of a session, the
// CheckStack spots on the rail and the seat the table's menus act on.
//
// What must stay true:
// - BetChange, BetMinimum, BetMaximum and LimitText live for one call of
//   SetBetChecked; callers read BetChange afterwards to see what was applied.
// - LimitText is never built in Hyper-Drive, so the roll path allocates
//   nothing here (its capacity is reused between calls).
// - CheckStackSlot holds ids 100..199 only; four different ones per player.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/currency.h"
#include "core/tables.h"

// How a player's bankroll is set at a new session (StartBankrollMode).
enum StartBankrollKind : std::int32_t {
  kStartWithAmount = 0,    // " Start bankroll with:"
  kStartPrompt = 1,        // " Prompt for starting bankroll"
  kStartCarry = 2,         // " Carry forward bankroll from previous session"
  kStartCarryWithNet = 3,  // " Carry forward bankroll and net from previous session"
};

// PendingAction: a menu command waiting for the next click on the table.
enum PendingActionKind : std::int32_t {
  kPendingNone = 0,
  kPendingCallOn = 1,
  kPendingCallOff = 2,
  kPendingBuy = 3,
  kPendingRemove = 4,
  kPendingMoveBase = 10,  // above it: move of player (value - 10) to the clicked seat
};

// Tools of SelectedCheck beyond the five checks and four rail stacks.
constexpr std::int32_t kToolBuy = 89;
constexpr std::int32_t kToolCallOff = 90;
constexpr std::int32_t kToolCallOn = 91;

// A maximum remembered together with every input it was figured from. It is
// used again only while each of those inputs is unchanged, so it can never
// go stale: nothing that writes the rules, the payoffs or the checks needs to
// know of it. Remembered figures are not part of the game's state, so two
// games are equal whatever they remember.
struct RememberedFigure {
  static constexpr int kKeys = 13;  // the most inputs of one figure (World's)
  using Key = std::array<std::int64_t, kKeys>;
  // The flag and value first: a figure of a few inputs is read in one cache line.
  bool valid = false;
  Currency value;
  Key key{};
};
// The odds bets each with a slot of their own: Don't Come odds, Come odds,
// then the Pass Line and Don't Pass odds once for each point (their X and
// payoffs follow the point).
constexpr int kOddsSlots = 24;
struct RememberedMaxima {
  RememberedFigure table;                             // the table maximum
  std::array<RememberedFigure, 86> fixed;             // by bet id, bets not hanging on a flat bet
  Table2<RememberedFigure, 1, 8, 0, kOddsSlots - 1> odds;  // by seat and odds slot
  friend bool operator==(const RememberedMaxima&, const RememberedMaxima&) { return true; }
};

struct BettingState {
  // One call of SetBetChecked.
  Currency BetChange;      // the change really applied by the last call
  Currency BetMinimum;     // lowest total of the bet at hand
  Currency BetMaximum;     // highest total of the bet at hand
  std::string LimitText;   // the pending limit message of the call
  bool MovingBet = false;  // MoveBet places a bet on its number: Come rules skipped
  RememberedMaxima maxima;  // FigureBetMaximum's figures, each with its inputs

  // Money.
  Table1<bool, 0, 8> AllowNegBankroll{};  // no bankroll check for this player
  Table1<std::int32_t, 0, 8> StartBankrollMode{};
  Table1<Currency, 0, 8> StartBankroll{};
  Currency AtmAmount = Currency::FromWhole(500);  // txtAddSub, one value for all players
  std::int32_t BankrollTabPlayer = 0;             // player on the bankroll tab; 0 none

  // CheckStacks: the stacks of the four visible rail spots, by bet id.
  Table2<std::int32_t, 0, 8, 1, 4> CheckStackSlot = [] {
    Table2<std::int32_t, 0, 8, 1, 4> t{};
    for (int p = 0; p <= 8; ++p)
      for (int i = 1; i <= 4; ++i) t(p, i) = 100 + i;  // stacks 1 to 4
    return t;
  }();
  bool DisplayZeroStacks = false;
  std::int32_t CheckStacksPlayer = 0;

  // The table's pointer state.
  std::int32_t CurPlayer = 0;      // the seat betting and menus act on; 0 none
  std::int32_t PendingAction = 0;  // PendingActionKind
  bool KeyInBetAmounts = false;    // mnuKeyInBetAmounts: a click opens a typed amount

  friend bool operator==(const BettingState&, const BettingState&) = default;
};
