// The run as a whole: the string pool's cut-back, the bounds on runaway
// scripts, two scripts joined side by side, the compile at a roll, the
// activation offer, and a Hyper-Drive run that allocates nothing. Then the
// actions that reach outside the table: output files and the data folder
// rule, the permissions that move with a player, the file actions whose
// subsystems are not built, Check Script and Deactivate All. Last, plain
// conditions, assignments and bets run by their precompiled plans must give
// what the sweeps give.
#include "script/interpreter.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "config/settings.h"
#include "core/catalogue.h"
#include "core/message_dialog.h"
#include "cycle/hyperdrive.h"
#include "dice/dice_file.h"
#include "dice/probability_file.h"
#include "dice/rng.h"
#include "engine/players.h"
#include "script/activation.h"
#include "script/script_text.h"
#include "script/variables.h"
#include "script_test_util.h"
#include "store/game_file.h"
#include "tests/engine/roll_fixture.h"
#include "tests/support/count_allocations.h"
#include "tests/support/file_text.h"

namespace fs = std::filesystem;

namespace {

class Interpreter : public RollFixture {
 protected:
  Interpreter() {
    fs::create_directories(folder / "data");
    g.roll.DataFolder = folder / "data/";
    SeatPlayer(g, 1, "Ann", 1000_usd);
    SeatPlayer(g, 2, "Bob", 1000_usd);
  }
  void Script(int p, std::string_view text) {
    g.scriptSource.ScriptLines[static_cast<std::size_t>(p)] = script_test::Lines(text);
    SetScriptActive(g, p, true);
  }
  double Stack(int p, int n) const { return g.Bet(p, 100 + n).ToDouble(); }
  const std::string& Name(int p, int n) const { return g.CheckStackName(p, n); }
  // Runs one script of player p with the editor open on it and returns the
  // last statement's step note.
  std::string Run(int p, std::string_view text) {
    for (int s = 1; s <= 8; ++s) SetScriptActive(g, s, s == p);
    g.scriptRun.ShowSteps = true;
    g.scriptSource.ScriptLines[static_cast<std::size_t>(p)] = script_test::Lines(text);
    g.scriptSource.EditorOpen = true;
    g.scriptSource.EdPlayer = p;
    g.scriptSource.EdLines = g.scriptSource.ScriptLines[static_cast<std::size_t>(p)];
    g.scriptSource.EdLineCount = static_cast<std::int32_t>(g.scriptSource.EdLines.size()) - 1;
    platform.steps.clear();
    EXPECT_TRUE(InitializeScripts(g)) << g.scriptRun.FailedMessage;
    return platform.steps.empty() ? std::string() : platform.steps.back().note;
  }
};
using Actions = Interpreter;

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

  // Within a run too, a statement's strings end with it: a loop making long
  // texts does not add a pool entry an iteration.
  Script(1, "Do : csn3 = space$(1000) & cs4 : add 1 to cs4 : If cs4 >= 500 Then ExitDo EndIf : Loop");
  CompileALLAutobets(g);
  ASSERT_TRUE(g.roll.ScriptsOK);
  RunAutoBets(g);
  EXPECT_EQ(Stack(1, 4), 500);
  EXPECT_EQ(Name(1, 3).size(), 1003u);
  EXPECT_LT(g.scriptRun.AllStrings.size(), static_cast<std::size_t>(g.scriptRun.AllStringsCount) + 10);
}

// Whatever a script sets, the game still saves and opens again: a
// CheckStack near its own limit, a NUL made into a name (saved as a blank),
// a comp rate past any money.
TEST_F(Interpreter, WhatAScriptSetsTheGameStillSavesAndOpens) {
  Script(1, "cs1 = 99999999999999 : csn1 = \"a\" & chr$(0) & \"b\" : comp rate = 10 ^ 308");
  CompileALLAutobets(g);
  ASSERT_TRUE(g.roll.ScriptsOK);
  RunAutoBets(g);
  EXPECT_EQ(g.rules.CompRate, kMoneyLimit);
  const std::string path = folder / "data/set.rvg";
  ASSERT_TRUE(SaveGame(g, path));
  g.Bet(1, 101) = Currency{};
  ASSERT_TRUE(OpenGame(g, path));
  EXPECT_EQ(Stack(1, 1), 99999999999999.0);
  EXPECT_EQ(Name(1, 1), "a b");
}

