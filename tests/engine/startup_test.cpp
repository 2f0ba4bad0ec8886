#include "cycle/startup.h"

#include <gtest/gtest.h>

#include "core/catalogue.h"
#include "tests/engine/roll_fixture.h"

namespace {

using StartedGame = RollFixture;

TEST_F(StartedGame, FoldersAndTheClockMeasure) {
  EXPECT_EQ(g.roll.DataFolder, folder.Path());
  EXPECT_EQ(g.roll.EventsLogPath, folder / "Events Log.txt");
  // The clock advances 1 ms per read: 99 calls fit in 100 ms.
  EXPECT_EQ(g.roll.LoopsPerTick, 9);
  EXPECT_EQ(g.dice.RngIndex, 0);  // the last generator seeded stays selected
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
