// Scripts that play long seeded Hyper-Drive runs: every example script with
// one player, and random well-formed scripts from the shared grammar (with
// the statements that act on the game added) for two players. No run may
// crash or hang beyond the bound on a run's statements, every dollar of a
// bankroll is accounted for by what was invested and the net of the decided
// bets, the ledger of the bets agrees, and the scripts did bet. Run it in
// the sanitizer build too.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/hyperdrive.h"
#include "cycle/startup.h"
#include "dice/rng.h"
#include "engine/place.h"
#include "engine/players.h"
#include "script/activation.h"
#include "script/files.h"
#include "script_grammar.h"
#include "script_test_util.h"

namespace fs = std::filesystem;

namespace {

#ifdef NDEBUG
constexpr int kExampleRolls = 100'000;
constexpr int kScripts = 300;
#else
constexpr int kExampleRolls = 10'000;  // the sanitizer build: shorter runs of the same checks
constexpr int kScripts = 60;
#endif
constexpr int kFuzzRolls = 300;

// A started game in Hyper-Drive mode whose scripts' messages are not waited on.
struct PlayTable {
  explicit PlayTable(const char* folder) : owner(MakeGame(platform)), g(*owner) {
    platform.minimized = true;
    platform.fixedTime = 0;
    platform.clockStep = 1000;  // start-up's clock measure ends at once
    StartUp(g, folder);
    g.rules.BetRequirement = kNoBetRequired;
  }
  // Initializes the active scripts as Hyper-Drive does, then rolls.
  bool Play(int rolls) {
    g.HyperDrive = true;
    if (!InitializeScripts(g)) return false;
    g.HyperDrive = false;
    g.hyper.RunRollLimit = rolls;
    RunHyperDrive(g);
    return true;
  }
  // Checks that player p's money adds up; returns whether p had bets decided.
  bool ExpectMoneyAccountedFor(int p) {
    Currency net;
    bool decided = false;
    for (int b = 1; b <= kLastRealBet; ++b) {
      net += g.StatWins(FrameIndex(p, kFrameCurrentSession), b, kStatTotal) -
             g.StatLosses(FrameIndex(p, kFrameCurrentSession), b, kStatTotal);
      decided |= g.StatAction(FrameIndex(p, kFrameAllSessions), b, kStatCount) > Currency{};
    }
    EXPECT_EQ(g.Bet(p, bet::kBankroll), g.InvestedBankroll(p) + net) << "player " << p;
    EXPECT_TRUE(CheckBetLedger(g, p)) << "player " << p;
    return decided;
  }
  HeadlessPlatform platform;
  std::unique_ptr<Game> owner;
  Game& g;
};

TEST(ExamplesPlay, EveryExampleBetsAndEveryDollarIsAccountedFor) {
  int played = 0;
  for (const auto& entry : fs::directory_iterator(fs::path(RAVELTON_SOURCE_DIR) / "examples")) {
    if (entry.path().extension() != ".bet") continue;
    SCOPED_TRACE(entry.path().filename().string());
    PlayTable t("/tmp/ravelton-examples");
    Game& g = t.g;
    g.dice.RngIndex = 0;
    SeedRngWith(g, 20261122 + played);
    SeatPlayer(g, 1, "Ann", 20'000_usd);
    ASSERT_TRUE(OpenAutoBets(g, 1, entry.path().string()));
    SetScriptActive(g, 1, true);
    ASSERT_TRUE(t.Play(kExampleRolls));
    EXPECT_EQ(g.hyper.RollsThisRun, kExampleRolls) << g.hyper.LastStopMessage;
    long decisions = 0;
    for (int b = 1; b <= kLastRealBet; ++b)
      decisions +=
          g.StatAction(FrameIndex(1, kFrameAllSessions), b, kStatCount).raw / Currency::kScale;
    t.ExpectMoneyAccountedFor(1);
    EXPECT_GT(decisions, kExampleRolls / 20) << "the script placed bets";
    ++played;
  }
  EXPECT_GE(played, 8);
}

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
  int betting = 0;  // players who had bets decided
  for (int n = 0; n < kScripts && !::testing::Test::HasFailure(); ++n) {
    PlayTable t("/tmp/ravelton-run-fuzz");
    Game& g = t.g;
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
    ASSERT_TRUE(t.Play(kFuzzRolls)) << g.scriptRun.FailedMessage << "\n" << scripts[1] << "\n---\n"
                                    << scripts[2];
    EXPECT_FALSE(g.HyperDrive);
    for (int p = 1; p <= 2; ++p) betting += t.ExpectMoneyAccountedFor(p);
    if (::testing::Test::HasFailure())
      ADD_FAILURE() << "scripts #" << n << ":\n" << scripts[1] << "\n---\n" << scripts[2];
  }
  // Some players had bets decided, so the money check above is not vacuous.
  EXPECT_GE(betting, kScripts / 10);
}

}  // namespace
