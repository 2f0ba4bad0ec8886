// State of placing bets and of the players' money: the keyed request, the ATM, the start rules.
#pragma once

#include "engine/currency.h"
#include "engine/tables.h"

struct BettingState {
  Currency BetChange;   // the change really applied by the last SetBetChecked
  Currency BetMinimum;  // lowest total for the bet at hand, worked out on each call
  Currency BetMaximum;  // highest total for the bet at hand, worked out on each call
  bool MovingBet = false;  // MoveBet places a bet on its number: Come contract rules skipped
  Table1<bool, 0, 8> AllowNegBankroll;  // no bankroll check for this player
};
