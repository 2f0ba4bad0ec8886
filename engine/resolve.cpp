#include "engine/resolve.h"

#include "engine/game.h"

void DecideBets(Game&) {}
void ResolveBet(Game&, int, int, int) {}
void FigurePayoff(Game&, int, int, int, Currency) {}
void TallyBetResult(Game&, int, int, Currency, Currency) {}
void MoveBet(Game&, int, int, int) {}
void ResetWorkingFlags(Game&) {}
