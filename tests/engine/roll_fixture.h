// A started-up game on a headless platform with a fast fixed clock, no bet
// requirement and no players, for the tests of the roll, the hand's end,
// the session and Hyper-Drive. Dice are fed through the queued-dice hook.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/game.h"
#include "core/headless_platform.h"
#include "cycle/roll.h"
#include "cycle/startup.h"
#include "engine/roll_steps.h"
#include "tests/support/events_log_text.h"
#include "tests/support/temp_folder.h"

class RollFixture : public ::testing::Test {
 protected:
  RollFixture() : owner_(MakeGame(platform)), g(*owner_) {
    platform.fixedTime = 0;
    platform.clockStep = 1;
    StartUp(g, folder.Path());
    g.rules.BetRequirement = kNoBetRequired;
  }

  // One roll outside Hyper-Drive with the given dice.
  void Roll(int d1, int d2) {
    ASSERT_TRUE(QueueDice(g, d1, d2));
    RollDice(g);
    ASSERT_EQ(g.roll.QueuedCount, 0);
  }

  // Seats player p with a name, without money.
  void Seat(int p, const std::string& name) {
    g.PlayerName[static_cast<std::size_t>(p)] = name;
    ++g.PlayerCount;
  }

  TempFolder folder;  // program and data folder: the events log goes here
  HeadlessPlatform platform;
  std::unique_ptr<Game> owner_;
  Game& g;
};
