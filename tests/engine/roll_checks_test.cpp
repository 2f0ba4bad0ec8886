// The checks before a roll (bet requirement, roll limit, bankroll limit)
// with their exact texts, and the events-log lines of a roll.
#include <gtest/gtest.h>

#include "engine/catalogue.h"
#include "tests/engine/roll_fixture.h"

namespace {

class RollChecks : public RollFixture {
 protected:
  const MessageRequest& LastMessage() {
    EXPECT_FALSE(platform.messages.empty());
    return platform.messages.back();
  }
  const std::string kNote =
      "Note: This requirement can be changed on the 'Bets tab' of the configuration screen.";
  const std::string kReset = "Select \"New\" from the \"Game\" menu to reset the table.";
};

TEST_F(RollChecks, ABetRequirementWithoutPlayersStopsBeforeTheDice) {
  g.rules.BetRequirement = kLineBetRequired;
  ASSERT_TRUE(QueueDice(g, 5, 5));
  RollDice(g);
  EXPECT_EQ(g.RollTally(18, 0), 0);
  EXPECT_EQ(g.roll.QueuedCount, 1);
  EXPECT_FALSE(g.RollBusy);
  const MessageRequest& m = LastMessage();
  EXPECT_EQ(m.text,
            "No players are available to bet.\r\rPlease enter a player or change the requirement "
            "to make a bet on "
            "the 'Bets tab' of the configuration screen.");
  EXPECT_EQ(m.title, "Bet Required");
  EXPECT_EQ(m.helpId, 130);
  EXPECT_EQ(m.style, 513);
}

TEST_F(RollChecks, LineBetMessagesNameTheShooterByCase) {
  g.rules.BetRequirement = kLineBetRequired;
  Seat(1, "Ann");
  g.Shooter = g.HandShooter = 1;
  RollDice(g);
  EXPECT_EQ(
      LastMessage().text,
      "A line bet is required to shoot.\r\rAnn must make a Pass Line bet or a Don't Pass bet.\r\r" +
          kNote);
  EXPECT_EQ(LastMessage().title, "Line Bet Required");
  Seat(2, "Bob");
  RollDice(g);
  EXPECT_EQ(LastMessage().text,
            "A line bet is required to shoot.\r\rAnn must make a Pass Line bet, a Don't Pass bet, "
            "or pass the dice.\r\r" +
                kNote);
  g.Point = 6;
  RollDice(g);
  EXPECT_EQ(
      LastMessage().text,
      "A line bet is required to shoot.\r\rAnn must make a Pass Line bet or pass the dice.\r\r" +
          kNote);
  EXPECT_EQ(g.RollTally(18, 0), 0);

  // A Don't Pass bet is enough; a Place bet is not.
  g.Point = 0;
  g.Bet(1, PlaceId(6)) = Currency::FromWhole(6);
  RollDice(g);
  EXPECT_EQ(g.RollTally(18, 0), 0);
  g.Bet(1, bet::kDontPass) = Currency::FromWhole(5);
  ASSERT_TRUE(QueueDice(g, 2, 3));
  const auto shown = platform.messages.size();
  RollDice(g);
  EXPECT_EQ(g.RollTally(18, 0), 1);
  EXPECT_EQ(platform.messages.size(), shown);
}

TEST_F(RollChecks, AnyBetRequirementTakesAnyRealBet) {
  g.rules.BetRequirement = kAnyBetRequired;
  Seat(4, "Dee");
  g.Shooter = g.HandShooter = 4;
  g.Bet(4, 120) = Currency::FromWhole(50);  // a CheckStack is no bet
  RollDice(g);
  EXPECT_EQ(LastMessage().text,
            "A bet is required to shoot.\r\rDee must make any bet or pass the dice.\r\r" + kNote);
  EXPECT_EQ(LastMessage().title, "Any Bet Required");
  g.Bet(4, bet::kField) = Currency::FromWhole(1);
  ASSERT_TRUE(QueueDice(g, 6, 6));
  RollDice(g);
  EXPECT_EQ(g.RollTally(18, 0), 1);
}

TEST_F(RollChecks, TheRollLimitAllowsTheLastRollAndStopsTheNext) {
  g.RollTally(18, 0) = 99'999'999;
  Roll(2, 3);
  EXPECT_EQ(g.RollTally(18, 0), 100'000'000);
  EXPECT_TRUE(platform.messages.empty());
  ASSERT_TRUE(QueueDice(g, 2, 3));
  RollDice(g);
  EXPECT_EQ(g.RollTally(18, 0), 100'000'000);
  EXPECT_EQ(LastMessage().text,
            "Sorry ... the maximum limit of 100,000,000 rolls has been reached.\r\r" + kReset);
  EXPECT_EQ(LastMessage().title, "Reached Maximum Roll Limit");
}

TEST_F(RollChecks, ABankrollOfExactlyTheLimitStillRolls) {
  Seat(1, "Ann");
  g.Bet(1, 0) = Currency::FromWhole(9'999'999);
  Roll(1, 2);
  EXPECT_EQ(g.RollTally(18, 0), 1);
  EXPECT_TRUE(platform.messages.empty());

  g.Bet(1, 0) = Currency::FromWhole(9'999'999) + Currency::FromRaw(1);
  ASSERT_TRUE(QueueDice(g, 1, 2));
  RollDice(g);
  EXPECT_EQ(g.RollTally(18, 0), 1);
  EXPECT_EQ(LastMessage().text,
            "Congratulations!\r\rAnn broke the bank limit of $9,999,999\r\r" + kReset);
  EXPECT_EQ(LastMessage().title, "Ravelton");
  EXPECT_EQ(LastMessage().style, 1);

  g.Bet(1, 0) = -Currency::FromWhole(9'999'999);
  g.roll.QueuedCount = 0;
  Roll(1, 2);
  EXPECT_EQ(g.RollTally(18, 0), 2);
  g.Bet(1, 0) = -(Currency::FromWhole(9'999'999) + Currency::FromRaw(1));
  RollDice(g);
  EXPECT_EQ(LastMessage().text,
            "Sorry ... \r\rAnn has exceeded the max loss limit of $9,999,999\r\r" + kReset);
  EXPECT_EQ(g.RollTally(18, 0), 2);
}

TEST_F(RollChecks, LimitsInHyperDriveGiveStopMessagesInstead) {
  Seat(1, "Ann");
  g.HyperDrive = true;
  g.Bet(1, 0) = -(Currency::FromWhole(9'999'999) + Currency::FromRaw(1));
  LimitExceeded(g, 1);
  EXPECT_FALSE(g.KeepRolling);
  EXPECT_EQ(g.StopMessage, "Stopped by exceeding the max loss limit of $9,999,999\r\r" + kReset);
  g.Bet(1, 0) = Currency::FromWhole(10'000'000);
  LimitExceeded(g, 1);
  EXPECT_EQ(g.StopMessage, "Stopped by breaking the bank limit of $9,999,999\r\r" + kReset);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(RollChecks, BankrollRecordsFollowEveryRoll) {
  Seat(2, "Bob");
  g.Bet(2, 0) = Currency::FromWhole(100);
  g.BankrollHigh(2) = g.BankrollLow(2) = Currency::FromWhole(100);
  g.BankrollSum(2) = Currency::FromWhole(100);
  Roll(1, 2);
  g.Bet(2, 0) = Currency::FromWhole(40);
  Roll(1, 2);
  g.Bet(2, 0) = Currency::FromWhole(140);
  Roll(1, 2);
  EXPECT_EQ(g.BankrollSum(2), Currency::FromWhole(380));
  EXPECT_EQ(g.BankrollHigh(2), Currency::FromWhole(140));
  EXPECT_EQ(g.BankrollLow(2), Currency::FromWhole(40));
  EXPECT_EQ(g.RailAtRoll(2), Currency::FromWhole(140));
}

using RollLog = RollFixture;

TEST_F(RollLog, NothingIsWrittenWithLoggingOff) {
  Roll(4, 1);
  Roll(6, 1);
  EXPECT_TRUE(g.roll.LogText.empty());
  EXPECT_EQ(g.roll.LogText.capacity(), std::string().capacity());
}

TEST_F(RollLog, RollPassAndShooterLines) {
  g.roll.LogOn = true;
  Roll(4, 1);
  Roll(3, 2);
  Roll(6, 1);  // natural
  Roll(2, 2);
  Roll(5, 2);  // seven-out
  EXPECT_EQ(g.roll.LogText,
            " Roll #1:  5 (4.1) from manual roll pad\n"
            "    Point established\n"
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
  EXPECT_TRUE(g.roll.LogText.empty());
  g.Bet(1, 0) = Currency::FromWhole(100);  // an ATM withdrawal between rolls
  g.Bet(1, bet::kHard6) = Currency::FromWhole(5);
  g.Bet(1, PlaceId(6)) = Currency::FromWhole(12);
  g.BetWorking(1, PlaceId(6)) = 2;
  g.Bet(1, 105) = Currency::FromRaw(25000);
  Roll(4, 1);
  EXPECT_EQ(g.roll.LogText,
            "    Bankroll:\n"
            "      Ann's bankroll increased to $100 ($100 ATM withdrawal)\n"
            "    Bets:\n"
            "      Ann bet $12 on Place 6\n"
            "      Ann called ON Place 6 bet\n"
            "      Ann bet $5 on Hard 6\n"
            "    CheckStacks:\n"
            "      Ann increased CheckStack #5 to $2.5\n");
  g.roll.LogText.clear();
  g.Bet(1, PlaceId(6)) = Currency::FromWhole(18);
  g.BetWorking(1, PlaceId(6)) = 1;
  g.Bet(1, bet::kHard6) = Currency();
  g.Bet(1, 0) = Currency::FromWhole(70);
  Roll(1, 4);
  EXPECT_EQ(g.roll.LogText,
            "    Bankroll:\n"
            "      Ann's bankroll decreased to $70 ($30 ATM deposit)\n"
            "    Bets:\n"
            "      Ann increased Place 6 to $18\n"
            "      Ann called Place 6 bet working normally again\n"
            "      Ann removed $5 bet on Hard 6\n");
}

TEST_F(RollLog, ABetLostLastRollIsNotReportedAsRemovedAndItsReturnIsANewBet) {
  Seat(1, "Ann");
  g.Bet(1, 0) = Currency::FromWhole(100);
  Roll(1, 2);
  g.HyperDrive = true;  // settle by rule, no dialog
  g.Bet(1, bet::kField) = Currency::FromWhole(5);
  g.TotalBets(1) = Currency::FromWhole(5);
  Roll(2, 3);  // the Field loses on 5 and comes down
  ASSERT_EQ(g.Bet(1, bet::kField), Currency());
  g.roll.LogOn = true;
  g.roll.LogRolls = g.roll.LogPasses = g.roll.LogBankroll = false;
  Roll(2, 2);
  EXPECT_EQ(g.roll.LogText, "");
  g.Bet(1, bet::kField) = Currency::FromWhole(5);
  g.TotalBets(1) = Currency::FromWhole(5);
  g.roll.LogWins = g.roll.LogLosses = false;
  Roll(2, 3);  // lost again
  g.roll.LogText.clear();
  g.Bet(1, bet::kField) = Currency::FromWhole(5);
  g.TotalBets(1) = Currency::FromWhole(5);
  Roll(1, 2);
  EXPECT_EQ(g.roll.LogText, "    Bets:\n      Ann bet $5 on Field\n");
}

TEST_F(RollLog, ARollsBankrollResultIsLoggedAsGainOrLoss) {
  Seat(1, "Ann");
  g.Bet(1, 0) = Currency::FromWhole(100);
  Roll(1, 2);
  g.roll.LogOn = true;
  g.roll.LogRolls = g.roll.LogPasses = g.roll.LogWins = g.roll.LogLosses = g.roll.LogBets = false;
  g.HyperDrive = true;  // settle by rule, no dialog
  g.Bet(1, bet::kField) = Currency::FromWhole(5);
  g.TotalBets(1) = Currency::FromWhole(5);
  Roll(1, 2);  // the Field pays even money on 3
  EXPECT_EQ(g.roll.LogText, "    Bankroll:\n      Ann increased to $105 ($5 gain)\n");
}

}  // namespace
