#include "automation/hyperdrive.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

#include "dice/rng.h"
#include "engine/checksum.h"
#include "tests/engine/roll_fixture.h"

namespace {
std::atomic<long> gAllocations{0};
}

#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
void* operator new(std::size_t n) {
  gAllocations.fetch_add(1, std::memory_order_relaxed);
  if (void* p = std::malloc(n ? n : 1)) return p;
  throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }

namespace {

class HyperDrive : public RollFixture {
 protected:
  HyperDrive() {
    g.dice.RngIndex = 0;
    SeedRngWith(g, 777);
  }
  // Runs until the given number of rolls of this run or another stop.
  void Run(std::int64_t rolls) {
    g.hyper.RunRollLimit = rolls;
    RunHyperDrive(g);
    EXPECT_FALSE(g.HyperDrive);
    EXPECT_FALSE(g.KeepRolling);
    EXPECT_FALSE(g.RollBusy);
  }
  const std::string kReset = "Select \"New\" from the \"Game\" menu to reset the table.";
};

TEST_F(HyperDrive, AutoStopStopsAtTheNextMultipleOfTheSessionCount) {
  Run(990);
  EXPECT_EQ(g.RollTally(18, 0), 990);
  EXPECT_TRUE(platform.messages.empty());  // a run ended by its roll count says nothing
  g.hyper.AutoStopRolls = Currency::FromWhole(1000);
  Run(0);
  EXPECT_EQ(g.RollTally(18, 0), 1000);
  EXPECT_EQ(g.hyper.RollsThisRun, 10);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text, "Stopped by Auto-Stop.");
  EXPECT_EQ(platform.messages[0].title, "Hyper-Drive Stopped");
  EXPECT_EQ(platform.messages[0].helpId, 540);
  EXPECT_EQ(platform.messages[0].style, 513);
  EXPECT_TRUE(g.StopMessage.empty());  // cleared once shown in the open window
  EXPECT_EQ(g.hyper.LastStopMessage, "Stopped by Auto-Stop.");
  Run(0);
  EXPECT_EQ(g.RollTally(18, 0), 2000);
}

struct Observer {
  Game* game;
  std::int64_t atRoll;
  void (*act)(Game&);
};

void Observe(void* context, const Game&) {
  auto* o = static_cast<Observer*>(context);
  if (o->game->hyper.RollsThisRun == o->atRoll) o->act(*o->game);
}

TEST_F(HyperDrive, AnEarlierStopReasonIsNotOverwrittenByAutoStop) {
  Seat(1, "Ann");
  g.hyper.AutoStopRolls = Currency::FromWhole(50);
  Observer o{&g, 49, [](Game& game) { game.Bet(1, 0) = Currency::FromWhole(10'000'000); }};
  g.hyper.RollObserver = Observe;
  g.hyper.RollObserverContext = &o;
  Run(0);
  EXPECT_EQ(g.RollTally(18, 0), 50);
  EXPECT_EQ(g.hyper.LastStopMessage,
            "Stopped by breaking the bank limit of $9,999,999\r\r" + kReset);
  // A bankroll beyond the limit keeps the next run from starting.
  platform.messages.clear();
  Run(0);
  EXPECT_EQ(g.RollTally(18, 0), 50);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Ravelton");
}

TEST_F(HyperDrive, ASecondPressStopsTheRunAfterTheRollInHand) {
  Observer o{&g, 25, [](Game& game) { RunHyperDrive(game); }};
  g.hyper.RollObserver = Observe;
  g.hyper.RollObserverContext = &o;
  Run(0);
  EXPECT_EQ(g.RollTally(18, 0), 25);
  EXPECT_TRUE(g.hyper.LastStopMessage.empty());
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(HyperDrive, TheUsersYesToTheStopQuestionEndsTheRunWithoutAMessage) {
  Observer o{&g, 40, [](Game& game) { AskStopHyperDrive(game); }};
  g.hyper.RollObserver = Observe;
  g.hyper.RollObserverContext = &o;
  MessageReply no, yes;
  no.answer = 7;
  yes.answer = 6;
  platform.queuedReplies = {no};
  Run(60);  // answered No: the run goes on to its end
  EXPECT_EQ(g.RollTally(18, 0), 60);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text, "Do you want to stop the Hyper-Drive?");
  EXPECT_EQ(platform.messages[0].title, "Hyper-Drive Active");
  platform.queuedReplies = {yes};
  Run(60);
  EXPECT_EQ(g.RollTally(18, 0), 100);
  EXPECT_TRUE(g.hyper.LastStopMessage.empty());
  EXPECT_EQ(platform.messages.size(), 2u);
}

TEST_F(HyperDrive, ARequiredBetWithoutPlayersEndsTheRunAtOnce) {
  g.rules.BetRequirement = kLineBetRequired;
  Run(100);
  EXPECT_EQ(g.RollTally(18, 0), 0);
  EXPECT_EQ(g.hyper.RollsThisRun, 0);
  EXPECT_EQ(g.hyper.LastStopMessage, "No players are available to bet.");
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Hyper-Drive Stopped");
}

