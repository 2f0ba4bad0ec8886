// Placing and changing bets: the one gate through which an amount reaches a
// bet, the limits it works out, and the small operations round it.
//
// Whoever changes a bet (a click, a typed amount, a script, Auto-Play, the
// settling of a roll, a CheckStack) sets game.BetRequest and calls
// SetBetChecked, which holds the request against the contract rules of
// craps, the table's minimum and maximum, the proper-odds adjustment and the
// bankroll, tells the user what it changed and why, and only then writes.
// Taking a whole bet down may go through TakeBetDownChecked, the same gate
// for that one request (tests/engine/place_test.cpp holds the two equal).
//
// What must stay true:
// - Nothing fails hard: a refusal is a smaller or zero change, left in
//   game.betting.BetChange, and never leaves Bet, TotalBets and the vig
//   tables out of step (CheckBetLedger tests exactly that).
// - A real bet (1..85) is a multiple of CheckValue(1) and never below 0;
//   a CheckStack (100..199) is any amount within +-99,999,999,999,999.9999.
// - In Hyper-Drive the rules are the same, but no notice text is built.
#pragma once

#include <string>
#include <string_view>

#include "core/currency.h"

struct Game;

// Applies game.BetRequest to bet b of player p under every rule; the applied
// change is left in game.betting.BetChange.
void SetBetChecked(Game& game, int p, int b);
// SetBetChecked with game.BetRequest set to minus the whole bet b of p: the
// same rules, notices and writes, without the steps such a request skips.
void TakeBetDownChecked(Game& game, int p, int b);
// SetBetChecked with game.BetRequest set to 0 (a bet left as it stands): the
// same rules and writes, without the steps such a request skips.
void KeepBetChecked(Game& game, int p, int b);
// SetBetChecked where a bet standing at 0 may be opened: in Hyper-Drive an
// amount that passes every rule unchanged is written at once, with the same
// writes the gate makes and without the steps such a request skips.
void OpenBetChecked(Game& game, int p, int b);
// SetBetChecked for a change asked by a settling rule: in Hyper-Drive, for
// a bet outside the contract rules and a seat the bankroll never holds, the
// same steps and writes without those such a request skips.
void ChangeBetChecked(Game& game, int p, int b);
// TakeBetDownChecked of bet `from` of p, then OpenBetChecked of bet `to`
// with the amount `from` had, as a bet carried to its number (MovingBet):
// in Hyper-Drive, for a Come or Don't Come bet, a seat the bankroll never
// holds and an amount `to` takes as it is, the two writes alone, and true.
// Else false, with no bet or total changed.
bool CarryBetChecked(Game& game, int p, int from, int to);
// TakeBetDownChecked, then the gate with game.BetRequest set to `amount`
// (KeepBetChecked for 0): a bet set afresh, as a settling rule does it.
void ReplaceBetChecked(Game& game, int p, int b, Currency amount);
// Sets game.betting.BetMaximum, the highest total bet b of player p may have.
void FigureBetMaximum(Game& game, int p, int b);
// The same maximum figured in full each time, with nothing remembered and no
// shortcut: what FigureBetMaximum must always agree with.
Currency BetMaximumInFull(const Game& game, int p, int b);

// SetBetChecked for a bet visible on the table (refused silently when the
// bet is switched off), then the odds that hang on a changed flat bet follow.
// x and y are table coordinates of a moving check, unused without a window.
void PlaceBet(Game& game, int p, int b, int x = 0, int y = 0);
// Bet `from` of p taken down and its amount placed on `to` as a bet carried
// to its number (MovingBet), the odds following: TakeBetDownChecked, then
// PlaceBet with MovingBet set, with the two gates made in one step where
// CarryBetChecked can.
void CarryBet(Game& game, int p, int from, int to);
// Takes bet b down entirely, when it has an amount.
void RemoveBet(Game& game, int p, int b);
// Sets bet b to the most the rules allow, without notices.
void TakeBetToMaximum(Game& game, int p, int b);
// Pass Line odds and the odds of every Come bet on a number to their maximum.
void TakeFullOdds(Game& game, int p);
// Don't Pass odds and the odds of every Don't Come bet on a number to their maximum.
void LayFullOdds(Game& game, int p);
// Turns a Place bet into the Buy bet on the same number.
void BuyPlaceBet(Game& game, int p, int b);
// Calls bet b on (tool 91) or off (tool 90); a script's call sets the state outright.
void CallBetOnOff(Game& game, int p, int b, int tool, bool byScript = false);
// Every bet of p with an amount called on or off, without notices (mnuCallAllBetsOn/Off).
void CallAllBetsOnOff(Game& game, int p, int tool);
// The working state of bet b back to its default: the come-out default, or 1 with a point on.
void ResetBetWorking(Game& game, int p, int b);
// With NoticeFlags cleared for the time, every real bet of p taken down (mnuRemoveAllBets).
void RemoveAllBets(Game& game, int p);
// A typed amount committed on bet b: the bet is set to the amount under every
// rule. Returns the text the box is refilled with (what the bet really has).
std::string CommitKeyedAmount(Game& game, int p, int b, std::string_view text);
// The amount a click lays down: the selected check, or the selected rail CheckStack.
Currency SelectedAmount(const Game& game, int p);

// How a bet was clicked on the table.
enum class BetClick {
  Plain,  // lays the selected check (or rail CheckStack) down
  Ctrl,   // takes the same amount off
  Shift,  // takes the whole bet off
};
// A click on bet b for CurPlayer: a pending menu action or tool, else the
// amount of the click through PlaceBet. On an empty Don't Pass or Don't Come
// Odds, a taking click means the flat bet below it.
void ClickOnBet(Game& game, int b, BetClick click);

// Alt with a click: bet b of CurPlayer comes down as with Shift; returns the
// amount that came down, which then hangs on the pointer.
Currency LiftBet(Game& game, int b);
// The lifted amount dropped on a bet or a rail CheckStack of CurPlayer.
void DropLiftedAmount(Game& game, int target, Currency amount);

// True when Bet, TotalBets and the vig tables of p agree and every real bet
// is a non-negative multiple of CheckValue(1).
bool CheckBetLedger(const Game& game, int p);
// TotalBets of p worked out afresh from the bets and the up-front vig.
Currency TotalUpBets(const Game& game, int p);
