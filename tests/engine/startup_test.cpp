#include "cycle/startup.h"

#include <gtest/gtest.h>

#include "core/catalogue.h"
#include "tests/engine/roll_fixture.h"

namespace {

using StartedGame = RollFixture;

TEST_F(StartedGame, FoldersClockMeasureAndTheHouse) {
  EXPECT_EQ(g.roll.AppPath, folder.Path());
  EXPECT_EQ(g.roll.DataFolder, g.roll.AppPath);
  EXPECT_EQ(g.roll.EventsLogPath, folder / "Events Log.txt");
  EXPECT_EQ(g.eventsLog.IndexPath, folder / "Events Log.ref");
  EXPECT_EQ(g.roll.HelpFilePath, folder / "ravelton.chm");
  // The clock advances 1 ms per read: 99 calls fit in 100 ms.
  EXPECT_EQ(g.roll.LoopsPerTick, 9);
  EXPECT_EQ(g.PlayerName[0], "House");
  EXPECT_EQ(g.dice.RngIndex, 0);  // the last generator seeded stays selected
  EXPECT_EQ(g.Die1 + g.Die2, g.DiceTotal);
}

TEST_F(StartedGame, AMissingGeneratorFallsBackAndTheGameStillRolls) {
  g.dice.MissingDllMask = 3;
  g.dice.RngIndex = 0;
  RollDice(g);
  EXPECT_EQ(g.dice.RngIndex, 3);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 1);
  EXPECT_GE(g.Die1, 1);
  EXPECT_LE(g.Die2, 6);
}

}  // namespace
