// Script actions that reach outside the table: output files and the data
// folder rule, the permissions that move with a player, the file actions
// whose subsystems are not built, and Check Script.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "core/message_dialog.h"
#include "dice/probability_file.h"
#include "engine/players.h"
#include "script/activation.h"
#include "script/interpreter.h"
#include "script_test_util.h"
#include "tests/engine/roll_fixture.h"
#include "tests/support/file_text.h"

namespace fs = std::filesystem;

namespace {

class Actions : public RollFixture {
 protected:
  Actions() {
    fs::create_directories(folder / "data");
    g.roll.DataFolder = folder / "data/";
    SeatPlayer(g, 1, "Ann", 1000_usd);
    SeatPlayer(g, 2, "Bob", 1000_usd);
    g.scriptRun.ShowSteps = true;  // notes are gathered; the editor is closed
  }

  // Runs one script of player p and returns the last statement's note.
  std::string Run(int p, std::string_view text) {
    for (int s = 1; s <= 8; ++s) SetScriptActive(g, s, s == p);
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

TEST_F(Actions, ProbabilityFilesComeFromTheDataFolder) {
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
  g.scriptRun.AllowDiceFiles(1) = false;
  EXPECT_EQ(Run(1, "deactivate probability file"),
            "Unable to take action.\rAnn is not allowed to deactivate probability files.\r"
            "See Options - Permissions.");
  EXPECT_TRUE(g.dice.ProbabilityDiceOn);
}

TEST_F(Actions, DiceRollFileActionsAreRefusedUntilTheFilesExist) {
  EXPECT_EQ(Run(1, "playback dice roll file \"x.rol\""),
            "Unable to take action.\rDice roll files are not available in this version.");
  EXPECT_EQ(Run(1, "deactivate dice roll file"), "Unable to take action.\rDice roll file is not open.");
  g.scriptRun.AllowDiceFiles(1) = false;
  EXPECT_EQ(Run(1, "playback dice roll file"),
            "Unable to take action.\rAnn is not allowed to activate roll files.\r"
            "See Options - Permissions.");
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

}  // namespace

namespace {

// Deactivate All while a script runs asks first: No leaves the run and the
// switches alone; Yes stops the run, says so in Hyper-Drive, and goes on.
TEST_F(Actions, DeactivateAllDuringARunAsksToInterrupt) {
  SetScriptActive(g, 1, true);
  g.scriptRun.ScriptRunning = true;
  g.KeepRolling = g.HyperDrive = true;
  platform.queuedReplies.push_back({kAnswerNo});
  DeactivateAllScripts(g);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Auto-Bet Active");
  EXPECT_EQ(platform.messages[0].text,
            "You can't deactivate scripts while auto-betting is active.\r\r"
            "Do you want to interrupt auto-betting?");
  EXPECT_TRUE(g.scriptRun.ScriptRunning);
  EXPECT_TRUE(g.roll.ScriptActive[1]);

  platform.queuedReplies.push_back({kAnswerYes});
  DeactivateAllScripts(g);
  EXPECT_FALSE(g.scriptRun.ScriptRunning);
  EXPECT_FALSE(g.KeepRolling);
  EXPECT_EQ(g.StopMessage, "Auto-betting interrupted.");
  EXPECT_FALSE(g.roll.ScriptActive[1]);
  EXPECT_FALSE(g.roll.ScriptActive[0]);

  // With nothing running the editor's question is not asked at all.
  EXPECT_FALSE(AskInterruptAutoBetting(g, true));
  EXPECT_EQ(platform.messages.size(), 2u);
}

}  // namespace