TEST_F(Interpreter, RunawayGoSubsAndLoopsEndTheRun) {
  Script(1, ":\"again\":\nadd 1 to cs1 : GoSub \"again\"");
  ASSERT_TRUE(InitializeScripts(g));
  EXPECT_EQ(g.scriptRun.ErrorText, "Out of stack space, Error #28 occurred, at: Auto-bet run");
  EXPECT_EQ(Stack(1, 1), kGosubDepthLimit + 1);  // the call beyond the bound fails
  EXPECT_FALSE(g.scriptRun.ScriptRunning);

  // An endless loop stops at the statement limit as if interrupted.
  g.Bet(1, 101) = Currency{};
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
  EXPECT_FALSE(g.HyperDrive || g.KeepRolling || g.roll.ScriptsOK);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 0);
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

TEST_F(Actions, OutputFilesAppendAndClearInsideTheDataFolder) {
  Run(1, "open/clear file for output \"out.txt\" : output to file \"a\" & tab :\n"
         "output to file 1.5 & new line");
  Run(2, "open/append file for output \"out.txt\" : output to file \"b\" : output to file tab");
  EXPECT_EQ(ReadWholeFile(folder / "data/out.txt"), "a\t1.5\r\nb \t");
  Run(1, "open/clear file for output \"out.txt\"");
  EXPECT_EQ(ReadWholeFile(folder / "data/out.txt"), "");
  EXPECT_FALSE(fs::exists(folder / "data/out.txt.tmp"));
}

TEST_F(Actions, AFileOutsideTheDataFolderNeedsThePermission) {
  const std::string outside = folder / "outside.txt";
  for (const std::string& name : {std::string("../outside.txt"), outside}) {
    EXPECT_EQ(Run(1, "open/append file for output \"" + name + "\""),
              "Unable to take action.\rFile must be in the data folder.")
        << name;
    EXPECT_FALSE(fs::exists(folder / "outside.txt"));
  }
  EXPECT_EQ(Run(1, "output to file \"x\""), "Unable to take action.\rOutput file not open.");
  g.scriptRun.AllowAnyFolder(1) = true;
  Run(1, "open/append file for output \"" + outside + "\" : output to file \"x\"");
  EXPECT_EQ(ReadWholeFile(folder / "outside.txt"), "x");
}

TEST_F(Actions, PermissionsMoveWithThePlayerAndANewPlayerGetsTheDefaults) {
  g.scriptRun.AllowAnyFolder(1) = true;
  g.scriptRun.AllowReset(1) = false;
  MovePlayer(g, 1, 5);
  EXPECT_TRUE(g.scriptRun.AllowAnyFolder(5));
  EXPECT_FALSE(g.scriptRun.AllowReset(5));
  EXPECT_FALSE(g.scriptRun.AllowAnyFolder(1));
  SeatPlayer(g, 1, "Cy", 1000_usd);
  EXPECT_TRUE(g.scriptRun.AllowReset(1));
  EXPECT_TRUE(g.scriptRun.AllowDiceFiles(1));
  EXPECT_FALSE(g.scriptRun.AllowActForOthers(1));
  EXPECT_EQ(Run(5, "start new session"),
            "Unable to take action.\rAnn is not allowed to start new sessions.\r"
            "See Options - Permissions.");
}

