// The configuration's payoffs and settings: line odds and the Field's
// presets and denominator, editing a payoff as shown, the checks that find
// the first fault with its message, the roll rate box and closing the form.
#include "config/settings.h"

#include <gtest/gtest.h>

#include <memory>
#include <tuple>

#include "config/payoffs.h"
#include "core/catalogue.h"
#include "core/game.h"
#include "core/headless_platform.h"

namespace {

using P = std::pair<long, long>;

class Settings : public ::testing::Test {
 protected:
  void SetUp() override {
    SetDefaultSettings(g);
    SetDefaultPayoffs(g);
    g.platform = &platform;
  }
  // "a to d" of a bet row and of a Field row as whole numbers.
  P Pair(int bet) {
    EXPECT_EQ(g.PayoffTbl(2, bet), -1_usd) << BetName(bet) << " reads 'to'";
    return {g.PayoffTbl(1, bet).raw / Currency::kScale, g.PayoffTbl(3, bet).raw / Currency::kScale};
  }
  P Field(int row) {
    return {g.FieldPayoff(1, row).raw / Currency::kScale,
            g.FieldPayoff(3, row).raw / Currency::kScale};
  }
  HeadlessPlatform platform;
  std::unique_ptr<Game> owner = std::make_unique<Game>();
  Game& g = *owner;
};

// The notice boxes as flags, the vig as a percent, and the roll rate box,
// which holds the rate in the unit its row chooses; kept in rolls an hour.
TEST_F(Settings, TheConfigurationFormsBoxesChecksAndClosing) {
  const bool boxes[5] = {true, false, true, false, true};
  EXPECT_EQ(NoticeFlagsFromChecks(boxes), 1 + 4 + 16);
  EXPECT_EQ(VigRateFromPercent(Currency::FromRaw(42500)), Currency::FromRaw(425));
  EXPECT_EQ(VigPercentFromRate(Currency::FromRaw(500)), 5_usd);
  // The box's value and row, the rolls an hour and the box's text for them: 30
  // seconds a roll, 0.0001 rolls an hour, as rolls a minute, a second.
  const std::tuple<Currency, int, Currency> rates[] = {
      {30_usd, 5, 120_usd},
      {36000000_usd, 5, Currency::FromRaw(1)},
      {Currency::FromRaw(1), 0, Currency::FromRaw(1)}};
  for (auto [value, row, perHour] : rates) EXPECT_EQ(RollsPerHourFromBox(value, row), perHour);
  const std::tuple<Currency, int, const char*> texts[] = {
      {120_usd, 1, "2"}, {Currency::FromRaw(1000), 2, "<.0001"}, {1000_usd, 2, "0.2778"}};
  for (auto [perHour, row, text] : texts) EXPECT_EQ(RollRateBoxText(perHour, row), text) << text;

  // The box refuses zero and a rate too fast.
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

  EXPECT_TRUE(CheckConfigValues(g, nullptr));
  EXPECT_TRUE(platform.messages.empty());

  g.CheckValue(3) = 3_usd;  // below 5: out of order before indivisible
  g.CheckValue(2) = Currency::FromRaw(75000);
  ASSERT_TRUE(f = FindConfigFault(g, nullptr));
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
  box = {"0", 0, false};
  ASSERT_TRUE(f = FindConfigFault(g, &box));
  EXPECT_EQ(f->text, "The payoff on Hard 4 must be a positive amount.");
  box.changed = true;
  ASSERT_TRUE(f = FindConfigFault(g, &box));
  EXPECT_EQ(f->title, "Sim Roll Rate Out Of Limits");

  EXPECT_FALSE(CheckConfigValues(g, &box));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, f->title);

