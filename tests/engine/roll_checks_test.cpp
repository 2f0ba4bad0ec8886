// The checks before a roll (bet requirement, roll limit, bankroll limit)
// with their exact texts, and the events-log lines of a roll.
#include <gtest/gtest.h>

#include "core/catalogue.h"
#include "tests/engine/roll_fixture.h"

namespace {

class RollChecks : public RollFixture {
 protected:
  const MessageRequest& LastMessage() {
    EXPECT_FALSE(platform.messages.empty());
    return platform.messages.back();
  }
  const std::string kReset = "Select \"New\" from the \"Game\" menu to reset the table.";
};

TEST_F(RollChecks, ABetRequirementWithoutPlayersStopsBeforeTheDice) {
  g.rules.BetRequirement = kLineBetRequired;
  ASSERT_TRUE(QueueDice(g, 5, 5));
  RollDice(g);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 0);
  EXPECT_EQ(g.roll.QueuedCount, 1);
  EXPECT_FALSE(g.RollBusy);
  EXPECT_EQ(LastMessage().text,
            "No players are available to bet.\r\rPlease enter a player or change the requirement "
            "to make a bet on the 'Bets tab' of the configuration screen.");
}

TEST_F(RollChecks, ALineBetRequirementNamesTheShooter) {
  g.rules.BetRequirement = kLineBetRequired;
  Seat(1, "Ann");
  Seat(2, "Bob");
  g.Shooter = g.HandShooter = 1;
  RollDice(g);
  EXPECT_NE(LastMessage().text.find("Ann must make a Pass Line bet"), std::string::npos);
  g.Point = 6;
  RollDice(g);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 0);

  // A Don't Pass bet is enough; a Place bet is not.
  g.Point = 0;
  g.Bet(1, PlaceId(6)) = Currency::FromWhole(6);
  RollDice(g);
  g.Bet(1, bet::kDontPass) = Currency::FromWhole(5);
  const auto shown = platform.messages.size();
  Roll(2, 3);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 1);
  EXPECT_EQ(platform.messages.size(), shown);

  // Any bet: a CheckStack is no bet.
  g.rules.BetRequirement = kAnyBetRequired;
  g.Bet(1, bet::kDontPass) = g.Bet(1, PlaceId(6)) = Currency{};
  g.Bet(1, 120) = Currency::FromWhole(50);
  RollDice(g);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 1);
}

TEST_F(RollChecks, TheRollAndBankrollLimitsStopTheNextRoll) {
  g.RollTally(kTableSession, kEventRolls) = 99'999'999;
  Roll(2, 3);
  EXPECT_TRUE(platform.messages.empty());
  RollDice(g);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 100'000'000);
  EXPECT_EQ(LastMessage().text,
            "Sorry ... the maximum limit of 100,000,000 rolls has been reached.\r\r" + kReset);

  g.RollTally(kTableSession, kEventRolls) = 0;
  Seat(1, "Ann");
  g.Bet(1, 0) = Currency::FromWhole(9'999'999);
  Roll(1, 2);  // exactly the limit still rolls
  const auto shown = platform.messages.size();
  g.Bet(1, 0) = Currency::FromWhole(9'999'999) + Currency::FromRaw(1);
  RollDice(g);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 1);
  EXPECT_EQ(platform.messages.size(), shown + 1);
  EXPECT_EQ(LastMessage().text,
            "Congratulations!\r\rAnn broke the bank limit of $9,999,999\r\r" + kReset);

  g.Bet(1, 0) = -Currency::FromWhole(9'999'999);
  Roll(1, 2);
  g.Bet(1, 0) = -(Currency::FromWhole(9'999'999) + Currency::FromRaw(1));
  RollDice(g);
  EXPECT_EQ(g.RollTally(kTableSession, kEventRolls), 2);
}