TEST_F(Actions, ProbabilityFilesComeFromTheDataFolderAndNeedThePermission) {
  ASSERT_TRUE(SaveProbabilityFile(g, "skew.prb"));
  ASSERT_TRUE(fs::exists(folder / "data/skew.prb"));
  EXPECT_EQ(Run(1, "activate probability file \"none.prb\""),
            "Unable to take action.\rFile not found or file is not a valid probability file.");
  EXPECT_EQ(Run(1, "activate probability file \"../skew.prb\""),
            "Unable to take action.\rFile must be in the data folder.");
  EXPECT_FALSE(g.dice.ProbabilityDiceOn);
  Run(1, "activate probability file \"skew.prb\"");
  EXPECT_TRUE(g.dice.ProbabilityDiceOn);
  Run(1, "deactivate probability file");
  EXPECT_FALSE(g.dice.ProbabilityDiceOn);
  Run(1, "activate probability file");
  EXPECT_TRUE(g.dice.ProbabilityDiceOn);
  // Without the permission neither kind of file is touched.
  g.scriptRun.AllowDiceFiles(1) = false;
  EXPECT_EQ(Run(1, "deactivate probability file"),
            "Unable to take action.\rAnn is not allowed to deactivate probability files.\r"
            "See Options - Permissions.");
  EXPECT_TRUE(g.dice.ProbabilityDiceOn);
  EXPECT_EQ(Run(1, "playback dice roll file"),
            "Unable to take action.\rAnn is not allowed to activate roll files.\r"
            "See Options - Permissions.");
}

// A script plays back a dice roll file of the data folder from the roll it
// names, reads where the file stands, and stops and restarts it.
TEST_F(Actions, DiceRollFilesPlayBackFromTheDataFolder) {
  const std::pair<int, int> dice[] = {{1, 2}, {3, 3}, {6, 5}, {2, 2}, {4, 3}};
  std::string rolls;
  for (auto [d1, d2] : dice) rolls += static_cast<char>(DiceRollByte(d1, d2));
  WriteWholeFile(folder / "data/rolls.rol", rolls);
  WriteWholeFile(folder / "data/bad.rol", "\x01");
  const std::string rolled =
      "cs1 = dice roll file next roll : cs2 = dice roll file length : "
      "cs3 = dice roll file end reached";
  // Run leaves the script on; the rolls here are the file's alone.
  const auto roll = [this] {
    SetScriptActive(g, 1, false);
    RollDice(g);
  };
  EXPECT_EQ(Run(1, rolled), "Dice roll file not open.\rAction taken.");
  EXPECT_EQ(Stack(1, 2), 0);
  EXPECT_EQ(Run(1, "deactivate dice roll file"),
            "Unable to take action.\rDice roll file is not open.");
  for (const char* refused : {"playback dice roll file", "playback dice roll file from roll 2"})
    EXPECT_EQ(Run(1, refused), "Unable to take action.\rDice roll file not open.") << refused;
  EXPECT_EQ(Run(1, "playback dice roll file \"none.rol\""),
            "Unable to take action.\rFile not found.");
  EXPECT_EQ(Run(1, "playback dice roll file \"../rolls.rol\""),
            "Unable to take action.\rFile must be in the data folder.");
  EXPECT_EQ(g.diceFile.DiceFileMode, kDiceFileInactive);

  Run(1, "playback dice roll file \"rolls.rol\" from roll 3");
  EXPECT_EQ(g.diceFile.DiceFilePath, folder / "data/rolls.rol");
  EXPECT_EQ(g.diceFile.DiceFileMode, kDiceFilePlayback);
  roll();
  EXPECT_EQ(std::pair(g.Die1, g.Die2), dice[2]);
  Run(1, rolled);
  EXPECT_EQ(Stack(1, 1), 4);
  EXPECT_EQ(Stack(1, 2), 5);
  EXPECT_EQ(Stack(1, 3), 0);
  // The last roll of the file leaves the next one beyond it.
  Run(1, "playback dice roll file from roll 5");
  roll();
  EXPECT_EQ(std::pair(g.Die1, g.Die2), dice[4]);
  Run(1, rolled);
  EXPECT_EQ(Stack(1, 3), -1);
  // A roll outside the file starts it over; the open file's own name keeps
  // its place.
  Run(1, "playback dice roll file from roll 9");
  EXPECT_EQ(g.diceFile.DiceFilePos, 1);
  Run(1, "playback dice roll file from roll 2 : playback dice roll file \"rolls.rol\"");
  EXPECT_EQ(g.diceFile.DiceFilePos, 2);

  Run(1, "deactivate dice roll file");
  EXPECT_EQ(g.diceFile.DiceFileMode, kDiceFileInactive);
  EXPECT_EQ(Run(1, "deactivate dice roll file"), "Action taken.");  // open but already off
  Run(1, "playback dice roll file");
  EXPECT_EQ(g.diceFile.DiceFileMode, kDiceFilePlayback);
  // A file that is no dice roll file closes the one that was open.
  EXPECT_EQ(Run(1, "playback dice roll file \"bad.rol\""),
            "Unable to take action.\rFile is not a valid dice roll file.");
  EXPECT_EQ(g.diceFile.DiceFilePath, "");
  EXPECT_EQ(g.diceFile.DiceFileMode, kDiceFileInactive);
}

