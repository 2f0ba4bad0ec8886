// The roll's decisions know each seated player's bets (RollState
// HeldBetIds) from the ids the at-roll snapshots took since they last
// looked, not from every cell. These runs place, take down and call bets of
// every kind between rolls, under both bars and with put bets allowed or
// not, now and then marking every id as a script run does, and hold the
// bets the decisions knew against the table as the roll began: a writer
// that changes a bet without marking it, or a summary that keeps a bet
// taken down or misses one placed, shows as a difference.
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <utility>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/bench_workload.h"
#include "cycle/hyperdrive.h"
#include "cycle/roll.h"
#include "cycle/startup.h"
#include "dice/rng.h"
#include "engine/betting_state.h"
#include "engine/place.h"
#include "engine/players.h"

namespace {

using BetRows = decltype(Game::Bet);

struct Checked {
  Game* game = nullptr;
  std::mt19937 rng{20261124};
  BetRows atRoll{};  // the table as the coming roll begins
  int checkedRolls = 0, heldBets = 0;
  int Pick(int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); }
};

// Holds the roll's known bets against the table, then changes the bets.
void CheckAndBet(void* self, const Game&) {
  auto& r = *static_cast<Checked*>(self);
  Game& g = *r.game;
  for (int p = 1; p <= 8; ++p) {
    if (((g.roll.HeldBetIdsUnknown >> p) & 1u) != 0) continue;  // read cell by cell
    const BetIdSet& held = g.roll.HeldBetIds[static_cast<std::size_t>(p)];
    for (int b = 1; b <= kLastRealBet; ++b) {
      const bool has = ((held.words[b / 64] >> (b % 64)) & 1u) != 0;
      ASSERT_EQ(has, !r.atRoll(p, b).IsZero()) << "player " << p << " bet " << b << " roll "
                                               << r.checkedRolls + 1;
      r.heldBets += has;
    }
  }
  ++r.checkedRolls;
  constexpr int kChangesPerRoll = 8;
  for (int k = 0; k < kChangesPerRoll; ++k) {
    const int p = 1 + r.Pick(8), b = 1 + r.Pick(kLastRealBet);
    switch (r.Pick(8)) {
      case 0:
        RemoveBet(g, p, b);
        break;
      case 1:
        CallBetOnOff(g, p, b, r.Pick(2) == 0 ? kToolCallOn : kToolCallOff);
        break;
      default:
        g.BetRequest = Currency::FromWhole(1 + r.Pick(25));
        PlaceBet(g, p, b);
    }
  }
  constexpr int kMarkEvery = 9;
  if (r.Pick(kMarkEvery) == 0) MarkSeatRowsChanged(g);
  r.atRoll = g.Bet;
}

TEST(HeldBets, AreTheBetsOnTheTableAsTheRollBegins) {
  constexpr int kRolls = 1500;
  for (const auto& [bar, putBets] : {std::pair{12, true}, std::pair{2, false}}) {
    HeadlessPlatform platform;
    platform.minimized = true;
    const auto owner = MakeGame(platform);
    Game& g = *owner;
    StartUp(g, "/tmp/ravelton-tests");
    g.rules.BetRequirement = kNoBetRequired;
    g.rules.NoticeFlags = 0;
    g.rules.BarNumber = bar;
    g.rules.AllowPutBets = putBets;
    g.dice.RngIndex = 0;
    SeedRngWith(g, kBenchSeed);
    for (int p = 1; p <= 8; ++p) {
      SeatPlayer(g, p, "P" + std::to_string(p), Currency::FromWhole(100'000));
      g.betting.AllowNegBankroll(p) = true;
    }
    Checked run{&g};
    run.atRoll = g.Bet;
    g.hyper.RollObserver = &CheckAndBet;
    g.hyper.RollObserverContext = &run;
    g.hyper.RunRollLimit = kRolls;
    RunHyperDrive(g);
    EXPECT_EQ(run.checkedRolls, kRolls) << "bar " << bar;
    EXPECT_GT(run.heldBets, 8 * kRolls) << "the runs keep many bets on the table";
  }
}

}  // namespace
