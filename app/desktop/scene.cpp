#include "app/desktop/scene.h"

#include <string>

#include "core/catalogue.h"
#include "core/game.h"
#include "engine/place.h"
#include "engine/players.h"
#include "cycle/roll.h"

namespace {

const char* const kNames[8] = {"Alice", "Ben", "Carmen", "Dmitri", "Elena", "Farouk", "Grace", "Hiro"};

void Wager(Game& g, int p, int b, long amount) {
  g.BetRequest = Currency::FromWhole(amount);
  PlaceBet(g, p, b);
}

void RollKnown(Game& g, int d1, int d2) {
  QueueDice(g, d1, d2);
  RollDice(g);
}

}  // namespace

void SeatFullTable(Game& g) {
  // The charges of Buy and Lay bets are told once at the table; not here.
  const Long notices = g.rules.NoticeFlags;
  g.rules.NoticeFlags = 0;
  for (int p = 1; p <= 8; ++p) {
    SeatPlayer(g, p, kNames[p - 1], Currency::FromWhole(2000 + 500 * p));
    // Winners and losers stay up by rule, so the scene needs no dialog.
    g.autoplay.HandleWinningBets(p) = 2;
    g.autoplay.HandleLosingBets(p) = 2;
  }
  g.Shooter = g.HandShooter = 3;
  for (int p = 1; p <= 8; ++p) Wager(g, p, p % 2 ? bet::kPassLine : bet::kDontPass, 10 + 5 * p);
  Wager(g, 2, bet::kFire, 5);
  Wager(g, 7, bet::kFire, 5);
  RollKnown(g, 3, 3);  // the point is 6
  for (int p = 1; p <= 8; ++p) Wager(g, p, p % 2 ? bet::kCome : bet::kDontCome, 25);
  RollKnown(g, 2, 3);  // the Come and Don't Come bets go to the 5
  for (int p = 1; p <= 8; ++p) p % 2 ? TakeFullOdds(g, p) : LayFullOdds(g, p);
  const int place[8] = {4, 8, 9, 10, 4, 9, 8, 10};
  for (int p = 1; p <= 8; ++p) Wager(g, p, PlaceId(place[p - 1]), p % 3 ? 30 : 60);
  Wager(g, 1, BuyId(10), 125);
  Wager(g, 6, BuyId(4), 50);
  Wager(g, 4, LayId(4), 100);
  Wager(g, 5, LayId(10), 160);
  Wager(g, 2, bet::kField, 15);
  Wager(g, 5, bet::kField, 500);
  Wager(g, 3, bet::kBig6, 10);
  Wager(g, 8, bet::kBig8, 35);
  const int hard[4] = {bet::kHard4, bet::kHard6, bet::kHard8, bet::kHard10};
  for (int p = 1; p <= 8; ++p) Wager(g, p, hard[(p - 1) % 4], 5 + 5 * (p % 3));
  const int props[8] = {bet::kSeven, bet::kTwo,   bet::kThree, bet::kEleven,
                        bet::kTwelve, bet::kCraps, bet::kCandE, bet::kHorn};
  for (int p = 1; p <= 8; ++p) Wager(g, p, props[p - 1], p == 8 ? 4 : 5);
  Wager(g, 2, bet::kWorld, 5);
  Wager(g, 6, bet::kOver7, 10);
  Wager(g, 3, bet::kUnder7, 10);
  for (int p = 1; p <= 8; ++p) Wager(g, p, bet::kHopFirst + (p * 2) % kHopCount, 5);
  Wager(g, 4, bet::kMidway, 10);
  g.Bet(1, 101) = Currency::FromWhole(250);  // a CheckStack on the rail holds a value
  g.betting.CurPlayer = 3;
  g.rules.NoticeFlags = notices;
}

void ShowSomeCheckStacks(Game& g) {
  if (g.PlayerName[1].empty()) return;
  const struct {
    int n;
    long value;
    const char* name;
  } notes[] = {{0, 1200, "Session goal"}, {2, -340, "Down from the last shooter"},
               {5, 0, "Press count"}, {9, 75, "Hard ways budget"}, {12, -25, ""}};
  for (const auto& s : notes) {
    g.Bet(1, bet::kCheckStackFirst + s.n) = Currency::FromWhole(s.value);
    g.CheckStackName(1, s.n) = s.name;
  }
  g.betting.CheckStacksPlayer = 1;
}
