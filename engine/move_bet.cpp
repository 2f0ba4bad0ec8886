// MoveBet: a Come or Don't Come bet travels from its box to its number.
#include "core/catalogue.h"
#include "core/game.h"
#include "engine/place.h"
#include "engine/resolve.h"
#include "logs/events_log.h"

void MoveBet(Game& g, int p, int fromBet, int toBet) {
  const Currency amount = g.Bet(p, fromBet);
  if (amount <= Currency{}) return;
  CarryBet(g, p, fromBet, toBet);
  g.BetContract(p, toBet) = amount;
  g.roll.MarkBetChanged(p, toBet);
  if (IsComePoint(toBet)) g.ComeFlatAtSet(p, toBet - bet::kComePointFirst) = amount;
  if (g.roll.LogOn && g.roll.LogBets) {
    std::string& l = StartEventLine(g);
    l += "    ";
    l += g.PlayerName[p];
    l += "'s ";
    l += BetName(fromBet);
    l += " bet moved to ";
    l += BetName(toBet);
    WriteEventLine(g, l);
  }
  if (g.autoplay.AutoDownPlaceBets(p) && IsComePoint(toBet)) {
    const int n = BoxNumber(toBet - bet::kComePointFirst);
    RemoveBet(g, p, PlaceId(n));
    RemoveBet(g, p, BuyId(n));
  }
}
