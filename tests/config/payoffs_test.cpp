#include "config/payoffs.h"

#include <gtest/gtest.h>

#include <memory>

#include "engine/catalogue.h"
#include "engine/game.h"
#include "engine/headless_platform.h"

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

TEST_F(Payoffs, DefaultBetRows) {
  struct Row {
    int bet;
    long a, d;
  };
  const Row rows[] = {
      {LayId(4), 1, 2},
      {LayId(10), 1, 2},
      {DontComeId(4) + 6, 1, 2},
      {DontComeId(10) + 6, 1, 2},
      {LayId(5), 2, 3},
      {LayId(9), 2, 3},
      {DontComeId(5) + 6, 2, 3},
      {DontComeId(9) + 6, 2, 3},
      {LayId(6), 5, 6},
      {LayId(8), 5, 6},
      {DontComeId(6) + 6, 5, 6},
      {DontComeId(8) + 6, 5, 6},
      {ComeId(4) + 6, 2, 1},
      {ComeId(10) + 6, 2, 1},
      {BuyId(4), 2, 1},
      {BuyId(10), 2, 1},
      {ComeId(5) + 6, 3, 2},
      {ComeId(9) + 6, 3, 2},
      {BuyId(5), 3, 2},
      {BuyId(9), 3, 2},
      {ComeId(6) + 6, 6, 5},
      {ComeId(8) + 6, 6, 5},
      {BuyId(6), 6, 5},
      {BuyId(8), 6, 5},
      {PlaceId(4), 9, 5},
      {PlaceId(10), 9, 5},
      {PlaceId(5), 7, 5},
      {PlaceId(9), 7, 5},
      {PlaceId(6), 7, 6},
      {PlaceId(8), 7, 6},
      {bet::kHard4, 7, 1},
      {bet::kHard10, 7, 1},
      {bet::kHard6, 9, 1},
      {bet::kHard8, 9, 1},
      {bet::kTwo, 30, 1},
      {bet::kTwelve, 30, 1},
      {bet::kThree, 15, 1},
      {bet::kEleven, 15, 1},
      {bet::kSeven, 4, 1},
      {bet::kCraps, 7, 1},
      {bet::kCandE, 1, 2},
      {bet::kHorn, 1, 4},
      {bet::kWorld, 1, 5},
      // Even money.
      {bet::kPassLine, 1, 1},
      {bet::kCome, 1, 1},
      {ComeId(6), 1, 1},
      {DontComeId(4), 1, 1},
      {bet::kField, 1, 1},
      {bet::kBig6, 1, 1},
      {bet::kOver7, 1, 1},
      {bet::kMidway, 1, 1},
      {bet::kFire, 1, 1},
  };
  for (const Row& r : rows) EXPECT_EQ(Pair(r.bet), P(r.a, r.d)) << BetName(r.bet);
  for (int h = bet::kHopFirst; h <= bet::kHopLast; ++h) {
    const std::string_view name = BetName(h);
    const bool pair = name[4] == name[5];  // "Hop 22"
    EXPECT_EQ(Pair(h), P(pair ? 30 : 15, 1)) << name;
  }
}

TEST_F(Payoffs, DefaultFieldMidwayFire) {
  for (int r = 1; r <= kFieldRows; ++r) {
    const int t = kFieldRowTotal[r];
    const P want = (t == 2 || t == 12) ? P(2, 1) : (t >= 5 && t <= 8) ? P(-1, 1) : P(1, 1);
    EXPECT_EQ(Field(r), want) << kFieldRowLabel[r];
    EXPECT_EQ(g.FieldPayoff(2, r), -1_usd);
  }
  EXPECT_EQ(g.MidwayPayoff(1, 1), 2_usd);
  EXPECT_EQ(g.MidwayPayoff(1, 5), 2_usd);
  for (int r = 2; r <= 4; ++r) EXPECT_EQ(g.MidwayPayoff(1, r), 1_usd);
  for (int r = 0; r <= 3; ++r) EXPECT_EQ(g.FirePayoff(1, r), -1_usd);
  EXPECT_EQ(g.FirePayoff(1, 4), 24_usd);
  EXPECT_EQ(g.FirePayoff(1, 5), 249_usd);
  EXPECT_EQ(g.FirePayoff(1, 6), 999_usd);
  for (int r = 0; r <= 6; ++r) EXPECT_EQ(g.FirePayoff(3, r), 1_usd);
}

