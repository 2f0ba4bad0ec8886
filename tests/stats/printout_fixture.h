// A table for the printout tests: no bet needed to shoot, player 1 the
// shooter, a fixed day on the platform, and the printer's colours blue for
// gains and red for losses; Roll(d1, d2) rolls the dice given.
#pragma once

#include "../engine/table_fixture.h"

class PrintoutFixture : public TableFixture {
 protected:
  PrintoutFixture() {
    g.rules.BetRequirement = kNoBetRequired;
    g.Shooter = g.HandShooter = 1;
    platform.fixedDate = CalendarDate{2026, 11, 23};
    g.rules.PrintColors = {9, 12, 13};  // blue gains, red losses
  }
  void Roll(int d1, int d2) {
    ASSERT_TRUE(QueueDice(g, d1, d2));
    RollDice(g);
  }
};
