// The bet gate on the roll path allocates nothing in Hyper-Drive, even when
// it refuses, cuts, charges vig or passes the dice.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

#include "cycle/hyperdrive.h"
#include "dice/rng.h"
#include "core/catalogue.h"
#include "engine/place.h"
#include "cycle/player_names.h"
#include "engine/players.h"
#include "tests/engine/roll_fixture.h"
#include "tests/support/count_allocations.h"

namespace {

using namespace bet;

TEST_F(RollFixture, PlayersBettingInHyperDriveAllocateNothing) {
  g.dice.RngIndex = 0;
  SeedRngWith(g, 4711);
  const char* names[] = {"Ann", "Bob", "Cy", "Dee"};
  for (int p = 1; p <= 4; ++p) {
    SeatPlayer(g, p, names[p - 1], Currency::FromWhole(p == 4 ? 40 : 5000));
    g.autoplay.HandleWinningBets(p) = 4;  // press double: the maximum and the bankroll cut it
    g.autoplay.HandleLosingBets(p) = 2;   // same bet: a broke player's bets come down
  }
  g.autoplay.AutoTakeFullOdds(1) = true;
  g.autoplay.AutoLayFullOdds(2) = true;
  auto place = [&](int p, int b, long amount) {
    g.BetRequest = Currency::FromWhole(amount);
    PlaceBet(g, p, b);
  };
  place(1, kPassLine, 10);
  place(2, kDontPass, 10);
  place(3, BuyId(4), 20);
  place(3, LayId(10), 40);
  place(4, kField, 20);
  place(4, kHard8, 5);
  const std::string longName(40, 'x');  // beyond any short-string buffer
  RenamePlayerTo(g, 2, longName);

  g.hyper.RunRollLimit = 500;
  RunHyperDrive(g);  // warm up
  const long before = gAllocations.load();
  g.hyper.RunRollLimit = 20'000;
  RunHyperDrive(g);
  EXPECT_EQ(gAllocations.load() - before, 0);
  for (int p = 1; p <= 4; ++p) {
    EXPECT_TRUE(CheckBetLedger(g, p)) << p;
    EXPECT_LE(g.TotalBets(p), g.Bet(p, 0)) << p;
  }
  // The run did what it claims: odds were taken and laid, vig was charged.
  EXPECT_GT(g.StatAction(FrameIndex(1, 2), kPassLineOdds, 1), Currency{});
  EXPECT_GT(g.StatAction(FrameIndex(2, 2), kDontPassOdds, 1), Currency{});
  EXPECT_GT(g.StatAction(FrameIndex(3, 2), BuyId(4), 1), Currency{});
}

}  // namespace
