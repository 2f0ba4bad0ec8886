// Settling: what stands on a bet after the roll decided it. A decision
// changes only the bankroll (engine/resolve.h); here the player, in the
// settle dialog, or the player's Auto-Play rule decides what the bet is from
// now on: nothing, the same, more or less.
//
// What must stay true:
// - Every action ends in one or two calls of SetBetChecked with BetRequest
//   (a whole bet taken down through TakeBetDownChecked, the same gate), so
//   all limits, contract rules and the bankroll check apply to a bet that
//   stays up or grows. Nothing here writes Bet directly.
// - With BetComesDown set, every rule and every dialog button but 0 takes the
//   bet down: a bet that may not stay on the table is never replaced.
// - In Hyper-Drive no dialog, sound or notice: rule 0 (" Manual") acts as
//   rule 1, so a run never stops for a question.
// - Lay and Buy vig paid up front leaves TotalBets when the bet is settled.
// The entry points act on game.CurBet with GrossPayoff, NetPayoff and
// BetComesDown as ResolveBet left them.
#pragma once

#include "core/currency.h"
#include "core/settle_dialog.h"

struct Game;

// Settles a winning (or pushing) bet by the dialog or HandleWinningBets(p).
void SettleWinner(Game& game, int p);
// Settles a losing bet by the dialog or HandleLosingBets(p).
void SettleLoser(Game& game, int p);
// Settles an odds bet that was off when its decision came: it comes back.
void SettleNotWorking(Game& game, int p);
// Sets PressUnit: the largest proper unit, counted in a check, that divides bet b.
void FigurePressUnit(Game& game, int p, int b);

// The actions, all on CurBet.
// Takes the whole bet down and clears BetComesDown.
void TakeBetDown(Game& game, int p);
// Leaves the bet as it is, checking its limits again.
void SameBet(Game& game, int p);
// Adds one PressUnit.
void PressOneUnit(Game& game, int p);
// Doubles the bet.
void PressDouble(Game& game, int p);
// Adds the winnings (NetPayoff) to the bet, the biases rounding down.
void ParlayBet(Game& game, int p);
// Takes the bet down and bets what is left of it after the loss.
void BetRemainder(Game& game, int p);
// Changes the bet by adjustment slot k: plus, minus, times or divided by.
void AdjustSameBet(Game& game, int p, int k);
// Takes the bet down and bets the amount of adjustment slot k.
void SetBetAmount(Game& game, int p, int k);

// The multiplier m of adjustment slot k's units for AdjustSameBet.
Currency AdjustMultiplier(const Game& game, int p, int k);
// The multiplier m of units u for SetBetAmount and the dialog's units caption.
Currency UnitMultiplier(const Game& game, int u);

// Fills the dialog's lines for the bet in hand (before the vig is settled).
void FillSettleLines(Game& game, int p, SettleKind kind);
// Builds the dialog's caption, buttons and rows, shows it, and acts on the button pressed.
void ShowSettleDialog(Game& game, int p);
// Builds the dialog's caption, buttons, rows and default button (no showing).
void BuildSettleDialog(Game& game, int p);
// Acts on a press of button 0..6 of the dialog as the platform returned it.
void PressSettleButton(Game& game, int p, int button);

// The dialog's controls while it is open (the window calls these on a click).
// Next units of a row: "$", "%", the five check units, back to "$"; row 1
// (the "&Bet:" row) skips "%".
int NextSettleUnits(int units, int row);
// Steps row `row`'s operator or units and sets its captions anew.
void StepSettleOperator(Game& game, int row);
void StepSettleUnits(Game& game, int row);
// Colour of a row's amount: black at 0, red on row 0 under "-", blue otherwise.
enum class AmountColor { Black, Red, Blue };
AmountColor SettleAmountColor(const SettleDialogRow& r, int row);
