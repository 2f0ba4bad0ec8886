#include "cycle/hyperdrive.h"

#include "dice/rng.h"
#include "tests/engine/roll_fixture.h"

namespace {

struct Observer {
  Game* game;
  std::int64_t atRoll;
  void (*act)(Game&);
};

void Observe(void* context, const Game&) {
  auto* o = static_cast<Observer*>(context);
  if (o->game->hyper.RollsThisRun == o->atRoll) o->act(*o->game);
}

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
    EXPECT_FALSE(g.HyperDrive || g.KeepRolling || g.RollBusy);
  }
  // Calls act from the roll observer after the given roll of the run.
  void At(std::int64_t roll, void (*act)(Game&)) {
    observer = {&g, roll, act};
    g.hyper.RollObserver = Observe;
    g.hyper.RollObserverContext = &observer;
  }
  Observer observer{};
  const std::string kReset = "Select \"New\" from the \"Game\" menu to reset the table.";
};

TEST_F(HyperDrive, AutoStopStopsAtTheNextMultipleOfTheSessionCount) {
  Run(990);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 990);
  EXPECT_TRUE(platform.messages.empty());  // a run ended by its roll count says nothing
  g.hyper.AutoStopRolls = Currency::FromWhole(1000);
  Run(0);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 1000);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text, "Stopped by Auto-Stop.");
  EXPECT_TRUE(g.StopMessage.empty());  // cleared once shown in the open window
  EXPECT_EQ(g.hyper.LastStopMessage, "Stopped by Auto-Stop.");
  // A minimised window keeps the message for later.
  platform.messages.clear();
  platform.minimized = true;
  Run(0);
  EXPECT_EQ(g.StopMessage, "Stopped by Auto-Stop.");
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(HyperDrive, AnEarlierStopReasonIsNotOverwrittenByAutoStop) {
  Seat(1, "Ann");
  g.hyper.AutoStopRolls = Currency::FromWhole(50);
  At(49, [](Game& game) { game.Bet(1, bet::kBankroll) = Currency::FromWhole(10'000'000); });
  Run(0);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 50);
  EXPECT_EQ(g.hyper.LastStopMessage,
            "Stopped by breaking the bank limit of $9,999,999\r\r" + kReset);
  // A bankroll beyond the limit keeps the next run from starting.
  platform.messages.clear();
  Run(0);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 50);
  EXPECT_EQ(platform.messages.size(), 1u);
}

// A second press, or Yes to the stop question, ends the run after the roll
// in hand without a stop message; No lets it go on.
TEST_F(HyperDrive, TheUserStopsTheRunWithoutAMessage) {
  At(25, [](Game& game) { RunHyperDrive(game); });
  Run(0);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 25);
  EXPECT_TRUE(g.hyper.LastStopMessage.empty() && platform.messages.empty());
  At(40, [](Game& game) { AskStopHyperDrive(game); });
  platform.queuedReplies = {{7, "", "", false}};
  Run(60);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 85);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text, "Do you want to stop the Hyper-Drive?");
  platform.queuedReplies = {{6, "", "", false}};
  Run(60);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 125);
  EXPECT_TRUE(g.hyper.LastStopMessage.empty() && platform.messages.size() == 2u);
}

// Full speed pumps events once per pace interval, a throttled run every
// roll, and only the slowest setting adds the delay.
TEST_F(HyperDrive, PacingByThrottle) {
  Run(10'000);
  EXPECT_EQ(platform.eventPumps, 10'000 / HyperDriveState::kPaceEvery);
  g.hyper.HyperDelaySeconds = Currency::FromWhole(2);
  g.roll.LoopsPerTick = 1;
  platform.clockStep = 100;  // each clock read is 100 ms later
  g.hyper.HyperThrottle = 9;
  platform.eventPumps = 0;
  Run(5);
  EXPECT_EQ(platform.eventPumps, 5);
  platform.eventPumps = 0;
  g.hyper.HyperThrottle = 10;
  Run(5);
  // Each roll waits 2 s: 20 clock reads of 100 ms, one event pump each;
  // the last roll ends the run, and a run that is stopping does not wait.
  EXPECT_EQ(platform.eventPumps, 5 + 4 * 20);
}

using HyperDriveSettings = RollFixture;

// Auto-Stop takes whole rolls, Cancel keeps the value, the delay is held to
// 0..300 seconds.
TEST_F(HyperDriveSettings, AnswersAreHeldToTheirLimits) {
  auto answer = [&](void (*ask)(Game&), int button, const char* text) {
    platform.queuedReplies.push_back(MessageReply{button, text, "", false});
    ask(g);
  };
  answer(SetAutoStop, 1, "1500.7");
  EXPECT_EQ(g.hyper.AutoStopRolls, Currency::FromWhole(1500));
  answer(SetAutoStop, 2, "99");
  EXPECT_EQ(g.hyper.AutoStopRolls, Currency::FromWhole(1500));
  answer(SetAutoStop, 1, "-3");
  EXPECT_EQ(g.hyper.AutoStopRolls, Currency());
  answer(SetTimeDelay, 1, "2.5");
  EXPECT_EQ(g.hyper.HyperDelaySeconds, Currency::FromRaw(25000));
  answer(SetTimeDelay, 1, "450");
  EXPECT_EQ(g.hyper.HyperDelaySeconds, Currency::FromWhole(300));
  answer(SetTimeDelay, 1, "-1");
  EXPECT_EQ(g.hyper.HyperDelaySeconds, Currency());
}

}  // namespace
