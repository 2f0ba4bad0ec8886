// Placing and changing bets: the one gate through which an amount reaches a bet.
#pragma once

struct Game;

// Applies game.BetRequest to bet b of player p under every rule; the applied change is left in
// game.betting.BetChange.
void SetBetChecked(Game& game, int p, int b);
// Sets game.betting.BetMaximum for bet b of player p.
void FigureBetMaximum(Game& game, int p, int b);
// SetBetChecked for a visible bet, then the odds that hang on a changed flat bet follow.
void PlaceBet(Game& game, int p, int b, int x = 0, int y = 0);
// Takes bet b down entirely.
void RemoveBet(Game& game, int p, int b);
// Sets bet b to the most the rules allow, without notices.
void TakeBetToMaximum(Game& game, int p, int b);
// Pass Line odds and every Come odds to their maximum.
void TakeFullOdds(Game& game, int p);
// Don't Pass odds and every Don't Come odds to their maximum.
void LayFullOdds(Game& game, int p);
