// The Probability tab's file commands: the question before New and Open,
// Save going through the chooser when the table has no file of its own,
// and files that can't be read or written told by name, the table in use
// left as it was.
#include "cycle/probability_commands.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/message_dialog.h"
#include "dice/probability.h"
#include "dice/probability_file.h"
#include "tests/store/store_fixture.h"

namespace {

class ProbabilityCommands : public StoreFixture {
 protected:
  void Answer(int answer) { platform.queuedReplies.push_back({answer, "", "", false}); }
  void Type(std::optional<std::string> name) {
    platform.queuedFileNames.push_back(std::move(name));
  }
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

  // The saved numbers open again, picked in the chooser.
  Type(Path("sevens.prb"));
  EXPECT_TRUE(OpenProbabilityCommand(*game));
  EXPECT_EQ(ProbValue(*game, kTotalRow, 6), 20000);
  EXPECT_EQ(platform.fileChoosers.back().caption, "Open Probability File");
  EXPECT_EQ(game->probability.ProbFilePath, Path("sevens.prb"));
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

TEST_F(ProbabilityCommands, SaveUsesTheFileInUseUnlessItIsTheDefaultOne) {
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
}

TEST_F(ProbabilityCommands, ASaveThatFailsIsToldAndTheTableStaysUnsaved) {
  Edit();
  Type(Path("no such folder/x.prb"));
  EXPECT_FALSE(SaveProbabilityAsCommand(*game));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Unable to Save Probability File");
  EXPECT_NE(platform.messages[0].text.find("x.prb"), std::string::npos);
  EXPECT_TRUE(game->probability.ProbDirty);
  EXPECT_TRUE(game->probability.ProbFilePath.empty());
}

}  // namespace
