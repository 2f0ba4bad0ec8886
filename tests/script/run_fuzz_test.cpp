// Random well-formed scripts play: two players, each with a script from the
// shared grammar (with the statements that act on the game added), run a
// few hundred seeded Hyper-Drive rolls. No run may crash or hang beyond the
// bound on a run's statements, and no money may appear or vanish outside
// the bets and the ATM. Run it in the sanitizer build too.
#include <gtest/gtest.h>

#include <random>

#include "cycle/hyperdrive.h"
#include "dice/rng.h"
#include "core/game.h"
#include "core/headless_platform.h"
#include "engine/place.h"
#include "engine/players.h"
#include "cycle/startup.h"
#include "script/activation.h"
#include "script_grammar.h"
#include "script_test_util.h"

namespace {

#ifdef NDEBUG
constexpr int kScripts = 300;
#else
constexpr int kScripts = 60;
#endif
constexpr int kRolls = 300;

// The grammar with statements that act: money, names, strings, jumps,
// sessions, questions, and bets of the other player.
const std::vector<script_test::Rule> kRunGrammar = [] {
  auto g = script_test::Extended(
      script_test::kGrammar, 'S',
      {"atm deposit N :", "atm withdraw N :", "remove all(> N, place bets) :", "add N to K :",
       "subtract E from K :", "swap place6, place8 :", "csnD = \"x\" & E & left$(csnD, D) :",
       "round up to the nearest D on K :", "divide by E on csD :", "multiply by E on K :",
       "gosub \"sub\" :", "autohandle winning bets = D :", "autotake full odds = E :",
       "call off place bets :", "buy the place bet on place6 :", "player2 place8 = E :", "player1 field = N :",
       "if # rolls = 150 then start new session (preserve checkstacks) endif",
       "show message E :", "ask yes/no question \"q\" :", "pass the dice :",
       "csD = mid$(\"abcdef\", E, E) & instr(D, \"abc\", \"b\") :", "csD = E mod (E - E) :",
       "activate probability file :", "deactivate probability file :"});
  return script_test::Extended(g, 'E',
                               {"rnd * 10", "len(csn1)", "val(csn2)", "average(cs1, cs2)",
                                "int(E / 3)", "stddev(E, E)", "count(> 0, bets)",
                                "abs(E - 20)", "die(D)", "checkstack(D)"});
}();

std::string RandomScript(std::mt19937& rng) {
  return script_test::Expand(kRunGrammar, 'B', 0, rng) +
         "\ngoto \"end\" :\n:\"sub\":\n" + script_test::Expand(kRunGrammar, 'B', 3, rng) +
         "\nreturn\n:\"end\":\n";
}

TEST(RunFuzz, WellFormedScriptsRunWithoutLosingMoney) {
  std::mt19937 rng(4242);
  int betting = 0;  // scripts whose players had bets decided
  for (int n = 0; n < kScripts && !::testing::Test::HasFailure(); ++n) {
    HeadlessPlatform platform;
    platform.minimized = true;
    platform.fixedTime = 0;
    platform.clockStep = 1000;  // start-up's clock measure ends at once
    auto owner = MakeGame(platform);
    Game& g = *owner;
    StartUp(g, "/tmp/ravelton-run-fuzz");
    g.rules.BetRequirement = kNoBetRequired;
    g.dice.RngIndex = static_cast<Long>(rng() % kRngCount);
    SeedRngWith(g, 1 + rng() % 100000);
    g.scriptRun.RunStatementLimit = 5000;
    std::string scripts[3];
    for (int p = 1; p <= 2; ++p) {
      SeatPlayer(g, p, p == 1 ? "Ann" : "Bob", Currency::FromWhole(500 + 1000 * (rng() % 3)));
      scripts[p] = RandomScript(rng);
      g.scriptSource.ScriptLines[static_cast<std::size_t>(p)] = script_test::Lines(scripts[p]);
      SetScriptActive(g, p, true);
      g.scriptRun.AllowActForOthers(p) = rng() % 2;
    }
    g.HyperDrive = true;
    ASSERT_TRUE(InitializeScripts(g)) << g.scriptRun.FailedMessage << "\n" << scripts[1] << "\n---\n"
                                      << scripts[2];
    g.HyperDrive = false;
    g.hyper.RunRollLimit = kRolls;
    RunHyperDrive(g);
    EXPECT_FALSE(g.HyperDrive);
    for (int p = 1; p <= 2; ++p) {
      Currency net;
      for (int b = 1; b <= kLastRealBet; ++b)
        net += g.StatWins(FrameIndex(p, 2), b, 2) - g.StatLosses(FrameIndex(p, 2), b, 2);
      EXPECT_EQ(g.Bet(p, 0), g.InvestedBankroll(p) + net) << "player " << p;
      for (int b = 1; b <= kLastRealBet; ++b)
        if (g.StatAction(FrameIndex(p, 4), b, 1) > Currency{}) {
          ++betting;
          break;
        }
      EXPECT_TRUE(CheckBetLedger(g, p)) << "player " << p;
    }
    if (::testing::Test::HasFailure())
      ADD_FAILURE() << "scripts #" << n << ":\n" << scripts[1] << "\n---\n" << scripts[2];
  }
  // Some players had bets decided, so the money check above is not vacuous.
  EXPECT_GE(betting, kScripts / 10);
}

}  // namespace