  // Closing the form refigures the Field and the units.
  for (int r = 1; r <= kFieldRows; ++r) g.FieldPayoff(3, r) = 2_usd;
  g.PayoffTbl(1, PlaceId(6)) = 7_usd;
  g.PayoffTbl(3, PlaceId(6)) = 4_usd;
  g.Bet(1, bet::kBankroll) = 500_usd;
  g.BankrollHigh(1) = 300_usd;
  g.BankrollLow(1) = 200_usd;
  ApplyConfigureClose(g);
  EXPECT_EQ(g.PayoffTbl(3, bet::kField), 2_usd);
  EXPECT_EQ(g.PayoffTbl(0, PlaceId(6)), 4_usd);
  EXPECT_TRUE(g.BankrollHigh(1) == 500_usd && g.BankrollLow(1) == 500_usd)
      << "no roll yet: both records take the bankroll";
  g.RollTally(kTableSession, kEventRolls) = 3;
  g.Bet(1, bet::kBankroll) = 100_usd;
  ApplyConfigureClose(g);
  EXPECT_TRUE(g.BankrollHigh(1) == 500_usd && g.BankrollLow(1) == 100_usd);
}

TEST_F(Settings, LineOddsFieldDenominatorAndPresets) {
  g.Point = 6;
  SetLineOddsPayoffs(g);
  EXPECT_EQ(Pair(bet::kPassLineOdds), P(6, 5));
  EXPECT_EQ(Pair(bet::kDontPassOdds), P(5, 6));
  // Restoring the defaults during a point keeps the odds of that point.
  g.Point = 4;
  g.PayoffTbl(1, bet::kPassLineOdds) = 1_usd;
  SetDefaultPayoffs(g);
  EXPECT_EQ(Pair(bet::kPassLineOdds), P(2, 1));
  EXPECT_EQ(Pair(bet::kDontPassOdds), P(1, 2));

  // The Field's denominator is the one its rows share, pushes aside; 1 when
  // they differ or every row is a push.
  for (int r = 1; r <= kFieldRows; ++r) g.FieldPayoff(3, r) = 2_usd;
  EXPECT_EQ(FieldDenominator(g), 2_usd);
  g.FieldPayoff(1, 4) = 0_usd;
  g.FieldPayoff(3, 4) = 7_usd;
  EXPECT_EQ(FieldDenominator(g), 2_usd);
  g.FieldPayoff(3, 5) = 1_usd;
  EXPECT_EQ(FieldDenominator(g), 1_usd);
  for (int r = 1; r <= kFieldRows; ++r) g.FieldPayoff(1, r) = 0_usd;
  EXPECT_EQ(FieldDenominator(g), 1_usd);

  // Each preset's rows as "a to d".
  // The preset, a row's dice, and its "a to d".
  const std::tuple<FieldPreset, int, int, long, long> cases[] = {
      {kSFPass, 2, 2, -1, 3},    {kSFPass, 4, 4, -1, 11},    {kSFDontPass, 6, 4, 1, 3},
      {kSFDontPass, 6, 6, 0, 1}, {kSFHard8, 4, 4, 9, 1},     {kSFHard8, 2, 6, -1, 1},
      {kSFHorn, 1, 1, 27, 4},    {kSFHorn, 5, 6, 12, 4},     {kSFWorld, 3, 4, 0, 5},
      {kSFMidway, 3, 3, 2, 1},   {kSFCrapless, 1, 1, -5, 7}, {kSFLay4, 2, 5, 19, 40},
      {kSFField, 6, 6, 2, 1},
  };
  for (const auto& [preset, d1, d2, a, d] : cases) {
    SetFieldPreset(g, preset);
    EXPECT_EQ(Field(FieldRow(d1, d2)), P(a, d)) << static_cast<int>(preset) << ": " << d1 << d2;
  }
  SetFieldPreset(g, kSFHorn);
  EXPECT_EQ(g.FieldPayoff(2, FieldRow(1, 1)), 0_usd) << "Horn rows read 'for'";
  EXPECT_EQ(g.FieldPayoff(2, FieldRow(3, 4)), -1_usd);
}

