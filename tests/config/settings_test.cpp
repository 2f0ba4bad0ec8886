#include "config/settings.h"

#include <gtest/gtest.h>

#include <memory>

#include "config/payoffs.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/headless_platform.h"

namespace {

class Settings : public ::testing::Test {
 protected:
  void SetUp() override {
    SetDefaultSettings(g);
    SetDefaultPayoffs(g);
    g.platform = &platform;
  }
  HeadlessPlatform platform;
  std::unique_ptr<Game> owner = std::make_unique<Game>();
  Game& g = *owner;
};

TEST_F(Settings, NoticeFlagsAndVigPercent) {
  const bool boxes[5] = {true, false, true, false, true};
  EXPECT_EQ(NoticeFlagsFromChecks(boxes), 1 + 4 + 16);
  EXPECT_EQ(VigRateFromPercent(Currency::FromRaw(42500)), Currency::FromRaw(425));
  EXPECT_EQ(VigPercentFromRate(Currency::FromRaw(500)), 5_usd);
}

// The box holds the rate in the unit its row chooses; kept in rolls an hour.
TEST_F(Settings, RollRateRows) {
  EXPECT_EQ(RollsPerHourFromBox(30_usd, 5), 120_usd);                     // 30 secs / roll
  EXPECT_EQ(RollsPerHourFromBox(36000000_usd, 5), Currency::FromRaw(1));  // 0.0001
  EXPECT_EQ(RollsPerHourFromBox(Currency::FromRaw(1), 0), Currency::FromRaw(1));
  EXPECT_EQ(RollRateBoxText(120_usd, 1), "2");  // as rolls / min
  EXPECT_EQ(RollRateBoxText(Currency::FromRaw(1000), 2), "<.0001");
  EXPECT_EQ(RollRateBoxText(1000_usd, 2), "0.2778");
}

TEST_F(Settings, CheckRollRateRefusesZeroAndTooFast) {
  RollRateBox box{"10001", 2, true};
  auto f = CheckRollRate(g, box);
  ASSERT_TRUE(f);
  EXPECT_EQ(f->text, "The maximum simulated Rolls / sec rate is 10,000.");
  EXPECT_TRUE(box.changed);
  box = {"10001", 4, true};
  EXPECT_FALSE(CheckRollRate(g, box));
  EXPECT_FALSE(box.changed);
  EXPECT_EQ(g.rules.RollsPerHour, Currency::FromRaw(60));  // 60 / 10001 rolls an hour
  box = {"0", 0, true};
  ASSERT_TRUE(f = CheckRollRate(g, box));
  EXPECT_EQ(f->text, "The simulated roll rate must be greater than zero.");
  box = {"", 0, true};
  EXPECT_TRUE(CheckRollRate(g, box));
}

TEST_F(Settings, ConfigChecksInOrderAndTheNotice) {
  EXPECT_TRUE(CheckConfigValues(g, nullptr));
  EXPECT_TRUE(platform.messages.empty());

  g.CheckValue(3) = 3_usd;  // below 5: out of order before indivisible
  g.CheckValue(2) = Currency::FromRaw(75000);
  auto f = FindConfigFault(g, nullptr);
  ASSERT_TRUE(f);
  EXPECT_EQ(f->text, "All checks must be wholly divisible by the smallest check.");
  EXPECT_EQ(f->row, 2);
  g.CheckValue(2) = 5_usd;
  ASSERT_TRUE(f = FindConfigFault(g, nullptr));
  EXPECT_TRUE(f->text.starts_with("Checks must be listed in ascending order")) << f->text;
  g.CheckValue(3) = 25_usd;

  g.rules.MinPlacardBet = Currency::FromRaw(5000);
  ASSERT_TRUE(f = FindConfigFault(g, nullptr));
  EXPECT_EQ(f->text, "The minimum bet cannot be less than the smallest check denomination of 1");
  g.rules.MinPlacardBet = 10_usd;
  g.rules.MaxPlacardBet = 5_usd;
  ASSERT_TRUE(f = FindConfigFault(g, nullptr));
  EXPECT_EQ(f->text.substr(0, 15), "The maximum bet");
  g.rules.MaxPlacardBet = 10_usd;

  // The roll rate is checked before the payoffs, and only when marked.
  g.PayoffTbl(1, bet::kHard4) = 0_usd;
  RollRateBox box{"0", 0, false};
  ASSERT_TRUE(f = FindConfigFault(g, &box));
  EXPECT_EQ(f->text, "The payoff on Hard 4 must be a positive amount.");
  box.changed = true;
  ASSERT_TRUE(f = FindConfigFault(g, &box));
  EXPECT_EQ(f->title, "Sim Roll Rate Out Of Limits");

  EXPECT_FALSE(CheckConfigValues(g, &box));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, f->title);
}

TEST_F(Settings, ClosingTheFormRefiguresFieldAndUnits) {
  for (int r = 1; r <= kFieldRows; ++r) g.FieldPayoff(3, r) = 2_usd;
  g.PayoffTbl(1, PlaceId(6)) = 7_usd;
  g.PayoffTbl(3, PlaceId(6)) = 4_usd;
  g.Bet(1, 0) = 500_usd;
  g.BankrollHigh(1) = 300_usd;
  g.BankrollLow(1) = 200_usd;
  ApplyConfigureClose(g);
  EXPECT_EQ(g.PayoffTbl(3, bet::kField), 2_usd);
  EXPECT_EQ(g.PayoffTbl(0, PlaceId(6)), 4_usd);
  EXPECT_TRUE(g.BankrollHigh(1) == 500_usd && g.BankrollLow(1) == 500_usd)
      << "no roll yet: both records take the bankroll";
  g.RollTally(kTableSession, kEventRolls) = 3;
  g.Bet(1, 0) = 100_usd;
  ApplyConfigureClose(g);
  EXPECT_TRUE(g.BankrollHigh(1) == 500_usd && g.BankrollLow(1) == 100_usd);
}

}  // namespace
