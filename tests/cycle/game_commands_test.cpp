#include "cycle/game_commands.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/catalogue.h"
#include "core/message_dialog.h"
#include "store/game_file.h"
#include "tests/store/store_fixture.h"

namespace {

class GameCommands : public StoreFixture {
 protected:
  void Answer(int answer) { platform.queuedReplies.push_back({answer, "", "", false}); }
  void Type(std::optional<std::string> name) { platform.queuedFileNames.push_back(std::move(name)); }
  std::vector<std::string> Titles() const {
    std::vector<std::string> out;
    for (const auto& m : platform.messages) out.push_back(m.title);
    return out;
  }
};

TEST_F(GameCommands, StartUpOpensTheNamedGameElseTheDefaultElseKeepsTheDefaults) {
  EXPECT_FALSE(OpenStartupGame(*game, ""));
  EXPECT_TRUE(platform.messages.empty());

  SeatPlayer(*game, 3, "Ann", Currency::FromWhole(50));
  ASSERT_TRUE(SaveGame(*game, Path("Named Game.rvg")));
  game->PlayerName[3].clear();
  ASSERT_TRUE(SaveGame(*game, DefaultGamePath(*game)));

  HeadlessPlatform other;
  auto g = NewGame(other);
  EXPECT_TRUE(OpenStartupGame(*g, "  \"  " + Path("Named Game.rvg") + " \"  "));
  EXPECT_EQ(g->PlayerName[3], "Ann");
  EXPECT_EQ(g->gamefile.WindowTitle, "Ravelton (Named Game.rvg)");

  // A name that is not a game file: its message, then the default game.
  g = NewGame(other);
  g->PlayerName[5] = "Zed";
  EXPECT_TRUE(OpenStartupGame(*g, "notes.txt"));
  ASSERT_EQ(other.messages.size(), 1u);
  EXPECT_EQ(other.messages[0].text,
            "notes.txt\r\rThis is not recognized as a Ravelton game filename.\rThe last default "
            "game file will be opened instead.");
  EXPECT_EQ(other.messages[0].title, "Unable to Open Ravelton Game File");
  EXPECT_EQ(g->PlayerName[5], "");
  EXPECT_EQ(g->gamefile.GameFilePath, "");

  // A game file that does not open: its own message, then the default.
  g = NewGame(other);
  EXPECT_TRUE(OpenStartupGame(*g, Path("missing.RVG")));
  EXPECT_EQ(other.messages.back().title, "Game File Not Found");
}

TEST_F(GameCommands, PromptsComeInOrderAndCancelStopsTheCommand) {
  SeatPlayer(*game, 2, "Ann", Currency::FromWhole(50));
  game->scriptSource.ScriptDirty[2] = true;
  game->roll.SessionDirty = true;
  // No to the script, Cancel to the session: New does nothing.
  Answer(kAnswerNo);
  Answer(kAnswerCancel);
  game->Bet(2, 1) = Currency::FromWhole(5);
  EXPECT_FALSE(NewGameCommand(*game, {}));
  EXPECT_EQ(Titles(), (std::vector<std::string>{"Save Auto-Bets?", "Save Session"}));
  EXPECT_EQ(platform.messages[0].text,
            "Ann's Auto-Bet script has not been saved.\r\rDo you want to save it now?");
  EXPECT_EQ(platform.messages[1].text,
            "Your current session has not been saved.\r\rDo you want to save it now?");
  EXPECT_EQ(game->Bet(2, 1), Currency::FromWhole(5));
  EXPECT_TRUE(game->roll.SessionDirty);

  // Yes to both: the script and the game go through the chooser.
  Answer(kAnswerYes);
  Type("ann script");
  Answer(kAnswerYes);
  Type("Session One");
  EXPECT_TRUE(PromptUnsavedWork(*game));
  EXPECT_TRUE(std::filesystem::exists(Path("ann script.bet")));
  EXPECT_TRUE(std::filesystem::exists(Path("Session One.rvg")));
  EXPECT_FALSE(game->roll.SessionDirty);
  EXPECT_EQ(game->gamefile.GameFilePath, Path("Session One.rvg"));
  ASSERT_GE(platform.fileChoosers.size(), 2u);
  EXPECT_EQ(platform.fileChoosers[0].caption, "Save Auto-Bet File As");
  EXPECT_EQ(platform.fileChoosers[1].caption, "Save Session File As");
  EXPECT_EQ(platform.fileChoosers[1].types,
            (std::vector<std::string>{"Session files (*.rvg)", "All files (*.*)"}));
}

TEST_F(GameCommands, TheChooserRefusesEmptyNamesAndAsksBeforeOverwriting) {
  WriteWholeFile(Path("Taken.rvg"), "x");
  Type("   ");
  Answer(kAnswerOk);
  Type("Taken");
  Answer(kAnswerNo);
  Type("Taken");
  Answer(kAnswerYes);
  EXPECT_TRUE(SaveGameAsCommand(*game));
  EXPECT_EQ(Titles(), (std::vector<std::string>{"Missing Filename", "Save Session File As",
                                                "Save Session File As"}));
  EXPECT_EQ(platform.messages[0].text, "Please enter a file name.");
  EXPECT_EQ(platform.messages[1].text,
            Path("Taken.rvg") + "\r\ris already on file.\r\rDo you want to overwrite it?");
  EXPECT_EQ(ReadWholeFile(Path("Taken.rvg")).size(), GameFileLength(0, 0));
  // Cancel in the chooser saves nothing.
  EXPECT_FALSE(SaveGameAsCommand(*game));
}

TEST_F(GameCommands, NewKeepsOrClearsScriptsAndStartsAFreshSession) {
  SeatPlayer(*game, 1, "Ann", Currency::FromWhole(200));
  // The first cycle after New places the bet the script makes.
  game->scriptSource.ScriptLines[1] = {"", "bet 15 on passline"};
  game->roll.ScriptActive[1] = game->roll.ScriptActive[0] = true;
  game->Bet(1, 1) = Currency::FromWhole(10);
  game->gamefile.GameFilePath = Path("old.rvg");
  game->gamefile.WindowTitle = "Ravelton (old.rvg)";
  game->roll.SessionDirty = false;  // nothing to ask

  NewSessionChoice keep;
  ASSERT_TRUE(NewGameCommand(*game, keep));
  EXPECT_EQ(game->scriptSource.ScriptLines[1].size(), 2u);
  EXPECT_TRUE(game->roll.ScriptActive[1]);
  EXPECT_TRUE(game->roll.ScriptsOK) << game->scriptRun.FailedMessage;
  EXPECT_EQ(game->Bet(1, 1), Currency{});
  EXPECT_EQ(game->Bet(1, bet::kPassLine), Currency::FromWhole(15));
  EXPECT_EQ(game->gamefile.GameFilePath, "");
  EXPECT_EQ(game->gamefile.WindowTitle, "Ravelton");
  EXPECT_FALSE(game->roll.SessionDirty);

  NewSessionChoice clear;
  clear.retainAutoBets = false;
  ASSERT_TRUE(NewGameCommand(*game, clear));
  EXPECT_EQ(game->scriptSource.ScriptLines[1], std::vector<std::string>{""});
  EXPECT_FALSE(game->roll.ScriptActive[0]);
  EXPECT_FALSE(game->roll.ScriptActive[1]);
}

TEST_F(GameCommands, AfterTheFormTheNewSessionAsksNothingMore) {
  // The window has asked the prompts before the form; a session still marked
  // unsaved (the user said No) is not asked about again.
  SeatPlayer(*game, 1, "Ann", Currency::FromWhole(200));
  game->Bet(1, bet::kField) = Currency::FromWhole(5);
  game->roll.SessionDirty = true;
  NewSessionChoice choice;
  StartNewGame(*game, choice);
  EXPECT_TRUE(platform.messages.empty()) << LastMessage();
  EXPECT_EQ(game->Bet(1, bet::kField), Currency{});
  EXPECT_FALSE(game->roll.SessionDirty);
}

TEST_F(GameCommands, TheSecondDiceOptionNamesWhatContinues) {
  const std::pair<std::int32_t, const char*> cases[] = {
      {kDiceFileInactive, " Continue inactive"},
      {kDiceFileRecording, " Continue recording as is"},
      {kDiceFilePlayback, " Continue playback as is"},
  };
  for (const auto& [mode, caption] : cases) {
    game->diceFile.DiceFileMode = mode;
    EXPECT_STREQ(ContinueDiceCaption(*game), caption);
  }
}

TEST_F(GameCommands, ClosingSavesTheDefaultGameInTheDataFolder) {
  HeadlessPlatform other;
  auto g = MakeGame(other);
  other.fixedTime = 0;
  other.clockStep = 1000;
  const std::string data = Path("data/deeper");
  StartUp(*g, dir.Path(), data);
  SeatPlayer(*g, 4, "Cy", Currency::FromWhole(70));
  g->roll.SessionDirty = false;
  std::filesystem::create_directories(Path("data/deeper"));
  WriteWholeFile(Path("data/deeper/copyfile.rll"), "rolls");

  // A script running and the user says No: the program stays open.
  g->scriptRun.ScriptRunning = true;
  other.queuedReplies.push_back({kAnswerNo, "", "", false});
  EXPECT_FALSE(CloseProgram(*g, false));
  EXPECT_EQ(other.messages.back().title, "Auto-Bet Active");
  EXPECT_TRUE(g->scriptRun.ScriptRunning);
  // Yes interrupts the script and its run, so Hyper-Drive is not asked about;
  // the session prompt comes next, and Cancel keeps the program open.
  g->HyperDrive = g->KeepRolling = true;
  other.queuedReplies.push_back({kAnswerYes, "", "", false});
  other.queuedReplies.push_back({kAnswerCancel, "", "", false});
  EXPECT_FALSE(CloseProgram(*g, true));
  EXPECT_FALSE(g->scriptRun.ScriptRunning);
  EXPECT_EQ(other.messages.back().title, "Save Session");
  g->roll.SessionDirty = false;

  // Hyper-Drive running and the user says No: the program stays open.
  g->HyperDrive = g->KeepRolling = true;
  other.queuedReplies.push_back({kAnswerNo, "", "", false});
  EXPECT_FALSE(CloseProgram(*g, false));
  EXPECT_EQ(other.messages.back().title, "Hyper-Drive Active");
  // A moved window makes the session unsaved: Cancel keeps it open.
  other.queuedReplies.push_back({kAnswerYes, "", "", false});
  other.queuedReplies.push_back({kAnswerCancel, "", "", false});
  EXPECT_FALSE(CloseProgram(*g, true));
  EXPECT_FALSE(g->KeepRolling);
  EXPECT_FALSE(std::filesystem::exists(Path("data/deeper/default.rvg")));

  other.queuedReplies.push_back({kAnswerNo, "", "", false});
  EXPECT_TRUE(CloseProgram(*g, false));
  EXPECT_TRUE(std::filesystem::exists(Path("data/deeper/default.rvg")));
  EXPECT_FALSE(std::filesystem::exists(Path("data/deeper/copyfile.rll")));
  auto back = NewGame(other);
  ASSERT_TRUE(OpenGame(*back, Path("data/deeper/default.rvg")));
  EXPECT_EQ(back->PlayerName[4], "Cy");
}

}  // namespace
