// The run as a whole: the string pool's cut-back, the bounds on runaway
// scripts, two scripts joined side by side, the compile at a roll, the
// activation offer, and a Hyper-Drive run that allocates nothing.
#include <gtest/gtest.h>

#include <string>

#include "cycle/hyperdrive.h"
#include "core/message_dialog.h"
#include "config/settings.h"
#include "dice/rng.h"
#include "engine/players.h"
#include "script/activation.h"
#include "script/interpreter.h"
#include "script/script_text.h"
#include "script_test_util.h"
#include "tests/engine/roll_fixture.h"
#include "tests/support/count_allocations.h"

namespace {

class Interpreter : public RollFixture {
 protected:
  Interpreter() {
    SeatPlayer(g, 1, "Ann", 1000_usd);
    SeatPlayer(g, 2, "Bob", 1000_usd);
  }
  void Script(int p, std::string_view text) {
    g.scriptSource.ScriptLines[static_cast<std::size_t>(p)] = script_test::Lines(text);
    SetScriptActive(g, p, true);
  }
  double Stack(int p, int n) const { return g.Bet(p, 100 + n).ToDouble(); }
  const std::string& Name(int p, int n) const { return g.CheckStackName(p, n); }
};

TEST_F(Interpreter, StringsMadeInARunAreGoneAfterItButANameKeepsItsCopy) {
  Script(1, "csn1 = \"a\" & cs1 : add 1 to cs1 : csn2 = csn1 & \"!\"");
  CompileALLAutobets(g);
  ASSERT_TRUE(g.roll.ScriptsOK);
  const int joined = g.scriptRun.AllStringsCount;
  RunAutoBets(g);
  EXPECT_EQ(g.scriptRun.AllStringsCount, joined);
  RunAutoBets(g);  // the second run writes its strings into the same pool entries
  EXPECT_EQ(g.scriptRun.AllStringsCount, joined);
  EXPECT_EQ(Name(1, 1), "a1");
  EXPECT_EQ(Name(1, 2), "a1!");
}

TEST_F(Interpreter, RunawayGoSubEndsTheRunWithTheStandardError) {
  Script(1, ":\"again\":\nadd 1 to cs1 : GoSub \"again\"");
  ASSERT_TRUE(InitializeScripts(g));
  EXPECT_EQ(g.scriptRun.ErrorText, "Out of stack space, Error #28 occurred, at: Auto-bet run");
  EXPECT_EQ(Stack(1, 1), kGosubDepthLimit + 1);  // the call beyond the bound fails
  EXPECT_FALSE(g.scriptRun.ScriptRunning);
}

TEST_F(Interpreter, AnEndlessLoopStopsAtTheStatementLimitAsIfInterrupted) {
  Script(1, "Do : add 1 to cs1 : Loop");
  g.scriptRun.RunStatementLimit = 1000;
  g.HyperDrive = true;
  g.KeepRolling = true;
  ASSERT_TRUE(InitializeScripts(g));
  EXPECT_FALSE(g.KeepRolling);
  EXPECT_EQ(g.StopMessage, "Auto-betting interrupted.");
  EXPECT_GT(Stack(1, 1), 100);
  EXPECT_LT(Stack(1, 1), 1000);
}

TEST_F(Interpreter, TwoScriptsWithTheSameLabelsAndStringsKeepTheirOwn) {
  const char* text =
      "GoSub \"name\" : GoTo \"end\" :\n:\"name\":\ncsn1 = \"mine\" & player name(autobettor) :\n"
      "Return\n:\"end\":\ncs1 = 1";
  Script(1, text);
  Script(2, std::string("csn3 = \"first\" :\n") + text);
  ASSERT_TRUE(InitializeScripts(g));
  EXPECT_EQ(Name(1, 1), "mineAnn");
  EXPECT_EQ(Name(2, 1), "mineBob");
  EXPECT_EQ(Name(2, 3), "first");
  EXPECT_EQ(Stack(1, 1), 1);
  EXPECT_EQ(Stack(2, 1), 1);
}

TEST_F(Interpreter, AScriptThatDoesNotCompileStopsHyperDriveBeforeAnyRoll) {
  Script(1, "cs1 = ");
  g.hyper.RunRollLimit = 10;
  RunHyperDrive(g);
  EXPECT_FALSE(g.HyperDrive);
  EXPECT_FALSE(g.KeepRolling);
  EXPECT_FALSE(g.roll.ScriptsOK);
  EXPECT_EQ(g.RollTally(18, 0), 0);
  EXPECT_EQ(g.scriptRun.FailedPlayer, 1);
  ASSERT_FALSE(platform.messages.empty());
  EXPECT_EQ(platform.messages.front().title, "Auto-bet script error");
}

TEST_F(Interpreter, ActivationAnsweredNoLeavesTheSwitchOnWithoutACycle) {
  Script(1, "add 1 to cs1");
  Script(2, "add 1 to cs1");
  platform.queuedReplies.push_back({kAnswerNo, "", "", false});
  ActivateScripts(g, 1);
  EXPECT_TRUE(g.roll.ScriptActive[1]);
  EXPECT_EQ(Stack(1, 1), 0);
  EXPECT_EQ(platform.messages.back().style, 0x1406);

  // Yes initializes only the one player's script, and the stream it joined
  // for that is not kept.
  ActivateScripts(g, 1);
  EXPECT_EQ(Stack(1, 1), 1);
  EXPECT_EQ(Stack(2, 1), 0);
  EXPECT_TRUE(g.roll.ScriptActive[2]);
  EXPECT_FALSE(g.roll.ScriptsOK);
}

TEST_F(Interpreter, HidingAScriptMessageSilencesTheRestOfItsClass) {
  Script(1, "show message \"one\" : show message \"two\"");
  platform.queuedReplies.push_back({kAnswerOk, "", "", true});
  ASSERT_TRUE(InitializeScripts(g));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].style, 0x80001);
  EXPECT_EQ(g.rules.NoticeFlags & kNoticeScriptNormal, 0);
  g.rules.NoticeFlags |= kNoticeScriptNormal;  // the option set again
  ASSERT_TRUE(InitializeScripts(g));
  EXPECT_EQ(platform.messages.size(), 3u);
}

TEST_F(Interpreter, AHyperDriveRunOfAThousandStatementsAllocatesNothing) {
  std::string text;
  for (int i = 0; i < 1000; ++i)
    text += "cs" + std::to_string(i % 90) + " = cs" + std::to_string((i + 1) % 90) +
            " + place6 * 2 - 1 : csn1 = \"x\" & cs1 :\n";
  text += "If place6 = 0 Then place6 = 12 EndIf";
  Script(1, text);
  g.dice.RngIndex = 0;
  SeedRngWith(g, 4711);
  ASSERT_TRUE(InitializeScripts(g));
  g.hyper.RunRollLimit = 200;  // the tables reach their working sizes
  RunHyperDrive(g);
  const long before = gAllocations.load();
  g.hyper.RunRollLimit = 500;
  RunHyperDrive(g);
  EXPECT_EQ(gAllocations.load() - before, 0);
  EXPECT_GE(g.hyper.RollsThisRun, 500);
}

}  // namespace
