#include "engine/setting_changes.h"

#include <gtest/gtest.h>

#include <memory>

#include "core/message_dialog.h"
#include "config/payoffs.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/headless_platform.h"

namespace {

class SettingChanges : public ::testing::Test {
 protected:
  void SetUp() override {
    SetDefaultSettings(g);
    SetDefaultPayoffs(g);
    g.platform = &platform;
    g.PlayerName[1] = "Ann";
    g.PlayerCount = 1;
  }
  void TearDown() override { g.platform = nullptr; }
  void Answer(int answer) { platform.queuedReplies.push_back({answer, "", "", false}); }
  // Puts an amount straight on a bet, the ledger kept in step.
  void Stake(int p, int b, Currency amount) {
    g.Bet(p, b) += amount;
    g.TotalBets(p) += amount;
  }
  HeadlessPlatform platform;
  std::unique_ptr<Game> owner = std::make_unique<Game>();
  Game& g = *owner;
};

TEST_F(SettingChanges, FireOffAnsweredNoKeepsEverything) {
  g.Bet(1, 0) = 100_usd;
  Stake(1, bet::kFire, 5_usd);
  Answer(kAnswerNo);
  EXPECT_FALSE(ChangeBetSwitch(g, BetSwitch::Fire, false));
  EXPECT_TRUE(g.rules.UseFireBet && g.Bet(1, bet::kFire) == 5_usd);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text,
            "There are presently wagers on the Fire bet which will be removed if you continue with "
            "this operation.  Would you like to continue?");
}

TEST_F(SettingChanges, BigSixEightOffAnsweredYesRemovesEveryonesBets) {
  g.PlayerName[3] = "Bo";
  g.PlayerCount = 2;
  g.Bet(1, 0) = 100_usd;
  g.Bet(3, 0) = 100_usd;
  Stake(1, bet::kBig6, 10_usd);
  Stake(3, bet::kBig8, 6_usd);
  Stake(3, bet::kField, 4_usd);
  Answer(kAnswerYes);
  EXPECT_TRUE(ChangeBetSwitch(g, BetSwitch::Big68, false));
  EXPECT_FALSE(g.rules.UseBig68);
  EXPECT_TRUE(g.Bet(1, bet::kBig6).IsZero() && g.Bet(3, bet::kBig8).IsZero());
  EXPECT_TRUE(g.Bet(3, bet::kField) == 4_usd && g.TotalBets(3) == 4_usd);
  EXPECT_EQ(platform.messages.size(), 1u);
  EXPECT_GT(platform.redraws[static_cast<int>(Redraw::Table)], 0);
}

TEST_F(SettingChanges, SwitchesWithoutBetsDontAsk) {
  EXPECT_TRUE(ChangeBetSwitch(g, BetSwitch::Midway, false));
  Stake(1, bet::kMidway, 5_usd);  // switching on never asks
  EXPECT_FALSE(g.rules.UseMidwayBet);
  EXPECT_TRUE(ChangeBetSwitch(g, BetSwitch::Midway, true) && g.rules.UseMidwayBet);
  EXPECT_TRUE(platform.messages.empty());
}

// A Buy 4 of 100 whose vig of 5 is charged on a win only, with 104 in all.
class VigChanges : public SettingChanges {
 protected:
  void SetUp() override {
    SettingChanges::SetUp();
    g.rules.BuyVigUpFront = false;
    g.Bet(1, 0) = 104_usd;
    Stake(1, BuyId(4), 100_usd);
    g.BuyVig(1, 0) = 5_usd;
  }
};

TEST_F(VigChanges, ChargingUpFrontAgainNeedsTheBankroll) {
  EXPECT_FALSE(ChangeVigUpFront(g, VigSide::Buy, true));
  EXPECT_TRUE(!g.rules.BuyVigUpFront && g.TotalBets(1) == 100_usd) << "option 1 stands again";
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text,
            "You're not allowed to change this setting at this time because you don't have enough "
            "bankroll remaining to pay the added up-front vig that would be required.\r\r"
            "You can remedy this by doing one or more of the following:\r\r"
            " -- Make a withdrawal from the ATM\r"
            " -- Reduce the amount on current bets\r"
            " -- Check \"Allow negative bankroll amounts\"");
  g.betting.AllowNegBankroll(1) = true;
  EXPECT_TRUE(ChangeVigUpFront(g, VigSide::Buy, true));
  EXPECT_TRUE(g.rules.BuyVigUpFront && g.TotalBets(1) == 105_usd);
}

TEST_F(VigChanges, RateAndRoundingRefigureTheVig) {
  EXPECT_TRUE(
      ChangeVigRate(g, VigSide::Buy, Currency::FromRaw(1000)));  // charged on a win: no limit
  EXPECT_EQ(g.BuyVig(1, 0), 10_usd);
  EXPECT_TRUE(ChangeVigRate(g, VigSide::Buy, Currency::FromRaw(500)));
  g.Bet(1, 0) = 106_usd;
  ASSERT_TRUE(ChangeVigUpFront(g, VigSide::Buy, true));
  EXPECT_EQ(g.TotalBets(1), 105_usd);
  // 4.5% of 100 is 4.50: rounded up it is 5, rounded normally 4.
  EXPECT_TRUE(ChangeVigRate(g, VigSide::Buy, Currency::FromRaw(450)));
  EXPECT_EQ(g.BuyVig(1, 0), 4_usd);
  EXPECT_TRUE(ChangeVigRounding(g, VigSide::Buy, kVigRoundUp));
  EXPECT_EQ(g.BuyVig(1, 0), 5_usd);
  // 7% would take the rail below zero: refused, the old rate and vig stand.
  EXPECT_FALSE(ChangeVigRate(g, VigSide::Buy, Currency::FromRaw(700)));
  EXPECT_EQ(g.rules.BuyVigRate, Currency::FromRaw(450));
  EXPECT_TRUE(g.BuyVig(1, 0) == 5_usd && g.TotalBets(1) == 105_usd);
  EXPECT_EQ(platform.messages.size(), 1u);
}

TEST_F(SettingChanges, LayVigIsTheTwin) {
  g.Bet(1, 0) = 40_usd;
  g.rules.LayVigUpFront = false;
  Stake(1, LayId(4), 40_usd);
  g.LayVig(1, 0) = 1_usd;
  EXPECT_FALSE(ChangeVigUpFront(g, VigSide::Lay, true));
  EXPECT_TRUE(!g.rules.LayVigUpFront && platform.messages.size() == 1u);
  EXPECT_TRUE(ChangeVigRate(g, VigSide::Lay, Currency::FromRaw(1000)));
  EXPECT_EQ(g.LayVig(1, 0), 2_usd);  // 10% of the win of 20
}

// Restoring puts back the bet's own default: off for Place bets, on for the Field.
TEST_F(SettingChanges, RestoringAWorkingDefault) {
  for (const auto& [b, restored] : {std::pair{PlaceId(6), 0}, {bet::kField, 1}}) {
    SetTableWorkingDefault(g, b, 1 - restored);
    ASSERT_EQ(g.BetWorkingDefault(0, b), 1 - restored);
    RestoreTableWorkingDefault(g, b);
    EXPECT_EQ(g.BetWorkingDefault(0, b), restored) << b;
  }
  SetTableWorkingDefault(g, 99, 1);  // not a bet: nothing
  EXPECT_EQ(g.BetWorkingDefault(0, 99), 0);
}

}  // namespace