TEST_F(Payoffs, FieldRowsByDice) {
  EXPECT_EQ(FieldRow(1, 1), 1);
  EXPECT_EQ(FieldRow(3, 1), 3);
  EXPECT_EQ(FieldRow(2, 2), 4);
  EXPECT_EQ(FieldRow(5, 2), 11);
  EXPECT_EQ(FieldRow(4, 4), 15);
  EXPECT_EQ(FieldRow(6, 6), 21);
  for (int d1 = 1; d1 <= 6; ++d1)
    for (int d2 = 1; d2 <= 6; ++d2) EXPECT_EQ(kFieldRowTotal[FieldRow(d1, d2)], d1 + d2);
}

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

TEST_F(Payoffs, FieldDenominator) {
  EXPECT_EQ(FieldDenominator(g), 1_usd);
  for (int r = 1; r <= kFieldRows; ++r) {
    g.FieldPayoff(1, r) = r % 2 ? 3_usd : -1_usd;
    g.FieldPayoff(3, r) = r % 2 ? 2_usd : 1_usd;
  }
  EXPECT_EQ(FieldDenominator(g), 1_usd);
  for (int r = 1; r <= kFieldRows; ++r) g.FieldPayoff(3, r) = 2_usd;
  EXPECT_EQ(FieldDenominator(g), 2_usd);
  g.FieldPayoff(1, 4) = 0_usd;  // pushes don't count
  g.FieldPayoff(3, 4) = 7_usd;
  EXPECT_EQ(FieldDenominator(g), 2_usd);
  for (int r = 1; r <= kFieldRows; ++r) g.FieldPayoff(1, r) = 0_usd;
  EXPECT_EQ(FieldDenominator(g), 1_usd);
}

TEST_F(Payoffs, FieldPresets) {
  SetFieldPreset(g, kSFPass);
  EXPECT_EQ(Field(FieldRow(1, 1)), P(-1, 1));
  EXPECT_EQ(Field(FieldRow(2, 2)), P(-1, 3));
  EXPECT_EQ(Field(FieldRow(4, 5)), P(-1, 5));
  EXPECT_EQ(Field(FieldRow(4, 4)), P(-1, 11));
  EXPECT_EQ(Field(FieldRow(3, 4)), P(1, 1));
  EXPECT_EQ(Field(FieldRow(5, 6)), P(1, 1));
  EXPECT_EQ(Field(FieldRow(6, 6)), P(-1, 1));
  SetFieldPreset(g, kSFDontPass);
  EXPECT_EQ(Field(FieldRow(1, 2)), P(1, 1));
  EXPECT_EQ(Field(FieldRow(6, 4)), P(1, 3));
  EXPECT_EQ(Field(FieldRow(2, 5)), P(-1, 1));
  EXPECT_EQ(Field(FieldRow(6, 6)), P(0, 1));
  SetFieldPreset(g, kSFHard8);
  EXPECT_EQ(Field(FieldRow(4, 4)), P(9, 1));
  EXPECT_EQ(Field(FieldRow(2, 6)), P(-1, 1));
  EXPECT_EQ(Field(FieldRow(1, 1)), P(0, 1));
  SetFieldPreset(g, kSFHorn);
  EXPECT_EQ(Field(FieldRow(1, 1)), P(27, 4));
  EXPECT_EQ(g.FieldPayoff(2, FieldRow(1, 1)), 0_usd) << "Horn rows read 'for'";
  EXPECT_EQ(Field(FieldRow(5, 6)), P(12, 4));
  EXPECT_EQ(Field(FieldRow(3, 4)), P(-1, 1));
  EXPECT_EQ(g.FieldPayoff(2, FieldRow(3, 4)), -1_usd);
  SetFieldPreset(g, kSFWorld);
  EXPECT_EQ(Field(FieldRow(3, 4)), P(0, 5));
  SetFieldPreset(g, kSFMidway);
  EXPECT_EQ(Field(FieldRow(3, 3)), P(2, 1));
  EXPECT_EQ(Field(FieldRow(1, 5)), P(1, 1));
  EXPECT_EQ(Field(FieldRow(1, 6)), P(1, 1));
  EXPECT_EQ(Field(FieldRow(4, 5)), P(-1, 1));
  SetFieldPreset(g, kSFCrapless);
  EXPECT_EQ(Field(FieldRow(1, 1)), P(-5, 7));
  EXPECT_EQ(Field(FieldRow(1, 2)), P(-1, 2));
  SetFieldPreset(g, kSFLay4);
  EXPECT_EQ(Field(FieldRow(2, 2)), P(-1, 1));
  EXPECT_EQ(Field(FieldRow(2, 5)), P(19, 40));
  EXPECT_EQ(Field(FieldRow(6, 6)), P(0, 1));
  SetFieldPreset(g, kSFField);
  EXPECT_EQ(Field(FieldRow(6, 6)), P(2, 1));
  EXPECT_EQ(Field(FieldRow(4, 4)), P(-1, 1));
  EXPECT_EQ(Field(FieldRow(5, 5)), P(1, 1));
}

