#include "config/payoffs.h"

#include <gtest/gtest.h>

#include <memory>

#include "core/catalogue.h"
#include "core/game.h"
#include "core/headless_platform.h"

namespace {

class Payoffs : public ::testing::Test {
 protected:
  void SetUp() override {
    SetDefaultSettings(g);
    SetDefaultPayoffs(g);
  }
  // "a to d" of a bet row as whole numbers.
  std::pair<long, long> Pair(int bet) {
    EXPECT_EQ(g.PayoffTbl(2, bet), -1_usd) << BetName(bet) << " reads 'to'";
    return {g.PayoffTbl(1, bet).raw / Currency::kScale, g.PayoffTbl(3, bet).raw / Currency::kScale};
  }
  std::pair<long, long> Field(int row) {
    return {g.FieldPayoff(1, row).raw / Currency::kScale,
            g.FieldPayoff(3, row).raw / Currency::kScale};
  }
  std::unique_ptr<Game> owner = std::make_unique<Game>();
  Game& g = *owner;
};

using P = std::pair<long, long>;

TEST_F(Payoffs, LineOddsFollowThePoint) {
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
}

// The Field's denominator is the one its rows share, pushes aside; 1 when
// they differ or every row is a push.
TEST_F(Payoffs, FieldDenominator) {
  for (int r = 1; r <= kFieldRows; ++r) g.FieldPayoff(3, r) = 2_usd;
  EXPECT_EQ(FieldDenominator(g), 2_usd);
  g.FieldPayoff(1, 4) = 0_usd;
  g.FieldPayoff(3, 4) = 7_usd;
  EXPECT_EQ(FieldDenominator(g), 2_usd);
  g.FieldPayoff(3, 5) = 1_usd;
  EXPECT_EQ(FieldDenominator(g), 1_usd);
  for (int r = 1; r <= kFieldRows; ++r) g.FieldPayoff(1, r) = 0_usd;
  EXPECT_EQ(FieldDenominator(g), 1_usd);
}

TEST_F(Payoffs, FieldPresets) {
  struct Case {
    FieldPreset preset;
    int d1, d2;
    long a, d;
  };
  const Case cases[] = {
      {kSFPass, 2, 2, -1, 3},    {kSFPass, 4, 4, -1, 11},    {kSFDontPass, 6, 4, 1, 3},
      {kSFDontPass, 6, 6, 0, 1}, {kSFHard8, 4, 4, 9, 1},     {kSFHard8, 2, 6, -1, 1},
      {kSFHorn, 1, 1, 27, 4},    {kSFHorn, 5, 6, 12, 4},     {kSFWorld, 3, 4, 0, 5},
      {kSFMidway, 3, 3, 2, 1},   {kSFCrapless, 1, 1, -5, 7}, {kSFLay4, 2, 5, 19, 40},
      {kSFField, 6, 6, 2, 1},
  };
  for (const Case& c : cases) {
    SetFieldPreset(g, c.preset);
    EXPECT_EQ(Field(FieldRow(c.d1, c.d2)), P(c.a, c.d))
        << static_cast<int>(c.preset) << ": " << c.d1 << c.d2;
  }
  SetFieldPreset(g, kSFHorn);
  EXPECT_EQ(g.FieldPayoff(2, FieldRow(1, 1)), 0_usd) << "Horn rows read 'for'";
  EXPECT_EQ(g.FieldPayoff(2, FieldRow(3, 4)), -1_usd);
}

TEST_F(Payoffs, EditingKeepsWhatTheUserSees) {
  const PayoffCell place6{PayoffTable::Bets, PlaceId(6)};
  // 3 "for" 1 is stored as 2 to 1; T then reads 3 "to" 1.
  ASSERT_TRUE(PayoffFlagKey(g, place6, 'f'));
  EXPECT_TRUE(EnterPayoffDenominator(g, place6, 1_usd));
  EnterPayoffFirst(g, place6, 3_usd);
  EXPECT_EQ(g.PayoffTbl(1, place6.row), 2_usd);
  EXPECT_EQ(PayoffShownFirst(g, place6), 3_usd);
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
}

TEST_F(Payoffs, ChecksFindTheFirstFault) {
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
}

TEST_F(Payoffs, RestoreAsksFirst) {
  HeadlessPlatform platform;
  g.platform = &platform;
  g.PayoffTbl(1, PlaceId(6)) = 3_usd;
  platform.queuedReplies.push_back({7, "", "", false});
  EXPECT_FALSE(RestoreDefaultPayoffs(g));
  EXPECT_EQ(g.PayoffTbl(1, PlaceId(6)), 3_usd);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text,
            "Do you want to restore all payoffs to \rtheir original Ravelton settings?");
  EXPECT_TRUE(RestoreDefaultPayoffs(g));  // the default answer is Yes
  EXPECT_EQ(g.PayoffTbl(1, PlaceId(6)), 7_usd);
  g.platform = nullptr;
}

}  // namespace
