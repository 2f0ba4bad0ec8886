#include "automation/autoplay.h"

#include "core/catalogue.h"
#include "core/game.h"
#include "core/seat_set.h"
#include "core/platform.h"
#include "engine/place.h"

void AutoPlayPointActions(Game& g, unsigned seated) {
  AutoPlayState& a = g.autoplay;
  ForEachSeatIn(seated, [&g, &a](int p) {
    const bool pass = g.Bet(p, bet::kPassLine) > Currency{};
    if (pass && a.AutoTakeFullOdds(p)) TakeBetToMaximum(g, p, bet::kPassLineOdds);
    if (g.Bet(p, bet::kDontPass) > Currency{} && a.AutoLayFullOdds(p)) {
      if (!g.HyperDrive && g.platform) g.platform->RequestRedraw(Redraw::Table);
      TakeBetToMaximum(g, p, bet::kDontPassOdds);
    }
    if (pass && a.AutoDownPlaceBets(p) && IsBoxNumber(g.Point)) RemoveBet(g, p, PlaceId(g.Point));
  });
}

void SetAutoPlayDefaults(Game& g, int p) {
  AutoPlayState& a = g.autoplay;
  const AutoPlayState fresh{};
  a.AutoTakeFullOdds(p) = fresh.AutoTakeFullOdds(p);
  a.AutoLayFullOdds(p) = fresh.AutoLayFullOdds(p);
  a.AutoDownPlaceBets(p) = fresh.AutoDownPlaceBets(p);
  a.AutoPassDice(p) = fresh.AutoPassDice(p);
  a.AutoAdjustMode(p) = fresh.AutoAdjustMode(p);
  a.LayBias(p) = fresh.LayBias(p);
  a.PlaceBias(p) = fresh.PlaceBias(p);
  a.DoBias(p) = fresh.DoBias(p);
  a.DontBias(p) = fresh.DontBias(p);
  a.HandleWinningBets(p) = fresh.HandleWinningBets(p);
  a.HandleLosingBets(p) = fresh.HandleLosingBets(p);
  for (int k = 5; k <= 12; ++k) {
    a.AdjustAmount(p, k) = Currency{};
    a.AdjustOperator(p, k) = 0;
    a.AdjustUnits(p, k) = Currency{};
  }
  a.LastWinButton(p) = 0;
  a.LastLoseButton(p) = 0;
  for (int b = 0; b <= 100; ++b) g.BetWorkingDefault(p, b) = g.BetWorkingDefault(0, b);
}