TEST_F(Payoffs, PayoffListRowsAndLabels) {
  EXPECT_EQ(PayoffRowCode(0), 1);
  EXPECT_EQ(PayoffRowCode(41), 42);
  EXPECT_EQ(PayoffRowCode(42), 45);
  EXPECT_EQ(PayoffRowCode(43), 48);
  EXPECT_EQ(PayoffRowCode(44), 50);
  EXPECT_EQ(PayoffRowCode(55), 61);
  EXPECT_EQ(PayoffRowCode(56), 65);
  EXPECT_EQ(PayoffRowCode(88), 97);
  EXPECT_EQ(PayoffRowCode(89), 0);
  EXPECT_EQ(PayoffRowLabel(7), "DP/DC 4");
  EXPECT_EQ(PayoffRowLabel(16), "DP/DC 8 Odds");
  EXPECT_EQ(PayoffRowLabel(22), "Pass/Come 8");
  EXPECT_EQ(PayoffRowLabel(30), "Pass/Come 10 Odds");
  EXPECT_EQ(PayoffRowLabel(45), "Passline/Come (c.o.)");
  EXPECT_EQ(PayoffRowLabel(48), "Don't Pass/Come (c.o.)");
  EXPECT_EQ(PayoffRowLabel(33), "Place 6");
  EXPECT_EQ(PayoffRowLabel(87), "  -- 7");
  EXPECT_EQ(PayoffRowLabel(92), "  -- 1 point");
  EXPECT_EQ(PayoffRowLabel(95), "  -- 4 points");
  EXPECT_FALSE(PayoffCellOf(84));
  EXPECT_FALSE(PayoffCellOf(49)) << "the Field has its own list";
  EXPECT_EQ(PayoffCellOf(89)->row, 5);
  EXPECT_EQ(PayoffCellOf(91)->row, 0);
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
  EXPECT_EQ(f->title, "Payoff ratio error");
  EXPECT_EQ(f->row, PlaceId(6));
  EXPECT_EQ(f->tab, kTabPayoffs);
  g.PayoffTbl(1, PlaceId(6)) = 7_usd;
  // The line odds rows have no row of their own and aren't checked.
  g.PayoffTbl(1, bet::kPassLineOdds) = 0_usd;
  g.PayoffTbl(1, bet::kField) = 0_usd;
  EXPECT_FALSE(CheckPayoffs(g));

  g.MidwayPayoff(1, 3) = 0_usd;
  ASSERT_TRUE(f = CheckPayoffs(g));
  EXPECT_EQ(f->text, "The payoffs on Midway must be positive amounts.");
  g.MidwayPayoff(1, 3) = 1_usd;

  g.rules.MaxFireBet = 0_usd;
  ASSERT_TRUE(f = CheckPayoffs(g));
  EXPECT_EQ(f->text, "The max Fire bet must be greater than zero.");
  EXPECT_EQ(f->tab, kTabBets);
  g.rules.UseFireBet = false;
  EXPECT_FALSE(CheckPayoffs(g));

  g.FirePayoff(1, 2) = -2_usd;
  ASSERT_TRUE(f = CheckPayoffs(g));
  EXPECT_EQ(f->text, "The loss on any Fire bet payoff cannot exceed the amount wagered.");
  g.FirePayoff(1, 2) = -1_usd;

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
  EXPECT_EQ(f->title, "Payoff error");
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
  EXPECT_EQ(platform.messages[0].helpId, 138);
  EXPECT_TRUE(RestoreDefaultPayoffs(g));  // the default answer is Yes
  EXPECT_EQ(g.PayoffTbl(1, PlaceId(6)), 7_usd);
  g.platform = nullptr;
}

}  // namespace