TEST_F(Actions, CheckScriptSelectsTheSpanWithoutBlanksAndColons) {
  ScriptSource& src = g.scriptSource;
  src.EditorOpen = true;
  src.EdPlayer = 1;
  src.EdLines = {"", "cs1 = 1 :", "  cs2 = ", "cs3 = 3"};
  src.EdLineCount = 3;
  const CheckScriptResult bad = CheckScript(g);
  EXPECT_FALSE(bad.ok);
  EXPECT_EQ(platform.messages.back().style, 0x201);
  EXPECT_EQ(platform.messages.back().title.rfind("Auto-bet script error in line", 0), 0u);
  EXPECT_GE(bad.line, 1);
  EXPECT_LE(bad.endLine, 3);

  src.EdLines = {"", "cs1 = 1"};
  src.EdLineCount = 1;
  g.roll.ScriptsOK = true;
  EXPECT_TRUE(CheckScript(g).ok);
  EXPECT_EQ(platform.messages.back().text, "Your script is properly structured.");
  EXPECT_FALSE(g.roll.ScriptsOK);

  src.EdLines = {"", "   "};
  CheckScript(g);
  EXPECT_EQ(platform.messages.back().helpId, 556);
}

// Deactivate All while a script runs asks first: No leaves the run and the
// switches alone; Yes stops the run, says so in Hyper-Drive, and goes on.
TEST_F(Actions, DeactivateAllDuringARunAsksToInterrupt) {
  SetScriptActive(g, 1, true);
  g.scriptRun.ScriptRunning = true;
  g.KeepRolling = g.HyperDrive = true;
  platform.queuedReplies.push_back({kAnswerNo, "", "", false});
  DeactivateAllScripts(g);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Auto-Bet Active");
  EXPECT_EQ(platform.messages[0].text,
            "You can't deactivate scripts while auto-betting is active.\r\r"
            "Do you want to interrupt auto-betting?");
  EXPECT_TRUE(g.scriptRun.ScriptRunning);
  EXPECT_TRUE(g.roll.ScriptActive[1]);

  platform.queuedReplies.push_back({kAnswerYes, "", "", false});
  DeactivateAllScripts(g);
  EXPECT_FALSE(g.scriptRun.ScriptRunning || g.KeepRolling);
  EXPECT_EQ(g.StopMessage, "Auto-betting interrupted.");
  EXPECT_FALSE(g.roll.ScriptActive[1] || g.roll.ScriptActive[0]);

  // With nothing running the editor's question is not asked at all.
  EXPECT_FALSE(AskInterruptAutoBetting(g, true));
  EXPECT_EQ(platform.messages.size(), 2u);
}

// The same random condition is run bare (by its plan) and inside brackets
// (which no plan takes, so the sweeps reduce it): the branch taken, every
// step note (divisions by zero, "Condition is true") and the run-time
// failure must agree. So must a random value assigned or bet bare and in
// brackets: the stacks and the bet it leaves, the notes and the failure.
struct Outcome {
  double branch = 0;
  double targets[2] = {};  // cs8 and cs9 afterwards
  std::vector<std::string> notes;
  std::string error;
  int plans = 0;
};

