// With the events log on for every kind and a dice roll file recording,
// a Hyper-Drive roll still allocates nothing once the log's buffers exist:
// each line is built in the reused line buffer and appended to a batch
// that is written out in blocks.
#include <gtest/gtest.h>

#include "core/catalogue.h"
#include "cycle/hyperdrive.h"
#include "dice/dice_file.h"
#include "dice/rng.h"
#include "engine/place.h"
#include "engine/players.h"
#include "tests/engine/roll_fixture.h"
#include "tests/support/count_allocations.h"

namespace {

TEST_F(RollFixture, LoggingAndRecordingInHyperDriveAllocateNothing) {
  g.dice.RngIndex = 0;
  SeedRngWith(g, 99);
  SeatPlayer(g, 1, "Ann", Currency::FromWhole(5000));
  SeatPlayer(g, 2, "Bob", Currency::FromWhole(5000));
  for (int p = 1; p <= 2; ++p) {
    g.autoplay.HandleWinningBets(p) = 2;
    g.autoplay.HandleLosingBets(p) = 2;
    g.autoplay.AutoTakeFullOdds(p) = true;
  }
  for (auto [p, b] : {std::pair{1, bet::kPassLine}, {2, bet::kField}, {2, PlaceId(6)}}) {
    g.BetRequest = Currency::FromWhole(12);
    PlaceBet(g, p, b);
  }
  g.roll.LogOn = true;  // every kind is on by default
  ASSERT_TRUE(OpenDiceRollFile(g, folder / "run.rol"));
  ASSERT_TRUE(SetDiceFileMode(g, kDiceFileRecording));
  platform.minimized = true;
  g.hyper.RunRollLimit = 2000;
  RunHyperDrive(g);  // the buffers grow to their size here
  const long before = gAllocations.load();
  g.hyper.RunRollLimit = 20'000;
  RunHyperDrive(g);
  EXPECT_EQ(gAllocations.load() - before, 0);
  EXPECT_EQ(g.hyper.RollsThisRun, 20'000);
  EXPECT_TRUE(g.eventsLog.WriteError.empty()) << g.eventsLog.WriteError;
  EXPECT_GT(EventsLogText(g).size(), 20'000u * 40);
}

}  // namespace