TEST_F(Settings, PayoffsEditedAsShownCheckedForTheFirstFaultAndRestoredOnAsking) {
  const PayoffCell place6{PayoffTable::Bets, PlaceId(6)};
  // 3 "for" 1 is stored as 2 to 1; T then reads 3 "to" 1.
  ASSERT_TRUE(PayoffFlagKey(g, place6, 'f'));
  EXPECT_TRUE(EnterPayoffDenominator(g, place6, 1_usd));
  EnterPayoffFirst(g, place6, 3_usd);
  EXPECT_EQ(g.PayoffTbl(1, place6.row), 2_usd);
  ASSERT_TRUE(PayoffFlagKey(g, place6, 'T'));
  EXPECT_EQ(g.PayoffTbl(1, place6.row), 3_usd);
  EXPECT_EQ(g.PayoffTbl(2, place6.row), -1_usd);
  // "for" with 9 shown on d = 5; d to 3 keeps the 9.
  ASSERT_TRUE(PayoffFlagKey(g, place6, ' '));
  EXPECT_TRUE(EnterPayoffDenominator(g, place6, 5_usd));
  EnterPayoffFirst(g, place6, 9_usd);
  EXPECT_EQ(g.PayoffTbl(1, place6.row), 4_usd);
  EXPECT_TRUE(EnterPayoffDenominator(g, place6, 3_usd));
  EXPECT_EQ(g.PayoffTbl(1, place6.row), 6_usd);
  EXPECT_EQ(PayoffShownFirst(g, place6), 9_usd);
  EXPECT_FALSE(EnterPayoffDenominator(g, place6, 0_usd));
  EXPECT_EQ(g.PayoffTbl(3, place6.row), 3_usd);
  EXPECT_FALSE(PayoffFlagKey(g, place6, 'x'));
  // The same key twice changes nothing.
  ASSERT_TRUE(PayoffFlagKey(g, place6, 'F'));
  EXPECT_EQ(g.PayoffTbl(1, place6.row), 6_usd);

  // The checks find the first fault.
  EXPECT_FALSE(CheckPayoffs(g));
  g.PayoffTbl(1, PlaceId(6)) = 0_usd;
  auto f = CheckPayoffs(g);
  ASSERT_TRUE(f);
  EXPECT_EQ(f->text, "The payoff on Place 6 must be a positive amount.");
  EXPECT_TRUE(f->row == PlaceId(6) && f->tab == kTabPayoffs);
  g.PayoffTbl(1, PlaceId(6)) = 7_usd;
  // The line odds rows have no row of their own and aren't checked.
  g.PayoffTbl(1, bet::kPassLineOdds) = 0_usd;
  g.PayoffTbl(1, bet::kField) = 0_usd;
  EXPECT_FALSE(CheckPayoffs(g));

  g.rules.MaxFireBet = 0_usd;
  ASSERT_TRUE(f = CheckPayoffs(g));
  EXPECT_EQ(f->text, "The max Fire bet must be greater than zero.");
  EXPECT_EQ(f->tab, kTabBets);
  g.rules.UseFireBet = false;
  EXPECT_FALSE(CheckPayoffs(g));

  // A Field row of -1 to 2 is allowed, -3 to 2 isn't; a 0 is a push.
  g.FieldPayoff(1, 5) = -1_usd;
  g.FieldPayoff(3, 5) = 2_usd;
  g.FieldPayoff(1, 6) = 0_usd;
  EXPECT_FALSE(CheckPayoffs(g));
  g.FieldPayoff(1, 5) = -3_usd;
  ASSERT_TRUE(f = CheckPayoffs(g));
  EXPECT_EQ(f->text, "The loss on any Field bet payoff cannot exceed the amount wagered.");
  EXPECT_EQ(f->fieldRow, 5);
  g.FieldPayoff(1, 5) = -1_usd;
  for (int r = 1; r <= kFieldRows; ++r)
    if (g.FieldPayoff(1, r).raw > 0) g.FieldPayoff(1, r) = 0_usd;
  ASSERT_TRUE(f = CheckPayoffs(g));
  EXPECT_EQ(f->text, "At least one of the Field bet payoffs must be postiive.");

  // Restoring the defaults asks first.
  g.PayoffTbl(1, PlaceId(6)) = 3_usd;
  platform.queuedReplies.push_back({7, "", "", false});
  EXPECT_FALSE(RestoreDefaultPayoffs(g));
  EXPECT_EQ(g.PayoffTbl(1, PlaceId(6)), 3_usd);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text,
            "Do you want to restore all payoffs to \rtheir original Ravelton settings?");
  EXPECT_TRUE(RestoreDefaultPayoffs(g));  // the default answer is Yes
  EXPECT_EQ(g.PayoffTbl(1, PlaceId(6)), 7_usd);
}

}  // namespace
