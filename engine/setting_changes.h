// What happens when a table setting changes while bets stand: the questions,
// refusals and adjustments that frmConfigure runs through these procedures.
//
// Each procedure takes the new value from the form, asks or refuses through
// the message dialog, and either stores the value (true) or leaves the game
// as it was (false), so the form can put its control back under FormLoading.
// What must stay true:
// - A bet that may no longer exist is removed through the bet gate
//   (SetBetChecked), never by writing Bet directly, so TotalBets and the
//   vig tables stay consistent.
// - A vig change that would leave a player without AllowNegBankroll below
//   0 on the rail is undone completely, with TotalBets recounted again.
#pragma once

#include "config/settings.h"
#include "core/currency.h"

struct Game;

// The three check boxes that make bets exist.
enum class BetSwitch { Big68, Midway, Fire };
// The bet ids a switch governs, and whether any player 1..8 has one up.
bool AnyBetUnder(const Game& game, BetSwitch which);
// chkUseBig68, chkUseMidwayBet, chkUseFireBet. Clearing a box with bets up asks
// first (Yes removes the bets of all players); No keeps everything: false.
bool ChangeBetSwitch(Game& game, BetSwitch which, bool on);

enum class VigSide { Buy, Lay };
// Figures the vig of every Buy or Lay bet of every player anew.
void RefigureVig(Game& game, VigSide side);
// The four vig controls of a side. false: a player couldn't pay the added
// up-front vig; the notice was shown and the old value stands again.
bool ChangeVigRate(Game& game, VigSide side, Currency rate);
bool ChangeVigRounding(Game& game, VigSide side, Long rounding);
bool ChangeVigUpFront(Game& game, VigSide side, bool upFront);
// The text of the refusal, by the number of players.
std::string VigRefusalText(int playerCount);

// The table's working default of a bet on the come-out (slot 0 of
// BetWorkingDefault): 1 or 0, or back to the built-in value; then every
// player's working flags are reset.
void SetTableWorkingDefault(Game& game, int bet, Long working);
void RestoreTableWorkingDefault(Game& game, int bet);
