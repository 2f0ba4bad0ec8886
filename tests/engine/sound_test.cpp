// Sound files: listing the sets in the program folder, picking a file of a
// set, and the dice, win and check sounds with their flags and guards.
#include <gtest/gtest.h>

#include <fstream>

#include "config/sound.h"
#include "engine/place.h"
#include "engine/settle.h"
#include "tests/engine/table_fixture.h"

namespace {

class Sound : public TableFixture {
 protected:
  // Lays empty files of the given names in the program's folder and lists them.
  void List(std::initializer_list<const char*> names) {
    for (const char* n : names) std::ofstream(folder / n).put('\0');
    ListSoundFiles(g);
  }
  // The sounds played since the last call, with the cuts left out.
  std::vector<HeadlessPlatform::Sound> Played() {
    std::vector<HeadlessPlatform::Sound> played;
    for (const auto& s : platform.sounds)
      if (!s.path.empty()) played.push_back(s);
    platform.sounds.clear();
    return played;
  }
};

TEST_F(Sound, ListingGroupsStickCallsAndPicksEachFamilysStartingSound) {
  std::filesystem::create_directory(folder / "folder.dce");  // not a file: not listed
  List({"Blue01.stk", "Blue02.stk", "Red01.stk", "x1.stk", "hard.dce", "soft.dce", "Chips.win",
        "a.chp", "b.chp", "c.chp", "notes.txt"});
  const SoundState& s = g.sound;
  // Sorted by name, so the six-character set "x1" (no name left) comes last.
  EXPECT_EQ(s.StickCallSets, (std::vector<std::string>{"Blue", "Red", ""}));
  EXPECT_EQ(s.DiceSoundSets, (std::vector<std::string>{"hard.dce", "soft.dce"}));
  EXPECT_EQ(g.rules.StickCallSet, 1);
  EXPECT_EQ(g.rules.DiceSoundSet, 2);  // soft.dce wherever it lies
  EXPECT_EQ(g.rules.WinSoundSet, 1);   // one win sound
  EXPECT_EQ(g.rules.ChipSoundSet, 1);  // fewer than four check sounds
  EXPECT_EQ(g.roll.StickCallFile[7], folder / "Blue07.stk");

  List({"d.chp", "e.win"});
  EXPECT_EQ(g.rules.ChipSoundSet, 4);
  EXPECT_EQ(g.rules.WinSoundSet, 2);
}

TEST_F(Sound, AnEmptyFolderIsSilentAndASelectionBeyondTheListIsDrawn) {
  List({});
  EXPECT_EQ(g.rules.StickCallSet + g.rules.DiceSoundSet + g.rules.WinSoundSet + g.rules.ChipSoundSet, 0);
  EXPECT_EQ(PickSoundFile("/x/", {}, 3, 0.5), "");
  // A selection beyond the list picks by the uniform value; a chosen entry ignores it.
  const std::vector<std::string> two = {"a.win", "b.win"};
  EXPECT_EQ(PickSoundFile("/s/", two, 0, 0.9), "");
  EXPECT_EQ(PickSoundFile("/s/", two, 2, 0.0), "/s/b.win");
  EXPECT_EQ(PickSoundFile("/s/", two, 3, 0.4999), "/s/a.win");
  EXPECT_EQ(PickSoundFile("/s/", two, 3, 0.99999), "/s/b.win");
}

TEST_F(Sound, TheDiceWinAndCheckSoundsPlayWithTheirFlagsAndGuards) {
  List({"soft.dce", "a.win", "b.win", "a.chp"});
  g.HyperDrive = false;
  g.rules.BetRequirement = kNoBetRequired;

  g.BetRequest = Currency::FromWhole(10);
  PlaceBet(g, 1, bet::kPassLine);
  auto played = Played();
  ASSERT_EQ(played.size(), 1u);
  EXPECT_EQ(played[0].path, folder / "a.chp");
  EXPECT_EQ(played[0].flags, kSoundOverlay);


  ASSERT_TRUE(QueueDice(g, 3, 4));
  RollDice(g);  // the Pass Line wins: dice first, then the win, waited for
  played = Played();
  ASSERT_GE(played.size(), 2u);
  EXPECT_EQ(played[0].path, folder / "soft.dce");
  EXPECT_EQ(played[0].flags, kSoundAsync);
  EXPECT_EQ(played[1].path, folder / "b.win");
  EXPECT_EQ(played[1].flags, kSoundWait);

  g.HyperDrive = true;
  ASSERT_TRUE(QueueDice(g, 3, 4));
  RollDice(g);
  EXPECT_TRUE(Played().empty());
}

}  // namespace
