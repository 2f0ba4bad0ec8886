// Seeding: given seeds, clock seeds, the user's prompt, limits, the log
// line and the start-up order.
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "core/headless_platform.h"
#include "dice/generators.h"
#include "dice/rng.h"
#include "tests/support/events_log_text.h"
#include "tests/support/temp_folder.h"

namespace {

struct SeedFixture : ::testing::Test {
  TempFolder folder;
  HeadlessPlatform platform;
  std::unique_ptr<Game> game = std::make_unique<Game>();

  void SetUp() override {
    game->platform = &platform;
    platform.fixedTime = 123456;
    game->roll.DataFolder = folder.Path();
    InitEventsLog(*game);
  }

  std::vector<Long> Rolls(int n) {
    std::vector<Long> dice;
    for (int i = 0; i < n; ++i) {
      game->RollTally(kTableSession, kEventRolls) = i;
      DrawDice(*game);
      dice.push_back(game->Die1 * 10 + game->Die2);
    }
    return dice;
  }
};

TEST_F(SeedFixture, SameSeedSameDiceOtherSeedOtherDice) {
  for (Long index = 0; index < kRngCount; ++index) {
    game->dice.RngIndex = index;
    ASSERT_TRUE(SeedRngWith(*game, 8675));
    const auto first = Rolls(200);
    Rolls(37);  // wander off, then come back by reseeding
    ASSERT_TRUE(SeedRngWith(*game, 8675));
    EXPECT_EQ(Rolls(200), first) << "RNG #" << index + 1;
    ASSERT_TRUE(SeedRngWith(*game, 8676));
    EXPECT_NE(Rolls(200), first) << "RNG #" << index + 1;
  }
}

// Seeding one generator leaves every other generator's sequence alone, so
// returning to a generator goes on where it stopped.
TEST_F(SeedFixture, SeedingTouchesOnlyTheSelectedGenerator) {
  game->dice.RngIndex = 0;
  SeedRngWith(*game, 11);
  Rolls(3);
  const MtState twister = game->dice.mt19937;
  for (const Long other : {1, 3, 4, 6}) {
    game->dice.RngIndex = other;
    SeedRngWith(*game, 500 + other);
    Rolls(5);
  }
  EXPECT_TRUE(game->dice.mt19937.mt == twister.mt && game->dice.mt19937.mti == twister.mti);
}

// The first roll after seeding Ran2 with 1234 uses the second and third
// values of the sequence that starts at -1234: the seeding call's own value
// is dropped.
TEST_F(SeedFixture, SeedingDrawDropsTheFirstValue) {
  game->dice.RngIndex = 3;
  ASSERT_TRUE(SeedRngWith(*game, 1234));
  DrawDice(*game);
  Ran2State reference;
  std::int32_t idum = -1234;
  Ran2(reference, idum, nullptr);
  idum = 1;  // Ran2 reseeds while idum is negative
  EXPECT_EQ(game->Die1, static_cast<Long>(Ran2(reference, idum, nullptr) * 6) + 1);
  EXPECT_EQ(game->Die2, static_cast<Long>(Ran2(reference, idum, nullptr) * 6) + 1);
}

// A refused seed keeps the last one; a given seed is rounded to nearest,
// ties to even; every seeding sets Rng3's state too (which Rng3's own
// seeding then moves on).
TEST_F(SeedFixture, LimitsRefuseAndKeepLastSeed) {
  struct Case {
    Long index;
    double seed;
    bool ok;
    Long last;
  };
  const Case cases[] = {{2, 999999, true, 999999},
                        {2, 1000000, false, 999999},
                        {0, 2147483647.0, true, 2147483647},
                        {0, 2147483648.0, false, 2147483647},
                        {0, 7.5, true, 8},
                        {0, 6.5, true, 6}};
  for (const Case& c : cases) {
    game->dice.RngIndex = c.index;
    EXPECT_EQ(SeedRngWith(*game, c.seed), c.ok) << c.seed;
    EXPECT_EQ(game->dice.LastSeed, c.last) << c.seed;
    if (c.index == 0) {
      EXPECT_EQ(game->dice.Rng3State, c.last) << c.seed;
    }
  }
}

// Clock seeds within one millisecond are covered by the start-up log below.
TEST_F(SeedFixture, ClockSeedsBelowOneAndAfterWeeks) {
  game->dice.RngIndex = 0;
  ASSERT_TRUE(SeedRngWith(*game, 0));  // below 1: from the clock
  EXPECT_EQ(game->dice.LastSeed, 123456);
  platform.fixedTime = 4'000'000'000u;  // a clock that has run for weeks still seeds
  ASSERT_TRUE(SeedRng(*game));
  EXPECT_GE(game->dice.LastSeed, 1);
  game->dice.RngIndex = 2;
  ASSERT_TRUE(SeedRng(*game));
  EXPECT_LE(game->dice.LastSeed, 999999);
}

TEST_F(SeedFixture, UserSeedPromptRepeatsUntilWithinLimits) {
  game->dice.RngIndex = 2;
  game->dice.UserSeedMode = true;
  game->dice.LastSeed = 42;
  platform.queuedReplies = {{1, "1000000", "", false}, {1, "999999", "", false}};
  ASSERT_TRUE(SeedRng(*game));
  EXPECT_EQ(game->dice.LastSeed, 999999);
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[0].input1, "42");
  EXPECT_EQ(platform.messages[0].text,
            "Please enter a whole number between 1 and 999,999 to seed the random number "
            "generator:\r");
  EXPECT_TRUE(platform.messages[1].text.starts_with("Your seed value is out of limits."));

