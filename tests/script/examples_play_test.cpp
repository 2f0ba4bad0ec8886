// Every example script plays: one player per example, a long seeded
// Hyper-Drive run, and at its end every dollar of the bankroll is accounted
// for by what was invested and the net of the decided bets, the ledger of
// the bets agrees, and the script did bet.
#include <gtest/gtest.h>

#include <filesystem>

#include "cycle/hyperdrive.h"
#include "dice/rng.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "engine/place.h"
#include "engine/players.h"
#include "cycle/startup.h"
#include "script/activation.h"
#include "script/files.h"

namespace fs = std::filesystem;

namespace {

#ifdef NDEBUG
constexpr int kRolls = 100'000;
#else
constexpr int kRolls = 10'000;  // the sanitizer build: a shorter run of the same checks
#endif

TEST(ExamplesPlay, EveryExampleBetsAndEveryDollarIsAccountedFor) {
  int played = 0;
  for (const auto& entry : fs::directory_iterator(fs::path(RAVELTON_SOURCE_DIR) / "examples")) {
    if (entry.path().extension() != ".bet") continue;
    SCOPED_TRACE(entry.path().filename().string());
    HeadlessPlatform platform;
    platform.minimized = true;
    platform.fixedTime = 0;
    platform.clockStep = 1000;  // start-up's clock measure ends at once
    auto owner = MakeGame(platform);
    Game& g = *owner;
    StartUp(g, "/tmp/ravelton-examples");
    g.rules.BetRequirement = kNoBetRequired;
    g.dice.RngIndex = 0;
    SeedRngWith(g, 20261122 + played);
    SeatPlayer(g, 1, "Ann", 20'000_usd);
    ASSERT_TRUE(OpenAutoBets(g, 1, entry.path().string()));
    SetScriptActive(g, 1, true);
    g.HyperDrive = true;
    ASSERT_TRUE(InitializeScripts(g));
    g.HyperDrive = false;
    g.hyper.RunRollLimit = kRolls;
    RunHyperDrive(g);
    EXPECT_EQ(g.hyper.RollsThisRun, kRolls) << g.hyper.LastStopMessage;

    Currency net;
    long decisions = 0;
    for (int b = 1; b <= kLastRealBet; ++b) {
      net += g.StatWins(FrameIndex(1, 2), b, 2) - g.StatLosses(FrameIndex(1, 2), b, 2);
      decisions += g.StatAction(FrameIndex(1, 4), b, 1).raw / Currency::kScale;
    }
    EXPECT_EQ(g.Bet(1, 0), g.InvestedBankroll(1) + net);
    EXPECT_TRUE(CheckBetLedger(g, 1));
    EXPECT_GT(decisions, kRolls / 20) << "the script placed bets";
    ++played;
  }
  EXPECT_GE(played, 8);
}

}  // namespace
