// MoveBet: a Come or Don't Come bet travels from its box to its number.
#include "core/catalogue.h"
#include "core/game.h"
#include "engine/place.h"
#include "engine/resolve.h"
#include "engine/settle_text.h"

void MoveBet(Game& g, int p, int fromBet, int toBet) {
  const Currency amount = g.Bet(p, fromBet);
  if (amount <= Currency{}) return;
  g.BetRequest = -amount;
  SetBetChecked(g, p, fromBet);
  g.betting.MovingBet = true;
  g.BetRequest = amount;
  PlaceBet(g, p, toBet);
  g.betting.MovingBet = false;
  g.BetContract(p, toBet) = amount;
  if (IsComePoint(toBet)) g.ComeFlatAtSet(p, toBet - bet::kComePointFirst) = amount;
  if (g.roll.LogOn) {
    g.roll.LogText +=
        Cat("      ", g.PlayerName[p], "'s ", BetName(fromBet), " bet moved to ", BetName(toBet));
    g.roll.LogText.push_back('\n');
  }
  if (g.autoplay.AutoDownPlaceBets(p) && IsComePoint(toBet)) {
    const int n = BoxNumber(toBet - bet::kComePointFirst);
    RemoveBet(g, p, PlaceId(n));
    RemoveBet(g, p, BuyId(n));
  }
}