TEST_F(HyperDrive, AMinimisedWindowKeepsTheStopMessage) {
  platform.minimized = true;
  g.hyper.AutoStopRolls = Currency::FromWhole(30);
  Run(0);
  EXPECT_EQ(g.StopMessage, "Stopped by Auto-Stop.");
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(HyperDrive, FullSpeedPumpsEventsRarelyAndTheThrottleEveryRoll) {
  Run(10'000);
  EXPECT_EQ(platform.eventPumps, 10'000 / HyperDriveState::kPaceEvery);
  platform.eventPumps = 0;
  g.hyper.HyperThrottle = 1;
  Run(100);
  EXPECT_EQ(platform.eventPumps, 100);
}

TEST_F(HyperDrive, TheDelayAppliesAtTheSlowestSettingOnly) {
  g.hyper.HyperDelaySeconds = Currency::FromWhole(2);
  g.roll.LoopsPerTick = 1;
  platform.clockStep = 100;  // each clock read is 100 ms later
  g.hyper.HyperThrottle = 9;
  Run(5);
  EXPECT_EQ(platform.eventPumps, 5);
  platform.eventPumps = 0;
  g.hyper.HyperThrottle = 10;
  Run(5);
  // Each roll waits 2 s: 20 clock reads of 100 ms, one event pump each;
  // the last roll ends the run, and a run that is stopping does not wait.
  EXPECT_EQ(platform.eventPumps, 5 + 4 * 20);
}

TEST_F(HyperDrive, ARunAllocatesNothing) {
  Run(1000);  // warm up
  const long before = gAllocations.load();
  Run(50'000);
  EXPECT_EQ(gAllocations.load() - before, 0);
  EXPECT_EQ(g.hyper.RollsThisRun, 50'000);
}

TEST_F(HyperDrive, TheSameSeedGivesTheSameTables) {
  Run(20'000);
  HeadlessPlatform other;
  other.fixedTime = 0;
  other.clockStep = 1;
  auto second = MakeGame(other);
  StartUp(*second, "/tmp/ravelton-roll-tests");
  second->rules.BetRequirement = kNoBetRequired;
  second->dice.RngIndex = 0;
  SeedRngWith(*second, 777);
  second->hyper.RunRollLimit = 20'000;
  RunHyperDrive(*second);
  EXPECT_EQ(TablesChecksum(g), TablesChecksum(*second));
  EXPECT_EQ(g.RollTally, second->RollTally);
  EXPECT_EQ(g.GapTally, second->GapTally);
  SeedRngWith(*second, 778);
  second->hyper.RunRollLimit = 1;
  RunHyperDrive(*second);
  EXPECT_NE(TablesChecksum(g), TablesChecksum(*second));
}

}  // namespace

namespace {

using HyperDriveSettings = RollFixture;

TEST_F(HyperDriveSettings, AutoStopTakesWholeRollsAndCancelKeepsTheValue) {
  auto answer = [&](int button, const std::string& text) {
    MessageReply r;
    r.answer = button;
    r.input1 = text;
    platform.queuedReplies.push_back(r);
    SetAutoStop(g);
  };
  answer(1, "1500.7");
  EXPECT_EQ(g.hyper.AutoStopRolls, Currency::FromWhole(1500));
  EXPECT_EQ(platform.messages.back().title, "Set Hyper-Drive Auto-Stop");
  EXPECT_EQ(platform.messages.back().text,
            "How often (number of rolls) would you like Hyper-Drive to automatically stop?  \r"
            "(enter 0 for no automatic stopping)");
  answer(2, "99");
  EXPECT_EQ(g.hyper.AutoStopRolls, Currency::FromWhole(1500));
  EXPECT_EQ(platform.messages.back().input1, "1,500");
  answer(1, "-3");
  EXPECT_EQ(g.hyper.AutoStopRolls, Currency());
  answer(1, "many");
  EXPECT_EQ(g.hyper.AutoStopRolls, Currency());
}

TEST_F(HyperDriveSettings, TheDelayIsHeldToThreeHundredSeconds) {
  auto answer = [&](const std::string& text) {
    MessageReply r;
    r.input1 = text;
    platform.queuedReplies.push_back(r);
    SetTimeDelay(g);
  };
  answer("2.5");
  EXPECT_EQ(g.hyper.HyperDelaySeconds, Currency::FromRaw(25000));
  answer("450");
  EXPECT_EQ(g.hyper.HyperDelaySeconds, Currency::FromWhole(300));
  answer("-1");
  EXPECT_EQ(g.hyper.HyperDelaySeconds, Currency());
  EXPECT_EQ(platform.messages.back().title, "Set Hyper-Drive Time Delay");
}

}  // namespace