class StatementPlan : public Interpreter {
 protected:
  // Runs `script` from fixed stacks and bets.
  Outcome RunScript(const std::string& script) {
    g.Point = 6;
    g.Bet(1, 101) = 3_usd;
    g.Bet(1, 102) = 0_usd;
    g.Bet(1, 103) = Currency::FromRaw(75'000);  // 7.5
    g.Bet(1, 108) = 0_usd;
    g.Bet(1, 109) = 0_usd;
    g.Bet(1, PlaceId(6)) = 12_usd;
    Run(1, script);
    Outcome out;
    out.branch = g.Bet(1, 109).ToDouble();
    out.targets[0] = g.Bet(1, 108).ToDouble();
    out.targets[1] = g.Bet(1, 109).ToDouble();
    for (const ScriptStep& step : platform.steps) out.notes.push_back(step.note);
    out.error = g.scriptRun.ErrorText;
    out.plans = static_cast<int>(g.scriptRun.Plans.size());
    g.scriptRun.ErrorText.clear();
    return out;
  }
  // Runs `If condition Then cs9 = 1 Else cs9 = 2 EndIf`.
  Outcome RunCondition(const std::string& condition) {
    return RunScript("If " + condition + " Then cs9 = 1 Else cs9 = 2 EndIf");
  }

  std::mt19937 rng{2024};
  // A random expression of two to six operands; a value (what a statement
  // assigns or bets) holds no comparison, a chain is comparisons joined by
  // And.
  std::string RandomExpression(bool value = false, bool chain = false) {
    static const std::vector<std::string> operands = [] {
      std::vector<std::string> out;
      std::istringstream in(
          "0|1|2|3|2.5|7|3000000000|cs1|cs2|cs3|place6|point|count(> 0, cs1, cs2, cs3)|"
          "sum(cs1, cs3)|average(> 5, cs1, cs2)|highest(cs2, cs3)|lowest(> 1, cs1, cs2, cs3)|"
          "stddev(cs1, > 4, cs3)");
      for (std::string w; std::getline(in, w, '|');) out.push_back(w);
      return out;
    }();
    static const std::vector<std::string> operators = {
        "^", "*", "/", "\\", "mod", "+", "-", "=", "<>", "<", ">", "<=", ">=", "and", "or", "xor"};
    static const std::vector<std::string> valueOperators = {"^", "*", "/",   "\\", "mod",
                                                            "+", "-", "and", "or", "xor"};
    auto pick = [&](const std::vector<std::string>& from) {
      return from[std::uniform_int_distribution<std::size_t>(0, from.size() - 1)(rng)];
    };
    const auto& ops = value ? valueOperators : operators;
    if (chain) {
      // One to four comparisons joined by And.
      static const std::vector<std::string> comparisons = {"=", "<>", "<", ">", "<=", ">="};
      std::string expression = pick(operands) + " " + pick(comparisons) + " " + pick(operands);
      const int n = std::uniform_int_distribution<int>(1, 4)(rng);
      for (int k = 1; k < n; ++k)
        expression += " and " + pick(operands) + " " + pick(comparisons) + " " + pick(operands);
      return expression;
    }
    std::string expression = pick(operands);
    // A lone number after If reads as a label: two operands at least.
    const int n = std::uniform_int_distribution<int>(2, 6)(rng);
    for (int k = 1; k < n; ++k) expression += " " + pick(ops) + " " + pick(operands);
    return expression;
  }
};

// A chain of comparisons joined by And stops at the first that fails; the
// branch and the notes (an average of nothing in any comparison) must be
// those of the sweeps, which figure every comparison.
TEST_F(StatementPlan, RandomConditionsAndComparisonChainsGiveWhatTheSweepsGive) {
  constexpr int kConditions = 400;
  for (const bool chain : {false, true}) {
    SCOPED_TRACE(chain ? "comparison chains" : "conditions");
    int failures = 0, divisions = 0, taken = 0;
    for (int c = 0; c < kConditions; ++c) {
      const std::string condition = RandomExpression(false, chain);
      const Outcome planned = RunCondition(condition);
      const Outcome swept = RunCondition("(" + condition + ")");
      if (chain) {
        ASSERT_EQ(planned.plans, 3) << condition;
      } else {
        ASSERT_GT(planned.plans, 0) << condition;  // the bare condition has a plan
        // The bracketed one has none but the assignments' (cs9 = 1, cs9 = 2).
        ASSERT_EQ(swept.plans, 2) << condition;
      }
      EXPECT_EQ(planned.branch, swept.branch) << condition;
      EXPECT_EQ(planned.notes, swept.notes) << condition;
      EXPECT_EQ(planned.error, swept.error) << condition;
      failures += !swept.error.empty();
      taken += swept.branch == 1;
      for (const std::string& note : swept.notes)
        divisions += note.find("Division by zero.") != std::string::npos;
    }
    // The cases reach both branches, division by zero, and (the conditions)
    // the overflow.
    EXPECT_GT(divisions, 0);
    if (chain) {
      EXPECT_GT(taken, kConditions / 20);
      EXPECT_LT(taken, kConditions - kConditions / 20);
    } else {
      EXPECT_GT(failures, 0);
      EXPECT_GT(taken, 0);
      EXPECT_LT(taken, kConditions - failures);
    }
  }
}

// A script reads money by a shortcut for whole amounts: every amount, whole
// or not, small or near the limit of exact doubles, reads as ToDouble does.
TEST(AmountValue, EveryAmountReadsAsToDoubleGivesIt) {
  std::mt19937_64 rng(7);
  constexpr std::int64_t kExact = std::int64_t{1} << 53;
  constexpr std::int64_t kWholeNearExact = kExact / 10'000 * 10'000;
  // Each edge and its negative.
  for (const std::int64_t edge :
       {std::int64_t{0}, std::int64_t{1}, std::int64_t{9'999}, std::int64_t{10'000},
        std::int64_t{123'450'000}, kExact, kWholeNearExact, kWholeNearExact + 10'000,
        kWholeNearExact + 10'000 * 9'999,
        std::numeric_limits<std::int64_t>::max() / 10'000 * 10'000})
    for (const std::int64_t raw : {edge, -edge})
      EXPECT_EQ(AmountValue(Currency::FromRaw(raw)), Currency::FromRaw(raw).ToDouble()) << raw;
  for (int k = 0; k < 100'000; ++k) {
    const int bits = static_cast<int>(rng() % 63);
    std::int64_t raw = static_cast<std::int64_t>(rng() >> (63 - bits));
    if (k % 2 == 0) raw = raw / 10'000 * 10'000;  // whole amounts, half the time
    if (k % 3 == 0) raw = -raw;
    const Currency c = Currency::FromRaw(raw);
    ASSERT_EQ(AmountValue(c), c.ToDouble()) << raw;
  }
}

TEST_F(StatementPlan, RandomValuesAssignedAndBetGiveWhatTheSweepsGive) {
  // Targets before the value and after it, alone or in a qualified list.
  const std::vector<std::pair<std::string, std::string>> forms = {
      {"cs9 = ", ""},
      {"all(< 1, cs8, cs9) = ", ""},
      {"bet ", " on cs8"},
      {"bet ", " on all(< 20, cs9, cs8)"}};
  constexpr int kValues = 300;
  int planned = 0, failures = 0, changed = 0;
  for (int c = 0; c < kValues; ++c) {
    const std::string value = RandomExpression(true);
    const auto& [before, after] = forms[static_cast<std::size_t>(c) % forms.size()];
    const Outcome bare = RunScript(before + value + after);
    const Outcome swept = RunScript(before + "(" + value + ")" + after);
    ASSERT_EQ(swept.plans, 0) << before << value << after;
    planned += bare.plans;
    EXPECT_EQ(bare.targets[0], swept.targets[0]) << before << value << after;
    EXPECT_EQ(bare.targets[1], swept.targets[1]) << before << value << after;
    EXPECT_EQ(bare.notes, swept.notes) << before << value << after;
    EXPECT_EQ(bare.error, swept.error) << before << value << after;
    failures += !swept.error.empty();
    changed += swept.targets[0] != 0 || swept.targets[1] != 0;
  }
  // Most values have a plan, some fail and most change what they target.
  EXPECT_GT(planned, kValues / 2);
  EXPECT_GT(failures, 0);
  EXPECT_GT(changed, kValues / 2);
}

}  // namespace
