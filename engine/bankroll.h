// Money in and out of the game: the ATM, the rule of a negative bankroll,
// each player's bankroll at a new session, and the CheckStacks (one hundred
// value-and-name pairs per player that serve as notes, rail chips and a
// script's memory).
//
// What must stay true:
// - Bet(p, 0) is all the player's money, the money on bets included; the ATM
//   never takes it below TotalBets unless AllowNegBankroll is set, and never
//   beyond +-9,999,999.
// - InvestedBankroll moves with every ATM transaction by exactly what moved.
// - CheckStacks (Bet(p, 100..199)) are outside the bankroll and TotalBets.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/currency.h"

struct Game;

// Moves money between the bankroll and the outside: a withdrawal from the ATM
// adds to the bankroll, a deposit takes from it. Returns the amount moved.
// Notices are always shown from the configuration form, else never in Hyper-Drive.
Currency Atm(Game& game, int p, bool isDeposit, Currency amount, bool fromConfigure = false);
// cmdAddSub on the bankroll tab: Atm with AtmAmount for BankrollTabPlayer (nothing without one).
Currency AtmFromBankrollTab(Game& game, bool isDeposit);
// Opening the bankroll tab: with nobody at the table it says so and returns false.
bool OpenBankrollTab(Game& game);
// chkAllowNegBankroll: checking needs nothing; unchecking is refused with a
// notice while the bankroll is negative or below the bets. Returns the state.
bool ChangeAllowNegBankroll(Game& game, int p, bool on);
// Sets seat p's bankroll at a new session by its start rule; `previous` is
// the bankroll the session ended with.
void SetBeginningBankroll(Game& game, int p, Currency previous);

// One row of the CheckStacks grid.
struct CheckStackRow {
  int number = 0;  // 0..99
  Currency value;
  std::string name;
  int color = 0;  // 0 black, 255 red (negative), 0xFF0000 blue (positive)
};
// The rows frmCheckStacks shows for p: a named stack, a stack with a value,
// or every stack with DisplayZeroStacks on.
std::vector<CheckStackRow> ShowCheckStacks(const Game& game, int p);
// Marks player p's CheckStacks as changed, so that the roll's next
// snapshots copy them (RollState::UpperCellsChangedAtRoll); every writer of
// a CheckStack value calls it.
void MarkCheckStacksChanged(Game& game, int p);
// The value column of stack n typed as text.
void SetCheckStackValue(Game& game, int p, int n, std::string_view text);
// The name column of stack n.
void SetCheckStackName(Game& game, int p, int n, std::string_view name);
// What mnuDeleteAll / mnuDeleteAllValues / mnuDeleteAllNames clear.
enum class StackClear { All, Values, Names };
// Asks, then clears the values and/or names of p's stacks; true when cleared.
bool DeleteAllCheckStacks(Game& game, int p, StackClear what);
// Puts stacks numbers[0..3] on p's four rail spots; refused when two are equal.
bool SetVisibleCheckStacks(Game& game, int p, const int (&numbers)[4]);
// Name of rail spot 1..4 of p: "CheckStack #" and the stack's number.
std::string CheckStackSpotName(const Game& game, int p, int spot);
// The text with every character outside blank.."~" replaced by character 0.
std::string ConvertNonPrinting(std::string_view text);