TEST_F(RollChecks, BankrollRecordsFollowEveryRoll) {
  Seat(2, "Bob");
  g.Bet(2, 0) = Currency::FromWhole(100);
  g.BankrollHigh(2) = g.BankrollLow(2) = g.BankrollSum(2) = Currency::FromWhole(100);
  for (long bank : {100, 40, 140}) {
    g.Bet(2, 0) = Currency::FromWhole(bank);
    Roll(1, 2);
  }
  EXPECT_EQ(g.BankrollSum(2), Currency::FromWhole(380));
  EXPECT_EQ(g.BankrollHigh(2), Currency::FromWhole(140));
  EXPECT_EQ(g.BankrollLow(2), Currency::FromWhole(40));
  EXPECT_EQ(g.RailAtRoll(2), Currency::FromWhole(140));
}

using RollLog = RollFixture;

TEST_F(RollLog, RollPassAndShooterLines) {
  Roll(4, 1);
  EXPECT_TRUE(EventsLogText(g).empty());  // logging off
  g.roll.LogOn = true;
  Roll(3, 2);
  Roll(6, 1);  // natural
  Roll(2, 2);
  Roll(5, 2);  // seven-out
  EXPECT_EQ(EventsLogText(g),
            " Roll #2:  5 (3.2) from manual roll pad\n"
            "    Pass (point rolled)\n"
            " Roll #3:  7 (6.1) from manual roll pad\n"
            "    Pass (natural)\n"
            " Roll #4:  4 (2.2) from manual roll pad\n"
            "    Point established\n"
            " Roll #5:  7 (5.2) from manual roll pad\n"
            "    Miss (seven-out)\n"
            "----New hand, come-out roll----------\n");
}

TEST_F(RollLog, ChangesBetweenRollsAreListedUnderTheirHeads) {
  Seat(1, "Ann");
  g.roll.LogOn = true;
  g.roll.LogRolls = g.roll.LogPasses = g.roll.LogWins = g.roll.LogLosses = false;
  Roll(1, 2);
  EXPECT_TRUE(EventsLogText(g).empty());
  g.Bet(1, 0) = Currency::FromWhole(100);  // an ATM withdrawal between rolls
  g.Bet(1, bet::kHard6) = Currency::FromWhole(5);
  g.Bet(1, PlaceId(6)) = Currency::FromWhole(12);
  g.BetWorking(1, PlaceId(6)) = 2;
  g.Bet(1, 105) = Currency::FromRaw(25000);
  Roll(4, 1);
  EXPECT_EQ(EventsLogText(g),
            "    Bankroll:\n"
            "      Ann's bankroll increased to $100 ($100 ATM withdrawal)\n"
            "    Bets:\n"
            "      Ann bet $12 on Place 6\n"
            "      Ann called ON Place 6 bet\n"
            "      Ann bet $5 on Hard 6\n"
            "    CheckStacks:\n"
            "      Ann increased CheckStack #5 to $2.5\n");
}

class RollLogField : public RollFixture {
 protected:
  RollLogField() {
    Seat(1, "Ann");
    g.Bet(1, 0) = Currency::FromWhole(100);
    Roll(1, 2);
    g.HyperDrive = true;  // settle by rule, no dialog
    g.roll.LogOn = true;
    g.roll.LogRolls = g.roll.LogPasses = g.roll.LogWins = g.roll.LogLosses = false;
  }
  void BetField() {
    g.Bet(1, bet::kField) = Currency::FromWhole(5);
    g.TotalBets(1) = Currency::FromWhole(5);
  }
};

TEST_F(RollLogField, ABetLostLastRollIsNotReportedAsRemovedAndItsReturnIsANewBet) {
  g.roll.LogBankroll = false;
  BetField();
  Roll(2, 3);  // the Field loses on 5 and comes down
  ASSERT_EQ(g.Bet(1, bet::kField), Currency());
  ClearEventsLogText(g);
  Roll(2, 2);
  EXPECT_EQ(EventsLogText(g), "");
  BetField();
  Roll(1, 2);
  EXPECT_EQ(EventsLogText(g), "    Bets:\n      Ann bet $5 on Field\n");
}

TEST_F(RollLogField, ARollsBankrollResultIsLoggedAsGain) {
  g.roll.LogBets = false;
  BetField();
  Roll(1, 2);  // the Field pays even money on 3
  EXPECT_EQ(EventsLogText(g), "    Bankroll:\n      Ann increased to $105 ($5 gain)\n");
}

}  // namespace