  // Cancel seeds nothing.
  platform.queuedReplies = {{2, "", "", false}};
  EXPECT_FALSE(SeedRng(*game));
  EXPECT_EQ(game->dice.LastSeed, 999999);
  // A platform that keeps answering with a bad value does not hang the game.
  game->dice.LastSeed = 0;
  EXPECT_FALSE(SeedRng(*game));

  // A script's given seed never prompts.
  platform.messages.clear();
  EXPECT_TRUE(SeedRngWith(*game, 17));
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(SeedFixture, StartUpSeedsAllAndSelectsByLibraries) {
  struct Case {
    Long mask, selected;
  };
  for (const Case c : {Case{0, 0}, Case{kMissingSecondMt, 0}, Case{kMissingFirstMt, 1},
                       Case{kMissingFirstMt | kMissingSecondMt, 3}}) {
    auto fresh = std::make_unique<Game>();
    fresh->platform = &platform;
    fresh->roll.DataFolder = folder.Path();
    InitEventsLog(*fresh);
    fresh->dice.MissingDllMask = c.mask;
    SeedGeneratorsAtStartUp(*fresh);
    EXPECT_EQ(fresh->dice.RngIndex, c.selected) << c.mask;
    EXPECT_TRUE(fresh->dice.ran1.initialised && fresh->dice.ran2.initialised);
    EXPECT_TRUE(EventsLogText(*fresh).empty()) << "a log line only with the log on";
    EXPECT_EQ(fresh->dice.mt19937.mti == kMtWords + 1, (c.mask & kMissingFirstMt) != 0);
    EXPECT_EQ(fresh->dice.mtSecond.mti == kMtWords + 1, (c.mask & kMissingSecondMt) != 0);
  }
  // Five seedings within one millisecond: no two neighbours share a seed.
  game->roll.LogOn = true;
  SeedGeneratorsAtStartUp(*game);
  EXPECT_EQ(EventsLogText(*game),
            "    RNG #3 seeded: 1235\n"
            "    RNG #5 seeded: 123456\n"
            "    RNG #4 seeded: 123457\n"
            "    RNG #2 seeded: 123456\n"
            "    RNG #1 seeded: 123457\n");
}

}  // namespace
