#include "engine/place.h"

#include "engine/game.h"

void SetBetChecked(Game& g, int p, int b) {
  g.betting.BetChange = g.BetRequest;
  g.Bet(p, b) += g.BetRequest;
  if (b >= 1 && b <= kLastRealBet) g.TotalBets(p) += g.BetRequest;
}
void FigureBetMaximum(Game&, int, int) {}
void PlaceBet(Game& g, int p, int b, int, int) { SetBetChecked(g, p, b); }
void RemoveBet(Game& g, int p, int b) {
  g.BetRequest = -g.Bet(p, b);
  PlaceBet(g, p, b);
}
void TakeBetToMaximum(Game&, int, int) {}
void TakeFullOdds(Game&, int) {}
void LayFullOdds(Game&, int) {}
