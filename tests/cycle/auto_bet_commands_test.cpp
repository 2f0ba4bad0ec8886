// The script editor's file commands through the headless platform.
#include "cycle/auto_bet_commands.h"

#include <gtest/gtest.h>

#include "core/message_dialog.h"
#include "script/auto_bet_editor.h"
#include "script/files.h"
#include "tests/store/store_fixture.h"

namespace {

class AutoBetCommands : public StoreFixture {
 protected:
  AutoBetCommands() : ss(game->scriptSource) {
    SeatPlayer(*game, 1, "Ann", Currency::FromWhole(500));
    OpenAutoBetEditor(*game);
  }
  void Answer(int answer) { platform.queuedReplies.push_back({answer, "", "", false}); }
  void Type(std::optional<std::string> name) { platform.queuedFileNames.push_back(std::move(name)); }
  ScriptSource& ss;
};

TEST_F(AutoBetCommands, SaveAsThenSaveWriteTheEditorsTextAndClearTheChange) {
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
}

TEST_F(AutoBetCommands, UnsavedChangesAreAskedAboutAndCancelChangesNothing) {
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
  EXPECT_EQ(ss.ScriptLines[1].size(), 1u);
  EXPECT_TRUE(game->roll.SessionDirty);
  EXPECT_FALSE(game->roll.ScriptsOK);
  EXPECT_FALSE(ss.ScriptDirty[1]);
}

TEST_F(AutoBetCommands, OpenLoadsTheFileAndAMissingOrUnreadableOneIsTold) {
  WriteWholeFile(Path("molly.bet"), "bet 10 on passline\r\nbet 10 on come\r\n");
  Type(Path("molly.bet"));
  ASSERT_TRUE(OpenAutoBetCommand(*game));
  EXPECT_EQ(platform.fileChoosers.back().caption, "Open Auto-Bet File");
  EXPECT_EQ(platform.fileChoosers.back().types.size(), 4u);
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

TEST_F(AutoBetCommands, PasteInsertsAtTheCaretAndCopyWritesTheSelection) {
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
}

}  // namespace
