// The file commands of the game, the script editor and the Probability
// tab through the headless platform: the questions before New, Open and
// Close, the chooser, and files that can't be read or written told by name
// with the state in use left as it was.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "core/catalogue.h"
#include "core/message_dialog.h"
#include "cycle/auto_bet_commands.h"
#include "cycle/game_commands.h"
#include "cycle/probability_commands.h"
#include "cycle/recent_games.h"
#include "dice/probability.h"
#include "dice/probability_file.h"
#include "script/auto_bet_editor.h"
#include "script/files.h"
#include "store/game_file.h"
#include "tests/store/store_fixture.h"

namespace {

// Answers to the next prompts and names typed in the next choosers.
class Commands : public StoreFixture {
 protected:
  // The queues are apart: answers and names are taken each in their own order.
  template <class... A>
  static void AnswerOn(HeadlessPlatform& on, A... answers) {
    (on.queuedReplies.push_back({answers, "", "", false}), ...);
  }
  template <class... A>
  void Answer(A... answers) {
    AnswerOn(platform, answers...);
  }
  template <class... N>
  void Type(N... names) {
    (platform.queuedFileNames.push_back(std::optional<std::string>(names)), ...);
  }
};

class GameCommands : public Commands {
 protected:
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
  Answer(kAnswerNo, kAnswerCancel);
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
  Answer(kAnswerYes, kAnswerYes);
  Type("ann script", "Session One");
  EXPECT_TRUE(PromptUnsavedWork(*game));
  EXPECT_TRUE(std::filesystem::exists(Path("ann script.bet")));
  EXPECT_TRUE(std::filesystem::exists(Path("Session One.rvg")));
  EXPECT_FALSE(game->roll.SessionDirty);
  EXPECT_EQ(game->gamefile.GameFilePath, Path("Session One.rvg"));
  ASSERT_GE(platform.fileChoosers.size(), 2u);
  EXPECT_EQ(platform.fileChoosers[1].types,
            (std::vector<std::string>{"Session files (*.rvg)", "All files (*.*)"}));
}

TEST_F(GameCommands, TheChooserRefusesEmptyNamesAndAsksBeforeOverwriting) {
  WriteWholeFile(Path("Taken.rvg"), "x");
  Type("   ", "Taken", "Taken");
  Answer(kAnswerOk, kAnswerNo, kAnswerYes);
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

TEST_F(GameCommands, RecentGamesListTheFilesOpenedAndSavedNewestFirst) {
  Type("A", "B", "A");
  ASSERT_TRUE(SaveGameAsCommand(*game));
  ASSERT_TRUE(SaveGameAsCommand(*game));
  EXPECT_EQ(ReadRecentGames(*game), (std::vector<std::string>{Path("B.rvg"), Path("A.rvg")}));
  ASSERT_TRUE(OpenGameCommand(*game));
  EXPECT_EQ(ReadRecentGames(*game), (std::vector<std::string>{Path("A.rvg"), Path("B.rvg")}));
  // The default game, saved at every close, is never listed.
  ASSERT_TRUE(CloseProgram(*game, false));
  EXPECT_EQ(ReadRecentGames(*game).size(), 2u);

  // Ten more saves keep the newest eight.
  for (int n = 1; n <= 10; ++n) {
    const std::string name = "G" + std::to_string(n) + ".rvg";
    Type(name);
    ASSERT_TRUE(SaveGameAsCommand(*game));
  }
  std::vector<std::string> paths = ReadRecentGames(*game);
  ASSERT_EQ(paths.size(), kRecentGamesKept);
  EXPECT_EQ(paths.front(), Path("G10.rvg"));
  EXPECT_EQ(paths.back(), Path("G3.rvg"));

  // An entry whose file has gone is told and dropped; one that is there
  // opens and goes first.
  std::filesystem::remove(Path("G9.rvg"));
  EXPECT_FALSE(OpenRecentGameCommand(*game, Path("G9.rvg")));
  EXPECT_EQ(platform.messages.back().title, "Game File Not Found");
  paths = ReadRecentGames(*game);
  EXPECT_EQ(std::count(paths.begin(), paths.end(), Path("G9.rvg")), 0);
  EXPECT_TRUE(OpenRecentGameCommand(*game, Path("G5.rvg")));
  EXPECT_EQ(game->gamefile.GameFilePath, Path("G5.rvg"));
  EXPECT_EQ(ReadRecentGames(*game).front(), Path("G5.rvg"));
  EXPECT_EQ(ReadRecentGames(*game).size(), kRecentGamesKept - 1);
}

TEST_F(GameCommands, ARecentGamesFileOfAnyShapeGivesAtMostItsFirstUsablePaths) {
  std::string list = "/a.rvg\r\n\n/b.rvg\n/a.rvg\n" + std::string(5000, 'x') + "\n" +
                     std::string("/nul\0.rvg\n", 10);
  for (int n = 0; n < 20; ++n) list += "/" + std::to_string(n) + ".rvg\n";
  WriteWholeFile(RecentGamesPath(*game), list);
  EXPECT_EQ(ReadRecentGames(*game),
            (std::vector<std::string>{"/a.rvg", "/b.rvg", "/0.rvg", "/1.rvg", "/2.rvg", "/3.rvg",
                                      "/4.rvg", "/5.rvg"}));
  WriteWholeFile(RecentGamesPath(*game), std::string(1 << 20, '\n'));
  EXPECT_TRUE(ReadRecentGames(*game).empty());
  // A name given relative to the current folder is listed whole.
  NoteRecentGame(*game, "games/../rel.rvg");
  EXPECT_EQ(ReadRecentGames(*game),
            std::vector<std::string>{(std::filesystem::current_path() / "rel.rvg").string()});
  // A menu shows an ampersand doubled.
  EXPECT_EQ(RecentGameCaption(0, "/games/R&D.rvg"), "&1 R&&D.rvg  (/games)");
  EXPECT_EQ(RecentGameCaption(7, "plain.rvg"), "&8 plain.rvg");
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
  EXPECT_TRUE(game->roll.ScriptsOK) << game->scriptRun.FailedMessage;
  EXPECT_EQ(game->Bet(1, bet::kPassLine), Currency::FromWhole(15));
  EXPECT_EQ(game->gamefile.GameFilePath, "");
  EXPECT_EQ(game->gamefile.WindowTitle, "Ravelton");

  NewSessionChoice clear;
  clear.retainAutoBets = false;
  ASSERT_TRUE(NewGameCommand(*game, clear));
  EXPECT_EQ(game->scriptSource.ScriptLines[1], std::vector<std::string>{""});
  EXPECT_FALSE(game->roll.ScriptActive[1]);

  // The window has asked the prompts before the form; a session still marked
  // unsaved (the user said No) is not asked about again.
  game->Bet(1, bet::kField) = Currency::FromWhole(5);
  game->roll.SessionDirty = true;
  platform.messages.clear();
  StartNewGame(*game, keep);
  EXPECT_TRUE(platform.messages.empty()) << LastMessage();
  EXPECT_EQ(game->Bet(1, bet::kField), Currency{});
  EXPECT_FALSE(game->roll.SessionDirty);
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
  AnswerOn(other, kAnswerNo);
  EXPECT_FALSE(CloseProgram(*g, false));
  EXPECT_EQ(other.messages.back().title, "Auto-Bet Active");
  EXPECT_TRUE(g->scriptRun.ScriptRunning);
  // Yes interrupts the script and its run, so Hyper-Drive is not asked about;
  // the session prompt comes next, and Cancel keeps the program open.
  g->HyperDrive = g->KeepRolling = true;
  AnswerOn(other, kAnswerYes, kAnswerCancel);
  EXPECT_FALSE(CloseProgram(*g, true));
  EXPECT_FALSE(g->scriptRun.ScriptRunning);
  EXPECT_EQ(other.messages.back().title, "Save Session");
  g->roll.SessionDirty = false;

  // Hyper-Drive running: No keeps the program open; after Yes, a moved window
  // makes the session unsaved and Cancel keeps it open.
  g->HyperDrive = g->KeepRolling = true;
  AnswerOn(other, kAnswerNo, kAnswerYes, kAnswerCancel);
  EXPECT_FALSE(CloseProgram(*g, false));
  EXPECT_FALSE(CloseProgram(*g, true));
  EXPECT_FALSE(g->KeepRolling);
  EXPECT_FALSE(std::filesystem::exists(Path("data/deeper/default.rvg")));

  AnswerOn(other, kAnswerNo);
  EXPECT_TRUE(CloseProgram(*g, false));
  EXPECT_TRUE(std::filesystem::exists(Path("data/deeper/default.rvg")));
  EXPECT_FALSE(std::filesystem::exists(Path("data/deeper/copyfile.rll")));
  auto back = NewGame(other);
  ASSERT_TRUE(OpenGame(*back, Path("data/deeper/default.rvg")));
  EXPECT_EQ(back->PlayerName[4], "Cy");
}

class AutoBetCommands : public Commands {
 protected:
  AutoBetCommands() : ss(game->scriptSource) {
    SeatPlayer(*game, 1, "Ann", Currency::FromWhole(500));
    OpenAutoBetEditor(*game);
  }
  ScriptSource& ss;
};

TEST_F(AutoBetCommands, SaveAsSaveAndNewKeepTrackOfTheChange) {
  SetEditorText(*game, {"bet 5 on field", "' a note"}, true);
  Type("field");  // no folder, no extension: the data folder and ".bet"
  ASSERT_TRUE(SaveAutoBetCommand(*game));
  EXPECT_EQ(platform.fileChoosers.back().caption, "Save Auto-Bet File As");
  const std::string path = ss.ScriptFile[1];
  EXPECT_TRUE(path.ends_with("/field.bet")) << path;
  EXPECT_EQ(ReadWholeFile(path), "bet 5 on field\r\n' a note\r\n");
  EXPECT_FALSE(ss.ScriptDirty[1]);
  EXPECT_EQ(ss.EditorCaption, "Auto-Bet (field.bet)");

  SetEditorText(*game, {"bet 6 on field"}, true);
  ASSERT_TRUE(SaveAutoBetCommand(*game));
  EXPECT_EQ(platform.fileChoosers.size(), 1u);  // the file is known now
  EXPECT_EQ(ReadWholeFile(path), "bet 6 on field\r\n");

  // Unsaved changes are asked about, and Cancel changes nothing.
  SetEditorText(*game, {"bet 5 on field"}, true);
  Answer(kAnswerCancel);
  EXPECT_FALSE(NewAutoBetCommand(*game));
  EXPECT_EQ(platform.messages.back().title, "Save Auto-Bets?");
  EXPECT_EQ(platform.messages.back().style, 0x140e);
  EXPECT_EQ(EditorText(*game), (std::vector<std::string>{"bet 5 on field"}));

  // No: the script is emptied, the session changed.
  game->roll.SessionDirty = false;
  game->roll.ScriptsOK = true;
  Answer(kAnswerNo);
  EXPECT_TRUE(NewAutoBetCommand(*game));
  EXPECT_EQ(EditorText(*game), (std::vector<std::string>{""}));
  EXPECT_TRUE(game->roll.SessionDirty);
  EXPECT_FALSE(game->roll.ScriptsOK);
  EXPECT_FALSE(ss.ScriptDirty[1]);
}

TEST_F(AutoBetCommands, PasteCopyAndOpenWorkOnTheEditorsText) {
  // The file's first and last lines join the caret's line at the caret.
  WriteWholeFile(Path("part.bet"), "\nbet 1 on big6\n\n");
  SetEditorText(*game, {"If point = 0 Then", "EndIf"}, false);
  SetEditorSelection(*game, {2, 0, 2, 0, 2, 0, 1, 0});
  Type(Path("part.bet"));
  ASSERT_TRUE(PasteFromAutoBetCommand(*game));
  EXPECT_EQ(EditorText(*game),
            (std::vector<std::string>{"If point = 0 Then", "", "bet 1 on big6", "EndIf"}));
  EXPECT_TRUE(ss.ScriptDirty[1]);
  EXPECT_TRUE(ss.ScriptFile[1].empty());  // a paste names no file

  SetEditorSelection(*game, {3, 4, 4, 3, 4, 3, 1, 0});
  Type(Path("copy.txt"));
  ASSERT_TRUE(CopyToFileCommand(*game));
  EXPECT_EQ(ReadWholeFile(Path("copy.txt")), "1 on big6\r\nEnd\r\n");

  // Open loads the file (the pasted text not saved); a missing or unreadable one is told.
  Answer(kAnswerNo);
  WriteWholeFile(Path("molly.bet"), "bet 10 on passline\r\nbet 10 on come\r\n");
  Type(Path("molly.bet"));
  ASSERT_TRUE(OpenAutoBetCommand(*game));
  EXPECT_EQ(platform.fileChoosers.back().caption, "Open Auto-Bet File");
  EXPECT_EQ(EditorText(*game), (std::vector<std::string>{"bet 10 on passline", "bet 10 on come"}));
  EXPECT_EQ(ss.EditorCaption, "Auto-Bet (molly.bet)");

  Type(Path("absent.bet"));
  EXPECT_FALSE(OpenAutoBetCommand(*game));
  EXPECT_NE(LastMessage().find("absent.bet"), std::string::npos) << LastMessage();
  std::filesystem::create_directories(Path("folder.bet"));
  Type(Path("folder.bet"));
  EXPECT_FALSE(OpenAutoBetCommand(*game));
  EXPECT_NE(LastMessage().find("OpenAutoBets"), std::string::npos) << LastMessage();
  EXPECT_EQ(EditorText(*game), (std::vector<std::string>{"bet 10 on passline", "bet 10 on come"}));
}

class ProbabilityCommands : public Commands {
 protected:
  // An edited, unsaved table: total 7 at 20 percent.
  void Edit() { SetProbabilityCell(*game, kTotalRow, 6, 20000, true); }
};

TEST_F(ProbabilityCommands, NewAsksFirstAndCancelKeepsTheTable) {
  Edit();
  const ProbabilityState edited = game->probability;
  Answer(kAnswerCancel);
  EXPECT_FALSE(NewProbabilityCommand(*game));
  EXPECT_EQ(game->probability, edited);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Save Probabilities?");

  // Yes without a file: the chooser names it, the table is saved, then new.
  Answer(kAnswerYes);
  Type(Path("sevens"));
  EXPECT_TRUE(NewProbabilityCommand(*game));
  ASSERT_EQ(platform.fileChoosers.size(), 1u);
  EXPECT_EQ(platform.fileChoosers[0].caption, "Save Probability File As");
  EXPECT_TRUE(std::filesystem::exists(Path("sevens.prb")));
  EXPECT_EQ(ProbValue(*game, kTotalRow, 6), 16667);
  EXPECT_TRUE(game->probability.ProbFilePath.empty());
  EXPECT_FALSE(game->probability.ProbDirty);
}

TEST_F(ProbabilityCommands, FilesThatCannotBeOpenedAreToldAndChangeNothing) {
  Edit();
  ASSERT_TRUE(SaveProbabilityFile(*game, Path("mine.prb")));
  WriteWholeFile(Path("notes.prb"), "Ravelton Probability File, Data Format 4.5\n");
  std::filesystem::create_directories(dir / "folder.prb");
  const ProbabilityState before = game->probability;
  struct Case {
    const char* name;
    const char* says;
  };
  const Case cases[] = {
      {"notes.prb", "is either from an older version, has been corrupted"},
      {"missing.prb", "was not found."},
      {"folder.prb", "could not be read."},
  };
  for (const Case& c : cases) {
    platform.messages.clear();
    Type(Path(c.name));
    EXPECT_FALSE(OpenProbabilityCommand(*game)) << c.name;
    ASSERT_EQ(platform.messages.size(), 1u) << c.name;
    EXPECT_EQ(platform.messages[0].title, "Unable to Open Probability File");
    EXPECT_EQ(platform.messages[0].text.rfind(Path(c.name), 0), 0u) << platform.messages[0].text;
    EXPECT_NE(platform.messages[0].text.find(c.says), std::string::npos)
        << platform.messages[0].text;
    EXPECT_EQ(game->probability, before) << c.name;
  }
}

TEST_F(ProbabilityCommands, SaveUsesTheFileInUseUnlessItIsTheDefaultOneAndFailuresAreTold) {
  Edit();
  ASSERT_TRUE(SaveProbabilityFile(*game, Path("mine.prb")));
  SetProbabilityCell(*game, kTotalRow, 6, 30000, true);
  EXPECT_TRUE(SaveProbabilityCommand(*game));
  EXPECT_TRUE(platform.fileChoosers.empty());
  EXPECT_FALSE(game->probability.ProbDirty);

  game->probability.ProbFilePath = Path("default.prb");
  game->probability.ProbDirty = true;
  Type(std::nullopt);  // the chooser closed: nothing saved
  EXPECT_FALSE(SaveProbabilityCommand(*game));
  EXPECT_EQ(platform.fileChoosers.size(), 1u);
  EXPECT_TRUE(game->probability.ProbDirty);
  EXPECT_FALSE(std::filesystem::exists(Path("default.prb")));

  // A save that fails is told and the table stays unsaved.
  game->probability.ProbFilePath.clear();
  platform.messages.clear();
  Type(Path("no such folder/x.prb"));
  EXPECT_FALSE(SaveProbabilityAsCommand(*game));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Unable to Save Probability File");
  EXPECT_NE(platform.messages[0].text.find("x.prb"), std::string::npos);
  EXPECT_TRUE(game->probability.ProbDirty);
  EXPECT_TRUE(game->probability.ProbFilePath.empty());
}

}  // namespace
